#include "engine/WavLayout.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr int mostChunks = 10000;    // ahead of the sound; a damaged file could name millions
constexpr std::uint32_t unknownSize = 0xffffffff;

struct Chunk {
    char id[4];
    std::uint32_t bytes;
    bool is(const char* name) const { return std::memcmp(id, name, 4) == 0; }
};

struct WavForm {
    std::uint16_t tag;
    std::uint16_t channels;
    std::uint32_t rate;
    std::uint32_t bytesPerSecond;
    std::uint16_t frameBytes;
    std::uint16_t bits;
    // only where the tag is the extensible one
    std::uint16_t extraBytes;
    std::uint16_t validBits;
    std::uint16_t channelMaskLow;
    std::uint16_t channelMaskHigh;
    std::uint16_t subTag;
};
constexpr std::uint16_t extensibleTag = 0xfffe;
constexpr std::size_t extensibleBytes = 40;

struct Kind {
    std::uint16_t tag;
    int bytes;
    WavLayout::Sample sample;
};
constexpr Kind kinds[] = {
    {1, 1, WavLayout::Sample::unsigned8}, {1, 2, WavLayout::Sample::signed16},
    {1, 3, WavLayout::Sample::signed24},  {1, 4, WavLayout::Sample::signed32},
    {3, 4, WavLayout::Sample::float32},   {3, 8, WavLayout::Sample::float64},
};

/// Bytes of one sample. Some programs keep 24 bits in four bytes; the frame's size tells.
int sampleBytes(const WavForm& form)
{
    const int byBits = (form.bits + 7) / 8;
    const int byFrame = form.frameBytes % form.channels == 0 ? form.frameBytes / form.channels : 0;
    return byFrame >= byBits ? byFrame : byBits;
}

bool takeForm(const WavForm& form, std::size_t bytes, WavLayout& layout)
{
    if (form.channels == 0 || form.rate == 0 || form.rate > mostRate) return false;
    const bool extensible = form.tag == extensibleTag && bytes >= extensibleBytes;
    const std::uint16_t tag = extensible ? form.subTag : form.tag;
    const int each = sampleBytes(form);
    const auto* kind = std::find_if(std::begin(kinds), std::end(kinds),
                                    [&](const Kind& k) { return k.tag == tag && k.bytes == each; });
    if (kind == std::end(kinds)) return false;

    layout.sample = kind->sample;
    layout.rate = static_cast<int>(form.rate);
    layout.channels = form.channels;
    layout.bits = form.bits > 0 ? form.bits : 8 * each;
    layout.frameBytes = each * form.channels;
    if (extensible) layout.channelMask = form.channelMaskLow | std::uint32_t(form.channelMaskHigh) << 16;
    return true;
}

/// The length told for the sound: 0 and all ones stand for a file whose writer never came back to the header.
void takeData(std::int64_t start, std::int64_t told, std::int64_t fileBytes, WavLayout& layout)
{
    const std::int64_t there = std::max<std::int64_t>(fileBytes - start, 0);
    layout.dataStart = start;
    layout.dataBytes = told <= 0 || told == unknownSize ? there : std::min(told, there);
}

bool isWave(const SourceFile& file)
{
    std::array<char, 12> head;
    if (file.readAt(0, head.data(), head.size()) != head.size()) return false;
    const bool family = !std::memcmp(head.data(), "RIFF", 4) || !std::memcmp(head.data(), "RF64", 4) ||
                        !std::memcmp(head.data(), "BW64", 4);
    return family && !std::memcmp(head.data() + 8, "WAVE", 4);
}

}    // namespace

std::optional<WavLayout> findWavLayout(const SourceFile& file)
{
    if (!isWave(file)) return {};
    WavLayout layout;
    bool haveForm = false;
    std::int64_t longData = 0;    // of a file beyond 4 GiB
    std::int64_t at = 12;
    for (int i = 0; i < mostChunks; ++i) {
        Chunk chunk;
        if (file.readAt(at, &chunk, sizeof chunk) != sizeof chunk) return {};
        at += sizeof chunk;
        if (chunk.is("data")) {
            if (!haveForm) return {};
            takeData(at, chunk.bytes == unknownSize && longData > 0 ? longData : chunk.bytes, file.size(),
                     layout);
            return layout;
        }
        if (chunk.is("ds64")) {
            file.readAt(at + 8, &longData, sizeof longData);
        } else if (chunk.is("fmt ")) {
            WavForm form{};
            file.readAt(at, &form, std::min<std::size_t>(chunk.bytes, sizeof form));
            haveForm = takeForm(form, chunk.bytes, layout);
            if (!haveForm) return {};
        }
        at += chunk.bytes + std::int64_t(chunk.bytes & 1);
    }
    return {};
}
