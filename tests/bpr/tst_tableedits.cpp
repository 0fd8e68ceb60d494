// SPDX-License-Identifier: MIT
// Declaring and undeclaring bad pixels in the working copy.
#include "tests/bpr/monitoringpace.h"
#include "tests/bpr/tablefiles.h"

using tablefiles::mapOf;

namespace {

constexpr char everyPixel[] = "4294967295";

/// One of the six buttons and what it does; {x} and {y} stand for the coordinates.
struct Edit {
    const char* button;
    const char* operation;
    const char* x;
    const char* y;
    const char* done;
    const char* refusedLog; ///< null: a box
    const char* refusedBox; ///< null: a log line
};

// clang-format off
constexpr Edit edits[] = {
    {"addBadPixelButton", "camera.addBadPixels", "{x}", "{y}",
     "Pixel X:{x} Y: {y} correctly added.", nullptr,
     "Unable to add line of bad pixels to table. Either bad pixel table doesn't exist or too much bad pixels in table to add a pixel."},
    {"addBadPixelLineButton", "camera.addBadPixels", everyPixel, "{y}",
     "Pixel line Y: {y} correctly added.", nullptr,
     "Unable to add line of bad pixels to table. Either bad pixel table doesn't exist or too much bad pixels in table to add a line."},
    {"addBadPixelColumnButton", "camera.addBadPixels", "{x}", everyPixel,
     "Pixel Column X: {x} correctly added.", nullptr,
     "Unable to add line of bad pixels to table. Either bad pixel table doesn't exist or too much bad pixels in table to add a column."},
    {"removeBadPixelButton", "camera.removeBadPixels", "{x}", "{y}",
     "Pixel X:{x} Y: {y} correctly removed.",
     "Unable to remove pixel X:{x} Y: {y}.", nullptr},
    {"removeBadPixelLineButton", "camera.removeBadPixels", everyPixel, "{y}",
     "Pixel line Y: {y} correctly removed.",
     "Unable to remove pixel line Y:{y}.", nullptr},
    {"removeBadPixelColumnButton", "camera.removeBadPixels", "{x}", everyPixel,
     "Pixel column X: {x} correctly removed.",
     "Unable to remove pixel column X: {x}.", nullptr},
};
// clang-format on

QString filled(const char* text, int x, int y)
{
    return QString::fromUtf8(text)
        .replace(QLatin1String("{x}"), QString::number(x))
        .replace(QLatin1String("{y}"), QString::number(y));
}

QString call(const Edit& edit, int x, int y)
{
    return QStringLiteral("%1(\"%2\", %3, %4)")
        .arg(QLatin1String(edit.operation), tablefiles::full(tablefiles::working()),
             filled(edit.x, x, y), filled(edit.y, x, y));
}

void typeCoordinates(kit::Operator& user, int x, int y)
{
    user.type("xBadPixelCoordinate", qPrintable(QString::number(x)));
    user.type("yBadPixelCoordinate", qPrintable(QString::number(y)));
}

/// The box of an operation that finds no table at all.
kit::Box noTable()
{
    return {.title = "BP table", .text = "No BP table file found."};
}

/// The box of an operation that could not restore the working copy.
kit::Box backupUnusable()
{
    return {.title = "BP table",
            .text = "Unable to use the backup BP table (" +
                    tablefiles::full(tablefiles::backup()).toStdString() +
                    "). No BP table file found."};
}

void addEdits()
{
    QTest::addColumn<const Edit*>("edit");
    for (const Edit& edit : edits) {
        QTest::addRow("%s", edit.button) << &edit;
    }
}

} // namespace

Q_DECLARE_METATYPE(const Edit*)

class TestTableEdits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anEditIsAskedOfTheCameraAndLogged_data()
    {
        QTest::addColumn<const Edit*>("edit");
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        QTest::addColumn<int>("answer");
        for (const Edit& edit : edits) {
            QTest::addRow("%s, middle", edit.button) << &edit << 12 << 34 << 1;
            QTest::addRow("%s, first", edit.button) << &edit << 0 << 0 << 1;
            QTest::addRow("%s, last", edit.button) << &edit << 639 << 479 << 1;
            QTest::addRow("%s, answered 2", edit.button) << &edit << 3 << 4 << 2;
            QTest::addRow("%s, answered 255", edit.button) << &edit << 3 << 4 << 255;
        }
    }

    void anEditIsAskedOfTheCameraAndLogged()
    {
        QFETCH(const Edit*, edit);
        QFETCH(int, x);
        QFETCH(int, y);
        QFETCH(int, answer);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({5, 7}));
        user.sdk.answer(edit->operation, answer);
        typeCoordinates(user, x, y);
        user.forget();
        user.click(edit->button);
        QCOMPARE(user.calls(recording::Show::Everything),
                 kit::lines({"camera.getSerialNumber()"}) + QStringList(call(*edit, x, y)));
        QCOMPARE(user.newLog(), QStringList(filled(edit->done, x, y)));
    }

    void aRefusedAddIsToldByABoxAndARefusedRemovalByALine_data() { addEdits(); }

    void aRefusedAddIsToldByABoxAndARefusedRemovalByALine()
    {
        QFETCH(const Edit*, edit);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({5, 7}));
        user.sdk.answer(edit->operation, 0);
        typeCoordinates(user, 3, 4);
        user.forget();
        QStringList lines;
        if (edit->refusedBox != nullptr) {
            user.expectBox({.title = "Bad pixel failure", .text = edit->refusedBox});
        } else {
            lines.append(filled(edit->refusedLog, 3, 4));
        }
        user.click(edit->button);
        QCOMPARE(user.boxesAwaited(), 0);
        QCOMPARE(user.calls(), QStringList(call(*edit, 3, 4)));
        QCOMPARE(user.newLog(), lines);
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({5, 7}));
    }

    void aMissingWorkingCopyIsFirstRestoredWithoutAWord_data() { addEdits(); }

    void aMissingWorkingCopyIsFirstRestoredWithoutAWord()
    {
        QFETCH(const Edit*, edit);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        typeCoordinates(user, 3, 4);
        user.forget();
        bool restored = false;
        user.sdk.whenCalled(edit->operation, [&] {
            restored = tablefiles::content(tablefiles::working()) == mapOf({9, 11});
        });
        user.click(edit->button);
        QVERIFY(restored);
        QCOMPARE(user.calls(), QStringList(call(*edit, 3, 4)));
        QCOMPARE(user.newLog(), QStringList(filled(edit->done, 3, 4)));
        QVERIFY(tablefiles::content(tablefiles::backup()) == mapOf({9, 11}));
    }

    void withoutAnyTableABoxSaysSoAndNothingChanges_data() { addEdits(); }

    void withoutAnyTableABoxSaysSoAndNothingChanges()
    {
        QFETCH(const Edit*, edit);
        kit::Operator user;
        user.connectCamera();
        user.expectBox(noTable());
        user.click(edit->button);
        QCOMPARE(user.boxesAwaited(), 0);
        QCOMPARE(user.calls(recording::Show::Everything), kit::lines({"camera.getSerialNumber()"}));
        QCOMPARE(user.newLog(), QStringList());
        QCOMPARE(tablefiles::entries(QStringLiteral("bpr")), QStringList());
        QCOMPARE(tablefiles::entries(QStringLiteral("bprBackup")), QStringList());
    }

    void aBackupThatCannotBeCopiedEndsTheEditWithABox_data() { addEdits(); }

    void aBackupThatCannotBeCopiedEndsTheEditWithABox()
    {
        QFETCH(const Edit*, edit);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        QVERIFY(QDir().rmdir(QStringLiteral("bpr")));
        user.expectBox(backupUnusable());
        user.click(edit->button);
        QCOMPARE(user.boxesAwaited(), 0);
        QCOMPARE(user.calls(recording::Show::Everything), kit::lines({"camera.getSerialNumber()"}));
        QCOMPARE(user.newLog(), QStringList());
        QVERIFY(!QFileInfo::exists(QStringLiteral("bpr")));
        QVERIFY(tablefiles::content(tablefiles::backup()) == mapOf({9, 11}));
    }

    void aFolderIsNoTable()
    {
        kit::Operator user;
        user.connectCamera();
        QVERIFY(QDir().mkdir(tablefiles::working()));
        QVERIFY(QDir().mkdir(tablefiles::backup()));
        user.expectBox(noTable());
        user.click("addBadPixelButton");
        QVERIFY(QDir().rmdir(tablefiles::backup()));
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        user.expectBox(backupUnusable());
        user.click("addBadPixelButton");
        QCOMPARE(user.calls(), QStringList());
        QVERIFY(QFileInfo(tablefiles::working()).isDir());
    }

    void theBackupOfAnotherCameraIsNotUsed()
    {
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(QStringLiteral("4712")), mapOf({5, 7}));
        tablefiles::put(tablefiles::backup(QStringLiteral("4712")), mapOf({5, 7}));
        user.expectBox(noTable());
        user.click("removeBadPixelButton");
        QCOMPARE(user.calls(), QStringList());
    }

    void aWorkingCopyOfAnySizeIsLeftToTheCamera_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addRow("empty") << QByteArray("");
        QTest::addRow("short") << QByteArray("short");
        QTest::addRow("long") << QByteArray(tablefiles::mapSize + 1, '\0');
    }

    void aWorkingCopyOfAnySizeIsLeftToTheCamera()
    {
        QFETCH(QByteArray, content);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), content);
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        user.click("addBadPixelButton");
        QCOMPARE(user.sdk.count("camera.addBadPixels"), 1);
        QVERIFY(tablefiles::content(tablefiles::working()) == content);
    }

    void theSamePixelIsPassedAgain()
    {
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({5, 7}));
        typeCoordinates(user, 7, 0);
        user.forget();
        user.click("addBadPixelButton");
        user.click("addBadPixelButton");
        QCOMPARE(user.calls(), (QStringList{call(edits[0], 7, 0), call(edits[0], 7, 0)}));
    }

    void theSerialNumberIsAskedForEachTime()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.serialNumber = 4294967295;
        const QString serial = QStringLiteral("4294967295");
        tablefiles::put(tablefiles::working(serial), mapOf({5, 7}));
        user.click("removeBadPixelColumnButton");
        QCOMPARE(user.calls(),
                 QStringList(QStringLiteral("camera.removeBadPixels(\"%1\", 0, 4294967295)")
                                 .arg(tablefiles::full(tablefiles::working(serial)))));
    }

    void thePathIsPassedAsTheSystemsBytes()
    {
        kit::Operator user;
        const QString name = QStringLiteral("Süd ó 100%1");
        QVERIFY(QDir().mkdir(name));
        QVERIFY(QDir::setCurrent(name));
        user.connectCamera();
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        user.click("addBadPixelButton");
        QVERIFY(user.calls().first().contains(name));
        QCOMPARE(user.calls(), QStringList(call(edits[0], 0, 0)));
        QVERIFY(QFile::remove(tablefiles::working()));
        QVERIFY(QDir().rmdir(QStringLiteral("bpr")));
        user.expectBox(backupUnusable());
        user.click("addBadPixelButton");
    }

    void withoutACameraABoxSaysSo_data() { addEdits(); }

    void withoutACameraABoxSaysSo()
    {
        QFETCH(const Edit*, edit);
        kit::Operator user;
        user.start();
        kit::unlockTabs(user);
        user.forget();
        user.expectBox(kit::notConnected());
        user.click(edit->button);
        QCOMPARE(user.boxesAwaited(), 0);
        QCOMPARE(user.calls(recording::Show::Everything), QStringList());
        QCOMPARE(user.newLog(), QStringList());
        QVERIFY(!user.monitoring());
    }

    void theMonitoringGoesOnUntouched_data()
    {
        QTest::addColumn<const Edit*>("edit");
        QTest::addColumn<int>("answer");
        for (const Edit& edit : edits) {
            QTest::addRow("%s, done", edit.button) << &edit << 1;
            QTest::addRow("%s, refused", edit.button) << &edit << 0;
        }
    }

    void theMonitoringGoesOnUntouched()
    {
        QFETCH(const Edit*, edit);
        QFETCH(int, answer);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({5, 7}));
        user.sdk.answer(edit->operation, answer);
        const kit::MonitoringPace monitoring(user);
        bool untouched = false;
        user.sdk.whenCalled(edit->operation, [&] { untouched = monitoring.leftAlone(); });
        if (answer == 0 && edit->refusedBox != nullptr) {
            user.expectBox({.title = "Bad pixel failure", .text = edit->refusedBox});
        }
        user.click(edit->button);
        QVERIFY(untouched);
        QVERIFY(monitoring.leftAlone());
    }

    void theMonitoringGoesOnBehindABoxWithoutATable()
    {
        kit::Operator user;
        user.connectCamera();
        const kit::MonitoringPace monitoring(user);
        kit::Box box = noTable();
        bool untouched = false;
        box.whileOpen = [&](QDialog&) {
            untouched = monitoring.leftAlone();
        };
        user.expectBox(box);
        user.click("addBadPixelLineButton");
        QVERIFY(untouched);
        QVERIFY(monitoring.leftAlone());
    }

    void theGraphicEditorStaysOutOfReach()
    {
        kit::Operator user;
        user.connectCamera();
        QVERIFY(!user.enabled("bpGraphicEditorButton"));
    }
};

TAVREL_TEST_MAIN(TestTableEdits)
#include "tst_tableedits.moc"
