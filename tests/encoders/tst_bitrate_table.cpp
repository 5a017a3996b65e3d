// The bitrates of the slider positions and the rows of the sampling rates.
#include "encoders/BitrateTable.h"

#include <QTest>

class tst_bitrate_table : public QObject {
    Q_OBJECT
private slots:
    void everyPositionIsFoundByItsBitrate();
    void aBitrateThatTheTableLacksHasNoPosition_data();
    void aBitrateThatTheTableLacksHasNoPosition();
    void everyRowIsFoundByItsRate();
    void anUnknownRateRunsPastTheLastRow();
};

void tst_bitrate_table::everyPositionIsFoundByItsBitrate()
{
    for (int i = 0; i <= lastBitratePosition; ++i)
        QCOMPARE(positionOfBitrate(bitrateTable.at(static_cast<std::size_t>(i))), i);
}

void tst_bitrate_table::aBitrateThatTheTableLacksHasNoPosition_data()
{
    QTest::addColumn<int>("kbit");
    for (const int kbit : {0, 40, 80, 144, 321, -1}) QTest::addRow("%d kbit/s", kbit) << kbit;
}

void tst_bitrate_table::aBitrateThatTheTableLacksHasNoPosition()
{
    QFETCH(int, kbit);
    QCOMPARE(positionOfBitrate(kbit), -1);
}

void tst_bitrate_table::everyRowIsFoundByItsRate()
{
    for (std::size_t i = 0; i < samplingRates.size(); ++i)
        QCOMPARE(rowOfRate(samplingRates[i].hertz), static_cast<int>(i));
}

void tst_bitrate_table::anUnknownRateRunsPastTheLastRow()
{
    QCOMPARE(rowOfRate(96000), 9);
}

QTEST_GUILESS_MAIN(tst_bitrate_table)
#include "tst_bitrate_table.moc"
