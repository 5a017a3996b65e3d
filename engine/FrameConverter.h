// Turns what a codec delivers, in any sample format and with any number of channels, into interleaved 16-bit
// sound of one or two channels at the same rate.
#pragma once

#include "engine/Decoder.h"

#include <memory>

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/samplefmt.h>
}

struct AVFrame;
struct SwrContext;

class FrameConverter {
public:
    FrameConverter();
    ~FrameConverter();
    FrameConverter(const FrameConverter&) = delete;
    FrameConverter& operator=(const FrameConverter&) = delete;

    /// Gets ready for a form of sound; `append` does it too. Throws EngineError where its channels can't be
    /// told apart.
    void prepare(AVSampleFormat format, const AVChannelLayout& layout);

    /// What `append` will make of this frame.
    static SoundFormat formatOf(const AVFrame& frame);

    /// Appends the sound of a frame.
    void append(const AVFrame& frame, SampleArray& out);

    /// The same for sound that is in no frame: `planes` as the sample format has them.
    void append(const std::uint8_t* const* planes, int frames, AVSampleFormat format,
                const AVChannelLayout& layout, SampleArray& out);

private:
    struct Free {
        void operator()(SwrContext* swr) const;
    };

    std::unique_ptr<SwrContext, Free> swr_;
    AVSampleFormat format_ = AV_SAMPLE_FMT_NONE;
    AVChannelLayout layout_{};
    int channels_ = 0;    ///< that come out
};
