// SPDX-License-Identifier: MIT
// The four regions of interest, in the order of the index that every camera operation takes.
#pragma once

#include "ui_mainwindow.h"

#include <array>

namespace tavrel {

struct Region {
    const char* name;
    QSpinBox* Ui_MainWindow::*x1;
    QSpinBox* Ui_MainWindow::*x2;
    QSpinBox* Ui_MainWindow::*y1;
    QSpinBox* Ui_MainWindow::*y2;
    QCheckBox* Ui_MainWindow::*enable; ///< null for the region that is always included
};

// clang-format off
inline constexpr std::array<Region, 4> regions{{
    {"ROI0 inclusive", &Ui_MainWindow::Roi0IncX1, &Ui_MainWindow::Roi0IncX2,
                       &Ui_MainWindow::Roi0IncY1, &Ui_MainWindow::Roi0IncY2, nullptr},
    {"ROI0 exclusive", &Ui_MainWindow::Roi0ExcX1, &Ui_MainWindow::Roi0ExcX2,
                       &Ui_MainWindow::Roi0ExcY1, &Ui_MainWindow::Roi0ExcY2, &Ui_MainWindow::roi0ExcEnable},
    {"ROI1 inclusive", &Ui_MainWindow::Roi1IncX1, &Ui_MainWindow::Roi1IncX2,
                       &Ui_MainWindow::Roi1IncY1, &Ui_MainWindow::Roi1IncY2, &Ui_MainWindow::roi1IncEnable},
    {"ROI1 exclusive", &Ui_MainWindow::Roi1ExcX1, &Ui_MainWindow::Roi1ExcX2,
                       &Ui_MainWindow::Roi1ExcY1, &Ui_MainWindow::Roi1ExcY2, &Ui_MainWindow::roi1ExcEnable},
}};
// clang-format on

} // namespace tavrel
