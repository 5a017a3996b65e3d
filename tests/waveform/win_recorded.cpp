// A recording handed over to the main window.
#include "support/FormFixture.h"
#include "support/Journal.h"
#include "waveform/TaggedSong.h"

#include "core/TimeText.h"
#include "core/toolkit/FormHolder.h"
#include "waveform/Form2.h"

#include <QTest>

class win_recorded : public QObject {
    Q_OBJECT

private slots:
    void aRecordingIsTheWorkFileItself();
    void aRecordingShowsItsProgressInTheStatusBarAtEveryBlock();
    void aRecordingsReaderStaysOpen();
    void aRecordingReadsNoTags();
    void aRecordingDisablesTheFormWhileItIsScanned();
    void aRecordingThatCannotBeReadIsToldOnce();
};

void win_recorded::aRecordingIsTheWorkFileItself()
{
    FormFixture fixture;
    auto& form = fixture.load();
    fixture.engine.disk[QStringLiteral("/tmp/Recorded File.wav")] = fakeSound(100000);
    journal().clear();
    form.OuvreRecordedAudio(QStringLiteral("/tmp/Recorded File.wav"));
    QCOMPARE(journal().commands(),
             (QStringList{"FileR.Close", "FileR.SetWmaEnabled True", "FileR.Open /tmp/Recorded File.wav",
                          "AudioPlayer.SetFormat 44100 2", "FileR.ReadArray 88200", "FileR.ReadArray 88200",
                          "FileR.ReadArray 88200"}));
    QCOMPARE(TempCutPath, QStringLiteral("/tmp/Recorded File.wav"));
    QCOMPARE(TotalSamples, 100000);
    QVERIFY(form.FileLoaded && !form.Scanning);
    QVERIFY(form.Peaks.size() > 7000);
    QCOMPARE(form.Label3.text(), langText(46) + QStringLiteral(" : ") + durationText(2267));
}

void win_recorded::aRecordingShowsItsProgressInTheStatusBarAtEveryBlock()
{
    FormFixture fixture;
    auto& form = fixture.load();
    fixture.engine.disk[QStringLiteral("/r.wav")] =
        fakeSound(80000, 100);    // blocks of 200: four to a percent
    QStringList panels;
    int shown = 0;
    journal().onCommand = [&](const QString& line) {
        if (line.startsWith(QLatin1String("FileR.ReadArray"))) panels << form.StatusBar1.Panels(1).text();
        shown += ProgressForm.visible();
    };
    form.OuvreRecordedAudio(QStringLiteral("/r.wav"));
    QCOMPARE(panels.mid(0, 3), (QStringList{langText(72), langText(72) + "1 %", langText(72) + "1 %"}));
    QCOMPARE(panels.last(), langText(72) + QStringLiteral("100 %"));
    QCOMPARE(shown, 0);
    QCOMPARE(form.StatusBar1.Panels(1).text(), QString());
}

void win_recorded::aRecordingsReaderStaysOpen()
{
    FormFixture fixture;
    auto& form = fixture.load();
    fixture.engine.disk[QStringLiteral("/r.wav")] = fakeSound(20000);
    form.OuvreRecordedAudio(QStringLiteral("/r.wav"));
    QVERIFY(!form.FileR->IsClosed());
    QCOMPARE(CurrentFile, QStringLiteral("/r.wav"));
}

void win_recorded::aRecordingReadsNoTags()
{
    FormFixture fixture;
    auto& form = fixture.load();
    fixture.engine.disk[QStringLiteral("/r.mp3")] = taggedSong();
    form.OuvreRecordedAudio(QStringLiteral("/r.mp3"));
    QVERIFY(journal().commandsOf(QStringLiteral("AudioTags.ReadFrom")).isEmpty());
    QCOMPARE(form.infoArtist.text(), QString());
}

void win_recorded::aRecordingDisablesTheFormWhileItIsScanned()
{
    FormFixture fixture;
    auto& form = fixture.load();
    fixture.engine.disk[QStringLiteral("/r.wav")] = fakeSound(20000);
    QList<bool> enabled;
    journal().onCommand = [&](const QString& line) {
        if (line.startsWith(QLatin1String("FileR.ReadArray"))) enabled << form.isEnabled();
    };
    form.OuvreRecordedAudio(QStringLiteral("/r.wav"));
    QCOMPARE(enabled, (QList<bool>{false, false}));
    QVERIFY(form.isEnabled());
}

void win_recorded::aRecordingThatCannotBeReadIsToldOnce()
{
    FormFixture fixture;
    auto& form = fixture.load();
    fixture.engine.disk[QStringLiteral("/r.wav")] = fakeSound(20000);
    fixture.engine.failing << QStringLiteral("FileR.ReadArray");
    form.OuvreRecordedAudio(QStringLiteral("/r.wav"));
    QCOMPARE(journal().commandsOf(QStringLiteral("MsgBox")),
             (QStringList{QStringLiteral("MsgBox Critical [Quillon]: ") + langText(73)}));
    QVERIFY(form.isEnabled() && !form.Scanning);
    QCOMPARE(TotalSamples, 20000);
}

QTEST_MAIN(win_recorded)
#include "win_recorded.moc"
