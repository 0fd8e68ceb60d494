// SPDX-License-Identifier: MIT
// What the desktop does around the form: its colours, its fonts, and the wheel of its mouse.
#include "app/mainwindow.h"
#include "ui/largefonts.h"
#include "ui/lightcolours.h"
#include "ui/wheel.h"

#include <QtCore/QEvent>

bool MainWindow::event(QEvent* event)
{
    const bool handled = QMainWindow::event(event);
    if (event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::StyleChange) {
        tavrel::keepColoursReadable(*this);
    }
    if (event->type() == QEvent::FontChange && centralWidget() != nullptr) {
        tavrel::makeRoomForFonts(*ui);
    }
    return handled;
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    return tavrel::isWheelBesideFocus(*this, watched, *event) ||
           QMainWindow::eventFilter(watched, event);
}
