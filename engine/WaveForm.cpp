#include "engine/WaveForm.h"

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/intreadwrite.h>
}

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace {

constexpr std::size_t shortestBytes = 16;      // up to the bits of a sample
constexpr std::size_t extraAt = 18;            // where the codec's own bytes begin
constexpr std::size_t extensibleBytes = 22;    // of those, in the extensible form
constexpr std::uint16_t extensibleTag = 0xfffe;
constexpr std::uint16_t irregularTags[] = {0x165, 0x166};    // laid out in other ways

// A sub-format that is a plain tag ends like this.
constexpr std::array<std::uint8_t, 12> tagTail{0, 0, 0x10, 0, 0x80, 0, 0, 0xaa, 0, 0x38, 0x9b, 0x71};

AVCodecID pcmOf(int bits)
{
    constexpr AVCodecID byBytes[] = {AV_CODEC_ID_PCM_U8, AV_CODEC_ID_PCM_S16LE, AV_CODEC_ID_PCM_S24LE,
                                     AV_CODEC_ID_PCM_S32LE};
    const int bytes = (bits + 7) / 8;
    if (bytes == 8) return AV_CODEC_ID_PCM_S64LE;
    return bytes >= 1 && bytes <= 4 ? byBytes[bytes - 1] : AV_CODEC_ID_NONE;
}

AVCodecID floatOf(int bits)
{
    return bits == 32 ? AV_CODEC_ID_PCM_F32LE : bits == 64 ? AV_CODEC_ID_PCM_F64LE : AV_CODEC_ID_NONE;
}

AVCodecID codecOf(unsigned tag, int bits)
{
    const AVCodecTag* const tags[] = {avformat_get_riff_audio_tags(), nullptr};
    const AVCodecID codec = av_codec_get_id(tags, tag);
    if (codec == AV_CODEC_ID_PCM_S16LE) return pcmOf(bits);
    if (codec == AV_CODEC_ID_PCM_F32LE) return floatOf(bits);
    return codec;
}

/// Codecs whose header has a meaning of its own.
bool isIrregular(unsigned tag, const AVCodecParameters& codec)
{
    const bool oddTag =
        std::find(std::begin(irregularTags), std::end(irregularTags), tag) != std::end(irregularTags);
    return oddTag || codec.codec_id == AV_CODEC_ID_AAC_LATM || codec.codec_id == AV_CODEC_ID_ADPCM_G726 ||
           (codec.codec_id == AV_CODEC_ID_ADPCM_IMA_WAV && codec.bits_per_coded_sample == 8);
}

void takeLayout(std::uint32_t mask, int channels, AVCodecParameters& codec)
{
    if (mask != 0 && av_channel_layout_from_mask(&codec.ch_layout, mask) == 0 &&
        codec.ch_layout.nb_channels == channels)
        return;
    av_channel_layout_uninit(&codec.ch_layout);
    codec.ch_layout.order = AV_CHANNEL_ORDER_UNSPEC;
    codec.ch_layout.nb_channels = channels;
}

void takeExtra(std::span<const std::uint8_t> extra, AVCodecParameters& codec)
{
    if (extra.empty()) return;
    codec.extradata = static_cast<std::uint8_t*>(av_mallocz(extra.size() + AV_INPUT_BUFFER_PADDING_SIZE));
    if (!codec.extradata) throw std::bad_alloc();
    std::memcpy(codec.extradata, extra.data(), extra.size());
    codec.extradata_size = static_cast<int>(extra.size());
}

void takeNumbers(const std::uint8_t* form, AVCodecParameters& codec)
{
    const std::int64_t bits = std::int64_t(AV_RL32(form + 8)) * 8;
    codec.codec_type = AVMEDIA_TYPE_AUDIO;
    codec.sample_rate = static_cast<int>(AV_RL32(form + 4));
    codec.bit_rate = bits <= std::numeric_limits<int>::max() ? bits : 0;
    codec.block_align = AV_RL16(form + 12);
    codec.bits_per_coded_sample = AV_RL16(form + 14);
}

}    // namespace

CodecSetup parseWaveForm(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() < shortestBytes) return {};
    const std::uint8_t* form = bytes.data();
    const auto codec = newParameters();
    takeNumbers(form, *codec);
    std::size_t extra = bytes.size() >= extraAt ? AV_RL16(form + 16) : 0;
    extra = std::min(extra, bytes.size() - std::min(bytes.size(), extraAt));
    std::span<const std::uint8_t> own = extra > 0 ? bytes.subspan(extraAt, extra) : bytes.first(0);
    unsigned tag = AV_RL16(form);
    std::uint32_t mask = 0;
    if (tag == extensibleTag) {
        if (extra < extensibleBytes || std::memcmp(&own[10], tagTail.data(), tagTail.size()) != 0) return {};
        if (AV_RL16(&own[0]) != 0) codec->bits_per_coded_sample = AV_RL16(&own[0]);
        mask = AV_RL32(&own[2]);
        tag = AV_RL32(&own[6]);
        own = own.subspan(extensibleBytes);
    }
    codec->codec_tag = tag;
    codec->codec_id = codecOf(tag, codec->bits_per_coded_sample);
    if (codec->sample_rate <= 0 || codec->sample_rate > mostRate || isIrregular(tag, *codec)) return {};
    takeLayout(mask, AV_RL16(form + 2), *codec);
    takeExtra(own, *codec);
    return {codec, {1, codec->sample_rate}};
}
