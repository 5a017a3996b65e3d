// An engine without codecs and devices: files are arrays in memory, every call goes into the journal, any
// call can be told to fail. Files are named by their holder: FileR, FileRe, FileWenc, in order of creation.
#pragma once

#include "core/AudioEngine.h"

#include <QMap>
#include <QSet>

/// A sound in memory.
struct FakeSound {
    std::int32_t rate = 44100;
    std::int32_t channels = 2;
    SampleArray samples;
    QString format = QStringLiteral("fake");
    /// What `GetTotalSamples` says when it differs from what can be read.
    std::int32_t claimedTotal = -1;
    // tags
    QString title, artist, album, comment;
    std::int32_t genre = -1, year = 0;
};

/// A sound of `length` samples per channel, whose left sample k is `k % 20000` and whose right one is its
/// negative.
FakeSound fakeSound(std::int32_t length, std::int32_t rate = 44100, std::int32_t channels = 2);

class FakePlayer;

class FakeEngine : public AudioEngine {
public:
    QMap<QString, FakeSound>
        disk;                 ///< files by path; a writer's `Close` puts its file here, and each array before
    QSet<QString> failing;    ///< calls that throw, such as "FileWenc.WriteArray" or "AudioTags.WriteTo"
    QMap<QString, int> failAfter;     ///< calls that throw after so many successes
    bool deviceFails = false;         ///< the player's `GetFailed`
    FakePlayer* player = nullptr;     ///< the player made last
    std::int32_t readChannels = 0;    ///< answer of `GetReadChannels` where it is not the sound's own
    bool oggAccepts = true;           ///< answer of `IsFormatOggVorbisAvailable`

    std::unique_ptr<AudioFile> makeFile() override;
    std::unique_ptr<Mp3Format> makeMp3Format() override;
    std::unique_ptr<AudioTag> makeTag() override;
    std::unique_ptr<AudioPlayerStream> makePlayer() override;
    std::unique_ptr<AudioRecordEx> makeRecorder() override;

    /// Writes the call down, and throws where it is to fail.
    void call(const QString& name, const QString& arguments = {});

private:
    int files_ = 0;
};

/// The player: keeps what it is fed; a test raises its events.
class FakePlayer : public AudioPlayerStream {
public:
    explicit FakePlayer(FakeEngine& engine) : engine_(engine) {}

    void SetFormat(std::int32_t rate, std::int32_t channels) override;
    void Start() override;
    bool GetFailed() const override { return engine_.deviceFails; }
    void PlayArray(SampleArray samples) override;
    void ClearQueue() override;
    void Stop() override;
    std::int32_t MsToSamples(std::int32_t ms) const override;
    std::int32_t SamplesToMs(std::int32_t samples) const override;
    void SetVolume(std::int32_t volume) override;
    std::int32_t GetVolume() const override { return volume; }
    void SetMute(bool) override {}
    std::int32_t GetDeviceCount() override { return 0; }
    void SetDevice(std::int32_t) override {}
    bool GetDeviceValid() const override { return false; }
    SampleArray GetLevelArray(std::int32_t) override { return {}; }
    std::int32_t GetPositionSamples() const override { return 0; }

    SampleArray heard;    ///< everything fed since the last `Start` or `ClearQueue`
    std::int32_t volume = 65535;
    std::int32_t rate = 44100;

private:
    FakeEngine& engine_;
};
