// SPDX-License-Identifier: MIT
// The tool's own window with the simulated camera behind it: what an operator sees under each of
// the plans that come along, and tables that travel to the camera and back.
#include "app/mainwindow.h"
#include "tests/kit/boxes.h"
#include "tests/kit/ports.h"
#include "tests/kit/warnings.h"
#include "tests/simulator/scene.h"
#include "tests/simulator/table.h"

#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTabWidget>

#include <memory>

using kit::Box;

namespace {

const QString workingCopy = QStringLiteral("bpr/bpr_SN20417.bin");
const QString backup = QStringLiteral("bprBackup/bpr_SN20417.bin");

/// An operator at the window with one camera plugged in.
class Session {
public:
    /// plan: name of one that comes along, without its ending; empty: none. Waiting takes no time.
    explicit Session(const QString& plan = {})
    {
        if (!plan.isEmpty()) {
            scene::Scene::setVariable(
                "TAVREL_SIMULATOR_PLAN",
                QStringLiteral(TAVREL_SOURCE_DIR "/simulator/plans/%1.ini").arg(plan));
        }
        scene.restart("[simulator]\nmanualClock=true\n");
        ports.plug(QStringLiteral("ttyUSB0"));
        window = std::make_unique<MainWindow>();
        window->show();
    }

    ~Session()
    {
        boxes.settle();
        window.reset();
        warnings.settle();
    }

    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    template<typename Widget> Widget& find(const char* name) const
    {
        auto* const found = window->findChild<Widget*>(QLatin1String(name));
        if (found == nullptr) {
            qFatal("no widget %s", name);
        }
        return *found;
    }

    void click(const char* name)
    {
        auto& button = find<QAbstractButton>(name);
        auto& tabs = find<QTabWidget>("tabWidget");
        for (int index = 0; index < tabs.count(); ++index) {
            if (tabs.widget(index)->isAncestorOf(&button)) {
                tabs.setCurrentIndex(index);
            }
        }
        QVERIFY2(button.isEnabled(), name);
        QTest::mouseClick(&button, Qt::LeftButton);
    }

    void connectCamera()
    {
        click("scanDeviceButton");
        click("connectDeviceButton");
    }

    bool isConnected() const { return find<QAbstractButton>("disconnectDeviceButton").isEnabled(); }

    /// Lines of the log pane since the last call.
    QStringList newLog()
    {
        const QStringList lines = find<QPlainTextEdit>("logView").toPlainText().split(
            QLatin1Char('\n'), Qt::SkipEmptyParts);
        const QStringList fresh = lines.mid(logRead);
        logRead = lines.size();
        return fresh;
    }

    /// Lets the monitoring tick fast and waits until it stops by itself.
    void waitForTheEndOfMonitoring() const
    {
        auto* const timer = window->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        timer->setInterval(10);
        QTRY_VERIFY(!timer->isActive());
    }

    void typeCoordinates(int x, int y) const
    {
        find<QSpinBox>("xBadPixelCoordinate").setValue(x);
        find<QSpinBox>("yBadPixelCoordinate").setValue(y);
    }

    scene::Scene scene;
    kit::Boxes boxes;

private:
    kit::Warnings warnings;
    kit::Ports ports;
    std::unique_ptr<MainWindow> window;
    decltype(QStringList().size()) logRead = 0;
};

QString quoted(const char* text)
{
    return QString::fromUtf8(text);
}

} // namespace

class TestTool : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutAPlanTheToolConnectsAndReadsEverything()
    {
        Session user;
        user.connectCamera();
        QVERIFY(user.isConnected());
        const QStringList log = user.newLog();
        QVERIFY(log.contains(quoted("Serial number = 20417")));
        QVERIFY(log.contains(quoted("FPGA version = 2.0.7 MIPI 60Hz")));
        QVERIFY(log.contains(quoted("AHC white gain limitation = 80")));
        QVERIFY(log.contains(quoted("Second threshold = 55")));
        QCOMPARE(log.last(), quoted("End reading camera expert parameters"));
        QVERIFY(log.filter(quoted("KO")).isEmpty());
    }

    // ---- connection

    void noCamera()
    {
        Session user(QStringLiteral("no-camera"));
        user.boxes.expect({Box::About, "Invalid communication", "Select an other serial port"});
        user.connectCamera();
        QVERIFY(!user.isConnected());
    }

    void notUart()
    {
        Session user(QStringLiteral("not-uart"));
        user.boxes.expect({Box::About, "Invalid communication", "Select an other serial port"});
        user.connectCamera();
        QCOMPARE(user.newLog(), QStringList());
    }

    void silentCamera()
    {
        Session user(QStringLiteral("silent-camera"));
        user.connectCamera();
        QCOMPARE(user.newLog(), QStringList({quoted("ALTERNATIVE SERIAL PORT : ttyUSB0"),
                                             quoted("No camera connected")}));
        QVERIFY(!user.isConnected());
    }

    void unreadParameters()
    {
        Session user(QStringLiteral("unread-parameters"));
        user.boxes.expect({Box::About, "Camera not connected", "Unable to connect to ttyUSB0"});
        user.connectCamera();
        QVERIFY(user.newLog().contains(quoted("End Read camera parameters : COM Error")));
        QVERIFY(!user.isConnected());
    }

    void temperatureLost()
    {
        Session user(QStringLiteral("temperature-lost"));
        user.connectCamera();
        user.waitForTheEndOfMonitoring();
        QVERIFY(user.isConnected());
        user.newLog();
        user.click("polarityButton");
        QCOMPARE(user.newLog(), QStringList(quoted("Set POLARITY value OK")));
    }

    void hangUp()
    {
        Session user(QStringLiteral("hang-up"));
        user.connectCamera();
        user.waitForTheEndOfMonitoring();
        user.newLog();
        user.click("polarityButton");
        QCOMPARE(user.newLog(), QStringList(quoted("Set POLARITY value KO")));
    }

    void slow()
    {
        Session user(QStringLiteral("slow"));
        user.connectCamera();
        QVERIFY(user.isConnected());
    }

    // ---- parameters

    void ahcUnreadable()
    {
        Session user(QStringLiteral("ahc-unreadable"));
        user.connectCamera();
        QVERIFY(user.isConnected());
        QVERIFY(user.newLog().contains(quoted("AHC gain limitation read error")));
    }

    void refuseEverything()
    {
        Session user(QStringLiteral("refuse-everything"));
        user.connectCamera();
        QVERIFY(user.isConnected());
        user.newLog();
        user.click("polarityButton");
        user.click("configureZoomPB");
        user.click("applyBaudrateBP");
        QCOMPARE(
            user.newLog(),
            QStringList({quoted("Set POLARITY value KO"), quoted("Configure ZOOM RESOLUTION KO"),
                         quoted("Configure Zoom KO"), quoted("Set baud rate value KO")}));
        QCOMPARE(user.find<QAbstractButton>("polarityButton").text(),
                 quoted("Invert Polarity: Deactivated"));
    }

    void oddAnswers()
    {
        Session user(QStringLiteral("odd-answers"));
        user.connectCamera();
        user.newLog();
        user.click("polarityButton");
        user.click("userNucRequest");
        QCOMPARE(user.newLog(),
                 QStringList({quoted("Set POLARITY value OK"), quoted("NUC applied")}));
    }

    void unreliable()
    {
        Session user(QStringLiteral("unreliable"));
        user.connectCamera();
        user.newLog();
        for (int click = 0; click < 40; ++click) {
            user.click("polarityButton");
        }
        const QStringList log = user.newLog();
        QCOMPARE(log.size(), 40);
        QVERIFY(log.contains(quoted("Set POLARITY value OK")));
        QVERIFY(log.contains(quoted("Set POLARITY value KO")));
    }

    void baudRateRefused()
    {
        Session user(QStringLiteral("baud-rate-refused"));
        user.connectCamera();
        user.newLog();
        user.click("applyBaudrateBP");
        QCOMPARE(user.newLog(), QStringList(quoted("Set baud rate value KO")));
    }

    void nucRefused()
    {
        Session user(QStringLiteral("nuc-refused"));
        user.connectCamera();
        user.newLog();
        user.boxes.expect({Box::Warning, "", "Error on processing the NUC request"});
        user.click("userNucRequest");
        user.click("nucEnablingButton");
        QCOMPARE(user.newLog(), QStringList(quoted("Set NUC control value KO")));
    }

    void shutterRefused()
    {
        Session user(QStringLiteral("shutter-refused"));
        user.connectCamera();
        user.newLog();
        user.click("shutterCtrlPB");
        QCOMPARE(user.newLog(), QStringList(quoted("Set shutter position KO")));
        QVERIFY(!user.find<QAbstractButton>("shutterCtrlPB").isChecked());
    }

    void shutterUnreadable()
    {
        Session user(QStringLiteral("shutter-unreadable"));
        user.connectCamera();
        QVERIFY(user.newLog().contains(quoted("Unable to get shutter position")));
        QVERIFY(user.isConnected());
    }

    // ---- bad pixels

    void tableUnreadable()
    {
        Session user(QStringLiteral("table-unreadable"));
        user.connectCamera();
        user.boxes.expect(
            {Box::About, "BPR table", "BPR table not read correctly (error code = -3)"});
        user.click("readBPRTableButton");
        QVERIFY(!user.scene.exists(workingCopy));
    }

    void editsRefused()
    {
        Session user(QStringLiteral("edits-refused"));
        user.connectCamera();
        user.click("readBPRTableButton");
        const QByteArray map = user.scene.read(workingCopy);
        user.newLog();
        user.typeCoordinates(3, 4);
        user.boxes.expect({Box::About, "Bad pixel failure",
                           "Unable to add line of bad pixels to table. Either bad pixel table "
                           "doesn't exist or too much bad pixels in table to add a pixel."});
        user.click("addBadPixelButton");
        user.click("removeBadPixelButton");
        QCOMPARE(user.newLog(), QStringList(quoted("Unable to remove pixel X:3 Y: 4.")));
        QCOMPARE(user.scene.read(workingCopy), map);
    }

    void aWriteGoesWrongAsPlanned_data()
    {
        QTest::addColumn<QString>("plan");
        QTest::addColumn<QString>("found");
        QTest::addColumn<QByteArray>("title");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("unwritable")
            << quoted("table-unwritable") << quoted("37") << QByteArray("BP table")
            << QByteArray("BP table not written correctly");
        QTest::newRow("too many") << quoted("too-many-bad-pixels") << quoted("1025")
                                  << QByteArray("Treatment issue")
                                  << QByteArray("Can't write this BPR table into camera, too many "
                                                "bad pixels.");
        QTest::newRow("missing") << quoted("treatment-missing") << quoted("0")
                                 << QByteArray("BP table")
                                 << QByteArray("Unable to open replbp.bin");
        QTest::newRow("empty") << quoted("treatment-empty") << quoted("0") << QByteArray("BP table")
                               << QByteArray("replbp.bin file size is NULL");
        QTest::newRow("long") << quoted("treatment-long") << quoted("0") << QByteArray("BP table")
                              << QByteArray("Unable to read replbp.bin");
    }

    void aWriteGoesWrongAsPlanned()
    {
        QFETCH(QString, plan);
        QFETCH(QString, found);
        QFETCH(QByteArray, title);
        QFETCH(QByteArray, text);
        Session user(plan);
        user.connectCamera();
        user.click("readBPRTableButton");
        user.newLog();
        user.boxes.expect({Box::About, title.toStdString(), text.toStdString()});
        user.click("writeBPRTableButton");
        QCOMPARE(user.newLog(), QStringList(quoted("Bad pixels found %1 < 1024").arg(found)));
    }

    void aTableTravelsToTheCameraAndBack()
    {
        Session user;
        user.connectCamera();
        user.click("readBPRTableButton");
        const QByteArray factory = user.scene.read(backup);
        QCOMPARE(table::pixelsOf(factory).size(), 37);

        user.typeCoordinates(0, 0);
        user.click("addBadPixelButton");
        user.typeCoordinates(0, 100);
        user.click("addBadPixelLineButton");
        const QByteArray edited = user.scene.read(workingCopy);
        QVERIFY(table::pixelsOf(edited).size() > 670);
        user.click("writeBPRTableButton");
        user.click("readBPRTableButton");
        QCOMPARE(user.scene.read(workingCopy), edited);

        user.click("resetBPRTableButton");
        QCOMPARE(user.scene.read(workingCopy), factory);
        user.newLog();
        user.click("writeBPRTableButton");
        user.click("readBPRTableButton");
        QCOMPARE(user.scene.read(workingCopy), factory);
        QVERIFY(user.newLog().contains(quoted("Table containing : 37 Bad Pixels")));
    }

    void aTableWithASingleBadPixelOrNoneTravelsToo()
    {
        Session user;
        user.connectCamera();
        user.click("readBPRTableButton");
        for (const QVector<int>& pixels : {QVector<int>{}, QVector<int>{0}, QVector<int>{4711}}) {
            const QByteArray map = table::mapOf(pixels);
            user.scene.write(workingCopy, map);
            user.click("writeBPRTableButton");
            user.click("readBPRTableButton");
            QCOMPARE(user.scene.read(workingCopy), map);
        }
    }

    // ---- baud rates

    void aCameraAtAnotherRateIsFoundAtThatRate()
    {
        Session user;
        user.connectCamera();
        user.find<QComboBox>("BaudRateCB").setCurrentText(quoted("9600"));
        user.newLog();
        user.click("applyBaudrateBP");
        QCOMPARE(user.newLog(), QStringList(quoted("Set baud rate value OK")));
        user.click("polarityButton");
        QCOMPARE(user.newLog(), QStringList(quoted("Set POLARITY value KO")));
        user.click("disconnectDeviceButton");
        user.boxes.expect({Box::About, "Invalid communication", "Select an other serial port"});
        user.click("connectDeviceButton");
        user.find<QComboBox>("BaudRateConnectCB").setCurrentText(quoted("9600"));
        user.click("connectDeviceButton");
        QVERIFY(user.isConnected());
    }
};

int main(int argc, char* argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    TestTool test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_tool.moc"
