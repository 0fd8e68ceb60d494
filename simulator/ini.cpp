// SPDX-License-Identifier: MIT
#include "simulator/ini.h"

#include "simulator/files.h"

#include <QtCore/QFile>

#include <algorithm>
#include <utility>

namespace simulator {
namespace {

constexpr qint64 longestFile = 1'000'000; ///< bytes; a device or a stream would never end
const QByteArray byteOrderMark = QByteArrayLiteral("\xEF\xBB\xBF");

bool isControl(char character)
{
    constexpr unsigned char firstPrintable = 0x20;
    constexpr unsigned char deleted = 0x7F;
    const auto code = static_cast<unsigned char>(character);
    return (code < firstPrintable && character != '\t') || code == deleted;
}

} // namespace

QString quoted(const QString& text)
{
    constexpr int longest = 60;
    return QLatin1Char('"') +
           (text.size() > longest ? text.left(longest) + QStringLiteral("...") : text) +
           QLatin1Char('"');
}

// Read here and not by QSettings, which holds a file of the same length, written again within one
// tick of the file system's clock, for the one that it read before.
IniFile::IniFile(QString filePath) : path(std::move(filePath))
{
    QFile file(path);
    if (!reasonAgainstOpening(path).isEmpty() || !file.open(QIODevice::ReadOnly)) {
        report(0, QStringLiteral("there is no such file, or it cannot be read"));
        return;
    }
    const QByteArray content = file.read(longestFile + 1);
    if (content.size() > longestFile) {
        report(
            0,
            QStringLiteral("it is longer than %1 bytes; nothing of it is used").arg(longestFile));
        return;
    }
    parse(content);
}

IniFile::IniFile(QString filePath, const QByteArray& content) : path(std::move(filePath))
{
    parse(content);
}

void IniFile::parse(const QByteArray& content)
{
    QList<QByteArray> lines = content.split('\n');
    while (lines.first().startsWith(byteOrderMark)) {
        report(1, QStringLiteral("the file begins with a byte order mark, which is skipped"));
        lines.first().remove(0, byteOrderMark.size());
    }
    for (int number = 1; number <= lines.size(); ++number) {
        QByteArray& line = lines[number - 1];
        if (line.endsWith('\r')) {
            line.chop(1);
        }
        readLine(line, number);
    }
}

void IniFile::readLine(const QByteArray& bytes, int line)
{
    const QString text = QString::fromUtf8(bytes).trimmed();
    // What a line that is none was meant to say of its section, nobody knows; was it to be a new
    // section, then what follows belongs to none.
    const auto reject = [&](const QString& reason) {
        report(line, reason);
        if (text.startsWith(QLatin1Char('['))) {
            current = nullptr;
        } else if (current != nullptr) {
            current->faulty = true;
        }
    };
    const auto control = std::find_if(bytes.begin(), bytes.end(), isControl);
    if (control != bytes.end()) {
        reject(QStringLiteral("control character 0x%1; the line is not used")
                   .arg(static_cast<unsigned char>(*control), 2, 16, QLatin1Char('0')));
        return;
    }
    const auto equals = text.indexOf(QLatin1Char('='));
    if (text.contains(QChar::ReplacementCharacter)) {
        reject(QStringLiteral("no text in UTF-8; the line is not used"));
    } else if (text.isEmpty() || text.startsWith(QLatin1Char(';'))) {
        return;
    } else if (text.startsWith(QLatin1Char('['))) {
        readHeader(text, line);
    } else if (text.startsWith(QLatin1Char('#')) || text.startsWith(QLatin1String("//"))) {
        reject(QStringLiteral("%1: a comment begins with ;").arg(quoted(text)));
    } else if (equals > 0) {
        readValue(text.left(equals).trimmed(), text.mid(equals + 1).trimmed(), line);
    } else {
        reject(QStringLiteral("%1 is neither [section] nor key=value").arg(quoted(text)));
    }
}

void IniFile::readHeader(const QString& text, int line)
{
    const QString name = text.mid(1, text.size() - 2).trimmed();
    current = nullptr;
    if (!text.endsWith(QLatin1Char(']')) || name.isEmpty()) {
        report(line, QStringLiteral("%1 is no [section]; what follows up to the next is not used")
                         .arg(quoted(text)));
    } else if (const Section* const first = sectionNamed(name)) {
        report(line, QStringLiteral("[%1] stands in line %2 already; what follows up to the next "
                                    "section is not used")
                         .arg(name, QString::number(first->line)));
    } else {
        order << name;
        current = &found[name];
        current->line = line;
    }
}

void IniFile::readValue(const QString& key, const QString& value, int line)
{
    if (current == &outside) {
        report(line, QStringLiteral("%1 stands before the first [section]; it is not used")
                         .arg(quoted(key)));
    } else if (current != nullptr && current->entries.contains(key)) {
        report(line, QStringLiteral("%1 stands in line %2 already; this line is not used")
                         .arg(quoted(key), QString::number(current->entries.value(key).line)));
        current->faulty = true;
    } else if (current != nullptr) {
        current->entries.insert(key, {value, line});
    }
}

void IniFile::report(int line, const QString& text)
{
    if (!messages.contains(line)) {
        messages.insert(
            line, path.isEmpty() ? text
                  : line == 0    ? QStringLiteral("%1: %2").arg(path, text)
                              : QStringLiteral("%1:%2: %3").arg(path, QString::number(line), text));
    }
}

IniFile::Section* IniFile::sectionNamed(const QString& name)
{
    const auto section = found.find(name);
    return section == found.end() ? nullptr : &section->second;
}

bool IniFile::isEmpty(const QString& section) const
{
    const auto place = found.find(section);
    return place == found.end() || place->second.entries.isEmpty();
}

std::optional<QString> IniFile::text(const QString& section, const QString& key)
{
    Section* const place = sectionNamed(section);
    if (place == nullptr || !place->entries.contains(key)) {
        return std::nullopt;
    }
    Entry& entry = place->entries[key];
    entry.asked = true;
    return entry.value;
}

std::optional<double> IniFile::number(const QString& section, const Field& field,
                                      const QString& consequence)
{
    const QString key = QLatin1String(field.key);
    const std::optional<QString> written = text(section, key);
    if (!written) {
        return std::nullopt;
    }
    const std::optional<double> value = parseField(field.kind, *written);
    if (!value) {
        addProblem(section, key,
                   QStringLiteral("%1 is not %2; %3")
                       .arg(quoted(*written), describeKind(field.kind), consequence));
    }
    return value;
}

double IniFile::numberOr(const QString& section, const Field& field, double fallback)
{
    return number(section, field,
                  QStringLiteral("%1 is used").arg(formatField(field.kind, fallback)))
        .value_or(fallback);
}

void IniFile::addProblem(const QString& section, const QString& key, const QString& reason)
{
    Section* const place = sectionNamed(section);
    int line = 0;
    if (place != nullptr) {
        place->faulty = true;
        line = place->entries.contains(key) ? place->entries.value(key).line : place->line;
    }
    report(line, QStringLiteral("[%1] %2: %3").arg(section, key, reason));
}

void IniFile::rejectSection(const QString& section, const QString& reason)
{
    if (Section* const place = sectionNamed(section)) {
        report(place->line, QStringLiteral("[%1]: %2").arg(section, reason));
        place->entries.clear();
        place->faulty = true;
    }
}

bool IniFile::finish(const QString& section, const QString& allowed)
{
    Section* const place = sectionNamed(section);
    if (place == nullptr) {
        return false;
    }
    for (auto entry = place->entries.begin(); entry != place->entries.end(); ++entry) {
        if (!entry->asked) {
            entry->asked = true;
            addProblem(section, entry.key(),
                       allowed.isEmpty()
                           ? QStringLiteral("unknown key")
                           : QStringLiteral("unknown key; there are %1").arg(allowed));
        }
    }
    return !place->faulty;
}

QStringList IniFile::problems()
{
    for (const QString& section : std::as_const(order)) {
        finish(section);
    }
    return messages.values();
}

} // namespace simulator
