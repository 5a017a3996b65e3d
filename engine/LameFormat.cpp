#include "engine/LameFormat.h"

#include "core/Errors.h"
#include "engine/Mp3CommandLine.h"
#include "engine/Mp3Presets.h"

void LameFormat::SetCommandLine(const QString& text)
{
    LameFormat fresh;
    applyCommandLine(fresh, text);
    *this = fresh;
}

void LameFormat::ApplyPreset(std::int16_t number)
{
    const Mp3Preset* preset = findPreset(number);
    if (preset == nullptr) throw EngineError(QString("no MP3 preset %1").arg(number));
    applyPreset(*this, *preset);
}

void LameFormat::ApplyAltPreset(std::int16_t number)
{
    const Mp3Preset* preset = findAltPreset(number);
    if (preset == nullptr) throw EngineError(QString("no MP3 alt-preset %1").arg(number));
    applyPreset(*this, *preset);
}
