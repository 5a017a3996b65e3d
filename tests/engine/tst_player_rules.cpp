// What the player owes the program, on a backend whose clock is the test: sound, events, position, devices.
#include "core/Errors.h"
#include "engine/Player.h"
#include "tests/support/CodedSound.h"
#include "tests/support/FakeBackend.h"

#include <QTest>

#include <limits>

namespace {

/// A player that ticks when it is told to, and all that it raised.
struct Stage {
    std::shared_ptr<FakeBackend> backend = std::make_shared<FakeBackend>();
    Player player{backend, false};
    int requests = 0, arraysEnded = 0, ends = 0;
    std::vector<std::int32_t> positions;
    std::int32_t left = -1, right = -1;

    Stage()
    {
        player.RequestOnLoadArray = [this] { ++requests; };
        player.EndArrayPlay = [this] { ++arraysEnded; };
        player.EndPlay = [this] { ++ends; };
        player.Timer = [this](std::int32_t position, std::int32_t l, std::int32_t r) {
            positions.push_back(position);
            left = l;
            right = r;
        };
    }

    /// Lets time pass as a running program does, a tick every 20 ms.
    void run(int frames)
    {
        for (; frames > 0; frames -= 882) {
            backend->advance(static_cast<std::size_t>(std::min(frames, 882)));
            player.tick();
        }
    }

    FrameNumbers heard() const { return soundingFrames(frameNumbers(backend->sound)); }
};

}

class tst_player_rules : public QObject {
    Q_OBJECT

private slots:
    void millisecondsAndSamplesConvert_data();
    void millisecondsAndSamplesConvert();
    void theRateIs44100BeforeAnyFormat();
    void resultsBeyond32BitsStopAtTheEnd();
    void aFormatOfNothingIsRefused_data();
    void aFormatOfNothingIsRefused();

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

    void theVolumeStaysAcrossStarts();
    void theVolumeIsFullAtFirst();
    void theTimerTellsTheLevels();
    void theLevelArrayIsTheSoundHeardLast();

    void deviceZeroIsTheOneThatTheDesktopPrefers();
    void everyDeviceCountedIsValid();
    void theDeviceBehindTheLastIsNotValid();
    void withoutDevicesThereIsNothingToCount();
    void aDeviceCountsFromTheNextStart();
    void aDeviceThatIsNotValidCannotStart();
};

void tst_player_rules::millisecondsAndSamplesConvert_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("ms");
    QTest::addColumn<int>("samples");
    QTest::addColumn<int>("msBack");
    QTest::addRow("four seconds") << 44100 << 4000 << 176400 << 4000;
    QTest::addRow("samples are rounded down") << 44100 << 1 << 44 << 0;
    QTest::addRow("a rate below 1000 Hz") << 900 << 3 << 2 << 2;
    QTest::addRow("hours do not overflow") << 44100 << 36000000 << 1587600000 << 36000000;
    QTest::addRow("before the beginning") << 44100 << -1 << -45 << -2;
}

void tst_player_rules::millisecondsAndSamplesConvert()
{
    QFETCH(int, rate);
    QFETCH(int, ms);
    QFETCH(int, samples);
    QFETCH(int, msBack);
    Stage stage;
    stage.player.SetFormat(rate, 2);
    QCOMPARE(stage.player.MsToSamples(ms), samples);
    QCOMPARE(stage.player.SamplesToMs(samples), msBack);
}

void tst_player_rules::theRateIs44100BeforeAnyFormat()
{
    Stage stage;
    QCOMPARE(stage.player.MsToSamples(1000), 44100);
    QCOMPARE(stage.player.SamplesToMs(44100), 1000);
}

void tst_player_rules::resultsBeyond32BitsStopAtTheEnd()
{
    Stage stage;
    QCOMPARE(stage.player.MsToSamples(std::numeric_limits<std::int32_t>::max()),
             std::numeric_limits<std::int32_t>::max());
}

void tst_player_rules::aFormatOfNothingIsRefused_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::addRow("no rate") << 0 << 2;
    QTest::addRow("no channels") << 44100 << 0;
}

void tst_player_rules::aFormatOfNothingIsRefused()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    Stage stage;
    QVERIFY_EXCEPTION_THROWN(stage.player.SetFormat(rate, channels), EngineError);
    QCOMPARE(stage.player.MsToSamples(1000), 44100);
}

void tst_player_rules::aPlayerThatNeverStartedHasNotFailed() { QVERIFY(!Stage().player.GetFailed()); }

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
    QCOMPARE(stage.backend->silentFrames, std::size_t{882}); // before the first tick
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

void tst_player_rules::thePositionCountsFramesHeard()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.backend->advance(1234);
    stage.player.tick();
    QCOMPARE(stage.positions, (std::vector<std::int32_t>{1234}));
    QCOMPARE(stage.player.GetPositionSamples(), 1234);
}

void tst_player_rules::thePositionStartsAgainAtClearQueue()
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

void tst_player_rules::thePositionStartsAgainAtStart()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.run(2000);
    stage.player.Stop();
    stage.player.Start();
    QCOMPARE(stage.player.GetPositionSamples(), 0);
}

void tst_player_rules::thePositionStaysAfterStop()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.backend->advance(777);
    stage.player.Stop();
    QCOMPARE(stage.player.GetPositionSamples(), 777);
}

void tst_player_rules::clearedSoundIsNotHeard()
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

void tst_player_rules::soundFedAfterClearQueueIsHeardAtOnce()
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

void tst_player_rules::nothingFedAfterClearQueueIsTheEnd()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.run(882);
    stage.player.ClearQueue();
    stage.run(882);
    QCOMPARE(stage.ends, 1);
}

void tst_player_rules::clearQueueWhileStoppedDoesNoHarm()
{
    Stage stage;
    stage.player.ClearQueue();
    stage.player.tick();
    QCOMPARE(stage.ends, 0);
}

void tst_player_rules::theEndComesOnceAndAfterTheTotal()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10007));
    stage.run(20000);
    QCOMPARE(stage.ends, 1);
    QCOMPARE(stage.positions.back(), 10007);
}

void tst_player_rules::nothingFedAfterStartIsTheEnd()
{
    Stage stage;
    stage.player.Start();
    stage.run(882);
    QCOMPARE(stage.requests, 1);
    QCOMPARE(stage.ends, 1);
}

void tst_player_rules::anArrayThatComesLateIsStillHeardBeforeTheEnd()
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

void tst_player_rules::aDeviceThatGoesAwayIsTheEnd()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 10000));
    stage.backend->die();
    stage.run(1764);
    QCOMPARE(stage.ends, 1);
}

void tst_player_rules::theDeviceIsClosedAtTheEnd()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 100));
    bool openInHandler = true;
    stage.player.EndPlay = [&] { openInHandler = stage.backend->playing(); };
    stage.run(882);
    QVERIFY(!openInHandler);
}

void tst_player_rules::stopWhileStoppedDoesNoHarm()
{
    Stage stage;
    stage.player.Stop();
    stage.player.Start();
    stage.player.Stop();
    stage.player.Stop();
    stage.player.tick();
    QCOMPARE(stage.ends, 0);
}

void tst_player_rules::stopIsSilentAtOnce()
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

void tst_player_rules::theVolumeStaysAcrossStarts()
{
    Stage stage;
    stage.player.SetVolume(0);
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 100));
    stage.backend->advance(100);
    stage.player.Stop();
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 100));
    stage.backend->advance(100);
    QCOMPARE(stage.backend->silentFrames, std::size_t{0});
    QCOMPARE(stage.backend->sound, SampleArray(400, 0));
}

void tst_player_rules::theVolumeIsFullAtFirst() { QCOMPARE(Stage().player.GetVolume(), 65535); }

void tst_player_rules::theTimerTellsTheLevels()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray({100, -200, 50, 60, 5000, 5000});
    stage.backend->advance(2);
    stage.player.tick();
    QCOMPARE(stage.left, 100);
    QCOMPARE(stage.right, 200);
}

void tst_player_rules::theLevelArrayIsTheSoundHeardLast()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 40000));
    stage.backend->advance(30000);
    QCOMPARE(frameNumbers(stage.player.GetLevelArray(22050)), frameRange(30000 - 22050 + 1, 30000));
}

void tst_player_rules::deviceZeroIsTheOneThatTheDesktopPrefers()
{
    Stage stage;
    stage.player.SetDevice(0);
    stage.player.Start();
    QCOMPARE(stage.backend->started, (std::vector<std::string>{""}));
}

void tst_player_rules::everyDeviceCountedIsValid()
{
    Stage stage;
    QCOMPARE(stage.player.GetDeviceCount(), 3);
    for (std::int32_t k = 0; k < 3; ++k) {
        stage.player.SetDevice(k);
        QVERIFY(stage.player.GetDeviceValid());
    }
}

void tst_player_rules::theDeviceBehindTheLastIsNotValid()
{
    Stage stage;
    stage.player.SetDevice(stage.player.GetDeviceCount());
    QVERIFY(!stage.player.GetDeviceValid());
}

void tst_player_rules::withoutDevicesThereIsNothingToCount()
{
    Stage stage;
    stage.backend->devices.clear();
    QCOMPARE(stage.player.GetDeviceCount(), 0);
    stage.player.SetDevice(0);
    QVERIFY(!stage.player.GetDeviceValid());
}

void tst_player_rules::aDeviceCountsFromTheNextStart()
{
    Stage stage;
    stage.player.Start();
    stage.player.SetDevice(2);
    stage.player.PlayArray(codedSound(1, 100));
    stage.backend->advance(100);
    stage.player.Start();
    QCOMPARE(stage.backend->started, (std::vector<std::string>{"", "phones"}));
    QCOMPARE(stage.heard(), frameRange(1, 100));
}

void tst_player_rules::aDeviceThatIsNotValidCannotStart()
{
    Stage stage;
    stage.player.SetDevice(99);
    stage.player.Start();
    QVERIFY(stage.player.GetFailed());
}

QTEST_GUILESS_MAIN(tst_player_rules)
#include "tst_player_rules.moc"
