// Counts the sound in a stream from its packets alone, without decoding: what a file tells of its own length
// is often wrong by a few percent, the packets never are.
#pragma once

#include "engine/Decoder.h"
#include "engine/PacketDecoder.h"

#include <optional>

/// Frames of sound in WMA packets. A packet holds one frame, or says how many end in it.
class WmaPacketCount {
public:
    explicit WmaPacketCount(const AVCodecParameters& parameters);

    void add(const AVPacket& packet);

    /// What the decoder will deliver: it holds one frame back to the end, and drops the first two.
    std::int64_t total() const;

private:
    bool reservoir_ = false;
    int blockBytes_;
    int frameLength_;
    std::int64_t count_ = 0;
};

class PacketCount {
public:
    explicit PacketCount(CodecSetup setup);

    void add(const AVPacket& packet);

    std::int64_t packets() const { return packets_; }

    /// Where the first packet ends, in the stream's time; empty where the file doesn't tell.
    std::optional<std::int64_t> firstEnd() const { return firstEnd_; }

    /// Bits a second over all packets, what the codec delay takes away included.
    std::int64_t bitrate(int rate) const;

    /// Frames at `rate`; stretches of another rate count as long as they sound.
    std::int64_t total(int rate) const;

private:
    bool addMpeg(const AVPacket& packet);
    void addTrim(const AVPacket& packet);
    void addStretch(int rate, std::int64_t frames);

    struct Stretch {
        int rate;
        std::int64_t frames;
    };

    CodecSetup setup_;
    std::optional<WmaPacketCount> wma_;
    std::vector<Stretch> stretches_;    ///< one for each rate that was met
    std::int64_t ticks_ = 0;            ///< of packets whose sound can't be counted otherwise
    std::int64_t trimmed_ = 0;          ///< frames that the codec delay takes away
    std::optional<std::int64_t> firstEnd_;
    std::int64_t packets_ = 0;
    std::int64_t bytes_ = 0;
};
