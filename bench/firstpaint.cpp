// SPDX-License-Identifier: MIT
// Starts a program on the present display and looks at the display from outside, as its operator
// does, until the program's window is painted. Prints three numbers: the milliseconds from the
// start to the painted window, the milliseconds of processor time that the program had used by
// then, and the most memory in KiB that it had used when it had come to rest.
//
// The display must be bare: whatever changes in its middle is taken for the window.
//
// usage: bench_firstpaint PROGRAM
#include <xcb/xcb.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr auto lookEvery = 250us;
constexpr auto patience = 60s;
constexpr auto rest = 500ms; ///< for what a program does after its window is there

/// The middle of the screen, where a window without a window manager comes up.
class Screen {
public:
    Screen() : connection(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(connection) != 0) {
            throw std::runtime_error("there is no display");
        }
        screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    }
    ~Screen() { xcb_disconnect(connection); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// What is to be seen on a short upright line there.
    std::vector<std::uint8_t> look()
    {
        constexpr std::uint16_t length = 64;
        const auto request =
            xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root,
                          static_cast<std::int16_t>(screen->width_in_pixels / 2),
                          static_cast<std::int16_t>(screen->height_in_pixels / 2), 1, length, ~0U);
        const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> image(
            xcb_get_image_reply(connection, request, nullptr), &std::free);
        if (image == nullptr) {
            throw std::runtime_error("the display cannot be looked at");
        }
        const std::uint8_t* const data = xcb_get_image_data(image.get());
        return {data, data + xcb_get_image_data_length(image.get())};
    }

private:
    xcb_connection_t* connection;
    const xcb_screen_t* screen = nullptr;
};

/// The program, until the end of this object.
class Program {
public:
    explicit Program(char* path)
    {
        posix_spawn_file_actions_t files{};
        posix_spawn_file_actions_init(&files);
        for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
            posix_spawn_file_actions_addopen(&files, stream, "/dev/null", O_WRONLY, 0);
        }
        char* arguments[] = {path, nullptr};
        const int failure = posix_spawn(&process, path, &files, nullptr, arguments, environ);
        posix_spawn_file_actions_destroy(&files);
        if (failure != 0) {
            throw std::runtime_error(std::string(path) + " cannot be started");
        }
    }
    ~Program()
    {
        if (!ended) {
            ::kill(process, SIGTERM);
            ::waitpid(process, nullptr, 0);
        }
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    void requireRunning()
    {
        if (::waitpid(process, nullptr, WNOHANG) == process) {
            ended = true;
            throw std::runtime_error("the program ended without a window");
        }
    }

    /// Processor time of all threads so far.
    [[nodiscard]] Milliseconds processorTime() const
    {
        std::chrono::nanoseconds sum{0};
        for (const auto& thread : std::filesystem::directory_iterator(folder() + "task")) {
            std::ifstream statistics(thread.path() / "schedstat");
            std::chrono::nanoseconds::rep running = 0;
            if (!(statistics >> running)) {
                throw std::runtime_error("the system does not tell a program's processor time");
            }
            sum += std::chrono::nanoseconds(running);
        }
        return sum;
    }

    /// Most memory in KiB so far.
    [[nodiscard]] long peakMemory() const
    {
        std::ifstream lines(folder() + "status");
        for (std::string word; lines >> word;) {
            if (long peak = 0; word == "VmHWM:" && lines >> peak) {
                return peak;
            }
        }
        throw std::runtime_error("the system does not tell a program's peak memory");
    }

private:
    [[nodiscard]] std::string folder() const { return "/proc/" + std::to_string(process) + "/"; }

    pid_t process = 0;
    bool ended = false;
};

void measure(char* path)
{
    Screen screen;
    const auto bare = screen.look();
    const auto start = Clock::now();
    Program program(path);
    while (screen.look() == bare) {
        program.requireRunning();
        if (Clock::now() - start > patience) {
            throw std::runtime_error("no window came up");
        }
        std::this_thread::sleep_for(lookEvery);
    }
    const Milliseconds untilPainted = Clock::now() - start;
    const Milliseconds busy = program.processorTime();
    std::this_thread::sleep_for(rest);
    program.requireRunning();
    std::cout << untilPainted.count() << ' ' << busy.count() << ' ' << program.peakMemory() << '\n';
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::cerr << "usage: bench_firstpaint PROGRAM\n";
        return 2;
    }
    try {
        measure(argv[1]);
    } catch (const std::exception& problem) {
        std::cerr << "bench_firstpaint: " << problem.what() << '\n';
        return 1;
    }
    return 0;
}
