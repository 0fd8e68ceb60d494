// SPDX-License-Identifier: MIT
#include "bench/replay.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string_view>
#include <type_traits>

namespace bench {

namespace {

using ombrix_sdk::ICamera;
using ombrix_sdk::ISdkConfiguration;
using ombrix_sdk::OmbrixSdk;

template<typename> struct ParameterOf;
template<typename Result, typename Parameter> struct ParameterOf<Result (ICamera::*)(Parameter)> {
    using Type = Parameter;
};

/// An operation without arguments.
template<auto operation> void ask(Objects& objects, const Arguments&)
{
    (objects.camera->*operation)();
}

/// An operation that takes one number.
template<auto operation> void tell(Objects& objects, const Arguments& arguments)
{
    using Number = typename ParameterOf<decltype(operation)>::Type;
    (objects.camera->*operation)(static_cast<Number>(arguments.numbers[0]));
}

/// An operation that fills a record.
template<auto operation> void fill(Objects& objects, const Arguments&)
{
    std::remove_pointer_t<typename ParameterOf<decltype(operation)>::Type> record{};
    (objects.camera->*operation)(&record);
}

struct Row {
    std::string_view operation;
    void (*call)(Objects&, const Arguments&);
};

/// The calls that a connection may make, by the names of the recording SDK.
constexpr Row rows[] = {
    {"OmbrixSdk.get_instance",
     [](Objects& objects, const Arguments&) {
         objects.sdk = OmbrixSdk::get_instance();
     }},
    {"sdk.getConfiguration",
     [](Objects& objects, const Arguments&) {
         objects.configuration = objects.sdk->getConfiguration();
     }},
    {"sdk.createSerialLink",
     [](Objects& objects, const Arguments&) {
         objects.link = objects.sdk->createSerialLink();
     }},
    {"config.getCommunicationType",
     [](Objects& objects, const Arguments&) {
         objects.configuration->getCommunicationType();
     }},
    {"config.isExpertModeEnabled",
     [](Objects& objects, const Arguments&) {
         objects.configuration->isExpertModeEnabled();
     }},
    {"link.openCamera",
     [](Objects& objects, const Arguments& arguments) {
         objects.camera = objects.link->openCamera(arguments.text.c_str());
     }},
    {"camera.connect",
     [](Objects& objects, const Arguments&) {
         objects.camera->connect(&objects.context);
     }},
    {"camera.configureEdgeCorrection",
     [](Objects& objects, const Arguments& arguments) {
         const auto& [type, gain, threshold] = arguments.numbers;
         objects.camera->configureEdgeCorrection(static_cast<std::uint8_t>(type), gain, threshold);
     }},
    {"camera.refresh", &ask<&ICamera::refresh>},
    {"camera.getSerialNumber", &ask<&ICamera::getSerialNumber>},
    {"camera.getSensorSerialNumber", &ask<&ICamera::getSensorSerialNumber>},
    {"camera.getGsk", &ask<&ICamera::getGsk>},
    {"camera.getGfid", &ask<&ICamera::getGfid>},
    {"camera.getGms", &ask<&ICamera::getGms>},
    {"camera.getTint", &ask<&ICamera::getTint>},
    {"camera.getBprCorrection", &ask<&ICamera::getBprCorrection>},
    {"camera.getOffsetCorrection", &ask<&ICamera::getOffsetCorrection>},
    {"camera.getGainCorrection", &ask<&ICamera::getGainCorrection>},
    {"camera.getHorizontalFlip", &ask<&ICamera::getHorizontalFlip>},
    {"camera.getVerticalFlip", &ask<&ICamera::getVerticalFlip>},
    {"camera.getVignettingCorrection", &ask<&ICamera::getVignettingCorrection>},
    {"camera.getColumnCorrection", &ask<&ICamera::getColumnCorrection>},
    {"camera.getTestPattern", &ask<&ICamera::getTestPattern>},
    {"camera.getBt656SdiOutput", &ask<&ICamera::getBt656SdiOutput>},
    {"camera.getParallelOutput", &ask<&ICamera::getParallelOutput>},
    {"camera.getMipiOutput", &ask<&ICamera::getMipiOutput>},
    {"camera.getFrameRate", &ask<&ICamera::getFrameRate>},
    {"camera.getVideoOutput", &ask<&ICamera::getVideoOutput>},
    {"camera.getContrastType", &ask<&ICamera::getContrastType>},
    {"camera.getColorLut", &ask<&ICamera::getColorLut>},
    {"camera.getLutTemporalFilter", &ask<&ICamera::getLutTemporalFilter>},
    {"camera.getGamma", &ask<&ICamera::getGamma>},
    {"camera.getClhe", &ask<&ICamera::getClhe>},
    {"camera.getPolarity", &ask<&ICamera::getPolarity>},
    {"camera.getNucControl", &ask<&ICamera::getNucControl>},
    {"camera.getRoiX1", &tell<&ICamera::getRoiX1>},
    {"camera.getRoiX2", &tell<&ICamera::getRoiX2>},
    {"camera.getRoiY1", &tell<&ICamera::getRoiY1>},
    {"camera.getRoiY2", &tell<&ICamera::getRoiY2>},
    {"camera.setVideoOutput", &tell<&ICamera::setVideoOutput>},
    {"camera.setFrameRate", &tell<&ICamera::setFrameRate>},
    {"camera.configureContrastType", &tell<&ICamera::configureContrastType>},
    {"camera.setColorLut", &tell<&ICamera::setColorLut>},
    {"camera.getVersions", &fill<&ICamera::getVersions>},
    {"camera.getTemperatures", &fill<&ICamera::getTemperatures>},
    {"camera.getOperatingTime", &fill<&ICamera::getOperatingTime>},
    {"camera.getEdgeCorrection", &fill<&ICamera::getEdgeCorrection>},
    {"camera.getZoom", &fill<&ICamera::getZoom>},
    {"camera.getZoomResolution", &fill<&ICamera::getZoomResolution>},
    {"camera.getAhcGainsLimitation", &fill<&ICamera::getAhcGainsLimitation>},
    {"camera.getShutterPosition", &fill<&ICamera::getShutterPosition>},
    {"log",
     [](Objects&, const Arguments& arguments) {
         ombrix_sdk::SDKLogger record(static_cast<ombrix_sdk::severity_level>(arguments.severity));
         record.GetILogger() << arguments.text;
     }},
};

/// Reads what the journal says in words: numbers, flags, a text in quotes.
Arguments argumentsOf(const recording::Entry& entry)
{
    Arguments arguments;
    arguments.severity = entry.object;
    std::string_view rest = entry.arguments;
    if (entry.operation == "log") {
        arguments.text = rest;
        return arguments;
    }
    if (rest.size() >= 2 && rest.front() == '"') {
        arguments.text = rest.substr(1, rest.size() - 2);
        return arguments;
    }
    for (std::uint32_t& number : arguments.numbers) {
        const std::string_view word = rest.substr(0, rest.find(", "));
        if (word == "true") {
            number = 1;
        } else {
            std::from_chars(word.data(), word.data() + word.size(), number);
        }
        rest.remove_prefix(std::min(rest.size(), word.size() + 2));
    }
    return arguments;
}

} // namespace

Replay::Replay(const std::vector<recording::Entry>& journal)
{
    for (const recording::Entry& entry : journal) {
        const auto row = std::find_if(std::begin(rows), std::end(rows), [&](const Row& known) {
            return known.operation == entry.operation;
        });
        if (row == std::end(rows)) {
            std::fprintf(stderr, "replay: %s is missing in its table\n", entry.operation.c_str());
            std::abort();
        }
        steps.push_back({row->call, argumentsOf(entry)});
        callCount += entry.operation != "log" ? 1 : 0;
    }
}

void Replay::run()
{
    for (const Step& step : steps) {
        step.call(objects, step.arguments);
    }
}

} // namespace bench
