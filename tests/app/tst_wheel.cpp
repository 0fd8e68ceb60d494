// SPDX-License-Identifier: MIT
// The wheel over the window's lists.
#include "tests/kit/operator.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QSlider>

namespace {

void everyList()
{
    QTest::addColumn<QByteArray>("name");
    kit::Operator user;
    user.sdk.configuration.expertMode = 1;
    for (const QComboBox* list : user.window().findChildren<QComboBox*>()) {
        QTest::newRow(list->objectName().toLatin1().constData()) << list->objectName().toLatin1();
    }
}

/// A connected camera, and the list in sight on an index with one below and one above.
QComboBox& reach(kit::Operator& user, const QByteArray& name)
{
    user.sdk.configuration.expertMode = 1;
    user.connectCamera();
    auto& list = user.find<QComboBox>(name.constData());
    list.setEnabled(true);
    while (list.count() < 3) {
        list.addItem(QStringLiteral("one more"));
    }
    list.setCurrentIndex(1);
    user.find<QTabWidget>("tabWidget").setFocus();
    for (QWidget* page = &list; page != nullptr; page = page->parentWidget()) {
        auto& tabs = user.find<QTabWidget>("tabWidget");
        if (tabs.indexOf(page) >= 0) {
            tabs.setCurrentWidget(page);
        }
    }
    user.forget();
    return list;
}

} // namespace

class TestWheel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aListWithoutFocusLetsTheWheelPass_data() { everyList(); }
    void aListWithoutFocusLetsTheWheelPass()
    {
        QFETCH(QByteArray, name);
        kit::Operator user;
        const QComboBox& list = reach(user, name);
        QWidget* const focused = QApplication::focusWidget();
        user.wheel(name.constData(), -1);
        user.wheel(name.constData(), -1);
        user.wheel(name.constData(), 1);
        QCOMPARE(list.currentIndex(), 1);
        QVERIFY(!list.hasFocus());
        QCOMPARE(QApplication::focusWidget(), focused);
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    void aListInFocusAnswersTheWheel_data() { everyList(); }
    void aListInFocusAnswersTheWheel()
    {
        QFETCH(QByteArray, name);
        kit::Operator user;
        QComboBox& list = reach(user, name);
        list.setFocus();
        QVERIFY(list.hasFocus());
        user.wheel(name.constData(), -1);
        QCOMPARE(list.currentIndex(), 2);
        user.wheel(name.constData(), 1);
        QCOMPARE(list.currentIndex(), 1);
    }

    void anEditIsNotEndedByTheWheelOverAList()
    {
        kit::Operator user;
        reach(user, "lutColorEdit");
        user.type("gammaEdit", "2", Qt::Key_unknown);
        user.wheel("lutColorEdit", -1);
        QVERIFY(user.widget("gammaEdit").hasFocus());
        QCOMPARE(user.calls(), QStringList());
    }

    void theWheelGoesOnToWhatIsAroundTheList()
    {
        kit::Operator user;
        QComboBox& list = reach(user, "frameRateCB");
        const QPointF middle = list.rect().center();
        QWheelEvent event(middle, list.mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&list, &event);
        QVERIFY(!event.isAccepted());
        QCOMPARE(list.currentIndex(), 1);
    }

    void aSliderAnswersTheWheelAsBefore()
    {
        kit::Operator user;
        reach(user, "lutColorEdit");
        const int before = user.sliderValue("clheSlider");
        user.wheel("clheSlider", 1);
        QVERIFY(user.sliderValue("clheSlider") != before);
        QCOMPARE(user.calls(), QStringList());
    }
};

TAVREL_TEST_MAIN(TestWheel)
#include "tst_wheel.moc"
