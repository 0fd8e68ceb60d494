// SPDX-License-Identifier: MIT
#include "simulator/journal.h"

#include "simulator/files.h"

namespace simulator {

QString journalText(const std::string& text)
{
    return QLatin1Char('"') + QString::fromLocal8Bit(text.c_str()) + QLatin1Char('"');
}

QString journalText(const char* text)
{
    return text == nullptr ? QStringLiteral("null") : journalText(std::string(text));
}

QString journalText(bool flag)
{
    return flag ? QStringLiteral("true") : QStringLiteral("false");
}

QString Journal::setFile(const QString& path)
{
    file.close();
    if (path.isEmpty()) {
        return {};
    }
    file.setFileName(path);
    QString reason;
    openForAppending(file, &reason);
    return reason;
}

QString Journal::begin()
{
    if (!file.isOpen() || file.size() == 0 || file.resize(0)) {
        return {};
    }
    QString reason = file.errorString();
    file.close();
    return reason;
}

void Journal::write(const JournalEntry& entry)
{
    if (!file.isOpen()) {
        return;
    }
    QString line =
        QStringLiteral("%1 %2(%3)")
            .arg(entry.subject, entry.operation, entry.arguments.join(QStringLiteral(", ")));
    if (!entry.answer.isEmpty()) {
        line += QStringLiteral(" = %1").arg(entry.answer);
    }
    if (!entry.record.isEmpty()) {
        line += QLatin1Char(' ') + entry.record;
    }
    if (!entry.note.isEmpty()) {
        line += QStringLiteral(" [%1]").arg(entry.note);
    }
    file.write(line.toUtf8() + '\n');
    file.flush();
}

} // namespace simulator
