// A pass over a file on several threads: each takes the next batch of packets and decodes it with a decoder
// of its own, warmed up by the last packets of the batch before. What comes out is, to the sample, what one
// decoder makes of the whole file; where a batch meets a fault, it is decoded once more in just that way.
#pragma once

#include "engine/PacketDecoder.h"
#include "engine/PacketInput.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

/// How the work is cut up. Changes the speed and the memory, never the sound.
struct BatchPlan {
    int threads = 1;
    std::size_t packets = 192;         ///< of a batch, at the most
    std::size_t bytes = 256 * 1024;    ///< the same; packets may hold many frames each
};

class PacketBatchDecoder : public BlockSource {
public:
    PacketBatchDecoder(std::unique_ptr<PacketInput> input, const CodecSetup& setup, const BatchPlan& plan);
    ~PacketBatchDecoder() override;

    bool next(Block& block) override;

private:
    struct Batch {
        std::vector<Packet> packets;
        std::size_t preroll = 0;    ///< how many of them only warm the decoder up
        bool last = false;
        bool onward = false;    ///< must go on from the decoder of the batch before
        bool clean = false;     ///< no fault was met
        bool done = false;
        std::exception_ptr fault;
        std::unique_ptr<PacketDecoder> decoder;    ///< as it stands after the batch
        BlockList blocks;
    };
    using BatchPtr = std::unique_ptr<Batch>;

    void work(std::stop_token stop);
    Batch* takeBatch(std::stop_token stop);
    BatchPtr spareBatch();
    void readBatch(Batch& batch);
    void decode(Batch& batch, std::stop_token stop);
    bool decodeBody(Batch& batch, std::stop_token stop);
    bool advance();
    BatchPtr awaitFront();

    CodecSetup setup_;
    BatchPlan plan_;

    std::mutex inputMutex_;    ///< guards what reads the file, from here to `readAll_`
    std::unique_ptr<PacketInput> input_;
    std::vector<Packet> carried_;    ///< copies of the packets that warm up the next batch
    bool changed_ = false;           ///< the codec's set-up changed midway
    bool readAll_ = false;

    std::mutex mutex_;    ///< guards the list of batches and the state of each; taken after `inputMutex_`
    std::condition_variable_any moved_;
    std::deque<BatchPtr> batches_;    ///< read and not delivered yet, in order
    std::vector<BatchPtr> spare_;
    bool ended_ = false;    ///< no batch will follow

    BatchPtr front_;         ///< the reader's: the batch that is being delivered
    bool failed_ = false;    ///< a fault was reported; nothing comes after it
    std::size_t at_ = 0;     ///< which of its blocks comes next
    std::vector<std::jthread> threads_;
};
