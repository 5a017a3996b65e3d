// The sound of real videos, extracted through the real dialogs into every format.
#include "journeys/Journey.h"

#include "core/toolkit/FormHolder.h"
#include "waveform/Form2.h"

#include <QFile>
#include <QPushButton>
#include <QTest>

namespace {

constexpr int seconds = 4;

// A small picture with the sound that the arguments ask for.
void makeVideo(const QString& path, const QStringList& soundArguments)
{
    QStringList arguments{"-v", "error",
                          "-f", "lavfi",
                          "-i", "testsrc2=size=64x48:rate=5",
                          "-f", "lavfi",
                          "-i", "aevalsrc=0.4*sin(2200*t)|0.3*sin(3100*t):s=48000:d=4"};
    arguments << "-t" << QString::number(seconds) << "-c:v"
              << "mpeg4" << soundArguments << path;
    runProgram("ffmpeg", arguments);
}

double lengthOf(const QString& path)
{
    return runProgram("ffprobe", {"-v", "error", "-show_entries", "format=duration", "-of", "csv=p=0", path})
        .trimmed()
        .toDouble();
}

}

class tst_journey_extract : public QObject {
    Q_OBJECT

private slots:
    void theSoundOfAVideoGoesIntoTheSelectedFormat_data();
    void theSoundOfAVideoGoesIntoTheSelectedFormat();
    void aWavOfPcmSoundIsThatSound();
    void anOpenBeforeItDoesNotChangeTheFormat();
    void cancelLeavesAPlayableFile();
    void aVideoWithoutSoundGetsTheMessageAndNoFile();

private:
    static void extract(Journey& journey, const QString& video, const QString& target);
};

void tst_journey_extract::extract(Journey& journey, const QString& video, const QString& target)
{
    journey.dialogs.expectFile(video);
    journey.dialogs.expectFile(target);
    journey.form().ExtractAudioFromAvi.trigger();
}

void tst_journey_extract::theSoundOfAVideoGoesIntoTheSelectedFormat_data()
{
    QTest::addColumn<QStringList>("sound");
    QTest::addColumn<QString>("format");
    const std::pair<const char*, QStringList> sounds[] = {
        {"PCM, stereo, 44.1 kHz", {"-c:a", "pcm_s16le", "-ar", "44100"}},
        {"PCM, mono, 22.05 kHz", {"-c:a", "pcm_s16le", "-ar", "22050", "-ac", "1"}},
        {"MP3, stereo, 48 kHz", {"-c:a", "libmp3lame", "-b:a", "128k"}},
        {"AC3, 5.1, 48 kHz", {"-c:a", "ac3", "-ac", "6"}},
    };
    for (const auto& [name, sound] : sounds)
        for (const char* format : {"MP3", "OGG", "WMA", "WAV"})
            QTest::addRow("%s, as %s", name, format) << sound << format;
}

void tst_journey_extract::theSoundOfAVideoGoesIntoTheSelectedFormat()
{
    QFETCH(QStringList, sound);
    QFETCH(QString, format);
    Journey journey;
    journey.setting("WMA", "WMASUPPORT", "True");
    journey.setting("OutPutCut", "Format", format);
    makeVideo(journey.path("film.avi"), sound);
    journey.start();
    const QString target = journey.path("film." + format.toLower());
    extract(journey, journey.path("film.avi"), target);
    QVERIFY(journey.dialogs.messages.isEmpty());
    QVERIFY2(std::abs(lengthOf(target) - seconds) < 0.2, qPrintable(QString::number(lengthOf(target))));
    const QByteArray codec =
        runProgram("ffprobe", {"-v", "error", "-show_entries", "stream=codec_name", "-of", "csv=p=0", target})
            .trimmed();
    const QMap<QString, QByteArray> codecs{
        {"MP3", "mp3"}, {"OGG", "vorbis"}, {"WMA", "wmav2"}, {"WAV", "pcm_s16le"}};
    QCOMPARE(codec, codecs[format]);
    QVERIFY(journey.form().isEnabled() && !ProgressForm.visible());
}

void tst_journey_extract::aWavOfPcmSoundIsThatSound()
{
    Journey journey;
    journey.setting("OutPutCut", "Format", "WAV");
    makeVideo(journey.path("film.avi"), {"-c:a", "pcm_s16le", "-ar", "44100"});
    journey.start();
    extract(journey, journey.path("film.avi"), journey.path("film.wav"));
    QVERIFY(readWav(journey.path("film.wav")) == decoded(journey.path("film.avi")));
}

void tst_journey_extract::anOpenBeforeItDoesNotChangeTheFormat()
{
    Journey journey;
    writeWav(journey.path("song.wav"), music(44100));
    makeVideo(journey.path("film.avi"), {"-c:a", "pcm_s16le", "-ar", "44100"});
    journey.open(journey.path("song.wav"));
    extract(journey, journey.path("film.avi"), journey.path("film.mp3"));
    QCOMPARE(runProgram("ffprobe", {"-v", "error", "-show_entries", "stream=codec_name", "-of", "csv=p=0",
                                    journey.path("film.mp3")})
                 .trimmed(),
             QByteArray("mp3"));
    QCOMPARE(TotalSamples, 44100);
}

void tst_journey_extract::cancelLeavesAPlayableFile()
{
    Journey journey;
    journey.setting("OutPutCut", "Format", "OGG");
    makeVideo(journey.path("film.avi"), {"-c:a", "pcm_s16le", "-ar", "44100"});
    journey.start();
    QTimer press;
    QObject::connect(&press, &QTimer::timeout, &press, [] {
        if (ProgressForm.visible() && ProgressForm->ProgressBar1() > 1) ProgressForm->Command1.click();
    });
    press.start(0);
    extract(journey, journey.path("film.avi"), journey.path("film.ogg"));
    QVERIFY(journey.dialogs.messages.isEmpty());
    const double length = lengthOf(journey.path("film.ogg"));
    QVERIFY2(length > 0.5 && length < seconds - 0.5, qPrintable(QString::number(length)));
}

void tst_journey_extract::aVideoWithoutSoundGetsTheMessageAndNoFile()
{
    Journey journey;
    makeVideo(journey.path("silent.avi"), {"-an"});
    journey.start();
    journey.dialogs.expectFile(journey.path("silent.avi"));
    journey.dialogs.expectFile(journey.path("silent.mp3"));
    journey.dialogs.expectMessage();
    journey.form().ExtractAudioFromAvi.trigger();
    QCOMPARE(journey.dialogs.messages, QStringList{langText(83)});
    QVERIFY(!QFile::exists(journey.path("silent.mp3")));
    QVERIFY(journey.form().isEnabled() && !ProgressForm.visible());
}

QTEST_MAIN(tst_journey_extract)
#include "tst_journey_extract.moc"
