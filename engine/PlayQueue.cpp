#include "engine/PlayQueue.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr std::int64_t scopeFrames = 22050;    // the most that is asked for
constexpr int levelsPerSecond = 20;

std::int16_t scaled(std::int16_t sample, int volume)
{
    return static_cast<std::int16_t>(sample * volume / 65535);
}

}

void PlayQueue::open(PcmFormat format)
{
    clear();
    const std::lock_guard lock(mutex_);
    format_ = format;
    // A second more than the scope shows: the server pulls that far ahead of what is heard, at most.
    ring_.assign(static_cast<std::size_t>((scopeFrames + format.rate) * format.channels), 0);
}

void PlayQueue::clear()
{
    const std::lock_guard lock(mutex_);
    arrays_.clear();
    next_ = usedUp_ = 0;
    pulled_ = 0;
}

void PlayQueue::add(SampleArray samples)
{
    const std::lock_guard lock(mutex_);
    samples.resize(samples.size() - samples.size() % static_cast<std::size_t>(format_.channels));
    if (!samples.empty()) arrays_.push_back(std::move(samples));
}

std::size_t PlayQueue::arrays() const
{
    const std::lock_guard lock(mutex_);
    return arrays_.size();
}

bool PlayQueue::takeUsedUp()
{
    const std::lock_guard lock(mutex_);
    return usedUp_ > 0 && usedUp_-- > 0;
}

void PlayQueue::setVolume(int volume)
{
    const std::lock_guard lock(mutex_);
    volume_ = std::clamp(volume, 0, 65535);
}

int PlayQueue::volume() const
{
    const std::lock_guard lock(mutex_);
    return volume_;
}

void PlayQueue::setMute(bool mute)
{
    const std::lock_guard lock(mutex_);
    mute_ = mute;
}

std::size_t PlayQueue::pull(std::int16_t* to, std::size_t frames)
{
    const std::lock_guard lock(mutex_);
    std::size_t done = 0;
    while (done < frames && !arrays_.empty())
        done += copyFront(to + done * static_cast<std::size_t>(format_.channels), frames - done);
    remember(to, done);
    return done;
}

std::size_t PlayQueue::copyFront(std::int16_t* to, std::size_t frames)
{
    const auto channels = static_cast<std::size_t>(format_.channels);
    const SampleArray& front = arrays_.front();
    const std::size_t elements = std::min(frames * channels, front.size() - next_);
    const int volume = mute_ ? 0 : volume_;
    std::transform(front.begin() + static_cast<std::ptrdiff_t>(next_),
                   front.begin() + static_cast<std::ptrdiff_t>(next_ + elements), to,
                   [volume](std::int16_t sample) { return scaled(sample, volume); });
    next_ += elements;
    if (next_ == front.size()) {
        arrays_.pop_front();
        next_ = 0;
        ++usedUp_;
    }
    return elements / channels;
}

void PlayQueue::remember(const std::int16_t* samples, std::size_t frames)
{
    const auto channels = static_cast<std::size_t>(format_.channels);
    const std::size_t ringFrames = ring_.size() / channels;
    for (std::size_t k = 0; k < frames; ++k, ++pulled_) {
        const std::size_t slot = static_cast<std::size_t>(pulled_) % ringFrames;
        std::copy_n(samples + k * channels, channels,
                    ring_.begin() + static_cast<std::ptrdiff_t>(slot * channels));
    }
}

SampleArray PlayQueue::latest(std::int64_t count, std::int64_t end) const
{
    const std::lock_guard lock(mutex_);
    const std::int64_t ringFrames = static_cast<std::int64_t>(ring_.size()) / format_.channels;
    end = std::min(end, pulled_);
    const std::int64_t begin = std::max({std::int64_t{0}, end - count, pulled_ - ringFrames});
    SampleArray result;
    for (std::int64_t frame = begin; frame < end; ++frame) {
        const auto first = ring_.begin() + frame % ringFrames * format_.channels;
        result.insert(result.end(), first, first + format_.channels);
    }
    return result;
}

PlayQueue::Levels PlayQueue::levels(std::int64_t end) const
{
    const SampleArray recent = latest(format_.rate / levelsPerSecond, end);
    const auto channels = static_cast<std::size_t>(format_.channels);
    Levels peak;
    for (std::size_t k = 0; k + channels <= recent.size(); k += channels) {
        peak.left = std::max(peak.left, std::abs(int{recent[k]}));
        peak.right = std::max(peak.right, std::abs(int{recent[k + (channels > 1)]}));
    }
    return peak;
}
