// What the tests of writing share: generated sound, other programs as witnesses, comparisons.
#pragma once

#include "core/AudioEngine.h"
#include "engine/FileWriter.h"

#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <span>
#include <stdexcept>

namespace tools {

/// Sound that no codec finds trivial: gliding tones that swell and fade, each channel its own, and some
/// noise.
inline SampleArray music(int rate, int channels, int frames)
{
    SampleArray samples;
    samples.reserve(static_cast<std::size_t>(frames) * channels);
    std::uint32_t noise = 1;
    for (int i = 0; i < frames; ++i) {
        const double t = static_cast<double>(i) / rate;
        for (int channel = 0; channel < channels; ++channel) {
            noise = noise * 1664525U + 1013904223U;
            const double base = 220.0 * (1 + channel * 0.5);
            const double tones = 7000 * std::sin(2 * M_PI * base * t) +
                                 4000 * std::sin(2 * M_PI * (3 * base * t + 40 * t * t)) *
                                     (0.5 + 0.5 * std::sin(2 * M_PI * 1.3 * t));
            samples.push_back(
                static_cast<std::int16_t>(std::lrint(tones + static_cast<double>(noise >> 24))));
        }
    }
    return samples;
}

/// Runs another program and returns what it prints. Throws when it can't be started or reports failure.
inline QByteArray run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(120000) || process.exitCode() != 0)
        throw std::runtime_error((program + ": " + process.readAllStandardError()).toStdString());
    return process.readAllStandardOutput();
}

inline SampleArray samplesOf(const QByteArray& bytes)
{
    SampleArray samples(static_cast<std::size_t>(bytes.size()) / 2);
    std::memcpy(samples.data(), bytes.constData(), samples.size() * 2);
    return samples;
}

/// The sound of a file as FFmpeg hears it. Throws when FFmpeg has anything to complain of.
inline SampleArray decode(const QString& path)
{
    QProcess process;
    process.start("ffmpeg", {"-v", "error", "-i", path, "-f", "s16le", "-"});
    process.waitForFinished(120000);
    const QByteArray complaints = process.readAllStandardError();
    if (process.exitCode() != 0 || !complaints.isEmpty())
        throw std::runtime_error(("ffmpeg: " + complaints).toStdString());
    return samplesOf(process.readAllStandardOutput());
}

/// One value that ffprobe prints, such as "stream=sample_rate" or "format_tags=title".
inline QString probe(const QString& path, const QString& entry)
{
    return QString::fromUtf8(run("ffprobe", {"-v", "error", "-show_entries", entry, "-of",
                                             "default=noprint_wrappers=1:nokey=1", path}))
        .trimmed();
}

inline QByteArray contents(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("no file " + path.toStdString());
    return file.readAll();
}

inline void putContents(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("can't write " + path.toStdString());
}

/// Writes the sound in arrays of `block` elements.
inline void save(FileWriter& writer, const QString& path, const SampleArray& samples,
                 std::size_t block = 20000)
{
    writer.Create(path);
    for (std::size_t at = 0; at < samples.size(); at += block) {
        const auto end = std::min(samples.size(), at + block);
        writer.WriteArray(
            SampleArray(samples.begin() + static_cast<long>(at), samples.begin() + static_cast<long>(end)));
    }
    writer.Close();
}

/// How far the noise of `copy` lies below the sound of `original`, dB, over what both have.
inline double signalToNoise(std::span<const std::int16_t> original, std::span<const std::int16_t> copy)
{
    double signal = 1e-9;
    double noise = 1e-9;
    for (std::size_t i = 0; i < std::min(original.size(), copy.size()); ++i) {
        const double error = original[i] - copy[i];
        signal += static_cast<double>(original[i]) * original[i];
        noise += error * error;
    }
    return 10 * std::log10(signal / noise);
}

/// A folder that goes away with the test, and paths in it.
class Folder {
public:
    QString operator/(const QString& name) const { return folder_.filePath(name); }
    QStringList files() const
    {
        return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }
    QString path() const { return folder_.path(); }

private:
    QTemporaryDir folder_;
};

/// Saves the sound as MP3 with the properties and returns the file's bytes.
inline QByteArray coded(const Mp3Format& format, const SampleArray& sound)
{
    Folder folder;
    FileWriter writer;
    writer.SetFormatMP3Ex(format);
    save(writer, folder / "a.mp3", sound);
    return contents(folder / "a.mp3");
}

}
