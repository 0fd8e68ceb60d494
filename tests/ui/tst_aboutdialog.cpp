// SPDX-License-Identifier: MIT
// The About dialog.
#include "formtable.h"
#include "revealingstyle.h"
#include "tests/kit/operator.h"
#include "translations.h"
#include "ui/dialog.h"
#include "ui/version.h"
#include "ui_dialog.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace {

QString shownBy(const Dialog& dialog, const char* label)
{
    return dialog.findChild<QLabel*>(QLatin1String(label))->text();
}

/// The form as the designer left it, its spacing that of the style; the dialog itself replaces two
/// of the texts.
FormSection formTable()
{
    using namespace setting;
    constexpr auto Fixed = QSizePolicy::Fixed;
    return {"verticalLayoutWidget",
            R"(
verticalLayout QVBoxLayout 17
  horizontalLayout_3 QHBoxLayout 17
    label_4
    NomProduit
  horizontalLayout_2 QHBoxLayout 17
    label_2
    VersionProduit
  horizontalLayout_4 QHBoxLayout 17
    label_3
)",
            {
                {"QLabel", "label_4", {text("Nom du produit : "), policy(Fixed, Fixed)}},
                {"QLabel", "NomProduit", {text("TextLabel")}},
                {"QLabel", "label_2", {text("Version du produit :"), policy(Fixed, Fixed)}},
                {"QLabel", "VersionProduit", {text("TextLabel")}},
                {"QLabel", "label_3", {text("Produit par Halvorn Technologies")}},
            }};
}

} // namespace

class TestAboutDialog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { RevealingStyle::install(); }
    void init() { warnings = std::make_unique<kit::Warnings>(); }
    void cleanup()
    {
        warnings->settle();
        warnings.reset();
    }

    void showsNameAndVersionOfTheProduct();
    void keepsItsFrenchCaptions();
    void versionIsThatOfTheBuild();
    void standsAloneOrBelongsToItsParent();
    void hasItsTitleNameAndSize();
    void everyLabelIsAsItsTableSays_data();
    void everyLabelIsAsItsTableSays();
    void layoutsNestAsTheTableSays();
    void captionsAreTranslatedButNameAndVersionAreNot();
    void closingItEndsItsEventLoop();

private:
    std::unique_ptr<kit::Warnings> warnings;
};

void TestAboutDialog::showsNameAndVersionOfTheProduct()
{
    const Dialog dialog(nullptr);
    QCOMPARE(shownBy(dialog, "NomProduit"), QStringLiteral("Tavrel KV"));
    QCOMPARE(shownBy(dialog, "VersionProduit"), QStringLiteral("1.4.1"));
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        QVERIFY(!label->text().contains(QStringLiteral("TextLabel")));
    }
}

void TestAboutDialog::keepsItsFrenchCaptions()
{
    const Dialog dialog(nullptr);
    QCOMPARE(shownBy(dialog, "label_4"), QStringLiteral("Nom du produit : "));
    QCOMPARE(shownBy(dialog, "label_2"), QStringLiteral("Version du produit :"));
    QCOMPARE(shownBy(dialog, "label_3"), QStringLiteral("Produit par Halvorn Technologies"));
}

void TestAboutDialog::versionIsThatOfTheBuild()
{
    QCOMPARE(QLatin1String(tavrel::productVersion), QLatin1String(TAVREL_BUILD_VERSION));
}

void TestAboutDialog::standsAloneOrBelongsToItsParent()
{
    const Dialog alone(nullptr);
    QVERIFY(!alone.parentWidget());
    QCOMPARE(alone.windowFlags(), QDialog().windowFlags());
    QVERIFY(!alone.isModal());

    QWidget owner;
    const Dialog owned(&owner);
    QCOMPARE(owned.parentWidget(), &owner);
}

void TestAboutDialog::hasItsTitleNameAndSize()
{
    const Dialog dialog(nullptr);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("About"));
    QCOMPARE(dialog.objectName(), QStringLiteral("Dialog"));
    QCOMPARE(dialog.size(), QSize(324, 145));
    const auto* place = dialog.findChild<QWidget*>(QStringLiteral("verticalLayoutWidget"));
    QCOMPARE(place->parentWidget(), &dialog);
    QCOMPARE(place->geometry(), QRect(0, 0, 321, 141));
    QVERIFY(!dialog.layout());

    QDialog named;
    named.setObjectName(QStringLiteral("Second"));
    Ui_Dialog().setupUi(&named);
    QCOMPARE(named.objectName(), QStringLiteral("Second"));
}

void TestAboutDialog::everyLabelIsAsItsTableSays_data()
{
    QTest::addColumn<WidgetRow>("row");
    for (const WidgetRow& row : formTable().widgets) {
        QTest::newRow(row.name) << row;
    }
}

void TestAboutDialog::everyLabelIsAsItsTableSays()
{
    QFETCH(const WidgetRow, row);
    QDialog dialog;
    Ui_Dialog().setupUi(&dialog);
    const auto labels = dialog.findChildren<QWidget*>(QLatin1String(row.name));
    QCOMPARE(labels.size(), 1);
    QCOMPARE(labels.first()->parentWidget()->objectName(), QLatin1String(formTable().root));
    QCOMPARE(differences(*labels.first(), row).join(QStringLiteral("; ")), QString());
}

void TestAboutDialog::layoutsNestAsTheTableSays()
{
    const Dialog dialog(nullptr);
    const auto* place = dialog.findChild<QWidget*>(QLatin1String(formTable().root));
    QCOMPARE(kit::Lines(outlineOf(*place->layout())), formTable().lines());
}

void TestAboutDialog::captionsAreTranslatedButNameAndVersionAreNot()
{
    const MarkingTranslator translator("Dialog");
    const Dialog dialog(nullptr);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("->About"));
    QCOMPARE(shownBy(dialog, "label_4"), QStringLiteral("->Nom du produit : "));
    QCOMPARE(shownBy(dialog, "label_2"), QStringLiteral("->Version du produit :"));
    QCOMPARE(shownBy(dialog, "label_3"), QStringLiteral("->Produit par Halvorn Technologies"));
    QCOMPARE(shownBy(dialog, "NomProduit"), QStringLiteral("Tavrel KV"));
    QCOMPARE(shownBy(dialog, "VersionProduit"), QStringLiteral("1.4.1"));
}

void TestAboutDialog::closingItEndsItsEventLoop()
{
    Dialog dialog(nullptr);
    bool wasOpen = false;
    QTimer::singleShot(0, &dialog, [&] {
        wasOpen = dialog.isVisible();
        dialog.close();
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(wasOpen);
    QVERIFY(!dialog.isVisible());
}

TAVREL_TEST_MAIN(TestAboutDialog)

#include "tst_aboutdialog.moc"
