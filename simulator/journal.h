// SPDX-License-Identifier: MIT
// The call journal: one line per operation that the program called, with arguments and answer and
// without times, so that two journals can be compared.
#pragma once

#include "sdk/ombrix_sdk.h"

#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <string>
#include <type_traits>

namespace simulator {

// Text of an argument or an answer.
QString journalText(const std::string& text);
QString journalText(const char* text);
QString journalText(bool flag);
QString journalText(const ombrix_sdk::Temperatures& record);
QString journalText(const ombrix_sdk::OperatingTime& record);
QString journalText(const ombrix_sdk::EdgeCorrection& record);
QString journalText(const ombrix_sdk::Zoom& record);
QString journalText(const ombrix_sdk::ZoomResolution& record);
QString journalText(const ombrix_sdk::AhcGainsLimitation& record);
template<typename Number>
requires(std::is_arithmetic_v<Number>) QString journalText(Number number)
{
    return QString::number(number);
}
/// A record by pointer is written with its fields.
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
    /// Starts the journal in the file, which is emptied; an empty path means no journal. Returns
    /// the reason when the file cannot be opened.
    QString setFile(const QString& path);
    /// Nothing happens without a file.
    void write(const JournalEntry& entry);

private:
    QFile file;
};

} // namespace simulator
