#include "engine/Mp3CommandLine.h"

#include "engine/Mp3Presets.h"
#include "engine/Mp3Rates.h"

#include <QProcess>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace {

using Action = void (*)(Mp3Format&, const QString& value);

enum class Value { None, Next };

struct Switch {
    const char* name;    // one letter, or a word that stands behind two hyphens
    Value value;
    Action apply;    // null: known, without effect here
};

std::optional<double> number(const QString& text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok && std::abs(value) < 1e9 ? std::optional(value) : std::nullopt;
}

/// Stores the nearest whole number, if the text is a number that the property can hold.
template <typename Integer>
bool store(Integer& property, const QString& text)
{
    const auto value = number(text);
    const long whole = value ? std::lrint(*value) : std::numeric_limits<long>::max();
    if (whole < std::numeric_limits<Integer>::min() || whole > std::numeric_limits<Integer>::max())
        return false;
    property = static_cast<Integer>(whole);
    return true;
}

/// A frequency is meant in kHz when it is small. 0 and -1 have meanings of their own.
void storeFrequency(std::int32_t& property, const QString& text)
{
    const auto value = number(text);
    if (!value) return;
    const double hertz = *value > 0 && *value < 100 ? *value * 1000 : *value;
    property = static_cast<std::int32_t>(std::lrint(std::max(hertz, -1.0)));
}

void storeRate(Mp3Format& format, const QString& text)
{
    std::int32_t rate = 0;
    storeFrequency(rate, text);
    if (rate > 0) format.FormatRate = nearestMp3Rate(rate);
}

/// LAME counts from the best, the property from the fastest.
void storeQuality(Mp3Format& format, const QString& text)
{
    std::int8_t lame = 0;
    if (store(lame, text)) format.EncoderQuality = static_cast<std::int16_t>(9 - lame);
}

// A method chosen by an earlier switch stays, where it is one that knows a quality.
void chooseVbr(Mp3Format& format)
{
    if (format.VbrMethod < 0 || format.VbrMethod > 3) format.VbrMethod = 0;
}

void storeVbrQuality(Mp3Format& format, const QString& text)
{
    if (store(format.VbrQuality, text)) chooseVbr(format);
}

void storeAbr(Mp3Format& format, const QString& text)
{
    if (store(format.AbrBitrate, text)) format.VbrMethod = 4;
}

void storeMode(Mp3Format& format, const QString& text)
{
    static const QString modes = "sjfd";
    const auto mode = text.isEmpty() ? -1 : modes.indexOf(text.front());
    if (text == "m") {
        format.FormatChannels = 1;
    } else if (mode >= 0) {
        format.FormatChannels = 2;
        format.StereoMode = static_cast<std::int32_t>(mode) + 1;
    }
}

void storeEmphasis(Mp3Format& format, const QString& text)
{
    static const QString kinds = "n5c";
    const auto kind = text.isEmpty() ? -1 : kinds.indexOf(text.front());
    if (kind >= 0) format.Emphasis = static_cast<std::int16_t>(kind);
}

/// "fast standard" and "cbr 128" come here as one text; a bare number is an average bitrate.
void storePreset(Mp3Format& format, const QString& text)
{
    if (const Mp3Preset* preset = findPresetByName(text)) {
        applyPreset(format, *preset);
    } else if (text.startsWith("cbr ")) {
        if (store(format.FormatBitrate, text.mid(4))) format.VbrMethod = -1;
    } else {
        storeAbr(format, text);
    }
}

using F = Mp3Format&;
using T = const QString&;

constexpr Switch switches[] = {
    {"b", Value::Next, [](F f, T value) { store(f.FormatBitrate, value); }},
    {"B", Value::Next, [](F f, T value) { store(f.MaxVbrBitrate, value); }},
    {"F", Value::None, [](F f, T) { f.EnforceMinBitrate = true; }},
    {"V", Value::Next, storeVbrQuality},
    {"v", Value::None, [](F f, T) { chooseVbr(f); }},
    {"vbr-old", Value::None, [](F f, T) { f.VbrMethod = 1; }},
    {"vbr-new", Value::None, [](F f, T) { f.VbrMethod = 2; }},
    {"vbr-mtrh", Value::None, [](F f, T) { f.VbrMethod = 3; }},
    {"abr", Value::Next, storeAbr},
    {"cbr", Value::None, [](F f, T) { f.VbrMethod = -1; }},
    {"q", Value::Next, storeQuality},
    {"h", Value::None, [](F f, T) { f.EncoderQuality = 7; }},
    {"f", Value::None, [](F f, T) { f.EncoderQuality = 2; }},
    {"m", Value::Next, storeMode},
    {"a", Value::None, [](F f, T) { f.FormatChannels = 1; }},
    {"k", Value::None, [](F f, T) { f.LowpassFrequency = f.HighpassFrequency = -1; }},
    {"lowpass", Value::Next, [](F f, T value) { storeFrequency(f.LowpassFrequency, value); }},
    {"lowpass-width", Value::Next, [](F f, T value) { storeFrequency(f.LowpassWidth, value); }},
    {"highpass", Value::Next, [](F f, T value) { storeFrequency(f.HighpassFrequency, value); }},
    {"highpass-width", Value::Next, [](F f, T value) { storeFrequency(f.HighpassWidth, value); }},
    {"resample", Value::Next, storeRate},
    {"p", Value::None, [](F f, T) { f.ErrorProtection = true; }},
    {"e", Value::Next, storeEmphasis},
    {"nores", Value::None, [](F f, T) { f.BitReservoir = false; }},
    {"noshort", Value::None, [](F f, T) { f.ShortBlocks = false; }},
    {"strictly-enforce-ISO", Value::None, [](F f, T) { f.IsoCompliance = true; }},
    {"athonly", Value::None, [](F f, T) { f.AthControl = 1; }},
    {"noath", Value::None, [](F f, T) { f.AthControl = 2; }},
    {"athshort", Value::None, [](F f, T) { f.AthControl = 3; }},
    {"t", Value::None, [](F f, T) { f.WriteVbrHeader = false; }},
    {"preset", Value::Next, storePreset},
    {"alt-preset", Value::Next, storePreset},
    {"r3mix", Value::None, [](F f, T) { applyPreset(f, *findPresetByName("r3mix")); }},
    // Switches of LAME that mean nothing here, but whose value must not be taken for a switch.
    {"s", Value::Next, nullptr},
    {"scale", Value::Next, nullptr},
    {"scale-l", Value::Next, nullptr},
    {"scale-r", Value::Next, nullptr},
    {"gain", Value::Next, nullptr},
    {"comp", Value::Next, nullptr},
    {"bitwidth", Value::Next, nullptr},
    {"athlower", Value::Next, nullptr},
    {"athtype", Value::Next, nullptr},
    {"msfix", Value::Next, nullptr},
    {"interch", Value::Next, nullptr},
    {"substep", Value::Next, nullptr},
    {"temporal-masking", Value::Next, nullptr},
    {"ns-bass", Value::Next, nullptr},
    {"ns-alto", Value::Next, nullptr},
    {"ns-treble", Value::Next, nullptr},
    {"ns-sfb21", Value::Next, nullptr},
    {"priority", Value::Next, nullptr},
    {"disptime", Value::Next, nullptr},
    {"out-dir", Value::Next, nullptr},
    {"nogapout", Value::Next, nullptr},
    {"tt", Value::Next, nullptr},
    {"ta", Value::Next, nullptr},
    {"tl", Value::Next, nullptr},
    {"ty", Value::Next, nullptr},
    {"tc", Value::Next, nullptr},
    {"tn", Value::Next, nullptr},
    {"tg", Value::Next, nullptr},
    {"ti", Value::Next, nullptr},
    {"tv", Value::Next, nullptr},
};

const Switch* findSwitch(const QString& name)
{
    for (const Switch& known : switches)
        if (name == known.name) return &known;
    return nullptr;
}

class Line {
public:
    Line(Mp3Format& format, const QString& text) : format_(format), words_(QProcess::splitCommand(text)) {}

    void apply()
    {
        while (!words_.isEmpty()) {
            const QString word = words_.takeFirst();
            if (word.startsWith("--"))
                applyLong(word.mid(2));
            else if (word.startsWith('-'))
                applyLetters(word.mid(1));
        }
    }

private:
    QString next() { return words_.isEmpty() ? QString() : words_.takeFirst(); }

    void applyLong(const QString& name)
    {
        const Switch* known = findSwitch(name);
        if (known == nullptr) return;
        QString value = known->value == Value::Next ? next() : QString();
        if (name.endsWith("preset") && (value == "fast" || value == "cbr")) value += ' ' + next();
        if (known->apply != nullptr) known->apply(format_, value);
    }

    /// Letters may stand together, and a value right behind its letter: "-hb192".
    void applyLetters(QString letters)
    {
        while (!letters.isEmpty()) {
            const Switch* known = findSwitch(letters.left(1));
            letters.remove(0, 1);
            if (known == nullptr) continue;
            QString value;
            if (known->value == Value::Next)
                value = letters.isEmpty() ? next() : std::exchange(letters, QString());
            if (known->apply != nullptr) known->apply(format_, value);
        }
    }

    Mp3Format& format_;
    QStringList words_;
};

}

void applyCommandLine(Mp3Format& format, const QString& text)
{
    Line(format, text).apply();
}
