// SPDX-License-Identifier: MIT
// The call journal: one line per operation that the program called, with arguments and answer and
// without times, so that two journals can be compared.
#pragma once

#include "simulator/records.h"

#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <string>
#include <tuple>
#include <type_traits>

namespace simulator {

// Text of an argument or an answer.
QString journalText(const std::string& text);
QString journalText(const char* text);
QString journalText(bool flag);
template<typename Number>
requires(std::is_arithmetic_v<Number>) QString journalText(Number number)
{
    return QString::number(number);
}
/// A record is written with its fields.
template<HasFields Record>
requires(std::is_class_v<Record>) QString journalText(const Record& record)
{
    return std::apply(
        [](const auto&... fields) {
            return QLatin1Char('{') +
                   QStringList({journalText(fields)...}).join(QStringLiteral(", ")) +
                   QLatin1Char('}');
        },
        fieldsOf(record));
}
template<typename Record> QString journalText(const Record* record)
{
    return record == nullptr ? QStringLiteral("null") : journalText(*record);
}

/// One finished call.
struct JournalEntry {
    QString subject; ///< "sdk", "configuration", "link" or the camera
    QString operation;
    QStringList arguments = {};
    QString answer = {}; ///< empty when the operation answers nothing
    QString record = {}; ///< what the operation filled for the caller; empty when nothing
    QString note = {};   ///< why the call went another way than usual; empty when it did not
};

class Journal {
public:
    /// Opens the file, which is made if missing and keeps what it holds; an empty path means no
    /// journal. Returns the reason when the file cannot be opened.
    QString setFile(const QString& path);
    /// Empties the file: the journal begins. Returns the reason when it cannot, and there is none.
    QString begin();
    /// Whether calls are written down: their texts need not be made up otherwise.
    [[nodiscard]] bool isOn() const { return file.isOpen(); }
    /// Nothing happens without a file.
    void write(const JournalEntry& entry);

private:
    QFile file;
};

} // namespace simulator
