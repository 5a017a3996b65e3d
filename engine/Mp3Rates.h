// The sample rates that MP3 knows, and the bitrates at each.
#pragma once

#include <cstdint>

/// The nearest of the nine rates from 8000 to 48000 Hz.
std::int32_t nearestMp3Rate(double rate);

/// The bitrate that the encoder takes in place of another, kbit/s: the nearest that MP3 has at one of the
/// nine rates, of two as near the lower one.
std::int32_t nearestMp3Bitrate(std::int32_t rate, std::int32_t kbit);
