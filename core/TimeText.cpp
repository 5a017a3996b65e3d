#include "core/TimeText.h"

#include "core/Errors.h"
#include "core/Numbers.h"

namespace {

/// "mm:ss" in front of the fraction.
QString minutesAndSeconds(std::int32_t ms)
{
    const auto minutes = static_cast<std::int32_t>(std::floor(ms / 60000.0));
    const auto seconds = static_cast<std::int32_t>(std::floor(ms / 1000.0)) - 60 * minutes;
    return twoDigits(minutes) + QLatin1Char(':') + (seconds > 9 ? QString() : QStringLiteral("0")) +
           QString::number(seconds);
}

/// Milliseconds within the second, with the small error of the subtraction.
double withinSecond(std::int32_t ms)
{
    return (ms / 1000.0 - std::floor(ms / 1000.0)) * 1000;
}

}

std::int32_t MilliSecondsToSamplesS(std::int32_t NumMilliSeconds, std::int32_t SampleRate)
{
    return toLong(NumMilliSeconds / 1000.0 * SampleRate);
}

std::int32_t SampleToSeconde(std::int32_t Frames, std::int32_t SampleRate)
{
    return toLong(SampleToSecondeD(Frames, SampleRate));
}

double SampleToSecondeD(std::int32_t Frames, std::int32_t SampleRate)
{
    if (SampleRate == 0) throw ConversionError(QStringLiteral("division by zero"));
    return static_cast<double>(Frames) / SampleRate;
}

double Log10(double number)
{
    return std::log(number) / std::log(10.0);
}

QString FormatSeconds(double seconds)
{
    const std::int32_t t = toLong(seconds * 100);
    const std::int32_t m = t / 6000;
    const std::int32_t s = (t - 6000 * m) / 100;
    return twoDigits(m) + QLatin1Char(':') + twoDigits(s) + QLatin1Char('.') +
           twoDigits(t - 6000 * m - 100 * s);
}

QString sampleText(std::int32_t sample, std::int32_t rate)
{
    return FormatSeconds(SampleToSecondeD(sample, rate));
}

QString FormatRulerTime(std::int32_t ms)
{
    // Kept: no leading zeros, so 5 ms and 50 ms read "5" and "50", and 500 ms reads "50" too.
    return minutesAndSeconds(ms) + QLatin1Char('.') + QString::number(toInteger(withinSecond(ms))).left(2);
}

QString durationText(std::int32_t ms)
{
    // Kept: the fraction is not rounded first, and a 9 with decimals gets its zero and all its digits.
    const double fraction = withinSecond(ms);
    const QString digits = QString::number(fraction, 'g', 15);
    return minutesAndSeconds(ms) + QLatin1Char('.') +
           (fraction > 9 && fraction < 10 ? QLatin1Char('0') + digits : digits.left(2));
}

QString positionText(std::int32_t ms)
{
    return FormatRulerTime(ms);    // Kept: 45 ms and 450 ms both read ".45"
}

QString playingText(std::int32_t ms)
{
    const QString thousandths = QString::number(toInteger(withinSecond(ms)));
    return minutesAndSeconds(ms) + QLatin1Char('.') + thousandths.rightJustified(3, QLatin1Char('0'));
}
