#include "export/OggPlan.h"

#include "core/Numbers.h"

OggStored readOggStored(const std::function<QString(const char* key)>& value)
{
    OggStored stored;
    stored.qualityOn = parseLong(value("1")) == 1;
    stored.vbrOn = parseLong(value("2")) == 1;
    stored.rate = parseLong(value("3"));
    stored.channels = parseLong(value("4"));
    stored.quality = parseLong(value("5"));
    stored.bitrate = parseLong(value("6"));
    stored.minBitrate =
        parseLong(value("6"));    // Kept: one key for both, so the minimum is what survives in it
    stored.maxBitrate = parseLong(value("7"));
    return stored;
}

OggCall planOgg(const OggStored& s, const std::function<bool(const OggCall&)>& accepts)
{
    const OggCall byQuality{.rate = s.rate, .channels = s.channels, .quality = s.quality};
    if (s.qualityOn) return byQuality;
    const OggCall byBitrate{
        s.rate, s.channels, s.bitrate, s.vbrOn ? s.minBitrate : 0, s.vbrOn ? s.maxBitrate : 0, -1};
    return accepts(byBitrate) ? byBitrate : byQuality;
}
