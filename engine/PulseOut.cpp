#include "engine/PulseOut.h"

#include <algorithm>

PulseOut::PulseOut(std::shared_ptr<PulseConnection> connection, int aheadMs)
    : connection_(std::move(connection)), aheadMs_(aheadMs)
{}

PulseOut::~PulseOut()
{
    const PulseConnection::Lock lock(*connection_);
    close();
}

bool PulseOut::start(const std::string& device, PcmFormat format, PcmPull pull)
{
    const PulseConnection::Lock lock(*connection_);
    close();
    pull_ = std::move(pull);
    if (connection_->connect() && open(device, format)) return true;
    // A server that is late would make the stream yet, and keep it as long as the connection lasts.
    const bool isYetToCome = stream_ && pa_stream_get_state(stream_) == PA_STREAM_CREATING;
    close();
    if (isYetToCome) connection_->dropContext();
    return false;
}

bool PulseOut::open(const std::string& device, PcmFormat format)
{
    const pa_sample_spec spec{PA_SAMPLE_S16NE, static_cast<std::uint32_t>(format.rate),
                              static_cast<std::uint8_t>(std::min(format.channels, 255))};
    stream_ = pa_stream_new(connection_->context(), "Quillon", &spec, nullptr);
    if (!stream_) return false;
    frameBytes_ = pa_frame_size(&spec);
    pa_stream_set_state_callback(stream_, streamChanged, this);
    pa_stream_set_write_callback(stream_, roomLeft, this);

    // The server's own prebuf never starts a short sound; one of 0 lets it run on in silence and drop late
    // sound.
    pa_buffer_attr attributes;
    attributes.maxlength = attributes.minreq = attributes.fragsize = static_cast<std::uint32_t>(-1);
    attributes.tlength = static_cast<std::uint32_t>(pa_usec_to_bytes(aheadMs_ * PA_USEC_PER_MSEC, &spec));
    attributes.prebuf = static_cast<std::uint32_t>(frameBytes_);
    const auto flags = static_cast<pa_stream_flags_t>(
        PA_STREAM_ADJUST_LATENCY | PA_STREAM_AUTO_TIMING_UPDATE | PA_STREAM_INTERPOLATE_TIMING);
    const char* const sink = device.empty() ? nullptr : device.c_str();
    if (pa_stream_connect_playback(stream_, sink, &attributes, flags, nullptr, nullptr) < 0) return false;
    const auto state = [this] { return pa_stream_get_state(stream_); };
    connection_->waitFor([&] { return state() != PA_STREAM_CREATING; });
    return state() == PA_STREAM_READY;
}

void PulseOut::close()
{
    flush_.reset();
    drain_.reset();
    drained_ = false;
    written_ = heard_ = 0;
    if (!stream_) return;
    pa_stream_set_state_callback(stream_, nullptr, nullptr);
    pa_stream_set_write_callback(stream_, nullptr, nullptr);
    pa_stream_disconnect(stream_);
    pa_stream_unref(stream_);
    stream_ = nullptr;
}

void PulseOut::wake()
{
    const PulseConnection::Lock lock(*connection_);
    fill();
}

void PulseOut::flush()
{
    const PulseConnection::Lock lock(*connection_);
    drain_.reset();
    drained_ = false;
    written_ = heard_ = 0;
    if (stream_) flush_.reset(pa_stream_flush(stream_, flushed, this));
}

PcmOut::State PulseOut::state()
{
    const PulseConnection::Lock lock(*connection_);
    if (!stream_) return {.heard = 0, .drained = false, .dead = true};
    heard_ = heardNow();
    return {.heard = heard_, .drained = drained_, .dead = pa_stream_get_state(stream_) != PA_STREAM_READY};
}

/// The end is never judged by the latency: when the sound has run out, it keeps the device's share for ever.
std::int64_t PulseOut::heardNow() const
{
    if (drained_) return written_;
    pa_usec_t latency = 0;
    int negative = 0;
    if (flush_ || pa_stream_get_latency(stream_, &latency, &negative) < 0) return heard_;
    const std::size_t bytes = negative ? 0 : pa_usec_to_bytes(latency, pa_stream_get_sample_spec(stream_));
    return std::max(heard_, written_ - static_cast<std::int64_t>(bytes / frameBytes_));
}

void PulseOut::fill()
{
    if (flush_ || !stream_ || pa_stream_get_state(stream_) != PA_STREAM_READY) return;
    while (writeSome()) {
    }
}

/// Moves one piece from the program to the server; false when there is no room or no sound left.
bool PulseOut::writeSome()
{
    std::size_t bytes = pa_stream_writable_size(stream_);
    if (bytes == static_cast<std::size_t>(-1) || bytes < frameBytes_) return false;
    void* room = nullptr;
    if (pa_stream_begin_write(stream_, &room, &bytes) < 0 || !room) return false;
    const std::size_t frames = pull_(static_cast<std::int16_t*>(room), bytes / frameBytes_);
    if (frames == 0) {
        pa_stream_cancel_write(stream_);
        drain();
        return false;
    }
    pa_stream_write(stream_, room, frames * frameBytes_, nullptr, 0, PA_SEEK_RELATIVE);
    written_ += static_cast<std::int64_t>(frames);
    drain_.reset();
    drained_ = false;
    return true;
}

void PulseOut::drain()
{
    if (!drain_ && !drained_) drain_.reset(pa_stream_drain(stream_, allHeard, this));
}

void PulseOut::streamChanged(pa_stream*, void* self)
{
    static_cast<PulseOut*>(self)->connection_->signal();
}

void PulseOut::roomLeft(pa_stream*, std::size_t, void* self)
{
    static_cast<PulseOut*>(self)->fill();
}

void PulseOut::flushed(pa_stream*, int, void* self)
{
    auto* const out = static_cast<PulseOut*>(self);
    pa_operation_unref(out->flush_.release());
    out->fill();
}

void PulseOut::allHeard(pa_stream*, int success, void* self)
{
    auto* const out = static_cast<PulseOut*>(self);
    pa_operation_unref(out->drain_.release());
    out->drained_ = success != 0;
}
