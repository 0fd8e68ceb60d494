// SPDX-License-Identifier: MIT
#include "tests/kit/lines.h"

#include <QtTest/QTest>

#include <algorithm>

namespace kit {

namespace {

/// Lines shown before and after the first that differs.
constexpr int neighbours = 2;

QString excerpt(const QStringList& texts, int differing)
{
    QString shown;
    const int last = std::min(differing + neighbours, static_cast<int>(texts.size()) - 1);
    for (int index = std::max(differing - neighbours, 0); index <= last; ++index) {
        shown += QStringLiteral("\n    %1%2  %3")
                     .arg(index == differing ? QLatin1String("> ") : QLatin1String("  "))
                     .arg(index + 1)
                     .arg(texts.at(index));
    }
    if (differing >= texts.size()) {
        shown += QStringLiteral("\n    > (ends here)");
    }
    return shown;
}

bool same(const QStringList& actual, const QStringList& expected, const char* actualText,
          const char* expectedText, const char* file, int line)
{
    const QString found = difference(actual, expected);
    return found.isEmpty() ? QTest::qVerify(true, actualText, "", file, line)
                           : (QTest::qFail(qPrintable(QStringLiteral("%1 is not %2: %3")
                                                          .arg(QLatin1String(actualText),
                                                               QLatin1String(expectedText), found)),
                                           file, line),
                              false);
}

} // namespace

Lines lines(std::initializer_list<const char*> texts)
{
    Lines list;
    for (const char* const text : texts) {
        list.append(QString::fromUtf8(text));
    }
    return list;
}

Lines block(const char* text)
{
    QStringList list;
    for (const QString& line : QString::fromUtf8(text).split(QLatin1Char('\n'))) {
        if (!line.trimmed().isEmpty()) {
            list.append(line.trimmed());
        }
    }
    return list;
}

QString difference(const QStringList& actual, const QStringList& expected)
{
    const auto parted =
        std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end()).first;
    const int differing = static_cast<int>(parted - actual.begin());
    if (differing == actual.size() && differing == expected.size()) {
        return {};
    }
    return QStringLiteral("they differ at line %1\n  actual, %2 lines:%3\n  expected, %4 lines:%5")
        .arg(differing + 1)
        .arg(actual.size())
        .arg(excerpt(actual, differing))
        .arg(expected.size())
        .arg(excerpt(expected, differing));
}

} // namespace kit

namespace QTest {

bool qCompare(const kit::Lines& actual, const kit::Lines& expected, const char* actualText,
              const char* expectedText, const char* file, int line)
{
    return kit::same(actual, expected, actualText, expectedText, file, line);
}

bool qCompare(const kit::Lines& actual, const QStringList& expected, const char* actualText,
              const char* expectedText, const char* file, int line)
{
    return kit::same(actual, expected, actualText, expectedText, file, line);
}

bool qCompare(const QStringList& actual, const kit::Lines& expected, const char* actualText,
              const char* expectedText, const char* file, int line)
{
    return kit::same(actual, expected, actualText, expectedText, file, line);
}

} // namespace QTest
