// Rule: stored Ogg Vorbis settings become one call on the writer.
#pragma once

#include <QString>

#include <cstdint>
#include <functional>

/// The stored values. The minimum stands in the nominal bitrate's key and is read back for both.
struct OggStored {
    bool qualityOn = false;
    bool vbrOn = false;
    std::int32_t rate = 0;    ///< Hz
    std::int32_t channels = 0;
    std::int32_t quality = 0;       ///< 0 to 1000
    std::int32_t bitrate = 0;       ///< kbit/s, nominal
    std::int32_t minBitrate = 0;    ///< kbit/s
    std::int32_t maxBitrate = 0;    ///< kbit/s
};

/// Arguments of the call that sets the writer up. Quality -1: the bitrates rule.
struct OggCall {
    std::int32_t rate = 44100;
    std::int32_t channels = 2;
    std::int32_t bitrate = 128;
    std::int32_t minBitrate = 0;
    std::int32_t maxBitrate = 0;
    std::int32_t quality = 400;

    bool operator==(const OggCall&) const = default;
};

/// Reads the values by their keys. Throws on a text that is no number.
OggStored readOggStored(const std::function<QString(const char* key)>& value);

/// `accepts` asks the encoder whether it takes a combination; it is not asked in quality mode. Refused
/// bitrates fall back to the stored quality.
OggCall planOgg(const OggStored& stored, const std::function<bool(const OggCall&)>& accepts);
