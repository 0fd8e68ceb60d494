// SPDX-License-Identifier: MIT
// The table of parameters beside the window's form: the same ranges and the same lists.
#include "params/parameters.h"

#include "tests/params/pairrows.h"
#include "ui_mainwindow.h"

#include <QtTest/QTest>

#include <cmath>
#include <memory>
#include <random>
#include <set>

using namespace tavrel;

namespace {

const Parameter& named(const QString& name)
{
    const std::optional<std::size_t> place = parameterNamed(name);
    if (!place) {
        qFatal("no parameter %s", qPrintable(name));
    }
    return parameters()[*place];
}

/// A form that no window belongs to.
class Form {
public:
    Form() { form.setupUi(&window); }

    template<typename Widget> const Widget& find(const QString& name) const
    {
        const auto* const found = window.findChild<Widget*>(name);
        if (found == nullptr) {
            qFatal("no widget %s", qPrintable(name));
        }
        return *found;
    }

private:
    QMainWindow window;
    Ui_MainWindow form;
};

struct Row {
    const char* parameter;
    const char* widget;
};

// clang-format off
constexpr Row otherFields[] = {
    {"zoom-factor", "factorZoomEdit"}, {"zoom-x-center", "xCenterZoomEdit"}, {"zoom-y-center", "yCenterZoomEdit"},
    {"zoom-x-resolution", "xResolutionZoomEdit"}, {"zoom-y-resolution", "yResolutionZoomEdit"},
    {"roi0-inclusive-x1", "Roi0IncX1"}, {"roi0-inclusive-x2", "Roi0IncX2"}, {"roi0-inclusive-y1", "Roi0IncY1"}, {"roi0-inclusive-y2", "Roi0IncY2"},
    {"roi0-exclusive-x1", "Roi0ExcX1"}, {"roi0-exclusive-x2", "Roi0ExcX2"}, {"roi0-exclusive-y1", "Roi0ExcY1"}, {"roi0-exclusive-y2", "Roi0ExcY2"},
    {"roi1-inclusive-x1", "Roi1IncX1"}, {"roi1-inclusive-x2", "Roi1IncX2"}, {"roi1-inclusive-y1", "Roi1IncY1"}, {"roi1-inclusive-y2", "Roi1IncY2"},
    {"roi1-exclusive-x1", "Roi1ExcX1"}, {"roi1-exclusive-x2", "Roi1ExcX2"}, {"roi1-exclusive-y1", "Roi1ExcY1"}, {"roi1-exclusive-y2", "Roi1ExcY2"},
};
constexpr Row lists[] = {
    {"frame-rate", "frameRateCB"}, {"video-output", "VideoOutputCB"}, {"contrast-type", "contrastTypeEdit"},
    {"color-lut", "lutColorEdit"}, {"zoom-method", "methodZoomEdit"}, {"edge-correction", "EdgeCorrectionCB"},
    {"camera-baud-rate", "BaudRateCB"}, {"permanent-camera-baud-rate", "BaudRateCB"},
};
// clang-format on

/// Every spin box that has a parameter.
std::vector<Row> fields()
{
    std::vector<Row> all(std::begin(otherFields), std::end(otherFields));
    for (const pairrows::Row& row : pairrows::rows) {
        all.push_back({row.parameter, row.spinBox});
    }
    return all;
}

/// An item's text as a name: "CLHE (ROI)" is clhe-roi, "60Hz" is 60.
QString asName(const QString& item)
{
    QString name = item.toLower();
    name.remove(QStringLiteral("hz"));
    name.replace(QLatin1Char(' '), QLatin1Char('-'));
    return name.remove(QLatin1Char('(')).remove(QLatin1Char(')'));
}

} // namespace

class TestParameters : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { recording::Sdk::instance().reset(); }

    void aNumberHasTheRangeOfItsField()
    {
        const Form form;
        for (const Row& row : fields()) {
            const Parameter& parameter = named(QLatin1String(row.parameter));
            // Those of a detector value change with the configuration.
            if (parameter.detector != nullptr) {
                continue;
            }
            const auto& field = form.find<QAbstractSpinBox>(QLatin1String(row.widget));
            QVERIFY2(parameter.minimum == field.property("minimum").toDouble(), row.parameter);
            QVERIFY2(parameter.maximum == field.property("maximum").toDouble(), row.parameter);
        }
    }

    void aListHasTheEntriesOfItsField()
    {
        const Form form;
        for (const Row& row : lists) {
            const Parameter& parameter = named(QLatin1String(row.parameter));
            const auto& list = form.find<QComboBox>(QLatin1String(row.widget));
            QVERIFY2(static_cast<int>(parameter.choices.size()) == list.count(), row.parameter);
            for (int index = 0; index < list.count(); ++index) {
                QCOMPARE(QLatin1String(parameter.choices[static_cast<std::size_t>(index)].name),
                         asName(list.itemText(index)));
            }
        }
    }

    void everyFieldOfTheParameterTabsHasAParameter()
    {
        const Form form;
        std::set<QString> known{QStringLiteral("xBadPixelCoordinate"),
                                QStringLiteral("yBadPixelCoordinate")};
        for (const Row& row : fields()) {
            known.insert(QLatin1String(row.widget));
        }
        for (const Row& row : lists) {
            known.insert(QLatin1String(row.widget));
        }
        const auto& tabs = form.find<QTabWidget>(QStringLiteral("tabWidget"));
        const QList<QAbstractSpinBox*> spins = tabs.findChildren<QAbstractSpinBox*>();
        for (const QAbstractSpinBox* spinBox : spins) {
            QVERIFY2(known.count(spinBox->objectName()) == 1, qPrintable(spinBox->objectName()));
        }
        const QList<QComboBox*> combos = tabs.findChildren<QComboBox*>();
        for (const QComboBox* list : combos) {
            QVERIFY2(known.count(list->objectName()) == 1, qPrintable(list->objectName()));
        }
    }

    void everyCheckableButtonHasASwitch()
    {
        const Form form;
        int buttons = 0;
        const auto& tabs = form.find<QTabWidget>(QStringLiteral("tabWidget"));
        const QList<QPushButton*> all = tabs.findChildren<QPushButton*>();
        for (const QPushButton* button : all) {
            // The shutter has its own words, and "Permanent" goes with the baud rate.
            buttons += static_cast<int>(button->isCheckable() &&
                                        button->objectName() != QLatin1String("shutterCtrlPB") &&
                                        button->objectName() != QLatin1String("PermanentButton"));
        }
        const auto switches =
            std::count_if(parameters().begin(), parameters().end(),
                          [](const Parameter& parameter) { return parameter.isSwitch; });
        QCOMPARE(static_cast<int>(switches), buttons);
    }

    void everyNameIsUsedOnce()
    {
        std::set<std::string> names;
        for (const Parameter& parameter : parameters()) {
            QVERIFY2(names.insert(parameter.name).second, parameter.name);
        }
    }

    void theTextOfAValueLeadsBackToIt_data()
    {
        QTest::addColumn<QString>("name");
        for (const Parameter& parameter : parameters()) {
            QTest::newRow(parameter.name) << QString::fromLatin1(parameter.name);
        }
    }

    void theTextOfAValueLeadsBackToIt()
    {
        QFETCH(QString, name);
        const Parameter& parameter = named(name);
        const auto& configuration = recording::Sdk::instance().configurationObject();
        for (const Choice& choice : parameter.choices) {
            const QString text = textOf(parameter, choice.value);
            QCOMPARE(text, QLatin1String(choice.name));
            QCOMPARE(valueOf(parameter, text, configuration).value.value(), choice.value);
        }
        if (!parameter.isNumber()) {
            return;
        }
        const Limits limits = limitsOf(parameter, configuration);
        std::mt19937 random(1);
        std::uniform_real_distribution<double> any(limits.minimum, limits.maximum);
        for (int times = 0; times < 1000; ++times) {
            double value = any(random);
            value = parameter.held != nullptr ? parameter.held(value) : std::floor(value);
            if (value < limits.minimum) {
                continue;
            }
            const QString text = textOf(parameter, value);
            QVERIFY2(!text.contains(QLatin1Char('e')), qPrintable(text));
            QVERIFY2(valueOf(parameter, text, configuration).value == value, qPrintable(text));
        }
        for (const double end : {limits.minimum, limits.maximum}) {
            QCOMPARE(valueOf(parameter, textOf(parameter, end), configuration).value.value(), end);
        }
    }

    void gammaReadsAsTheWindowShowsIt()
    {
        const Parameter& gamma = named(QStringLiteral("gamma"));
        QCOMPARE(textOf(gamma, 144179 / 65536.0), QStringLiteral("2.2"));
        QCOMPARE(textOf(gamma, 0.5), QStringLiteral("0.5"));
    }
};

QTEST_MAIN(TestParameters)
#include "tst_parameters.moc"
