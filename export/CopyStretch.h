// Rule: the loop that copies a stretch from the reader, where it stands, to the writer.
#pragma once

#include "core/AudioEngine.h"

#include <functional>

inline constexpr std::int32_t copyBlock = 100000;    ///< samples per channel at most in one array

/// Copies `length` samples. `goesOn` is told after each block how many are copied; when it says no the loop
/// ends, with that block written. The last read is always one of 0 samples. Where the reader gives nothing
/// before the end, the loop goes on until it is told to stop.
void copySamples(AudioFile& reader, AudioFile& writer, std::int32_t length,
                 const std::function<bool(double position)>& goesOn);

/// Tells the writer the rate and the channels of the arrays that the reader delivers.
void takeInputFormat(const AudioFile& reader, AudioFile& writer);
