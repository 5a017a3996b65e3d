// Closing the document: what goes, what stays.
#include "support/FormFixture.h"
#include "support/Journal.h"
#include "support/Mouse.h"
#include "waveform/TaggedSong.h"

#include <QTest>

class win_closing : public QObject {
    Q_OBJECT

private slots:
    void closingForgetsTheDocument();
    void closingEmptiesWhatTheWindowShows();
    void closingUnloadsTheMarkers();
    void closingGoesBackToTheArrow();
    void closingRestoresTheBaseWidth();
    void closingKeepsTheZoomLevelAndItsButtons();
    void closingKeepsTheTags();
    void closingStopsThePlay();
    void closingDoesNothingDuringAScan();
    void closingWithoutAFileDoesNoHarm();
};

void win_closing::closingForgetsTheDocument()
{
    FormFixture fixture;
    auto& form = fixture.open(taggedSong(), {testRate, 5 * testRate});
    fixture.pressBarOfRow(2);
    pressButton(form.Toolbar1, 2);
    QVERIFY(!form.FileLoaded && !form.HasSelectedPart);
    QCOMPARE(form.Peaks, std::vector<std::int32_t>{0});
    QCOMPARE(form.DurationSeconds, 0);
    QCOMPARE(CurrentFile, QString());
    QCOMPARE(TotalSamples, 0);
    QCOMPARE(CutCount, 0);
    QCOMPARE(PartTable, std::vector<PartRecord>(1));
    QCOMPARE(form.FileTitle, QString());
    QVERIFY(form.FileR->IsClosed());
}

void win_closing::closingEmptiesWhatTheWindowShows()
{
    FormFixture fixture;
    auto& form = fixture.open(taggedSong(), {testRate, 5 * testRate});
    fixture.pressBarOfRow(2);
    form.SetPosition(4000);
    pressButton(form.Toolbar1, 2);
    for (const Label* label : {&form.Label1, &form.Label4, &form.Label11}) QCOMPARE(label->text(), QString());
    for (const Label* label : {&form.Label2, &form.Label16})
        QCOMPARE(label->text(), QStringLiteral("00:00.00"));
    QCOMPARE(form.Label3.text(), langText(46) + QStringLiteral(" : 00:00.00"));
    for (const QLineEdit* field : {&form.Text1, &form.Text2})
        QCOMPARE(field->text(), QStringLiteral("00:00.00"));
    QCOMPARE(form.TextTitle.text(), QString());
    for (const QWidget* field :
         std::initializer_list<QWidget*>{&form.Text1, &form.Text2, &form.TextTitle, &form.UpDown1,
                                         &form.UpDown2, &form.UpDown3, &form.UpDown4})
        QVERIFY(!field->isEnabled());
    QCOMPARE(form.ListView1.rowCount(), 0);
    QCOMPARE(form.Line2.X1(), 0.0f);
    QCOMPARE(form.IndicTime.Left(), -120.0f);
    QVERIFY(!form.Line6.Visible() && form.Picture2.isHidden());
    QVERIFY(form.StatusBar1.ProgressBar1.isHidden());
}

void win_closing::closingUnloadsTheMarkers()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {testRate, 5 * testRate});
    QCOMPARE(form.Bop.UBound(), 2);
    pressButton(form.Toolbar1, 2);
    QCOMPARE(form.Bop.UBound(), 0);
    QCOMPARE(form.Bop1.UBound(), 0);
    QCOMPARE(form.Line5.UBound(), 0);
    QCOMPARE(form.Line5b.UBound(), 0);
}

void win_closing::closingGoesBackToTheArrow()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    QTest::mouseClick(&form.Image13, Qt::LeftButton);
    QCOMPARE(form.ToolMode, 2);
    pressButton(form.Toolbar1, 2);
    QCOMPARE(form.ToolMode, 1);
    QVERIFY(form.Image20.isChosen() && !form.Image13.isChosen());
    QCOMPARE(form.Image13.Top(), 540.0f);
    QCOMPARE(form.Picture1.cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(form.Picture3.cursor().shape(), Qt::ArrowCursor);
}

void win_closing::closingRestoresTheBaseWidth()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, 4);
    form.MonScroll.setValue(50);
    pressButton(form.Toolbar1, 2);
    for (const Surface* surface : {&form.Picture1, &form.Picture2, &form.Picture3})
        QCOMPARE(surface->Width(), 10420.0f);
    QCOMPARE(form.Picture1.Left(), 0.0f);
    QCOMPARE(form.Line1.X2(), 10420.0f);
    QCOMPARE(form.Line7.X2(), 10420.0f);
    QCOMPARE(form.MonScroll.minimum(), 1);
    QCOMPARE(form.MonScroll.maximum(), 1);
}

void win_closing::closingKeepsTheZoomLevelAndItsButtons()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, 4);
    pressButton(form.Toolbar1, 2);
    QCOMPARE(form.ZoomLevel, 1);
    QVERIFY(form.Toolbar1.Buttons(5).isEnabled() && form.Toolbar1.Buttons(6).isEnabled());
}

void win_closing::closingKeepsTheTags()
{
    FormFixture fixture;
    auto& form = fixture.open(taggedSong());
    pressButton(form.Toolbar1, 2);
    QCOMPARE(form.infoArtist.text(), QStringLiteral("Ana"));
    QCOMPARE(form.infoGenre.currentIndex(), 17);
}

void win_closing::closingStopsThePlay()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, 10);
    journal().clear();
    pressButton(form.Toolbar1, 2);
    QCOMPARE(journal().commands(), (QStringList{"AudioPlayer.Stop", "FileR.Close"}));
    QVERIFY(!form.IsPlaying);
}

void win_closing::closingDoesNothingDuringAScan()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {testRate});
    form.Scanning = true;
    pressButton(form.Toolbar1, 2);
    form.CloseAudioFile.trigger();
    QVERIFY(form.FileLoaded);
    QCOMPARE(CutCount, 1);
    QVERIFY(journal().commands().isEmpty());
}

void win_closing::closingWithoutAFileDoesNoHarm()
{
    FormFixture fixture;
    auto& form = fixture.load();
    form.CloseAudioFile.trigger();
    QVERIFY(!form.FileLoaded);
    QVERIFY(fixture.fatals.isEmpty());
}

QTEST_MAIN(win_closing)
#include "win_closing.moc"
