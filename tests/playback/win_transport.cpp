// Playing the file and its parts: what is fed to the player.
#include "support/FormFixture.h"
#include "support/Journal.h"
#include "support/Mouse.h"

#include <QTest>

namespace {

constexpr std::int32_t tenSeconds = 10 * testRate;
constexpr int playButton = 10, pauseButton = 11, stopButton = 12, playPartButton = 14;

// Samples of the song from `start` on, as the player hears them.
SampleArray stretch(std::int32_t start, std::int32_t length)
{
    const SampleArray song = fakeSound(tenSeconds).samples;
    return {song.begin() + 2 * start, song.begin() + 2 * (start + length)};
}

// Asks for arrays, as the player does, until the form has no more.
void playToTheEnd(FormFixture& fixture)
{
    for (int i = 0; i < 20; ++i) fixture.engine.player->RequestOnLoadArray();
}

}

class win_transport : public QObject {
    Q_OBJECT

private slots:
    void thePlayerIsPrimedWithTwoBlocksOfFourSeconds();
    void aPlayBeginsAtThePositionLine();
    void theWholeFileIsFedToItsEnd();
    void aPartIsPrimedWithTwoBlocks();
    void aPartIsFedExactly_data();
    void aPartIsFedExactly();
    void aShortPartIsOneBlockAndTheSecondReadsNothing();
    void onceAPartIsFedFurtherRequestsChangeNothing();
    void aPartThatIsFedTooFarStops();
    void aSingleSampleThatAMonoPartEndsWithIsNotPlayed();
    void everyWayOfPlayingAPartPlaysIt_data();
    void everyWayOfPlayingAPartPlaysIt();
    void withoutASelectedPartAMessageAsksForOne();
    void withoutAFileNothingPlays();
    void duringAScanNothingPlays();
    void aPartStopsTheFileFirst();
    void theFileStopsAPartFirst();
    void aPauseLeavesTheLineAndPlayGoesOnFromIt();
    void everyWayOfStoppingGoesBackToTheStart_data();
    void everyWayOfStoppingGoesBackToTheStart();
};

void win_transport::thePlayerIsPrimedWithTwoBlocksOfFourSeconds()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    QCOMPARE(journal().commands(),
             (QStringList{"FileR.Seek 0", "AudioPlayer.SetFormat 44100 2", "AudioPlayer.Start",
                          "FileR.ReadArray 176400", "AudioPlayer.PlayArray 352800", "FileR.ReadArray 176400",
                          "AudioPlayer.PlayArray 352800"}));
    QVERIFY(form.IsPlaying && form.PlayFeeding && form.PlayWhole);
}

void win_transport::aPlayBeginsAtThePositionLine()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.SetPosition(5210);
    pressButton(form.Toolbar1, playButton);
    QCOMPARE(form.PlayPosition, 5 * testRate);
    QVERIFY(fixture.engine.player->heard == stretch(5 * testRate, 5 * testRate));
}

void win_transport::theWholeFileIsFedToItsEnd()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.PlayPiste.trigger();
    playToTheEnd(fixture);
    QVERIFY(fixture.engine.player->heard == stretch(0, tenSeconds));
    QCOMPARE(journal().commandsOf(QStringLiteral("AudioPlayer.PlayArray")).size(), 3);
    QVERIFY(form.IsPlaying);    // the player's own event ends it
}

void win_transport::aPartIsPrimedWithTwoBlocks()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {5 * testRate});
    fixture.pressBarOfRow(2);
    QTest::mouseClick(&form.Image9, Qt::LeftButton);
    QCOMPARE(journal().commands(),
             (QStringList{"AudioPlayer.SetFormat 44100 2", "FileR.Seek 220500", "AudioPlayer.Start",
                          "FileR.ReadArray 100000", "AudioPlayer.PlayArray 200000", "FileR.ReadArray 100000",
                          "AudioPlayer.PlayArray 200000"}));
    QVERIFY(form.IsPlaying && !form.PlayWhole);
}

void win_transport::aPartIsFedExactly_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addRow("the first") << 1 << 0 << 100000;
    QTest::addRow("one between, of a length that is no multiple of a block") << 2 << 100000 << 233333;
    QTest::addRow("the last") << 3 << 333333 << tenSeconds - 333333;
}

void win_transport::aPartIsFedExactly()
{
    QFETCH(int, row);
    QFETCH(int, start);
    QFETCH(int, length);
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {100000, 333333});
    fixture.pressBarOfRow(row);
    QTest::mouseClick(&form.Image9, Qt::LeftButton);
    playToTheEnd(fixture);
    QVERIFY(fixture.engine.player->heard == stretch(start, length));
    QCOMPARE(form.PlayFrom, start);
    QCOMPARE(form.PlayLength, length);
    QCOMPARE(form.PlayFed, length);
}

void win_transport::aShortPartIsOneBlockAndTheSecondReadsNothing()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {99999});
    fixture.pressBarOfRow(1);
    QTest::mouseClick(&form.Image9, Qt::LeftButton);
    QCOMPARE(journal().commands().mid(3),
             (QStringList{"FileR.ReadArray 99999", "AudioPlayer.PlayArray 199998", "FileR.ReadArray 0"}));
}

void win_transport::onceAPartIsFedFurtherRequestsChangeNothing()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {50000});
    fixture.pressBarOfRow(1);
    QTest::mouseClick(&form.Image9, Qt::LeftButton);
    journal().clear();
    playToTheEnd(fixture);
    QVERIFY(journal().commandsOf(QStringLiteral("AudioPlayer")).isEmpty());
    QVERIFY(form.IsPlaying && form.PlayFeeding);
    QCOMPARE(form.PlayFed, 50000);
}

void win_transport::aPartThatIsFedTooFarStops()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {50000});
    fixture.pressBarOfRow(1);
    QTest::mouseClick(&form.Image9, Qt::LeftButton);
    form.PlayFed = 50001;
    journal().clear();
    fixture.engine.player->RequestOnLoadArray();
    QCOMPARE(journal().commands(), (QStringList{"AudioPlayer.Stop"}));
    QVERIFY(!form.IsPlaying);
}

void win_transport::aSingleSampleThatAMonoPartEndsWithIsNotPlayed()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(300000, testRate, 1), {100001, 200000});
    fixture.pressBarOfRow(1);
    journal().clear();
    form.Image9.click();
    QCOMPARE(journal().commandsOf("(FileR.ReadArray|AudioPlayer.PlayArray)"),
             (QStringList{"FileR.ReadArray 100000", "AudioPlayer.PlayArray 100000", "FileR.ReadArray 1"}));
}

void win_transport::everyWayOfPlayingAPartPlaysIt_data()
{
    QTest::addColumn<QString>("way");
    for (const char* way :
         {"tool bar", "picture button", "menu", "double click in the list", "double click on the bar"})
        QTest::addRow("%s", way) << way;
}

void win_transport::everyWayOfPlayingAPartPlaysIt()
{
    QFETCH(QString, way);
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {5 * testRate});
    fixture.pressBarOfRow(2);
    const QPoint onBar(fixture.pixelOf(5 * testRate) + 4, 187);
    const QPoint onRow = form.ListView1.visualItemRect(form.ListView1.topLevelItem(1)).center();
    if (way == QLatin1String("tool bar")) pressButton(form.Toolbar1, playPartButton);
    if (way == QLatin1String("picture button")) QTest::mouseClick(&form.Image9, Qt::LeftButton);
    if (way == QLatin1String("menu")) form.PlaythisPart.trigger();
    if (way == QLatin1String("double click in the list"))
        QTest::mouseDClick(form.ListView1.viewport(), Qt::LeftButton, {}, onRow);
    if (way == QLatin1String("double click on the bar"))
        QTest::mouseDClick(&form.Picture1, Qt::LeftButton, {}, onBar);
    QCOMPARE(journal().commandsOf(QStringLiteral("FileR.Seek")), (QStringList{"FileR.Seek 220500"}));
    QVERIFY(form.IsPlaying);
}

void win_transport::withoutASelectedPartAMessageAsksForOne()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {5 * testRate});
    QTest::mouseClick(&form.Image9, Qt::LeftButton);
    QCOMPARE(journal().commands(), (QStringList{"MsgBox Information [Quillon]: " + langText(78)}));
    QVERIFY(!form.IsPlaying);
}

void win_transport::withoutAFileNothingPlays()
{
    FormFixture fixture;
    auto& form = fixture.load();
    form.Label2.setText(QStringLiteral("left alone"));
    journal().clear();
    for (const std::int16_t command : {10, 11, 12, 14}) form.ToolbarCommand(command);
    QTest::mouseClick(&form.Image9, Qt::LeftButton);
    QTest::mouseClick(&form.Image10, Qt::LeftButton);
    QCOMPARE(journal().commands(), QStringList());
    QCOMPARE(form.Label2.text(), QStringLiteral("left alone"));
}

void win_transport::duringAScanNothingPlays()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {5 * testRate});
    fixture.pressBarOfRow(2);
    form.Scanning = true;
    for (const std::int16_t command : {10, 11, 12, 14}) form.ToolbarCommand(command);
    QTest::mouseClick(&form.Image10, Qt::LeftButton);
    QCOMPARE(journal().commands(), QStringList());
}

void win_transport::aPartStopsTheFileFirst()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {5 * testRate});
    pressButton(form.Toolbar1, playButton);
    fixture.pressBarOfRow(2);
    journal().clear();
    pressButton(form.Toolbar1, playPartButton);
    QCOMPARE(journal().commands().first(), QStringLiteral("AudioPlayer.Stop"));
    QCOMPARE(journal().commandsOf(QStringLiteral("AudioPlayer.Start")).size(), 1);
    QVERIFY(form.IsPlaying && !form.PlayWhole);
}

void win_transport::theFileStopsAPartFirst()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {5 * testRate});
    fixture.pressBarOfRow(2);
    form.Image9.click();
    journal().clear();
    pressButton(form.Toolbar1, playButton);
    QCOMPARE(journal().commands().first(), QStringLiteral("AudioPlayer.Stop"));
    QVERIFY(form.IsPlaying && form.PlayFeeding && form.PlayWhole);
}

void win_transport::aPauseLeavesTheLineAndPlayGoesOnFromIt()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    fixture.engine.player->Timer(2 * testRate, 0, 0);
    const Twips x = form.Line2.X1();
    pressButton(form.Toolbar1, pauseButton);
    QVERIFY(!form.IsPlaying && !form.PlayFeeding);
    QCOMPARE(form.Line2.X1(), x);
    pressButton(form.Toolbar1, playButton);
    QCOMPARE(form.PlayPosition, 2 * testRate);
}

void win_transport::everyWayOfStoppingGoesBackToTheStart_data()
{
    QTest::addColumn<QString>("way");
    for (const char* way : {"tool bar", "picture button", "menu"}) QTest::addRow("%s", way) << way;
}

void win_transport::everyWayOfStoppingGoesBackToTheStart()
{
    QFETCH(QString, way);
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    fixture.engine.player->Timer(2 * testRate, 0, 0);
    if (way == QLatin1String("tool bar")) pressButton(form.Toolbar1, stopButton);
    if (way == QLatin1String("picture button")) QTest::mouseClick(&form.Image10, Qt::LeftButton);
    if (way == QLatin1String("menu")) form.Stoplecture.trigger();
    QVERIFY(!form.IsPlaying && !form.PlayFeeding);
    QCOMPARE(form.Line2.X1(), 0.0f);
    QCOMPARE(form.Line2.X2(), 0.0f);
    QCOMPARE(form.IndicTime.Left(), -120.0f);
    QCOMPARE(form.Label2.text(), QStringLiteral("00:00.00"));
}

QTEST_MAIN(win_transport)
#include "win_transport.moc"
