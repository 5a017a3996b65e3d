#include "engine/CompressedReader.h"

#include <algorithm>

CompressedReader::CompressedReader(CompressedFile file) : file_(std::move(file)) {}

void CompressedReader::read(SampleArray& out, std::int64_t frames)
{
    const int channels = file_.info.format.channels;
    while (frames > 0) {
        if (at_ == ready_.size() && !refill()) return;
        const std::int64_t there = static_cast<std::int64_t>(ready_.size() - at_) / channels;
        const std::int64_t dropped = std::min(skip_, there);
        const std::int64_t taken = std::min(frames, there - dropped);
        skip_ -= dropped;
        const auto from = ready_.begin() + static_cast<std::ptrdiff_t>(at_) + dropped * channels;
        out.insert(out.end(), from, from + taken * channels);
        at_ += static_cast<std::size_t>((dropped + taken) * channels);
        position_ += taken;
        frames -= taken;
    }
}

// Forward the pass just goes on; back it begins again. Either way the sound is that of one pass, to the
// sample.
void CompressedReader::seek(std::int64_t frame)
{
    if (frame >= position_) {
        skip_ += frame - position_;
    } else {
        source_.reset();
        converter_.reset();
        ready_.clear();
        at_ = 0;
        ended_ = false;
        skip_ = frame;
    }
    position_ = frame;
}

bool CompressedReader::refill()
{
    ready_.clear();
    at_ = 0;
    while (ready_.empty() && !ended_) {
        if (!source_) source_ = startDecoding(file_);
        ended_ = !source_->next(block_);
        if (ended_)
            flushConverter();
        else
            takeBlock();
    }
    return !ready_.empty();
}

void CompressedReader::takeBlock()
{
    const SoundFormat& native = file_.info.format;
    if (block_.format == native && !converter_) {
        std::swap(ready_, block_.samples);
        return;
    }
    if (block_.format != foreign_) flushConverter();
    if (block_.format == native) {
        ready_.insert(ready_.end(), block_.samples.begin(), block_.samples.end());
        return;
    }
    if (!converter_)
        converter_.emplace(block_.format.rate, block_.format.channels, native.rate, native.channels);
    foreign_ = block_.format;
    converter_->push(block_.samples, ready_);
}

void CompressedReader::flushConverter()
{
    if (converter_) converter_->flush(ready_);
    converter_.reset();
}
