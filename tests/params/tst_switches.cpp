// SPDX-License-Identifier: MIT
// The buttons that switch one feature of the camera on and off.
#include "params/switchbuttons.h"
#include "tests/kit/sequence.h"
#include "tests/params/switchrows.h"

#include <QtWidgets/QMainWindow>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTabWidget>

namespace {

using Switch = switchrows::Row;
using switchrows::everyRowBothWays;

QStringList line(const char* text)
{
    return {QString::fromLatin1(text)};
}

/// A connected camera whose feature stands opposite to what the next click asks for.
void connectBefore(kit::Operator& user, const Switch& feature, bool on)
{
    user.sdk.configuration.expertMode = 1;
    user.sdk.camera.*feature.state = on ? 0 : 1;
    user.connectCamera();
}

} // namespace

class TestSwitches : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everySwitchOfTheToolHasARow()
    {
        QMainWindow window;
        Ui_MainWindow form;
        form.setupUi(&window);
        for (const tavrel::SwitchButton* row : tavrel::switchButtons) {
            const QByteArray button = (form.*row->button)->objectName().toLatin1();
            QVERIFY2(std::any_of(std::begin(switchrows::rows), std::end(switchrows::rows),
                                 [&](const Switch& known) { return button == known.button; }),
                     button + " has no row");
        }
    }

    void anAcceptedClickSendsTheNewStateAndTurnsTheCaption_data() { everyRowBothWays(); }
    void anAcceptedClickSendsTheNewStateAndTurnsTheCaption()
    {
        QFETCH(const Switch*, feature);
        QFETCH(bool, on);
        kit::Operator user;
        connectBefore(user, *feature, on);
        const QString button = QLatin1String(feature->button);
        QCOMPARE(user.text(feature->button), feature->shown(!on));
        kit::Sequence sequence(user);
        user.click(feature->button);
        QCOMPARE(
            sequence.take(),
            (QStringList{
                button + (on ? QStringLiteral(" checked true") : QStringLiteral(" checked false")),
                feature->call(on), button + QStringLiteral(" text ") + feature->shown(on),
                QStringLiteral("log 2: ") + QLatin1String(feature->ok)}));
    }

    void everyClickFirstFetchesTheLibrarysRoot_data() { everyRowBothWays(); }
    void everyClickFirstFetchesTheLibrarysRoot()
    {
        QFETCH(const Switch*, feature);
        QFETCH(bool, on);
        kit::Operator user;
        connectBefore(user, *feature, on);
        user.click(feature->button);
        QCOMPARE(QString::fromStdString(user.sdk.entries().front().text()),
                 QStringLiteral("OmbrixSdk.get_instance()"));
        QCOMPARE(user.sdk.count("OmbrixSdk.get_instance"), 1);
    }

    void aRefusedSwitchKeepsCheckStateAndCaptionAtOdds_data() { everyRowBothWays(); }
    void aRefusedSwitchKeepsCheckStateAndCaptionAtOdds()
    {
        QFETCH(const Switch*, feature);
        QFETCH(bool, on);
        kit::Operator user;
        connectBefore(user, *feature, on);
        user.sdk.answer(feature->operation, 0);
        kit::Sequence sequence(user);
        user.click(feature->button);
        QCOMPARE(sequence.take(),
                 (QStringList{
                     QLatin1String(feature->button) +
                         (on ? QStringLiteral(" checked true") : QStringLiteral(" checked false")),
                     feature->call(on), QStringLiteral("log 2: ") + QLatin1String(feature->ko)}));
    }

    void afterARefusalTheNextReadBringsCheckStateAndCaptionTogether_data() { everyRowBothWays(); }
    void afterARefusalTheNextReadBringsCheckStateAndCaptionTogether()
    {
        QFETCH(const Switch*, feature);
        QFETCH(bool, on);
        kit::Operator user;
        connectBefore(user, *feature, on);
        user.sdk.answer(feature->operation, 0);
        user.click(feature->button);
        user.click("readParamButtonUser");
        user.click("readParamButtonExpert");
        QCOMPARE(user.checked(feature->button), !on);
        QCOMPARE(user.text(feature->button), feature->shown(!on));
    }

    // The click after a refusal asks for the state that the camera never left.
    void aClickAfterARefusalAsksForTheOldStateAgain_data() { everyRowBothWays(); }
    void aClickAfterARefusalAsksForTheOldStateAgain()
    {
        QFETCH(const Switch*, feature);
        QFETCH(bool, on);
        kit::Operator user;
        connectBefore(user, *feature, on);
        user.sdk.answerCall(feature->operation, 1, 0);
        user.click(feature->button);
        user.forget();
        user.click(feature->button);
        QCOMPARE(user.calls(), QStringList(feature->call(!on)));
        QCOMPARE(user.newLog(), line(feature->ok));
        QCOMPARE(user.checked(feature->button), !on);
        QCOMPARE(user.text(feature->button), feature->shown(!on));
    }

    void anAcceptedClickLeavesAForeignCaptionAlone_data()
    {
        QTest::addColumn<const Switch*>("feature");
        QTest::addColumn<bool>("on");
        QTest::addColumn<QString>("caption");
        for (const Switch& feature : switchrows::rows) {
            for (const bool on : {true, false}) {
                const auto opposite = feature.shown(!on);
                const auto add = [&](const char* kind, const QString& caption) {
                    QTest::addRow("%s %s, %s", feature.button, on ? "on" : "off", kind)
                        << &feature << on << caption;
                };
                add("other case", QString(opposite).toUpper());
                add("one blank more", opposite + QLatin1Char(' '));
                add("already right", feature.shown(on));
            }
        }
    }

    void anAcceptedClickLeavesAForeignCaptionAlone()
    {
        QFETCH(const Switch*, feature);
        QFETCH(bool, on);
        QFETCH(QString, caption);
        kit::Operator user;
        connectBefore(user, *feature, on);
        user.find<QPushButton>(feature->button).setText(caption);
        user.click(feature->button);
        QCOMPARE(user.newLog(), line(feature->ok));
        QCOMPARE(user.checked(feature->button), on);
        QCOMPARE(user.text(feature->button), caption);
    }

    void anyByteButZeroIsSuccess_data()
    {
        QTest::addColumn<const Switch*>("feature");
        QTest::addColumn<int>("answer");
        for (const Switch& feature : switchrows::rows) {
            for (const int answer : {2, 128, 255}) {
                QTest::addRow("%s answered %d", feature.button, answer) << &feature << answer;
            }
        }
    }

    void anyByteButZeroIsSuccess()
    {
        QFETCH(const Switch*, feature);
        QFETCH(int, answer);
        kit::Operator user;
        connectBefore(user, *feature, true);
        user.sdk.answer(feature->operation, answer);
        user.click(feature->button);
        QCOMPARE(user.newLog(), line(feature->ok));
        QCOMPARE(user.text(feature->button), feature->shown(true));
    }

    void theCaptionStandsBeforeTheLineIsLogged_data() { everyRowBothWays(); }
    void theCaptionStandsBeforeTheLineIsLogged()
    {
        QFETCH(const Switch*, feature);
        QFETCH(bool, on);
        QString captionAtTheCall;
        QString captionAtTheLine;
        kit::Operator user;
        connectBefore(user, *feature, on);
        user.sdk.whenCalled(feature->operation,
                            [&] { captionAtTheCall = user.text(feature->button); });
        connect(&user.find<QPlainTextEdit>("logView"), &QPlainTextEdit::textChanged, this,
                [&] { captionAtTheLine = user.text(feature->button); });
        user.click(feature->button);
        QCOMPARE(captionAtTheCall, feature->shown(!on));
        QCOMPARE(captionAtTheLine, feature->shown(on));
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
        QTest::addColumn<const Switch*>("feature");
        for (const Switch& feature : switchrows::rows) {
            if (qstrcmp(feature.button, "mipiOutputButton") != 0) {
                QTest::newRow(feature.button) << &feature;
            }
        }
    }

    void beforeAnyReadTheFormsCaptionsBecomeTrueByTheFirstClick()
    {
        QFETCH(const Switch*, feature);
        kit::Operator user;
        openTabsBeforeAnyRead(user);
        user.click(feature->button);
        QCOMPARE(user.text(feature->button), feature->shown(true));
        user.click(feature->button);
        QCOMPARE(user.text(feature->button), feature->shown(false));
    }

    void withoutACameraAClickSendsAndLogsNothing_data()
    {
        QTest::addColumn<const Switch*>("feature");
        for (const Switch& feature : switchrows::rows) {
            QTest::newRow(feature.button) << &feature;
        }
    }

    void withoutACameraAClickSendsAndLogsNothing()
    {
        QFETCH(const Switch*, feature);
        kit::Operator user;
        user.sdk.configuration.expertMode = 1;
        user.find<QTabWidget>("tabWidget").setEnabled(true);
        user.forget();
        user.click(feature->button);
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

TAVREL_TEST_MAIN(TestSwitches)
#include "tst_switches.moc"
