// SPDX-License-Identifier: MIT
#include "params/parameters.h"

#include "params/conversions.h"
#include "params/framerate.h"
#include "params/group.h"
#include "params/roi.h"
#include "params/shutter.h"
#include "params/switches.h"
#include "params/values.h"

#include <QtCore/QLocale>
#include <QtCore/QStringList>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavrel {

namespace {

using ombrix_sdk::Flag;
using Camera = ombrix_sdk::ICamera;
using Read = std::span<double>;
using Written = std::span<const double>;

constexpr double widest = 4294967295.0;

double asSingle(double value)
{
    return static_cast<double>(static_cast<float>(value));
}

std::uint8_t byteOf(double value)
{
    return lowByte(saturatedInt(value));
}

/// A command and its parameters, on their way into the table.
struct Row {
    std::vector<Parameter> parameters;
    Command command;
};

Row expert(Row row)
{
    row.command.level = Level::Expert;
    return row;
}

/// A command of one parameter.
template<typename Get, typename Set> Row single(Parameter parameter, Get get, Set set)
{
    return {{std::move(parameter)},
            {.read =
                 [get](Camera& camera, Read values) {
                     values[0] = get(camera);
                     return true;
                 },
             .write =
                 [set](Camera& camera, Written values, const RegionSwitches&) {
                     return set(camera, values[0]);
                 }}};
}

/// One that the camera holds as the number that it is.
template<typename Number>
Row number(Parameter parameter, Number (Camera::*get)(), Flag (Camera::*set)(Number))
{
    return single(
        std::move(parameter), [get](Camera& camera) { return (camera.*get)(); },
        [set](Camera& camera, double value) { return send(camera, set, value); });
}

Row onOff(const char* name, const Switch& feature)
{
    return single(
        {.name = name, .choices = {{"off", 0}, {"on", 1}}, .isSwitch = true},
        [get = feature.get](Camera& camera) { return (camera.*get)() != 0 ? 1 : 0; },
        [set = feature.set](Camera& camera, double value) { return set(camera, value != 0); });
}

Row number(const Value& value)
{
    return single({.name = value.word,
                   .minimum = value.minimum,
                   .maximum = value.maximum,
                   .held = value.held},
                  value.get, value.set);
}

Row detectorValue(const char* name, const DetectorValue& value)
{
    return expert(
        number({.name = name, .maximum = widest, .detector = &value}, value.get, value.set));
}

std::vector<Choice> frameRateChoices()
{
    static constexpr const char* names[] = {"9", "25", "30", "50", "60"};
    std::vector<Choice> choices;
    for (int index = 0; frameRateAt(index) != 0; ++index) {
        choices.push_back({names[index], double{1} * frameRateAt(index)});
    }
    return choices;
}

struct RegionRow {
    const char* name;
    const RegionCoordinate* coordinate;
    bool canBeOff;
};

Row regionCoordinate(std::uint32_t region, const RegionRow& row)
{
    // What the fields of the window take: pixels of the picture without its rim.
    constexpr double rim = 5;
    constexpr double right = 635;
    constexpr double lower = 475;
    const RegionCoordinate& coordinate = *row.coordinate;
    const bool isX = &coordinate == &regionX1 || &coordinate == &regionX2;
    Parameter parameter{
        .name = row.name, .unit = "px", .minimum = rim, .maximum = isX ? right : lower};
    if (row.canBeOff) {
        parameter.choices = {{"off", 0}};
    }
    return {{std::move(parameter)},
            {.read =
                 [&coordinate, region](Camera& camera, Read values) {
                     values[0] = (camera.*coordinate.get)(region);
                     return true;
                 },
             .write =
                 [&coordinate, region](Camera& camera, Written values, const RegionSwitches& on) {
                     return (camera.*coordinate.set)(lowWord(values[0]), region, on.roi1Inclusive,
                                                     on.roi0Exclusive, on.roi1Exclusive);
                 }}};
}

Row gainLimits()
{
    constexpr double most = 100;
    return {{{.name = "ahc-black-gain-limit", .maximum = most},
             {.name = "ahc-white-gain-limit", .maximum = most}},
            {.read =
                 [](Camera& camera, Read values) {
                     ombrix_sdk::AhcGainsLimitation limits{};
                     // Only this one byte means that the limits are valid.
                     const bool told = camera.getAhcGainsLimitation(&limits) == 1;
                     values[0] = limits.black;
                     values[1] = limits.white;
                     return told;
                 },
             .write =
                 [](Camera& camera, Written values, const RegionSwitches&) {
                     return camera.setAhcGainsLimitation(byteOf(values[0]), byteOf(values[1]));
                 }}};
}

Row zoomResolution()
{
    constexpr double least = 10;
    return {{{.name = "zoom-x-resolution", .unit = "px", .minimum = least, .maximum = 1024},
             {.name = "zoom-y-resolution", .unit = "px", .minimum = least, .maximum = 768}},
            {.read =
                 [](Camera& camera, Read values) {
                     ombrix_sdk::ZoomResolution resolution{};
                     const bool told = camera.getZoomResolution(&resolution) != 0;
                     values[0] = resolution.x;
                     values[1] = resolution.y;
                     return told;
                 },
             .write =
                 [](Camera& camera, Written values, const RegionSwitches&) {
                     return camera.configureZoomResolution(lowWord(values[0]), lowWord(values[1]));
                 }}};
}

Row zoom()
{
    return {{{.name = "zoom-factor", .minimum = 1, .maximum = 8, .held = &asSingle},
             {.name = "zoom-x-center", .unit = "px", .maximum = 640},
             {.name = "zoom-y-center", .unit = "px", .maximum = 480},
             {.name = "zoom-method", .choices = {{"nearest", 0}, {"bilinear", 1}}}},
            {.read =
                 [](Camera& camera, Read values) {
                     ombrix_sdk::Zoom record{};
                     const bool told = camera.getZoom(&record) != 0;
                     values[0] = static_cast<double>(record.factor);
                     values[1] = record.xCenter;
                     values[2] = record.yCenter;
                     values[3] = record.method;
                     return told;
                 },
             .write =
                 [](Camera& camera, Written values, const RegionSwitches&) {
                     const ombrix_sdk::Zoom record{static_cast<float>(values[0]),
                                                   saturatedInt(values[1]), saturatedInt(values[2]),
                                                   byteOf(values[3])};
                     return camera.configureZoom(&record);
                 }}};
}

Row edgeCorrection()
{
    return {{{.name = "edge-correction",
              .choices = {{"none", 0}, {"sharpening", 1}, {"contouring", 2}}},
             {.name = "edge-gain", .maximum = 1024},
             {.name = "edge-threshold", .maximum = 255}},
            {.read =
                 [](Camera& camera, Read values) {
                     ombrix_sdk::EdgeCorrection area{};
                     const ombrix_sdk::EdgeCorrection* const record =
                         camera.getEdgeCorrection(&area);
                     const ombrix_sdk::EdgeCorrection edge = record != nullptr ? *record : area;
                     values[0] = edge.type;
                     values[1] = edge.gain;
                     values[2] = edge.firstThreshold;
                     return true;
                 },
             .write =
                 [](Camera& camera, Written values, const RegionSwitches&) {
                     return camera.configureEdgeCorrection(byteOf(values[0]), lowWord(values[1]),
                                                           lowWord(values[2]));
                 }}};
}

Row shutter()
{
    return {
        {{.name = "shutter", .choices = {{"open", 0}, {"closed", 1}}, .keeping = Keeping::Never}},
        {.read =
             [](Camera& camera, Read values) {
                 const ShutterPosition position = readShutter(camera);
                 values[0] = position.closed ? 1 : 0;
                 return position.result != 0;
             },
         .write =
             [](Camera& camera, Written values, const RegionSwitches&) {
                 return camera.setShutterPosition(values[0] != 0);
             }}};
}

Row baudRate(const char* name, bool permanent)
{
    return expert({{{.name = name,
                     .unit = "baud",
                     .choices = {{"9600", 9600},
                                 {"115200", 115200},
                                 {"230400", 230400},
                                 {"460800", 460800},
                                 {"921600", 921600}},
                     .keeping = Keeping::OnlyByHand}},
                   {.write = [permanent](Camera& camera, Written values, const RegionSwitches&) {
                       return camera.setBaudRate(lowWord(values[0]), permanent);
                   }}});
}

/// The switches and values of one group.
void addGroup(std::vector<Row>& table, Group wanted)
{
    const auto add = [&](Group group, Row row) {
        if (group == wanted) {
            table.push_back(group == Group::Expert ? expert(std::move(row)) : std::move(row));
        }
    };
#define SWITCH(group, name, word, ...) add(Group::group, onOff(word, feature::name));
#include "params/switches.def"
#define VALUE(group, name, ...) add(Group::group, number(value::name));
#include "params/values.def"
}

std::vector<Row> rows()
{
    // clang-format off
    std::vector<Row> table;
    const auto add = [&](Row row) { table.push_back(std::move(row)); };
    add(number({.name = "frame-rate", .unit = "Hz", .choices = frameRateChoices()},
               &Camera::getFrameRate, &Camera::setFrameRate));
    addGroup(table, Group::ImageProcessing);
    add(number({.name = "video-output",
                .choices = {{"raw", 0}, {"nuc", 1}, {"column-correction", 2}, {"vignetting-correction", 3},
                            {"edge-enhancement", 4}, {"lut-correction", 5}, {"reserved", 6}, {"zoom", 7},
                            {"bt656", 8}}},
               &Camera::getVideoOutput, &Camera::setVideoOutput));
    addGroup(table, Group::Lut);
    const RegionRow regionRows[] = {
        {"roi0-inclusive-x1", &regionX1, false}, {"roi0-inclusive-x2", &regionX2, false},
        {"roi0-inclusive-y1", &regionY1, false}, {"roi0-inclusive-y2", &regionY2, false},
        {"roi0-exclusive-x1", &regionX1, true},  {"roi0-exclusive-x2", &regionX2, false},
        {"roi0-exclusive-y1", &regionY1, false}, {"roi0-exclusive-y2", &regionY2, false},
        {"roi1-inclusive-x1", &regionX1, true},  {"roi1-inclusive-x2", &regionX2, false},
        {"roi1-inclusive-y1", &regionY1, false}, {"roi1-inclusive-y2", &regionY2, false},
        {"roi1-exclusive-x1", &regionX1, true},  {"roi1-exclusive-x2", &regionX2, false},
        {"roi1-exclusive-y1", &regionY1, false}, {"roi1-exclusive-y2", &regionY2, false},
    };
    for (std::uint32_t index = 0; const RegionRow& row : regionRows) {
        add(regionCoordinate(index++ / 4, row));
    }
    add(number({.name = "contrast-type", .choices = {{"clhe-roi", 0}, {"clahe-local", 1}}},
               &Camera::getContrastType, &Camera::configureContrastType));
    add(number({.name = "color-lut",
                .choices = {{"greyscale", 0}, {"iron", 1}, {"hot", 2}, {"rainbow", 3}, {"ncar", 4},
                            {"cubehelix", 5}, {"coolwarm", 6}, {"greyscale-ycbcr", 7}}},
               &Camera::getColorLut, &Camera::setColorLut));
    addGroup(table, Group::Contrast);
    addGroup(table, Group::Filter);
    add(gainLimits());
    add(zoomResolution());
    add(zoom());
    addGroup(table, Group::Zoom);
    add(edgeCorrection());
    add(shutter());
    add(detectorValue("gsk", detector::gsk));
    add(detectorValue("gfid", detector::gfid));
    add(detectorValue("tint", detector::tint));
    add(detectorValue("gms", detector::gms));
    addGroup(table, Group::Expert);
    add(baudRate("camera-baud-rate", false));
    add(baudRate("permanent-camera-baud-rate", true));
    // clang-format on
    return table;
}

struct Table {
    std::vector<Parameter> parameters;
    std::vector<Command> commands;
};

const Table& table()
{
    static const Table built = [] {
        Table result;
        for (Row& row : rows()) {
            row.command.first = result.parameters.size();
            row.command.count = row.parameters.size();
            for (Parameter& parameter : row.parameters) {
                parameter.level = row.command.level;
                parameter.command = result.commands.size();
                result.parameters.push_back(std::move(parameter));
            }
            result.commands.push_back(std::move(row.command));
        }
        return result;
    }();
    return built;
}

std::size_t placeOf(const char* name)
{
    return parameterNamed(QLatin1String(name)).value();
}

/// Shortest decimal text for which the test holds.
template<typename Test> QString shortest(double value, Test isIt)
{
    constexpr int mostDigits = 17;
    QString text;
    for (int digits = 1; digits <= mostDigits; ++digits) {
        text = QString::number(value, 'g', digits);
        // No exponents: people read these.
        if (isIt(text.toDouble())) {
            break;
        }
    }
    return text.contains(QLatin1Char('e')) ? QString::number(text.toDouble(), 'f', 0) : text;
}

double heldBy(const Parameter& parameter, double value)
{
    return parameter.held != nullptr ? parameter.held(value) : value;
}

QString rangeText(const Parameter& parameter, const Limits& limits)
{
    const QString unit =
        QLatin1String(*parameter.unit != '\0' ? " " : "") + QLatin1String(parameter.unit);
    QStringList parts;
    if (parameter.isNumber()) {
        const auto number = [](double value) {
            return QString::number(value, 'f', QLocale::FloatingPointShortest);
        };
        parts.append(number(limits.minimum) + QLatin1String(" to ") + number(limits.maximum) +
                     unit);
    }
    for (const Choice& choice : parameter.choices) {
        parts.append(QLatin1String(choice.name));
    }
    const QString last = parts.takeLast() + (parameter.isNumber() ? QString() : unit);
    return parts.isEmpty() ? last : parts.join(QLatin1String(", ")) + QLatin1String(" or ") + last;
}

} // namespace

const std::vector<Parameter>& parameters()
{
    return table().parameters;
}

const std::vector<Command>& commands()
{
    return table().commands;
}

std::optional<std::size_t> parameterNamed(const QString& name)
{
    const std::vector<Parameter>& all = parameters();
    const auto found = std::find_if(all.begin(), all.end(), [&](const Parameter& parameter) {
        return name == QLatin1String(parameter.name);
    });
    if (found == all.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - all.begin());
}

std::size_t frameRatePlace()
{
    static const std::size_t place = placeOf("frame-rate");
    return place;
}

std::size_t testPatternPlace()
{
    static const std::size_t place = placeOf("test-pattern");
    return place;
}

std::size_t regionPlace(std::size_t region, std::size_t coordinate)
{
    static const std::size_t first = placeOf("roi0-inclusive-x1");
    return first + region * 4 + coordinate;
}

InPair inPair(std::size_t place)
{
    if (place < regionPlace(0, 0) || place > regionPlace(3, 3)) {
        return InPair::No;
    }
    return (place - regionPlace(0, 0)) % 2 == 0 ? InPair::Low : InPair::High;
}

std::size_t partner(std::size_t place)
{
    return inPair(place) == InPair::Low ? place + 1 : place - 1;
}

RegionSwitches regionSwitches(const Values& values)
{
    const auto isOn = [&](std::size_t region) {
        return isRegionOn(lowWord(values[regionPlace(region, 0)].value_or(0)));
    };
    return {.roi1Inclusive = isOn(2), .roi0Exclusive = isOn(1), .roi1Exclusive = isOn(3)};
}

Limits limitsOf(const Parameter& parameter, const ombrix_sdk::ISdkConfiguration& configuration)
{
    const DetectorValue* const detector = parameter.detector;
    if (detector == nullptr || !detector->hasLimits) {
        return {parameter.minimum, parameter.maximum};
    }
    // The camera's number has no sign.
    return {std::max(0.0, double{1} * configuration.*detector->minimum),
            double{1} * configuration.*detector->maximum};
}

QString textOf(const Parameter& parameter, double value)
{
    for (const Choice& choice : parameter.choices) {
        if (choice.value == value) {
            return QLatin1String(choice.name);
        }
    }
    return shortest(value, [&](double read) { return heldBy(parameter, read) == value; });
}

QString textWithUnit(const Parameter& parameter, double value)
{
    QString text = textOf(parameter, value);
    bool isNumber = false;
    (void)text.toDouble(&isNumber);
    if (isNumber && *parameter.unit != '\0') {
        text += QLatin1Char(' ') + QLatin1String(parameter.unit);
    }
    return text;
}

Understood valueOf(const Parameter& parameter, const QString& text,
                   const ombrix_sdk::ISdkConfiguration& configuration)
{
    for (const Choice& choice : parameter.choices) {
        if (text == QLatin1String(choice.name)) {
            return {choice.value, {}};
        }
    }
    const QString range = rangeOf(parameter, configuration);
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    const bool isWhole = isNumber && number == std::floor(number);
    if (!parameter.isNumber()) {
        return {std::nullopt, QStringLiteral("\"%1\" is not %2").arg(text, range)};
    }
    if (!isNumber || (parameter.held == nullptr && !isWhole)) {
        return {std::nullopt, QStringLiteral("\"%1\" is not %2").arg(text, range)};
    }
    const Limits limits = limitsOf(parameter, configuration);
    if (!(number >= limits.minimum && number <= limits.maximum)) {
        return {std::nullopt, QStringLiteral("%1 is out of range (%2)").arg(text, range)};
    }
    return {heldBy(parameter, number), {}};
}

QString rangeOf(const Parameter& parameter, const ombrix_sdk::ISdkConfiguration& configuration)
{
    return rangeText(parameter, limitsOf(parameter, configuration));
}

QString rangeOf(const Parameter& parameter)
{
    return rangeText(parameter, {parameter.minimum, parameter.maximum});
}

} // namespace tavrel
