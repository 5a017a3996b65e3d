#include "engine/ChainedVorbis.h"

#include "core/Errors.h"
#include "engine/Converter.h"
#include "engine/FormatText.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <numeric>

namespace {

constexpr std::size_t blockElements = 32 * 1024;
constexpr int bytesPerSample = 2;

// The head of an Ogg page: "OggS", version, flags, 8 bytes of position, the stream's number ...
constexpr std::int64_t pageHeadBytes = 27;
constexpr std::int64_t longestPage = 65307;
constexpr std::size_t flagsAt = 5, numberAt = 14, segmentsAt = 26;
constexpr std::uint8_t firstOfStream = 2;
constexpr int mostStreams = 100;

std::uint32_t numberIn(const std::uint8_t* page)
{
    std::uint32_t number;
    std::memcpy(&number, page + numberAt, sizeof number);
    return number;
}

/// The numbers of the streams that begin with the file.
std::vector<std::uint32_t> firstStreams(const SourceFile& file)
{
    std::vector<std::uint32_t> numbers;
    std::array<std::uint8_t, pageHeadBytes + 255> page{};
    for (std::int64_t at = 0; numbers.size() < mostStreams;) {
        const std::size_t got = file.readAt(at, page.data(), page.size());
        if (got < pageHeadBytes || std::memcmp(page.data(), "OggS", 4) != 0) break;
        if (!(page[flagsAt] & firstOfStream)) break;
        numbers.push_back(numberIn(page.data()));
        const int segments = page[segmentsAt];
        at += pageHeadBytes + segments;
        at += std::accumulate(page.begin() + pageHeadBytes, page.begin() + pageHeadBytes + segments, 0);
    }
    return numbers;
}

/// Whether the last page belongs to a stream that didn't begin with the file.
bool endsInAnotherStream(const SourceFile& file)
{
    std::vector<std::uint8_t> tail(2 * longestPage);
    const std::int64_t from = std::max<std::int64_t>(file.size() - std::int64_t(tail.size()), 0);
    tail.resize(file.readAt(from, tail.data(), tail.size()));
    constexpr std::array<std::uint8_t, 4> mark{'O', 'g', 'g', 'S'};
    const auto last = std::find_end(tail.begin(), tail.end(), mark.begin(), mark.end());
    if (tail.end() - last < pageHeadBytes) return false;
    const auto known = firstStreams(file);
    return std::find(known.begin(), known.end(), numberIn(&*last)) == known.end();
}

}

ChainedVorbis::ChainedVorbis(std::shared_ptr<const SourceFile> file) : file_(std::move(file))
{
    const ov_callbacks calls{&readBytes, &seekBytes, nullptr, &tellBytes};
    if (ov_open_callbacks(this, &vorbis_, nullptr, 0, calls) != 0)
        throw EngineError(QStringLiteral("%1 is no Ogg Vorbis file").arg(file_->path()));
}

ChainedVorbis::~ChainedVorbis()
{
    ov_clear(&vorbis_);
}

std::optional<SoundInfo> ChainedVorbis::inspect(std::shared_ptr<const SourceFile> file)
{
    if (!endsInAnotherStream(*file)) return {};
    try {
        ChainedVorbis chain(file);
        const long links = ov_streams(&chain.vorbis_);
        if (links < 2) return {};
        SoundInfo info;
        info.format = chain.formatOf(0);
        for (int link = 0; link < links; ++link) {
            if (ov_info(&chain.vorbis_, link)->channels > 2) return {};
            info.total += Converter::convertedLength(ov_pcm_total(&chain.vorbis_, link),
                                                     chain.formatOf(link).rate, info.format.rate);
        }
        const std::int64_t bitrate = info.total > 0 ? file->size() * 8 * info.format.rate / info.total : 0;
        info.text = formatText({QStringLiteral("Ogg Vorbis")}, info.format, bitrateText(bitrate));
        return info;
    } catch (const EngineError&) {
        return {};
    }
}

SoundFormat ChainedVorbis::formatOf(int link)
{
    const vorbis_info* info = ov_info(&vorbis_, link);
    return {static_cast<int>(info->rate), info->channels};
}

bool ChainedVorbis::next(Block& block)
{
    block.samples.clear();
    std::swap(block.samples, pending_);
    block.format = pendingFormat_;
    std::array<std::int16_t, 4096> piece;
    while (block.samples.size() < blockElements) {
        int link = 0;
        const long bytes = ov_read(&vorbis_, reinterpret_cast<char*>(piece.data()), sizeof piece, 0,
                                   bytesPerSample, 1, &link);
        if (bytes == OV_HOLE) continue;
        if (bytes <= 0) break;
        const auto format = formatOf(link);
        const bool changed = !block.samples.empty() && format != block.format;
        SampleArray& to = changed ? pending_ : block.samples;
        (changed ? pendingFormat_ : block.format) = format;
        to.insert(to.end(), piece.begin(), piece.begin() + bytes / bytesPerSample);
        if (changed) break;
    }
    return !block.samples.empty();
}

std::size_t ChainedVorbis::readBytes(void* to, std::size_t size, std::size_t count, void* self)
{
    auto& chain = *static_cast<ChainedVorbis*>(self);
    const std::size_t got = chain.file_->readAt(chain.position_, to, size * count);
    chain.position_ += static_cast<std::int64_t>(got);
    return size > 0 ? got / size : 0;
}

int ChainedVorbis::seekBytes(void* self, ogg_int64_t offset, int whence)
{
    auto& chain = *static_cast<ChainedVorbis*>(self);
    if (whence == SEEK_CUR) offset += chain.position_;
    if (whence == SEEK_END) offset += chain.file_->size();
    if (offset < 0) return -1;
    chain.position_ = offset;
    return 0;
}

long ChainedVorbis::tellBytes(void* self)
{
    return static_cast<ChainedVorbis*>(self)->position_;
}
