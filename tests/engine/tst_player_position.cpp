// The position, repositioning, the end and the stop.
#include "tests/engine/tst_player_stage.h"

#include <QTest>

#include <utility>

class tst_player_position : public QObject {
    Q_OBJECT

private slots:
    void thePositionCountsFramesHeard();
    void thePositionStartsAgainAtClearQueue();
    void thePositionStartsAgainAtStart();
    void thePositionStaysAfterStop();
    void clearedSoundIsNotHeard();
    void soundFedAfterClearQueueIsHeardAtOnce();
    void nothingFedAfterClearQueueIsTheEnd();
    void clearQueueWhileStoppedDoesNoHarm();
    void theEndComesOnceAndAfterTheTotal();
    void nothingFedAfterStartIsTheEnd();
    void anArrayThatComesLateIsStillHeardBeforeTheEnd();
    void aDeviceThatGoesAwayIsTheEnd();
    void theDeviceIsClosedAtTheEnd();
    void stopWhileStoppedDoesNoHarm();
    void stopIsSilentAtOnce();
};

void tst_player_position::thePositionCountsFramesHeard()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.backend->advance(1234);
    stage.player.tick();
    QCOMPARE(stage.positions, (std::vector<std::int32_t>{1234}));
    QCOMPARE(stage.player.GetPositionSamples(), 1234);
}

void tst_player_position::thePositionStartsAgainAtClearQueue()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.run(2000);
    stage.player.ClearQueue();
    QCOMPARE(stage.player.GetPositionSamples(), 0);
    stage.player.PlayArray(codedSound(50001, 10000));
    stage.backend->advance(300);
    QCOMPARE(stage.player.GetPositionSamples(), 300);
}

void tst_player_position::thePositionStartsAgainAtStart()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.run(2000);
    stage.player.Stop();
    stage.player.Start();
    QCOMPARE(stage.player.GetPositionSamples(), 0);
}

void tst_player_position::thePositionStaysAfterStop()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.backend->advance(777);
    stage.player.Stop();
    QCOMPARE(stage.player.GetPositionSamples(), 777);
}

void tst_player_position::clearedSoundIsNotHeard()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.player.PlayArray(codedSound(10001, 10000));
    stage.backend->advance(500);
    stage.player.ClearQueue();
    stage.backend->advance(10000);
    QCOMPARE(stage.heard(), frameRange(1, 500));
}

void tst_player_position::soundFedAfterClearQueueIsHeardAtOnce()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.backend->advance(500);
    stage.player.ClearQueue();
    stage.player.PlayArray(codedSound(50001, 500));
    stage.backend->advance(500);
    FrameNumbers expected = frameRange(1, 500);
    const FrameNumbers second = frameRange(50001, 50500);
    expected.insert(expected.end(), second.begin(), second.end());
    QCOMPARE(frameNumbers(stage.backend->sound), expected);
}

void tst_player_position::nothingFedAfterClearQueueIsTheEnd()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.run(882);
    stage.player.ClearQueue();
    stage.run(882);
    QCOMPARE(stage.ends, 1);
}

void tst_player_position::clearQueueWhileStoppedDoesNoHarm()
{
    Stage stage;
    stage.player.ClearQueue();
    stage.player.tick();
    QCOMPARE(stage.ends, 0);
}

void tst_player_position::theEndComesOnceAndAfterTheTotal()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10007));
    stage.run(20000);
    QCOMPARE(stage.ends, 1);
    QCOMPARE(stage.positions.back(), 10007);
}

void tst_player_position::nothingFedAfterStartIsTheEnd()
{
    Stage stage;
    stage.player.Start();
    stage.run(882);
    QCOMPARE(stage.requests, 1);
    QCOMPARE(stage.ends, 1);
}

void tst_player_position::anArrayThatComesLateIsStillHeardBeforeTheEnd()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 100));
    bool fed = false;
    stage.player.Timer = [&](std::int32_t, std::int32_t, std::int32_t) {
        if (!std::exchange(fed, true)) stage.player.PlayArray(codedSound(101, 100));
    };
    stage.run(882 * 3);
    QCOMPARE(stage.heard(), frameRange(1, 200));
    QCOMPARE(stage.ends, 1);
}

void tst_player_position::aDeviceThatGoesAwayIsTheEnd()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.backend->die();
    stage.run(1764);
    QCOMPARE(stage.ends, 1);
}

void tst_player_position::theDeviceIsClosedAtTheEnd()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 100));
    bool openInHandler = true;
    stage.player.EndPlay = [&] { openInHandler = stage.backend->playing(); };
    stage.run(882);
    QVERIFY(!openInHandler);
}

void tst_player_position::stopWhileStoppedDoesNoHarm()
{
    Stage stage;
    stage.player.Stop();
    stage.player.Start();
    stage.player.Stop();
    stage.player.Stop();
    stage.player.tick();
    QCOMPARE(stage.ends, 0);
}

void tst_player_position::stopIsSilentAtOnce()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.backend->advance(500);
    stage.player.Stop();
    stage.run(1764);
    QCOMPARE(frameNumbers(stage.backend->sound), frameRange(1, 500));
    QVERIFY(!stage.backend->playing());
    QCOMPARE(stage.ends, 0);
}

QTEST_GUILESS_MAIN(tst_player_position)
#include "tst_player_position.moc"
