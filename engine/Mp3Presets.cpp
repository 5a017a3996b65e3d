#include "engine/Mp3Presets.h"

#include "engine/LameFormat.h"

#include <array>

namespace {

//    name        rate ch vbr  abr  q  kbit lowpass max  quality
constexpr std::array presets = {
    Mp3Preset{"phone", 16000, 1, 4, 16, -1, 16, 5550, 160},
    Mp3Preset{"sw", 16000, 1, 4, 24, -1, 24, 5850, 160},
    Mp3Preset{"am", 24000, 1, 4, 40, -1, 40, 10500, 160},
    Mp3Preset{"fm", 44100, 2, 4, 112, -1, 112, 15600, 320},
    Mp3Preset{"voice", 32000, 1, 4, 56, -1, 56, 15000, 320},
    Mp3Preset{"radio", 44100, 2, 4, 112, -1, 112, 15600, 320},
    Mp3Preset{"tape", 44100, 2, 4, 112, -1, 112, 15600, 320},
    Mp3Preset{"hifi", 44100, 2, 4, 160, -1, 160, 17500, 320},
    Mp3Preset{"cd", 44100, 2, 4, 192, -1, 192, 18600, 320},
    Mp3Preset{"studio", 44100, 2, 4, 256, -1, 256, 19700, 320},
    Mp3Preset{"r3mix", 44100, 2, 3, 0, 3, 0, 18000, 320},
};

// The encoder knows no difference between the fast kind and the other any more; the numbers stay apart.
constexpr std::array altPresets = {
    Mp3Preset{"fast standard", 44100, 2, 3, 0, 2, 0, 18500, 320},
    Mp3Preset{"standard", 44100, 2, 3, 0, 2, 0, 18500, 320},
    Mp3Preset{"fast extreme", 44100, 2, 3, 0, 0, 0, 22050, 320},
    Mp3Preset{"extreme", 44100, 2, 3, 0, 0, 0, 22050, 320},
    Mp3Preset{"insane", 44100, 2, -1, 0, -1, 320, 20500, 320},
};

struct Alias {
    const char* name;
    const char* preset;
};
constexpr Alias aliases[] = {{"phon+", "sw"}, {"lw", "sw"}, {"mw-eu", "sw"}, {"mw-us", "am"}};

QString withoutAlias(const QString& name)
{
    for (const Alias& alias : aliases)
        if (name == alias.name) return alias.preset;
    return name;
}

template <typename Table>
const Mp3Preset* byNumber(const Table& table, std::int32_t number)
{
    if (number < 1 || number > static_cast<std::int32_t>(table.size())) return nullptr;
    return &table[static_cast<std::size_t>(number) - 1];
}

template <typename Table>
const Mp3Preset* byName(const Table& table, const QString& name)
{
    for (const Mp3Preset& preset : table)
        if (name == preset.name) return &preset;
    return nullptr;
}

}

const Mp3Preset* findPreset(std::int32_t number)
{
    return byNumber(presets, number);
}

const Mp3Preset* findAltPreset(std::int32_t number)
{
    return byNumber(altPresets, number);
}

const Mp3Preset* findPresetByName(const QString& name)
{
    const QString plain = withoutAlias(name.toLower());
    const Mp3Preset* preset = byName(presets, plain);
    return preset != nullptr ? preset : byName(altPresets, plain);
}

void applyPreset(Mp3Format& format, const Mp3Preset& preset)
{
    LameFormat fresh;
    fresh.FormatRate = preset.rate;
    fresh.FormatChannels = preset.channels;
    fresh.VbrMethod = preset.vbrMethod;
    fresh.LowpassFrequency = preset.lowpass;
    fresh.MaxVbrBitrate = preset.maxVbrBitrate;
    fresh.AbrBitrate = preset.abrBitrate != 0 ? preset.abrBitrate : format.AbrBitrate;
    fresh.FormatBitrate = preset.bitrate != 0 ? preset.bitrate : format.FormatBitrate;
    fresh.VbrQuality = preset.vbrQuality >= 0 ? preset.vbrQuality : format.VbrQuality;
    format = static_cast<const Mp3Format&>(fresh);
}
