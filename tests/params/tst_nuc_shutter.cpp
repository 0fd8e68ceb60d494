// SPDX-License-Identifier: MIT
// The shutter: closing and opening it, and reading back where it stands.
#include "tests/kit/operator.h"

#include <QtWidgets/QPushButton>
#include <QtWidgets/QTabWidget>

namespace {

QString captionFor(bool closed)
{
    return closed ? QStringLiteral("Shutter closed") : QStringLiteral("Shutter opened");
}

/// A connected camera whose shutter stands opposite to what the next click asks for.
void connectBefore(kit::Operator& user, bool close)
{
    user.sdk.camera.shutterClosed = close ? 0 : 1;
    user.connectCamera();
}

void bothWays()
{
    QTest::addColumn<bool>("close");
    QTest::newRow("closing") << true;
    QTest::newRow("opening") << false;
}

} // namespace

class TestShutter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anAcceptedClickMovesTheShutterAndTurnsTheCaption_data()
    {
        QTest::addColumn<bool>("close");
        QTest::addColumn<int>("answer");
        for (const int answer : {1, 2, 255}) {
            QTest::addRow("closing, answered %d", answer) << true << answer;
            QTest::addRow("opening, answered %d", answer) << false << answer;
        }
    }

    void anAcceptedClickMovesTheShutterAndTurnsTheCaption()
    {
        QFETCH(bool, close);
        QFETCH(int, answer);
        kit::Operator user;
        connectBefore(user, close);
        user.sdk.answer("camera.setShutterPosition", answer);
        QCOMPARE(user.text("shutterCtrlPB"), captionFor(!close));
        user.click("shutterCtrlPB");
        QCOMPARE(user.calls(), close ? kit::lines({"camera.setShutterPosition(true)"})
                                     : kit::lines({"camera.setShutterPosition(false)"}));
        QCOMPARE(user.newLog(), kit::lines({"Set shutter position OK"}));
        QCOMPARE(user.checked("shutterCtrlPB"), close);
        QCOMPARE(user.text("shutterCtrlPB"), captionFor(close));
    }

    void anAcceptedClickLeavesAForeignCaptionAlone_data()
    {
        QTest::addColumn<bool>("close");
        QTest::addColumn<QString>("caption");
        QTest::newRow("closing, other words") << true << QStringLiteral("Lid");
        QTest::newRow("opening, other words") << false << QStringLiteral("Lid");
        QTest::newRow("closing, other case") << true << QStringLiteral("Shutter Opened");
        QTest::newRow("opening, other case") << false << QStringLiteral("Shutter Closed");
        QTest::newRow("closing, already right") << true << captionFor(true);
        QTest::newRow("opening, already right") << false << captionFor(false);
    }

    void anAcceptedClickLeavesAForeignCaptionAlone()
    {
        QFETCH(bool, close);
        QFETCH(QString, caption);
        kit::Operator user;
        connectBefore(user, close);
        user.find<QPushButton>("shutterCtrlPB").setText(caption);
        user.click("shutterCtrlPB");
        QCOMPARE(user.newLog(), kit::lines({"Set shutter position OK"}));
        QCOMPARE(user.checked("shutterCtrlPB"), close);
        QCOMPARE(user.text("shutterCtrlPB"), caption);
    }

    void aRefusedShutterIsShownUnmarkedUnderItsOldCaption_data() { bothWays(); }
    void aRefusedShutterIsShownUnmarkedUnderItsOldCaption()
    {
        QFETCH(bool, close);
        kit::Operator user;
        connectBefore(user, close);
        user.sdk.answer("camera.setShutterPosition", 0);
        user.click("shutterCtrlPB");
        QCOMPARE(user.calls(), close ? kit::lines({"camera.setShutterPosition(true)"})
                                     : kit::lines({"camera.setShutterPosition(false)"}));
        QCOMPARE(user.newLog(), kit::lines({"Set shutter position KO"}));
        QVERIFY(!user.checked("shutterCtrlPB"));
        QCOMPARE(user.text("shutterCtrlPB"), captionFor(!close));
    }

    void aReadShowsWhereTheShutterStands_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<bool>("shownClosedBefore");
        QTest::addColumn<bool>("closed");
        for (const int position : {0, 1, 2, 128, 255}) {
            for (const bool before : {true, false}) {
                QTest::addRow("position %d, shown %s before", position,
                              before ? "closed" : "opened")
                    << position << before << (position != 0);
            }
        }
    }

    void aReadShowsWhereTheShutterStands()
    {
        QFETCH(int, position);
        QFETCH(bool, shownClosedBefore);
        QFETCH(bool, closed);
        kit::Operator user;
        connectBefore(user, !shownClosedBefore);
        user.find<QPushButton>("shutterCtrlPB").setText(QStringLiteral("Lid"));
        user.sdk.camera.shutterClosed = static_cast<std::uint8_t>(position);
        user.click("readParamButtonUser");
        QCOMPARE(user.checked("shutterCtrlPB"), closed);
        QCOMPARE(user.text("shutterCtrlPB"), captionFor(closed));
        QCOMPARE(user.newLog().filter(QStringLiteral("hutter")), QStringList(captionFor(closed)));
        QCOMPARE(user.sdk.count("camera.setShutterPosition"), 0);
    }

    void anyAnswerButZeroToTheReadIsSuccess_data()
    {
        QTest::addColumn<int>("answer");
        QTest::newRow("2") << 2;
        QTest::newRow("255") << 255;
    }

    void anyAnswerButZeroToTheReadIsSuccess()
    {
        QFETCH(int, answer);
        kit::Operator user;
        connectBefore(user, true);
        user.sdk.camera.shutterClosed = 1;
        user.sdk.answer("camera.getShutterPosition", answer);
        user.click("readParamButtonUser");
        QVERIFY(user.checked("shutterCtrlPB"));
        QCOMPARE(user.text("shutterCtrlPB"), captionFor(true));
    }

    void aPositionThatIsNeverWrittenReadsAsClosed()
    {
        kit::Operator user;
        connectBefore(user, true);
        user.sdk.withholdOutput("camera.getShutterPosition");
        user.click("readParamButtonUser");
        QVERIFY(user.checked("shutterCtrlPB"));
        QCOMPARE(user.text("shutterCtrlPB"), captionFor(true));
        QCOMPARE(user.newLog().filter(QStringLiteral("hutter")), QStringList(captionFor(true)));
    }

    void aReadThatFailsLeavesTheButtonAlone_data()
    {
        QTest::addColumn<bool>("shownClosed");
        QTest::addColumn<QString>("caption");
        QTest::newRow("closed") << true << captionFor(true);
        QTest::newRow("opened") << false << captionFor(false);
        QTest::newRow("foreign") << false << QStringLiteral("Lid");
    }

    void aReadThatFailsLeavesTheButtonAlone()
    {
        QFETCH(bool, shownClosed);
        QFETCH(QString, caption);
        kit::Operator user;
        connectBefore(user, !shownClosed);
        user.find<QPushButton>("shutterCtrlPB").setText(caption);
        user.sdk.answer("camera.getShutterPosition", 0);
        user.click("readParamButtonUser");
        QCOMPARE(user.checked("shutterCtrlPB"), shownClosed);
        QCOMPARE(user.text("shutterCtrlPB"), caption);
        QCOMPARE(user.newLog().filter(QStringLiteral("hutter")),
                 kit::lines({"Unable to get shutter position"}));
        QCOMPARE(user.newLog().last(), QStringLiteral("End reading camera parameters"));
    }

    void withoutACameraAClickSendsAndLogsNothing()
    {
        kit::Operator user;
        user.find<QTabWidget>("tabWidget").setEnabled(true);
        user.forget();
        user.click("shutterCtrlPB");
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }
};

TAVREL_TEST_MAIN(TestShutter)
#include "tst_nuc_shutter.moc"
