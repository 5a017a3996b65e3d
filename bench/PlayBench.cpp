#include "bench/PlayBench.h"

#include "bench/Bench.h"
#include "core/Errors.h"
#include "core/WaveScale.h"
#include "engine/Engine.h"
#include "tests/support/CodedSound.h"
#include "tests/support/Mouse.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

constexpr std::int32_t rate = 44100;
constexpr int starts = 20;
constexpr int clicks = 50;
constexpr int secondMs = 1000;
constexpr double patience = 10;

void runFor(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

// Written as the program writes, a minute at a time.
void writeSong(const QString& path, std::int32_t frames)
{
    const auto engine = makeEngine();
    const auto file = engine->makeFile();
    file->SetFormatPCM(rate, 2, 16);
    file->Create(path);
    file->SetInputFormat(rate, 2);
    for (std::int32_t k = 0; k < frames; k += 60 * rate)
        file->WriteArray(codedSound(k + 1, std::min(60 * rate, frames - k)));
    file->Close();
}

void printTimes(const char* row, std::vector<double> seconds)
{
    std::sort(seconds.begin(), seconds.end());
    std::printf("| %s | %zu | %.1f | %.1f |\n", row, seconds.size(), seconds[seconds.size() / 2] * 1000,
                seconds.back() * 1000);
    std::fflush(stdout);
}

double threadSeconds()
{
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

// A timer of a millisecond in the event loop. What lies between two of its turns beyond that millisecond, no
// event was answered in.
class StallMeter : public QTimer {
public:
    StallMeter()
    {
        setTimerType(Qt::PreciseTimer);
        callOnTimeout([this] { note(); });
        start(1);
    }

    std::vector<double> waits;    ///< seconds, without the timer's own millisecond
    std::vector<double> work;     ///< processor time of this thread in each

private:
    void note()
    {
        const double now = steadySeconds(), worked = threadSeconds();
        if (last_ > 0) {
            waits.push_back(std::max(0.0, now - last_ - 0.001));
            work.push_back(worked - lastWorked_);
        }
        last_ = now;
        lastWorked_ = worked;
    }

    double last_ = 0;
    double lastWorked_ = 0;
};

}

PlayBench::PlayBench(const QString& folder, std::int32_t frames)
{
    const QString song = folder + QStringLiteral("/song.wav");
    writeSong(song, frames);
    bench_.open(song);
}

PlayBench::~PlayBench() = default;

double PlayBench::secondsUntilHeard(std::int32_t frame, const std::function<void()>& action)
{
    monitor_->lookFor(frame);
    const double begin = steadySeconds();
    action();
    while (monitor_->heardAt() == 0) {
        if (steadySeconds() > begin + patience)
            throw EngineError(QStringLiteral("not heard: frame %1").arg(frame));
        runFor(1);
    }
    return monitor_->heardAt() - begin;
}

void PlayBench::press(int button)
{
    pressButton(form().Toolbar1, button);
}

void PlayBench::clickAt(int px)
{
    const QPointF at(px, 100);
    pressAt(form().Picture1, at);
    releaseAt(form().Picture1, at);
}

// The k-th of many places that the viewport shows, no two alike.
int PlayBench::visiblePixel(int k)
{
    const auto left = static_cast<int>(-form().Picture1.Left() / twipsPerPixel);
    return left + 20 + k * 7919 % 600;
}

std::int32_t PlayBench::sampleAtPixel(int px)
{
    return sampleOfX(form().Picture1.Width(), TotalSamples, px * static_cast<double>(twipsPerPixel));
}

void PlayBench::startToSound()
{
    monitor_ = std::make_unique<Monitor>();
    runFor(secondMs);
    std::vector<double> seconds;
    for (int k = 0; k < starts; ++k) {
        const int px = visiblePixel(k);
        clickAt(px);
        runFor(secondMs / 10);
        seconds.push_back(secondsUntilHeard(sampleAtPixel(px) + 1, [this] { press(10); }));
        runFor(secondMs / 10);
        press(12);
    }
    printTimes("start to sound, ms", seconds);
    monitor_.reset();
}

void PlayBench::clickToSound()
{
    monitor_ = std::make_unique<Monitor>();
    press(10);
    runFor(secondMs);
    std::vector<double> seconds;
    for (int k = 0; k < clicks; ++k) {
        const int px = visiblePixel(k);
        seconds.push_back(secondsUntilHeard(sampleAtPixel(px) + 1, [&] { clickAt(px); }));
        runFor(217);    // out of step with the pieces in which the device takes sound
    }
    press(12);
    printTimes("click on the waveform in play to new sound, ms", seconds);
    monitor_.reset();
}

void PlayBench::zoomTo(int level)
{
    while (form().ZoomLevel > level) press(5);
    while (form().ZoomLevel < level) press(4);
    form().MonScroll.setValue(std::max(1, form().MonScroll.maximum() / 2));
    runFor(secondMs / 2);
}

void PlayBench::playAtZoom(int level)
{
    zoomTo(level);
    clickAt(visiblePixel(0));
    press(10);
    runFor(secondMs);
    if (!form().IsPlaying || form().FileR->IsClosed()) throw EngineError(QStringLiteral("nothing plays"));
}

void PlayBench::stalls(int zoomLevel)
{
    playAtZoom(zoomLevel);
    const StallMeter meter;
    for (int k = 1; k <= 60; ++k) {
        runFor(secondMs);
        clickAt(visiblePixel(k));
    }
    press(12);
    const QString at = QStringLiteral(" in a minute of play at zoom %1, ms").arg(zoomLevel);
    printTimes(qPrintable(QStringLiteral("wait for the event loop") + at), meter.waits);
    printTimes(qPrintable(QStringLiteral("work between two turns of the loop") + at), meter.work);
}

void PlayBench::cpu(int zoomLevel)
{
    playAtZoom(zoomLevel);
    const StopWatch watch;
    runFor(30 * secondMs);
    std::printf("| CPU of play at zoom %d, %% of a core | 1 | %.2f | |\n", zoomLevel,
                100 * watch.cpu() / watch.wall());
    std::fflush(stdout);
    press(12);
}
