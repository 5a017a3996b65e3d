// Goes through an AVI file from chunk to chunk and stops at those of one sound stream. It reads little more
// than the heads of the others, and remembers none.
#pragma once

#include "engine/AviChunk.h"
#include "engine/AviFile.h"
#include "engine/FileWindow.h"

class AviWalk {
public:
    /// Where the bytes of a chunk lie; those that the file no longer has are not counted.
    struct Stretch {
        std::int64_t at = 0;
        std::int64_t bytes = 0;
    };

    AviWalk(const SourceFile& file, const AviFile& avi, int stream);

    /// The next chunk of the stream that isn't empty. Empty at the end, and where the way is lost.
    std::optional<Stretch> next();

    /// Whether the walk ended ahead of chunks that it doesn't reach.
    bool lost() const { return lost_; }

    /// For reading what the stretches hold; near the heads, so mostly without a look at the file.
    FileWindow& window() { return window_; }

private:
    enum class Kind { unknown, entered, skipped, wanted, odd };

    Kind kindAt(std::int64_t at);
    Kind kindOfStream(int number) const;
    Kind kindAhead();
    bool anythingBehind(std::int64_t at);

    AviFile avi_;
    int stream_;
    std::int64_t size_;    ///< of the file on disk
    FileWindow window_;
    std::int64_t at_;        ///< where the chunk before ends
    bool uneven_ = false;    ///< that one's length; a byte that fills it up may follow
    AviChunk chunk_;         ///< at `at_`
    bool lost_ = false;
};
