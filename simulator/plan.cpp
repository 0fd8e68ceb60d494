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
constexpr qint64 forEver = std::numeric_limits<qint64>::max();

/// A name matches its operation; a pattern with stars matches operations of the camera only, so
/// that "get*" or "*" does not keep the program from reaching it.
bool matches(const QString& pattern, Operation operation)
{
    if (!pattern.contains(QLatin1Char('*'))) {
        return pattern == nameOf(operation);
    }
    const QRegularExpression expression(QRegularExpression::wildcardToRegularExpression(pattern));
    return operation >= firstCameraOperation && expression.match(nameOf(operation)).hasMatch();
}

std::bitset<operationCount> matchingOperations(const QString& pattern)
{
    std::bitset<operationCount> operations;
    for (std::size_t number = 0; number < operationCount; ++number) {
        operations.set(number, matches(pattern, static_cast<Operation>(number)));
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

/// The number that an operation is to answer: anything that fits 32 bits, signed or not.
std::optional<qint64> parseValue(const QString& text)
{
    std::optional<double> number = parseField(Kind::Whole, text);
    if (!number) {
        number = parseField(Kind::Word, text);
    }
    return number ? std::optional<qint64>(static_cast<qint64>(*number)) : std::nullopt;
}

/// Puts the value key of a section where its operations look for it; false when they cannot use it.
bool takeValue(const QString& pattern, const QString& text, Verdict& verdict)
{
    if (pattern == nameOf(Operation::getCommunicationType)) {
        verdict.word = text;
        return true;
    }
    if (pattern == nameOf(Operation::loadBadPixelList)) {
        verdict.word = text;
        return isTreatmentFault(text);
    }
    verdict.value = parseValue(text);
    return verdict.value.has_value();
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
    read();
    return true;
}

void Plan::read()
{
    rules.clear();
    found.clear();
    if (!isThere()) {
        return;
    }
    IniFile ini(file);
    const QStringList patterns = ini.sections();
    for (const QString& pattern : patterns) {
        if (pattern == powerSection) {
            cycles = as<qint64>(ini.numberOr(powerSection, {"cycles", Kind::Word, 0}, 0));
            continue;
        }
        if (matchingOperations(pattern).any()) {
            rules.push_back(readRule(ini, pattern));
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

Plan::Rule Plan::readRule(IniFile& ini, const QString& pattern)
{
    Rule rule;
    rule.pattern = pattern;
    rule.operations = matchingOperations(pattern);
    rule.calls = {{1, forEver}};
    if (const auto text = ini.text(pattern, callsKey)) {
        std::vector<std::pair<qint64, qint64>> calls = parseCalls(*text);
        if (calls.empty()) {
            ini.addProblem(pattern, callsKey,
                           QStringLiteral("\"%1\" is neither always nor a list such as 3, 5-7, 9-; "
                                          "always is used")
                               .arg(*text));
        } else {
            rule.calls = std::move(calls);
        }
    }
    rule.probability = ini.numberOr(pattern, {"probability", Kind::Real, 1}, 1);
    rule.random = Random(as<std::uint64_t>(ini.numberOr(pattern, {"seed", Kind::Word, 1}, 1)));
    rule.verdict.planned = true;
    rule.verdict.carryOut = ini.numberOr(pattern, {"carryOut", Kind::Switch, 0}, 0) != 0;
    rule.verdict.hangUp = ini.numberOr(pattern, {"hangUp", Kind::Switch, 0}, 0) != 0;
    rule.verdict.delay = as<qint64>(ini.numberOr(pattern, {"delay", Kind::Word, 0}, 0));
    if (const auto text = ini.text(pattern, valueKey)) {
        if (!takeValue(pattern, *text, rule.verdict)) {
            ini.addProblem(pattern, valueKey,
                           QStringLiteral("\"%1\" is nothing that it can answer; the answer of a "
                                          "failure is used")
                               .arg(*text));
        }
    }
    return rule;
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
