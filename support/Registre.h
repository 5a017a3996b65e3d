// The settings file, and small questions to the file system. Nothing is cached: each reader asks the file at
// the moment it needs a value, each writer writes at once.
#pragma once

#include <QString>

/// Fixes `IniPath` and `IniFolder`, and makes the settings folder where it is missing. Never fails.
void LocateIniFile();

/// The value of a key; "" when the key or the file is missing. At most 254 characters. Sections and keys are
/// found without regard to case.
QString IniRead(const QString& file, const QString& section, const QString& key);

/// Writes a key; everything else in the file stays, comments too. A failed write goes unnoticed.
void IniWrite(const QString& file, const QString& section, const QString& key, const QString& value);

/// Whether there is a file of that name; false for "" and for a name that ends in a separator.
bool FileExists(const QString& path);

/// Whether there is a folder of that name; one trailing separator is allowed.
bool FolderExists(const QString& path);

/// The folder of the user's settings (the only id, 26), or "".
QString SpecialFolderPath(int id);
inline constexpr int applicationDataFolder = 26;

/// The text up to its first zero character.
QString TrimAtNull(const QString& text);

/// Folder of the program, without a trailing separator. Tests set another one.
QString programFolder();
void setProgramFolder(const QString& folder);

/// Path of a language file below the program folder.
QString languageFile(const QString& name);
