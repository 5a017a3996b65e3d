// AVI files by our own walk over their chunks: to the sample what ffmpeg makes of them.
#include "engine/PacketBatchDecoder.h"
#include "tests/engine/AviFixtures.h"

class tst_read_avi : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void theSoundIsThatOfFfmpeg_data();
    void theSoundIsThatOfFfmpeg();
    void theFirstSoundThatCanBeDecodedIsTaken();
    void pcmBehindASecondSoundIsLeftOut();
    void theOrderOfTheStreamsDoesNotMatter_data();
    void theOrderOfTheStreamsDoesNotMatter();
    void mp3NeedNotLieInWholeFrames_data();
    void mp3NeedNotLieInWholeFrames();
    void batchesOfMp3GiveTheSoundOfOnePass();
    void chunksMayLieInAnyBuild_data();
    void chunksMayLieInAnyBuild();
    void aFileOfSeveralSegmentsBeyond4GiBIsReadWhole();
    void theIndexIsNotLookedAt();

private:
    SoundFolder files_;
};

void tst_read_avi::initTestCase()
{
    files_.put("a.wav", plainWav(music(4 * 44100 + 3, 2), 2));
    files_.put("mono.wav", plainWav(music(3 * 22050 + 1, 1, 22050), 1, 22050));
    files_.put("six.wav", plainWav(music(48001, 6, 48000), 6, 48000));
}

void tst_read_avi::theSoundIsThatOfFfmpeg_data()
{
    QTest::addColumn<QString>("how");
    for (const char* form : {"u8", "s16le", "s24le", "s32le", "f32le", "f64le", "alaw", "mulaw"})
        for (const char* from : {"a", "mono", "six"})
            QTest::addRow("PCM %s of %s", form, from) << QString("%1.wav -c:a pcm_%2").arg(from, form);
    QTest::addRow("MP3, constant") << "a.wav -c:a libmp3lame -b:a 128k";
    QTest::addRow("MP3, variable") << "a.wav -c:a libmp3lame -q:a 2";
    QTest::addRow("MP3, mono, low rate") << "mono.wav -c:a libmp3lame -b:a 32k";
    QTest::addRow("MP2") << "a.wav -c:a mp2";
    QTest::addRow("AC3") << "a.wav -c:a ac3";
    QTest::addRow("AC3, six channels") << "six.wav -c:a ac3";
    QTest::addRow("DTS") << "six.wav -c:a dca -strict -2";
    QTest::addRow("AAC") << "a.wav -c:a aac";
    QTest::addRow("FLAC") << "a.wav -c:a flac -strict -2";
    QTest::addRow("Vorbis") << "a.wav -c:a libvorbis";
    QTest::addRow("ADPCM of Microsoft") << "a.wav -c:a adpcm_ms";
    QTest::addRow("ADPCM of the IMA") << "mono.wav -c:a adpcm_ima_wav";
    QTest::addRow("WMA") << "a.wav -c:a wmav2";
}

void tst_read_avi::theSoundIsThatOfFfmpeg()
{
    QFETCH(QString, how);
    const QString path = files_.make("ffmpeg -v error -y -i " + how + " x.avi");
    QVERIFY(inspect(path).avi);
    FileReader reader;
    reader.Open(path);
    const SampleArray sound = readAll(reader);
    const QString line = "ffmpeg -v quiet -i x.avi -map 0:a:0 %1-f s16le -";
    const SampleArray wanted = samplesOf(files_.run(line.arg(how.startsWith("six") ? "-ac 2 " : "")));
    QVERIFY(!sound.empty());
    QCOMPARE(firstDifference(sound, wanted), -1);
    QCOMPARE(std::size_t(reader.GetTotalSamples()), sound.size() / reader.GetChannels());
}

void tst_read_avi::theFirstSoundThatCanBeDecodedIsTaken()
{
    const SampleArray sound = music(9000, 2);
    Bytes unknown = pcmForm(2, 16);
    unknown[0] = 0x34, unknown[1] = 0x12;
    const Bytes head = headList(soundStream(unknown, 44100, 4) + soundStream(pcmForm(2, 16), 44100, 4));
    const Bytes movi = chunk("00wb", Bytes(999, 'x')) + chunk("01wb", bytesOf(sound));
    const QString path = files_.put("unknown.avi", aviFile(head + listOf("movi", movi)));
    QVERIFY(inspect(path).avi);
    QCOMPARE(firstDifference(readFile(path), sound), -1);
}

void tst_read_avi::pcmBehindASecondSoundIsLeftOut()
{
    const QString path = files_.make("ffmpeg -v error -y -i a.wav -i mono.wav -map 0 -map 1 -c:a:0 pcm_s16le "
                                     "-c:a:1 libmp3lame two.avi");
    QVERIFY(inspect(path).avi);
    QCOMPARE(firstDifference(readFile(path), music(4 * 44100 + 3, 2)), -1);
}

void tst_read_avi::theOrderOfTheStreamsDoesNotMatter_data()
{
    QTest::addColumn<QString>("order");
    QTest::addRow("pictures first") << "-map 0 -map 1";
    QTest::addRow("sound first") << "-map 1 -map 0";
}

void tst_read_avi::theOrderOfTheStreamsDoesNotMatter()
{
    QFETCH(QString, order);
    const QString path = files_.make("ffmpeg -v error -y -f lavfi -i testsrc=s=320x240:d=4 -i a.wav " +
                                     order + " -c:v mpeg4 -c:a libmp3lame order.avi");
    QVERIFY(inspect(path).avi);
    const SampleArray wanted = samplesOf(files_.run("ffmpeg -v quiet -i order.avi -map 0:a:0 -f s16le -"));
    QCOMPARE(firstDifference(readFile(path), wanted), -1);
}

void tst_read_avi::mp3NeedNotLieInWholeFrames_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("chunkBytes");
    for (const char* kind : {"-b 128", "-V 3"})
        for (const int bytes : {100, 417, 1000, 4800, 10'000'000})
            QTest::addRow("%s in chunks of %d", kind, bytes) << kind << bytes;
}

void tst_read_avi::mp3NeedNotLieInWholeFrames()
{
    QFETCH(QString, kind);
    QFETCH(int, chunkBytes);
    files_.run("lame --quiet -t " + kind + " a.wav pieces.mp3");
    const Bytes head = headList(pictureStream() + soundStream(mp3Form(2, 44100), 16000, 1));
    const Bytes movi = interleaved(files_.get("pieces.mp3"), chunkBytes);
    const QString path = files_.put("pieces.avi", aviFile(head + listOf("movi", movi)));
    const CompressedFile file = inspect(path);
    QVERIFY(file.avi);
    const SampleArray wanted = samplesOf(files_.run("ffmpeg -v quiet -i pieces.avi -map 0:a:0 -f s16le -"));
    QCOMPARE(firstDifference(readFile(path), wanted), -1);
    QCOMPARE(std::size_t(file.info.total), wanted.size() / 2);
}

void tst_read_avi::batchesOfMp3GiveTheSoundOfOnePass()
{
    const CompressedFile file =
        inspect(files_.make("ffmpeg -v error -y -i a.wav -c:a libmp3lame -q:a 4 b.avi"));
    QVERIFY(file.avi);
    for (const std::size_t packets : {3u, 40u}) {
        PacketBatchDecoder batches(openPackets(file), file.codec, {3, packets});
        QCOMPARE(firstDifference(drain(batches), inOnePass(file)), -1);
    }
}

void tst_read_avi::chunksMayLieInAnyBuild_data()
{
    QTest::addColumn<Bytes>("movi");
    QTest::addColumn<Bytes>("behind");
    const Bytes sound = bytesOf(music(30000, 2));
    const Bytes head = Bytes("LIST") + number(0) + Bytes("movi");
    const Bytes chunks = interleaved(sound, 4000);
    const Bytes half = interleaved(sound.left(60000), 3000), rest = interleaved(sound.mid(60000), 3000);
    const Bytes segment = Bytes("RIFF") + number(0) + Bytes("AVIX");
    Bytes records, unfilled;
    for (qsizetype at = 0; at < sound.size(); at += 5000)
        records += listOf("rec ", interleaved(sound.mid(at, 5000), 5000));
    for (qsizetype at = 0; at < sound.size(); at += 4000)
        unfilled += Bytes("00dc") + number(3) + "abc" + chunk("01wb", sound.mid(at, 4000));

    QTest::addRow("usual") << listOf("movi", chunks) << Bytes();
    QTest::addRow("all the sound in one chunk") << listOf("movi", chunk("01wb", sound)) << Bytes();
    QTest::addRow("records") << listOf("movi", records) << Bytes();
    QTest::addRow("odd chunks that nothing fills up") << listOf("movi", unfilled) << Bytes();
    QTest::addRow("empty chunks") << listOf("movi", chunk("01wb", "") + chunks + chunk("01wb", ""))
                                  << Bytes();
    QTest::addRow("junk and indexes in between")
        << listOf("movi", half + chunk("JUNK", Bytes(777, '\0')) + chunk("ix01", Bytes(96, 'i')) + rest)
        << chunk("idx1", Bytes(64, '\0'));
    QTest::addRow("a length of 0") << head + chunks << Bytes();
    QTest::addRow("a length that is a lie") << Bytes("LIST") + number(99) + Bytes("movi") + chunks << Bytes();
    QTest::addRow("two segments") << listOf("movi", half)
                                  << chunk("idx1", Bytes(32, '\0')) +
                                         chunk("RIFF", Bytes("AVIX") + listOf("movi", rest));
    QTest::addRow("a second segment that was never closed") << listOf("movi", half) << segment + head + rest;
    QTest::addRow("zeros behind") << listOf("movi", chunks) << Bytes(100'001, '\0');
    QTest::addRow("a foreign chunk behind") << listOf("movi", chunks) << chunk("_PMX", Bytes(5000, 'x'));
}

void tst_read_avi::chunksMayLieInAnyBuild()
{
    QFETCH(Bytes, movi);
    QFETCH(Bytes, behind);
    const QString path = files_.put("build.avi", aviFile(usualHead() + movi) + behind);
    const CompressedFile file = inspect(path);
    QVERIFY(file.avi);
    QCOMPARE(firstDifference(readFile(path), music(30000, 2)), -1);
    QCOMPARE(firstDifference(byLibavformat(path), music(30000, 2)), -1);
    QCOMPARE(file.info.total, 30000);
}

/// Each segment holds a picture that is a hole of more than 1 GiB between two chunks of sound.
void tst_read_avi::aFileOfSeveralSegmentsBeyond4GiBIsReadWhole()
{
    const Bytes sound = bytesOf(music(40000, 2));
    const std::uint32_t hole = 1'100'000'001;
    const QString path = files_.put("large.avi", {});
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    for (int segment = 0; segment < 4; ++segment) {
        const Bytes before = chunk("01wb", sound.mid(segment * 40000, 20000));
        const Bytes after = chunk("01wb", sound.mid(segment * 40000 + 20000, 20000));
        const auto inside = std::uint32_t(before.size() + 8 + hole + 1 + after.size());
        const Bytes head = segment == 0 ? usualHead() : Bytes();
        file.write(Bytes("RIFF") + number(std::uint32_t(head.size()) + inside + 16) +
                   (segment == 0 ? "AVI " : "AVIX") + head + Bytes("LIST") + number(inside + 4) +
                   Bytes("movi"));
        file.write(before + Bytes("00dc") + number(hole));
        file.seek(file.pos() + hole + 1);
        file.write(after);
    }
    QVERIFY(file.size() > 0x100000000);
    file.close();
    QVERIFY(inspect(path).avi);
    QCOMPARE(firstDifference(readFile(path), music(40000, 2)), -1);
}

void tst_read_avi::theIndexIsNotLookedAt()
{
    files_.run(
        "ffmpeg -v error -y -f lavfi -i testsrc=s=64x48:d=4 -i a.wav -c:v mpeg4 -c:a pcm_s16le index.avi");
    Bytes bytes = files_.get("index.avi");
    for (qsizetype at = bytes.indexOf("idx1") + 8; at < bytes.size(); at += 5) bytes[at] = char(at * 31);
    const QString path = files_.put("index.avi", bytes);
    QVERIFY(inspect(path).avi);
    QCOMPARE(firstDifference(readFile(path), music(4 * 44100 + 3, 2)), -1);
}

QTEST_GUILESS_MAIN(tst_read_avi)
#include "tst_read_avi.moc"
