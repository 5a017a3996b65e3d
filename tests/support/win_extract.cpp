// The sound of a video into a sound file: both dialogs, the order of the calls, Cancel, and every failure.
#include "export/Saving.h"

class win_extract : public QObject {
    Q_OBJECT
private slots:
    void theOrderOfAnExtraction();
    void anExtractionAfterAnOpenIsInTheSelectedFormat();
    void theMainFormIsDisabledMeanwhile();
    void theCopyIsTheWholeSound();
    void aBlockIsOneSecond_data();
    void aBlockIsOneSecond();
    void theProgressFollowsThePosition();
    void theDialogIsUpFromTheStart();
    void theEndStateIsTheNormalOne();
    void theOpenDocumentStaysOpen();
    void noFormatIsSetButTheSelectedOne();

    void theFirstDialogAsksForAVideo();
    void theSecondDialogProposesTheFormat_data();
    void theSecondDialogProposesTheFormat();
    void leavingTheFirstDialogAsksNothingMore();
    void leavingTheSecondDialogCopiesNothing();
    void anExistingFileIsReplacedWithoutAQuestion();

    void cancelKeepsWhatIsCopied_data();
    void cancelKeepsWhatIsCopied();
    void aVideoWithoutSoundBeginsNoFile();
    void aFaultOfTheLastCloseIsToldToo();
    void everyFaultIsToldAndCleanedUp_data();
    void everyFaultIsToldAndCleanedUp();
};

namespace {

// A form that has a video to take the sound of: four seconds and a bit.
struct Video {
    FormFixture fixture;
    FakeSound sound;
    CutterSelect* form = nullptr;

    explicit Video(const QString& format = "WAV", std::int32_t rate = 8000, std::int32_t channels = 1)
        : sound(fakeSound(4 * rate + 100, rate, channels))
    {
        fixture.writeSetting("WMA", "WMASUPPORT", "True");
        fixture.writeSetting("OutPutCut", "Format", format);
        form = &fixture.load();
        fixture.engine.disk["/v/film.avi"] = sound;
        form->StatusBar1.Panels(1).setText("a job");
        journal().clear();
    }

    void extract(const QString& target = "/out/film")
    {
        fixture.dialogs.files = {QString("/v/film.avi"), target};
        form->ExtractAudioFromAvi.trigger();
    }
    const SampleArray& written() { return fixture.engine.disk["/out/film"].samples; }
    QString panel1() { return form->StatusBar1.Panels(1).text(); }
    bool isAtRest() const { return form->isEnabled() && !ProgressForm.loaded() && !KeepRunning; }
};

}

void win_extract::theOrderOfAnExtraction()
{
    Video video("WAV", 8000, 2);
    video.extract();
    QStringList expected{"dialog open",
                         "dialog save",
                         "FileWenc.SetFormatPCM 44100 2 16",
                         "FileRe.SetWmaEnabled True",
                         "FileRe.Open /v/film.avi",
                         "FileWenc.Create /out/film",
                         "FileWenc.SetInputFormat 8000 2"};
    for (const char* elements : {"32000", "32000", "200"})
        expected << "FileRe.ReadArray 16000" << QString("FileWenc.WriteArray %1").arg(elements);
    expected << "FileRe.ReadArray 16000"
             << "FileWenc.Close"
             << "FileRe.Close";
    QCOMPARE(journal().commands(), expected);
}

// A scan leaves the writer set up for the work file.
void win_extract::anExtractionAfterAnOpenIsInTheSelectedFormat()
{
    Video video("OGG");
    video.fixture.open(fakeSound(50000));
    video.extract();
    const QStringList calls = journal().commandsOf("FileWenc");
    QCOMPARE(calls.value(0), QString("FileWenc.SetFormatOggVorbis 44100 2 128 0 0 400"));
    QCOMPARE(calls.value(1), QString("FileWenc.Create /out/film"));
}

void win_extract::theMainFormIsDisabledMeanwhile()
{
    Video video;
    QList<bool> states;
    journal().onCommand = [&](const QString& line) {
        if (line.startsWith("FileWenc.WriteArray")) states << video.form->isEnabled();
    };
    video.extract();
    QVERIFY(!states.isEmpty() && !states.contains(true));
    QVERIFY(video.isAtRest());
}

void win_extract::theCopyIsTheWholeSound()
{
    Video video;
    video.extract();
    QVERIFY(video.written() == video.sound.samples);
}

void win_extract::aBlockIsOneSecond_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::addColumn<QString>("read");
    QTest::addRow("of mono") << 8000 << 1 << "FileRe.ReadArray 8000";
    QTest::addRow("counted in elements for stereo") << 11025 << 2 << "FileRe.ReadArray 22050";
}

void win_extract::aBlockIsOneSecond()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    QFETCH(QString, read);
    Video video("WAV", rate, channels);
    video.extract();
    QCOMPARE(journal().commandsOf("FileRe.ReadArray").first(), read);
}

void win_extract::theProgressFollowsThePosition()
{
    Video video;
    QStringList told;
    QList<int> bars;
    journal().onCommand = [&](const QString& line) {
        if (!line.startsWith("FileRe.ReadArray")) return;
        told << ProgressForm->Label2.text();
        bars << static_cast<int>(ProgressForm->ProgressBar1() * 10);
    };
    video.extract();
    const QString name = langText(82) + " : ";    // 8000 of 32100 samples are 24.92 %
    QCOMPARE(told, (QStringList{name + "0 %", name + "25 %", name + "50 %", name + "75 %", name + "100 %",
                                name + "100 %"}));
    QCOMPARE(bars, (QList<int>{0, 249, 498, 747, 996, 1000}));
}

void win_extract::theDialogIsUpFromTheStart()
{
    Video video;
    bool isUp = false;
    at("FileRe.Open", [&] { isUp = ProgressForm.visible() && !ProgressForm->isModal(); });
    video.extract();
    QVERIFY(isUp);
}

void win_extract::theEndStateIsTheNormalOne()
{
    Video video;
    video.extract();
    QVERIFY(video.isAtRest());
    QCOMPARE(video.panel1(), QString());
    QCOMPARE(messages(), QStringList());
}

void win_extract::theOpenDocumentStaysOpen()
{
    Saving saving("WAV");
    saving.fixture.engine.disk["/v/film.avi"] = fakeSound(500);
    saving.fixture.dialogs.files = {QString("/v/film.avi"), QString("/out/film.wav")};
    saving.form.ExtractAudioFromAvi.trigger();
    QCOMPARE(CurrentFile, QString("/music/song.mp3"));
    QCOMPARE(TotalSamples, songLength);
    QVERIFY(!saving.form.FileR->IsClosed());
}

void win_extract::noFormatIsSetButTheSelectedOne()
{
    Video video("OGG");
    video.extract();
    QCOMPARE(journal().commandsOf("FileWenc.SetFormat"),
             QStringList{"FileWenc.SetFormatOggVorbis 44100 2 128 0 0 400"});
}

void win_extract::theFirstDialogAsksForAVideo()
{
    Video video;
    video.form->ExtractAudioFromAvi.trigger();
    QCOMPARE(video.fixture.dialogs.lastTitle, langText(67));
    QCOMPARE(video.form->cd1.Filter, langText(68) + " (*.avi)|*.AVI;*.avi");
}

void win_extract::theSecondDialogProposesTheFormat_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("extension");
    QTest::addRow("MP3") << "MP3"
                         << "mp3";
    QTest::addRow("Ogg Vorbis") << "OGG"
                                << "ogg";
    QTest::addRow("WMA") << "WMA"
                         << "wma";
    QTest::addRow("WAV") << "WAV"
                         << "wav";
}

void win_extract::theSecondDialogProposesTheFormat()
{
    QFETCH(QString, format);
    QFETCH(QString, extension);
    Video video(format);
    video.extract();
    QCOMPARE(video.fixture.dialogs.lastName, "film." + extension);
    QCOMPARE(video.fixture.dialogs.lastTitle, langText(69));
    QCOMPARE(video.form->cd1.Filter, langText(70) + " (*." + extension + ")|*." + extension);
}

void win_extract::leavingTheFirstDialogAsksNothingMore()
{
    Video video;
    video.form->ExtractAudioFromAvi.trigger();
    QCOMPARE(journal().commands(), QStringList{"dialog open"});
}

void win_extract::leavingTheSecondDialogCopiesNothing()
{
    Video video;
    video.fixture.dialogs.files = {QString("/v/film.avi")};
    video.form->ExtractAudioFromAvi.trigger();
    QCOMPARE(journal().commands(), (QStringList{"dialog open", "dialog save"}));
    QVERIFY(!ProgressForm.loaded());
}

void win_extract::anExistingFileIsReplacedWithoutAQuestion()
{
    Video video;
    video.fixture.engine.disk["/out/film"] = fakeSound(9);
    video.extract();
    QCOMPARE(messages(), QStringList());
    QVERIFY(video.written() == video.sound.samples);
}

using Act = void (*)();
Q_DECLARE_METATYPE(Act)

void win_extract::cancelKeepsWhatIsCopied_data()
{
    QTest::addColumn<Act>("cancel");
    QTest::addRow("by the button") << Act(clickCancel);
    QTest::addRow("by the close box") << Act([] { ProgressForm->close(); });
}

void win_extract::cancelKeepsWhatIsCopied()
{
    QFETCH(Act, cancel);
    Video video;
    int blocks = 0;
    journal().onCommand = [&](const QString& line) {
        if (line.startsWith("FileWenc.WriteArray") && ++blocks == 2) cancel();
    };
    video.extract();
    QCOMPARE(video.written().size(), std::size_t{16000});
    QCOMPARE(journal().commands().mid(journal().commands().size() - 2),
             (QStringList{"FileWenc.Close", "FileRe.Close"}));
    QCOMPARE(messages(), QStringList());
    QVERIFY(video.isAtRest());
}

void win_extract::aVideoWithoutSoundBeginsNoFile()
{
    Video video;
    video.fixture.engine.disk["/v/film.avi"] = fakeSound(0);
    video.extract();
    QCOMPARE(journal().commands().mid(5), (QStringList{"FileRe.Close", criticalMessage(83)}));
    QVERIFY(!video.fixture.engine.disk.contains("/out/film"));
}

void win_extract::aFaultOfTheLastCloseIsToldToo()
{
    Video video;
    at("FileRe.Close", [] { throw EngineError("FileRe.Close fails"); });
    video.extract();
    QCOMPARE(messages(), QStringList{criticalMessage(83)});
    QVERIFY(video.isAtRest());
}

void win_extract::everyFaultIsToldAndCleanedUp_data()
{
    QTest::addColumn<QString>("call");
    for (const char* call :
         {"FileRe.SetWmaEnabled", "FileRe.Open", "FileRe.GetTotalSamples", "FileWenc.Create",
          "FileRe.GetOutputRate", "FileRe.GetChannels", "FileWenc.SetInputFormat", "FileRe.ReadArray",
          "FileWenc.WriteArray", "FileRe.GetReadChannels", "FileWenc.Close"})
        QTest::addRow("%s", call) << call;
}

void win_extract::everyFaultIsToldAndCleanedUp()
{
    QFETCH(QString, call);
    Video video;
    video.fixture.engine.failing << call;
    video.extract();
    QCOMPARE(messages(), QStringList{criticalMessage(83)});
    QVERIFY(video.isAtRest());
    QCOMPARE(video.panel1(), QString());
    QCOMPARE(journal().commandsOf("FileRe.Close").size(), 1);
    QCOMPARE(journal().commandsOf("FileWenc.Close").size(), call == "FileWenc.Close" ? 1 : 0);

    video.fixture.engine.failing.clear();
    video.extract();
    QVERIFY(video.written() == video.sound.samples);
    QCOMPARE(messages().size(), 1);
}

QTEST_MAIN(win_extract)
#include "win_extract.moc"
