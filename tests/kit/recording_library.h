// SPDX-License-Identifier: MIT
// The inside of the recording SDK: the journal, the table of operations and the answers.
#pragma once

#include "tests/kit/recording_sdk.h"

#include <charconv>
#include <concepts>
#include <deque>
#include <fstream>
#include <map>
#include <string>
#include <utility>

namespace recording {

class Configuration;
class Link;
class Camera;
class Root;

/// How an operation takes part in answerEveryCommand and Show::Commands.
enum class Kind {
    Read,    ///< returns a value and changes nothing
    Command, ///< changes something, reports nothing or not by a flag
    Flagged, ///< changes something and reports success by a flag
};

struct Operation {
    std::string_view name;
    Kind kind;
};

/// The operation with this name; a name that no interface has ends the program with a message,
/// because a test that asks for it could never be right.
const Operation& operationNamed(std::string_view name);

std::string textOf(bool value);
std::string textOf(const char* value);
std::string textOf(const std::string& value);
std::string textOf(const ombrix_sdk::Zoom& value);
template<typename Number>
requires std::integral<Number> || std::floating_point<Number> std::string textOf(Number value)
{
    std::array<char, 64> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

/// Everything behind the control door.
class Library {
public:
    explicit Library(Sdk& door);
    ~Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    static Library& instance() { return *Sdk::instance().library; }

    void reset();

    /// Writes the call down and runs the test's action.
    template<typename... Arguments>
    void enter(std::string_view operation, int object, const Arguments&... arguments)
    {
        std::string text;
        ((text += (text.empty() ? "" : ", ") + textOf(arguments)), ...);
        enterCall(operation, object, std::move(text));
    }

    /// The answer that a test set for the call just entered, or the usual one.
    template<typename Result> Result answerOr(std::string_view operation, Result usual)
    {
        const std::optional<double> value = answerFor(operation);
        if (!value) {
            return usual;
        }
        if constexpr (std::floating_point<Result>) {
            return static_cast<Result>(*value);
        } else {
            return static_cast<Result>(static_cast<std::int64_t>(*value));
        }
    }

    [[nodiscard]] bool outputWithheld(std::string_view operation) const;
    void writeRecord(LogRecord record);

    Sdk& door;
    std::unique_ptr<Root> root;
    std::unique_ptr<Configuration> configuration;
    std::deque<std::unique_ptr<Link>> links;     ///< in the order of creation; null once freed
    std::deque<std::unique_ptr<Camera>> cameras; ///< in the order of opening; null once freed

    std::vector<Entry> entries;
    std::vector<LogRecord> records;

    struct Programme {
        int called = 0;
        std::optional<double> always;
        std::map<int, double> byCall; ///< key: number of the call, as counted in called
        bool withhold = false;
        std::function<void()> action;
    };
    std::map<std::string, Programme, std::less<>> programmes;
    std::optional<double> everyFlag;
    std::function<void()> recordAction;
    std::function<void(const Entry&)> entryAction;

private:
    void addEntry(Entry entry);
    void enterCall(std::string_view operation, int object, std::string arguments);
    std::optional<double> answerFor(std::string_view operation) const;
    void readScript(const char* path);
    void applyScriptLine(const std::string& line);

    std::ofstream journalFile;
    std::ostream* journal = nullptr; ///< where calls and records are written down as they come
};

} // namespace recording
