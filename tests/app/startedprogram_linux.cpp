// SPDX-License-Identifier: MIT
// What the loader takes on Linux: the library in the folders of a variable before its own.
#include "tests/app/startedprogram.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

namespace app {

void StartedProgram::putRecordingSdkInFront()
{
    environment.insert(QStringLiteral("LD_LIBRARY_PATH"), QStringLiteral(TAVREL_RECORDING_FOLDER));
}

QString StartedProgram::sdkInFront() const
{
    return QStringLiteral(TAVREL_RECORDING_FOLDER) + QStringLiteral("/libombrix.sdk.so");
}

QString StartedProgram::loadedSdk() const
{
    QFile maps(QStringLiteral("/proc/%1/maps").arg(process.processId()));
    if (!maps.open(QIODevice::ReadOnly)) {
        return {};
    }
    const auto match = QRegularExpression(QStringLiteral("/\\S*libombrix\\.sdk\\.so"))
                           .match(QString::fromUtf8(maps.readAll()));
    return match.captured();
}

} // namespace app
