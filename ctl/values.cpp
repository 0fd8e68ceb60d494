// SPDX-License-Identifier: MIT
// The camera's parameters one by one.
#include "ctl/exchange.h"
#include "ctl/tasks.h"

#include <QtCore/QJsonArray>

#include <set>

namespace tavrel::ctl {

namespace {

std::size_t placeOf(const QString& name)
{
    const std::optional<std::size_t> place = parameterNamed(name);
    if (!place) {
        throw Failure(
            Status::Usage,
            QStringLiteral("unknown parameter \"%1\" (see \"tavrelctl list\")").arg(name));
    }
    if (parameters()[*place].level == Level::Expert && !isExpertMode()) {
        throw Failure(Status::Usage,
                      QStringLiteral("%1 is an expert parameter, and the SDK's configuration has "
                                     "the expert mode off")
                          .arg(name));
    }
    return *place;
}

const Command& commandOf(const Parameter& parameter)
{
    return commands()[parameter.command];
}

} // namespace

Status listParameters(const Request&, Answer& answer)
{
    QJsonArray list;
    std::vector<QStringList> rows;
    for (const Parameter& parameter : parameters()) {
        const QString range = rangeOf(parameter, configuration());
        const bool readable = static_cast<bool>(commandOf(parameter).read);
        const bool writable = static_cast<bool>(commandOf(parameter).write);
        const QString level =
            parameter.level == Level::Expert ? QStringLiteral("expert") : QStringLiteral("user");
        QJsonObject row{{QStringLiteral("name"), QLatin1String(parameter.name)},
                        {QStringLiteral("unit"), QLatin1String(parameter.unit)},
                        {QStringLiteral("level"), level},
                        {QStringLiteral("readable"), readable},
                        {QStringLiteral("writable"), writable}};
        if (parameter.isNumber()) {
            const Limits limits = limitsOf(parameter, configuration());
            row.insert(QStringLiteral("minimum"), limits.minimum);
            row.insert(QStringLiteral("maximum"), limits.maximum);
        }
        QJsonArray choices;
        for (const Choice& choice : parameter.choices) {
            choices.append(jsonOf(parameter, choice.value));
        }
        if (!choices.isEmpty()) {
            row.insert(QStringLiteral("choices"), choices);
        }
        list.append(row);
        const QString access = readable && writable ? QStringLiteral("read, set")
                               : readable           ? QStringLiteral("read")
                                                    : QStringLiteral("set");
        rows.push_back({QLatin1String(parameter.name), level, access, range});
    }
    answer.json.insert(QStringLiteral("parameters"), list);
    answer.table(rows);
    return Status::Done;
}

Status getParameters(const Request& request, Answer& answer)
{
    std::vector<std::size_t> places;
    for (const QString& name : request.words) {
        places.push_back(placeOf(name));
        if (!commandOf(parameters()[places.back()]).read) {
            throw Failure(Status::Usage, QStringLiteral("%1 cannot be read").arg(name));
        }
    }
    for (std::size_t place = 0; request.words.isEmpty() && place < parameters().size(); ++place) {
        const Parameter& parameter = parameters()[place];
        if (commandOf(parameter).read && (parameter.level == Level::User || isExpertMode())) {
            places.push_back(place);
        }
    }
    std::set<std::size_t> needed;
    for (const std::size_t place : places) {
        needed.insert(parameters()[place].command);
    }

    Session session(sessionOptions(request));
    const Values values = session.read({needed.begin(), needed.end()});
    QJsonObject object;
    std::vector<QStringList> rows;
    Status status = Status::Done;
    for (const std::size_t place : places) {
        const Parameter& parameter = parameters()[place];
        const std::optional<double> value = values[place];
        QString text = QStringLiteral("not readable");
        if (value) {
            text = textWithUnit(parameter, *value);
        } else {
            status = Status::Differs;
        }
        object.insert(QLatin1String(parameter.name), jsonOf(parameter, value));
        rows.push_back({QLatin1String(parameter.name), QStringLiteral("= ") + text});
    }
    answer.json.insert(QStringLiteral("parameters"), object);
    answer.table(rows);
    return status;
}

Status setParameters(const Request& request, Answer& answer)
{
    Values wanted(parameters().size());
    for (const QString& word : request.words) {
        const auto sign = word.indexOf(QLatin1Char('='));
        if (sign < 1) {
            throw Failure(Status::Usage,
                          QStringLiteral("\"%1\" is not of the form NAME=VALUE").arg(word));
        }
        const QString name = word.left(sign);
        const std::size_t place = placeOf(name);
        if (wanted[place]) {
            throw Failure(Status::Usage, QStringLiteral("%1 stands there twice").arg(name));
        }
        const Understood understood =
            valueOf(parameters()[place], word.mid(sign + 1), configuration());
        if (!understood.value) {
            throw Failure(Status::Usage, name + QStringLiteral(": ") + understood.problem);
        }
        wanted[place] = understood.value;
    }

    const auto told = [](std::size_t place) {
        return QLatin1String(parameters()[place].name);
    };
    expectOneRate(wanted, told);

    Session session(sessionOptions(request));
    const Values held = session.read(commandsAround(wanted));
    expectOrder(wanted, held, told);
    Values toSend = wanted;
    const std::size_t rate = frameRatePlace();
    if (wanted[rate] && wanted[rate] == held[rate]) {
        // A rate that the camera has is not sent: it would end the test pattern.
        toSend[rate].reset();
    } else if (wanted[rate] && !wanted[testPatternPlace()]) {
        complain(QStringLiteral("note: another frame rate ends the test pattern"));
    }
    return report(answer, exchange(session, toSend, held, wanted)) ? Status::Done : Status::Differs;
}

Status requestNuc(const Request& request, Answer& answer)
{
    Session session(sessionOptions(request));
    const QString nuc = QStringLiteral("nuc");
    session.plan({nuc});
    const bool done = session.send(nuc, [](auto& camera) { return camera.requestNuc(0); }) != 0;
    if (!done) {
        session.expectPresence();
    }
    const QString result = done ? QStringLiteral("done") : QStringLiteral("refused");
    answer.json.insert(QStringLiteral("result"), result);
    answer.line(QStringLiteral("nuc  ") + result);
    return done ? Status::Done : Status::Differs;
}

Status moveShutter(const Request& request, Answer& answer)
{
    Request set = request;
    QString position = request.words.first();
    if (position == QLatin1String("close")) {
        position = QStringLiteral("closed");
    } else if (position != QLatin1String("open")) {
        throw Failure(
            Status::Usage,
            QStringLiteral("the shutter takes \"open\" or \"close\", not \"%1\"").arg(position));
    }
    set.words = QStringList{QStringLiteral("shutter=") + position};
    return setParameters(set, answer);
}

} // namespace tavrel::ctl
