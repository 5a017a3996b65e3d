// AVI files that are cut off, damaged or of an unknown build: they are read as ffmpeg reads them.
#include "tests/engine/AviFixtures.h"

class tst_read_avi_faults : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void aFileCutOffAnywhereIsReadAsFfmpegReadsIt_data();
    void aFileCutOffAnywhereIsReadAsFfmpegReadsIt();
    void aFileWithoutAnySoundIsRefused();
    void whatIsNotUnderstoodIsLeftToLibavformat_data();
    void whatIsNotUnderstoodIsLeftToLibavformat();
    void damagedChunksGiveWhatLibavformatMakesOfThem_data();
    void damagedChunksGiveWhatLibavformatMakesOfThem();

private:
    SoundFolder files_;
};

void tst_read_avi_faults::initTestCase()
{
    files_.put("a.wav", plainWav(music(4 * 44100 + 3, 2), 2));
}

void tst_read_avi_faults::aFileCutOffAnywhereIsReadAsFfmpegReadsIt_data()
{
    QTest::addColumn<QString>("codec");
    QTest::addColumn<bool>("closed");
    for (const char* codec : {"pcm_s16le", "libmp3lame", "ac3", "adpcm_ms"}) {
        QTest::addRow("%s, once closed", codec) << codec << true;
        QTest::addRow("%s, never closed", codec) << codec << false;
    }
}

void tst_read_avi_faults::aFileCutOffAnywhereIsReadAsFfmpegReadsIt()
{
    QFETCH(QString, codec);
    QFETCH(bool, closed);
    files_.run("ffmpeg -v error -y -f lavfi -i testsrc=s=64x48:d=4 -i a.wav -c:v mpeg4 -c:a " + codec +
               " cut.avi");
    Bytes whole = files_.get("cut.avi");
    whole = whole.left(whole.indexOf("idx1"));
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

void tst_read_avi_faults::aFileWithoutAnySoundIsRefused()
{
    const QString path = files_.put(
        "dumb.avi", aviFile(headList(pictureStream()) + listOf("movi", chunk("00dc", Bytes(500, 'p')))));
    QVERIFY_EXCEPTION_THROWN(inspect(path), EngineError);
}

void tst_read_avi_faults::whatIsNotUnderstoodIsLeftToLibavformat_data()
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

void tst_read_avi_faults::whatIsNotUnderstoodIsLeftToLibavformat()
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

void tst_read_avi_faults::damagedChunksGiveWhatLibavformatMakesOfThem_data()
{
    QTest::addColumn<QString>("codec");
    for (const char* codec : {"pcm_s16le", "libmp3lame", "ac3", "adpcm_ms"})
        QTest::addRow("%s", codec) << codec;
}

/// One byte at a time: half of them in the heads of chunks, where most harm is done.
void tst_read_avi_faults::damagedChunksGiveWhatLibavformatMakesOfThem()
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

QTEST_GUILESS_MAIN(tst_read_avi_faults)
#include "tst_read_avi_faults.moc"
