// SPDX-License-Identifier: MIT
// The checkable buttons that switch the camera's features on and off.
#pragma once

#include "params/switches.h"
#include "ui_mainwindow.h"

namespace tavrel {

/// The two captions of a checkable button.
struct Captions {
    const char* on;
    const char* off;
};

struct Toggle : Switch {
    QPushButton* Ui_MainWindow::*button;
    Captions captions;
    const char* label; ///< begins the log line of a read
    const char* onWord;
    const char* offWord;
    const char* ok; ///< log line of an accepted command
    const char* ko; ///< log line of a refused command
};

/// Brings a button's caption in line with its mark, but only from exactly the opposite caption.
void alignCaption(QPushButton& button, const Captions& captions);

namespace toggle {

using Ui = Ui_MainWindow;

// clang-format off: one row of the table reads as one block.
inline constexpr Toggle vignettingCorrection{
    feature::vignettingCorrection,
    &Ui::VignettingCorrectionButton,
    {"Vignetting Correction: Activated", "Vignetting Correction: Deactivated"},
    "Vignetting Correction state = ",
    "Enabled",
    "Disabled",
    "Set vignetting correction value OK",
    "Set vignetting correction value KO"};

inline constexpr Toggle columnCorrection{
    feature::columnCorrection,
    &Ui::ColumnCorrectionButton,
    {"Column Correction: Activated", "Column Correction: Deactivated"},
    "Column Correction state = ",
    "Enabled",
    "Disabled",
    "Set column correction value OK",
    "Set column correction value KO"};

// The NUC's texts are not symmetrical: "value" stands in the refusal only.
inline constexpr Toggle nuc{feature::nuc,
                            &Ui::nucEnablingButton,
                            {"NUC: Activated", "NUC: Deactivated"},
                            "NUC state = ",
                            "Activated",
                            "Deactivated",
                            "Set NUC control OK",
                            "Set NUC control value KO"};

inline constexpr Toggle testPattern{feature::testPattern,
                                    &Ui::TestPatternButton,
                                    {"Test Pattern: Activated", "Test Pattern: Deactivated"},
                                    "Test pattern value = ",
                                    "Enabled",
                                    "Disabled",
                                    "Set TEST PATTERN value OK",
                                    "Set TEST PATTERN value KO"};

inline constexpr Toggle sdiOutput{feature::sdiOutput,
                                  &Ui::sdiOutputButton,
                                  {"BT656/SDI Output: Activated", "BT656/SDI Output: Deactivated"},
                                  "BT656/SDI output value = ",
                                  "Enabled",
                                  "Disabled",
                                  "Set BT656/SDI OUTPUT value OK",
                                  "Set BT656/SDI OUTPUT value KO"};

inline constexpr Toggle parallelOutput{
    feature::parallelOutput,
    &Ui::parallelOutputButton,
    {"Parallel Output: Activated", "Parallel Output: Deactivated"},
    "Parallel output value = ",
    "Enabled",
    "Disabled",
    "Set PARALLEL OUTPUT value OK",
    "Set PARALLEL OUTPUT value KO"};

// The form's first caption reads "Mipi Output": it stays until a read has put one of these there.
inline constexpr Toggle mipiOutput{feature::mipiOutput,
                                   &Ui::mipiOutputButton,
                                   {"MIPI Output: Activated", "MIPI Output: Deactivated"},
                                   "MIPI output value = ",
                                   "Enabled",
                                   "Disabled",
                                   "Set MIPI OUTPUT value OK",
                                   "Set MIPI OUTPUT value KO"};

inline constexpr Toggle polarity{feature::polarity,
                                 &Ui::polarityButton,
                                 {"Invert Polarity: Activated", "Invert Polarity: Deactivated"},
                                 "Polarity value = ",
                                 "1",
                                 "0",
                                 "Set POLARITY value OK",
                                 "Set POLARITY value KO"};

inline constexpr Toggle horizontalFlip{
    feature::horizontalFlip,
    &Ui::horizontalFlipButton,
    {"Horizontal Flip: Activated", "Horizontal Flip: Deactivated"},
    "Horizontal flip value = ",
    "1",
    "0",
    "Set HORIZONTAL FLIP value OK",
    "Set HORIZONTAL FLIP value KO"};

inline constexpr Toggle bprCorrection{feature::bprCorrection,
                                      &Ui::enableBprPB,
                                      {"BPR Correction: Activated", "BPR Correction: Deactivated"},
                                      "BPR state = ",
                                      "Enabled",
                                      "Disabled",
                                      "Set BPR correction value OK",
                                      "Set BPR correction value KO"};

inline constexpr Toggle offsetCorrection{
    feature::offsetCorrection,
    &Ui::enableOffsetPB,
    {"Offset Correction: Activated", "Offset Correction: Deactivated"},
    "OFFSET state = ",
    "Enabled",
    "Disabled",
    "Set Offset correction value OK",
    "Set Offset correction value KO"};

inline constexpr Toggle gainCorrection{
    feature::gainCorrection,
    &Ui::enableGainPB,
    {"Gain Correction: Activated", "Gain Correction: Deactivated"},
    "GAIN state = ",
    "Enabled",
    "Disabled",
    "Set Gain correction value OK",
    "Set Gain correction value KO"};

inline constexpr Toggle verticalFlip{feature::verticalFlip,
                                     &Ui::verticalFlipButton,
                                     {"Vertical flip: Activated", "Vertical flip: Deactivated"},
                                     "vertical flip = ",
                                     "Activated",
                                     "Deactivated",
                                     "Set VERTICAL FLIP value OK",
                                     "Set VERTICAL FLIP value KO"};

// clang-format on
} // namespace toggle

} // namespace tavrel
