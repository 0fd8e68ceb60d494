// SPDX-License-Identifier: MIT
#include "tests/kit/boxes.h"

#include "tests/kit/widgets.h"

#include <QtCore/QEvent>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <algorithm>

namespace kit {

namespace {

QString describe(const QDialog& dialog)
{
    const auto* const box = qobject_cast<const QMessageBox*>(&dialog);
    return QStringLiteral("\"%1\" / \"%2\"")
        .arg(dialog.windowTitle(), box != nullptr ? box->text() : QString());
}

} // namespace

Boxes::Boxes()
{
    qApp->installEventFilter(this);
}

Boxes::~Boxes()
{
    qApp->removeEventFilter(this);
}

void Boxes::expect(Box box, const Place& place)
{
    announcements.push_back({std::move(box), place});
}

int Boxes::awaited() const
{
    return static_cast<int>(announcements.size());
}

void Boxes::settle()
{
    for (const auto& [box, place] : announcements) {
        fail(QStringLiteral("a box did not come: \"%1\" / \"%2\"")
                 .arg(QString::fromStdString(box.title), QString::fromStdString(box.text)),
             place);
    }
    announcements.clear();
    for (const Open& box : open) {
        requireHandled(box);
    }
    open.clear();
}

void Boxes::requireHandled(const Open& box)
{
    if (!box.handled) {
        fail(QStringLiteral("a box was gone before it could be answered: \"%1\"")
                 .arg(box.announced ? QString::fromStdString(box.announced->box.title)
                                    : QStringLiteral("unexpected")),
             box.announced ? box.announced->place : calledFrom());
    }
}

bool Boxes::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show) {
        if (auto* const dialog = qobject_cast<QDialog*>(watched)) {
            open.push_back({dialog, nullptr});
            if (!announcements.empty()) {
                open.back().announced =
                    std::make_unique<Announced>(std::move(announcements.front()));
                announcements.pop_front();
            }
            QMetaObject::invokeMethod(this, &Boxes::answerTopmost, Qt::QueuedConnection);
        }
    }
    return QObject::eventFilter(watched, event);
}

void Boxes::answerTopmost()
{
    open.remove_if([](const Open& box) {
        const bool gone = box.dialog.isNull();
        if (gone) {
            requireHandled(box);
        }
        return gone;
    });
    // Only the box on top takes input; one below it has its turn when that one is gone.
    const auto top = std::find_if(open.rbegin(), open.rend(), [](const Open& box) {
        return box.dialog == QApplication::activeModalWidget();
    });
    if (top == open.rend() || top->handled) {
        return;
    }
    top->handled = true;
    const QPointer<QDialog> dialog = top->dialog;
    const auto announced = std::move(top->announced);
    if (!announced) {
        fail(QStringLiteral("an unexpected box came: ") + describe(*dialog));
        dialog->close();
    } else {
        compare(*dialog, *announced);
        if (announced->box.whileOpen) {
            announced->box.whileOpen(*dialog);
        }
        if (!dialog.isNull()) {
            answer(*dialog, *announced);
        }
    }
    QMetaObject::invokeMethod(this, &Boxes::answerTopmost, Qt::QueuedConnection);
}

void Boxes::compare(const QDialog& dialog, const Announced& announced)
{
    const auto require = [&](bool condition, const QString& wanted) {
        if (!condition) {
            fail(QStringLiteral("the box %1 came, wanted: %2").arg(describe(dialog), wanted),
                 announced.place);
        }
    };
    const Box& wanted = announced.box;
    require(dialog.isModal(), QStringLiteral("a modal one"));
    require(dialog.windowTitle() == QString::fromStdString(wanted.title),
            QStringLiteral("the title \"%1\"").arg(QString::fromStdString(wanted.title)));
    const auto* const box = qobject_cast<const QMessageBox*>(&dialog);
    require((box == nullptr) == (wanted.kind == Box::Dialog),
            QStringLiteral("the other kind of window"));
    if (box == nullptr) {
        return;
    }
    require(box->text() == QString::fromStdString(wanted.text),
            QStringLiteral("the text \"%1\"").arg(QString::fromStdString(wanted.text)));
    require((box->icon() == QMessageBox::Warning) == (wanted.kind == Box::Warning),
            QStringLiteral("the other kind of message box"));
    require(box->icon() == QMessageBox::Warning || box->icon() == QMessageBox::NoIcon,
            QStringLiteral("about or warning"));
    require(box->standardButtons() == QMessageBox::Ok, QStringLiteral("one OK button"));
    require(box->parentWidget() != nullptr, QStringLiteral("a parent window"));
}

void Boxes::answer(QDialog& dialog, const Announced& announced)
{
    const Box::Answer how = announced.box.answer;
    const auto button = widgets::button(dialog);
    if (how == Box::Frame) {
        dialog.close();
    } else if (how == Box::Escape || !button) {
        QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
    } else {
        QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, Qt::NoModifier, *button);
    }
    if (dialog.isVisible()) {
        fail(QStringLiteral("the box %1 did not close").arg(describe(dialog)), announced.place);
        dialog.close();
    }
}

} // namespace kit
