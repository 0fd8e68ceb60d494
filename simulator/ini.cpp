// SPDX-License-Identifier: MIT
#include "simulator/ini.h"

#include <QtCore/QFileInfo>
#include <QtCore/QSettings>

#include <utility>

namespace simulator {
namespace {

QString fullKey(const QString& section, const QString& key)
{
    return section + QLatin1Char('/') + key;
}

} // namespace

IniFile::IniFile(QString filePath) : path(std::move(filePath))
{
    const QFileInfo info(path);
    if (!info.isFile() || !info.isReadable()) {
        found << QStringLiteral("%1: there is no such file, or it cannot be read").arg(path);
        return;
    }
    QSettings settings(path, QSettings::IniFormat);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    settings.setIniCodec("UTF-8"); // as later versions do by themselves
#endif
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys) {
        // A value with commas arrives as a list, any other as a list of one.
        values.insert(key, settings.value(key).toStringList().join(QLatin1Char(',')));
    }
    if (settings.status() != QSettings::NoError) {
        found << QStringLiteral("%1: a line is neither [section] nor key=value").arg(path);
    }
}

QStringList IniFile::sections() const
{
    QStringList names;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        names << value.key().section(QLatin1Char('/'), 0, 0);
    }
    names.removeDuplicates();
    names.sort();
    return names;
}

std::optional<QString> IniFile::text(const QString& section, const QString& key)
{
    const auto value = values.find(fullKey(section, key));
    if (value == values.end()) {
        return std::nullopt;
    }
    QString result = *value;
    values.erase(value);
    return result;
}

std::optional<double> IniFile::number(const QString& section, const Field& field, double fallback)
{
    const QString key = QLatin1String(field.key);
    const std::optional<QString> written = text(section, key);
    if (!written) {
        return std::nullopt;
    }
    const std::optional<double> value = parseField(field.kind, *written);
    if (!value) {
        addProblem(section, key,
                   QStringLiteral("\"%1\" is not %2; %3 is used")
                       .arg(*written, describeKind(field.kind), formatField(field.kind, fallback)));
    }
    return value;
}

void IniFile::addProblem(const QString& section, const QString& key, const QString& reason)
{
    found << QStringLiteral("%1: [%2] %3: %4").arg(path, section, key, reason);
}

QStringList IniFile::problems()
{
    QStringList unknown = values.keys();
    unknown.sort();
    for (const QString& key : unknown) {
        addProblem(key.section(QLatin1Char('/'), 0, 0), key.section(QLatin1Char('/'), 1),
                   QStringLiteral("unknown key"));
    }
    values.clear();
    return found;
}

} // namespace simulator
