// The one line that describes a file's format to the user: "MP3, 44100 Hz, Stereo, 192 kbit/s".
#pragma once

#include "engine/Decoder.h"

#include <QStringList>

/// `kinds` are the container and the codec where they differ; `detail` is the last word.
inline QString formatText(QStringList kinds, const SoundFormat& format, const QString& detail)
{
    kinds << QStringLiteral("%1 Hz").arg(format.rate)
          << (format.channels == 1 ? QStringLiteral("Mono") : QStringLiteral("Stereo"));
    if (!detail.isEmpty()) kinds << detail;
    return kinds.join(QStringLiteral(", "));
}

inline QString bitsText(int bits)
{
    return QStringLiteral("%1 bits").arg(bits);
}

/// Empty where the rate isn't known.
inline QString bitrateText(std::int64_t bitsPerSecond)
{
    const std::int64_t kbits = (bitsPerSecond + 500) / 1000;
    return kbits > 0 ? QStringLiteral("%1 kbit/s").arg(kbits) : QString();
}
