// The one connection to the sound server: its thread, its context, and waiting that always ends. The streams
// and the lists stand on it.
#pragma once

#include <pulse/pulseaudio.h>

#include <chrono>
#include <functional>
#include <memory>

/// Ends an operation of libpulse whose answer nobody wants any more: its callback doesn't come.
struct PulseCancel {
    void operator()(pa_operation* operation) const
    {
        pa_operation_cancel(operation);
        pa_operation_unref(operation);
    }
};
using PulseOperation = std::unique_ptr<pa_operation, PulseCancel>;

class PulseConnection {
public:
    PulseConnection();
    ~PulseConnection();

    /// Keeps the server's thread out of what follows. Never on that thread, so never in a callback.
    class Lock {
    public:
        explicit Lock(const PulseConnection& connection) : loop_(connection.loop_)
        {
            pa_threaded_mainloop_lock(loop_);
        }
        ~Lock() { pa_threaded_mainloop_unlock(loop_); }
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

    private:
        pa_threaded_mainloop* loop_;
    };

    // ---- all that follows: with the lock held

    /// Whether the server answers; connects if need be. It and the waits that follow it last 0.9 s together
    /// at most. After a server has kept a caller waiting for all of that, false at once for ten seconds.
    bool connect();

    pa_context* context() const { return context_; }

    /// Waits until `done`, or in vain until the time is up; the callbacks that change what it looks at call
    /// `signal`.
    bool waitFor(const std::function<bool()>& done);

    /// Waits for the answer to `operation`; false when it didn't come.
    bool finish(PulseOperation operation);

    /// Gives up all streams; the next `connect` begins anew.
    void dropContext();

    /// Also in callbacks.
    void signal() { pa_threaded_mainloop_signal(loop_, 0); }

private:
    using Clock = std::chrono::steady_clock;

    bool runLoop();
    bool openContext();

    pa_threaded_mainloop* loop_;
    pa_context* context_ = nullptr;
    bool running_ = false;
    Clock::time_point waitUntil_ = Clock::time_point::min();
    Clock::time_point silentUntil_ = Clock::time_point::min();
};
