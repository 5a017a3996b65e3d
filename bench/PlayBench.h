// Playing: how soon new sound is heard, how long the window keeps its events waiting, and what playing costs.
#pragma once

#include "bench/FormBench.h"
#include "bench/Monitor.h"

#include <memory>

class PlayBench {
public:
    /// Opens a song of this length, in frames, that it writes into `folder`.
    PlayBench(const QString& folder, std::int32_t frames);
    ~PlayBench();

    // ---- each prints one line of a table
    void startToSound();
    void clickToSound();
    void stalls(int zoomLevel);    ///< in a minute of play with a click in each second
    void cpu(int zoomLevel);       ///< in half a minute of play with nothing else going on

private:
    CutterSelect& form() { return bench_.form(); }
    double secondsUntilHeard(std::int32_t frame, const std::function<void()>& action);
    void press(int button);
    void clickAt(int px);
    int visiblePixel(int k);
    std::int32_t sampleAtPixel(int px);
    void zoomTo(int level);
    void playAtZoom(int level);

    FormBench bench_;
    std::unique_ptr<Monitor> monitor_;
};
