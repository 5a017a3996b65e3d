// An AudioFile: a reader and a writer under one roof, of which one is open at a time.
#pragma once

#include "engine/FileReader.h"
#include "engine/FileWriter.h"

class FileEngine : public AudioFile {
public:
    void SetWmaEnabled(bool enabled) override { reader_.SetWmaEnabled(enabled); }
    void Open(const QString& path) override;
    bool IsClosed() const override { return reader_.IsClosed(); }
    std::int32_t GetTotalSamples() const override { return reader_.GetTotalSamples(); }
    std::int32_t GetSampleRate() const override { return reader_.GetSampleRate(); }
    std::int32_t GetOutputRate() const override { return reader_.GetOutputRate(); }
    std::int32_t GetChannels() const override { return reader_.GetChannels(); }
    std::int32_t GetReadChannels() const override { return reader_.GetReadChannels(); }
    std::int32_t GetDurationMs() const override { return reader_.GetDurationMs(); }
    SampleArray ReadArray(std::int32_t count) override { return reader_.ReadArray(count); }
    std::int32_t Seek(std::int32_t position) override { return reader_.Seek(position); }

    void SetFormatPCM(std::int32_t rate, std::int32_t channels, std::int32_t bits) override;
    void SetFormatMP3Ex(const Mp3Format& format) override { writer_.SetFormatMP3Ex(format); }
    void SetFormatMP3Simple(std::int32_t rate, std::int32_t bitrate, std::int32_t channels) override;
    bool IsFormatOggVorbisAvailable(std::int32_t rate, std::int32_t channels, std::int32_t bitrate,
                                    std::int32_t minimum, std::int32_t maximum) const override;
    void SetFormatOggVorbis(std::int32_t rate, std::int32_t channels, std::int32_t bitrate,
                            std::int32_t minimum, std::int32_t maximum, std::int32_t quality) override;
    void SetFormatWMA(std::int32_t profile) override { writer_.SetFormatWMA(profile); }
    std::int32_t GetWmaProfileCount() const override { return writer_.GetWmaProfileCount(); }

    void SetInputFormat(std::int32_t rate, std::int32_t channels) override;
    void Create(const QString& path) override;
    void WriteArray(const SampleArray& samples) override { writer_.WriteArray(samples); }

    QString FormatString() const override;
    void Close() override;

private:
    void endWhatIsOpen();

    FileReader reader_;
    FileWriter writer_;
};
