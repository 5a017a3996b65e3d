// The MP3 format object's command line: each switch, their order, and what is no switch.
#include "engine/LameFormat.h"

#include <QTest>

using Value = int (*)(const LameFormat&);
Q_DECLARE_METATYPE(Value)

namespace {

LameFormat from(const QString& text)
{
    LameFormat format;
    format.SetCommandLine(text);
    return format;
}

/// All properties in one line, to compare two objects.
QString all(const LameFormat& f)
{
    QStringList texts;
    for (const int value :
         {int(f.AbrBitrate),          int(f.AthControl),    f.FormatBitrate,     int(f.BitReservoir),
          int(f.DifferentBlockTypes), f.FormatChannels,     int(f.Emphasis),     int(f.EncoderQuality),
          int(f.ErrorProtection),     f.FormatRate,         f.HighpassFrequency, f.HighpassWidth,
          f.LowpassFrequency,         f.LowpassWidth,       int(f.ShortBlocks),  int(f.IsoCompliance),
          int(f.EnforceMinBitrate),   f.StereoMode,         f.MaxVbrBitrate,     f.VbrMethod,
          int(f.VbrQuality),          int(f.WriteVbrHeader)})
        texts << QString::number(value);
    return texts.join(' ');
}

template <auto Member>
int get(const LameFormat& format)
{
    return format.*Member;
}

}

class tst_mp3_format_commands : public QObject {
    Q_OBJECT
private slots:
    void aSwitchSetsItsProperty_data();
    void aSwitchSetsItsProperty();
    void aLongLineIsReadFromLeftToRight();
    void whatIsNoSwitchChangesNothing_data();
    void whatIsNoSwitchChangesNothing();
    void aLineMeansTheSameWhateverStoodBefore();
    void aPresetByNameIsThePreset_data();
    void aPresetByNameIsThePreset();
    void aSwitchBehindAPresetWins();
};

void tst_mp3_format_commands::aSwitchSetsItsProperty_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<Value>("read");
    QTest::addColumn<int>("value");
    const auto row = [](const char* line, Value read, int value) {
        QTest::addRow("%s", line) << QString(line) << read << value;
    };
    row("-b 192", get<&Mp3Format::FormatBitrate>, 192);
    row("-b192", get<&Mp3Format::FormatBitrate>, 192);
    row("-hb 192", get<&Mp3Format::FormatBitrate>, 192);
    row("-b 192 -b 96", get<&Mp3Format::FormatBitrate>, 96);
    row("-B 224", get<&Mp3Format::MaxVbrBitrate>, 224);
    row("-F", get<&Mp3Format::EnforceMinBitrate>, 1);
    row("-V 2", get<&Mp3Format::VbrQuality>, 2);
    row("-V 2 ", get<&Mp3Format::VbrMethod>, 0);
    row("-V2", get<&Mp3Format::VbrQuality>, 2);
    row("-V 30", get<&Mp3Format::VbrQuality>, 30);
    row("-v", get<&Mp3Format::VbrMethod>, 0);
    row("--vbr-old", get<&Mp3Format::VbrMethod>, 1);
    row("--vbr-old -V 3", get<&Mp3Format::VbrMethod>, 1);
    row("--vbr-new", get<&Mp3Format::VbrMethod>, 2);
    row("--vbr-mtrh", get<&Mp3Format::VbrMethod>, 3);
    row("--abr 160", get<&Mp3Format::AbrBitrate>, 160);
    row("--abr 160 ", get<&Mp3Format::VbrMethod>, 4);
    row("--abr 160 -V 1", get<&Mp3Format::VbrMethod>, 0);
    row("-V 1 --cbr", get<&Mp3Format::VbrMethod>, -1);
    row("-q 0", get<&Mp3Format::EncoderQuality>, 9);
    row("-q 7", get<&Mp3Format::EncoderQuality>, 2);
    row("-h", get<&Mp3Format::EncoderQuality>, 7);
    row("-f", get<&Mp3Format::EncoderQuality>, 2);
    row("-m s", get<&Mp3Format::StereoMode>, 1);
    row("-m j", get<&Mp3Format::StereoMode>, 2);
    row("-mf", get<&Mp3Format::StereoMode>, 3);
    row("-m d", get<&Mp3Format::StereoMode>, 4);
    row("-m m", get<&Mp3Format::FormatChannels>, 1);
    row("-a", get<&Mp3Format::FormatChannels>, 1);
    row("-a -m s", get<&Mp3Format::FormatChannels>, 2);
    row("-k", get<&Mp3Format::LowpassFrequency>, -1);
    row("--highpass 1 -k", get<&Mp3Format::HighpassFrequency>, -1);
    row("--lowpass 16", get<&Mp3Format::LowpassFrequency>, 16000);
    row("--lowpass 15.16", get<&Mp3Format::LowpassFrequency>, 15160);
    row("--lowpass 17500", get<&Mp3Format::LowpassFrequency>, 17500);
    row("--lowpass -1", get<&Mp3Format::LowpassFrequency>, -1);
    row("-k --lowpass 0", get<&Mp3Format::LowpassFrequency>, 0);
    row("--lowpass-width 2", get<&Mp3Format::LowpassWidth>, 2000);
    row("--highpass 0.5", get<&Mp3Format::HighpassFrequency>, 500);
    row("--highpass-width 200", get<&Mp3Format::HighpassWidth>, 200);
    row("--resample 44.1", get<&Mp3Format::FormatRate>, 44100);
    row("--resample 22050", get<&Mp3Format::FormatRate>, 22050);
    row("--resample 11", get<&Mp3Format::FormatRate>, 11025);
    row("--resample 96", get<&Mp3Format::FormatRate>, 48000);
    row("-p", get<&Mp3Format::ErrorProtection>, 1);
    row("-e n", get<&Mp3Format::Emphasis>, 0);
    row("-e 5", get<&Mp3Format::Emphasis>, 1);
    row("-e c", get<&Mp3Format::Emphasis>, 2);
    row("--nores", get<&Mp3Format::BitReservoir>, 0);
    row("--noshort", get<&Mp3Format::ShortBlocks>, 0);
    row("--allshort", get<&Mp3Format::ShortBlocks>, 1);
    row("--strictly-enforce-ISO", get<&Mp3Format::IsoCompliance>, 1);
    row("--athonly", get<&Mp3Format::AthControl>, 1);
    row("--noath", get<&Mp3Format::AthControl>, 2);
    row("--athshort", get<&Mp3Format::AthControl>, 3);
    row("-t", get<&Mp3Format::WriteVbrHeader>, 0);
    row("--preset 192", get<&Mp3Format::AbrBitrate>, 192);
    row("--preset 192 ", get<&Mp3Format::VbrMethod>, 4);
    row("--preset cbr 192", get<&Mp3Format::FormatBitrate>, 192);
    row("--preset cbr 192 ", get<&Mp3Format::VbrMethod>, -1);
}

void tst_mp3_format_commands::aSwitchSetsItsProperty()
{
    QFETCH(QString, line);
    QFETCH(Value, read);
    QFETCH(int, value);
    QCOMPARE(read(from(line)), value);
}

void tst_mp3_format_commands::aLongLineIsReadFromLeftToRight()
{
    const LameFormat format = from("-V 2 --lowpass 16 -m j -b 192 --abr 160 -h -k --resample 44.1");
    QCOMPARE(format.VbrMethod, 4);
    QCOMPARE(int(format.AbrBitrate), 160);
    QCOMPARE(int(format.VbrQuality), 2);
    QCOMPARE(format.FormatBitrate, 192);
    QCOMPARE(format.StereoMode, 2);
    QCOMPARE(int(format.EncoderQuality), 7);
    QCOMPARE(format.LowpassFrequency, -1);
    QCOMPARE(format.HighpassFrequency, -1);
    QCOMPARE(format.FormatRate, 44100);
}

void tst_mp3_format_commands::whatIsNoSwitchChangesNothing_data()
{
    QTest::addColumn<QString>("line");
    for (const char* line : {"",
                             "   ",
                             "song.wav song.mp3",
                             "--no-such-switch",
                             "-",
                             "--",
                             "-b",
                             "-b many",
                             "--abr x",
                             "-V x",
                             "-q x",
                             "-m z",
                             "-e z",
                             "--lowpass x",
                             "--resample x",
                             "--preset nothing",
                             "--preset",
                             "--scale 2",
                             "--tt \"-h -k\"",
                             "--abr 99999999",
                             "-V 99999999",
                             "-q -32768",
                             "-q 99999999",
                             "-b 1e300",
                             "-V nan"})
        QTest::addRow("\"%s\"", line) << QString(line);
}

void tst_mp3_format_commands::whatIsNoSwitchChangesNothing()
{
    QFETCH(QString, line);
    QCOMPARE(all(from(line)), all(LameFormat()));
}

void tst_mp3_format_commands::aLineMeansTheSameWhateverStoodBefore()
{
    LameFormat format;
    format.ApplyPreset(1);
    format.SetCommandLine("-b 192");
    QCOMPARE(all(format), all(from("-b 192")));
}

void tst_mp3_format_commands::aPresetByNameIsThePreset_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("alternative");
    QTest::addRow("phone") << "--preset phone" << 1 << false;
    QTest::addRow("mw-us is AM") << "--preset mw-us" << 3 << false;
    QTest::addRow("HiFi in any case") << "--preset HiFi" << 8 << false;
    QTest::addRow("r3mix by itself") << "--r3mix" << 11 << false;
    QTest::addRow("standard") << "--preset standard" << 2 << true;
    QTest::addRow("fast standard") << "--preset fast standard" << 1 << true;
    QTest::addRow("alt-preset extreme") << "--alt-preset extreme" << 4 << true;
    QTest::addRow("insane") << "--preset insane" << 5 << true;
}

void tst_mp3_format_commands::aPresetByNameIsThePreset()
{
    QFETCH(QString, line);
    QFETCH(int, number);
    QFETCH(bool, alternative);
    LameFormat preset;
    if (alternative)
        preset.ApplyAltPreset(static_cast<std::int16_t>(number));
    else
        preset.ApplyPreset(static_cast<std::int16_t>(number));
    QCOMPARE(all(from(line)), all(preset));
}

void tst_mp3_format_commands::aSwitchBehindAPresetWins()
{
    const LameFormat format = from("--preset standard -V 5 --lowpass 15");
    QCOMPARE(int(format.VbrQuality), 5);
    QCOMPARE(format.LowpassFrequency, 15000);
    QCOMPARE(format.VbrMethod, 3);
}

QTEST_GUILESS_MAIN(tst_mp3_format_commands)
#include "tst_mp3_format_commands.moc"
