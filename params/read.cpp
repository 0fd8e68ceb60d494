// SPDX-License-Identifier: MIT
// Reading the whole user state of the camera into the widgets and the log.
//
// A combo box whose index changes on the way sends the value back through its own handler; the
// handler's log line then comes before the line of the read.
#include "app/mainwindow.h"
#include "link/connectionwatch.h"
#include "params/conversions.h"
#include "params/framerate.h"
#include "params/mirroredpair.h"
#include "params/regions.h"
#include "params/switchbuttons.h"
#include "params/values.h"
#include "params/versiontext.h"

#include <array>

using std::to_string;
using tavrel::Group;
using tavrel::numberText;
using tavrel::saturatedInt;

namespace {

/// Shows a value as a read does and returns it as the log has it: a decimal on its slider, which
/// leaves alone what was typed where it need not move, and a whole number in its spin box.
std::string shown(const Ui_MainWindow& ui, const tavrel::MirroredPair<double>& pair, double value)
{
    mirrorToSlider(ui, pair, value);
    return numberText(value);
}

std::string shown(const Ui_MainWindow& ui, const tavrel::MirroredPair<int>& pair, double value)
{
    (ui.*pair.spinBox)->setValue(saturatedInt(value));
    return to_string(saturatedInt(value));
}

} // namespace

bool MainWindow::readCameraParameters()
{
    if (camera == nullptr) {
        showNotConnected();
        return false;
    }
    appendLog("Start reading camera parameters");
    std::uint32_t versions = 0;
    camera->getVersions(&versions);
    if (versions == 0) {
        const tavrel::ConnectionWatch watch(endedConnections);
        showNotConnected();
        if (watch.connectionEnded()) {
            return false;
        }
        appendLog("End Read camera parameters : COM Error");
        return false;
    }
    camera->refresh();
    readIdentity(versions);

    readGroup(Group::ImageProcessing);
    readVideo();
    readGroup(Group::Lut);
    readRegions();
    readLut();
    getTemperature();
    readZoom();
    readGroup(Group::Zoom);
    readEdgeCorrection();
    appendLog("End reading camera parameters");
    return true;
}

void MainWindow::readIdentity(std::uint32_t versions)
{
    appendLog(tavrel::versionText(versions));
    appendLog("Serial number = " + to_string(camera->getSerialNumber()));
    appendLog("Sensor serial number = " + to_string(camera->getSensorSerialNumber()));
    ombrix_sdk::OperatingTime time{};
    camera->getOperatingTime(&time);
    appendLog("Operating time = " + to_string(time.minutes) + " min");
    appendLog("Startup number = " + to_string(time.startups));
}

void MainWindow::readVideo()
{
    ui->VideoOutputCB->setCurrentIndex(camera->getVideoOutput());
    appendLog("Video output = " + ui->VideoOutputCB->currentText().toStdString());
    // A rate outside the list shows as the slowest one.
    ui->frameRateCB->setCurrentIndex(tavrel::frameRateIndex(camera->getFrameRate(), 0));
    appendLog("Frame rate = " + ui->frameRateCB->currentText().toStdString());
}

void MainWindow::readGroup(Group group)
{
    for (const tavrel::SwitchButton* row : tavrel::switchButtons) {
        if (row->group == group) {
            readSwitch(*row);
        }
    }
#define VALUE(itsGroup, name, ...)                                                                 \
    if (group == Group::itsGroup) {                                                                \
        const double value = tavrel::value::name.get(*camera);                                     \
        appendLog(tavrel::value::name.label + shown(*ui, tavrel::pair::name, value));              \
    }
#include "params/values.def"
}

void MainWindow::readRegions()
{
    struct Coordinates {
        std::uint32_t x1, y1, x2, y2;
    };
    std::array<Coordinates, tavrel::regions.size()> read{};
    for (std::uint32_t index = 0; index < read.size(); ++index) {
        Coordinates& region = read[index];
        region.x1 = camera->getRoiX1(index);
        region.y1 = camera->getRoiY1(index);
        region.x2 = camera->getRoiX2(index);
        region.y2 = camera->getRoiY2(index);
    }
    for (std::size_t index = 0; index < read.size(); ++index) {
        const tavrel::Region& row = tavrel::regions[index];
        const Coordinates& region = read[index];
        if (row.enable != nullptr) {
            (ui->*row.enable)->setChecked(tavrel::isRegionOn(region.x1));
        }
        const auto show = [&](QSpinBox* Ui_MainWindow::*spinBox, const char* name,
                              std::uint32_t value) {
            (ui->*spinBox)->setValue(saturatedInt(std::uint64_t{value}));
            appendLog(std::string(tavrel::regionNames[index]) + " " + name +
                      " value = " + to_string(value));
        };
        show(row.x1, "X1", region.x1);
        show(row.y1, "Y1", region.y1);
        show(row.x2, "X2", region.x2);
        show(row.y2, "Y2", region.y2);
    }
}

void MainWindow::readLut()
{
    readGroup(Group::Contrast);

    ui->lutColorEdit->setCurrentIndex(camera->getColorLut());
    appendLog("Color Lut = " + ui->lutColorEdit->currentText().toStdString());

    const std::uint8_t contrastType = camera->getContrastType();
    ui->contrastTypeEdit->setCurrentIndex(contrastType);
    // The log's word is in capitals, unlike the item of the list.
    appendLog(std::string("Contrast type = ") +
              (contrastType != 0 ? "CLAHE (LOCAL)" : "CLHE (ROI)"));

    readGroup(Group::Filter);

    ombrix_sdk::AhcGainsLimitation limits{};
    // Only this one byte means that the limits are valid.
    if (camera->getAhcGainsLimitation(&limits) == 1) {
        ui->AhcBlackGainLimSpin->setValue(limits.black);
        ui->AhcWhiteGainLimSpin->setValue(limits.white);
        appendLog("AHC black gain limitation = " + to_string(limits.black));
        appendLog("AHC white gain limitation = " + to_string(limits.white));
    } else {
        appendLog("AHC gain limitation read error");
    }
}

void MainWindow::readZoom()
{
    ombrix_sdk::Zoom zoom{};
    camera->getZoom(&zoom);
    ui->factorZoomEdit->setValue(static_cast<double>(zoom.factor));
    ui->methodZoomEdit->setCurrentIndex(zoom.method);
    ui->xCenterZoomEdit->setValue(zoom.xCenter);
    ui->yCenterZoomEdit->setValue(zoom.yCenter);
    appendLog("ZOOM factor value = " + numberText(static_cast<double>(zoom.factor)));

    ombrix_sdk::ZoomResolution resolution{};
    camera->getZoomResolution(&resolution);
    ui->xResolutionZoomEdit->setValue(saturatedInt(std::uint64_t{resolution.x}));
    appendLog("X zoom resolution = " + to_string(resolution.x));
    ui->yResolutionZoomEdit->setValue(saturatedInt(std::uint64_t{resolution.y}));
    appendLog("Y zoom resolution = " + to_string(resolution.y));
}

void MainWindow::readEdgeCorrection()
{
    ombrix_sdk::EdgeCorrection area{};
    const ombrix_sdk::EdgeCorrection* record = camera->getEdgeCorrection(&area);
    // Copied first: the combo box sends its new index to the camera, which may reuse the area.
    const ombrix_sdk::EdgeCorrection edge = record != nullptr ? *record : area;

    const auto tenfold = [](std::uint32_t value) {
        return saturatedInt(std::uint64_t{value} * 10);
    };
    ui->EdgeCorrectionCB->setCurrentIndex(edge.type);
    ui->sharpeningGainSlider->setValue(tenfold(edge.gain));
    ui->SharpeningTHSlider->setValue(tenfold(edge.firstThreshold));
    readShutterPosition();

    // The logged first threshold follows from the second one, never from the slider's value, and
    // wraps below 40.
    constexpr std::uint32_t thresholdDistance = 40;
    appendLog("Correction type = " + to_string(edge.type) +
              "\nCorrection gain = " + to_string(edge.gain) +
              "\nFirst threshold = " + to_string(edge.secondThreshold - thresholdDistance) +
              "\nSecond threshold = " + to_string(edge.secondThreshold));
}
