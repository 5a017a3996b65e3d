// A handler may do anything to the player that called it: stop it, start it, reposition it, destroy it.
#include "engine/Player.h"
#include "tests/support/CodedSound.h"
#include "tests/support/FakeBackend.h"

#include <QTest>

namespace {

enum class Event { Request, ArrayEnd, Timer, End };

/// A player that plays one array of 100 frames and raises all four events in its next tick, with one action
/// that runs inside the first event of a kind.
struct Stage {
    std::shared_ptr<FakeBackend> backend = std::make_shared<FakeBackend>();
    std::unique_ptr<Player> player = std::make_unique<Player>(backend, false);
    std::vector<Event> raised;
    Event when;
    std::function<void()> action;

    Stage(Event kind, std::function<void(Stage&)> act) : when(kind), action([this, act] { act(*this); })
    {
        player->RequestOnLoadArray = [this] { note(Event::Request); };
        player->EndArrayPlay = [this] { note(Event::ArrayEnd); };
        player->Timer = [this](std::int32_t, std::int32_t, std::int32_t) { note(Event::Timer); };
        player->EndPlay = [this] { note(Event::End); };
        player->Start();
        player->PlayArray(codedSound(1, 100));
        backend->advance(100);
    }

    void note(Event event)
    {
        raised.push_back(event);
        if (event == when && action) std::exchange(action, nullptr)();
    }
};

constexpr Event order[] = {Event::ArrayEnd, Event::Request, Event::Timer, Event::End};

/// What is raised in a tick up to and with this event.
std::vector<Event> upTo(Event last)
{
    return {std::begin(order), std::find(std::begin(order), std::end(order), last) + 1};
}

}

class tst_player_handlers : public QObject {
    Q_OBJECT

private slots:
    void aTickRaisesAllInOrder();
    void nothingIsRaisedAfterStop_data() { addEvents(); }
    void nothingIsRaisedAfterStop();
    void startAfterStopPlaysTheNewSoundOnly_data() { addEvents(); }
    void startAfterStopPlaysTheNewSoundOnly();
    void clearQueueEndsTheRoundAndPlaysOn_data();
    void clearQueueEndsTheRoundAndPlaysOn();
    void thePlayerMayBeDestroyed_data() { addEvents(); }
    void thePlayerMayBeDestroyed();
    void theHandlerMayBeReplaced();
    void destroyingAPlayingPlayerClosesTheDevice();

private:
    static void addEvents()
    {
        QTest::addColumn<int>("event");
        QTest::addRow("in the end of an array") << int(Event::ArrayEnd);
        QTest::addRow("in the request for an array") << int(Event::Request);
        QTest::addRow("in the timer") << int(Event::Timer);
        QTest::addRow("in the end of play") << int(Event::End);
    }
};

void tst_player_handlers::aTickRaisesAllInOrder()
{
    Stage stage(Event::End, [](Stage&) {});
    stage.player->tick();
    QCOMPARE(stage.raised, upTo(Event::End));
}

void tst_player_handlers::nothingIsRaisedAfterStop()
{
    QFETCH(int, event);
    Stage stage(Event(event), [](Stage& s) { s.player->Stop(); });
    stage.player->tick();
    stage.player->tick();
    QCOMPARE(stage.raised, upTo(Event(event)));
}

void tst_player_handlers::startAfterStopPlaysTheNewSoundOnly()
{
    QFETCH(int, event);
    Stage stage(Event(event), [](Stage& s) {
        s.player->Stop();
        s.player->Start();
        s.player->PlayArray(codedSound(501, 9000));
        s.player->PlayArray(codedSound(9501, 9000));
    });
    stage.player->tick();
    QCOMPARE(stage.raised, upTo(Event(event)));
    stage.backend->advance(200);
    stage.player->tick();
    QCOMPARE(stage.raised.back(), Event::Timer);
    QCOMPARE(stage.player->GetPositionSamples(), 200);
    QCOMPARE(soundingFrames(frameNumbers(stage.backend->sound)).back(), 700);
}

void tst_player_handlers::clearQueueEndsTheRoundAndPlaysOn_data()
{
    QTest::addColumn<int>("event");
    QTest::addRow("in the end of an array") << int(Event::ArrayEnd);
    QTest::addRow("in the request for an array") << int(Event::Request);
    QTest::addRow("in the timer") << int(Event::Timer);
}

void tst_player_handlers::clearQueueEndsTheRoundAndPlaysOn()
{
    QFETCH(int, event);
    Stage stage(Event(event), [](Stage& s) {
        s.player->ClearQueue();
        s.player->PlayArray(codedSound(501, 9000));
        s.player->PlayArray(codedSound(9501, 9000));
    });
    stage.player->tick();
    QCOMPARE(stage.raised, upTo(Event(event)));
    stage.backend->advance(200);
    QCOMPARE(stage.player->GetPositionSamples(), 200);
}

void tst_player_handlers::thePlayerMayBeDestroyed()
{
    QFETCH(int, event);
    Stage stage(Event(event), [](Stage& s) { s.player.reset(); });
    stage.player->tick();
    QCOMPARE(stage.raised, upTo(Event(event)));
    QVERIFY(!stage.backend->playing());
}

void tst_player_handlers::theHandlerMayBeReplaced()
{
    Stage stage(Event::Timer, [](Stage& s) { s.player->Timer = nullptr; });
    stage.player->tick();
    QCOMPARE(stage.raised, upTo(Event::End));
}

void tst_player_handlers::destroyingAPlayingPlayerClosesTheDevice()
{
    Stage stage(Event::End, [](Stage&) {});
    stage.player.reset();
    QVERIFY(!stage.backend->playing());
    QVERIFY(stage.raised.empty());
}

QTEST_GUILESS_MAIN(tst_player_handlers)
#include "tst_player_handlers.moc"
