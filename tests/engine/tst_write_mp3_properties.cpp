// What each property of the MP3 format does to the output, whatever number it is given.
#include "engine/LameFormat.h"
#include "engine/WriteTools.h"

#include <QTest>

using namespace tools;

using Change = void (*)(LameFormat&);
Q_DECLARE_METATYPE(Change)

class tst_write_mp3_properties : public QObject {
    Q_OBJECT
private slots:
    void aPropertyChangesTheOutput_data();
    void aPropertyChangesTheOutput();
    void theShapeIsInTheStream_data();
    void theShapeIsInTheStream();
    void numbersOutOfRangeAreTaken_data();
    void numbersOutOfRangeAreTaken();
    void anUnlistedRateGoesToTheNearest();
    void theBitrateOfAnAbrFileIsNearItsTarget();
    void theSimpleFormatHasTheDefaults();
};

void tst_write_mp3_properties::aPropertyChangesTheOutput_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, const char* start, Change change) {
        QTest::addRow("%s", name) << QString(start) << change;
    };
    row("AbrBitrate", "--abr 128", [](LameFormat& f) { f.AbrBitrate = 96; });
    row("AthControl 1, which shows in the header frame", "-V 4", [](LameFormat& f) { f.AthControl = 1; });
    row("AthControl 2", "-V 4", [](LameFormat& f) { f.AthControl = 2; });
    row("FormatBitrate", "", [](LameFormat& f) { f.FormatBitrate = 96; });
    row("BitReservoir", "", [](LameFormat& f) { f.BitReservoir = false; });
    row("FormatChannels", "", [](LameFormat& f) { f.FormatChannels = 1; });
    row("Emphasis", "", [](LameFormat& f) { f.Emphasis = 2; });
    row("EncoderQuality", "", [](LameFormat& f) { f.EncoderQuality = 2; });
    row("ErrorProtection", "", [](LameFormat& f) { f.ErrorProtection = true; });
    row("FormatRate", "", [](LameFormat& f) { f.FormatRate = 32000; });
    row("HighpassFrequency", "", [](LameFormat& f) { f.HighpassFrequency = 1000; });
    row("HighpassWidth", "--highpass 2", [](LameFormat& f) { f.HighpassWidth = 1000; });
    row("LowpassFrequency", "", [](LameFormat& f) { f.LowpassFrequency = 5000; });
    row("LowpassFrequency -1", "", [](LameFormat& f) { f.LowpassFrequency = -1; });
    row("LowpassWidth", "--lowpass 10", [](LameFormat& f) { f.LowpassWidth = 3000; });
    row("ShortBlocks", "", [](LameFormat& f) { f.ShortBlocks = false; });
    row("IsoCompliance", "-b 320", [](LameFormat& f) { f.IsoCompliance = true; });
    row("EnforceMinBitrate", "-V 9 -b 160", [](LameFormat& f) { f.EnforceMinBitrate = true; });
    row("StereoMode 1", "", [](LameFormat& f) { f.StereoMode = 1; });
    row("StereoMode 3", "", [](LameFormat& f) { f.StereoMode = 3; });
    row("StereoMode 4", "", [](LameFormat& f) { f.StereoMode = 4; });
    row("MaxVbrBitrate", "-V 0", [](LameFormat& f) { f.MaxVbrBitrate = 96; });
    row("VbrMethod", "", [](LameFormat& f) { f.VbrMethod = 0; });
    row("VbrMethod old", "-V 4", [](LameFormat& f) { f.VbrMethod = 1; });
    row("VbrQuality", "-V 4", [](LameFormat& f) { f.VbrQuality = 8; });
    row("WriteVbrHeader", "", [](LameFormat& f) { f.WriteVbrHeader = false; });
}

void tst_write_mp3_properties::aPropertyChangesTheOutput()
{
    QFETCH(QString, start);
    QFETCH(Change, change);
    LameFormat before;
    before.SetCommandLine(start);
    LameFormat after = before;
    change(after);
    SampleArray sound = music(44100, 2, 60000);
    for (std::size_t click = 9001; click < sound.size(); click += 20011) sound[click] = 32000;
    QVERIFY(coded(before, sound) != coded(after, sound));
}

void tst_write_mp3_properties::theShapeIsInTheStream_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    for (const int rate : {8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000}) {
        QTest::addRow("%d Hz mono", rate) << rate << 1;
        QTest::addRow("%d Hz stereo", rate) << rate << 2;
    }
}

void tst_write_mp3_properties::theShapeIsInTheStream()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    Folder folder;
    FileWriter writer;
    writer.SetFormatMP3Simple(rate, 32, channels);
    save(writer, folder / "a.mp3", music(rate, channels, rate));
    QCOMPARE(probe(folder / "a.mp3", "stream=sample_rate").toInt(), rate);
    QCOMPARE(probe(folder / "a.mp3", "stream=channels").toInt(), channels);
}

void tst_write_mp3_properties::numbersOutOfRangeAreTaken_data()
{
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, Change change) { QTest::addRow("%s", name) << change; };
    row("AbrBitrate", [](LameFormat& f) { f.VbrMethod = 4, f.AbrBitrate = -5; });
    row("AthControl", [](LameFormat& f) { f.AthControl = 99; });
    row("FormatBitrate 0", [](LameFormat& f) { f.FormatBitrate = 0; });
    row("FormatBitrate huge", [](LameFormat& f) { f.FormatBitrate = 100000; });
    row("FormatChannels", [](LameFormat& f) { f.FormatChannels = 7; });
    row("Emphasis", [](LameFormat& f) { f.Emphasis = -3; });
    row("EncoderQuality", [](LameFormat& f) { f.EncoderQuality = 32767; });
    row("EncoderQuality below", [](LameFormat& f) { f.EncoderQuality = -32768; });
    row("FormatRate", [](LameFormat& f) { f.FormatRate = -1; });
    row("HighpassFrequency", [](LameFormat& f) { f.HighpassFrequency = -700; });
    row("LowpassFrequency", [](LameFormat& f) { f.LowpassFrequency = 2000000000; });
    row("LowpassWidth", [](LameFormat& f) { f.LowpassWidth = 2000000000; });
    row("StereoMode", [](LameFormat& f) { f.StereoMode = 0; });
    row("MaxVbrBitrate", [](LameFormat& f) { f.VbrMethod = 0, f.MaxVbrBitrate = 0; });
    row("VbrMethod", [](LameFormat& f) { f.VbrMethod = 50; });
    row("VbrQuality", [](LameFormat& f) { f.VbrMethod = 0, f.VbrQuality = 30; });
}

void tst_write_mp3_properties::numbersOutOfRangeAreTaken()
{
    QFETCH(Change, change);
    LameFormat format;
    change(format);
    Folder folder;
    FileWriter writer;
    writer.SetFormatMP3Ex(format);
    writer.Create(folder / "a.mp3");
    writer.SetInputFormat(44100, 2);
    writer.WriteArray(music(44100, 2, 20000));
    writer.Close();
    QVERIFY(!decode(folder / "a.mp3").empty());
}

void tst_write_mp3_properties::anUnlistedRateGoesToTheNearest()
{
    Folder folder;
    FileWriter writer;
    writer.SetFormatMP3Simple(43000, 128, 2);
    writer.Create(folder / "a.mp3");
    writer.Close();
    QCOMPARE(writer.FormatString(), QString("MP3, 44100 Hz, Joint Stereo, 128 kbit/s"));
    save(writer, folder / "a.mp3", music(44100, 2, 44100));
    QCOMPARE(probe(folder / "a.mp3", "stream=sample_rate"), QString("44100"));
}

void tst_write_mp3_properties::theBitrateOfAnAbrFileIsNearItsTarget()
{
    LameFormat format;
    format.SetCommandLine("--abr 160");
    const double seconds = 6;
    const QByteArray bytes = coded(format, music(44100, 2, int(44100 * seconds)));
    const double kilobits = static_cast<double>(bytes.size()) * 8 / 1000 / seconds;
    QVERIFY2(kilobits > 120 && kilobits < 200, qPrintable(QString::number(kilobits)));
}

void tst_write_mp3_properties::theSimpleFormatHasTheDefaults()
{
    LameFormat format;
    format.FormatRate = 32000;
    format.FormatBitrate = 96;
    format.FormatChannels = 1;
    const SampleArray sound = music(32000, 1, 40000);
    Folder folder;
    FileWriter writer;
    writer.SetFormatMP3Simple(32000, 96, 1);
    save(writer, folder / "a.mp3", sound);
    QCOMPARE(contents(folder / "a.mp3"), coded(format, sound));
}

QTEST_GUILESS_MAIN(tst_write_mp3_properties)
#include "tst_write_mp3_properties.moc"
