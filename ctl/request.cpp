// SPDX-License-Identifier: MIT
#include "ctl/request.h"

#include "ctl/answer.h"
#include "ctl/cli11.h"
#include "ctl/failure.h"
#include "ui/version.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel::ctl {

namespace {

enum class Port { None, Needed, Either };

struct Task {
    const char* name; ///< one word, or a group and a word
    const char* description;
    Port port;
    const char* words; ///< what follows; null: nothing
    int fewest = 0;
    int most = 0; ///< -1: any number
};

// clang-format off
constexpr Task tasks[] = {
    {"ports",   "List the serial ports.", Port::None, nullptr},
    {"list",    "List every parameter: what it takes, and whether it can be read and set.", Port::None, nullptr},
    {"info",    "Show versions, serial numbers, operating time and temperatures.", Port::Needed, nullptr},
    {"get",     "Show parameters; without names all that can be read.", Port::Needed, "NAME", 0, -1},
    {"set",     "Send values, read them back and say what the camera holds.", Port::Needed, "NAME=VALUE", 1, -1},
    {"save",    "Save the camera's settings to a profile.", Port::Needed, "FILE", 1, 1},
    {"apply",   "Send what differs from a profile, read all of it back and compare.", Port::Needed, "FILE", 1, 1},
    {"diff",    "Compare a camera, or another profile, with a profile.", Port::Either, "FILE", 1, 2},
    {"nuc",     "Ask for a NUC.", Port::Needed, nullptr},
    {"shutter", "Open or close the shutter.", Port::Needed, "open|close", 1, 1},
    {"table read",  "Read the table into its map file, and into the backup the first time.", Port::Needed, nullptr},
    {"table write", "Write the map file to the camera.", Port::Needed, nullptr},
    {"table reset", "Copy the backup over the map file.", Port::Needed, nullptr},
    {"map show", "Count bad pixels, clusters, rows and columns.", Port::None, "FILE", 1, 1},
    {"map diff", "Compare two maps.", Port::None, "FILE", 2, 2},
};
// clang-format on

struct Flag {
    const char* task;
    const char* name;
    bool Request::*member;
    const char* description;
};

constexpr Flag flags[] = {
    {"save", "--expert", &Request::expert, "Save the expert parameters, too."},
    {"apply", "--dry-run", &Request::dryRun, "Show what differs and send nothing."},
    {"apply", "--camera-baud-rate", &Request::withBaudRate,
     "Send the camera's own baud rate, too, if the profile has one."},
    {"table write", "--yes", &Request::yes, "Do not ask."},
};

/// What a group of tasks is about, by the name of any of them.
const char* groupDescription(const std::string& name)
{
    return name.front() == 't' ? "The camera's table of bad pixels."
                               : "A map file, without a camera.";
}

QString textOf(const std::string& bytes)
{
    return QString::fromLocal8Bit(bytes.c_str());
}

} // namespace

std::variant<Request, int> requestOf(int argc, char** argv)
{
    Request request;
    CLI::App app{"Configures Ombrix KV thermal infrared cameras on a serial port.", "tavrelctl"};
    app.fallthrough();
    app.allow_windows_style_options(false);
    app.require_subcommand(1);
    app.set_version_flag("-v,--version", std::string(productName) + ' ' + productVersion,
                         "Show the version.");
    app.set_help_flag("-h,--help", "Show this help.");

    std::string port;
    app.add_option("PORT", port, "The serial port, as \"tavrelctl ports\" lists it");
    app.add_flag("--json", request.json, "Answer with one JSON document.");
    app.add_option("--timeout", request.timeout, "Seconds that each answer of the camera may take.")
        ->check(CLI::Range(0.001, 86400.0))
        ->capture_default_str();
    int linkRate = 0;
    auto* const linkOption =
        app.add_option("--link-rate", linkRate, "Baud rate of the link; else the SDK's own.")
            ->check(CLI::PositiveNumber);

    std::vector<std::string> words;
    std::string picture;
    const Task* wanted = nullptr;
    std::map<std::string, CLI::App*> groups;
    for (const Task& task : tasks) {
        CLI::App* place = &app;
        std::string name = task.name;
        if (const std::size_t blank = name.find(' '); blank != std::string::npos) {
            CLI::App*& group = groups[name.substr(0, blank)];
            if (group == nullptr) {
                group = app.add_subcommand(name.substr(0, blank), groupDescription(name));
                group->require_subcommand(1);
            }
            place = group;
            name.erase(0, blank + 1);
        }
        CLI::App* const command = place->add_subcommand(name, task.description);
        command->callback([&wanted, &task] { wanted = &task; });
        if (task.words != nullptr) {
            command->add_option(task.words, words)
                ->expected(task.fewest, task.most < 0 ? 1 << 20 : task.most)
                ->required(task.fewest > 0);
        }
        if (place == groups["map"]) {
            command->add_option("--png", picture, "Draw a picture into this file.");
        }
        for (const Flag& flag : flags) {
            if (flag.task == std::string_view(task.name)) {
                command->add_flag(flag.name, request.*flag.member, flag.description);
            }
        }
    }

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            return app.exit(error);
        }
        complain(textOf(error.what()) + QStringLiteral("\nTry 'tavrelctl --help'."));
        return static_cast<int>(Status::Usage);
    }
    request.task = QLatin1String(wanted->name);
    request.port = textOf(port);
    request.picture = textOf(picture);
    for (const std::string& word : words) {
        request.words.append(textOf(word));
    }
    if (linkOption->count() > 0) {
        request.linkRate = linkRate;
    }
    if (wanted->port == Port::Needed && request.port.isEmpty()) {
        complain(QStringLiteral("%1 needs a port: tavrelctl PORT %1").arg(request.task));
        return static_cast<int>(Status::Usage);
    }
    if (wanted->port == Port::None && !request.port.isEmpty()) {
        complain(QStringLiteral("%1 takes no port (\"%2\")").arg(request.task, request.port));
        return static_cast<int>(Status::Usage);
    }
    return request;
}

} // namespace tavrel::ctl
