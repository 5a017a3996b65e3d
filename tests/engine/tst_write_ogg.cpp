// Ogg Vorbis output: exact length, both ways of choosing the bitrate, and what the encoder refuses.
#include "core/Errors.h"
#include "engine/OutputFile.h"
#include "engine/VorbisEncoder.h"
#include "engine/WriteTools.h"

#include <QTest>

using namespace tools;

namespace {

void saveWithSerial(const QString& path, int serial, const SampleArray& sound)
{
    OutputFile file(path);
    const auto encoder = VorbisFormat({}, serial).makeEncoder(file);
    file.takePlace();
    encoder->write(sound);
    encoder->finish();
    file.close();
}

}

class tst_write_ogg : public QObject {
    Q_OBJECT
private slots:
    void theDecodedLengthIsExact_data();
    void theDecodedLengthIsExact();
    void theSoundIsInItsPlace();
    void aSecondDecoderAgrees();
    void theManagedBitrateIsKept();
    void aHigherQualityIsALargerFile();
    void eachFileHasASerialOfItsOwn();
    void theSameSerialGivesTheSameFile();
    void whatTheEncoderTakes_data();
    void whatTheEncoderTakes();
    void aRefusedFormatFailsCreate_data();
    void aRefusedFormatFailsCreate();
};

void tst_write_ogg::theDecodedLengthIsExact_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("quality");
    QTest::addColumn<int>("bitrate");
    QTest::addColumn<int>("frames");
    for (const int frames : {1, 1000, 1024, 44100, 100003})
        QTest::addRow("quality 4, %d samples", frames) << 44100 << 2 << 400 << 128 << frames;
    QTest::addRow("the lowest quality") << 44100 << 2 << 0 << 128 << 50001;
    QTest::addRow("the highest quality") << 44100 << 2 << 1000 << 128 << 50001;
    QTest::addRow("mono") << 44100 << 1 << 400 << 128 << 50001;
    QTest::addRow("8000 Hz mono") << 8000 << 1 << 400 << 128 << 50001;
    QTest::addRow("by bitrate") << 44100 << 2 << -1 << 128 << 100003;
    QTest::addRow("by bitrate, mono") << 22050 << 1 << -1 << 48 << 50001;
}

void tst_write_ogg::theDecodedLengthIsExact()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    QFETCH(int, quality);
    QFETCH(int, bitrate);
    QFETCH(int, frames);
    Folder folder;
    FileWriter writer;
    writer.SetFormatOggVorbis(rate, channels, bitrate, 0, 0, quality);
    save(writer, folder / "a.ogg", music(rate, channels, frames));
    // By the reference decoder: FFmpeg cuts streams of a few blocks short.
    const QByteArray sound = run("oggdec", {"--quiet", "--raw", "-o", "-", folder / "a.ogg"});
    QCOMPARE(static_cast<int>(sound.size()), frames * channels * 2);
    QCOMPARE(probe(folder / "a.ogg", "stream=sample_rate").toInt(), rate);
    QCOMPARE(probe(folder / "a.ogg", "stream=channels").toInt(), channels);
}

void tst_write_ogg::theSoundIsInItsPlace()
{
    Folder folder;
    const SampleArray sound = music(44100, 2, 200000);
    FileWriter writer;
    writer.SetFormatOggVorbis(44100, 2, 128, 0, 0, 1000);
    save(writer, folder / "a.ogg", sound);
    const SampleArray heard = decode(folder / "a.ogg");
    QCOMPARE(heard.size(), sound.size());
    QVERIFY(signalToNoise(sound, heard) > 30);
}

void tst_write_ogg::aSecondDecoderAgrees()
{
    Folder folder;
    const SampleArray sound = music(44100, 2, 100003);
    FileWriter writer;
    writer.SetFormatOggVorbis(44100, 2, 128, 0, 0, 1000);
    save(writer, folder / "a.ogg", sound);
    const SampleArray heard = samplesOf(run("oggdec", {"--quiet", "--raw", "-o", "-", folder / "a.ogg"}));
    QCOMPARE(heard.size(), sound.size());
    QVERIFY(signalToNoise(sound, heard) > 30);
}

void tst_write_ogg::theManagedBitrateIsKept()
{
    Folder folder;
    const int seconds = 20;
    FileWriter writer;
    writer.SetFormatOggVorbis(44100, 2, 96, 0, 0, -1);
    save(writer, folder / "a.ogg", music(44100, 2, 44100 * seconds));
    const double kilobits = static_cast<double>(contents(folder / "a.ogg").size()) * 8 / 1000 / seconds;
    QVERIFY2(std::abs(kilobits - 96) < 6, qPrintable(QString::number(kilobits)));
}

void tst_write_ogg::aHigherQualityIsALargerFile()
{
    Folder folder;
    const SampleArray sound = music(44100, 2, 88200);
    FileWriter writer;
    for (const int quality : {0, 400, 1000}) {
        writer.SetFormatOggVorbis(44100, 2, 128, 0, 0, quality);
        save(writer, folder / QString("%1.ogg").arg(quality), sound);
    }
    QVERIFY(contents(folder / "0.ogg").size() < contents(folder / "400.ogg").size());
    QVERIFY(contents(folder / "400.ogg").size() < contents(folder / "1000.ogg").size());
}

void tst_write_ogg::eachFileHasASerialOfItsOwn()
{
    Folder folder;
    FileWriter writer;
    writer.SetFormatOggVorbis(44100, 2, 128, 0, 0, 400);
    save(writer, folder / "a.ogg", music(44100, 2, 100));
    save(writer, folder / "b.ogg", music(44100, 2, 100));
    QVERIFY(contents(folder / "a.ogg").mid(14, 4) != contents(folder / "b.ogg").mid(14, 4));
}

void tst_write_ogg::theSameSerialGivesTheSameFile()
{
    Folder folder;
    const SampleArray sound = music(44100, 2, 60000);
    saveWithSerial(folder / "a.ogg", 7, sound);
    saveWithSerial(folder / "b.ogg", 7, sound);
    QCOMPARE(contents(folder / "a.ogg"), contents(folder / "b.ogg"));
}

void tst_write_ogg::whatTheEncoderTakes_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bitrate");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<bool>("taken");
    QTest::addRow("the usual") << 44100 << 2 << 128 << 0 << 0 << true;
    QTest::addRow("the lowest for stereo") << 44100 << 2 << 48 << 0 << 0 << true;
    QTest::addRow("too low for stereo") << 44100 << 2 << 32 << 0 << 0 << false;
    QTest::addRow("the same is enough for mono") << 44100 << 1 << 32 << 0 << 0 << true;
    QTest::addRow("too high for mono") << 44100 << 1 << 256 << 0 << 0 << false;
    QTest::addRow("too high for 8000 Hz") << 8000 << 2 << 96 << 0 << 0 << false;
    QTest::addRow("24 at 16000 Hz stereo") << 16000 << 2 << 24 << 0 << 0 << true;
    QTest::addRow("limits around it") << 44100 << 2 << 128 << 96 << 192 << true;
    QTest::addRow("one fixed bitrate") << 44100 << 2 << 128 << 128 << 128 << true;
    QTest::addRow("a lower limit above it") << 44100 << 2 << 128 << 192 << 0 << false;
    QTest::addRow("an upper limit below it") << 44100 << 2 << 128 << 0 << 96 << false;
    QTest::addRow("limits the wrong way round") << 44100 << 2 << 128 << 320 << 8 << false;
    QTest::addRow("no bitrate at all") << 44100 << 2 << 0 << 0 << 0 << false;
    QTest::addRow("no rate") << 0 << 2 << 128 << 0 << 0 << false;
    QTest::addRow("a rate below nothing") << -1 << 2 << 128 << 0 << 0 << false;
    QTest::addRow("a rate out of all bounds") << 500000 << 2 << 128 << 0 << 0 << false;
    QTest::addRow("no channels") << 44100 << 0 << 128 << 0 << 0 << false;
    QTest::addRow("six channels") << 44100 << 6 << 128 << 0 << 0 << false;
}

void tst_write_ogg::whatTheEncoderTakes()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    QFETCH(int, bitrate);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(bool, taken);
    const FileWriter writer;
    QCOMPARE(writer.IsFormatOggVorbisAvailable(rate, channels, bitrate, minimum, maximum), taken);
}

void tst_write_ogg::aRefusedFormatFailsCreate_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bitrate");
    QTest::addRow("a bitrate too low") << 44100 << 2 << 8;
    QTest::addRow("no rate") << 0 << 2 << 128;
    QTest::addRow("too many channels") << 44100 << 3 << 128;
}

void tst_write_ogg::aRefusedFormatFailsCreate()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    QFETCH(int, bitrate);
    Folder folder;
    FileWriter writer;
    writer.SetFormatOggVorbis(rate, channels, bitrate, 0, 0, -1);
    QVERIFY_THROWS_EXCEPTION(EngineError, writer.Create(folder / "a.ogg"));
    QVERIFY(folder.files().isEmpty());
    writer.Close();
}

QTEST_GUILESS_MAIN(tst_write_ogg)
#include "tst_write_ogg.moc"
