// SPDX-License-Identifier: MIT
// The list of frame rates, which asks the camera first and resets the test pattern button.
#include "tests/kit/operator.h"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTabWidget>

namespace {

struct Rate {
    const char* entry;
    std::uint8_t hertz;
};

constexpr Rate rates[] = {{"9Hz", 9}, {"25Hz", 25}, {"30Hz", 30}, {"50Hz", 50}, {"60Hz", 60}};

void everyRate()
{
    QTest::addColumn<const Rate*>("rate");
    for (const Rate& rate : rates) {
        QTest::newRow(rate.entry) << &rate;
    }
}

QStringList setFrameRate(int hertz)
{
    return {QStringLiteral("camera.setFrameRate(%1)").arg(hertz)};
}

/// All calls but those of the monitoring, which may tick at any time.
QStringList callsWithQuestions(kit::Operator& user)
{
    QStringList calls = user.calls(recording::Show::Everything);
    calls.removeAll(QStringLiteral("camera.getTemperatures()"));
    return calls;
}

/// A connected camera that shows its test pattern at a rate other than the given one.
void connectWithTestPattern(kit::Operator& user, const Rate& other)
{
    user.sdk.camera.testPattern = 1;
    user.sdk.camera.frameRate = other.hertz == 60 ? 9 : 60;
    user.connectCamera();
    QVERIFY(user.checked("TestPatternButton"));
    QCOMPARE(user.text("TestPatternButton"), QStringLiteral("Test Pattern: Activated"));
}

} // namespace

Q_DECLARE_METATYPE(const Rate*)

class TestFrameRate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aRateChosenIsSentInHertz_data() { everyRate(); }
    void aRateChosenIsSentInHertz()
    {
        QFETCH(const Rate*, rate);
        kit::Operator user;
        connectWithTestPattern(user, *rate);
        user.choose("frameRateCB", rate->entry);
        QCOMPARE(user.calls(), setFrameRate(rate->hertz));
        QCOMPARE(user.newLog(), kit::lines({"Set FRAME RATE value OK"}));
    }

    void theCameraIsAskedForItsRateBeforeANewOneIsSent()
    {
        kit::Operator user;
        user.connectCamera();
        user.choose("frameRateCB", "30Hz");
        QCOMPARE(callsWithQuestions(user),
                 kit::lines({"camera.getFrameRate()", "camera.setFrameRate(30)"}));
    }

    void theRateTheCameraAlreadyHasIsNeitherSentNorLogged_data() { everyRate(); }
    void theRateTheCameraAlreadyHasIsNeitherSentNorLogged()
    {
        QFETCH(const Rate*, rate);
        kit::Operator user;
        connectWithTestPattern(user, *rate);
        user.sdk.camera.frameRate = rate->hertz;
        user.choose("frameRateCB", rate->entry);
        QCOMPARE(callsWithQuestions(user), kit::lines({"camera.getFrameRate()"}));
        QCOMPARE(user.newLog(), QStringList());
        QVERIFY(user.checked("TestPatternButton"));
        QCOMPARE(user.text("TestPatternButton"), QStringLiteral("Test Pattern: Activated"));
    }

    void aNewRateTakesTheTestPatternOffTheButton_data() { everyAnswer(); }
    void aNewRateTakesTheTestPatternOffTheButton()
    {
        QFETCH(int, answer);
        QFETCH(QString, logged);
        kit::Operator user;
        connectWithTestPattern(user, rates[1]);
        user.sdk.answer("camera.setFrameRate", answer);
        user.choose("frameRateCB", "25Hz");
        QVERIFY(!user.checked("TestPatternButton"));
        QCOMPARE(user.text("TestPatternButton"), QStringLiteral("Test Pattern: Deactivated"));
        // Only the button is reset: the camera is told nothing about its test pattern.
        QCOMPARE(user.calls(), setFrameRate(25));
        QCOMPARE(user.newLog(), QStringList(logged));
    }

    void evenAForeignTestPatternCaptionIsReplaced_data() { everyAnswer(); }
    void evenAForeignTestPatternCaptionIsReplaced()
    {
        QFETCH(int, answer);
        kit::Operator user;
        user.connectCamera();
        user.sdk.answer("camera.setFrameRate", answer);
        user.find<QPushButton>("TestPatternButton").setText(QStringLiteral("bars"));
        user.choose("frameRateCB", "50Hz");
        QCOMPARE(user.text("TestPatternButton"), QStringLiteral("Test Pattern: Deactivated"));
    }

    void aRefusedRateStaysChosen()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.answer("camera.setFrameRate", 0);
        user.choose("frameRateCB", "60Hz");
        QCOMPARE(user.calls(), setFrameRate(60));
        QCOMPARE(user.newLog(), kit::lines({"Set FRAME RATE value KO"}));
        QCOMPARE(user.text("frameRateCB"), QStringLiteral("60Hz"));
    }

    void theLineIsLoggedBeforeTheButtonIsReset()
    {
        QStringList logAtTheReset;
        kit::Operator user;
        connectWithTestPattern(user, rates[1]);
        connect(&user.find<QPushButton>("TestPatternButton"), &QPushButton::toggled, this,
                [&] { logAtTheReset = user.newLog(); });
        user.choose("frameRateCB", "25Hz");
        QCOMPARE(logAtTheReset, kit::lines({"Set FRAME RATE value OK"}));
    }

    void noEntryAsksForZeroHertz()
    {
        kit::Operator user;
        user.connectCamera();
        user.find<QComboBox>("frameRateCB").setCurrentIndex(-1);
        QCOMPARE(user.calls(), setFrameRate(0));
    }

    void noEntryIsNotSentToACameraAtZeroHertz()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.frameRate = 0;
        user.find<QComboBox>("frameRateCB").setCurrentIndex(-1);
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    void withoutACameraNothingIsSentOrLogged()
    {
        kit::Operator user;
        user.find<QTabWidget>("tabWidget").setEnabled(true);
        user.forget();
        user.choose("frameRateCB", "50Hz");
        QCOMPARE(callsWithQuestions(user), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

private:
    static void everyAnswer()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("logged");
        QTest::newRow("refused") << 0 << QStringLiteral("Set FRAME RATE value KO");
        for (const int answer : {1, 2, 255}) {
            QTest::addRow("answered %d", answer)
                << answer << QStringLiteral("Set FRAME RATE value OK");
        }
    }
};

TAVREL_TEST_MAIN(TestFrameRate)
#include "tst_lists_framerate.moc"
