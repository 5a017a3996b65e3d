#include "engine/WavWriter.h"

#include "core/Errors.h"
#include "engine/OutputFile.h"

#include <array>
#include <bit>
#include <cstring>
#include <limits>

static_assert(std::endian::native == std::endian::little, "WAV samples are written as they lie in memory");

namespace {

/// The fixed header: a chunk of room that becomes `ds64`, then the format, then the data.
struct Header {
    char riff[4] = {'R', 'I', 'F', 'F'};
    std::uint32_t riffBytes = 0xffffffff;
    char wave[4] = {'W', 'A', 'V', 'E'};
    char room[4] = {'J', 'U', 'N', 'K'};
    std::uint32_t roomBytes = 28;
    std::array<std::uint32_t, 7>
        sizes64{};    // RIFF bytes, data bytes, samples: low half first; table length
    char fmt[4] = {'f', 'm', 't', ' '};
    std::uint32_t fmtBytes = 16;
    std::uint16_t formatTag = 1;
    std::uint16_t channels = 0;
    std::uint32_t rate = 0;
    std::uint32_t bytesPerSecond = 0;
    std::uint16_t bytesPerFrame = 0;
    std::uint16_t bits = 16;
    char data[4] = {'d', 'a', 't', 'a'};
    std::uint32_t dataBytes = 0xffffffff;
};
static_assert(sizeof(Header) == 80);

/// Without sizes: a file that is never completed reads to its end.
Header openHeader(std::int32_t rate, std::int32_t channels)
{
    Header header;
    header.channels = static_cast<std::uint16_t>(channels);
    header.rate = static_cast<std::uint32_t>(rate);
    header.bytesPerFrame = static_cast<std::uint16_t>(2 * channels);
    header.bytesPerSecond = header.rate * header.bytesPerFrame;
    return header;
}

void set64(Header& header, std::size_t index, std::uint64_t value)
{
    header.sizes64[index] = static_cast<std::uint32_t>(value);
    header.sizes64[index + 1] = static_cast<std::uint32_t>(value >> 32);
}

void setSizes(Header& header, std::uint64_t fileBytes)
{
    // After a failed write the last sample may be there in part.
    const std::uint64_t dataBytes =
        (fileBytes - sizeof(Header)) / header.bytesPerFrame * header.bytesPerFrame;
    if (fileBytes <= std::numeric_limits<std::uint32_t>::max()) {
        header.riffBytes = static_cast<std::uint32_t>(fileBytes - 8);
        header.dataBytes = static_cast<std::uint32_t>(dataBytes);
        return;
    }
    std::memcpy(header.riff, "RF64", 4);
    std::memcpy(header.room, "ds64", 4);
    set64(header, 0, fileBytes - 8);
    set64(header, 2, dataBytes);
    set64(header, 4, dataBytes / header.bytesPerFrame);
}

}

WavFormat::WavFormat(std::int32_t rate, std::int32_t channels, std::int32_t bits)
    : rate_(rate), channels_(channels)
{
    if (rate < 1 || channels < 1 || channels > 2 || bits != 16)
        throw EngineError("WAV: format not supported");
}

QString WavFormat::text() const
{
    return QString("WAV, %1 Hz, %2, 16 bits").arg(rate_).arg(channelText(channels_));
}

std::unique_ptr<Encoder> WavFormat::makeEncoder(OutputFile& file) const
{
    return std::make_unique<WavWriter>(file, rate_, channels_);
}

WavWriter::WavWriter(OutputFile& file, std::int32_t rate, std::int32_t channels)
    : file_(file), rate_(rate), channels_(channels)
{
    const Header header = openHeader(rate, channels);
    file_.write(&header, sizeof header);
}

void WavWriter::write(std::span<const std::int16_t> samples)
{
    file_.write(samples.data(), samples.size_bytes());
}

void WavWriter::writeSilence(std::int64_t frames)
{
    file_.skip(frames * channels_ * 2);
}

void WavWriter::finish()
{
    // Whatever reached a full disk shall be readable: the file itself tells of the failure when it closes.
    skipFaults([&] { file_.flush(); });
    if (file_.size() < static_cast<std::int64_t>(sizeof(Header))) return;
    Header header = openHeader(rate_, channels_);
    setSizes(header, static_cast<std::uint64_t>(file_.size()));
    file_.writeAt(0, &header, sizeof header);
}
