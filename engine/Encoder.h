// What a sound format has to offer to be written: its shape and its name, and an encoder that turns sound of
// that shape into bytes of a file. Rates and channels are brought into shape in front of it.
#pragma once

#include <QString>

#include <cstdint>
#include <memory>
#include <span>

class OutputFile;

/// Encodes one file from begin to end. Destroying it before `finish` leaves the file as far as it came.
class Encoder {
public:
    virtual ~Encoder() = default;

    /// Takes whole frames, interleaved, in the shape of the format. Has consumed them when it returns. Throws
    /// EngineError when they can't be encoded or written.
    virtual void write(std::span<const std::int16_t> samples) = 0;

    /// Writes what is still on its way through the encoder and completes the file's headers. Called once.
    virtual void finish() = 0;
};

/// An output format with all its settings. Never changes once made, so a running encoder can't be disturbed.
class OutputFormat {
public:
    virtual ~OutputFormat() = default;

    virtual std::int32_t rate() const = 0;        ///< Hz, of the sound that the encoder wants
    virtual std::int32_t channels() const = 0;    ///< 1 or 2
    virtual QString text() const = 0;             ///< one line for the user

    /// Starts a file of this format; throws EngineError when the encoder is missing or refuses the settings.
    /// `file` must outlive the encoder.
    virtual std::unique_ptr<Encoder> makeEncoder(OutputFile& file) const = 0;
};

/// "Mono" or "Stereo".
inline QString channelText(std::int32_t channels)
{
    return QString::fromLatin1(channels == 1 ? "Mono" : "Stereo");
}
