// SPDX-License-Identifier: MIT
#include "simulator/settings.h"

#include "simulator/badpixels.h"
#include "simulator/files.h"
#include "simulator/ini.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QRegularExpression>

#include <optional>
#include <utility>

namespace simulator {
namespace {

const QString simulatorSection = QStringLiteral("simulator");
const QString configurationSection = QStringLiteral("configuration");
const QString cameraSection = QStringLiteral("camera"); ///< how the section of a camera begins
const QString portsKey = QStringLiteral("ports");

constexpr const char* settingsVariable = "TAVREL_SIMULATOR_SETTINGS";
constexpr const char* freshVariable = "TAVREL_SIMULATOR_FACTORY_FRESH";
constexpr const char* safeVariable = "TAVREL_SIMULATOR_SAFE";
constexpr const char* strictVariable = "TAVREL_SIMULATOR_STRICT";

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
    {"control", "TAVREL_SIMULATOR_CONTROL", &Settings::controlFile},
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
    const QString named = qEnvironmentVariable(settingsVariable);
    if (!named.isEmpty()) {
        return QFileInfo(named).absoluteFilePath();
    }
    const QFileInfo here(QStringLiteral("simulator.ini"));
    return here.exists() || here.isSymLink() ? here.absoluteFilePath() : QString();
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
    // What cannot be understood makes it safe.
    settings.safe = ini.text(simulatorSection, QStringLiteral("safe")) &&
                    ini.numberOr(simulatorSection, {"safe", Kind::Switch, 0}, 1) != 0;
    Behaviour& behaviour = settings.behaviour;
    behaviour.seed = as<std::uint64_t>(number("seed", Kind::Word, 1));
    behaviour.manualClock = number("manualClock", Kind::Switch, 0) != 0;
    behaviour.warmUp = number("warmUp", Kind::Switch, 0) != 0;
    behaviour.latency = number("latency", Kind::Switch, 0) != 0;
    behaviour.timeout = as<qint64>(number("timeout", Kind::Word, 0));
    behaviour.nucDuration = as<qint64>(number("nucDuration", Kind::Word, 0));
}

/// A switch among the variables; otherwise: what counts when it cannot be understood.
bool switchOf(const char* variable, bool initial, bool otherwise, QStringList& problems)
{
    const QString text = qEnvironmentVariable(variable);
    if (text.isEmpty()) {
        return initial;
    }
    const std::optional<double> value = parseField(Kind::Switch, text);
    if (!value) {
        problems << QStringLiteral("environment: %1: %2 is not %3; %4 is used")
                        .arg(QLatin1String(variable), quoted(text), describeKind(Kind::Switch),
                             formatField(Kind::Switch, otherwise ? 1 : 0));
    }
    return value ? *value != 0 : otherwise;
}

void readEnvironment(Settings& settings)
{
    QStringList known = {QLatin1String(settingsVariable), QLatin1String(freshVariable),
                         QLatin1String(safeVariable), QLatin1String(strictVariable)};
    for (const PathFacts& facts : paths) {
        known << QLatin1String(facts.variable);
        const QString path = qEnvironmentVariable(facts.variable);
        if (!path.isEmpty()) {
            settings.*facts.path = QFileInfo(path).absoluteFilePath();
        }
    }
    settings.factoryFresh =
        switchOf(freshVariable, settings.factoryFresh, settings.factoryFresh, settings.problems);
    settings.safe = switchOf(safeVariable, settings.safe, true, settings.problems);
    settings.strict = switchOf(strictVariable, false, true, settings.problems);
    known.sort();
    QStringList names = QProcessEnvironment::systemEnvironment().keys();
    names.sort();
    for (const QString& name : std::as_const(names)) {
        if (name.startsWith(QLatin1String("TAVREL_SIMULATOR_")) && !known.contains(name)) {
            settings.problems << QStringLiteral("environment: %1: unknown variable; there are %2")
                                     .arg(name, known.join(QStringLiteral(", ")));
        }
    }
}

/// Limits the wrong way round are told, and the built-in ones used.
void checkLimits(IniFile& ini, ConfigurationValues& values)
{
    const ConfigurationValues builtIn;
    // A maximum follows its minimum in the table.
    for (std::size_t row = 0; row + 1 < memberCount; ++row) {
        const QString lowest = QLatin1String(memberTable()[row].field.key);
        std::int32_t& minimum = values.members[row];
        std::int32_t& maximum = values.members[row + 1];
        if (!lowest.endsWith(QLatin1String("Min")) || minimum <= maximum) {
            continue;
        }
        const QString highest = QLatin1String(memberTable()[row + 1].field.key);
        const QString reason =
            QStringLiteral("%1=%2 is above %3=%4; %5 and %6 are used")
                .arg(lowest, QString::number(minimum), highest, QString::number(maximum),
                     QString::number(builtIn.members[row]),
                     QString::number(builtIn.members[row + 1]));
        // Told in the lines that say so.
        for (const QString& key : {lowest, highest}) {
            if (ini.text(configurationSection, key)) {
                ini.addProblem(configurationSection, key, reason);
            }
        }
        minimum = builtIn.members[row];
        maximum = builtIn.members[row + 1];
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
    checkLimits(ini, values);
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
            *reason =
                QStringLiteral("%1 is no pixel x:y of %2 x %3")
                    .arg(quoted(item), QString::number(sensorWidth), QString::number(sensorHeight));
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
        camera.tableFile = resolve(file, *path);
        if (const auto content = readFile(camera.tableFile, tableLength, &reason)) {
            camera.table = *content;
        } else {
            ini.addProblem(
                camera.section, fileKey,
                QStringLiteral("%1 is no table region: %2; the factory's bad pixels are used")
                    .arg(quoted(*path), reason));
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
    if (const auto ports = ini.text(section, portsKey)) {
        camera.ports = splitList(*ports);
        if (camera.ports.isEmpty()) {
            ini.addProblem(
                section, portsKey,
                QStringLiteral("%1 names no port; the camera is on none").arg(quoted(*ports)));
        }
    }
    readTable(ini, file, camera);
    return camera;
}

/// Leaves a port to the camera that names it first.
void takePorts(IniFile& ini, CameraSettings& camera, QHash<QString, QString>& owners)
{
    QStringList free;
    for (const QString& port : std::as_const(camera.ports)) {
        const QString owner = owners.value(port, camera.section);
        if (owner == camera.section) {
            owners.insert(port, owner);
            free << port;
        } else {
            ini.addProblem(camera.section, portsKey,
                           QStringLiteral("%1 is the port of [%2]; this camera is not on it")
                               .arg(quoted(port), owner));
        }
    }
    camera.ports = free;
}

void readCameras(IniFile& ini, Settings& settings)
{
    std::vector<CameraSettings> cameras;
    QHash<qint64, QString> serials;
    QHash<QString, QString> ports;
    const QStringList sections = ini.sections();
    for (const QString& section : sections) {
        if (!section.startsWith(cameraSection)) {
            continue;
        }
        const Field& serialField = factsOf(Parameter::serialNumber).field;
        if (const QString owner = serials.value(static_cast<qint64>(serialField.initial));
            !owner.isEmpty()) {
            // Without a number of its own it would get one that is taken.
            ini.number(section, serialField,
                       QStringLiteral("%1 is the number of [%2]; this camera is left out")
                           .arg(formatField(serialField.kind, serialField.initial), owner));
        }
        CameraSettings camera = readCamera(ini, settings.file, section);
        const auto serial =
            static_cast<qint64>(camera.values[static_cast<std::size_t>(Parameter::serialNumber)]);
        if (serials.contains(serial)) {
            ini.addProblem(section, QLatin1String(serialField.key),
                           QStringLiteral("%1 is the number of [%2]; this camera is left out")
                               .arg(QString::number(serial), serials.value(serial)));
            continue;
        }
        serials.insert(serial, section);
        takePorts(ini, camera, ports);
        cameras.push_back(std::move(camera));
    }
    if (!cameras.empty()) {
        settings.cameras = std::move(cameras);
    }
}

void rejectOtherSections(IniFile& ini)
{
    const QStringList sections = ini.sections();
    for (const QString& section : sections) {
        if (section != simulatorSection && section != configurationSection &&
            !section.startsWith(cameraSection)) {
            ini.rejectSection(section, QStringLiteral("unknown section; there are [simulator], "
                                                      "[configuration] and [camera...]"));
        }
    }
}

} // namespace

CameraSettings::CameraSettings()
    : section(cameraSection), ports(everyPort()), values(initialParameters()),
      table(factoryTable(values))
{}

Settings::Settings() : cameras(1) {}

void Settings::read(IniFile& ini)
{
    readSimulator(ini, *this);
    readConfiguration(ini, configuration);
    readCameras(ini, *this);
    rejectOtherSections(ini);
    problems = ini.problems();
}

Settings Settings::load()
{
    Settings settings;
    settings.file = findFile();
    if (!settings.file.isEmpty()) {
        IniFile ini(settings.file, QStringLiteral("the line is not used"));
        settings.read(ini);
    }
    readEnvironment(settings);
    return settings;
}

} // namespace simulator
