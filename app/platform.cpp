// SPDX-License-Identifier: MIT
#include "app/platform.h"

#include <array>
#include <atomic>
#include <cstdio>

#if defined(_WIN32)
#    include <QtCore/QFile>

#    include <io.h>
#    include <windows.h>
#else
#    include <csignal>
#    include <filesystem>
#    include <system_error>
#    include <thread>

#    include <unistd.h>
#endif

namespace tavrel::platform {

namespace {

std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free, "it is set by a signal");

#if defined(_WIN32)
BOOL WINAPI interrupt(DWORD event)
{
    // Not ours to answer: the system's own handler ends the program.
    return event == CTRL_C_EVENT && !interrupted.exchange(true) ? TRUE : FALSE;
}
#else
extern "C" void interrupt(int)
{
    interrupted = true;
    std::signal(SIGINT, SIG_DFL);
}
#endif

std::FILE* fileOf(Stream stream)
{
    switch (stream) {
    case Stream::Input:
        return stdin;
    case Stream::Output:
        return stdout;
    case Stream::Errors:
        break;
    }
    return stderr;
}

} // namespace

bool wasInterrupted()
{
    return interrupted;
}

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

bool isTerminal(Stream stream)
{
    return _isatty(_fileno(fileOf(stream))) != 0;
}

void takeInterruptions()
{
    SetConsoleCtrlHandler(&interrupt, TRUE);
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

bool isTerminal(Stream stream)
{
    return ::isatty(::fileno(fileOf(stream))) != 0;
}

void takeInterruptions()
{
    std::signal(SIGINT, &interrupt);
    std::signal(SIGPIPE, SIG_IGN);
}

void blockThread(std::chrono::milliseconds duration)
{
    std::this_thread::sleep_for(duration);
}

#endif

} // namespace tavrel::platform
