// SPDX-License-Identifier: MIT
// The floor of a start: a program that builds the same form, with the same pictures, and shows it.
// Nothing is connected, no camera library is loaded.
#include "ui_mainwindow.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QMainWindow>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QMainWindow window;
    Ui_MainWindow form;
    form.setupUi(&window);
    window.show();
    return QApplication::exec();
}
