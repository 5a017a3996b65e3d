// The devices of a real sound server, and how they and the server go away.
#include "tests/engine/PlayerOnServer.h"

class tst_player_devices : public QObject, private PlayerOnServer {
    Q_OBJECT

private slots:
    void init() { QVERIFY(startServer()); }
    void cleanup() { stopServer(); }

    void everyDeviceOfTheServerIsCounted();
    void theChosenDeviceIsHeard();
    void aServerThatDiesIsTheEndAndTheNextStartFails();
    void aDeviceThatGoesIsTheEnd();
    void aServerWithoutADeviceFails();
    void aServerThatStoppedAnsweringFails();
    void aServerThatStoppedAnsweringInPlayKeepsNobodyWaiting();
    void aStreamThatComesTooLateIsNotLeftBehind();
    void aServerThatCameBackIsFound();
};

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

void tst_player_devices::aServerThatStoppedAnsweringInPlayKeepsNobodyWaiting()
{
    Feeder feeder(*player_, 1, 400000);
    feeder.start();
    QTRY_VERIFY_WITH_TIMEOUT(!feeder.positions.empty() && feeder.positions.back() > 0, patienceMs);
    server_->freeze();
    feeder.goTo(200001);
    player_->Stop();
    feeder.start();
    player_.reset();
    server_->thaw();
    QCOMPARE(feeder.ends, 0);
}

void tst_player_devices::aStreamThatComesTooLateIsNotLeftBehind()
{
    QCOMPARE(player_->GetDeviceCount(), 2);    // there is a connection
    server_->freeze();
    player_->Start();
    QVERIFY(player_->GetFailed());
    server_->thaw();
    const auto isGone = [this] {
        const QByteArray answer = server_->ask({"list", "sink-inputs"});
        return !answer.contains("Quillon") && server_->ask({"list", "clients"}).contains("pactl");
    };
    QTRY_VERIFY_WITH_TIMEOUT(isGone(), patienceMs);
    QVERIFY(isGone());    // and doesn't come
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
