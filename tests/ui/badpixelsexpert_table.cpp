// SPDX-License-Identifier: MIT
#include "mainwindow_table.h"

using namespace setting;

namespace {

constexpr auto Expanding = QSizePolicy::Expanding;
constexpr auto Fixed = QSizePolicy::Fixed;
constexpr auto Minimum = QSizePolicy::Minimum;

std::vector<Setting> head(const char* caption)
{
    return {text(caption), centred()};
}

std::vector<Setting> action(const char* caption, const char* picture)
{
    return {text(caption), icon(picture)};
}

/// A label of the four detector settings.
std::vector<Setting> detectorName(const char* caption, const char* explanation)
{
    return {text(caption), tip({explanation}), policy(Minimum, Fixed), minimum(50, 0), points(12)};
}

constexpr const char* sharpeningTip = "The sharpening filter enhance the edges of objects.";

std::vector<Setting> switchButton(const char* caption)
{
    return {text(caption), minimum(180, 0), checkable(), checked(false)};
}

} // namespace

FormSection badPixelsTable()
{
    return {
        "BadPixelsSection",
        R"(
verticalLayout_2 QVBoxLayout 6 margins 11 11 11 11
  spacer 20x40 Minimum/Expanding
  label_15
  horizontalLayout_7 QHBoxLayout 6
    resetBPRTableButton
    spacer 40x20 Expanding/Minimum
    readBPRTableButton
    spacer 40x20 Expanding/Minimum
    writeBPRTableButton
  label_27
  gridLayout_2 QGridLayout 6
    (0,0) label_29
    (0,1) label_28
    (0,2) label_30
    (1,0 3x1) formLayout QFormLayout 6 labels AlignCenter form AlignLeft|AlignVCenter
      (0,0) xCoordLabel
      (0,1) xBadPixelCoordinate
      (1,0) yCoordLabel
      (1,1) yBadPixelCoordinate
    (1,1) addBadPixelButton
    (1,2) removeBadPixelButton
    (2,1) addBadPixelColumnButton
    (2,2) removeBadPixelColumnButton
    (3,1) addBadPixelLineButton
    (3,2) removeBadPixelLineButton
    (4,0 1x3) bpGraphicEditorButton
  spacer 20x40 Minimum/Expanding
)",
        {
            {"QLabel", "label_15", sectionTitle("Read/Write BPR (Bad Pixel Replacement) table")},
            {"QPushButton", "resetBPRTableButton",
             action("Reset BPR table to factory configuration",
                    "assets/icons/material/reset_wrench_material.svg")},
            {"QPushButton", "readBPRTableButton",
             action("Read BPR table from camera", "assets/icons/material/download_material.svg")},
            {"QPushButton", "writeBPRTableButton",
             action("Write BPR table to camera", "assets/icons/material/upload_material.svg")},
            {"QLabel", "label_27", sectionTitle("Select Bad Pixels to declare/undeclare")},
            {"QLabel", "label_29", head("Coordinates")},
            {"QLabel", "label_28", head("Declare")},
            {"QLabel", "label_30", head("Undeclare")},
            {"QLabel", "xCoordLabel", {text("[0-639]    X:")}},
            {"QSpinBox", "xBadPixelCoordinate", range(0, 639)},
            {"QLabel", "yCoordLabel", {text("[0-479]    Y:")}},
            {"QSpinBox", "yBadPixelCoordinate", range(0, 479)},
            {"QPushButton", "addBadPixelButton",
             action("Single Bad Pixel", "assets/icons/material/add_material.svg")},
            {"QPushButton", "removeBadPixelButton",
             action("Single Bad Pixel", "assets/icons/material/remove_material.svg")},
            {"QPushButton", "addBadPixelColumnButton",
             action("Column", "assets/icons/material/add_material.svg")},
            {"QPushButton", "removeBadPixelColumnButton",
             action("Column", "assets/icons/material/remove_material.svg")},
            {"QPushButton", "addBadPixelLineButton",
             action("Line", "assets/icons/material/add_material.svg")},
            {"QPushButton", "removeBadPixelLineButton",
             action("Line", "assets/icons/material/remove_material.svg")},
            {"QPushButton", "bpGraphicEditorButton", {text("Open Graphic Editor"), disabled()}},
        }};
}

FormSection expertTable()
{
    return {
        "ExpertMode",
        R"(
verticalLayout_7 QVBoxLayout 6 margins 11 11 11 11
  readParamButtonExpert
  gridLayout_4 QGridLayout 6
    (0,0) label_8
    (0,1) BaudRateCB
    (0,2) PermanentButton
    (1,0 1x3) applyBaudrateBP
  GSK QHBoxLayout 0 constraint SetMinimumSize
    gskLabel
    spacer 40x20 Minimum/Minimum
    gskSlider
    spacer 40x20 Minimum/Minimum
    gskEdit
  GFID QHBoxLayout 0 constraint SetMinimumSize
    gfidLabel
    spacer 40x20 Minimum/Minimum
    gfidSlider
    spacer 40x20 Maximum/Minimum
    gfidEdit
  GMS QHBoxLayout 0 constraint SetMinimumSize
    gmsLabel
    spacer 40x20 Maximum/Minimum
    gmsSlider
    spacer 40x20 Minimum/Minimum
    gmsEdit
  TINT QHBoxLayout 0 constraint SetMinimumSize
    tintLabel
    spacer 40x20 Maximum/Minimum
    tintSlider
    spacer 40x20 Maximum/Minimum
    tintEdit
  horizontalLayout_2 QHBoxLayout 6
    spacer 40x20 Expanding/Minimum
    enableBprPB
    spacer 40x20 Expanding/Minimum
    enableOffsetPB
    spacer 40x20 Expanding/Minimum
    enableGainPB
    spacer 40x20 Expanding/Minimum
    verticalFlipButton
    spacer 40x20 Expanding/Minimum
)",
        {
            {"QPushButton", "readParamButtonExpert", {text("Read Expert Parameters")}},
            {"QLabel",
             "label_8",
             {text("Camera Baud Rate"), policy(Fixed, QSizePolicy::Preferred)}},
            {"QComboBox",
             "BaudRateCB",
             {property("currentIndex", 1), property("maxVisibleItems", 10),
              property("minimumContentsLength", 2)},
             {QStringLiteral("9600"), QStringLiteral("115200"), QStringLiteral("230400"),
              QStringLiteral("460800"), QStringLiteral("921600")}},
            {"QPushButton",
             "PermanentButton",
             {text("Not Permanent"), checkable(), checked(false)}},
            {"QPushButton", "applyBaudrateBP", {text("Apply baud rate")}},

            {"QLabel", "gskLabel",
             detectorName(
                 "GSK",
                 "Gamma correction compensates for the differences in display on different output "
                 "devices, so that images look the same when viewed on different monitors.")},
            {"QSlider", "gskSlider",
             with({range(0, 20), property("singleStep", 1), property("pageStep", 5),
                   property("value", 0), horizontal(), policy(Expanding, Fixed)})},
            {"QDoubleSpinBox", "gskEdit",
             with({range(1.0, 3.0, 0), property("singleStep", 0.01), property("value", 1.0),
                   policy(Minimum, Fixed), minimum(100, 0), normal(12), centred()})},

            {"QLabel", "gfidLabel",
             detectorName("GFID", "The CLHE is a mix between linear LUT and histogram equalization "
                                  "LUT. Lower values increase linearity.")},
            {"QSlider", "gfidSlider",
             with({range(0, 1000), property("pageStep", 50), horizontal()})},
            {"QDoubleSpinBox", "gfidEdit",
             with({range(0.0, 1000.0, 0), property("singleStep", 0.01), policy(Minimum, Fixed),
                   minimum(100, 0), normal(12), centred()})},

            {"QLabel", "gmsLabel",
             with({detectorName("GMS", sharpeningTip), maximum(150, unlimited)})},
            {"QSlider", "gmsSlider", {horizontal(), points(12)}},
            {"QDoubleSpinBox", "gmsEdit",
             with({range(0.0, 4294967296.0, 0), property("singleStep", 1.0), minimum(100, 0),
                   maximum(100, unlimited), points(12), centred()})},

            {"QLabel", "tintLabel", detectorName("TINT", sharpeningTip)},
            {"QSlider", "tintSlider",
             with({range(0, 20), property("singleStep", 1), property("pageStep", 5),
                   property("value", 0), horizontal(), ticks(QSlider::NoTicks)})},
            {"QDoubleSpinBox", "tintEdit",
             with({range(0.0, 2.0, 0), property("singleStep", 0.01), minimum(100, 0), points(12),
                   centred()})},

            {"QPushButton", "enableBprPB", switchButton("BPR Correction: Activated")},
            {"QPushButton", "enableOffsetPB", switchButton("Offset Correction: Activated")},
            {"QPushButton", "enableGainPB", switchButton("Gain Correction: Activated")},
            {"QPushButton", "verticalFlipButton", switchButton("Vertical flip: Activated")},
        }};
}
