// Damaged files: whatever lies in them, the reader refuses them or reads them to an end.
#include "tests/engine/ReadingFixtures.h"

class tst_read_damage : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void damageIsRefusedOrReadToAnEnd_data();
    void damageIsRefusedOrReadToAnEnd();

private:
    SoundFolder files_;
};

static constexpr int damages = 60;

/// The bytes with some of them overwritten, in the head of the file or all over it, at times cut short.
static Bytes damaged(Bytes bytes, std::uint32_t seed)
{
    std::uint32_t state = seed * 2654435761u + 1;
    const auto random = [&](qsizetype below) {
        state = state * 1664525 + 1013904223;
        return qsizetype((state >> 8) % std::uint32_t(below));
    };
    const qsizetype reach = seed % 2 ? bytes.size() : std::min<qsizetype>(bytes.size(), 600);
    for (qsizetype k = 1 + random(seed % 3 ? 30 : 3); k > 0; --k) bytes[random(reach)] = char(random(256));
    return seed % 7 == 6 ? bytes.left(random(bytes.size())) : bytes;
}

void tst_read_damage::initTestCase()
{
    files_.put("a.wav", plainWav(music(2 * 44100, 2), 2));
    files_.run("sox a.wav -r 22050 -c 1 -b 16 mono.wav");
}

void tst_read_damage::damageIsRefusedOrReadToAnEnd_data()
{
    QTest::addColumn<QString>("line");
    QTest::addRow("WAV") << "sox a.wav x.wav";
    QTest::addRow("WAV, 24 bits") << "sox a.wav -b 24 x.wav";
    QTest::addRow("WAV, ADPCM") << "ffmpeg -v error -y -i a.wav -c:a adpcm_ima_wav x.wav";
    QTest::addRow("RF64") << "ffmpeg -v error -y -i a.wav -rf64 always x.wav";
    QTest::addRow("MP3") << "lame --quiet -V 4 a.wav x.mp3";
    QTest::addRow("MP3, mono") << "lame --quiet -b 32 mono.wav x.mp3";
    QTest::addRow("Ogg") << "oggenc -Q -s 3 a.wav -o x.ogg";
    QTest::addRow("WMA 1") << "ffmpeg -v error -y -i a.wav -c:a wmav1 x.wma";
    QTest::addRow("WMA 2") << "ffmpeg -v error -y -i a.wav -c:a wmav2 x.wma";
    QTest::addRow("AVI, PCM") << "ffmpeg -v error -y -i a.wav -c:a pcm_s16le x.avi";
    QTest::addRow("AVI, MP3") << "ffmpeg -v error -y -i a.wav -c:a libmp3lame x.avi";
    QTest::addRow("AVI, AC3") << "ffmpeg -v error -y -i a.wav -c:a ac3 x.avi";
}

void tst_read_damage::damageIsRefusedOrReadToAnEnd()
{
    QFETCH(QString, line);
    files_.make(line);
    const QString name = line.section(' ', -1);
    const Bytes good = files_.get(name);
    for (std::uint32_t seed = 0; seed < damages; ++seed) {
        FileReader reader;
        reader.SetWmaEnabled(true);
        std::size_t elements = 0;
        try {
            reader.Open(files_.put("damaged-" + name, damaged(good, seed)));
            QVERIFY(reader.GetChannels() == 1 || reader.GetChannels() == 2);
            elements = readAll(reader).size();
            reader.Seek(reader.GetTotalSamples() / 2);
            reader.ReadArray(100);
        } catch (const EngineError&) {
        }
        QVERIFY2(elements < 100'000'000, qPrintable(QString::number(seed)));
        reader.Close();
    }
}

QTEST_GUILESS_MAIN(tst_read_damage)
#include "tst_read_damage.moc"
