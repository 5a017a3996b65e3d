// Packets to sound: one codec, and the step from its samples to 16 bits and at most two channels.
#pragma once

#include "engine/Decoder.h"
#include "engine/FrameConverter.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

struct AVStream;

/// All that it takes to open a stream's codec, any number of times.
struct CodecSetup {
    std::shared_ptr<const AVCodecParameters> parameters;
    AVRational timeBase{};
};

/// Empty ones, to be filled in.
std::shared_ptr<AVCodecParameters> newParameters();

CodecSetup codecSetup(const AVStream& stream);

/// Whether there is a decoder that takes it.
bool canDecode(const CodecSetup& setup);

/// A list of blocks whose buffers are used again after `clear`.
class BlockList {
public:
    void clear() { used_ = 0; }
    std::size_t size() const { return used_; }
    Block& operator[](std::size_t i) { return blocks_[i]; }
    std::size_t elements() const;    ///< of all blocks together

    /// Where sound of this form goes on: the last block if it is of this form, a new one otherwise.
    SampleArray& samplesFor(const SoundFormat& format);

private:
    std::vector<Block> blocks_;
    std::size_t used_ = 0;
};

class PacketDecoder {
public:
    /// Throws EngineError where there is no decoder for the stream.
    explicit PacketDecoder(const CodecSetup& setup);

    /// Decodes a packet, or what is still inside when it is null. The sound goes to `out`, and nowhere when
    /// that is null. False where the codec found fault with the packet; the next one may be all right again.
    bool decode(const AVPacket* packet, BlockList* out);

    /// The set-up with all that the packets so far have told of the codec.
    CodecSetup setup() const;

private:
    struct FreeCodec {
        void operator()(AVCodecContext* codec) const { avcodec_free_context(&codec); }
    };
    struct FreeFrame {
        void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    };

    bool take(BlockList& out);

    std::unique_ptr<AVCodecContext, FreeCodec> codec_;
    std::unique_ptr<AVFrame, FreeFrame> frame_;
    FrameConverter converter_;
};
