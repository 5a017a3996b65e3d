// Samples to seconds, and seconds to the texts that the window shows.
#pragma once

#include <QString>

#include <cmath>
#include <cstdint>

/// Samples in a number of milliseconds, rounded.
std::int32_t MilliSecondsToSamplesS(std::int32_t NumMilliSeconds, std::int32_t SampleRate);

/// Whole seconds, rounded: the length can come out half a second too long.
std::int32_t SampleToSeconde(std::int32_t Frames, std::int32_t SampleRate);

/// Seconds, not rounded. Throws on a rate of 0.
double SampleToSecondeD(std::int32_t Frames, std::int32_t SampleRate);

/// Logarithm to the base of 10. Nothing calls it.
double Log10(double number);

/// "mm:ss.cc", the form of all times of parts.
QString FormatSeconds(double seconds);

/// `FormatSeconds` of a position.
QString sampleText(std::int32_t sample, std::int32_t rate);

/// The form of the ruler: milliseconds without their leading zeros, cut to two characters.
QString FormatRulerTime(std::int32_t ms);

/// The form of the file's duration.
QString durationText(std::int32_t ms);

/// The position as a click leaves it: as on the ruler, with a fraction of one or two characters.
QString positionText(std::int32_t ms);

/// The position while the player runs. Kept: three decimals, where a click leaves two.
QString playingText(std::int32_t ms);

inline constexpr const char* zeroTime = "00:00.00";
