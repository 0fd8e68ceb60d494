// SPDX-License-Identifier: MIT
#include "simulator/commands.h"

#include "simulator/control.h"
#include "simulator/fields.h"
#include "simulator/ini.h"
#include "simulator/pairs.h"
#include "simulator/simulator.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <algorithm>
#include <array>
#include <mutex>
#include <optional>

namespace simulator {
namespace {

using ombrix_simulator::Answer;

enum class Command {
#define COMMAND(name, words, least, most, changes, what) name,
#include "simulator/commands.def"
};

struct CommandFacts {
    Command command;
    const char* name;
    const char* words;
    int least; ///< how many words follow
    int most;
    bool changes; ///< does more than look
};

constexpr auto commandTable = std::to_array<CommandFacts>({
#define COMMAND(name, words, least, most, changes, what)                                           \
    {Command::name, #name, words, least, most, changes},
#include "simulator/commands.def"
});

Reply refusal(const QString& reason)
{
    return {Status::Refused, reason.toUtf8()};
}

Reply replyOf(const Answer& answer)
{
    return {answer.done ? Status::Done : Status::Refused, QByteArray::fromStdString(answer.text)};
}

QString allCommands()
{
    QStringList names;
    for (const CommandFacts& facts : commandTable) {
        names << QLatin1String(facts.name);
    }
    return names.join(QStringLiteral(", "));
}

QByteArray state()
{
    const std::lock_guard entry(Simulator::instance().gate());
    QStringList lines;
    for (const auto& device : Simulator::instance().cameras()) {
        lines
            << (QStringList(device->description()) + device->oddities()).join(QStringLiteral(", "));
    }
    const QStringList faults = Simulator::instance().faultSections();
    for (const QString& section : faults) {
        lines << QStringLiteral("fault [%1]").arg(section);
    }
    const Clock& clock = Simulator::instance().clock();
    lines << QStringLiteral("clock %1 ms, speed %2")
                 .arg(QString::number(clock.now()), QString::number(clock.speed()));
    return lines.join(QLatin1Char('\n')).toUtf8();
}

Reply countCalls(const QString& operation)
{
    const std::int64_t count = ombrix_simulator::calls(operation.toStdString());
    if (count >= 0) {
        return {Status::Done, QByteArray::number(qint64{count})};
    }
    return refusal(isInLibrary(operation)
                       ? QStringLiteral("calls of %1 are not counted").arg(operation)
                       : QStringLiteral("there is no operation %1, see simulator-reference.md")
                             .arg(quoted(operation)));
}

QByteArray allCalls()
{
    QStringList lines;
    for (std::size_t number = 0; number < operationCount; ++number) {
        const QString name = nameOf(static_cast<Operation>(number));
        if (const std::int64_t count = ombrix_simulator::calls(name.toStdString()); count > 0) {
            lines << QStringLiteral("%1 %2").arg(name, QString::number(count));
        }
    }
    return lines.join(QLatin1Char('\n')).toUtf8();
}

/// Does what a number asks for, or tells what is wrong with its text.
template<typename Action> Reply withNumber(Kind kind, const QString& text, Action action)
{
    const std::optional<double> number = parseField(kind, text);
    return number ? action(*number)
                  : refusal(QStringLiteral("%1 is not %2").arg(quoted(text), describeKind(kind)));
}

/// Puts the section of one operation: no pair may begin another one.
Reply putFault(const QString& operation, const QStringList& pairs)
{
    if (const QString reason = reasonAgainstPairs(pairs); !reason.isEmpty()) {
        return refusal(reason + QStringLiteral("; nothing is changed"));
    }
    return replyOf(ombrix_simulator::putFault(
        QStringLiteral("[%1]\n%2").arg(operation, pairs.join(QLatin1Char('\n'))).toStdString()));
}

Reply carryOut(Command command, const QStringList& words)
{
    const std::string first = words.value(0).toStdString();
    const std::string lines = words.mid(1).join(QLatin1Char('\n')).toStdString();
    switch (command) {
    case Command::list:
        return {Status::Done, state()};
    case Command::get:
        return replyOf(ombrix_simulator::get(first, lines));
    case Command::set:
        return replyOf(ombrix_simulator::set(first, lines));
    case Command::fault:
        return putFault(words.at(0), words.mid(1));
    case Command::lift:
        return replyOf(ombrix_simulator::liftFault(first));
    case Command::calls:
        return words.isEmpty() ? Reply{Status::Done, allCalls()} : countCalls(words.at(0));
    case Command::pull:
        return replyOf(ombrix_simulator::pull(first));
    case Command::plug:
        return replyOf(ombrix_simulator::plug(first));
    case Command::power:
        ombrix_simulator::cyclePower();
        return {Status::Done, {}};
    case Command::advance:
        return withNumber(Kind::Word, words.at(0), [](double milliseconds) {
            ombrix_simulator::advanceClock(static_cast<std::int64_t>(milliseconds));
            return Reply{Status::Done, {}};
        });
    case Command::speed:
        return withNumber(Kind::Real, words.at(0), [](double factor) {
            return replyOf(ombrix_simulator::setClockSpeed(factor));
        });
    }
    return {Status::Misused, {}};
}

/// Why the bytes are no words; empty when they are.
QString reasonAgainst(const QByteArray& request)
{
    constexpr int longest = 64 * 1024;
    constexpr unsigned char firstPrintable = 0x20;
    constexpr unsigned char deleted = 0x7F;
    if (request.size() > longest) {
        return QStringLiteral("a command has at most %1 bytes").arg(longest);
    }
    const bool printable = std::all_of(request.begin(), request.end(), [](char byte) {
        const auto code = static_cast<unsigned char>(byte);
        return byte == '\n' || (code >= firstPrintable && code != deleted);
    });
    if (!printable) {
        return QStringLiteral("a command has no control characters");
    }
    const bool text = !QString::fromUtf8(request).contains(QChar::ReplacementCharacter);
    return text ? QString() : QStringLiteral("a command is text in UTF-8");
}

} // namespace

Reply carryOut(const QByteArray& request)
{
    if (const QString reason = reasonAgainst(request); !reason.isEmpty()) {
        return {Status::Misused, reason.toUtf8()};
    }
    QStringList words = QString::fromUtf8(request).split(QLatin1Char('\n'));
    if (words.constLast().isEmpty()) {
        words.removeLast();
    }
    const QString name = words.isEmpty() ? QString() : words.takeFirst();
    const auto facts =
        std::find_if(commandTable.begin(), commandTable.end(),
                     [&](const CommandFacts& row) { return name == QLatin1String(row.name); });
    if (facts == commandTable.end()) {
        return {Status::Misused, QStringLiteral("there is no command %1; there are %2")
                                     .arg(quoted(name), allCommands())
                                     .toUtf8()};
    }
    if (words.size() < facts->least || words.size() > facts->most || words.contains(QString())) {
        return {Status::Misused, QStringLiteral("usage: %1 %2")
                                     .arg(name, QLatin1String(facts->words))
                                     .trimmed()
                                     .toUtf8()};
    }
    Reply reply = carryOut(facts->command, words);
    if (reply.status == Status::Done && facts->changes) {
        const std::lock_guard entry(Simulator::instance().gate());
        Simulator::instance().log().notice(QStringLiteral("from outside: %1 %2")
                                               .arg(name, words.join(QLatin1Char(' ')))
                                               .trimmed());
    }
    return reply;
}

QByteArray answerTo(const QByteArray& request)
{
    const Reply reply = carryOut(request);
    return QByteArray::number(static_cast<int>(reply.status)) + '\n' + reply.text +
           (reply.text.isEmpty() ? "" : "\n");
}

} // namespace simulator
