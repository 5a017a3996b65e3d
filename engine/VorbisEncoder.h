// Ogg Vorbis by libvorbisenc.
#pragma once

#include "engine/Encoder.h"

#include <ogg/ogg.h>
#include <vorbis/codec.h>

#include <optional>
#include <vector>

/// What the user chose for Ogg Vorbis. Bitrates in kbit/s, 0 for no limit.
struct VorbisSettings {
    std::int32_t rate = 44100;
    std::int32_t channels = 2;
    std::int32_t bitrate = 128;
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
    std::int32_t quality = 400;    ///< 0 to 1000; -1: the bitrates rule
};

/// Whether the encoder takes the settings.
bool vorbisAccepts(const VorbisSettings& settings);

class VorbisFormat : public OutputFormat {
public:
    /// Each file gets a random stream serial number, unless one is given here.
    explicit VorbisFormat(const VorbisSettings& settings, std::optional<int> serial = std::nullopt)
        : settings_(settings), serial_(serial)
    {}

    std::int32_t rate() const override { return settings_.rate; }
    std::int32_t channels() const override { return settings_.channels; }
    QString text() const override;
    std::unique_ptr<Encoder> makeEncoder(OutputFile& file) const override;

private:
    VorbisSettings settings_;
    std::optional<int> serial_;
};

/// The codec's parameters, which a refused set-up leaves unusable: one object for each attempt.
class VorbisInfo {
public:
    VorbisInfo() { vorbis_info_init(&info_); }
    ~VorbisInfo() { vorbis_info_clear(&info_); }
    VorbisInfo(const VorbisInfo&) = delete;
    VorbisInfo& operator=(const VorbisInfo&) = delete;

    /// False when the encoder refuses.
    bool setUp(const VorbisSettings& settings);

    vorbis_info* get() { return &info_; }

private:
    vorbis_info info_;
};

class VorbisEncoder : public Encoder {
public:
    /// Throws EngineError when the encoder refuses the settings.
    VorbisEncoder(OutputFile& file, const VorbisSettings& settings, int serial);
    ~VorbisEncoder() override;

    void write(std::span<const std::int16_t> samples) override;
    void finish() override;

private:
    void writeHeaders();
    void givePiece(std::span<const std::int16_t> samples);
    void drain();
    void writePage(const ogg_page& page);

    OutputFile& file_;
    VorbisInfo info_;
    std::size_t channels_;
    vorbis_dsp_state analysis_;
    vorbis_block block_;
    ogg_stream_state stream_;
    std::vector<std::int16_t> carry_;    // the begin of the next piece
};
