#include "core/Errors.h"
#include "engine/TagFields.h"
#include "engine/TagStream.h"

#include <taglib/asffile.h>
#include <taglib/asftag.h>

TagFields readAsfTags(TagStream& stream)
{
    TagLib::ASF::File file(&stream, false);
    TagFields fields;
    if (!file.isValid() || file.tag() == nullptr) return fields;
    const TagLib::ASF::Tag& tag = *file.tag();
    fields.title = fromTag(tag.title());
    fields.artist = fromTag(tag.artist());
    fields.album = fromTag(tag.album());
    fields.comment = fromTag(tag.comment());
    fields.genre = genreIndex(tag.genre());
    fields.year = static_cast<std::int32_t>(tag.year());
    return fields;
}

// No track: this kind of tag would hold a track 0 as a number like any other.
void writeAsfTags(TagStream& stream, const TagFields& fields)
{
    TagLib::ASF::File file(&stream, false);
    if (!file.isValid() || file.tag() == nullptr) throw EngineError("no WMA file");
    TagLib::ASF::Tag& tag = *file.tag();
    tag.setTitle(toTag(fields.title));
    tag.setArtist(toTag(fields.artist));
    tag.setAlbum(toTag(fields.album));
    tag.setComment(toTag(fields.comment));
    tag.setAttribute("WM/Year", toTag(QString::number(fields.year)));
    tag.setAttribute("WM/EncodedBy", toTag(fields.encodedBy));
    if (fields.genre >= 0)
        tag.setGenre(toTag(genreName(fields.genre)));
    else
        tag.removeItem("WM/Genre");
    if (!file.save()) throw EngineError("the tag can't be written");
}
