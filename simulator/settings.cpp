// SPDX-License-Identifier: MIT
#include "simulator/settings.h"

#include "simulator/badpixels.h"
#include "simulator/files.h"
#include "simulator/ini.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

#include <optional>

namespace simulator {
namespace {

const QString simulatorSection = QStringLiteral("simulator");
const QString configurationSection = QStringLiteral("configuration");
const QString cameraSection = QStringLiteral("camera"); ///< how the section of a camera begins

/// A path of the [simulator] section and the environment variable that goes before it.
struct PathFacts {
    const char* key;
    const char* variable;
    QString Settings::*path;
};

constexpr PathFacts paths[] = {
    {"log", "TAVREL_SIMULATOR_LOG", &Settings::logFile},
    {"journal", "TAVREL_SIMULATOR_JOURNAL", &Settings::journalFile},
    {"plan", "TAVREL_SIMULATOR_PLAN", &Settings::planFile},
    {"memory", "TAVREL_SIMULATOR_MEMORY", &Settings::memoryFolder},
};

QByteArray tableOf(const BadPixelMap& map)
{
    return fillRegion(encodeTable(treat(map)));
}

QByteArray factoryTable(const ParameterValues& values)
{
    const double serial = values[static_cast<std::size_t>(Parameter::serialNumber)];
    return tableOf(factoryBadPixels(as<std::uint32_t>(serial)));
}

QString findFile()
{
    const QString named = qEnvironmentVariable("TAVREL_SIMULATOR_SETTINGS");
    if (!named.isEmpty()) {
        return QFileInfo(named).absoluteFilePath();
    }
    const QFileInfo here(QStringLiteral("simulator.ini"));
    return here.exists() ? here.absoluteFilePath() : QString();
}

/// A path in the settings file counts from the file's own folder.
QString resolve(const QString& file, const QString& path)
{
    return path.isEmpty() ? path : QFileInfo(QFileInfo(file).dir(), path).absoluteFilePath();
}

void readSimulator(IniFile& ini, Settings& settings)
{
    const auto number = [&ini](const char* key, Kind kind, double initial) {
        return ini.numberOr(simulatorSection, {key, kind, initial}, initial);
    };
    for (const PathFacts& facts : paths) {
        settings.*facts.path =
            resolve(settings.file,
                    ini.text(simulatorSection, QLatin1String(facts.key)).value_or(QString()));
    }
    settings.factoryFresh = number("factoryFresh", Kind::Switch, 0) != 0;
    Behaviour& behaviour = settings.behaviour;
    behaviour.seed = as<std::uint64_t>(number("seed", Kind::Word, 1));
    behaviour.manualClock = number("manualClock", Kind::Switch, 0) != 0;
    behaviour.warmUp = number("warmUp", Kind::Switch, 0) != 0;
    behaviour.latency = number("latency", Kind::Switch, 0) != 0;
    behaviour.timeout = as<qint64>(number("timeout", Kind::Word, 0));
    behaviour.nucDuration = as<qint64>(number("nucDuration", Kind::Word, 0));
}

void readEnvironment(Settings& settings)
{
    for (const PathFacts& facts : paths) {
        const QString path = qEnvironmentVariable(facts.variable);
        if (!path.isEmpty()) {
            settings.*facts.path = QFileInfo(path).absoluteFilePath();
        }
    }
    constexpr const char* variable = "TAVREL_SIMULATOR_FACTORY_FRESH";
    const QString fresh = qEnvironmentVariable(variable);
    if (fresh.isEmpty()) {
        return;
    }
    if (const std::optional<double> value = parseField(Kind::Switch, fresh)) {
        settings.factoryFresh = *value != 0;
    } else {
        settings.problems << QStringLiteral("environment: %1: \"%2\" is not %3; %4 is used")
                                 .arg(QLatin1String(variable), fresh, describeKind(Kind::Switch),
                                      formatField(Kind::Switch, settings.factoryFresh ? 1 : 0));
    }
}

void readConfiguration(IniFile& ini, ConfigurationValues& values)
{
    if (const auto type = ini.text(configurationSection, QStringLiteral("communicationType"))) {
        values.communicationType = type->toLocal8Bit();
    }
    for (std::size_t row = 0; row < settingCount; ++row) {
        values.settings[row] =
            ini.numberOr(configurationSection, settingTable()[row], values.settings[row]);
    }
    for (std::size_t row = 0; row < memberCount; ++row) {
        values.members[row] = as<std::int32_t>(
            ini.numberOr(configurationSection, memberTable()[row].field, values.members[row]));
    }
}

QStringList splitList(const QString& text)
{
    static const QRegularExpression separators(QStringLiteral("[,\\s]+"));
    return text.split(separators, Qt::SkipEmptyParts);
}

/// The pixels of a list such as "12:34 600:0", or nothing and the reason.
std::optional<BadPixelMap> parseBadPixels(const QString& text, QString* reason)
{
    BadPixelMap map;
    for (const QString& item : splitList(text)) {
        const QStringList parts = item.split(QLatin1Char(':'));
        bool xIsNumber = false;
        bool yIsNumber = false;
        const unsigned x = parts.value(0).toUInt(&xIsNumber);
        const unsigned y = parts.value(1).toUInt(&yIsNumber);
        if (parts.size() != 2 || !xIsNumber || !yIsNumber || x >= sensorWidth ||
            y >= sensorHeight) {
            *reason = QStringLiteral("\"%1\" is no pixel x:y of %2 x %3")
                          .arg(item)
                          .arg(sensorWidth)
                          .arg(sensorHeight);
            return std::nullopt;
        }
        map.setBad(static_cast<int>(y * sensorWidth + x), true);
    }
    if (map.count() > badPixelLimit) {
        *reason = QStringLiteral("%1 bad pixels, and %2 are the most")
                      .arg(map.count())
                      .arg(badPixelLimit);
        return std::nullopt;
    }
    return map;
}

void readTable(IniFile& ini, const QString& file, CameraSettings& camera)
{
    const QString pixelsKey = QStringLiteral("badPixels");
    const QString fileKey = QStringLiteral("tableFile");
    camera.table = factoryTable(camera.values);
    QString reason;
    if (const auto list = ini.text(camera.section, pixelsKey)) {
        if (const std::optional<BadPixelMap> map = parseBadPixels(*list, &reason)) {
            camera.table = tableOf(*map);
        } else {
            ini.addProblem(camera.section, pixelsKey,
                           reason + QStringLiteral("; the factory's bad pixels are used"));
        }
    }
    if (const auto path = ini.text(camera.section, fileKey)) {
        if (const auto content = readFile(resolve(file, *path), tableLength, &reason)) {
            camera.table = *content;
        } else {
            ini.addProblem(
                camera.section, fileKey,
                QStringLiteral("\"%1\" is no table region: %2; the factory's bad pixels are used")
                    .arg(*path, reason));
        }
    }
}

CameraSettings readCamera(IniFile& ini, const QString& file, const QString& section)
{
    CameraSettings camera;
    camera.section = section;
    for (const ParameterFacts& facts : parameterTable()) {
        double& value = camera.values[static_cast<std::size_t>(facts.parameter)];
        value = ini.numberOr(section, facts.field, value);
    }
    if (const auto ports = ini.text(section, QStringLiteral("ports"))) {
        camera.ports = splitList(*ports);
    }
    readTable(ini, file, camera);
    return camera;
}

void readCameras(IniFile& ini, Settings& settings)
{
    std::vector<CameraSettings> cameras;
    QSet<qint64> serials;
    const QStringList sections =
        ini.sections().filter(QRegularExpression(QLatin1Char('^') + cameraSection));
    for (const QString& section : sections) {
        CameraSettings camera = readCamera(ini, settings.file, section);
        const auto serial =
            static_cast<qint64>(camera.values[static_cast<std::size_t>(Parameter::serialNumber)]);
        if (serials.contains(serial)) {
            ini.addProblem(section, QLatin1String(factsOf(Parameter::serialNumber).field.key),
                           QStringLiteral("another camera has the number %1; this one is left out")
                               .arg(serial));
            continue;
        }
        serials.insert(serial);
        cameras.push_back(std::move(camera));
    }
    if (!cameras.empty()) {
        settings.cameras = std::move(cameras);
    }
}

} // namespace

CameraSettings::CameraSettings()
    : section(cameraSection), ports(everyPort()), values(initialParameters()),
      table(factoryTable(values))
{}

Settings Settings::load()
{
    Settings settings;
    settings.cameras.emplace_back();
    settings.file = findFile();
    if (!settings.file.isEmpty()) {
        IniFile ini(settings.file);
        readSimulator(ini, settings);
        readConfiguration(ini, settings.configuration);
        readCameras(ini, settings);
        settings.problems = ini.problems();
    }
    readEnvironment(settings);
    return settings;
}

} // namespace simulator
