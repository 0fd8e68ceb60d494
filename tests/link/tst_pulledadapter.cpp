// SPDX-License-Identifier: MIT
// The adapter is pulled while the operator is in the middle of something: nothing reaches the
// camera that is closed, nothing is logged about it, and no box comes on its account.
#include "tests/link/connectionstate.h"
#include "tests/params/pairrows.h"

#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QSlider>

#include <cmath>

namespace {

using Pair = pairrows::Row;

/// Connected through ttyUSB0 beside a port that stays, every tab and field in reach.
void connectCamera(kit::Operator& user)
{
    user.sdk.configuration.expertMode = 1;
    user.sdk.camera.regions = {
        {{10, 110, 15, 115}, {20, 120, 25, 125}, {30, 130, 35, 135}, {40, 140, 45, 145}}};
    pairrows::begin(user.sdk.camera);
    user.ports.plug(QStringLiteral("ttyUSB0"));
    user.ports.plug(QStringLiteral("ttyUSB1"));
    user.connectCamera();
    user.rest();
}

/// Whether the window noticed in time that the port is gone.
bool pullTheAdapter(kit::Operator& user)
{
    user.hurry();
    user.ports.unplug(QStringLiteral("ttyUSB0"));
    return QTest::qWaitFor([&] { return kit::usable(user) == kit::disconnected(); });
}

QStringList theCameraIsGivenBack()
{
    return kit::lines({"link.closeCamera(camera 1)", "sdk.releaseSerialLink(link 1)"});
}

double valueOf(kit::Operator& user, const char* spinBox)
{
    return user.widget(spinBox).property("value").toDouble();
}

QStringList pairsApart(kit::Operator& user)
{
    constexpr double lessThanAStep = 0.01;
    QStringList apart;
    for (const Pair& pair : pairrows::rows) {
        const double slider = user.sliderValue(pair.slider) * pair.scale + pair.offset;
        if (std::abs(slider - valueOf(user, pair.spinBox)) > lessThanAStep) {
            apart << QLatin1String(pair.slider);
        }
    }
    return apart;
}

} // namespace

class TestPulledAdapter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // ---- what locking the parameters sets off

    void theCursorInAnyFieldSendsNothing_data() { everyField(); }

    void theCursorInAnyFieldSendsNothing()
    {
        QFETCH(QByteArray, field);
        kit::Operator user;
        connectCamera(user);
        user.click(field);
        QVERIFY(user.widget(field).hasFocus());
        user.forget();
        QVERIFY(pullTheAdapter(user));
        QCOMPARE(user.calls(), theCameraIsGivenBack());
        QCOMPARE(user.newLog(), QStringList());
    }

    void aHalfTypedNumberIsDropped_data() { everyField(); }

    void aHalfTypedNumberIsDropped()
    {
        QFETCH(QByteArray, field);
        kit::Operator user;
        connectCamera(user);
        user.type(field, "2", Qt::Key_unknown);
        user.forget();
        QVERIFY(pullTheAdapter(user));
        QCOMPARE(user.calls(), theCameraIsGivenBack());
        QCOMPARE(user.newLog(), QStringList());
        QCOMPARE(pairsApart(user), QStringList());
    }

    void anEmptiedFieldIsDropped_data() { everyField(); }

    void anEmptiedFieldIsDropped()
    {
        QFETCH(QByteArray, field);
        kit::Operator user;
        connectCamera(user);
        user.type(field, "", Qt::Key_Delete);
        user.forget();
        QVERIFY(pullTheAdapter(user));
        QCOMPARE(user.calls(), theCameraIsGivenBack());
        QCOMPARE(user.newLog(), QStringList());
        QCOMPARE(pairsApart(user), QStringList());
    }

    void aHeldSliderIsLetGoWithoutACommand_data()
    {
        QTest::addColumn<const Pair*>("pair");
        for (const Pair& pair : pairrows::rows) {
            QTest::newRow(pair.slider) << &pair;
        }
    }

    void aHeldSliderIsLetGoWithoutACommand()
    {
        QFETCH(const Pair*, pair);
        kit::Operator user;
        connectCamera(user);
        auto& slider = user.find<QSlider>(pair->slider);
        const int before = slider.value();
        QVERIFY(user.drag(pair->slider, slider.maximum()) != before);
        user.forget();
        QVERIFY(pullTheAdapter(user));
        QVERIFY(!slider.isSliderDown());
        user.release();
        QCOMPARE(user.calls(), theCameraIsGivenBack());
        QCOMPARE(user.newLog(), QStringList());
        QCOMPARE(pairsApart(user), QStringList());
    }

    void aRegionInTheWrongOrderOpensNoBox_data()
    {
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<QByteArray>("typed");
        QTest::newRow("X1 above X2") << QByteArray("Roi0IncX1") << QByteArray("600");
        QTest::newRow("X2 below X1") << QByteArray("Roi1IncX2") << QByteArray("6");
        QTest::newRow("Y1 above Y2") << QByteArray("Roi0ExcY1") << QByteArray("470");
        QTest::newRow("Y2 below Y1") << QByteArray("Roi1ExcY2") << QByteArray("7");
    }

    void aRegionInTheWrongOrderOpensNoBox()
    {
        QFETCH(QByteArray, field);
        QFETCH(QByteArray, typed);
        kit::Operator user;
        connectCamera(user);
        user.type(field, typed, Qt::Key_unknown);
        user.forget();
        // A box that nobody announced fails the test.
        QVERIFY(pullTheAdapter(user));
        QCOMPARE(user.calls(), theCameraIsGivenBack());
        QCOMPARE(user.newLog(), QStringList());
    }

    void aFieldInUseSendsAgainAfterTheNextConnection()
    {
        kit::Operator user;
        connectCamera(user);
        user.click("gammaEdit");
        QVERIFY(pullTheAdapter(user));
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        user.click("connectDeviceButton");
        user.forget();
        user.type("gammaEdit", "1.3");
        QCOMPARE(user.calls(), kit::lines({"camera.setGamma(85196)"}));
    }

    // ---- the operator disconnects himself

    void anEditEndedByClickingDisconnectIsSentBeforeTheClose_data()
    {
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<QByteArray>("typed");
        QTest::addColumn<QByteArray>("command");
        const auto add = [](const char* field, const char* typed, const char* command) {
            QTest::newRow(field) << QByteArray(field) << QByteArray(typed) << QByteArray(command);
        };
        add("gammaEdit", "1.3", "camera.setGamma(85196)");
        add("TempoFilterSpin", "5", "camera.setLutTemporalFilter(5)");
        add("Roi0IncX1", "22", "camera.setRoiX1(22, 0, true, true, true)");
        add("gfidEdit", "77", "camera.setGfid(77)");
    }

    void anEditEndedByClickingDisconnectIsSentBeforeTheClose()
    {
        QFETCH(QByteArray, field);
        QFETCH(QByteArray, typed);
        QFETCH(QByteArray, command);
        kit::Operator user;
        connectCamera(user);
        user.type(field, typed, Qt::Key_unknown);
        user.forget();
        user.click("disconnectDeviceButton");
        QCOMPARE(user.calls(), QStringList(QString::fromLatin1(command)) + theCameraIsGivenBack());
    }

    // ---- handlers that waited under a box

    void theRejectedCoordinateIsNotSentAnyMore()
    {
        kit::Operator user;
        connectCamera(user);
        user.type("Roi0IncX1", "600", Qt::Key_unknown);
        user.forget();
        pulledUnder(user, {.title = "ROI", .text = "ROI 0 X1 must be lower than ROI X2"});
        // To a button: another field would end an edit of its own when the note takes its focus.
        user.widget("AboutButton").setFocus(Qt::TabFocusReason);
        QCOMPARE(user.calls(), theCameraIsGivenBack());
        QCOMPARE(user.newLog(), QStringList());
    }

    void aResetEndsAtTheNoteAboutARegion_data()
    {
        // The last of all coordinates, too: nothing but the settings would follow the regions.
        QTest::addColumn<bool>("first");
        QTest::newRow("at the first coordinate") << true;
        QTest::newRow("at the last region") << false;
    }

    void aResetEndsAtTheNoteAboutARegion()
    {
        QFETCH(bool, first);
        kit::Operator user;
        auto& defaults = user.sdk.configuration;
        (first ? defaults.roi0IncX1 : defaults.roi1ExcY1) = 470;
        (first ? defaults.roi0IncX2 : defaults.roi1ExcY2) = 200;
        connectCamera(user);
        QStringList atTheNote;
        pulledUnder(user, {.title = "ROI",
                           .text = first ? "ROI 0 X1 must be lower than ROI X2"
                                         : "ROI 3 Y1 must be lower than ROI Y2",
                           .whileOpen = [&](QDialog&) {
                               atTheNote = user.journal();
                           }});
        user.click("resetParamButtonUser");
        QVERIFY(!atTheNote.isEmpty());
        // Nothing at all after the note but giving the camera back.
        QCOMPARE(
            user.journal().filter(QRegularExpression(QStringLiteral("^(camera|log|sdk.save)"))),
            atTheNote.filter(QRegularExpression(QStringLiteral("^(camera|log|sdk.save)"))));
        QCOMPARE(user.calls().mid(user.calls().size() - 2), theCameraIsGivenBack());
    }

    void theAutomaticNucEndsAtItsRefusal()
    {
        kit::Operator user;
        connectCamera(user);
        user.sdk.answer("camera.requestNuc", 0);
        pulledUnder(user,
                    {.kind = kit::Box::Warning, .text = "Error on processing the NUC request"});
        user.click("autoNucPB");
        QCOMPARE(user.calls(), kit::lines({"camera.requestNuc(1)"}) + theCameraIsGivenBack());
        QCOMPARE(user.sdk.count("camera.getShutterPosition"), 0);
        QCOMPARE(user.newLog(), QStringList());
    }

    void aReadWithoutAnAnswerEndsAtItsBox()
    {
        kit::Operator user;
        connectCamera(user);
        user.sdk.camera.versions = 0;
        pulledUnder(user,
                    {.title = "Camera not connected", .text = "Unable to connect to ttyUSB0"});
        user.click("readParamButtonUser");
        QCOMPARE(user.calls(), theCameraIsGivenBack());
        QCOMPARE(user.newLog(), kit::lines({"Start reading camera parameters"}));
    }

    void aConnectionWithoutAnAnswerEndsAtItsBox()
    {
        kit::Operator user;
        connectCamera(user);
        // Connect is locked meanwhile; the slot is reached by name.
        user.sdk.camera.versions = 0;
        pulledUnder(user, {.title = "Camera not connected", .text = "Unable to connect to ttyUSB0"},
                    "camera 2");
        QVERIFY(QMetaObject::invokeMethod(&user.window(), "connectDevice"));
        QCOMPARE(user.calls().mid(user.calls().size() - 2),
                 kit::lines({"link.closeCamera(camera 2)", "sdk.releaseSerialLink(link 2)"}));
        QCOMPARE(user.newLog().last(), QStringLiteral("Start reading camera parameters"));
    }

    void anExpertApplyEndsAtItsWarning()
    {
        kit::Operator user;
        connectCamera(user);
        user.sdk.answer("camera.setBaudRate", 0);
        pulledUnder(user, {.kind = kit::Box::Warning,
                           .text = "Problem transmitting expert parameters values\n"});
        QVERIFY(QMetaObject::invokeMethod(&user.window(), "ApplyParamsExpert"));
        QCOMPARE(user.calls().mid(user.calls().size() - 2), theCameraIsGivenBack());
        QCOMPARE(user.newLog().last(), QStringLiteral("Set Mavlink baud rate value KO"));
    }

    void aHandlerUnderABoxGoesOnWhileThePortStays()
    {
        kit::Operator user;
        connectCamera(user);
        user.hurry();
        user.expectBox({.title = "ROI",
                        .text = "ROI 0 X1 must be lower than ROI X2",
                        .whileOpen = [&](QDialog&) {
                            user.ports.unplug(QStringLiteral("ttyUSB1"));
                            const int before = user.sdk.count("camera.getTemperatures");
                            QVERIFY(QTest::qWaitFor([&] {
                                return user.sdk.count("camera.getTemperatures") > before + 1;
                            }));
                        }});
        user.type("Roi0IncX1", "600");
        QVERIFY(user.calls().contains(QStringLiteral("camera.setRoiX1(600, 0, true, true, true)")));
    }

private:
    static void everyField()
    {
        QTest::addColumn<QByteArray>("field");
        kit::Operator user;
        const auto fields = user.widget("tabWidget").findChildren<QAbstractSpinBox*>();
        constexpr int besideThePairs = 23;
        QCOMPARE(fields.size(), static_cast<int>(std::size(pairrows::rows)) + besideThePairs);
        for (const QAbstractSpinBox* field : fields) {
            QTest::newRow(qPrintable(field->objectName())) << field->objectName().toLatin1();
        }
    }

    /// The adapter is pulled while this box is open.
    static void pulledUnder(kit::Operator& user, kit::Box box, const char* camera = "camera 1")
    {
        const auto before = box.whileOpen;
        box.whileOpen = [&user, before, camera](QDialog& dialog) {
            if (before) {
                before(dialog);
            }
            QVERIFY(pullTheAdapter(user));
            QVERIFY(user.calls().contains(
                QStringLiteral("link.closeCamera(%1)").arg(QLatin1String(camera))));
        };
        user.expectBox(box);
    }
};

TAVREL_TEST_MAIN(TestPulledAdapter)
#include "tst_pulledadapter.moc"
