// SPDX-License-Identifier: MIT
// The camera of the hostile SDK.
#pragma once

#include "sdk/ombrix_sdk.h"
#include "tests/monkey/hostile_answers.h"

#include <span>

namespace hostile {

class Camera final : public ombrix_sdk::ICamera {
public:
    void getVersions(std::uint32_t* versions) override { fill(versions, word()); }
    void refresh() override {}
    std::uint32_t getRoiX1(std::uint32_t) override { return word(); }
    std::uint32_t getRoiX2(std::uint32_t) override { return word(); }
    std::uint32_t getRoiY1(std::uint32_t) override { return word(); }
    std::uint32_t getRoiY2(std::uint32_t) override { return word(); }
    /// From a handful, because the tool keeps map files for each camera that it has met.
    std::uint32_t getSerialNumber() override
    {
        static constexpr std::array<std::uint32_t, 5> serials = {0, 1, 4711, 0x80000000,
                                                                 0xFFFFFFFF};
        return draw().oneOf(serials);
    }
    std::uint32_t getSensorSerialNumber() override { return word(); }
    ombrix_sdk::Flag getTemperatures(ombrix_sdk::Temperatures* temperatures) override
    {
        fill(temperatures, {shortReal(), shortReal()});
        return flag();
    }
    ombrix_sdk::Flag getOperatingTime(ombrix_sdk::OperatingTime* time) override
    {
        fill(time, {word(), word()});
        return flag();
    }
    std::uint32_t getGsk() override { return word(); }
    ombrix_sdk::Flag setGsk(std::uint32_t) override { return flag(); }
    ombrix_sdk::Flag setGfid(std::uint32_t) override { return flag(); }
    ombrix_sdk::Flag setGms(std::uint32_t) override { return flag(); }
    std::uint32_t getGfid() override { return word(); }
    std::uint32_t getGms() override { return word(); }
    std::uint32_t getTint() override { return word(); }
    ombrix_sdk::Flag setTint(std::uint32_t) override { return flag(); }
    ombrix_sdk::Flag getBprCorrection() override { return flag(); }
    ombrix_sdk::Flag setBprCorrection(bool) override { return flag(); }
    ombrix_sdk::Flag getOffsetCorrection() override { return flag(); }
    ombrix_sdk::Flag setOffsetCorrection(bool) override { return flag(); }
    ombrix_sdk::Flag getGainCorrection() override { return flag(); }
    ombrix_sdk::Flag setGainCorrection(bool) override { return flag(); }
    ombrix_sdk::Flag getHorizontalFlip() override { return flag(); }
    ombrix_sdk::Flag setHorizontalFlip(bool) override { return flag(); }
    ombrix_sdk::Flag getVerticalFlip() override { return flag(); }
    ombrix_sdk::Flag setVerticalFlip(bool) override { return flag(); }
    ombrix_sdk::Flag getVignettingCorrection() override { return flag(); }
    ombrix_sdk::Flag setVignettingCorrection(bool) override { return flag(); }
    ombrix_sdk::Flag getColumnCorrection() override { return flag(); }
    ombrix_sdk::Flag setColumnCorrection(bool) override { return flag(); }
    ombrix_sdk::Flag setTestPattern(bool) override { return flag(); }
    ombrix_sdk::Flag getTestPattern() override { return flag(); }
    ombrix_sdk::Flag setBt656SdiOutput(bool) override { return flag(); }
    ombrix_sdk::Flag getBt656SdiOutput() override { return flag(); }
    ombrix_sdk::Flag setParallelOutput(bool) override { return flag(); }
    ombrix_sdk::Flag getParallelOutput() override { return flag(); }
    ombrix_sdk::Flag setMipiOutput(bool) override { return flag(); }
    ombrix_sdk::Flag getMipiOutput() override { return flag(); }
    ombrix_sdk::Flag setFrameRate(std::uint8_t) override { return flag(); }
    std::uint8_t getFrameRate() override { return byte(); }
    ombrix_sdk::Flag setVideoOutput(std::uint8_t) override { return flag(); }
    std::uint8_t getVideoOutput() override { return byte(); }
    ombrix_sdk::Flag setBaudRate(std::uint32_t, bool) override { return flag(); }
    /// Changes the record that getEdgeCorrection may have handed out.
    ombrix_sdk::Flag configureEdgeCorrection(std::uint8_t, std::uint32_t, std::uint32_t) override
    {
        own = {byte(), word(), word(), word()};
        return flag();
    }
    /// The area that was given, a record of the SDK's own, or nothing at all.
    const ombrix_sdk::EdgeCorrection* getEdgeCorrection(ombrix_sdk::EdgeCorrection* area) override
    {
        const ombrix_sdk::EdgeCorrection record = {byte(), word(), word(), word()};
        fill(area, record);
        own = record;
        const std::array<const ombrix_sdk::EdgeCorrection*, 3> places = {area, &own, nullptr};
        return draw().oneOf(places);
    }
    ombrix_sdk::Flag configureZoom(const ombrix_sdk::Zoom*) override { return flag(); }
    ombrix_sdk::Flag getZoom(ombrix_sdk::Zoom* zoom) override
    {
        fill(zoom, {shortReal(), number(), number(), byte()});
        return flag();
    }
    ombrix_sdk::Flag getZoomResolution(ombrix_sdk::ZoomResolution* resolution) override
    {
        fill(resolution, {word(), word()});
        return flag();
    }
    ombrix_sdk::Flag configureZoomResolution(std::uint32_t, std::uint32_t) override
    {
        return flag();
    }
    std::uint8_t getContrastType() override { return byte(); }
    ombrix_sdk::Flag configureContrastType(std::uint8_t) override { return flag(); }
    ombrix_sdk::Flag setColorLut(std::uint8_t) override { return flag(); }
    std::uint8_t getColorLut() override { return byte(); }
    ombrix_sdk::Flag getAhcGainsLimitation(ombrix_sdk::AhcGainsLimitation* limits) override
    {
        fill(limits, {byte(), byte()});
        return flag();
    }
    ombrix_sdk::Flag setAhcGainsLimitation(std::uint8_t, std::uint8_t) override { return flag(); }
    std::uint8_t getLutTemporalFilter() override { return byte(); }
    ombrix_sdk::Flag setLutTemporalFilter(std::uint8_t) override { return flag(); }
    std::uint8_t connect(void*) override { return draw().oneIn(6) ? byte() : std::uint8_t{1}; }
    std::int32_t readTableData(std::uint32_t, std::uint32_t length, std::uint8_t,
                               void* buffer) override
    {
        fillTable({static_cast<std::uint8_t*>(buffer), length});
        return draw().oneIn(4) ? number() : 0;
    }
    ombrix_sdk::Flag writeTableData(std::uint32_t, std::uint32_t length, std::uint8_t,
                                    void* buffer) override
    {
        // A library may well change what it was given; it certainly reads all of it.
        for (std::uint8_t& content : std::span{static_cast<std::uint8_t*>(buffer), length}) {
            content = static_cast<std::uint8_t>(content + 1);
        }
        return flag();
    }
    void loadBadPixelList(const std::string&, std::vector<ombrix_sdk::ReplacementEntry>& list,
                          int& height, int& width) override
    {
        static constexpr std::array<std::size_t, 6> sizes = {0, 1, 1023, 1024, 1025, 300000};
        list.assign(draw().oneIn(2) ? draw().oneOf(sizes) : draw().below(3000), {draw().bits()});
        height = number();
        width = number();
        leaveReplacementFile();
    }
    ombrix_sdk::Flag addBadPixels(const std::string& path, std::uint32_t, std::uint32_t) override
    {
        return editMap(path);
    }
    ombrix_sdk::Flag removeBadPixels(const std::string& path, std::uint32_t, std::uint32_t) override
    {
        return editMap(path);
    }
    std::uint32_t getGamma() override { return word(); }
    ombrix_sdk::Flag setGamma(std::uint32_t) override { return flag(); }
    std::uint32_t getClhe() override { return word(); }
    ombrix_sdk::Flag setClhe(std::uint32_t) override { return flag(); }
    ombrix_sdk::Flag getPolarity() override { return flag(); }
    ombrix_sdk::Flag setPolarity(bool) override { return flag(); }
    ombrix_sdk::Flag setRoiX1(std::uint32_t, std::uint32_t, bool, bool, bool) override
    {
        return flag();
    }
    ombrix_sdk::Flag setRoiX2(std::uint32_t, std::uint32_t, bool, bool, bool) override
    {
        return flag();
    }
    ombrix_sdk::Flag setRoiY1(std::uint32_t, std::uint32_t, bool, bool, bool) override
    {
        return flag();
    }
    ombrix_sdk::Flag setRoiY2(std::uint32_t, std::uint32_t, bool, bool, bool) override
    {
        return flag();
    }
    ombrix_sdk::Flag requestNuc(std::uint8_t) override { return flag(); }
    ombrix_sdk::Flag setNucControl(std::uint8_t) override { return flag(); }
    ombrix_sdk::Flag getNucControl() override { return flag(); }
    ombrix_sdk::Flag setShutterPosition(bool) override { return flag(); }
    ombrix_sdk::Flag getShutterPosition(std::uint8_t* closed) override
    {
        fill(closed, byte());
        return flag();
    }

private:
    /// Any table but one that ends at record 1.
    static void fillTable(std::span<std::uint8_t> region);
    /// Any "replbp.bin", or none.
    static void leaveReplacementFile();
    static ombrix_sdk::Flag editMap(const std::string& path);

    ombrix_sdk::EdgeCorrection own{};
};

} // namespace hostile
