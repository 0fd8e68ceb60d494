// SPDX-License-Identifier: MIT
// A stand-in for the camera SDK library that remembers every call and answers as a test says. It is
// built as libombrix.sdk.so, so the tool under test meets it through the real boundary; this header
// is the other door, through which a test looks at the calls and sets the answers.
//
// In front of the built program it is steered by two environment variables:
//   TAVREL_RECORDING_JOURNAL  file to which every call and log record is appended, one a line; "-"
//                             is standard output
//   TAVREL_RECORDING_SCRIPT   file of answers, one a line: "operation value", "operation#n value"
//                             for the n-th call only, or "config.gskMin value" for a data member;
//                             blank lines and lines that begin with # are skipped
#pragma once

#include "sdk/ombrix_sdk.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace recording {

using ombrix_sdk::Flag;

/// One call of an SDK operation, or one log record.
struct OMBRIX_SDK_API Entry {
    std::string operation; ///< "camera.setGamma", "sdk.saveConfiguration"; "log" for a record
    std::string arguments; ///< "144179", "500, 0, false, true, false"; a record's text
    int object = 0;        ///< which link or camera, counted from 1; a record's severity

    /// "camera.setGamma(144179)"; for a record "log 2: text".
    [[nodiscard]] std::string text() const;
};

/// What a log record was made of.
struct LogRecord {
    int severity;
    std::string text;                ///< all insertions joined
    std::vector<std::string> pieces; ///< each insertion, "string: ..." or "characters: ..."
};

/// The calls that a test wants to see.
enum class Show {
    Commands,  ///< operations that change something or reach for the camera
    Everything ///< the getters as well
};

struct Region {
    std::uint32_t x1, x2, y1, y2;
};

/// A table region of 8192 bytes whose first records name these pixel indexes; the rest is zero.
OMBRIX_SDK_API std::vector<std::uint8_t> tableOf(const std::vector<std::uint64_t>& indexes);

/// What a number of a table of beginnings begins with; 0 where nothing is said there.
struct Beginning {
    std::string_view value;
    double number;
};

template<std::size_t size>
constexpr double beginning(const Beginning (&table)[size], std::string_view value)
{
    for (const Beginning& row : table) {
        if (row.value == value) {
            return row.number;
        }
    }
    return 0;
}

inline constexpr Beginning cameraBegins[] = {
    {"serialNumber", 4711},
    {"sensorSerialNumber", 815},
    {"frameRate", 9}, // Hz
    {"gamma", 65536}, // 16.16 fixed point
    {"clhe", 2000},
    {"lutTemporalFilter", 3},
    {"gsk", 2},
    {"gfid", 300},
    {"gms", 40},
    {"tint", 5},
};

// clang-format off
inline constexpr Beginning configurationBegins[] = {
    {"baudRate", 115200},
    {"roi0IncX1", 15}, {"roi0IncY1", 16}, {"roi0IncX2", 600}, {"roi0IncY2", 440},
    {"roi0ExcX1", 21}, {"roi0ExcY1", 22}, {"roi0ExcX2", 123}, {"roi0ExcY2", 124},
    {"roi1IncX1", 31}, {"roi1IncY1", 32}, {"roi1IncX2", 133}, {"roi1IncY2", 134},
    {"roi1ExcX1", 41}, {"roi1ExcY1", 42}, {"roi1ExcX2", 143}, {"roi1ExcY2", 144},
    {"zoomFactor", 1}, {"zoomXCenter", 320}, {"zoomYCenter", 240},
    {"zoomXResolution", 720}, {"zoomYResolution", 576},
    {"frameRate", 9}, // Hz
};
// clang-format on

/// The camera behind the getters. A setter that answers nonzero stores its values here.
struct CameraState {
    std::uint32_t versions = 0x02040123; ///< processor 1.2.3, FPGA 2.0.4 at 60 Hz
    std::array<Region, 4> regions = {{{5, 635, 5, 475}, {0, 0, 0, 0}, {0, 0, 0, 0}, {0, 0, 0, 0}}};
    ombrix_sdk::Temperatures temperatures = {298000.0F, 310500.0F}; ///< milli-kelvin
    ombrix_sdk::OperatingTime operatingTime = {1234, 56};
    // What is one number.
#define GET(Type, name, value) Type value = static_cast<Type>(beginning(cameraBegins, #value));
#include "sdk/operations.def"
    std::uint32_t baudRate = 115200;
    ombrix_sdk::EdgeCorrection edgeCorrection = {0, 10, 20, 60};
    ombrix_sdk::Zoom zoom = {1.0F, 320, 240, 0};
    ombrix_sdk::ZoomResolution zoomResolution = {720, 576};
    ombrix_sdk::AhcGainsLimitation ahcGains = {10, 20};
    std::uint8_t shutterClosed = 0;
    /// What readTableData copies out; what writeTableData stores.
    std::vector<std::uint8_t> table = tableOf({5, 7});
    /// What loadBadPixelList puts into the list.
    std::vector<std::uint64_t> replacements;
    /// What loadBadPixelList writes to "replbp.bin" in the current directory; nothing: no file.
    std::optional<std::vector<std::uint8_t>> replacementTable;
    /// getEdgeCorrection answers with the camera's own record instead of the area it was given, so
    /// that a later configureEdgeCorrection changes what the caller holds.
    bool edgeCorrectionFromInside = false;
};

/// The settings behind the configuration's getters.
struct ConfigurationState {
    std::string communicationType = "UART";
    // What is one number.
#define SETTING(Type, name, value)                                                                 \
    Type value = static_cast<Type>(beginning(configurationBegins, #value));
#include "sdk/operations.def"
};

class Library;

/// The control door. One per process; reset() before each test.
class OMBRIX_SDK_API Sdk {
public:
    static Sdk& instance();

    /// A camera, configuration and journal as if the library had just been loaded.
    void reset();

    CameraState camera;
    ConfigurationState configuration;
    /// The configuration object, for its data members (gskValue, gskMin, ...).
    ombrix_sdk::ISdkConfiguration& configurationObject();

    /// Whether releaseSerialLink sets the caller's variable to null.
    bool releaseClearsLink = true;
    /// Whether a closed camera and a released link are freed, so that a sanitizer sees every later
    /// use. A test that calls a closed camera on purpose keeps them.
    bool freesWhatIsClosed = true;

    /// Every later call of the operation answers with value: a flag, a status, or what a getter
    /// returns. "link.openCamera" and "camera.getEdgeCorrection" answered with 0 give null.
    void answer(std::string_view operation, double value);
    /// Only the call-th call from now on (1 is the next one) answers with value.
    void answerCall(std::string_view operation, int call, double value);
    /// Every operation that reports success by a flag answers with value; getters stay as they are.
    void answerEveryCommand(std::uint8_t value);
    /// Removes what answer, answerCall and answerEveryCommand set for the operation.
    void answerNormally(std::string_view operation);
    /// The operation answers as before, but leaves the record, byte, buffer or list that it should
    /// fill as the caller prepared it.
    void withholdOutput(std::string_view operation);

    /// Runs action inside every call of the operation, after it was written down and before its
    /// answer is made up.
    void whenCalled(std::string_view operation, std::function<void()> action);

    /// Runs action when a log record has been emitted.
    void whenLogged(std::function<void()> action);

    /// Runs action at every call and log record, just before it is written down.
    void whenNoted(std::function<void(const Entry&)> action);

    /// The calls in order, as "camera.setGamma(144179)".
    [[nodiscard]] std::vector<std::string> calls(Show show = Show::Commands) const;
    /// How often the operation was called.
    [[nodiscard]] int count(std::string_view operation) const;
    /// Calls and log records in order.
    [[nodiscard]] const std::vector<Entry>& entries() const;
    [[nodiscard]] const std::vector<LogRecord>& records() const;
    /// Forgets calls and records; answers and actions stay.
    void clearJournal();

    Sdk(const Sdk&) = delete;
    Sdk& operator=(const Sdk&) = delete;

private:
    friend class Library;
    Sdk();
    ~Sdk();
    std::unique_ptr<Library> library;
};

} // namespace recording
