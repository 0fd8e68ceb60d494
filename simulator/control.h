// SPDX-License-Identifier: MIT
// What a test does to the simulator behind the program's back. Exported beside the boundary.
//
// The functions are called from the thread that calls the SDK; from any other but for restart when
// the simulator takes commands from outside (TAVREL_SIMULATOR_CONTROL). Cameras go by the name of
// their section in the settings ("camera" for the built-in one) or by their serial number; texts
// are UTF-8.
#pragma once

#include "sdk/ombrix_sdk.h"

#include <cstdint>
#include <string>

namespace ombrix_simulator {

/// What came of a request.
struct Answer {
    bool done = false; ///< false: nothing has changed
    std::string text;  ///< what was asked for; otherwise why nothing was done, a line each
};

/// Forgets everything but the memory on disk and reads environment, settings and plan again, as if
/// the program were started anew. Links and cameras of before are closed.
OMBRIX_SDK_API void restart();

/// Switches every camera's power off and on.
OMBRIX_SDK_API void cyclePower();

/// A value of the camera as a settings file has it, by its key there ("gamma",
/// "sensorTemperature"). Without a key all of them, in lines of key=value, but for ports, badPixels
/// and tableFile. It is the one that lasts, whatever the camera answers during a NUC, as long as it
/// warms up, or about a temporary baud rate. Refused: no such camera, no such key.
OMBRIX_SDK_API Answer get(const std::string& camera, const std::string& key = {});

/// Changes values of the camera, all or none: lines of key=value, with the units and ranges of the
/// settings file, which may be beyond what the camera takes from a program. The memory, which stays
/// under the serial number of the settings, keeps them but for serial numbers, versions, nineHertz,
/// settings file, which may be beyond what the camera takes from a program. The memory, which stays
/// under the serial number of the settings, keeps them but for serial numbers, versions, nineHertz,
/// mipi and temperatures, which end with the program and at restart, and for testPattern and
/// shutterClosed, which end with the power. Refused: no such camera or key, a value of another kind
/// or beyond its field, a serial number of another camera.
OMBRIX_SDK_API Answer set(const std::string& camera, const std::string& values);

/// Adds faults to those of the plan, and before them, all or none: the text of sections of a plan,
/// such as "[setGamma]\ncalls=3-\n". A section that is there already is replaced and counts anew.
/// The path of a table counts from the current directory. Refused: any mistake, and the safe mode.
OMBRIX_SDK_API Answer putFault(const std::string& sections);

/// Takes the fault of a section away ("setGamma"), or all that were put; a camera that hangs by it
/// answers again. The plan's stay. Refused: no such fault.
OMBRIX_SDK_API Answer liftFault(const std::string& section = {});

/// How often an operation has been called since the start, by its name in plans and journal; -1
/// for one that plans do not know. Calls of a closed camera do not count.
OMBRIX_SDK_API std::int64_t calls(const std::string& operation);

/// Milliseconds of the simulator's clock since its start.
OMBRIX_SDK_API std::int64_t clockTime();

/// Moves the simulator's clock forward; a negative time does nothing.
OMBRIX_SDK_API void advanceClock(std::int64_t milliseconds);

/// How many seconds of the simulator's clock pass in a real one: 0.001 to 1000. With 0 it stands
/// still but for waiting and advanceClock, and nothing takes real time. Refused: any other number.
OMBRIX_SDK_API Answer setClockSpeed(double factor);

/// Pulls the camera out: nothing reaches it, its power stays on. Refused: no such camera, or it is
/// out.
OMBRIX_SDK_API Answer pull(const std::string& camera);

/// Plugs the camera in again. Refused: no such camera, or it is not out.
OMBRIX_SDK_API Answer plug(const std::string& camera);

} // namespace ombrix_simulator
