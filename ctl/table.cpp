// SPDX-License-Identifier: MIT
// The camera's table of bad pixels: the same files, rules and words as the window's tab.
#include "bpr/transfer.h"

#include "app/platform.h"
#include "ctl/tasks.h"

#include <QtCore/QDir>
#include <QtCore/QJsonArray>

#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

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
    std::cerr << qPrintable(printable(question)) << " [y/N] " << std::flush;
    std::string line;
    if (!platform::waitForInput() || !std::getline(std::cin, line)) {
        std::cerr << std::endl;
    }
    if (platform::wasInterrupted()) {
        throw Failure(Status::Differs, QStringLiteral("interrupted; nothing was written"));
    }
    const QString answer = QString::fromStdString(line).trimmed().toLower();
    if (answer != QLatin1String("y") && answer != QLatin1String("yes")) {
        throw Failure(Status::Differs, QStringLiteral("not written"));
    }
}

QString nameOf(const std::string& path)
{
    return QFile::decodeName(path.c_str());
}

/// What is to be told of a file that does not hold what was to be written into it.
QString notWritten(const std::string& path)
{
    std::error_code error;
    const bool isThere = std::filesystem::exists(path, error);
    return nameOf(path) +
           (bpr::fileExists(path) ? QStringLiteral(" could not be written and holds another map")
            : isThere || error    ? QStringLiteral(" could not be written, or cannot be read")
                                  : QStringLiteral(" could not be written: nothing is there"));
}

/// The files are looked at themselves, because the operations do not tell what became of a write.
void expectMap(const std::vector<std::string>& paths, const cv::Mat& map)
{
    QStringList told;
    bool allHold = true;
    for (const std::string& path : paths) {
        const bool holds = bpr::holdsMap(path, map);
        allHold &= holds;
        told.append(holds ? nameOf(path) + QStringLiteral(" holds the camera's table")
                          : notWritten(path));
    }
    if (!allHold) {
        throw Failure(Status::Usage, told.join(QLatin1String("; ")));
    }
}

void expectBackupInPlace(const bpr::MapFiles& files)
{
    if (!bpr::holdTheSame(files.working(), files.backup())) {
        throw Failure(Status::Usage, QStringLiteral("%1; %2 holds the backup")
                                         .arg(notWritten(files.working()), nameOf(files.backup())));
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
    // The table of a camera that has gone meanwhile is no table, so it is read before the number.
    const bpr::MapFiles files(serialNumber(session));
    std::vector<std::string> paths{files.working()};
    if (!bpr::fileExists(files.backup())) {
        paths.insert(paths.begin(), files.backup());
    }
    Lines lines(answer);
    bpr::storeTable(read.table, files, lines.log());
    expectMap(paths, read.table.map);
    answer.json.insert(QStringLiteral("file"), nameOf(files.working()));
    answer.json.insert(QStringLiteral("count"), read.table.count);
    return Status::Done;
}

Status writeTable(const Request& request, Answer& answer)
{
    Session session(sessionOptions(request));
    const bpr::MapFiles files(serialNumber(session));
    expectConsent(
        request,
        QStringLiteral("Write %1 to the camera on %2?").arg(nameOf(files.working()), request.port));
    session.expectPresence();
    makeFolders();
    if (!bpr::fileExists(files.working())) {
        if (const auto refusal = bpr::ensureWorkingCopy(files)) {
            return refuse(session, *refusal, answer);
        }
        expectBackupInPlace(files);
    }
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
    const bpr::MapFiles files(serialNumber(session));
    makeFolders();
    Lines lines(answer);
    if (const auto refusal = bpr::resetTable(files, lines.log())) {
        return refuse(session, *refusal, answer);
    }
    expectBackupInPlace(files);
    return Status::Done;
}

} // namespace tavrel::ctl
