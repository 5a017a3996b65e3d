// MP3 output: exact length, the stream that comes out, and the library's absence.
#include "core/Errors.h"
#include "engine/LameFormat.h"
#include "engine/WriteTools.h"

#include <QTest>

#include <thread>
#include <unistd.h>

using namespace tools;

class tst_write_mp3 : public QObject {
    Q_OBJECT
private slots:
    void theDecodedLengthIsExact_data();
    void theDecodedLengthIsExact();
    void theSoundIsInItsPlace();
    void aSecondDecoderAgrees();
    void theHeaderFrameTellsTheFrames();
    void withoutTheHeaderTheFileIsShorter();
    void aFrameTooShortForTheHeaderHoldsSound();
    void theStreamIsWhatTheLameProgramMakes_data();
    void theStreamIsWhatTheLameProgramMakes();
    void theSameMonoSoundGivesTheSameFile();
    void withoutTheLibraryCreateFails();
    void aLibraryWithoutTheFunctionsFailsCreate();
    void nothingIsPrinted();
    void writersOnTwoThreadsDoNotDisturbEachOther();
};

void tst_write_mp3::theDecodedLengthIsExact_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::addColumn<int>("frames");
    for (const int frames : {1, 100, 1151, 1152, 1153, 44100, 100003}) {
        QTest::addRow("constant bitrate, %d samples", frames) << "-b 128" << frames;
        QTest::addRow("variable bitrate, %d samples", frames) << "-V 2" << frames;
    }
    QTest::addRow("average bitrate") << "--abr 160" << 100003;
    QTest::addRow("mono") << "-m m -b 64" << 100003;
    QTest::addRow("a lower rate") << "--resample 22.05 -b 56" << 50001;
    QTest::addRow("the lowest rate") << "--resample 8 -m m -b 24" << 30001;
    QTest::addRow("with checksums") << "-p" << 50001;
    QTest::addRow("no reservoir") << "--nores" << 50001;
}

void tst_write_mp3::theDecodedLengthIsExact()
{
    QFETCH(QString, commandLine);
    QFETCH(int, frames);
    LameFormat format;
    format.SetCommandLine(commandLine);
    Folder folder;
    FileWriter writer;
    writer.SetFormatMP3Ex(format);
    save(writer, folder / "a.mp3", music(format.FormatRate, format.FormatChannels, frames));
    QCOMPARE(static_cast<int>(decode(folder / "a.mp3").size()), frames * format.FormatChannels);
}

void tst_write_mp3::theSoundIsInItsPlace()
{
    Folder folder;
    const SampleArray sound = music(44100, 2, 200000);
    FileWriter writer;
    writer.SetFormatMP3Simple(44100, 320, 2);
    save(writer, folder / "a.mp3", sound);
    QVERIFY(signalToNoise(sound, decode(folder / "a.mp3")) > 35);
}

void tst_write_mp3::aSecondDecoderAgrees()
{
    Folder folder;
    const SampleArray sound = music(44100, 2, 100003);
    FileWriter writer;
    writer.SetFormatMP3Simple(44100, 320, 2);
    save(writer, folder / "a.mp3", sound);
    run("lame", {"--quiet", "--decode", folder / "a.mp3", folder / "a.wav"});
    const SampleArray heard = decode(folder / "a.wav");
    QCOMPARE(heard.size(), sound.size());
    QVERIFY(signalToNoise(sound, heard) > 35);
}

void tst_write_mp3::theHeaderFrameTellsTheFrames()
{
    const QByteArray constant = coded(LameFormat(), music(44100, 2, 115200));
    const auto info = constant.left(200).indexOf("Info");
    QVERIFY(info > 0);
    // 100 frames of sound, and those for the delay and the end.
    const auto frames = static_cast<unsigned char>(constant.at(info + 11));
    QCOMPARE(int(frames), int(constant.size() * 44100.0 / 128000 * 8 / 1152 + 0.5) - 1);
}

void tst_write_mp3::withoutTheHeaderTheFileIsShorter()
{
    LameFormat with, without;
    without.WriteVbrHeader = false;
    const SampleArray sound = music(44100, 2, 44100);
    QVERIFY(!coded(without, sound).contains("Info"));
    const auto saved = coded(with, sound).size() - coded(without, sound).size();
    QVERIFY2(saved == 417 || saved == 418, qPrintable(QString::number(saved)));
}

void tst_write_mp3::aFrameTooShortForTheHeaderHoldsSound()
{
    LameFormat format;
    format.SetCommandLine("--resample 8 -m m -b 16");
    const QByteArray bytes = coded(format, music(8000, 1, 30000));
    QVERIFY(!bytes.contains("Info"));
    QCOMPARE(bytes.size() % 144, 0);
    QVERIFY(bytes.size() / 144 >= 30000 / 576);
}

void tst_write_mp3::theStreamIsWhatTheLameProgramMakes_data()
{
    QTest::addColumn<QString>("switches");
    QTest::addColumn<int>("channels");
    QTest::addRow("constant bitrate") << "-b 128 -q 3" << 2;
    QTest::addRow("constant bitrate, mono") << "-b 96 -q 3 -m m" << 1;
    QTest::addRow("variable bitrate") << "-V 2 -q 3" << 2;
    QTest::addRow("variable bitrate, mono") << "-V 4 -q 3 -m m" << 1;
    QTest::addRow("average bitrate") << "--abr 160 -q 3" << 2;
}

void tst_write_mp3::theStreamIsWhatTheLameProgramMakes()
{
    QFETCH(QString, switches);
    QFETCH(int, channels);
    Folder folder;
    const SampleArray sound = music(44100, channels, 100000);
    FileWriter writer;
    writer.SetFormatPCM(44100, channels, 16);
    save(writer, folder / "a.wav", sound);
    run("lame", QStringList{"--quiet", "--noreplaygain"} + switches.split(' ') +
                    QStringList{folder / "a.wav", folder / "lame.mp3"});
    LameFormat format;
    format.SetCommandLine(switches);
    const QByteArray ours = coded(format, sound);
    const QByteArray theirs = contents(folder / "lame.mp3");
    QCOMPARE(ours.size(), theirs.size());
    // Behind the header frame, which holds what the program thought the length would be.
    QVERIFY(ours.mid(1100) == theirs.mid(1100));
}

// The encoder keeps nothing of the file before.
void tst_write_mp3::theSameMonoSoundGivesTheSameFile()
{
    LameFormat format;
    format.SetCommandLine("-m m -b 96 --resample 32");
    const SampleArray sound = music(32000, 1, 40000);
    const QByteArray first = coded(format, sound);
    coded(LameFormat(), music(44100, 2, 20000));
    QVERIFY(coded(format, sound) == first);
}

void tst_write_mp3::withoutTheLibraryCreateFails()
{
    Folder folder;
    FileWriter writer(folder / "libmp3lame.so.0");
    writer.SetFormatMP3Simple(44100, 128, 2);
    QCOMPARE(writer.FormatString(), QString("MP3, 44100 Hz, Joint Stereo, 128 kbit/s"));
    QVERIFY_THROWS_EXCEPTION(EngineError, writer.Create(folder / "a.mp3"));
    QVERIFY(folder.files().isEmpty());
}

void tst_write_mp3::aLibraryWithoutTheFunctionsFailsCreate()
{
    Folder folder;
    FileWriter writer("libogg.so.0");
    writer.SetFormatMP3Simple(44100, 128, 2);
    QVERIFY_THROWS_EXCEPTION(EngineError, writer.Create(folder / "a.mp3"));
    QVERIFY(folder.files().isEmpty());
}

void tst_write_mp3::nothingIsPrinted()
{
    // The encoder has something to say about a filter of this kind.
    Folder folder;
    QFile log(folder / "stderr");
    QVERIFY(log.open(QIODevice::WriteOnly));
    const int saved = ::dup(2);
    ::dup2(log.handle(), 2);
    LameFormat format;
    format.HighpassFrequency = 30;
    const QByteArray bytes = coded(format, music(44100, 2, 20000));
    ::dup2(saved, 2);
    ::close(saved);
    QCOMPARE(contents(folder / "stderr"), QByteArray());
    QVERIFY(!bytes.isEmpty());
}

void tst_write_mp3::writersOnTwoThreadsDoNotDisturbEachOther()
{
    const SampleArray sound = music(44100, 2, 60000);
    LameFormat constant, variable;
    variable.SetCommandLine("-V 2");
    QByteArray codedAside;
    std::thread aside([&] { codedAside = coded(variable, sound); });
    const QByteArray codedHere = coded(constant, sound);
    aside.join();
    QCOMPARE(codedHere, coded(constant, sound));
    QCOMPARE(codedAside, coded(variable, sound));
}

QTEST_GUILESS_MAIN(tst_write_mp3)
#include "tst_write_mp3.moc"
