// Sound that tells of every frame which one it is: frame number k, counted from 1, is k in two halves. What
// is missing, doubled or out of order can be read straight off a recording. Frames of silence have number 0.
#pragma once

#include "core/AudioEngine.h"

#include <QByteArray>

#include <cstring>
#include <numeric>
#include <vector>

using FrameNumbers = std::vector<std::int32_t>;

/// `count` frames from number `first` on, stereo.
inline SampleArray codedSound(std::int32_t first, std::int32_t count)
{
    SampleArray sound;
    sound.reserve(static_cast<std::size_t>(count) * 2);
    for (std::int32_t k = first; k < first + count; ++k) {
        sound.push_back(static_cast<std::int16_t>(k & 0x7fff));
        sound.push_back(static_cast<std::int16_t>(k >> 15));
    }
    return sound;
}

inline FrameNumbers frameNumbers(const SampleArray& sound)
{
    FrameNumbers numbers;
    for (std::size_t k = 0; k + 1 < sound.size(); k += 2) numbers.push_back(sound[k] | sound[k + 1] << 15);
    return numbers;
}

/// Of a raw recording, 16 bits, stereo.
inline FrameNumbers frameNumbers(const QByteArray& recording)
{
    SampleArray sound(static_cast<std::size_t>(recording.size()) / 4 * 2);
    std::memcpy(sound.data(), recording.constData(), sound.size() * 2);
    return frameNumbers(sound);
}

/// The same without the silence.
inline FrameNumbers soundingFrames(FrameNumbers numbers)
{
    std::erase(numbers, 0);
    return numbers;
}

/// first, first + 1, ... last
inline FrameNumbers frameRange(std::int32_t first, std::int32_t last)
{
    FrameNumbers numbers(static_cast<std::size_t>(last - first + 1));
    std::iota(numbers.begin(), numbers.end(), first);
    return numbers;
}
