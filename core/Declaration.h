// The state that all forms share: the one open document, the language, the long jobs.
// A position is a count of samples per channel from the start of the file.
#pragma once

#include <QString>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

class CutterSelect;
class Form2;
template <typename Form>
class FormHolder;

/// What the user said of a part. The part that begins at a cut is found by `StartSample`, never by index.
struct PartRecord {
    QString Title;
    std::int32_t StartSample = 0;    ///< first sample of the part

    bool operator==(const PartRecord&) const = default;
};

inline constexpr std::int32_t maxCutPoints = 100;

extern CutterSelect* MainForm;            ///< the main window, null while there is none
extern FormHolder<Form2> ProgressForm;    ///< progress dialog of the main window's long jobs

extern std::vector<QString> LangText;    ///< texts of the loaded language, by number
extern std::int32_t LangId;              ///< 1 French, 2 English, 3 Spanish, 4 Portuguese

extern std::vector<PartRecord>
    PartTable;    ///< one record per part, in order of creation; record 0 is the first part
extern std::array<std::int32_t, maxCutPoints + 1>
    CutPoints;    ///< entries 1 to `CutCount`, ascending; entry 0 is 0
extern std::int32_t CutCount;
extern QString CurrentFile;          ///< path of the open sound file, "" when none
extern QString TempCutPath;          ///< path of the work file
extern QString TempFolder;           ///< folder for work files, ends in a separator
extern std::int32_t TotalSamples;    ///< length of the open file, 0 when none
extern std::int32_t SampleRate;      ///< Hz
extern bool KeepRunning;             ///< go-on flag of the long jobs; Cancel clears it

extern QString IniPath;      ///< path of the settings file
extern QString IniFolder;    ///< its folder; nothing reads it

extern float MinTrackX;    ///< size of the main window's client area, twips
extern float MinTrackY;

/// Text number `n` of the language. Throws when the language file has no such line.
const QString& langText(std::size_t n);

/// Index of the last record of `PartTable`.
inline std::int32_t lastPartRecord()
{
    return static_cast<std::int32_t>(PartTable.size()) - 1;
}
