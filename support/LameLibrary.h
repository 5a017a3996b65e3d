// Whether the MP3 encoder library is on this computer. It is looked for as a file, each time anew.
#pragma once

#include <QString>
#include <QStringList>

struct LameLibraryPlace {
    QStringList folders;    ///< where the loader looks
    QString file;
};

/// The platform's place. Tests replace it.
LameLibraryPlace& lameLibraryPlace();

bool LameEncoderPresent();

/// The folder that the user is told to put the library into, with a trailing separator.
QString lameLibraryFolder();
