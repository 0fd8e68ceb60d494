// SPDX-License-Identifier: MIT
// The four regions of interest: sixteen coordinates, their rule, and the check boxes that enable a
// row.
#include "params/regions.h"
#include "tests/kit/operator.h"

#include <QtCore/QTimer>
#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QSpinBox>

#include <algorithm>
#include <chrono>

namespace {

/// One of the four coordinates: how an edit breaks the rule, and who gives way.
struct Coordinate {
    const char* name;
    const char* loser;    ///< gives way when the rule is broken
    const char* opposite; ///< what it gives way to
    int allowed;          ///< with the opposite at 100 or 300, see camera()
    int equal;
    int breaking;
    const char* rule;
};

// Every region starts as X1 100, X2 300, Y1 100, Y2 300.
constexpr int low = 100;
constexpr int high = 300;

// clang-format off
constexpr Coordinate coordinates[] = {
    {"X1", "X1", "X2", 150, high, 301, " X1 must be lower than ROI X2"},
    {"X2", "X1", "X2", 250, low,   99, " X1 must be lower than ROI X2"},
    {"Y1", "Y1", "Y2", 150, high, 301, " Y1 must be lower than ROI Y2"},
    {"Y2", "Y1", "Y2", 250, low,   99, " Y1 must be lower than ROI Y2"},
};
constexpr const char* rows[] = {"Roi0Inc", "Roi0Exc", "Roi1Inc", "Roi1Exc"};
constexpr const char* enableBoxes[] = {nullptr, "roi0ExcEnable", "roi1IncEnable", "roi1ExcEnable"};
// clang-format on

QByteArray fieldOf(int region, const char* coordinate)
{
    return QByteArray(rows[region]) + coordinate;
}

QString sent(const char* coordinate, int value, int region)
{
    return QStringLiteral("camera.setRoi%1(%2, %3, true, true, true)")
        .arg(QLatin1String(coordinate))
        .arg(value)
        .arg(region);
}

QString accepted(const char* coordinate, int region)
{
    return QStringLiteral("Set ROI %1 %2 value OK").arg(region).arg(QLatin1String(coordinate));
}

QString refused(const char* coordinate)
{
    return QStringLiteral("Set ROI %1 value KO").arg(QLatin1String(coordinate));
}

kit::Box broken(const Coordinate& coordinate, int region)
{
    return {.title = "ROI", .text = "ROI " + std::to_string(region) + coordinate.rule};
}

/// A connected camera with four large regions, so that every row is enabled.
void connectCamera(kit::Operator& user)
{
    user.sdk.camera.regions.fill({low, high, low, high});
    user.connectCamera();
    user.rest();
}

/// Types a coordinate and leaves the field for a button. A message box takes the focus off the next
/// field, too, which by that would finish an edit of its own.
void typeAndLeave(kit::Operator& user, const QByteArray& edited, int value)
{
    user.type(edited, QByteArray::number(value), Qt::Key_unknown);
    user.widget("AboutButton").setFocus();
}

void everyCoordinate()
{
    QTest::addColumn<int>("region");
    QTest::addColumn<const Coordinate*>("coordinate");
    for (int region = 0; region < 4; ++region) {
        for (const Coordinate& coordinate : coordinates) {
            QTest::newRow(fieldOf(region, coordinate.name).constData()) << region << &coordinate;
        }
    }
}

QByteArray slot(const Coordinate& coordinate)
{
    return QByteArray(coordinate.name).toLower() + "RoiUserValueChanged";
}

} // namespace

Q_DECLARE_METATYPE(const Coordinate*)

class TestRegions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyRegionOfTheToolHasARow()
    {
        QMainWindow window;
        Ui_MainWindow form;
        form.setupUi(&window);
        std::size_t row = 0;
        for (const tavrel::Region& region : tavrel::regions) {
            const QString x1 = (form.*region.x1)->objectName();
            QVERIFY2(row < std::size(rows) && x1 == QLatin1String(rows[row]) + QLatin1String("X1"),
                     qPrintable(x1 + QStringLiteral(" has no row")));
            ++row;
        }
    }

    void aCoordinateWithinTheRuleIsSentAsTyped_data() { everyCoordinate(); }
    void aCoordinateWithinTheRuleIsSentAsTyped()
    {
        QFETCH(int, region);
        QFETCH(const Coordinate*, coordinate);
        edit(region, *coordinate, coordinate->allowed, coordinate->allowed);
    }

    void equalCoordinatesAreAcceptedWithoutABox_data() { everyCoordinate(); }
    void equalCoordinatesAreAcceptedWithoutABox()
    {
        QFETCH(int, region);
        QFETCH(const Coordinate*, coordinate);
        edit(region, *coordinate, coordinate->equal, coordinate->equal);
    }

    // X1 and Y1 give way on screen, yet the camera is told what the operator typed.
    void aBrokenRuleMovesTheFirstCoordinateButSendsWhatWasTyped_data() { everyCoordinate(); }
    void aBrokenRuleMovesTheFirstCoordinateButSendsWhatWasTyped()
    {
        QFETCH(int, region);
        QFETCH(const Coordinate*, coordinate);
        kit::Operator user;
        connectCamera(user);
        user.expectBox(broken(*coordinate, region));
        typeAndLeave(user, fieldOf(region, coordinate->name), coordinate->breaking);
        QCOMPARE(user.calls(), QStringList(sent(coordinate->name, coordinate->breaking, region)));
        QCOMPARE(user.newLog(), QStringList(accepted(coordinate->name, region)));
        const bool gaveWay = QByteArray(coordinate->name) == coordinate->loser;
        const int opposite = gaveWay ? high : coordinate->breaking;
        QCOMPARE(user.text(fieldOf(region, coordinate->loser)), QString::number(opposite));
        QCOMPARE(user.text(fieldOf(region, coordinate->opposite)), QString::number(opposite));
    }

    void theScreenIsCorrectedBeforeTheBoxOpensAndTheCameraToldAfterwards_data()
    {
        everyCoordinate();
    }
    void theScreenIsCorrectedBeforeTheBoxOpensAndTheCameraToldAfterwards()
    {
        QFETCH(int, region);
        QFETCH(const Coordinate*, coordinate);
        kit::Operator user;
        connectCamera(user);
        QString first;
        QString second;
        QStringList callsBehindTheBox = {QStringLiteral("not looked at")};
        kit::Box announced = broken(*coordinate, region);
        announced.whileOpen = [&](QDialog&) {
            first = user.text(fieldOf(region, coordinate->loser));
            second = user.text(fieldOf(region, coordinate->opposite));
            callsBehindTheBox = user.calls();
        };
        user.expectBox(announced);
        typeAndLeave(user, fieldOf(region, coordinate->name), coordinate->breaking);
        QCOMPARE(first, second);
        QCOMPARE(callsBehindTheBox, QStringList());
    }

    void aRefusedCoordinateIsReportedWithoutItsRegionAndStays_data() { everyCoordinate(); }
    void aRefusedCoordinateIsReportedWithoutItsRegionAndStays()
    {
        QFETCH(int, region);
        QFETCH(const Coordinate*, coordinate);
        kit::Operator user;
        connectCamera(user);
        user.sdk.answerEveryCommand(0);
        user.type(fieldOf(region, coordinate->name), QByteArray::number(coordinate->allowed));
        QCOMPARE(user.calls(), QStringList(sent(coordinate->name, coordinate->allowed, region)));
        QCOMPARE(user.newLog(), QStringList(refused(coordinate->name)));
        QCOMPARE(user.text(fieldOf(region, coordinate->name)),
                 QString::number(coordinate->allowed));
    }

    void aBrokenRuleThatIsRefusedAsWellIsBothAskedAndReported_data() { everyCoordinate(); }
    void aBrokenRuleThatIsRefusedAsWellIsBothAskedAndReported()
    {
        QFETCH(int, region);
        QFETCH(const Coordinate*, coordinate);
        kit::Operator user;
        connectCamera(user);
        user.sdk.answerEveryCommand(0);
        user.expectBox(broken(*coordinate, region));
        typeAndLeave(user, fieldOf(region, coordinate->name), coordinate->breaking);
        QCOMPARE(user.calls(), QStringList(sent(coordinate->name, coordinate->breaking, region)));
        QCOMPARE(user.newLog(), QStringList(refused(coordinate->name)));
    }

    // The box takes the focus off the field that has it, and that field finishes an edit by it. The
    // rejected value is sent when the box is gone, so it comes last whatever key was pressed.
    void theRejectedValueIsSentLastWhateverKeyFinishedTheEdit_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QStringList>("calls");
        QTest::newRow("Return, the field itself finishes twice")
            << int(Qt::Key_Return) << QStringList({sent("X1", 300, 0), sent("X1", 301, 0)});
        QTest::newRow("Tab, the next field finishes")
            << int(Qt::Key_Tab) << QStringList({sent("X2", 300, 0), sent("X1", 301, 0)});
    }

    void theRejectedValueIsSentLastWhateverKeyFinishedTheEdit()
    {
        QFETCH(int, key);
        QFETCH(QStringList, calls);
        kit::Operator user;
        connectCamera(user);
        user.expectBox({.title = "ROI", .text = "ROI 0 X1 must be lower than ROI X2"});
        user.type("Roi0IncX1", "301", static_cast<Qt::Key>(key));
        QCOMPARE(user.text("Roi0IncX1"), QStringLiteral("300"));
        QCOMPARE(user.calls(), calls);
    }

    void onlyTheEditedCoordinateIsHeldAgainstItsOwnOpposite()
    {
        kit::Operator user;
        connectCamera(user);
        // Y beyond X, another region beyond this one: no rule.
        user.type("Roi0IncY2", "475");
        user.rest();
        user.type("Roi1IncX2", "101");
        QCOMPARE(user.calls(), QStringList(sent("X2", 101, 2)));
    }

    // The menu takes the focus while it opens, so the note comes then and the menu goes. The
    // toolkit's loop for the menu remains; everything must work inside of it until the program
    // ends.
    void aContextMenuOverABrokenRuleGivesWayToTheNoteAndBlocksNothing()
    {
        kit::Operator user;
        connectCamera(user);
        user.showTab("LUT");
        const Coordinate& coordinate = coordinates[0];
        user.expectBox(broken(coordinate, 0));
        user.type(fieldOf(0, coordinate.name), QByteArray::number(coordinate.breaking),
                  Qt::Key_unknown);
        QStringList callsMeanwhile;
        bool menuMeanwhile = true;
        QTimer meanwhile;
        connect(&meanwhile, &QTimer::timeout, this, [&] {
            if (QApplication::activeModalWidget() != nullptr) {
                return;
            }
            meanwhile.stop();
            menuMeanwhile = QApplication::activePopupWidget() != nullptr;
            user.rest();
            user.click("polarityButton");
            callsMeanwhile = user.calls();
            QCoreApplication::exit();
        });
        meanwhile.start(std::chrono::milliseconds(5));
        QTimer::singleShot(0, this, [&] {
            // As the menu key asks for it, the same on every system.
            QWidget& edited = user.widget(fieldOf(0, coordinate.name));
            const QPoint middle = edited.rect().center();
            QContextMenuEvent ask(QContextMenuEvent::Keyboard, middle, edited.mapToGlobal(middle));
            QCoreApplication::sendEvent(&edited, &ask);
        });
        QCoreApplication::exec();
        QVERIFY(!meanwhile.isActive());
        QVERIFY(!menuMeanwhile);
        QCOMPARE(callsMeanwhile, kit::lines({"camera.setPolarity(true)"}));
    }

    // ---- the enable boxes

    void everyCoordinateCarriesTheThreeEnableMarks_data()
    {
        QTest::addColumn<bool>("roi1Inclusive");
        QTest::addColumn<bool>("roi0Exclusive");
        QTest::addColumn<bool>("roi1Exclusive");
        QTest::addColumn<QString>("flags");
        QTest::newRow("none") << false << false << false << QStringLiteral("false, false, false");
        QTest::newRow("roi1 inclusive")
            << true << false << false << QStringLiteral("true, false, false");
        QTest::newRow("roi0 exclusive")
            << false << true << false << QStringLiteral("false, true, false");
        QTest::newRow("roi1 exclusive")
            << false << false << true << QStringLiteral("false, false, true");
        QTest::newRow("both of region 1")
            << true << false << true << QStringLiteral("true, false, true");
        QTest::newRow("all") << true << true << true << QStringLiteral("true, true, true");
    }

    void everyCoordinateCarriesTheThreeEnableMarks()
    {
        QFETCH(bool, roi1Inclusive);
        QFETCH(bool, roi0Exclusive);
        QFETCH(bool, roi1Exclusive);
        QFETCH(QString, flags);
        kit::Operator user;
        user.connectCamera();
        user.showTab("LUT");
        const auto check = [&](const char* enable, bool wanted) {
            if (wanted) {
                user.click(enable);
            }
        };
        check("roi1IncEnable", roi1Inclusive);
        check("roi0ExcEnable", roi0Exclusive);
        check("roi1ExcEnable", roi1Exclusive);
        user.rest();
        QStringList expected;
        for (const Coordinate& coordinate : coordinates) {
            user.type(fieldOf(0, coordinate.name), "50");
            expected.append(QStringLiteral("camera.setRoi%1(50, 0, %2)")
                                .arg(QLatin1String(coordinate.name), flags));
            QCOMPARE(user.calls(), QStringList(expected.last()));
            // Back to the end of its range, so that no rule is broken by the next one.
            user.find<QSpinBox>(fieldOf(0, coordinate.name))
                .setValue(QByteArray(coordinate.name).endsWith('1') ? 5 : 475);
            user.rest();
        }
    }

    void anEnableBoxOpensAndLocksItsOwnRowAndSendsNothing_data()
    {
        QTest::addColumn<int>("region");
        QTest::newRow("roi0 exclusive") << 1;
        QTest::newRow("roi1 inclusive") << 2;
        QTest::newRow("roi1 exclusive") << 3;
    }

    void anEnableBoxOpensAndLocksItsOwnRowAndSendsNothing()
    {
        QFETCH(int, region);
        kit::Operator user;
        user.connectCamera();
        user.showTab("LUT");
        QCOMPARE(openBoxes(user), QVector<int>({4, 0, 0, 0}));
        user.rest();
        user.click(enableBoxes[region]);
        QVector<int> open{4, 0, 0, 0};
        open[region] = 4;
        QCOMPARE(openBoxes(user), open);
        user.click(enableBoxes[region]);
        QCOMPARE(openBoxes(user), QVector<int>({4, 0, 0, 0}));
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    void theFirstRegionHasABoxThatNobodyCanChange()
    {
        kit::Operator user;
        connectCamera(user);
        user.showTab("LUT");
        QVERIFY(user.checked("checkBox"));
        QVERIFY(!user.enabled("checkBox"));
    }

    void aReadOpensTheRowsWhoseX1IsNotZero_data()
    {
        QTest::addColumn<int>("region");
        for (int region = 0; region < 4; ++region) {
            QTest::addRow("X1 of region %d is zero", region) << region;
        }
    }

    void aReadOpensTheRowsWhoseX1IsNotZero()
    {
        QFETCH(int, region);
        kit::Operator user;
        connectCamera(user);
        QCOMPARE(openBoxes(user), QVector<int>({4, 4, 4, 4}));
        user.sdk.camera.regions.at(static_cast<std::size_t>(region)).x1 = 0;
        user.click("readParamButtonUser");
        QVector<int> open{4, 4, 4, 4};
        open[region] = region == 0 ? 4 : 0;
        QCOMPARE(openBoxes(user), open);
        QCOMPARE(user.sdk.count("camera.setRoiX1"), 0);
    }

    // ---- by name

    void aRegionOutsideTheFourIsSentAsZeroWithoutALook_data()
    {
        QTest::addColumn<const Coordinate*>("coordinate");
        QTest::addColumn<int>("region");
        QTest::addColumn<QString>("index");
        for (const Coordinate& coordinate : coordinates) {
            const auto add = [&](int region, const char* index) {
                QTest::addRow("%s of %d", coordinate.name, region)
                    << &coordinate << region << QString::fromLatin1(index);
            };
            add(4, "4");
            add(255, "255");
            add(-1, "4294967295");
        }
    }

    void aRegionOutsideTheFourIsSentAsZeroWithoutALook()
    {
        QFETCH(const Coordinate*, coordinate);
        QFETCH(int, region);
        QFETCH(QString, index);
        kit::Operator user;
        connectCamera(user);
        QVERIFY(QMetaObject::invokeMethod(&user.window(), slot(*coordinate), Q_ARG(int, region)));
        const auto name = QLatin1String(coordinate->name);
        QCOMPARE(user.calls(),
                 QStringList(
                     QStringLiteral("camera.setRoi%1(0, %2, true, true, true)").arg(name, index)));
        QCOMPARE(user.newLog(),
                 QStringList(QStringLiteral("Set ROI %1 %2 value OK").arg(index, name)));
    }

    void withoutACameraABrokenRuleIsCorrectedAndNothingElse_data() { everyCoordinate(); }
    void withoutACameraABrokenRuleIsCorrectedAndNothingElse()
    {
        QFETCH(int, region);
        QFETCH(const Coordinate*, coordinate);
        kit::Operator user;
        user.find<QSpinBox>(fieldOf(region, coordinate->loser)).setValue(300);
        user.find<QSpinBox>(fieldOf(region, coordinate->opposite)).setValue(200);
        user.forget();
        user.expectBox(broken(*coordinate, region));
        QVERIFY(QMetaObject::invokeMethod(&user.window(), slot(*coordinate), Q_ARG(int, region)));
        QCOMPARE(user.text(fieldOf(region, coordinate->loser)), QStringLiteral("200"));
        QCOMPARE(user.text(fieldOf(region, coordinate->opposite)), QStringLiteral("200"));
        QCOMPARE(user.calls(recording::Show::Everything), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

private:
    /// Types a value that the rule allows, and looks at everything that comes of it.
    static void edit(int region, const Coordinate& coordinate, int value, int shown)
    {
        kit::Operator user;
        connectCamera(user);
        const QByteArray edited = fieldOf(region, coordinate.name);
        user.type(edited, QByteArray::number(value), Qt::Key_unknown);
        QCOMPARE(user.calls(), QStringList());
        user.press(edited, Qt::Key_Tab);
        QCOMPARE(user.calls(), QStringList(sent(coordinate.name, value, region)));
        QCOMPARE(user.newLog(), QStringList(accepted(coordinate.name, region)));
        QCOMPARE(user.text(edited), QString::number(shown));
    }

    /// How many spin boxes of each row take input.
    static QVector<int> openBoxes(kit::Operator& user)
    {
        QVector<int> open;
        for (int region = 0; region < 4; ++region) {
            open.append(static_cast<int>(
                std::ranges::count_if(coordinates, [&](const Coordinate& coordinate) {
                    return user.enabled(fieldOf(region, coordinate.name));
                })));
        }
        return open;
    }
};

TAVREL_TEST_MAIN(TestRegions)
#include "tst_regions.moc"
