#include "engine/TagFields.h"

#include <taglib/id3v1genres.h>
#include <taglib/tag.h>
#include <taglib/tstring.h>

TagFields commonFields(const TagLib::Tag* tag)
{
    TagFields fields;
    if (tag == nullptr) return fields;
    fields.title = fromTag(tag->title());
    fields.artist = fromTag(tag->artist());
    fields.album = fromTag(tag->album());
    fields.comment = fromTag(tag->comment());
    fields.genre = genreIndex(tag->genre());
    fields.year = static_cast<std::int32_t>(tag->year());
    return fields;
}

void setCommonTexts(TagLib::Tag& tag, const TagFields& fields)
{
    tag.setTitle(toTag(fields.title));
    tag.setArtist(toTag(fields.artist));
    tag.setAlbum(toTag(fields.album));
    tag.setComment(toTag(fields.comment));
}

QString fromTag(const TagLib::String& text)
{
    return QString::fromStdString(text.to8Bit(true));
}

TagLib::String toTag(const QString& text)
{
    return TagLib::String(text.toStdString(), TagLib::String::UTF8);
}

QString genreName(std::int32_t genre)
{
    return genre >= 0 && genre < genreCount ? fromTag(TagLib::ID3v1::genre(genre)) : QString();
}

std::int32_t genreIndex(const TagLib::String& name)
{
    const std::int32_t index = TagLib::ID3v1::genreIndex(name);
    return index < genreCount ? index : -1;
}
