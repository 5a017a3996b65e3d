#include "engine/Mp3Encoder.h"
#include "engine/Mp3Rates.h"

#include <algorithm>

namespace {

void applyShape(const Mp3Format& properties, const LameApi& api, lame_t lame)
{
    static constexpr MPEG_mode modes[] = {STEREO, JOINT_STEREO, JOINT_STEREO, DUAL_CHANNEL};
    const int rate = nearestMp3Rate(properties.FormatRate);
    const bool mono = properties.FormatChannels <= 1;
    const int stereo = std::clamp(properties.StereoMode, 1, 4);
    api.setInSamplerate(lame, rate);
    api.setOutSamplerate(lame, rate);
    api.setNumChannels(lame, mono ? 1 : 2);
    api.setMode(lame, mono ? MONO : modes[stereo - 1]);
    api.setForceMs(lame, !mono && stereo == 3);
}

void applyBitrate(const Mp3Format& properties, const LameApi& api, lame_t lame)
{
    static constexpr vbr_mode methods[] = {vbr_off, vbr_default, vbr_rh, vbr_mt, vbr_mtrh, vbr_abr};
    const int bitrate = std::clamp(properties.FormatBitrate, 8, 320);
    const vbr_mode method = methods[std::clamp(properties.VbrMethod, -1, 4) + 1];
    api.setVbr(lame, method);
    if (method == vbr_off) {
        api.setBrate(lame, bitrate);
        return;
    }
    api.setVbrQuality(lame, std::clamp<int>(properties.VbrQuality, 0, 9));
    api.setVbrMeanBitrate(lame, std::clamp<int>(properties.AbrBitrate, 4, 320));
    api.setVbrMaxBitrate(lame, std::clamp(properties.MaxVbrBitrate, 8, 320));
    if (properties.EnforceMinBitrate) {
        api.setVbrHardMin(lame, 1);
        api.setVbrMinBitrate(lame, bitrate);
    }
}

/// -1 off, 0 left to LAME.
void applyFilters(const Mp3Format& properties, const LameApi& api, lame_t lame)
{
    api.setHighpassFrequency(lame, std::max(properties.HighpassFrequency, -1));
    api.setLowpassFrequency(lame, std::max(properties.LowpassFrequency, -1));
    if (properties.HighpassWidth > 0) api.setHighpassWidth(lame, properties.HighpassWidth);
    if (properties.LowpassWidth > 0) api.setLowpassWidth(lame, properties.LowpassWidth);
}

void applyExpert(const Mp3Format& properties, const LameApi& api, lame_t lame)
{
    static constexpr int emphasis[] = {0, 1, 3};
    api.setQuality(lame, std::clamp(9 - properties.EncoderQuality, 0, 9));
    api.setDisableReservoir(lame, !properties.BitReservoir);
    // One field of LAME behind both: whether the channels may differ comes first. Not for mono, where LAME
    // would ask the second channel all the same, and decide by whatever it finds there.
    if (properties.FormatChannels > 1) api.setAllowDiffShort(lame, properties.DifferentBlockTypes);
    if (!properties.ShortBlocks) api.setNoShortBlocks(lame, 1);
    if (properties.IsoCompliance) api.setStrictIso(lame, 1);
    api.setErrorProtection(lame, properties.ErrorProtection);
    api.setEmphasis(lame, emphasis[std::clamp<int>(properties.Emphasis, 0, 2)]);
    const int ath = properties.AthControl;
    api.setAthOnly(lame, ath == 1);
    api.setNoAth(lame, ath == 2);
    api.setAthShort(lame, ath >= 3);
    api.setWriteVbrTag(lame, properties.WriteVbrHeader);
}

}

void applyToLame(const Mp3Format& properties, const LameApi& api, lame_t lame)
{
    applyShape(properties, api, lame);
    applyBitrate(properties, api, lame);
    applyFilters(properties, api, lame);
    applyExpert(properties, api, lame);
    api.setWriteId3tagAutomatic(lame, 0);
    api.setFindReplayGain(lame, 0);
}
