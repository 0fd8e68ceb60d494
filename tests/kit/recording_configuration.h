// SPDX-License-Identifier: MIT
// The configuration of the recording SDK.
#pragma once

#include "tests/kit/recording_library.h"

namespace recording {

class Configuration final : public ombrix_sdk::ISdkConfiguration {
    using Flag = ombrix_sdk::Flag;

public:
    Configuration()
    {
        gskValue = 2;
        gskMin = 1;
        gskMax = 3;
        gfidValue = 300;
        gfidMin = 0;
        gfidMax = 1000;
        gmsValue = 40;
        gmsMin = 0;
        gmsMax = 50;
        tintValue = 5;
        tintMin = 0;
        tintMax = 20;
    }

    std::int32_t getDefaultBaudRate() override
    {
        return read("config.getDefaultBaudRate", state().baudRate);
    }
    const char* getCommunicationType() override
    {
        library().enter("config.getCommunicationType", 0);
        return state().communicationType.c_str();
    }
    double getDefaultRoi0IncX1() override
    {
        return read("config.getDefaultRoi0IncX1", state().roi0IncX1);
    }
    double getDefaultRoi0IncY1() override
    {
        return read("config.getDefaultRoi0IncY1", state().roi0IncY1);
    }
    double getDefaultRoi0IncX2() override
    {
        return read("config.getDefaultRoi0IncX2", state().roi0IncX2);
    }
    double getDefaultRoi0IncY2() override
    {
        return read("config.getDefaultRoi0IncY2", state().roi0IncY2);
    }
    std::uint8_t getDefaultContrastType() override
    {
        return read("config.getDefaultContrastType", state().contrastType);
    }
    std::uint8_t getDefaultColorLut() override
    {
        return read("config.getDefaultColorLut", state().colorLut);
    }
    std::uint8_t getDefaultPolarity() override
    {
        return read("config.getDefaultPolarity", state().polarity);
    }
    float getDefaultZoomFactor() override
    {
        return read("config.getDefaultZoomFactor", state().zoomFactor);
    }
    std::uint8_t getDefaultZoomMethod() override
    {
        return read("config.getDefaultZoomMethod", state().zoomMethod);
    }
    std::int32_t getDefaultZoomXCenter() override
    {
        return read("config.getDefaultZoomXCenter", state().zoomXCenter);
    }
    std::int32_t getDefaultZoomYCenter() override
    {
        return read("config.getDefaultZoomYCenter", state().zoomYCenter);
    }
    std::int32_t getDefaultZoomXResolution() override
    {
        return read("config.getDefaultZoomXResolution", state().zoomXResolution);
    }
    std::int32_t getDefaultZoomYResolution() override
    {
        return read("config.getDefaultZoomYResolution", state().zoomYResolution);
    }
    Flag getDefaultHorizontalFlip() override
    {
        return read("config.getDefaultHorizontalFlip", state().horizontalFlip);
    }
    Flag getDefaultVerticalFlip() override
    {
        return read("config.getDefaultVerticalFlip", state().verticalFlip);
    }
    Flag getDefaultVignettingCorrection() override
    {
        return read("config.getDefaultVignettingCorrection", state().vignettingCorrection);
    }
    Flag getDefaultColumnCorrection() override
    {
        return read("config.getDefaultColumnCorrection", state().columnCorrection);
    }
    std::uint8_t getDefaultFrameRate() override
    {
        return read("config.getDefaultFrameRate", state().frameRate);
    }
    std::uint8_t getDefaultEdgeCorrection() override
    {
        return read("config.getDefaultEdgeCorrection", state().edgeCorrection);
    }
    std::uint32_t getDefaultSharpeningGain() override
    {
        return read("config.getDefaultSharpeningGain", state().sharpeningGain);
    }
    std::uint32_t getDefaultSharpeningThreshold() override
    {
        return read("config.getDefaultSharpeningThreshold", state().sharpeningThreshold);
    }
    std::uint8_t getDefaultVideoOutput() override
    {
        return read("config.getDefaultVideoOutput", state().videoOutput);
    }
    Flag getDefaultBt656SdiOutput() override
    {
        return read("config.getDefaultBt656SdiOutput", state().bt656SdiOutput);
    }
    Flag getDefaultParallelOutput() override
    {
        return read("config.getDefaultParallelOutput", state().parallelOutput);
    }
    Flag getDefaultMipiOutput() override
    {
        return read("config.getDefaultMipiOutput", state().mipiOutput);
    }
    Flag getDefaultTestPattern() override
    {
        return read("config.getDefaultTestPattern", state().testPattern);
    }
    Flag getDefaultRoi0ExcEnable() override
    {
        return read("config.getDefaultRoi0ExcEnable", state().roi0ExcEnable);
    }
    double getDefaultRoi0ExcX1() override
    {
        return read("config.getDefaultRoi0ExcX1", state().roi0ExcX1);
    }
    double getDefaultRoi0ExcY1() override
    {
        return read("config.getDefaultRoi0ExcY1", state().roi0ExcY1);
    }
    double getDefaultRoi0ExcX2() override
    {
        return read("config.getDefaultRoi0ExcX2", state().roi0ExcX2);
    }
    double getDefaultRoi0ExcY2() override
    {
        return read("config.getDefaultRoi0ExcY2", state().roi0ExcY2);
    }
    Flag getDefaultRoi1IncEnable() override
    {
        return read("config.getDefaultRoi1IncEnable", state().roi1IncEnable);
    }
    double getDefaultRoi1IncX1() override
    {
        return read("config.getDefaultRoi1IncX1", state().roi1IncX1);
    }
    double getDefaultRoi1IncY1() override
    {
        return read("config.getDefaultRoi1IncY1", state().roi1IncY1);
    }
    double getDefaultRoi1IncX2() override
    {
        return read("config.getDefaultRoi1IncX2", state().roi1IncX2);
    }
    double getDefaultRoi1IncY2() override
    {
        return read("config.getDefaultRoi1IncY2", state().roi1IncY2);
    }
    Flag getDefaultRoi1ExcEnable() override
    {
        return read("config.getDefaultRoi1ExcEnable", state().roi1ExcEnable);
    }
    double getDefaultRoi1ExcX1() override
    {
        return read("config.getDefaultRoi1ExcX1", state().roi1ExcX1);
    }
    double getDefaultRoi1ExcY1() override
    {
        return read("config.getDefaultRoi1ExcY1", state().roi1ExcY1);
    }
    double getDefaultRoi1ExcX2() override
    {
        return read("config.getDefaultRoi1ExcX2", state().roi1ExcX2);
    }
    double getDefaultRoi1ExcY2() override
    {
        return read("config.getDefaultRoi1ExcY2", state().roi1ExcY2);
    }
    std::uint8_t getDefaultTemporalFilter() override
    {
        return read("config.getDefaultTemporalFilter", state().temporalFilter);
    }
    std::uint8_t getDefaultAhcBlackGainLimit() override
    {
        return read("config.getDefaultAhcBlackGainLimit", state().ahcBlackGainLimit);
    }
    std::uint8_t getDefaultAhcWhiteGainLimit() override
    {
        return read("config.getDefaultAhcWhiteGainLimit", state().ahcWhiteGainLimit);
    }
    Flag isExpertModeEnabled() override
    {
        return read("config.isExpertModeEnabled", state().expertMode);
    }
    void setBaudRate(std::int32_t baudRate) override
    {
        library().enter("config.setBaudRate", 0, baudRate);
        state().baudRate = baudRate;
    }

private:
    static Library& library() { return Library::instance(); }
    static ConfigurationState& state() { return library().door.configuration; }

    template<typename Value> static Value read(std::string_view operation, const Value& stored)
    {
        library().enter(operation, 0);
        return library().answerOr(operation, stored);
    }
};

} // namespace recording
