#include "engine/VorbisEncoder.h"

#include "core/Errors.h"
#include "engine/OutputFile.h"

#include <QRandomGenerator>

#include <vorbis/vorbisenc.h>

#include <algorithm>

namespace {

// The library decides on its blocks by what it has been given so far: pieces of one size, whatever the
// arrays, make the same sound the same file.
constexpr std::size_t pieceFrames = 1024;

/// In bits, -1 for no limit.
long bits(std::int32_t kilobits)
{
    return kilobits > 0 ? kilobits * 1000L : -1;
}

// The library takes any order of the three and then encodes nonsense.
bool bitratesInOrder(const VorbisSettings& settings)
{
    return (settings.minimum <= 0 || settings.minimum <= settings.bitrate) &&
           (settings.maximum <= 0 || settings.bitrate <= settings.maximum);
}

bool hasSoundShape(const VorbisSettings& settings)
{
    return settings.rate >= 1 && (settings.channels == 1 || settings.channels == 2);
}

}

bool VorbisInfo::setUp(const VorbisSettings& settings)
{
    if (!hasSoundShape(settings)) return false;
    if (settings.quality >= 0)
        return vorbis_encode_init_vbr(&info_, settings.channels, settings.rate,
                                      static_cast<float>(settings.quality) / 1000.0F) == 0;
    return bitratesInOrder(settings) &&
           vorbis_encode_init(&info_, settings.channels, settings.rate, bits(settings.maximum),
                              bits(settings.bitrate), bits(settings.minimum)) == 0;
}

bool vorbisAccepts(const VorbisSettings& settings)
{
    return VorbisInfo().setUp(settings);
}

QString VorbisFormat::text() const
{
    const QString shape =
        QString("Ogg Vorbis, %1 Hz, %2, ").arg(settings_.rate).arg(channelText(settings_.channels));
    return settings_.quality >= 0 ? shape + QString("quality %1").arg(settings_.quality / 100.0, 0, 'f', 1)
                                  : shape + QString("%1 kbit/s").arg(settings_.bitrate);
}

std::unique_ptr<Encoder> VorbisFormat::makeEncoder(OutputFile& file) const
{
    const int serial =
        serial_ ? *serial_ : static_cast<int>(QRandomGenerator::system()->generate() & 0x7fffffff);
    return std::make_unique<VorbisEncoder>(file, settings_, serial);
}

VorbisEncoder::VorbisEncoder(OutputFile& file, const VorbisSettings& settings, int serial)
    : file_(file), channels_(static_cast<std::size_t>(settings.channels))
{
    if (!info_.setUp(settings)) throw EngineError("Ogg Vorbis: the encoder refuses these settings");
    vorbis_analysis_init(&analysis_, info_.get());
    vorbis_block_init(&analysis_, &block_);
    ogg_stream_init(&stream_, serial);
    writeHeaders();
}

VorbisEncoder::~VorbisEncoder()
{
    ogg_stream_clear(&stream_);
    vorbis_block_clear(&block_);
    vorbis_dsp_clear(&analysis_);
}

void VorbisEncoder::writeHeaders()
{
    vorbis_comment comment;
    vorbis_comment_init(&comment);
    ogg_packet headers[3];
    vorbis_analysis_headerout(&analysis_, &comment, &headers[0], &headers[1], &headers[2]);
    for (ogg_packet& header : headers) ogg_stream_packetin(&stream_, &header);
    vorbis_comment_clear(&comment);

    // The sound begins on a page of its own.
    ogg_page page;
    while (ogg_stream_flush(&stream_, &page) != 0) writePage(page);
}

void VorbisEncoder::write(std::span<const std::int16_t> samples)
{
    const std::size_t whole = pieceFrames * channels_;
    while (!samples.empty()) {
        const auto part = samples.first(std::min(samples.size(), whole - carry_.size()));
        carry_.insert(carry_.end(), part.begin(), part.end());
        samples = samples.subspan(part.size());
        if (carry_.size() == whole) {
            givePiece(carry_);
            carry_.clear();
        }
    }
}

void VorbisEncoder::finish()
{
    if (!carry_.empty()) givePiece(carry_);
    vorbis_analysis_wrote(&analysis_, 0);
    drain();
}

void VorbisEncoder::givePiece(std::span<const std::int16_t> samples)
{
    const std::size_t frames = samples.size() / channels_;
    float** planes = vorbis_analysis_buffer(&analysis_, static_cast<int>(frames));
    for (std::size_t channel = 0; channel < channels_; ++channel)
        for (std::size_t i = 0; i < frames; ++i)
            planes[channel][i] = static_cast<float>(samples[i * channels_ + channel]) / 32768.0F;
    vorbis_analysis_wrote(&analysis_, static_cast<int>(frames));
    drain();
}

void VorbisEncoder::drain()
{
    ogg_packet packet;
    ogg_page page;
    while (vorbis_analysis_blockout(&analysis_, &block_) == 1) {
        if (vorbis_analysis(&block_, nullptr) != 0 || vorbis_bitrate_addblock(&block_) != 0)
            throw EngineError("Ogg Vorbis: encoding failed");
        while (vorbis_bitrate_flushpacket(&analysis_, &packet) == 1) {
            ogg_stream_packetin(&stream_, &packet);
            while (ogg_stream_pageout(&stream_, &page) != 0) writePage(page);
        }
    }
}

void VorbisEncoder::writePage(const ogg_page& page)
{
    file_.write(page.header, static_cast<std::size_t>(page.header_len));
    file_.write(page.body, static_cast<std::size_t>(page.body_len));
}
