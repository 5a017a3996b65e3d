// Sound files for the tests of the reading half: generated sound, written by us or by the programs that make
// such files, and the same files as those programs decode them.
#pragma once

#include "core/Errors.h"
#include "engine/FileReader.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>
#include <numeric>

using Bytes = QByteArray;

/// Music of a kind: tones that wander, a beat and some noise, so that no two stretches are alike.
inline SampleArray music(std::int64_t frames, int channels, int rate = 44100)
{
    SampleArray sound;
    sound.reserve(static_cast<std::size_t>(frames * channels));
    std::uint32_t noise = 1;
    double phase = 0;
    for (std::int64_t i = 0; i < frames; ++i) {
        const double seconds = double(i) / rate;
        phase += 2 * M_PI * (330 + 200 * std::sin(seconds)) / rate;
        noise = noise * 1664525 + 1013904223;
        const double beat = std::exp(-6 * std::fmod(seconds, 0.5));
        for (int c = 0; c < channels; ++c) {
            const double tone = 9000 * std::sin(phase * (c + 1)) + 5000 * std::sin(phase * 3.1);
            sound.push_back(std::int16_t(tone + beat * ((noise >> 16) % 12000 - 6000.0)));
        }
    }
    return sound;
}

template <typename Number>
Bytes littleEndian(Number value)
{
    return Bytes(reinterpret_cast<const char*>(&value), sizeof value);
}

inline Bytes chunk(const char* id, const Bytes& body)
{
    return Bytes(id, 4) + littleEndian(std::uint32_t(body.size())) + body + Bytes(body.size() % 2, '\0');
}

/// The chunk that tells the form; `tag` 1 is whole numbers, 3 floating point.
inline Bytes formChunk(int channels, int bits, int tag = 1, int rate = 44100)
{
    const int frameBytes = channels * bits / 8;
    return chunk("fmt ", littleEndian(std::uint16_t(tag)) + littleEndian(std::uint16_t(channels)) +
                             littleEndian(std::uint32_t(rate)) +
                             littleEndian(std::uint32_t(rate * frameBytes)) +
                             littleEndian(std::uint16_t(frameBytes)) + littleEndian(std::uint16_t(bits)));
}

inline Bytes riff(const Bytes& chunks)
{
    return chunk("RIFF", Bytes("WAVE") + chunks);
}

inline Bytes bytesOf(const SampleArray& sound)
{
    return Bytes(reinterpret_cast<const char*>(sound.data()), qsizetype(sound.size() * sizeof(std::int16_t)));
}

inline SampleArray samplesOf(const Bytes& bytes)
{
    const auto* first = reinterpret_cast<const std::int16_t*>(bytes.data());
    return SampleArray(first, first + bytes.size() / qsizetype(sizeof(std::int16_t)));
}

inline Bytes plainWav(const SampleArray& sound, int channels, int rate = 44100)
{
    return riff(formChunk(channels, 16, 1, rate) + chunk("data", bytesOf(sound)));
}

/// A folder of files that goes away with it.
class SoundFolder {
public:
    QString path(const QString& name) const { return folder_.filePath(name); }

    QString put(const QString& name, const Bytes& bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(name));
        return path(name);
    }

    Bytes get(const QString& name) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::ReadOnly)) qFatal("cannot read %s", qPrintable(name));
        return file.readAll();
    }

    /// Runs a program in this folder and returns what it printed. The line is split at blanks.
    Bytes run(const QString& line) const
    {
        QStringList words = line.split(' ', Qt::SkipEmptyParts);
        QProcess process;
        process.setWorkingDirectory(folder_.path());
        process.start(words.takeFirst(), words);
        if (!process.waitForFinished(120000) || process.exitCode() != 0)
            qFatal("%s: %s", qPrintable(line), process.readAllStandardError().constData());
        return process.readAllStandardOutput();
    }

    /// Runs a program that makes the file `name`, whose name ends the line; returns its path.
    QString make(const QString& line) const
    {
        run(line);
        return path(line.section(' ', -1));
    }

    /// A file as ffmpeg decodes it.
    SampleArray decodedByFfmpeg(const QString& name) const
    {
        return samplesOf(run("ffmpeg -v quiet -i " + name + " -f s16le -"));
    }

private:
    QTemporaryDir folder_;
};

/// Everything that the reader still has to deliver, in arrays of `count`.
inline SampleArray readAll(FileReader& reader, std::int32_t count = 30000)
{
    SampleArray all;
    for (SampleArray a = reader.ReadArray(count); !a.empty(); a = reader.ReadArray(count))
        all.insert(all.end(), a.begin(), a.end());
    return all;
}

inline SampleArray readFile(const QString& path)
{
    FileReader reader;
    reader.SetWmaEnabled(true);
    reader.Open(path);
    return readAll(reader);
}

/// Where two arrays part; -1 where they don't.
inline std::int64_t firstDifference(const SampleArray& a, const SampleArray& b)
{
    const auto [at, other] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    return at == a.end() && other == b.end() ? -1 : at - a.begin();
}

/// The largest step between two arrays of one length.
inline int largestStep(const SampleArray& a, const SampleArray& b)
{
    int largest = 0;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        largest = std::max(largest, std::abs(a[i] - b[i]));
    return largest;
}
