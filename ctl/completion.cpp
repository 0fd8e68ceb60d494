// SPDX-License-Identifier: MIT
#include "ctl/completion.h"

#include "ctl/grammar.h"
#include "ctl/session.h"
#include "params/parameters.h"

#include <algorithm>

namespace tavrel::ctl {

namespace {

/// The command that stands in these words, and how many of them it takes.
const Task* taskIn(const QStringList& words, int& length)
{
    for (const Task& task : tasks()) {
        const QStringList name = QString::fromLatin1(task.name).split(QLatin1Char(' '));
        if (words.mid(0, name.size()) == name) {
            length = static_cast<int>(name.size());
            return &task;
        }
    }
    return nullptr;
}

/// First or second words of commands, with a port before them or without.
QStringList commandWords(bool withPort, const QString& group)
{
    QStringList words;
    for (const Task& task : tasks()) {
        const bool fits = task.port == Port::Either || (task.port == Port::Needed) == withPort;
        const QStringList name = QString::fromLatin1(task.name).split(QLatin1Char(' '));
        if (fits && group.isEmpty()) {
            words.append(name.first());
        } else if ((fits || !withPort) && name.size() > 1 && name.first() == group) {
            words.append(name.last());
        }
    }
    words.removeDuplicates();
    return words;
}

bool beginsACommand(const QString& word)
{
    return (commandWords(false, {}) + commandWords(true, {})).contains(word);
}

/// Whether the word behind this one belongs to it.
bool wantsAValue(const QString& word)
{
    const auto all = options();
    return std::any_of(all.begin(), all.end(), [&](const Option& option) {
        return option.value != nullptr && word == QLatin1String(option.name);
    });
}

QStringList optionsOf(const Task* task)
{
    QStringList names{QStringLiteral("--help")};
    for (const Option& option : options()) {
        const QLatin1String owner(option.task);
        if (owner.isEmpty() || (task != nullptr && owner == QLatin1String(task->name))) {
            names.append(QLatin1String(option.name));
        }
    }
    return names;
}

QStringList assignments(const QString& begun)
{
    QStringList words;
    const QString name = begun.section(QLatin1Char('='), 0, 0);
    const auto place = parameterNamed(name);
    for (const Parameter& parameter : parameters()) {
        if (commands()[parameter.command].write) {
            words.append(QLatin1String(parameter.name) + QLatin1Char('='));
        }
    }
    if (begun.contains(QLatin1Char('=')) && place) {
        words.clear();
        for (const Choice& choice : parameters()[*place].choices) {
            words.append(name + QLatin1Char('=') + QLatin1String(choice.name));
        }
    }
    return words;
}

QStringList readableNames()
{
    QStringList words;
    for (const Parameter& parameter : parameters()) {
        if (commands()[parameter.command].read) {
            words.append(QLatin1String(parameter.name));
        }
    }
    return words;
}

QStringList candidates(const QStringList& before, const QString& begun)
{
    if (before.isEmpty() && !begun.startsWith(QLatin1Char('-'))) {
        return commandWords(false, {}) + portNames();
    }
    int length = 0;
    const Task* task = taskIn(before, length);
    const bool withPort = task == nullptr && !before.isEmpty() && !beginsACommand(before.first());
    const QStringList words = before.mid(withPort ? 1 : 0);
    if (withPort) {
        task = taskIn(words, length);
    }
    if (begun.startsWith(QLatin1Char('-'))) {
        return optionsOf(task);
    }
    if (task == nullptr) {
        return commandWords(withPort, words.isEmpty() ? QString() : words.first());
    }
    switch (task->words) {
    case Words::Parameters:
        return readableNames();
    case Words::Assignments:
        return assignments(begun);
    case Words::Positions:
        return {QStringLiteral("open"), QStringLiteral("close")};
    case Words::Files:
    case Words::None:
        break;
    }
    return {};
}

QString escaped(QString text)
{
    return text.replace(QLatin1Char('-'), QLatin1String("\\-"));
}

QString manualRange(const Parameter& parameter)
{
    if (parameter.detector != nullptr && parameter.detector->hasLimits) {
        return QStringLiteral("within the limits of the SDK's configuration");
    }
    return rangeOf(parameter);
}

} // namespace

QStringList completions(const QStringList& words)
{
    QStringList before;
    // Options stand anywhere and change nothing.
    bool isValue = false;
    for (const QString& word : words.mid(0, words.size() - 1)) {
        if (!isValue && !word.startsWith(QLatin1Char('-'))) {
            before.append(word);
        }
        isValue = !isValue && wantsAValue(word);
    }
    if (isValue) {
        return {};
    }
    const QString begun = words.isEmpty() ? QString() : words.last();
    QStringList fitting;
    const QStringList all = candidates(before, begun);
    for (const QString& candidate : all) {
        if (candidate.startsWith(begun)) {
            fitting.append(candidate);
        }
    }
    return fitting;
}

QString manualText()
{
    QString text = QStringLiteral(".SH COMMANDS\n");
    for (const Task& task : tasks()) {
        text += QStringLiteral(".TP\n.B %1\n%2\n")
                    .arg(escaped(usageOf(task)), escaped(QLatin1String(task.description)));
    }
    text += QStringLiteral(".SH OPTIONS\n");
    for (const Option& option : options()) {
        text += QStringLiteral(".TP\n\\fB%1\\fR%2\n%3%4\n")
                    .arg(escaped(QLatin1String(option.name)),
                         option.value != nullptr
                             ? QStringLiteral(" \\fI%1\\fR").arg(QLatin1String(option.value))
                             : QString(),
                         *option.task != '\0'
                             ? QStringLiteral("With \\fB%1\\fR: ").arg(QLatin1String(option.task))
                             : QString(),
                         escaped(QLatin1String(option.description)));
    }
    text += QStringLiteral(".SH PARAMETERS\n");
    for (const Parameter& parameter : parameters()) {
        const bool readable = static_cast<bool>(commands()[parameter.command].read);
        text += QStringLiteral(".TP\n\\fB%1\\fR\n%2%3%4.\n")
                    .arg(escaped(QLatin1String(parameter.name)), escaped(manualRange(parameter)),
                         parameter.level == Level::Expert ? QStringLiteral("; expert") : QString(),
                         readable ? QString() : QStringLiteral("; cannot be read"));
    }
    return text;
}

} // namespace tavrel::ctl
