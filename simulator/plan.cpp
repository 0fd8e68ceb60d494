// SPDX-License-Identifier: MIT
#include "simulator/plan.h"

#include "simulator/badpixels.h"
#include "simulator/files.h"
#include "simulator/ini.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <limits>
#include <tuple>

namespace simulator {
namespace {

const QString powerSection = QStringLiteral("power");
const QString callsKey = QStringLiteral("calls");
const QString valueKey = QStringLiteral("value");
const QString connectionSection = QStringLiteral("connection");
const QString nothingDone = QStringLiteral("the section does nothing");
constexpr qint64 longestTick = 2000; ///< of a file system's clock, in milliseconds
constexpr qint64 forEver = std::numeric_limits<qint64>::max();

/// Whether the pieces, between which any letters may stand, make up the name. Not by a regular
/// expression, to which many stars are many ways to fail.
bool consistsOf(QLatin1String name, const QStringList& pieces)
{
    if (!name.startsWith(pieces.first())) {
        return false;
    }
    int place = pieces.first().size();
    for (int piece = 1; piece + 1 < pieces.size(); ++piece) {
        place = name.indexOf(pieces.at(piece), place);
        if (place < 0) {
            return false;
        }
        place += pieces.at(piece).size();
    }
    return name.size() - place >= pieces.last().size() && name.endsWith(pieces.last());
}

/// A name matches its operation; a pattern with stars matches operations of the camera only, so
/// that "get*" or "*" does not keep the program from reaching it.
std::bitset<operationCount> matchingOperations(const QString& pattern)
{
    const QStringList pieces = pattern.split(QLatin1Char('*'));
    std::bitset<operationCount> operations;
    for (std::size_t number = 0; number < operationCount; ++number) {
        const auto operation = static_cast<Operation>(number);
        const QLatin1String name(factsOf(operation).name);
        operations.set(number, pieces.size() > 1
                                   ? operation >= firstCameraOperation && consistsOf(name, pieces)
                                   : pattern == name);
    }
    return operations;
}

using Ranges = std::vector<std::pair<qint64, qint64>>;

/// The ranges of a list of 32-bit numbers such as "3", "3-" or "1,4-6"; empty when it is none.
Ranges parseRanges(const QString& text)
{
    constexpr qint64 most = std::numeric_limits<std::uint32_t>::max();
    static const QRegularExpression range(
        QStringLiteral("^\\s*(\\d{1,10})\\s*(?:(-)\\s*(\\d{1,10})?)?\\s*$"));
    Ranges ranges;
    const QStringList items = text.split(QLatin1Char(','));
    for (const QString& item : items) {
        const QRegularExpressionMatch match = range.match(item);
        const qint64 first = match.captured(1).toLongLong();
        const qint64 last = match.captured(2).isEmpty()   ? first
                            : match.captured(3).isEmpty() ? forEver
                                                          : match.captured(3).toLongLong();
        if (!match.hasMatch() || last < first || first > most || (last > most && last != forEver)) {
            return {};
        }
        ranges.emplace_back(first, last);
    }
    return ranges;
}

/// The calls that a rule hits; empty when the text names none.
Ranges parseCalls(const QString& text)
{
    if (text == QLatin1String("always")) {
        return {{1, forEver}};
    }
    const Ranges calls = parseRanges(text);
    const bool fromOne =
        std::all_of(calls.begin(), calls.end(), [](const auto& range) { return range.first >= 1; });
    return fromOne ? calls : Ranges();
}

/// The values of an argument, where a switch is true or false.
Ranges parseValues(const QString& text)
{
    if (text == QLatin1String("true") || text == QLatin1String("false")) {
        const qint64 value = text == QLatin1String("true") ? 1 : 0;
        return {{value, value}};
    }
    return parseRanges(text);
}

/// Whether an argument can have the values, written as true or false if it is a switch.
bool fits(const NumberArgument& argument, const QString& written, const Ranges& values)
{
    const bool isWord = !written.isEmpty() && written.at(0).isLetter();
    return (argument.highest == 1 || !isWord) &&
           std::all_of(values.begin(), values.end(), [&argument](const auto& range) {
               return range.first <= argument.highest &&
                      (range.second <= argument.highest || range.second == forEver);
           });
}

QString describe(const NumberArgument& argument)
{
    return argument.highest == 1 ? QStringLiteral("true or false")
                                 : QStringLiteral("0 to %1").arg(argument.highest);
}

bool contains(const Ranges& ranges, qint64 value)
{
    return std::any_of(ranges.begin(), ranges.end(), [value](const auto& range) {
        return value >= range.first && value <= range.second;
    });
}

/// A number without which the section means nothing; its absence is a problem, too.
std::optional<double> required(IniFile& ini, const QString& section, const Field& field)
{
    const QString key = QLatin1String(field.key);
    if (!ini.text(section, key)) {
        ini.addProblem(section, key, QStringLiteral("missing; ") + nothingDone);
    }
    return ini.number(section, field, nothingDone);
}

/// Whether an operation goes to a camera or asks for one.
bool isOfACamera(Operation operation)
{
    return operation >= firstCameraOperation || operation == Operation::openCamera;
}

/// A section is named by its operation or pattern; what follows a blank tells it from others of the
/// same.
QString patternOf(const QString& section)
{
    return section.section(QLatin1Char(' '), 0, 0);
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
                   : QStringLiteral("%1 is not missing, empty, long or a number of entries, "
                                    "0 to %2")
                         .arg(quoted(text), QString::number(pixelCount));
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
    if (!isOn()) {
        return false;
    }
    const QFileInfo info(file);
    const std::pair state(info.lastModified(), info.size());
    const bool isSame = lastState == state;
    if (isSame && isSettled) {
        return false;
    }
    lastState = state;
    // Within one tick a file can change and keep its time. A pipe is read once.
    isSettled = !info.isFile() || state.first.msecsTo(QDateTime::currentDateTime()) > longestTick;
    std::optional<IniFile> ini;
    if (info.exists()) {
        ini.emplace(file, nothingDone);
    }
    const QByteArray now = ini ? ini->content() : QByteArray();
    if (isSame && now == content) {
        return false;
    }
    content = now;
    rules.clear();
    found.clear();
    if (ini) {
        read(*ini);
    }
    return true;
}

void Plan::read(IniFile& ini)
{
    rules.clear();
    const QStringList sections = ini.sections();
    for (const QString& section : sections) {
        if (section == powerSection) {
            const std::optional<double> number = required(ini, section, {"cycles", Kind::Word, 0});
            if (ini.finish(section) && number) {
                cycles = as<qint64>(*number);
            }
        } else if (const std::optional<Rule> rule = readRule(ini, section)) {
            rules.push_back(*rule);
        }
    }
    sortRules();
    found = ini.problems();
}

QStringList Plan::put(IniFile& ini)
{
    std::vector<Rule> more;
    const QStringList given = ini.sections();
    for (const QString& section : given) {
        if (std::optional<Rule> rule = readRule(ini, section)) {
            rule->outcome.fault = ++faultsPut;
            more.push_back(*rule);
        }
    }
    QStringList problems = ini.problems();
    if (given.isEmpty() && problems.isEmpty()) {
        problems << QStringLiteral("there is no [section]");
    }
    if (problems.isEmpty()) {
        std::for_each(given.begin(), given.end(),
                      [this](const QString& section) { lift(section); });
        rules.insert(rules.end(), more.begin(), more.end());
        sortRules();
    }
    return problems;
}

bool Plan::lift(const QString& section)
{
    return std::erase_if(rules, [&](const Rule& rule) { return rule.section == section; }) > 0;
}

bool Plan::hasFault(int number) const
{
    return std::any_of(rules.begin(), rules.end(),
                       [number](const Rule& rule) { return rule.outcome.fault == number; });
}

QStringList Plan::sections() const
{
    QStringList names;
    for (const Rule& rule : rules) {
        names << rule.section;
    }
    return names;
}

void Plan::sortRules()
{
    // A lost connection beats every rule. A name without * is more exact than one with; then more
    // letters that are given, and then more conditions.
    for (Rule& rule : rules) {
        const auto stars = rule.pattern.count(QLatin1Char('*'));
        const std::size_t conditions =
            rule.where.size() + (rule.camera ? 1 : 0) + (rule.port ? 1 : 0);
        rule.exactness = {rule.outcome.lost, stars == 0, rule.pattern.size() - stars, conditions};
    }
    std::stable_sort(rules.begin(), rules.end(), [](const Rule& left, const Rule& right) {
        return left.exactness > right.exactness;
    });
}

std::optional<Plan::Rule> Plan::readRule(IniFile& ini, const QString& section) const
{
    Rule rule;
    rule.section = section;
    rule.pattern = patternOf(section);
    rule.calls = {{1, forEver}};
    rule.outcome.planned = true;
    const auto number = [&](const char* key, Kind kind, double fallback) {
        return ini.number(section, {key, kind, fallback}, nothingDone).value_or(fallback);
    };
    if (rule.pattern == connectionSection) {
        rule.operations = matchingOperations(QStringLiteral("*"));
        rule.operations.set(static_cast<std::size_t>(Operation::openCamera));
        rule.outcome.lost = required(ini, section, {"lost", Kind::Switch, 0}).value_or(0) != 0;
        readScope(ini, section, rule);
        return ini.finish(section) && rule.outcome.lost ? std::optional(rule) : std::nullopt;
    }
    rule.operations = matchingOperations(rule.pattern);
    if (rule.operations.none()) {
        QString reason = QStringLiteral("there are no faults of this operation");
        if (!isInLibrary(rule.pattern)) {
            reason = QStringLiteral("no operation %1, see simulator-reference.md")
                         .arg(rule.isGroup() ? QStringLiteral("of a camera fits")
                                             : QStringLiteral("has this name"));
        }
        ini.rejectSection(section, QStringLiteral("%1; %2").arg(reason, nothingDone));
        return std::nullopt;
    }
    if (const auto text = ini.text(section, callsKey)) {
        rule.calls = parseCalls(*text);
        if (rule.calls.empty()) {
            ini.addProblem(section, callsKey,
                           QStringLiteral("%1 is neither always nor a list such as 3, 5-7, 9-, "
                                          "counted from 1; %2")
                               .arg(quoted(*text), nothingDone));
        }
    }
    rule.probability = number("probability", Kind::Share, 1);
    rule.random = Random(as<std::uint64_t>(number("seed", Kind::Word, 1)));
    readScope(ini, section, rule);
    readWhere(ini, section, rule);
    readValue(ini, section, rule);
    readRecord(ini, section, rule);
    readTable(ini, section, rule);
    rule.outcome.carryOut = number("carryOut", Kind::Switch, 0) != 0;
    rule.outcome.delay = as<qint64>(number("delay", Kind::Word, 0));
    rule.outcome.hangUp = number("hangUp", Kind::Switch, 0) != 0;
    if (ini.isEmpty(section)) {
        ini.rejectSection(section, QStringLiteral("a rule has one of the keys %1; %2")
                                       .arg(ini.keysOf(section), nothingDone));
    }
    return ini.finish(section) ? std::optional(rule) : std::nullopt;
}

void Plan::readScope(IniFile& ini, const QString& section, Rule& rule)
{
    const QString cameraKey = QStringLiteral("camera");
    const QString portKey = QStringLiteral("port");
    if (const std::optional<double> serial =
            ini.number(section, {"camera", Kind::Word, 0}, nothingDone)) {
        rule.camera = as<std::uint32_t>(*serial);
    }
    rule.port = ini.text(section, portKey);
    static const QRegularExpression name(QStringLiteral("^[^\\s,*]+$"));
    if (rule.port && !name.match(*rule.port).hasMatch()) {
        ini.addProblem(section, portKey,
                       QStringLiteral("%1 is not the name of one port; %2")
                           .arg(quoted(*rule.port), nothingDone));
    }
    for (std::size_t number = 0; number < operationCount; ++number) {
        const auto operation = static_cast<Operation>(number);
        if ((rule.camera || rule.port) && rule.operations.test(number) && !isOfACamera(operation)) {
            ini.addProblem(
                section, rule.camera ? cameraKey : portKey,
                QStringLiteral("%1 is of no camera; %2").arg(nameOf(operation), nothingDone));
        }
    }
}

void Plan::readWhere(IniFile& ini, const QString& section, Rule& rule)
{
    const QString key = QStringLiteral("where");
    const std::optional<QString> text = ini.text(section, key);
    if (!text) {
        return;
    }
    const QStringList conditions = text->split(QStringLiteral(" and "));
    for (const QString& condition : conditions) {
        const QString argument = condition.trimmed().section(QLatin1Char(' '), 0, 0);
        const QString written = condition.trimmed().mid(argument.size()).trimmed();
        const Ranges values = parseValues(written);
        if (argument.isEmpty() || values.empty()) {
            ini.addProblem(
                section, key,
                QStringLiteral("%1 is not an argument with true, false or a list such as "
                               "3, 5-7, 9-; %2")
                    .arg(quoted(condition), nothingDone));
        }
        for (std::size_t number = 0; number < operationCount; ++number) {
            const auto operation = static_cast<Operation>(number);
            if (!rule.operations.test(number)) {
                continue;
            }
            const QString declared =
                nameOf(operation) + QString::fromLatin1(factsOf(operation).arguments);
            const auto found = argumentNamed(operation, argument);
            if (!found) {
                ini.addProblem(section, key,
                               QStringLiteral("%1 has no number %2; %3")
                                   .arg(declared, quoted(argument), nothingDone));
            } else if (!fits(*found, written, values)) {
                ini.addProblem(
                    section, key,
                    QStringLiteral("%1 is not %2 of %3, which is %4; %5")
                        .arg(quoted(written), argument, declared, describe(*found), nothingDone));
            }
        }
        rule.where.push_back({argument, values});
    }
}

void Plan::readValue(IniFile& ini, const QString& section, Rule& rule)
{
    const std::optional<QString> text = ini.text(section, valueKey);
    if (!text) {
        return;
    }
    bool isOfUse = false;
    for (std::size_t number = 0; number < operationCount; ++number) {
        const auto operation = static_cast<Operation>(number);
        const std::optional<Kind> kind = factsOf(operation).answer;
        // Those of a group that answer no number go on as without one.
        if (!rule.operations.test(number) || (rule.isGroup() && !kind)) {
            continue;
        }
        isOfUse = true;
        if (const QString reason = reasonAgainst(operation, *text); !reason.isEmpty()) {
            ini.addProblem(section, valueKey, QStringLiteral("%1; %2").arg(reason, nothingDone));
            return;
        }
        if (kind) {
            rule.outcome.value = static_cast<qint64>(*parseField(*kind, *text));
        } else {
            rule.outcome.word = *text;
        }
    }
    if (!isOfUse) {
        ini.addProblem(section, valueKey,
                       QStringLiteral("%1 is of no use: none of %2 answers a number; %3")
                           .arg(quoted(*text), quoted(rule.pattern), nothingDone));
    }
}

void Plan::readRecord(IniFile& ini, const QString& section, Rule& rule)
{
    const QString key = QStringLiteral("record");
    const std::optional<QString> text = ini.text(section, key);
    if (!text) {
        return;
    }
    const QStringList numbers = text->split(QLatin1Char(','));
    for (std::size_t number = 0; number < operationCount; ++number) {
        const auto operation = static_cast<Operation>(number);
        if (!rule.operations.test(number)) {
            continue;
        }
        const auto record = factsOf(operation).record;
        const std::vector<Kind> kinds = record != nullptr ? record() : std::vector<Kind>();
        if (kinds.size() != static_cast<std::size_t>(numbers.size())) {
            ini.addProblem(section, key,
                           QStringLiteral("%1 fills in %2 numbers, and %3 are given; %4")
                               .arg(nameOf(operation), QString::number(kinds.size()),
                                    QString::number(numbers.size()), nothingDone));
            return;
        }
        rule.outcome.record.clear();
        for (std::size_t field = 0; field < kinds.size(); ++field) {
            const QString& written = numbers.at(static_cast<int>(field));
            const std::optional<double> value = parseField(kinds[field], written);
            if (!value) {
                ini.addProblem(section, key,
                               QStringLiteral("%1 is not %2; %3")
                                   .arg(quoted(written), describeKind(kinds[field]), nothingDone));
            }
            rule.outcome.record.push_back(value.value_or(0));
        }
    }
}

void Plan::readTable(IniFile& ini, const QString& section, Rule& rule) const
{
    const QString key = QStringLiteral("table");
    const std::optional<QString> path = ini.text(section, key);
    if (!path) {
        return;
    }
    QString reason;
    if (rule.operations.count() != 1 ||
        !rule.operations.test(static_cast<std::size_t>(Operation::readTableData))) {
        reason = QStringLiteral("only readTableData reads one");
    } else if (const std::optional<QByteArray> region =
                   readFile(QFileInfo(QFileInfo(file).dir(), *path).absoluteFilePath(), tableLength,
                            &reason)) {
        rule.outcome.table = *region;
        return;
    }
    ini.addProblem(
        section, key,
        QStringLiteral("%1 is no table region: %2; %3").arg(quoted(*path), reason, nothingDone));
}

bool Plan::isFor(const Rule& rule, const Call& call)
{
    if (!rule.operations.test(static_cast<std::size_t>(call.operation)) ||
        (rule.camera && rule.camera != call.camera) || (rule.port && *rule.port != call.port)) {
        return false;
    }
    return std::all_of(rule.where.begin(), rule.where.end(), [&call](const Condition& condition) {
        const auto argument = argumentNamed(call.operation, condition.argument);
        return argument && contains(condition.values, call.arguments.at(argument->place));
    });
}

CallOutcome Plan::decide(const Call& call)
{
    const auto first = std::find_if(rules.begin(), rules.end(), [&call](const Rule& candidate) {
        return isFor(candidate, call);
    });
    CallOutcome outcome;
    for (auto rule = first; rule != rules.end() && rule->exactness == first->exactness; ++rule) {
        if (rule != first && !isFor(*rule, call)) {
            continue;
        }
        ++rule->count;
        // Every call draws, so that the same seed hits the same calls whatever the ranges.
        const bool drawn = rule->random.fraction() < rule->probability;
        if (contains(rule->calls, rule->count) && drawn && !outcome.planned) {
            outcome = rule->outcome;
        }
    }
    return outcome;
}

} // namespace simulator
