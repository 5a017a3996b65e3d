#include "engine/FileWriter.h"

#include "core/Errors.h"
#include "engine/Converter.h"
#include "engine/Mp3Encoder.h"
#include "engine/OutputFile.h"
#include "engine/VorbisEncoder.h"
#include "engine/WavWriter.h"
#include "engine/WmaEncoder.h"

#include <optional>
#include <utility>

struct FileWriter::State {
    QString lameFile;
    std::shared_ptr<const OutputFormat> format = std::make_shared<WavFormat>(44100, 2, 16);

    // The open file. A format set meanwhile counts from the next one on.
    std::shared_ptr<const OutputFormat> running;
    std::unique_ptr<OutputFile> file;
    std::unique_ptr<Encoder> encoder;    // goes before the file
    std::optional<Converter> converter;
    std::int32_t inputChannels = 2;
    SampleArray converted;
    bool failureTold = false;
};

FileWriter::FileWriter() : FileWriter("libmp3lame.so.0") {}

FileWriter::FileWriter(const QString& lameFile) : state_(std::make_unique<State>())
{
    state_->lameFile = lameFile;
}

FileWriter::~FileWriter()
{
    skipFaults([&] { Close(); });
}

void FileWriter::SetFormatPCM(std::int32_t rate, std::int32_t channels, std::int32_t bits)
{
    state_->format = std::make_shared<WavFormat>(rate, channels, bits);
}

void FileWriter::SetFormatMP3Ex(const Mp3Format& format)
{
    state_->format = std::make_shared<Mp3Output>(format, state_->lameFile);
}

void FileWriter::SetFormatMP3Simple(std::int32_t rate, std::int32_t bitrate, std::int32_t channels)
{
    LameFormat format;
    format.FormatRate = rate;
    format.FormatBitrate = bitrate;
    format.FormatChannels = channels;
    SetFormatMP3Ex(format);
}

bool FileWriter::IsFormatOggVorbisAvailable(std::int32_t rate, std::int32_t channels, std::int32_t bitrate,
                                            std::int32_t minimum, std::int32_t maximum) const
{
    return vorbisAccepts({rate, channels, bitrate, minimum, maximum, -1});
}

void FileWriter::SetFormatOggVorbis(std::int32_t rate, std::int32_t channels, std::int32_t bitrate,
                                    std::int32_t minimum, std::int32_t maximum, std::int32_t quality)
{
    const VorbisSettings settings{rate, channels, bitrate, minimum, maximum, quality};
    state_->format = std::make_shared<VorbisFormat>(settings);
}

void FileWriter::SetFormatWMA(std::int32_t profile)
{
    state_->format = std::make_shared<WmaFormat>(profile);
}

std::int32_t FileWriter::GetWmaProfileCount() const
{
    return wmaProfileCount();
}

void FileWriter::SetInputFormat(std::int32_t rate, std::int32_t channels)
{
    if (!isOpen()) throw EngineError("no file is being written");
    const OutputFormat& out = *state_->running;
    std::optional<Converter> next;
    if (Converter::needed(rate, channels, out.rate(), out.channels()))
        next.emplace(rate, channels, out.rate(), out.channels());
    flushConverter();
    state_->converter = std::move(next);
    state_->inputChannels = channels;
}

void FileWriter::Create(const QString& path)
{
    skipFaults([&] { Close(); });
    auto file = std::make_unique<OutputFile>(path);
    auto encoder = state_->format->makeEncoder(*file);
    file->takePlace();
    state_->running = state_->format;
    state_->inputChannels = state_->running->channels();
    state_->failureTold = false;
    state_->file = std::move(file);
    state_->encoder = std::move(encoder);
}

void FileWriter::WriteArray(const SampleArray& samples)
{
    if (!isOpen()) throw EngineError("no file is being written");
    const std::size_t half = samples.size() % static_cast<std::size_t>(state_->inputChannels);
    try {
        feed(std::span(samples).first(samples.size() - half));
    } catch (...) {
        state_->failureTold = true;
        throw;
    }
}

void FileWriter::feed(std::span<const std::int16_t> samples)
{
    if (!state_->converter) {
        state_->encoder->write(samples);
        return;
    }
    state_->converted.clear();
    state_->converter->push(samples, state_->converted);
    state_->encoder->write(state_->converted);
}

void FileWriter::flushConverter()
{
    if (!state_->converter) return;
    state_->converted.clear();
    state_->converter->flush(state_->converted);
    state_->encoder->write(state_->converted);
}

bool FileWriter::isOpen() const
{
    return state_->encoder != nullptr;
}

QString FileWriter::FormatString() const
{
    return state_->format->text();
}

void FileWriter::Close()
{
    if (!isOpen()) return;
    std::exception_ptr failure;
    try {
        finishFile();
    } catch (const std::exception&) {
        failure = std::current_exception();
    }
    state_->converter.reset();
    state_->encoder.reset();
    state_->file.reset();
    state_->running.reset();
    if (failure && !state_->failureTold) std::rethrow_exception(failure);
}

void FileWriter::finishFile()
{
    if (!state_->failureTold) flushConverter();
    state_->encoder->finish();
    state_->file->close();
}
