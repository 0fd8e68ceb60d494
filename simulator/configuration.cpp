// SPDX-License-Identifier: MIT
#include "simulator/configuration.h"

#include "simulator/rows.h"

#include "simulator/simulator.h"

namespace simulator {
namespace {

using ombrix_sdk::ISdkConfiguration;
using S = Setting;
using K = Kind;

// clang-format off
constexpr std::array<SettingFacts, settingCount> settingRows = {{
    {S::BaudRate,             {"baudRate",                    K::Whole,  115200}},
    {S::ExpertMode,           {"expertMode",                  K::Switch, 1}},
    {S::Roi0IncX1,            {"defaultRoi0IncX1",            K::Real,   5}},
    {S::Roi0IncY1,            {"defaultRoi0IncY1",            K::Real,   5}},
    {S::Roi0IncX2,            {"defaultRoi0IncX2",            K::Real,   635}},
    {S::Roi0IncY2,            {"defaultRoi0IncY2",            K::Real,   475}},
    {S::ContrastType,         {"defaultContrastType",         K::Byte,   0}},
    {S::ColorLut,             {"defaultColorLut",             K::Byte,   0}},
    {S::Polarity,             {"defaultPolarity",             K::Byte,   0}},
    {S::ZoomFactor,           {"defaultZoomFactor",           K::Single, 1}},
    {S::ZoomMethod,           {"defaultZoomMethod",           K::Byte,   1}},
    {S::ZoomXCenter,          {"defaultZoomXCenter",          K::Whole,  320}},
    {S::ZoomYCenter,          {"defaultZoomYCenter",          K::Whole,  240}},
    {S::ZoomXResolution,      {"defaultZoomXResolution",      K::Whole,  720}},
    {S::ZoomYResolution,      {"defaultZoomYResolution",      K::Whole,  576}},
    {S::HorizontalFlip,       {"defaultHorizontalFlip",       K::Switch, 0}},
    {S::VerticalFlip,         {"defaultVerticalFlip",         K::Switch, 0}},
    {S::VignettingCorrection, {"defaultVignettingCorrection", K::Switch, 1}},
    {S::ColumnCorrection,     {"defaultColumnCorrection",     K::Switch, 1}},
    {S::FrameRate,            {"defaultFrameRate",            K::Byte,   60}},
    {S::EdgeCorrection,       {"defaultEdgeCorrection",       K::Byte,   1}},
    {S::SharpeningGain,       {"defaultSharpeningGain",       K::Word,   40}},
    {S::SharpeningThreshold,  {"defaultSharpeningThreshold",  K::Word,   15}},
    {S::VideoOutput,          {"defaultVideoOutput",          K::Byte,   8}},
    {S::Bt656SdiOutput,       {"defaultBt656SdiOutput",       K::Switch, 1}},
    {S::ParallelOutput,       {"defaultParallelOutput",       K::Switch, 0}},
    {S::MipiOutput,           {"defaultMipiOutput",           K::Switch, 0}},
    {S::TestPattern,          {"defaultTestPattern",          K::Switch, 0}},
    {S::Roi0ExcEnable,        {"defaultRoi0ExcEnable",        K::Switch, 0}},
    {S::Roi0ExcX1,            {"defaultRoi0ExcX1",            K::Real,   10}},
    {S::Roi0ExcY1,            {"defaultRoi0ExcY1",            K::Real,   10}},
    {S::Roi0ExcX2,            {"defaultRoi0ExcX2",            K::Real,   630}},
    {S::Roi0ExcY2,            {"defaultRoi0ExcY2",            K::Real,   60}},
    {S::Roi1IncEnable,        {"defaultRoi1IncEnable",        K::Switch, 0}},
    {S::Roi1IncX1,            {"defaultRoi1IncX1",            K::Real,   160}},
    {S::Roi1IncY1,            {"defaultRoi1IncY1",            K::Real,   120}},
    {S::Roi1IncX2,            {"defaultRoi1IncX2",            K::Real,   480}},
    {S::Roi1IncY2,            {"defaultRoi1IncY2",            K::Real,   360}},
    {S::Roi1ExcEnable,        {"defaultRoi1ExcEnable",        K::Switch, 0}},
    {S::Roi1ExcX1,            {"defaultRoi1ExcX1",            K::Real,   280}},
    {S::Roi1ExcY1,            {"defaultRoi1ExcY1",            K::Real,   200}},
    {S::Roi1ExcX2,            {"defaultRoi1ExcX2",            K::Real,   360}},
    {S::Roi1ExcY2,            {"defaultRoi1ExcY2",            K::Real,   280}},
    {S::TemporalFilter,       {"defaultTemporalFilter",       K::Byte,   4}},
    {S::AhcBlackGainLimit,    {"defaultAhcBlackGainLimit",    K::Byte,   20}},
    {S::AhcWhiteGainLimit,    {"defaultAhcWhiteGainLimit",    K::Byte,   80}},
}};

constexpr std::array<MemberFacts, memberCount> memberRows = {{
    {{"gskValue",  K::Whole, 6},    &ISdkConfiguration::gskValue,  true},
    {{"gmsValue",  K::Whole, 24},   &ISdkConfiguration::gmsValue,  true},
    {{"gfidValue", K::Whole, 320},  &ISdkConfiguration::gfidValue, true},
    {{"tintValue", K::Whole, 12},   &ISdkConfiguration::tintValue, true},
    {{"gskMin",    K::Whole, 0},    &ISdkConfiguration::gskMin,    false},
    {{"gskMax",    K::Whole, 20},   &ISdkConfiguration::gskMax,    false},
    {{"gfidMin",   K::Whole, 0},    &ISdkConfiguration::gfidMin,   false},
    {{"gfidMax",   K::Whole, 1000}, &ISdkConfiguration::gfidMax,   false},
    {{"tintMin",   K::Whole, 0},    &ISdkConfiguration::tintMin,   false},
    {{"tintMax",   K::Whole, 100},  &ISdkConfiguration::tintMax,   false},
    {{"gmsMin",    K::Whole, 0},    &ISdkConfiguration::gmsMin,    false},
    {{"gmsMax",    K::Whole, 50},   &ISdkConfiguration::gmsMax,    false},
}};
// clang-format on

static_assert(followTheEnumeration<&SettingFacts::setting>(settingRows));

} // namespace

const std::array<SettingFacts, settingCount>& settingTable()
{
    return settingRows;
}

const std::array<MemberFacts, memberCount>& memberTable()
{
    return memberRows;
}

ConfigurationValues::ConfigurationValues() : communicationType("UART")
{
    for (std::size_t row = 0; row < settingCount; ++row) {
        settings[row] = settingRows[row].field.initial;
    }
    for (std::size_t row = 0; row < memberCount; ++row) {
        members[row] = as<std::int32_t>(memberRows[row].field.initial);
    }
}

void Configuration::load(const ConfigurationValues& values)
{
    settings = values.settings;
    communicationType = values.communicationType;
    for (std::size_t row = 0; row < memberCount; ++row) {
        this->*memberRows[row].member = values.members[row];
    }
}

ConfigurationValues Configuration::values() const
{
    ConfigurationValues current;
    current.settings = settings;
    current.communicationType = communicationType;
    for (std::size_t row = 0; row < memberCount; ++row) {
        current.members[row] = this->*memberRows[row].member;
    }
    return current;
}

const char* Configuration::getCommunicationType()
{
    const Verdict verdict = Simulator::instance().judge(Operation::GetCommunicationType);
    answeredType = verdict.carryOut ? communicationType : verdict.word.toLocal8Bit();
    return answeredType.constData();
}

void Configuration::setBaudRate(std::int32_t baudRate)
{
    settings[static_cast<std::size_t>(S::BaudRate)] = baudRate;
    Simulator::instance().journal().write({.subject = QStringLiteral("configuration"),
                                           .operation = QStringLiteral("setBaudRate"),
                                           .arguments = {journalText(baudRate)}});
}

} // namespace simulator
