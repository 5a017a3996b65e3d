// Tags: the panel is filled when a file is opened, and goes into each part that is saved, with the part's own
// title.
#include "core/CutterSelect.h"

void CutterSelect::readFileTags(const QString& file)
{
    const QString kind = file.right(3).toUpper();
    if (kind == QLatin1String("WMA") || kind == QLatin1String("WAV") || kind == QLatin1String("AVI")) return;
    AudioTags->ReadFrom(file);
    FileTitle = AudioTags->GetTitle();
    infoArtist.setText(AudioTags->GetArtist());
    infoAlbum.setText(AudioTags->GetAlbum());
    infoGenre.setCurrentIndex(AudioTags->GetGenre());
    infoComment.setText(AudioTags->GetComment());
    infoYear.setText(QString::number(AudioTags->GetYear()));
}

// Kept: without the default an empty year can't be converted, and then neither version is written.
void CutterSelect::WritePartTags(const QString& path, const QString& title, bool isYearDefaulted)
{
    for (const std::int32_t version : {1, 2}) {
        AudioTags->SetTagVersion(version);
        AudioTags->SetTitle(title);
        AudioTags->SetArtist(infoArtist.text());
        AudioTags->SetAlbum(infoAlbum.text());
        AudioTags->SetGenre(infoGenre.currentIndex());
        AudioTags->SetComment(infoComment.text());
        if (isYearDefaulted && infoYear.text().isEmpty()) infoYear.setText(QStringLiteral("0"));
        AudioTags->SetYear(parseLong(infoYear.text()));
        AudioTags->SetTrack(0);
        AudioTags->SetEncodedBy(QStringLiteral("Quillon - Meridel"));
        AudioTags->WriteTo(path);
    }
}
