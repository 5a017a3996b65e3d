// MP3, Ogg Vorbis, WMA and the sound of AVI: to the sample what the libraries' own programs make of them, and
// as long as the reader says before it decodes.
#include "tests/engine/ReadingFixtures.h"

class tst_read_compressed : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void theSoundAndTheTotalAreExact_data();
    void theSoundAndTheTotalAreExact();
    void theCodecDelayIsTakenOutOfAnMp3WithAHeader();
    void theFormatIsDescribed_data();
    void theFormatIsDescribed();
    void theFirstSoundOfAnAviIsTaken();
    void sixChannelsOfAnAviAreMixedDownToTwo();
    void aLargePictureInFrontOfAnMp3IsPassedOver();
    void theNameOfAFileDoesNotMatter();
    void theDurationIsInMilliseconds();
    void theSizeOfTheArraysChangesNothing();

private:
    SoundFolder files_;
};

void tst_read_compressed::initTestCase()
{
    files_.put("a.wav", plainWav(music(12 * 44100 + 3, 2), 2));
    files_.put("mono.wav", plainWav(music(5 * 22050, 1, 22050), 1, 22050));
}

void tst_read_compressed::theSoundAndTheTotalAreExact_data()
{
    QTest::addColumn<QString>("line");
    QTest::addRow("MP3, constant") << "lame --quiet -b 128 a.wav x.mp3";
    QTest::addRow("MP3, constant, without a header") << "lame --quiet -b 128 -t a.wav x.mp3";
    QTest::addRow("MP3, variable") << "lame --quiet -V 2 a.wav x.mp3";
    QTest::addRow("MP3, variable, without a header") << "lame --quiet -V 2 -t a.wav x.mp3";
    QTest::addRow("MP3, average") << "lame --quiet --abr 100 a.wav x.mp3";
    QTest::addRow("MP3, 320") << "lame --quiet -b 320 a.wav x.mp3";
    QTest::addRow("MP3, checksums") << "lame --quiet -b 96 -p a.wav x.mp3";
    QTest::addRow("MP3, tagged in front") << "lame --quiet -b 64 --add-id3v2 --tt Title a.wav x.mp3";
    QTest::addRow("MP3, mono, low rate") << "lame --quiet -b 32 mono.wav x.mp3";
    QTest::addRow("MP3, lowest bitrate") << "lame --quiet -b 8 --resample 24 a.wav x.mp3";
    QTest::addRow("Ogg, worst") << "oggenc -Q -q -1 a.wav -o x.ogg";
    QTest::addRow("Ogg, usual") << "oggenc -Q -q 4 a.wav -o x.ogg";
    QTest::addRow("Ogg, managed") << "oggenc -Q --managed -b 128 a.wav -o x.ogg";
    QTest::addRow("Ogg, mono") << "oggenc -Q mono.wav -o x.ogg";
    QTest::addRow("WMA 1") << "ffmpeg -v error -y -i a.wav -c:a wmav1 x.wma";
    QTest::addRow("WMA 2") << "ffmpeg -v error -y -i a.wav -c:a wmav2 -b:a 192k x.wma";
    QTest::addRow("WMA 2, mono, low rate") << "ffmpeg -v error -y -i mono.wav -c:a wmav2 x.wma";
    QTest::addRow("AVI, PCM") << "ffmpeg -v error -y -i a.wav -c:a pcm_s16le x.avi";
    QTest::addRow("AVI, MP3") << "ffmpeg -v error -y -i a.wav -c:a libmp3lame x.avi";
    QTest::addRow("AVI, AC3") << "ffmpeg -v error -y -i a.wav -c:a ac3 x.avi";
}

void tst_read_compressed::theSoundAndTheTotalAreExact()
{
    QFETCH(QString, line);
    FileReader reader;
    reader.SetWmaEnabled(true);
    reader.Open(files_.make(line));
    const SampleArray sound = readAll(reader);
    QCOMPARE(firstDifference(sound, files_.decodedByFfmpeg(line.section(' ', -1))), -1);
    QCOMPARE(std::size_t(reader.GetTotalSamples()), sound.size() / reader.GetChannels());
}

void tst_read_compressed::theCodecDelayIsTakenOutOfAnMp3WithAHeader()
{
    FileReader reader;
    reader.Open(files_.make("lame --quiet -b 128 a.wav delay.mp3"));
    QCOMPARE(reader.GetTotalSamples(), 12 * 44100 + 3);
}

void tst_read_compressed::theFormatIsDescribed_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("text");
    const QString cd = "44100 Hz, Stereo, ";
    QTest::addRow("MP3") << "lame --quiet -b 192 a.wav t.mp3"
                         << "MP3, " + cd + "192 kbit/s";
    QTest::addRow("MP3, mono") << "lame --quiet -b 48 mono.wav t.mp3"
                               << "MP3, 22050 Hz, Mono, 48 kbit/s";
    QTest::addRow("WMA") << "ffmpeg -v error -y -i a.wav -c:a wmav2 -b:a 128k t.wma"
                         << "WMA, " + cd + "128 kbit/s";
    QTest::addRow("AVI, MP3") << "ffmpeg -v error -y -i a.wav -c:a libmp3lame -b:a 96k t.avi"
                              << "AVI, MP3, " + cd + "96 kbit/s";
    QTest::addRow("AVI, AC3") << "ffmpeg -v error -y -i a.wav -c:a ac3 -b:a 224k t.avi"
                              << "AVI, AC3, " + cd + "224 kbit/s";
    QTest::addRow("AVI, PCM") << "ffmpeg -v error -y -i a.wav -c:a pcm_s16le t.avi"
                              << "AVI, PCM, " + cd + "16 bits";
    QTest::addRow("WAV") << "sox a.wav t.wav"
                         << "WAV, " + cd + "16 bits";
}

void tst_read_compressed::theFormatIsDescribed()
{
    QFETCH(QString, line);
    QFETCH(QString, text);
    FileReader reader;
    reader.SetWmaEnabled(true);
    reader.Open(files_.make(line));
    QCOMPARE(reader.FormatString(), text);
}

void tst_read_compressed::theFirstSoundOfAnAviIsTaken()
{
    files_.run("lame --quiet -b 128 mono.wav first.mp3");
    const QString path =
        files_.make("ffmpeg -v error -y -f lavfi -i testsrc=s=64x48:d=3 -i first.mp3 -i a.wav "
                    "-map 0 -map 1 -map 2 -c:v mpeg4 -c:a:0 copy -c:a:1 pcm_s16le two.avi");
    FileReader reader;
    reader.Open(path);
    QVERIFY(reader.FormatString().startsWith("AVI, MP3, 22050 Hz, Mono"));
    const SampleArray wanted = samplesOf(files_.run("ffmpeg -v quiet -i two.avi -map 0:1 -f s16le -"));
    QCOMPARE(firstDifference(readAll(reader), wanted), -1);
}

void tst_read_compressed::sixChannelsOfAnAviAreMixedDownToTwo()
{
    files_.put("six.wav", plainWav(music(60000, 6), 6));
    FileReader reader;
    reader.Open(files_.make("ffmpeg -v error -y -i six.wav -c:a ac3 six.avi"));
    QCOMPARE(reader.GetChannels(), 2);
    const SampleArray mixed = samplesOf(files_.run("ffmpeg -v quiet -i six.avi -ac 2 -f s16le -"));
    QCOMPARE(firstDifference(readAll(reader), mixed), -1);
}

void tst_read_compressed::aLargePictureInFrontOfAnMp3IsPassedOver()
{
    files_.run("lame --quiet -b 128 mono.wav bare.mp3");
    const int bytes = 3 << 20;
    const Bytes size = Bytes(1, char(bytes >> 21)) + Bytes(1, char(bytes >> 14 & 127)) + Bytes(2, '\0');
    const Bytes tag = Bytes("ID3\x03\0\0", 6) + size + Bytes(bytes, '\xff');
    const QString path = files_.put("picture.bin", tag + files_.get("bare.mp3"));
    QCOMPARE(firstDifference(readFile(path), files_.decodedByFfmpeg("bare.mp3")), -1);
}

void tst_read_compressed::theNameOfAFileDoesNotMatter()
{
    files_.run("lame --quiet -b 128 mono.wav named.mp3");
    const QString path = files_.put("concat: named.wav", files_.get("named.mp3"));
    QCOMPARE(firstDifference(readFile(path), files_.decodedByFfmpeg("named.mp3")), -1);
}

void tst_read_compressed::theDurationIsInMilliseconds()
{
    FileReader reader;
    reader.Open(files_.make("oggenc -Q mono.wav -o time.ogg"));
    QCOMPARE(reader.GetDurationMs(), 5000);
    QCOMPARE(reader.GetSampleRate(), 22050);
}

void tst_read_compressed::theSizeOfTheArraysChangesNothing()
{
    const QString path = files_.make("lame --quiet -b 128 mono.wav sizes.mp3");
    const SampleArray sound = readFile(path);
    for (const int count : {441, 65537, 10'000'000}) {
        FileReader reader;
        reader.Open(path);
        QCOMPARE(firstDifference(readAll(reader, count), sound), -1);
    }
}

QTEST_GUILESS_MAIN(tst_read_compressed)
#include "tst_read_compressed.moc"
