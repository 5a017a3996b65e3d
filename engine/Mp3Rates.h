// The sample rates that MP3 knows.
#pragma once

#include <cstdint>

/// The nearest of the nine rates from 8000 to 48000 Hz.
std::int32_t nearestMp3Rate(double rate);
