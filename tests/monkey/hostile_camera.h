// SPDX-License-Identifier: MIT
// The camera of the hostile SDK.
#pragma once

#include "tests/monkey/hostile_answers.h"

#include <span>

namespace hostile {

using namespace ombrix_sdk;

/// The operations of the common kinds, each answered by chance.
class AnyCamera : public ICamera {
public:
// clang-format off
#define GET(Type, name, value) Type name() override { return any<Type>(); }
#define GET_FLAG(name, value) Flag name() override { return flag(); }
#define SET(Type, name, value) Flag name(Type) override { return flag(); }
#define FILL(Record, name, value)                                                                  \
    Flag name(Record* record) override                                                             \
    {                                                                                              \
        fill(record, any<Record>());                                                               \
        return flag();                                                                             \
    }
#define GET_ROI(name, coordinate)                                                                  \
    std::uint32_t name(std::uint32_t) override { return any<std::uint32_t>(); }
#define SET_ROI(name, coordinate)                                                                  \
    Flag name(std::uint32_t, std::uint32_t, bool, bool, bool) override { return flag(); }
// clang-format on
#include "sdk/operations.def"

protected:
    ~AnyCamera() = default;
};

class Camera final : public AnyCamera {
public:
    void getVersions(std::uint32_t* versions) override { fill(versions, any<std::uint32_t>()); }
    void refresh() override {}
    /// From a handful, because the tool keeps map files for each camera that it has met.
    std::uint32_t getSerialNumber() override
    {
        static constexpr std::array<std::uint32_t, 5> serials = {0, 1, 4711, 0x80000000,
                                                                 0xFFFFFFFF};
        return draw().oneOf(serials);
    }
    Flag setBaudRate(std::uint32_t, bool) override { return flag(); }
    /// Changes the record that getEdgeCorrection may have handed out.
    Flag configureEdgeCorrection(std::uint8_t, std::uint32_t, std::uint32_t) override
    {
        own = any<EdgeCorrection>();
        return flag();
    }
    /// The area that was given, a record of the SDK's own, or nothing at all.
    const EdgeCorrection* getEdgeCorrection(EdgeCorrection* area) override
    {
        const auto record = any<EdgeCorrection>();
        fill(area, record);
        own = record;
        const std::array<const EdgeCorrection*, 3> places = {area, &own, nullptr};
        return draw().oneOf(places);
    }
    Flag configureZoom(const Zoom*) override { return flag(); }
    Flag configureZoomResolution(std::uint32_t, std::uint32_t) override { return flag(); }
    Flag setAhcGainsLimitation(std::uint8_t, std::uint8_t) override { return flag(); }
    std::uint8_t connect(void*) override
    {
        return draw().oneIn(6) ? any<std::uint8_t>() : std::uint8_t{1};
    }
    std::int32_t readTableData(std::uint32_t, std::uint32_t length, std::uint8_t,
                               void* buffer) override
    {
        fillTable({static_cast<std::uint8_t*>(buffer), length});
        return draw().oneIn(4) ? any<std::int32_t>() : 0;
    }
    Flag writeTableData(std::uint32_t, std::uint32_t length, std::uint8_t, void* buffer) override
    {
        // A library may well change what it was given; it certainly reads all of it.
        for (std::uint8_t& content : std::span{static_cast<std::uint8_t*>(buffer), length}) {
            content = static_cast<std::uint8_t>(content + 1);
        }
        return flag();
    }
    void loadBadPixelList(const std::string&, std::vector<ReplacementEntry>& list, int& height,
                          int& width) override
    {
        static constexpr std::array<std::size_t, 6> sizes = {0, 1, 1023, 1024, 1025, 300000};
        list.assign(draw().oneIn(2) ? draw().oneOf(sizes) : draw().below(3000), {draw().bits()});
        height = any<int>();
        width = any<int>();
        leaveReplacementFile();
    }
    Flag addBadPixels(const std::string& path, std::uint32_t, std::uint32_t) override
    {
        return editMap(path);
    }
    Flag removeBadPixels(const std::string& path, std::uint32_t, std::uint32_t) override
    {
        return editMap(path);
    }
    Flag requestNuc(std::uint8_t) override { return flag(); }

private:
    /// Any table but one that ends at record 1.
    static void fillTable(std::span<std::uint8_t> region);
    /// Any "replbp.bin", or none.
    static void leaveReplacementFile();
    static Flag editMap(const std::string& path);

    EdgeCorrection own{};
};

} // namespace hostile
