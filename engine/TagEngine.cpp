#include "engine/TagEngine.h"

#include "core/Errors.h"
#include "engine/TagStream.h"

#include <taglib/tbytevector.h>

namespace {

enum class Kind { Mpeg, Ogg, Asf };

/// By content: users give files any name, and MP3 sound is the rest.
Kind kindOf(TagStream& stream)
{
    static const char asf[] = "\x30\x26\xb2\x75\x8e\x66\xcf\x11\xa6\xd9\x00\xaa\x00\x62\xce\x6c";
    stream.seek(0);
    const TagLib::ByteVector start = stream.readBlock(16);
    stream.seek(0);
    if (start.startsWith("OggS")) return Kind::Ogg;
    return start == TagLib::ByteVector(asf, 16) ? Kind::Asf : Kind::Mpeg;
}

}

void TagEngine::ReadFrom(const QString& path)
{
    TagStream stream(path, TagStream::Access::Read);
    switch (kindOf(stream)) {
    case Kind::Mpeg:
        read_ = readMpegTags(stream);
        break;
    case Kind::Ogg:
        read_ = readOggTags(stream);
        break;
    case Kind::Asf:
        read_ = readAsfTags(stream);
        break;
    }
}

void TagEngine::WriteTo(const QString& path)
{
    TagStream stream(path, TagStream::Access::Write);
    switch (kindOf(stream)) {
    case Kind::Mpeg:
        (version_ == 1 ? writeMpegTagVersion1 : writeMpegTagVersion2)(stream, write_);
        break;
    case Kind::Ogg:
        writeOggTags(stream, write_);
        break;
    case Kind::Asf:
        writeAsfTags(stream, write_);
        break;
    }
    stream.checkWritten();
}

void TagEngine::SetTagVersion(std::int32_t version)
{
    if (version != 1 && version != 2) throw EngineError(QString("no tag version %1").arg(version));
    version_ = version;
}
