// The volume: its knob, its track, the mute button.
#include "support/FormFixture.h"
#include "support/Journal.h"
#include "support/Mouse.h"

#include <QTest>

#include <cmath>

namespace {

constexpr Twips trackWidth = 1305, knobWidth = 210, farEnd = trackWidth - knobWidth;
constexpr double row = 10;

QStringList volumes()
{
    return journal().commandsOf(QStringLiteral("AudioPlayer.SetVolume"));
}

QStringList volumeAt(Twips left)
{
    return {QStringLiteral("AudioPlayer.SetVolume %1")
                .arg(static_cast<int>(std::nearbyint(left * (65535.0 / trackWidth))))};
}

// A form with an empty journal; the knob at the top, as at the start.
CutterSelect& loaded(FormFixture& fixture)
{
    auto& form = fixture.load();
    journal().clear();
    return form;
}

// The middle of the knob, in pixels of the track.
QPointF knob(const CutterSelect& form)
{
    return {(form.Image14.Left() + knobWidth / 2) / 15.0, row};
}

}

class win_volume : public QObject {
    Q_OBJECT

private slots:
    void theProgramStartsAtFullVolumeWithTheKnobAtTheTop();
    void theKnobFollowsThePointerAndItsReleaseSetsTheVolume();
    void theVolumeIsSetAtTheReleaseAlone();
    void theLeftEndIsVolumeZero();
    void aDragPastTheLeftEndStaysThere();
    void aDragPastTheRightEndIsFullVolume();
    void aKnobReleasedAtTheTopWithoutAMoveIsNotQuiteFull();
    void aHoverForgetsThatTheKnobWasPulledToTheTop();
    void aHoverMovesNothing();
    void aPressOnTheTrackMovesTheKnobAndLeavesTheVolume_data();
    void aPressOnTheTrackMovesTheKnobAndLeavesTheVolume();
    void theNextReleaseOnTheKnobSetsTheVolumeOfATrackPress();
    void muteSetsTheVolumeToZeroAndChangesThePicture();
    void mutingAgainRestoresTheVolumeOfTheKnob();
    void mutingAgainRestoresFullVolumeAfterAPullToTheTop();
    void movingTheKnobDoesNotUnmute();
    void theArrowKeysMoveTheKnobByATwentiethOfTheTrack();
    void theRightArrowAtTheTopIsFullVolume();
    void theLeftArrowAtTheBottomIsVolumeZero();
    void theArrowKeysDoNotDisturbADrag();
    void aFaultOfThePlayerReachesTheWall();
};

void win_volume::theProgramStartsAtFullVolumeWithTheKnobAtTheTop()
{
    FormFixture fixture;
    auto& form = fixture.load();
    QCOMPARE(volumes(), (QStringList{"AudioPlayer.SetVolume 65535"}));
    QCOMPARE(form.Image14.Left(), farEnd);
    QCOMPARE(form.Image14.Width(), knobWidth);
    QCOMPARE(form.Picture5.Width(), trackWidth);
}

void win_volume::theKnobFollowsThePointerAndItsReleaseSetsTheVolume()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    drag(form.Picture5, knob(form), knob(form) - QPointF(20, 0));
    QCOMPARE(form.Image14.Left(), farEnd - 300);
    QCOMPARE(volumes(), volumeAt(farEnd - 300));
    QVERIFY(!form.VolumeDrag);
}

void win_volume::theVolumeIsSetAtTheReleaseAlone()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    const QPointF at = knob(form);
    pressAt(form.Picture5, at);
    for (const int px : {5, 10, 30, 40}) moveTo(form.Picture5, at - QPointF(px, 0));
    QVERIFY(volumes().isEmpty());
    releaseAt(form.Picture5, at - QPointF(40, 0));
    QCOMPARE(volumes(), volumeAt(farEnd - 600));
}

void win_volume::theLeftEndIsVolumeZero()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    press(form.Picture5, {0, 10});
    QCOMPARE(form.Image14.Left(), 0.0f);
    press(form.Picture5, {7, 10});    // on the knob now
    QCOMPARE(volumes(), (QStringList{"AudioPlayer.SetVolume 0"}));
}

void win_volume::aDragPastTheLeftEndStaysThere()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    drag(form.Picture5, knob(form), {-500, row});
    QCOMPARE(form.Image14.Left(), 0.0f);
    QCOMPARE(volumes(), (QStringList{"AudioPlayer.SetVolume 0"}));
}

void win_volume::aDragPastTheRightEndIsFullVolume()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    drag(form.Picture5, knob(form), {20, row});
    journal().clear();
    drag(form.Picture5, knob(form), {500, row});
    QCOMPARE(form.Image14.Left(), farEnd);
    QCOMPARE(volumes(), (QStringList{"AudioPlayer.SetVolume 65535"}));
}

void win_volume::aKnobReleasedAtTheTopWithoutAMoveIsNotQuiteFull()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    pressAt(form.Picture5, knob(form));
    releaseAt(form.Picture5, knob(form));
    QCOMPARE(volumes(), volumeAt(farEnd));
}

void win_volume::aHoverForgetsThatTheKnobWasPulledToTheTop()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    drag(form.Picture5, knob(form), {500, row});
    QVERIFY(form.VolumeMoved);
    sendMouse(form.Picture5, QEvent::MouseMove, knob(form), Qt::NoButton, Qt::NoButton);
    QVERIFY(!form.VolumeMoved);
}

void win_volume::aHoverMovesNothing()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    sendMouse(form.Picture5, QEvent::MouseMove, knob(form) - QPointF(3, 0), Qt::NoButton, Qt::NoButton);
    QCOMPARE(form.Image14.Left(), farEnd);
    QVERIFY(volumes().isEmpty());
}

void win_volume::aPressOnTheTrackMovesTheKnobAndLeavesTheVolume_data()
{
    QTest::addColumn<int>("xPx");
    QTest::addColumn<float>("left");
    QTest::addRow("in the left half") << 20 << 300.0f;
    QTest::addRow("at the last place where the knob fits") << 72 << 1080.0f;
}

void win_volume::aPressOnTheTrackMovesTheKnobAndLeavesTheVolume()
{
    QFETCH(int, xPx);
    FormFixture fixture;
    auto& form = loaded(fixture);
    press(form.Picture5, {xPx, 10});
    QTEST(form.Image14.Left(), "left");
    QVERIFY(volumes().isEmpty());
}

void win_volume::theNextReleaseOnTheKnobSetsTheVolumeOfATrackPress()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    press(form.Picture5, {20, 10});
    pressAt(form.Picture5, knob(form));
    releaseAt(form.Picture5, knob(form));
    QCOMPARE(volumes(), volumeAt(300));
}

void win_volume::muteSetsTheVolumeToZeroAndChangesThePicture()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    const QString before = form.Image15.picture();
    QTest::mouseClick(&form.Image15, Qt::LeftButton);
    QCOMPARE(volumes(), (QStringList{"AudioPlayer.SetVolume 0"}));
    QVERIFY(form.Image15.picture() != before);
}

void win_volume::mutingAgainRestoresTheVolumeOfTheKnob()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    drag(form.Picture5, knob(form), {30, row});
    const QString picture = form.Image15.picture();
    const QStringList volume = volumes();
    journal().clear();
    QTest::mouseClick(&form.Image15, Qt::LeftButton);
    QTest::mouseClick(&form.Image15, Qt::LeftButton);
    QCOMPARE(volumes(), QStringList{"AudioPlayer.SetVolume 0"} + volume);
    QCOMPARE(form.Image15.picture(), picture);
}

void win_volume::mutingAgainRestoresFullVolumeAfterAPullToTheTop()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    drag(form.Picture5, knob(form), {500, row});
    QTest::mouseClick(&form.Image15, Qt::LeftButton);
    QTest::mouseClick(&form.Image15, Qt::LeftButton);
    QCOMPARE(volumes().last(), QStringLiteral("AudioPlayer.SetVolume 65535"));
}

void win_volume::movingTheKnobDoesNotUnmute()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    QTest::mouseClick(&form.Image15, Qt::LeftButton);
    const QString muted = form.Image15.picture();
    drag(form.Picture5, knob(form), knob(form) - QPointF(20, 0));
    QCOMPARE(volumes().last(), volumeAt(farEnd - 300).first());
    QCOMPARE(form.Image15.picture(), muted);
}

void win_volume::theArrowKeysMoveTheKnobByATwentiethOfTheTrack()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    form.Picture5.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&form.Picture5, Qt::Key_Left);
    QTest::keyClick(&form.Picture5, Qt::Key_Left);
    QTest::keyClick(&form.Picture5, Qt::Key_Right);
    QCOMPARE(form.Image14.Left(), farEnd - trackWidth / 20);
    QCOMPARE(volumes(), volumeAt(farEnd - trackWidth / 20) + volumeAt(farEnd - trackWidth / 10) +
                            volumeAt(farEnd - trackWidth / 20));
}

void win_volume::theRightArrowAtTheTopIsFullVolume()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    QTest::keyClick(&form.Picture5, Qt::Key_Right);
    QCOMPARE(form.Image14.Left(), farEnd);
    QCOMPARE(volumes(), (QStringList{"AudioPlayer.SetVolume 65535"}));
}

void win_volume::theLeftArrowAtTheBottomIsVolumeZero()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    for (int i = 0; i < 20; ++i) QTest::keyClick(&form.Picture5, Qt::Key_Left);
    QCOMPARE(form.Image14.Left(), 0.0f);
    QCOMPARE(volumes().last(), QStringLiteral("AudioPlayer.SetVolume 0"));
}

void win_volume::theArrowKeysDoNotDisturbADrag()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    const QPointF at = knob(form);
    pressAt(form.Picture5, at);
    QTest::keyClick(&form.Picture5, Qt::Key_Left);
    QCOMPARE(form.Image14.Left(), farEnd);
    releaseAt(form.Picture5, at - QPointF(40, 0));
    QVERIFY(!form.VolumeDrag);
}

void win_volume::aFaultOfThePlayerReachesTheWall()
{
    FormFixture fixture;
    auto& form = loaded(fixture);
    fixture.engine.failing << QStringLiteral("AudioPlayer.SetVolume");
    QTest::mouseClick(&form.Image15, Qt::LeftButton);
    QCOMPARE(fixture.fatals.size(), 1);
}

QTEST_MAIN(win_volume)
#include "win_volume.moc"
