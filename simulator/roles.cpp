// SPDX-License-Identifier: MIT
#include "simulator/roles.h"

#include "simulator/files.h"
#include "simulator/settings.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace simulator {
namespace {

struct Role {
    const char* name;
    QString Settings::*path;
    const char* otherwise; ///< what happens without the file
};

constexpr Role roles[] = {
    {"plan", &Settings::planFile, "none is followed"},
    {"control socket", &Settings::controlFile, "no commands are taken"},
    {"log file", &Settings::logFile, "logging to standard error"},
    {"journal", &Settings::journalFile, "there is none"},
};

} // namespace

QStringList keepRolesApart(Settings& settings)
{
    using Use = std::pair<QString, QString>; // path and role
    std::vector<Use> uses = {{settings.file, QStringLiteral("settings file")}};
    for (const CameraSettings& camera : settings.cameras) {
        uses.emplace_back(camera.tableFile,
                          QStringLiteral("tableFile of [%1]").arg(camera.section));
    }
    QStringList problems;
    for (const Role& role : roles) {
        QString& path = settings.*role.path;
        const QString name = QLatin1String(role.name);
        const auto other = std::find_if(uses.begin(), uses.end(), [&path](const Use& use) {
            return isSameFile(path, use.first);
        });
        if (other == uses.end()) {
            uses.emplace_back(path, name);
        } else {
            problems << QStringLiteral("%1 %2: it is the %3, too; %4")
                            .arg(name, path, other->second, QLatin1String(role.otherwise));
            path.clear();
        }
    }
    return problems;
}

} // namespace simulator
