#include "engine/PulseConnection.h"

#include <algorithm>
#include <new>

namespace {

constexpr std::chrono::milliseconds patience{900};
constexpr std::chrono::seconds silenceKept{10};

void contextChanged(pa_context*, void* connection)
{
    static_cast<PulseConnection*>(connection)->signal();
}

void operationChanged(pa_operation*, void* connection)
{
    static_cast<PulseConnection*>(connection)->signal();
}

struct Deadline {
    PulseConnection* connection;
    bool passed = false;
};

void deadlinePassed(pa_mainloop_api*, pa_time_event*, const timeval*, void* user)
{
    auto* deadline = static_cast<Deadline*>(user);
    deadline->passed = true;
    deadline->connection->signal();
}

}

PulseConnection::PulseConnection() : loop_(pa_threaded_mainloop_new())
{
    if (!loop_) throw std::bad_alloc();
}

PulseConnection::~PulseConnection()
{
    {
        const Lock lock(*this);
        dropContext();
    }
    pa_threaded_mainloop_stop(loop_);
    pa_threaded_mainloop_free(loop_);
}

bool PulseConnection::connect()
{
    if (Clock::now() < silentUntil_) return false;
    waitUntil_ = Clock::now() + patience;
    if (context_ && pa_context_get_state(context_) == PA_CONTEXT_READY) return true;
    dropContext();
    if (runLoop() && openContext()) return true;
    dropContext();
    return false;
}

bool PulseConnection::runLoop()
{
    if (!running_) running_ = pa_threaded_mainloop_start(loop_) == 0;
    return running_;
}

bool PulseConnection::openContext()
{
    context_ = pa_context_new(pa_threaded_mainloop_get_api(loop_), "Quillon");
    pa_context_set_state_callback(context_, contextChanged, this);
    // No autospawn: a server of the user's session is used, none is started behind the user's back.
    if (pa_context_connect(context_, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) return false;
    const auto state = [this] { return pa_context_get_state(context_); };
    waitFor([&] { return state() == PA_CONTEXT_READY || !PA_CONTEXT_IS_GOOD(state()); });
    return state() == PA_CONTEXT_READY;
}

void PulseConnection::dropContext()
{
    if (!context_) return;
    pa_context_set_state_callback(context_, nullptr, nullptr);
    pa_context_disconnect(context_);
    pa_context_unref(context_);
    context_ = nullptr;
}

bool PulseConnection::waitFor(const std::function<bool()>& done)
{
    Deadline deadline{this};
    const auto left = std::chrono::duration_cast<std::chrono::microseconds>(waitUntil_ - Clock::now());
    const auto limit = static_cast<pa_usec_t>(std::max<std::int64_t>(left.count(), 0));
    pa_time_event* const timer =
        pa_context_rttime_new(context_, pa_rtclock_now() + limit, deadlinePassed, &deadline);
    while (!done() && !deadline.passed) pa_threaded_mainloop_wait(loop_);
    pa_threaded_mainloop_get_api(loop_)->time_free(timer);
    if (done()) return true;
    silentUntil_ = Clock::now() + silenceKept;
    return false;
}

bool PulseConnection::finish(PulseOperation operation)
{
    if (!operation) return false;
    pa_operation_set_state_callback(operation.get(), operationChanged, this);
    waitFor([&] { return pa_operation_get_state(operation.get()) != PA_OPERATION_RUNNING; });
    return pa_operation_get_state(operation.get()) == PA_OPERATION_DONE;
}
