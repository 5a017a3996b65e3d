// Rule: the file name that a save proposes.
#pragma once

#include <QString>

#include <optional>

/// "title.FORMAT" where there is a title, with the format in capitals; else "song-Part 3.format" from the
/// base name of the source, whose last 4 characters are cut blindly. None when an untitled name can't be
/// built, because the path of the source holds no separator.
std::optional<QString> proposeFileName(const QString& title, const QString& sourcePath,
                                       std::int32_t partNumber, const QString& format);
