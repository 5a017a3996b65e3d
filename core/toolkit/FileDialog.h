// The toolkit's own file dialogs, told never to ask whether a file may be replaced and never to add a suffix.
#pragma once

#include "core/toolkit/Dialogs.h"

#include <QStringList>

std::optional<QString> askForOpen(const QString& title, const FileFilter& filter);
std::optional<QString> askForSave(const QString& title, const FileFilter& filter, const QString& name);
std::optional<QString> askForFolder(const QString& title);
