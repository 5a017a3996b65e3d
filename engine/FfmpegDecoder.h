// One pass over a file by one codec, packet after packet.
#pragma once

#include "engine/PacketDecoder.h"
#include "engine/PacketInput.h"

class FfmpegDecoder : public BlockSource {
public:
    FfmpegDecoder(std::unique_ptr<PacketInput> input, const CodecSetup& setup);

    bool next(Block& block) override;

private:
    void fill();

    std::unique_ptr<PacketInput> input_;
    PacketDecoder decoder_;
    Packet packet_;
    BlockList ready_;
    std::size_t at_ = 0;    ///< the first of `ready_` that is not delivered yet
    bool ended_ = false;
};
