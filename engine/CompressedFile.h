// Finds out what a compressed file holds, and starts passes over it.
#pragma once

#include "engine/AviCodec.h"
#include "engine/PacketDecoder.h"
#include "engine/PacketInput.h"
#include "engine/SourceFile.h"

struct CompressedFile {
    std::shared_ptr<const SourceFile> file;
    SoundInfo info;
    bool chained = false;    ///< several Ogg Vorbis streams one behind the other
    int stream = 0;          ///< which of the file's streams, and how to decode it; not where it is chained
    CodecSetup codec;
    std::optional<AviSource> avi;    ///< where we walk through it ourselves
};

/// Throws EngineError where there is no sound that can be decoded, and for WMA where it isn't wanted.
CompressedFile inspectFile(std::shared_ptr<const SourceFile> file, bool wmaEnabled);

/// The packets of the sound, from the start. Not where the file is chained.
std::unique_ptr<PacketInput> openPackets(const CompressedFile& file);

/// A pass from the start, on threads of its own.
std::unique_ptr<BlockSource> startDecoding(const CompressedFile& file);
