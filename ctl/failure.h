// SPDX-License-Identifier: MIT
// How the program ends.
#pragma once

#include <QtCore/QJsonObject>
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
    Failure(Status exitStatus, QString why, QJsonObject facts = {})
        : status(exitStatus), message(std::move(why)), details(std::move(facts))
    {}

    Status status;
    QString message;     ///< one or more sentences, without the program's name
    QJsonObject details; ///< what the message tells, for programs
};

} // namespace tavrel::ctl
