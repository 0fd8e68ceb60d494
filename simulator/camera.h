// SPDX-License-Identifier: MIT
// A camera as one opening of it appears to the program.
#pragma once

#include "sdk/ombrix_sdk.h"
#include "simulator/configuration.h"
#include "simulator/device.h"
#include "simulator/operations.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

namespace simulator {

/// Stays allocated after it was closed, so that a late call meets a refusal and no freed memory.
class Camera final : public ombrix_sdk::ICamera {
public:
    /// linkBaudRate: the rate of the link that opened the camera.
    Camera(Device& openedDevice, std::uint32_t linkBaudRate);

    /// As log and journal call it.
    [[nodiscard]] QString name() const;
    [[nodiscard]] bool isOpen() const { return open; }
    void close() { open = false; }

    void getVersions(std::uint32_t* versions) override;
    void refresh() override;
    std::uint32_t getRoiX1(std::uint32_t region) override;
    std::uint32_t getRoiX2(std::uint32_t region) override;
    std::uint32_t getRoiY1(std::uint32_t region) override;
    std::uint32_t getRoiY2(std::uint32_t region) override;
    std::uint32_t getSerialNumber() override;
    std::uint32_t getSensorSerialNumber() override;
    Flag getTemperatures(ombrix_sdk::Temperatures* temperatures) override;
    Flag getOperatingTime(ombrix_sdk::OperatingTime* time) override;
    std::uint32_t getGsk() override;
    Flag setGsk(std::uint32_t value) override;
    Flag setGfid(std::uint32_t value) override;
    Flag setGms(std::uint32_t value) override;
    std::uint32_t getGfid() override;
    std::uint32_t getGms() override;
    std::uint32_t getTint() override;
    Flag setTint(std::uint32_t value) override;
    Flag getBprCorrection() override;
    Flag setBprCorrection(bool enable) override;
    Flag getOffsetCorrection() override;
    Flag setOffsetCorrection(bool enable) override;
    Flag getGainCorrection() override;
    Flag setGainCorrection(bool enable) override;
    Flag getHorizontalFlip() override;
    Flag setHorizontalFlip(bool enable) override;
    Flag getVerticalFlip() override;
    Flag setVerticalFlip(bool enable) override;
    Flag getVignettingCorrection() override;
    Flag setVignettingCorrection(bool enable) override;
    Flag getColumnCorrection() override;
    Flag setColumnCorrection(bool enable) override;
    Flag setTestPattern(bool enable) override;
    Flag getTestPattern() override;
    Flag setBt656SdiOutput(bool enable) override;
    Flag getBt656SdiOutput() override;
    Flag setParallelOutput(bool enable) override;
    Flag getParallelOutput() override;
    Flag setMipiOutput(bool enable) override;
    Flag getMipiOutput() override;
    Flag setFrameRate(std::uint8_t hertz) override;
    std::uint8_t getFrameRate() override;
    Flag setVideoOutput(std::uint8_t index) override;
    std::uint8_t getVideoOutput() override;
    Flag setBaudRate(std::uint32_t rate, bool permanent) override;
    Flag configureEdgeCorrection(std::uint8_t type, std::uint32_t gain,
                                 std::uint32_t threshold) override;
    const ombrix_sdk::EdgeCorrection* getEdgeCorrection(ombrix_sdk::EdgeCorrection* area) override;
    Flag configureZoom(const ombrix_sdk::Zoom* zoom) override;
    Flag getZoom(ombrix_sdk::Zoom* zoom) override;
    Flag getZoomResolution(ombrix_sdk::ZoomResolution* resolution) override;
    Flag configureZoomResolution(std::uint32_t x, std::uint32_t y) override;
    std::uint8_t getContrastType() override;
    Flag configureContrastType(std::uint8_t index) override;
    Flag setColorLut(std::uint8_t index) override;
    std::uint8_t getColorLut() override;
    Flag getAhcGainsLimitation(ombrix_sdk::AhcGainsLimitation* limits) override;
    Flag setAhcGainsLimitation(std::uint8_t black, std::uint8_t white) override;
    std::uint8_t getLutTemporalFilter() override;
    Flag setLutTemporalFilter(std::uint8_t value) override;
    std::uint8_t connect(void* context) override;
    std::int32_t readTableData(std::uint32_t offset, std::uint32_t length, std::uint8_t tableId,
                               void* buffer) override;
    Flag writeTableData(std::uint32_t offset, std::uint32_t length, std::uint8_t tableId,
                        void* buffer) override;
    void loadBadPixelList(const std::string& path, std::vector<ombrix_sdk::ReplacementEntry>& list,
                          int& height, int& width) override;
    Flag addBadPixels(const std::string& path, std::uint32_t x, std::uint32_t y) override;
    Flag removeBadPixels(const std::string& path, std::uint32_t x, std::uint32_t y) override;
    std::uint32_t getGamma() override;
    Flag setGamma(std::uint32_t gamma) override;
    std::uint32_t getClhe() override;
    Flag setClhe(std::uint32_t value) override;
    Flag getPolarity() override;
    Flag setPolarity(bool inverted) override;
    Flag setRoiX1(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                  bool roi0Exclusive, bool roi1Exclusive) override;
    Flag setRoiX2(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                  bool roi0Exclusive, bool roi1Exclusive) override;
    Flag setRoiY1(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                  bool roi0Exclusive, bool roi1Exclusive) override;
    Flag setRoiY2(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                  bool roi0Exclusive, bool roi1Exclusive) override;
    Flag requestNuc(std::uint8_t automatic) override;
    Flag setNucControl(std::uint8_t control) override;
    Flag getNucControl() override;
    Flag setShutterPosition(bool closed) override;
    Flag getShutterPosition(std::uint8_t* closed) override;

private:
    /// What becomes of a call on its way to the camera.
    struct Passage {
        bool carryOut = false;
        std::optional<qint64> value = {}; ///< answer of the plan
        QString word = {};                ///< the same where a number says too little
        QString note = {};                ///< for the journal
    };

    Passage enter(Operation operation);
    void leave(Operation operation, const QStringList& arguments, const QString& answer,
               const QString& note);

    /// One operation: the way to the camera, the action there, and the answer. failure is what the
    /// operation answers when it is not carried out.
    template<typename Result, typename Action, typename... Arguments>
    Result perform(Operation operation, Result failure, Action action,
                   const Arguments&... arguments);

    template<typename Type> Type getValue(Operation operation, Parameter parameter);
    template<typename Type> Flag setValue(Operation operation, Parameter parameter, Type value);
    template<typename Record, typename Fill>
    Flag fillRecord(Operation operation, Record* record, Fill fill);
    std::uint32_t getRegion(Operation operation, Coordinate coordinate, std::uint32_t region);
    Flag setRegion(Operation operation, Coordinate coordinate, std::uint32_t value,
                   std::uint32_t region, bool roi1Inclusive, bool roi0Exclusive,
                   bool roi1Exclusive);

    Device& device;
    std::uint32_t serialNumber;
    std::uint32_t baudRate;
    bool open = true;
    QString filled; ///< text of the record that the current call has filled
    ombrix_sdk::EdgeCorrection spareEdgeRecord{}; ///< answered when the program gave no area
};

} // namespace simulator
