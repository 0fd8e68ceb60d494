// SPDX-License-Identifier: MIT
#include "mainwindow_table.h"

using namespace setting;

namespace {

constexpr auto Expanding = QSizePolicy::Expanding;
constexpr auto Fixed = QSizePolicy::Fixed;
constexpr auto Minimum = QSizePolicy::Minimum;
constexpr auto Preferred = QSizePolicy::Preferred;

std::vector<Setting> zoomName(const char* caption)
{
    return {text(caption), policy(Minimum, Preferred), points(10)};
}

std::vector<Setting> zoomField()
{
    return {policy(Expanding, Fixed), minimum(100, 0), points(10)};
}

Setting resolutionTip()
{
    return tip({"Only usable when SDI output video disabled and for MIPI and parallel outputs "
                "format"});
}

std::vector<Setting> resolutionName(const char* caption)
{
    return {text(caption), resolutionTip(), policy(Minimum, Preferred), americanEnglish()};
}

std::vector<Setting> resolutionField(int highest, int value)
{
    return with({range(10, highest), property("value", value), resolutionTip(),
                 policy(Expanding, Fixed), minimum(100, 0), americanEnglish()});
}

} // namespace

FormSection zoomTable()
{
    return {
        "ZoomSection",
        R"(
verticalLayout_5 QVBoxLayout 6 margins 11 11 11 11
  spacer 20x40 Minimum/Expanding
  zoomLabel
  gridLayout_3 QGridLayout 6
    (0,0) factorZoomLabel
    (0,1) factorZoomEdit
    (0,2) xCenterZoomLabel
    (0,3) xCenterZoomEdit
    (1,0) methodZoomLabel
    (1,1) methodZoomEdit
    (1,2) yCenterZoomLabel
    (1,3) yCenterZoomEdit
    (2,0 1x4) label
    (3,0) xResolutionZoomLabel
    (3,1) xResolutionZoomEdit
    (3,2) yResolutionZoomLabel
    (3,3) yResolutionZoomEdit
    (4,0 1x4) configureZoomPB
  spacer 20x40 Minimum/Expanding
  label_5
  horizontalFlipButton
  spacer 20x40 Minimum/Expanding
)",
        {
            {"QLabel", "zoomLabel", sectionTitle("Zoom")},
            {"QLabel", "factorZoomLabel",
             with({zoomName("Factor"), tip({"Zoom factor is a float value between 1 and 8"})})},
            {"QDoubleSpinBox", "factorZoomEdit",
             with({range(1.0, 8.0, 3), property("singleStep", 0.001), property("value", 1.0),
                   zoomField()})},
            {"QLabel", "xCenterZoomLabel",
             with({zoomName("Xcenter"), tip({"X Center of the Zoom : value between 1 and 1280"})})},
            {"QSpinBox", "xCenterZoomEdit",
             with({range(0, 640), property("value", 320), zoomField()})},
            {"QLabel", "methodZoomLabel",
             with({zoomName("Method"),
                   tip({"Nearest neighbour : makes pixelization but is better for algorithm",
                        "Bilinear : more confortable to the eye (smoother effet) but not good for "
                        "algorithms."})})},
            {"QComboBox",
             "methodZoomEdit",
             zoomField(),
             {QStringLiteral("Nearest"), QStringLiteral("Bilinear")}},
            {"QLabel", "yCenterZoomLabel",
             with({zoomName("Ycenter"), tip({"Y value of the zoom : value between 1 and 1024"})})},
            {"QSpinBox", "yCenterZoomEdit",
             with({range(0, 480), property("value", 240), zoomField()})},
            {"QLabel",
             "label",
             {text("For MIPI and parallel outputs, only usable when SDI output video disabled"),
              bold(11), centred()}},
            {"QLabel", "xResolutionZoomLabel", resolutionName("Xresolution")},
            {"QSpinBox", "xResolutionZoomEdit", resolutionField(1024, 720)},
            {"QLabel", "yResolutionZoomLabel",
             with({resolutionName("Yresolution"), minimum(95, 0), maximum(150, unlimited)})},
            {"QSpinBox", "yResolutionZoomEdit", resolutionField(768, 576)},
            {"QPushButton", "configureZoomPB", {text("Configure Zoom")}},
            {"QLabel", "label_5", sectionTitle("Flip Control")},
            {"QPushButton",
             "horizontalFlipButton",
             {text("Horizontal Flip: Deactivated"), checkable(), checked(false)}},
        }};
}

FormSection edgeTable()
{
    return {
        "EdgeSection",
        R"(
verticalLayout_6 QVBoxLayout 6 margins 11 11 11 11
  spacer 20x40 Minimum/Expanding
  label_13
  EdgeCorrectionCB
  label_14
  SharpeningGain QHBoxLayout 6 margins 0 5 0 5 constraint SetMinimumSize
    sharpeningGainLabel
    spacer 40x20 Expanding/Minimum
    sharpeningGainSlider
    spacer 40x20 Expanding/Minimum
    sharpeningGainEdit
  SharpeningThreshold QHBoxLayout 6 margins 0 5 0 5
    SharpeningTHLabel
    spacer 40x20 Expanding/Minimum
    SharpeningTHSlider
    spacer 40x20 Expanding/Minimum
    SharpeningTHEdit
  spacer 20x40 Minimum/Expanding
)",
        {
            {"QLabel", "label_13", sectionTitle("Edge Correction")},
            {"QComboBox",
             "EdgeCorrectionCB",
             {},
             {QStringLiteral("None"), QStringLiteral("Sharpening"), QStringLiteral("Contouring")}},
            {"QLabel", "label_14",
             with({sectionTitle("Sharpening Configurations"), policy(Expanding, Preferred)})},
            {"QLabel",
             "sharpeningGainLabel",
             {text("Sharpening Filter Gain"),
              tip({"The sharpening filter enhance the edges of objects."}),
              policy(Preferred, Preferred), minimum(200, 0), maximum(200, unlimited), points(10)}},
            {"QSlider", "sharpeningGainSlider",
             with({range(0, 10240), property("singleStep", 1024), property("pageStep", 10),
                   property("value", 0), horizontal(), minimum(200, 0), ticks(QSlider::TicksBelow),
                   property("tickInterval", 1024)})},
            {"QDoubleSpinBox", "sharpeningGainEdit",
             with({range(0.0, 1024.0, 1), property("singleStep", 1.0), minimum(100, 0), points(10),
                   centred()})},
            {"QLabel",
             "SharpeningTHLabel",
             {text("Sharpening Filter Threshold"), minimum(200, 0), maximum(200, unlimited)}},
            {"QSlider", "SharpeningTHSlider",
             with({range(0, 2000), property("singleStep", 200), property("pageStep", 10),
                   horizontal(), minimum(200, 0), ticks(QSlider::TicksBelow),
                   property("tickInterval", 200)})},
            {"QDoubleSpinBox", "SharpeningTHEdit",
             with({range(0.0, 255.0, 1), minimum(100, 0), centred()})},
        }};
}
