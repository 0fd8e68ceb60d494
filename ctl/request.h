// SPDX-License-Identifier: MIT
// What the user asks for, as the command line says it.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>
#include <variant>

namespace tavrel::ctl {

struct Request {
    QString task;      ///< "ports", "get", "table read" ...
    QString port;      ///< empty: none
    QStringList words; ///< names, assignments or files
    bool json = false;
    double timeout = 30; ///< seconds
    std::optional<int> linkRate;
    bool expert = false;
    bool dryRun = false;
    bool withBaudRate = false;
    bool yes = false;
    QString picture; ///< file; empty: none
};

/// The request, or the exit status when the command line is answered already (--help, a mistake).
std::variant<Request, int> requestOf(int argc, char** argv);

} // namespace tavrel::ctl
