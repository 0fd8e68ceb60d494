// SPDX-License-Identifier: MIT
// How the program ends.
#pragma once

#include <QtCore/QString>

#include <exception>

namespace tavrel::ctl {

/// The program's exit status.
enum class Status : int {
    Done = 0,
    Differs = 1,  ///< the camera refused, or holds something else
    Usage = 2,    ///< wrong words or a wrong file
    NoCamera = 3, ///< no port, link or camera
};

/// Thrown: why nothing more can be done.
class Failure : public std::exception {
public:
    Failure(Status exitStatus, QString why) : status(exitStatus), message(std::move(why)) {}

    Status status;
    QString message; ///< one or more sentences, without the program's name
};

} // namespace tavrel::ctl
