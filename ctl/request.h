// SPDX-License-Identifier: MIT
// What the user asks for, as the command line says it.
#pragma once

#include <QtCore/QByteArray>
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

/// The request, or the text that answers the command line (--help). Throws what is wrong with it.
std::variant<Request, QByteArray> requestOf(int argc, char** argv);

/// Whether a document is asked for, right as the other words may be or not.
bool asksForJson(int argc, char** argv);

} // namespace tavrel::ctl
