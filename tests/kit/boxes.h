// SPDX-License-Identifier: MIT
// Answers the tool's message boxes and dialogs, each as the test announced it.
#pragma once

#include "tests/kit/failure.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QDialog>
#include <QtWidgets/QMessageBox>

#include <functional>
#include <list>
#include <memory>
#include <string>

namespace kit {

/// What a box must look like, and how it is answered. Texts are UTF-8.
struct Box {
    enum Kind {
        About,   ///< QMessageBox::about: no icon of its own
        Warning, ///< QMessageBox::warning
        Dialog   ///< a dialog of the tool's own; of the looks, only the title is compared
    };
    enum Answer {
        Click,  ///< a mouse click on the only button
        Escape, ///< the Escape key
        Frame   ///< the close button of the window frame
    };

    Kind kind = About;
    std::string title = {};
    std::string text = {};
    /// Runs while the box is open, before it is answered; may let events run.
    std::function<void(QDialog&)> whileOpen = {};
    Answer answer = Click;
};

class Boxes : public QObject {
public:
    Boxes();
    ~Boxes() override;

    /// The next box to appear, after those announced before.
    void expect(Box box, const Place& place = Place::current());
    /// How many announced boxes have not appeared yet.
    [[nodiscard]] int awaited() const;
    /// Fails the test for each announced box that never came, and for each box that went away
    /// before it could be looked at and answered.
    void settle();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Announced {
        Box box;
        Place place; ///< where a failure about it is reported
    };
    struct Open {
        QPointer<QDialog> dialog;
        std::unique_ptr<Announced> announced; ///< null when nobody announced it
        bool handled = false;
    };

    void answerTopmost();
    static void requireHandled(const Open& box);
    static void compare(const QDialog& dialog, const Announced& announced);
    static void answer(QDialog& dialog, const Announced& announced);

    std::list<Announced> announcements;
    std::list<Open> open; ///< in the order of appearance
};

} // namespace kit
