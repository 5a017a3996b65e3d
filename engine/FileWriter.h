// The writing half of an AudioFile: holds the output format chosen last, makes the encoder for it at
// `Create`, and brings what it is given to the encoder's rate and channels.
#pragma once

#include "core/AudioEngine.h"

#include <span>

class FileWriter {
public:
    FileWriter();

    /// With another file for the LAME library than the platform's.
    explicit FileWriter(const QString& lameFile);
    ~FileWriter();

    void SetFormatPCM(std::int32_t rate, std::int32_t channels, std::int32_t bits);
    void SetFormatMP3Ex(const Mp3Format& format);
    void SetFormatMP3Simple(std::int32_t rate, std::int32_t bitrate, std::int32_t channels);
    bool IsFormatOggVorbisAvailable(std::int32_t rate, std::int32_t channels, std::int32_t bitrate,
                                    std::int32_t minimum, std::int32_t maximum) const;
    void SetFormatOggVorbis(std::int32_t rate, std::int32_t channels, std::int32_t bitrate,
                            std::int32_t minimum, std::int32_t maximum, std::int32_t quality);
    void SetFormatWMA(std::int32_t profile);
    std::int32_t GetWmaProfileCount() const;

    /// Of the arrays that follow; only while open. Without it they have the format's own shape.
    void SetInputFormat(std::int32_t rate, std::int32_t channels);

    void Create(const QString& path);
    void WriteArray(const SampleArray& samples);
    bool isOpen() const;
    QString FormatString() const;

    /// Completes the file. Throws when that fails, unless a failed `WriteArray` told so before, and is closed
    /// all the same.
    void Close();

private:
    void feed(std::span<const std::int16_t> samples);
    void flushConverter();
    void finishFile();

    struct State;
    std::unique_ptr<State> state_;
};
