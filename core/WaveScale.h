// Sample to x on the waveform and back. The width is read anew at each use, so the same two lines hold at
// every zoom level.
#pragma once

#include "core/Numbers.h"

/// Position of a sample in twips, in double precision; 0 while there is no file.
inline double xOfSample(double width, std::int32_t total, double sample)
{
    return total == 0 ? 0 : width / total * sample;
}

/// The same, as stored in a line or an image.
inline Twips twipsOfSample(Twips width, std::int32_t total, double sample)
{
    return static_cast<Twips>(xOfSample(width, total, sample));
}

/// Sample at a position, rounded.
inline std::int32_t sampleOfX(Twips width, std::int32_t total, double x)
{
    return toLong(static_cast<double>(total) / width * x);
}
