// What holds for every output format: its text, the copy it is, sound of another shape.
#include "engine/LameFormat.h"
#include "engine/WriteTools.h"

#include <QTest>

using namespace tools;

using SetFormat = void (*)(FileWriter&);
Q_DECLARE_METATYPE(SetFormat)

namespace {

void setMp3(FileWriter& writer, const QString& commandLine)
{
    LameFormat format;
    format.SetCommandLine(commandLine);
    writer.SetFormatMP3Ex(format);
}

}

class tst_write_formats : public QObject {
    Q_OBJECT
private slots:
    void theTextTellsTheFormat_data();
    void theTextTellsTheFormat();
    void aNewWriterMakesPlainWav();
    void theWmaProfilesAreFiftyOne();
    void laterChangesOfTheObjectDoNotCount();
    void aFormatSetWhileWritingCountsFromTheNextFile();
    void soundOfAnotherShapeIsConverted_data();
    void soundOfAnotherShapeIsConverted();
    void theShapeMayChangeMidway();
    void theShapeOfOneFileIsForgottenInTheNext();
    void emptyArraysDoNoHarm();
    void smallArraysGiveTheSameFileAsLargeOnes_data();
    void smallArraysGiveTheSameFileAsLargeOnes();
};

void tst_write_formats::theTextTellsTheFormat_data()
{
    QTest::addColumn<SetFormat>("set");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, SetFormat set, const char* text) {
        QTest::addRow("%s", name) << set << QString(text);
    };
    row(
        "WAV", [](FileWriter& w) { w.SetFormatPCM(48000, 1, 16); }, "WAV, 48000 Hz, Mono, 16 bits");
    row(
        "MP3", [](FileWriter& w) { w.SetFormatMP3Simple(44100, 128, 2); },
        "MP3, 44100 Hz, Joint Stereo, 128 kbit/s");
    row(
        "MP3 mono", [](FileWriter& w) { w.SetFormatMP3Simple(22050, 56, 1); },
        "MP3, 22050 Hz, Mono, 56 kbit/s");
    row(
        "MP3 VBR", [](FileWriter& w) { setMp3(w, "-V 2 -m s"); }, "MP3, 44100 Hz, Stereo, VBR quality 2");
    row(
        "MP3 ABR", [](FileWriter& w) { setMp3(w, "--abr 160 -m f"); },
        "MP3, 44100 Hz, Forced Joint Stereo, ABR 160 kbit/s");
    row(
        "MP3 dual", [](FileWriter& w) { setMp3(w, "-m d"); }, "MP3, 44100 Hz, Dual Channels, 128 kbit/s");
    row(
        "Ogg by quality", [](FileWriter& w) { w.SetFormatOggVorbis(44100, 2, 128, 0, 0, 400); },
        "Ogg Vorbis, 44100 Hz, Stereo, quality 4.0");
    row(
        "Ogg by a quality between", [](FileWriter& w) { w.SetFormatOggVorbis(8000, 1, 128, 0, 0, 550); },
        "Ogg Vorbis, 8000 Hz, Mono, quality 5.5");
    row(
        "Ogg by bitrate", [](FileWriter& w) { w.SetFormatOggVorbis(44100, 2, 128, 0, 0, -1); },
        "Ogg Vorbis, 44100 Hz, Stereo, 128 kbit/s");
    row(
        "the usual WMA", [](FileWriter& w) { w.SetFormatWMA(39); }, "WMA 2, 128 kbit/s, 44100 Hz, stereo");
    row(
        "the first WMA", [](FileWriter& w) { w.SetFormatWMA(1); }, "WMA 2, 24 kbit/s, 8000 Hz, mono");
    row(
        "the last WMA", [](FileWriter& w) { w.SetFormatWMA(51); }, "WMA 2, 320 kbit/s, 48000 Hz, stereo");
}

void tst_write_formats::theTextTellsTheFormat()
{
    QFETCH(SetFormat, set);
    QFETCH(QString, text);
    FileWriter writer;
    set(writer);
    QCOMPARE(writer.FormatString(), text);
}

void tst_write_formats::aNewWriterMakesPlainWav()
{
    QCOMPARE(FileWriter().FormatString(), QString("WAV, 44100 Hz, Stereo, 16 bits"));
}

void tst_write_formats::theWmaProfilesAreFiftyOne()
{
    QCOMPARE(FileWriter().GetWmaProfileCount(), 51);
}

void tst_write_formats::laterChangesOfTheObjectDoNotCount()
{
    LameFormat format;
    FileWriter writer;
    writer.SetFormatMP3Ex(format);
    format.FormatBitrate = 320;
    QCOMPARE(writer.FormatString(), QString("MP3, 44100 Hz, Joint Stereo, 128 kbit/s"));
}

void tst_write_formats::aFormatSetWhileWritingCountsFromTheNextFile()
{
    Folder folder;
    FileWriter writer;
    writer.SetFormatMP3Simple(44100, 128, 2);
    writer.Create(folder / "a");
    writer.WriteArray(music(44100, 2, 30000));
    writer.SetFormatWMA(1);
    writer.SetInputFormat(44100, 2);
    writer.WriteArray(music(44100, 2, 30000));
    writer.Close();
    QCOMPARE(probe(folder / "a", "stream=codec_name,sample_rate").split('\n'), (QStringList{"mp3", "44100"}));
    QCOMPARE(decode(folder / "a").size(), std::size_t{120000});

    save(writer, folder / "b", music(8000, 1, 8000));
    QCOMPARE(probe(folder / "b", "stream=codec_name,sample_rate").split('\n'),
             (QStringList{"wmav2", "8000"}));
}

void tst_write_formats::soundOfAnotherShapeIsConverted_data()
{
    QTest::addColumn<SetFormat>("set");
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("outRate");
    QTest::addColumn<int>("outChannels");
    QTest::addColumn<int>("slack");
    const auto row = [](const char* name, SetFormat set, int rate, int channels, int outRate, int outChannels,
                        int slack) {
        QTest::addRow("%s", name) << set << rate << channels << outRate << outChannels << slack;
    };
    const SetFormat wav = [](FileWriter& w) { w.SetFormatPCM(44100, 2, 16); };
    const SetFormat mp3 = [](FileWriter& w) { w.SetFormatMP3Simple(44100, 128, 2); };
    const SetFormat ogg = [](FileWriter& w) { w.SetFormatOggVorbis(44100, 2, 128, 0, 0, 400); };
    const SetFormat wma = [](FileWriter& w) { w.SetFormatWMA(39); };
    row("mono to stereo WAV", wav, 44100, 1, 44100, 2, 0);
    row("48000 Hz to WAV", wav, 48000, 2, 44100, 2, 0);
    row("22050 Hz mono to WAV", wav, 22050, 1, 44100, 2, 0);
    row("48000 Hz to MP3", mp3, 48000, 2, 44100, 2, 0);
    row("22050 Hz mono to MP3", mp3, 22050, 1, 44100, 2, 0);
    row("48000 Hz to Ogg", ogg, 48000, 2, 44100, 2, 0);
    row("8000 Hz mono to Ogg", ogg, 8000, 1, 44100, 2, 0);
    row("32000 Hz to WMA", wma, 32000, 2, 44100, 2, 4096);
    row(
        "stereo to mono MP3", [](FileWriter& w) { w.SetFormatMP3Simple(22050, 56, 1); }, 44100, 2, 22050, 1,
        0);
}

void tst_write_formats::soundOfAnotherShapeIsConverted()
{
    QFETCH(SetFormat, set);
    QFETCH(int, rate);
    QFETCH(int, channels);
    QFETCH(int, outRate);
    QFETCH(int, outChannels);
    QFETCH(int, slack);
    Folder folder;
    FileWriter writer;
    set(writer);
    writer.Create(folder / "a");
    writer.SetInputFormat(rate, channels);
    for (int i = 0; i < 10; ++i) writer.WriteArray(music(rate, channels, rate / 10));
    writer.Close();
    QCOMPARE(probe(folder / "a", "stream=channels").toInt(), outChannels);
    const int frames = static_cast<int>(decode(folder / "a").size()) / outChannels;
    QVERIFY2(frames >= outRate && frames <= outRate + slack, qPrintable(QString::number(frames)));
}

void tst_write_formats::theShapeMayChangeMidway()
{
    Folder folder;
    FileWriter writer;
    writer.Create(folder / "a.wav");
    writer.SetInputFormat(22050, 1);
    writer.WriteArray(music(22050, 1, 22050));
    writer.SetInputFormat(44100, 2);
    writer.WriteArray(music(44100, 2, 44100));
    writer.Close();
    const SampleArray heard = decode(folder / "a.wav");
    QCOMPARE(heard.size(), std::size_t{4 * 44100});
    QCOMPARE(SampleArray(heard.begin() + 2 * 44100, heard.end()), music(44100, 2, 44100));
}

void tst_write_formats::theShapeOfOneFileIsForgottenInTheNext()
{
    Folder folder;
    FileWriter writer;
    writer.Create(folder / "a.wav");
    writer.SetInputFormat(8000, 1);
    writer.Close();
    const SampleArray sound = music(44100, 2, 1000);
    save(writer, folder / "b.wav", sound);
    QCOMPARE(decode(folder / "b.wav"), sound);
}

void tst_write_formats::emptyArraysDoNoHarm()
{
    Folder folder;
    const SampleArray sound = music(44100, 2, 1000);
    FileWriter writer;
    writer.Create(folder / "a.wav");
    writer.WriteArray({});
    writer.WriteArray(sound);
    writer.WriteArray({});
    writer.Close();
    QCOMPARE(decode(folder / "a.wav"), sound);
}

void tst_write_formats::smallArraysGiveTheSameFileAsLargeOnes_data()
{
    QTest::addColumn<SetFormat>("set");
    const auto row = [](const char* name, SetFormat set) { QTest::addRow("%s", name) << set; };
    row("WAV", [](FileWriter& w) { w.SetFormatPCM(44100, 2, 16); });
    row("MP3", [](FileWriter& w) { w.SetFormatMP3Simple(44100, 128, 2); });
    row("Ogg", [](FileWriter& w) { w.SetFormatOggVorbis(44100, 2, 128, 0, 0, 400); });
    row("WMA", [](FileWriter& w) { w.SetFormatWMA(39); });
}

void tst_write_formats::smallArraysGiveTheSameFileAsLargeOnes()
{
    QFETCH(SetFormat, set);
    Folder folder;
    const SampleArray sound = music(44100, 2, 30000);
    FileWriter writer;
    set(writer);
    save(writer, folder / "a", sound, 500);
    save(writer, folder / "b", sound, sound.size());
    QCOMPARE(decode(folder / "a"), decode(folder / "b"));
}

QTEST_GUILESS_MAIN(tst_write_formats)
#include "tst_write_formats.moc"
