// SPDX-License-Identifier: MIT
#include "simulator/ini.h"

#include "simulator/files.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <utility>

namespace simulator {
namespace {

constexpr qint64 longestFile = 1'000'000; ///< bytes; a device or a stream would never end
const QByteArray byteOrderMark = QByteArrayLiteral("\xEF\xBB\xBF");

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control && character != QLatin1Char('\t');
}

QString shortened(const QString& text)
{
    constexpr int longest = 60;
    return text.size() > longest ? text.left(longest) + QStringLiteral("...") : text;
}

QString problemOf(const QString& section, const QString& key, const QString& reason)
{
    return QStringLiteral("[%1] %2: %3").arg(shortened(section), shortened(key), reason);
}

/// Why a value is not taken as it stands; empty when it is.
QString reasonAgainst(const QString& value)
{
    static const QRegularExpression comment(QStringLiteral("\\s;"));
    if (value.startsWith(QLatin1Char('"'))) {
        return QStringLiteral("%1: a value stands without quotation marks").arg(quoted(value));
    }
    if (value.contains(comment)) {
        return QStringLiteral("%1: a comment stands on a line of its own").arg(quoted(value));
    }
    return {};
}

} // namespace

QString quoted(const QString& text)
{
    return QLatin1Char('"') + shortened(text) + QLatin1Char('"');
}

// Read here and not by QSettings, which holds a file of the same length, written again within one
// tick of the file system's clock, for the one that it read before.
IniFile::IniFile(QString filePath, QString whatComesOfIt)
    : path(std::move(filePath)), lineConsequence(std::move(whatComesOfIt))
{
    QFile file(path);
    if (!reasonAgainstOpening(path).isEmpty() || !file.open(QIODevice::ReadOnly)) {
        report(0, QStringLiteral("there is no such file, or it cannot be read"));
        return;
    }
    bytes = file.read(longestFile + 1);
    if (file.error() != QFileDevice::NoError) {
        report(0, QStringLiteral("it cannot be read: %1").arg(file.errorString()));
        return;
    }
    if (bytes.size() > longestFile) {
        report(
            0,
            QStringLiteral("it is longer than %1 bytes; nothing of it is used").arg(longestFile));
        return;
    }
    parse();
}

IniFile::IniFile(QString filePath, QString whatComesOfIt, QByteArray content)
    : path(std::move(filePath)), lineConsequence(std::move(whatComesOfIt)),
      bytes(std::move(content))
{
    parse();
}

void IniFile::parse()
{
    QList<QByteArray> lines = bytes.split('\n');
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

void IniFile::readLine(const QByteArray& content, int line)
{
    const QString whole = QString::fromUtf8(content.constData(), content.size());
    const QString text = whole.trimmed();
    const auto control = std::find_if(whole.begin(), whole.end(), isControl);
    const auto equals = text.indexOf(QLatin1Char('='));
    if (content.contains(byteOrderMark)) {
        reject(line, text, QStringLiteral("a byte order mark"));
    } else if (control != whole.end()) {
        reject(line, text,
               QStringLiteral("control character 0x%1")
                   .arg(control->unicode(), 2, 16, QLatin1Char('0')));
    } else if (text.contains(QChar::ReplacementCharacter)) {
        reject(line, text, QStringLiteral("no text in UTF-8"));
    } else if (text.isEmpty() || text.startsWith(QLatin1Char(';'))) {
        return;
    } else if (text.startsWith(QLatin1Char('['))) {
        readHeader(text, line);
    } else if (text.startsWith(QLatin1Char('#')) || text.startsWith(QLatin1String("//"))) {
        reject(line, text,
               QStringLiteral("%1: a comment begins with a semicolon").arg(quoted(text)));
    } else if (equals > 0) {
        readValue(text.left(equals).trimmed(), text.mid(equals + 1).trimmed(), line);
    } else {
        reject(line, text,
               QStringLiteral("%1 is neither [section] nor key=value").arg(quoted(text)));
    }
}

// What a line that is none was meant to say of its section, nobody knows; was it to be a new
// section, then what follows belongs to none.
void IniFile::reject(int line, const QString& text, const QString& reason)
{
    const bool begins = text.startsWith(QLatin1Char('['));
    const bool belongs = current != nullptr && current != &outside && !begins;
    report(line, (belongs ? QStringLiteral("[%1]: ").arg(shortened(current->name)) : QString()) +
                     reason + QStringLiteral("; ") +
                     (belongs ? lineConsequence : QStringLiteral("the line is not used")));
    if (belongs) {
        current->faulty = true;
    }
    if (text.contains(QLatin1Char('[')) || text.contains(QLatin1Char(']'))) {
        current = nullptr;
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
                         .arg(shortened(name), QString::number(first->line)));
    } else {
        order << name;
        current = &found[name];
        current->name = name;
        current->line = line;
    }
}

void IniFile::readValue(const QString& key, const QString& value, int line)
{
    if (current == &outside) {
        report(line, QStringLiteral("%1 stands before the first [section]; it is not used")
                         .arg(quoted(key)));
    } else if (current != nullptr && current->entries.contains(key)) {
        rejectValue(
            key, line,
            QStringLiteral("stands in line %1 already").arg(current->entries.value(key).line));
    } else if (const QString reason = reasonAgainst(value);
               current != nullptr && !reason.isEmpty()) {
        rejectValue(key, line, reason);
    } else if (current != nullptr) {
        current->entries.insert(key, {value, line});
    }
}

void IniFile::rejectValue(const QString& key, int line, const QString& reason)
{
    current->faulty = true;
    report(line, problemOf(current->name, key, reason + QStringLiteral("; ") + lineConsequence));
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
    return place == found.end() || (place->second.entries.isEmpty() && !place->second.faulty);
}

std::optional<QString> IniFile::text(const QString& section, const QString& key)
{
    Section* const place = sectionNamed(section);
    if (place == nullptr) {
        return std::nullopt;
    }
    if (!place->keys.contains(key)) {
        place->keys << key;
    }
    if (!place->entries.contains(key)) {
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
    report(line, problemOf(section, key, reason));
}

void IniFile::rejectSection(const QString& section, const QString& reason)
{
    if (Section* const place = sectionNamed(section)) {
        report(place->line, QStringLiteral("[%1]: %2").arg(shortened(section), reason));
        place->entries.clear();
        place->faulty = true;
    }
}

bool IniFile::finish(const QString& section)
{
    Section* const place = sectionNamed(section);
    if (place == nullptr) {
        return false;
    }
    for (auto entry = place->entries.begin(); entry != place->entries.end(); ++entry) {
        if (!entry->asked) {
            entry->asked = true;
            addProblem(section, entry.key(),
                       QStringLiteral("unknown key; there are %1; %2")
                           .arg(keysOf(section), lineConsequence));
        }
    }
    return !place->faulty;
}

QString IniFile::keysOf(const QString& section) const
{
    const auto place = found.find(section);
    return place == found.end() ? QString() : place->second.keys.join(QStringLiteral(", "));
}

QStringList IniFile::problems()
{
    for (const QString& section : std::as_const(order)) {
        finish(section);
    }
    return messages.values();
}

} // namespace simulator
