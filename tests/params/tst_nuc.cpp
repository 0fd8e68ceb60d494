// SPDX-License-Identifier: MIT
// The two NUC requests: one asked for by the operator, one of the automatic routine.
#include "tests/kit/operator.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtWidgets/QPushButton>

namespace {

struct Request {
    const char* button;
    const char* call;
    bool readsShutter;

    /// What is logged behind the request's own line.
    [[nodiscard]] QStringList following() const
    {
        return readsShutter ? kit::lines({"Shutter opened"}) : QStringList();
    }
};

constexpr Request requests[] = {
    {"userNucRequest", "camera.requestNuc(0)", false},
    {"autoNucPB", "camera.requestNuc(1)", true},
};

constexpr qint64 routine = 1600; // milliseconds

kit::Box nucError()
{
    return {.kind = kit::Box::Warning, .text = "Error on processing the NUC request"};
}

} // namespace

Q_DECLARE_METATYPE(const Request*)

class TestNuc : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aGrantedRequestShowsTheNucAsActivated_data()
    {
        QTest::addColumn<const Request*>("request");
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("wasOn");
        QTest::addColumn<QString>("caption");
        for (const Request& request : requests) {
            const auto add = [&](const char* kind, int answer, bool wasOn, const char* caption) {
                QTest::addRow("%s, %s", request.button, kind)
                    << &request << answer << wasOn << QString::fromLatin1(caption);
            };
            add("it was off", 1, false, "NUC: Deactivated");
            add("it was on", 1, true, "NUC: Activated");
            add("under a foreign caption", 1, false, "calibration");
            add("answered 2", 2, false, "NUC: Deactivated");
            add("answered 255", 255, false, "NUC: Deactivated");
        }
    }

    void aGrantedRequestShowsTheNucAsActivated()
    {
        QFETCH(const Request*, request);
        QFETCH(int, answer);
        QFETCH(bool, wasOn);
        QFETCH(QString, caption);
        kit::Operator user;
        user.sdk.camera.nucControl = wasOn ? 1 : 0;
        user.connectCamera();
        user.find<QPushButton>("nucEnablingButton").setText(caption);
        user.sdk.answer("camera.requestNuc", answer);
        user.click(request->button);
        // The button is only shown as on: the camera is not told to switch the NUC.
        QCOMPARE(user.calls(), QStringList(QLatin1String(request->call)));
        QCOMPARE(user.newLog(), QStringList(QStringLiteral("NUC applied")) + request->following());
        QVERIFY(user.checked("nucEnablingButton"));
        QCOMPARE(user.text("nucEnablingButton"), QStringLiteral("NUC: Activated"));
    }

    void aRefusedRequestIsToldByABoxAndChangesNothing_data()
    {
        QTest::addColumn<const Request*>("request");
        QTest::addColumn<bool>("wasOn");
        for (const Request& request : requests) {
            QTest::addRow("%s, it was off", request.button) << &request << false;
            QTest::addRow("%s, it was on", request.button) << &request << true;
        }
    }

    void aRefusedRequestIsToldByABoxAndChangesNothing()
    {
        QFETCH(const Request*, request);
        QFETCH(bool, wasOn);
        kit::Operator user;
        user.sdk.camera.nucControl = wasOn ? 1 : 0;
        user.connectCamera();
        user.sdk.answer("camera.requestNuc", 0);
        user.expectBox(nucError());
        user.click(request->button);
        QCOMPARE(user.boxesAwaited(), 0);
        QCOMPARE(user.calls(), QStringList(QLatin1String(request->call)));
        QCOMPARE(user.newLog(), request->following());
        QCOMPARE(user.checked("nucEnablingButton"), wasOn);
        QCOMPARE(user.text("nucEnablingButton"),
                 wasOn ? QStringLiteral("NUC: Activated") : QStringLiteral("NUC: Deactivated"));
    }

    void theAutomaticRoutineBlocksTheWindowAndThenReadsTheShutter()
    {
        QElapsedTimer clock;
        bool otherEventsRan = false;
        kit::Operator user;
        user.connectCamera();
        user.sdk.whenCalled("camera.requestNuc", [&] {
            clock.start();
            QTimer::singleShot(0, &user.window(), [&] { otherEventsRan = true; });
        });
        qint64 elapsed = 0;
        bool otherEventsRanBefore = false;
        user.sdk.whenCalled("camera.getShutterPosition", [&] {
            elapsed = clock.elapsed();
            otherEventsRanBefore = otherEventsRan;
            user.sdk.camera.shutterClosed = 1;
        });
        user.click("autoNucPB");
        QVERIFY2(elapsed >= routine, qPrintable(QString::number(elapsed)));
        QVERIFY(!otherEventsRanBefore);
        QCOMPARE(user.newLog(), kit::lines({"NUC applied", "Shutter closed"}));
        QVERIFY(user.checked("shutterCtrlPB"));
        QCOMPARE(user.text("shutterCtrlPB"), QStringLiteral("Shutter closed"));
    }

    void aRefusedAutomaticRoutinePausesOnlyAfterItsBox()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.answer("camera.requestNuc", 0);
        QElapsedTimer clock;
        kit::Box box = nucError();
        box.whileOpen = [&](QDialog&) {
            clock.start();
        };
        user.expectBox(box);
        qint64 elapsed = 0;
        user.sdk.whenCalled("camera.getShutterPosition", [&] { elapsed = clock.elapsed(); });
        user.click("autoNucPB");
        QVERIFY2(elapsed >= routine, qPrintable(QString::number(elapsed)));
        QCOMPARE(user.sdk.count("camera.getShutterPosition"), 1);
    }

    void withoutACameraTheAutomaticRoutineStillPauses()
    {
        kit::Operator user;
        user.start();
        user.forget();
        QElapsedTimer clock;
        clock.start();
        QVERIFY(QMetaObject::invokeMethod(&user.window(), "AutoNucRequest"));
        const qint64 elapsed = clock.elapsed();
        QVERIFY2(elapsed >= routine, qPrintable(QString::number(elapsed)));
        QCOMPARE(user.calls(recording::Show::Everything), QStringList());
        QCOMPARE(user.newLog(), QStringList());
        QVERIFY(!user.checked("nucEnablingButton"));
        QVERIFY(!user.checked("shutterCtrlPB"));
    }

    void withoutACameraTheOperatorsRequestDoesNothing()
    {
        kit::Operator user;
        user.start();
        user.forget();
        QVERIFY(QMetaObject::invokeMethod(&user.window(), "ApplyNucRequest"));
        QCOMPARE(user.calls(recording::Show::Everything), QStringList());
        QCOMPARE(user.newLog(), QStringList());
        QVERIFY(!user.checked("nucEnablingButton"));
        QCOMPARE(user.text("nucEnablingButton"), QStringLiteral("NUC: Activated"));
    }

    void theOperatorsRequestNeitherPausesNorReadsTheShutter()
    {
        kit::Operator user;
        user.connectCamera();
        user.click("userNucRequest");
        QCOMPARE(user.sdk.count("camera.getShutterPosition"), 0);
    }
};

TAVREL_TEST_MAIN(TestNuc)
#include "tst_nuc.moc"
