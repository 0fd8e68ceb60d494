// SPDX-License-Identifier: MIT
#include "ctl/grammar.h"

#include <algorithm>
#include <iterator>

namespace tavrel::ctl {

namespace {

constexpr int any = -1;

// clang-format off
constexpr Task taskRows[] = {
    {"ports",       "List the serial ports."},
    {"list",        "List every parameter: what it takes, and whether it can be read and set."},
    {"info",        "Show versions, serial numbers, operating time and temperatures.", Port::Needed},
    {"get",         "Show parameters; without names all that can be read.", Port::Needed, Words::Parameters, "NAME", 0, any},
    {"set",         "Send values (NAME=VALUE), read them back and say what the camera holds.", Port::Needed, Words::Assignments, "ASSIGNMENT", 1, any},
    {"save",        "Save the camera's settings to a profile.", Port::Needed, Words::Files, "FILE", 1, 1},
    {"apply",       "Send what differs from a profile, read all of it back and compare.", Port::Needed, Words::Files, "FILE", 1, 1},
    {"diff",        "Compare a camera, or another profile, with a profile.", Port::Either, Words::Files, "FILE", 1, 2},
    {"nuc",         "Ask for a NUC.", Port::Needed},
    {"shutter",     "Open or close the shutter.", Port::Needed, Words::Positions, "open|close", 1, 1},
    {"table read",  "Read the table into its map file, and into the backup the first time.", Port::Needed},
    {"table write", "Write the map file to the camera; asks first.", Port::Needed},
    {"table reset", "Copy the backup over the map file.", Port::Needed},
    {"map show",    "Count bad pixels, clusters, rows and columns.", Port::None, Words::Files, "FILE", 1, 1},
    {"map diff",    "Compare two maps.", Port::None, Words::Files, "FILE", 2, 2},
};

constexpr Option optionRows[] = {
    {"",            "--json",             nullptr,   "Answer with one JSON document."},
    {"",            "--timeout",          "SECONDS", "How long each answer of the camera may take (30)."},
    {"",            "--link-rate",        "RATE",    "Baud rate of the link; without it the SDK's own."},
    {"save",        "--expert",           nullptr,   "Save the expert parameters, too."},
    {"apply",       "--dry-run",          nullptr,   "Show what differs and send nothing."},
    {"apply",       "--camera-baud-rate", nullptr,   "Send the camera's own baud rate, too, if the profile has one."},
    {"table write", "--yes",              nullptr,   "Do not ask."},
    {"map show",    "--png",              "FILE",    "Draw a picture into this file."},
    {"map diff",    "--png",              "FILE",    "Draw a picture into this file."},
};
// clang-format on

} // namespace

std::span<const Task> tasks()
{
    return taskRows;
}

const Task* taskNamed(std::string_view name)
{
    const auto found = std::find_if(std::begin(taskRows), std::end(taskRows),
                                    [name](const Task& task) { return task.name == name; });
    return found != std::end(taskRows) ? &*found : nullptr;
}

QString usageOf(const Task& task)
{
    QString usage(QLatin1String(task.port == Port::Needed   ? "PORT "
                                : task.port == Port::Either ? "[PORT] "
                                                            : ""));
    usage += QLatin1String(task.name);
    const int shown = std::max({task.fewest, task.most, 1});
    for (int word = 0; task.shown != nullptr && word < shown; ++word) {
        const bool optional = word >= task.fewest;
        usage += QLatin1String(optional ? " [" : " ") + QLatin1String(task.shown) +
                 QLatin1String(task.most == any ? "..." : "") + QLatin1String(optional ? "]" : "");
    }
    return usage;
}

std::span<const Option> options()
{
    return optionRows;
}

} // namespace tavrel::ctl
