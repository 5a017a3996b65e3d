// The arrays that wait to be heard, with the volume, and the ring of what was taken from them last. The
// program adds, the sound server's thread pulls; every call is safe on both.
#pragma once

#include "core/AudioEngine.h"
#include "engine/PcmBackend.h"

#include <deque>
#include <mutex>

class PlayQueue {
public:
    /// Empties the queue and begins to count for a new stream.
    void open(PcmFormat format);

    /// Drops all arrays and the ring; frame numbers start at 0 again.
    void clear();

    /// An array without a whole frame is ignored.
    void add(SampleArray samples);

    std::size_t arrays() const;    ///< queued, with the one that is being pulled
    bool takeUsedUp();             ///< true once for every array pulled to its end

    void setVolume(int volume);    ///< 0 silent to 65535 unchanged
    int volume() const;
    void setMute(bool mute);

    std::size_t pull(std::int16_t* to, std::size_t frames);

    /// Up to `count` frames before frame number `end`, interleaved, as they sounded; fewer at the beginning.
    SampleArray latest(std::int64_t count, std::int64_t end) const;

    struct Levels {
        int left = 0, right = 0;    ///< 0 to 32768
    };
    Levels levels(std::int64_t end) const;    ///< peaks of the 50 ms before frame number `end`

private:
    std::size_t copyFront(std::int16_t* to, std::size_t frames);
    void remember(const std::int16_t* samples, std::size_t frames);

    mutable std::mutex mutex_;
    PcmFormat format_;
    std::deque<SampleArray> arrays_;
    std::size_t next_ = 0;      ///< first element of the front array that was not pulled
    std::size_t usedUp_ = 0;    ///< arrays pulled to their end and not yet told
    int volume_ = 65535;
    bool mute_ = false;
    SampleArray ring_;           ///< frame number f stands at f modulo the ring's frames
    std::int64_t pulled_ = 0;    ///< frames, since `open` or `clear`
};
