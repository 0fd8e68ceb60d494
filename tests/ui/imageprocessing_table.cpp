// SPDX-License-Identifier: MIT
#include "mainwindow_table.h"

using namespace setting;

namespace {

constexpr auto Expanding = QSizePolicy::Expanding;
constexpr auto Fixed = QSizePolicy::Fixed;

} // namespace

FormSection imageProcessingTable()
{
    return {
        "ImageProcSection",
        R"(
verticalLayout_3 QVBoxLayout 6 margins 11 11 11 11
  label_7
  horizontalLayout_6 QHBoxLayout 6
    ColumnCorrectionButton
    VignettingCorrectionButton
  label_32
  horizontalLayout_11 QHBoxLayout 6
    userNucRequest
    nucEnablingButton
  label_9
  TestPatternButton
  label_11
  verticalLayout QVBoxLayout 6
    VideoOutputCB
    horizontalLayout QHBoxLayout 6
      sdiOutputButton
      parallelOutputButton
      mipiOutputButton
  label_10
  frameRateCB
  label_31
  horizontalLayout_10 QHBoxLayout 6
    shutterCtrlPB
    autoNucPB
)",
        {
            {"QLabel", "label_7", sectionTitle("Correction Control")},
            {"QPushButton",
             "ColumnCorrectionButton",
             {text("Column Correction: Deactivated"), checkable()}},
            {"QPushButton",
             "VignettingCorrectionButton",
             {text("Vignetting Correction: Deactivated"), checkable()}},
            {"QLabel", "label_32", sectionTitle("NUC control")},
            {"QPushButton", "userNucRequest", {text("NUC request")}},
            {"QPushButton",
             "nucEnablingButton",
             {text("NUC: Activated"), checkable(), checked(false)}},
            {"QLabel", "label_9", sectionTitle("Test Pattern (SDI output only)")},
            {"QPushButton",
             "TestPatternButton",
             {text("Test Pattern: Deactivated"), checkable(), policy(Expanding, Fixed)}},
            {"QLabel", "label_11", sectionTitle("Video Output Type")},
            {"QComboBox",
             "VideoOutputCB",
             {policy(Expanding, Fixed), minimum(100, 20), property("maxVisibleItems", 10)},
             {QStringLiteral("RAW"), QStringLiteral("NUC"), QStringLiteral("COLUMN CORRECTION"),
              QStringLiteral("VIGNETTING CORRECTION"), QStringLiteral("EDGE ENHANCEMENT"),
              QStringLiteral("LUT CORRECTION"), QStringLiteral("RESERVED"), QStringLiteral("ZOOM"),
              QStringLiteral("BT656")}},
            {"QPushButton",
             "sdiOutputButton",
             {text("BT656/SDI Output: Activated"), checkable(), checked(false)}},
            {"QPushButton",
             "parallelOutputButton",
             {text("Parallel Output: Activated"), checkable(), checked(false)}},
            {"QPushButton",
             "mipiOutputButton",
             {text("Mipi Output: Activated"), checkable(), checked(false)}},
            {"QLabel", "label_10", sectionTitle("Frame Rate")},
            {"QComboBox",
             "frameRateCB",
             {policy(Expanding, Fixed), minimum(0, 20), leftToRight(), property("currentIndex", 0)},
             {QStringLiteral("9Hz"), QStringLiteral("25Hz"), QStringLiteral("30Hz"),
              QStringLiteral("50Hz"), QStringLiteral("60Hz")}},
            {"QLabel", "label_31", sectionTitle("Shutter Control")},
            {"QPushButton", "shutterCtrlPB", {text("Shutter opened"), checkable(), checked(false)}},
            {"QPushButton", "autoNucPB", {text("Automatic NUC routine")}},
        }};
}
