// Drawing: one redraw of everything at each zoom level, and a step of the scroll bar.
#include "bench/Bench.h"
#include "bench/FormBench.h"

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

}

void FormBench::redraw()
{
    giveWay();
    for (std::int32_t level = 0;; ++level) {
        const Cost cost = medianOf([&](int) {
            form_->DrawWaveform();
            form_->repaint();
        });
        std::printf("redraw %d %.5f %.5f\n", form_->ZoomLevel, cost.wall, cost.cpu);
        const auto width = form_->Picture1.Width();
        form_->zoomIn();
        giveWay();
        if (form_->Picture1.Width() == width) break;
    }
}

void FormBench::scroll()
{
    QScrollBar& bar = form_->MonScroll;
    const Cost cost = medianOf([&](int i) {
        bar.setValue((i + 1) * smallScroll % bar.maximum());
        form_->repaint();
    });
    std::printf("scroll 0 %.5f %.5f\n", cost.wall, cost.cpu);
}
