// The loop that copies a stretch: what it reads and writes, what it tells, and when it ends.
#include "export/CopyStretch.h"
#include "support/FakeEngine.h"
#include "support/Journal.h"

#include <QTest>

class tst_copy_stretch : public QObject {
    Q_OBJECT
private slots:
    void init() { journal().clear(); }
    void theCopyIsTheStretch_data();
    void theCopyIsTheStretch();
    void theReadsOfTheLoop_data();
    void theReadsOfTheLoop();
    void aStretchOfLengthZeroWritesNothing();
    void thePositionIsToldAfterEachBlock();
    void thePositionNeverPassesTheLength();
    void aFractionOfASampleIsKept();
    void whenStoppedTheBlockJustReadIsWritten();
    void aReaderThatGivesNothingIsAskedUntilTheLoopIsStopped();
    void theRateIsAskedForBeforeTheChannels();
};

namespace {

// A reader that stands at `start` of a sound, and a writer to "/out".
struct Copy {
    FakeEngine engine;
    std::unique_ptr<AudioFile> reader = engine.makeFile();
    std::unique_ptr<AudioFile> writer = engine.makeFile();
    QList<double> told;

    explicit Copy(const FakeSound& sound, std::int32_t start = 0)
    {
        engine.disk["/in"] = sound;
        reader->Open("/in");
        reader->Seek(start);
        writer->Create("/out");
        journal().clear();
    }

    void run(std::int32_t length, std::size_t stopAfter = 1000)
    {
        copySamples(*reader, *writer, length, [&](double position) {
            told << position;
            return static_cast<std::size_t>(told.size()) < stopAfter;
        });
    }

    const SampleArray& written() { return engine.disk["/out"].samples; }
};

// The stretch cut out of the sound at once.
SampleArray cutOut(const FakeSound& sound, std::int32_t start, std::int32_t length)
{
    const auto from = sound.samples.begin() + std::ptrdiff_t{start} * sound.channels;
    return {from, from + std::ptrdiff_t{length} * sound.channels};
}

void stretches()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    for (const int channels : {1, 2})
        for (const int length : {1, 2, 99999, 100000, 100001, 200000, 250001})
            QTest::addRow("%d samples in %d channels", length, channels) << channels << 777 << length;
    QTest::addRow("the whole sound") << 2 << 0 << 260000;
}

}

void tst_copy_stretch::theCopyIsTheStretch_data()
{
    stretches();
}

void tst_copy_stretch::theCopyIsTheStretch()
{
    QFETCH(int, channels);
    QFETCH(int, start);
    QFETCH(int, length);
    const FakeSound sound = fakeSound(260000, 44100, channels);
    Copy copy(sound, start);
    copy.run(length);
    QVERIFY(copy.written() == cutOut(sound, start, length));
}

void tst_copy_stretch::theReadsOfTheLoop_data()
{
    stretches();
}

void tst_copy_stretch::theReadsOfTheLoop()
{
    QFETCH(int, channels);
    QFETCH(int, start);
    QFETCH(int, length);
    Copy copy(fakeSound(260000, 44100, channels), start);
    copy.run(length);
    QStringList expected;
    for (int left = length; left > 0; left -= 100000)
        expected << QString("FileR.ReadArray %1").arg(std::min(left, 100000))
                 << QString("FileRe.WriteArray %1").arg(std::min(left, 100000) * channels);
    expected << "FileR.ReadArray 0";    // the loop ends with a read of nothing
    QCOMPARE(journal().commands(), expected);
}

void tst_copy_stretch::aStretchOfLengthZeroWritesNothing()
{
    Copy copy(fakeSound(1000));
    copy.run(0);
    QCOMPARE(journal().commands(), QStringList{"FileR.ReadArray 0"});
    QVERIFY(copy.told.isEmpty());
}

void tst_copy_stretch::thePositionIsToldAfterEachBlock()
{
    Copy copy(fakeSound(250000));
    copy.run(250000);
    QCOMPARE(copy.told, (QList<double>{100000, 200000, 250000}));
}

void tst_copy_stretch::thePositionNeverPassesTheLength()
{
    Copy copy(fakeSound(250000));
    copy.engine.readChannels = 1;    // each array counts for twice its samples
    copy.run(250000);
    QCOMPARE(copy.told, (QList<double>{200000, 250000}));
}

void tst_copy_stretch::aFractionOfASampleIsKept()
{
    Copy copy(fakeSound(5, 44100, 1));
    copy.engine.readChannels = 2;
    copy.run(5, 2);
    QCOMPARE(copy.told, (QList<double>{2.5, 2.5}));    // the rest is a read of 2.5, a tie, and finds nothing
    QCOMPARE(journal().commandsOf("FileR"), (QStringList{"FileR.ReadArray 5", "FileRe.WriteArray 5",
                                                         "FileR.ReadArray 2", "FileRe.WriteArray 0"}));
}

void tst_copy_stretch::whenStoppedTheBlockJustReadIsWritten()
{
    Copy copy(fakeSound(250000));
    copy.run(250000, 1);
    QCOMPARE(journal().commands(), (QStringList{"FileR.ReadArray 100000", "FileRe.WriteArray 200000"}));
}

void tst_copy_stretch::aReaderThatGivesNothingIsAskedUntilTheLoopIsStopped()
{
    Copy copy(fakeSound(1000));
    copy.run(5000, 6);
    QCOMPARE(copy.told, (QList<double>{1000, 1000, 1000, 1000, 1000, 1000}));
    QCOMPARE(journal().commandsOf("FileR.ReadArray 4000").size(), 5);
}

void tst_copy_stretch::theRateIsAskedForBeforeTheChannels()
{
    Copy copy(fakeSound(10, 32000, 1));
    takeInputFormat(*copy.reader, *copy.writer);
    QCOMPARE(journal().queries(), (QStringList{"FileR.GetOutputRate", "FileR.GetChannels"}));
    QCOMPARE(journal().commands(), QStringList{"FileRe.SetInputFormat 32000 1"});
}

QTEST_GUILESS_MAIN(tst_copy_stretch)
#include "tst_copy_stretch.moc"
