// WAV and RF64: what comes out is what lies in the file, whatever the header says of lengths.
#include "tests/engine/ReadingFixtures.h"

class tst_read_wav : public QObject {
    Q_OBJECT

private slots:
    void theSamplesComeOutAsTheyStand();
    void aMonoFileHasOneChannel();
    void theLengthToldIsBelievedOnlyAsFarAsTheFileGoes_data();
    void theLengthToldIsBelievedOnlyAsFarAsTheFileGoes();
    void chunksAheadOfTheSoundArePassedOver();
    void chunksBehindTheSoundAreNoSound();
    void anExtensibleHeaderIsReadLikeAPlainOne();
    void anRf64FileTakesItsLengthFromTheLongHeader();
    void aFileBeyondFourGigabytesIsReadToItsEnd();
    void anRf64FileThatWasNeverClosedIsReadToItsEnd();
    void halfAFrameAtTheEndIsLeftOut();
    void aFileWithoutFramesHasATotalOfNothing();
    void aHeaderAloneHasATotalOfNothing();
    void otherSampleFormatsComeOutAsFfmpegTurnsThem_data();
    void otherSampleFormatsComeOutAsFfmpegTurnsThem();
    void loudFloatsAreClipped();
    void moreThanTwoChannelsAreMixedDownToTwo_data();
    void moreThanTwoChannelsAreMixedDownToTwo();
    void compressedWavIsReadAsWell();
    void aSeekLandsOnItsFrame();
    void aFileThatShrinksUnderTheReaderEndsEarly();
    void aFileThatIsReplacedKeepsItsSound();

private:
    SoundFolder files_;
};

void tst_read_wav::theSamplesComeOutAsTheyStand()
{
    const SampleArray sound = music(100003, 2);
    FileReader reader;
    reader.Open(files_.put("plain.wav", plainWav(sound, 2)));
    QCOMPARE(reader.GetTotalSamples(), 100003);
    QCOMPARE(reader.GetChannels(), 2);
    QCOMPARE(firstDifference(readAll(reader), sound), -1);
}

void tst_read_wav::aMonoFileHasOneChannel()
{
    const SampleArray sound = music(5000, 1);
    FileReader reader;
    reader.Open(files_.put("mono.wav", plainWav(sound, 1, 8000)));
    QCOMPARE(reader.GetChannels(), 1);
    QCOMPARE(reader.GetReadChannels(), 1);
    QCOMPARE(reader.GetOutputRate(), 8000);
    QCOMPARE(readAll(reader), sound);
}

void tst_read_wav::theLengthToldIsBelievedOnlyAsFarAsTheFileGoes_data()
{
    QTest::addColumn<quint32>("told");
    QTest::addColumn<int>("frames");
    QTest::addRow("none told means to the end") << 0u << 1000;
    QTest::addRow("all ones mean to the end") << 0xffffffffu << 1000;
    QTest::addRow("more than there is means to the end") << 0x7ffffff0u << 1000;
    QTest::addRow("less than there is stands") << 400u << 100;
}

void tst_read_wav::theLengthToldIsBelievedOnlyAsFarAsTheFileGoes()
{
    QFETCH(quint32, told);
    QFETCH(int, frames);
    Bytes wav = plainWav(music(1000, 2), 2);
    wav.replace(wav.indexOf("data") + 4, 4, littleEndian(told));
    FileReader reader;
    reader.Open(files_.put("told.wav", wav));
    QCOMPARE(reader.GetTotalSamples(), frames);
    QCOMPARE(readAll(reader).size(), std::size_t(frames) * 2);
}

void tst_read_wav::chunksAheadOfTheSoundArePassedOver()
{
    const SampleArray sound = music(300, 2);
    const Bytes chunks = chunk("JUNK", Bytes(28, 'j')) + formChunk(2, 16) + chunk("LIST", Bytes("INFOodd")) +
                         chunk("data", bytesOf(sound));
    QCOMPARE(readFile(files_.put("chunks.wav", riff(chunks))), sound);
}

void tst_read_wav::chunksBehindTheSoundAreNoSound()
{
    const SampleArray sound = music(300, 2);
    const Bytes chunks = formChunk(2, 16) + chunk("data", bytesOf(sound)) + chunk("LIST", Bytes(400, 'x'));
    QCOMPARE(readFile(files_.put("behind.wav", riff(chunks))), sound);
}

void tst_read_wav::anExtensibleHeaderIsReadLikeAPlainOne()
{
    const SampleArray sound = music(300, 2);
    Bytes form = formChunk(2, 16, 0xfffe).mid(8);
    form += littleEndian(std::uint16_t(22)) + littleEndian(std::uint16_t(16)) +
            littleEndian(std::uint32_t(3)) + littleEndian(std::uint16_t(1)) +
            Bytes::fromHex("000000001000800000aa00389b71");
    const Bytes wav = riff(chunk("fmt ", form) + chunk("data", bytesOf(sound)));
    QCOMPARE(readFile(files_.put("extensible.wav", wav)), sound);
}

static Bytes rf64(std::uint64_t told, const Bytes& data)
{
    const Bytes sizes =
        littleEndian(told + 72) + littleEndian(told) + littleEndian(told / 4) + Bytes(4, '\0');
    return Bytes("RF64\xff\xff\xff\xffWAVE") + chunk("ds64", sizes) + formChunk(2, 16) +
           Bytes("data\xff\xff\xff\xff") + data;
}

void tst_read_wav::anRf64FileTakesItsLengthFromTheLongHeader()
{
    const SampleArray sound = music(300, 2);
    const Bytes wav = rf64(1200, bytesOf(sound) + Bytes(500, 'x'));
    QCOMPARE(readFile(files_.put("long.wav", wav)), sound);
}

void tst_read_wav::aFileBeyondFourGigabytesIsReadToItsEnd()
{
    const std::int64_t frames = 1'200'000'000;
    const SampleArray last = music(1000, 2);
    QFile file(files_.put("sparse.wav", rf64(4 * frames, {})));
    QVERIFY(file.open(QIODevice::ReadWrite));
    const std::int64_t head = file.size();
    QVERIFY(file.seek(head + 4 * (frames - 1000)));
    QCOMPARE(file.write(bytesOf(last)), qint64(4000));
    file.close();

    FileReader reader;
    reader.Open(file.fileName());
    QCOMPARE(std::int64_t(reader.GetTotalSamples()), frames);
    QCOMPARE(std::int64_t(reader.Seek(int(frames) - 1000)), frames - 1000);
    QCOMPARE(readAll(reader), last);
}

void tst_read_wav::anRf64FileThatWasNeverClosedIsReadToItsEnd()
{
    const SampleArray sound = music(300, 2);
    QCOMPARE(readFile(files_.put("open.wav", rf64(0, bytesOf(sound)))), sound);
}

void tst_read_wav::halfAFrameAtTheEndIsLeftOut()
{
    const SampleArray sound = music(300, 2);
    const Bytes wav = plainWav(sound, 2);
    QCOMPARE(readFile(files_.put("half.wav", wav.left(wav.size() - 2))).size(), std::size_t(598));
}

void tst_read_wav::aFileWithoutFramesHasATotalOfNothing()
{
    FileReader reader;
    reader.Open(files_.put("empty.wav", plainWav({}, 2)));
    QCOMPARE(reader.GetTotalSamples(), 0);
    QVERIFY(reader.ReadArray(100).empty());
}

void tst_read_wav::aHeaderAloneHasATotalOfNothing()
{
    FileReader reader;
    reader.Open(files_.put("head.wav", plainWav(music(300, 2), 2).left(44)));
    QCOMPARE(reader.GetTotalSamples(), 0);
    QVERIFY(!reader.IsClosed());
}

void tst_read_wav::otherSampleFormatsComeOutAsFfmpegTurnsThem_data()
{
    QTest::addColumn<QString>("codec");
    QTest::addColumn<QString>("text");
    QTest::addRow("8 bits") << "pcm_u8"
                            << "WAV, 44100 Hz, Stereo, 8 bits";
    QTest::addRow("24 bits") << "pcm_s24le"
                             << "WAV, 44100 Hz, Stereo, 24 bits";
    QTest::addRow("32 bits") << "pcm_s32le"
                             << "WAV, 44100 Hz, Stereo, 32 bits";
    QTest::addRow("32 bits floating") << "pcm_f32le"
                                      << "WAV, 44100 Hz, Stereo, 32 bits";
    QTest::addRow("64 bits floating") << "pcm_f64le"
                                      << "WAV, 44100 Hz, Stereo, 64 bits";
}

void tst_read_wav::otherSampleFormatsComeOutAsFfmpegTurnsThem()
{
    QFETCH(QString, codec);
    QFETCH(QString, text);
    files_.put("from.wav", plainWav(music(20001, 2), 2));
    FileReader reader;
    reader.Open(files_.make("ffmpeg -v error -y -i from.wav -af volume=0.37 -c:a " + codec + " other.wav"));
    QCOMPARE(reader.FormatString(), text);
    QCOMPARE(reader.GetTotalSamples(), 20001);
    QCOMPARE(firstDifference(readAll(reader), files_.decodedByFfmpeg("other.wav")), -1);
}

void tst_read_wav::loudFloatsAreClipped()
{
    Bytes floats;
    for (const float value : {2.0f, -2.0f, 0.5f, 1.0f}) floats += littleEndian(value);
    const Bytes wav = riff(formChunk(1, 32, 3) + chunk("data", floats));
    QCOMPARE(readFile(files_.put("loud.wav", wav)), (SampleArray{32767, -32768, 16384, 32767}));
}

void tst_read_wav::moreThanTwoChannelsAreMixedDownToTwo_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<QString>("codec");
    QTest::addRow("four, 16 bits") << 4 << "pcm_s16le";
    QTest::addRow("six, 16 bits") << 6 << "pcm_s16le";
    QTest::addRow("six, 24 bits") << 6 << "pcm_s24le";
}

void tst_read_wav::moreThanTwoChannelsAreMixedDownToTwo()
{
    QFETCH(int, channels);
    QFETCH(QString, codec);
    files_.put("from.wav", plainWav(music(9000, channels), channels));
    FileReader reader;
    reader.Open(files_.make("ffmpeg -v error -y -i from.wav -c:a " + codec + " many.wav"));
    QCOMPARE(reader.GetChannels(), 2);
    const SampleArray mixed = samplesOf(files_.run("ffmpeg -v quiet -i many.wav -ac 2 -f s16le -"));
    QCOMPARE(firstDifference(readAll(reader), mixed), -1);
}

void tst_read_wav::compressedWavIsReadAsWell()
{
    files_.put("from.wav", plainWav(music(20000, 2), 2));
    FileReader reader;
    reader.Open(files_.make("ffmpeg -v error -y -i from.wav -c:a adpcm_ima_wav adpcm.wav"));
    const SampleArray sound = readAll(reader);
    QCOMPARE(sound.size(), std::size_t(reader.GetTotalSamples()) * 2);
    QCOMPARE(firstDifference(sound, files_.decodedByFfmpeg("adpcm.wav")), -1);
}

void tst_read_wav::aSeekLandsOnItsFrame()
{
    const SampleArray sound = music(5000, 2);
    FileReader reader;
    reader.Open(files_.put("seek.wav", plainWav(sound, 2)));
    for (const int frame : {4999, 0, 1234, 1233}) {
        QCOMPARE(reader.Seek(frame), frame);
        QCOMPARE(reader.ReadArray(1), (SampleArray{sound[2 * frame], sound[2 * frame + 1]}));
    }
}

void tst_read_wav::aFileThatShrinksUnderTheReaderEndsEarly()
{
    const QString path = files_.put("shrinks.wav", plainWav(music(5000, 2), 2));
    FileReader reader;
    reader.Open(path);
    QVERIFY(QFile::resize(path, 44 + 4 * 100));
    QCOMPARE(readAll(reader).size(), std::size_t(200));
}

void tst_read_wav::aFileThatIsReplacedKeepsItsSound()
{
    const SampleArray sound = music(500, 2);
    const QString path = files_.put("kept.wav", plainWav(sound, 2));
    FileReader reader;
    reader.Open(path);
    QVERIFY(QFile::remove(path));
    files_.put("kept.wav", plainWav(music(10, 1), 1));
    QCOMPARE(readAll(reader), sound);
}

QTEST_GUILESS_MAIN(tst_read_wav)
#include "tst_read_wav.moc"
