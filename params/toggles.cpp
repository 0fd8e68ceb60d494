// SPDX-License-Identifier: MIT
#include "params/toggles.h"

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

using tavrel::Toggle;
namespace toggle = tavrel::toggle;

void MainWindow::readToggle(const Toggle& toggle)
{
    const bool on = (camera->*toggle.get)() != 0;
    QPushButton* button = ui->*toggle.button;
    button->setChecked(on);
    button->setText(QLatin1String(on ? toggle.captions.on : toggle.captions.off));
    appendLog(std::string(toggle.label) + (on ? toggle.onWord : toggle.offWord));
}

void MainWindow::setToggle(const Toggle& toggle)
{
    // The SDK sees its root asked for before every switch, although only the camera is used.
    ombrix_sdk::OmbrixSdk::get_instance();
    if (!mayCommand()) {
        return;
    }
    QPushButton* button = ui->*toggle.button;
    const ombrix_sdk::Flag result = toggle.set(*camera, button->isChecked());
    // A refused command leaves check state and caption at odds until the next read: nothing is
    // rolled back, so that the operator sees what he asked for.
    if (result != 0) {
        alignCaption(*button, toggle.captions);
    }
    reportResult(result, toggle.ok, toggle.ko);
}

#define SWITCH(group, name, word, get, set, button, caption, label, on, off, ok, ko, handler)      \
    void MainWindow::handler()                                                                     \
    {                                                                                              \
        setToggle(toggle::name);                                                                   \
    }
#include "params/switches.def"
