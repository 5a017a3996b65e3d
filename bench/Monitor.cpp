#include "bench/Monitor.h"

#include "core/Errors.h"

#include <cstring>
#include <ctime>

namespace {

constexpr std::uint32_t rate = 44100;
constexpr std::size_t frameBytes = 4;

}

double steadySeconds()
{
    timespec t{};
    clock_gettime(CLOCK_MONOTONIC, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

Monitor::Monitor(int pieceMs) : pieceMs_(pieceMs), loop_(pa_threaded_mainloop_new())
{
    context_ = pa_context_new(pa_threaded_mainloop_get_api(loop_), "quillon-bench-play");
    pa_context_set_state_callback(context_, stateChanged, this);
    if (pa_context_connect(context_, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0 ||
        pa_threaded_mainloop_start(loop_) < 0)
        throw EngineError(QStringLiteral("no sound server to listen to"));
}

Monitor::~Monitor()
{
    pa_threaded_mainloop_stop(loop_);
    if (stream_) {
        pa_stream_disconnect(stream_);
        pa_stream_unref(stream_);
    }
    pa_context_disconnect(context_);
    pa_context_unref(context_);
    pa_threaded_mainloop_free(loop_);
}

void Monitor::stateChanged(pa_context* context, void* self)
{
    if (pa_context_get_state(context) == PA_CONTEXT_READY) static_cast<Monitor*>(self)->open();
}

void Monitor::open()
{
    const pa_sample_spec spec{PA_SAMPLE_S16NE, rate, 2};
    stream_ = pa_stream_new(context_, "monitor", &spec, nullptr);
    pa_stream_set_read_callback(stream_, soundCame, this);
    pa_buffer_attr attributes;
    attributes.maxlength = attributes.tlength = attributes.prebuf = attributes.minreq =
        static_cast<std::uint32_t>(-1);
    attributes.fragsize =
        static_cast<std::uint32_t>(pa_usec_to_bytes(static_cast<pa_usec_t>(pieceMs_) * 1000, &spec));
    const auto flags = static_cast<pa_stream_flags_t>(
        PA_STREAM_ADJUST_LATENCY | PA_STREAM_AUTO_TIMING_UPDATE | PA_STREAM_INTERPOLATE_TIMING);
    pa_stream_connect_record(stream_, "out.monitor", &attributes, flags);
}

void Monitor::lookFor(std::int32_t frame)
{
    heardAt_ = 0;
    frame_ = frame;
}

// The latency of a recording is the age of the frame that is read next. It is negative where the device hands
// a frame over before it sounds.
void Monitor::soundCame(pa_stream* stream, std::size_t, void* user)
{
    auto& self = *static_cast<Monitor*>(user);
    while (pa_stream_readable_size(stream) > 0) {
        pa_usec_t age = 0;
        int isNegative = 0;
        const bool isKnown = pa_stream_get_latency(stream, &age, &isNegative) == 0;
        const double signedAge = static_cast<double>(age) * (isNegative ? -1e-6 : 1e-6);
        const void* data = nullptr;
        std::size_t bytes = 0;
        if (pa_stream_peek(stream, &data, &bytes) < 0 || bytes == 0) return;
        if (data && isKnown) self.look(data, bytes, steadySeconds() - signedAge);
        pa_stream_drop(stream);
    }
}

void Monitor::look(const void* data, std::size_t bytes, double firstHeardAt)
{
    const std::int32_t frame = frame_;
    if (frame == 0) return;
    for (std::size_t k = 0; k + frameBytes <= bytes; k += frameBytes) {
        std::int16_t halves[2];
        std::memcpy(halves, static_cast<const char*>(data) + k, frameBytes);
        if ((halves[0] | halves[1] << 15) != frame) continue;
        frame_ = 0;
        heardAt_ = firstHeardAt + static_cast<double>(k / frameBytes) / rate;
        return;
    }
}
