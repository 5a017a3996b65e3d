#include "engine/FileEngine.h"

#include "core/Errors.h"

void FileEngine::Open(const QString& path)
{
    endWhatIsOpen();
    reader_.Open(path);
}

void FileEngine::Create(const QString& path)
{
    endWhatIsOpen();
    writer_.Create(path);
}

// A failed save leaves its writer open. Whatever is wrong with that file must not stop the next one.
void FileEngine::endWhatIsOpen()
{
    skipFaults([&] { Close(); });
}

void FileEngine::Close()
{
    reader_.Close();
    writer_.Close();
}

void FileEngine::SetInputFormat(std::int32_t rate, std::int32_t channels)
{
    if (reader_.IsClosed())
        writer_.SetInputFormat(rate, channels);
    else
        reader_.SetInputFormat(rate, channels);
}

QString FileEngine::FormatString() const
{
    return reader_.IsClosed() ? writer_.FormatString() : reader_.FormatString();
}

void FileEngine::SetFormatPCM(std::int32_t rate, std::int32_t channels, std::int32_t bits)
{
    writer_.SetFormatPCM(rate, channels, bits);
}

void FileEngine::SetFormatMP3Simple(std::int32_t rate, std::int32_t bitrate, std::int32_t channels)
{
    writer_.SetFormatMP3Simple(rate, bitrate, channels);
}

bool FileEngine::IsFormatOggVorbisAvailable(std::int32_t rate, std::int32_t channels, std::int32_t bitrate,
                                            std::int32_t minimum, std::int32_t maximum) const
{
    return writer_.IsFormatOggVorbisAvailable(rate, channels, bitrate, minimum, maximum);
}

void FileEngine::SetFormatOggVorbis(std::int32_t rate, std::int32_t channels, std::int32_t bitrate,
                                    std::int32_t minimum, std::int32_t maximum, std::int32_t quality)
{
    writer_.SetFormatOggVorbis(rate, channels, bitrate, minimum, maximum, quality);
}
