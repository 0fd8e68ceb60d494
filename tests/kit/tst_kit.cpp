// SPDX-License-Identifier: MIT
// The kit itself: what the other tests take for granted.
#include "tests/kit/operator.h"

#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtSerialPort/QSerialPortInfo>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QSlider>

/// Sessions in which something is wrong; each of them must fail. Run by TestKit in a process of its
/// own, and of no use otherwise.
class FailingSessions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void unannouncedBox()
    {
        kit::Operator user;
        user.click("scanDeviceButton");
    }
    void awaitedBoxStaysAway()
    {
        kit::Operator user;
        user.expectBox({.title = "Hello", .text = "World"});
    }
    void boxIsGoneAtOnce()
    {
        kit::Operator user;
        user.expectBox({.kind = kit::Box::Dialog, .title = "Hello"});
        QDialog(&user.window()).show();
    }
    void otherText()
    {
        kit::Operator user;
        user.expectBox({.kind = kit::Box::Warning, .text = "No COM port"});
        user.click("scanDeviceButton");
    }
    void otherKind()
    {
        kit::Operator user;
        user.expectBox({.kind = kit::Box::About,
                        .text = "No COM port found!\nPlease, plug a COM port ans scan again."});
        user.click("scanDeviceButton");
    }
    void unannouncedWarning()
    {
        kit::Operator user;
        user.text("AboutButton");
        qWarning("thin ice");
    }
    void awaitedWarningStaysAway()
    {
        kit::Operator user;
        user.expectWarning(QStringLiteral("thin ice"));
    }
    void absentWidget()
    {
        kit::Operator user;
        user.click("warpDriveButton");
    }
    void widgetOfAnotherType()
    {
        kit::Operator user;
        user.find<QSlider>("gammaEdit");
    }
    void disabledWidget()
    {
        kit::Operator user;
        user.click("connectDeviceButton");
    }
    void noConnection()
    {
        kit::Operator user;
        user.sdk.answer("camera.connect", 0);
        user.connectCamera();
    }
    void otherLines()
    {
        QCOMPARE(kit::lines({"a", "b", "c", "d", "e"}), kit::lines({"a", "b", "c", "x", "e", "f"}));
    }
    void fewerLines() { QCOMPARE(kit::lines({"a"}), QStringList()); }
};

class TestKit : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void portsComeAndGoInTheSystemsOwnList()
    {
        kit::Ports ports;
        QVERIFY(QSerialPortInfo::availablePorts().isEmpty());
        ports.plug(QStringLiteral("ttyUSB1"));
        ports.plug(QStringLiteral("ttyUSB0"));
        QCOMPARE(listed(), ports.plugged());
        ports.unplug(QStringLiteral("ttyUSB1"));
        QCOMPARE(listed(), kit::lines({"ttyUSB0"}));
        ports.unplug(QStringLiteral("ttyUSB0"));
        QVERIFY(QSerialPortInfo::availablePorts().isEmpty());
    }

    void anAnswerHoldsForEveryCallOrForOne()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.answerCall("camera.setTestPattern", 2, 0);
        for (int click = 0; click < 3; ++click) {
            user.click("TestPatternButton");
        }
        user.sdk.answer("camera.setTestPattern", 0);
        user.click("TestPatternButton");
        QCOMPARE(user.newLog(),
                 kit::lines({"Set TEST PATTERN value OK", "Set TEST PATTERN value KO",
                             "Set TEST PATTERN value OK", "Set TEST PATTERN value KO"}));
        QCOMPARE(user.sdk.count("camera.setTestPattern"), 4);
    }

    void anActionRunsInTheMiddleOfACall()
    {
        kit::Operator user;
        user.connectCamera();
        QString captionInTheMiddle;
        user.sdk.whenCalled("camera.setTestPattern",
                            [&] { captionInTheMiddle = user.text("TestPatternButton"); });
        user.click("TestPatternButton");
        QCOMPARE(captionInTheMiddle, QStringLiteral("Test Pattern: Deactivated"));
        QCOMPARE(user.text("TestPatternButton"), QStringLiteral("Test Pattern: Activated"));
    }

    void everyCommandCanBeRefusedWhileGettersGoOn()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.answerEveryCommand(0);
        user.click("TestPatternButton");
        user.choose("frameRateCB", "50Hz");
        QCOMPARE(user.calls(),
                 kit::lines({"camera.setTestPattern(true)", "camera.setFrameRate(50)"}));
        QCOMPARE(user.newLog(),
                 kit::lines({"Set TEST PATTERN value KO", "Set FRAME RATE value KO"}));
    }

    void aDraggedHandleArrivesAtTheValueAndSendsOnRelease()
    {
        kit::Operator user;
        user.connectCamera();
        QCOMPARE(user.drag("gammaSlider", 17), 17);
        QCOMPARE(user.calls(), QStringList());
        user.release();
        QCOMPARE(user.calls(), kit::lines({"camera.setGamma(144179)"}));
    }

    void typedTextReplacesTheValueAndTabFinishes()
    {
        kit::Operator user;
        user.connectCamera();
        user.type("gammaEdit", "1.3", Qt::Key_unknown);
        QCOMPARE(user.find<QDoubleSpinBox>("gammaEdit").value(), 1.3);
        QCOMPARE(user.calls(), QStringList());
        user.press("gammaEdit", Qt::Key_Tab);
        QCOMPARE(user.calls(), kit::lines({"camera.setGamma(85196)"}));
    }

    void theWheelAndTheArrowKeysMoveASlider()
    {
        kit::Operator user;
        user.connectCamera();
        const int before = user.sliderValue("TempoFilterSlider");
        user.press("TempoFilterSlider", Qt::Key_Right);
        QCOMPARE(user.sliderValue("TempoFilterSlider"), before + 1);
        user.wheel("TempoFilterSlider", -1);
        QVERIFY(user.sliderValue("TempoFilterSlider") < before + 1);
    }

    void anEntryIsChosenByOneIndexChange()
    {
        kit::Operator user;
        user.connectCamera();
        user.choose("VideoOutputCB", "RESERVED");
        user.choose("VideoOutputCB", "NUC");
        QCOMPARE(user.calls(),
                 kit::lines({"camera.setVideoOutput(6)", "camera.setVideoOutput(1)"}));
    }

    void anAnnouncedBoxIsAnswered_data()
    {
        QTest::addColumn<int>("answer");
        QTest::newRow("click") << int(kit::Box::Click);
        QTest::newRow("escape") << int(kit::Box::Escape);
        QTest::newRow("frame") << int(kit::Box::Frame);
    }

    void anAnnouncedBoxIsAnswered()
    {
        QFETCH(int, answer);
        kit::Operator user;
        user.connectCamera();
        user.sdk.answer("camera.requestNuc", 0);
        bool seen = false;
        user.expectBox({.kind = kit::Box::Warning,
                        .text = "Error on processing the NUC request",
                        .whileOpen = [&](QDialog& box) { seen = box.isVisible(); },
                        .answer = kit::Box::Answer(answer)});
        user.click("userNucRequest");
        QVERIFY(seen);
        QCOMPARE(user.boxesAwaited(), 0);
        user.click("TestPatternButton");
        QCOMPARE(user.sdk.count("camera.setTestPattern"), 1);
    }

    void whatGoesWrongFailsTheTest()
    {
        QStringList failures;
        auto matches = QRegularExpression(QStringLiteral("FAIL!  : FailingSessions::(.*)"))
                           .globalMatch(outputOfTheFailingSessions());
        while (matches.hasNext()) {
            failures.append(matches.next().captured(1));
        }
        QCOMPARE(
            kit::Lines(failures),
            kit::lines({
                "unannouncedBox() an unexpected box came: \"\" / \"No COM port found!",
                "awaitedBoxStaysAway() a box did not come: \"Hello\" / \"World\"",
                "boxIsGoneAtOnce() a box was gone before it could be answered: \"Hello\"",
                "otherText() the box \"\" / \"No COM port found!",
                "otherKind() the box \"\" / \"No COM port found!",
                "unannouncedWarning() unexpected warning: thin ice",
                "awaitedWarningStaysAway() a warning did not come: thin ice",
                "absentWidget() 0 widgets are called warpDriveButton",
                "widgetOfAnotherType() gammaEdit is no QSlider",
                "disabledWidget() connectDeviceButton cannot be used: visible 1, enabled 0",
                "noConnection() no connection came about; the log says:",
                "otherLines() kit::lines({\"a\", \"b\", \"c\", \"d\", \"e\"}) is not "
                "kit::lines({\"a\", \"b\", \"c\", \"x\", \"e\", \"f\"}): they differ at line 4",
                "fewerLines() kit::lines({\"a\"}) is not QStringList(): they differ at line 1",
            }));
    }

    void aFailureNamesTheLineOfItsTest()
    {
        QFile source(QFINDTESTDATA("tst_kit.cpp"));
        QVERIFY(source.open(QIODevice::ReadOnly | QIODevice::Text));
        const QStringList text = QString::fromUtf8(source.readAll()).split(QLatin1Char('\n'));
        const auto lineOf = [&](const char* function, const char* call) {
            int line = static_cast<int>(text.indexOf(QRegularExpression(
                QStringLiteral(" +void %1\\(\\).*").arg(QLatin1String(function)))));
            while (!text.at(line).contains(QLatin1String(call))) {
                ++line;
            }
            return QStringLiteral("tst_kit.cpp(%1)").arg(line + 1);
        };
        QStringList expected;
        for (const auto& [function, call] : {
                 std::pair{"unannouncedBox", "user.click"},
                 {"awaitedBoxStaysAway", "user.expectBox"},
                 {"boxIsGoneAtOnce", "user.expectBox"},
                 {"otherText", "user.expectBox"},
                 {"otherKind", "user.expectBox"},
                 {"unannouncedWarning", "user.text"},
                 {"awaitedWarningStaysAway", "user.expectWarning"},
                 {"absentWidget", "user.click"},
                 {"widgetOfAnotherType", "user.find"},
                 {"disabledWidget", "user.click"},
                 {"noConnection", "user.connectCamera"},
                 {"otherLines", "QCOMPARE"},
                 {"fewerLines", "QCOMPARE"},
             }) {
            expected << lineOf(function, call);
        }
        QStringList places;
        auto matches =
            QRegularExpression(QStringLiteral(R"(\b(tst_kit\.cpp\(\d+\))(?:\]| : failure))"))
                .globalMatch(outputOfTheFailingSessions());
        while (matches.hasNext()) {
            places.append(matches.next().captured(1));
        }
        QCOMPARE(kit::Lines(places), kit::Lines(expected));
    }

    void sequencesThatDifferShowTheFirstDifferenceWithItsNeighbours()
    {
        QCOMPARE(kit::difference(kit::lines({"a", "b", "c", "d", "e", "f"}),
                                 kit::lines({"a", "b", "c", "x"})),
                 QStringLiteral("they differ at line 4\n"
                                "  actual, 6 lines:\n"
                                "      2  b\n"
                                "      3  c\n"
                                "    > 4  d\n"
                                "      5  e\n"
                                "      6  f\n"
                                "  expected, 4 lines:\n"
                                "      2  b\n"
                                "      3  c\n"
                                "    > 4  x"));
        QCOMPARE(kit::difference(kit::lines({"a"}), {}), QStringLiteral("they differ at line 1\n"
                                                                        "  actual, 1 lines:\n"
                                                                        "    > 1  a\n"
                                                                        "  expected, 0 lines:\n"
                                                                        "    > (ends here)"));
        QCOMPARE(kit::difference(kit::lines({"a"}), kit::lines({"a"})), QString());
    }

    void anAnnouncedWarningIsTakenAndNoOther()
    {
        kit::Operator user;
        user.expectWarning(QStringLiteral("thin ice"));
        qWarning("thin ice");
    }

private:
    static QString outputOfTheFailingSessions()
    {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--failing")});
        if (!process.waitForFinished()) {
            return {};
        }
        return QString::fromUtf8(process.readAllStandardOutput()).remove(QLatin1Char('\r'));
    }

    static QStringList listed()
    {
        QStringList names;
        const auto ports = QSerialPortInfo::availablePorts();
        for (const QSerialPortInfo& port : ports) {
            names.append(port.portName());
        }
        return names;
    }
};

int main(int argc, char* argv[])
{
    kit::prepareProcess();
    QApplication application(argc, argv);
    if (application.arguments().contains(QStringLiteral("--failing"))) {
        FailingSessions sessions;
        return QTest::qExec(&sessions, QStringList{application.arguments().first()});
    }
    TestKit test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_kit.moc"
