// SPDX-License-Identifier: MIT
// Every parameter of the camera under the name by which commands and profiles call it.
//
// Values are doubles in the units that people read; each holds exactly what the camera holds.
#pragma once

#include "params/detectorvalues.h"
#include "sdk/ombrix_sdk.h"

#include <QtCore/QString>

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace tavrel {

/// A value that has a name.
struct Choice {
    const char* name;
    double value;
};

enum class Level { User, Expert };

/// What a profile does with a parameter.
enum class Keeping {
    Saved,
    OnlyByHand, ///< never saved; applied when it was written into the profile and is asked for
    Never       ///< a state of the moment, or nothing that can be set
};

struct Parameter {
    const char* name;
    const char* unit = "";
    double minimum = 0; ///< both ends of what is a number; equal where only choices are left
    double maximum = 0;
    std::vector<Choice> choices = {};
    bool isSwitch = false;
    Keeping keeping = Keeping::Saved;
    /// What the camera makes of a value; empty: keeps whole numbers as they are.
    double (*held)(double value) = nullptr;
    const DetectorValue* detector = nullptr; ///< limits come from the SDK's configuration

    // Filled in by the table.
    Level level = Level::User;
    std::size_t command = 0;

    [[nodiscard]] bool isNumber() const { return minimum < maximum; }
};

/// Values by the places of parameters(); none: not read, or not to be set.
using Values = std::vector<std::optional<double>>;

/// Which regions that can be switched are on.
struct RegionSwitches {
    bool roi1Inclusive = false;
    bool roi0Exclusive = false;
    bool roi1Exclusive = false;
};

/// One exchange with the camera, for parameters that stand one after the other.
struct Command {
    std::size_t first = 0; ///< of its parameters
    std::size_t count = 0;
    Level level = Level::User;
    /// False: the camera did not tell. Empty: cannot be read.
    std::function<bool(ombrix_sdk::ICamera&, std::span<double>)> read = {};
    /// Empty: cannot be set.
    std::function<ombrix_sdk::Flag(ombrix_sdk::ICamera&, std::span<const double>,
                                   const RegionSwitches&)>
        write = {};
};

/// All parameters and commands, in the order in which the camera wants to be set: the frame rate
/// before the test pattern, which it ends; the zoom's resolution before the zoom; TINT before GMS;
/// the camera's own baud rate last, because nothing follows it on this link.
const std::vector<Parameter>& parameters();
const std::vector<Command>& commands();

/// Place of a parameter; none when none is called so.
std::optional<std::size_t> parameterNamed(const QString& name);

/// Places that the order on the wire depends on.
std::size_t frameRatePlace();
std::size_t testPatternPlace();
/// Region 0 to 3; coordinate 0 X1, 1 X2, 2 Y1, 3 Y2.
std::size_t regionPlace(std::size_t region, std::size_t coordinate);

/// Whether a place is the first coordinate of a pair, its second one, or none of both.
enum class InPair { No, Low, High };
InPair inPair(std::size_t place);
/// The other coordinate of the pair.
std::size_t partner(std::size_t place);

RegionSwitches regionSwitches(const Values& values);

/// Numbers that a parameter takes.
struct Limits {
    double minimum;
    double maximum;
};
Limits limitsOf(const Parameter& parameter, const ombrix_sdk::ISdkConfiguration& configuration);

/// The shortest text that stands for the value: a choice's name or a decimal number.
QString textOf(const Parameter& parameter, double value);

/// The same with the unit, where the text is a number.
QString textWithUnit(const Parameter& parameter, double value);

/// A value as somebody wrote it, as the camera will hold it.
struct Understood {
    std::optional<double> value;
    QString problem; ///< why there is none
};
Understood valueOf(const Parameter& parameter, const QString& text,
                   const ombrix_sdk::ISdkConfiguration& configuration);

/// What a parameter takes, for people: "off or on", "0.5 to 2.5", "5 to 635 px or off".
QString rangeOf(const Parameter& parameter, const ombrix_sdk::ISdkConfiguration& configuration);
/// The same where no configuration narrows it.
QString rangeOf(const Parameter& parameter);

} // namespace tavrel
