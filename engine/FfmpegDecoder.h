// One pass over a file by one codec, packet after packet.
#pragma once

#include "engine/FfmpegInput.h"
#include "engine/PacketDecoder.h"

class FfmpegDecoder : public BlockSource {
public:
    FfmpegDecoder(std::shared_ptr<const SourceFile> file, int stream, const CodecSetup& setup);

    bool next(Block& block) override;

private:
    void fill();

    FfmpegInput input_;
    PacketDecoder decoder_;
    Packet packet_;
    BlockList ready_;
    std::size_t at_ = 0; ///< the first of `ready_` that is not delivered yet
    bool ended_ = false;
};
