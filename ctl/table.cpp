// SPDX-License-Identifier: MIT
// The camera's table of bad pixels: the same files, rules and words as the window's tab.
#include "bpr/transfer.h"

#include "app/platform.h"
#include "ctl/tasks.h"

#include <QtCore/QDir>
#include <QtCore/QJsonArray>

#include <iostream>
#include <string>

namespace tavrel::ctl {

namespace {

/// Collects the lines of an operation for the answer.
class Lines {
public:
    explicit Lines(Answer& toAnswer) : answer(toAnswer) {}

    bpr::Log log()
    {
        return [this](const std::string& line) {
            const QString text = QString::fromStdString(line);
            answer.line(text);
            list.append(text);
            answer.json.insert(QStringLiteral("lines"), list);
        };
    }

private:
    Answer& answer;
    QJsonArray list;
};

/// Where the window makes them when it starts.
void makeFolders()
{
    for (const char* const name : {bpr::workingFolder, bpr::backupFolder}) {
        if (!QDir().mkpath(QLatin1String(name))) {
            throw Failure(
                Status::Usage,
                QStringLiteral("the folder %1 cannot be made here").arg(QLatin1String(name)));
        }
    }
}

/// Tells why an operation has ended, in the window's words, beside the lines up to then.
Status refuse(Session& session, const bpr::Refusal& refusal, Answer& answer)
{
    session.expectPresence();
    const QString text = bpr::withArgument(QString::fromLatin1(refusal.text), refusal.argument);
    complain(text);
    const Status status = refusal.isCameras ? Status::Differs : Status::Usage;
    answer.json.insert(QStringLiteral("error"), text);
    answer.json.insert(QStringLiteral("status"), static_cast<int>(status));
    return status;
}

bpr::MapFiles filesOf(Session& session)
{
    return bpr::MapFiles(session.ask(QStringLiteral("serial number"),
                                     [](auto& camera) { return camera.getSerialNumber(); }));
}

/// Asks the user; throws when there is nobody to ask, or the answer is not yes.
void expectConsent(const Request& request, const QString& question)
{
    if (request.yes) {
        return;
    }
    if (!platform::isTerminal(platform::Stream::Input)) {
        throw Failure(Status::Usage,
                      question + QStringLiteral(" There is no terminal to answer at: say --yes."));
    }
    endProgress();
    std::cerr << qPrintable(question) << " [y/N] " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    if (answer != "y" && answer != "yes") {
        throw Failure(Status::Differs, QStringLiteral("not written"));
    }
}

void expectWritten(const std::string& path)
{
    constexpr auto mapSize = qint64{bpr::pixelCount};
    const QString name = QFile::decodeName(path.c_str());
    if (QFile(name).size() != mapSize) {
        throw Failure(Status::Usage, QStringLiteral("%1 could not be written").arg(name));
    }
}

} // namespace

Status readTable(const Request& request, Answer& answer)
{
    makeFolders();
    Session session(sessionOptions(request));
    const auto begin = std::chrono::steady_clock::now();
    const auto fetch = [&] {
        return session.ask(QStringLiteral("table"),
                           [](auto& camera) { return bpr::fetchTable(camera); });
    };
    bpr::CameraTable read = fetch();
    while (read.table.stalls) {
        // A camera may be in the middle of writing its table; the window would wait for ever.
        if (std::chrono::steady_clock::now() - begin >= session.timeout()) {
            session.expectPresence();
            throw Failure(Status::Differs,
                          QStringLiteral("the camera's table ends at its second record, which is "
                                         "never a whole table; nothing was written"));
        }
        constexpr std::chrono::milliseconds pause{100};
        platform::blockThread(pause);
        read = fetch();
    }
    if (read.refusal) {
        return refuse(session, *read.refusal, answer);
    }
    const bpr::MapFiles files = filesOf(session);
    // The table of a camera that has gone is no table.
    session.expectPresence();
    Lines lines(answer);
    bpr::storeTable(read.table, files, lines.log());
    expectWritten(files.working());
    answer.json.insert(QStringLiteral("file"), QFile::decodeName(files.working().c_str()));
    answer.json.insert(QStringLiteral("count"), read.table.count);
    return Status::Done;
}

Status writeTable(const Request& request, Answer& answer)
{
    Session session(sessionOptions(request));
    const bpr::MapFiles files = filesOf(session);
    expectConsent(request, QStringLiteral("Write %1 to the camera on %2?")
                               .arg(QFile::decodeName(files.working().c_str()), request.port));
    session.expectPresence();
    makeFolders();
    Lines lines(answer);
    const QString table = QStringLiteral("table");
    session.plan({table}, QStringLiteral("the camera may hold a part of it"));
    const auto refusal = session.send(
        table, [&](auto& camera) { return bpr::writeTable(camera, files, lines.log()); });
    if (refusal) {
        if (!refusal->isCameras) {
            session.settle(table, Step::Fate::NotSent);
        }
        return refuse(session, *refusal, answer);
    }
    return Status::Done;
}

Status resetTable(const Request& request, Answer& answer)
{
    Session session(sessionOptions(request));
    const bpr::MapFiles files = filesOf(session);
    session.expectPresence();
    makeFolders();
    Lines lines(answer);
    if (const auto refusal = bpr::resetTable(files, lines.log())) {
        return refuse(session, *refusal, answer);
    }
    return Status::Done;
}

} // namespace tavrel::ctl
