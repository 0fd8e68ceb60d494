// SPDX-License-Identifier: MIT
#include "simulator/plan.h"

#include "simulator/badpixels.h"
#include "simulator/ini.h"

#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <limits>

namespace simulator {
namespace {

const QString powerSection = QStringLiteral("power");
const QString callsKey = QStringLiteral("calls");
const QString valueKey = QStringLiteral("value");
const QString ruleKeys = QStringLiteral("calls, probability, seed, value, carryOut, delay, hangUp");
const QString nothingDone = QStringLiteral("the section does nothing");
constexpr qint64 forEver = std::numeric_limits<qint64>::max();

/// A name matches its operation; a pattern with stars matches operations of the camera only, so
/// that "get*" or "*" does not keep the program from reaching it.
std::bitset<operationCount> matchingOperations(const QString& pattern)
{
    const bool group = pattern.contains(QLatin1Char('*'));
    QRegularExpression expression;
    if (group) {
        expression.setPattern(QLatin1Char('^') +
                              QRegularExpression::escape(pattern).replace(QStringLiteral("\\*"),
                                                                          QStringLiteral(".*")) +
                              QLatin1Char('$'));
    }
    std::bitset<operationCount> operations;
    for (std::size_t number = 0; number < operationCount; ++number) {
        const auto operation = static_cast<Operation>(number);
        operations.set(number, group ? operation >= firstCameraOperation &&
                                           expression.match(nameOf(operation)).hasMatch()
                                     : pattern == nameOf(operation));
    }
    return operations;
}

/// The ranges of a list such as "3", "3-" or "1,4-6"; empty when it is none.
std::vector<std::pair<qint64, qint64>> parseCalls(const QString& text)
{
    if (text == QLatin1String("always")) {
        return {{1, forEver}};
    }
    static const QRegularExpression range(
        QStringLiteral("^\\s*(\\d{1,9})\\s*(?:(-)\\s*(\\d{1,9})?)?\\s*$"));
    std::vector<std::pair<qint64, qint64>> calls;
    const QStringList items = text.split(QLatin1Char(','));
    for (const QString& item : items) {
        const QRegularExpressionMatch match = range.match(item);
        const qint64 first = match.captured(1).toLongLong();
        const qint64 last = match.captured(2).isEmpty()   ? first
                            : match.captured(3).isEmpty() ? forEver
                                                          : match.captured(3).toLongLong();
        if (!match.hasMatch() || first < 1 || last < first) {
            return {};
        }
        calls.emplace_back(first, last);
    }
    return calls;
}

/// Why the operation cannot answer with the text; empty when it can.
QString reasonAgainst(Operation operation, const QString& text)
{
    const std::optional<Kind> kind = factsOf(operation).answer;
    if (kind) {
        return parseField(*kind, text)
                   ? QString()
                   : QStringLiteral("%1 is not %2").arg(quoted(text), describeKind(*kind));
    }
    switch (operation) {
    case Operation::getCommunicationType:
        return {};
    case Operation::loadBadPixelList:
        return isTreatmentFault(text)
                   ? QString()
                   : QStringLiteral("%1 is not missing, empty, long or a number of entries")
                         .arg(quoted(text));
    default:
        return QStringLiteral("%1 is of no use: %2 answers no number")
            .arg(quoted(text), nameOf(operation));
    }
}

} // namespace

void Plan::setFile(const QString& path)
{
    *this = {};
    file = path;
    refresh();
}

bool Plan::refresh()
{
    if (file.isEmpty()) {
        return false;
    }
    const QFileInfo info(file);
    const std::pair state(info.lastModified(), info.size());
    if (lastState == state) {
        return false;
    }
    lastState = state;
    rules.clear();
    found.clear();
    if (isThere()) {
        IniFile ini(file);
        read(ini);
    }
    return true;
}

void Plan::read(IniFile& ini)
{
    rules.clear();
    const QStringList patterns = ini.sections();
    for (const QString& pattern : patterns) {
        if (pattern == powerSection) {
            const std::optional<double> number =
                ini.number(powerSection, {"cycles", Kind::Word, 0}, nothingDone);
            if (ini.finish(powerSection, QStringLiteral("cycles"))) {
                cycles = as<qint64>(number.value_or(0));
            }
        } else if (const std::optional<Rule> rule = readRule(ini, pattern)) {
            rules.push_back(*rule);
        }
    }
    // More letters that are given make a pattern more exact; a name without * beats them all.
    std::stable_sort(rules.begin(), rules.end(), [](const Rule& left, const Rule& right) {
        const auto exactness = [](const QString& pattern) {
            const auto stars = pattern.count(QLatin1Char('*'));
            return std::pair(stars == 0, pattern.size() - stars);
        };
        return exactness(left.pattern) > exactness(right.pattern);
    });
    found = ini.problems();
}

std::optional<Plan::Rule> Plan::readRule(IniFile& ini, const QString& pattern)
{
    Rule rule;
    rule.pattern = pattern;
    rule.operations = matchingOperations(pattern);
    if (rule.operations.none()) {
        ini.rejectSection(pattern, QStringLiteral("no operation has this name; ") + nothingDone);
        return std::nullopt;
    }
    if (ini.isEmpty(pattern)) {
        ini.rejectSection(
            pattern,
            QStringLiteral("a rule has one of the keys %1; %2").arg(ruleKeys, nothingDone));
        return std::nullopt;
    }
    rule.calls = {{1, forEver}};
    if (const auto text = ini.text(pattern, callsKey)) {
        rule.calls = parseCalls(*text);
        if (rule.calls.empty()) {
            ini.addProblem(pattern, callsKey,
                           QStringLiteral("%1 is neither always nor a list such as 3, 5-7, 9-, "
                                          "counted from 1; %2")
                               .arg(quoted(*text), nothingDone));
        }
    }
    const auto number = [&](const char* key, Kind kind, double fallback) {
        return ini.number(pattern, {key, kind, fallback}, nothingDone).value_or(fallback);
    };
    rule.probability = number("probability", Kind::Share, 1);
    rule.random = Random(as<std::uint64_t>(number("seed", Kind::Word, 1)));
    rule.verdict.planned = true;
    rule.verdict.carryOut = number("carryOut", Kind::Switch, 0) != 0;
    rule.verdict.hangUp = number("hangUp", Kind::Switch, 0) != 0;
    rule.verdict.delay = as<qint64>(number("delay", Kind::Word, 0));
    if (const auto text = ini.text(pattern, valueKey)) {
        takeValue(ini, *text, rule);
    }
    return ini.finish(pattern, ruleKeys) ? std::optional(rule) : std::nullopt;
}

void Plan::takeValue(IniFile& ini, const QString& text, Rule& rule)
{
    const bool group = rule.pattern.contains(QLatin1Char('*'));
    for (std::size_t number = 0; number < operationCount; ++number) {
        const auto operation = static_cast<Operation>(number);
        const std::optional<Kind> kind = factsOf(operation).answer;
        // Those of a group that answer no number go on as without one.
        if (!rule.operations.test(number) || (group && !kind)) {
            continue;
        }
        if (const QString reason = reasonAgainst(operation, text); !reason.isEmpty()) {
            ini.addProblem(rule.pattern, valueKey,
                           QStringLiteral("%1; %2").arg(reason, nothingDone));
            return;
        }
        if (kind) {
            rule.verdict.value = static_cast<qint64>(*parseField(*kind, text));
        } else {
            rule.verdict.word = text;
        }
    }
}

Verdict Plan::judge(Operation operation)
{
    const auto rule = std::find_if(rules.begin(), rules.end(), [operation](const Rule& candidate) {
        return candidate.operations.test(static_cast<std::size_t>(operation));
    });
    if (rule == rules.end()) {
        return {};
    }
    ++rule->count;
    const bool inRange =
        std::any_of(rule->calls.begin(), rule->calls.end(), [&](const auto& range) {
            return rule->count >= range.first && rule->count <= range.second;
        });
    // Every call draws, so that the same seed hits the same calls whatever the ranges.
    const bool drawn = rule->random.fraction() < rule->probability;
    return inRange && drawn ? rule->verdict : Verdict{};
}

} // namespace simulator
