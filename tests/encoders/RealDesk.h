// The main form with the real engine's writer, short parts saved by it, and other programs as witnesses.
#pragma once

#include "encoders/EncoderFixtures.h"
#include "engine/Engine.h"

#include <QProcess>

#include <cmath>
#include <cstring>

/// The main form with the real writer and format object, and a settings file, which another desk can share.
class RealDesk {
public:
    explicit RealDesk(const QString& iniPath = {})
    {
        setProgramFolder(QUILLON_SOURCE);
        IniPath = iniPath.isEmpty() ? folder.filePath("Quillon.ini") : iniPath;
        form.LoadLanguage(languageFile("English"));
        form.FileWenc = engine->makeFile();
        form.MP3LameEncoderMain = engine->makeMp3Format();
    }

    /// Saves the sound (44100 Hz, two channels) in the format that the writer has, and returns the path.
    QString save(const SampleArray& sound, const QString& name)
    {
        const QString path = folder.filePath(name);
        form.FileWenc->Create(path);
        form.FileWenc->SetInputFormat(44100, 2);
        form.FileWenc->WriteArray(sound);
        form.FileWenc->Close();
        return path;
    }

    QTemporaryDir folder;
    std::unique_ptr<AudioEngine> engine = makeEngine();
    CutterSelect form{*engine};
    MessageList host;
};

/// Runs another program and returns what it prints. Throws when it fails or complains.
inline QByteArray run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    const bool hasEnded = process.waitForFinished(120000);
    const QByteArray complaints = process.readAllStandardError();
    if (!hasEnded || process.exitCode() != 0 || !complaints.isEmpty())
        throw std::runtime_error((program + ": " + complaints).toStdString());
    return process.readAllStandardOutput();
}

/// One value as ffprobe prints it, such as "stream=sample_rate".
inline QString probe(const QString& path, const QString& entry)
{
    return QString::fromUtf8(run("ffprobe", {"-v", "error", "-show_entries", entry, "-of",
                                             "default=noprint_wrappers=1:nokey=1", path}))
        .trimmed();
}

/// The file's sound as ffmpeg hears it, mixed to one channel.
inline SampleArray heard(const QString& path)
{
    const QByteArray bytes =
        run("ffmpeg", {"-v", "error", "-i", path, "-ac", "1", "-ar", "44100", "-f", "s16le", "-"});
    SampleArray samples(static_cast<std::size_t>(bytes.size()) / 2);
    std::memcpy(samples.data(), bytes.constData(), samples.size() * 2);
    return samples;
}

/// Level of a tone in one second of a sound from half a second on, dB below full scale, 44100 Hz.
inline double toneLevel(const SampleArray& mono, double hertz)
{
    double real = 0;
    double imaginary = 0;
    for (std::size_t i = 22050; i < 66150; ++i) {
        const double angle = 2 * M_PI * hertz * static_cast<double>(i) / 44100;
        real += mono.at(i) * std::cos(angle);
        imaginary += mono.at(i) * std::sin(angle);
    }
    return 20 * std::log10(std::hypot(real, imaginary) * 2 / 44100 / 32768 + 1e-9);
}

/// Tones at 300, 2700 and 11000 Hz on both sides, others and noise that differ between them, clicks on one
/// side, and a quiet end: two seconds, 44100 Hz, two channels.
inline SampleArray part()
{
    SampleArray samples;
    std::uint32_t noise = 1;
    for (int i = 0; i < 88200; ++i) {
        const double t = i / 44100.0;
        const double both = 3000 * std::sin(2 * M_PI * 300 * t) + 2500 * std::sin(2 * M_PI * 2700 * t) +
                            2000 * std::sin(2 * M_PI * 11000 * t);
        for (int channel = 0; channel < 2; ++channel) {
            noise = noise * 1664525U + 1013904223U;
            const double own = 2500 * std::sin(2 * M_PI * (500 + 370 * channel) * t) +
                               static_cast<double>(noise >> 22) - 512;
            const bool isClick = channel == 1 && i % 11025 == 5000;
            const bool isQuiet = i > 70000;
            samples.push_back(static_cast<std::int16_t>(isClick   ? 32000
                                                        : isQuiet ? 0
                                                                  : std::lrint(both + own)));
        }
    }
    return samples;
}
