// AVI files by our own walk over their chunks: to the sample what ffmpeg makes of them, whole or cut off, and
// what libavformat makes of them where the walk doesn't know the way.
#include "engine/CompressedFile.h"
#include "engine/FfmpegDecoder.h"
#include "engine/FfmpegInput.h"
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
    void aFileCutOffAnywhereIsReadAsFfmpegReadsIt_data();
    void aFileCutOffAnywhereIsReadAsFfmpegReadsIt();
    void aFileWithoutAnySoundIsRefused();
    void aFileOfSeveralSegmentsBeyond4GiBIsReadWhole();
    void theIndexIsNotLookedAt();
    void whatIsNotUnderstoodIsLeftToLibavformat_data();
    void whatIsNotUnderstoodIsLeftToLibavformat();
    void damagedChunksGiveWhatLibavformatMakesOfThem_data();
    void damagedChunksGiveWhatLibavformatMakesOfThem();
    void aLongFileTakesTheMemoryOfAShortOne();

private:
    QString putLong(const QString& name, int seconds) const;

    SoundFolder files_;
};

static CompressedFile inspect(const QString& path)
{
    return inspectFile(std::make_shared<const SourceFile>(path), true);
}

static SampleArray drain(BlockSource& source)
{
    SampleArray all;
    for (Block block; source.next(block);) all.insert(all.end(), block.samples.begin(), block.samples.end());
    return all;
}

static SampleArray inOnePass(const CompressedFile& file)
{
    FfmpegDecoder decoder(openPackets(file), file.codec);
    return drain(decoder);
}

/// The first sound stream, by libavformat all the way.
static SampleArray byLibavformat(const QString& path)
{
    auto input = std::make_unique<FfmpegInput>(std::make_shared<const SourceFile>(path));
    const AVStream* stream = input->soundStreams().at(0);
    const CodecSetup setup = codecSetup(*stream);
    input->choose(stream->index);
    FfmpegDecoder decoder(std::move(input), setup);
    return drain(decoder);
}

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
    QTest::addRow("E-AC3") << "a.wav -c:a eac3";
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
        << chunk("idx1", Bytes(64, '0'));
    QTest::addRow("a length of 0") << head + chunks << Bytes();
    QTest::addRow("a length that is a lie") << Bytes("LIST") + number(99) + Bytes("movi") + chunks << Bytes();
    QTest::addRow("two segments") << listOf("movi", half)
                                  << chunk("idx1", Bytes(32, '1')) +
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

void tst_read_avi::aFileCutOffAnywhereIsReadAsFfmpegReadsIt_data()
{
    QTest::addColumn<QString>("codec");
    QTest::addColumn<bool>("closed");
    for (const char* codec : {"pcm_s16le", "libmp3lame", "ac3", "adpcm_ms"}) {
        QTest::addRow("%s, once closed", codec) << codec << true;
        QTest::addRow("%s, never closed", codec) << codec << false;
    }
}

void tst_read_avi::aFileCutOffAnywhereIsReadAsFfmpegReadsIt()
{
    QFETCH(QString, codec);
    QFETCH(bool, closed);
    files_.run("ffmpeg -v error -y -f lavfi -i testsrc=s=64x48:d=4 -i a.wav -c:v mpeg4 -c:a " + codec +
               " cut.avi");
    Bytes whole = files_.get("cut.avi");
    if (!closed) {
        whole.replace(4, 4, number(0));
        whole.replace(whole.indexOf("movi") - 4, 4, number(0));
    }
    for (int i = 1; i <= 12; ++i) {
        const qsizetype kept = 8000 + (whole.size() - 8000) * i / 12 - 37 * i;
        const QString path = files_.put("short.avi", whole.left(kept));
        QVERIFY(inspect(path).avi);
        const SampleArray wanted =
            samplesOf(files_.run("ffmpeg -v quiet -i short.avi -map 0:a:0 -f s16le -"));
        QCOMPARE(firstDifference(readFile(path), wanted), -1);
    }
}

void tst_read_avi::aFileWithoutAnySoundIsRefused()
{
    const QString path = files_.put(
        "dumb.avi", aviFile(headList(pictureStream()) + listOf("movi", chunk("00dc", Bytes(500, 'p')))));
    QVERIFY_EXCEPTION_THROWN(inspect(path), EngineError);
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

void tst_read_avi::whatIsNotUnderstoodIsLeftToLibavformat_data()
{
    QTest::addColumn<Bytes>("bytes");
    const Bytes sound = bytesOf(music(30000, 2));
    const Bytes half = interleaved(sound.left(60000), 3000), rest = interleaved(sound.mid(60000), 3000);
    const Bytes all = listOf("movi", half + rest);
    QTest::addRow("garbage between the chunks")
        << aviFile(usualHead() + listOf("movi", half + Bytes(1001, '\xee') + rest));
    QTest::addRow("a foreign chunk between the chunks")
        << aviFile(usualHead() + listOf("movi", half + chunk("what", Bytes(500, 'w')) + rest));
    QTest::addRow("another name for the sound")
        << aviFile(usualHead() + listOf("movi", half + Bytes(rest).replace("01wb", "01aa")));
    QTest::addRow("an order by the index")
        << aviFile(headList(pictureStream() + soundStream(pcmForm(2, 16), 44100, 4), 0x20) + all);
    QTest::addRow("a long head") << aviFile(usualHead() + chunk("JUNK", Bytes(1'100'000, '\0')) +
                                            listOf("movi", half));
    QTest::addRow("a tag in front") << Bytes("ID3\x03\0\0\0\0\0\x04", 10) + Bytes(4, '\0') +
                                           aviFile(usualHead() + all);
}

void tst_read_avi::whatIsNotUnderstoodIsLeftToLibavformat()
{
    QFETCH(Bytes, bytes);
    const QString path = files_.put("strange.avi", bytes);
    const CompressedFile file = inspect(path);
    QVERIFY(!file.avi);
    const SampleArray sound = readFile(path);
    QVERIFY(sound.size() >= 30000);
    QCOMPARE(firstDifference(sound, byLibavformat(path)), -1);
    QCOMPARE(std::size_t(file.info.total), sound.size() / 2);
}

void tst_read_avi::damagedChunksGiveWhatLibavformatMakesOfThem_data()
{
    QTest::addColumn<QString>("codec");
    for (const char* codec : {"pcm_s16le", "libmp3lame", "ac3", "adpcm_ms"})
        QTest::addRow("%s", codec) << codec;
}

/// One byte at a time: half of them in the heads of chunks, where most harm is done.
void tst_read_avi::damagedChunksGiveWhatLibavformatMakesOfThem()
{
    QFETCH(QString, codec);
    files_.run("ffmpeg -v error -y -f lavfi -i testsrc=s=64x48:d=1 -t 1 -i a.wav -c:v mpeg4 -c:a " + codec +
               " good.avi");
    const Bytes good = files_.get("good.avi");
    const qsizetype from = good.indexOf("movi") + 4, to = good.indexOf("idx1");
    std::uint32_t state = 12345;
    for (int i = 0; i < 100; ++i) {
        state = state * 1664525 + 1013904223;
        qsizetype at = from + qsizetype(state >> 8) % (to - from);
        if (i % 2)
            at = good.indexOf(i % 4 == 1 ? "01wb" : "00dc", std::min(at, to - 2000)) + (state >> 5) % 8;
        Bytes bad = good;
        bad[at] = char(bad[at] ^ (1 << (state >> 28) % 8));
        const QString path = files_.put("bad.avi", bad);
        QVERIFY2(firstDifference(readFile(path), byLibavformat(path)) == -1, qPrintable(QString::number(at)));
    }
}

/// Plain sound of 8000 Hz in very many chunks.
QString tst_read_avi::putLong(const QString& name, int seconds) const
{
    QFile file(
        files_.put(name, aviFile(headList(pictureStream() + soundStream(pcmForm(1, 8, 8000), 8000, 1)) +
                                 Bytes("LIST") + number(0) + Bytes("movi"))));
    if (!file.open(QIODevice::Append)) qFatal("cannot write %s", qPrintable(name));
    const Bytes second = interleaved(Bytes(8000, '\x81'), 80, 8);
    for (int i = 0; i < seconds; ++i) file.write(second);
    return file.fileName();
}

/// The most memory that a process of its own needs to open a file and to read it to its end: KiB.
static int peakOf(const QString& path)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("ASAN_OPTIONS", "quarantine_size_mb=1:thread_local_quarantine_size_kb=64");
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {"--peak", path});
    if (!process.waitForFinished(120000) || process.exitCode() != 0)
        qFatal("no peak of %s", qPrintable(path));
    return process.readAllStandardOutput().trimmed().toInt();
}

static int printPeak(const QString& path)
{
    FileReader reader;
    reader.Open(path);
    while (!reader.ReadArray(100'000).empty()) {
    }
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly)) return 1;
    const Bytes text = status.readAll();
    const Bytes line = text.mid(text.indexOf("VmHWM:") + 6);
    std::puts(line.left(line.indexOf("kB")).trimmed().constData());
    return reader.GetTotalSamples() > 0 ? 0 : 1;
}

void tst_read_avi::aLongFileTakesTheMemoryOfAShortOne()
{
    const int shortPeak = peakOf(putLong("short.avi", 60));
    const int longPeak = peakOf(putLong("long.avi", 2 * 3600));
    QVERIFY(shortPeak > 0);
    QVERIFY2(longPeak < shortPeak * 11 / 10, qPrintable(QString("%1 %2").arg(shortPeak).arg(longPeak)));
}

int main(int argc, char* argv[])
{
    if (argc == 3 && QByteArray(argv[1]) == "--peak") return printPeak(QFile::decodeName(argv[2]));
    QCoreApplication app(argc, argv);
    tst_read_avi test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_read_avi.moc"
