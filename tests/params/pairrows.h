// SPDX-License-Identifier: MIT
// What the tests know of every value with a slider and a spin box.
#pragma once

#include "tests/kit/operator.h"

namespace pairrows {

struct Row {
    const char* slider;
    const char* sliderSlot;
    double scale; ///< spin box = slider * scale + offset
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
};

inline QString call(const char* text, int value)
{
    return QString::fromLatin1(text).arg(value);
}

inline const char* const decimal = SIGNAL(valueChanged(double));
inline const char* const integer = SIGNAL(valueChanged(int));

// clang-format off
inline const Row rows[] = {
    {"gammaSlider", SLOT(GammaUserSliderChanged(int)), 0.1, 0.5, "gammaEdit",
     decimal, SLOT(GammaUserValueChanged(double)), SLOT(gammaUserSendCommand()),
     "camera.setGamma", "Set GAMMA value OK", "Set GAMMA value KO",
     "camera.setGamma(65536)", "1.2", 17,
     [](int at) { return call("camera.setGamma(%1)", at == 0 ? 32768 : 144179); }},
    {"clheSlider", SLOT(ClheUserSliderChanged(int)), 1, 0, "clheEdit",
     decimal, SLOT(ClheUserValueChanged(double)), SLOT(clheSendCommand()),
     "camera.setClhe", "Set CLHE value OK", "Set CLHE value KO",
     "camera.setClhe(2000)", "2100", 7000,
     [](int at) { return call("camera.setClhe(%1)", at); }},
    {"sharpeningGainSlider", SLOT(SharpeningUserSliderChanged(int)), 0.1, 0, "sharpeningGainEdit",
     decimal, SLOT(SharpeningUserValueChanged(double)), SLOT(sharpeningSendCommand()),
     "camera.configureEdgeCorrection", "Configure EDGE CORRECTION OK", "Configure EDGE CORRECTION KO",
     "camera.configureEdgeCorrection(0, 10, 20)", "112.4", 5000,
     [](int at) { return call("camera.configureEdgeCorrection(0, %1, 20)", at / 10); }},
    {"SharpeningTHSlider", SLOT(SharpeningTHSliderChanged(int)), 0.1, 0, "SharpeningTHEdit",
     decimal, SLOT(SharpeningTHValueChanged(double)), SLOT(sharpeningSendCommand()),
     "camera.configureEdgeCorrection", "Configure EDGE CORRECTION OK", "Configure EDGE CORRECTION KO",
     "camera.configureEdgeCorrection(0, 10, 20)", "40.0", 1500,
     [](int at) { return call("camera.configureEdgeCorrection(0, 10, %1)", at / 10); }},
    {"AhcBlackGainLimSlider", SLOT(AhcBlackGainlimSliderChanged(int)), 1, 0, "AhcBlackGainLimSpin",
     integer, SLOT(AhcBlackGainLimSpinValueChanged(int)), SLOT(ahcGainSendCommand()),
     "camera.setAhcGainsLimitation", "Set AHC GAINS LIMITATION values OK", "Set AHC GAINS LIMITATION values KO",
     "camera.setAhcGainsLimitation(10, 20)", "11", 70,
     [](int at) { return call("camera.setAhcGainsLimitation(%1, 20)", at); }},
    {"AhcWhiteGainLimSlider", SLOT(AhcWhiteGainlimSliderChanged(int)), 1, 0, "AhcWhiteGainLimSpin",
     integer, SLOT(AhcWhiteGainLimSpinValueChanged(int)), SLOT(ahcGainSendCommand()),
     "camera.setAhcGainsLimitation", "Set AHC GAINS LIMITATION values OK", "Set AHC GAINS LIMITATION values KO",
     "camera.setAhcGainsLimitation(10, 20)", "21", 90,
     [](int at) { return call("camera.setAhcGainsLimitation(10, %1)", at); }},
    {"TempoFilterSlider", SLOT(TempoFilterSliderChanged(int)), 1, 0, "TempoFilterSpin",
     integer, SLOT(TempoFiltSpinValueChanged(int)), SLOT(tempoFilterSendCommand()),
     "camera.setLutTemporalFilter", "Set LUT TEMPORAL FILTER value OK", "Set LUT TEMPORAL FILTER value KO",
     "camera.setLutTemporalFilter(3)", "4", 7,
     [](int at) { return call("camera.setLutTemporalFilter(%1)", at); }},
    {"gskSlider", SLOT(GSKExpertSliderChanged(int)), 1, 0, "gskEdit",
     decimal, SLOT(GSKExpertValueChanged(double)), SLOT(gskSendCommand()),
     "camera.setGsk", "Set GSK value OK", "Set GSK value KO",
     "camera.setGsk(2)", "3", 3,
     [](int at) { return call("camera.setGsk(%1)", at); }},
    {"gfidSlider", SLOT(GFIDExpertSliderChanged(int)), 1, 0, "gfidEdit",
     decimal, SLOT(GFIDExpertValueChanged(double)), SLOT(gfiSendCommand()),
     "camera.setGfid", "Set GFID value OK", "Set GFID value KO",
     "camera.setGfid(300)", "301", 900,
     [](int at) { return call("camera.setGfid(%1)", at); }},
    {"gmsSlider", SLOT(GMSExpertSliderChanged(int)), 1, 0, "gmsEdit",
     decimal, SLOT(GMSExpertValueChanged(double)), SLOT(gmsSendCommand()),
     "camera.setGms", "Set GMS value OK", "Set GMS value KO",
     "camera.setGms(40)", "41", 10,
     [](int at) { return call("camera.setGms(%1)", at); }},
    {"tintSlider", SLOT(TINTExpertSliderChanged(int)), 1, 0, "tintEdit",
     decimal, SLOT(TINTExpertValueChanged(double)), SLOT(tintSendCommand()),
     "camera.setTint", "Set TINT value OK", "Set TINT value KO",
     "camera.setTint(5)", "6", 7,
     [](int at) { return call("camera.setTint(%1)", at); }},
};
// clang-format on

} // namespace pairrows
