// The player's own clock on the program's event loop, and on loops that run inside its handlers.
#include "engine/Player.h"
#include "tests/support/CodedSound.h"
#include "tests/support/FakeBackend.h"

#include <QEventLoop>
#include <QTest>
#include <QThread>

namespace {

constexpr int patienceMs = 20000;

}

class tst_player_timer : public QObject {
    Q_OBJECT

private slots:
    void init();
    void thePlayerTicksByItselfWhileItPlays();
    void theClockStandsAfterStop();
    void theClockGoesOnInALoopInsideItsOwnHandler();
    void soundIsFedInALoopInsideAnyHandler();
    void thePlayerMayEndInALoopInsideItsHandler();
    void thePlayerMayBeDestroyedByItsClock();

private:
    /// Runs an event loop until `done`, as a modal box or a long job does inside a handler.
    static void nestedLoop(const std::function<bool()>& done) { QVERIFY(QTest::qWaitFor(done, patienceMs)); }

    std::shared_ptr<FakeBackend> backend_;
    std::unique_ptr<Player> player_;
    int ticks_ = 0;
};

void tst_player_timer::init()
{
    backend_ = std::make_shared<FakeBackend>();
    player_ = std::make_unique<Player>(backend_);
    player_->Timer = [this](std::int32_t, std::int32_t, std::int32_t) { ++ticks_; };
    ticks_ = 0;
}

void tst_player_timer::thePlayerTicksByItselfWhileItPlays()
{
    player_->Start();
    player_->PlayArray(codedSound(1, 10000));
    QTRY_VERIFY_WITH_TIMEOUT(ticks_ >= 5, patienceMs);
}

void tst_player_timer::theClockStandsAfterStop()
{
    player_->Start();
    player_->PlayArray(codedSound(1, 10000));
    QTRY_VERIFY_WITH_TIMEOUT(ticks_ >= 1, patienceMs);
    player_->Stop();
    const int before = ticks_;

    Player witness(std::make_shared<FakeBackend>());
    int witnessed = 0;
    witness.Timer = [&](std::int32_t, std::int32_t, std::int32_t) { ++witnessed; };
    witness.Start();
    witness.PlayArray(codedSound(1, 10000));
    QTRY_VERIFY_WITH_TIMEOUT(witnessed >= 5, patienceMs);
    QCOMPARE(ticks_, before);
}

void tst_player_timer::theClockGoesOnInALoopInsideItsOwnHandler()
{
    int inside = 0;
    bool nested = false;
    player_->Timer = [&](std::int32_t, std::int32_t, std::int32_t) {
        ++ticks_;
        if (std::exchange(nested, true)) return;
        nestedLoop([&] { return ticks_ >= 6; });
        inside = ticks_;
    };
    player_->Start();
    player_->PlayArray(codedSound(1, 10000));
    QTRY_VERIFY_WITH_TIMEOUT(inside >= 6, patienceMs);
}

void tst_player_timer::soundIsFedInALoopInsideAnyHandler()
{
    std::int32_t fed = 0;
    bool nested = false;
    player_->RequestOnLoadArray = [&] {
        player_->PlayArray(codedSound(fed + 1, 10000));
        fed += 10000;
        if (!std::exchange(nested, true))
            nestedLoop([&] {
                backend_->advance(500);
                return fed >= 100000;
            });
    };
    player_->Start();
    QTRY_VERIFY_WITH_TIMEOUT(fed >= 100000, patienceMs);
    const FrameNumbers heard = soundingFrames(frameNumbers(backend_->sound));
    QCOMPARE(heard, frameRange(1, static_cast<std::int32_t>(heard.size())));
}

void tst_player_timer::thePlayerMayEndInALoopInsideItsHandler()
{
    int ends = 0;
    bool nested = false;
    player_->EndPlay = [&] { ++ends; };
    player_->Timer = [&](std::int32_t, std::int32_t, std::int32_t) {
        if (std::exchange(nested, true)) return;
        backend_->advance(10000);
        nestedLoop([&] { return ends == 1; });
    };
    player_->Start();
    player_->PlayArray(codedSound(1, 10000));
    QTRY_COMPARE_WITH_TIMEOUT(ends, 1, patienceMs);
    QVERIFY(!backend_->playing());
}

void tst_player_timer::thePlayerMayBeDestroyedByItsClock()
{
    player_->Timer = [this](std::int32_t, std::int32_t, std::int32_t) { player_.reset(); };
    player_->Start();
    player_->PlayArray(codedSound(1, 10000));
    QTRY_VERIFY_WITH_TIMEOUT(!player_, patienceMs);
    QVERIFY(!backend_->playing());
}

QTEST_GUILESS_MAIN(tst_player_timer)
#include "tst_player_timer.moc"
