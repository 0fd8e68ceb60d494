// SPDX-License-Identifier: MIT
// The form of the main window, alone: every widget, layout and text against the tables, and what
// an operator can type into its fields.
#include "mainwindow_table.h"
#include "revealingstyle.h"
#include "tests/kit/operator.h"
#include "tests/params/pairrows.h"
#include "translations.h"
#include "ui_mainwindow.h"

#include <QAccessible>
#include <QHash>
#include <QMap>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace {

/// A window with the form on it.
struct Form {
    QMainWindow window;
    Ui_MainWindow ui;
    Form() { ui.setupUi(&window); }

    template<typename Type = QWidget> [[nodiscard]] Type& get(const QString& name) const
    {
        return *window.findChild<Type*>(name);
    }

    /// Shows the window with the page that holds 'widget', and gives it the keyboard.
    void focus(QWidget& widget)
    {
        for (int index = 0; index < ui.tabWidget->count(); ++index) {
            if (ui.tabWidget->widget(index)->isAncestorOf(&widget)) {
                ui.tabWidget->setCurrentIndex(index);
            }
        }
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        widget.setEnabled(true);
        widget.setFocus();
        QTRY_VERIFY(widget.hasFocus());
    }

    /// Replaces what a field shows, as an operator does, and leaves the field.
    void type(QAbstractSpinBox& field, const QString& text)
    {
        focus(field);
        field.selectAll();
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, Qt::Key_Tab);
        QVERIFY(!field.hasFocus());
    }
};

/// A window with slots whose names the form could connect by itself.
class NamedSlots : public QMainWindow {
    Q_OBJECT

public:
    int clears = 0;
    int rates = 0;

public Q_SLOTS:
    void on_clearLogButton_clicked() { ++clears; }
    void on_BaudRateConnectCB_currentIndexChanged(int) { ++rates; }
};

QByteArray rowName(const char* root, const char* name)
{
    return QByteArray(root) + '/' + name;
}

/// A text that the operator can read and that is not empty.
bool isShownText(const Setting& setting)
{
    const bool isText =
        qstrcmp(setting.property, "text") == 0 || qstrcmp(setting.property, "toolTip") == 0;
    return isText && !setting.value.toString().isEmpty();
}

} // namespace

class TestMainWindowForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init() { warnings = std::make_unique<kit::Warnings>(); }
    void cleanup()
    {
        warnings->settle();
        warnings.reset();
    }

    void windowIsNamedOnlyWhenItHasNoName();
    void windowHasItsSizeColoursIconAndDocking();
    void windowTitleIsTheFormsOwnAndTranslated();

    void everyWidgetIsAsItsTableSays_data();
    void everyWidgetIsAsItsTableSays();
    void everyNameBelongsToOneObject();
    void layoutsNestAsTheTablesSay_data();
    void layoutsNestAsTheTablesSay();
    void membersAreDeclaredInTheOrderOfTheTables();
    void pagesStandInTheirOrder();
    void onlyTheNamedWidgetsStartDisabled();

    void firstChoicesAfterTheFormIsBuilt();
    void firstIndexesAreSetInOrderOnceTheTextsStand();
    void slotsAreConnectedByNameAfterTheFirstIndexes();
    void everyTextGoesThroughTranslation_data();
    void everyTextGoesThroughTranslation();
    void translatingAgainRestoresTheBaudRateAndTheLogoWithoutTip();
    void everyFieldIsNamedForAScreenReader();

    void fieldsTakeWhatIsInRange_data();
    void fieldsTakeWhatIsInRange();
    void regionFieldsStopAtTheirEdges_data();
    void regionFieldsStopAtTheirEdges();
    void gammaCannotLeaveItsRangeByTheArrowKeys();
    void zoomFactorMovesByAThousandth();
    void gmsSliderKeepsTheToolkitsRange();
    void graphicEditorIsVisibleButCannotBePressed();

private:
    std::unique_ptr<kit::Warnings> warnings;
    // For the rows of tables, which only look: a form of its own for each row would take long.
    std::unique_ptr<const Form> untouched;
    std::unique_ptr<const Form> translated;
};

void TestMainWindowForm::initTestCase()
{
    RevealingStyle::install();
    untouched = std::make_unique<const Form>();
    const MarkingTranslator translator("MainWindow");
    translated = std::make_unique<const Form>();
}

void TestMainWindowForm::cleanupTestCase()
{
    untouched.reset();
    translated.reset();
}

void TestMainWindowForm::windowIsNamedOnlyWhenItHasNoName()
{
    const Form form;
    QCOMPARE(form.window.objectName(), QStringLiteral("MainWindow"));

    QMainWindow named;
    named.setObjectName(QStringLiteral("Second"));
    Ui_MainWindow ui;
    ui.setupUi(&named);
    QCOMPARE(named.objectName(), QStringLiteral("Second"));
}

void TestMainWindowForm::windowHasItsSizeColoursIconAndDocking()
{
    const Form form;
    QCOMPARE(form.window.size(), QSize(1113, 1129));
    QCOMPARE(form.window.sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
    QCOMPARE(form.window.dockOptions(), QMainWindow::AnimatedDocks | QMainWindow::AllowTabbedDocks);

    QPalette white;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const auto role : {QPalette::Base, QPalette::Window}) {
            const QBrush& brush = form.window.palette().brush(group, role);
            QCOMPARE(brush.color(), QColor(255, 255, 255, 255));
            QCOMPARE(brush.style(), Qt::SolidPattern);
            white.setBrush(group, role, brush);
        }
    }
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCOMPARE(form.window.palette().resolve(), white.resolve());
#else
    QCOMPARE(form.window.palette().resolveMask(), white.resolveMask());
#endif

    const QImage camera = QIcon(QStringLiteral(":/picture/camera.ico")).pixmap(32, 32).toImage();
    QVERIFY(!camera.isNull());
    QCOMPARE(form.window.windowIcon().pixmap(32, 32).toImage(), camera);
}

void TestMainWindowForm::windowTitleIsTheFormsOwnAndTranslated()
{
    QCOMPARE(untouched->window.windowTitle(), QStringLiteral("Ombrix KV Tavrel"));
    QCOMPARE(translated->window.windowTitle(), QStringLiteral("->Ombrix KV Tavrel"));
}

void TestMainWindowForm::everyWidgetIsAsItsTableSays_data()
{
    QTest::addColumn<QString>("parent");
    QTest::addColumn<WidgetRow>("row");

    const WidgetRow central{
        "QWidget", "centralWidget", {setting::policy(QSizePolicy::Minimum, QSizePolicy::Minimum)}};
    QTest::newRow("centralWidget") << QStringLiteral("MainWindow") << central;
    for (const Page& page : pageTables()) {
        QTest::newRow(page.widget.name)
            << QStringLiteral("qt_tabwidget_stackedwidget") << page.widget;
    }
    for (const FormSection& section : allTables()) {
        for (const WidgetRow& row : section.widgets) {
            QTest::newRow(rowName(section.root, row.name))
                << QString::fromLatin1(section.root) << row;
        }
    }
}

void TestMainWindowForm::everyWidgetIsAsItsTableSays()
{
    QFETCH(const QString, parent);
    QFETCH(const WidgetRow, row);

    const auto* widget = untouched->window.findChild<QWidget*>(QLatin1String(row.name));
    QVERIFY(widget);
    QCOMPARE(widget->parentWidget()->objectName(), parent);
    QCOMPARE(differences(*widget, row).join(QStringLiteral("; ")), QString());
}

void TestMainWindowForm::everyNameBelongsToOneObject()
{
    const Form form;
    for (const QString& name : allMembers()) {
        if (!name.isEmpty()) {
            QVERIFY2(form.window.findChildren<QObject*>(name).size() == 1, qPrintable(name));
        }
    }
}

void TestMainWindowForm::layoutsNestAsTheTablesSay_data()
{
    QTest::addColumn<QString>("root");
    QTest::addColumn<QStringList>("outline");
    for (const FormSection& section : allTables()) {
        QTest::newRow(section.root) << QString::fromLatin1(section.root) << section.lines();
    }
}

void TestMainWindowForm::layoutsNestAsTheTablesSay()
{
    QFETCH(const QString, root);
    QFETCH(const QStringList, outline);
    QLayout* layout = untouched->get(root).layout();
    QVERIFY(layout);
    QCOMPARE(kit::Lines(outlineOf(*layout)), outline);
}

void TestMainWindowForm::membersAreDeclaredInTheOrderOfTheTables()
{
    const Form form;
    QHash<const void*, QString> names;
    for (const QObject* object : form.window.findChildren<QObject*>()) {
        names.insert(object, object->objectName());
    }
    // The form is nothing but pointers, one for each object; those of spacers have no name.
    std::array<const void*, sizeof(Ui_MainWindow) / sizeof(void*)> pointers{};
    std::memcpy(pointers.data(), &form.ui, sizeof pointers);
    kit::Lines members;
    for (const void* member : pointers) {
        members << names.value(member);
    }
    QCOMPARE(members, allMembers());
}

void TestMainWindowForm::pagesStandInTheirOrder()
{
    const Form form;
    QCOMPARE(form.window.centralWidget(), form.ui.centralWidget);
    const std::vector<Page> pages = pageTables();
    QCOMPARE(form.ui.tabWidget->count(), int(pages.size()));
    for (int index = 0; index < form.ui.tabWidget->count(); ++index) {
        const Page& page = pages[std::size_t(index)];
        QCOMPARE(form.ui.tabWidget->widget(index)->objectName(), QLatin1String(page.widget.name));
        QCOMPARE(form.ui.tabWidget->tabText(index), QLatin1String(page.title));
        QCOMPARE(translated->ui.tabWidget->tabText(index),
                 MarkingTranslator::marked(QLatin1String(page.title)));
        QVERIFY(form.ui.tabWidget->tabIcon(index).isNull());
        QVERIFY(form.ui.tabWidget->isTabEnabled(index));
    }
}

void TestMainWindowForm::onlyTheNamedWidgetsStartDisabled()
{
    const Form form;
    QStringList disabled;
    for (const QWidget* widget : form.window.findChildren<QWidget*>()) {
        if (!widget->isEnabledTo(widget->parentWidget()) &&
            allMembers().contains(widget->objectName())) {
            disabled << widget->objectName();
        }
    }
    disabled.sort(Qt::CaseInsensitive);
    QCOMPARE(disabled.join(QLatin1Char(' ')),
             QStringLiteral("BitTextEdit bpGraphicEditorButton checkBox label_2 LutLabel "
                            "readParamButtonUser resetParamButtonUser "
                            "Roi0ExcX1 Roi0ExcX2 Roi0ExcY1 Roi0ExcY2 "
                            "Roi1ExcX1 Roi1ExcX2 Roi1ExcY1 Roi1ExcY2 "
                            "Roi1IncX1 Roi1IncX2 Roi1IncY1 Roi1IncY2"));
}

void TestMainWindowForm::firstChoicesAfterTheFormIsBuilt()
{
    const Form form;
    QCOMPARE(form.ui.BaudRateConnectCB->currentText(), QStringLiteral("115200"));
    QCOMPARE(form.ui.frameRateCB->currentText(), QStringLiteral("9Hz"));
    QCOMPARE(form.ui.lutColorEdit->currentText(), QStringLiteral("GREYSCALE"));
    QCOMPARE(form.ui.BaudRateCB->currentText(), QStringLiteral("115200"));
    QCOMPARE(form.ui.tabWidget->tabText(form.ui.tabWidget->currentIndex()),
             QStringLiteral("Image Processing"));
    QCOMPARE(form.ui.selectDeviceComboBox->count(), 0);
    QCOMPARE(form.ui.selectDeviceComboBox->currentText(), QString());
}

void TestMainWindowForm::firstIndexesAreSetInOrderOnceTheTextsStand()
{
    QMainWindow window;
    Ui_MainWindow ui{};
    QStringList changes;
    bool centralWidgetWasSet = false;

    // The caption of the last button is the last text of all: everything is built by then, and
    // whatever index differs from the first choice is set back afterwards.
    const MarkingTranslator translator("MainWindow", [&](const QString& text) {
        if (text != QLatin1String("About...")) {
            return;
        }
        centralWidgetWasSet = window.centralWidget() == ui.centralWidget;
        const auto watch = [&](QComboBox* box) {
            box->setCurrentIndex(box->currentIndex() == 0 ? 1 : 0);
            connect(box, qOverload<int>(&QComboBox::currentIndexChanged), box,
                    [&changes, box](int index) {
                        changes << QStringLiteral("%1 %2").arg(box->objectName()).arg(index);
                    });
        };
        watch(ui.BaudRateConnectCB);
        ui.BaudRateConnectCB->setCurrentIndex(0);
        changes.clear();
        watch(ui.frameRateCB);
        watch(ui.lutColorEdit);
        watch(ui.BaudRateCB);
        ui.tabWidget->setCurrentIndex(3);
        connect(ui.tabWidget, &QTabWidget::currentChanged, ui.tabWidget,
                [&changes](int index) { changes << QStringLiteral("tabWidget %1").arg(index); });
    });
    ui.setupUi(&window);

    QVERIFY(centralWidgetWasSet);
    QCOMPARE(changes,
             QStringList({QStringLiteral("BaudRateConnectCB 1"), QStringLiteral("tabWidget 0"),
                          QStringLiteral("frameRateCB 0"), QStringLiteral("lutColorEdit 0"),
                          QStringLiteral("BaudRateCB 1")}));
}

void TestMainWindowForm::slotsAreConnectedByNameAfterTheFirstIndexes()
{
    NamedSlots window;
    Ui_MainWindow ui{};
    ui.setupUi(&window);
    QCOMPARE(window.rates, 0);
    ui.BaudRateConnectCB->setCurrentIndex(0);
    QCOMPARE(window.rates, 1);
    ui.clearLogButton->click();
    QCOMPARE(window.clears, 1);
}

void TestMainWindowForm::everyTextGoesThroughTranslation_data()
{
    QTest::addColumn<WidgetRow>("row");
    for (const FormSection& section : allTables()) {
        for (const WidgetRow& row : section.widgets) {
            const bool hasText =
                std::any_of(row.settings.begin(), row.settings.end(),
                            [](const Setting& setting) { return isShownText(setting); });
            if (hasText || !row.items.isEmpty()) {
                QTest::newRow(rowName(section.root, row.name)) << row;
            }
        }
    }
}

void TestMainWindowForm::everyTextGoesThroughTranslation()
{
    QFETCH(const WidgetRow, row);
    const auto& widget = translated->get(QLatin1String(row.name));
    for (const Setting& setting : row.settings) {
        if (isShownText(setting)) {
            QCOMPARE(widget.property(setting.property).toString(),
                     MarkingTranslator::marked(setting.value.toString()));
        }
    }
    if (const auto* box = qobject_cast<const QComboBox*>(&widget)) {
        for (int index = 0; index < box->count(); ++index) {
            QCOMPARE(box->itemText(index), MarkingTranslator::marked(row.items.at(index)));
        }
    }
}

void TestMainWindowForm::translatingAgainRestoresTheBaudRateAndTheLogoWithoutTip()
{
    Form form;
    form.ui.BaudRateCB->setCurrentIndex(4);
    form.ui.KVLogo->setToolTip(QStringLiteral("a camera"));
    form.ui.retranslateUi(&form.window);
    QCOMPARE(form.ui.BaudRateCB->currentText(), QStringLiteral("115200"));
    QCOMPARE(form.ui.KVLogo->toolTip(), QString());
}

void TestMainWindowForm::everyFieldIsNamedForAScreenReader()
{
    // The reader says what kind of field it is, so a slider and its spin box may share a name.
    QMap<QString, QString> fieldByName;
    int fields = 0;
    for (const QWidget* field : untouched->window.findChildren<QWidget*>()) {
        QString kind;
        for (const QMetaObject* type :
             {&QSlider::staticMetaObject, &QAbstractSpinBox::staticMetaObject,
              &QComboBox::staticMetaObject, &QPlainTextEdit::staticMetaObject}) {
            if (type->cast(field)) {
                kind = QLatin1String(type->className());
            }
        }
        if (kind.isEmpty()) {
            continue;
        }
        ++fields;
        const QString name = field->accessibleName();
        QVERIFY2(!name.isEmpty(), qPrintable(field->objectName()));
        QCOMPARE(translated->get(field->objectName()).accessibleName(),
                 MarkingTranslator::marked(name));
        const QString before = std::exchange(fieldByName[kind + name], field->objectName());
        QVERIFY2(before.isEmpty(), qPrintable(before + QLatin1Char(' ') + field->objectName()));
        const QAccessibleInterface* reader =
            QAccessible::queryAccessibleInterface(const_cast<QWidget*>(field));
        QVERIFY(reader);
        if (kind != QLatin1String("QComboBox")) {
            QCOMPARE(reader->text(QAccessible::Name), name);
        }
    }
    // A slider and a spin box of each pair, and what has no slider.
    QCOMPARE(fields, 2 * static_cast<int>(std::size(pairrows::rows)) + 23 + 9 + 4);
}

void TestMainWindowForm::fieldsTakeWhatIsInRange_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* field, const char* typed, const char* shown) {
        QTest::newRow(rowName(field, typed))
            << QString::fromLatin1(field) << QString::fromLatin1(typed)
            << QString::fromLatin1(shown);
    };
    // A key that cannot lead to a valid value is refused; what is too small is corrected.
    row("gammaEdit", "0.5", "0.5");
    row("gammaEdit", "2.5", "2.5");
    row("gammaEdit", "2.6", "2.0");
    row("gammaEdit", "3", "0.5");
    row("gammaEdit", "0.4", "0.5");
    row("gammaEdit", "1.25", "1.2");
    row("factorZoomEdit", "1.000", "1.000");
    row("factorZoomEdit", "8.000", "8.000");
    row("factorZoomEdit", "2.3456", "2.345");
    row("factorZoomEdit", "8.001", "8.000");
    row("factorZoomEdit", "9", "1.000");
    row("factorZoomEdit", "0.999", "1.000");
    row("xCenterZoomEdit", "640", "640");
    row("xCenterZoomEdit", "641", "64");
    row("yCenterZoomEdit", "480", "480");
    row("yCenterZoomEdit", "481", "48");
    row("xBadPixelCoordinate", "0", "0");
    row("xBadPixelCoordinate", "639", "639");
    row("xBadPixelCoordinate", "640", "64");
    row("yBadPixelCoordinate", "0", "0");
    row("yBadPixelCoordinate", "479", "479");
    row("yBadPixelCoordinate", "480", "48");
    row("gmsEdit", "4294967296", "4294967296");
    row("gmsEdit", "4294967297", "429496729");
}

void TestMainWindowForm::fieldsTakeWhatIsInRange()
{
    QFETCH(const QString, field);
    QFETCH(const QString, typed);
    QFETCH(const QString, shown);
    Form form;
    auto& spinBox = form.get<QAbstractSpinBox>(field);
    form.type(spinBox, typed);
    QCOMPARE(spinBox.text(), shown);
}

void TestMainWindowForm::regionFieldsStopAtTheirEdges_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("last");
    for (const char* region : {"Roi0Inc", "Roi1Inc", "Roi0Exc", "Roi1Exc"}) {
        for (const char* coordinate : {"X1", "X2", "Y1", "Y2"}) {
            const QByteArray field = QByteArray(region) + coordinate;
            QTest::newRow(field) << QString::fromLatin1(field)
                                 << (coordinate[0] == 'X' ? 635 : 475);
        }
    }
}

void TestMainWindowForm::regionFieldsStopAtTheirEdges()
{
    QFETCH(const QString, field);
    QFETCH(const int, last);
    Form form;
    auto& spinBox = form.get<QSpinBox>(field);
    form.type(spinBox, QStringLiteral("4"));
    QCOMPARE(spinBox.value(), 5);
    form.type(spinBox, QString::number(last));
    QCOMPARE(spinBox.value(), last);

    form.focus(spinBox);
    QTest::keyClick(&spinBox, Qt::Key_Up);
    QCOMPARE(spinBox.value(), last);
    form.type(spinBox, QString::number(last + 1)); // its last digit is refused
    QCOMPARE(spinBox.value(), last / 10);
}

void TestMainWindowForm::gammaCannotLeaveItsRangeByTheArrowKeys()
{
    Form form;
    form.focus(*form.ui.gammaEdit);
    QTest::keyClick(form.ui.gammaEdit, Qt::Key_Down);
    QCOMPARE(form.ui.gammaEdit->text(), QStringLiteral("0.5"));
    for (int press = 0; press < 20; ++press) {
        QTest::keyClick(form.ui.gammaEdit, Qt::Key_Up);
    }
    QCOMPARE(form.ui.gammaEdit->text(), QStringLiteral("2.5"));
    QTest::keyClick(form.ui.gammaEdit, Qt::Key_Up);
    QCOMPARE(form.ui.gammaEdit->text(), QStringLiteral("2.5"));
}

void TestMainWindowForm::zoomFactorMovesByAThousandth()
{
    Form form;
    form.focus(*form.ui.factorZoomEdit);
    QTest::keyClick(form.ui.factorZoomEdit, Qt::Key_Up);
    QCOMPARE(form.ui.factorZoomEdit->text(), QStringLiteral("1.001"));
}

void TestMainWindowForm::gmsSliderKeepsTheToolkitsRange()
{
    const Form form;
    QCOMPARE(form.ui.gmsSlider->minimum(), 0);
    QCOMPARE(form.ui.gmsSlider->maximum(), 99);
}

void TestMainWindowForm::graphicEditorIsVisibleButCannotBePressed()
{
    Form form;
    QPushButton* button = form.ui.bpGraphicEditorButton;
    const QSignalSpy clicks(button, &QPushButton::clicked);
    form.ui.tabWidget->setCurrentWidget(form.ui.BadPixelsSection);
    form.window.show();
    QVERIFY(button->isVisible());
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::keyClick(button, Qt::Key_Space);
    QVERIFY(clicks.isEmpty());
}

TAVREL_TEST_MAIN(TestMainWindowForm)

#include "tst_mainwindowform.moc"
