// What the reader refuses, and how it stands afterwards.
#include "tests/engine/ReadingFixtures.h"

class tst_read_refusals : public QObject {
    Q_OBJECT

private slots:
    void whatHoldsNoSoundIsRefused_data();
    void whatHoldsNoSoundIsRefused();
    void aFileThatIsNotThereIsRefused();
    void aFolderIsRefused();
    void aPipeIsRefusedAtOnce();
    void anAviWithoutSoundIsRefused();
    void wmaIsRefusedUntilItIsSwitchedOn();
    void aFileLongerThanPositionsReachIsRefused();
    void aWavWithMoreChannelsThanSpeakersIsRefused();
    void nothingOpenMeansNothingEverywhere();
    void readingAndSeekingNeedAnOpenFile();
    void closingTwiceDoesNoHarm();
    void aRefusedFileLeavesTheReaderClosed();
    void aReaderServesOneFileAfterTheOther();
    void wmaStaysSwitchedOnAfterClose();

private:
    SoundFolder files_;
};

static Bytes noise(int bytes)
{
    Bytes result(bytes, '\0');
    std::uint32_t state = 12345;
    for (char& byte : result) byte = char((state = state * 1664525 + 1013904223) >> 24);
    return result;
}

void tst_read_refusals::whatHoldsNoSoundIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addRow("nothing as MP3") << "zero.mp3" << Bytes();
    QTest::addRow("nothing as WAV") << "zero.wav" << Bytes();
    QTest::addRow("four letters as WAV") << "four.wav" << Bytes("RIFF");
    QTest::addRow("half a header") << "half.wav" << plainWav(music(100, 2), 2).left(30);
    QTest::addRow("text as WAV") << "text.wav" << Bytes("All work and no play. ").repeated(5000);
    QTest::addRow("text as MP3") << "text.mp3" << Bytes("All work and no play. ").repeated(5000);
    QTest::addRow("text as Ogg") << "text.ogg" << Bytes("All work and no play. ").repeated(5000);
    QTest::addRow("text as AVI") << "text.avi" << Bytes("All work and no play. ").repeated(5000);
    QTest::addRow("noise as MP3") << "noise.mp3" << noise(100000);
    QTest::addRow("noise as WMA") << "noise.wma" << noise(100000);
    QTest::addRow("noise as Ogg") << "noise.ogg" << noise(100000);
    QTest::addRow("a rate that no device has") << "high.wav" << plainWav(music(100, 2), 2, 1 << 28);
    QTest::addRow("a playlist of another file") << "list.mp3" << Bytes("#EXTM3U\n#EXTINF:1,\nother.mp3\n");
}

void tst_read_refusals::whatHoldsNoSoundIsRefused()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    FileReader reader;
    reader.SetWmaEnabled(true);
    QVERIFY_EXCEPTION_THROWN(reader.Open(files_.put(name, bytes)), EngineError);
    QVERIFY(reader.IsClosed());
    reader.Close();
}

void tst_read_refusals::aFileThatIsNotThereIsRefused()
{
    FileReader reader;
    QVERIFY_EXCEPTION_THROWN(reader.Open(files_.path("missing.wav")), EngineError);
}

void tst_read_refusals::aFolderIsRefused()
{
    FileReader reader;
    QVERIFY_EXCEPTION_THROWN(reader.Open(files_.path(".")), EngineError);
}

void tst_read_refusals::aPipeIsRefusedAtOnce()
{
    files_.run("mkfifo pipe.wav");
    FileReader reader;
    QVERIFY_EXCEPTION_THROWN(reader.Open(files_.path("pipe.wav")), EngineError);
}

void tst_read_refusals::anAviWithoutSoundIsRefused()
{
    FileReader reader;
    const QString path =
        files_.make("ffmpeg -v error -y -f lavfi -i testsrc=s=64x48:d=1 -c:v mpeg4 mute.avi");
    QVERIFY_EXCEPTION_THROWN(reader.Open(path), EngineError);
}

void tst_read_refusals::wmaIsRefusedUntilItIsSwitchedOn()
{
    files_.put("a.wav", plainWav(music(44100, 2), 2));
    const QString path = files_.make("ffmpeg -v error -y -i a.wav -c:a wmav2 a.wma");
    FileReader reader;
    QVERIFY_EXCEPTION_THROWN(reader.Open(path), EngineError);
    reader.SetWmaEnabled(true);
    reader.Open(path);
    QVERIFY(!reader.IsClosed());
}

void tst_read_refusals::aFileLongerThanPositionsReachIsRefused()
{
    QFile file(files_.put("long.wav", riff(formChunk(1, 8) + Bytes("data\xff\xff\xff\xff"))));
    QVERIFY(file.resize(file.size() + (std::int64_t(1) << 31)));
    FileReader reader;
    QVERIFY_EXCEPTION_THROWN(reader.Open(file.fileName()), EngineError);
    QVERIFY(file.resize(file.size() - 1));
    reader.Open(file.fileName());
    QCOMPARE(reader.GetTotalSamples(), 0x7fffffff);
}

void tst_read_refusals::aWavWithMoreChannelsThanSpeakersIsRefused()
{
    FileReader reader;
    const Bytes wav = riff(formChunk(1000, 16) + chunk("data", Bytes(20000, '\1')));
    QVERIFY_EXCEPTION_THROWN(reader.Open(files_.put("thousand.wav", wav)), EngineError);
}

void tst_read_refusals::nothingOpenMeansNothingEverywhere()
{
    const FileReader reader;
    QVERIFY(reader.IsClosed());
    QCOMPARE(reader.GetTotalSamples(), 0);
    QCOMPARE(reader.GetSampleRate(), 0);
    QCOMPARE(reader.GetOutputRate(), 0);
    QCOMPARE(reader.GetChannels(), 0);
    QCOMPARE(reader.GetReadChannels(), 0);
    QCOMPARE(reader.GetDurationMs(), 0);
    QCOMPARE(reader.FormatString(), QString());
}

void tst_read_refusals::readingAndSeekingNeedAnOpenFile()
{
    FileReader reader;
    QVERIFY_EXCEPTION_THROWN(reader.ReadArray(100), EngineError);
    QVERIFY_EXCEPTION_THROWN(reader.Seek(0), EngineError);
}

void tst_read_refusals::closingTwiceDoesNoHarm()
{
    FileReader reader;
    reader.Close();
    reader.Open(files_.put("c.wav", plainWav(music(100, 2), 2)));
    reader.Close();
    reader.Close();
    QVERIFY(reader.IsClosed());
    QCOMPARE(reader.GetTotalSamples(), 0);
}

void tst_read_refusals::aRefusedFileLeavesTheReaderClosed()
{
    FileReader reader;
    reader.Open(files_.put("good.wav", plainWav(music(100, 2), 2)));
    QVERIFY_EXCEPTION_THROWN(reader.Open(files_.put("bad.wav", "RIFF")), EngineError);
    QVERIFY(reader.IsClosed());
    QCOMPARE(reader.GetChannels(), 0);
}

void tst_read_refusals::aReaderServesOneFileAfterTheOther()
{
    FileReader reader;
    reader.Open(files_.put("one.wav", plainWav(music(100, 2), 2)));
    reader.SetInputFormat(8000, 1);
    reader.Open(files_.put("two.wav", plainWav(music(70, 1), 1)));
    QCOMPARE(reader.GetTotalSamples(), 70);
    QCOMPARE(reader.GetOutputRate(), 44100);
}

void tst_read_refusals::wmaStaysSwitchedOnAfterClose()
{
    files_.put("w.wav", plainWav(music(44100, 2), 2));
    const QString path = files_.make("ffmpeg -v error -y -i w.wav -c:a wmav2 w.wma");
    FileReader reader;
    reader.SetWmaEnabled(true);
    reader.Open(path);
    reader.Close();
    reader.Open(path);
    QVERIFY(!reader.IsClosed());
}

QTEST_GUILESS_MAIN(tst_read_refusals)
#include "tst_read_refusals.moc"
