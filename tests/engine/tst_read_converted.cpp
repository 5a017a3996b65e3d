// Rate and channels other than the file's: lengths are exact, tones keep their pitch and level.
#include "engine/Converter.h"
#include "tests/engine/ReadingFixtures.h"

class tst_read_converted : public QObject {
    Q_OBJECT

private slots:
    void theLengthFollowsTheRate_data();
    void theLengthFollowsTheRate();
    void theSizeOfThePiecesChangesNothing();
    void aToneKeepsItsPitchAndLevel();
    void monoToStereoDoubles();
    void stereoToMonoIsTheMean();
    void aConverterStartsAfreshAfterItsEnd();
    void formsThatMakeNoSenseAreRefused();
    void aReaderDeliversTheFormAskedFor();
    void theTotalFollowsTheRate();
    void theOwnFormNeedsNoConversion();
    void aPositionCountsInTheNewRate();
    void aRefusedFormLeavesTheOldOne();
};

static SampleArray convert(const SampleArray& in, int inRate, int inChannels, int outRate, int outChannels,
                           std::size_t piece = 100000)
{
    Converter converter(inRate, inChannels, outRate, outChannels);
    SampleArray out;
    for (std::size_t at = 0; at < in.size(); at += piece)
        converter.push(std::span(in).subspan(at, std::min(piece, in.size() - at)), out);
    converter.flush(out);
    return out;
}

static SampleArray tone(double hertz, int rate, int frames)
{
    SampleArray sound;
    for (int i = 0; i < frames; ++i)
        sound.push_back(std::int16_t(10000 * std::sin(2 * M_PI * hertz * i / rate)));
    return sound;
}

void tst_read_converted::theLengthFollowsTheRate_data()
{
    QTest::addColumn<int>("in");
    QTest::addColumn<int>("out");
    QTest::addColumn<int>("frames");
    for (const int frames : {1, 7, 100, 1000, 100003})
        for (const auto& [in, out] :
             {std::pair(48000, 44100), std::pair(44100, 48000), std::pair(8000, 44100),
              std::pair(96000, 8000), std::pair(44100, 11025)})
            QTest::addRow("%d from %d to %d", frames, in, out) << in << out << frames;
}

void tst_read_converted::theLengthFollowsTheRate()
{
    QFETCH(int, in);
    QFETCH(int, out);
    QFETCH(int, frames);
    const SampleArray made = convert(music(frames, 2, in), in, 2, out, 2);
    QCOMPARE(qint64(made.size()), 2 * ((std::int64_t(frames) * out + in / 2) / in));
}

void tst_read_converted::theSizeOfThePiecesChangesNothing()
{
    const SampleArray in = music(50000, 2);
    const SampleArray whole = convert(in, 44100, 2, 32000, 2);
    for (const std::size_t piece : {2u, 442u, 65536u})
        QCOMPARE(firstDifference(convert(in, 44100, 2, 32000, 2, piece), whole), -1);
}

void tst_read_converted::aToneKeepsItsPitchAndLevel()
{
    const SampleArray made = convert(tone(1000, 48000, 48000), 48000, 1, 44100, 1);
    const SampleArray wanted = tone(1000, 44100, 44100);
    const SampleArray inside(made.begin() + 200, made.end() - 200);
    QVERIFY(largestStep(inside, SampleArray(wanted.begin() + 200, wanted.end() - 200)) <= 2);
}

void tst_read_converted::monoToStereoDoubles()
{
    QCOMPARE(convert({5, -7, 32767}, 44100, 1, 44100, 2), (SampleArray{5, 5, -7, -7, 32767, 32767}));
}

void tst_read_converted::stereoToMonoIsTheMean()
{
    QCOMPARE(convert({10, 20, 32767, 32767, -32768, -32768}, 44100, 2, 44100, 1),
             (SampleArray{15, 32767, -32768}));
}

void tst_read_converted::aConverterStartsAfreshAfterItsEnd()
{
    const SampleArray in = music(5000, 2);
    Converter converter(44100, 2, 48000, 2);
    SampleArray first, second;
    converter.push(in, first);
    converter.flush(first);
    converter.push(in, second);
    converter.flush(second);
    QCOMPARE(firstDifference(first, second), -1);
}

void tst_read_converted::formsThatMakeNoSenseAreRefused()
{
    QVERIFY_EXCEPTION_THROWN(Converter(0, 2, 44100, 2), EngineError);
    QVERIFY_EXCEPTION_THROWN(Converter(44100, 3, 44100, 2), EngineError);
    QVERIFY_EXCEPTION_THROWN(Converter(44100, 2, 44100, 0), EngineError);
}

void tst_read_converted::aReaderDeliversTheFormAskedFor()
{
    SoundFolder files;
    const SampleArray sound = music(60000, 2);
    FileReader reader;
    reader.Open(files.put("a.wav", plainWav(sound, 2)));
    reader.SetInputFormat(22050, 1);
    QCOMPARE(reader.GetOutputRate(), 22050);
    QCOMPARE(reader.GetSampleRate(), 44100);
    QCOMPARE(reader.GetChannels(), 1);
    QCOMPARE(reader.GetReadChannels(), 1);
    QCOMPARE(firstDifference(readAll(reader, 777), convert(sound, 44100, 2, 22050, 1)), -1);
}

void tst_read_converted::theTotalFollowsTheRate()
{
    SoundFolder files;
    FileReader reader;
    reader.Open(files.put("a.wav", plainWav(music(100003, 1), 1)));
    reader.SetInputFormat(48000, 2);
    const int total = reader.GetTotalSamples();
    QCOMPARE(total, 108847);
    QCOMPARE(reader.GetDurationMs(), 2268);
    QCOMPARE(readAll(reader).size(), std::size_t(2 * total));
}

void tst_read_converted::theOwnFormNeedsNoConversion()
{
    SoundFolder files;
    const SampleArray sound = music(1000, 2);
    FileReader reader;
    reader.Open(files.put("a.wav", plainWav(sound, 2)));
    reader.SetInputFormat(44100, 2);
    QCOMPARE(readAll(reader), sound);
}

void tst_read_converted::aPositionCountsInTheNewRate()
{
    SoundFolder files;
    FileReader reader;
    reader.Open(files.put("a.wav", plainWav(tone(500, 44100, 88200), 1)));
    reader.SetInputFormat(22050, 1);
    QCOMPARE(reader.Seek(22050), 22050);
    const SampleArray rest = readAll(reader);
    QCOMPARE(rest.size(), std::size_t(22050));
    const SampleArray wanted = tone(500, 22050, 22050);
    QVERIFY(largestStep(SampleArray(rest.begin() + 200, rest.begin() + 2000),
                        SampleArray(wanted.begin() + 200, wanted.begin() + 2000)) <= 2);
}

void tst_read_converted::aRefusedFormLeavesTheOldOne()
{
    SoundFolder files;
    FileReader reader;
    reader.Open(files.put("a.wav", plainWav(music(100, 2), 2)));
    QVERIFY_EXCEPTION_THROWN(reader.SetInputFormat(44100, 5), EngineError);
    QCOMPARE(reader.GetChannels(), 2);
    QCOMPARE(readAll(reader).size(), std::size_t(200));
}

QTEST_GUILESS_MAIN(tst_read_converted)
#include "tst_read_converted.moc"
