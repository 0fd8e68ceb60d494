// SPDX-License-Identifier: MIT
// Sequences of calls or log lines. Compared by QCOMPARE, two that differ show the first difference
// with its neighbours.
#pragma once

#include <QtCore/QStringList>
#include <QtTest/qtestdata.h>

#include <initializer_list>

namespace kit {

class Lines : public QStringList {
public:
    Lines() = default;
    Lines(const QStringList& texts) : QStringList(texts) {} // NOLINT(google-explicit-constructor)
};

/// Expected calls or log lines.
Lines lines(std::initializer_list<const char*> texts);
/// The same, one a line, without the white space around them and without empty ones.
Lines block(const char* text);

/// A row of test data takes them as the plain list that its column holds.
inline QTestData& operator<<(QTestData& row, const Lines& lines)
{
    return row << static_cast<const QStringList&>(lines);
}

/// Where two sequences part, a line each; empty when they are equal.
QString difference(const QStringList& actual, const QStringList& expected);

} // namespace kit

namespace QTest {

bool qCompare(const kit::Lines& actual, const kit::Lines& expected, const char* actualText,
              const char* expectedText, const char* file, int line);
bool qCompare(const kit::Lines& actual, const QStringList& expected, const char* actualText,
              const char* expectedText, const char* file, int line);
bool qCompare(const QStringList& actual, const kit::Lines& expected, const char* actualText,
              const char* expectedText, const char* file, int line);

} // namespace QTest
