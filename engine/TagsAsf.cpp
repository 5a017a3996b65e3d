#include "core/Errors.h"
#include "engine/TagFields.h"
#include "engine/TagStream.h"

#include <taglib/asffile.h>
#include <taglib/asftag.h>

TagFields readAsfTags(TagStream& stream)
{
    TagLib::ASF::File file(&stream, false);
    return commonFields(file.isValid() ? file.tag() : nullptr);
}

// No track: this kind of tag would hold a track 0 as a number like any other.
void writeAsfTags(TagStream& stream, const TagFields& fields)
{
    TagLib::ASF::File file(&stream, false);
    if (!file.isValid() || file.tag() == nullptr) throw EngineError("no WMA file");
    TagLib::ASF::Tag& tag = *file.tag();
    setCommonTexts(tag, fields);
    tag.setAttribute("WM/Year", toTag(QString::number(fields.year)));
    tag.setAttribute("WM/EncodedBy", toTag(fields.encodedBy));
    if (fields.genre >= 0)
        tag.setGenre(toTag(genreName(fields.genre)));
    else
        tag.removeItem("WM/Genre");
    if (!file.save()) throw EngineError("the tag can't be written");
}
