#include "engine/AviWalk.h"

#include <algorithm>

namespace {

constexpr std::int64_t listHeadBytes = 12;    // with the name of its kind
constexpr std::int64_t spareBytes = 1;        // a last chunk may leave out the byte that fills it up

}

AviWalk::AviWalk(const SourceFile& file, const AviFile& avi, int stream)
    : avi_(avi), stream_(stream), size_(file.size()), window_(file), at_(avi.chunksAt)
{}

std::optional<AviWalk::Stretch> AviWalk::next()
{
    while (!lost_ && at_ < size_) {
        const Kind kind = kindAhead();
        if (kind == Kind::unknown || kind == Kind::odd) {
            lost_ = kind == Kind::odd || anythingBehind(at_ + 1);
            at_ = size_;
            break;
        }
        const std::int64_t body = at_ + AviChunk::headBytes;
        at_ = kind == Kind::entered ? at_ + listHeadBytes : body + chunk_.bytes;
        uneven_ = kind != Kind::entered && (chunk_.bytes & 1);
        if (kind == Kind::wanted && body < size_) return Stretch{body, std::min(at_, size_) - body};
    }
    return {};
}

/// What stands behind the chunk before. One of an odd length is mostly, but not always, filled up.
AviWalk::Kind AviWalk::kindAhead()
{
    if (uneven_) {
        const Kind filled = kindAt(at_ + 1);
        if (filled != Kind::unknown) {
            ++at_;
            return filled;
        }
    }
    return kindAt(at_);
}

/// The kind of the chunk that begins there, which is then in `chunk_`.
AviWalk::Kind AviWalk::kindAt(std::int64_t at)
{
    const std::uint8_t* head = window_.look(at, listHeadBytes);
    if (!head) return Kind::unknown;
    chunk_ = AviChunk(head);
    if (chunk_.is("RIFF"))
        return isName(head + 8, "AVIX") || isName(head + 8, "AVI ") ? Kind::entered : Kind::unknown;
    const bool list = chunk_.is("LIST");
    if (list && (isName(head + 8, "movi") || isName(head + 8, "rec "))) return Kind::entered;

    if (at + AviChunk::headBytes + chunk_.bytes > avi_.told + spareBytes) return Kind::unknown;
    if (list || chunk_.is("JUNK") || chunk_.is("idx1") || chunk_.is("indx")) return Kind::skipped;
    if (const int number = chunk_.indexOf(); number >= 0 && number < avi_.streams) return Kind::skipped;
    const int number = chunk_.stream();
    return number >= 0 && number < avi_.streams ? kindOfStream(number) : Kind::unknown;
}

AviWalk::Kind AviWalk::kindOfStream(int number) const
{
    if (chunk_.ends('i', 'x')) return Kind::skipped;
    if (chunk_.ends('w', 'c') || chunk_.name[2] > 127 || chunk_.name[3] > 127) return Kind::odd;
    const bool sound = chunk_.ends('w', 'b');
    if (sound && number == 0 && avi_.pictureFirst) return Kind::odd;    // which stream it means is a guess
    if (number != stream_) return Kind::skipped;
    return !sound ? Kind::odd : chunk_.bytes > 0 ? Kind::wanted : Kind::skipped;
}

/// Whether a chunk of any stream begins somewhere from `at` on. Behind a file that was cut off, or filled up
/// with zeros, there is none.
bool AviWalk::anythingBehind(std::int64_t at)
{
    while (at + listHeadBytes <= size_) {
        const std::uint8_t first = *window_.look(at, listHeadBytes);
        const bool letter = (first >= '0' && first <= '9') || (first >= 'A' && first <= 'i');
        const Kind kind = letter ? kindAt(at) : Kind::unknown;
        if (kind != Kind::unknown && (kind != Kind::skipped || chunk_.stream() >= 0)) return true;
        at += kind == Kind::skipped ? AviChunk::headBytes + std::int64_t(chunk_.bytes) : 1;
    }
    return false;
}
