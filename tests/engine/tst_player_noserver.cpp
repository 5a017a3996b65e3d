// Where no sound server answers: a start fails, soon, and the program can go on.
#include "engine/PulsePlayer.h"
#include "tests/support/CodedSound.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

namespace {

/// A socket file as a server makes it. It takes connections and never says a word.
class SilentSocket {
public:
    explicit SilentSocket(const QString& path) : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const QByteArray name = QFile::encodeName(path);
        std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
        usable = ::bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
                 ::listen(socket_, 8) == 0;
    }
    ~SilentSocket() { ::close(socket_); }    // the file stays, as after a crash
    SilentSocket(const SilentSocket&) = delete;
    SilentSocket& operator=(const SilentSocket&) = delete;

    /// How many connected since the last call.
    int visitors()
    {
        int count = 0;
        for (int visitor; (visitor = ::accept(socket_, nullptr, nullptr)) >= 0; ++count) ::close(visitor);
        return count;
    }

    bool usable = false;

private:
    int socket_;
};

}

class tst_player_noserver : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void withoutASocketAStartFails();
    void withoutASocketThereAreNoDevices();
    void aFailedStartLeavesThePlayerQuiet();
    void aSocketLeftBehindByACrashFails();
    void aServerThatNeverAnswersFails();
    void aServerThatNeverAnsweredIsNotAskedAgainAtOnce();
    void allPlayersKnowOfTheServerThatNeverAnswered();

private:
    QString socketPath() const { return folder_->filePath("native"); }

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<AudioPlayerStream> player_;
};

void tst_player_noserver::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(socketPath()));
    qputenv("PULSE_COOKIE", QFile::encodeName(folder_->filePath("cookie")));
    QFile cookie(folder_->filePath("cookie"));
    QVERIFY(cookie.open(QIODevice::WriteOnly) && cookie.write(QByteArray(256, 'q')) == 256);
    player_ = makePulsePlayer();
}

void tst_player_noserver::cleanup()
{
    player_.reset();
}

void tst_player_noserver::withoutASocketAStartFails()
{
    player_->Start();
    QVERIFY(player_->GetFailed());
}

void tst_player_noserver::withoutASocketThereAreNoDevices()
{
    QCOMPARE(player_->GetDeviceCount(), 0);
    player_->SetDevice(0);
    QVERIFY(!player_->GetDeviceValid());
}

void tst_player_noserver::aFailedStartLeavesThePlayerQuiet()
{
    player_->Start();
    player_->PlayArray(codedSound(1, 100));
    player_->ClearQueue();
    player_->Stop();
    QCOMPARE(player_->GetPositionSamples(), 0);
    QCOMPARE(player_->GetLevelArray(22050), SampleArray());
}

void tst_player_noserver::aSocketLeftBehindByACrashFails()
{
    QVERIFY(SilentSocket(socketPath()).usable);
    QVERIFY(QFile::exists(socketPath()));
    player_->Start();
    QVERIFY(player_->GetFailed());
}

void tst_player_noserver::aServerThatNeverAnswersFails()
{
    SilentSocket server(socketPath());
    QVERIFY(server.usable);
    player_->Start();
    QVERIFY(player_->GetFailed());
    QCOMPARE(server.visitors(), 1);
}

void tst_player_noserver::aServerThatNeverAnsweredIsNotAskedAgainAtOnce()
{
    SilentSocket server(socketPath());
    player_->Start();
    QCOMPARE(server.visitors(), 1);
    player_->Start();
    QVERIFY(player_->GetFailed());
    QCOMPARE(player_->GetDeviceCount(), 0);
    QCOMPARE(server.visitors(), 0);
}

void tst_player_noserver::allPlayersKnowOfTheServerThatNeverAnswered()
{
    SilentSocket server(socketPath());
    player_->Start();
    QCOMPARE(server.visitors(), 1);
    const auto second = makePulsePlayer();
    second->Start();
    QVERIFY(second->GetFailed());
    QCOMPARE(server.visitors(), 0);
}

QTEST_GUILESS_MAIN(tst_player_noserver)
#include "tst_player_noserver.moc"
