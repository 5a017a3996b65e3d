#include "core/Errors.h"
#include "engine/TagFields.h"
#include "engine/TagStream.h"

#include <taglib/vorbisfile.h>
#include <taglib/xiphcomment.h>

namespace {

/// Puts the text into a field that TagLib has no setter for; "" takes the field away.
void setField(TagLib::Ogg::XiphComment& tag, const char* name, const QString& text)
{
    if (text.isEmpty())
        tag.removeFields(name);
    else
        tag.addField(name, toTag(text), true);
}

}

TagFields readOggTags(TagStream& stream)
{
    TagLib::Ogg::Vorbis::File file(&stream, false);
    return commonFields(file.isValid() ? file.tag() : nullptr);
}

void writeOggTags(TagStream& stream, const TagFields& fields)
{
    TagLib::Ogg::Vorbis::File file(&stream, false);
    if (!file.isValid() || file.tag() == nullptr) throw EngineError("no Ogg Vorbis file");
    TagLib::Ogg::XiphComment& tag = *file.tag();
    setCommonTexts(tag, fields);
    tag.setGenre(toTag(genreName(fields.genre)));
    setField(tag, "DATE", QString::number(fields.year));
    setField(tag, "TRACKNUMBER", fields.track > 0 ? QString::number(fields.track) : QString());
    setField(tag, "ENCODEDBY", fields.encodedBy);
    if (!file.save()) throw EngineError("the tag can't be written");
}
