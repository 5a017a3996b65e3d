// Reads and writes one key of an ini file. A write goes through a new file and a rename, so no reader ever
// sees half a file and a full disk leaves the old one.
#pragma once

#include <QString>

/// "" when the key or the file is missing.
QString readIniValue(const QString& file, const QString& section, const QString& key);

/// Never throws; where the write fails the file stays as it was.
void writeIniValue(const QString& file, const QString& section, const QString& key, const QString& value);
