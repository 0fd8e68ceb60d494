// SPDX-License-Identifier: MIT
// The version lines of a read, from the one word in which the camera reports both versions.
#include "params/versiontext.h"

#include <QtTest/QTest>

class TestVersions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bothVersionsAreReadWithTheirVariant_data()
    {
        QTest::addColumn<quint32>("word");
        QTest::addColumn<QString>("text");
        const auto add = [](const char* name, quint32 word, const char* processor,
                            const char* fpga) {
            QTest::newRow(name) << word
                                << QStringLiteral("RISC-V version = %1\nFPGA version = %2")
                                       .arg(QLatin1String(processor), QLatin1String(fpga));
        };
        add("plain", 0x02040123, "1.2.3", "2.0.4 60Hz");
        add("MIPI", 0x22040123, "1.2.3", "2.0.4 MIPI 60Hz");
        add("9 Hz", 0x12040123, "1.2.3", "2.0.4 9Hz");
        add("MIPI at 9 Hz", 0x32040123, "1.2.3", "2.0.4 MIPI 9Hz");
        add("digits 10 to 12", 0x0ABC0000, "0.0.0", "a.b.c 60Hz");
        add("digits 13 to 15", 0x00000DEF, "d.e.f", "0.0.0 60Hz");
        add("everything set", 0xFFFFFFFF, "f.f.f", "f.f.f MIPI 9Hz");
        add("FPGA bit 14", 0x40000000, "0.0.0", "0.0.0 60Hz");
        add("FPGA bit 15", 0x80000000, "0.0.0", "0.0.0 60Hz");
        add("processor bits 12 to 15", 0x0001F000, "0.0.0", "0.0.1 60Hz");
        add("each digit in its place", 0x07890456, "4.5.6", "7.8.9 60Hz");
    }

    void bothVersionsAreReadWithTheirVariant()
    {
        QFETCH(quint32, word);
        QFETCH(QString, text);
        QCOMPARE(QString::fromStdString(tavrel::versionText(word)), text);
    }
};

QTEST_GUILESS_MAIN(TestVersions)
#include "tst_readversions.moc"
