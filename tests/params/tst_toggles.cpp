// SPDX-License-Identifier: MIT
// The buttons that switch one feature of the camera on and off.
#include "params/toggles.h"
#include "tests/kit/sequence.h"
#include "tests/params/switchrows.h"

#include <QtWidgets/QMainWindow>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTabWidget>

namespace {

using Toggle = switchrows::Row;
using switchrows::everyRowBothWays;

QStringList line(const char* text)
{
    return {QString::fromLatin1(text)};
}

/// A connected camera whose feature stands opposite to what the next click asks for.
void connectBefore(kit::Operator& user, const Toggle& toggle, bool on)
{
    user.sdk.configuration.expertMode = 1;
    user.sdk.camera.*toggle.state = on ? 0 : 1;
    user.connectCamera();
}

} // namespace

class TestToggles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everySwitchOfTheToolHasARow()
    {
        QMainWindow window;
        Ui_MainWindow form;
        form.setupUi(&window);
        for (const tavrel::Toggle* toggle : tavrel::toggles) {
            const QByteArray button = (form.*toggle->button)->objectName().toLatin1();
            QVERIFY2(std::any_of(std::begin(switchrows::rows), std::end(switchrows::rows),
                                 [&](const Toggle& row) { return button == row.button; }),
                     button + " has no row");
        }
    }

    void anAcceptedClickSendsTheNewStateAndTurnsTheCaption_data() { everyRowBothWays(); }
    void anAcceptedClickSendsTheNewStateAndTurnsTheCaption()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(bool, on);
        kit::Operator user;
        connectBefore(user, *toggle, on);
        const QString button = QLatin1String(toggle->button);
        QCOMPARE(user.text(toggle->button), toggle->shown(!on));
        kit::Sequence sequence(user);
        user.click(toggle->button);
        QCOMPARE(
            sequence.take(),
            (QStringList{
                button + (on ? QStringLiteral(" checked true") : QStringLiteral(" checked false")),
                toggle->call(on), button + QStringLiteral(" text ") + toggle->shown(on),
                QStringLiteral("log 2: ") + QLatin1String(toggle->ok)}));
    }

    void everyClickFirstFetchesTheLibrarysRoot_data() { everyRowBothWays(); }
    void everyClickFirstFetchesTheLibrarysRoot()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(bool, on);
        kit::Operator user;
        connectBefore(user, *toggle, on);
        user.click(toggle->button);
        QCOMPARE(QString::fromStdString(user.sdk.entries().front().text()),
                 QStringLiteral("OmbrixSdk.get_instance()"));
        QCOMPARE(user.sdk.count("OmbrixSdk.get_instance"), 1);
    }

    void aRefusedToggleKeepsCheckStateAndCaptionAtOdds_data() { everyRowBothWays(); }
    void aRefusedToggleKeepsCheckStateAndCaptionAtOdds()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(bool, on);
        kit::Operator user;
        connectBefore(user, *toggle, on);
        user.sdk.answer(toggle->operation, 0);
        kit::Sequence sequence(user);
        user.click(toggle->button);
        QCOMPARE(
            sequence.take(),
            (QStringList{QLatin1String(toggle->button) + (on ? QStringLiteral(" checked true")
                                                             : QStringLiteral(" checked false")),
                         toggle->call(on), QStringLiteral("log 2: ") + QLatin1String(toggle->ko)}));
    }

    void afterARefusalTheNextReadBringsCheckStateAndCaptionTogether_data() { everyRowBothWays(); }
    void afterARefusalTheNextReadBringsCheckStateAndCaptionTogether()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(bool, on);
        kit::Operator user;
        connectBefore(user, *toggle, on);
        user.sdk.answer(toggle->operation, 0);
        user.click(toggle->button);
        user.click("readParamButtonUser");
        user.click("readParamButtonExpert");
        QCOMPARE(user.checked(toggle->button), !on);
        QCOMPARE(user.text(toggle->button), toggle->shown(!on));
    }

    // The click after a refusal asks for the state that the camera never left.
    void aClickAfterARefusalAsksForTheOldStateAgain_data() { everyRowBothWays(); }
    void aClickAfterARefusalAsksForTheOldStateAgain()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(bool, on);
        kit::Operator user;
        connectBefore(user, *toggle, on);
        user.sdk.answerCall(toggle->operation, 1, 0);
        user.click(toggle->button);
        user.forget();
        user.click(toggle->button);
        QCOMPARE(user.calls(), QStringList(toggle->call(!on)));
        QCOMPARE(user.newLog(), line(toggle->ok));
        QCOMPARE(user.checked(toggle->button), !on);
        QCOMPARE(user.text(toggle->button), toggle->shown(!on));
    }

    void anAcceptedClickLeavesAForeignCaptionAlone_data()
    {
        QTest::addColumn<const Toggle*>("toggle");
        QTest::addColumn<bool>("on");
        QTest::addColumn<QString>("caption");
        for (const Toggle& toggle : switchrows::rows) {
            for (const bool on : {true, false}) {
                const auto opposite = toggle.shown(!on);
                const auto add = [&](const char* kind, const QString& caption) {
                    QTest::addRow("%s %s, %s", toggle.button, on ? "on" : "off", kind)
                        << &toggle << on << caption;
                };
                add("other case", QString(opposite).toUpper());
                add("one blank more", opposite + QLatin1Char(' '));
                add("already right", toggle.shown(on));
            }
        }
    }

    void anAcceptedClickLeavesAForeignCaptionAlone()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(bool, on);
        QFETCH(QString, caption);
        kit::Operator user;
        connectBefore(user, *toggle, on);
        user.find<QPushButton>(toggle->button).setText(caption);
        user.click(toggle->button);
        QCOMPARE(user.newLog(), line(toggle->ok));
        QCOMPARE(user.checked(toggle->button), on);
        QCOMPARE(user.text(toggle->button), caption);
    }

    void anyByteButZeroIsSuccess_data()
    {
        QTest::addColumn<const Toggle*>("toggle");
        QTest::addColumn<int>("answer");
        for (const Toggle& toggle : switchrows::rows) {
            for (const int answer : {2, 128, 255}) {
                QTest::addRow("%s answered %d", toggle.button, answer) << &toggle << answer;
            }
        }
    }

    void anyByteButZeroIsSuccess()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(int, answer);
        kit::Operator user;
        connectBefore(user, *toggle, true);
        user.sdk.answer(toggle->operation, answer);
        user.click(toggle->button);
        QCOMPARE(user.newLog(), line(toggle->ok));
        QCOMPARE(user.text(toggle->button), toggle->shown(true));
    }

    void theCaptionStandsBeforeTheLineIsLogged_data() { everyRowBothWays(); }
    void theCaptionStandsBeforeTheLineIsLogged()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(bool, on);
        QString captionAtTheCall;
        QString captionAtTheLine;
        kit::Operator user;
        connectBefore(user, *toggle, on);
        user.sdk.whenCalled(toggle->operation,
                            [&] { captionAtTheCall = user.text(toggle->button); });
        connect(&user.find<QPlainTextEdit>("logView"), &QPlainTextEdit::textChanged, this,
                [&] { captionAtTheLine = user.text(toggle->button); });
        user.click(toggle->button);
        QCOMPARE(captionAtTheCall, toggle->shown(!on));
        QCOMPARE(captionAtTheLine, toggle->shown(on));
    }

    void theFormsOwnMipiCaptionSurvivesClicksBeforeAnyRead()
    {
        kit::Operator user;
        openTabsBeforeAnyRead(user);
        user.click("mipiOutputButton");
        QCOMPARE(user.text("mipiOutputButton"), QStringLiteral("Mipi Output: Activated"));
        user.click("mipiOutputButton");
        QCOMPARE(user.text("mipiOutputButton"), QStringLiteral("Mipi Output: Activated"));
        QCOMPARE(user.calls(),
                 kit::lines({"camera.setMipiOutput(true)", "camera.setMipiOutput(false)"}));
        QCOMPARE(user.newLog(),
                 kit::lines({"Set MIPI OUTPUT value OK", "Set MIPI OUTPUT value OK"}));
    }

    // Some captions of the form already say "Activated" while nothing is checked; the first click
    // makes them true, the second turns them.
    void beforeAnyReadTheFormsCaptionsBecomeTrueByTheFirstClick_data()
    {
        QTest::addColumn<const Toggle*>("toggle");
        for (const Toggle& toggle : switchrows::rows) {
            if (qstrcmp(toggle.button, "mipiOutputButton") != 0) {
                QTest::newRow(toggle.button) << &toggle;
            }
        }
    }

    void beforeAnyReadTheFormsCaptionsBecomeTrueByTheFirstClick()
    {
        QFETCH(const Toggle*, toggle);
        kit::Operator user;
        openTabsBeforeAnyRead(user);
        user.click(toggle->button);
        QCOMPARE(user.text(toggle->button), toggle->shown(true));
        user.click(toggle->button);
        QCOMPARE(user.text(toggle->button), toggle->shown(false));
    }

    void withoutACameraAClickSendsAndLogsNothing_data()
    {
        QTest::addColumn<const Toggle*>("toggle");
        for (const Toggle& toggle : switchrows::rows) {
            QTest::newRow(toggle.button) << &toggle;
        }
    }

    void withoutACameraAClickSendsAndLogsNothing()
    {
        QFETCH(const Toggle*, toggle);
        kit::Operator user;
        user.sdk.configuration.expertMode = 1;
        user.find<QTabWidget>("tabWidget").setEnabled(true);
        user.forget();
        user.click(toggle->button);
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

private:
    /// A camera whose read failed: it is there, but the window still shows the form's own texts.
    static void openTabsBeforeAnyRead(kit::Operator& user)
    {
        user.sdk.configuration.expertMode = 2; // the tab is there, but not read
        user.sdk.camera.versions = 0;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        user.expectBox({.title = "Camera not connected", .text = "Unable to connect to ttyUSB0"});
        user.click("connectDeviceButton");
        user.find<QTabWidget>("tabWidget").setEnabled(true);
        user.forget();
    }
};

TAVREL_TEST_MAIN(TestToggles)
#include "tst_toggles.moc"
