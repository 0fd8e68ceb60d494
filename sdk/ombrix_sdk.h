// SPDX-License-Identifier: MIT
// The binary boundary to the camera vendor's SDK library: five abstract interfaces, the log record
// class and the records that cross with them. Nothing else of the library is known to the tool.
//
// The order of the virtual functions, the placeholders between them and the places of the data
// members are the contract with the library; sdk tests pin each of them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#if defined(_WIN32)
#    if defined(OMBRIX_SDK_BUILD)
#        define OMBRIX_SDK_API __declspec(dllexport)
#    else
#        define OMBRIX_SDK_API __declspec(dllimport)
#    endif
#else
#    define OMBRIX_SDK_API __attribute__((visibility("default")))
#endif

namespace ombrix_sdk {

static_assert(sizeof(void*) == 8, "the library's slots and offsets are those of 64-bit programs");

/// A one-byte result. 0 is failure or "off"; any other byte is success or "on", whichever byte the
/// library chose, so it is never held in a C++ bool before it has been compared with 0.
using Flag = std::uint8_t;

/// Severity of a log record. The tool uses two values.
enum severity_level : int {
    startup_severity = 0, ///< the lines that the program writes before its window exists
    event_severity = 2,   ///< one record per line of the event log
};

/// Temperatures in milli-kelvin.
struct Temperatures {
    float sensor;
    float fpga;
};

/// How long and how often the camera has been running.
struct OperatingTime {
    std::uint32_t minutes;
    std::uint32_t startups;
};

/// Edge correction as the camera reports it.
struct EdgeCorrection {
    std::uint8_t type; ///< 0 none, 1 sharpening, 2 contouring
    std::uint32_t gain;
    std::uint32_t firstThreshold;
    std::uint32_t secondThreshold;
};

/// Digital zoom.
struct Zoom {
    float factor; ///< 1 to 8
    std::int32_t xCenter;
    std::int32_t yCenter;
    std::uint8_t method; ///< 0 nearest neighbour, 1 bilinear
};

/// Output resolution of the zoom, in pixels.
struct ZoomResolution {
    std::uint32_t x;
    std::uint32_t y;
};

/// Limits of the AHC gains, 0 to 100.
struct AhcGainsLimitation {
    std::uint8_t black;
    std::uint8_t white;
};

/// One entry of the treatment's replacement list. The tool only counts entries.
struct ReplacementEntry {
    std::uint64_t word;
};

/// The settings held by the SDK: expert values and their limits as plain data members, defaults of
/// the user parameters, link type and rate, expert mode switch. Owned by the SDK.
class ISdkConfiguration {
    // The data members below lie at fixed offsets; what stands between belongs to the library.
    [[maybe_unused]] std::uint8_t reservedBytes1[16] = {};

public:
    std::int32_t gskValue = 0;
    std::int32_t gmsValue = 0;
    std::int32_t gfidValue = 0;
    std::int32_t tintValue = 0;

private:
    [[maybe_unused]] std::uint8_t reservedBytes2[20] = {};

public:
    std::int32_t gskMin = 0;
    std::int32_t gskMax = 0;
    std::int32_t gfidMin = 0;
    std::int32_t gfidMax = 0;
    std::int32_t tintMin = 0;
    std::int32_t tintMax = 0;
    std::int32_t gmsMin = 0;
    std::int32_t gmsMax = 0;

private:
    virtual void reserved0() {}
    virtual void reserved1() {}
    virtual void reserved2() {}
    virtual void reserved3() {}
    virtual void reserved4() {}
    virtual void reserved5() {}
    virtual void reserved6() {}

public:
    /// Baud rate at which the SDK opens the serial link.
    virtual std::int32_t getDefaultBaudRate() = 0;

private:
    virtual void reserved8() {}
    virtual void reserved9() {}
    virtual void reserved10() {}
    virtual void reserved11() {}
    virtual void reserved12() {}

public:
    /// Name of the link type; the tool works with "UART" only.
    virtual const char* getCommunicationType() = 0;

private:
    virtual void reserved14() {}
    virtual void reserved15() {}
    virtual void reserved16() {}
    virtual void reserved17() {}
    virtual void reserved18() {}
    virtual void reserved19() {}
    virtual void reserved20() {}
    virtual void reserved21() {}
    virtual void reserved22() {}
    virtual void reserved23() {}
    virtual void reserved24() {}

public:
    // Defaults of the user parameters, in the units of the camera operation of the same name.
    // Region coordinates are pixels.
    virtual double getDefaultRoi0IncX1() = 0;
    virtual double getDefaultRoi0IncY1() = 0;
    virtual double getDefaultRoi0IncX2() = 0;
    virtual double getDefaultRoi0IncY2() = 0;
    virtual std::uint8_t getDefaultContrastType() = 0;
    virtual std::uint8_t getDefaultColorLut() = 0;
    virtual std::uint8_t getDefaultPolarity() = 0; ///< nonzero: inverted
    virtual float getDefaultZoomFactor() = 0;
    virtual std::uint8_t getDefaultZoomMethod() = 0;
    virtual std::int32_t getDefaultZoomXCenter() = 0;
    virtual std::int32_t getDefaultZoomYCenter() = 0;
    virtual std::int32_t getDefaultZoomXResolution() = 0;
    virtual std::int32_t getDefaultZoomYResolution() = 0;
    virtual Flag getDefaultHorizontalFlip() = 0;
    virtual Flag getDefaultVerticalFlip() = 0;
    virtual Flag getDefaultVignettingCorrection() = 0;
    virtual Flag getDefaultColumnCorrection() = 0;
    virtual std::uint8_t getDefaultFrameRate() = 0; ///< Hz
    virtual std::uint8_t getDefaultEdgeCorrection() = 0;
    virtual std::uint32_t getDefaultSharpeningGain() = 0;
    virtual std::uint32_t getDefaultSharpeningThreshold() = 0;

private:
    virtual void reserved46() {}

public:
    virtual std::uint8_t getDefaultVideoOutput() = 0;
    virtual Flag getDefaultBt656SdiOutput() = 0;
    virtual Flag getDefaultParallelOutput() = 0;
    virtual Flag getDefaultMipiOutput() = 0;
    virtual Flag getDefaultTestPattern() = 0;
    virtual Flag getDefaultRoi0ExcEnable() = 0;
    virtual double getDefaultRoi0ExcX1() = 0;
    virtual double getDefaultRoi0ExcY1() = 0;
    virtual double getDefaultRoi0ExcX2() = 0;
    virtual double getDefaultRoi0ExcY2() = 0;
    virtual Flag getDefaultRoi1IncEnable() = 0;
    virtual double getDefaultRoi1IncX1() = 0;
    virtual double getDefaultRoi1IncY1() = 0;
    virtual double getDefaultRoi1IncX2() = 0;
    virtual double getDefaultRoi1IncY2() = 0;
    virtual Flag getDefaultRoi1ExcEnable() = 0;
    virtual double getDefaultRoi1ExcX1() = 0;
    virtual double getDefaultRoi1ExcY1() = 0;
    virtual double getDefaultRoi1ExcX2() = 0;
    virtual double getDefaultRoi1ExcY2() = 0;
    virtual std::uint8_t getDefaultTemporalFilter() = 0;
    virtual std::uint8_t getDefaultAhcBlackGainLimit() = 0;
    virtual std::uint8_t getDefaultAhcWhiteGainLimit() = 0;
    /// Whether the expert parameters may be shown.
    virtual Flag isExpertModeEnabled() = 0;
    /// Baud rate of the next link.
    virtual void setBaudRate(std::int32_t baudRate) = 0;

protected:
    ISdkConfiguration() = default;
    ~ISdkConfiguration() = default;
    ISdkConfiguration(const ISdkConfiguration&) = default;
    ISdkConfiguration& operator=(const ISdkConfiguration&) = default;
};

/// One camera reached through a link. Getters return the camera's value as it is; operations that
/// fill a record or change the camera return a Flag. Owned by the SDK.
class ICamera {
    virtual void reserved0() {}
    virtual void reserved1() {}

public:
    /// Low 16 bits: processor firmware version; high 16 bits: FPGA version. 0: no answer.
    virtual void getVersions(std::uint32_t* versions) = 0;
    /// Called once after versions that are not 0.
    virtual void refresh() = 0;
    // Region index: 0 ROI0 inclusive, 1 ROI0 exclusive, 2 ROI1 inclusive, 3 ROI1 exclusive.
    virtual std::uint32_t getRoiX1(std::uint32_t region) = 0;
    virtual std::uint32_t getRoiX2(std::uint32_t region) = 0;
    virtual std::uint32_t getRoiY1(std::uint32_t region) = 0;
    virtual std::uint32_t getRoiY2(std::uint32_t region) = 0;
    virtual std::uint32_t getSerialNumber() = 0;
    virtual std::uint32_t getSensorSerialNumber() = 0;

private:
    virtual void reserved10() {}

public:
    virtual Flag getTemperatures(Temperatures* temperatures) = 0;
    virtual Flag getOperatingTime(OperatingTime* time) = 0;

private:
    virtual void reserved13() {}
    virtual void reserved14() {}

public:
    virtual std::uint32_t getGsk() = 0;
    virtual Flag setGsk(std::uint32_t value) = 0;
    virtual Flag setGfid(std::uint32_t value) = 0;
    virtual Flag setGms(std::uint32_t value) = 0;
    virtual std::uint32_t getGfid() = 0;
    virtual std::uint32_t getGms() = 0;
    virtual std::uint32_t getTint() = 0;
    virtual Flag setTint(std::uint32_t value) = 0;
    virtual Flag getBprCorrection() = 0;
    virtual Flag setBprCorrection(bool enable) = 0;
    virtual Flag getOffsetCorrection() = 0;
    virtual Flag setOffsetCorrection(bool enable) = 0;
    virtual Flag getGainCorrection() = 0;
    virtual Flag setGainCorrection(bool enable) = 0;
    virtual Flag getHorizontalFlip() = 0;
    virtual Flag setHorizontalFlip(bool enable) = 0;
    virtual Flag getVerticalFlip() = 0;
    virtual Flag setVerticalFlip(bool enable) = 0;
    virtual Flag getVignettingCorrection() = 0;
    virtual Flag setVignettingCorrection(bool enable) = 0;
    virtual Flag getColumnCorrection() = 0;
    virtual Flag setColumnCorrection(bool enable) = 0;
    virtual Flag setTestPattern(bool enable) = 0;
    virtual Flag getTestPattern() = 0;
    virtual Flag setBt656SdiOutput(bool enable) = 0;
    virtual Flag getBt656SdiOutput() = 0;
    virtual Flag setParallelOutput(bool enable) = 0;
    virtual Flag getParallelOutput() = 0;
    virtual Flag setMipiOutput(bool enable) = 0;
    virtual Flag getMipiOutput() = 0;
    /// Hz: 9, 25, 30, 50 or 60.
    virtual Flag setFrameRate(std::uint8_t hertz) = 0;
    virtual std::uint8_t getFrameRate() = 0;
    virtual Flag setVideoOutput(std::uint8_t index) = 0;
    virtual std::uint8_t getVideoOutput() = 0;
    /// permanent: the camera keeps the rate after a restart.
    virtual Flag setBaudRate(std::uint32_t baudRate, bool permanent) = 0;
    virtual Flag configureEdgeCorrection(std::uint8_t type, std::uint32_t gain,
                                         std::uint32_t threshold) = 0;
    /// Fills the area and returns where the record stands.
    virtual const EdgeCorrection* getEdgeCorrection(EdgeCorrection* area) = 0;

private:
    virtual void reserved52() {}
    virtual void reserved53() {}

public:
    virtual Flag configureZoom(const Zoom* zoom) = 0;
    virtual Flag getZoom(Zoom* zoom) = 0;
    virtual Flag getZoomResolution(ZoomResolution* resolution) = 0;
    virtual Flag configureZoomResolution(std::uint32_t x, std::uint32_t y) = 0;
    /// 0: contrast from the regions of interest; nonzero: local contrast.
    virtual std::uint8_t getContrastType() = 0;
    virtual Flag configureContrastType(std::uint8_t index) = 0;
    virtual Flag setColorLut(std::uint8_t index) = 0;
    virtual std::uint8_t getColorLut() = 0;
    virtual Flag getAhcGainsLimitation(AhcGainsLimitation* limits) = 0;
    virtual Flag setAhcGainsLimitation(std::uint8_t black, std::uint8_t white) = 0;
    virtual std::uint8_t getLutTemporalFilter() = 0;
    virtual Flag setLutTemporalFilter(std::uint8_t value) = 0;

private:
    virtual void reserved66() {}

public:
    /// Exactly 1: the camera answered. The library may keep the context.
    virtual std::uint8_t connect(void* context) = 0;

private:
    virtual void reserved68() {}

public:
    /// Reads length bytes of a table region. 0 is success, anything else an error code.
    virtual std::int32_t readTableData(std::uint32_t offset, std::uint32_t length,
                                       std::uint8_t tableId, void* buffer) = 0;
    virtual Flag writeTableData(std::uint32_t offset, std::uint32_t length, std::uint8_t tableId,
                                void* buffer) = 0;

private:
    virtual void reserved71() {}

public:
    /// Treats the map file at path: the replacement entries arrive in list, the table in camera
    /// format in "replbp.bin" in the current directory.
    virtual void loadBadPixelList(const std::string& path, std::vector<ReplacementEntry>& list,
                                  int& height, int& width) = 0;
    // Declare or undeclare a pixel in the map file at path, in place. 0xFFFFFFFF as x stands for
    // every pixel of line y, as y for every pixel of column x.
    virtual Flag addBadPixels(const std::string& path, std::uint32_t x, std::uint32_t y) = 0;
    virtual Flag removeBadPixels(const std::string& path, std::uint32_t x, std::uint32_t y) = 0;

private:
    virtual void reserved75() {}

public:
    /// 16.16 fixed point.
    virtual std::uint32_t getGamma() = 0;
    virtual Flag setGamma(std::uint32_t gamma) = 0;
    virtual std::uint32_t getClhe() = 0;
    virtual Flag setClhe(std::uint32_t value) = 0;
    virtual Flag getPolarity() = 0; ///< nonzero: inverted
    virtual Flag setPolarity(bool inverted) = 0;
    // One coordinate of a region, with the enable flags of the other three regions.
    virtual Flag setRoiX1(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                          bool roi0Exclusive, bool roi1Exclusive) = 0;
    virtual Flag setRoiX2(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                          bool roi0Exclusive, bool roi1Exclusive) = 0;
    virtual Flag setRoiY1(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                          bool roi0Exclusive, bool roi1Exclusive) = 0;
    virtual Flag setRoiY2(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                          bool roi0Exclusive, bool roi1Exclusive) = 0;
    /// 0: asked for by the user, 1: automatic routine.
    virtual Flag requestNuc(std::uint8_t automatic) = 0;
    /// 2: on, 0: off.
    virtual Flag setNucControl(std::uint8_t control) = 0;
    virtual Flag getNucControl() = 0;
    virtual Flag setShutterPosition(bool closed) = 0;
    virtual Flag getShutterPosition(std::uint8_t* closed) = 0; ///< nonzero byte: closed

protected:
    ICamera() = default;
    ~ICamera() = default;
    ICamera(const ICamera&) = default;
    ICamera& operator=(const ICamera&) = default;
};

/// One serial connection. Owned by the SDK.
class ISerialLink {
    virtual void reserved0() {}
    virtual void reserved1() {}
    virtual void reserved2() {}
    virtual void reserved3() {}
    virtual void reserved4() {}
    virtual void reserved5() {}
    virtual void reserved6() {}
    virtual void reserved7() {}
    virtual void reserved8() {}
    virtual void reserved9() {}
    virtual void reserved10() {}
    virtual void reserved11() {}
    virtual void reserved12() {}
    virtual void reserved13() {}
    virtual void reserved14() {}

public:
    /// The camera on the named port, or null when none answers there.
    virtual ICamera* openCamera(const char* portName) = 0;
    virtual void closeCamera(ICamera* camera) = 0;

protected:
    ISerialLink() = default;
    ~ISerialLink() = default;
    ISerialLink(const ISerialLink&) = default;
    ISerialLink& operator=(const ISerialLink&) = default;
};

/// The root of the SDK. Owned by the SDK; one per process.
class IOmbrixSdk {
    virtual void reserved0() {}

public:
    virtual void initialize() = 0;

private:
    virtual void reserved2() {}
    virtual void reserved3() {}
    virtual void reserved4() {}

public:
    /// The same object on every call.
    virtual ISdkConfiguration* getConfiguration() = 0;
    /// Stores the values last written into the configuration.
    virtual void saveConfiguration() = 0;

private:
    virtual void reserved7() {}
    virtual void reserved8() {}

public:
    virtual ISerialLink* createSerialLink() = 0;

private:
    virtual void reserved10() {}

public:
    virtual void releaseSerialLink(ISerialLink** link) = 0;

protected:
    IOmbrixSdk() = default;
    ~IOmbrixSdk() = default;
    IOmbrixSdk(const IOmbrixSdk&) = default;
    IOmbrixSdk& operator=(const IOmbrixSdk&) = default;
};

/// The writer of one log record.
class ILogger {
    virtual void reserved0() {}

public:
    // MSVC lays adjacent overloads out in reverse order of declaration; the slot
    // order is string, then character string, under both.
#if defined(_MSC_VER)
    virtual ILogger& operator<<(const char* text) = 0;
    virtual ILogger& operator<<(const std::string& text) = 0;
#else
    virtual ILogger& operator<<(const std::string& text) = 0;
    virtual ILogger& operator<<(const char* text) = 0;
#endif

protected:
    ILogger() = default;
    ~ILogger() = default;
    ILogger(const ILogger&) = default;
    ILogger& operator=(const ILogger&) = default;
};

/// One log record: opened by the constructor, emitted by the destructor.
class OMBRIX_SDK_API SDKLogger {
public:
    explicit SDKLogger(severity_level severity);
    ~SDKLogger();
    SDKLogger(const SDKLogger&) = delete;
    SDKLogger& operator=(const SDKLogger&) = delete;

    ILogger& GetILogger();

private:
    // How large the library's own object is, is known nowhere: its constructor is given this much
    // room and this alignment as a precaution. The project's own libraries use the first pointer.
    union {
        void* record;
        alignas(16) unsigned char room[256];
    };
};

/// Access to the process-wide root object.
class OMBRIX_SDK_API OmbrixSdk {
public:
    static IOmbrixSdk* get_instance();
};

} // namespace ombrix_sdk
