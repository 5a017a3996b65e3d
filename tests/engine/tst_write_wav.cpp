// WAV output: byte for byte what was given, whatever its length.
#include "core/Errors.h"
#include "engine/OutputFile.h"
#include "engine/WavWriter.h"
#include "engine/WriteTools.h"

#include <QTest>
#include <QtEndian>

using namespace tools;

namespace {

quint32 number(const QByteArray& bytes, int offset)
{
    return qFromLittleEndian<quint32>(bytes.constData() + offset);
}

/// A file of a long silence and a short sound, the silence taking no room on the disk.
void saveBeyond4GiB(const QString& path, const SampleArray& sound)
{
    OutputFile file(path);
    WavWriter writer(file, 44100, 2);
    file.takePlace();
    writer.writeSilence(1200000000);
    writer.write(sound);
    writer.finish();
    file.close();
}

}

class tst_write_wav : public QObject {
    Q_OBJECT
private slots:
    void theSoundIsWhatWasGiven_data();
    void theSoundIsWhatWasGiven();
    void theHeaderTellsTheSizes();
    void otherProgramsAgreeOnTheLength();
    void anEmptyFileHasNoSound();
    void anUnfinishedFileReadsToItsEnd();
    void beyond4GiBAnotherProgramAgreesOnTheLength();
    void beyond4GiBTheHeaderHasLongSizes();
    void beyond4GiBTheEndOfTheSoundIsThere();
    void onlySixteenBitsAreOffered_data();
    void onlySixteenBitsAreOffered();
};

void tst_write_wav::theSoundIsWhatWasGiven_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("frames");
    QTest::addRow("stereo") << 44100 << 2 << 100000;
    QTest::addRow("mono") << 22050 << 1 << 100001;
    QTest::addRow("an unusual rate") << 37123 << 2 << 777;
    QTest::addRow("more than the buffers hold") << 48000 << 2 << 700000;
    QTest::addRow("one sample") << 8000 << 1 << 1;
}

void tst_write_wav::theSoundIsWhatWasGiven()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    QFETCH(int, frames);
    Folder folder;
    const SampleArray sound = music(rate, channels, frames);
    FileWriter writer;
    writer.SetFormatPCM(rate, channels, 16);
    save(writer, folder / "a.wav", sound);
    QCOMPARE(decode(folder / "a.wav"), sound);
    QCOMPARE(probe(folder / "a.wav", "stream=sample_rate").toInt(), rate);
    QCOMPARE(probe(folder / "a.wav", "stream=channels").toInt(), channels);
}

void tst_write_wav::theHeaderTellsTheSizes()
{
    Folder folder;
    FileWriter writer;
    save(writer, folder / "a.wav", SampleArray(2000));
    const QByteArray bytes = contents(folder / "a.wav");
    QCOMPARE(bytes.size(), 4080);
    QCOMPARE(bytes.left(4), QByteArray("RIFF"));
    QCOMPARE(number(bytes, 4), 4072U);
    QCOMPARE(bytes.mid(72, 4), QByteArray("data"));
    QCOMPARE(number(bytes, 76), 4000U);
}

void tst_write_wav::otherProgramsAgreeOnTheLength()
{
    Folder folder;
    FileWriter writer;
    save(writer, folder / "a.wav", music(44100, 2, 44101));
    QCOMPARE(run("sox", {"--i", "-s", folder / "a.wav"}).trimmed(), QByteArray("44101"));
    QCOMPARE(probe(folder / "a.wav", "stream=duration_ts"), QString("44101"));
}

void tst_write_wav::anEmptyFileHasNoSound()
{
    Folder folder;
    FileWriter writer;
    save(writer, folder / "a.wav", {});
    QCOMPARE(contents(folder / "a.wav").size(), 80);
    QCOMPARE(run("sox", {"--i", "-s", folder / "a.wav"}).trimmed(), QByteArray("0"));
}

void tst_write_wav::anUnfinishedFileReadsToItsEnd()
{
    Folder folder;
    const SampleArray sound = music(44100, 2, 5000);
    OutputFile file(folder / "a.wav");
    WavWriter writer(file, 44100, 2);
    file.takePlace();
    writer.write(sound);
    file.close();
    QCOMPARE(samplesOf(run("ffmpeg", {"-v", "fatal", "-i", folder / "a.wav", "-f", "s16le", "-"})), sound);
}

// sox says the same, after reading the file for a minute.
void tst_write_wav::beyond4GiBAnotherProgramAgreesOnTheLength()
{
    Folder folder;
    saveBeyond4GiB(folder / "a.wav", music(44100, 2, 1000));
    QCOMPARE(probe(folder / "a.wav", "stream=duration_ts"), QString("1200001000"));
}

void tst_write_wav::beyond4GiBTheHeaderHasLongSizes()
{
    Folder folder;
    saveBeyond4GiB(folder / "a.wav", music(44100, 2, 1000));
    QFile file(folder / "a.wav");
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray header = file.read(80);
    QCOMPARE(header.left(4), QByteArray("RF64"));
    QCOMPARE(header.mid(12, 4), QByteArray("ds64"));
    QCOMPARE(qFromLittleEndian<quint64>(header.constData() + 20), quint64(file.size()) - 8);
    QCOMPARE(qFromLittleEndian<quint64>(header.constData() + 28), 4ULL * 1200001000);
    QCOMPARE(qFromLittleEndian<quint64>(header.constData() + 36), 1200001000ULL);
    QCOMPARE(number(header, 4), 0xffffffffU);
    QCOMPARE(number(header, 76), 0xffffffffU);
}

void tst_write_wav::beyond4GiBTheEndOfTheSoundIsThere()
{
    Folder folder;
    const SampleArray sound = music(44100, 2, 1000);
    saveBeyond4GiB(folder / "a.wav", sound);
    const QByteArray end =
        run("ffmpeg", {"-v", "error", "-ss", "27210.884", "-i", folder / "a.wav", "-f", "s16le", "-"});
    QCOMPARE(samplesOf(end.right(4000)), sound);
}

void tst_write_wav::onlySixteenBitsAreOffered_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bits");
    QTest::addRow("eight bits") << 44100 << 2 << 8;
    QTest::addRow("no rate") << 0 << 2 << 16;
    QTest::addRow("no channels") << 44100 << 0 << 16;
    QTest::addRow("three channels") << 44100 << 3 << 16;
}

void tst_write_wav::onlySixteenBitsAreOffered()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    QFETCH(int, bits);
    FileWriter writer;
    QVERIFY_THROWS_EXCEPTION(EngineError, writer.SetFormatPCM(rate, channels, bits));
    QCOMPARE(writer.FormatString(), QString("WAV, 44100 Hz, Stereo, 16 bits"));
}

QTEST_GUILESS_MAIN(tst_write_wav)
#include "tst_write_wav.moc"
