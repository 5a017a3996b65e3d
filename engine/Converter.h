// Brings interleaved 16-bit sound from one rate and channel count to another, block by block. Serves readers
// and writers alike.
#pragma once

#include "core/AudioEngine.h"

#include <memory>
#include <span>

struct SwrContext;

class Converter {
public:
    /// Whether anything has to be done at all between these two forms.
    static bool needed(int inRate, int inChannels, int outRate, int outChannels);

    /// How many frames (samples per channel) come out of `frames`, from the first push to the flush.
    static std::int64_t convertedLength(std::int64_t frames, int inRate, int outRate);

    /// Rates in Hz, channels 1 or 2. Throws EngineError for anything else.
    Converter(int inRate, int inChannels, int outRate, int outChannels);
    ~Converter();
    Converter(Converter&&) noexcept;
    Converter& operator=(Converter&&) noexcept;

    /// Converts whole frames and appends what is ready to `out`.
    void push(std::span<const std::int16_t> interleaved, SampleArray& out);

    /// Appends the rest, so that `convertedLength` frames have come out in total. The converter then starts
    /// afresh, as for a new stretch of sound.
    void flush(SampleArray& out);

private:
    struct FreeSwr {
        void operator()(SwrContext* swr) const;
    };

    void start();
    void convertRate(const std::int16_t* frames, int count, SampleArray& out);
    void finishRate(SampleArray& out);
    void append(std::span<const std::int16_t> frames, SampleArray& out) const;

    int inRate_;
    int inChannels_;
    int outRate_;
    int outChannels_;
    int rateChannels_;                            ///< channels while the rate changes
    std::unique_ptr<SwrContext, FreeSwr> swr_;    ///< null where the rate stays
    std::int64_t framesIn_ = 0;
    std::int64_t framesOut_ = 0;
    SampleArray mixed_;        ///< one piece, channels already fewer
    SampleArray resampled_;    ///< one piece at the new rate
};
