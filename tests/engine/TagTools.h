// What the tests of tags share: files of each kind, and a tag set in one call.
#pragma once

#include "engine/TagEngine.h"
#include "engine/WriteTools.h"

namespace tools {

/// The texts of one tag.
struct Texts {
    QString title = "A title";
    QString artist = "An artist";
    QString album = "An album";
    QString comment = "A comment";
    int genre = 17;
    int year = 1999;
};

/// A file of three seconds, made once for each kind: "mp3", "ogg" or "wma".
inline QString soundFile(const Folder& folder, const QString& kind)
{
    static QMap<QString, QByteArray> made;
    const QString path = folder / ("a." + kind);
    if (!made.contains(kind)) {
        FileWriter writer;
        if (kind == "mp3")
            writer.SetFormatMP3Simple(44100, 128, 2);
        else if (kind == "ogg")
            writer.SetFormatOggVorbis(44100, 2, 128, 0, 0, 400);
        else
            writer.SetFormatWMA(39);
        save(writer, path, music(44100, 2, 3 * 44100));
        made.insert(kind, contents(path));
    }
    putContents(path, made.value(kind));
    return path;
}

inline void setTexts(AudioTag& tag, const Texts& texts)
{
    tag.SetTitle(texts.title);
    tag.SetArtist(texts.artist);
    tag.SetAlbum(texts.album);
    tag.SetComment(texts.comment);
    tag.SetGenre(texts.genre);
    tag.SetYear(texts.year);
    tag.SetTrack(0);
    tag.SetEncodedBy("Some program");
}

inline void writeTag(const QString& path, int version, const Texts& texts)
{
    TagEngine tag;
    tag.SetTagVersion(version);
    setTexts(tag, texts);
    tag.WriteTo(path);
}

inline void writeBothTags(const QString& path, const Texts& texts)
{
    writeTag(path, 1, texts);
    writeTag(path, 2, texts);
}

/// What reads back, in one line.
inline QString readTag(const QString& path)
{
    TagEngine tag;
    tag.ReadFrom(path);
    return QStringList{tag.GetTitle(),
                       tag.GetArtist(),
                       tag.GetAlbum(),
                       tag.GetComment(),
                       QString::number(tag.GetGenre()),
                       QString::number(tag.GetYear())}
        .join('|');
}

inline QString line(const Texts& texts)
{
    return QStringList{texts.title,
                       texts.artist,
                       texts.album,
                       texts.comment,
                       QString::number(texts.genre),
                       QString::number(texts.year)}
        .join('|');
}

}

Q_DECLARE_METATYPE(tools::Texts)
