// SPDX-License-Identifier: MIT
// The configuration of the hostile SDK.
#pragma once

#include "sdk/ombrix_sdk.h"
#include "tests/monkey/hostile_answers.h"

namespace hostile {

class Configuration final : public ombrix_sdk::ISdkConfiguration {
public:
    /// New values and limits, in any order: a minimum may lie above its maximum.
    void redraw()
    {
        for (std::int32_t ombrix_sdk::ISdkConfiguration::*const member :
             {&Configuration::gskValue, &Configuration::gmsValue, &Configuration::gfidValue,
              &Configuration::tintValue, &Configuration::gskMin, &Configuration::gskMax,
              &Configuration::gfidMin, &Configuration::gfidMax, &Configuration::tintMin,
              &Configuration::tintMax, &Configuration::gmsMin, &Configuration::gmsMax}) {
            this->*member = number();
        }
    }

    std::int32_t getDefaultBaudRate() override { return number(); }
    const char* getCommunicationType() override
    {
        static constexpr std::array<const char*, 6> others = {nullptr, "",     "U",
                                                              "UARTS", "uart", "\xFF\xFE"};
        return draw().oneIn(8) ? draw().oneOf(others) : "UART";
    }
    double getDefaultRoi0IncX1() override { return longReal(); }
    double getDefaultRoi0IncY1() override { return longReal(); }
    double getDefaultRoi0IncX2() override { return longReal(); }
    double getDefaultRoi0IncY2() override { return longReal(); }
    std::uint8_t getDefaultContrastType() override { return byte(); }
    std::uint8_t getDefaultColorLut() override { return byte(); }
    std::uint8_t getDefaultPolarity() override { return byte(); }
    float getDefaultZoomFactor() override { return shortReal(); }
    std::uint8_t getDefaultZoomMethod() override { return byte(); }
    std::int32_t getDefaultZoomXCenter() override { return number(); }
    std::int32_t getDefaultZoomYCenter() override { return number(); }
    std::int32_t getDefaultZoomXResolution() override { return number(); }
    std::int32_t getDefaultZoomYResolution() override { return number(); }
    ombrix_sdk::Flag getDefaultHorizontalFlip() override { return flag(); }
    ombrix_sdk::Flag getDefaultVerticalFlip() override { return flag(); }
    ombrix_sdk::Flag getDefaultVignettingCorrection() override { return flag(); }
    ombrix_sdk::Flag getDefaultColumnCorrection() override { return flag(); }
    std::uint8_t getDefaultFrameRate() override { return byte(); }
    std::uint8_t getDefaultEdgeCorrection() override { return byte(); }
    std::uint32_t getDefaultSharpeningGain() override { return word(); }
    std::uint32_t getDefaultSharpeningThreshold() override { return word(); }
    std::uint8_t getDefaultVideoOutput() override { return byte(); }
    ombrix_sdk::Flag getDefaultBt656SdiOutput() override { return flag(); }
    ombrix_sdk::Flag getDefaultParallelOutput() override { return flag(); }
    ombrix_sdk::Flag getDefaultMipiOutput() override { return flag(); }
    ombrix_sdk::Flag getDefaultTestPattern() override { return flag(); }
    ombrix_sdk::Flag getDefaultRoi0ExcEnable() override { return flag(); }
    double getDefaultRoi0ExcX1() override { return longReal(); }
    double getDefaultRoi0ExcY1() override { return longReal(); }
    double getDefaultRoi0ExcX2() override { return longReal(); }
    double getDefaultRoi0ExcY2() override { return longReal(); }
    ombrix_sdk::Flag getDefaultRoi1IncEnable() override { return flag(); }
    double getDefaultRoi1IncX1() override { return longReal(); }
    double getDefaultRoi1IncY1() override { return longReal(); }
    double getDefaultRoi1IncX2() override { return longReal(); }
    double getDefaultRoi1IncY2() override { return longReal(); }
    ombrix_sdk::Flag getDefaultRoi1ExcEnable() override { return flag(); }
    double getDefaultRoi1ExcX1() override { return longReal(); }
    double getDefaultRoi1ExcY1() override { return longReal(); }
    double getDefaultRoi1ExcX2() override { return longReal(); }
    double getDefaultRoi1ExcY2() override { return longReal(); }
    std::uint8_t getDefaultTemporalFilter() override { return byte(); }
    std::uint8_t getDefaultAhcBlackGainLimit() override { return byte(); }
    std::uint8_t getDefaultAhcWhiteGainLimit() override { return byte(); }
    ombrix_sdk::Flag isExpertModeEnabled() override { return flag(); }
    void setBaudRate(std::int32_t) override {}
};

} // namespace hostile
