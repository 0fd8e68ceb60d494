// SPDX-License-Identifier: MIT
// The zoom, which one button sends in two commands.
#include "tests/kit/operator.h"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QTabWidget>

class TestZoom : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void oneClickSendsTheResolutionAndThenTheZoom_data()
    {
        QTest::addColumn<int>("resolutionAnswer");
        QTest::addColumn<int>("zoomAnswer");
        QTest::addColumn<QString>("resolutionWord");
        QTest::addColumn<QString>("zoomWord");
        const auto word = [](int answer) {
            return answer == 0 ? QStringLiteral("KO") : QStringLiteral("OK");
        };
        for (const int resolution : {0, 1, 2, 255}) {
            for (const int zoom : {0, 1, 2, 255}) {
                QTest::addRow("resolution answered %d, zoom %d", resolution, zoom)
                    << resolution << zoom << word(resolution) << word(zoom);
            }
        }
    }

    void oneClickSendsTheResolutionAndThenTheZoom()
    {
        QFETCH(int, resolutionAnswer);
        QFETCH(int, zoomAnswer);
        QFETCH(QString, resolutionWord);
        QFETCH(QString, zoomWord);
        kit::Operator user;
        user.connectCamera();
        user.sdk.answer("camera.configureZoomResolution", resolutionAnswer);
        user.sdk.answer("camera.configureZoom", zoomAnswer);
        user.click("configureZoomPB");
        QStringList journal = user.journal();
        // The monitoring may tick at any time.
        journal.removeAll(QStringLiteral("camera.getTemperatures()"));
        QCOMPARE(journal,
                 (QStringList{QStringLiteral("camera.configureZoomResolution(720, 576)"),
                              QStringLiteral("log 2: Configure ZOOM RESOLUTION ") + resolutionWord,
                              QStringLiteral("camera.configureZoom(1, 320, 240, 0)"),
                              QStringLiteral("log 2: Configure Zoom ") + zoomWord}));
        QCOMPARE(user.newLog(),
                 (QStringList{QStringLiteral("Configure ZOOM RESOLUTION ") + resolutionWord,
                              QStringLiteral("Configure Zoom ") + zoomWord}));
    }

    void everyFieldIsSentInItsPlace_data()
    {
        QTest::addColumn<QByteArray>("factor");
        QTest::addColumn<QByteArray>("xCenter");
        QTest::addColumn<QByteArray>("yCenter");
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<QByteArray>("xResolution");
        QTest::addColumn<QByteArray>("yResolution");
        QTest::addColumn<QString>("resolution");
        QTest::addColumn<QString>("zoom");
        const auto add = [](const char* name, std::initializer_list<QByteArray> fields,
                            const char* sentResolution, const char* sentZoom) {
            QTestData& row = QTest::newRow(name);
            for (const QByteArray& field : fields) {
                row << field;
            }
            row << sentResolution << sentZoom;
        };
        add("in between", {"2.5", "100", "200", "Bilinear", "800", "600"},
            "camera.configureZoomResolution(800, 600)", "camera.configureZoom(2.5, 100, 200, 1)");
        add("smallest", {"1", "0", "0", "Nearest", "10", "10"},
            "camera.configureZoomResolution(10, 10)", "camera.configureZoom(1, 0, 0, 0)");
        add("largest", {"8", "640", "480", "Bilinear", "1024", "768"},
            "camera.configureZoomResolution(1024, 768)", "camera.configureZoom(8, 640, 480, 1)");
    }

    void everyFieldIsSentInItsPlace()
    {
        QFETCH(QByteArray, factor);
        QFETCH(QByteArray, xCenter);
        QFETCH(QByteArray, yCenter);
        QFETCH(QByteArray, method);
        QFETCH(QByteArray, xResolution);
        QFETCH(QByteArray, yResolution);
        QFETCH(QString, resolution);
        QFETCH(QString, zoom);
        kit::Operator user;
        user.connectCamera();
        user.type("factorZoomEdit", factor);
        user.type("xCenterZoomEdit", xCenter);
        user.type("yCenterZoomEdit", yCenter);
        user.choose("methodZoomEdit", method);
        user.type("xResolutionZoomEdit", xResolution);
        user.type("yResolutionZoomEdit", yResolution);
        // The fields wait for the button.
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
        user.click("configureZoomPB");
        QCOMPARE(user.calls(), (QStringList{resolution, zoom}));
    }

    // Each of these decimals lies beside a float: some round up to it, some down.
    void aFactorIsSentAsTheNearestFloat_data()
    {
        QTest::addColumn<QByteArray>("typed");
        QTest::addColumn<float>("sent");
        QTest::newRow("exact") << QByteArray("2.5") << 2.5F;
        QTest::newRow("up") << QByteArray("1.1") << 0x1.19999aP0F;
        QTest::newRow("down") << QByteArray("1.3") << 0x1.4cccccP0F;
        QTest::newRow("all decimals, up") << QByteArray("7.999") << 0x1.ffef9eP2F;
        QTest::newRow("all decimals, down") << QByteArray("1.002") << 0x1.008312P0F;
    }

    void aFactorIsSentAsTheNearestFloat()
    {
        QFETCH(QByteArray, typed);
        QFETCH(float, sent);
        kit::Operator user;
        user.connectCamera();
        user.type("factorZoomEdit", typed);
        user.click("configureZoomPB");
        // Bit for bit: QCOMPARE takes neighbouring floats for equal.
        QVERIFY2(user.sdk.camera.zoom.factor == sent,
                 qPrintable(QString::number(double(user.sdk.camera.zoom.factor), 'g', 9)));
    }

    void noMethodIsSentAs255()
    {
        kit::Operator user;
        user.connectCamera();
        user.find<QComboBox>("methodZoomEdit").setCurrentIndex(-1);
        user.click("configureZoomPB");
        QCOMPARE(user.calls().last(), QStringLiteral("camera.configureZoom(1, 320, 240, 255)"));
    }

    void aRefusedZoomLeavesTheFieldsAsTheOperatorSetThem()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.answerEveryCommand(0);
        user.type("factorZoomEdit", "3.25");
        user.type("yResolutionZoomEdit", "99");
        user.click("configureZoomPB");
        QCOMPARE(user.newLog(), kit::lines({"Configure ZOOM RESOLUTION KO", "Configure Zoom KO"}));
        QCOMPARE(user.text("factorZoomEdit"), QStringLiteral("3.250"));
        QCOMPARE(user.text("yResolutionZoomEdit"), QStringLiteral("99"));
    }

    void withoutACameraNothingIsSentOrLogged()
    {
        kit::Operator user;
        user.find<QTabWidget>("tabWidget").setEnabled(true);
        user.forget();
        user.click("configureZoomPB");
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }
};

TAVREL_TEST_MAIN(TestZoom)
#include "tst_zoom.moc"
