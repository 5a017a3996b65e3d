// Stepping the position by a second.
#include "support/FormFixture.h"
#include "support/Journal.h"
#include "support/Mouse.h"

#include <QTest>

namespace {

constexpr std::int32_t tenSeconds = 10 * testRate;
constexpr Twips second = 1042;    // of ten over the width of 10420
constexpr int playButton = 10;

void verifyLineAt(const CutterSelect& form, Twips x)
{
    QCOMPARE(form.Line2.X1(), x);
    QCOMPARE(form.Line2.X2(), x);
    QCOMPARE(form.IndicTime.Left(), x - 120);
}

}

class win_position : public QObject {
    Q_OBJECT

private slots:
    void aStepForwardIsASecond();
    void aStepBackIsASecond();
    void aStepMovesTheCopyInTheSelectionAndLeavesItsVisibility();
    void aStepForwardInTheLastSecondPutsTheLineAtTheEnd();
    void aStepBackInTheFirstSecondPutsTheLineAtTheStart();
    void theStepIsASecondOfThePlayersRate();
    void stepsAreRefusedWithoutAFileAndDuringAScan();
    void aStepWritesThePosition();
    void aStepForwardDuringPlayMovesTheStream();
    void aStepDuringPlayLeavesTheLineAndShowsThePlaceBefore();
    void aStepForwardNearTheEndDuringPlayGoesToTheEnd();
    void aStepBackDuringPlayMovesTheStream();
    void aStepBackNearTheStartDuringPlayGoesToSampleOne();
    void aStepInAPausedFileMovesTheLine();
};

void win_position::aStepForwardIsASecond()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.Fwd1Sec.trigger();
    verifyLineAt(form, second);
    form.Fwd1Sec.trigger();
    verifyLineAt(form, 2 * second);
    QVERIFY(journal().commands().isEmpty());
}

void win_position::aStepBackIsASecond()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.SetPosition(5000);
    form.Rew1Sec.trigger();
    verifyLineAt(form, 5000 - second);
}

void win_position::aStepMovesTheCopyInTheSelectionAndLeavesItsVisibility()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {5 * testRate});
    form.SetPosition(2000);
    fixture.pressBarOfRow(1);
    QVERIFY(form.Line6.Visible());
    for (int i = 0; i < 5; ++i) form.Fwd1Sec.trigger();    // beyond the part
    QCOMPARE(form.Line6.X1(), form.Line2.X1());
    QVERIFY(form.Line6.Visible());
    form.Line6.setVisible(false);
    form.Rew1Sec.trigger();
    QCOMPARE(form.Line6.X2(), form.Line2.X2());
    QVERIFY(!form.Line6.Visible());
}

void win_position::aStepForwardInTheLastSecondPutsTheLineAtTheEnd()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.SetPosition(10000);
    form.Fwd1Sec.trigger();
    verifyLineAt(form, 10420);
    form.Fwd1Sec.trigger();
    verifyLineAt(form, 10420);
}

void win_position::aStepBackInTheFirstSecondPutsTheLineAtTheStart()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.SetPosition(1000);
    form.Rew1Sec.trigger();
    verifyLineAt(form, 0);
    QCOMPARE(form.Line6.X1(), 0.0f);
    form.Rew1Sec.trigger();
    verifyLineAt(form, 0);
}

void win_position::theStepIsASecondOfThePlayersRate()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    fixture.engine.player->rate = 2 * testRate;
    form.Fwd1Sec.trigger();
    verifyLineAt(form, 2 * second);
}

void win_position::stepsAreRefusedWithoutAFileAndDuringAScan()
{
    FormFixture fixture;
    auto& form = fixture.load();
    form.Label2.setText(QStringLiteral("left alone"));
    form.Fwd1Sec.trigger();
    form.Rew1Sec.trigger();
    form.FileLoaded = form.Scanning = true;
    form.Fwd1Sec.trigger();
    form.Rew1Sec.trigger();
    verifyLineAt(form, 0);
    QCOMPARE(form.Label2.text(), QStringLiteral("left alone"));
}

void win_position::aStepWritesThePosition()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.SetPosition(521);    // half a second
    form.Fwd1Sec.trigger();
    QCOMPARE(form.Label2.text(), QStringLiteral("00:01.50"));
    form.Rew1Sec.trigger();
    QCOMPARE(form.Label2.text(), QStringLiteral("00:00.50"));
}

void win_position::aStepForwardDuringPlayMovesTheStream()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.SetPosition(2 * second);
    pressButton(form.Toolbar1, playButton);
    journal().clear();
    form.Fwd1Sec.trigger();
    QCOMPARE(journal().commands(), (QStringList{"AudioPlayer.ClearQueue", "FileR.Seek 132300",
                                                "FileR.ReadArray 176400", "AudioPlayer.PlayArray 352800",
                                                "FileR.ReadArray 176400", "AudioPlayer.PlayArray 264600"}));
    QCOMPARE(form.PlayPosition, 3 * testRate);
}

void win_position::aStepDuringPlayLeavesTheLineAndShowsThePlaceBefore()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.SetPosition(2 * second);
    pressButton(form.Toolbar1, playButton);
    form.Fwd1Sec.trigger();
    verifyLineAt(form, 2 * second);
    QCOMPARE(form.Label2.text(), QStringLiteral("00:02.0"));
}

void win_position::aStepForwardNearTheEndDuringPlayGoesToTheEnd()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.SetPosition(10000);
    pressButton(form.Toolbar1, playButton);
    journal().clear();
    form.Fwd1Sec.trigger();
    QCOMPARE(journal().commands(), (QStringList{"AudioPlayer.ClearQueue", "FileR.Seek 441000",
                                                "FileR.ReadArray 176400", "FileR.ReadArray 176400"}));
    fixture.engine.player->EndPlay();
    verifyLineAt(form, 0);
}

void win_position::aStepBackDuringPlayMovesTheStream()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.SetPosition(9 * second);
    pressButton(form.Toolbar1, playButton);
    journal().clear();
    form.Rew1Sec.trigger();
    QCOMPARE(journal().commands().mid(0, 2), (QStringList{"AudioPlayer.ClearQueue", "FileR.Seek 352800"}));
    QCOMPARE(form.PlayPosition, 8 * testRate);
}

void win_position::aStepBackNearTheStartDuringPlayGoesToSampleOne()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.SetPosition(500);
    pressButton(form.Toolbar1, playButton);
    journal().clear();
    form.Rew1Sec.trigger();
    QCOMPARE(journal().commandsOf(QStringLiteral("FileR.Seek")), (QStringList{"FileR.Seek 1"}));
    QCOMPARE(form.PlayPosition, 1);
}

void win_position::aStepInAPausedFileMovesTheLine()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    pressButton(form.Toolbar1, 11);
    journal().clear();
    form.Fwd1Sec.trigger();
    verifyLineAt(form, second);
    QVERIFY(journal().commands().isEmpty());
}

QTEST_MAIN(win_position)
#include "win_position.moc"
