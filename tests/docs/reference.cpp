// SPDX-License-Identifier: MIT
// Writes docs/simulator-reference.md to standard output, from the list of operations and the tables
// of the simulator. What it cannot take from there is said below; an operation of which nothing is
// said ends it with a message.
#include "sdk/ombrix_sdk.h"
#include "simulator/configurationvalues.h"
#include "simulator/operations.h"
#include "simulator/parameters.h"

#include <QtCore/QByteArray>
#include <QtCore/QMap>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace simulator;

/// What an operation of no common kind does, by its name.
const QMap<QByteArray, const char*> deeds = {
    // IOmbrixSdk
    {"initialize", "says in the log that this is a simulator, and what it runs on"},
    {"getConfiguration", "always the same object"},
    {"saveConfiguration",
     "keeps `gskValue`, `gmsValue`, `gfidValue`, `tintValue` and the link's rate in the memory"},
    {"createSerialLink", "a link at the configuration's rate"},
    {"releaseSerialLink", "closes the link's cameras and sets the pointer to null"},
    // ISerialLink
    {"openCamera", "the camera on the port, when it is there at the link's rate; null otherwise"},
    {"closeCamera", "every later call of the camera is refused"},
    // ICamera
    {"connect", "answers 1; 0 for a null pointer"},
    {"getVersions",
     "`firmwareVersion` in bits 0 to 11, `fpgaVersion` in bits 16 to 27, `nineHertz` in bit 28, "
     "`mipi` in bit 29"},
    {"refresh", "nothing"},
    {"setBaudRate",
     "9600, 115200, 230400, 460800 or 921600; answered at the old rate. A permanent one is kept as "
     "`baudRate`, another one ends with the power"},
    {"configureEdgeCorrection",
     "sets `edgeType` 0 to 2, `edgeGain` 0 to 1024, `edgeFirstThreshold` 0 to 255, and "
     "`edgeSecondThreshold` 40 above that"},
    {"getEdgeCorrection",
     "fills the area with `edgeType`, `edgeGain`, `edgeFirstThreshold`, `edgeSecondThreshold` and "
     "answers where it is"},
    {"configureZoom",
     "sets `zoomFactor` 1 to 8, `zoomXCenter` 0 to 640, `zoomYCenter` 0 to 480, `zoomMethod` 0 or "
     "1, all or none"},
    {"configureZoomResolution",
     "sets `zoomXResolution` 10 to 1024 and `zoomYResolution` 10 to 768, pixels, both or none"},
    {"setAhcGainsLimitation",
     "sets `ahcBlackGainLimit` and `ahcWhiteGainLimit`, 0 to 100, both or none"},
    {"readTableData",
     "offset 4096, length 8192, table 9: copies the table region and answers 0; -2 for any other "
     "request, -1 without an answer"},
    {"writeTableData", "offset 4096, length 8192, table 8: stores the table region"},
    {"loadBadPixelList",
     "treats the map file of 480 lines of 640 bytes, which `height` and `width` have to say: one "
     "entry for each bad pixel, the table in `replbp.bin` in the current directory"},
    {"addBadPixels",
     "declares the pixel in the map file; with 0xFFFFFFFF as `x` the whole line `y`, with "
     "0xFFFFFFFF as `y` the whole column `x`"},
    {"removeBadPixels",
     "undeclares the pixel in the map file; 0xFFFFFFFF stands for all of a line or column as in "
     "`addBadPixels`"},
    {"requestNuc",
     "0 or 1, unless a NUC is running: sets `nucControl`; 1 closes the shutter for `nucDuration` "
     "and opens it"},
};

/// The same of the configuration, which has a name in common with the camera.
const QMap<QByteArray, const char*> deedsOfConfiguration = {
    {"getCommunicationType", "answers `communicationType`"},
    {"setBaudRate", "the rate of the next link"},
};

/// The keys of the records, by the names of the values that they are in the list.
const QMap<QByteArray, const char*> records = {
    {"temperatures", "`sensorTemperature`, `fpgaTemperature`, milli-kelvin"},
    {"operatingTime", "`operatingMinutes`, `startups`"},
    {"zoom", "`zoomFactor`, `zoomXCenter`, `zoomYCenter`, `zoomMethod`"},
    {"zoomResolution", "`zoomXResolution`, `zoomYResolution`, pixels"},
    {"ahcGains", "`ahcBlackGainLimit`, `ahcWhiteGainLimit`"},
    {"shutterClosed", "1 while the shutter is closed, 0 otherwise"},
};

/// What takes the place of the least and the most that a command may set.
const QMap<QByteArray, const char*> notes = {
    {"frameRate", ": 9, 25, 30, 50 or 60, Hz; 9 alone in the 9 Hz variant"},
    {"mipiOutput", ": true in the MIPI variant only"},
    {"gamma", ": 32768 to 163840, 16.16 fixed point"},
    {"nucControl", ": 2 for on, 0 for off; read as 1 and 0"},
    {"shutterClosed", ", unless a NUC is running"},
};

QByteArray said(const QMap<QByteArray, const char*>& texts, const QByteArray& name)
{
    if (!texts.contains(name)) {
        std::fprintf(stderr, "nothing is said of %s\n", name.constData());
        std::exit(1);
    }
    return texts.value(name);
}

QByteArray limits(const ParameterFacts& facts)
{
    return QByteArray::number(facts.lowest, 'f', 0) + " to " +
           QByteArray::number(facts.highest, 'f', 0);
}

/// The key, and behind it what a command may set it to.
QByteArray accepted(const QByteArray& key)
{
    const auto& table = parameterTable();
    const auto row = std::find_if(table.begin(), table.end(), [&key](const ParameterFacts& facts) {
        return key == facts.field.key;
    });
    if (row == table.end()) {
        std::fprintf(stderr, "no parameter is %s\n", key.constData());
        std::exit(1);
    }
    const QByteArray text = "sets `" + key + '`';
    if (notes.contains(key)) {
        return text + said(notes, key);
    }
    return row->field.kind == Kind::Switch ? text : text + ": " + limits(*row);
}

/// What the numbers of the regions stand for.
void regions()
{
    std::printf("\nA `region` has one of these numbers. Any other is refused.\n\n"
                "| `region` | Coordinates | On |\n|---|---|---|\n");
    for (std::uint32_t region = 0; region < regionCount; ++region) {
        QByteArray keys;
        for (const auto coordinate :
             {Coordinate::x1, Coordinate::x2, Coordinate::y1, Coordinate::y2}) {
            keys += QByteArray(keys.isEmpty() ? "`" : ", `") +
                    factsOf(regionCoordinate(region, coordinate)).field.key + '`';
        }
        const QByteArray on = region == 0
                                  ? QByteArray("always")
                                  : QByteArray("`") + factsOf(regionSwitch(region)).field.key + '`';
        std::printf("| %u | %s | %s |\n", region, keys.constData(), on.constData());
    }
}

QByteArray read(const QByteArray& key)
{
    return "answers `" + key + '`';
}

/// What a plan can make the operation answer instead.
QByteArray faults(const QByteArray& name)
{
    if (name == "configuration.getCommunicationType") {
        return "any text";
    }
    for (std::size_t number = 0; number < operationCount; ++number) {
        const auto operation = static_cast<Operation>(number);
        if (nameOf(operation).toLatin1() != name) {
            continue;
        }
        if (operation == Operation::loadBadPixelList) {
            return "`missing`, `empty`, `long` or a number of entries";
        }
        const OperationFacts& facts = factsOf(operation);
        QByteArray answers =
            facts.answer ? describeKind(*facts.answer).toUtf8().replace("a whole number from ", "")
                         : QByteArray();
        if (facts.record != nullptr) {
            answers += (answers.isEmpty() ? "`record`" : "; `record`");
        }
        if (operation == Operation::readTableData) {
            answers += "; `table`";
        }
        return answers.isEmpty() ? "none" : answers;
    }
    return "no faults";
}

void heading(const char* interface)
{
    std::printf(
        "\n## %s\n\n| Operation | Result | What it does | Fault's `value` |\n|---|---|---|---|\n",
        interface);
}

void row(const QByteArray& result, const QByteArray& name, const QByteArray& arguments,
         const QByteArray& deed, const QByteArray& fault)
{
    std::printf("| `%s%s` | `%s` | %s | %s |\n", name.constData(), arguments.constData(),
                result.constData(), deed.constData(), fault.constData());
}

void row(const char* result, const char* name, const char* arguments, const QByteArray& deed)
{
    row(result, name, arguments, deed, faults(name));
}

const char* const introduction =
    R"(# Operations of the simulated camera

Every operation by the name that plans of faults and the journal use: what it answers, what the simulated
camera does with it, and what a fault of a [plan](simulator.md#plans-of-faults) can make it answer. Names
like `gsk` are keys of the [settings](simulator.md#camera). A value that a command does not accept is
refused with 0, and nothing changes. An operation that has faults can be delayed, refused, or carried out
and answered otherwise; the last column tells what `value` may be then, and where a plan can give a
`record` or a `table`.

This page is made from the list of operations, by the program `simulator_reference`; a test holds that it
is current.
)";

} // namespace

int main()
{
    std::fputs(introduction, stdout);
    regions();
    heading("IOmbrixSdk");
#define ROOT(Result, name, arguments) row(#Result, #name, #arguments, said(deeds, #name));
#include "sdk/operations.def"
    heading("ISdkConfiguration");
#define SETTING(Type, name, value)                                                                 \
    row(#Type, #name, "()", read(settingTable()[static_cast<std::size_t>(Setting::value)].key),    \
        "no faults");
#define CONFIGURATION(Result, name, arguments)                                                     \
    row(#Result, #name, #arguments, said(deedsOfConfiguration, #name),                             \
        faults("configuration." #name));
#include "sdk/operations.def"
    heading("ISerialLink");
#define LINK(Result, name, arguments) row(#Result, #name, #arguments, said(deeds, #name));
#include "sdk/operations.def"
    heading("ICamera");
#define GET(Type, name, value) row(#Type, #name, "()", read(#value));
#define SET(Type, name, value) row("Flag", #name, "(" #Type " " #value ")", accepted(#value));
#define FILL(Record, name, value)                                                                  \
    row("Flag", #name, "(" #Record "* " #value ")", "fills in " + said(records, #value));
#define GET_ROI(name, coordinate)                                                                  \
    row("std::uint32_t", #name, "(std::uint32_t region)",                                          \
        Coordinate::coordinate == Coordinate::x1                                                   \
            ? "answers the region's x1, pixels; 0 when it is off"                                  \
            : "answers the region's " #coordinate ", pixels, also when it is off");
#define SET_ROI(name, coordinate)                                                                  \
    row("Flag", #name,                                                                             \
        "(std::uint32_t " #coordinate ", std::uint32_t region, bool roi1Inclusive, "               \
        "bool roi0Exclusive, bool roi1Exclusive)",                                                 \
        "sets the region's " #coordinate ": " +                                                    \
            limits(factsOf(regionCoordinate(0, Coordinate::coordinate))) +                         \
            ", pixels; and which regions but the first are on");
#define CAMERA(Result, name, arguments) row(#Result, #name, #arguments, said(deeds, #name));
#include "sdk/operations.def"
    return 0;
}
