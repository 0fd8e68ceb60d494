// SPDX-License-Identifier: MIT
// The configuration object of the simulated SDK.
#pragma once

#include "sdk/ombrix_sdk.h"
#include "simulator/fields.h"

#include <QtCore/QByteArray>

#include <array>
#include <cstddef>

namespace simulator {

using ombrix_sdk::Flag;

/// What the configuration's getters answer.
enum class Setting : std::size_t {
    BaudRate,
    ExpertMode,
    Roi0IncX1,
    Roi0IncY1,
    Roi0IncX2,
    Roi0IncY2,
    ContrastType,
    ColorLut,
    Polarity,
    ZoomFactor,
    ZoomMethod,
    ZoomXCenter,
    ZoomYCenter,
    ZoomXResolution,
    ZoomYResolution,
    HorizontalFlip,
    VerticalFlip,
    VignettingCorrection,
    ColumnCorrection,
    FrameRate,
    EdgeCorrection,
    SharpeningGain,
    SharpeningThreshold,
    VideoOutput,
    Bt656SdiOutput,
    ParallelOutput,
    MipiOutput,
    TestPattern,
    Roi0ExcEnable,
    Roi0ExcX1,
    Roi0ExcY1,
    Roi0ExcX2,
    Roi0ExcY2,
    Roi1IncEnable,
    Roi1IncX1,
    Roi1IncY1,
    Roi1IncX2,
    Roi1IncY2,
    Roi1ExcEnable,
    Roi1ExcX1,
    Roi1ExcY1,
    Roi1ExcX2,
    Roi1ExcY2,
    TemporalFilter,
    AhcBlackGainLimit,
    AhcWhiteGainLimit,
    Count
};

constexpr std::size_t settingCount = static_cast<std::size_t>(Setting::Count);

struct SettingFacts {
    Setting setting;
    Field field;
};

/// A data member that program and SDK share.
struct MemberFacts {
    Field field;
    std::int32_t ombrix_sdk::ISdkConfiguration::*member;
    bool saved; ///< kept by saveConfiguration
};

constexpr std::size_t memberCount = 12;

const std::array<SettingFacts, settingCount>& settingTable();
const std::array<MemberFacts, memberCount>& memberTable();

/// Every value of the configuration as the settings file gives it.
struct ConfigurationValues {
    ConfigurationValues(); ///< the built-in values

    std::array<double, settingCount> settings{};
    std::array<std::int32_t, memberCount> members{};
    QByteArray communicationType;
    QByteArray answeredType; ///< keeps the answer alive for the caller
};

class Configuration final : public ombrix_sdk::ISdkConfiguration {
public:
    void load(const ConfigurationValues& values);
    [[nodiscard]] ConfigurationValues values() const;
    [[nodiscard]] std::uint32_t linkBaudRate() const
    {
        return static_cast<std::uint32_t>(get<std::int32_t>(Setting::BaudRate));
    }

    std::int32_t getDefaultBaudRate() override { return get<std::int32_t>(Setting::BaudRate); }
    const char* getCommunicationType() override;
    double getDefaultRoi0IncX1() override { return get<double>(Setting::Roi0IncX1); }
    double getDefaultRoi0IncY1() override { return get<double>(Setting::Roi0IncY1); }
    double getDefaultRoi0IncX2() override { return get<double>(Setting::Roi0IncX2); }
    double getDefaultRoi0IncY2() override { return get<double>(Setting::Roi0IncY2); }
    std::uint8_t getDefaultContrastType() override
    {
        return get<std::uint8_t>(Setting::ContrastType);
    }
    std::uint8_t getDefaultColorLut() override { return get<std::uint8_t>(Setting::ColorLut); }
    std::uint8_t getDefaultPolarity() override { return get<std::uint8_t>(Setting::Polarity); }
    float getDefaultZoomFactor() override { return get<float>(Setting::ZoomFactor); }
    std::uint8_t getDefaultZoomMethod() override { return get<std::uint8_t>(Setting::ZoomMethod); }
    std::int32_t getDefaultZoomXCenter() override
    {
        return get<std::int32_t>(Setting::ZoomXCenter);
    }
    std::int32_t getDefaultZoomYCenter() override
    {
        return get<std::int32_t>(Setting::ZoomYCenter);
    }
    std::int32_t getDefaultZoomXResolution() override
    {
        return get<std::int32_t>(Setting::ZoomXResolution);
    }
    std::int32_t getDefaultZoomYResolution() override
    {
        return get<std::int32_t>(Setting::ZoomYResolution);
    }
    Flag getDefaultHorizontalFlip() override { return get<Flag>(Setting::HorizontalFlip); }
    Flag getDefaultVerticalFlip() override { return get<Flag>(Setting::VerticalFlip); }
    Flag getDefaultVignettingCorrection() override
    {
        return get<Flag>(Setting::VignettingCorrection);
    }
    Flag getDefaultColumnCorrection() override { return get<Flag>(Setting::ColumnCorrection); }
    std::uint8_t getDefaultFrameRate() override { return get<std::uint8_t>(Setting::FrameRate); }
    std::uint8_t getDefaultEdgeCorrection() override
    {
        return get<std::uint8_t>(Setting::EdgeCorrection);
    }
    std::uint32_t getDefaultSharpeningGain() override
    {
        return get<std::uint32_t>(Setting::SharpeningGain);
    }
    std::uint32_t getDefaultSharpeningThreshold() override
    {
        return get<std::uint32_t>(Setting::SharpeningThreshold);
    }
    std::uint8_t getDefaultVideoOutput() override
    {
        return get<std::uint8_t>(Setting::VideoOutput);
    }
    Flag getDefaultBt656SdiOutput() override { return get<Flag>(Setting::Bt656SdiOutput); }
    Flag getDefaultParallelOutput() override { return get<Flag>(Setting::ParallelOutput); }
    Flag getDefaultMipiOutput() override { return get<Flag>(Setting::MipiOutput); }
    Flag getDefaultTestPattern() override { return get<Flag>(Setting::TestPattern); }
    Flag getDefaultRoi0ExcEnable() override { return get<Flag>(Setting::Roi0ExcEnable); }
    double getDefaultRoi0ExcX1() override { return get<double>(Setting::Roi0ExcX1); }
    double getDefaultRoi0ExcY1() override { return get<double>(Setting::Roi0ExcY1); }
    double getDefaultRoi0ExcX2() override { return get<double>(Setting::Roi0ExcX2); }
    double getDefaultRoi0ExcY2() override { return get<double>(Setting::Roi0ExcY2); }
    Flag getDefaultRoi1IncEnable() override { return get<Flag>(Setting::Roi1IncEnable); }
    double getDefaultRoi1IncX1() override { return get<double>(Setting::Roi1IncX1); }
    double getDefaultRoi1IncY1() override { return get<double>(Setting::Roi1IncY1); }
    double getDefaultRoi1IncX2() override { return get<double>(Setting::Roi1IncX2); }
    double getDefaultRoi1IncY2() override { return get<double>(Setting::Roi1IncY2); }
    Flag getDefaultRoi1ExcEnable() override { return get<Flag>(Setting::Roi1ExcEnable); }
    double getDefaultRoi1ExcX1() override { return get<double>(Setting::Roi1ExcX1); }
    double getDefaultRoi1ExcY1() override { return get<double>(Setting::Roi1ExcY1); }
    double getDefaultRoi1ExcX2() override { return get<double>(Setting::Roi1ExcX2); }
    double getDefaultRoi1ExcY2() override { return get<double>(Setting::Roi1ExcY2); }
    std::uint8_t getDefaultTemporalFilter() override
    {
        return get<std::uint8_t>(Setting::TemporalFilter);
    }
    std::uint8_t getDefaultAhcBlackGainLimit() override
    {
        return get<std::uint8_t>(Setting::AhcBlackGainLimit);
    }
    std::uint8_t getDefaultAhcWhiteGainLimit() override
    {
        return get<std::uint8_t>(Setting::AhcWhiteGainLimit);
    }
    Flag isExpertModeEnabled() override { return get<Flag>(Setting::ExpertMode); }
    void setBaudRate(std::int32_t baudRate) override;

private:
    [[nodiscard]] double at(Setting setting) const
    {
        return settings[static_cast<std::size_t>(setting)];
    }
    template<typename Type> [[nodiscard]] Type get(Setting setting) const
    {
        return as<Type>(at(setting));
    }

    std::array<double, settingCount> settings{};
    QByteArray communicationType;
    QByteArray answeredType; ///< keeps the answer alive for the caller
};

} // namespace simulator
