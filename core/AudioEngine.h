// The audio engine as the rest of the program sees it: files, tags, the player, the recorder, and the factory
// that makes them. No implementation and no widget. Every operation reports a failure by throwing
// EngineError.
#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

/// Signed 16-bit samples, channels interleaved, left first. Empty at the end of a file.
using SampleArray = std::vector<std::int16_t>;

/// All parameters of the MP3 encoder. Numbers out of range are kept as they stand, so that they read back;
/// they are brought into range only on their way to the encoder.
class Mp3Format {
public:
    virtual ~Mp3Format() = default;

    std::int16_t AbrBitrate = 128;       ///< kbit/s, target of ABR
    std::int16_t AthControl = 0;         ///< 0 default, 1 only, 2 disabled, 3 only for short blocks
    std::int32_t FormatBitrate = 128;    ///< kbit/s, constant bitrate
    bool BitReservoir = true;
    bool DifferentBlockTypes = false;       ///< block types may differ between channels
    std::int32_t FormatChannels = 2;        ///< 1 mono, 2 two channels
    std::int16_t Emphasis = 0;              ///< 0 none, 1 50/15 microseconds, 2 CCITT J.17
    std::int16_t EncoderQuality = 6;        ///< 0 fastest to 9 best
    bool ErrorProtection = false;           ///< CRC checksums
    std::int32_t FormatRate = 44100;        ///< Hz
    std::int32_t HighpassFrequency = -1;    ///< Hz, -1 no filter, 0 the encoder chooses
    std::int32_t HighpassWidth = 0;         ///< Hz, 0 the encoder chooses
    std::int32_t LowpassFrequency = 0;      ///< Hz, -1 no filter, 0 the encoder chooses
    std::int32_t LowpassWidth = 0;          ///< Hz, 0 the encoder chooses
    bool ShortBlocks = true;
    bool IsoCompliance = false;
    bool EnforceMinBitrate = false;
    std::int32_t StereoMode = 2;         ///< 1 stereo, 2 joint, 3 forced joint, 4 dual channels
    std::int32_t MaxVbrBitrate = 320;    ///< kbit/s
    std::int32_t VbrMethod = -1;         ///< -1 none, 0 default, 1 old, 2 new, 3 MTRH, 4 ABR
    std::int16_t VbrQuality = 4;         ///< 0 best to 9
    bool WriteVbrHeader = true;

    /// Sets the properties from switches as the encoder's own command line has them, starting from the
    /// defaults. Unknown switches are ignored, values that are no numbers leave their property.
    virtual void SetCommandLine(const QString& text) = 0;

    /// Sets the properties to preset 1 (Phone) to 11 (R3Mix). Throws for other numbers and changes nothing.
    virtual void ApplyPreset(std::int16_t number) = 0;

    /// Sets the properties to alt-preset 1 (Fast Standard) to 5 (Insane). Throws for other numbers.
    virtual void ApplyAltPreset(std::int16_t number) = 0;
};

/// A sound file, read or written. One object serves first as the one, later as the other: `Open` or `Create`
/// on an object that is still open first ends what it had open.
class AudioFile {
public:
    virtual ~AudioFile() = default;

    // ---- reading

    /// Whether `Open` accepts WMA files.
    virtual void SetWmaEnabled(bool enabled) = 0;

    /// Opens a file for reading. Throws when it can't be decoded; `Close` is safe afterwards.
    virtual void Open(const QString& path) = 0;

    virtual bool IsClosed() const = 0;                   ///< true while no file is open for reading
    virtual std::int32_t GetTotalSamples() const = 0;    ///< length, samples per channel; 0 when none
    virtual std::int32_t GetSampleRate() const = 0;      ///< Hz, of the file
    virtual std::int32_t GetOutputRate() const = 0;      ///< Hz, of the arrays of `ReadArray`
    virtual std::int32_t GetChannels() const = 0;        ///< 1 or 2, in the arrays of `ReadArray`
    virtual std::int32_t
    GetReadChannels() const = 0;    ///< divisor from elements to samples of the last array
    virtual std::int32_t GetDurationMs() const = 0;

    /// Reads up to `count` samples per channel from the current position and moves on.
    /// Empty at the end of the file, shorter only just before it.
    virtual SampleArray ReadArray(std::int32_t count) = 0;

    /// Moves to a position in samples per channel and returns the new position.
    virtual std::int32_t Seek(std::int32_t position) = 0;

    // ---- writing: a format, then `Create`, then arrays, then `Close`

    virtual void SetFormatPCM(std::int32_t rate, std::int32_t channels, std::int32_t bits) = 0;

    /// MP3 with the properties that the object has now.
    virtual void SetFormatMP3Ex(const Mp3Format& format) = 0;

    /// MP3 at a constant bitrate in kbit/s, everything else by default.
    virtual void SetFormatMP3Simple(std::int32_t rate, std::int32_t bitrate, std::int32_t channels) = 0;

    /// Whether the Ogg Vorbis encoder takes this combination. Bitrates in kbit/s, 0 for no limit.
    virtual bool IsFormatOggVorbisAvailable(std::int32_t rate, std::int32_t channels, std::int32_t bitrate,
                                            std::int32_t minimum, std::int32_t maximum) const = 0;

    /// Ogg Vorbis. `quality` 0 to 1000, or -1: the bitrates (kbit/s, 0 for no limit) rule.
    virtual void SetFormatOggVorbis(std::int32_t rate, std::int32_t channels, std::int32_t bitrate,
                                    std::int32_t minimum, std::int32_t maximum, std::int32_t quality) = 0;

    /// WMA by profile number, 1 to `GetWmaProfileCount`. Throws for other numbers and keeps the format.
    virtual void SetFormatWMA(std::int32_t profile) = 0;
    virtual std::int32_t GetWmaProfileCount() const = 0;

    /// Rate and channels of the arrays that follow, after `Create`, where they differ from the format's; on a
    /// reader, of the arrays that `ReadArray` shall deliver from here on.
    virtual void SetInputFormat(std::int32_t rate, std::int32_t channels) = 0;

    /// Puts a new file in the place of `path`; a file that was there is replaced, never written over, so a
    /// reader that has it open keeps its sound.
    virtual void Create(const QString& path) = 0;

    /// Appends an array. Throws when it can't be encoded or written.
    virtual void WriteArray(const SampleArray& samples) = 0;

    // ---- both

    /// One line describing the format: of the open file, or of the output format set last.
    virtual QString FormatString() const = 0;

    /// Ends reading or writing; a written file is complete only after it. Does no harm where nothing is open.
    virtual void Close() = 0;
};

/// Reader and writer of a file's tags. The getters speak of the file read last, the setters collect what
/// `WriteTo` writes.
class AudioTag {
public:
    virtual ~AudioTag() = default;

    virtual void ReadFrom(const QString& path) = 0;
    virtual void WriteTo(const QString& path) = 0;
    virtual void SetTagVersion(std::int32_t version) = 0;    ///< 1 or 2: ID3v1 or ID3v2

    virtual QString GetTitle() const = 0;
    virtual QString GetArtist() const = 0;
    virtual QString GetAlbum() const = 0;
    virtual QString GetComment() const = 0;
    virtual std::int32_t GetGenre() const = 0;    ///< 0 to 147 in the standard ID3 list, -1 unknown or none
    virtual std::int32_t GetYear() const = 0;     ///< 0 when there is none
    virtual QString GetGenreName(std::int32_t index) const = 0;

    virtual void SetTitle(const QString& text) = 0;
    virtual void SetArtist(const QString& text) = 0;
    virtual void SetAlbum(const QString& text) = 0;
    virtual void SetComment(const QString& text) = 0;
    virtual void SetGenre(std::int32_t index) = 0;    ///< -1: none
    virtual void SetYear(std::int32_t year) = 0;
    virtual void SetTrack(std::int32_t number) = 0;
    virtual void SetEncodedBy(const QString& text) = 0;
};

inline constexpr std::int32_t fullVolume = 65535;

/// The player: a stream that is fed arrays. It reads no files; the program keeps a short queue filled.
class AudioPlayerStream {
public:
    virtual ~AudioPlayerStream() = default;

    // ---- events, raised on the program's thread only, between its own statements
    std::function<void()> RequestOnLoadArray;    ///< the queue runs low: `PlayArray` the next array, or end
    std::function<void(std::int32_t currentSamples, std::int32_t levelLeft, std::int32_t levelRight)> Timer;
    std::function<void()> EndArrayPlay;    ///< an array has been used up
    std::function<void()> EndPlay;         ///< the queue ran out and the stream has ended

    virtual void SetFormat(std::int32_t rate, std::int32_t channels) = 0;
    virtual void Start() = 0;
    virtual bool GetFailed() const = 0;    ///< right after `Start`: true if the device could not be opened
    virtual void PlayArray(SampleArray samples) = 0;
    virtual void ClearQueue() = 0;    ///< drops what is queued; the position starts at 0 again
    virtual void Stop() = 0;          ///< does no harm when nothing plays

    virtual std::int32_t MsToSamples(std::int32_t ms) const = 0;    ///< at the format set, 44100 Hz before
    virtual std::int32_t
    SamplesToMs(std::int32_t samples) const = 0;    ///< at the format set, 44100 Hz before

    virtual void SetVolume(std::int32_t volume) = 0;    ///< 0 to `fullVolume`
    virtual std::int32_t GetVolume() const = 0;
    virtual void SetMute(bool mute) = 0;

    virtual std::int32_t GetDeviceCount() = 0;
    virtual void SetDevice(std::int32_t index) = 0;    ///< counts from the next `Start`
    virtual bool GetDeviceValid() const = 0;

    virtual SampleArray GetLevelArray(std::int32_t count) = 0;    ///< the latest `count` samples heard
    virtual std::int32_t GetPositionSamples() const = 0;
};

/// The recorder and the mixer of the input devices.
class AudioRecordEx {
public:
    virtual ~AudioRecordEx() = default;

    // ---- events, raised on the program's thread only
    std::function<void(std::int32_t nBlock)> EndArrayRecord;    ///< a buffer is full: `GetRecordedArray`
    std::function<void()> Timer;
    std::function<void(std::int32_t newVolume)> GainChange;    ///< the current line's level, set from outside

    // ---- recording
    virtual void SetFormat(std::int32_t rate, std::int32_t channels) = 0;
    virtual void SetBufferSize(std::int32_t samples) = 0;
    virtual void SetOptionFlag(std::int32_t flag) = 0;
    virtual void Start() = 0;
    virtual void Stop() = 0;
    virtual bool GetFailed() const = 0;
    virtual SampleArray GetRecordedArray() = 0;
    virtual SampleArray GetLevelArray(std::int32_t count) = 0;
    virtual std::int32_t GetPositionSamples() const = 0;
    virtual std::int32_t MsToSamples(std::int32_t ms) const = 0;
    virtual std::int32_t SamplesToMs(std::int32_t samples) const = 0;

    // ---- devices
    virtual std::int32_t GetDeviceCount() = 0;
    virtual void SetDevice(std::int32_t index) = 0;
    virtual std::int32_t GetCurrentDevice() const = 0;
    virtual QString GetDeviceName() const = 0;
    virtual bool GetDeviceValid() const = 0;

    // ---- mixer lines of the device
    virtual std::int32_t GetLineCount() = 0;
    virtual void SetCurrentLine(std::int32_t index) = 0;
    virtual std::int32_t GetCurrentLine() const = 0;
    virtual QString GetLineName() const = 0;
    virtual bool HasVolume() const = 0;
    virtual std::int32_t GetVolume() = 0;    ///< 0 to 65535
    virtual void SetVolume(std::int32_t volume) = 0;
    virtual bool HasBalance() const = 0;
    virtual std::int32_t GetBalance() = 0;    ///< 0 left to 100 right
    virtual void SetBalance(std::int32_t balance) = 0;
    virtual bool HasSelect() const = 0;
    virtual bool GetSelected() = 0;
    virtual void SetSelected(bool selected) = 0;
    virtual std::int32_t GetAdvancedIndex() const = 0;    ///< -1 when there is none
};

/// Makes the engine's objects.
class AudioEngine {
public:
    virtual ~AudioEngine() = default;

    virtual std::unique_ptr<AudioFile> makeFile() = 0;
    virtual std::unique_ptr<Mp3Format> makeMp3Format() = 0;
    virtual std::unique_ptr<AudioTag> makeTag() = 0;
    virtual std::unique_ptr<AudioPlayerStream> makePlayer() = 0;
    virtual std::unique_ptr<AudioRecordEx> makeRecorder() = 0;
};
