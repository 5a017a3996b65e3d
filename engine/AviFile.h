// What the header of an AVI file tells: its streams, how their sound is coded, and where the chunks begin.
#pragma once

#include "engine/PacketDecoder.h"
#include "engine/SourceFile.h"

#include <optional>

/// One sound stream.
struct AviSound {
    int stream = 0;       ///< its number, by which its chunks are named
    CodecSetup codec;     ///< as the header has it
    int unitBytes = 0;    ///< a chunk is a row of units of so many bytes; 0 where it is one unit itself
};

struct AviFile {
    int streams = 0;                 ///< of any kind
    std::vector<AviSound> sounds;    ///< in the order of the file
    bool pictureFirst = false;       ///< stream 0 is one of pictures
    std::int64_t chunksAt = 0;       ///< where the first chunk of a stream may lie
    std::int64_t told = 0;    ///< the file's length: on disk, or as its header has it where that is more
};

/// Empty where the file is no AVI, or one of an uncommon build that only libavformat reads.
std::optional<AviFile> findAviFile(const SourceFile& file);
