// SPDX-License-Identifier: MIT
// The About dialog as the main window opens it.
#include "tests/kit/operator.h"

#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace {

/// What the dialog's label with this name says.
QString labelText(const QDialog& dialog, const char* name)
{
    const auto* const label = dialog.findChild<QLabel*>(QLatin1String(name));
    return label != nullptr ? label->text() : QStringLiteral("no such label");
}

kit::Box about(std::function<void(QDialog&)> look, kit::Box::Answer answer = kit::Box::Frame)
{
    return {
        .kind = kit::Box::Dialog, .title = "About", .whileOpen = std::move(look), .answer = answer};
}

} // namespace

class TestAbout : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theDialogNamesProductAndVersion()
    {
        kit::Operator user;
        user.expectBox(about([](QDialog& dialog) {
            QCOMPARE(labelText(dialog, "NomProduit"), QStringLiteral("Tavrel KV"));
            QCOMPARE(labelText(dialog, "VersionProduit"), QStringLiteral("1.4.1"));
        }));
        user.click("AboutButton");
    }

    void theDialogIsModalAndHasNoParent()
    {
        kit::Operator user;
        user.expectBox(about([](QDialog& dialog) {
            QVERIFY(dialog.isModal());
            QCOMPARE(dialog.parentWidget(), nullptr);
        }));
        user.click("AboutButton");
    }

    void theMainWindowTakesNoInputMeanwhile()
    {
        kit::Operator user;
        user.connectCamera();
        user.expectBox(about([&](QDialog&) {
            user.click("TestPatternButton");
            user.click("AboutButton");
        }));
        user.click("AboutButton");
        QCOMPARE(user.calls(), QStringList());
        QVERIFY(!user.checked("TestPatternButton"));
    }

    void closingItChangesNothing_data()
    {
        QTest::addColumn<int>("answer");
        QTest::newRow("close button") << int(kit::Box::Frame);
        QTest::newRow("Escape") << int(kit::Box::Escape);
    }

    void closingItChangesNothing()
    {
        QFETCH(int, answer);
        kit::Operator user;
        user.connectCamera();
        user.expectBox(about({}, kit::Box::Answer(answer)));
        user.click("AboutButton");
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
        QVERIFY(user.enabled("disconnectDeviceButton"));
        user.click("TestPatternButton");
        QCOMPARE(user.calls(), kit::lines({"camera.setTestPattern(true)"}));
    }

    void eachClickOpensAFreshOne()
    {
        kit::Operator user;
        QPointer<QDialog> first;
        user.expectBox(about([&](QDialog& dialog) {
            first = &dialog;
            dialog.findChild<QLabel*>(QStringLiteral("NomProduit"))->setText(QString());
        }));
        user.click("AboutButton");
        QVERIFY(first.isNull());
        user.expectBox(about([](QDialog& dialog) {
            QCOMPARE(labelText(dialog, "NomProduit"), QStringLiteral("Tavrel KV"));
        }));
        user.click("AboutButton");
    }

    void itCanBeOpenedWithoutACamera()
    {
        kit::Operator user;
        user.start();
        QVERIFY(user.enabled("AboutButton"));
        user.expectBox(about({}));
        user.click("AboutButton");
        QCOMPARE(user.boxesAwaited(), 0);
    }
};

TAVREL_TEST_MAIN(TestAbout)
#include "tst_about.moc"
