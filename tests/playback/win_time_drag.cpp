// Dragging the handle of the position line.
#include "support/FormFixture.h"
#include "support/Journal.h"
#include "support/Mouse.h"

#include "core/WaveScale.h"

#include <QTest>

namespace {

constexpr std::int32_t tenSeconds = 10 * testRate;
constexpr int playButton = 10;

// The handle is 16 pixels wide and its centre stands on the line: its rows, and a place 4 pixels right of the
// line.
constexpr double handleRow = 4;
constexpr double grip = 4;

double linePx(const CutterSelect& form)
{
    return form.Line2.X1() / 15.0;
}

void verifyLineAt(const CutterSelect& form, Twips x)
{
    QCOMPARE(form.Line2.X1(), x);
    QCOMPARE(form.Line2.X2(), x);
    QCOMPARE(form.IndicTime.Left(), x - 120);
}

}

class win_time_drag : public QObject {
    Q_OBJECT

private slots:
    void aDragMovesTheLineByTheWayOfThePointer();
    void anyButtonDrags();
    void aDragToTheLeftJumpsByThePlaceOnTheHandle();
    void aDragPastTheRightEndLeavesTheCentreOnIt();
    void aDragPastTheLeftEndLeavesTheCentreOnIt();
    void aMoveToThePlaceOfThePressLeavesTheHandle();
    void aMoveWithoutAPressLeavesTheHandle();
    void theReleaseEndsTheDrag();
    void aPressWhoseReleaseWentToAMenuLeavesTheHandleFree();
    void aDragWritesThePosition();
    void aDragWithoutAFileWritesTheStart();
    void theCopyInTheSelectionFollowsADragInside();
    void theCopyInTheSelectionIsHiddenOutside();
    void aDragOfAStoppedFileLeavesTheEngineAlone();
    void theStreamJumpsAtEveryMoveDuringPlay();
    void theClockWritesThePositionDuringADrag();
    void aDragWhoseReleaseWasLostEndsWithTheNextMove();
};

void win_time_drag::aDragMovesTheLineByTheWayOfThePointer()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    drag(form.Picture1, {grip, handleRow}, {grip + 100, handleRow});
    verifyLineAt(form, 1500);
}

void win_time_drag::anyButtonDrags()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    drag(form.Picture1, {grip, handleRow}, {grip + 100, handleRow}, Qt::RightButton);
    verifyLineAt(form, 1500);
}

void win_time_drag::aDragToTheLeftJumpsByThePlaceOnTheHandle()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.SetPosition(6000);
    const double x = linePx(form) + grip;    // 180 twips from the left edge of the handle
    drag(form.Picture1, {x, handleRow}, {x - 20, handleRow});
    verifyLineAt(form, 5880);    // 300 to the left of there is 120 left of the edge, and that is added
}

void win_time_drag::aDragPastTheRightEndLeavesTheCentreOnIt()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    drag(form.Picture1, {grip, handleRow}, {2000, handleRow});
    verifyLineAt(form, 10420);
}

void win_time_drag::aDragPastTheLeftEndLeavesTheCentreOnIt()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.SetPosition(600);
    const double x = linePx(form);
    drag(form.Picture1, {x, handleRow}, {-300, handleRow});
    verifyLineAt(form, 0);
}

void win_time_drag::aMoveToThePlaceOfThePressLeavesTheHandle()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.SetPosition(6000);
    const double x = linePx(form) + grip;
    drag(form.Picture1, {x, handleRow}, {x, handleRow + 20});
    verifyLineAt(form, 6000);
}

void win_time_drag::aMoveWithoutAPressLeavesTheHandle()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    sendMouse(form.Picture1, QEvent::MouseMove, {grip + 2, handleRow}, Qt::NoButton, Qt::NoButton);
    verifyLineAt(form, 0);
}

void win_time_drag::theReleaseEndsTheDrag()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressAt(form.Picture1, {grip, handleRow});
    QVERIFY(form.TimeDrag);
    releaseAt(form.Picture1, {grip, handleRow});
    QVERIFY(!form.TimeDrag);
}

void win_time_drag::aPressWhoseReleaseWentToAMenuLeavesTheHandleFree()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressAt(form.Picture1, {300, 100});
    sendMouse(form.Picture1, QEvent::MouseMove, {300, handleRow}, Qt::NoButton, Qt::NoButton);
    QCOMPARE(form.Picture1.cursor().shape(), Qt::SizeHorCursor);
}

void win_time_drag::aDragWritesThePosition()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressAt(form.Picture1, {grip, handleRow});
    moveTo(form.Picture1, {grip + 521 / 15.0, handleRow});
    QCOMPARE(form.Label2.text(), QStringLiteral("00:00.50"));
}

void win_time_drag::aDragWithoutAFileWritesTheStart()
{
    FormFixture fixture;
    auto& form = fixture.load();
    drag(form.Picture1, {grip, handleRow}, {grip + 100, handleRow});
    verifyLineAt(form, 1500);
    QCOMPARE(form.Label2.text(), QStringLiteral("00:00.0"));
}

void win_time_drag::theCopyInTheSelectionFollowsADragInside()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {testRate, 9 * testRate});
    fixture.pressBarOfRow(2);
    pressAt(form.Picture1, {grip, handleRow});
    moveTo(form.Picture1, {grip + 200, handleRow});
    QVERIFY(form.Line6.Visible());
    QCOMPARE(form.Line6.X1(), 3000.0f);
    QCOMPARE(form.Line6.X2(), 3000.0f);
}

void win_time_drag::theCopyInTheSelectionIsHiddenOutside()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {5 * testRate});
    fixture.pressBarOfRow(2);
    QVERIFY(form.Line6.Visible());
    drag(form.Picture1, {grip, handleRow}, {grip + 100, handleRow});
    QVERIFY(!form.Line6.Visible());
}

void win_time_drag::aDragOfAStoppedFileLeavesTheEngineAlone()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    drag(form.Picture1, {grip, handleRow}, {grip + 100, handleRow});
    QCOMPARE(journal().commands(), QStringList());
}

void win_time_drag::theStreamJumpsAtEveryMoveDuringPlay()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    pressAt(form.Picture1, {grip, handleRow});
    journal().clear();
    moveTo(form.Picture1, {grip + 100, handleRow});
    moveTo(form.Picture1, {grip + 200, handleRow});
    const auto at = [](Twips x) {
        return QStringLiteral("FileR.Seek %1").arg(sampleOfX(10420, tenSeconds, x));
    };
    QCOMPARE(journal().commandsOf(QStringLiteral("FileR.Seek")), (QStringList{at(1500), at(3000)}));
    QCOMPARE(journal().commandsOf(QStringLiteral("AudioPlayer.ClearQueue")).size(), 2);
    QCOMPARE(journal().commandsOf(QStringLiteral("FileR.ReadArray")).size(), 4);
    QCOMPARE(form.PlayPosition, sampleOfX(10420, tenSeconds, 3000));
}

void win_time_drag::theClockWritesThePositionDuringADrag()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    pressAt(form.Picture1, {grip, handleRow});
    moveTo(form.Picture1, {grip + 521 / 15.0, handleRow});
    const Twips x = form.Line2.X1();
    QCOMPARE(form.Label2.text(), QStringLiteral("00:00.50"));
    fixture.engine.player->Timer(testRate, 0, 0);
    QCOMPARE(form.Label2.text(), QStringLiteral("00:01.500"));
    QCOMPARE(form.Line2.X1(), x);
}

// A dialog that came up meanwhile took the release. The line follows the play again.
void win_time_drag::aDragWhoseReleaseWasLostEndsWithTheNextMove()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    pressAt(form.Picture1, {grip, handleRow});
    QVERIFY(form.TimeDrag);
    moveTo(form.Picture1, {300, 100}, Qt::NoButton);
    QVERIFY(!form.TimeDrag);
    fixture.engine.player->Timer(2 * testRate, 0, 0);
    QCOMPARE(form.Line2.X1(), static_cast<Twips>(2 * testRate / (tenSeconds / 10420.0)));
}

QTEST_MAIN(win_time_drag)
#include "win_time_drag.moc"
