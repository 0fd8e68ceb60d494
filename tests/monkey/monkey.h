// SPDX-License-Identifier: MIT
// An operator without a plan: random input events at the real window, each drawn from a seed.
#pragma once

#include "app/mainwindow.h"
#include "tests/kit/ports.h"
#include "tests/monkey/draw.h"

#include <QtCore/QObject>
#include <QtCore/QPoint>
#include <QtCore/QStack>
#include <QtCore/QString>

#include <cstdint>

class QDialog;
class QMenu;
class QTimer;
class QWindow;

namespace monkey {

class Monkey : public QObject {
public:
    explicit Monkey(std::uint64_t seed);
    ~Monkey() override;

    /// The window from now on.
    void sitDownAt(MainWindow& mainWindow);
    /// One random action, with every box and list that it opened closed again.
    void act();
    /// The latest action, for a report.
    [[nodiscard]] QString action() const { return latest; }
    /// What the monkey itself could not bring about, or an empty text.
    [[nodiscard]] QString finding() const { return trouble; }
    /// Boxes that were answered so far.
    [[nodiscard]] int boxes() const { return answered; }
    /// Adapters pulled in the middle of an edit, a drag or a box.
    [[nodiscard]] int pulls() const { return pulled; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Action;
    static const Action actions[];

    void pressAButton();
    void clickAnywhere();
    void dragASlider();
    void turnTheWheel();
    void typeANumber();
    void pressKeys();
    void openAList();
    void changeTab();
    void letASecondPass();
    void pullTheAdapter();
    void plugOrUnplug();
    void goOnline();
    void goOffline();
    void changeThePort();
    void resizeTheWindow();
    void clearTheLog();
    void callBySlotName();

    template<typename Widget> Widget* reachable();
    QPoint anyPointOf(const QWidget& widget);
    void click(QPoint position, Qt::MouseButton button = Qt::LeftButton);
    bool clickOn(const char* name);
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    [[nodiscard]] bool mayPress(const QWidget* widget);
    QTimer& timer();
    QWindow& surface();

    void attend();
    void meddle(QDialog& dialog);
    void inspect(const QDialog& dialog);
    void closeBox(QDialog& dialog);
    void endLoopOf(QMenu& menu);
    static void strike(QWidget& list, Qt::Key key);
    void leaveLists();

    Draw draw;
    kit::Ports ports;
    MainWindow* window = nullptr;
    QString latest;
    QString trouble;
    int answered = 0;
    int pulled = 0;
    QStack<const QDialog*> attended; ///< the boxes above one another that are being answered
    int untilLongNuc = 500;          ///< actions before the next correction that blocks
};

} // namespace monkey
