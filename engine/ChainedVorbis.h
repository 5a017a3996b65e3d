// Ogg files that are several Vorbis streams one behind the other, as recorded broadcasts are. Each of them
// brings its own rate and channels.
#pragma once

#include "engine/Decoder.h"
#include "engine/SourceFile.h"

#include <vorbis/vorbisfile.h>

#include <memory>
#include <optional>

class ChainedVorbis : public BlockSource {
public:
    /// What such a file holds; empty where it is a single stream, or something else altogether.
    static std::optional<SoundInfo> inspect(std::shared_ptr<const SourceFile> file);

    /// Throws EngineError where there is no Vorbis stream.
    explicit ChainedVorbis(std::shared_ptr<const SourceFile> file);
    ~ChainedVorbis() override;
    ChainedVorbis(const ChainedVorbis&) = delete;
    ChainedVorbis& operator=(const ChainedVorbis&) = delete;

    bool next(Block& block) override;

private:
    SoundFormat formatOf(int link);

    std::shared_ptr<const SourceFile> file_;
    std::int64_t position_ = 0;
    OggVorbis_File vorbis_;
    SampleArray pending_;    ///< read already, but of another form than the block before it
    SoundFormat pendingFormat_;

    static std::size_t readBytes(void* to, std::size_t size, std::size_t count, void* self);
    static int seekBytes(void* self, ogg_int64_t offset, int whence);
    static long tellBytes(void* self);
};
