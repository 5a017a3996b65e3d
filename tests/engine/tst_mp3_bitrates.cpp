// The bitrate that the format line names is the one in the file.
#include "encoders/BitrateTable.h"
#include "engine/LameFormat.h"
#include "engine/Mp3Rates.h"
#include "tests/encoders/Mp3Stream.h"
#include "tests/engine/WriteTools.h"

#include <QTest>

#include <limits>

class tst_mp3_bitrates : public QObject {
    Q_OBJECT

private slots:
    void aBitrateBecomesTheNearestOfItsRate_data();
    void aBitrateBecomesTheNearestOfItsRate();
    void theFormatLineNamesTheBitrateInTheFile_data();
    void theFormatLineNamesTheBitrateInTheFile();
};

void tst_mp3_bitrates::aBitrateBecomesTheNearestOfItsRate_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("taken");
    QTest::addRow("one that there is") << 44100 << 128 << 128;
    QTest::addRow("far below anything") << 44100 << std::numeric_limits<int>::min() << 32;
    QTest::addRow("below the lowest at 44100") << 44100 << 8 << 32;
    QTest::addRow("between two, nearer to the lower") << 44100 << 100 << 96;
    QTest::addRow("between two, nearer to the upper") << 44100 << 110 << 112;
    QTest::addRow("halfway is the lower") << 44100 << 144 << 128;
    QTest::addRow("144 is there at 22050") << 22050 << 144 << 144;
    QTest::addRow("above the highest at 22050") << 22050 << 320 << 160;
    QTest::addRow("above the highest at 8000") << 8000 << 96 << 64;
    QTest::addRow("32000 is a high rate") << 32000 << 320 << 320;
    QTest::addRow("16000 is a low one") << 16000 << 320 << 160;
    QTest::addRow("12000 is one of the lowest") << 12000 << 320 << 64;
    QTest::addRow("8 is there at 8000") << 8000 << 8 << 8;
    QTest::addRow("the lowest of 16000") << 16000 << 1 << 8;
    QTest::addRow("halfway is the lower at 22050 too") << 22050 << 152 << 144;
    QTest::addRow("halfway is the lower at 8000 too") << 8000 << 60 << 56;
    QTest::addRow("one above halfway is the upper") << 44100 << 145 << 160;
    QTest::addRow("nothing is the lowest") << 44100 << 0 << 32;
    QTest::addRow("less than nothing is the lowest") << 44100 << -1 << 32;
    QTest::addRow("above the highest at 48000") << 48000 << 2147483647 << 320;
}

void tst_mp3_bitrates::aBitrateBecomesTheNearestOfItsRate()
{
    QFETCH(int, rate);
    QFETCH(int, asked);
    QTEST(nearestMp3Bitrate(rate, asked), "taken");
}

void tst_mp3_bitrates::theFormatLineNamesTheBitrateInTheFile_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("asked");
    QList<int> bitrates(bitrateTable.begin(), bitrateTable.end());
    bitrates << -1 << 0 << 40 << 80 << 100 << 144 << 1000;    // what a settings file may hold besides
    for (const int rate : {8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000})
        for (const int channels : {1, 2})
            for (const int kbit : bitrates)
                QTest::addRow("%d kbit/s, %d Hz, %s", kbit, rate, channels == 1 ? "mono" : "two channels")
                    << rate << channels << kbit;
}

void tst_mp3_bitrates::theFormatLineNamesTheBitrateInTheFile()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    QFETCH(int, asked);
    LameFormat format;
    format.FormatRate = rate;
    format.FormatChannels = channels;
    format.FormatBitrate = asked;
    format.VbrMethod = -1;
    const Mp3Stream stream(tools::coded(format, tools::music(rate, channels, rate / 2)));
    QStringList inFile;
    for (const Mp3Frame& frame : stream.frames) inFile << QString::number(frame.kbit);
    inFile.removeDuplicates();
    FileWriter writer;
    writer.SetFormatMP3Ex(format);
    QCOMPARE(writer.FormatString().section(", ", -1), inFile.join(" and ") + " kbit/s");
    QCOMPARE(stream.frames.front().hertz, rate);
    QCOMPARE(stream.frames.front().mode == 3, channels == 1);
}

QTEST_GUILESS_MAIN(tst_mp3_bitrates)
#include "tst_mp3_bitrates.moc"
