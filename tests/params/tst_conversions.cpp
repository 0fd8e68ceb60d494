// SPDX-License-Identifier: MIT
// What becomes of numbers on their way between the widgets and the camera, at the ends of their
// ranges: every value has a defined outcome.
#include "params/conversions.h"

#include <QtTest/QTest>

#include <limits>

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

} // namespace

class TestConversions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aNumberOutsideAFieldBecomesTheNearestOne_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("shown");
        QTest::newRow("cut toward zero") << 2.9 << 2;
        QTest::newRow("cut toward zero from below") << -2.9 << -2;
        QTest::newRow("the highest") << 2147483647.0 << highest;
        QTest::newRow("beyond the highest") << 2147483648.0 << highest;
        QTest::newRow("the lowest") << -2147483648.0 << lowest;
        QTest::newRow("beyond the lowest") << -2147483649.0 << lowest;
        QTest::newRow("infinity") << infinity << highest;
        QTest::newRow("less than everything") << -infinity << lowest;
        QTest::newRow("no number") << noNumber << 0;
    }

    void aNumberOutsideAFieldBecomesTheNearestOne()
    {
        QFETCH(double, value);
        QFETCH(int, shown);
        QCOMPARE(tavrel::saturatedInt(value), shown);
    }

    void aCountOfTheCameraBeyondAFieldBecomesItsHighest()
    {
        QCOMPARE(tavrel::saturatedInt(std::uint64_t{7}), 7);
        QCOMPARE(tavrel::saturatedInt(std::uint64_t{2147483648}), highest);
        QCOMPARE(tavrel::saturatedInt(std::numeric_limits<std::uint64_t>::max()), highest);
    }

    void aFieldTravelsAsItsLow32Bits_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<quint32>("sent");
        QTest::newRow("cut toward zero") << 99.999 << 99U;
        QTest::newRow("below zero") << -1.5 << 0xFFFFFFFFU;
        QTest::newRow("the highest") << 4294967295.0 << 0xFFFFFFFFU;
        QTest::newRow("beyond 32 bits") << 4294967301.0 << 5U;
        QTest::newRow("beyond 64 bits") << 1.0e19 << 0U;
        QTest::newRow("beyond 64 bits below zero") << -1.0e19 << 0U;
        QTest::newRow("infinity") << infinity << 0U;
        QTest::newRow("no number") << noNumber << 0U;
    }

    void aFieldTravelsAsItsLow32Bits()
    {
        QFETCH(double, value);
        QFETCH(quint32, sent);
        QCOMPARE(tavrel::lowWord(value), sent);
    }

    void anEntryTravelsAsItsLowByte()
    {
        QCOMPARE(tavrel::lowByte(8), std::uint8_t{8});
        QCOMPARE(tavrel::lowByte(-1), std::uint8_t{255});
        QCOMPARE(tavrel::lowByte(256), std::uint8_t{0});
    }
};

QTEST_GUILESS_MAIN(TestConversions)
#include "tst_conversions.moc"
