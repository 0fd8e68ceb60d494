// SPDX-License-Identifier: MIT
// What the tests know of every switch: its button, what it sends, what it says, and where its state
// comes from.
#pragma once

#include "tests/kit/operator.h"
#include "tests/params/pairrows.h"

namespace switchrows {

using State = recording::CameraState;
using Defaults = recording::ConfigurationState;

struct Row {
    const char* button;
    const char* caption; ///< without its state
    const char* operation;
    const char* sentOn; ///< the argument
    const char* sentOff;
    const char* ok;
    const char* ko;
    const char* tab; ///< whose read shows it
    const char* label;
    const char* wordOn;
    const char* wordOff;
    std::uint8_t State::*state;
    std::uint8_t Defaults::*standard; ///< what a reset goes back to; null: it is left alone

    /// The button whose click reads it.
    [[nodiscard]] const char* read() const
    {
        return qstrcmp(tab, "Expert") == 0 ? "readParamButtonExpert" : "readParamButtonUser";
    }
    [[nodiscard]] QString shown(bool on) const
    {
        return QLatin1String(caption) + QLatin1String(on ? ": Activated" : ": Deactivated");
    }
    [[nodiscard]] QString call(bool on) const
    {
        return QStringLiteral("%1(%2)").arg(QLatin1String(operation),
                                            QLatin1String(on ? sentOn : sentOff));
    }
};

using pairrows::expert;
using pairrows::imageProcessing;
using pairrows::lut;
using pairrows::zoom;

// clang-format off
inline constexpr Row rows[] = {
    {"VignettingCorrectionButton", "Vignetting Correction", "camera.setVignettingCorrection", "true", "false",
     "Set vignetting correction value OK", "Set vignetting correction value KO",
     imageProcessing, "Vignetting Correction state = ", "Enabled", "Disabled",
     &State::vignettingCorrection, &Defaults::vignettingCorrection},
    {"ColumnCorrectionButton", "Column Correction", "camera.setColumnCorrection", "true", "false",
     "Set column correction value OK", "Set column correction value KO",
     imageProcessing, "Column Correction state = ", "Enabled", "Disabled",
     &State::columnCorrection, &Defaults::columnCorrection},
    {"nucEnablingButton", "NUC", "camera.setNucControl", "2", "0",
     "Set NUC control OK", "Set NUC control value KO",
     imageProcessing, "NUC state = ", "Activated", "Deactivated",
     &State::nucControl, nullptr},
    {"TestPatternButton", "Test Pattern", "camera.setTestPattern", "true", "false",
     "Set TEST PATTERN value OK", "Set TEST PATTERN value KO",
     imageProcessing, "Test pattern value = ", "Enabled", "Disabled",
     &State::testPattern, &Defaults::testPattern},
    {"sdiOutputButton", "BT656/SDI Output", "camera.setBt656SdiOutput", "true", "false",
     "Set BT656/SDI OUTPUT value OK", "Set BT656/SDI OUTPUT value KO",
     imageProcessing, "BT656/SDI output value = ", "Enabled", "Disabled",
     &State::bt656SdiOutput, &Defaults::bt656SdiOutput},
    {"parallelOutputButton", "Parallel Output", "camera.setParallelOutput", "true", "false",
     "Set PARALLEL OUTPUT value OK", "Set PARALLEL OUTPUT value KO",
     imageProcessing, "Parallel output value = ", "Enabled", "Disabled",
     &State::parallelOutput, &Defaults::parallelOutput},
    {"mipiOutputButton", "MIPI Output", "camera.setMipiOutput", "true", "false",
     "Set MIPI OUTPUT value OK", "Set MIPI OUTPUT value KO",
     imageProcessing, "MIPI output value = ", "Enabled", "Disabled",
     &State::mipiOutput, &Defaults::mipiOutput},
    {"polarityButton", "Invert Polarity", "camera.setPolarity", "true", "false",
     "Set POLARITY value OK", "Set POLARITY value KO",
     lut, "Polarity value = ", "1", "0",
     &State::polarity, &Defaults::polarity},
    {"horizontalFlipButton", "Horizontal Flip", "camera.setHorizontalFlip", "true", "false",
     "Set HORIZONTAL FLIP value OK", "Set HORIZONTAL FLIP value KO",
     zoom, "Horizontal flip value = ", "1", "0",
     &State::horizontalFlip, &Defaults::verticalFlip},
    {"enableBprPB", "BPR Correction", "camera.setBprCorrection", "true", "false",
     "Set BPR correction value OK", "Set BPR correction value KO",
     expert, "BPR state = ", "Enabled", "Disabled",
     &State::bprCorrection, nullptr},
    {"enableOffsetPB", "Offset Correction", "camera.setOffsetCorrection", "true", "false",
     "Set Offset correction value OK", "Set Offset correction value KO",
     expert, "OFFSET state = ", "Enabled", "Disabled",
     &State::offsetCorrection, nullptr},
    {"enableGainPB", "Gain Correction", "camera.setGainCorrection", "true", "false",
     "Set Gain correction value OK", "Set Gain correction value KO",
     expert, "GAIN state = ", "Enabled", "Disabled",
     &State::gainCorrection, nullptr},
    {"verticalFlipButton", "Vertical flip", "camera.setVerticalFlip", "true", "false",
     "Set VERTICAL FLIP value OK", "Set VERTICAL FLIP value KO",
     expert, "vertical flip = ", "Activated", "Deactivated",
     &State::verticalFlip, nullptr},
};
// clang-format on

/// What a read of a tab's switches and values does, in the order of the rows, when all switches
/// were off and all values are changed.
inline QStringList readOf(const char* tab, const State& camera)
{
    QStringList sequence;
    for (const Row& row : rows) {
        if (qstrcmp(row.tab, tab) != 0) {
            continue;
        }
        const bool on = camera.*row.state != 0;
        sequence.append(QString::fromLatin1(row.operation)
                            .replace(QLatin1String(".set"), QLatin1String(".get")) +
                        QLatin1String("()"));
        if (on) {
            sequence.append(QLatin1String(row.button) + QStringLiteral(" checked true"));
            sequence.append(QLatin1String(row.button) + QStringLiteral(" text ") + row.shown(true));
        }
        sequence.append(QStringLiteral("log 2: ") + QLatin1String(row.label) +
                        QLatin1String(on ? row.wordOn : row.wordOff));
    }
    return sequence + pairrows::readOf(tab);
}

/// Test data: every switch, both ways.
inline void everyRowBothWays()
{
    QTest::addColumn<const Row*>("feature");
    QTest::addColumn<bool>("on");
    for (const Row& row : rows) {
        QTest::addRow("%s on", row.button) << &row << true;
        QTest::addRow("%s off", row.button) << &row << false;
    }
}

} // namespace switchrows

Q_DECLARE_METATYPE(const switchrows::Row*)
