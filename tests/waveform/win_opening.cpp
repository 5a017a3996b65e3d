// Opening a file: the order of the calls, what the window shows, what becomes of the file before.
#include "support/FormFixture.h"
#include "support/Journal.h"
#include "support/Mouse.h"
#include "waveform/TaggedSong.h"

#include "core/toolkit/FormHolder.h"
#include "waveform/Form2.h"

#include <QTest>

namespace {

// Opens `path` by the tool bar; the sound is on the disk already.
void openByHand(FormFixture& fixture, const QString& path)
{
    fixture.dialogs.files.push_back(path);
    pressButton(fixture.form->Toolbar1, 1);
}

}

class win_opening : public QObject {
    Q_OBJECT

private slots:
    void theDialogAsksForTheFiveKinds();
    void anOpenRunsTheEnginesCallsInOrder();
    void aCancelInTheDialogChangesNothing();
    void theWindowShowsTheFilesNameFormatAndLength();
    void theWorkFileIsTheDocumentAfterwards();
    void thePositionStandsAtTheStart();
    void theTagsComeIntoThePanel();
    void threeKindsOfFilesLeaveTheTagsAlone_data();
    void threeKindsOfFilesLeaveTheTagsAlone();
    void theWorkFileHasTheWholeSound_data();
    void theWorkFileHasTheWholeSound();
    void theWorkFileKeepsTheLowestSample();
    void theTableHasTheLowestSampleAs32665AndTheHighestAs32767();
    void anOpenWhilePlayingStopsThePlay();
    void anOpenForgetsTheCutsAndTitlesOfTheFileBefore();
};

void win_opening::theDialogAsksForTheFiveKinds()
{
    FormFixture fixture;
    fixture.load();
    openByHand(fixture, QStringLiteral("/music/none.mp3"));
    QCOMPARE(fixture.dialogs.lastTitle, langText(1) + QStringLiteral(" :"));
    QCOMPARE(fixture.dialogs.lastFilter.text,
             langText(70) + QStringLiteral(" (*.wav;*.mp3;*.ogg;*.wma;*.avi)"));
    QCOMPARE(fixture.dialogs.lastFilter.patterns, (QStringList{"*.wav", "*.mp3", "*.avi", "*.ogg", "*.wma"}));
}

void win_opening::anOpenRunsTheEnginesCallsInOrder()
{
    FormFixture fixture;
    fixture.engine.disk[QStringLiteral("/music/song.mp3")] = fakeSound(100000);
    fixture.load();
    journal().clear();
    openByHand(fixture, QStringLiteral("/music/song.mp3"));
    QCOMPARE(
        journal().commands(),
        (QStringList{"dialog open",
                     "FileR.Close",    // of the document before
                     "AudioPlayer.Stop", "FileR.Close", "FileR.SetWmaEnabled True",
                     "FileR.Open /music/song.mp3", "AudioTags.ReadFrom /music/song.mp3",
                     "AudioPlayer.SetFormat 44100 2", "FileWenc.SetFormatPCM 44100 2 16",
                     "FileWenc.Create " + TempCutPath, "FileR.ReadArray 88200", "FileWenc.WriteArray 176400",
                     "FileR.ReadArray 88200", "FileWenc.WriteArray 23600", "FileR.ReadArray 88200",
                     "FileWenc.Close", "FileR.Close", "FileR.Open " + TempCutPath}));
}

void win_opening::aCancelInTheDialogChangesNothing()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {testRate});
    const auto peaks = form.Peaks;
    pressButton(form.Toolbar1, 1);
    QCOMPARE(journal().commands(), (QStringList{"dialog open"}));
    QVERIFY(form.FileLoaded);
    QCOMPARE(form.Peaks, peaks);
    QCOMPARE(TotalSamples, tenSeconds);
    QCOMPARE(CutCount, 1);
    QCOMPARE(form.Label1.text(), QStringLiteral("song.mp3"));
}

void win_opening::theWindowShowsTheFilesNameFormatAndLength()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds + testRate / 4));
    QCOMPARE(form.Label1.text(), QStringLiteral("song.mp3"));
    QCOMPARE(form.Label4.text(), QStringLiteral("fake"));
    QCOMPARE(form.Label3.text(), langText(46) + QStringLiteral(" : 00:10.25"));
    QCOMPARE(form.Label2.text(), QStringLiteral("00:00.00"));
    QCOMPARE(form.StatusBar1.Panels(1).text(), QString());
}

void win_opening::theWorkFileIsTheDocumentAfterwards()
{
    FormFixture fixture;
    FakeSound song = fakeSound(tenSeconds);
    song.claimedTotal = tenSeconds + 5000;    // a header that promises more than can be decoded
    auto& form = fixture.open(song);
    QVERIFY(form.FileLoaded && !form.Scanning);
    QCOMPARE(TotalSamples, tenSeconds);
    QCOMPARE(SampleRate, testRate);
    QCOMPARE(form.DurationSeconds, 10);
    QCOMPARE(CurrentFile, QStringLiteral("/music/song.mp3"));
    QCOMPARE(TempCutPath, TempFolder + QStringLiteral("tempCut.wav"));
    QVERIFY(!ProgressForm.loaded());
}

void win_opening::thePositionStandsAtTheStart()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.SetPosition(5000);
    fixture.open(fakeSound(tenSeconds));
    QCOMPARE(form.Line2.X1(), 0.0f);
    QCOMPARE(form.Line2.X2(), 0.0f);
    QCOMPARE(form.IndicTime.Left(), -120.0f);
    QVERIFY(!form.Line6.Visible());
}

void win_opening::theTagsComeIntoThePanel()
{
    FormFixture fixture;
    auto& form = fixture.open(taggedSong());
    QCOMPARE(form.FileTitle, QStringLiteral("Rain"));
    QCOMPARE(form.infoArtist.text(), QStringLiteral("Ana"));
    QCOMPARE(form.infoAlbum.text(), QStringLiteral("Weather"));
    QCOMPARE(form.infoComment.text(), QStringLiteral("live"));
    QCOMPARE(form.infoGenre.currentIndex(), 17);
    QCOMPARE(form.infoYear.text(), QStringLiteral("1998"));
}

void win_opening::threeKindsOfFilesLeaveTheTagsAlone_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("areRead");
    QTest::addRow("lower case wav") << "/a/song.wav" << false;
    QTest::addRow("upper case WMA") << "/a/song.WMA" << false;
    QTest::addRow("mixed case WaV") << "/a/SONG.WaV" << false;
    QTest::addRow("mixed case aVi") << "/a/song.aVi" << false;
    QTest::addRow("upper case MP3 is read") << "/a/SONG.MP3" << true;
    QTest::addRow("ogg is read") << "/a/song.ogg" << true;
}

void win_opening::threeKindsOfFilesLeaveTheTagsAlone()
{
    QFETCH(QString, path);
    QFETCH(bool, areRead);
    FormFixture fixture;
    fixture.engine.disk[path] = taggedSong();
    auto& form = fixture.load();
    form.infoArtist.setText(QStringLiteral("before"));
    openByHand(fixture, path);
    QCOMPARE(journal().commandsOf(QStringLiteral("AudioTags.ReadFrom")).size(), areRead ? 1 : 0);
    QCOMPARE(form.infoArtist.text(), areRead ? QStringLiteral("Ana") : QStringLiteral("before"));
}

void win_opening::theWorkFileHasTheWholeSound_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("channels");
    QTest::addRow("stereo, several blocks and a rest") << 5 * testRate + 17 << 2;
    QTest::addRow("mono, whose last block is odd") << 2 * testRate + 17 << 1;
    QTest::addRow("one block exactly") << 2 * testRate << 2;
}

void win_opening::theWorkFileHasTheWholeSound()
{
    QFETCH(int, length);
    QFETCH(int, channels);
    const FakeSound song = fakeSound(length, testRate, channels);
    FormFixture fixture;
    fixture.open(song);
    const FakeSound work = fixture.engine.disk.value(TempCutPath);
    QCOMPARE(work.samples, song.samples);
    QCOMPARE(work.rate, testRate);
    QCOMPARE(work.channels, channels);
}

void win_opening::theWorkFileKeepsTheLowestSample()
{
    FakeSound song = fakeSound(8000);
    std::fill(song.samples.begin(), song.samples.end(), std::int16_t{-32768});
    FormFixture fixture;
    fixture.open(song);
    QVERIFY(fixture.engine.disk.value(TempCutPath).samples == song.samples);
}

void win_opening::theTableHasTheLowestSampleAs32665AndTheHighestAs32767()
{
    FakeSound song = fakeSound(8000);
    song.samples[2] = -32768;
    song.samples[4] = 32767;
    FormFixture fixture;
    auto& form = fixture.open(song);
    QCOMPARE(form.Peaks.size(), std::size_t{7999});    // ratio 1: every left sample but the first
    QCOMPARE(form.Peaks[0], 32665);
    QCOMPARE(form.Peaks[1], 32767);
    QCOMPARE(form.Peaks[2], 3);
}

void win_opening::anOpenWhilePlayingStopsThePlay()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, 10);
    QVERIFY(form.IsPlaying);
    fixture.open(fakeSound(tenSeconds));
    QVERIFY(!form.IsPlaying && !form.PlayFeeding);
}

void win_opening::anOpenForgetsTheCutsAndTitlesOfTheFileBefore()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {testRate, 5 * testRate});
    fixture.pressBarOfRow(2);
    fixture.open(fakeSound(tenSeconds));
    QCOMPARE(CutCount, 0);
    QCOMPARE(PartTable, std::vector<PartRecord>(1));
    QVERIFY(!form.HasSelectedPart);
    QCOMPARE(form.ListView1.rowCount(), 0);
}

QTEST_MAIN(win_opening)
#include "win_opening.moc"
