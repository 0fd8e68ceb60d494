// SPDX-License-Identifier: MIT
// One number that the settings file, the memory and the camera or the configuration share: its key,
// what its text may be, and how text and number become each other.
#pragma once

#include <QtCore/QString>

#include <cstdint>
#include <optional>

namespace simulator {

/// What a field holds. The kind bounds what a file may say, which is more than what an operation
/// accepts: a simulated camera may well report what no tool would send.
enum class Kind {
    Switch,  ///< a byte, 0 is off; written true, false or the number of an unusual byte
    Byte,    ///< 0 to 255
    Word,    ///< 0 to 4294967295
    Whole,   ///< signed, 32 bits
    Single,  ///< number of single precision
    Real,    ///< number of double precision
    Share,   ///< 0 to 1
    Fixed,   ///< 16.16 fixed point; written as the number it stands for
    Version, ///< three 4-bit fields; written major.minor.patch
};

struct Field {
    const char* key;
    Kind kind;
    double initial; ///< for Fixed and Version: the raw value
};

/// The number that the text stands for, or nothing when the kind does not allow it.
std::optional<double> parseField(Kind kind, const QString& text);

/// The text from which parseField makes the same number again.
QString formatField(Kind kind, double value);

/// What the kind allows, in words, for messages.
QString describeKind(Kind kind);

/// A field's number as the type that crosses the boundary. The number is known to fit.
template<typename Type> Type as(double value)
{
    return static_cast<Type>(value);
}

} // namespace simulator
