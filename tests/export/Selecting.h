// Ground for the tests of the output format: a form that starts with these settings, with or without the
// library.
#pragma once

#include "export/Saving.h"
#include "support/DialogDriver.h"
#include "support/LameLibrary.h"

/// The settings of one test, and the form that starts with them.
struct Start {
    FormFixture fixture;

    Start(std::initializer_list<std::array<const char*, 3>> settings = {})
    {
        for (const auto& [section, key, value] : settings) fixture.writeSetting(section, key, value);
    }
    CutterSelect& load() { return fixture.load(); }
    QStringList writer() const { return journal().commandsOf("FileWenc.(Set|Is)Format"); }
};

/// One library folder, empty or not, for the time of a test.
struct LibraryAt {
    LameLibraryPlace before = lameLibraryPlace();
    explicit LibraryAt(const QString& folder) { lameLibraryPlace().folders = QStringList{folder}; }
    ~LibraryAt() { lameLibraryPlace() = before; }
};

/// Leaves the next dialog by Cancel and notes its name.
inline void leave(DialogDriver& driver, QStringList& shown)
{
    driver.expect([&shown](QDialog& dialog) {
        shown << dialog.objectName();
        QMetaObject::invokeMethod(&dialog, "reject", Qt::QueuedConnection);
        return true;
    });
}

/// A start without the library, its dialog left by Cancel.
struct WithoutLibrary : Start {
    QTemporaryDir empty;
    LibraryAt library{empty.path()};
    DialogDriver driver;
    QStringList shown;

    explicit WithoutLibrary(std::initializer_list<std::array<const char*, 3>> settings = {}) : Start(settings)
    {
        leave(driver, shown);
    }
};

/// Index of the button that is on, -1 when none is.
inline int optionOf(const CutterSelect& form)
{
    for (int i = 0; i < 4; ++i)
        if (form.Option1[static_cast<std::size_t>(i)].isChecked()) return i;
    return -1;
}

inline QString panel2(CutterSelect& form)
{
    return form.StatusBar1.Panels(2).text();
}

/// The calls of one selection.
inline const QStringList mp3Once{"FileWenc.SetFormatMP3Ex"}, pcm{"FileWenc.SetFormatPCM 44100 2 16"},
    ogg{"FileWenc.SetFormatOggVorbis 44100 2 128 0 0 400"},
    wma{"FileWenc.SetFormatWMA 39", "FileWenc.SetFormatWMA 39"};
