// SPDX-License-Identifier: MIT
#include "tests/bpr/failingread.h"

#include "tests/bpr/importedcall_windows.h"

#include <QtCore/QString>

#include <array>

namespace {

QString failingName;
tablefiles::FailingRead::Failure failingHow = tablefiles::FailingRead::Error;
int failures = 0;
int seen = 0; ///< reads that could have failed

using Read = BOOL WINAPI(HANDLE, LPVOID, DWORD, LPDWORD, LPOVERLAPPED);
Read* systemRead = nullptr;

bool isFailing(HANDLE file)
{
    std::array<wchar_t, MAX_PATH> path{};
    const DWORD length =
        failingName.isEmpty() ? 0 : GetFinalPathNameByHandleW(file, path.data(), MAX_PATH, 0);
    return length > 0 && length < MAX_PATH &&
           QString::fromWCharArray(path.data()).endsWith(failingName);
}

BOOL WINAPI readFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD done, LPOVERLAPPED overlapped)
{
    if (!isFailing(file) || (failingHow == tablefiles::FailingRead::Late && seen++ == 0)) {
        return systemRead(file, buffer, size, done, overlapped);
    }
    ++failures;
    *done = 0;
    if (failingHow != tablefiles::FailingRead::Short) {
        SetLastError(ERROR_IO_DEVICE);
        return FALSE;
    }
    // One byte, and then the end of the file.
    return failures == 1 ? systemRead(file, buffer, 1, done, overlapped) : TRUE;
}

} // namespace

namespace tablefiles {

FailingRead::FailingRead(const char* fileName, Failure failure)
{
    if (systemRead == nullptr) {
        systemRead = lead(Importer::QtCore, "ReadFile", readFile);
    }
    failures = 0;
    seen = 0;
    failingHow = failure;
    failingName = QLatin1Char('\\') + QLatin1String(fileName);
}

FailingRead::~FailingRead()
{
    failingName.clear();
}

int FailingRead::count() const
{
    return failures;
}

} // namespace tablefiles
