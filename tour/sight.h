// SPDX-License-Identifier: MIT
// What the operator sees of the window: where things are on the screen and what they show. All of
// it belongs to the GUI thread; call it by inGui(). A thing that is not there throws Failure.
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QImage>
#include <QtWidgets/QDialog>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QWidget>

#include <stdexcept>

namespace tour {

/// Why a step did not have its expected effect.
class Failure : public std::runtime_error {
public:
    explicit Failure(const QString& reason) : std::runtime_error(reason.toStdString()) {}
};

namespace sight {

/// The main window, or null when none is shown.
QWidget* mainWindow();
/// The widget of the main window with this object name.
QWidget& widget(const QString& name);
template<typename Widget> Widget& find(const QString& name)
{
    auto* const found = qobject_cast<Widget*>(&widget(name));
    if (found == nullptr) {
        throw Failure(name + QStringLiteral(" is of another kind"));
    }
    return *found;
}
/// The tabs of the main window.
QTabWidget& tabs();

/// Where to click a widget, on the screen: its middle, or the mark of a check box. Fails when the
/// widget cannot be used or something covers it.
QPoint place(const QString& name);
/// Where to click the tab with this title.
QPoint tabPlace(const QString& title);
/// Where the handle of a slider stands, or would stand at this value.
QPoint handlePlace(const QString& slider, int value);
/// Where an entry of an open combo box is; null while it is not open.
QPoint entryPlace(const QString& combo, const QString& entry);

/// Caption of a button, text of a label, spin box, combo box or text pane.
QString text(const QString& name);
/// How a person calls the widget: by its caption, else by its name in the form.
QString callName(const QString& name);
QStringList logLines();

/// The message box or dialog that is open, or null.
QDialog* openDialog();
/// Everything that the program shows on the screen, frames included.
QRect shownArea();
QRect screen();
/// What the screen shows there, whoever shows it; parts outside of the screen are left out.
QImage picture(QRect area);

} // namespace sight
} // namespace tour
