// SPDX-License-Identifier: MIT
// The operations of the recording camera that are of no common kind.
#include "tests/kit/recording_camera.h"

#include <algorithm>
#include <cstring>
#include <fstream>

namespace recording {

void Camera::getVersions(std::uint32_t* versions)
{
    enter("camera.getVersions");
    if (!library().outputWithheld("camera.getVersions")) {
        *versions = library().answerOr("camera.getVersions", state().versions);
    }
}

void Camera::refresh()
{
    enter("camera.refresh");
}

Flag Camera::setBaudRate(std::uint32_t baudRate, bool permanent)
{
    enter("camera.setBaudRate", baudRate, permanent);
    return keep("camera.setBaudRate", [&] { state().baudRate = baudRate; });
}

Flag Camera::configureEdgeCorrection(std::uint8_t type, std::uint32_t gain, std::uint32_t threshold)
{
    enter("camera.configureEdgeCorrection", type, gain, threshold);
    return keep("camera.configureEdgeCorrection", [&] {
        state().edgeCorrection.type = type;
        state().edgeCorrection.gain = gain;
        state().edgeCorrection.firstThreshold = threshold;
    });
}

const EdgeCorrection* Camera::getEdgeCorrection(EdgeCorrection* area)
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

Flag Camera::configureZoom(const Zoom* zoom)
{
    enter("camera.configureZoom", *zoom);
    return keep("camera.configureZoom", [&] { state().zoom = *zoom; });
}

Flag Camera::configureZoomResolution(std::uint32_t x, std::uint32_t y)
{
    enter("camera.configureZoomResolution", x, y);
    return keep("camera.configureZoomResolution", [&] { state().zoomResolution = {x, y}; });
}

Flag Camera::setAhcGainsLimitation(std::uint8_t black, std::uint8_t white)
{
    enter("camera.setAhcGainsLimitation", black, white);
    return keep("camera.setAhcGainsLimitation", [&] { state().ahcGains = {black, white}; });
}

std::uint8_t Camera::connect(void* context)
{
    enter("camera.connect", context == nullptr ? "null" : "context");
    return library().answerOr("camera.connect", std::uint8_t{1});
}

std::int32_t Camera::readTableData(std::uint32_t offset, std::uint32_t length, std::uint8_t tableId,
                                   void* buffer)
{
    enter("camera.readTableData", offset, length, tableId);
    const auto status = library().answerOr("camera.readTableData", std::int32_t{0});
    if (status == 0 && !library().outputWithheld("camera.readTableData")) {
        std::memcpy(buffer, state().table.data(),
                    std::min<std::size_t>(length, state().table.size()));
    }
    return status;
}

Flag Camera::writeTableData(std::uint32_t offset, std::uint32_t length, std::uint8_t tableId,
                            void* buffer)
{
    enter("camera.writeTableData", offset, length, tableId);
    return keep("camera.writeTableData", [&] {
        const auto* const bytes = static_cast<const std::uint8_t*>(buffer);
        state().table.assign(bytes, bytes + length);
    });
}

void Camera::loadBadPixelList(const std::string& path, std::vector<ReplacementEntry>& list,
                              int& height, int& width)
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

Flag Camera::addBadPixels(const std::string& path, std::uint32_t x, std::uint32_t y)
{
    enter("camera.addBadPixels", path, x, y);
    return keep("camera.addBadPixels", [] {});
}

Flag Camera::removeBadPixels(const std::string& path, std::uint32_t x, std::uint32_t y)
{
    enter("camera.removeBadPixels", path, x, y);
    return keep("camera.removeBadPixels", [] {});
}

Flag Camera::requestNuc(std::uint8_t automatic)
{
    enter("camera.requestNuc", automatic);
    return keep("camera.requestNuc", [&] { state().nucControl = 1; });
}

} // namespace recording
