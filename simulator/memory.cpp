// SPDX-License-Identifier: MIT
#include "simulator/memory.h"

#include "simulator/badpixels.h"
#include "simulator/files.h"
#include "simulator/ini.h"
#include "simulator/log.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <optional>
#include <vector>

namespace simulator {
namespace {

const QString memorySection = QStringLiteral("memory");
constexpr Field fileFormat{"format", Kind::Word, 1};

/// A kept number: where its text stands and where its value belongs.
struct Entry {
    Field field;
    double value;
};

QByteArray write(const std::vector<Entry>& entries)
{
    QByteArray text = '[' + memorySection.toLatin1() + "]\n";
    const auto append = [&text](const Field& field, double value) {
        text += QByteArray(field.key) + '=' + formatField(field.kind, value).toLatin1() + '\n';
    };
    append(fileFormat, fileFormat.initial);
    for (const Entry& entry : entries) {
        append(entry.field, entry.value);
    }
    return text;
}

/// Reads every entry. A file that lacks one, or holds anything else, is damaged: what is cut off
/// must not pass for a smaller memory.
bool read(const QString& path, std::vector<Entry>& entries, QString* reason)
{
    const QString nothingUsed = QStringLiteral("nothing of the file is used");
    IniFile ini(path, nothingUsed);
    const auto take = [&](const Field& field) {
        const std::optional<double> value = ini.number(memorySection, field, nothingUsed);
        if (!value) {
            ini.addProblem(memorySection, QLatin1String(field.key), QStringLiteral("no value"));
        }
        return value.value_or(field.initial);
    };
    if (take(fileFormat) != fileFormat.initial) {
        ini.addProblem(memorySection, QLatin1String(fileFormat.key), QStringLiteral("not known"));
    }
    for (Entry& entry : entries) {
        entry.value = take(entry.field);
    }
    *reason = ini.problems().value(0);
    return reason->isEmpty();
}

std::vector<Entry> keptEntries(const ParameterValues& values)
{
    std::vector<Entry> entries;
    for (const ParameterFacts& facts : parameterTable()) {
        if (facts.retention == Retention::Kept) {
            entries.push_back({facts.field, values[static_cast<std::size_t>(facts.parameter)]});
        }
    }
    return entries;
}

std::vector<Entry> savedEntries(const ConfigurationValues& values)
{
    constexpr auto baudRate = static_cast<std::size_t>(Setting::baudRate);
    std::vector<Entry> entries = {{settingTable()[baudRate], values.settings[baudRate]}};
    for (std::size_t row = 0; row < memberCount; ++row) {
        if (memberTable()[row].saved) {
            entries.push_back({memberTable()[row].field, double{1} * values.members[row]});
        }
    }
    return entries;
}

} // namespace

void Memory::setFolder(const QString& path)
{
    lock.giveBack();
    folder.clear();
    if (path.isEmpty()) {
        return;
    }
    if (!QDir().mkpath(path)) {
        log.problem(
            QStringLiteral("memory folder %1: it cannot be made; nothing will be kept").arg(path));
    } else if (!lock.take(path)) {
        log.problem(QStringLiteral("memory folder %1: another process uses it; nothing of it is "
                                   "read, and nothing will be kept")
                        .arg(path));
    } else {
        folder = path;
    }
}

void Memory::forgetCamera(std::uint32_t serialNumber)
{
    forget(cameraFile(serialNumber));
    forget(tableFile(serialNumber));
}

void Memory::forgetConfiguration()
{
    forget(configurationFile());
}

bool Memory::loadCamera(std::uint32_t serialNumber, ParameterValues& values, QByteArray& table)
{
    if (folder.isEmpty()) {
        return false;
    }
    QString reason;
    if (QFileInfo::exists(tableFile(serialNumber))) {
        if (const auto content = readFile(tableFile(serialNumber), tableLength, &reason)) {
            table = *content;
        } else {
            reportDamage(tableFile(serialNumber),
                         QStringLiteral("%1: %2").arg(tableFile(serialNumber), reason));
        }
    }
    if (!QFileInfo::exists(cameraFile(serialNumber))) {
        return false;
    }
    std::vector<Entry> entries = keptEntries(values);
    if (!read(cameraFile(serialNumber), entries, &reason)) {
        reportDamage(cameraFile(serialNumber), reason);
        return false;
    }
    auto entry = entries.cbegin();
    for (const ParameterFacts& facts : parameterTable()) {
        if (facts.retention == Retention::Kept) {
            values[static_cast<std::size_t>(facts.parameter)] = (entry++)->value;
        }
    }
    return true;
}

void Memory::saveCamera(std::uint32_t serialNumber, const ParameterValues& values)
{
    if (!folder.isEmpty()) {
        save(cameraFile(serialNumber), write(keptEntries(values)));
    }
}

void Memory::saveTable(std::uint32_t serialNumber, const QByteArray& table)
{
    if (!folder.isEmpty()) {
        save(tableFile(serialNumber), table);
    }
}

void Memory::loadConfiguration(ConfigurationValues& values)
{
    if (folder.isEmpty() || !QFileInfo::exists(configurationFile())) {
        return;
    }
    std::vector<Entry> entries = savedEntries(values);
    QString reason;
    if (!read(configurationFile(), entries, &reason)) {
        reportDamage(configurationFile(), reason);
        return;
    }
    auto entry = entries.cbegin();
    values.settings[static_cast<std::size_t>(Setting::baudRate)] = (entry++)->value;
    for (std::size_t row = 0; row < memberCount; ++row) {
        if (memberTable()[row].saved) {
            values.members[row] = as<std::int32_t>((entry++)->value);
        }
    }
}

void Memory::saveConfiguration(const ConfigurationValues& values)
{
    if (!folder.isEmpty()) {
        save(configurationFile(), write(savedEntries(values)));
    }
}

QString Memory::cameraFile(std::uint32_t serialNumber) const
{
    return QStringLiteral("%1/camera-%2.ini").arg(folder, QString::number(serialNumber));
}

QString Memory::tableFile(std::uint32_t serialNumber) const
{
    return QStringLiteral("%1/camera-%2.table").arg(folder, QString::number(serialNumber));
}

QString Memory::configurationFile() const
{
    return folder + QStringLiteral("/configuration.ini");
}

void Memory::forget(const QString& path)
{
    if (!folder.isEmpty() && QFileInfo::exists(path) && !QFile::remove(path)) {
        log.problem(QStringLiteral("%1: it cannot be deleted").arg(path));
    }
}

void Memory::save(const QString& path, const QByteArray& content)
{
    QString reason;
    if (!writeFile(path, content, &reason)) {
        log.problem(QStringLiteral("%1: it cannot be written: %2").arg(path, reason));
    }
}

void Memory::reportDamage(const QString& path, const QString& reason)
{
    // Where the problem ends the program, the next start finds it again.
    const QString moved = log.isStrict() ? QString() : setAside(path);
    log.problem(QStringLiteral("%1; the damaged file %2")
                    .arg(reason, moved.isEmpty() ? QStringLiteral("is not used")
                                                 : QStringLiteral("is now %1").arg(moved)));
}

} // namespace simulator
