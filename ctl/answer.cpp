// SPDX-License-Identifier: MIT
#include "ctl/answer.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <cstdio>

namespace tavrel::ctl {

namespace {

constexpr char eraseLine[] = "\r\x1b[K";
bool progressIsShown = false;

} // namespace

QString printable(const QString& text)
{
    constexpr int digits = 4;
    constexpr int hexadecimal = 16;
    QString shown;
    for (const QChar character : text) {
        const QChar::Category category = character.category();
        const bool acts = category == QChar::Other_Control || category == QChar::Other_Format;
        shown += acts ? QStringLiteral("\\u%1").arg(int{character.unicode()}, digits, hexadecimal,
                                                    QLatin1Char('0'))
                      : QString(character);
    }
    return shown;
}

void Answer::table(const std::vector<QStringList>& rows)
{
    std::vector<int> widths;
    for (const QStringList& row : rows) {
        widths.resize(std::max(widths.size(), static_cast<std::size_t>(row.size())));
        for (int column = 0; column < row.size(); ++column) {
            int& width = widths[static_cast<std::size_t>(column)];
            width = std::max(width, static_cast<int>(row[column].size()));
        }
    }
    for (const QStringList& row : rows) {
        QString whole;
        for (int column = 0; column < row.size(); ++column) {
            whole += row[column].leftJustified(widths[static_cast<std::size_t>(column)] + 2);
        }
        // The last column needs no room behind it.
        while (whole.endsWith(QLatin1Char(' '))) {
            whole.chop(1);
        }
        line(whole);
    }
}

QByteArray Answer::text(bool asJson, bool coloured) const
{
    if (asJson) {
        return QJsonDocument(json).toJson();
    }
    QString whole;
    for (const QString& line : lines) {
        whole += line + QLatin1Char('\n');
    }
    if (coloured) {
        static const QRegularExpression bad(
            QStringLiteral("\\b(refused|differs|not sent|not readable)\\b"));
        whole.replace(bad, QStringLiteral("\x1b[31m\\1\x1b[0m"));
    }
    return whole.toLocal8Bit();
}

QJsonValue jsonOf(const Parameter& parameter, const std::optional<double>& value)
{
    if (!value) {
        return QJsonValue::Null;
    }
    if (parameter.isSwitch) {
        return *value != 0;
    }
    const QString text = textOf(parameter, *value);
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber ? QJsonValue(number) : QJsonValue(text);
}

void write(const QByteArray& bytes)
{
    const auto size = static_cast<std::size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, stdout) != size || std::fflush(stdout) != 0) {
        throw Failure(Status::Usage, QStringLiteral("the answer could not be written"));
    }
}

void showProgress(const QString& what)
{
    std::fputs((QLatin1String(eraseLine) + what).toLocal8Bit().constData(), stderr);
    std::fflush(stderr);
    progressIsShown = true;
}

void endProgress()
{
    if (progressIsShown) {
        showProgress({});
        progressIsShown = false;
    }
}

void complain(const QString& text)
{
    endProgress();
    QStringList lines = text.split(QLatin1Char('\n'));
    std::transform(lines.begin(), lines.end(), lines.begin(), &printable);
    const QByteArray told = "tavrelctl: " + lines.join(QLatin1Char('\n')).toLocal8Bit() + '\n';
    std::fputs(told.constData(), stderr);
}

void complain(const Failure& failure, bool asJson)
{
    complain(failure.message);
    if (!asJson) {
        return;
    }
    Answer answer;
    answer.json = failure.details;
    answer.json.insert(QStringLiteral("error"), failure.message);
    answer.json.insert(QStringLiteral("status"), static_cast<int>(failure.status));
    try {
        write(answer.text(true, false));
    } catch (const Failure&) {
        // It is told already, and for a worse reason.
    }
}

} // namespace tavrel::ctl
