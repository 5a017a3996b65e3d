// The packets of one sound stream of an AVI file, by a walk of our own: in the same memory however long the
// file is. They are the packets that libavformat makes of it.
#pragma once

#include "engine/AviWalk.h"
#include "engine/PacketInput.h"

#include <memory>

struct AVCodecContext;
struct AVCodecParserContext;

class AviInput : public PacketInput {
public:
    AviInput(std::shared_ptr<const SourceFile> file, const AviFile& avi, const AviSound& sound);
    ~AviInput() override;

    bool read(AVPacket& packet) override;
    bool readToCount(AVPacket& packet) override;

    /// Whether the end that `read` reported may not be that of the sound: the file has parts that aren't
    /// understood here.
    bool lost() const { return walk_.lost() || tooLong_; }

    /// The codec by what the packets so far told, which may not be what the header did.
    AVCodecID codec() const;

private:
    struct FreeParser {
        void operator()(AVCodecParserContext* parser) const;
    };
    struct FreeCodec {
        void operator()(AVCodecContext* codec) const;
    };
    using Bytes = std::vector<std::uint8_t>;

    void chooseCuts(const AviSound& sound);
    bool nextPiece(std::int64_t most);
    bool readPiece(AVPacket& packet);
    bool parse(AVPacket& packet);
    bool fetch();

    std::shared_ptr<const SourceFile> file_;
    AviWalk walk_;
    AviWalk::Stretch chunk_;    ///< what of the current chunk is still to be read
    AviWalk::Stretch piece_;    ///< taken from it
    bool tooLong_ = false;

    std::int64_t pieceBytes_ = 0;      ///< a chunk is cut up into pieces of so many bytes
    std::int64_t countedBytes_ = 0;    ///< the same where only sizes matter
    bool divisible_ = true;            ///< false where a piece must be a whole chunk
    bool sizeTells_ = false;           ///< how much sound is in a packet

    std::unique_ptr<AVCodecContext, FreeCodec> about_;            ///< the parser's notes
    std::unique_ptr<AVCodecParserContext, FreeParser> parser_;    ///< null where a piece is a packet
    Bytes input_;    ///< what the parser works on, with the room behind it that it asks for
    std::size_t inputBytes_ = 0, parsed_ = 0;
    bool ended_ = false;
};
