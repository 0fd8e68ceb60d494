// SPDX-License-Identifier: MIT
// What the tests know of every value with a slider and a spin box: its widgets and slots, what is
// sent, said and read, and what the camera takes.
#pragma once

#include "tests/kit/recording_sdk.h"

#include <QtCore/QMetaType>
#include <QtCore/QObject>
#include <QtCore/QStringList>

namespace pairrows {

using State = recording::CameraState;

/// The place of a number in a camera's state, or none.
struct Held {
    std::uint8_t State::*byte = nullptr;
    std::uint32_t State::*word = nullptr;

    constexpr Held() = default;
    constexpr Held(std::uint8_t State::*place) : byte(place) {}
    constexpr Held(std::uint32_t State::*place) : word(place) {}

    void put(State& state, quint32 number) const
    {
        if (byte != nullptr) {
            state.*byte = static_cast<std::uint8_t>(number);
        } else if (word != nullptr) {
            state.*word = number;
        }
    }
};

struct Row {
    const char* slider;
    const char* sliderSlot; ///< null: its handlers are no slots
    double scale;           ///< spin box = slider * scale + offset
    double offset;
    const char* spinBox;
    const char* spinBoxSignal;
    const char* spinBoxSlot;
    const char* sendSlot;
    const char* operation;
    const char* ok;
    const char* ko;
    const char* asRead;      ///< the call that sends a fresh camera's own value back
    const char* oneKeyOn;    ///< what the spin box shows after one arrow key on the slider
    int target;              ///< a slider position to go to
    QString (*sent)(int at); ///< the call for a slider position
    const char* parameter;   ///< its name on the command line
    // What the simulated camera takes; 0 and 0: it is one of several numbers of a command.
    quint32 lowest = 0;
    quint32 highest = 0;
    // Of a value that is read by itself: the camera's number, with what it is read, and its log
    // line.
    Held held = {};
    const char* group = nullptr;
    const char* label = nullptr;
};

inline QString call(const char* text, int value)
{
    return QString::fromLatin1(text).arg(value);
}

/// The number in "camera.setClhe(2000)".
inline quint32 numberIn(const QString& call)
{
    return call.section(QLatin1Char('('), 1).chopped(1).toUInt();
}

inline const char* const decimal = SIGNAL(valueChanged(double));
inline const char* const integer = SIGNAL(valueChanged(int));

// With what a value is read: the switches of a tab, the contrast or the filter.
inline constexpr char imageProcessing[] = "Image Processing";
inline constexpr char lut[] = "LUT";
inline constexpr char contrast[] = "contrast";
inline constexpr char filter[] = "filter";
inline constexpr char zoom[] = "Zoom";
inline constexpr char expert[] = "Expert";

// clang-format off
inline const Row rows[] = {
    {"gammaSlider", SLOT(GammaUserSliderChanged(int)), 0.1, 0.5, "gammaEdit",
     decimal, SLOT(GammaUserValueChanged(double)), SLOT(gammaUserSendCommand()),
     "camera.setGamma", "Set GAMMA value OK", "Set GAMMA value KO",
     "camera.setGamma(65536)", "1.2", 17,
     [](int at) { return call("camera.setGamma(%1)", at == 0 ? 32768 : 144179); },
     "gamma", 32768, 163840, &State::gamma, lut, "Gamma value = "},
    {"clheSlider", SLOT(ClheUserSliderChanged(int)), 1, 0, "clheEdit",
     decimal, SLOT(ClheUserValueChanged(double)), SLOT(clheSendCommand()),
     "camera.setClhe", "Set CLHE value OK", "Set CLHE value KO",
     "camera.setClhe(2000)", "2100", 7000,
     [](int at) { return call("camera.setClhe(%1)", at); },
     "clhe", 0, 30000, &State::clhe, contrast, "CLHE value = "},
    {"sharpeningGainSlider", SLOT(SharpeningUserSliderChanged(int)), 0.1, 0, "sharpeningGainEdit",
     decimal, SLOT(SharpeningUserValueChanged(double)), SLOT(sharpeningSendCommand()),
     "camera.configureEdgeCorrection", "Configure EDGE CORRECTION OK", "Configure EDGE CORRECTION KO",
     "camera.configureEdgeCorrection(0, 10, 20)", "112.4", 5000,
     [](int at) { return call("camera.configureEdgeCorrection(0, %1, 20)", at / 10); },
     "edge-gain"},
    {"SharpeningTHSlider", SLOT(SharpeningTHSliderChanged(int)), 0.1, 0, "SharpeningTHEdit",
     decimal, SLOT(SharpeningTHValueChanged(double)), SLOT(sharpeningSendCommand()),
     "camera.configureEdgeCorrection", "Configure EDGE CORRECTION OK", "Configure EDGE CORRECTION KO",
     "camera.configureEdgeCorrection(0, 10, 20)", "40.0", 1500,
     [](int at) { return call("camera.configureEdgeCorrection(0, 10, %1)", at / 10); },
     "edge-threshold"},
    {"AhcBlackGainLimSlider", SLOT(AhcBlackGainlimSliderChanged(int)), 1, 0, "AhcBlackGainLimSpin",
     integer, SLOT(AhcBlackGainLimSpinValueChanged(int)), SLOT(ahcGainSendCommand()),
     "camera.setAhcGainsLimitation", "Set AHC GAINS LIMITATION values OK", "Set AHC GAINS LIMITATION values KO",
     "camera.setAhcGainsLimitation(10, 20)", "11", 70,
     [](int at) { return call("camera.setAhcGainsLimitation(%1, 20)", at); },
     "ahc-black-gain-limit"},
    {"AhcWhiteGainLimSlider", SLOT(AhcWhiteGainlimSliderChanged(int)), 1, 0, "AhcWhiteGainLimSpin",
     integer, SLOT(AhcWhiteGainLimSpinValueChanged(int)), SLOT(ahcGainSendCommand()),
     "camera.setAhcGainsLimitation", "Set AHC GAINS LIMITATION values OK", "Set AHC GAINS LIMITATION values KO",
     "camera.setAhcGainsLimitation(10, 20)", "21", 90,
     [](int at) { return call("camera.setAhcGainsLimitation(10, %1)", at); },
     "ahc-white-gain-limit"},
    {"TempoFilterSlider", SLOT(TempoFilterSliderChanged(int)), 1, 0, "TempoFilterSpin",
     integer, SLOT(TempoFiltSpinValueChanged(int)), SLOT(tempoFilterSendCommand()),
     "camera.setLutTemporalFilter", "Set LUT TEMPORAL FILTER value OK", "Set LUT TEMPORAL FILTER value KO",
     "camera.setLutTemporalFilter(3)", "4", 7,
     [](int at) { return call("camera.setLutTemporalFilter(%1)", at); },
     "lut-temporal-filter", 0, 8, &State::lutTemporalFilter, filter, "LUT temporal filter = "},
    {"gskSlider", SLOT(GSKExpertSliderChanged(int)), 1, 0, "gskEdit",
     decimal, SLOT(GSKExpertValueChanged(double)), SLOT(gskSendCommand()),
     "camera.setGsk", "Set GSK value OK", "Set GSK value KO",
     "camera.setGsk(2)", "3", 3,
     [](int at) { return call("camera.setGsk(%1)", at); },
     "gsk", 0, 4095},
    {"gfidSlider", SLOT(GFIDExpertSliderChanged(int)), 1, 0, "gfidEdit",
     decimal, SLOT(GFIDExpertValueChanged(double)), SLOT(gfiSendCommand()),
     "camera.setGfid", "Set GFID value OK", "Set GFID value KO",
     "camera.setGfid(300)", "301", 900,
     [](int at) { return call("camera.setGfid(%1)", at); },
     "gfid", 0, 4095},
    {"gmsSlider", SLOT(GMSExpertSliderChanged(int)), 1, 0, "gmsEdit",
     decimal, SLOT(GMSExpertValueChanged(double)), SLOT(gmsSendCommand()),
     "camera.setGms", "Set GMS value OK", "Set GMS value KO",
     "camera.setGms(40)", "41", 10,
     [](int at) { return call("camera.setGms(%1)", at); },
     "gms", 0, 4095},
    {"tintSlider", SLOT(TINTExpertSliderChanged(int)), 1, 0, "tintEdit",
     decimal, SLOT(TINTExpertValueChanged(double)), SLOT(tintSendCommand()),
     "camera.setTint", "Set TINT value OK", "Set TINT value KO",
     "camera.setTint(5)", "6", 7,
     [](int at) { return call("camera.setTint(%1)", at); },
     "tint", 0, 4095},
};
// clang-format on

/// A camera whose values that are read by themselves are those that the rows begin with.
inline void begin(State& camera)
{
    for (const Row& row : rows) {
        row.held.put(camera, numberIn(QLatin1String(row.asRead)));
    }
}

/// Moves them all to the rows' targets.
inline void change(State& camera)
{
    for (const Row& row : rows) {
        row.held.put(camera, numberIn(row.sent(row.target)));
    }
}

/// What a read of a group's values does, in the order of the rows, once they have been changed.
inline QStringList readOf(const char* group)
{
    QStringList sequence;
    for (const Row& row : rows) {
        if (qstrcmp(row.group, group) != 0) {
            continue;
        }
        const QString value = QString::number(row.target * row.scale + row.offset);
        QStringList widgets = {
            QStringLiteral("%1 value %2").arg(QLatin1String(row.slider)).arg(row.target),
            QStringLiteral("%1 value %2").arg(QLatin1String(row.spinBox), value)};
        // A whole number comes to its slider by its spin box.
        if (qstrcmp(row.spinBoxSignal, integer) == 0) {
            widgets.swapItemsAt(0, 1);
        }
        sequence.append(QString::fromLatin1(row.operation)
                            .replace(QLatin1String(".set"), QLatin1String(".get")) +
                        QLatin1String("()"));
        sequence.append(widgets);
        sequence.append(QStringLiteral("log 2: ") + QLatin1String(row.label) + value);
    }
    return sequence;
}

} // namespace pairrows

Q_DECLARE_METATYPE(const pairrows::Row*)
