// SPDX-License-Identifier: MIT
#include "app/commandline.h"

#include "ui/version.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>

#include <cstdio>
#include <cstdlib>

namespace tavrel {

namespace {

constexpr int wrongUsage = 2;

struct ToolkitOption {
    const char* name;
    const char* value;       ///< what the value is; null when there is none
    const char* description; ///< null: known, but not worth a line of the help
};

// What the toolkit and its plugin for X11 look for.
constexpr ToolkitOption toolkitOptions[] = {
    {"style", "name", "Draw controls in this style."},
    {"stylesheet", "file", "Change the looks by this style sheet."},
    {"platform", "name", "Show the window by this platform plugin."},
    {"platformpluginpath", "folder", "Look for platform plugins here."},
    {"platformtheme", "name", "Take colours and fonts from this platform theme."},
    {"plugin", "name", "Load this plugin, too."},
    {"qwindowgeometry", "geometry", "Place the window: WIDTHxHEIGHT+X+Y."},
    {"geometry", "geometry", "The same."},
    {"qwindowtitle", "title", "Give the window this title."},
    {"title", "title", nullptr},
    {"qwindowicon", "file", "Give the window this icon."},
    {"icon", "file", nullptr},
    {"reverse", nullptr, "Lay the window out from right to left."},
    {"display", "name", "Use this X11 display."},
    {"name", "name", nullptr},
    {"session", "session", "Go on with an earlier session."},
    {"qmljsdebugger", "value", nullptr},
    {"widgetcount", nullptr, nullptr},
    {"nograb", nullptr, nullptr},
    {"dograb", nullptr, nullptr},
    {"sync", nullptr, nullptr},
    {"qdebug", nullptr, nullptr},
    {"qdevel", nullptr, nullptr},
};

QCommandLineOption parserOption(const ToolkitOption& option)
{
    QCommandLineOption result(QLatin1String(option.name), QLatin1String(option.description),
                              QLatin1String(option.value));
    if (option.description == nullptr) {
        result.setFlags(QCommandLineOption::HiddenFromHelp);
    }
    return result;
}

} // namespace

std::optional<int> answerCommandLine(int& argc, char** argv)
{
    if (argc < 2) {
        return std::nullopt;
    }
    QCommandLineParser parser;
    // -style as well as --style, as the toolkit has it.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.setApplicationDescription(
        QStringLiteral("Configures Ombrix KV thermal infrared cameras on a serial port."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Show the version."));
    parser.addOption(help);
    parser.addOption(version);
    for (const ToolkitOption& option : toolkitOptions) {
        parser.addOption(parserOption(option));
    }

    QStringList arguments;
    for (int index = 0; index < argc; ++index) {
        arguments.append(QString::fromLocal8Bit(argv[index]));
    }
    if (!parser.parse(arguments)) {
        const QString message = QStringLiteral("tavrel: %1\nTry 'tavrel --help'.\n");
        std::fputs(qPrintable(message.arg(parser.errorText())), stderr);
        return wrongUsage;
    }
    const bool wantsHelp = parser.isSet(help);
    if (!wantsHelp && !parser.isSet(version)) {
        return std::nullopt;
    }
    // Both take the program's name from it. They end the program by themselves: on Windows they
    // know whether there is a console to write to.
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QLatin1String(productName));
    QCoreApplication::setApplicationVersion(QLatin1String(productVersion));
    if (wantsHelp) {
        parser.showHelp(EXIT_SUCCESS);
    }
    parser.showVersion();
}

} // namespace tavrel
