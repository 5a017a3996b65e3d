// The devices of a real sound server, and how they and the server go away.
#include "engine/PulsePlayer.h"
#include "tests/engine/tst_player_feeder.h"
#include "tests/support/PulseServer.h"

#include <QTest>

namespace {

constexpr int patienceMs = 30000;

}

class tst_player_devices : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyDeviceOfTheServerIsCounted();
    void theChosenDeviceIsHeard();
    void aServerThatDiesIsTheEndAndTheNextStartFails();
    void aDeviceThatGoesIsTheEnd();
    void aServerWithoutADeviceFails();
    void aServerThatStoppedAnsweringFails();
    void aServerThatCameBackIsFound();

private:
    /// Waits until this frame has been recorded, and gives all frames but the silent ones.
    FrameNumbers recordedUpTo(std::int32_t frame);
    bool ended(const Feeder& feeder)
    {
        return QTest::qWaitFor([&] { return feeder.ends > 0; }, patienceMs);
    }

    std::unique_ptr<PulseServer> server_;
    std::unique_ptr<AudioPlayerStream> player_;
};

void tst_player_devices::init()
{
    server_ = std::make_unique<PulseServer>();
    QVERIFY(server_->start());
    QVERIFY(server_->record());
    player_ = makePulsePlayer();
}

void tst_player_devices::cleanup()
{
    player_.reset();
    server_.reset();
}

FrameNumbers tst_player_devices::recordedUpTo(std::int32_t frame)
{
    FrameNumbers heard;
    const auto isThere = [&] {
        heard = soundingFrames(frameNumbers(server_->recordedSince()));
        return std::find(heard.begin(), heard.end(), frame) != heard.end();
    };
    return QTest::qWaitFor(isThere, patienceMs) ? heard : FrameNumbers();
}

void tst_player_devices::everyDeviceOfTheServerIsCounted()
{
    QCOMPARE(player_->GetDeviceCount(), 2);
    QVERIFY(server_->control({"load-module", "module-null-sink", "sink_name=second"}));
    QCOMPARE(player_->GetDeviceCount(), 3);
    player_->SetDevice(2);
    QVERIFY(player_->GetDeviceValid());
}

void tst_player_devices::theChosenDeviceIsHeard()
{
    QVERIFY(server_->control(
        {"load-module", "module-null-sink", "sink_name=second", "rate=44100", "norewinds=1"}));
    QVERIFY(server_->record("second"));
    QCOMPARE(player_->GetDeviceCount(), 3);
    player_->SetDevice(2);
    Feeder feeder(*player_, 1, 5000);
    feeder.start();
    QVERIFY(recordedUpTo(5000) == frameRange(1, 5000));
}

void tst_player_devices::aServerThatDiesIsTheEndAndTheNextStartFails()
{
    Feeder feeder(*player_, 1, 400000);
    feeder.start();
    QTRY_VERIFY_WITH_TIMEOUT(!feeder.positions.empty(), patienceMs);
    server_->kill();
    QVERIFY(ended(feeder));
    player_->Start();
    QVERIFY(player_->GetFailed());
    QCOMPARE(feeder.ends, 1);
}

void tst_player_devices::aDeviceThatGoesIsTheEnd()
{
    Feeder feeder(*player_, 1, 400000);
    feeder.start();
    QTRY_VERIFY_WITH_TIMEOUT(!feeder.positions.empty(), patienceMs);
    QVERIFY(server_->control({"unload-module", "module-null-sink"}));
    QVERIFY(ended(feeder));
}

void tst_player_devices::aServerWithoutADeviceFails()
{
    QVERIFY(server_->control({"unload-module", "module-null-sink"}));
    QCOMPARE(player_->GetDeviceCount(), 0);
    player_->Start();
    QVERIFY(player_->GetFailed());
}

void tst_player_devices::aServerThatStoppedAnsweringFails()
{
    QCOMPARE(player_->GetDeviceCount(), 2);
    server_->freeze();
    player_->Start();
    server_->thaw();
    QVERIFY(player_->GetFailed());
    QCOMPARE(player_->GetDeviceCount(), 0);
}

void tst_player_devices::aServerThatCameBackIsFound()
{
    QCOMPARE(player_->GetDeviceCount(), 2);
    server_->kill();
    player_->Start();
    QVERIFY(player_->GetFailed());
    QVERIFY(server_->start());
    player_->Start();
    QVERIFY(!player_->GetFailed());
}

QTEST_GUILESS_MAIN(tst_player_devices)
#include "tst_player_devices.moc"
