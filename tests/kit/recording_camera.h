// SPDX-License-Identifier: MIT
// The camera of the recording SDK: a value store that writes down each call.
#pragma once

#include "tests/kit/recording_library.h"

#include <algorithm>
#include <cstring>

namespace recording {

class Camera final : public ombrix_sdk::ICamera {
    using Flag = ombrix_sdk::Flag;

public:
    explicit Camera(int objectNumber) : number(objectNumber) {}
    const int number; ///< counted from 1 in the order of opening

    void getVersions(std::uint32_t* versions) override
    {
        enter("camera.getVersions");
        if (!library().outputWithheld("camera.getVersions")) {
            *versions = library().answerOr("camera.getVersions", state().versions);
        }
    }
    void refresh() override { enter("camera.refresh"); }
    std::uint32_t getRoiX1(std::uint32_t region) override
    {
        return readRegion("camera.getRoiX1", region, &Region::x1);
    }
    std::uint32_t getRoiX2(std::uint32_t region) override
    {
        return readRegion("camera.getRoiX2", region, &Region::x2);
    }
    std::uint32_t getRoiY1(std::uint32_t region) override
    {
        return readRegion("camera.getRoiY1", region, &Region::y1);
    }
    std::uint32_t getRoiY2(std::uint32_t region) override
    {
        return readRegion("camera.getRoiY2", region, &Region::y2);
    }
    std::uint32_t getSerialNumber() override
    {
        return read("camera.getSerialNumber", state().serialNumber);
    }
    std::uint32_t getSensorSerialNumber() override
    {
        return read("camera.getSensorSerialNumber", state().sensorSerialNumber);
    }
    Flag getTemperatures(ombrix_sdk::Temperatures* temperatures) override
    {
        return fill("camera.getTemperatures", temperatures, state().temperatures);
    }
    Flag getOperatingTime(ombrix_sdk::OperatingTime* time) override
    {
        return fill("camera.getOperatingTime", time, state().operatingTime);
    }

    std::uint32_t getGsk() override { return read("camera.getGsk", state().gsk); }
    Flag setGsk(std::uint32_t value) override { return set("camera.setGsk", state().gsk, value); }
    Flag setGfid(std::uint32_t value) override
    {
        return set("camera.setGfid", state().gfid, value);
    }
    Flag setGms(std::uint32_t value) override { return set("camera.setGms", state().gms, value); }
    std::uint32_t getGfid() override { return read("camera.getGfid", state().gfid); }
    std::uint32_t getGms() override { return read("camera.getGms", state().gms); }
    std::uint32_t getTint() override { return read("camera.getTint", state().tint); }
    Flag setTint(std::uint32_t value) override
    {
        return set("camera.setTint", state().tint, value);
    }

    Flag getBprCorrection() override
    {
        return read("camera.getBprCorrection", state().bprCorrection);
    }
    Flag setBprCorrection(bool enable) override
    {
        return set("camera.setBprCorrection", state().bprCorrection, enable);
    }
    Flag getOffsetCorrection() override
    {
        return read("camera.getOffsetCorrection", state().offsetCorrection);
    }
    Flag setOffsetCorrection(bool enable) override
    {
        return set("camera.setOffsetCorrection", state().offsetCorrection, enable);
    }
    Flag getGainCorrection() override
    {
        return read("camera.getGainCorrection", state().gainCorrection);
    }
    Flag setGainCorrection(bool enable) override
    {
        return set("camera.setGainCorrection", state().gainCorrection, enable);
    }
    Flag getHorizontalFlip() override
    {
        return read("camera.getHorizontalFlip", state().horizontalFlip);
    }
    Flag setHorizontalFlip(bool enable) override
    {
        return set("camera.setHorizontalFlip", state().horizontalFlip, enable);
    }
    Flag getVerticalFlip() override { return read("camera.getVerticalFlip", state().verticalFlip); }
    Flag setVerticalFlip(bool enable) override
    {
        return set("camera.setVerticalFlip", state().verticalFlip, enable);
    }
    Flag getVignettingCorrection() override
    {
        return read("camera.getVignettingCorrection", state().vignettingCorrection);
    }
    Flag setVignettingCorrection(bool enable) override
    {
        return set("camera.setVignettingCorrection", state().vignettingCorrection, enable);
    }
    Flag getColumnCorrection() override
    {
        return read("camera.getColumnCorrection", state().columnCorrection);
    }
    Flag setColumnCorrection(bool enable) override
    {
        return set("camera.setColumnCorrection", state().columnCorrection, enable);
    }
    Flag setTestPattern(bool enable) override
    {
        return set("camera.setTestPattern", state().testPattern, enable);
    }
    Flag getTestPattern() override { return read("camera.getTestPattern", state().testPattern); }
    Flag setBt656SdiOutput(bool enable) override
    {
        return set("camera.setBt656SdiOutput", state().bt656SdiOutput, enable);
    }
    Flag getBt656SdiOutput() override
    {
        return read("camera.getBt656SdiOutput", state().bt656SdiOutput);
    }
    Flag setParallelOutput(bool enable) override
    {
        return set("camera.setParallelOutput", state().parallelOutput, enable);
    }
    Flag getParallelOutput() override
    {
        return read("camera.getParallelOutput", state().parallelOutput);
    }
    Flag setMipiOutput(bool enable) override
    {
        return set("camera.setMipiOutput", state().mipiOutput, enable);
    }
    Flag getMipiOutput() override { return read("camera.getMipiOutput", state().mipiOutput); }
    Flag setFrameRate(std::uint8_t hertz) override
    {
        return set("camera.setFrameRate", state().frameRate, hertz);
    }
    std::uint8_t getFrameRate() override { return read("camera.getFrameRate", state().frameRate); }
    Flag setVideoOutput(std::uint8_t index) override
    {
        return set("camera.setVideoOutput", state().videoOutput, index);
    }
    std::uint8_t getVideoOutput() override
    {
        return read("camera.getVideoOutput", state().videoOutput);
    }
    Flag setBaudRate(std::uint32_t baudRate, bool permanent) override
    {
        enter("camera.setBaudRate", baudRate, permanent);
        return keep("camera.setBaudRate", [&] { state().baudRate = baudRate; });
    }
    Flag configureEdgeCorrection(std::uint8_t type, std::uint32_t gain,
                                 std::uint32_t threshold) override
    {
        enter("camera.configureEdgeCorrection", type, gain, threshold);
        return keep("camera.configureEdgeCorrection", [&] {
            state().edgeCorrection.type = type;
            state().edgeCorrection.gain = gain;
            state().edgeCorrection.firstThreshold = threshold;
        });
    }
    const ombrix_sdk::EdgeCorrection* getEdgeCorrection(ombrix_sdk::EdgeCorrection* area) override
    {
        enter("camera.getEdgeCorrection");
        if (library().answerOr("camera.getEdgeCorrection", 1) == 0) {
            return nullptr;
        }
        if (state().edgeCorrectionFromInside) {
            return &state().edgeCorrection;
        }
        if (!library().outputWithheld("camera.getEdgeCorrection")) {
            *area = state().edgeCorrection;
        }
        return area;
    }

    Flag configureZoom(const ombrix_sdk::Zoom* zoom) override
    {
        enter("camera.configureZoom", *zoom);
        return keep("camera.configureZoom", [&] { state().zoom = *zoom; });
    }
    Flag getZoom(ombrix_sdk::Zoom* zoom) override
    {
        return fill("camera.getZoom", zoom, state().zoom);
    }
    Flag getZoomResolution(ombrix_sdk::ZoomResolution* resolution) override
    {
        return fill("camera.getZoomResolution", resolution, state().zoomResolution);
    }
    Flag configureZoomResolution(std::uint32_t x, std::uint32_t y) override
    {
        enter("camera.configureZoomResolution", x, y);
        return keep("camera.configureZoomResolution", [&] { state().zoomResolution = {x, y}; });
    }
    std::uint8_t getContrastType() override
    {
        return read("camera.getContrastType", state().contrastType);
    }
    Flag configureContrastType(std::uint8_t index) override
    {
        return set("camera.configureContrastType", state().contrastType, index);
    }
    Flag setColorLut(std::uint8_t index) override
    {
        return set("camera.setColorLut", state().colorLut, index);
    }
    std::uint8_t getColorLut() override { return read("camera.getColorLut", state().colorLut); }
    Flag getAhcGainsLimitation(ombrix_sdk::AhcGainsLimitation* limits) override
    {
        return fill("camera.getAhcGainsLimitation", limits, state().ahcGains);
    }
    Flag setAhcGainsLimitation(std::uint8_t black, std::uint8_t white) override
    {
        enter("camera.setAhcGainsLimitation", black, white);
        return keep("camera.setAhcGainsLimitation", [&] { state().ahcGains = {black, white}; });
    }
    std::uint8_t getLutTemporalFilter() override
    {
        return read("camera.getLutTemporalFilter", state().lutTemporalFilter);
    }
    Flag setLutTemporalFilter(std::uint8_t value) override
    {
        return set("camera.setLutTemporalFilter", state().lutTemporalFilter, value);
    }

    std::uint8_t connect(void* context) override
    {
        enter("camera.connect", context == nullptr ? "null" : "context");
        return library().answerOr("camera.connect", std::uint8_t{1});
    }

    std::int32_t readTableData(std::uint32_t offset, std::uint32_t length, std::uint8_t tableId,
                               void* buffer) override
    {
        enter("camera.readTableData", offset, length, tableId);
        const auto status = library().answerOr("camera.readTableData", std::int32_t{0});
        if (status == 0 && !library().outputWithheld("camera.readTableData")) {
            std::memcpy(buffer, state().table.data(),
                        std::min<std::size_t>(length, state().table.size()));
        }
        return status;
    }
    Flag writeTableData(std::uint32_t offset, std::uint32_t length, std::uint8_t tableId,
                        void* buffer) override
    {
        enter("camera.writeTableData", offset, length, tableId);
        return keep("camera.writeTableData", [&] {
            const auto* const bytes = static_cast<const std::uint8_t*>(buffer);
            state().table.assign(bytes, bytes + length);
        });
    }

    void loadBadPixelList(const std::string& path, std::vector<ombrix_sdk::ReplacementEntry>& list,
                          int& height, int& width) override
    {
        enter("camera.loadBadPixelList", path, height, width);
        if (library().outputWithheld("camera.loadBadPixelList")) {
            return;
        }
        for (const std::uint64_t word : state().replacements) {
            list.push_back({word});
        }
        if (state().replacementTable) {
            std::ofstream file("replbp.bin", std::ios::binary);
            for (const std::uint8_t byte : *state().replacementTable) {
                file.put(static_cast<char>(byte));
            }
        }
    }
    Flag addBadPixels(const std::string& path, std::uint32_t x, std::uint32_t y) override
    {
        enter("camera.addBadPixels", path, x, y);
        return keep("camera.addBadPixels", [] {});
    }
    Flag removeBadPixels(const std::string& path, std::uint32_t x, std::uint32_t y) override
    {
        enter("camera.removeBadPixels", path, x, y);
        return keep("camera.removeBadPixels", [] {});
    }

    std::uint32_t getGamma() override { return read("camera.getGamma", state().gamma); }
    Flag setGamma(std::uint32_t gamma) override
    {
        return set("camera.setGamma", state().gamma, gamma);
    }
    std::uint32_t getClhe() override { return read("camera.getClhe", state().clhe); }
    Flag setClhe(std::uint32_t value) override
    {
        return set("camera.setClhe", state().clhe, value);
    }
    Flag getPolarity() override { return read("camera.getPolarity", state().polarity); }
    Flag setPolarity(bool inverted) override
    {
        return set("camera.setPolarity", state().polarity, inverted);
    }
    Flag setRoiX1(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                  bool roi0Exclusive, bool roi1Exclusive) override
    {
        enter("camera.setRoiX1", coordinate, region, roi1Inclusive, roi0Exclusive, roi1Exclusive);
        return writeRegion("camera.setRoiX1", region, &Region::x1, coordinate);
    }
    Flag setRoiX2(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                  bool roi0Exclusive, bool roi1Exclusive) override
    {
        enter("camera.setRoiX2", coordinate, region, roi1Inclusive, roi0Exclusive, roi1Exclusive);
        return writeRegion("camera.setRoiX2", region, &Region::x2, coordinate);
    }
    Flag setRoiY1(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                  bool roi0Exclusive, bool roi1Exclusive) override
    {
        enter("camera.setRoiY1", coordinate, region, roi1Inclusive, roi0Exclusive, roi1Exclusive);
        return writeRegion("camera.setRoiY1", region, &Region::y1, coordinate);
    }
    Flag setRoiY2(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                  bool roi0Exclusive, bool roi1Exclusive) override
    {
        enter("camera.setRoiY2", coordinate, region, roi1Inclusive, roi0Exclusive, roi1Exclusive);
        return writeRegion("camera.setRoiY2", region, &Region::y2, coordinate);
    }

    Flag requestNuc(std::uint8_t automatic) override
    {
        enter("camera.requestNuc", automatic);
        return keep("camera.requestNuc", [&] { state().nucControl = 1; });
    }
    Flag setNucControl(std::uint8_t control) override
    {
        return set("camera.setNucControl", state().nucControl, control);
    }
    Flag getNucControl() override { return read("camera.getNucControl", state().nucControl); }
    Flag setShutterPosition(bool closed) override
    {
        return set("camera.setShutterPosition", state().shutterClosed, closed);
    }
    Flag getShutterPosition(std::uint8_t* closed) override
    {
        return fill("camera.getShutterPosition", closed, state().shutterClosed);
    }

private:
    static Library& library() { return Library::instance(); }
    static CameraState& state() { return library().door.camera; }

    template<typename... Arguments>
    void enter(std::string_view operation, const Arguments&... arguments) const
    {
        library().enter(operation, number, arguments...);
    }

    template<typename Value> Value read(std::string_view operation, const Value& stored) const
    {
        enter(operation);
        return library().answerOr(operation, stored);
    }

    /// Answers a command; keeps what it carried when the answer is nonzero.
    template<typename Keep> static Flag keep(std::string_view operation, const Keep& store)
    {
        const auto result = library().answerOr(operation, Flag{1});
        if (result != 0) {
            store();
        }
        return result;
    }

    template<typename Stored, typename Value>
    Flag set(std::string_view operation, Stored& stored, Value value) const
    {
        enter(operation, value);
        return keep(operation, [&] { stored = static_cast<Stored>(value); });
    }

    template<typename Record>
    Flag fill(std::string_view operation, Record* record, const Record& stored) const
    {
        enter(operation);
        const auto result = library().answerOr(operation, Flag{1});
        if (result != 0 && !library().outputWithheld(operation)) {
            *record = stored;
        }
        return result;
    }

    std::uint32_t readRegion(std::string_view operation, std::uint32_t region,
                             std::uint32_t Region::*coordinate) const
    {
        enter(operation, region);
        const bool known = region < state().regions.size();
        return library().answerOr(operation, known ? state().regions[region].*coordinate : 0U);
    }

    static Flag writeRegion(std::string_view operation, std::uint32_t region,
                            std::uint32_t Region::*coordinate, std::uint32_t value)
    {
        return keep(operation, [&] {
            if (region < state().regions.size()) {
                state().regions[region].*coordinate = value;
            }
        });
    }
};

} // namespace recording
