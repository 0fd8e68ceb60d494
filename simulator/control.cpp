// SPDX-License-Identifier: MIT
#include "simulator/control.h"

#include "simulator/ini.h"
#include "simulator/pairs.h"
#include "simulator/simulator.h"

#include <QtCore/QStringList>

#include <algorithm>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace ombrix_simulator {
namespace {

using namespace simulator;

const QString nothingChanged = QStringLiteral("nothing is changed");

Answer done(const QStringList& lines = {})
{
    return {true, lines.join(QLatin1Char('\n')).toStdString()};
}

Answer refused(const QStringList& reasons)
{
    return {false, reasons.join(QLatin1Char('\n')).toStdString()};
}

Answer refused(const QString& reason)
{
    return refused(QStringList(reason));
}

QString keysOfACamera()
{
    QStringList keys;
    for (const ParameterFacts& facts : parameterTable()) {
        keys << QLatin1String(facts.field.key);
    }
    return keys.join(QStringLiteral(", "));
}

/// Calls the action with the camera of this name.
template<typename Action> Answer withCamera(const std::string& name, Action action)
{
    Simulator& simulator = Simulator::instance();
    const std::lock_guard entry(simulator.gate());
    const QString text = QString::fromStdString(name);
    if (Device* const device = simulator.deviceNamed(text)) {
        device->passTime();
        return action(*device);
    }
    QStringList known;
    for (const auto& device : simulator.cameras()) {
        known << QStringLiteral("%1 with the serial number %2")
                     .arg(quoted(device->settings().section),
                          formatField(Kind::Word, device->get<double>(Parameter::serialNumber)));
    }
    return refused(QStringLiteral("there is no camera %1; there %2 %3")
                       .arg(quoted(text),
                            known.size() == 1 ? QStringLiteral("is") : QStringLiteral("are"),
                            known.join(QStringLiteral(", "))));
}

QString valueOf(const Device& device, const ParameterFacts& facts)
{
    return formatField(facts.field.kind, device.get<double>(facts.parameter));
}

/// Reads what is to be changed with the fields of the settings file.
std::vector<std::pair<Parameter, double>> readChanges(IniFile& ini, const QString& section)
{
    std::vector<std::pair<Parameter, double>> changes;
    for (const ParameterFacts& facts : parameterTable()) {
        if (const auto value = ini.number(section, facts.field, nothingChanged)) {
            changes.emplace_back(facts.parameter, *value);
        }
    }
    return changes;
}

void refuseTakenNumbers(IniFile& ini, const Device& device,
                        const std::vector<std::pair<Parameter, double>>& changes)
{
    for (const auto& [parameter, value] : changes) {
        for (const auto& other : Simulator::instance().cameras()) {
            if (parameter == Parameter::serialNumber && other.get() != &device &&
                other->get<double>(parameter) == value) {
                ini.addProblem(device.settings().section,
                               QLatin1String(factsOf(parameter).field.key),
                               QStringLiteral("%1 is the number of [%2]; %3")
                                   .arg(formatField(Kind::Word, value), other->settings().section,
                                        nothingChanged));
            }
        }
    }
}

} // namespace

void restart()
{
    Simulator::instance().restart();
}

void cyclePower()
{
    const std::lock_guard entry(Simulator::instance().gate());
    Simulator::instance().cyclePower();
}

Answer get(const std::string& camera, const std::string& key)
{
    return withCamera(camera, [&](const Device& device) {
        QStringList lines;
        for (const ParameterFacts& facts : parameterTable()) {
            if (key == facts.field.key) {
                return done({valueOf(device, facts)});
            }
            lines << QLatin1String(facts.field.key) + QLatin1Char('=') + valueOf(device, facts);
        }
        return key.empty()
                   ? done(lines)
                   : refused(QStringLiteral("unknown key %1; there are %2")
                                 .arg(quoted(QString::fromStdString(key)), keysOfACamera()));
    });
}

Answer set(const std::string& camera, const std::string& values)
{
    return withCamera(camera, [&](Device& device) {
        QStringList lines;
        for (const QString& line : QString::fromStdString(values).split(QLatin1Char('\n'))) {
            lines << line.trimmed();
        }
        lines.removeAll(QString());
        if (const QString reason = reasonAgainstPairs(lines); !reason.isEmpty()) {
            return refused(QStringLiteral("%1; %2").arg(reason, nothingChanged));
        }
        const QString& section = device.settings().section;
        IniFile ini({}, nothingChanged,
                    '[' + section.toUtf8() + "]\n" + QByteArray::fromStdString(values));
        const std::vector<std::pair<Parameter, double>> changes = readChanges(ini, section);
        refuseTakenNumbers(ini, device, changes);
        const QStringList problems = ini.problems();
        if (!problems.isEmpty()) {
            return refused(problems);
        }
        device.impose(changes);
        return done();
    });
}

Answer putFault(const std::string& sections)
{
    IniFile ini({}, nothingChanged, QByteArray::fromStdString(sections));
    const std::lock_guard entry(Simulator::instance().gate());
    const QStringList problems = Simulator::instance().putFaults(ini);
    return problems.isEmpty() ? done() : refused(problems);
}

Answer liftFault(const std::string& section)
{
    const QString name = QString::fromStdString(section);
    const std::lock_guard entry(Simulator::instance().gate());
    if (Simulator::instance().liftFault(name)) {
        return done();
    }
    const QStringList sections = Simulator::instance().faultSections();
    return refused(QStringLiteral("no fault %1 was put; there are %2")
                       .arg(quoted(name), sections.isEmpty()
                                              ? QStringLiteral("none")
                                              : sections.join(QStringLiteral(", "))));
}

std::int64_t calls(const std::string& operation)
{
    const std::optional<Operation> found = operationNamed(QString::fromStdString(operation));
    const std::lock_guard entry(Simulator::instance().gate());
    return found ? Simulator::instance().calls(*found) : -1;
}

std::int64_t clockTime()
{
    const std::lock_guard entry(Simulator::instance().gate());
    return Simulator::instance().clock().now();
}

void advanceClock(std::int64_t milliseconds)
{
    const std::lock_guard entry(Simulator::instance().gate());
    Simulator::instance().clock().advance(milliseconds);
    Simulator::instance().gate().callBack();
}

Answer setClockSpeed(double factor)
{
    if (factor != 0 && !(factor >= Clock::slowest && factor <= Clock::fastest)) {
        return refused(QStringLiteral("%1 is no speed: 0, or %2 to %3")
                           .arg(QString::number(factor), QString::number(Clock::slowest),
                                QString::number(Clock::fastest)));
    }
    const std::lock_guard entry(Simulator::instance().gate());
    Simulator::instance().clock().setSpeed(factor);
    Simulator::instance().gate().callBack();
    return done();
}

Answer pull(const std::string& camera)
{
    return withCamera(camera, [](Device& device) {
        if (device.isPulledOut()) {
            return refused(
                QStringLiteral("[%1] is pulled out already").arg(device.settings().section));
        }
        device.setPulledOut(true);
        return done();
    });
}

Answer plug(const std::string& camera)
{
    return withCamera(camera, [](Device& device) {
        if (!device.isPulledOut()) {
            return refused(
                QStringLiteral("[%1] is plugged in already").arg(device.settings().section));
        }
        device.setPulledOut(false);
        return done();
    });
}

} // namespace ombrix_simulator
