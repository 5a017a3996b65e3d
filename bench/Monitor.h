// Listens to the output device of the benchmark's sound server, and tells when a frame was heard.
#pragma once

#include <pulse/pulseaudio.h>

#include <atomic>
#include <cstdint>

class Monitor {
public:
    /// `pieceMs`: how often the server hands over what was heard.
    explicit Monitor(int pieceMs = 5);
    ~Monitor();

    /// From now on waits for the frame with this number of coded sound.
    void lookFor(std::int32_t frame);

    /// When it was heard, in seconds of the steady clock; 0 while it hasn't been.
    double heardAt() const { return heardAt_; }

private:
    static void stateChanged(pa_context* context, void* self);
    static void soundCame(pa_stream* stream, std::size_t, void* self);
    void open();
    void look(const void* data, std::size_t bytes, double firstHeardAt);

    const int pieceMs_;
    std::atomic<std::int32_t> frame_ = 0;
    std::atomic<double> heardAt_ = 0;
    pa_threaded_mainloop* loop_;
    pa_context* context_;
    pa_stream* stream_ = nullptr;
};

/// Seconds of the steady clock.
double steadySeconds();
