// SPDX-License-Identifier: MIT
#include "simulator/ini.h"

#include <QtCore/QFile>

#include <utility>

namespace simulator {
namespace {

QString fullKey(const QString& section, const QString& key)
{
    return section + QLatin1Char('/') + key;
}

} // namespace

// Read here and not by QSettings, which holds a file of the same length, written again within one
// tick of the file system's clock, for the one that it read before.
IniFile::IniFile(QString filePath) : path(std::move(filePath))
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        found << QStringLiteral("%1: there is no such file, or it cannot be read").arg(path);
        return;
    }
    const QByteArray content = file.readAll();
    // With its length, or the text ends at the first zero byte.
    const QStringList lines =
        QString::fromUtf8(content.constData(), content.size()).split(QLatin1Char('\n'));
    QString section;
    for (int number = 1; number <= lines.size(); ++number) {
        readLine(lines[number - 1].trimmed(), number, section);
    }
}

void IniFile::readLine(const QString& line, int number, QString& section)
{
    const auto equals = line.indexOf(QLatin1Char('='));
    if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
        section = line.mid(1, line.size() - 2).trimmed();
    } else if (line.isEmpty() || line.startsWith(QLatin1Char(';'))) {
        return;
    } else if (equals > 0) {
        values.insert(fullKey(section, line.left(equals).trimmed()),
                      line.mid(equals + 1).trimmed());
    } else {
        found << QStringLiteral("%1: line %2 is neither [section] nor key=value")
                     .arg(path)
                     .arg(number);
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
