// What stands between the reader and the codecs. A Decoder is a file that delivers sound from any position; a
// BlockSource is one pass over a compressed file, from its start, and knows nothing of positions.
#pragma once

#include "core/AudioEngine.h"

/// The form of a stretch of sound.
/// Hz. No device goes beyond; a rate above it is damage, and a second of it might not fit into memory.
constexpr int mostRate = 768'000;

struct SoundFormat {
    int rate = 0;        ///< Hz
    int channels = 0;    ///< 1 or 2

    bool operator==(const SoundFormat&) const = default;
};

/// What is known of a file before its sound is read.
struct SoundInfo {
    SoundFormat format;
    std::int64_t total = 0;    ///< frames: samples per channel
    QString text;              ///< the line that describes the format
};

class Decoder {
public:
    virtual ~Decoder() = default;

    virtual const SoundInfo& info() const = 0;

    /// Appends up to `frames` frames from the current position and moves on. Appends nothing only at the end.
    virtual void read(SampleArray& out, std::int64_t frames) = 0;

    /// Moves to `frame`, which lies within 0 and the total.
    virtual void seek(std::int64_t frame) = 0;
};

/// Some decoded sound, all in one form.
struct Block {
    SoundFormat format;
    SampleArray samples;
};

class BlockSource {
public:
    virtual ~BlockSource() = default;

    /// Puts the next stretch into `block`, whose old buffer is used again. False at the end. Throws
    /// EngineError where it can't go on.
    virtual bool next(Block& block) = 0;
};
