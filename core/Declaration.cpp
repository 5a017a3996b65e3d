#include "core/Declaration.h"

#include "core/Errors.h"
#include "core/toolkit/FormHolder.h"
#include "waveform/Form2.h"

CutterSelect* MainForm = nullptr;
FormHolder<Form2> ProgressForm;

std::vector<QString> LangText(1);
std::int32_t LangId = 2;

std::vector<PartRecord> PartTable(1);
std::array<std::int32_t, maxCutPoints + 1> CutPoints{};
std::int32_t CutCount = 0;
QString CurrentFile;
QString TempCutPath;
QString TempFolder;
std::int32_t TotalSamples = 0;
std::int32_t SampleRate = 0;
bool KeepRunning = false;

QString IniPath;
QString IniFolder;

float MinTrackX = 0;
float MinTrackY = 0;

const QString& langText(std::size_t n)
{
    if (n >= LangText.size())
        throw ConversionError(QStringLiteral("the language file has no line %1").arg(n));
    return LangText[n];
}
