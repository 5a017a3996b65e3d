// WMA 2 in an ASF file, by FFmpeg.
#pragma once

#include "engine/Encoder.h"
#include "engine/WmaProfiles.h"

#include <exception>
#include <vector>

struct AVCodecContext;
struct AVFormatContext;
struct AVFrame;
struct AVIOContext;
struct AVPacket;
struct AVStream;

class WmaFormat : public OutputFormat {
public:
    /// Throws EngineError for a number that is no profile's.
    explicit WmaFormat(std::int32_t profile) : profile_(wmaProfile(profile)) {}

    std::int32_t rate() const override { return profile_.rate; }
    std::int32_t channels() const override { return profile_.channels; }
    QString text() const override { return profile_.text(); }
    std::unique_ptr<Encoder> makeEncoder(OutputFile& file) const override;

private:
    const WmaProfile& profile_;
};

class WmaEncoder : public Encoder {
public:
    WmaEncoder(OutputFile& file, const WmaProfile& profile);
    ~WmaEncoder() override;

    void write(std::span<const std::int16_t> samples) override;
    void finish() override;

private:
    void openCodec(const WmaProfile& profile);
    void openContainer(const WmaProfile& profile);
    void openStreamToFile();
    void padFrame();
    void encodeFrame();
    void drain(AVFrame* frame);
    void check(int result, const char* step);

    static int writeBytes(void* self, std::uint8_t* bytes, int count);
    static std::int64_t seekBytes(void* self, std::int64_t offset, int whence);

    template <typename T>
    using Owned = std::unique_ptr<T, void (*)(T*)>;

    OutputFile& file_;
    std::int64_t position_ = 0;       // of the container's writing, bytes
    std::exception_ptr fileError_;    // what the file threw below the container
    Owned<AVCodecContext> codec_;
    Owned<AVIOContext> io_;
    Owned<AVFormatContext> container_;
    Owned<AVFrame> frame_;
    Owned<AVPacket> packet_;
    AVStream* stream_ = nullptr;
    int filled_ = 0;    // samples per channel in the frame
    std::int64_t frameStart_ = 0;
};
