// The call journal: one line per operation that the program called, with arguments and result and
// without times, so that two journals can be compared.
#pragma once

#include <QtCore/QFile>
#include <QtCore/QString>

#include <string>
#include <type_traits>

namespace simulator {

/// Text of an argument or a result.
QString journalText(const std::string& text);
QString journalText(const char* text);
QString journalText(const void* pointer);
QString journalText(bool flag);
template<typename Number>
requires(std::is_arithmetic_v<Number>) QString journalText(Number number)
{
    return QString::number(number);
}

class Journal {
public:
    /// Starts the journal in the file, which is emptied; an empty path means no journal. Returns
    /// the reason when the file cannot be opened.
    QString setFile(const QString& path);
    bool isOn() const { return file.isOpen(); }
    void write(const QString& line);

private:
    QFile file;
};

} // namespace simulator
