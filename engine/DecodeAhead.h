// Runs a pass over a file on a thread of its own, a few blocks ahead of who reads it. The buffers go round.
#pragma once

#include "engine/Decoder.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>

class DecodeAhead : public BlockSource {
public:
    explicit DecodeAhead(std::unique_ptr<BlockSource> source);

    bool next(Block& block) override;

private:
    void run(std::stop_token stop);
    bool put(Block& block, std::stop_token stop);

    std::unique_ptr<BlockSource> source_;    ///< the thread's own
    std::mutex mutex_;
    std::condition_variable_any changed_;
    std::deque<Block> ready_;
    std::vector<Block> spare_;
    bool ended_ = false;
    std::exception_ptr fault_;
    std::jthread thread_;    ///< last, so that it is gone before what it uses
};
