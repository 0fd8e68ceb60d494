// SPDX-License-Identifier: MIT
#include "params/regions.h"

#include "app/mainwindow.h"
#include "link/connectionwatch.h"

#include <QtWidgets/QMessageBox>

using ombrix_sdk::Flag;
using tavrel::Region;
using tavrel::regions;

namespace tavrel {

/// One of the four coordinates of a region, held against its opposite.
struct Coordinate : RegionCoordinate {
    QSpinBox* Ui_MainWindow::*Region::*low; ///< gives way when it exceeds high
    QSpinBox* Ui_MainWindow::*Region::*high;
    QSpinBox* Ui_MainWindow::*Region::*sent;
    const char* rule;
};

} // namespace tavrel

namespace {

using tavrel::Coordinate;

constexpr const char* xRule = QT_TRANSLATE_NOOP("MainWindow", " X1 must be lower than ROI X2");
constexpr const char* yRule = QT_TRANSLATE_NOOP("MainWindow", " Y1 must be lower than ROI Y2");

// clang-format off
constexpr Coordinate x1Coordinate{tavrel::regionX1, &Region::x1, &Region::x2, &Region::x1, xRule};
constexpr Coordinate x2Coordinate{tavrel::regionX2, &Region::x1, &Region::x2, &Region::x2, xRule};
constexpr Coordinate y1Coordinate{tavrel::regionY1, &Region::y1, &Region::y2, &Region::y1, yRule};
constexpr Coordinate y2Coordinate{tavrel::regionY2, &Region::y1, &Region::y2, &Region::y2, yRule};
// clang-format on

bool isRegion(int region)
{
    return region >= 0 && region < static_cast<int>(regions.size());
}

} // namespace

void MainWindow::sendCoordinate(const Coordinate& coordinate, int region)
{
    // Locking the parameters ends an edit. What was typed is dropped then, and no message box opens
    // while the connection is taken down.
    if (disconnecting) {
        return;
    }
    const tavrel::ConnectionWatch watch(endedConnections);
    // The camera judges an index outside the table; it travels and is reported unsigned.
    const auto index = static_cast<std::uint32_t>(region);
    std::uint32_t value = 0;
    if (isRegion(region)) {
        const Region& row = regions[static_cast<std::size_t>(region)];
        QSpinBox* low = ui->*(row.*coordinate.low);
        const QSpinBox* high = ui->*(row.*coordinate.high);
        const QSpinBox* sent = ui->*(row.*coordinate.sent);
        // A rejected value is corrected on screen but still sent as the operator gave it.
        value = static_cast<std::uint32_t>(sent->value());
        if (!tavrel::areInOrder(low->value(), high->value())) {
            low->setValue(high->value());
            QMessageBox::about(this, tr("ROI"),
                               tr("ROI ") + QString::number(region) + tr(coordinate.rule));
        }
    }
    if (camera == nullptr || watch.connectionEnded()) {
        return;
    }
    const Flag result =
        (camera->*coordinate.set)(value, index, ui->roi1IncEnable->isChecked(),
                                  ui->roi0ExcEnable->isChecked(), ui->roi1ExcEnable->isChecked());
    const std::string name = coordinate.name;
    // A refusal names no region.
    reportResult(result, "Set ROI " + std::to_string(index) + " " + name + " value OK",
                 "Set ROI " + name + " value KO");
}

void MainWindow::x1RoiUserValueChanged(int region)
{
    sendCoordinate(x1Coordinate, region);
}

void MainWindow::x2RoiUserValueChanged(int region)
{
    sendCoordinate(x2Coordinate, region);
}

void MainWindow::y1RoiUserValueChanged(int region)
{
    sendCoordinate(y1Coordinate, region);
}

void MainWindow::y2RoiUserValueChanged(int region)
{
    sendCoordinate(y2Coordinate, region);
}

void MainWindow::enableRegion(int region)
{
    // The camera learns of it only with the next coordinate.
    const Region& row = regions.at(static_cast<std::size_t>(region));
    const bool enabled = (ui->*row.enable)->isChecked();
    for (QSpinBox* Ui_MainWindow::*spinBox : {row.x1, row.x2, row.y1, row.y2}) {
        (ui->*spinBox)->setEnabled(enabled);
    }
}

void MainWindow::roi0ExcCheck()
{
    enableRegion(1);
}

void MainWindow::roi1IncCheck()
{
    enableRegion(2);
}

void MainWindow::roi1ExcCheck()
{
    enableRegion(3);
}
