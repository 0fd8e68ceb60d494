// SPDX-License-Identifier: MIT
// The words of the command line: what it understands, what it completes, what its manual page
// tells.
#pragma once

#include "ctl/request.h"

#include <span>
#include <string_view>

namespace tavrel::ctl {

/// Whether a command wants a port before it.
enum class Port { None, Needed, Either };

/// What stands behind a command.
enum class Words { None, Files, Parameters, Assignments, Positions };

struct Task {
    const char* name; ///< one word, or a group and a word
    const char* description;
    Port port = Port::None;
    Words words = Words::None;
    const char* shown = nullptr; ///< the words as help shows them; null: none
    int fewest = 0;
    int most = 0; ///< -1: any number
};

std::span<const Task> tasks();

/// The task with that name; null: there is none.
const Task* taskNamed(std::string_view name);

/// How a task is typed behind the program's name and options: "PORT get [NAME...]".
QString usageOf(const Task& task);

/// An option of one command, or of all ("").
struct Option {
    const char* task;
    const char* name;
    const char* value; ///< what its value is called; null: it has none
    const char* description;
};

std::span<const Option> options();

} // namespace tavrel::ctl
