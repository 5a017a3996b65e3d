// The reading half of an AudioFile: picks a decoder, brings its sound to 16 bits, one or two channels and the
// rate asked for, and reads ahead on a thread of its own where the file is compressed.
#pragma once

#include "core/AudioEngine.h"

class FileReader {
public:
    FileReader();
    ~FileReader();

    void SetWmaEnabled(bool enabled);
    void Open(const QString& path);
    bool IsClosed() const;
    std::int32_t GetTotalSamples() const;
    std::int32_t GetSampleRate() const;
    std::int32_t GetOutputRate() const;
    std::int32_t GetChannels() const;
    std::int32_t GetReadChannels() const;
    std::int32_t GetDurationMs() const;
    SampleArray ReadArray(std::int32_t count);
    std::int32_t Seek(std::int32_t position);

    /// From here on `ReadArray` delivers this rate and these channels; the total follows.
    void SetInputFormat(std::int32_t rate, std::int32_t channels);

    QString FormatString() const;
    void Close();    ///< never throws

private:
    struct State;
    std::unique_ptr<State> state_;
};
