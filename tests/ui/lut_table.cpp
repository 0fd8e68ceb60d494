// SPDX-License-Identifier: MIT
#include "mainwindow_table.h"

using namespace setting;

namespace {

constexpr auto Expanding = QSizePolicy::Expanding;
constexpr auto Fixed = QSizePolicy::Fixed;
constexpr auto MinimumExpanding = QSizePolicy::MinimumExpanding;
constexpr auto Preferred = QSizePolicy::Preferred;

std::vector<Setting> columnHead(const char* caption)
{
    return {text(caption), policy(Expanding, Preferred), minimum(100, 0), centred()};
}

std::vector<Setting> regionName(const char* caption)
{
    return {text(caption), minimum(150, 0), normal(10)};
}

/// A coordinate of a region, from 5 to 'highest'.
std::vector<Setting> coordinate(int highest)
{
    return with({range(5, highest), property("value", 5), policy(Expanding, Fixed), minimum(100, 0),
                 centred()});
}

std::vector<Setting> x()
{
    return coordinate(635);
}

std::vector<Setting> y()
{
    return coordinate(475);
}

std::vector<Setting> enableBox()
{
    return {text("Enable ROI"), minimum(90, 0)};
}

/// A slider of the lower grid.
std::vector<Setting> gridSlider(int highest)
{
    return with({range(0, highest), horizontal(), policy(MinimumExpanding, Fixed), minimum(200, 0),
                 ticks(QSlider::TicksBelow)});
}

std::vector<Setting> gridSpinBox(int highest)
{
    return with({range(0, highest), policy(Fixed, Fixed), minimum(100, 0), centred()});
}

} // namespace

FormSection lutTable()
{
    return {
        "LutSection",
        R"(
verticalLayout_4 QVBoxLayout 6 margins 11 11 11 11
  label_3
  polarityButton
  label_4
  Gamma QHBoxLayout 0 margins 0 5 0 5 constraint SetMinimumSize
    gammaLabel
    spacer 40x20 Expanding/Minimum
    gammaSlider
    spacer 40x20 Expanding/Minimum
    gammaEdit
  Roi QVBoxLayout 0 margins 0 5 0 5 constraint SetMinimumSize
    roiLabel
    Rois QVBoxLayout 6
      LabelRoi QHBoxLayout 6
        spacer 150x20 Preferred/Minimum
        label_20
        spacer 40x20 Fixed/Minimum
        label_18
        spacer 40x20 Fixed/Minimum
        label_19
        spacer 40x20 Fixed/Minimum
        label_17
        spacer 90x20 Minimum/Minimum
      Roi0IncCoord QHBoxLayout 6 margins 0 5 0 5
        label_16
        Roi0IncX1
        spacer 40x20 Fixed/Minimum
        Roi0IncX2
        spacer 40x20 Fixed/Minimum
        Roi0IncY1
        spacer 40x20 Fixed/Minimum
        Roi0IncY2
        checkBox
      Roi1IncCoord QHBoxLayout 6
        label_22
        Roi1IncX1
        spacer 40x20 Fixed/Minimum
        Roi1IncX2
        spacer 40x20 Fixed/Minimum
        Roi1IncY1
        spacer 40x20 Fixed/Minimum
        Roi1IncY2
        roi1IncEnable
      Roi0ExcCoord QHBoxLayout 6 margins 0 5 0 5
        label_21
        Roi0ExcX1
        spacer 40x20 Fixed/Minimum
        Roi0ExcX2
        spacer 40x20 Fixed/Minimum
        Roi0ExcY1
        spacer 40x20 Fixed/Minimum
        Roi0ExcY2
        roi0ExcEnable
      Roi1ExcCoord QHBoxLayout 6
        label_23
        Roi1ExcX1
        spacer 40x20 Fixed/Minimum
        Roi1ExcX2
        spacer 40x20 Fixed/Minimum
        Roi1ExcY1
        spacer 40x20 Fixed/Minimum
        Roi1ExcY2
        roi1ExcEnable
  LUT QVBoxLayout 6
    LutLabel
    gridLayout QGridLayout 6
      (0,0) contrastTypeEdit
      (0,1) lutColorEdit
      (0,2) clheSlider
      (0,3) clheEdit
      (1,0) label_25
      (1,2) AhcBlackGainLimSlider
      (1,3) AhcBlackGainLimSpin
      (3,0) label_26
      (3,2) AhcWhiteGainLimSlider
      (3,3) AhcWhiteGainLimSpin
      (5,0) label_24
      (5,2) TempoFilterSlider
      (5,3) TempoFilterSpin
)",
        {
            {"QLabel", "label_3", sectionTitle("Polarity Control")},
            {"QPushButton",
             "polarityButton",
             {text("Invert Polarity: Deactivated"), checkable(), policy(Expanding, Fixed)}},
            {"QLabel", "label_4", sectionTitle("Gamma Correction")},
            {"QLabel",
             "gammaLabel",
             {text("Gamma Correction"),
              tip({"Gamma correction compensates for the differences in display on different "
                   "output devices, so that images look the same when viewed on different "
                   "monitors."}),
              policy(QSizePolicy::Minimum, QSizePolicy::Minimum), minimum(150, 0), points(10)}},
            {"QSlider", "gammaSlider",
             with({range(0, 20), property("singleStep", 2), property("pageStep", 5),
                   property("value", 0), property("tracking", true),
                   property("invertedAppearance", false), horizontal(), minimum(200, 0),
                   ticks(QSlider::TicksBelow), property("tickInterval", 2)})},
            {"QDoubleSpinBox", "gammaEdit",
             with({range(0.5, 2.5, 1), property("singleStep", 0.1), property("value", 0.5),
                   policy(Fixed, Fixed), minimum(100, 0), normal(10), centred()})},
            {"QLabel", "roiLabel",
             with({sectionTitle("Region of Interest (ROI)"),
                   tip({"Region of Interest is the area used in LUT calculation.",
                        "For example, the RoI can exclude sky or sea to avoid cold areas in the "
                        "LUT calculation and improve dynamism in the image.",
                        "Origin (0,0) is top left of the picture."})})},

            {"QLabel", "label_20", columnHead("X1")},
            {"QLabel", "label_18", columnHead("X2")},
            {"QLabel", "label_19", columnHead("Y1")},
            {"QLabel", "label_17", columnHead("Y2")},

            {"QLabel", "label_16",
             with({regionName("Roi0 inclusive"), policy(Preferred, Preferred)})},
            {"QSpinBox", "Roi0IncX1", with({x(), points(10)})},
            {"QSpinBox", "Roi0IncX2", with({x(), points(10)})},
            {"QSpinBox", "Roi0IncY1", with({y(), points(10)})},
            {"QSpinBox", "Roi0IncY2", with({y(), points(10)})},
            {"QCheckBox", "checkBox", with({enableBox(), disabled(), checkable(), checked(true)})},

            {"QLabel", "label_22", regionName("Roi1 inclusive")},
            {"QSpinBox", "Roi1IncX1", with({x(), disabled()})},
            {"QSpinBox", "Roi1IncX2", with({x(), disabled()})},
            {"QSpinBox", "Roi1IncY1", with({y(), disabled()})},
            {"QSpinBox", "Roi1IncY2", with({y(), disabled()})},
            {"QCheckBox", "roi1IncEnable", with({enableBox(), policy(Fixed, Fixed)})},

            {"QLabel", "label_21", regionName("Roi0 exclusive")},
            {"QSpinBox", "Roi0ExcX1", with({x(), disabled()})},
            {"QSpinBox", "Roi0ExcX2", with({x(), disabled(), property("singleStep", 1)})},
            {"QSpinBox", "Roi0ExcY1", with({y(), disabled()})},
            {"QSpinBox", "Roi0ExcY2", with({y(), disabled()})},
            {"QCheckBox", "roi0ExcEnable", enableBox()},

            {"QLabel", "label_23", regionName("Roi1 exclusive")},
            {"QSpinBox", "Roi1ExcX1", with({x(), disabled()})},
            {"QSpinBox", "Roi1ExcX2", with({x(), disabled()})},
            {"QSpinBox", "Roi1ExcY1", with({y(), disabled()})},
            {"QSpinBox", "Roi1ExcY2", with({y(), disabled()})},
            {"QCheckBox", "roi1ExcEnable", enableBox()},

            {"QLabel", "LutLabel", with({sectionTitle("Lut Method"), disabled()})},
            {"QComboBox",
             "contrastTypeEdit",
             {tip({"Select algorithm for LUT calculation.",
                   "CLHE (contrast limited histogram equalization) is using RoI area for "
                   "calculation",
                   "CLAHE (contrast limited adaptative histogram equalization) is using sectors of "
                   "the image for local calculation.",
                   "Contrast parameter is a mix between linear LUT and histogram equalization LUT.",
                   "Lower values increase histogram linearity.",
                   "Higher values increase histogram dynamism."}),
              policy(Fixed, Fixed), minimum(150, 0), points(10)},
             {QStringLiteral("CLHE (ROI)"), QStringLiteral("CLAHE (Local)")}},
            {"QComboBox",
             "lutColorEdit",
             {policy(Fixed, Fixed), minimum(150, 0), property("currentIndex", 0)},
             {QStringLiteral("GREYSCALE"), QStringLiteral("IRON"), QStringLiteral("HOT"),
              QStringLiteral("RAINBOW"), QStringLiteral("NCAR"), QStringLiteral("CUBEHELIX"),
              QStringLiteral("COOLWARM"), QStringLiteral("GREYSCALE YCbCr")}},
            {"QSlider", "clheSlider",
             with({gridSlider(10000), property("singleStep", 100), property("pageStep", 1000),
                   property("tickInterval", 1000)})},
            {"QDoubleSpinBox", "clheEdit",
             with({range(0.0, 30000.0, 0), policy(Fixed, Fixed), minimum(100, 0), normal(10),
                   centred()})},
            {"QLabel",
             "label_25",
             {text("AHC gain black limitation"), policy(Fixed, Preferred), minimum(90, 0)}},
            {"QSlider", "AhcBlackGainLimSlider",
             with({gridSlider(100), property("singleStep", 1)})},
            {"QSpinBox", "AhcBlackGainLimSpin", gridSpinBox(100)},
            {"QLabel",
             "label_26",
             {text("AHC gain white limitation"), policy(Fixed, Preferred), minimum(90, 0)}},
            {"QSlider", "AhcWhiteGainLimSlider", gridSlider(100)},
            {"QSpinBox", "AhcWhiteGainLimSpin", gridSpinBox(100)},
            {"QLabel",
             "label_24",
             {text("Temporal Filter"), policy(Fixed, Preferred), minimum(150, 0), normal(10)}},
            {"QSlider", "TempoFilterSlider",
             with({gridSlider(8), property("pageStep", 2), property("tickInterval", 1)})},
            {"QSpinBox", "TempoFilterSpin", gridSpinBox(8)},
        }};
}
