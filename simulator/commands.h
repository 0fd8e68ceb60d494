// SPDX-License-Identifier: MIT
// The commands by which a person, or another process, works a running simulator.
#pragma once

#include <QtCore/QByteArray>

namespace simulator {

/// What came of a command.
enum class Status {
    Done = 0,
    Refused = 1, ///< what it is about is not there, or not as it must be; nothing has changed
    Misused = 2, ///< these are not the words of a command
};

struct Reply {
    Status status;
    QByteArray text; ///< what was asked for, or why nothing was done; lines in UTF-8
};

/// Carries out a command. request: its words, one in a line.
Reply carryOut(const QByteArray& request);

/// The same as it goes to another process: the number of the status in a line, then the text.
QByteArray answerTo(const QByteArray& request);

} // namespace simulator
