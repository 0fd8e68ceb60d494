// SPDX-License-Identifier: MIT
#include "simulator/pairs.h"

#include "simulator/ini.h"

#include <algorithm>

namespace simulator {

QString reasonAgainstPairs(const QStringList& lines)
{
    QStringList keys;
    for (const QString& line : lines) {
        if (std::any_of(line.begin(), line.end(), [](QChar character) {
                return character.category() == QChar::Other_Control ||
                       character == QChar::ReplacementCharacter;
            })) {
            return QStringLiteral("a line is no text");
        }
        const QString key = line.section(QLatin1Char('='), 0, 0).trimmed();
        // A comment, or a section, would pass for one that says nothing.
        if (!line.contains(QLatin1Char('=')) || key.isEmpty() || !key.at(0).isLetter()) {
            return QStringLiteral("%1 is not key=value").arg(quoted(line));
        }
        if (keys.contains(key)) {
            return QStringLiteral("%1 is given twice").arg(quoted(key));
        }
        keys << key;
    }
    return lines.isEmpty() ? QStringLiteral("there is no key=value") : QString();
}

} // namespace simulator
