// SPDX-License-Identifier: MIT
// Settings from a camera into a file and back, and what differs.
#include "ctl/exchange.h"
#include "ctl/profile.h"
#include "ctl/tasks.h"
#include "params/versiontext.h"

#include <QtCore/QJsonArray>

#include <algorithm>

namespace tavrel::ctl {

namespace {

struct Difference {
    std::size_t place;
    std::optional<double> first;
    std::optional<double> second;
};

/// Where the second has a value that the first has not; also where only the first has one, if
/// wanted.
std::vector<Difference> differences(const Values& first, const Values& second, bool bothWays)
{
    std::vector<Difference> found;
    for (std::size_t place = 0; place < second.size(); ++place) {
        if ((second[place] || bothWays) && first[place] != second[place]) {
            found.push_back({place, first[place], second[place]});
        }
    }
    return found;
}

QString shown(const Parameter& parameter, const std::optional<double>& value)
{
    return value ? textWithUnit(parameter, *value) : QStringLiteral("-");
}

void show(Answer& answer, const std::vector<Difference>& list)
{
    QJsonArray array;
    std::vector<QStringList> rows;
    for (const Difference& difference : list) {
        const Parameter& parameter = parameters()[difference.place];
        array.append(QJsonObject{{QStringLiteral("name"), QLatin1String(parameter.name)},
                                 {QStringLiteral("first"), jsonOf(parameter, difference.first)},
                                 {QStringLiteral("second"), jsonOf(parameter, difference.second)}});
        rows.push_back({QLatin1String(parameter.name), shown(parameter, difference.first),
                        QStringLiteral("->"), shown(parameter, difference.second)});
    }
    answer.json.insert(QStringLiteral("differences"), array);
    answer.table(rows);
}

void leaveOutUnreadable(Values& values)
{
    for (std::size_t place = 0; place < values.size(); ++place) {
        if (!commands()[parameters()[place].command].read) {
            values[place].reset();
        }
    }
}

} // namespace

Status saveProfile(const Request& request, Answer& answer)
{
    if (request.expert && !isExpertMode()) {
        throw Failure(Status::Usage,
                      QStringLiteral("the SDK's configuration has the expert mode off"));
    }
    std::vector<std::size_t> wanted;
    for (std::size_t index = 0; index < commands().size(); ++index) {
        const Command& command = commands()[index];
        if (parameters()[command.first].keeping == Keeping::Saved &&
            (command.level == Level::User || request.expert)) {
            wanted.push_back(index);
        }
    }
    Session session(sessionOptions(request));
    const Origin origin{session.versions(), serialNumber(session),
                        session.ask(QStringLiteral("sensor serial number"),
                                    [](auto& camera) { return camera.getSensorSerialNumber(); })};
    const Values values = session.read(wanted);
    Status status = Status::Done;
    int count = 0;
    for (const std::size_t index : wanted) {
        const Command& command = commands()[index];
        for (std::size_t place = command.first; place < command.first + command.count; ++place) {
            const Parameter& parameter = parameters()[place];
            if (!values[place]) {
                complain(QStringLiteral("%1 is not readable and is left out")
                             .arg(QLatin1String(parameter.name)));
                status = Status::Differs;
                continue;
            }
            ++count;
            const QString text = textOf(parameter, *values[place]);
            if (!valueOf(parameter, text, configuration()).value) {
                complain(QStringLiteral("note: %1 = %2 is saved, but cannot be applied")
                             .arg(QLatin1String(parameter.name), text));
            }
        }
    }
    writeProfile(request.words.first(), origin, values);
    answer.json.insert(QStringLiteral("file"), request.words.first());
    answer.json.insert(QStringLiteral("saved"), count);
    answer.line(QStringLiteral("%1 parameters saved to %2").arg(count).arg(request.words.first()));
    return status;
}

Status applyProfile(const Request& request, Answer& answer)
{
    const Profile profile = readProfile(request.words.first());
    Values expected = profile.values;
    bool hasRate = false;
    for (std::size_t place = 0; place < expected.size(); ++place) {
        if (expected[place] && parameters()[place].keeping == Keeping::OnlyByHand) {
            hasRate = true;
            if (!request.withBaudRate) {
                expected[place].reset();
                complain(QStringLiteral("note: %1 is only sent with --camera-baud-rate")
                             .arg(QLatin1String(parameters()[place].name)));
            }
        }
    }
    if (request.withBaudRate && !hasRate) {
        throw Failure(Status::Usage,
                      QStringLiteral("%1 has no camera-baud-rate").arg(profile.file));
    }
    const auto told = [&](std::size_t place) {
        return profile.whereabouts(place);
    };
    expectOneRate(expected, told);
    const Values unknown(expected.size());
    expectOrder(expected, unknown, told);

    Session session(sessionOptions(request));
    const QString variant = QLatin1String(variantName(session.versions()));
    if (profile.variant != variant) {
        complain(QStringLiteral("warning: %1 comes from a camera of the variant %2, this one is %3")
                     .arg(profile.file, profile.variant, variant));
    }
    const Values held = session.read(commandsAround(expected));
    expectOrder(expected, held, told);

    Values wanted(expected.size());
    for (const Difference& difference : differences(held, expected, false)) {
        wanted[difference.place] = difference.second;
    }
    const std::size_t pattern = testPatternPlace();
    if (wanted[frameRatePlace()] && expected[pattern] == 1) {
        // It ends with the old rate.
        wanted[pattern] = expected[pattern];
    }
    const QString nothing = QStringLiteral("the camera holds all of %1 already").arg(profile.file);
    if (request.dryRun) {
        const std::vector<Difference> found = differences(held, expected, false);
        show(answer, found);
        if (found.empty()) {
            answer.line(nothing);
        }
        return Status::Done;
    }
    std::vector<Result> results = exchange(session, wanted, held, expected);
    const auto unchanged = [](const Result& result) {
        return result.fate == Fate::Done && result.before == result.after;
    };
    results.erase(std::remove_if(results.begin(), results.end(), unchanged), results.end());
    const bool good = report(answer, results);
    if (results.empty()) {
        answer.line(nothing);
    }
    return good ? Status::Done : Status::Differs;
}

Status compareProfiles(const Request& request, Answer& answer)
{
    const bool withCamera = !request.port.isEmpty();
    if (request.words.size() != (withCamera ? 1 : 2)) {
        throw Failure(Status::Usage, withCamera
                                         ? QStringLiteral("diff with a port takes one file")
                                         : QStringLiteral("diff without a port takes two files"));
    }
    Profile last = readProfile(request.words.last());
    Values first;
    if (withCamera) {
        leaveOutUnreadable(last.values);
        Session session(sessionOptions(request));
        first = session.read(commandsAround(last.values));
    } else {
        first = readProfile(request.words.first()).values;
    }
    const std::vector<Difference> found = differences(first, last.values, !withCamera);
    show(answer, found);
    return found.empty() ? Status::Done : Status::Differs;
}

} // namespace tavrel::ctl
