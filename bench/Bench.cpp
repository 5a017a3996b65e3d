#include "bench/Bench.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <cstdio>
#include <ctime>

namespace {

double secondsOf(clockid_t clock)
{
    timespec t{};
    clock_gettime(clock, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

// The paint events of a window come one after the other; what is queued at the first runs after the last of
// them, when the picture has been handed over.
class FirstPaint : public QObject {
public:
    explicit FirstPaint(QWidget& window) : window_(window)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Paint && widget && widget->window() == &window_ && !isSeen_) {
            isSeen_ = true;
            QMetaObject::invokeMethod(
                QCoreApplication::instance(), [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
        }
        return false;
    }

private:
    QWidget& window_;
    bool isSeen_ = false;
};

}

StopWatch::StopWatch() : wall_(secondsOf(CLOCK_MONOTONIC)), cpu_(secondsOf(CLOCK_PROCESS_CPUTIME_ID)) {}

double StopWatch::wall() const
{
    return secondsOf(CLOCK_MONOTONIC) - wall_;
}

double StopWatch::cpu() const
{
    return secondsOf(CLOCK_PROCESS_CPUTIME_ID) - cpu_;
}

void printJob(const StopWatch& watch)
{
    std::printf("job %.4f %.4f\n", watch.wall(), watch.cpu());
}

void printFirstPaint(QWidget& window)
{
    const FirstPaint watcher(window);
    QCoreApplication::exec();
    const double started = qEnvironmentVariable("QUILLON_BENCH_STARTED_NS").toDouble() * 1e-9;
    std::printf("paint %.4f\n", secondsOf(CLOCK_MONOTONIC) - started);
}
