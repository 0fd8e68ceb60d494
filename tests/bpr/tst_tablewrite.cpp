// SPDX-License-Identifier: MIT
// Treating the working copy and writing the table to the camera.
#include "tests/bpr/failingread.h"
#include "tests/bpr/monitoringpace.h"
#include "tests/bpr/tablefiles.h"

#include <QtCore/QTranslator>

#include <functional>

using tablefiles::mapOf;

namespace {

constexpr char writeButton[] = "writeBPRTableButton";
constexpr char transfer[] = "camera.writeTableData(4096, 8192, 8)";
constexpr std::size_t regionLength = 8192;

using Bytes = std::vector<std::uint8_t>;

/// Bytes that are neither 0x00 nor 0xFF and differ from their neighbours.
Bytes bytes(std::size_t count)
{
    Bytes content;
    for (std::size_t index = 0; index < count; ++index) {
        content.push_back(static_cast<std::uint8_t>(1 + index % 253));
    }
    return content;
}

/// What the camera must get for a file: its bytes, one 0x00, and 0xFF to the end.
Bytes regionFor(const Bytes& file)
{
    Bytes region = file;
    if (region.size() < regionLength) {
        region.push_back(0x00);
    }
    region.resize(regionLength, 0xFF);
    return region;
}

QByteArray array(const Bytes& content)
{
    return {reinterpret_cast<const char*>(content.data()), static_cast<int>(content.size())};
}

QString replacementFile()
{
    return QStringLiteral("replbp.bin");
}

QString treatment()
{
    return QStringLiteral("camera.loadBadPixelList(\"%1\", 480, 640)")
        .arg(tablefiles::full(tablefiles::working()));
}

QString foundLine(std::size_t entries)
{
    return QStringLiteral("Bad pixels found %1 < 1024").arg(entries);
}

QString writtenLine()
{
    return QStringLiteral("BPR table %1 correctly written.")
        .arg(tablefiles::full(tablefiles::working()));
}

kit::Box tableBox(const char* text)
{
    return {.title = "BP table", .text = text};
}

/// One way in which a write ends with a box.
struct Refusal {
    const char* name;
    std::function<void(kit::Operator&)> arrange;
    std::function<kit::Box()> box;
    bool treated; ///< the treatment was reached
};

void nothing(kit::Operator& user)
{
    Q_UNUSED(user)
}

const std::vector<Refusal>& refusals()
{
    static const std::vector<Refusal> all = {
        {"backup copy fails",
         [](kit::Operator&) {
             tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
             QVERIFY(QFile::remove(tablefiles::working()));
             QVERIFY(QDir().rmdir(QStringLiteral("bpr")));
         },
         [] {
             return kit::Box{.title = "BP table",
                             .text = "Unable to use the backup BP table (" +
                                     tablefiles::full(tablefiles::backup()).toStdString() +
                                     "). No BP table file found."};
         },
         false},
        {"no table at all", [](kit::Operator&) { QVERIFY(QFile::remove(tablefiles::working())); },
         [] { return tableBox("No BP table file found."); }, false},
        {"too many bad pixels",
         [](kit::Operator& user) { user.sdk.camera.replacements.resize(1025); },
         [] {
             return kit::Box{.title = "Treatment issue",
                             .text =
                                 "Can't write this BPR table into camera, too many bad pixels."};
         },
         true},
        {"no replbp.bin", [](kit::Operator& user) { user.sdk.camera.replacementTable.reset(); },
         [] { return tableBox("Unable to open replbp.bin"); }, true},
        {"replbp.bin is a folder",
         [](kit::Operator& user) {
             user.sdk.camera.replacementTable.reset();
             QVERIFY(QDir().mkdir(replacementFile()));
         },
         [] { return tableBox("Unable to open replbp.bin"); }, true},
        {"replbp.bin is empty",
         [](kit::Operator& user) { user.sdk.camera.replacementTable = Bytes(); },
         [] { return tableBox("replbp.bin file size is NULL"); }, true},
        {"replbp.bin is one byte too long",
         [](kit::Operator& user) { user.sdk.camera.replacementTable = bytes(8193); },
         [] { return tableBox("Unable to read replbp.bin"); }, true},
        {"replbp.bin is a record too long",
         [](kit::Operator& user) { user.sdk.camera.replacementTable = bytes(8200); },
         [] { return tableBox("Unable to read replbp.bin"); }, true},
        {"replbp.bin is far too long",
         [](kit::Operator& user) { user.sdk.camera.replacementTable = bytes(1000000); },
         [] { return tableBox("Unable to read replbp.bin"); }, true},
    };
    return all;
}

void connectWithTable(kit::Operator& user)
{
    user.connectCamera();
    tablefiles::put(tablefiles::working(), mapOf({5, 7}));
    user.sdk.camera.replacements.resize(2);
    user.sdk.camera.replacementTable = bytes(16);
}

} // namespace

Q_DECLARE_METATYPE(const Refusal*)
Q_DECLARE_METATYPE(tablefiles::FailingRead::Failure)

class TestTableWrite : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theTreatedTableIsSentAndLogged()
    {
        kit::Operator user;
        connectWithTable(user);
        user.click(writeButton);
        QCOMPARE(user.journal(),
                 (QStringList{QStringLiteral("camera.getSerialNumber()"), treatment(),
                              QStringLiteral("log 2: ") + foundLine(2), QLatin1String(transfer),
                              QStringLiteral("log 2: ") + writtenLine()}));
        QCOMPARE(user.newLog(), (QStringList{foundLine(2), writtenLine()}));
    }

    void theFileIsFollowedByOneZeroAndTheFill_data()
    {
        QTest::addColumn<int>("size");
        for (const int size : {1, 2, 8, 16, 24, 8183, 8184, 8189, 8190, 8191, 8192}) {
            QTest::addRow("%d bytes", size) << size;
        }
    }

    void theFileIsFollowedByOneZeroAndTheFill()
    {
        QFETCH(int, size);
        kit::Operator user;
        connectWithTable(user);
        const Bytes file = bytes(static_cast<std::size_t>(size));
        user.sdk.camera.replacementTable = file;
        user.click(writeButton);
        QCOMPARE(user.sdk.camera.table.size(), regionLength);
        QVERIFY(user.sdk.camera.table == regionFor(file));
    }

    void theFileMayHoldAnyByte()
    {
        kit::Operator user;
        connectWithTable(user);
        const Bytes file = {0x00, 0xFF, '\r', '\n', 0x1A, '\n', 0x00, 0x00, 0xFF};
        user.sdk.camera.replacementTable = file;
        user.click(writeButton);
        QVERIFY(user.sdk.camera.table == regionFor(file));
    }

    void aWrittenTableReadsBackAsItsRecords()
    {
        kit::Operator user;
        connectWithTable(user);
        Bytes records = recording::tableOf({5, 7});
        records.resize(16);
        user.sdk.camera.replacementTable = records;
        user.click(writeButton);
        QVERIFY(user.sdk.camera.table == regionFor(records));
        user.click("readBPRTableButton");
        QCOMPARE(user.newLog().last(), QStringLiteral("Table containing : 2 Bad Pixels"));
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({5, 7}));
    }

    void upTo1024EntriesAreWritten_data()
    {
        QTest::addColumn<int>("entries");
        for (const int entries : {0, 1, 37, 1023, 1024}) {
            QTest::addRow("%d", entries) << entries;
        }
    }

    void upTo1024EntriesAreWritten()
    {
        QFETCH(int, entries);
        kit::Operator user;
        connectWithTable(user);
        const auto count = static_cast<std::size_t>(entries);
        user.sdk.camera.replacements.assign(count, 1);
        user.click(writeButton);
        QCOMPARE(user.newLog(), (QStringList{foundLine(count), writtenLine()}));
        QCOMPARE(user.calls(), (QStringList{treatment(), QLatin1String(transfer)}));
    }

    void moreEntriesAreLoggedAndRefused_data()
    {
        QTest::addColumn<int>("entries");
        for (const int entries : {1025, 2048, 307200}) {
            QTest::addRow("%d", entries) << entries;
        }
    }

    void moreEntriesAreLoggedAndRefused()
    {
        QFETCH(int, entries);
        kit::Operator user;
        connectWithTable(user);
        const auto count = static_cast<std::size_t>(entries);
        user.sdk.camera.replacements.assign(count, 1);
        user.expectBox({.title = "Treatment issue",
                        .text = "Can't write this BPR table into camera, too many bad pixels."});
        user.click(writeButton);
        QCOMPARE(user.newLog(), QStringList(foundLine(count)));
        QCOMPARE(user.calls(), QStringList(treatment()));
    }

    void aTranslationMayShowHowManyEntriesThereAre()
    {
        class Counting : public QTranslator {
        public:
            [[nodiscard]] bool isEmpty() const override { return false; }
            [[nodiscard]] QString translate(const char* /*context*/, const char* text,
                                            const char* /*disambiguation*/,
                                            int /*n*/) const override
            {
                return QByteArray(text).startsWith("Can't write this BPR table")
                           ? QStringLiteral("%1 are too many.")
                           : QString();
            }
        };
        kit::Operator user;
        connectWithTable(user);
        user.sdk.camera.replacements.assign(1025, 1);
        Counting translator;
        QVERIFY(QCoreApplication::installTranslator(&translator));
        user.expectBox({.title = "Treatment issue", .text = "1025 are too many."});
        user.click(writeButton);
        QCOMPARE(user.newLog(), QStringList(foundLine(1025)));
    }

    void eachWriteStartsWithAnEmptyList()
    {
        kit::Operator user;
        connectWithTable(user);
        user.sdk.camera.replacements.assign(600, 1);
        user.click(writeButton);
        user.click(writeButton);
        QCOMPARE(user.newLog(),
                 (QStringList{foundLine(600), writtenLine(), foundLine(600), writtenLine()}));
    }

    void anyNonzeroAnswerOfTheTransferIsASuccess_data()
    {
        QTest::addColumn<int>("answer");
        for (const int answer : {1, 2, 128, 255}) {
            QTest::addRow("%d", answer) << answer;
        }
    }

    void anyNonzeroAnswerOfTheTransferIsASuccess()
    {
        QFETCH(int, answer);
        kit::Operator user;
        connectWithTable(user);
        user.sdk.answer("camera.writeTableData", answer);
        user.click(writeButton);
        QCOMPARE(user.newLog(), (QStringList{foundLine(2), writtenLine()}));
    }

    void aRefusedTransferIsToldByABox()
    {
        kit::Operator user;
        connectWithTable(user);
        user.sdk.answer("camera.writeTableData", 0);
        user.expectBox(tableBox("BP table not written correctly"));
        user.click(writeButton);
        QCOMPARE(user.newLog(), QStringList(foundLine(2)));
        QCOMPARE(user.calls(), (QStringList{treatment(), QLatin1String(transfer)}));
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({5, 7}));
        QCOMPARE(tablefiles::content(replacementFile()), array(bytes(16)));
    }

    void whatCannotBeSentIsToldByABoxAndNothingIsSent_data()
    {
        QTest::addColumn<const Refusal*>("refusal");
        for (const Refusal& refusal : refusals()) {
            QTest::addRow("%s", refusal.name) << &refusal;
        }
    }

    void whatCannotBeSentIsToldByABoxAndNothingIsSent()
    {
        QFETCH(const Refusal*, refusal);
        kit::Operator user;
        connectWithTable(user);
        refusal->arrange(user);
        const QByteArray working = tablefiles::content(tablefiles::working());
        const QByteArray backup = tablefiles::content(tablefiles::backup());
        user.expectBox(refusal->box());
        user.click(writeButton);
        QCOMPARE(user.boxesAwaited(), 0);
        QCOMPARE(user.calls(), refusal->treated ? QStringList(treatment()) : QStringList());
        QCOMPARE(user.newLog(), refusal->treated
                                    ? QStringList(foundLine(user.sdk.camera.replacements.size()))
                                    : QStringList());
        QVERIFY(tablefiles::content(tablefiles::working()) == working);
        QVERIFY(tablefiles::content(tablefiles::backup()) == backup);
        if (refusal->treated && user.sdk.camera.replacementTable) {
            QVERIFY(tablefiles::content(replacementFile()) ==
                    array(*user.sdk.camera.replacementTable));
        }
    }

    void aFileThatCannotBeReadToItsEndIsNotSent_data()
    {
        using tablefiles::FailingRead;
        QTest::addColumn<FailingRead::Failure>("failure");
        QTest::addRow("a broken disk") << FailingRead::Error;
        QTest::addRow("it became shorter") << FailingRead::Short;
    }

    void aFileThatCannotBeReadToItsEndIsNotSent()
    {
        QFETCH(tablefiles::FailingRead::Failure, failure);
        kit::Operator user;
        connectWithTable(user);
        const kit::MonitoringPace monitoring(user);
        user.expectBox(tableBox("Unable to read replbp.bin"));
        {
            const tablefiles::FailingRead failing("replbp.bin", failure);
            user.click(writeButton);
            QVERIFY(failing.count() > 0);
        }
        QCOMPARE(user.calls(), QStringList(treatment()));
        QCOMPARE(user.newLog(), QStringList(foundLine(2)));
        QVERIFY(monitoring.startedAgain());
    }

    void aMissingWorkingCopyIsRestoredTreatedAndSent()
    {
        kit::Operator user;
        connectWithTable(user);
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        QVERIFY(QFile::remove(tablefiles::working()));
        bool restored = false;
        user.sdk.whenCalled("camera.loadBadPixelList", [&] {
            restored = tablefiles::content(tablefiles::working()) == mapOf({9, 11});
        });
        user.click(writeButton);
        QVERIFY(restored);
        QCOMPARE(user.newLog(), (QStringList{foundLine(2), writtenLine()}));
    }

    void aRestoredWorkingCopyStaysAfterARefusal()
    {
        kit::Operator user;
        connectWithTable(user);
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        QVERIFY(QFile::remove(tablefiles::working()));
        user.sdk.answer("camera.writeTableData", 0);
        user.expectBox(tableBox("BP table not written correctly"));
        user.click(writeButton);
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({9, 11}));
    }

    void theReplacementFileIsTakenFromTheCurrentDirectory()
    {
        kit::Operator user;
        connectWithTable(user);
        user.sdk.camera.replacementTable.reset();
        tablefiles::put(QStringLiteral("bpr/replbp.bin"), array(bytes(24)));
        tablefiles::put(replacementFile(), array(bytes(8)));
        user.click(writeButton);
        QVERIFY(user.sdk.camera.table == regionFor(bytes(8)));
        QCOMPARE(tablefiles::content(replacementFile()), array(bytes(8)));
    }

    void withoutACameraABoxSaysSo()
    {
        kit::Operator user;
        user.start();
        kit::unlockTabs(user);
        user.forget();
        user.expectBox(kit::notConnected());
        user.click(writeButton);
        QCOMPARE(user.calls(recording::Show::Everything), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    void theMonitoringRestsForTheWholeWriteAndThenGoesOn()
    {
        kit::Operator user;
        connectWithTable(user);
        const kit::MonitoringPace monitoring(user);
        int rested = 0;
        const auto look = [&] {
            rested += monitoring.stopped() ? 1 : 0;
        };
        user.sdk.whenCalled("camera.getSerialNumber", look);
        user.sdk.whenCalled("camera.loadBadPixelList", look);
        user.sdk.whenCalled("camera.writeTableData", look);
        user.sdk.whenLogged(look);
        user.click(writeButton);
        QCOMPARE(rested, 5);
        QVERIFY(monitoring.startedAgain());
    }

    void theMonitoringRestsBehindEveryBoxAndThenGoesOn_data()
    {
        QTest::addColumn<const Refusal*>("refusal");
        for (const Refusal& refusal : refusals()) {
            QTest::addRow("%s", refusal.name) << &refusal;
        }
        static const Refusal transferRefused = {
            "transfer refused",
            [](kit::Operator& user) { user.sdk.answer("camera.writeTableData", 0); },
            [] { return tableBox("BP table not written correctly"); }, true};
        QTest::addRow("%s", transferRefused.name) << &transferRefused;
        static const Refusal unconnected = {"not connected", nothing,
                                            [] { return kit::notConnected(); }, false};
        QTest::addRow("%s", unconnected.name) << &unconnected;
    }

    void theMonitoringRestsBehindEveryBoxAndThenGoesOn()
    {
        QFETCH(const Refusal*, refusal);
        kit::Operator user;
        if (refusal->name == QByteArray("not connected")) {
            user.start();
            kit::unlockTabs(user);
        } else {
            connectWithTable(user);
        }
        refusal->arrange(user);
        const kit::MonitoringPace monitoring(user);
        bool rested = false;
        kit::Box box = refusal->box();
        box.whileOpen = [&](QDialog&) {
            rested = monitoring.stopped();
        };
        user.expectBox(box);
        user.click(writeButton);
        QVERIFY(rested);
        QVERIFY(monitoring.startedAgain());
    }
};

TAVREL_TEST_MAIN(TestTableWrite)
#include "tst_tablewrite.moc"
