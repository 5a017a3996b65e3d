// The player on a real sound server of its own, and what a recorder hears of it.
#include "engine/PulseOut.h"
#include "tests/engine/PlayerOnServer.h"

#include <atomic>

class tst_player_server : public QObject, private PlayerOnServer {
    Q_OBJECT

private slots:
    void init() { QVERIFY(startServer()); }
    void cleanup() { stopServer(); }

    void everyFrameOfAStretchIsHeardUnchangedOnceAndInOrder();
    void eventsComeOnTheProgramsThreadAndTheEndAfterTheTotal();
    void aRepositionIsHeardFromItsFirstFrameOn();
    void whatTheServerHoldsIsDroppedByAFlush();
    void manyRepositionsEndAtTheLast();
    void nothingFedAfterClearQueueIsTheEnd();
    void aFewFramesAreHeard();
    void soundThatRanDryGoesOnWithTheNextArray();
    void soundGoesOnWhileTheProgramsThreadIsBusy();
    void soundStopsAtStop();
    void aPlayerThatStoppedCanStartAgain();
    void aPlayerCanBeDestroyedWhileItPlays();
    void twoPlayersAreHeardAtOnce();
    void monoIsHeardOnBothSides();
};

// On a machine that is busy enough the server runs dry for a moment. That is silence between frames and no
// fault of the sound, so silence is left out of what is compared; that no silence is made between arrays is
// shown where the clock is the test's.
void tst_player_server::everyFrameOfAStretchIsHeardUnchangedOnceAndInOrder()
{
    Feeder feeder(*player_, 1, 250007);
    feeder.start();
    QVERIFY(ended(feeder));
    QVERIFY(recordedUpTo(250007) == frameRange(1, 250007));
}

void tst_player_server::eventsComeOnTheProgramsThreadAndTheEndAfterTheTotal()
{
    Feeder feeder(*player_, 1, 30011);
    feeder.block = 10000;
    feeder.start();
    QVERIFY(ended(feeder));
    QVERIFY(feeder.onProgramsThread);
    QCOMPARE(feeder.positions.back(), 30011);
    QVERIFY(std::is_sorted(feeder.positions.begin(), feeder.positions.end()));
    const FrameNumbers heard = recordedUpTo(30011);
    QVERIFY(!heard.empty());
    QCOMPARE(heard.back(), 30011);
    QCOMPARE(feeder.ends, 1);
}

void tst_player_server::aRepositionIsHeardFromItsFirstFrameOn()
{
    Feeder feeder(*player_, 1, 320013);
    feeder.start();
    QTRY_VERIFY_WITH_TIMEOUT(!feeder.positions.empty() && feeder.positions.back() > 20000, patienceMs);
    feeder.goTo(280001);
    QVERIFY(ended(feeder));
    QCOMPARE(feeder.positions.back(), 40013);

    const FrameNumbers heard = recordedUpTo(320013);
    const auto jump = std::find(heard.begin(), heard.end(), 280001);
    QVERIFY(FrameNumbers(jump, heard.end()) == frameRange(280001, 320013));
    const auto before = static_cast<std::int32_t>(jump - heard.begin());
    QVERIFY(before > 20000 && before < 200000);
    QVERIFY(FrameNumbers(heard.begin(), jump) == frameRange(1, before));
}

void tst_player_server::whatTheServerHoldsIsDroppedByAFlush()
{
    PulseOut out(std::make_shared<PulseConnection>(), 2000);
    std::atomic<std::int32_t> pulled = 0, end = 1000000;
    const auto pull = [&](std::int16_t* to, std::size_t frames) {
        const auto count = std::clamp(end - pulled, 0, static_cast<int>(frames));
        const SampleArray sound = codedSound(pulled + 1, count);
        std::copy(sound.begin(), sound.end(), to);
        pulled += count;
        return static_cast<std::size_t>(count);
    };
    QVERIFY(out.start("", {44100, 2}, pull));
    QTRY_VERIFY_WITH_TIMEOUT(out.state().heard > 4410, patienceMs);
    end = 0;
    out.flush();
    const std::int32_t given = pulled;
    QTRY_VERIFY_WITH_TIMEOUT(out.state().drained, patienceMs);
    QCOMPARE(out.state().heard, std::int64_t{0});

    end = given + 4410;
    out.wake();
    const FrameNumbers heard = recordedUpTo(given + 4410);
    const auto jump = std::find(heard.begin(), heard.end(), given + 1);
    QVERIFY(jump - heard.begin() < given);
    QVERIFY(FrameNumbers(jump, heard.end()) == frameRange(given + 1, given + 4410));
}

void tst_player_server::manyRepositionsEndAtTheLast()
{
    Feeder feeder(*player_, 1, 210000);
    feeder.start();
    for (std::int32_t k = 1; k <= 200; ++k) feeder.goTo(k * 1000);
    QVERIFY(ended(feeder));
    const FrameNumbers heard = recordedUpTo(210000);
    QVERIFY(FrameNumbers(std::find(heard.begin(), heard.end(), 200000), heard.end()) ==
            frameRange(200000, 210000));
}

void tst_player_server::nothingFedAfterClearQueueIsTheEnd()
{
    Feeder feeder(*player_, 1, 200000);
    feeder.start();
    QTRY_VERIFY_WITH_TIMEOUT(!feeder.positions.empty() && feeder.positions.back() > 0, patienceMs);
    feeder.goTo(200001);
    QVERIFY(ended(feeder));
    QCOMPARE(feeder.positions.back(), 0);
}

void tst_player_server::aFewFramesAreHeard()
{
    Feeder feeder(*player_, 1, 3);
    feeder.start();
    QVERIFY(ended(feeder));
    QVERIFY(recordedUpTo(3) == frameRange(1, 3));
}

void tst_player_server::soundThatRanDryGoesOnWithTheNextArray()
{
    Feeder feeder(*player_, 1, 4000);
    player_->RequestOnLoadArray = nullptr;
    player_->SetFormat(44100, 2);
    player_->Start();
    player_->PlayArray(codedSound(1, 2000));
    // No events run here, so the player cannot know of the end before the next array comes.
    const qint64 begin = server_->recordedBytes();
    while (server_->recordedBytes() < begin + 44100 * 4 / 2) QThread::yieldCurrentThread();
    player_->PlayArray(codedSound(2001, 2000));
    QVERIFY(ended(feeder));
    QCOMPARE(feeder.positions.back(), 4000);
    QVERIFY(recordedUpTo(4000) == frameRange(1, 4000));
}

void tst_player_server::soundGoesOnWhileTheProgramsThreadIsBusy()
{
    Feeder feeder(*player_, 1, 400000);
    feeder.start();
    const qint64 begin = server_->recordedBytes();
    while (server_->recordedBytes() < begin + 44100 * 4) QThread::yieldCurrentThread();
    const FrameNumbers heard = soundingFrames(frameNumbers(server_->recordedSince()));
    QVERIFY(heard.size() > 22050);
    QVERIFY(heard == frameRange(1, static_cast<std::int32_t>(heard.size())));
}

void tst_player_server::soundStopsAtStop()
{
    Feeder feeder(*player_, 1, 400000);
    feeder.start();
    QTRY_VERIFY_WITH_TIMEOUT(!feeder.positions.empty() && feeder.positions.back() > 4410, patienceMs);
    player_->Stop();
    const qint64 stopped = server_->recordedBytes();
    QTRY_VERIFY_WITH_TIMEOUT(server_->recordedBytes() > stopped + 44100 * 4, patienceMs);
    const FrameNumbers heard = soundingFrames(frameNumbers(server_->recordedSince()));
    QVERIFY(heard == frameRange(1, static_cast<std::int32_t>(heard.size())));
    QVERIFY(soundingFrames(frameNumbers(server_->recordedSince(stopped + 44100 * 2))).empty());
    QCOMPARE(feeder.ends, 0);
}

void tst_player_server::aPlayerThatStoppedCanStartAgain()
{
    Feeder feeder(*player_, 1, 100000);
    feeder.start();
    player_->Stop();
    feeder.next = 95001;
    feeder.start();
    QVERIFY(!player_->GetFailed());
    QVERIFY(ended(feeder));
    const FrameNumbers heard = recordedUpTo(100000);
    QVERIFY(FrameNumbers(std::find(heard.begin(), heard.end(), 95001), heard.end()) ==
            frameRange(95001, 100000));
}

void tst_player_server::aPlayerCanBeDestroyedWhileItPlays()
{
    Feeder feeder(*player_, 1, 400000);
    feeder.start();
    QTRY_VERIFY_WITH_TIMEOUT(!feeder.positions.empty() && feeder.positions.back() > 4410, patienceMs);
    player_.reset();
    const qint64 gone = server_->recordedBytes();
    QTRY_VERIFY_WITH_TIMEOUT(server_->recordedBytes() > gone + 44100 * 4, patienceMs);
    QVERIFY(soundingFrames(frameNumbers(server_->recordedSince(gone + 44100 * 2))).empty());
}

void tst_player_server::twoPlayersAreHeardAtOnce()
{
    const auto other = makePulsePlayer();
    for (AudioPlayerStream* each : {player_.get(), other.get()}) {
        each->SetFormat(44100, 1);
        each->Start();
        QVERIFY(!each->GetFailed());
    }
    player_->PlayArray(SampleArray(44100, 1000));
    other->PlayArray(SampleArray(44100, 200));
    const auto count = [this](int level) {
        const FrameNumbers both = soundingFrames(frameNumbers(server_->recordedSince()));
        return std::count(both.begin(), both.end(), level | level << 15);
    };
    QTRY_COMPARE_WITH_TIMEOUT(count(1000) + count(1200), 44100, patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(count(200) + count(1200), 44100, patienceMs);
    QVERIFY(count(1200) > 22050);
}

void tst_player_server::monoIsHeardOnBothSides()
{
    player_->SetFormat(44100, 1);
    player_->Start();
    player_->PlayArray(SampleArray(22050, 1234));
    const auto heard = [this] {
        const FrameNumbers both = soundingFrames(frameNumbers(server_->recordedSince()));
        return std::count(both.begin(), both.end(), 1234 | 1234 << 15);
    };
    QTRY_COMPARE_WITH_TIMEOUT(heard(), 22050, patienceMs);
}

QTEST_GUILESS_MAIN(tst_player_server)
#include "tst_player_server.moc"
