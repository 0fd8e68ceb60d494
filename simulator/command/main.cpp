// SPDX-License-Identifier: MIT
// Works a running simulator from outside: carries one command there and its answer back.
#include "simulator/socketaddress.h"
#include "ui/version.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include <getopt.h>
#include <sys/time.h>

namespace {

constexpr int misused = 2;
constexpr int nobodyThere = 3;
constexpr const char* variable = "TAVREL_SIMULATOR_CONTROL";
constexpr std::string::size_type longestCommand = 65536;
constexpr time_t patience = 10; ///< seconds for the answer to come

struct CommandFacts {
    const char* name;
    const char* words;
    const char* what;
};

constexpr CommandFacts commands[] = {
#define COMMAND(name, words, least, most, changes, what) {#name, words, what},
#include "simulator/commands.def"
};

void tellUsage(std::ostream& stream)
{
    stream << "usage: ombrix-simulator [--at SOCKET] COMMAND [WORD...]\n"
              "       ombrix-simulator --help | --version\n\n"
              "Works the simulated camera of a running program. SOCKET is what the program was\n"
              "given as "
           << variable << ", and that variable's value when it is not named.\n\n";
    for (const CommandFacts& command : commands) {
        const std::string line = std::string("  ") + command.name + ' ' + command.words;
        constexpr std::string::size_type column = 32;
        stream << line << std::string(line.size() < column ? column - line.size() : 1, ' ')
               << command.what << '\n';
    }
    stream
        << "\nCAMERA is a section of the settings (\"camera\" for the built-in one) or a serial\n"
           "number; keys, values and operations are those of settings and plans.\n\n"
           "The exit code is 0 when it was done, 1 when it was refused, 2 when these are not\n"
           "the words of a command, 3 when no simulator answers.\n";
}

int fail(int code, const std::string& reason)
{
    std::cerr << "ombrix-simulator: " << reason << '\n';
    return code;
}

/// A manual page's list of the commands.
void tellManual()
{
    for (const CommandFacts& command : commands) {
        std::cout << ".TP\n.BI " << command.name << " \" " << command.words << "\"\n"
                  << command.what << ".\n";
    }
}

/// The simulator may have another current directory.
void makePathsAbsolute(std::vector<std::string>& words)
{
    const std::string key = "table=";
    for (std::string& word : words) {
        if (word.rfind(key, 0) == 0 && word.size() > key.size()) {
            std::error_code failure;
            const auto path = std::filesystem::absolute(word.substr(key.size()), failure);
            word = failure ? word : key + path.string();
        }
    }
}

bool sendAll(int socket, const std::string& text)
{
    for (std::string::size_type sent = 0; sent < text.size();) {
        const ssize_t count = send(socket, text.data() + sent, text.size() - sent, MSG_NOSIGNAL);
        if (count <= 0) {
            return false;
        }
        sent += static_cast<std::string::size_type>(count);
    }
    return shutdown(socket, SHUT_WR) == 0;
}

/// What comes until the other side ends; nothing when it fails or does not come in time.
std::optional<std::string> receiveAll(int socket)
{
    std::string text;
    std::array<char, 4096> bytes{};
    for (;;) {
        const ssize_t count = recv(socket, bytes.data(), bytes.size(), 0);
        if (count == 0) {
            return text;
        }
        if (count < 0) {
            return std::nullopt;
        }
        text.append(bytes.data(), static_cast<std::string::size_type>(count));
    }
}

int carry(const std::string& path, const std::string& request)
{
    const simulator::SocketAddress address(path);
    const int connection = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const timeval limit{patience, 0};
    setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    setsockopt(connection, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    if (!address.isValid() ||
        connect(connection, address.get(), simulator::SocketAddress::size()) != 0) {
        return fail(nobodyThere,
                    "no simulator listens at " + path + ": " +
                        (address.isValid() ? std::strerror(errno) : "the name is too long"));
    }
    if (!sendAll(connection, request)) {
        return fail(nobodyThere, "the simulator at " + path + " does not take the command");
    }
    const std::optional<std::string> answer = receiveAll(connection);
    if (!answer) {
        return fail(nobodyThere,
                    "the simulator at " + path +
                        " does not answer; a command that it has not begun is dropped");
    }
    // The number of the status in a line, then the text.
    if (answer->size() < 2 || (*answer)[0] < '0' || (*answer)[0] > '2' || (*answer)[1] != '\n') {
        return fail(nobodyThere, "the simulator at " + path + " ended without an answer");
    }
    const int status = (*answer)[0] - '0';
    (status == 0 ? std::cout : std::cerr) << answer->substr(2) << std::flush;
    return status;
}

} // namespace

int main(int argc, char* argv[])
{
    enum Option { help = 'h', version = 'v', at = 'a', manual = 'm', withoutValue = ':' };
    constexpr option options[] = {{"help", no_argument, nullptr, help},
                                  {"version", no_argument, nullptr, version},
                                  {"at", required_argument, nullptr, at},
                                  {"manual", no_argument, nullptr, manual},
                                  {}};
    const char* const named = std::getenv(variable);
    std::string path = named == nullptr ? "" : named;
    // Up to the command: what follows may be a negative number.
    for (;;) {
        const std::string word = optind < argc ? argv[optind] : "";
        const int found = getopt_long(argc, argv, "+:hv", options, nullptr);
        if (found == -1) {
            break;
        }
        switch (found) {
        case help:
            tellUsage(std::cout);
            return 0;
        case version:
            std::cout << tavrel::productName << ' ' << tavrel::productVersion << '\n';
            return 0;
        case manual:
            tellManual();
            return 0;
        case at:
            path = optarg;
            break;
        default:
            return fail(misused,
                        word + (found == withoutValue ? " names no socket" : " is no option") +
                            "; see ombrix-simulator --help");
        }
    }
    std::vector<std::string> words(argv + optind, argv + argc);
    if (words.empty()) {
        tellUsage(std::cerr);
        return misused;
    }
    if (std::any_of(words.begin(), words.end(),
                    [](const std::string& word) { return word == "--help" || word == "-h"; })) {
        tellUsage(std::cout);
        return 0;
    }
    if (path.empty()) {
        return fail(misused, std::string("neither --at nor ") + variable + " names a socket");
    }
    if (words[0] == "fault") {
        makePathsAbsolute(words);
    }
    std::string request;
    for (const std::string& word : words) {
        if (word.empty() || word.find('\n') != std::string::npos) {
            return fail(misused, "a word is empty or has several lines");
        }
        request += word + '\n';
    }
    if (request.size() > longestCommand) {
        return fail(misused, "the command is too long");
    }
    return carry(path, request);
}
