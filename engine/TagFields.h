// The fields of a tag, and how each kind of file holds them. Reading leaves out what the file doesn't have;
// writing throws EngineError when the file can't hold a tag or the change fails.
#pragma once

#include <QString>

#include <cstdint>

namespace TagLib {
class String;
class Tag;
}
class TagStream;

struct TagFields {
    QString title;
    QString artist;
    QString album;
    QString comment;
    QString encodedBy;
    std::int32_t genre = -1;    ///< position in the ID3 list, -1 none
    std::int32_t year = 0;
    std::int32_t track = 0;    ///< 0 none
};

constexpr std::int32_t genreCount = 148;    ///< what the standard list and its extensions offer

TagFields readMpegTags(TagStream& stream);
void writeMpegTagVersion1(TagStream& stream, const TagFields& fields);
void writeMpegTagVersion2(TagStream& stream, const TagFields& fields);

TagFields readOggTags(TagStream& stream);
void writeOggTags(TagStream& stream, const TagFields& fields);

TagFields readAsfTags(TagStream& stream);
void writeAsfTags(TagStream& stream, const TagFields& fields);

/// What a tag of any kind holds alike; all left out without a tag.
TagFields commonFields(const TagLib::Tag* tag);
/// Sets title, artist, album and comment.
void setCommonTexts(TagLib::Tag& tag, const TagFields& fields);

QString fromTag(const TagLib::String& text);
TagLib::String toTag(const QString& text);

/// Name of a genre of the list; "" beyond it.
QString genreName(std::int32_t genre);

/// Position of a name in the list, -1 when it isn't there.
std::int32_t genreIndex(const TagLib::String& name);
