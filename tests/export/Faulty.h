// Ground for the tests of failing saves: every engine call of a save as data rows, and a form to fail in.
#pragma once

#include "export/Saving.h"

/// Each engine call of a save between its dialog and its tags, under the format that makes it.
inline void callsOfASave()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("call");
    const auto row = [](const char* format, const char* call) {
        QTest::addRow("%s in %s", call, format) << format << QString("%1").arg(call);
    };
    row("WAV", "FileWenc.SetFormatPCM");
    row("MP3", "FileWenc.SetFormatMP3Ex");
    row("OGG", "FileWenc.IsFormatOggVorbisAvailable");
    row("OGG", "FileWenc.SetFormatOggVorbis");
    row("OGG", "FileWenc.FormatString");
    row("WMA", "FileWenc.SetFormatWMA");
    for (const char* format : {"WAV", "MP3"})
        for (const char* call :
             {"FileWenc.Create", "FileR.GetOutputRate", "FileR.GetChannels", "FileWenc.SetInputFormat",
              "FileR.ReadArray", "FileWenc.WriteArray", "FileR.GetReadChannels", "FileWenc.Close"})
            row(format, call);
}

/// Each engine call that writes the tags.
inline void callsOfTheTags()
{
    QTest::addColumn<QString>("call");
    for (const char* call : {"SetTagVersion", "SetTitle", "SetArtist", "SetAlbum", "SetGenre", "SetComment",
                             "SetYear", "SetTrack", "SetEncodedBy", "WriteTo"})
        QTest::addRow("AudioTags.%s", call) << QString("AudioTags.%1").arg(call);
}

/// A saving form whose Ogg settings have bitrates, so that the encoder is asked about them.
struct Faulty : Saving {
    explicit Faulty(const QString& format) : Saving(format)
    {
        const char* const keys[][2] = {{"1", "0"},   {"2", "0"},   {"3", "44100"}, {"4", "2"},
                                       {"5", "500"}, {"6", "128"}, {"7", "0"}};
        for (const auto& [key, value] : keys) fixture.writeSetting("OGG", key, value);
    }
    QSet<QString>& failing() { return fixture.engine.failing; }
};

/// How often this very command was given.
inline int times(const QString& command)
{
    return static_cast<int>(journal().commands().count(command));
}
