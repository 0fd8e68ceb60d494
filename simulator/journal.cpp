#include "simulator/journal.h"

namespace simulator {

QString journalText(const std::string& text)
{
    return QLatin1Char('"') + QString::fromLocal8Bit(text.c_str()) + QLatin1Char('"');
}

QString journalText(const char* text)
{
    return text == nullptr ? QStringLiteral("null") : journalText(std::string(text));
}

QString journalText(const void* pointer)
{
    // An address differs from run to run; whether there is one does not.
    return pointer == nullptr ? QStringLiteral("null") : QStringLiteral("*");
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
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        return file.errorString();
    }
    return {};
}

void Journal::write(const QString& line)
{
    file.write(line.toUtf8() + '\n');
    file.flush();
}

} // namespace simulator
