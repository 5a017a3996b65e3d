// What the player owes the program: a start that tells when it failed, the sound as it was fed, the requests.
#include "tests/engine/tst_player_stage.h"

#include <QTest>

class tst_player_rules : public QObject {
    Q_OBJECT

private slots:
    void aPlayerThatNeverStartedHasNotFailed();
    void aStartWithoutADeviceFails();
    void nothingIsRaisedAfterAFailedStart();
    void aStartCanSucceedAfterOneThatFailed();
    void arraysAreHeardInOrderWithoutSilenceBetween();
    void anEmptyArrayIsIgnored();
    void anArrayFedWhileNothingPlaysIsDropped();
    void aSecondStartDropsWhatWasQueued();
    void nothingIsRequestedWhileTwoArraysAreQueued();
    void theNextArrayIsRequestedOnce();
    void anAnsweredRequestIsFollowedByTheNext();
    void anUnansweredRequestIsRaisedAgainWhenAnArrayEnds();
    void anArrayUsedUpIsToldOnce();
    void answeringBothEventsKeepsTwoArraysAhead();
};

void tst_player_rules::aPlayerThatNeverStartedHasNotFailed()
{
    QVERIFY(!Stage().player.GetFailed());
}

void tst_player_rules::aStartWithoutADeviceFails()
{
    Stage stage;
    stage.backend->ok = false;
    stage.player.Start();
    QVERIFY(stage.player.GetFailed());
}

void tst_player_rules::nothingIsRaisedAfterAFailedStart()
{
    Stage stage;
    stage.backend->ok = false;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10));
    stage.run(1764);
    QCOMPARE(stage.requests + stage.arraysEnded + stage.ends, 0);
    QVERIFY(stage.positions.empty());
}

void tst_player_rules::aStartCanSucceedAfterOneThatFailed()
{
    Stage stage;
    stage.backend->ok = false;
    stage.player.Start();
    stage.backend->ok = true;
    stage.player.Start();
    QVERIFY(!stage.player.GetFailed());
}

void tst_player_rules::arraysAreHeardInOrderWithoutSilenceBetween()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 5000));
    stage.player.PlayArray(codedSound(5001, 5000));
    stage.backend->advance(10000);
    QCOMPARE(frameNumbers(stage.backend->sound), frameRange(1, 10000));
}

void tst_player_rules::anEmptyArrayIsIgnored()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.player.tick();
    stage.player.PlayArray({});
    stage.player.tick();
    QCOMPARE(stage.requests, 1);
    QCOMPARE(stage.arraysEnded, 0);
}

void tst_player_rules::anArrayFedWhileNothingPlaysIsDropped()
{
    Stage stage;
    stage.player.PlayArray(codedSound(1, 10));
    stage.player.Start();
    stage.player.PlayArray(codedSound(11, 10));
    stage.run(882);
    QCOMPARE(stage.heard(), frameRange(11, 20));
}

void tst_player_rules::aSecondStartDropsWhatWasQueued()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10));
    stage.player.Start();
    stage.player.PlayArray(codedSound(11, 10));
    stage.run(882);
    QCOMPARE(stage.heard(), frameRange(11, 20));
}

void tst_player_rules::nothingIsRequestedWhileTwoArraysAreQueued()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.player.PlayArray(codedSound(10001, 10000));
    stage.run(4410);
    QCOMPARE(stage.requests, 0);
}

void tst_player_rules::theNextArrayIsRequestedOnce()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.run(4410);
    QCOMPARE(stage.requests, 1);
}

void tst_player_rules::anAnsweredRequestIsFollowedByTheNext()
{
    Stage stage;
    std::int32_t fed = 0;
    stage.player.RequestOnLoadArray = [&] {
        stage.player.PlayArray(codedSound(fed + 1, 100000));
        fed += 100000;
    };
    stage.player.Start();
    stage.run(350000);
    QCOMPARE(fed, 500000);
    QCOMPARE(stage.heard(), frameRange(1, 350000 - 882));
    QCOMPARE(stage.backend->silentFrames, std::size_t{882});    // before the first tick
}

void tst_player_rules::anUnansweredRequestIsRaisedAgainWhenAnArrayEnds()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.run(10000);
    QCOMPARE(stage.requests, 2);
}

void tst_player_rules::anArrayUsedUpIsToldOnce()
{
    Stage stage;
    stage.player.Start();
    for (std::int32_t k = 0; k < 3; ++k) stage.player.PlayArray(codedSound(k * 5000 + 1, 5000));
    stage.run(20000);
    QCOMPARE(stage.arraysEnded, 3);
}

void tst_player_rules::answeringBothEventsKeepsTwoArraysAhead()
{
    Stage stage;
    int feeds = 0;
    std::int32_t furthest = 0;
    const auto feed = [&] {
        if (feeds == 20) return;
        stage.player.PlayArray(codedSound(feeds++ * 22050 + 1, 22050));
        furthest = std::max(furthest, feeds * 22050 - stage.player.GetPositionSamples());
    };
    stage.player.RequestOnLoadArray = feed;
    stage.player.EndArrayPlay = feed;
    stage.player.Start();
    feed();
    feed();
    stage.run(20 * 22050 + 882);
    QCOMPARE(stage.heard(), frameRange(1, 20 * 22050));
    QCOMPARE(stage.arraysEnded + stage.ends, 1);
    QVERIFY2(furthest <= 2 * 22050 + 4410, qPrintable(QString::number(furthest)));
}

QTEST_GUILESS_MAIN(tst_player_rules)
#include "tst_player_rules.moc"
