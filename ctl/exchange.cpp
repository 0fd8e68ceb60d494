// SPDX-License-Identifier: MIT
#include "ctl/exchange.h"

#include "params/roi.h"

#include <QtCore/QJsonArray>

#include <algorithm>
#include <set>

namespace tavrel::ctl {

namespace {

std::size_t commandOf(std::size_t place)
{
    return parameters()[place].command;
}

std::set<std::size_t> commandsOf(const Values& wanted)
{
    std::set<std::size_t> found;
    for (std::size_t place = 0; place < wanted.size(); ++place) {
        if (wanted[place]) {
            found.insert(commandOf(place));
        }
    }
    return found;
}

bool canBeRead(std::size_t command)
{
    return static_cast<bool>(commands()[command].read);
}

/// What the camera holds after an exchange, for people.
QString heldAfter(const Result& result)
{
    const Parameter& parameter = parameters()[result.place];
    if (result.after) {
        return textOf(parameter, *result.after);
    }
    if (canBeRead(parameter.command)) {
        return QStringLiteral("not readable");
    }
    return result.fate == Fate::Refused ? QStringLiteral("as before")
                                        : textOf(parameter, result.wanted);
}

/// Whether the coordinates around this place are in order; what is not known is.
bool pairInOrder(const Values& values, std::size_t place)
{
    const bool isLow = inPair(place) == InPair::Low;
    const std::optional<double> low = values[isLow ? place : partner(place)];
    const std::optional<double> high = values[isLow ? partner(place) : place];
    return !low || !high ||
           areInOrder(static_cast<std::int64_t>(*low), static_cast<std::int64_t>(*high));
}

} // namespace

Values merged(const Values& wanted, const Values& held)
{
    Values all = wanted;
    for (std::size_t place = 0; place < all.size(); ++place) {
        if (!all[place]) {
            all[place] = held[place];
        }
    }
    return all;
}

std::vector<std::size_t> commandsAround(const Values& wanted)
{
    std::set<std::size_t> around;
    for (const std::size_t command : commandsOf(wanted)) {
        around.insert(command);
        if (inPair(commands()[command].first) != InPair::No) {
            // Every coordinate carries the switches of all regions.
            for (std::size_t place = regionPlace(0, 0); place <= regionPlace(3, 3); ++place) {
                around.insert(commandOf(place));
            }
        }
    }
    return {around.begin(), around.end()};
}

std::vector<std::size_t> orderOnTheWire(const Values& wanted, const Values& held)
{
    const std::set<std::size_t> needed = commandsOf(wanted);
    std::vector<std::size_t> order(needed.begin(), needed.end());
    for (std::size_t index = 0; index + 1 < order.size(); ++index) {
        const std::size_t low = commands()[order[index]].first;
        if (inPair(low) != InPair::Low || commands()[order[index + 1]].first != partner(low)) {
            continue;
        }
        // The low one goes first unless it would pass the high one that is still there.
        Values between = held;
        between[low] = wanted[low];
        if (!pairInOrder(between, low)) {
            std::swap(order[index], order[index + 1]);
            ++index;
        }
    }
    return order;
}

void expectOrder(const Values& wanted, const Values& held,
                 const std::function<QString(std::size_t)>& told)
{
    const Values all = merged(wanted, held);
    for (std::size_t place = regionPlace(0, 0); place <= regionPlace(3, 3); ++place) {
        if (wanted[place] && !pairInOrder(all, place)) {
            const std::size_t low = inPair(place) == InPair::Low ? place : partner(place);
            throw Failure(Status::Usage,
                          QStringLiteral("%1: %2 = %3 is beyond %4 = %5; nothing was sent")
                              .arg(told(place), QLatin1String(parameters()[low].name),
                                   textOf(parameters()[low], *all[low]),
                                   QLatin1String(parameters()[partner(low)].name),
                                   textOf(parameters()[partner(low)], *all[partner(low)])));
        }
    }
}

void expectOneRate(const Values& wanted, const std::function<QString(std::size_t)>& told)
{
    QStringList names;
    for (std::size_t place = 0; place < wanted.size(); ++place) {
        if (!wanted[place] || parameters()[place].keeping != Keeping::OnlyByHand) {
            continue;
        }
        names.append(QLatin1String(parameters()[place].name));
        if (names.size() > 1) {
            throw Failure(Status::Usage, QStringLiteral("%1: %2 cannot be sent together")
                                             .arg(told(place), names.join(QLatin1String(" and "))));
        }
    }
}

std::vector<Result> exchange(Session& session, const Values& wanted, const Values& held,
                             const Values& expected)
{
    const std::vector<std::size_t> order = orderOnTheWire(wanted, held);
    const Values target = merged(wanted, held);
    QStringList names;
    for (const std::size_t command : order) {
        const Command& row = commands()[command];
        names.append(QLatin1String(parameters()[row.first].name));
        for (std::size_t place = row.first; place < row.first + row.count; ++place) {
            if (!target[place]) {
                throw Failure(Status::Differs,
                              QStringLiteral("%1 cannot be set: the camera does not tell %2, "
                                             "which goes with it; nothing was sent")
                                  .arg(names.last(), QLatin1String(parameters()[place].name)));
            }
        }
    }
    session.plan(names);

    std::vector<std::size_t> readable;
    for (const std::size_t command : commandsOf(expected)) {
        if (canBeRead(command)) {
            readable.push_back(command);
        }
    }
    // What was asked for is read back, whether or not it had to be sent; and before the camera's
    // own rate goes out, because nothing can be asked at the old one afterwards.
    std::optional<Values> readBack;
    const auto look = [&] {
        if (!readBack) {
            readBack = readable.empty() ? Values(parameters().size()) : session.read(readable);
        }
    };

    Values now = held;
    std::vector<std::optional<Fate>> fates(parameters().size());
    for (const std::size_t command : order) {
        const Command& row = commands()[command];
        if (!canBeRead(command)) {
            look();
        }
        Values next = now;
        std::vector<double> sent;
        for (std::size_t place = row.first; place < row.first + row.count; ++place) {
            next[place] = target[place];
            sent.push_back(*target[place]);
        }
        const QString name = QLatin1String(parameters()[row.first].name);
        Fate fate = Fate::NotSent;
        if (inPair(row.first) == InPair::No || pairInOrder(next, row.first) ||
            !pairInOrder(now, row.first)) {
            const RegionSwitches switches = regionSwitches(next);
            const ombrix_sdk::Flag accepted =
                session.send(name, [&](auto& camera) { return row.write(camera, sent, switches); });
            if (accepted != 0) {
                fate = Fate::Done;
                now = next;
                session.settle(name, Step::Fate::Done);
            } else {
                // A camera that has gone has perhaps done it.
                session.expectPresence();
                fate = Fate::Refused;
                session.settle(name, Step::Fate::Refused);
            }
        }
        for (std::size_t place = row.first; place < row.first + row.count; ++place) {
            fates[place] = fate;
        }
    }

    look();
    const Values& after = *readBack;
    std::vector<Result> results;
    for (std::size_t place = 0; place < expected.size(); ++place) {
        if (!expected[place]) {
            continue;
        }
        Fate fate = fates[place].value_or(Fate::Done);
        if (fate == Fate::Done && !after[place]) {
            fate = Fate::Unverified;
        } else if (fate == Fate::Done && after[place] != expected[place]) {
            fate = Fate::Differs;
        }
        results.push_back({place, *expected[place], held[place], after[place], fate});
    }
    return results;
}

const char* wordOf(Fate fate)
{
    switch (fate) {
    case Fate::Done:
        return "done";
    case Fate::Refused:
        return "refused";
    case Fate::Differs:
        return "differs";
    case Fate::NotSent:
        return "not sent";
    case Fate::Unverified:
        break;
    }
    return "cannot be read back";
}

bool report(Answer& answer, const std::vector<Result>& results)
{
    QJsonArray list;
    std::vector<QStringList> rows;
    bool good = true;
    for (const Result& result : results) {
        const Parameter& parameter = parameters()[result.place];
        const QString name = QLatin1String(parameter.name);
        const QString word = QLatin1String(wordOf(result.fate));
        const bool isGood = result.fate == Fate::Done ||
                            (result.fate == Fate::Unverified && !canBeRead(parameter.command));
        good &= isGood;
        list.append(QJsonObject{{QStringLiteral("name"), name},
                                {QStringLiteral("wanted"), jsonOf(parameter, result.wanted)},
                                {QStringLiteral("before"), jsonOf(parameter, result.before)},
                                {QStringLiteral("held"), jsonOf(parameter, result.after)},
                                {QStringLiteral("result"), word}});
        QString said = word;
        if (!isGood) {
            said += QStringLiteral(": wanted ") + textOf(parameter, result.wanted);
        }
        rows.push_back({name, QStringLiteral("= ") + heldAfter(result), said});
    }
    answer.json.insert(QStringLiteral("results"), list);
    answer.table(rows);
    return good;
}

} // namespace tavrel::ctl
