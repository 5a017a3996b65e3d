// Takes a sound file apart into the packets of one of its streams. One object is one pass from the start.
#pragma once

#include "engine/PacketInput.h"
#include "engine/SourceFile.h"

#include <vector>

extern "C" {
#include <libavformat/avformat.h>
}

class FfmpegInput : public PacketInput {
public:
    /// Throws EngineError where the file is of no kind that we know.
    explicit FfmpegInput(std::shared_ptr<const SourceFile> file);
    ~FfmpegInput() override;
    FfmpegInput(const FfmpegInput&) = delete;
    FfmpegInput& operator=(const FfmpegInput&) = delete;

    /// "wav", "mp3", "ogg", "asf" or "avi".
    QString container() const;

    /// The sound streams in the order of the file.
    std::vector<const AVStream*> soundStreams() const;
    const AVStream& stream(int index) const { return *context_->streams[index]; }

    /// From here on `read` delivers this stream and skips the others.
    void choose(int index);

    bool read(AVPacket& packet) override;

private:
    static int readBytes(void* self, std::uint8_t* to, int bytes);
    static std::int64_t seekBytes(void* self, std::int64_t offset, int whence);
    void openContext();

    std::shared_ptr<const SourceFile> file_;
    std::int64_t start_ = 0;       ///< bytes of leading tags, which no one behind this class sees
    std::int64_t position_ = 0;    ///< bytes from there
    AVIOContext* io_ = nullptr;
    AVFormatContext* context_ = nullptr;
    int chosen_ = -1;
};
