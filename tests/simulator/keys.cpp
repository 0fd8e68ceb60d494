// SPDX-License-Identifier: MIT
#include "tests/simulator/keys.h"

#include <QtCore/QMap>

#include <algorithm>

namespace keys {
namespace {

using ombrix_sdk::ICamera;
using ombrix_sdk::ISdkConfiguration;
using scene::Scene;
using Reader = std::function<QString(Scene&)>;

template<typename Number> QString textOf(Number number)
{
    return QString::number(number, 'g', 9);
}
template<> QString textOf(quint32 number)
{
    return QString::number(number);
}
template<> QString textOf(qint32 number)
{
    return QString::number(number);
}
template<> QString textOf(quint8 number)
{
    return QString::number(number);
}

template<typename Number> Reader camera(Number (ICamera::*get)())
{
    return [get](Scene& scene) {
        return textOf((scene.camera().*get)());
    };
}

Reader region(quint32 (ICamera::*get)(quint32), quint32 index)
{
    return [get, index](Scene& scene) {
        return textOf((scene.camera().*get)(index));
    };
}

template<typename Record, typename Field>
Reader record(ombrix_sdk::Flag (ICamera::*get)(Record*), Field Record::*field)
{
    return [get, field](Scene& scene) {
        Record filled{};
        return (scene.camera().*get)(&filled) == 1 ? textOf(filled.*field) : QString();
    };
}

template<typename Field> Reader edge(Field ombrix_sdk::EdgeCorrection::*field)
{
    return [field](Scene& scene) {
        ombrix_sdk::EdgeCorrection area{};
        return textOf(scene.camera().getEdgeCorrection(&area)->*field);
    };
}

Reader versions(quint32 mask)
{
    return [mask](Scene& scene) {
        quint32 word = 0;
        scene.camera().getVersions(&word);
        return QString::number(word & mask, 16);
    };
}

QString shutter(Scene& scene)
{
    quint8 closed = 0;
    return scene.camera().getShutterPosition(&closed) == 1 ? textOf(closed) : QString();
}

/// The rate at which the camera answers.
QString cameraBaudRate(Scene& scene)
{
    for (const qint32 rate : {9600, 115200}) {
        scene.configuration().setBaudRate(rate);
        if (scene.open() != nullptr) {
            return textOf(rate);
        }
    }
    return {};
}

template<typename Number> Reader configuration(Number (ISdkConfiguration::*get)())
{
    return [get](Scene& scene) {
        return textOf((scene.configuration().*get)());
    };
}

Reader member(std::int32_t ISdkConfiguration::*field)
{
    return [field](Scene& scene) {
        return textOf(scene.configuration().*field);
    };
}

/// What the built-in camera has.
double initially(const QByteArray& parameter)
{
    static const QMap<QByteArray, double> values = {
#define PARAMETER(key, kind, initial, lowest, highest, retention) {#key, double{initial}},
#include "simulator/parameters.def"
    };
    return values.value(parameter);
}

/// A number that has no row of its own is tried as 1 or 2, whichever it is not by itself.
void addPlain(QVector<Key>& keys, const char* name, double initial, const Reader& read)
{
    if (std::none_of(keys.cbegin(), keys.cend(),
                     [&](const Key& key) { return qstrcmp(key.name, name) == 0; })) {
        const char* const text = initial == 1 ? "2" : "1";
        keys.append({name, text, text, read});
    }
}

/// The name of a setting's key, and its built-in value.
QPair<const char*, double> keyOf(const QByteArray& setting)
{
    static const QMap<QByteArray, QPair<const char*, double>> keys = {
#define KEY(setting, key, kind, initial) {#setting, {#key, double{initial}}},
#include "simulator/configuration.def"
    };
    return keys.value(setting);
}

} // namespace

QVector<Key> ofCamera()
{
    using C = ICamera;
    using T = ombrix_sdk::Temperatures;
    using O = ombrix_sdk::OperatingTime;
    using Z = ombrix_sdk::Zoom;
    using R = ombrix_sdk::ZoomResolution;
    using A = ombrix_sdk::AhcGainsLimitation;
    using E = ombrix_sdk::EdgeCorrection;
    QVector<Key> keys = {
        {"baudRate", "9600", "9600", cameraBaudRate},
        {"serialNumber", "4294967295", "4294967295", camera(&C::getSerialNumber)},
        {"sensorSerialNumber", "0", "0", camera(&C::getSensorSerialNumber)},
        {"firmwareVersion", "15.0.10", "f0a", versions(0xFFFF)},
        {"fpgaVersion", "1.2.3", "123",
         [](Scene& scene) {
             return versions(0x0FFF0000)(scene).left(3);
         }},
        {"nineHertz", "true", "10000000", versions(0x10000000)},
        {"mipi", "false", "0", versions(0x20000000)},
        {"sensorTemperature", "263000.5", "263000.5", record(&C::getTemperatures, &T::sensor)},
        {"fpgaTemperature", "0", "0", record(&C::getTemperatures, &T::fpga)},
        {"operatingMinutes", "4294967295", "4294967295", record(&C::getOperatingTime, &O::minutes)},
        {"startups", "0", "0", record(&C::getOperatingTime, &O::startups)},
        {"gsk", "4294967295", "4294967295", camera(&C::getGsk)},
        {"gfid", "1", "1", camera(&C::getGfid)},
        {"gms", "2", "2", camera(&C::getGms)},
        {"tint", "3", "3", camera(&C::getTint)},
        {"bprCorrection", "false", "0", camera(&C::getBprCorrection)},
        {"offsetCorrection", "false", "0", camera(&C::getOffsetCorrection)},
        {"gainCorrection", "0", "0", camera(&C::getGainCorrection)},
        {"horizontalFlip", "true", "1", camera(&C::getHorizontalFlip)},
        {"verticalFlip", "2", "2", camera(&C::getVerticalFlip)},
        {"vignettingCorrection", "255", "255", camera(&C::getVignettingCorrection)},
        {"columnCorrection", "FALSE", "0", camera(&C::getColumnCorrection)},
        {"testPattern", "true", "1", camera(&C::getTestPattern)},
        {"bt656SdiOutput", "false", "0", camera(&C::getBt656SdiOutput)},
        {"parallelOutput", "true", "1", camera(&C::getParallelOutput)},
        {"mipiOutput", "true", "1", camera(&C::getMipiOutput)},
        {"frameRate", "42", "42", camera(&C::getFrameRate)},
        {"videoOutput", "200", "200", camera(&C::getVideoOutput)},
        {"edgeType", "9", "9", edge(&E::type)},
        {"edgeGain", "7", "7", edge(&E::gain)},
        {"edgeFirstThreshold", "8", "8", edge(&E::firstThreshold)},
        {"edgeSecondThreshold", "30", "30", edge(&E::secondThreshold)},
        {"zoomFactor", "2.125", "2.125", record(&C::getZoom, &Z::factor)},
        {"zoomXCenter", "-5", "-5", record(&C::getZoom, &Z::xCenter)},
        {"zoomYCenter", "6", "6", record(&C::getZoom, &Z::yCenter)},
        {"zoomMethod", "0", "0", record(&C::getZoom, &Z::method)},
        {"zoomXResolution", "640", "640", record(&C::getZoomResolution, &R::x)},
        {"zoomYResolution", "480", "480", record(&C::getZoomResolution, &R::y)},
        {"contrastType", "1", "1", camera(&C::getContrastType)},
        {"colorLut", "3", "3", camera(&C::getColorLut)},
        {"ahcBlackGainLimit", "101", "101", record(&C::getAhcGainsLimitation, &A::black)},
        {"ahcWhiteGainLimit", "99", "99", record(&C::getAhcGainsLimitation, &A::white)},
        {"lutTemporalFilter", "1", "1", camera(&C::getLutTemporalFilter)},
        {"gamma", "2.2", "144179", camera(&C::getGamma)},
        {"clhe", "0x4E20", "20000", camera(&C::getClhe)},
        {"polarity", "true", "1", camera(&C::getPolarity)},
        {"nucControl", "false", "0", camera(&C::getNucControl)},
        {"shutterClosed", "true", "1", shutter},
        {"roi0IncX1", "11", "11", region(&C::getRoiX1, 0)},
        {"roi0IncX2", "12", "12", region(&C::getRoiX2, 0)},
        {"roi0IncY1", "13", "13", region(&C::getRoiY1, 0)},
        {"roi0IncY2", "14", "14", region(&C::getRoiY2, 0)},
        {"roi0ExcX1", "15\nroi0ExcEnabled=true", "15", region(&C::getRoiX1, 1)},
        {"roi0ExcX2", "16", "16", region(&C::getRoiX2, 1)},
        {"roi0ExcY1", "17", "17", region(&C::getRoiY1, 1)},
        {"roi0ExcY2", "18", "18", region(&C::getRoiY2, 1)},
        {"roi1IncX1", "19", "19", region(&C::getRoiX1, 2)},
        {"roi1IncX2", "20", "20", region(&C::getRoiX2, 2)},
        {"roi1IncY1", "21", "21", region(&C::getRoiY1, 2)},
        {"roi1IncY2", "22", "22", region(&C::getRoiY2, 2)},
        {"roi1ExcX1", "23\nroi1ExcEnabled=true", "23", region(&C::getRoiX1, 3)},
        {"roi1ExcX2", "24", "24", region(&C::getRoiX2, 3)},
        {"roi1ExcY1", "25", "25", region(&C::getRoiY1, 3)},
        {"roi1ExcY2", "26", "26", region(&C::getRoiY2, 3)},
        {"roi0ExcEnabled", "true", "10", region(&C::getRoiX1, 1)},
        {"roi1IncEnabled", "false", "0", region(&C::getRoiX1, 2)},
        {"roi1ExcEnabled", "true", "280", region(&C::getRoiX1, 3)},
    };
#define GET(Type, operation, value)                                                                \
    addPlain(keys, #value, initially(#value), camera(&C::operation));
#include "sdk/operations.def"
    return keys;
}

QVector<Key> ofConfiguration()
{
    using C = ISdkConfiguration;
    QVector<Key> keys = {
        {"baudRate", "-1", "-1", configuration(&C::getDefaultBaudRate)},
        {"expertMode", "false", "0", configuration(&C::isExpertModeEnabled)},
        {"gskValue", "1", "1", member(&C::gskValue)},
        {"gskMin", "2", "2", member(&C::gskMin)},
        {"gskMax", "3", "3", member(&C::gskMax)},
        {"gfidValue", "4", "4", member(&C::gfidValue)},
        {"gfidMin", "5", "5", member(&C::gfidMin)},
        {"gfidMax", "6", "6", member(&C::gfidMax)},
        {"gmsValue", "7", "7", member(&C::gmsValue)},
        {"gmsMin", "8", "8", member(&C::gmsMin)},
        {"gmsMax", "9", "9", member(&C::gmsMax)},
        {"tintValue", "10", "10", member(&C::tintValue)},
        {"tintMin", "-2147483648", "-2147483648", member(&C::tintMin)},
        {"tintMax", "2147483647", "2147483647", member(&C::tintMax)},
        {"defaultRoi0IncX1", "1.5", "1.5", configuration(&C::getDefaultRoi0IncX1)},
        {"defaultRoi0IncY1", "2.5", "2.5", configuration(&C::getDefaultRoi0IncY1)},
        {"defaultRoi0IncX2", "3.5", "3.5", configuration(&C::getDefaultRoi0IncX2)},
        {"defaultRoi0IncY2", "4.5", "4.5", configuration(&C::getDefaultRoi0IncY2)},
        {"defaultContrastType", "1", "1", configuration(&C::getDefaultContrastType)},
        {"defaultColorLut", "2", "2", configuration(&C::getDefaultColorLut)},
        {"defaultPolarity", "3", "3", configuration(&C::getDefaultPolarity)},
        {"defaultZoomFactor", "4.5", "4.5", configuration(&C::getDefaultZoomFactor)},
        {"defaultZoomMethod", "5", "5", configuration(&C::getDefaultZoomMethod)},
        {"defaultZoomXCenter", "6", "6", configuration(&C::getDefaultZoomXCenter)},
        {"defaultZoomYCenter", "7", "7", configuration(&C::getDefaultZoomYCenter)},
        {"defaultZoomXResolution", "8", "8", configuration(&C::getDefaultZoomXResolution)},
        {"defaultZoomYResolution", "9", "9", configuration(&C::getDefaultZoomYResolution)},
        {"defaultHorizontalFlip", "true", "1", configuration(&C::getDefaultHorizontalFlip)},
        {"defaultVerticalFlip", "2", "2", configuration(&C::getDefaultVerticalFlip)},
        {"defaultVignettingCorrection", "false", "0",
         configuration(&C::getDefaultVignettingCorrection)},
        {"defaultColumnCorrection", "false", "0", configuration(&C::getDefaultColumnCorrection)},
        {"defaultFrameRate", "42", "42", configuration(&C::getDefaultFrameRate)},
        {"defaultEdgeCorrection", "10", "10", configuration(&C::getDefaultEdgeCorrection)},
        {"defaultSharpeningGain", "4294967295", "4294967295",
         configuration(&C::getDefaultSharpeningGain)},
        {"defaultSharpeningThreshold", "11", "11",
         configuration(&C::getDefaultSharpeningThreshold)},
        {"defaultVideoOutput", "12", "12", configuration(&C::getDefaultVideoOutput)},
        {"defaultBt656SdiOutput", "false", "0", configuration(&C::getDefaultBt656SdiOutput)},
        {"defaultParallelOutput", "true", "1", configuration(&C::getDefaultParallelOutput)},
        {"defaultMipiOutput", "true", "1", configuration(&C::getDefaultMipiOutput)},
        {"defaultTestPattern", "true", "1", configuration(&C::getDefaultTestPattern)},
        {"defaultRoi0ExcEnable", "true", "1", configuration(&C::getDefaultRoi0ExcEnable)},
        {"defaultRoi0ExcX1", "13", "13", configuration(&C::getDefaultRoi0ExcX1)},
        {"defaultRoi0ExcY1", "14", "14", configuration(&C::getDefaultRoi0ExcY1)},
        {"defaultRoi0ExcX2", "15", "15", configuration(&C::getDefaultRoi0ExcX2)},
        {"defaultRoi0ExcY2", "16", "16", configuration(&C::getDefaultRoi0ExcY2)},
        {"defaultRoi1IncEnable", "true", "1", configuration(&C::getDefaultRoi1IncEnable)},
        {"defaultRoi1IncX1", "17", "17", configuration(&C::getDefaultRoi1IncX1)},
        {"defaultRoi1IncY1", "18", "18", configuration(&C::getDefaultRoi1IncY1)},
        {"defaultRoi1IncX2", "19", "19", configuration(&C::getDefaultRoi1IncX2)},
        {"defaultRoi1IncY2", "20", "20", configuration(&C::getDefaultRoi1IncY2)},
        {"defaultRoi1ExcEnable", "true", "1", configuration(&C::getDefaultRoi1ExcEnable)},
        {"defaultRoi1ExcX1", "21", "21", configuration(&C::getDefaultRoi1ExcX1)},
        {"defaultRoi1ExcY1", "22", "22", configuration(&C::getDefaultRoi1ExcY1)},
        {"defaultRoi1ExcX2", "23", "23", configuration(&C::getDefaultRoi1ExcX2)},
        {"defaultRoi1ExcY2", "24", "24", configuration(&C::getDefaultRoi1ExcY2)},
        {"defaultTemporalFilter", "25", "25", configuration(&C::getDefaultTemporalFilter)},
        {"defaultAhcBlackGainLimit", "26", "26", configuration(&C::getDefaultAhcBlackGainLimit)},
        {"defaultAhcWhiteGainLimit", "27", "27", configuration(&C::getDefaultAhcWhiteGainLimit)},
    };
#define SETTING(Type, operation, value)                                                            \
    addPlain(keys, keyOf(#value).first, keyOf(#value).second, configuration(&C::operation));
#include "sdk/operations.def"
    return keys;
}

QStringList others()
{
    return {QStringLiteral("log"),         QStringLiteral("journal"),
            QStringLiteral("plan"),        QStringLiteral("memory"),
            QStringLiteral("control"),     QStringLiteral("factoryFresh"),
            QStringLiteral("safe"),        QStringLiteral("seed"),
            QStringLiteral("manualClock"), QStringLiteral("warmUp"),
            QStringLiteral("latency"),     QStringLiteral("timeout"),
            QStringLiteral("nucDuration"), QStringLiteral("communicationType"),
            QStringLiteral("ports"),       QStringLiteral("badPixels"),
            QStringLiteral("tableFile")};
}

} // namespace keys
