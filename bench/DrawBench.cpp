// Drawing: one redraw of everything at each zoom level, and a step of the scroll bar.
#include "bench/Bench.h"
#include "bench/FormBench.h"

#include "core/Errors.h"
#include "core/toolkit/Events.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr int repeats = 21;
constexpr int smallScroll = 50;    // the bar's own step at its arrows

struct Cost {
    double wall = 0;
    double cpu = 0;
};

// The median of several runs, each figure for itself.
template <typename Action>
Cost medianOf(Action action)
{
    std::vector<double> walls, cpus;
    for (int i = 0; i < repeats; ++i) {
        const StopWatch watch;
        action(i);
        walls.push_back(watch.wall());
        cpus.push_back(watch.cpu());
    }
    std::nth_element(walls.begin(), walls.begin() + repeats / 2, walls.end());
    std::nth_element(cpus.begin(), cpus.begin() + repeats / 2, cpus.end());
    return {walls[repeats / 2], cpus[repeats / 2]};
}

// Counts what is painted, so that a step that would paint nothing isn't taken for a fast one.
class PaintCount : public QObject {
public:
    explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
    int paints = 0;
};

}

void FormBench::redraw()
{
    giveWay();
    for (;;) {
        const Cost cost = medianOf([&](int) {
            form_->DrawWaveform();
            form_->repaint();
        });
        std::printf("redraw %d %.5f %.5f\n", form_->ZoomLevel, cost.wall, cost.cpu);
        if (form_->ZoomLevel > 0) scroll();
        const auto width = form_->Picture1.Width();
        form_->zoomIn();
        giveWay();
        if (form_->Picture1.Width() == width) break;
    }
}

// A step is done when what it moved is on the window, as the loop of the program brings it there.
void FormBench::scroll()
{
    QScrollBar& bar = form_->MonScroll;
    PaintCount surface(form_->Picture1);
    giveWay();
    surface.paints = 0;
    const Cost cost = medianOf([&](int i) {
        bar.setValue(1 + (i + 1) * smallScroll % (bar.maximum() - 1));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
    });
    if (surface.paints < repeats) throw EngineError(QStringLiteral("a scroll step painted nothing"));
    std::printf("scroll %d %.5f %.5f\n", form_->ZoomLevel, cost.wall, cost.cpu);
}
