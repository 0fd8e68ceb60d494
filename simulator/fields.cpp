// SPDX-License-Identifier: MIT
#include "simulator/fields.h"

#include <QtCore/QStringList>

#include <cmath>
#include <limits>

namespace simulator {
namespace {

constexpr double fixedPointOne = 65536.0;

struct Range {
    double lowest;
    double highest;
};

Range rangeOf(Kind kind)
{
    switch (kind) {
    case Kind::Switch:
    case Kind::Byte:
        return {0, 255};
    case Kind::Word:
        return {0, 4294967295.0};
    case Kind::Whole:
        return {-2147483648.0, 2147483647.0};
    case Kind::Single:
        return {-static_cast<double>(std::numeric_limits<float>::max()),
                static_cast<double>(std::numeric_limits<float>::max())};
    case Kind::Real:
        return {-std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
    case Kind::Share:
        return {0, 1};
    case Kind::Fixed:
        return {0, 4294967295.0 / fixedPointOne};
    case Kind::Version:
        return {0, 0xFFF};
    }
    return {0, 0};
}

QString describeRange(Kind kind)
{
    const Range range = rangeOf(kind);
    return QStringLiteral("%1 to %2")
        .arg(formatField(kind, range.lowest), formatField(kind, range.highest));
}

std::optional<double> within(Kind kind, double value)
{
    const Range range = rangeOf(kind);
    // A number that is none fails both comparisons.
    if (value >= range.lowest && value <= range.highest) {
        return value;
    }
    return std::nullopt;
}

std::optional<double> parseWhole(Kind kind, const QString& text)
{
    const bool hexadecimal = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    bool ok = false;
    const qlonglong value = text.toLongLong(&ok, hexadecimal ? 16 : 10);
    return ok ? within(kind, static_cast<double>(value)) : std::nullopt;
}

std::optional<double> parseSwitch(const QString& text)
{
    if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0) {
        return 1;
    }
    if (text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0) {
        return 0;
    }
    return parseWhole(Kind::Switch, text);
}

std::optional<double> parseReal(Kind kind, const QString& text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok ? within(kind, value) : std::nullopt;
}

std::optional<double> parseVersion(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char('.'));
    if (parts.size() != 3) {
        return std::nullopt;
    }
    unsigned word = 0;
    for (const QString& part : parts) {
        bool ok = false;
        const unsigned digit = part.toUInt(&ok);
        if (!ok || digit > 15) {
            return std::nullopt;
        }
        word = (word << 4U) | digit;
    }
    return word;
}

} // namespace

std::optional<double> parseField(Kind kind, const QString& text)
{
    const QString trimmed = text.trimmed();
    switch (kind) {
    case Kind::Switch:
        return parseSwitch(trimmed);
    case Kind::Byte:
    case Kind::Word:
    case Kind::Whole:
        return parseWhole(kind, trimmed);
    case Kind::Single:
        if (const std::optional<double> value = parseReal(kind, trimmed)) {
            return static_cast<double>(static_cast<float>(*value));
        }
        return std::nullopt;
    case Kind::Real:
    case Kind::Share:
        return parseReal(kind, trimmed);
    case Kind::Fixed:
        if (const std::optional<double> value = parseReal(kind, trimmed)) {
            return std::trunc(*value * fixedPointOne);
        }
        return std::nullopt;
    case Kind::Version:
        return parseVersion(trimmed);
    }
    return std::nullopt;
}

QString formatField(Kind kind, double value)
{
    switch (kind) {
    case Kind::Switch:
        if (value == 0 || value == 1) {
            return value == 1 ? QStringLiteral("true") : QStringLiteral("false");
        }
        return QString::number(static_cast<qint64>(value));
    case Kind::Byte:
    case Kind::Word:
    case Kind::Whole:
        return QString::number(static_cast<qint64>(value));
    case Kind::Single:
    case Kind::Real:
    case Kind::Share:
        return QString::number(value, 'g', std::numeric_limits<double>::max_digits10);
    case Kind::Fixed:
        return QString::number(value / fixedPointOne, 'g',
                               std::numeric_limits<double>::max_digits10);
    case Kind::Version: {
        const auto word = static_cast<unsigned>(value);
        return QStringLiteral("%1.%2.%3")
            .arg((word >> 8U) & 0xFU)
            .arg((word >> 4U) & 0xFU)
            .arg(word & 0xFU);
    }
    }
    return {};
}

QString describeKind(Kind kind)
{
    switch (kind) {
    case Kind::Switch:
        return QStringLiteral("true, false or a whole number from 0 to 255");
    case Kind::Byte:
    case Kind::Word:
    case Kind::Whole:
        return QStringLiteral("a whole number from ") + describeRange(kind);
    case Kind::Single:
        return QStringLiteral("a number from ") + describeRange(kind);
    case Kind::Real:
        return QStringLiteral("a number");
    case Kind::Share:
        return QStringLiteral("a number from 0 to 1");
    case Kind::Fixed:
        return QStringLiteral("a number from 0 to 65535.99998");
    case Kind::Version:
        return QStringLiteral("a version such as 1.2.3, each part from 0 to 15");
    }
    return {};
}

} // namespace simulator
