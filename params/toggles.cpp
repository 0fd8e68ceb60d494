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
    // A refused command leaves mark and caption at odds until the next read: nothing is rolled
    // back, so that the operator sees what he asked for.
    if (result != 0) {
        alignCaption(*button, toggle.captions);
    }
    reportResult(result, toggle.ok, toggle.ko);
}

void MainWindow::onTestPatternButtonClicked()
{
    setToggle(toggle::testPattern);
}

void MainWindow::onColumnCorrectionButtonClicked()
{
    setToggle(toggle::columnCorrection);
}

void MainWindow::onVignettingCorrectionButtonClicked()
{
    setToggle(toggle::vignettingCorrection);
}

void MainWindow::onSdiOutputButtonClicked()
{
    setToggle(toggle::sdiOutput);
}

void MainWindow::onParallelOutputButtonClicked()
{
    setToggle(toggle::parallelOutput);
}

void MainWindow::onMipiOutputButtonClicked()
{
    setToggle(toggle::mipiOutput);
}

void MainWindow::onPolarityButtonClicked()
{
    setToggle(toggle::polarity);
}

void MainWindow::onHorizontalFlipButtonClicked()
{
    setToggle(toggle::horizontalFlip);
}

void MainWindow::nucControlRequest()
{
    setToggle(toggle::nuc);
}

void MainWindow::bprControlChanged()
{
    setToggle(toggle::bprCorrection);
}

void MainWindow::offsetControlChanged()
{
    setToggle(toggle::offsetCorrection);
}

void MainWindow::gainControlChanged()
{
    setToggle(toggle::gainCorrection);
}

void MainWindow::verticalFlipChanged()
{
    setToggle(toggle::verticalFlip);
}
