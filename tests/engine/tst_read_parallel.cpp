// Decoding on several threads gives what one decoder gives, whatever the batches and the faults in the file.
#include "engine/CompressedFile.h"
#include "engine/DecodeAhead.h"
#include "engine/FfmpegDecoder.h"
#include "engine/PacketBatchDecoder.h"
#include "tests/engine/ReadingFixtures.h"

class tst_read_parallel : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void batchesGiveTheSoundOfOneDecoder_data();
    void batchesGiveTheSoundOfOneDecoder();
    void damagedFilesGiveTheSoundOfOneDecoder_data();
    void damagedFilesGiveTheSoundOfOneDecoder();
    void theFormsOfTheBlocksFollowTheFile();
    void aPassCanBeGivenUpAtAnyBlock();
    void aFaultInTheFileReachesTheReaderBehindTheSoundBeforeIt_data();
    void aFaultInTheFileReachesTheReaderBehindTheSoundBeforeIt();
    void batchesAreBoundedInBytesToo();

private:
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

static SampleArray inBatches(const CompressedFile& file, int threads, std::size_t packets)
{
    PacketBatchDecoder decoder(openPackets(file), file.codec, {threads, packets});
    return drain(decoder);
}

static SampleArray inOnePass(const CompressedFile& file)
{
    FfmpegDecoder decoder(openPackets(file), file.codec);
    return drain(decoder);
}

void tst_read_parallel::initTestCase()
{
    files_.put("a.wav", plainWav(music(6 * 44100, 2), 2));
    files_.put("low.wav", plainWav(music(4 * 22050, 1, 22050), 1, 22050));
}

static void addFiles()
{
    QTest::addColumn<QString>("line");
    QTest::addRow("MP3, constant") << "lame --quiet -b 128 a.wav x.mp3";
    QTest::addRow("MP3, best variable") << "lame --quiet -V 0 a.wav x.mp3";
    QTest::addRow("MP3, smallest variable") << "lame --quiet -V 9 a.wav x.mp3";
    QTest::addRow("MP3, checksums") << "lame --quiet --abr 90 -p a.wav x.mp3";
    QTest::addRow("MP3, mono, low rate") << "lame --quiet -V 4 low.wav x.mp3";
    QTest::addRow("MP3, lowest bitrate") << "lame --quiet -b 8 --resample 24 a.wav x.mp3";
    QTest::addRow("Ogg") << "oggenc -Q -q 4 a.wav -o x.ogg";
    QTest::addRow("Ogg, managed") << "oggenc -Q --managed -b 128 a.wav -o x.ogg";
    QTest::addRow("Ogg, mono") << "oggenc -Q low.wav -o x.ogg";
    QTest::addRow("WMA 1") << "ffmpeg -v error -y -i a.wav -c:a wmav1 x.wma";
    QTest::addRow("WMA 2") << "ffmpeg -v error -y -i a.wav -c:a wmav2 x.wma";
    QTest::addRow("AVI, MP3") << "ffmpeg -v error -y -i a.wav -c:a libmp3lame x.avi";
}

void tst_read_parallel::batchesGiveTheSoundOfOneDecoder_data()
{
    addFiles();
}

void tst_read_parallel::batchesGiveTheSoundOfOneDecoder()
{
    QFETCH(QString, line);
    const CompressedFile file = inspect(files_.make(line));
    const SampleArray serial = inOnePass(file);
    QCOMPARE(firstDifference(serial, files_.decodedByFfmpeg(line.section(' ', -1))), -1);
    for (const std::size_t packets : {1u, 2u, 17u, 50u, 500u})
        QCOMPARE(firstDifference(inBatches(file, 2, packets), serial), -1);
    for (const int threads : {1, 3}) QCOMPARE(firstDifference(inBatches(file, threads, 40), serial), -1);
}

void tst_read_parallel::damagedFilesGiveTheSoundOfOneDecoder_data()
{
    addFiles();
}

void tst_read_parallel::damagedFilesGiveTheSoundOfOneDecoder()
{
    QFETCH(QString, line);
    files_.make(line);
    const QString name = line.section(' ', -1);
    const Bytes good = files_.get(name);
    for (std::uint32_t seed = 1; seed <= 3; ++seed) {
        Bytes bad = good;
        const auto head = std::uint32_t(good.size() / 2), rest = std::uint32_t(good.size()) - head;
        for (std::uint32_t k = 1; k <= 20 * seed; ++k) bad[head + k * k * 7919u * seed % rest] = char(k * 37);
        const CompressedFile file = inspect(files_.put("bad-" + name, bad));
        const SampleArray serial = inOnePass(file);
        QCOMPARE(firstDifference(inBatches(file, 2, 23), serial), -1);
        QCOMPARE(firstDifference(inBatches(file, 3, 128), serial), -1);
    }
}

void tst_read_parallel::theFormsOfTheBlocksFollowTheFile()
{
    files_.run("lame --quiet a.wav a.mp3");
    files_.run("lame --quiet low.wav low.mp3");
    files_.put("forms.mp3", files_.get("a.mp3") + files_.get("low.mp3"));
    const CompressedFile file = inspect(files_.path("forms.mp3"));
    PacketBatchDecoder decoder(openPackets(file), file.codec, {2, 50});
    std::vector<SoundFormat> forms;
    for (Block block; decoder.next(block);) forms.push_back(block.format);
    QCOMPARE(forms.front(), (SoundFormat{44100, 2}));
    QCOMPARE(forms.back(), (SoundFormat{22050, 1}));
}

void tst_read_parallel::aPassCanBeGivenUpAtAnyBlock()
{
    const CompressedFile file = inspect(files_.make("oggenc -Q a.wav -o given.ogg"));
    for (int blocks = 0; blocks < 12; ++blocks) {
        PacketBatchDecoder decoder(openPackets(file), file.codec, {3, 11});
        Block block;
        for (int i = 0; i < blocks; ++i) QVERIFY(decoder.next(block));
    }
}

// A file that can't be read any further after some packets.
class FaultyInput : public PacketInput {
public:
    FaultyInput(std::unique_ptr<PacketInput> input, int packets) : input_(std::move(input)), left_(packets) {}

    bool read(AVPacket& packet) override
    {
        if (left_-- == 0) throw EngineError("the disk is gone");
        return input_->read(packet);
    }

private:
    std::unique_ptr<PacketInput> input_;
    int left_;
};

static std::unique_ptr<BlockSource> passOver(const CompressedFile& file, int goodPackets, bool isInBatches)
{
    auto input = std::make_unique<FaultyInput>(openPackets(file), goodPackets);
    if (isInBatches)
        return std::make_unique<PacketBatchDecoder>(std::move(input), file.codec, BatchPlan{2, 10});
    return std::make_unique<DecodeAhead>(std::make_unique<FfmpegDecoder>(std::move(input), file.codec));
}

void tst_read_parallel::aFaultInTheFileReachesTheReaderBehindTheSoundBeforeIt_data()
{
    QTest::addColumn<bool>("isInBatches");
    QTest::addRow("in batches") << true;
    QTest::addRow("on one thread ahead") << false;
}

void tst_read_parallel::aFaultInTheFileReachesTheReaderBehindTheSoundBeforeIt()
{
    QFETCH(bool, isInBatches);
    const CompressedFile file = inspect(files_.make("lame --quiet -b 128 a.wav x.mp3"));
    const SampleArray whole = inOnePass(file);
    const auto pass = passOver(file, 200, isInBatches);
    SampleArray heard;
    Block block;
    const auto readOn = [&] {
        while (pass->next(block)) heard.insert(heard.end(), block.samples.begin(), block.samples.end());
    };
    QVERIFY_EXCEPTION_THROWN(readOn(), EngineError);
    QVERIFY(heard.size() > whole.size() / 4 && heard.size() < whole.size());
    QVERIFY(std::equal(heard.begin(), heard.end(), whole.begin()));
    QVERIFY(!pass->next(block));
}

// Counts how far ahead of its reader a pass reads the file.
void tst_read_parallel::batchesAreBoundedInBytesToo()
{
    struct Counter : PacketInput {
        std::unique_ptr<PacketInput> input;
        std::atomic<int>& packets;
        Counter(std::unique_ptr<PacketInput> from, std::atomic<int>& count)
            : input(std::move(from)), packets(count)
        {}
        bool read(AVPacket& packet) override { return ++packets, input->read(packet); }
    };
    const CompressedFile file = inspect(files_.make("lame --quiet -b 320 a.wav x.mp3"));
    std::atomic<int> packets = 0;
    PacketBatchDecoder decoder(std::make_unique<Counter>(openPackets(file), packets), file.codec,
                               {1, 1000, 4096});
    Block block;
    QVERIFY(decoder.next(block));
    // Five batches at the most: one delivered, one in work, two that wait, one that is being read.
    QVERIFY2(packets <= 5 * 4, qPrintable(QString::number(packets)));
    SampleArray all = block.samples;
    const SampleArray rest = drain(decoder);
    all.insert(all.end(), rest.begin(), rest.end());
    QCOMPARE(firstDifference(all, inOnePass(file)), -1);
}

QTEST_GUILESS_MAIN(tst_read_parallel)
#include "tst_read_parallel.moc"
