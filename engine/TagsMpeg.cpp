#include "core/Errors.h"
#include "engine/Latin1Text.h"
#include "engine/TagFields.h"
#include "engine/TagStream.h"

#include <taglib/id3v1tag.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/id3v2tag.h>
#include <taglib/mpegfile.h>
#include <taglib/textidentificationframe.h>

namespace {

constexpr int version1Bytes = 128;

void setFrame(TagLib::ID3v2::Tag& tag, const char* id, const QString& text)
{
    tag.removeFrames(id);
    if (text.isEmpty()) return;
    auto* frame = new TagLib::ID3v2::TextIdentificationFrame(id, TagLib::String::Latin1);
    frame->setText(toTag(text));
    tag.addFrame(frame);    // takes the frame over
}

/// A field of fixed length, filled up with zeros.
QByteArray fixedField(const QString& text, int length)
{
    return latin1Text(text).left(length).leftJustified(length, '\0');
}

/// The whole tag by hand: TagLib shortens the comment, and leaves out a tag without texts.
QByteArray version1Tag(const TagFields& fields)
{
    QByteArray tag = "TAG";
    tag += fixedField(fields.title, 30);
    tag += fixedField(fields.artist, 30);
    tag += fixedField(fields.album, 30);
    tag += fixedField(QString::number(fields.year), 4);
    QByteArray comment = fixedField(fields.comment, 30);
    // A track number takes the place of the comment's last two characters, if they are free.
    if (fields.track >= 1 && fields.track <= 255 && comment.endsWith(QByteArray(2, '\0')))
        comment[29] = static_cast<char>(fields.track);
    tag += comment;
    tag += static_cast<char>(fields.genre >= 0 && fields.genre < genreCount ? fields.genre : 255);
    return tag;
}

bool hasVersion1(TagStream& stream)
{
    if (stream.length() < version1Bytes) return false;
    stream.seek(-version1Bytes, TagStream::End);
    return stream.readBlock(3) == "TAG";
}

}

/// Version 2 first; version 1 stands in for what it doesn't have.
TagFields readMpegTags(TagStream& stream)
{
    TagLib::MPEG::File file(&stream, TagLib::ID3v2::FrameFactory::instance(), false);
    TagFields fields = commonFields(file.ID3v2Tag());
    const TagFields older = commonFields(file.ID3v1Tag());
    for (QString TagFields::*text :
         {&TagFields::title, &TagFields::artist, &TagFields::album, &TagFields::comment})
        if ((fields.*text).isEmpty()) fields.*text = older.*text;
    if (fields.genre < 0) fields.genre = older.genre;
    if (fields.year == 0) fields.year = older.year;
    return fields;
}

void writeMpegTagVersion1(TagStream& stream, const TagFields& fields)
{
    const long end = stream.length() - (hasVersion1(stream) ? version1Bytes : 0);
    const QByteArray tag = version1Tag(fields);
    stream.seek(end);
    stream.writeBlock(TagLib::ByteVector(tag.constData(), static_cast<unsigned int>(tag.size())));
}

void writeMpegTagVersion2(TagStream& stream, const TagFields& fields)
{
    using TagLib::MPEG::File;
    File file(&stream, TagLib::ID3v2::FrameFactory::instance(), false);
    TagLib::ID3v2::Tag& tag = *file.ID3v2Tag(true);
    tag.setComment(toTag(fields.comment));
    setFrame(tag, "TIT2", fields.title);
    setFrame(tag, "TPE1", fields.artist);
    setFrame(tag, "TALB", fields.album);
    setFrame(tag, "TRCK", fields.track > 0 ? QString::number(fields.track) : QString());
    setFrame(tag, "TENC", fields.encodedBy);
    setFrame(tag, "TCON", genreName(fields.genre).isEmpty() ? QString() : QString("(%1)").arg(fields.genre));
    // The year as version 2.3 has it: on its way from 2.4 TagLib loses years of fewer than four digits.
    tag.removeFrames("TDRC");
    setFrame(tag, "TYER", QString::number(fields.year));
    if (!file.save(File::ID3v2, File::StripNone, TagLib::ID3v2::v3, File::DoNotDuplicate))
        throw EngineError("the tag can't be written");
}
