// SPDX-License-Identifier: MIT
#include "params/switchbuttons.h"

#include "app/mainwindow.h"

namespace tavrel {

void alignCaption(QPushButton& button, const Captions& captions)
{
    const bool on = button.isChecked();
    const auto opposite = QLatin1String(on ? captions.off : captions.on);
    if (button.text() == opposite) {
        button.setText(QLatin1String(on ? captions.on : captions.off));
    }
}

} // namespace tavrel

using tavrel::SwitchButton;
namespace switchbutton = tavrel::switchbutton;

void MainWindow::readSwitch(const SwitchButton& row)
{
    const bool on = (camera->*row.get)() != 0;
    QPushButton* button = ui->*row.button;
    button->setChecked(on);
    button->setText(QLatin1String(on ? row.captions.on : row.captions.off));
    appendLog(std::string(row.label) + (on ? row.onWord : row.offWord));
}

void MainWindow::setSwitch(const SwitchButton& row)
{
    // The SDK sees its root asked for before every switch, although only the camera is used.
    ombrix_sdk::OmbrixSdk::get_instance();
    if (!mayCommand()) {
        return;
    }
    QPushButton* button = ui->*row.button;
    const ombrix_sdk::Flag result = row.set(*camera, button->isChecked());
    // A refused command leaves check state and caption at odds until the next read: nothing is
    // rolled back, so that the operator sees what he asked for.
    if (result != 0) {
        alignCaption(*button, row.captions);
    }
    reportResult(result, row.ok, row.ko);
}

#define SWITCH(group, name, word, get, set, button, caption, label, on, off, ok, ko, handler)      \
    void MainWindow::handler()                                                                     \
    {                                                                                              \
        setSwitch(switchbutton::name);                                                             \
    }
#include "params/switches.def"
