// SPDX-License-Identifier: MIT
// What the loader takes on Windows: the library beside the program.
#include "tests/app/startedprogram.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/qt_windows.h>

#include <array>

#include <psapi.h>

namespace app {

namespace {

/// Other letters for the same name: Windows tells no case apart.
constexpr char sdkName[] = "ombrix.sdk.dll";

} // namespace

void StartedProgram::putRecordingSdkInFront()
{
    QDir().mkpath(directory.filePath(QStringLiteral("program")));
    program = directory.filePath(QStringLiteral("program/tavrel.exe"));
    QFile::copy(QStringLiteral(TAVREL_PROGRAM), program);
    QFile::copy(QStringLiteral(TAVREL_RECORDING), sdkInFront());
}

QString StartedProgram::sdkInFront() const
{
    return directory.filePath(QStringLiteral("program/") + QLatin1String(sdkName));
}

QString StartedProgram::loadedSdk() const
{
    const HANDLE handle = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE,
                                      static_cast<DWORD>(process.processId()));
    std::array<HMODULE, 1024> modules{};
    DWORD filled = 0;
    EnumProcessModules(handle, modules.data(), sizeof modules, &filled);
    QString found;
    for (std::size_t index = 0; index < filled / sizeof(HMODULE); ++index) {
        std::array<wchar_t, MAX_PATH> path{};
        GetModuleFileNameExW(handle, modules.at(index), path.data(), MAX_PATH);
        const QString name = QDir::fromNativeSeparators(QString::fromWCharArray(path.data()));
        if (name.endsWith(QLatin1Char('/') + QLatin1String(sdkName), Qt::CaseInsensitive)) {
            found = name;
        }
    }
    CloseHandle(handle);
    return found;
}

} // namespace app
