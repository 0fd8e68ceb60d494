// SPDX-License-Identifier: MIT
#include "tests/kit/boxes.h"

#include "tests/kit/failure.h"

#include <QtCore/QEvent>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
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

void require(bool condition, const QDialog& dialog, const QString& wanted)
{
    if (!condition) {
        fail(QStringLiteral("the box %1 came, wanted: %2").arg(describe(dialog), wanted));
    }
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

void Boxes::expect(Box box)
{
    announcements.push_back(std::move(box));
}

int Boxes::awaited() const
{
    return static_cast<int>(announcements.size());
}

void Boxes::settle()
{
    for (const Box& box : announcements) {
        fail(QStringLiteral("a box did not come: \"%1\" / \"%2\"")
                 .arg(QString::fromStdString(box.title), QString::fromStdString(box.text)));
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
                 .arg(box.announced ? QString::fromStdString(box.announced->title)
                                    : QStringLiteral("unexpected")));
    }
}

bool Boxes::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show) {
        if (auto* const dialog = qobject_cast<QDialog*>(watched)) {
            open.push_back({dialog, nullptr});
            if (!announcements.empty()) {
                open.back().announced = std::make_unique<Box>(std::move(announcements.front()));
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
        if (announced->whileOpen) {
            announced->whileOpen(*dialog);
        }
        if (!dialog.isNull()) {
            answer(*dialog, announced->answer);
        }
    }
    QMetaObject::invokeMethod(this, &Boxes::answerTopmost, Qt::QueuedConnection);
}

void Boxes::compare(const QDialog& dialog, const Box& announced)
{
    require(dialog.isModal(), dialog, QStringLiteral("a modal one"));
    require(dialog.windowTitle() == QString::fromStdString(announced.title), dialog,
            QStringLiteral("the title \"%1\"").arg(QString::fromStdString(announced.title)));
    const auto* const box = qobject_cast<const QMessageBox*>(&dialog);
    require((box == nullptr) == (announced.kind == Box::Dialog), dialog,
            QStringLiteral("the other kind of window"));
    if (box == nullptr) {
        return;
    }
    require(box->text() == QString::fromStdString(announced.text), dialog,
            QStringLiteral("the text \"%1\"").arg(QString::fromStdString(announced.text)));
    require((box->icon() == QMessageBox::Warning) == (announced.kind == Box::Warning), dialog,
            QStringLiteral("the other kind of message box"));
    require(box->icon() == QMessageBox::Warning || box->icon() == QMessageBox::NoIcon, dialog,
            QStringLiteral("about or warning"));
    require(box->standardButtons() == QMessageBox::Ok, dialog, QStringLiteral("one OK button"));
    require(box->parentWidget() != nullptr, dialog, QStringLiteral("a parent window"));
}

void Boxes::answer(QDialog& dialog, Box::Answer how)
{
    const auto buttons = dialog.findChildren<QAbstractButton*>();
    if (how == Box::Frame) {
        dialog.close();
    } else if (how == Box::Escape || buttons.isEmpty()) {
        QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
    } else {
        QAbstractButton* const button = buttons.first();
        QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          button->mapTo(&dialog, button->rect().center()));
    }
    if (dialog.isVisible()) {
        fail(QStringLiteral("the box %1 did not close").arg(describe(dialog)));
        dialog.close();
    }
}

} // namespace kit
