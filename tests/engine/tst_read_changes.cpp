// Files that aren't of one piece: streams one behind the other, rubbish inside, a missing end or beginning.
#include "tests/engine/ReadingFixtures.h"

class tst_read_changes : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void aChainOfEqualOggStreamsIsExact();
    void aChainOfDifferentOggStreamsKeepsTheFirstForm();
    void aStretchOfAnotherFormIsBroughtToTheFirst();
    void anMp3ThatChangesItsFormKeepsTheFirst();
    void rubbishInsideAnMp3IsPlayedOver();
    void anMp3ThatIsCutOffHasTheLengthOfWhatIsThere();
    void anOggFileThatIsCutOffHasTheLengthOfWhatIsThere();
    void anOggFileThatBeginsMidwayIsExact();
    void aWmaFileThatIsCutOffHasTheLengthOfWhatIsThere();

private:
    QString put(const QString& name, const Bytes& bytes) { return files_.put(name, bytes); }

    SoundFolder files_;
};

void tst_read_changes::initTestCase()
{
    files_.put("a.wav", plainWav(music(6 * 44100, 2), 2));
    files_.put("low.wav", plainWav(music(3 * 22050, 1, 22050), 1, 22050));
    files_.run("oggenc -Q -s 11 a.wav -o a.ogg");
    files_.run("oggenc -Q -s 12 a.wav -o b.ogg");
    files_.run("oggenc -Q -s 13 low.wav -o low.ogg");
    files_.run("lame --quiet -b 128 a.wav a.mp3");
    files_.run("lame --quiet -b 32 low.wav low.mp3");
    files_.run("ffmpeg -v error -y -i a.wav -c:a wmav2 a.wma");
}

void tst_read_changes::aChainOfEqualOggStreamsIsExact()
{
    FileReader reader;
    reader.Open(put("chain.ogg", files_.get("a.ogg") + files_.get("b.ogg")));
    QCOMPARE(reader.GetTotalSamples(), 2 * 6 * 44100);
    files_.run("oggdec -Q -R chain.ogg -o chain.raw");
    QCOMPARE(firstDifference(readAll(reader), samplesOf(files_.get("chain.raw"))), -1);
}

void tst_read_changes::aChainOfDifferentOggStreamsKeepsTheFirstForm()
{
    FileReader reader;
    reader.Open(put("mixed.ogg", files_.get("a.ogg") + files_.get("low.ogg") + files_.get("b.ogg")));
    QCOMPARE(reader.GetOutputRate(), 44100);
    QCOMPARE(reader.GetChannels(), 2);
    QCOMPARE(reader.GetTotalSamples(), 15 * 44100);
    QCOMPARE(readAll(reader).size(), std::size_t(2 * 15 * 44100));
}

void tst_read_changes::aStretchOfAnotherFormIsBroughtToTheFirst()
{
    const SampleArray sound = readFile(put("order.ogg", files_.get("a.ogg") + files_.get("low.ogg")));
    const SampleArray wanted = samplesOf(files_.run("sox low.wav -t s16 -r 44100 -c 2 -"));
    const auto from = sound.begin() + 2 * 6 * 44100;
    const SampleArray stretch(from, sound.end());
    QCOMPARE(stretch.size(), wanted.size());
    double signal = 0, error = 0;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        signal += double(wanted[i]) * wanted[i];
        error += std::pow(double(stretch[i]) - wanted[i], 2);
    }
    QVERIFY2(error < signal / 10, qPrintable(QString::number(10 * std::log10(signal / error))));
}

void tst_read_changes::anMp3ThatChangesItsFormKeepsTheFirst()
{
    FileReader reader;
    reader.Open(put("mixed.mp3", files_.get("a.mp3") + files_.get("low.mp3") + files_.get("a.mp3")));
    QCOMPARE(reader.GetOutputRate(), 44100);
    const std::int64_t frames = std::int64_t(readAll(reader).size()) / 2;
    // Each border may cost or bring the few packets that hold no sound of their own.
    QVERIFY2(std::abs(frames - 15 * 44100) < 10000, qPrintable(QString::number(frames)));
    QVERIFY(std::abs(frames - reader.GetTotalSamples()) < 2000);
}

void tst_read_changes::rubbishInsideAnMp3IsPlayedOver()
{
    Bytes damaged = files_.get("a.mp3");
    Bytes rubbish(3000, '\0');
    for (int i = 0; i < rubbish.size(); ++i) rubbish[i] = char(i * 7919 >> 3);
    const SampleArray sound = readFile(put("rubbish.mp3", damaged.insert(40000, rubbish)));
    QCOMPARE(firstDifference(sound, files_.decodedByFfmpeg("rubbish.mp3")), -1);
    QVERIFY(sound.size() > 2 * 5.9 * 44100);
}

void tst_read_changes::anMp3ThatIsCutOffHasTheLengthOfWhatIsThere()
{
    FileReader reader;
    reader.Open(put("cut.mp3", files_.get("a.mp3").left(50000)));
    const SampleArray sound = readAll(reader);
    QCOMPARE(std::size_t(reader.GetTotalSamples()), sound.size() / 2);
    QCOMPARE(firstDifference(sound, files_.decodedByFfmpeg("cut.mp3")), -1);
}

void tst_read_changes::anOggFileThatIsCutOffHasTheLengthOfWhatIsThere()
{
    const Bytes whole = files_.get("a.ogg");
    FileReader reader;
    reader.Open(put("cut.ogg", whole.left(whole.size() * 2 / 3)));
    const SampleArray sound = readAll(reader);
    QCOMPARE(std::size_t(reader.GetTotalSamples()), sound.size() / 2);
    QVERIFY(sound.size() > 2 * 3 * 44100);
}

void tst_read_changes::anOggFileThatBeginsMidwayIsExact()
{
    FileReader reader;
    reader.Open(files_.make("ffmpeg -v error -y -ss 2 -i a.ogg -c copy late.ogg"));
    const SampleArray sound = readAll(reader);
    QCOMPARE(std::size_t(reader.GetTotalSamples()), sound.size() / 2);
    QCOMPARE(firstDifference(sound, files_.decodedByFfmpeg("late.ogg")), -1);
}

void tst_read_changes::aWmaFileThatIsCutOffHasTheLengthOfWhatIsThere()
{
    FileReader reader;
    reader.SetWmaEnabled(true);
    reader.Open(put("cut.wma", files_.get("a.wma").left(60000)));
    const SampleArray sound = readAll(reader);
    QCOMPARE(std::size_t(reader.GetTotalSamples()), sound.size() / 2);
    QVERIFY(sound.size() > 2 * 2 * 44100);
}

QTEST_GUILESS_MAIN(tst_read_changes)
#include "tst_read_changes.moc"
