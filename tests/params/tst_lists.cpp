// SPDX-License-Identifier: MIT
// Settings chosen from a list: video output, LUT method, colours, edge correction.
#include "tests/kit/operator.h"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QTabWidget>

namespace {

using State = recording::CameraState;

struct List {
    const char* comboBox;
    const char* operation;
    const char* following; ///< the arguments behind the index
    const char* ok;
    const char* ko;
    std::uint8_t& (*state)(State& camera);
    std::size_t count;
    const char* entries[9];
};

constexpr List lists[] = {
    {"VideoOutputCB",
     "camera.setVideoOutput",
     "",
     "Set VIDEO OUTPUT value OK",
     "Set VIDEO OUTPUT value KO",
     [](State& camera) -> std::uint8_t& { return camera.videoOutput; },
     9,
     {"RAW", "NUC", "COLUMN CORRECTION", "VIGNETTING CORRECTION", "EDGE ENHANCEMENT",
      "LUT CORRECTION", "RESERVED", "ZOOM", "BT656"}},
    {"contrastTypeEdit",
     "camera.configureContrastType",
     "",
     "Configure contrast type OK",
     "Configure contrast type KO",
     [](State& camera) -> std::uint8_t& { return camera.contrastType; },
     2,
     {"CLHE (ROI)", "CLAHE (Local)"}},
    {"lutColorEdit",
     "camera.setColorLut",
     "",
     "Set COLOR LUT value OK",
     "Set COLOR LUT value KO",
     [](State& camera) -> std::uint8_t& { return camera.colorLut; },
     8,
     {"GREYSCALE", "IRON", "HOT", "RAINBOW", "NCAR", "CUBEHELIX", "COOLWARM", "GREYSCALE YCbCr"}},
    // The gain and the threshold that the camera reported at the connection.
    {"EdgeCorrectionCB",
     "camera.configureEdgeCorrection",
     ", 10, 20",
     "Configure EDGE CORRECTION OK",
     "Configure EDGE CORRECTION KO",
     [](State& camera) -> std::uint8_t& { return camera.edgeCorrection.type; },
     3,
     {"None", "Sharpening", "Contouring"}},
};

QStringList line(const char* text)
{
    return {QString::fromLatin1(text)};
}

QStringList callWith(const List& list, int index)
{
    return {QStringLiteral("%1(%2%3)")
                .arg(QLatin1String(list.operation))
                .arg(index)
                .arg(QLatin1String(list.following))};
}

/// A row for every entry of every list.
void everyEntry()
{
    QTest::addColumn<const List*>("list");
    QTest::addColumn<int>("index");
    for (const List& list : lists) {
        for (std::size_t index = 0; index < list.count; ++index) {
            QTest::addRow("%s %s", list.comboBox, list.entries[index])
                << &list << static_cast<int>(index);
        }
    }
}

void everyList()
{
    QTest::addColumn<const List*>("list");
    for (const List& list : lists) {
        QTest::newRow(list.comboBox) << &list;
    }
}

/// A connected camera whose list stands on the entry before the given one.
void connectBefore(kit::Operator& user, const List& list, int index)
{
    const auto before = (static_cast<std::size_t>(index) + list.count - 1) % list.count;
    list.state(user.sdk.camera) = static_cast<std::uint8_t>(before);
    user.connectCamera();
}

} // namespace

Q_DECLARE_METATYPE(const List*)

class TestLists : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anEntryChosenIsSentByItsPlaceInTheList_data() { everyEntry(); }
    void anEntryChosenIsSentByItsPlaceInTheList()
    {
        QFETCH(const List*, list);
        QFETCH(int, index);
        kit::Operator user;
        connectBefore(user, *list, index);
        user.choose(list->comboBox, list->entries[static_cast<std::size_t>(index)]);
        QCOMPARE(user.calls(), callWith(*list, index));
        QCOMPARE(user.newLog(), line(list->ok));
    }

    void aRefusedEntryStaysChosen_data() { everyEntry(); }
    void aRefusedEntryStaysChosen()
    {
        QFETCH(const List*, list);
        QFETCH(int, index);
        kit::Operator user;
        connectBefore(user, *list, index);
        user.sdk.answer(list->operation, 0);
        const char* const entry = list->entries[static_cast<std::size_t>(index)];
        user.choose(list->comboBox, entry);
        QCOMPARE(user.calls(), callWith(*list, index));
        QCOMPARE(user.newLog(), line(list->ko));
        QCOMPARE(user.text(list->comboBox), QLatin1String(entry));
    }

    void anyByteButZeroIsSuccess_data()
    {
        QTest::addColumn<const List*>("list");
        QTest::addColumn<int>("answer");
        for (const List& list : lists) {
            for (const int answer : {2, 128, 255}) {
                QTest::addRow("%s answered %d", list.comboBox, answer) << &list << answer;
            }
        }
    }

    void anyByteButZeroIsSuccess()
    {
        QFETCH(const List*, list);
        QFETCH(int, answer);
        kit::Operator user;
        connectBefore(user, *list, 1);
        user.sdk.answer(list->operation, answer);
        user.choose(list->comboBox, list->entries[1]);
        QCOMPARE(user.newLog(), line(list->ok));
    }

    void choosingTheEntryThatIsShownSendsNothing_data() { everyList(); }
    void choosingTheEntryThatIsShownSendsNothing()
    {
        QFETCH(const List*, list);
        kit::Operator user;
        user.connectCamera();
        user.choose(list->comboBox, list->entries[0]);
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    void anArrowKeySendsTheNextEntry_data() { everyList(); }
    void anArrowKeySendsTheNextEntry()
    {
        QFETCH(const List*, list);
        kit::Operator user;
        user.connectCamera();
        user.press(list->comboBox, Qt::Key_Down);
        QCOMPARE(user.calls(), callWith(*list, 1));
        QCOMPARE(user.newLog(), line(list->ok));
    }

    // The index of "no entry" is -1, of which the low byte travels.
    void noEntryIsSentAs255_data() { everyList(); }
    void noEntryIsSentAs255()
    {
        QFETCH(const List*, list);
        kit::Operator user;
        user.connectCamera();
        user.find<QComboBox>(list->comboBox).setCurrentIndex(-1);
        QCOMPARE(user.calls(), callWith(*list, 255));
        QCOMPARE(user.newLog(), line(list->ok));
    }

    void withoutACameraNothingIsSentOrLogged_data() { everyList(); }
    void withoutACameraNothingIsSentOrLogged()
    {
        QFETCH(const List*, list);
        kit::Operator user;
        user.find<QTabWidget>("tabWidget").setEnabled(true);
        user.forget();
        user.choose(list->comboBox, list->entries[1]);
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    void everyEdgeCorrectionTravelsWithGainAndThreshold_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("expected");
        QTest::newRow("None") << 0 << "camera.configureEdgeCorrection(0, 730, 44)";
        QTest::newRow("Sharpening") << 1 << "camera.configureEdgeCorrection(1, 730, 44)";
        QTest::newRow("Contouring") << 2 << "camera.configureEdgeCorrection(2, 730, 44)";
    }

    void everyEdgeCorrectionTravelsWithGainAndThreshold()
    {
        QFETCH(int, type);
        QFETCH(QString, expected);
        kit::Operator user;
        user.sdk.camera.edgeCorrection = {static_cast<std::uint8_t>((type + 1) % 3), 730, 44, 84};
        user.connectCamera();
        user.choose("EdgeCorrectionCB", lists[3].entries[static_cast<std::size_t>(type)]);
        QCOMPARE(user.calls(), QStringList(expected));
    }

    void gainAndThresholdTravelWithoutTheirTenths_data()
    {
        QTest::addColumn<QByteArray>("gain");
        QTest::addColumn<QByteArray>("threshold");
        QTest::addColumn<QString>("expected");
        const auto add = [](const char* name, const char* gain, const char* threshold,
                            const char* expected) {
            QTest::newRow(name) << QByteArray(gain) << QByteArray(threshold) << expected;
        };
        add("above the half", "10.7", "99.9", "camera.configureEdgeCorrection(1, 10, 99)");
        add("below one", "0.9", "0.5", "camera.configureEdgeCorrection(1, 0, 0)");
        add("largest", "1024", "200", "camera.configureEdgeCorrection(1, 1024, 200)");
    }

    void gainAndThresholdTravelWithoutTheirTenths()
    {
        QFETCH(QByteArray, gain);
        QFETCH(QByteArray, threshold);
        QFETCH(QString, expected);
        kit::Operator user;
        user.connectCamera();
        user.type("sharpeningGainEdit", gain);
        user.type("SharpeningTHEdit", threshold);
        user.rest();
        user.choose("EdgeCorrectionCB", "Sharpening");
        QCOMPARE(user.calls(), QStringList(expected));
    }
};

TAVREL_TEST_MAIN(TestLists)
#include "tst_lists.moc"
