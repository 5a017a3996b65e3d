#include "engine/PacketBatchDecoder.h"

#include "core/Errors.h"
#include "engine/Preroll.h"

#include <system_error>

namespace {

constexpr std::size_t waitingBatches = 2;    // beside those in work

bool changesCodec(const AVPacket& packet)
{
    return av_packet_get_side_data(&packet, AV_PKT_DATA_NEW_EXTRADATA, nullptr) ||
           av_packet_get_side_data(&packet, AV_PKT_DATA_PARAM_CHANGE, nullptr);
}

/// Real copies: packets that share their bytes would be let go by two threads.
std::vector<Packet> copyTail(const std::vector<Packet>& packets, std::size_t count)
{
    std::vector<Packet> copies;
    for (std::size_t i = packets.size() - count; i < packets.size(); ++i) {
        copies.emplace_back(av_packet_clone(packets[i].get()));
        if (!copies.back() || av_packet_make_writable(copies.back().get()) < 0) throw std::bad_alloc();
    }
    return copies;
}

}    // namespace

PacketBatchDecoder::PacketBatchDecoder(std::unique_ptr<PacketInput> input, const CodecSetup& setup,
                                       const BatchPlan& plan)
    : setup_(setup), plan_(plan), input_(std::move(input))
{
    try {
        for (int i = 0; i < plan.threads; ++i)
            threads_.emplace_back([this](std::stop_token stop) { work(stop); });
    } catch (const std::system_error&) {
        if (threads_.empty()) throw;    // else those that could be started do the work
    }
}

PacketBatchDecoder::~PacketBatchDecoder()
{
    for (std::jthread& thread : threads_) thread.request_stop();
    threads_.clear();
}

bool PacketBatchDecoder::next(Block& block)
{
    while (!front_ || at_ == front_->blocks.size())
        if (!advance()) return false;
    std::swap(block, front_->blocks[at_++]);
    return true;
}

// ---- the reader's side

/// Goes on to the next batch. One that met a fault is decoded again from where the batch before it ended, as
/// a single decoder would have gone on.
bool PacketBatchDecoder::advance()
{
    std::unique_ptr<PacketDecoder> before = front_ ? std::move(front_->decoder) : nullptr;
    BatchPtr batch = awaitFront();
    if (!batch) return false;
    if (!batch->clean && before) {
        batch->decoder = std::move(before);
        batch->blocks.clear();
        decodeBody(*batch, {});
    }
    std::swap(front_, batch);
    at_ = 0;
    const std::lock_guard lock(mutex_);
    if (batch) spare_.push_back(std::move(batch));
    return true;
}

PacketBatchDecoder::BatchPtr PacketBatchDecoder::awaitFront()
{
    if (failed_) return nullptr;
    std::unique_lock lock(mutex_);
    moved_.wait(lock, [&] { return batches_.empty() ? ended_ : batches_.front()->done; });
    if (batches_.empty()) return nullptr;
    BatchPtr batch = std::move(batches_.front());
    batches_.pop_front();
    moved_.notify_all();
    failed_ = batch->fault != nullptr;
    if (failed_) std::rethrow_exception(batch->fault);
    return batch;
}

// ---- the threads' side

void PacketBatchDecoder::work(std::stop_token stop)
{
    while (Batch* batch = takeBatch(stop)) {
        std::exception_ptr fault;
        try {
            decode(*batch, stop);
        } catch (...) {
            fault = std::current_exception();
        }
        const std::lock_guard lock(mutex_);
        batch->fault = batch->fault ? batch->fault : fault;
        batch->done = true;
        moved_.notify_all();
    }
}

/// Reads the next batch as soon as there is room for it. One thread at a time, so that they stay in order.
PacketBatchDecoder::Batch* PacketBatchDecoder::takeBatch(std::stop_token stop)
{
    const std::lock_guard input(inputMutex_);
    if (readAll_) return nullptr;
    BatchPtr batch;
    {
        std::unique_lock lock(mutex_);
        const std::size_t most = plan_.threads + waitingBatches;
        const bool hasRoom = moved_.wait(lock, stop, [&] { return batches_.size() < most; });
        if (!hasRoom || stop.stop_requested()) return nullptr;
        batch = spareBatch();
    }
    try {
        readBatch(*batch);
    } catch (...) {
        batch->fault = std::current_exception();
        batch->last = true;
    }
    readAll_ = batch->last;
    const std::lock_guard lock(mutex_);
    ended_ = readAll_;
    batches_.push_back(std::move(batch));
    return batches_.back().get();
}

PacketBatchDecoder::BatchPtr PacketBatchDecoder::spareBatch()
{
    auto batch = spare_.empty() ? std::make_unique<Batch>() : std::move(spare_.back());
    if (!spare_.empty()) spare_.pop_back();
    return batch;
}

void PacketBatchDecoder::readBatch(Batch& batch)
{
    batch.packets = std::move(carried_);
    batch.preroll = batch.packets.size();
    batch.done = batch.last = batch.clean = false;
    batch.fault = nullptr;
    batch.blocks.clear();
    Packet packet(av_packet_alloc());
    std::size_t bytes = 0;
    while (!batch.last && batch.packets.size() < batch.preroll + plan_.packets && bytes < plan_.bytes) {
        batch.last = !input_->read(*packet);
        if (batch.last) break;
        bytes += static_cast<std::size_t>(packet->size);
        changed_ = changed_ || changesCodec(*packet);
        batch.packets.push_back(std::move(packet));
        packet.reset(av_packet_alloc());
    }
    batch.onward = changed_;
    carried_ = copyTail(batch.packets, prerollBefore(batch.packets, setup_.parameters->codec_id));
}

void PacketBatchDecoder::decode(Batch& batch, std::stop_token stop)
{
    if (batch.onward && batch.preroll > 0) return;
    batch.decoder = std::make_unique<PacketDecoder>(setup_);
    bool clean = true;
    for (std::size_t i = 0; i < batch.preroll; ++i)
        clean = batch.decoder->decode(batch.packets[i].get(), nullptr) && clean;
    batch.clean = decodeBody(batch, stop) && clean;
}

bool PacketBatchDecoder::decodeBody(Batch& batch, std::stop_token stop)
{
    bool clean = true;
    for (std::size_t i = batch.preroll; i < batch.packets.size() && !stop.stop_requested(); ++i)
        clean = batch.decoder->decode(batch.packets[i].get(), &batch.blocks) && clean;
    if (batch.last) clean = batch.decoder->decode(nullptr, &batch.blocks) && clean;
    return clean;
}
