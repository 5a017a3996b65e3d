#include "support/LameLibrary.h"

#include "support/Registre.h"

#include <algorithm>

LameLibraryPlace& lameLibraryPlace()
{
    static LameLibraryPlace place{
        {QStringLiteral("/usr/lib/" QUILLON_MULTIARCH), QStringLiteral("/lib/" QUILLON_MULTIARCH),
         QStringLiteral("/usr/local/lib"), QStringLiteral("/usr/lib64"), QStringLiteral("/lib64"),
         QStringLiteral("/usr/lib"), QStringLiteral("/lib")},
        QStringLiteral("libmp3lame.so.0")};
    return place;
}

static QString withSeparator(const QString& folder)
{
    return folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
}

bool LameEncoderPresent()
{
    const LameLibraryPlace& place = lameLibraryPlace();
    return std::ranges::any_of(place.folders,
                               [&](const QString& f) { return FileExists(withSeparator(f) + place.file); });
}

QString lameLibraryFolder()
{
    return withSeparator(lameLibraryPlace().folders.value(0));
}
