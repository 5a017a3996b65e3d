// Positions: whichever way one comes there, the sound is that of reading straight on.
#include "tests/engine/ReadingFixtures.h"

class tst_read_seek : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void aPositionSoundsAsInOnePass_data();
    void aPositionSoundsAsInOnePass();
    void aPositionBeyondAnEndIsBroughtToThatEnd();
    void readingMovesOn();
    void theEndGivesEmptyArrays();
    void theLastArrayIsShorter();
    void noArrayIsAskedForByNothing();
    void aReaderThatIsDroppedMidwayEndsItsThreads();

private:
    SoundFolder files_;
};

void tst_read_seek::initTestCase()
{
    files_.put("a.wav", plainWav(music(14 * 44100, 2), 2));
}

void tst_read_seek::aPositionSoundsAsInOnePass_data()
{
    QTest::addColumn<QString>("line");
    QTest::addRow("MP3") << "lame --quiet -V 4 a.wav s.mp3";
    QTest::addRow("Ogg") << "oggenc -Q a.wav -o s.ogg";
    QTest::addRow("WMA") << "ffmpeg -v error -y -i a.wav -c:a wmav2 s.wma";
    QTest::addRow("AVI, AC3") << "ffmpeg -v error -y -i a.wav -c:a ac3 s.avi";
}

void tst_read_seek::aPositionSoundsAsInOnePass()
{
    QFETCH(QString, line);
    FileReader reader;
    reader.SetWmaEnabled(true);
    reader.Open(files_.make(line));
    const SampleArray pass = readAll(reader);
    for (const int frame : {300000, 500000, 0, 1, 499999, 1000}) {
        QCOMPARE(reader.Seek(frame), frame);
        const SampleArray wanted(pass.begin() + 2 * frame, pass.begin() + 2 * (frame + 2000));
        QCOMPARE(firstDifference(reader.ReadArray(2000), wanted), -1);
    }
}

void tst_read_seek::aPositionBeyondAnEndIsBroughtToThatEnd()
{
    FileReader reader;
    reader.Open(files_.path("a.wav"));
    QCOMPARE(reader.Seek(-5), 0);
    QCOMPARE(reader.Seek(2000000000), 14 * 44100);
    QVERIFY(reader.ReadArray(1).empty());
}

void tst_read_seek::readingMovesOn()
{
    FileReader reader;
    reader.Open(files_.make("oggenc -Q a.wav -o on.ogg"));
    const SampleArray pass = readAll(reader);
    reader.Seek(1000);
    reader.ReadArray(500);
    QCOMPARE(reader.ReadArray(1), (SampleArray{pass[3000], pass[3001]}));
}

void tst_read_seek::theEndGivesEmptyArrays()
{
    FileReader reader;
    reader.Open(files_.make("lame --quiet a.wav end.mp3"));
    readAll(reader);
    QVERIFY(reader.ReadArray(10).empty());
    QVERIFY(reader.ReadArray(10).empty());
}

void tst_read_seek::theLastArrayIsShorter()
{
    FileReader reader;
    reader.Open(files_.path("a.wav"));
    reader.Seek(14 * 44100 - 7);
    QCOMPARE(reader.ReadArray(100).size(), std::size_t(14));
}

void tst_read_seek::noArrayIsAskedForByNothing()
{
    FileReader reader;
    reader.Open(files_.path("a.wav"));
    QVERIFY(reader.ReadArray(0).empty());
    QVERIFY(reader.ReadArray(-1).empty());
    QCOMPARE(reader.ReadArray(1).size(), std::size_t(2));
}

void tst_read_seek::aReaderThatIsDroppedMidwayEndsItsThreads()
{
    const QString path = files_.make("lame --quiet a.wav drop.mp3");
    for (int i = 0; i < 20; ++i) {
        FileReader reader;
        reader.Open(path);
        QVERIFY(!reader.ReadArray(1 + 5000 * i).empty());
    }
}

QTEST_GUILESS_MAIN(tst_read_seek)
#include "tst_read_seek.moc"
