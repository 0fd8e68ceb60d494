// SPDX-License-Identifier: MIT
// Prints where the widgets of the tool's window are: "PAGE NAME X Y" a line, where to click the
// widget, in pixels from the window's upper left corner. PAGE is "-" for what always shows, else
// the number of the tab's page; the tabs themselves are called "tab0", "tab1" and so on. The handle
// of a slider at its minimum has a place of its own, called after the slider and ".minimum".
//
// The program that an operator runs has the same window in the same places, as long as both run
// with the same fonts and the same size of screen.

#include "app/mainwindow.h"
#include "tests/kit/widgets.h"

#include <QtCore/QTextStream>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QSlider>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>

#include <cstdio>

namespace {

void print(QTextStream& out, const QString& page, const QString& name, QPoint place)
{
    out << page << ' ' << name << ' ' << place.x() << ' ' << place.y() << '\n';
}

void printShown(QTextStream& out, const QString& page, const QWidget& window, const QWidget& under)
{
    for (const QWidget* widget : under.findChildren<QWidget*>()) {
        // Names that begin with "qt_" belong to the toolkit's inner parts.
        const QString name = widget->objectName();
        if (widget->isVisible() && !name.isEmpty() && !name.startsWith(QLatin1String("qt_"))) {
            print(out, page, name, widget->mapTo(&window, widgets::place(*widget)));
            if (const auto* slider = qobject_cast<const QSlider*>(widget)) {
                const QPoint handle = widgets::handle(*slider, slider->minimum()).center();
                print(out, page, name + QLatin1String(".minimum"), slider->mapTo(&window, handle));
            }
        }
    }
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    ombrix_sdk::OmbrixSdk::get_instance()->initialize();
    MainWindow window;
    window.show();
    if (!QTest::qWaitForWindowExposed(&window)) {
        return 1;
    }

    QTextStream out(stdout);
    auto& tabs = *widgets::find<QTabWidget>(window, QStringLiteral("tabWidget"));
    for (int page = 0; page < tabs.count(); ++page) {
        tabs.setCurrentIndex(page);
        QApplication::processEvents();
        const QTabBar& bar = *tabs.tabBar();
        print(out, QStringLiteral("-"), QStringLiteral("tab%1").arg(page),
              bar.mapTo(&window, bar.tabRect(page).center()));
        printShown(out, QString::number(page), window, *tabs.currentWidget());
    }
    // What is on no page shows with any of them.
    for (int page = 0; page < tabs.count(); ++page) {
        tabs.widget(page)->hide();
    }
    printShown(out, QStringLiteral("-"), window, window);
    return 0;
}
