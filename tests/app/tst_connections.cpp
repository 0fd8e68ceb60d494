// SPDX-License-Identifier: MIT
// Every signal connection of the window, row by row: that it is there once, in its form, and that a
// real emission reaches its handler.
#include "tests/params/pairrows.h"
#include "tests/params/switchrows.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QTimer>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTabBar>

#include <functional>

namespace {

using kit::Operator;

using Pair = pairrows::Row;
using pairrows::rows;

struct Field {
    const char* spinBox;
    const char* sent;
};

// The fields of all four regions, which are enabled.
const Field regionFields[] = {
    {"Roi0IncX1", "camera.setRoiX1(10, 0, true, true, true)"},
    {"Roi0IncX2", "camera.setRoiX2(110, 0, true, true, true)"},
    {"Roi0IncY1", "camera.setRoiY1(15, 0, true, true, true)"},
    {"Roi0IncY2", "camera.setRoiY2(115, 0, true, true, true)"},
    {"Roi1IncX1", "camera.setRoiX1(30, 2, true, true, true)"},
    {"Roi1IncX2", "camera.setRoiX2(130, 2, true, true, true)"},
    {"Roi1IncY1", "camera.setRoiY1(35, 2, true, true, true)"},
    {"Roi1IncY2", "camera.setRoiY2(135, 2, true, true, true)"},
    {"Roi0ExcX1", "camera.setRoiX1(20, 1, true, true, true)"},
    {"Roi0ExcX2", "camera.setRoiX2(120, 1, true, true, true)"},
    {"Roi0ExcY1", "camera.setRoiY1(25, 1, true, true, true)"},
    {"Roi0ExcY2", "camera.setRoiY2(125, 1, true, true, true)"},
    {"Roi1ExcX1", "camera.setRoiX1(40, 3, true, true, true)"},
    {"Roi1ExcX2", "camera.setRoiX2(140, 3, true, true, true)"},
    {"Roi1ExcY1", "camera.setRoiY1(45, 3, true, true, true)"},
    {"Roi1ExcY2", "camera.setRoiY2(145, 3, true, true, true)"},
};

void sends(Operator& user, std::initializer_list<const char*> calls)
{
    QCOMPARE(user.calls(), kit::lines(calls));
}

void logsOnce(Operator& user, const char* line)
{
    QCOMPARE(user.newLog().count(QLatin1String(line)), 1);
}

/// Declares or undeclares at x 12, y 34; the call must carry this operation and these coordinates.
void editsTable(Operator& user, const char* button, const char* operation, const char* coordinates)
{
    user.click("readBPRTableButton");
    user.type("xBadPixelCoordinate", "12");
    user.type("yBadPixelCoordinate", "34");
    user.rest();
    user.click(button);
    const QStringList calls = user.calls();
    QCOMPARE(calls.size(), 1);
    QVERIFY(calls.first().startsWith(QLatin1String(operation)));
    QVERIFY(calls.first().endsWith(QLatin1String(coordinates)));
}

struct Control {
    const char* sender;
    const char* signal;
    /// What the operator does on a connected window, and what must come of it.
    std::function<void(Operator&)> proof;
};

Control commandButton(const char* button, const QString& call)
{
    return {button, SIGNAL(clicked(bool)), [=](Operator& user) {
                user.click(button);
                QCOMPARE(user.calls(), QStringList(call));
            }};
}

Control list(const char* combo, const char* entry, const char* call)
{
    return {combo, SIGNAL(currentIndexChanged(int)), [=](Operator& user) {
                user.choose(combo, entry);
                sends(user, {call});
            }};
}

Control regionEnable(const char* checkBox, const char* field)
{
    return {checkBox, SIGNAL(stateChanged(int)), [=](Operator& user) {
                QVERIFY(user.enabled(field));
                user.click(checkBox);
                QVERIFY(!user.enabled(field));
                user.click(checkBox);
                QVERIFY(user.enabled(field));
            }};
}

Control logButton(const char* button, const char* line)
{
    return {button, SIGNAL(clicked(bool)), [=](Operator& user) {
                user.click(button);
                logsOnce(user, line);
            }};
}

Control tableEdit(const char* button, const char* operation, const char* coordinates)
{
    return {button, SIGNAL(clicked(bool)), [=](Operator& user) {
                editsTable(user, button, operation, coordinates);
            }};
}

const char* const clicked = SIGNAL(clicked(bool));

const std::vector<Control>& otherControls()
{
    static const std::vector<Control> all = {
        logButton("resetParamButtonUser", "Start applying camera parameters"),
        logButton("readParamButtonUser", "Start reading camera parameters"),
        logButton("readParamButtonExpert", "Start reading camera expert parameters"),
        {"scanDeviceButton", clicked,
         [](Operator& user) {
             user.click("disconnectDeviceButton");
             user.ports.plug(QStringLiteral("ttyUSB7"));
             user.click("scanDeviceButton");
             QCOMPARE(user.find<QComboBox>("selectDeviceComboBox").count(), 2);
         }},
        {"connectDeviceButton", clicked,
         [](Operator& user) {
             user.click("disconnectDeviceButton");
             user.forget();
             user.click("connectDeviceButton");
             QCOMPARE(user.sdk.count("camera.connect"), 1);
         }},
        {"disconnectDeviceButton", clicked,
         [](Operator& user) {
             user.click("disconnectDeviceButton");
             sends(user, {"link.closeCamera(camera 1)", "sdk.releaseSerialLink(link 1)"});
         }},
        {"PermanentButton", clicked,
         [](Operator& user) {
             user.click("PermanentButton");
             QCOMPARE(user.text("PermanentButton"), QStringLiteral("Permanent"));
         }},
        {"AboutButton", clicked,
         [](Operator& user) {
             user.expectBox(
                 {.kind = kit::Box::Dialog, .title = "About", .answer = kit::Box::Frame});
             user.click("AboutButton");
             QCOMPARE(user.boxesAwaited(), 0);
         }},
        {"clearLogButton", clicked,
         [](Operator& user) {
             QVERIFY(!user.log().isEmpty());
             user.click("clearLogButton");
             QVERIFY(user.log().isEmpty());
         }},
        commandButton("userNucRequest", QStringLiteral("camera.requestNuc(0)")),
        commandButton("autoNucPB", QStringLiteral("camera.requestNuc(1)")),
        commandButton("shutterCtrlPB", QStringLiteral("camera.setShutterPosition(true)")),
        {"configureZoomPB", clicked,
         [](Operator& user) {
             user.click("configureZoomPB");
             QCOMPARE(user.calls().value(0),
                      QStringLiteral("camera.configureZoomResolution(720, 576)"));
         }},
        {"configureZoomPB", clicked,
         [](Operator& user) {
             user.click("configureZoomPB");
             QCOMPARE(user.calls().value(1),
                      QStringLiteral("camera.configureZoom(1, 320, 240, 0)"));
             QCOMPARE(user.calls().size(), 2);
         }},
        commandButton("readBPRTableButton", QStringLiteral("camera.readTableData(4096, 8192, 9)")),
        {"writeBPRTableButton", clicked,
         [](Operator& user) {
             user.expectBox({.title = "BP table", .text = "No BP table file found."});
             user.click("writeBPRTableButton");
             QCOMPARE(user.boxesAwaited(), 0);
         }},
        {"resetBPRTableButton", clicked,
         [](Operator& user) {
             user.click("readBPRTableButton");
             user.click("resetBPRTableButton");
             logsOnce(user, "BP table reset succeed.");
         }},
        tableEdit("addBadPixelButton", "camera.addBadPixels(", ", 12, 34)"),
        tableEdit("addBadPixelLineButton", "camera.addBadPixels(", ", 4294967295, 34)"),
        tableEdit("addBadPixelColumnButton", "camera.addBadPixels(", ", 12, 4294967295)"),
        tableEdit("removeBadPixelButton", "camera.removeBadPixels(", ", 12, 34)"),
        tableEdit("removeBadPixelLineButton", "camera.removeBadPixels(", ", 4294967295, 34)"),
        tableEdit("removeBadPixelColumnButton", "camera.removeBadPixels(", ", 12, 4294967295)"),
        commandButton("applyBaudrateBP", QStringLiteral("camera.setBaudRate(115200, false)")),
        regionEnable("roi1IncEnable", "Roi1IncX1"),
        regionEnable("roi0ExcEnable", "Roi0ExcX1"),
        regionEnable("roi1ExcEnable", "Roi1ExcX1"),
        list("BaudRateConnectCB", "9600", "config.setBaudRate(9600)"),
        list("VideoOutputCB", "NUC", "camera.setVideoOutput(1)"),
        list("frameRateCB", "60Hz", "camera.setFrameRate(60)"),
        list("contrastTypeEdit", "CLAHE (Local)", "camera.configureContrastType(1)"),
        list("lutColorEdit", "HOT", "camera.setColorLut(2)"),
        list("EdgeCorrectionCB", "Contouring", "camera.configureEdgeCorrection(2, 10, 20)"),
    };
    return all;
}

// Switches, buttons, check boxes and lists.
const std::vector<Control>& controls()
{
    static const std::vector<Control> all = [] {
        std::vector<Control> switches;
        for (const switchrows::Row& row : switchrows::rows) {
            switches.push_back(commandButton(row.button, row.call(true)));
        }
        const std::vector<Control>& others = otherControls();
        switches.insert(switches.end(), others.begin(), others.end());
        return switches;
    }();
    return all;
}

/// A connected window with the Expert tab and all four regions enabled.
void connectEverything(Operator& user)
{
    user.sdk.configuration.expertMode = 1;
    user.sdk.camera.regions = {
        {{10, 110, 15, 115}, {20, 120, 25, 125}, {30, 130, 35, 135}, {40, 140, 45, 145}}};
    pairrows::begin(user.sdk.camera);
    user.connectCamera();
}

double spinBoxValue(Operator& user, const char* name)
{
    QWidget& spinBox = user.widget(name);
    if (const auto* const fractional = qobject_cast<QDoubleSpinBox*>(&spinBox)) {
        return fractional->value();
    }
    return user.find<QSpinBox>(name).value();
}

/// How many connections a signal has.
int connectionsOf(const QObject& sender, const char* signal)
{
    struct Access : QObject {
        using QObject::receivers;
    };
    return (sender.*&Access::receivers)(signal);
}

/// The rows of the table by sender and signal.
QMap<QPair<QString, QString>, int> connectionCounts()
{
    QMap<QPair<QString, QString>, int> counts;
    const auto add = [&](const char* sender, const char* signal) {
        ++counts[{QString::fromLatin1(sender), QString::fromLatin1(signal)}];
    };
    for (const Pair& pair : rows) {
        add(pair.slider, SIGNAL(valueChanged(int)));
        add(pair.slider, SIGNAL(sliderReleased()));
        add(pair.spinBox, pair.spinBoxSignal);
        add(pair.spinBox, SIGNAL(editingFinished()));
    }
    for (const Field& field : regionFields) {
        add(field.spinBox, SIGNAL(editingFinished()));
    }
    for (const Control& control : controls()) {
        add(control.sender, control.signal);
    }
    return counts;
}

} // namespace

class TestConnections : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void besideSwitchesAndPairsTheTableHasFiftyRows()
    {
        constexpr int connectionsOfAPair = 4;
        int rows = 1 - static_cast<int>(std::size(switchrows::rows)) -
                   connectionsOfAPair * static_cast<int>(std::size(pairrows::rows)); // 1: the timer
        const auto counts = connectionCounts();
        for (const int count : counts) {
            rows += count;
        }
        QCOMPARE(rows, 50);
    }

    void eachSignalIsConnectedAsOftenAsTheTableSays()
    {
        Operator user;
        user.start();
        const auto counts = connectionCounts();
        for (auto row = counts.begin(); row != counts.end(); ++row) {
            const QByteArray sender = row.key().first.toLatin1();
            const QByteArray signal = row.key().second.toLatin1();
            QVERIFY2(connectionsOf(user.widget(sender.constData()), signal.constData()) ==
                         row.value(),
                     sender + signal);
        }
        QCOMPARE(connectionsOf(user.timer(), SIGNAL(timeout())), 1);
    }

    void everyConnectionOfTheWindowHasARow()
    {
        Operator user;
        user.sdk.configuration.expertMode = 1;
        user.start();
        const auto counts = connectionCounts();
        static const char* const signalsOfControls[] = {
            SIGNAL(clicked(bool)),
            SIGNAL(toggled(bool)),
            SIGNAL(stateChanged(int)),
            SIGNAL(pressed()),
            SIGNAL(released()),
            SIGNAL(valueChanged(int)),
            SIGNAL(sliderReleased()),
            SIGNAL(sliderMoved(int)),
            SIGNAL(valueChanged(double)),
            SIGNAL(editingFinished()),
            SIGNAL(textChanged(QString)),
            SIGNAL(currentIndexChanged(int)),
            SIGNAL(activated(int)),
            SIGNAL(highlighted(int)),
            SIGNAL(currentTextChanged(QString)),
        };
        for (const QWidget* const widget : user.window().findChildren<QWidget*>()) {
            const QString name = widget->objectName();
            // What the toolkit puts inside its own widgets.
            if (name.isEmpty() || name.startsWith(QLatin1String("qt_")) ||
                qobject_cast<QTabBar*>(widget->parentWidget()) != nullptr) {
                continue;
            }
            for (const char* const signal : signalsOfControls) {
                if (widget->metaObject()->indexOfSignal(signal + 1) >= 0) {
                    QVERIFY2(connectionsOf(*widget, signal) ==
                                 counts.value({name, QString::fromLatin1(signal)}),
                             qPrintable(name + QString::fromLatin1(signal)));
                }
            }
        }
    }

    void controlsWithoutARowAreConnectedToNothing()
    {
        Operator user;
        user.start();
        QCOMPARE(connectionsOf(user.widget("checkBox"), SIGNAL(stateChanged(int))), 0);
        QCOMPARE(connectionsOf(user.widget("checkBox"), SIGNAL(clicked(bool))), 0);
        QCOMPARE(connectionsOf(user.widget("bpGraphicEditorButton"), SIGNAL(clicked(bool))), 0);
        QCOMPARE(
            connectionsOf(user.widget("selectDeviceComboBox"), SIGNAL(currentIndexChanged(int))),
            0);
        QCOMPARE(connectionsOf(user.widget("BaudRateCB"), SIGNAL(currentIndexChanged(int))), 0);
        QCOMPARE(connectionsOf(user.widget("methodZoomEdit"), SIGNAL(currentIndexChanged(int))), 0);
        for (const char* const spinBox :
             {"xCenterZoomEdit", "yCenterZoomEdit", "xResolutionZoomEdit", "yResolutionZoomEdit",
              "factorZoomEdit", "xBadPixelCoordinate", "yBadPixelCoordinate"}) {
            QCOMPARE(connectionsOf(user.widget(spinBox), SIGNAL(editingFinished())), 0);
        }
    }

    void thePairsAreConnectedByValidSignatureTexts_data()
    {
        QTest::addColumn<QByteArray>("sender");
        QTest::addColumn<QByteArray>("signal");
        QTest::addColumn<QByteArray>("slot");
        for (const Pair& pair : rows) {
            if (pair.sendSlot == nullptr) {
                continue;
            }
            QTest::addRow("%s moved", pair.slider)
                << QByteArray(pair.slider) << QByteArray(SIGNAL(valueChanged(int)))
                << QByteArray(pair.sliderSlot);
            QTest::addRow("%s released", pair.slider)
                << QByteArray(pair.slider) << QByteArray(SIGNAL(sliderReleased()))
                << QByteArray(pair.sendSlot);
            QTest::addRow("%s changed", pair.spinBox)
                << QByteArray(pair.spinBox) << QByteArray(pair.spinBoxSignal)
                << QByteArray(pair.spinBoxSlot);
            QTest::addRow("%s finished", pair.spinBox)
                << QByteArray(pair.spinBox) << QByteArray(SIGNAL(editingFinished()))
                << QByteArray(pair.sendSlot);
        }
    }

    void thePairsAreConnectedByValidSignatureTexts()
    {
        QFETCH(QByteArray, sender);
        QFETCH(QByteArray, signal);
        QFETCH(QByteArray, slot);
        Operator user;
        user.start();
        // Only a connection that was made by texts can be undone by texts.
        QVERIFY(QObject::disconnect(&user.widget(sender.constData()), signal.constData(),
                                    &user.window(), slot.constData()));
        QVERIFY(!QObject::disconnect(&user.widget(sender.constData()), signal.constData(),
                                     &user.window(), slot.constData()));
    }

    void theRestIsConnectedByPointers()
    {
        Operator user;
        user.start();
        const QMetaObject& meta = MainWindow::staticMetaObject;
        for (const Control& control : controls()) {
            for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
                const QByteArray slot = "1" + meta.method(index).methodSignature();
                if (slot.endsWith("()")) {
                    QVERIFY2(!QObject::disconnect(&user.widget(control.sender), control.signal,
                                                  &user.window(), slot.constData()),
                             control.sender);
                }
            }
        }
        QVERIFY(!QObject::disconnect(&user.timer(), SIGNAL(timeout()), &user.window(),
                                     SLOT(monitoringSystem())));
    }

    void theTimerReachesTheMonitoring()
    {
        Operator user;
        connectEverything(user);
        QTRY_VERIFY(user.sdk.count("camera.getTemperatures") >= 1);
    }

    void aMovedSliderMovesItsSpinBox_data() { addPairs(); }
    void aMovedSliderMovesItsSpinBox()
    {
        const Pair& pair = rows[row()];
        Operator user;
        connectEverything(user);
        const double before = spinBoxValue(user, pair.spinBox);
        user.press(pair.slider, Qt::Key_Left);
        const double expected = user.sliderValue(pair.slider) * pair.scale + pair.offset;
        QVERIFY(!qFuzzyCompare(spinBoxValue(user, pair.spinBox), before));
        QCOMPARE(spinBoxValue(user, pair.spinBox), expected);
        QCOMPARE(user.calls(), QStringList());
    }

    void aReleasedSliderSends_data() { addPairs(); }
    void aReleasedSliderSends()
    {
        const Pair& pair = rows[row()];
        Operator user;
        connectEverything(user);
        user.dragAndRelease(pair.slider, user.sliderValue(pair.slider));
        sends(user, {pair.asRead});
    }

    void aChangedSpinBoxMovesItsSlider_data() { addPairs(); }
    void aChangedSpinBoxMovesItsSlider()
    {
        const Pair& pair = rows[row()];
        Operator user;
        connectEverything(user);
        const int before = user.sliderValue(pair.slider);
        user.press(pair.spinBox, Qt::Key_Down);
        const int expected = qRound((spinBoxValue(user, pair.spinBox) - pair.offset) / pair.scale);
        QVERIFY(user.sliderValue(pair.slider) != before);
        QCOMPARE(user.sliderValue(pair.slider), expected);
        QCOMPARE(user.calls(), QStringList());
    }

    void aFinishedSpinBoxSends_data() { addPairs(); }
    void aFinishedSpinBoxSends()
    {
        const Pair& pair = rows[row()];
        Operator user;
        connectEverything(user);
        user.press(pair.spinBox, Qt::Key_Tab);
        sends(user, {pair.asRead});
    }

    void aFinishedRegionFieldSendsItsCoordinateAndRegion_data()
    {
        QTest::addColumn<int>("row");
        int number = 0;
        for (const Field& field : regionFields) {
            QTest::newRow(field.spinBox) << number++;
        }
    }

    void aFinishedRegionFieldSendsItsCoordinateAndRegion()
    {
        const Field& field = regionFields[row()];
        Operator user;
        connectEverything(user);
        user.press(field.spinBox, Qt::Key_Tab);
        sends(user, {field.sent});
    }

    void theControlReachesItsHandler_data()
    {
        QTest::addColumn<int>("row");
        int number = 0;
        for (const Control& control : controls()) {
            QTest::addRow("%d %s", number + 1, control.sender) << number;
            ++number;
        }
    }

    void theControlReachesItsHandler()
    {
        Operator user;
        connectEverything(user);
        controls().at(static_cast<std::size_t>(row())).proof(user);
    }

private:
    static void addPairs()
    {
        QTest::addColumn<int>("row");
        int number = 0;
        for (const Pair& pair : rows) {
            QTest::newRow(pair.slider) << number++;
        }
    }

    static int row()
    {
        QFETCH(int, row);
        return row;
    }
};

TAVREL_TEST_MAIN(TestConnections)
#include "tst_connections.moc"
