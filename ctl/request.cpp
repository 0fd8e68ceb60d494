// SPDX-License-Identifier: MIT
#include "ctl/request.h"

#include "ctl/cli11.h"
#include "ctl/failure.h"
#include "ctl/grammar.h"
#include "ui/version.h"

#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel::ctl {

namespace {

/// What a group of tasks is about, by the name of any of them.
const char* groupDescription(const std::string& name)
{
    return name.front() == 't' ? "The camera's table of bad pixels."
                               : "A map file, without a camera.";
}

/// Help whose first line shows a command as it is typed.
class Help : public CLI::Formatter {
public:
    Help() { label("TEXT", ""); }

    /// The first line shows the words of a command.
    std::string make_positionals(const CLI::App* app) const override
    {
        return app->get_parent() == nullptr ? Formatter::make_positionals(app) : std::string();
    }

    std::string make_usage(const CLI::App* app, std::string name) const override
    {
        QString typed = QStringLiteral("[PORT] COMMAND");
        if (const CLI::App* const parent = app->get_parent()) {
            // Of the names only those of the commands: the program's is there already.
            std::string command = app->get_name();
            if (parent->get_parent() != nullptr) {
                command = parent->get_name() + ' ' + command;
            }
            const Task* const task = taskNamed(command);
            typed = task != nullptr ? usageOf(*task)
                                    : QString::fromStdString("[PORT] " + command + " COMMAND");
        }
        return ("Usage: " + name.substr(0, name.find(' ')) + " [OPTIONS] " + typed.toStdString() +
                "\n");
    }
};

QString fromLocal(const std::string& bytes)
{
    return QString::fromLocal8Bit(bytes.c_str());
}

/// A word of the user. One that cannot be turned back into its bytes would name another file.
QString textOf(const std::string& word)
{
    QString text = fromLocal(word);
    if (text.toLocal8Bit().toStdString() != word) {
        throw Failure(Status::Usage,
                      QStringLiteral("\"%1\" is no text in the encoding of this system").arg(text));
    }
    return text;
}

const QString hint = QStringLiteral("\nTry 'tavrelctl --help'.");

/// Finds out what is no number of that kind within these limits; "nan" is within none.
template<typename Number> CLI::Validator within(Number least, Number most, const char* wanted)
{
    const auto problem = [least, most, wanted](const std::string& text) {
        Number number{};
        const bool isWithin =
            CLI::detail::lexical_cast(text, number) && number >= least && number <= most;
        return isWithin ? std::string() : '"' + text + "\" is not " + wanted;
    };
    return {problem, std::string()};
}

/// Values on their way into a request.
struct Parsed {
    Request request;
    std::string port;
    std::string picture;
    int linkRate = 0; ///< 0: not given
    std::vector<std::string> words;
};

void addOption(CLI::App& app, const Option& option, Parsed& parsed)
{
    using Adder = std::function<void()>;
    Request& request = parsed.request;
    const auto flag = [&](bool& target) {
        app.add_flag(option.name, target, option.description);
    };
    const std::map<std::string_view, Adder> adders{
        {"--json",
         [&] {
             flag(request.json);
         }},
        {"--expert",
         [&] {
             flag(request.expert);
         }},
        {"--dry-run",
         [&] {
             flag(request.dryRun);
         }},
        {"--camera-baud-rate",
         [&] {
             flag(request.withBaudRate);
         }},
        {"--yes",
         [&] {
             flag(request.yes);
         }},
        {"--timeout",
         [&] {
             app.add_option(option.name, request.timeout, option.description)
                 ->check(within(0.001, 86400.0, "0.001 to 86400 seconds"));
         }},
        {"--link-rate",
         [&] {
             app.add_option(option.name, parsed.linkRate, option.description)
                 ->check(within(1, std::numeric_limits<int>::max(), "a rate above 0 baud"));
         }},
        {"--png",
         [&] {
             app.add_option(option.name, parsed.picture, option.description);
         }},
    };
    adders.at(option.name)();
    if (option.value != nullptr) {
        app.get_option(option.name)->type_name(option.value);
    }
}

void addOptions(CLI::App& app, const char* task, Parsed& parsed)
{
    for (const Option& option : options()) {
        if (std::string_view(option.task) == task) {
            addOption(app, option, parsed);
        }
    }
}

void addTask(CLI::App& app, const Task& task, std::map<std::string, CLI::App*>& groups,
             const Task*& wanted, Parsed& parsed)
{
    CLI::App* place = &app;
    std::string name = task.name;
    if (const std::size_t blank = name.find(' '); blank != std::string::npos) {
        CLI::App*& group = groups[name.substr(0, blank)];
        if (group == nullptr) {
            group = app.add_subcommand(name.substr(0, blank), groupDescription(name));
            group->group("Commands");
            group->require_subcommand(0, 1);
        }
        place = group;
        name.erase(0, blank + 1);
    }
    CLI::App* const command = place->add_subcommand(name, task.description);
    command->group("Commands");
    command->callback([&wanted, &task] { wanted = &task; });
    if (task.words != Words::None) {
        constexpr int many = 1 << 20;
        command->add_option(task.shown, parsed.words)
            ->expected(task.fewest, task.most < 0 ? many : task.most)
            ->required(task.fewest > 0);
    }
    addOptions(*command, task.name, parsed);
}

} // namespace

bool asksForJson(int argc, char** argv)
{
    // By hand, because the parser gives up at the first mistake.
    for (int index = 1; index < argc && std::string_view(argv[index]) != "--"; ++index) {
        if (std::string_view(argv[index]) == "--json") {
            return true;
        }
    }
    return false;
}

std::variant<Request, QByteArray> requestOf(int argc, char** argv)
{
    CLI::App app{"Configures Ombrix KV thermal infrared cameras on a serial port.", "tavrelctl"};
    app.fallthrough();
    app.allow_windows_style_options(false);
    // That one is missing is told below, in words that name no "subcommand".
    app.require_subcommand(0, 1);
    app.formatter(std::make_shared<Help>());
    app.set_version_flag("-v,--version", std::string(productName) + ' ' + productVersion,
                         "Show the version.");
    app.set_help_flag("-h,--help", "Show this help.");

    Parsed parsed;
    app.add_option("PORT", parsed.port, "The serial port, as \"tavrelctl ports\" lists it");
    addOptions(app, "", parsed);
    const Task* wanted = nullptr;
    std::map<std::string, CLI::App*> groups;
    for (const Task& task : tasks()) {
        addTask(app, task, groups, wanted, parsed);
    }

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            std::ostringstream text;
            app.exit(error, text, text);
            return QByteArray::fromStdString(text.str());
        }
        throw Failure(Status::Usage, fromLocal(error.what()) + hint);
    }
    if (wanted == nullptr) {
        throw Failure(Status::Usage, QStringLiteral("a command is missing") + hint);
    }
    Request& request = parsed.request;
    request.task = QLatin1String(wanted->name);
    request.port = textOf(parsed.port);
    request.picture = textOf(parsed.picture);
    for (const std::string& word : parsed.words) {
        request.words.append(textOf(word));
    }
    if (parsed.linkRate > 0) {
        request.linkRate = parsed.linkRate;
    }
    if (wanted->port == Port::Needed && request.port.isEmpty()) {
        throw Failure(Status::Usage,
                      QStringLiteral("%1 needs a port: tavrelctl PORT %1").arg(request.task));
    }
    if (wanted->port == Port::None && !request.port.isEmpty()) {
        throw Failure(Status::Usage,
                      QStringLiteral("%1 takes no port (\"%2\")").arg(request.task, request.port));
    }
    return request;
}

} // namespace tavrel::ctl
