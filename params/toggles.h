// SPDX-License-Identifier: MIT
// Every feature of the camera that a checkable button switches on and off.
#pragma once

#include "sdk/ombrix_sdk.h"
#include "ui_mainwindow.h"

namespace tavrel {

/// The two captions of a checkable button.
struct Captions {
    const char* on;
    const char* off;
};

struct Toggle {
    QPushButton* Ui_MainWindow::*button;
    Captions captions;
    ombrix_sdk::Flag (ombrix_sdk::ICamera::*get)();
    const char* label; ///< begins the log line of a read
    const char* onWord;
    const char* offWord;
    ombrix_sdk::Flag (*set)(ombrix_sdk::ICamera& camera, bool on);
    const char* ok; ///< log line of an accepted command
    const char* ko; ///< log line of a refused command
};

/// Brings a button's caption in line with its mark, but only from exactly the opposite caption.
void alignCaption(QPushButton& button, const Captions& captions);

template<auto setter> ombrix_sdk::Flag send(ombrix_sdk::ICamera& camera, bool on)
{
    return (camera.*setter)(on);
}

inline ombrix_sdk::Flag sendNucControl(ombrix_sdk::ICamera& camera, bool on)
{
    return camera.setNucControl(on ? 2 : 0);
}

namespace toggle {

using Ui = Ui_MainWindow;
using Camera = ombrix_sdk::ICamera;

// clang-format off: one row of the table reads as one block.
inline constexpr Toggle vignettingCorrection{
    &Ui::VignettingCorrectionButton,
    {"Vignetting Correction: Activated", "Vignetting Correction: Deactivated"},
    &Camera::getVignettingCorrection,
    "Vignetting Correction state = ",
    "Enabled",
    "Disabled",
    &send<&Camera::setVignettingCorrection>,
    "Set vignetting correction value OK",
    "Set vignetting correction value KO"};

inline constexpr Toggle columnCorrection{
    &Ui::ColumnCorrectionButton,
    {"Column Correction: Activated", "Column Correction: Deactivated"},
    &Camera::getColumnCorrection,
    "Column Correction state = ",
    "Enabled",
    "Disabled",
    &send<&Camera::setColumnCorrection>,
    "Set column correction value OK",
    "Set column correction value KO"};

// The NUC's texts are not symmetrical: "value" stands in the refusal only.
inline constexpr Toggle nuc{&Ui::nucEnablingButton,
                            {"NUC: Activated", "NUC: Deactivated"},
                            &Camera::getNucControl,
                            "NUC state = ",
                            "Activated",
                            "Deactivated",
                            &sendNucControl,
                            "Set NUC control OK",
                            "Set NUC control value KO"};

inline constexpr Toggle testPattern{&Ui::TestPatternButton,
                                    {"Test Pattern: Activated", "Test Pattern: Deactivated"},
                                    &Camera::getTestPattern,
                                    "Test pattern value = ",
                                    "Enabled",
                                    "Disabled",
                                    &send<&Camera::setTestPattern>,
                                    "Set TEST PATTERN value OK",
                                    "Set TEST PATTERN value KO"};

inline constexpr Toggle sdiOutput{&Ui::sdiOutputButton,
                                  {"BT656/SDI Output: Activated", "BT656/SDI Output: Deactivated"},
                                  &Camera::getBt656SdiOutput,
                                  "BT656/SDI output value = ",
                                  "Enabled",
                                  "Disabled",
                                  &send<&Camera::setBt656SdiOutput>,
                                  "Set BT656/SDI OUTPUT value OK",
                                  "Set BT656/SDI OUTPUT value KO"};

inline constexpr Toggle parallelOutput{
    &Ui::parallelOutputButton,
    {"Parallel Output: Activated", "Parallel Output: Deactivated"},
    &Camera::getParallelOutput,
    "Parallel output value = ",
    "Enabled",
    "Disabled",
    &send<&Camera::setParallelOutput>,
    "Set PARALLEL OUTPUT value OK",
    "Set PARALLEL OUTPUT value KO"};

// The form's first caption reads "Mipi Output": it stays until a read has put one of these there.
inline constexpr Toggle mipiOutput{&Ui::mipiOutputButton,
                                   {"MIPI Output: Activated", "MIPI Output: Deactivated"},
                                   &Camera::getMipiOutput,
                                   "MIPI output value = ",
                                   "Enabled",
                                   "Disabled",
                                   &send<&Camera::setMipiOutput>,
                                   "Set MIPI OUTPUT value OK",
                                   "Set MIPI OUTPUT value KO"};

inline constexpr Toggle polarity{&Ui::polarityButton,
                                 {"Invert Polarity: Activated", "Invert Polarity: Deactivated"},
                                 &Camera::getPolarity,
                                 "Polarity value = ",
                                 "1",
                                 "0",
                                 &send<&Camera::setPolarity>,
                                 "Set POLARITY value OK",
                                 "Set POLARITY value KO"};

inline constexpr Toggle horizontalFlip{
    &Ui::horizontalFlipButton,
    {"Horizontal Flip: Activated", "Horizontal Flip: Deactivated"},
    &Camera::getHorizontalFlip,
    "Horizontal flip value = ",
    "1",
    "0",
    &send<&Camera::setHorizontalFlip>,
    "Set HORIZONTAL FLIP value OK",
    "Set HORIZONTAL FLIP value KO"};

inline constexpr Toggle bprCorrection{&Ui::enableBprPB,
                                      {"BPR Correction: Activated", "BPR Correction: Deactivated"},
                                      &Camera::getBprCorrection,
                                      "BPR state = ",
                                      "Enabled",
                                      "Disabled",
                                      &send<&Camera::setBprCorrection>,
                                      "Set BPR correction value OK",
                                      "Set BPR correction value KO"};

inline constexpr Toggle offsetCorrection{
    &Ui::enableOffsetPB,
    {"Offset Correction: Activated", "Offset Correction: Deactivated"},
    &Camera::getOffsetCorrection,
    "OFFSET state = ",
    "Enabled",
    "Disabled",
    &send<&Camera::setOffsetCorrection>,
    "Set Offset correction value OK",
    "Set Offset correction value KO"};

inline constexpr Toggle gainCorrection{
    &Ui::enableGainPB,
    {"Gain Correction: Activated", "Gain Correction: Deactivated"},
    &Camera::getGainCorrection,
    "GAIN state = ",
    "Enabled",
    "Disabled",
    &send<&Camera::setGainCorrection>,
    "Set Gain correction value OK",
    "Set Gain correction value KO"};

inline constexpr Toggle verticalFlip{&Ui::verticalFlipButton,
                                     {"Vertical flip: Activated", "Vertical flip: Deactivated"},
                                     &Camera::getVerticalFlip,
                                     "vertical flip = ",
                                     "Activated",
                                     "Deactivated",
                                     &send<&Camera::setVerticalFlip>,
                                     "Set VERTICAL FLIP value OK",
                                     "Set VERTICAL FLIP value KO"};

// clang-format on
} // namespace toggle

} // namespace tavrel
