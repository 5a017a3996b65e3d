#include "engine/DecodeAhead.h"

namespace {

constexpr std::size_t mostReady = 4;

}

DecodeAhead::DecodeAhead(std::unique_ptr<BlockSource> source)
    : source_(std::move(source)), thread_([this](std::stop_token stop) { run(stop); })
{}

bool DecodeAhead::next(Block& block)
{
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return !ready_.empty() || ended_; });
    if (ready_.empty()) {
        if (fault_) std::rethrow_exception(std::exchange(fault_, nullptr));
        return false;
    }
    std::swap(block, ready_.front());
    spare_.push_back(std::move(ready_.front()));
    ready_.pop_front();
    changed_.notify_all();
    return true;
}

void DecodeAhead::run(std::stop_token stop)
{
    std::exception_ptr fault;
    try {
        Block block;
        while (source_->next(block) && put(block, stop)) {
        }
    } catch (...) {
        fault = std::current_exception();
    }
    const std::lock_guard lock(mutex_);
    fault_ = fault;
    ended_ = true;
    changed_.notify_all();
}

/// Hands the block over and leaves a used buffer in its place. False when the reader has gone.
bool DecodeAhead::put(Block& block, std::stop_token stop)
{
    std::unique_lock lock(mutex_);
    const bool hasRoom = changed_.wait(lock, stop, [&] { return ready_.size() < mostReady; });
    if (!hasRoom || stop.stop_requested()) return false;
    ready_.push_back(std::move(block));
    block = Block();
    if (!spare_.empty()) {
        block = std::move(spare_.back());
        spare_.pop_back();
    }
    changed_.notify_all();
    return true;
}
