// SPDX-License-Identifier: MIT
// What the desktop does around the form: the wheel of its mouse.
#include "app/mainwindow.h"
#include "ui/wheel.h"

#include <QtCore/QEvent>

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    return tavrel::isWheelBesideFocus(*this, watched, *event) ||
           QMainWindow::eventFilter(watched, event);
}
