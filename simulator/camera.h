// SPDX-License-Identifier: MIT
// A camera as one opening of it appears to the program.
#pragma once

#include "sdk/ombrix_sdk.h"
#include "simulator/configuration.h"
#include "simulator/device.h"
#include "simulator/operations.h"
#include "simulator/plan.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <array>

namespace simulator {

class Simulator;

using namespace ombrix_sdk;

/// Stays allocated after it was closed, so that a late call meets a refusal and no freed memory.
class Camera final : public ICamera {
public:
    /// linkBaudRate: the rate of the link that opened the camera; portName: of the port.
    Camera(Device& openedDevice, std::uint32_t linkBaudRate, QString portName);

    /// As log and journal call it.
    [[nodiscard]] QString name() const;
    [[nodiscard]] bool isOpen() const { return open; }
    void close() { open = false; }

#define CAMERA(Result, name, arguments) Result name arguments override;
#include "sdk/operations.def"

private:
    /// What becomes of a call on its way to the camera.
    struct Passage {
        bool carryOut = false;
        const char* note = ""; ///< for the journal
    };

    Passage enter(Simulator& simulator, Operation operation,
                  const std::array<qint64, 5>& arguments = {});
    void leave(Operation operation, const QStringList& arguments, const QString& answer,
               const char* note);

    /// One operation: the way to the camera, the action there, and the answer. failure is what the
    /// operation answers when it is not carried out.
    template<typename Result, typename Action, typename... Arguments>
    Result perform(Operation operation, Result failure, Action action,
                   const Arguments&... arguments);

    template<typename Type> Type getValue(Operation operation, Parameter parameter);
    template<typename Type> Flag setValue(Operation operation, Parameter parameter, Type value);
    template<typename Record>
    Flag fillRecord(Operation operation, Record* record, Record (Device::*read)() const);
    std::uint32_t getRegion(Operation operation, Coordinate coordinate, std::uint32_t region);
    Flag setRegion(Operation operation, Coordinate coordinate, std::uint32_t value,
                   std::uint32_t region, bool roi1Inclusive, bool roi0Exclusive,
                   bool roi1Exclusive);

    Device& device;
    std::uint32_t baudRate;
    QString port;
    bool open = true;
    CallOutcome planned; ///< what the plan wants of the current call, when that arrives
    QString filled;      ///< text of the record that the current call has filled
    EdgeCorrection spareEdgeRecord{}; ///< answered when the program gave no area
};

} // namespace simulator
