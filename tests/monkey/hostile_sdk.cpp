// SPDX-License-Identifier: MIT
#include "tests/monkey/hostile_sdk.h"

#include "tests/monkey/hostile_camera.h"
#include "tests/monkey/hostile_configuration.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <utility>
#include <vector>

namespace hostile {

namespace {

std::string logged;
bool closed = false;

constexpr char replacementFile[] = "replbp.bin";

void setIndex(std::span<std::uint8_t> region, std::size_t record, std::uint64_t index)
{
    constexpr unsigned indexShift = 43;
    constexpr std::size_t recordSize = 8;
    for (std::size_t byteOfRecord = 0; byteOfRecord < recordSize; ++byteOfRecord) {
        region[record * recordSize + byteOfRecord] =
            static_cast<std::uint8_t>((index << indexShift) >> (8 * byteOfRecord));
    }
}

class Link final : public ombrix_sdk::ISerialLink {
public:
    ombrix_sdk::ICamera* openCamera(const char* portName) override
    {
        // Reads the name up to its end.
        const bool named = !std::string(portName).empty();
        if (draw().oneIn(named ? 10 : 2)) {
            return nullptr;
        }
        closed = false;
        return cameras.emplace_back(std::make_unique<Camera>()).get();
    }
    void closeCamera(ombrix_sdk::ICamera* camera) override
    {
        closed = true;
        std::erase_if(cameras, [&](const auto& opened) { return opened.get() == camera; });
    }

private:
    std::vector<std::unique_ptr<Camera>> cameras;
};

class Root final : public ombrix_sdk::IOmbrixSdk {
public:
    void initialize() override {}
    ombrix_sdk::ISdkConfiguration* getConfiguration() override
    {
        if (draw().oneIn(4)) {
            configuration.redraw();
        }
        return &configuration;
    }
    void saveConfiguration() override {}
    ombrix_sdk::ISerialLink* createSerialLink() override
    {
        return links.emplace_back(std::make_unique<Link>()).get();
    }
    void releaseSerialLink(ombrix_sdk::ISerialLink** link) override
    {
        std::erase_if(links, [&](const auto& created) { return created.get() == *link; });
        fill(link, {});
    }

private:
    Configuration configuration;
    std::vector<std::unique_ptr<Link>> links;
};

class Writer final : public ombrix_sdk::ILogger {
public:
    ombrix_sdk::ILogger& operator<<(const std::string& text) override
    {
        logged += text;
        return *this;
    }
    ombrix_sdk::ILogger& operator<<(const char* text) override
    {
        logged += text;
        return *this;
    }
};

} // namespace

monkey::Draw& draw()
{
    static monkey::Draw source(0);
    return source;
}

void start(std::uint64_t seed)
{
    draw() = monkey::Draw(seed);
    logged.clear();
    closed = false;
}

bool cameraClosed()
{
    return closed;
}

std::string takeLogged()
{
    return std::exchange(logged, {});
}

void Camera::fillTable(std::span<std::uint8_t> region)
{
    constexpr std::uint64_t pixelCount = 307200;
    const bool plausible = draw().oneIn(2);
    const std::size_t end = draw().below(region.size() / 8 + 1);
    for (std::size_t record = 0; record < region.size() / 8; ++record) {
        const std::uint64_t index = record < end ? draw().below(pixelCount + 1) : 0;
        setIndex(region, record, plausible ? index : draw().bits());
    }
    setIndex(region, 1, 1 + draw().below(pixelCount));
}

void Camera::leaveReplacementFile()
{
    static constexpr std::array<std::size_t, 7> sizes = {0, 1, 8190, 8191, 8192, 8193, 100000};
    std::filesystem::remove(replacementFile);
    if (draw().oneIn(6)) {
        return;
    }
    if (draw().oneIn(20)) {
        std::filesystem::create_directory(replacementFile);
        return;
    }
    const std::size_t size = draw().oneIn(2) ? draw().oneOf(sizes) : draw().below(8193);
    std::ofstream(replacementFile, std::ios::binary) << std::string(size, '\x5A');
}

ombrix_sdk::Flag Camera::editMap(const std::string& path)
{
    if (draw().oneIn(10)) {
        std::filesystem::remove(path);
    } else if (draw().oneIn(10)) {
        std::ofstream(path, std::ios::binary) << std::string(draw().below(1000), '\x7F');
    }
    return flag();
}

} // namespace hostile

namespace ombrix_sdk {

IOmbrixSdk* OmbrixSdk::get_instance()
{
    static hostile::Root root;
    return &root;
}

SDKLogger::SDKLogger(severity_level) : record(new hostile::Writer) {}

SDKLogger::~SDKLogger()
{
    delete static_cast<hostile::Writer*>(record);
    hostile::logged += '\n';
}

ILogger& SDKLogger::GetILogger()
{
    return *static_cast<hostile::Writer*>(record);
}

} // namespace ombrix_sdk
