// What the benchmark's programs share: a stop-watch, and the end of a start.
#pragma once

class QWidget;

/// Wall and CPU seconds of this process since it was made; threads count in CPU.
class StopWatch {
public:
    StopWatch();
    double wall() const;
    double cpu() const;

private:
    double wall_;
    double cpu_;
};

/// Prints "job WALL CPU" for bench/run, in seconds.
void printJob(const StopWatch& watch);

/// Runs the event loop until `window` has been painted once; prints "paint SECONDS", counted from the start
/// of the process as quillon-bench-measure noted it.
void printFirstPaint(QWidget& window);
