#include "export/CopyStretch.h"

#include "core/Numbers.h"

#include <algorithm>

void copySamples(AudioFile& reader, AudioFile& writer, std::int32_t length,
                 const std::function<bool(double position)>& goesOn)
{
    double position = 0;
    for (;;) {
        const double remaining = length - position;
        const auto block = remaining < copyBlock ? toLong(remaining) : copyBlock;
        // Kept: the last read is one of 0 samples, thrown away; and a reader that gives nothing before the
        // end keeps the loop going until it is told to stop.
        const SampleArray buffer = reader.ReadArray(block);
        if (position >= length) return;
        writer.WriteArray(buffer);
        position += static_cast<double>(buffer.size()) / reader.GetReadChannels();
        position = std::min<double>(position, length);
        if (!goesOn(position)) return;
    }
}

// The rate is asked for before the channels.
void takeInputFormat(const AudioFile& reader, AudioFile& writer)
{
    const std::int32_t rate = reader.GetOutputRate();
    writer.SetInputFormat(rate, reader.GetChannels());
}
