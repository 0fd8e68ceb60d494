// SPDX-License-Identifier: MIT
#include "app/platform.h"

#include <array>

#if defined(_WIN32)
#    include <QtCore/QFile>

#    include <windows.h>
#else
#    include <filesystem>
#    include <system_error>
#    include <thread>
#endif

namespace tavrel::platform {

#if defined(_WIN32)

std::string currentDirectory()
{
    std::array<char, 260> buffer{};
    const DWORD length = GetCurrentDirectoryA(static_cast<DWORD>(buffer.size()), buffer.data());
    // A longer directory reports the room it needs and fills nothing in.
    if (length >= buffer.size()) {
        return {};
    }
    return {buffer.data(), length};
}

std::string utf8(const std::string& path)
{
    return QFile::decodeName(path.c_str()).toStdString();
}

void blockThread(std::chrono::milliseconds duration)
{
    Sleep(static_cast<DWORD>(duration.count()));
}

#else

std::string currentDirectory()
{
    std::error_code error;
    const auto directory = std::filesystem::current_path(error);
    return error ? std::string{} : directory.string();
}

std::string utf8(const std::string& path)
{
    return path;
}

void blockThread(std::chrono::milliseconds duration)
{
    std::this_thread::sleep_for(duration);
}

#endif

} // namespace tavrel::platform
