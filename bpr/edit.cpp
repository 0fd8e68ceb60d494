// SPDX-License-Identifier: MIT
// Declaring and undeclaring bad pixels in the working copy. The camera's own table is not touched.
#include "app/mainwindow.h"
#include "bpr/transfer.h"
#include "ui_mainwindow.h"

#include <QtWidgets/QMessageBox>

using ombrix_sdk::ICamera;
namespace bpr = tavrel::bpr;

namespace tavrel {

/// One of the six edits. In the log texts {x} and {y} stand for the coordinates.
struct TableEdit {
    ombrix_sdk::Flag (ICamera::*operation)(const std::string& path, std::uint32_t x,
                                           std::uint32_t y);
    bool takesX; ///< false: every x of the line
    bool takesY; ///< false: every y of the column
    const char* done;
    const char* refusedLog; ///< null: a refusal is shown in a box
    const char* refusedBox; ///< null: a refusal is logged
};

} // namespace tavrel

namespace {

using tavrel::TableEdit;

/// A coordinate that stands for all pixels of a line or column.
constexpr std::uint32_t everyPixel = 0xFFFFFFFF;

// clang-format off
constexpr TableEdit addPixel{
    &ICamera::addBadPixels, true, true, "Pixel X:{x} Y: {y} correctly added.", nullptr,
    QT_TRANSLATE_NOOP("MainWindow", "Unable to add line of bad pixels to table. Either bad pixel table doesn't exist or too much bad pixels in table to add a pixel.")};
constexpr TableEdit addLine{
    &ICamera::addBadPixels, false, true, "Pixel line Y: {y} correctly added.", nullptr,
    QT_TRANSLATE_NOOP("MainWindow", "Unable to add line of bad pixels to table. Either bad pixel table doesn't exist or too much bad pixels in table to add a line.")};
constexpr TableEdit addColumn{
    &ICamera::addBadPixels, true, false, "Pixel Column X: {x} correctly added.", nullptr,
    QT_TRANSLATE_NOOP("MainWindow", "Unable to add line of bad pixels to table. Either bad pixel table doesn't exist or too much bad pixels in table to add a column.")};
constexpr TableEdit removePixel{
    &ICamera::removeBadPixels, true, true, "Pixel X:{x} Y: {y} correctly removed.",
    "Unable to remove pixel X:{x} Y: {y}.", nullptr};
constexpr TableEdit removeLine{
    &ICamera::removeBadPixels, false, true, "Pixel line Y: {y} correctly removed.",
    "Unable to remove pixel line Y:{y}.", nullptr};
constexpr TableEdit removeColumn{
    &ICamera::removeBadPixels, true, false, "Pixel column X: {x} correctly removed.",
    "Unable to remove pixel column X: {x}.", nullptr};
// clang-format on

std::string withCoordinates(const char* text, int x, int y)
{
    return QString::fromLatin1(text)
        .replace(QLatin1String("{x}"), QString::number(x))
        .replace(QLatin1String("{y}"), QString::number(y))
        .toStdString();
}

} // namespace

void MainWindow::editTable(const TableEdit& edit)
{
    if (camera == nullptr) {
        showNotConnected();
        return;
    }
    const bpr::MapFiles files(camera->getSerialNumber());
    if (const auto refusal = bpr::ensureWorkingCopy(files)) {
        showRefusal(*refusal);
        return;
    }
    const int x = ui->xBadPixelCoordinate->value();
    const int y = ui->yBadPixelCoordinate->value();
    const ombrix_sdk::Flag result = (camera->*edit.operation)(
        files.working(), edit.takesX ? static_cast<std::uint32_t>(x) : everyPixel,
        edit.takesY ? static_cast<std::uint32_t>(y) : everyPixel);
    if (result != 0) {
        appendLog(withCoordinates(edit.done, x, y));
    } else if (edit.refusedBox != nullptr) {
        QMessageBox::about(this, tr("Bad pixel failure"), tr(edit.refusedBox));
    } else {
        appendLog(withCoordinates(edit.refusedLog, x, y));
    }
}

void MainWindow::addBadPixel()
{
    editTable(addPixel);
}

void MainWindow::addBadPixelLine()
{
    editTable(addLine);
}

void MainWindow::addBadPixelColumn()
{
    editTable(addColumn);
}

void MainWindow::removeBadPixel()
{
    editTable(removePixel);
}

void MainWindow::removeBadPixelLine()
{
    editTable(removeLine);
}

void MainWindow::removeBadPixelColumn()
{
    editTable(removeColumn);
}
