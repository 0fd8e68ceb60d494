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

#    include <fcntl.h>
#    include <poll.h>
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

void holdStandardStreams()
{
    // A file's number is nothing by which the system or another library reaches a port here.
}

void takeInterruptions()
{
    SetConsoleCtrlHandler(&interrupt, TRUE);
}

bool waitForInput()
{
    // Reading itself ends at Ctrl-C here.
    return !interrupted;
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

void holdStandardStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) == -1) {
            // It gets the lowest number that is free, which is this one; and it is opened for the
            // other direction, so that nothing passes for read or written.
            ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
        }
    }
}

void takeInterruptions()
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction before {};
        ::sigaction(signal, nullptr, &before);
        if (before.sa_handler == SIG_IGN) {
            continue;
        }
        struct sigaction taken {};
        taken.sa_handler = &interrupt;
        // A camera's answer is not broken off. A terminal that closes tells it more than once.
        taken.sa_flags = SA_RESTART;
        if (signal != SIGHUP) {
            taken.sa_flags |= static_cast<int>(SA_RESETHAND);
        }
        ::sigaction(signal, &taken, nullptr);
    }
    std::signal(SIGPIPE, SIG_IGN);
}

bool waitForInput()
{
    // Reading goes on after Ctrl-C, and another thread may take the signal.
    constexpr int pause = 100; // ms
    pollfd input{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
    int ready = 0;
    while (ready == 0 && !interrupted) {
        ready = ::poll(&input, 1, pause);
    }
    return !interrupted;
}

void blockThread(std::chrono::milliseconds duration)
{
    std::this_thread::sleep_for(duration);
}

#endif

} // namespace tavrel::platform
