// A writer, a format object and a message host that write down what is asked of them.
#pragma once

#include "core/AudioEngine.h"
#include "core/Errors.h"
#include "core/toolkit/Dialogs.h"
#include "export/Mp3Keys.h"

#include <QStringList>

/// A writer that takes everything and writes down the calls that set a format.
class RecordingFile : public AudioFile {
public:
    QStringList calls;
    QStringList mp3Values;    ///< the 22 texts of the format given last, in the order of the keys
    bool accepts = true;      ///< answer of IsFormatOggVorbisAvailable
    std::int32_t profiles = 51;

    void SetFormatPCM(std::int32_t, std::int32_t, std::int32_t) override { calls << "SetFormatPCM"; }
    void SetFormatMP3Ex(const Mp3Format& format) override
    {
        calls << "SetFormatMP3Ex";
        mp3Values.clear();
        for (const Mp3Key& row : mp3Keys) mp3Values << textOf(format, row.property);
        text_ = "MP3 " + QString::number(format.FormatBitrate);
    }
    void SetFormatMP3Simple(std::int32_t, std::int32_t, std::int32_t) override {}
    bool IsFormatOggVorbisAvailable(std::int32_t rate, std::int32_t channels, std::int32_t bitrate,
                                    std::int32_t minimum, std::int32_t maximum) const override
    {
        const_cast<QStringList&>(calls) << QString("IsFormatOggVorbisAvailable %1 %2 %3 %4 %5")
                                               .arg(rate)
                                               .arg(channels)
                                               .arg(bitrate)
                                               .arg(minimum)
                                               .arg(maximum);
        return accepts;
    }
    void SetFormatOggVorbis(std::int32_t rate, std::int32_t channels, std::int32_t bitrate,
                            std::int32_t minimum, std::int32_t maximum, std::int32_t quality) override
    {
        calls << QString("SetFormatOggVorbis %1 %2 %3 %4 %5 %6")
                     .arg(rate)
                     .arg(channels)
                     .arg(bitrate)
                     .arg(minimum)
                     .arg(maximum)
                     .arg(quality);
        text_ = QString("Ogg %1 %2").arg(bitrate).arg(quality);
    }
    void SetFormatWMA(std::int32_t profile) override
    {
        calls << QString("SetFormatWMA %1").arg(profile);
        if (profile < 1 || profile > profiles) throw EngineError("no such profile");
        text_ = QString("WMA %1").arg(profile);
    }
    std::int32_t GetWmaProfileCount() const override { return profiles; }
    QString FormatString() const override { return text_; }

    void SetWmaEnabled(bool) override {}
    void Open(const QString&) override {}
    bool IsClosed() const override { return true; }
    std::int32_t GetTotalSamples() const override { return 0; }
    std::int32_t GetSampleRate() const override { return 0; }
    std::int32_t GetOutputRate() const override { return 0; }
    std::int32_t GetChannels() const override { return 0; }
    std::int32_t GetReadChannels() const override { return 0; }
    std::int32_t GetDurationMs() const override { return 0; }
    SampleArray ReadArray(std::int32_t) override { return {}; }
    std::int32_t Seek(std::int32_t position) override { return position; }
    void SetInputFormat(std::int32_t, std::int32_t) override {}
    void Create(const QString&) override {}
    void WriteArray(const SampleArray&) override {}
    void Close() override {}

private:
    QString text_ = "as before";
};

/// A format object whose commands leave a trace in its properties.
class RecordingFormat : public Mp3Format {
public:
    QStringList commands;

    void SetCommandLine(const QString& text) override
    {
        commands << "SetCommandLine " + text;
        FormatBitrate = 56;
    }
    void ApplyPreset(std::int16_t number) override
    {
        commands << QString("ApplyPreset %1").arg(number);
        FormatBitrate = 160;
        VbrMethod = 4;
        AbrBitrate = static_cast<std::int16_t>(100 + number);
    }
    void ApplyAltPreset(std::int16_t number) override
    {
        commands << QString("ApplyAltPreset %1").arg(number);
        FormatBitrate = 192;
        VbrMethod = 3;
        VbrQuality = number;
    }
};

/// An engine that the form under test never asks.
class NoEngine : public AudioEngine {
public:
    std::unique_ptr<AudioFile> makeFile() override { return nullptr; }
    std::unique_ptr<Mp3Format> makeMp3Format() override { return nullptr; }
    std::unique_ptr<AudioTag> makeTag() override { return nullptr; }
    std::unique_ptr<AudioPlayerStream> makePlayer() override { return nullptr; }
    std::unique_ptr<AudioRecordEx> makeRecorder() override { return nullptr; }
};

/// Writes down the messages.
class MessageList : public DialogHost {
public:
    MessageList() { setDialogHost(this); }
    ~MessageList() override { setDialogHost(nullptr); }

    QStringList messages;

    Answer message(const QString& text, Icon icon, Buttons, const QString& title) override
    {
        messages << QString("%1|%2|%3").arg(title, text, icon == Icon::Critical ? "critical" : "other");
        return Answer::Ok;
    }
    std::optional<QString> openFile(const QString&, const FileFilter&) override { return {}; }
    std::optional<QString> saveFile(const QString&, const FileFilter&, const QString&) override { return {}; }
    std::optional<QString> folder(const QString&) override { return {}; }
};
