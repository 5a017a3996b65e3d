// Opening real files of every kind through the real dialog.
#include "journeys/Journey.h"

#include "core/TimeText.h"
#include "core/toolkit/FormHolder.h"
#include "waveform/Form2.h"

#include <QFile>
#include <QPushButton>
#include <QTest>

#include <sys/resource.h>
#include <csignal>

namespace {

constexpr std::int32_t threeSeconds = 132300;

// The same music in every format, made once.
class Sounds {
public:
    Sounds()
    {
        writeWav(path("song.wav"), music(threeSeconds));
        runProgram("lame", {"--quiet", "-b", "128", "--add-id3v2", "--tt", "Évening", "--ta", "Some One",
                            "--tl", "An Album", "--ty", "1999", "--tc", "a comment", "--tg", "8",
                            path("song.wav"), path("song.mp3")});
        runProgram("oggenc", {"--quiet", "-q", "4", "-a", "Ogg Artist", "-l", "Ogg Album", path("song.wav"),
                              "-o", path("song.ogg")});
        runProgram("ffmpeg", {"-v", "error", "-i", path("song.wav"), "-c:a", "wmav2", "-b:a", "128k",
                              path("song.wma")});
        runProgram("ffmpeg",
                   {"-v", "error", "-f", "lavfi", "-i", "testsrc2=size=64x48:rate=5", "-i", path("song.wav"),
                    "-t", "3", "-c:v", "mpeg4", "-c:a", "pcm_s16le", path("song.avi")});
        runProgram("ffmpeg", {"-v", "error", "-f", "lavfi", "-i", "testsrc2=size=64x48:rate=5", "-t", "1",
                              "-c:v", "mpeg4", path("silent.avi")});
        writeWav(path("short.wav"), music(4000));
        writeWav(path("empty.wav"), {});
        QFile text(path("text.mp3"));
        QVERIFY(text.open(QIODevice::WriteOnly));
        text.write("This is no sound.\n");
        QFile nothing(path("nothing.ogg"));
        QVERIFY(nothing.open(QIODevice::WriteOnly));
    }

    QString path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }

private:
    QTemporaryDir folder_;
};

}

class tst_journey_open : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { sounds_ = std::make_unique<Sounds>(); }
    void cleanupTestCase() { sounds_.reset(); }

    void everyKindOfFileOpensWithItsNameLengthAndFormat_data();
    void everyKindOfFileOpensWithItsNameLengthAndFormat();
    void theTagsOfAnMp3FillThePanel();
    void theTagsOfAnOggFillThePanel();
    void theWorkFileOfAWavHasItsSamples();
    void theWorkFileOfACompressedFileIsWhatAnotherDecoderGives_data();
    void theWorkFileOfACompressedFileIsWhatAnotherDecoderGives();
    void whatIsNoSoundGetsOneCriticalMessage_data();
    void whatIsNoSoundGetsOneCriticalMessage();
    void aFileThatCantBeReadLeavesTheSoundOfTheEarlierOne();
    void aTooShortFileIsOpenWithItsLengthAndNoWaveform();
    void cancelInTheScanLeavesWhatWasReadAsTheDocument();
    void aFullDiskInTheScanGetsTheMessageAndTheNextOpenWorks();
    void theUsersOwnFileIsNeverWritten();

private:
    std::unique_ptr<Sounds> sounds_;
};

void tst_journey_open::everyKindOfFileOpensWithItsNameLengthAndFormat_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("tolerance");    // samples
    QTest::addRow("WAV") << "song.wav"
                         << "WAV" << 0;
    QTest::addRow("MP3") << "song.mp3"
                         << "MP3" << 0;
    QTest::addRow("Ogg Vorbis") << "song.ogg"
                                << "Ogg Vorbis" << 0;
    QTest::addRow("WMA, to two codec frames") << "song.wma"
                                              << "WMA" << 2 * 2048;
    QTest::addRow("AVI") << "song.avi"
                         << "AVI" << 0;
}

void tst_journey_open::everyKindOfFileOpensWithItsNameLengthAndFormat()
{
    QFETCH(QString, file);
    QFETCH(QString, format);
    QFETCH(int, tolerance);
    Journey journey;
    journey.open(sounds_->path(qPrintable(file)));
    QVERIFY(journey.dialogs.messages.isEmpty());
    QCOMPARE(journey.form().Label1.text(), file);
    QVERIFY2(journey.form().Label4.text().startsWith(format), qPrintable(journey.form().Label4.text()));
    QVERIFY(journey.form().Label4.text().contains("44100 Hz"));
    QVERIFY2(std::abs(TotalSamples - threeSeconds) <= tolerance, qPrintable(QString::number(TotalSamples)));
    QVERIFY(journey.form().Label3.text().startsWith("Duration : 00:03.") ||
            journey.form().Label3.text().startsWith("Duration : 00:02.9"));
    QVERIFY(journey.form().FileLoaded && !journey.form().Scanning && journey.form().isEnabled());
    QVERIFY(journey.form().Peaks.size() > 7000);
}

void tst_journey_open::theTagsOfAnMp3FillThePanel()
{
    Journey journey;
    journey.open(sounds_->path("song.mp3"));
    QCOMPARE(journey.form().infoArtist.text(), QStringLiteral("Some One"));
    QCOMPARE(journey.form().infoAlbum.text(), QStringLiteral("An Album"));
    QCOMPARE(journey.form().infoComment.text(), QStringLiteral("a comment"));
    QCOMPARE(journey.form().infoYear.text(), QStringLiteral("1999"));
    QCOMPARE(journey.form().infoGenre.currentText(), QStringLiteral("Jazz"));
    QCOMPARE(journey.form().FileTitle, QString::fromUtf8("Évening"));
}

void tst_journey_open::theTagsOfAnOggFillThePanel()
{
    Journey journey;
    journey.open(sounds_->path("song.ogg"));
    QCOMPARE(journey.form().infoArtist.text(), QStringLiteral("Ogg Artist"));
    QCOMPARE(journey.form().infoAlbum.text(), QStringLiteral("Ogg Album"));
}

void tst_journey_open::theWorkFileOfAWavHasItsSamples()
{
    Journey journey;
    journey.open(sounds_->path("song.wav"));
    QVERIFY(readWav(TempCutPath) == readWav(sounds_->path("song.wav")));
}

void tst_journey_open::theWorkFileOfACompressedFileIsWhatAnotherDecoderGives_data()
{
    QTest::addColumn<QString>("file");
    QTest::addRow("MP3") << "song.mp3";
    QTest::addRow("Ogg Vorbis") << "song.ogg";
}

void tst_journey_open::theWorkFileOfACompressedFileIsWhatAnotherDecoderGives()
{
    QFETCH(QString, file);
    Journey journey;
    journey.open(sounds_->path(qPrintable(file)));
    const SampleArray theirs = decoded(sounds_->path(qPrintable(file)));
    QVERIFY(readWav(TempCutPath) == theirs);
    QCOMPARE(static_cast<std::size_t>(TotalSamples) * 2, theirs.size());
}

void tst_journey_open::whatIsNoSoundGetsOneCriticalMessage_data()
{
    QTest::addColumn<QString>("file");
    QTest::addRow("a text called .mp3") << "text.mp3";
    QTest::addRow("a file of no bytes") << "nothing.ogg";
    QTest::addRow("a WAV of no samples") << "empty.wav";
    QTest::addRow("a video without sound") << "silent.avi";
}

void tst_journey_open::whatIsNoSoundGetsOneCriticalMessage()
{
    QFETCH(QString, file);
    Journey journey;
    journey.start();
    journey.dialogs.expectFile(sounds_->path(qPrintable(file)));
    journey.dialogs.expectMessage();
    journey.form().OpenAudioFile.trigger();
    QCOMPARE(journey.dialogs.messages, QStringList{langText(73)});
    QCOMPARE(journey.dialogs.icons, QStringList{"Critical"});
    // There is no work file to go back to, so the open has not ended: closing is refused, the window lives.
    QVERIFY(journey.form().Scanning && ProgressForm.visible() && journey.form().isEnabled());

    journey.open(sounds_->path("song.wav"));
    QVERIFY(!journey.form().Scanning && !ProgressForm.visible());
    QCOMPARE(TotalSamples, threeSeconds);
}

void tst_journey_open::aFileThatCantBeReadLeavesTheSoundOfTheEarlierOne()
{
    Journey journey;
    journey.open(sounds_->path("song.wav"));
    journey.dialogs.expectFile(sounds_->path("text.mp3"));
    journey.dialogs.expectMessage();
    journey.form().OpenAudioFile.trigger();
    QCOMPARE(journey.dialogs.messages.size(), 1);
    QCOMPARE(TotalSamples, threeSeconds);
    QCOMPARE(journey.form().Peaks.size(), std::size_t{1});
    QVERIFY(!journey.form().Scanning && journey.form().isEnabled());
}

void tst_journey_open::aTooShortFileIsOpenWithItsLengthAndNoWaveform()
{
    Journey journey;
    journey.start();
    journey.dialogs.expectFile(sounds_->path("short.wav"));
    journey.dialogs.expectMessage();
    journey.form().OpenAudioFile.trigger();
    QCOMPARE(journey.dialogs.messages, QStringList{langText(73)});
    QCOMPARE(TotalSamples, 4000);
    QCOMPARE(journey.form().Peaks.size(), std::size_t{1});
    QVERIFY(!journey.form().Scanning && !ProgressForm.visible());
}

void tst_journey_open::cancelInTheScanLeavesWhatWasReadAsTheDocument()
{
    Journey journey;
    const QString longSong = journey.path("long.wav");
    writeWav(longSong, music(40 * 44100));
    journey.start();
    journey.dialogs.expectFile(longSong);
    // The button is pressed from the loop that the scan gives way to.
    QTimer press;
    QObject::connect(&press, &QTimer::timeout, &press, [&] {
        if (ProgressForm.visible() && journey.form().Scanning && !journey.form().isEnabled())
            ProgressForm->Command1.click();
    });
    press.start(0);
    journey.form().OpenAudioFile.trigger();
    QVERIFY(TotalSamples > 0 && TotalSamples < 40 * 44100);
    QVERIFY(!journey.form().Scanning && journey.form().isEnabled() && !ProgressForm.visible());
    QCOMPARE(readWav(TempCutPath).size(), static_cast<std::size_t>(TotalSamples) * 2);
    QVERIFY(journey.dialogs.messages.isEmpty());
}

void tst_journey_open::aFullDiskInTheScanGetsTheMessageAndTheNextOpenWorks()
{
    Journey journey;
    const QString longSong = journey.path("long.wav");
    writeWav(longSong, music(20 * 44100));
    journey.start();
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    const rlimit small{1'000'000, old.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    journey.dialogs.expectFile(longSong);
    journey.dialogs.expectMessage();
    journey.form().OpenAudioFile.trigger();
    setrlimit(RLIMIT_FSIZE, &old);
    QCOMPARE(journey.dialogs.messages, QStringList{langText(73)});
    QVERIFY(journey.form().isEnabled() && !journey.form().Scanning);

    journey.open(sounds_->path("song.wav"));
    QCOMPARE(TotalSamples, threeSeconds);
    QVERIFY(readWav(TempCutPath) == readWav(sounds_->path("song.wav")));
}

void tst_journey_open::theUsersOwnFileIsNeverWritten()
{
    QFile before(sounds_->path("song.mp3"));
    QVERIFY(before.open(QIODevice::ReadOnly));
    const QByteArray content = before.readAll();
    Journey journey;
    journey.open(sounds_->path("song.mp3"));
    journey.cutAt(50000);
    QFile after(sounds_->path("song.mp3"));
    QVERIFY(after.open(QIODevice::ReadOnly));
    QVERIFY(after.readAll() == content);
}

QTEST_MAIN(tst_journey_open)
#include "tst_journey_open.moc"
