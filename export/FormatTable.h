// Rule: the four output formats and the two numberings that stand side by side.
#pragma once

#include <QString>

#include <cstdint>

struct OutputFormat {
    const char* name;    ///< as in `OUTPUTFORMAT` and in the settings
    int option;          ///< index of `Option1` and `Image6`
    int menu;            ///< index of the menu's check mark
};

inline constexpr OutputFormat outputFormats[] = {
    {"WAV", 0, 3},
    {"MP3", 1, 0},
    {"OGG", 2, 1},
    {"WMA", 3, 2},
};

/// The row of a name, exactly as written; none for any other text.
inline const OutputFormat* formatByName(const QString& name)
{
    for (const OutputFormat& format : outputFormats)
        if (name == QLatin1String(format.name)) return &format;
    return nullptr;
}

/// The row of an option button; none for an index of 4 or more.
inline const OutputFormat* formatByOption(int index)
{
    return index >= 0 && index < 4 ? &outputFormats[index] : nullptr;
}

inline constexpr std::int32_t defaultWmaProfile = 39;
