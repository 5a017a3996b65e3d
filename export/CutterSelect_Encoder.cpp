// The one place where stored encoder settings become calls on the writer.
#include "core/CutterSelect.h"

#include "export/FormatTable.h"
#include "export/Mp3Keys.h"
#include "export/OggPlan.h"
#include "support/Registre.h"

// A missing or unreadable key leaves its property as it was, and the next key is read all the same.
void CutterSelect::ApplyMp3Settings()
{
    for (const Mp3Key& row : mp3Keys)
        skipFaults([&] {
            setFromText(*MP3LameEncoderMain, row.property,
                        IniRead(IniPath, QStringLiteral("Mp3"), QString::fromLatin1(row.key)));
        });
    skipFaults([&] { FileWenc->SetFormatMP3Ex(*MP3LameEncoderMain); });
    skipFaults([&] { showFormatLine(); });
}

void CutterSelect::ApplyOggSettings()
{
    const auto value = [](const char* key) {
        return IniRead(IniPath, QStringLiteral("OGG"), QString::fromLatin1(key));
    };
    const auto accepts = [this](const OggCall& c) {
        return FileWenc->IsFormatOggVorbisAvailable(c.rate, c.channels, c.bitrate, c.minBitrate,
                                                    c.maxBitrate);
    };
    const OggCall c = value("1").isEmpty() ? OggCall{} : planOgg(readOggStored(value), accepts);
    FileWenc->SetFormatOggVorbis(c.rate, c.channels, c.bitrate, c.minBitrate, c.maxBitrate, c.quality);
    showFormatLine();
}

void CutterSelect::applyWmaSettings()
{
    // Kept: the default first, so that the writer is in WMA mode before the stored profile is given.
    FileWenc->SetFormatWMA(defaultWmaProfile);
    const QString number = IniRead(IniPath, QStringLiteral("WMA"), QStringLiteral("Num"));
    FileWenc->SetFormatWMA(number.isEmpty() ? defaultWmaProfile : parseLong(number));
}

void CutterSelect::showFormatLine()
{
    StatusBar1.Panels(2).setText(langText(71) + FileWenc->FormatString());
}
