// Long play: two minutes, or as many as QUILLON_SOAK_MINUTES says. The sound has no gap, memory doesn't grow,
// and the position line keeps pace with what is heard. An hour needs 2 GB in the temporary folder, and a
// quiet machine.
#include "journeys/Listening.h"

#include <QElapsedTimer>
#include <QFile>

#include <cstdio>

namespace {

constexpr std::int32_t rate = 44100;
constexpr std::int32_t settled = 30 * rate;      // frames until the first measures are taken
constexpr std::int32_t window = 10 * rate;       // frames over which the line is compared with the sound
constexpr std::int32_t tolerance = rate / 20;    // of the line, between the first window and the last
#ifdef __SANITIZE_ADDRESS__
constexpr std::int64_t growthKb = 300'000;    // the sanitizer keeps freed memory
#elif defined(__SANITIZE_THREAD__)
constexpr std::int64_t growthKb = 100'000;
#else
constexpr std::int64_t growthKb = 4'000;
#endif

int minutes()
{
    const int wanted = qEnvironmentVariableIntValue("QUILLON_SOAK_MINUTES");
    return wanted > 0 ? wanted : 2;
}

std::int64_t residentKb()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:")) return line.mid(6).simplified().split(' ').front().toLongLong();
    return 0;
}

// Follows a recording while it grows, so that no more than its newest piece is ever in memory.
class Follower {
public:
    explicit Follower(const PulseServer& server) : server_(server) {}

    void follow()
    {
        const QByteArray news = server_.recordedSince(at_);
        const QByteArray whole = news.first(news.size() - news.size() % 4);
        if (whole.isEmpty()) return;
        at_ += whole.size();
        for (const std::int32_t number : frameNumbers(whole)) take(number);
    }

    std::int32_t last = 0;          ///< the frame heard last
    std::int32_t outOfOrder = 0;    ///< frames that did not follow the one before
    std::int32_t silentBetweenArrays = 0, silentWithinArrays = 0;
    std::int32_t arrayFrames = 0;    ///< length of the arrays that are fed

private:
    void take(std::int32_t number)
    {
        if (number == 0) {
            ++pending_;
            return;
        }
        if (last > 0) (last % arrayFrames == 0 ? silentBetweenArrays : silentWithinArrays) += pending_;
        pending_ = 0;
        outOfOrder += number != last + 1;
        last = number;
    }

    const PulseServer& server_;
    qint64 at_ = 0;
    std::int32_t pending_ = 0;    // silent frames that count once sound follows
};

// How far the line is ahead of the recording. The recording lags by what its pipe holds, which is least at
// best, so the least of a window is what compares.
struct Lead {
    std::int32_t least = std::numeric_limits<std::int32_t>::max();
    void take(std::int32_t lead) { least = std::min(least, lead); }
};

}

class tst_journey_soak : public QObject {
    Q_OBJECT

public:
    static void initMain();

private slots:
    void initTestCase();
    void cleanupTestCase() { listening_.reset(); }

    void everyFrameIsHeardOnceAndInOrder();
    void noSilenceFallsBetweenTwoArrays();
    void noSilenceFallsAnywhereOnAQuietMachine();
    void memoryStaysAsItWasAfterHalfAMinute();
    void theLineKeepsPaceWithTheSound();
    void atTheEndTheLineIsAtTheStart();

private:
    void measure(std::int32_t position);

    std::unique_ptr<Listening> listening_;
    std::unique_ptr<Follower> follower_;
    std::int32_t length_ = 0;
    std::int64_t settledKb_ = 0, lastKb_ = 0;
    Lead first_, last_;
};

// The test's own limit for a function is five minutes.
void tst_journey_soak::initMain()
{
    qputenv("QTEST_FUNCTION_TIMEOUT", QByteArray::number((minutes() + 10) * 60'000));
}

void tst_journey_soak::initTestCase()
{
    length_ = minutes() * 60 * rate + 12345;
    listening_ = std::make_unique<Listening>();
    QVERIFY(listening_->listen());
    listening_->openSong(length_);
    follower_ = std::make_unique<Follower>(listening_->server);
    pressButton(listening_->form().Toolbar1, 10);
    follower_->arrayFrames = listening_->form().PlayBlock;

    QElapsedTimer sincePlay;
    sincePlay.start();
    const qint64 limitMs = (minutes() + 1) * 60'000;
    while (listening_->form().IsPlaying && sincePlay.elapsed() < limitMs) {
        QTest::qWait(100);
        follower_->follow();
        if (listening_->form().IsPlaying) measure(listening_->lineSample());
    }
    QVERIFY(!listening_->form().IsPlaying);
    const auto isAllRecorded = [&] { return follower_->follow(), follower_->last == length_; };
    QVERIFY(listening_->waitFor(isAllRecorded));
    std::printf("soak: %d minutes, %d silent frames, %lld kB at 30 s, %lld kB at the end, line ahead by %d "
                "and %d frames\n",
                minutes(), follower_->silentBetweenArrays + follower_->silentWithinArrays,
                static_cast<long long>(settledKb_), static_cast<long long>(lastKb_), first_.least,
                last_.least);
}

void tst_journey_soak::measure(std::int32_t position)
{
    if (position < settled) return;
    lastKb_ = residentKb();
    if (settledKb_ == 0) settledKb_ = lastKb_;
    if (position < settled + window) first_.take(position - follower_->last);
    if (position > length_ - window) last_.take(position - follower_->last);
}

void tst_journey_soak::everyFrameIsHeardOnceAndInOrder()
{
    QCOMPARE(follower_->outOfOrder, 0);
    QCOMPARE(follower_->last, length_);
}

void tst_journey_soak::noSilenceFallsBetweenTwoArrays()
{
    QCOMPARE(follower_->silentBetweenArrays, 0);
}

// Where others keep the cores busy the server may run dry in the middle of an array, so the short run may
// have a second of it. A long run is made by hand, on a machine that does nothing else.
void tst_journey_soak::noSilenceFallsAnywhereOnAQuietMachine()
{
    const bool isByHand = qEnvironmentVariableIsSet("QUILLON_SOAK_MINUTES");
    const std::int32_t silent = follower_->silentWithinArrays;
    QVERIFY2(silent <= (isByHand ? 0 : rate), qPrintable(QString::number(silent)));
}

void tst_journey_soak::memoryStaysAsItWasAfterHalfAMinute()
{
    QVERIFY(settledKb_ > 0);
    QVERIFY2(lastKb_ - settledKb_ <= growthKb, qPrintable(QString::number(lastKb_ - settledKb_)));
}

void tst_journey_soak::theLineKeepsPaceWithTheSound()
{
    QVERIFY2(std::abs(last_.least - first_.least) <= tolerance,
             qPrintable(QStringLiteral("%1 %2").arg(first_.least).arg(last_.least)));
}

void tst_journey_soak::atTheEndTheLineIsAtTheStart()
{
    QCOMPARE(listening_->form().Line2.X1(), 0.0f);
    QCOMPARE(listening_->form().Label2.text(), QStringLiteral("00:00.00"));
}

QTEST_MAIN(tst_journey_soak)
#include "tst_journey_soak.moc"
