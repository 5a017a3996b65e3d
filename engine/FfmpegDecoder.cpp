#include "engine/FfmpegDecoder.h"

namespace {

constexpr std::size_t blockElements = 64 * 1024;

}

FfmpegDecoder::FfmpegDecoder(std::unique_ptr<PacketInput> input, const CodecSetup& setup)
    : input_(std::move(input)), decoder_(setup), packet_(av_packet_alloc())
{}

bool FfmpegDecoder::next(Block& block)
{
    if (at_ == ready_.size()) fill();
    if (at_ == ready_.size()) return false;
    std::swap(block, ready_[at_++]);
    return true;
}

// Faults of single packets are passed over: the codecs find their way back by themselves.
void FfmpegDecoder::fill()
{
    ready_.clear();
    at_ = 0;
    while (!ended_ && ready_.elements() < blockElements) {
        ended_ = !input_->read(*packet_);
        decoder_.decode(ended_ ? nullptr : packet_.get(), &ready_);
    }
}
