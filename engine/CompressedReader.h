// A compressed file as a Decoder: one pass over it at a time, begun again when the position goes back, and
// one form of sound throughout, even where the file changes its own midway.
#pragma once

#include "engine/CompressedFile.h"
#include "engine/Converter.h"

#include <optional>

class CompressedReader : public Decoder {
public:
    explicit CompressedReader(CompressedFile file);

    const SoundInfo& info() const override { return file_.info; }
    void read(SampleArray& out, std::int64_t frames) override;
    void seek(std::int64_t frame) override;

private:
    bool refill();
    void takeBlock();
    void flushConverter();

    CompressedFile file_;
    std::unique_ptr<BlockSource> source_;    ///< null until something is read
    bool ended_ = false;
    Block block_;
    SampleArray ready_;    ///< in the file's first form, read up to `at_`
    std::size_t at_ = 0;
    std::int64_t position_ = 0;             ///< frames, where reading goes on
    std::int64_t skip_ = 0;                 ///< frames to drop until then
    std::optional<Converter> converter_;    ///< while the file is in another form
    SoundFormat foreign_;                   ///< that form
};
