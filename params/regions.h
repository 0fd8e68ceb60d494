// SPDX-License-Identifier: MIT
// The rows of the four regions of interest, in the order of the camera's index.
#pragma once

#include "params/roi.h"
#include "ui_mainwindow.h"

namespace tavrel {

struct Region {
    QSpinBox* Ui_MainWindow::*x1;
    QSpinBox* Ui_MainWindow::*x2;
    QSpinBox* Ui_MainWindow::*y1;
    QSpinBox* Ui_MainWindow::*y2;
    QCheckBox* Ui_MainWindow::*enable; ///< null for the region that is always included
};

// clang-format off
inline constexpr std::array<Region, regionNames.size()> regions{{
    {&Ui_MainWindow::Roi0IncX1, &Ui_MainWindow::Roi0IncX2,
     &Ui_MainWindow::Roi0IncY1, &Ui_MainWindow::Roi0IncY2, nullptr},
    {&Ui_MainWindow::Roi0ExcX1, &Ui_MainWindow::Roi0ExcX2,
     &Ui_MainWindow::Roi0ExcY1, &Ui_MainWindow::Roi0ExcY2, &Ui_MainWindow::roi0ExcEnable},
    {&Ui_MainWindow::Roi1IncX1, &Ui_MainWindow::Roi1IncX2,
     &Ui_MainWindow::Roi1IncY1, &Ui_MainWindow::Roi1IncY2, &Ui_MainWindow::roi1IncEnable},
    {&Ui_MainWindow::Roi1ExcX1, &Ui_MainWindow::Roi1ExcX2,
     &Ui_MainWindow::Roi1ExcY1, &Ui_MainWindow::Roi1ExcY2, &Ui_MainWindow::roi1ExcEnable},
}};
// clang-format on

} // namespace tavrel
