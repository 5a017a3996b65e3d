// The bitrate that the format line names is the one in the file.
#include "encoders/BitrateTable.h"
#include "engine/LameFormat.h"
#include "engine/Mp3Rates.h"
#include "tests/encoders/Mp3Stream.h"
#include "tests/engine/WriteTools.h"

#include <QTest>

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
    QTest::addRow("below the lowest at 44100") << 44100 << 8 << 32;
    QTest::addRow("between two, nearer to the lower") << 44100 << 100 << 96;
    QTest::addRow("between two, nearer to the upper") << 44100 << 110 << 112;
    QTest::addRow("halfway is the lower") << 44100 << 144 << 128;
    QTest::addRow("144 is there at 22050") << 22050 << 144 << 144;
    QTest::addRow("above the highest at 22050") << 22050 << 320 << 160;
    QTest::addRow("above the highest at 8000") << 8000 << 96 << 64;
    QTest::addRow("32000 is a high rate") << 32000 << 320 << 320;
    QTest::addRow("16000 is a low one") << 16000 << 320 << 160;
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
    for (const int rate : {8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000})
        for (const int channels : {1, 2})
            QTest::addRow("%d Hz, %d channels", rate, channels) << rate << channels;
}

void tst_mp3_bitrates::theFormatLineNamesTheBitrateInTheFile()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    tools::Folder folder;
    const SampleArray sound = tools::music(rate, channels, rate / 2);
    for (const int kbit : bitrateTable) {
        LameFormat format;
        format.FormatRate = rate;
        format.FormatChannels = channels;
        format.FormatBitrate = kbit;
        format.VbrMethod = -1;
        FileWriter writer;
        writer.SetFormatMP3Ex(format);
        const QString line = writer.FormatString();
        const QString path = folder / "a.mp3";
        writer.Create(path);
        writer.SetInputFormat(rate, channels);
        writer.WriteArray(sound);
        writer.Close();
        const int inFile = Mp3Stream(tools::contents(path)).frames.at(1).kbit;
        QVERIFY2(line.endsWith(QString(", %1 kbit/s").arg(inFile)),
                 qPrintable(QString("asked %1, in the file %2, told: ").arg(kbit).arg(inFile) + line));
    }
}

QTEST_GUILESS_MAIN(tst_mp3_bitrates)
#include "tst_mp3_bitrates.moc"
