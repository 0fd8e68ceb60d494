// SPDX-License-Identifier: MIT
// What a person may do to a running simulator from outside, by the program ombrix-simulator.
#include "tests/simulator/scene.h"

#include "simulator/control.h"
#include "simulator/socketaddress.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtTest/QTest>

#include <array>
#include <atomic>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

using ombrix_sdk::ICamera;
using scene::Scene;

namespace {

constexpr int longest = 60'000; ///< milliseconds that a program may take

struct Output {
    int exitCode = -1;
    QString standardOutput;
    QString standardError;
};

QString socketOf(const Scene& scene)
{
    return scene.path(QStringLiteral("control"));
}

QProcessEnvironment ownEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name : environment.keys()) {
        if (name.startsWith(QLatin1String("TAVREL_SIMULATOR_"))) {
            environment.remove(name);
        }
    }
    return environment;
}

/// What the program says to these words.
Output run(const QStringList& words)
{
    QProcess process;
    process.setProcessEnvironment(ownEnvironment());
    process.start(QStringLiteral(TAVREL_COMMAND), words);
    Output output;
    if (process.waitForFinished(longest)) {
        output = {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                  QString::fromUtf8(process.readAllStandardError())};
    }
    return output;
}

/// Sends a command to the simulator that listens at the socket.
Output tell(const QString& socket, const QStringList& words)
{
    return run(QStringList({QStringLiteral("--at"), socket}) + words);
}

Output tell(const QString& socket, const char* words)
{
    return tell(socket, QString::fromUtf8(words).split(QLatin1Char(' ')));
}

/// A simulator that listens, in this process.
struct Listening {
    Listening() : Listening(QByteArray()) {}
    explicit Listening(const QByteArray& settings)
        : scene("[simulator]\ncontrol=control\n" + settings)
    {}

    Output tell(const char* words) { return ::tell(socketOf(scene), words); }

    Scene scene;
};

/// A program of its own that will be connected and wait.
std::unique_ptr<QProcess> startedProgram(const QString& socket)
{
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment environment = ownEnvironment();
    environment.insert(QStringLiteral("TAVREL_SIMULATOR_CONTROL"), socket);
    process->setProcessEnvironment(environment);
    process->setProcessChannelMode(QProcess::SeparateChannels);
    process->start(QStringLiteral(TAVREL_PROBE), {QStringLiteral("--wait")});
    return process;
}

/// Waits until the program is connected. False when it ends instead.
bool isConnected(QProcess& program)
{
    while (!program.canReadLine() && program.waitForReadyRead(longest)) {
    }
    return program.readLine() == "connected\n";
}

/// A program of its own that is connected and waits.
std::unique_ptr<QProcess> waitingProgram(const QString& socket)
{
    auto process = startedProgram(socket);
    return isConnected(*process) ? std::move(process) : nullptr;
}

/// What a simulator holds while it puts its socket in its place.
class SocketLock {
public:
    explicit SocketLock(const QString& socket)
        : file(QFile::encodeName(socket + QStringLiteral(".lock"))),
          descriptor(open(file.constData(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR))
    {
        flock(descriptor, LOCK_EX);
    }
    ~SocketLock() { giveBack(); }
    SocketLock(const SocketLock&) = delete;
    SocketLock& operator=(const SocketLock&) = delete;

    /// Waits until all of the programs wait for it. False when one goes on instead.
    bool isWaitedForBy(const std::vector<QProcess*>& programs) const
    {
        struct stat facts {};
        fstat(descriptor, &facts);
        const QByteArray inode = ':' + QByteArray::number(static_cast<qint64>(facts.st_ino)) + ' ';
        std::size_t waiting = 0;
        while (waiting < programs.size()) {
            QFile locks(QStringLiteral("/proc/locks"));
            locks.open(QIODevice::ReadOnly);
            waiting = 0;
            for (const QByteArray& line : locks.readAll().split('\n')) {
                waiting += line.contains("->") && line.contains(inode) ? 1 : 0;
            }
            for (QProcess* const program : programs) {
                if (program->waitForReadyRead(1) || program->state() == QProcess::NotRunning) {
                    return false;
                }
            }
        }
        return true;
    }
    void giveBack()
    {
        if (descriptor >= 0) {
            close(std::exchange(descriptor, -1));
        }
    }

private:
    QByteArray file;
    int descriptor;
};

QByteArray valueTold(QProcess& program)
{
    program.write("\n");
    while (!program.canReadLine() && program.waitForReadyRead(longest)) {
    }
    return program.readLine();
}

/// A connection that sends what it is told to.
class RawPeer {
public:
    explicit RawPeer(const QString& socketPath)
        : path(socketPath.toStdString()), descriptor(socket(AF_UNIX, SOCK_STREAM, 0))
    {}
    ~RawPeer() { close(descriptor); }
    RawPeer(const RawPeer&) = delete;
    RawPeer& operator=(const RawPeer&) = delete;

    bool send(const QByteArray& bytes) const
    {
        const simulator::SocketAddress address(path);
        return connect(descriptor, address.get(), simulator::SocketAddress::size()) == 0 &&
               ::send(descriptor, bytes.constData(), static_cast<size_t>(bytes.size()),
                      MSG_NOSIGNAL) == bytes.size();
    }
    /// Ends the request and waits for the answer.
    QByteArray answer() const
    {
        shutdown(descriptor, SHUT_WR);
        QByteArray text;
        std::array<char, 4096> piece{};
        for (ssize_t count = 0; (count = recv(descriptor, piece.data(), piece.size(), 0)) > 0;) {
            text.append(piece.data(), static_cast<int>(count));
        }
        return text;
    }

private:
    std::string path;
    int descriptor;
};

/// This program, the simulator in it included, opens no file while there is such an object.
class NoMoreDescriptors {
public:
    NoMoreDescriptors()
    {
        const int lowestFree = dup(STDOUT_FILENO);
        close(lowestFree);
        getrlimit(RLIMIT_NOFILE, &before);
        const rlimit full = {static_cast<rlim_t>(lowestFree), before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &full);
    }
    ~NoMoreDescriptors() { setrlimit(RLIMIT_NOFILE, &before); }
    NoMoreDescriptors(const NoMoreDescriptors&) = delete;
    NoMoreDescriptors& operator=(const NoMoreDescriptors&) = delete;

private:
    rlimit before{};
};

} // namespace

class TestCommands : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutBeingAskedForNobodyListens()
    {
        Scene scene;
        QCOMPARE(QDir().entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot),
                 QStringList(QStringLiteral("sdk.log")));
        const Output output = tell(socketOf(scene), "list");
        QCOMPARE(output.exitCode, 3);
        QCOMPARE(output.standardError,
                 QStringLiteral("ombrix-simulator: no simulator listens at %1: No such file or "
                                "directory\n")
                     .arg(socketOf(scene)));
    }

    void aCameraIsMadeWarmerWhileItsProgramIdles()
    {
        Listening simulator;
        ICamera& camera = simulator.scene.camera();
        const Output output = simulator.tell("set camera sensorTemperature=345000 gsk=9");
        QCOMPARE(output.standardError, QString());
        QCOMPARE(output.standardOutput, QString());
        QCOMPARE(output.exitCode, 0);
        ombrix_sdk::Temperatures temperatures{};
        camera.getTemperatures(&temperatures);
        QCOMPARE(temperatures.sensor, 345000.0F);
        QCOMPARE(camera.getGsk(), 9U);
        QCOMPARE(simulator.tell("get camera sensorTemperature").standardOutput,
                 QStringLiteral("345000\n"));
        QVERIFY(simulator.tell("get camera").standardOutput.contains(QStringLiteral("\ngsk=9\n")));
        QCOMPARE(
            simulator.scene.newLog().constLast(),
            QStringLiteral("notice   from outside: set camera sensorTemperature=345000 gsk=9"));
    }

    void aCameraIsMadeToFailAndToWorkAgain()
    {
        Listening simulator;
        ICamera& camera = simulator.scene.camera();
        QCOMPARE(tell(socketOf(simulator.scene),
                      {QStringLiteral("fault"), QStringLiteral("setGsk"),
                       QStringLiteral("where=gsk 7, 100-200"), QStringLiteral("calls=2-")})
                     .exitCode,
                 0);
        QCOMPARE(camera.setGsk(7), ombrix_sdk::Flag{1});
        QCOMPARE(camera.setGsk(7), ombrix_sdk::Flag{0});
        QCOMPARE(simulator.tell("lift setGsk").exitCode, 0);
        QCOMPARE(camera.setGsk(7), ombrix_sdk::Flag{1});
        QCOMPARE(simulator.tell("fault connection lost=true").exitCode, 0);
        QCOMPARE(camera.setGsk(7), ombrix_sdk::Flag{0});
        QCOMPARE(simulator.tell("lift").exitCode, 0);
        QCOMPARE(camera.setGsk(7), ombrix_sdk::Flag{1});
        QCOMPARE(simulator.tell("calls setGsk").standardOutput, QStringLiteral("5\n"));
        QCOMPARE(simulator.tell("calls").standardOutput,
                 QStringLiteral("openCamera 1\nsetGsk 5\nconnect 1\n"));
    }

    void aCameraIsPulledOutAndLosesItsPower()
    {
        Listening simulator;
        ICamera& camera = simulator.scene.camera();
        camera.setTestPattern(true);
        QCOMPARE(simulator.tell("pull 20417").exitCode, 0);
        QCOMPARE(camera.getTestPattern(), ombrix_sdk::Flag{0});
        QCOMPARE(simulator.tell("list").standardOutput.section(QLatin1Char('\n'), 0, 0),
                 QStringLiteral("[camera] serial number 20417 on port *, pulled out"));
        QCOMPARE(simulator.tell("plug 20417").exitCode, 0);
        QCOMPARE(camera.getTestPattern(), ombrix_sdk::Flag{1});
        QCOMPARE(simulator.tell("power").exitCode, 0);
        QCOMPARE(camera.getTestPattern(), ombrix_sdk::Flag{0});
    }

    void theListSaysWhyACameraIsSilentOrOther()
    {
        Listening simulator("manualClock=true\nnucDuration=3000\n");
        ICamera& camera = simulator.scene.camera();
        const auto stateTold = [&simulator] {
            return simulator.tell("list")
                .standardOutput.section(QLatin1Char('\n'), 0, 0)
                .remove(QStringLiteral("[camera] serial number 20417 on port *"));
        };
        QCOMPARE(stateTold(), QString());
        QCOMPARE(camera.requestNuc(1), ombrix_sdk::Flag{1});
        QCOMPARE(stateTold(), QStringLiteral(", NUC"));
        QCOMPARE(simulator.tell("advance 3000").exitCode, 0);
        QCOMPARE(stateTold(), QString());
        QCOMPARE(simulator.tell("fault getGsk hangUp=true").exitCode, 0);
        camera.getGsk();
        QCOMPARE(simulator.tell("pull camera").exitCode, 0);
        QCOMPARE(stateTold(), QStringLiteral(", pulled out, hanging"));
        QCOMPARE(simulator.tell("lift").exitCode, 0);
        QCOMPARE(simulator.tell("plug camera").exitCode, 0);
        QCOMPARE(camera.setBaudRate(9600, true), ombrix_sdk::Flag{1});
        QCOMPARE(stateTold(), QString());
        QCOMPARE(simulator.tell("set camera baudRate=115200").exitCode, 0);
        QCOMPARE(camera.setBaudRate(9600, false), ombrix_sdk::Flag{1});
        QCOMPARE(stateTold(), QStringLiteral(", at 9600 baud until its power is off"));
        QCOMPARE(simulator.tell("power").exitCode, 0);
        QCOMPARE(stateTold(), QString());
    }

    void theClockIsSet()
    {
        Listening simulator("manualClock=true\n");
        QCOMPARE(simulator.tell("advance 1500").exitCode, 0);
        QCOMPARE(simulator.tell("fault getGsk value=1").exitCode, 0);
        QCOMPARE(simulator.tell("list").standardOutput,
                 QStringLiteral("[camera] serial number 20417 on port *\nfault [getGsk]\n"
                                "clock 1500 ms, speed 0\n"));
        QCOMPARE(simulator.tell("speed 2.5").exitCode, 0);
        QVERIFY(simulator.tell("list").standardOutput.endsWith(QStringLiteral(" ms, speed 2.5\n")));
    }

    void aCallThatWaitsIsEndedByTheClock_data()
    {
        QTest::addColumn<bool>("byAdvancing");
        QTest::newRow("that stands still") << false;
        QTest::newRow("that is moved") << true;
    }

    void aCallThatWaitsIsEndedByTheClock()
    {
        QFETCH(bool, byAdvancing);
        Listening simulator;
        ICamera& camera = simulator.scene.camera();
        QCOMPARE(simulator.tell("fault getGsk delay=86400000 value=77").exitCode, 0);
        std::atomic<std::uint32_t> answer = 0;
        std::thread program([&] { answer = camera.getGsk(); });
        // It is counted as soon as it has come in, and lets others in when it waits.
        QTRY_COMPARE_WITH_TIMEOUT(ombrix_simulator::calls("getGsk"), 1, longest);
        QCOMPARE(simulator.tell(byAdvancing ? "advance 86400000" : "speed 0").exitCode, 0);
        QTRY_COMPARE_WITH_TIMEOUT(answer.load(), 77U, longest);
        program.join();
    }

    void aFaultThatIsLiftedWhileACallWaitsHangsNoCamera()
    {
        Listening simulator;
        ICamera& camera = simulator.scene.camera();
        QCOMPARE(simulator.tell("fault getGsk delay=86400000 hangUp=true").exitCode, 0);
        std::thread program([&] { camera.getGsk(); });
        QTRY_COMPARE_WITH_TIMEOUT(ombrix_simulator::calls("getGsk"), 1, longest);
        QCOMPARE(simulator.tell("lift getGsk").exitCode, 0);
        QCOMPARE(simulator.tell("speed 0").exitCode, 0);
        program.join();
        QCOMPARE(camera.getGms(), 24U);
    }

    void aWrongCommandIsRefusedAndChangesNothing_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("told");
        const auto row = [](const char* command, int exitCode, const char* told) {
            QTest::newRow(command)
                << QString::fromLatin1(command) << exitCode << QString::fromLatin1(told);
        };
        row("set camera|gama=1", 1, "[camera] gama: unknown key; there are ");
        row("set camera|gsk=1|gsk=x", 1, "\"gsk\" is given twice; nothing is changed\n");
        row("set camera|gsk", 1, "\"gsk\" is not key=value; nothing is changed\n");
        row("set camera|gsk=1|; gms=3", 1, "\"; gms=3\" is not key=value; nothing is changed\n");
        row("set camera|gsk=1|[camera]", 1, "\"[camera]\" is not key=value; nothing is changed\n");
        row("set camera|gsk=1|frameRate=256", 1,
            "[camera] frameRate: \"256\" is not a whole number from 0 to 255; nothing is changed");
        row("set kamera|gsk=1", 1,
            "there is no camera \"kamera\"; there is \"camera\" with the serial number 20417\n");
        row("set camera", 2, "usage: set CAMERA KEY=VALUE...\n");
        row("get camera|gama", 1, "unknown key \"gama\"; there are ");
        row("get camera|gsk|gms", 2, "usage: get CAMERA [KEY]\n");
        row("fault setGama|value=1", 1,
            "[setGama]: no operation has this name, see simulator-reference.md; the section does "
            "nothing\n");
        row("fault closeCamera|value=0", 1,
            "[closeCamera]: there are no faults of this operation; the section does nothing\n");
        row("fault getGsk|calls=2|; value=0", 1,
            "\"; value=0\" is not key=value; nothing is changed\n");
        row("fault getGsk|calls=2|[getGms]|value=1", 1,
            "\"[getGms]\" is not key=value; nothing is changed\n");
        row("fault getGsk|value=2|value=3", 1, "\"value\" is given twice; nothing is changed\n");
        row("fault setGsk|value=256", 1,
            "[setGsk] value: \"256\" is not a whole number from 0 to 255; the section does "
            "nothing");
        row("lift setGsk", 1, "no fault \"setGsk\" was put; there are none\n");
        row("calls getGks", 1, "there is no operation \"getGks\", see simulator-reference.md\n");
        row("calls closeCamera", 1, "calls of closeCamera are not counted\n");
        row("calls initialize", 1, "calls of initialize are not counted\n");
        row("pull kamera", 1, "there is no camera \"kamera\"; there is ");
        row("plug camera", 1, "[camera] is plugged in already\n");
        row("advance -1", 1, "\"-1\" is not a whole number from 0 to 4294967295\n");
        row("speed fast", 1, "\"fast\" is not a number\n");
        row("speed 1001", 1, "1001 is no speed: 0, or 0.001 to 1000\n");
        row("list all", 2, "usage: list\n");
        row("warm", 2,
            "there is no command \"warm\"; there are list, get, set, fault, lift, calls, pull, "
            "plug, power, advance, speed\n");
        row("set camera|gsk=\x1b", 2, "a command has no control characters\n");
        row("set camera|gsk=1\t", 2, "a command has no control characters\n");
        row("set camera|gsk=1\r", 2, "a command has no control characters\n");
    }

    void aWrongCommandIsRefusedAndChangesNothing()
    {
        QFETCH(QString, command);
        QFETCH(int, exitCode);
        QFETCH(QString, told);
        Listening simulator;
        const QString socket = socketOf(simulator.scene);
        const QString before = tell(socket, "get camera").standardOutput;
        command.replace(command.indexOf(QLatin1Char(' ')), 1, QLatin1Char('|'));
        simulator.scene.newLog();
        const Output output = tell(socket, command.split(QLatin1Char('|')));
        QCOMPARE(output.exitCode, exitCode);
        QCOMPARE(output.standardOutput, QString());
        QVERIFY2(output.standardError.startsWith(told), qPrintable(output.standardError));
        QCOMPARE(tell(socket, "get camera").standardOutput, before);
        QCOMPARE(simulator.scene.newLog(), QStringList());
    }

    void wordsThatAreNoCommandAreNotSent()
    {
        Listening simulator;
        const QString socket = socketOf(simulator.scene);
        QCOMPARE(tell(socket, QStringList()).exitCode, 2);
        QCOMPARE(tell(socket, {QStringLiteral("lift"), QString()}).exitCode, 2);
        QCOMPARE(tell(socket, {QStringLiteral("set\ncamera\ngsk=1")}).exitCode, 2);
        QCOMPARE(tell(socket, {QString(70'000, QLatin1Char('x'))}).exitCode, 2);
        QCOMPARE(tell(QString(), "list").exitCode, 2);
        QCOMPARE(tell(QString(400, QLatin1Char('y')), "list").exitCode, 3);
    }

    void helpAndManualTellOfEveryCommand()
    {
        for (const char* const option : {"--help", "--manual"}) {
            const Output output = run({QLatin1String(option)});
            QCOMPARE(output.exitCode, 0);
#define COMMAND(name, words, least, most, changes, what)                                           \
    QVERIFY2(output.standardOutput.contains(QLatin1String(what)), #name);
#include "simulator/commands.def"
        }
    }

    void whoeverAsksForHelpOrVersionNeedsNoSimulator_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("told");
        const auto row = [](const char* words, const char* told) {
            QTest::newRow(words) << QString::fromLatin1(words) << QString::fromLatin1(told);
        };
        const char* const help = "usage: ombrix-simulator ";
        const char* const version = "Tavrel KV " TAVREL_BUILD_VERSION "\n";
        row("--help", help);
        row("-h", help);
        row("--at nowhere --help", help);
        row("--at=nowhere -h", help);
        row("--help --at nowhere", help);
        row("set --help", help);
        row("--at nowhere set camera -h", help);
        row("--version", version);
        row("--at nowhere -v", version);
    }

    void whoeverAsksForHelpOrVersionNeedsNoSimulator()
    {
        QFETCH(QString, words);
        QFETCH(QString, told);
        const Output output = run(words.split(QLatin1Char(' ')));
        QVERIFY2(output.standardOutput.startsWith(told), qPrintable(output.standardOutput));
        QCOMPARE(output.standardError, QString());
        QCOMPARE(output.exitCode, 0);
    }

    void theSocketIsNamedInEitherWay()
    {
        Listening simulator;
        const QString socket = socketOf(simulator.scene);
        QCOMPARE(run({QStringLiteral("--at=") + socket, QStringLiteral("calls"),
                      QStringLiteral("getGsk")})
                     .standardOutput,
                 QStringLiteral("0\n"));
        QCOMPARE(
            run({QStringLiteral("--at=") + socket, QStringLiteral("advance"), QStringLiteral("-1")})
                .exitCode,
            1);
    }

    void theTableOfAFaultIsFoundFromWhereItsCommandIsGiven()
    {
        Listening simulator;
        ICamera& camera = simulator.scene.camera();
        const QString elsewhere = simulator.scene.path(QStringLiteral("elsewhere"));
        QVERIFY(QDir().mkdir(elsewhere));
        simulator.scene.write(QStringLiteral("elsewhere/t.bin"),
                              QByteArray(scene::regionSize, '\x77'));
        QProcess process;
        process.setProcessEnvironment(ownEnvironment());
        process.setWorkingDirectory(elsewhere);
        process.start(QStringLiteral(TAVREL_COMMAND),
                      {QStringLiteral("--at"), socketOf(simulator.scene), QStringLiteral("fault"),
                       QStringLiteral("readTableData"), QStringLiteral("table=t.bin")});
        QVERIFY(process.waitForFinished(longest));
        QCOMPARE(process.readAllStandardError(), QByteArray());
        QCOMPARE(process.exitCode(), 0);
        QByteArray region(scene::regionSize, '\0');
        QCOMPARE(camera.readTableData(4096, scene::regionSize, 9, region.data()), 0);
        QCOMPARE(region, QByteArray(scene::regionSize, '\x77'));
    }

    void anOptionThatThereIsNotIsNoCommand()
    {
        for (const QStringList& words :
             {QStringList{QStringLiteral("--an"), QStringLiteral("x"), QStringLiteral("list")},
              QStringList{QStringLiteral("-xh")}, QStringList{QStringLiteral("--at")}}) {
            const Output output = run(words);
            QCOMPARE(output.exitCode, 2);
            QVERIFY2(output.standardError.startsWith(
                         QStringLiteral("ombrix-simulator: %1 ").arg(words.constFirst())),
                     qPrintable(output.standardError));
            QVERIFY2(output.standardError.contains(QStringLiteral("ombrix-simulator --help")),
                     qPrintable(output.standardError));
            QCOMPARE(output.standardOutput, QString());
        }
    }

    void bashCompletesAWord_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("completed");
        const auto row = [](const char* words, const char* completed) {
            QTest::newRow(words) << QString::fromLatin1(words) << QString::fromLatin1(completed);
        };
        row("pl", "plug");
        row("--at control p", "pull plug power");
        row("--at = control set ", "camera 20417");
        row("--at control get 204", "20417");
        row("--at control get camera gam", "gamma");
        row("--at control set camera gsk = 7 gm", "gms=");
        row("--at control set camera gsk = ", "");
        row("--at control lift ", "setGsk");
        row("--at ", "");
        row("--at nowhere get ", "");
    }

    void bashCompletesAWord()
    {
        QFETCH(QString, words);
        QFETCH(QString, completed);
        Listening simulator;
        QCOMPARE(simulator.tell("fault setGsk value=0").exitCode, 0);
        QProcess process;
        process.setProcessEnvironment(ownEnvironment());
        process.start(
            QStringLiteral("bash"),
            QStringList({QStringLiteral("-c"),
                         QStringLiteral(". \"$0\"; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); "
                                        "_ombrix_simulator \"$1\" \"${COMP_WORDS[-1]}\"; "
                                        "echo \"${COMPREPLY[@]}\""),
                         QStringLiteral(TAVREL_SOURCE_DIR "/packaging/linux/ombrix-simulator.bash"),
                         QStringLiteral(TAVREL_COMMAND)}) +
                words.split(QLatin1Char(' ')));
        QVERIFY(process.waitForFinished(longest));
        QCOMPARE(process.readAllStandardError(), QByteArray());
        QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()).simplified(), completed);
    }

    void aProgramThatEndsWithoutAnAnswerIsNoSimulator_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("another language") << QByteArray("HTTP/1.1 400 Bad Request\n");
        QTest::newRow("no such status") << QByteArray("3\n");
        QTest::newRow("no end of line") << QByteArray("0");
    }

    void aProgramThatEndsWithoutAnAnswerIsNoSimulator()
    {
        QFETCH(QByteArray, answer);
        const Scene scene;
        const QString path = scene.path(QStringLiteral("other"));
        const simulator::SocketAddress address(path.toStdString());
        const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
        QCOMPARE(bind(listener, address.get(), simulator::SocketAddress::size()), 0);
        QCOMPARE(listen(listener, 1), 0);
        std::thread other([listener, answer] {
            const int peer = accept(listener, nullptr, nullptr);
            std::array<char, 4096> command{};
            while (recv(peer, command.data(), command.size(), 0) > 0) {
            }
            ::send(peer, answer.constData(), static_cast<size_t>(answer.size()), MSG_NOSIGNAL);
            close(peer);
        });
        const Output output = tell(path, "list");
        other.join();
        close(listener);
        QCOMPARE(output.exitCode, 3);
        QVERIFY2(output.standardError.contains(QStringLiteral("ended without an answer")),
                 qPrintable(output.standardError));
        QCOMPARE(output.standardOutput, QString());
    }

    void randomBytesAreNoCommand()
    {
        Listening simulator;
        const QString socket = socketOf(simulator.scene);
        for (const QByteArray& bytes :
             {QByteArray("\0\0\0\0", 4), QByteArray("set\ncamera\n\xff\xfe"), QByteArray("\n\n\n"),
              QByteArray(), QByteArray("lift\n\n"), QByteArray("\x7f")}) {
            RawPeer peer(socket);
            QVERIFY(peer.send(bytes));
            QVERIFY2(peer.answer().startsWith("2\n"), bytes.left(20).toHex().constData());
        }
        RawPeer endless(socket);
        QVERIFY(endless.send(QByteArray(65'537, 'x')));
        QCOMPARE(endless.answer(), QByteArray("2\na command has at most 65536 bytes\n"));
        RawPeer other(socket);
        QVERIFY(other.send("set\ncamera\ngsk=\xff"));
        QCOMPARE(other.answer(), QByteArray("2\na command is text in UTF-8\n"));
        QCOMPARE(simulator.tell("get camera gsk").standardOutput, QStringLiteral("6\n"));
    }

    void whoeverDoesNotEndACommandKeepsNobodyWaiting()
    {
        Listening simulator;
        ICamera& camera = simulator.scene.camera();
        std::vector<std::unique_ptr<RawPeer>> peers;
        for (int peer = 0; peer < 40; ++peer) {
            peers.push_back(std::make_unique<RawPeer>(socketOf(simulator.scene)));
            QVERIFY(peers.back()->send("set\ncamera\ngsk=11"));
            QCOMPARE(camera.getGsk(), 6U);
        }
        QCOMPARE(simulator.tell("set camera gms=5").exitCode, 0);
        QCOMPARE(camera.getGms(), 5U);
        QCOMPARE(peers.back()->answer(), QByteArray("0\n"));
        QCOMPARE(camera.getGsk(), 11U);
    }

    void whatWasAskedByOneWhoHasGoneIsNotDone()
    {
        Listening simulator;
        {
            const RawPeer peer(socketOf(simulator.scene));
            QVERIFY(peer.send("set\ncamera\ngsk=9"));
        }
        // Whoever comes later is served later.
        QCOMPARE(simulator.tell("get camera gsk").standardOutput, QStringLiteral("6\n"));
        QCOMPARE(simulator.scene.newLog().filter(QStringLiteral("from outside")), QStringList());
    }

    void whoeverFindsNoDescriptorLeftIsAnsweredLater()
    {
        Listening simulator;
        const RawPeer peer(socketOf(simulator.scene));
        {
            const NoMoreDescriptors none;
            QVERIFY(peer.send("get\ncamera\ngsk"));
            // The time that this program works: a listener that tries again and again takes all.
            const std::clock_t before = std::clock();
            QTest::qSleep(500);
            QVERIFY(std::clock() - before < CLOCKS_PER_SEC / 10);
        }
        QCOMPARE(peer.answer(), QByteArray("0\n6\n"));
    }

    void onlyTheSameUserMaySendCommands()
    {
        Listening simulator;
        struct stat facts {};
        QCOMPARE(lstat(qPrintable(socketOf(simulator.scene)), &facts), 0);
        QVERIFY(S_ISSOCK(facts.st_mode));
        QCOMPARE(facts.st_mode & 0777U, 0600U);
    }

    void aSimulatorThatIsAskedNoMoreTakesItsSocketAway()
    {
        Listening simulator;
        QVERIFY(QFileInfo::exists(socketOf(simulator.scene)));
        simulator.scene.restart("[camera]\n");
        QVERIFY(!QFileInfo::exists(socketOf(simulator.scene)));
        QCOMPARE(simulator.tell("list").exitCode, 3);
    }

    void aLongPathIsReached()
    {
        Scene scene;
        const QString folder = scene.path(QString(120, QLatin1Char('d')));
        QVERIFY(QDir().mkdir(folder));
        const QString socket = folder + QStringLiteral("/control");
        Scene::setVariable("TAVREL_SIMULATOR_CONTROL", socket);
        scene.restart();
        QCOMPARE(scene.newProblems(), QStringList());
        QCOMPARE(tell(socket, "get camera gsk").standardOutput, QStringLiteral("6\n"));
        Scene::setVariable("TAVREL_SIMULATOR_CONTROL", QString());
        scene.restart();
        QVERIFY(!QFileInfo::exists(socket));
    }

    void whereItCannotListenItSaysSoAndGoesOn()
    {
        Scene scene;
        const auto problemAt = [&scene](const QString& socket) {
            Scene::setVariable("TAVREL_SIMULATOR_CONTROL", socket);
            scene.restart();
            return scene.newProblems();
        };
        const QString message = QStringLiteral("problem  control %1: %2; no commands are taken");
        const QString nowhere = scene.path(QStringLiteral("nowhere/control"));
        QCOMPARE(problemAt(nowhere),
                 QStringList(message.arg(nowhere, QStringLiteral("No such file or directory"))));
        // What is no socket stays as it is.
        const QString file = scene.path(QStringLiteral("file"));
        scene.write(QStringLiteral("file"), "mine");
        QCOMPARE(problemAt(file),
                 QStringList(message.arg(file, QStringLiteral("something is there already"))));
        QCOMPARE(scene.read(QStringLiteral("file")), QByteArray("mine"));
        const QString longName = scene.path(QString(200, QLatin1Char('n')));
        QCOMPARE(problemAt(longName),
                 QStringList(message.arg(longName, QStringLiteral("the name is too long"))));
        QCOMPARE(scene.camera().getGsk(), 6U);
    }

    void aProgramOfItsOwnIsChangedWhileItWaits()
    {
        Scene scene;
        const auto program = waitingProgram(socketOf(scene));
        QVERIFY(program);
        QCOMPARE(valueTold(*program), QByteArray("6\n"));
        QCOMPARE(tell(socketOf(scene), "set camera gsk=42").exitCode, 0);
        QCOMPARE(valueTold(*program), QByteArray("42\n"));
        // A second one must not take its socket.
        const auto second = waitingProgram(socketOf(scene));
        QVERIFY(second);
        QVERIFY(second->readAllStandardError().contains(
            "control " + socketOf(scene).toUtf8() +
            ": something is there already; no commands are taken"));
        QCOMPARE(tell(socketOf(scene), "get camera gsk").standardOutput, QStringLiteral("42\n"));
        program->closeWriteChannel();
        QVERIFY(program->waitForFinished(longest));
        QCOMPARE(program->exitCode(), 0);
        QVERIFY(!QFileInfo::exists(socketOf(scene)));
        second->closeWriteChannel();
        QVERIFY(second->waitForFinished(longest));
    }

    void aChildOfTheProgramThatEndsLeavesItsSocketAlone()
    {
        Listening simulator;
        const pid_t child = fork();
        if (child == 0) {
            std::exit(0);
        }
        int status = -1;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFEXITED(status));
        QCOMPARE(simulator.tell("get camera gsk").standardOutput, QStringLiteral("6\n"));
    }

    void aChildOfTheProgramThatLivesOnDoesNotHoldItsEndUp()
    {
        Listening simulator;
        std::array<int, 2> ends{};
        QCOMPARE(pipe(ends.data()), 0);
        const pid_t child = fork();
        if (child == 0) {
            close(ends[1]);
            char byte = 0;
            _exit(read(ends[0], &byte, 1) == 0 ? 0 : 1);
        }
        simulator.scene.restart("[camera]\n");
        QVERIFY(!QFileInfo::exists(socketOf(simulator.scene)));
        close(ends[0]);
        close(ends[1]);
        int status = -1;
        QCOMPARE(waitpid(child, &status, 0), child);
        QCOMPARE(status, 0);
    }

    void aProgramThatEndsTakesNoSocketOfAnotherAway()
    {
        Listening simulator;
        const QString socket = socketOf(simulator.scene);
        QVERIFY(QFile::remove(socket));
        const auto next = waitingProgram(socket);
        QVERIFY(next);
        QCOMPARE(tell(socket, "set camera gsk=42").exitCode, 0);
        simulator.scene.restart("[camera]\n");
        QCOMPARE(tell(socket, "get camera gsk").standardOutput, QStringLiteral("42\n"));
        next->closeWriteChannel();
        QVERIFY(next->waitForFinished(longest));
    }

    void aSocketThatSomebodyIsMakingIsLeftToHim()
    {
        Scene scene;
        const QString socket = socketOf(scene);
        SocketLock lock(socket);
        const simulator::SocketAddress address(socket.toStdString());
        const int slow = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        QCOMPARE(bind(slow, address.get(), simulator::SocketAddress::size()), 0);
        const auto program = startedProgram(socket);
        QVERIFY(lock.isWaitedForBy({program.get()}));
        QCOMPARE(listen(slow, 1), 0);
        lock.giveBack();
        QVERIFY(isConnected(*program));
        QVERIFY(program->readAllStandardError().contains(": something is there already; "));
        RawPeer peer(socket);
        QVERIFY(peer.send("list"));
        close(slow);
        program->closeWriteChannel();
        QVERIFY(program->waitForFinished(longest));
    }

    void ofSeveralProgramsAtOnceOneTakesOverTheSocketThatWasLeft()
    {
        Scene scene;
        const QString socket = socketOf(scene);
        const simulator::SocketAddress address(socket.toStdString());
        const int left = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        QCOMPARE(bind(left, address.get(), simulator::SocketAddress::size()), 0);
        close(left);
        SocketLock lock(socket);
        const std::array programs = {startedProgram(socket), startedProgram(socket),
                                     startedProgram(socket)};
        QVERIFY(lock.isWaitedForBy({programs[0].get(), programs[1].get(), programs[2].get()}));
        lock.giveBack();
        int without = 0;
        for (const auto& program : programs) {
            QVERIFY(isConnected(*program));
            without += program->readAllStandardError().contains("no commands are taken") ? 1 : 0;
        }
        QCOMPARE(without, 2);
        QCOMPARE(tell(socket, "get camera gsk").standardOutput, QStringLiteral("6\n"));
        for (const auto& program : programs) {
            program->closeWriteChannel();
            QVERIFY(program->waitForFinished(longest));
        }
        // Nothing is left, not even of the lock.
        QCOMPARE(QDir().entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot),
                 QStringList(QStringLiteral("sdk.log")));
    }

    void aFileThatHasTheNameOfTheLockIsKept()
    {
        Scene scene;
        scene.write(QStringLiteral("control.lock"), "mine");
        Scene::setVariable("TAVREL_SIMULATOR_CONTROL", socketOf(scene));
        scene.restart();
        Scene::setVariable("TAVREL_SIMULATOR_CONTROL", QString());
        scene.restart();
        QCOMPARE(scene.read(QStringLiteral("control.lock")), QByteArray("mine"));
    }

    void aProgramThatWasKilledLeavesNothingInTheWay()
    {
        Scene scene;
        const auto program = waitingProgram(socketOf(scene));
        QVERIFY(program);
        program->kill();
        QVERIFY(program->waitForFinished(longest));
        const Output output = tell(socketOf(scene), "list");
        QCOMPARE(output.exitCode, 3);
        QVERIFY2(output.standardError.contains(QStringLiteral("Connection refused")),
                 qPrintable(output.standardError));
        const auto next = waitingProgram(socketOf(scene));
        QVERIFY(next);
        QCOMPARE(tell(socketOf(scene), "get camera gsk").standardOutput, QStringLiteral("6\n"));
        next->closeWriteChannel();
        QVERIFY(next->waitForFinished(longest));
    }
};

QTEST_GUILESS_MAIN(TestCommands)
#include "tst_commands.moc"
