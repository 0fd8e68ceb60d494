// SPDX-License-Identifier: MIT
// The window right after its construction, and its end.
#include "tests/kit/operator.h"

#include <QtCore/QMetaMethod>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTextBrowser>

namespace {

// Slots are reached by name and by index, so order and spelling are part of the interface.
const char* const slotTable[] = {
    "ResetParamsUser()",
    "ApplyParamsUser()",
    "ApplyParamsExpert()",
    "ReadParamsExpert()",
    "ApplyNucRequest()",
    "GammaUserValueChanged(double)",
    "ClheUserValueChanged(double)",
    "SharpeningUserValueChanged(double)",
    "SharpeningTHValueChanged(double)",
    "GSKExpertValueChanged(double)",
    "GFIDExpertValueChanged(double)",
    "GMSExpertValueChanged(double)",
    "TINTExpertValueChanged(double)",
    "AhcBlackGainLimSpinValueChanged(int)",
    "AhcWhiteGainLimSpinValueChanged(int)",
    "TempoFiltSpinValueChanged(int)",
    "GammaUserSliderChanged(int)",
    "ClheUserSliderChanged(int)",
    "SharpeningUserSliderChanged(int)",
    "SharpeningTHSliderChanged(int)",
    "GSKExpertSliderChanged(int)",
    "GFIDExpertSliderChanged(int)",
    "GMSExpertSliderChanged(int)",
    "TINTExpertSliderChanged(int)",
    "AhcBlackGainlimSliderChanged(int)",
    "AhcWhiteGainlimSliderChanged(int)",
    "TempoFilterSliderChanged(int)",
    "gammaUserSendCommand()",
    "clheSendCommand()",
    "sharpeningSendCommand()",
    "ahcGainSendCommand()",
    "tempoFilterSendCommand()",
    "gskSendCommand()",
    "gfiSendCommand()",
    "gmsSendCommand()",
    "tintSendCommand()",
    "bprControlChanged()",
    "offsetControlChanged()",
    "gainControlChanged()",
    "shutterPositionChanged()",
    "AutoNucRequest()",
    "nucControlRequest()",
    "verticalFlipChanged()",
    "changeCameraBaudRate()",
    "getTemperature()",
    "monitoringSystem()",
    "roi1IncCheck()",
    "roi0ExcCheck()",
    "roi1ExcCheck()",
    "x1RoiUserValueChanged(int)",
    "x2RoiUserValueChanged(int)",
    "y1RoiUserValueChanged(int)",
    "y2RoiUserValueChanged(int)",
    "scanDevice()",
    "connectDevice()",
    "disconnectDevice()",
    "ChangeBaudRate()",
    "createAboutWindow()",
    "changePermanentButtonText()",
};

QStringList tabTitles(const QTabWidget& tabs)
{
    QStringList titles;
    for (int index = 0; index < tabs.count(); ++index) {
        titles.append(tabs.tabText(index));
    }
    return titles;
}

} // namespace

class TestWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSlotTableHasFiftyNineSlotsInOrder()
    {
        const QMetaObject& meta = MainWindow::staticMetaObject;
        QStringList found;
        for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
            const QMetaMethod method = meta.method(index);
            QCOMPARE(method.methodType(), QMetaMethod::Slot);
            QCOMPARE(method.access(), QMetaMethod::Public);
            QCOMPARE(method.returnType(), static_cast<int>(QMetaType::Void));
            found.append(QString::fromLatin1(method.methodSignature()));
        }
        QStringList expected;
        for (const char* const signature : slotTable) {
            expected.append(QString::fromLatin1(signature));
        }
        QCOMPARE(kit::Lines(found), expected);
        QCOMPARE(found.size(), 59);
    }

    void onlyScanAndTheEmptyPortListCanBeUsed()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.start();
        QVERIFY(user.enabled("scanDeviceButton"));
        QVERIFY(user.enabled("selectDeviceComboBox"));
        QCOMPARE(user.find<QComboBox>("selectDeviceComboBox").count(), 0);
        QVERIFY(user.enabled("BaudRateConnectCB"));
        QVERIFY(!user.enabled("connectDeviceButton"));
        QVERIFY(!user.enabled("disconnectDeviceButton"));
        QVERIFY(!user.enabled("resetParamButtonUser"));
        QVERIFY(!user.enabled("readParamButtonUser"));
        QVERIFY(!user.enabled("tabWidget"));
        QVERIFY(!user.monitoring());
    }

    void everyParameterTabIsGreyed()
    {
        kit::Operator user;
        user.sdk.configuration.expertMode = 1;
        auto& tabs = user.find<QTabWidget>("tabWidget");
        QCOMPARE(tabs.count(), 6);
        for (int index = 0; index < tabs.count(); ++index) {
            QVERIFY(!tabs.widget(index)->isEnabled());
        }
    }

    void theLogPaneIsEmptyAndNothingWasLogged()
    {
        kit::Operator user;
        user.start();
        QCOMPARE(user.text("logView"), QString());
        QVERIFY(user.sdk.records().empty());
    }

    void theSdkIsInitialisedOnceAndNoLinkIsMade()
    {
        kit::Operator user;
        user.start();
        QCOMPARE(user.calls(), kit::lines({"sdk.initialize()"}));
    }

    void theSdkIsInitialisedBeforeItsConfigurationIsAskedFor()
    {
        kit::Operator user;
        user.start();
        const QStringList calls = user.calls(recording::Show::Everything);
        const int initialised = static_cast<int>(calls.indexOf(QStringLiteral("sdk.initialize()")));
        QCOMPARE(initialised, 1);
        QCOMPARE(calls.first(), QStringLiteral("OmbrixSdk.get_instance()"));
        QVERIFY(calls.indexOf(QStringLiteral("sdk.getConfiguration()")) > initialised);
    }

    void theTitleNamesTheMakerAndTheProgram()
    {
        kit::Operator user;
        QCOMPARE(user.window().windowTitle(),
                 QStringLiteral("Halvorn Technologies OBKV camera Tavrel"));
    }

    void theLogosNamePicturesThatExist_data()
    {
        QTest::addColumn<QByteArray>("label");
        QTest::addColumn<QString>("picture");
        QTest::newRow("vendor") << QByteArray("HTLogo") << QStringLiteral("HalvornTech.png");
        QTest::newRow("product") << QByteArray("KVLogo") << QStringLiteral("OmbrixKV.png");
    }

    void theLogosNamePicturesThatExist()
    {
        QFETCH(QByteArray, label);
        QFETCH(QString, picture);
        kit::Operator user;
        QCOMPARE(user.text(label.constData()),
                 QStringLiteral("<html><head/><body><p><img src=:picture/%1/></p></body></html>")
                     .arg(picture));
        QVERIFY(!QPixmap(QStringLiteral(":/picture/") + picture).isNull());
    }

    void theLogosAreSeen_data() { theLogosNamePicturesThatExist_data(); }
    void theLogosAreSeen()
    {
        QFETCH(QByteArray, label);
        QFETCH(QString, picture);
        kit::Operator user;
        const QSize size = QPixmap(QStringLiteral(":/picture/") + picture).size();
        const QSize shown = user.widget(label.constData()).size();
        QVERIFY(shown.width() >= size.width());
        QVERIFY(shown.height() >= size.height());
    }

    void theExpertTabIsThereOnlyInExpertMode_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("present");
        QTest::newRow("off") << 0 << false;
        QTest::newRow("on") << 1 << true;
        QTest::newRow("another byte") << 2 << true;
    }

    void theExpertTabIsThereOnlyInExpertMode()
    {
        QFETCH(int, mode);
        QFETCH(bool, present);
        kit::Operator user;
        user.sdk.configuration.expertMode = static_cast<std::uint8_t>(mode);
        QStringList expected =
            kit::lines({"Image Processing", "LUT", "Zoom", "Edge", "Bad Pixels"});
        if (present) {
            expected.append(QStringLiteral("Expert"));
        }
        QCOMPARE(tabTitles(user.find<QTabWidget>("tabWidget")), expected);
    }

    void theFirstTabIsInFront()
    {
        kit::Operator user;
        QCOMPARE(user.find<QTabWidget>("tabWidget").currentIndex(), 0);
    }

    void theLinkRateIsTheConfigurations_data()
    {
        QTest::addColumn<int>("configured");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QStringList>("sent");
        QTest::newRow("as in the form") << 115200 << QStringLiteral("115200") << QStringList();
        // The list's handler is connected by then and passes the change on.
        QTest::newRow("the other one")
            << 9600 << QStringLiteral("9600") << kit::lines({"config.setBaudRate(9600)"});
        QTest::newRow("not in the list") << 57600 << QStringLiteral("115200") << QStringList();
    }

    void theLinkRateIsTheConfigurations()
    {
        QFETCH(int, configured);
        QFETCH(QString, shown);
        QFETCH(QStringList, sent);
        kit::Operator user;
        user.sdk.configuration.baudRate = configured;
        QCOMPARE(user.text("BaudRateConnectCB"), shown);
        QCOMPARE(user.calls(), kit::lines({"sdk.initialize()"}) + sent);
    }

    void aParentGetsTheWindowAsChild()
    {
        kit::Operator user;
        QWidget parent;
        auto* const window = new MainWindow(&parent);
        QCOMPARE(window->parentWidget(), &parent);
        QVERIFY(window->isWindow());
    }

    void theEndOfTheWindowLeavesCameraAndLinkAlone()
    {
        kit::Operator user;
        user.connectCamera();
        user.close();
        QCOMPARE(user.sdk.count("link.closeCamera"), 0);
        QCOMPARE(user.sdk.count("sdk.releaseSerialLink"), 0);
    }

    void anEditorInUseSendsNothingWhenTheSessionEnds_data()
    {
        QTest::addColumn<QByteArray>("editor");
        QTest::newRow("region") << QByteArray("Roi0IncX1");
        QTest::newRow("value") << QByteArray("gammaEdit");
    }

    void anEditorInUseSendsNothingWhenTheSessionEnds()
    {
        QFETCH(QByteArray, editor);
        kit::Operator user;
        user.connectCamera();
        user.click(editor.constData());
        QVERIFY(user.widget(editor.constData()).hasFocus());
        user.forget();
        user.endSession();
        QVERIFY(user.sdk.calls().empty());
        QVERIFY(user.sdk.records().empty());
    }
};

TAVREL_TEST_MAIN(TestWindow)
#include "tst_window.moc"
