#include "engine/FileReader.h"

#include "core/Errors.h"
#include "engine/CompressedReader.h"
#include "engine/Converter.h"
#include "engine/WavReader.h"

#include <algorithm>
#include <limits>

struct FileReader::State {
    bool wmaEnabled = false;
    std::unique_ptr<Decoder> decoder;      // null while nothing is open
    SoundFormat out;                       // of the arrays
    std::optional<Converter> converter;    // where that isn't the file's own
    bool flushed = false;                  // the converter has given all
    SampleArray piece;                     // on its way into the converter
    SampleArray converted;                 // out of it and not delivered yet, from `taken` on
    std::size_t taken = 0;

    Decoder& open();
    std::int64_t total() const;
    void startConverter();
    void readConverted(SampleArray& out, std::int64_t frames);
    bool convertMore();
};

namespace {

constexpr std::int64_t pieceFrames = 16384;
constexpr std::int64_t mostFrames = std::numeric_limits<std::int32_t>::max();

std::unique_ptr<Decoder> makeDecoder(const QString& path, bool wmaEnabled)
{
    const auto file = std::make_shared<const SourceFile>(path);
    if (const auto layout = findWavLayout(*file)) return std::make_unique<WavReader>(file, *layout);
    return std::make_unique<CompressedReader>(inspectFile(file, wmaEnabled));
}

}    // namespace

Decoder& FileReader::State::open()
{
    if (!decoder) throw EngineError(QStringLiteral("no file is open for reading"));
    return *decoder;
}

std::int64_t FileReader::State::total() const
{
    if (!decoder) return 0;
    const SoundInfo& info = decoder->info();
    return Converter::convertedLength(info.total, info.format.rate, out.rate);
}

void FileReader::State::startConverter()
{
    const SoundFormat& in = decoder->info().format;
    converter.reset();
    if (Converter::needed(in.rate, in.channels, out.rate, out.channels))
        converter.emplace(in.rate, in.channels, out.rate, out.channels);
    flushed = false;
    converted.clear();
    taken = 0;
}

void FileReader::State::readConverted(SampleArray& result, std::int64_t frames)
{
    std::size_t wanted = static_cast<std::size_t>(frames) * out.channels;
    while (wanted > 0) {
        if (taken == converted.size() && !convertMore()) return;
        const std::size_t count = std::min(wanted, converted.size() - taken);
        const auto from = converted.begin() + static_cast<std::ptrdiff_t>(taken);
        result.insert(result.end(), from, from + static_cast<std::ptrdiff_t>(count));
        taken += count;
        wanted -= count;
    }
}

bool FileReader::State::convertMore()
{
    converted.clear();
    taken = 0;
    while (converted.empty() && !flushed) {
        piece.clear();
        decoder->read(piece, pieceFrames);
        flushed = piece.empty();
        if (flushed)
            converter->flush(converted);
        else
            converter->push(piece, converted);
    }
    return !converted.empty();
}

FileReader::FileReader() : state_(std::make_unique<State>()) {}

FileReader::~FileReader() = default;

void FileReader::SetWmaEnabled(bool enabled)
{
    state_->wmaEnabled = enabled;
}

void FileReader::Open(const QString& path)
{
    Close();
    auto decoder = makeDecoder(path, state_->wmaEnabled);
    if (decoder->info().total > mostFrames) throw EngineError(QStringLiteral("%1 is too long").arg(path));
    state_->decoder = std::move(decoder);
    state_->out = state_->decoder->info().format;
}

bool FileReader::IsClosed() const
{
    return !state_->decoder;
}

std::int32_t FileReader::GetTotalSamples() const
{
    return static_cast<std::int32_t>(state_->total());
}

std::int32_t FileReader::GetSampleRate() const
{
    return state_->decoder ? state_->decoder->info().format.rate : 0;
}

std::int32_t FileReader::GetOutputRate() const
{
    return state_->out.rate;
}

std::int32_t FileReader::GetChannels() const
{
    return state_->out.channels;
}

std::int32_t FileReader::GetReadChannels() const
{
    return state_->out.channels;
}

std::int32_t FileReader::GetDurationMs() const
{
    if (!state_->decoder) return 0;
    const SoundInfo& info = state_->decoder->info();
    return static_cast<std::int32_t>(
        std::min(Converter::convertedLength(info.total, info.format.rate, 1000), mostFrames));
}

SampleArray FileReader::ReadArray(std::int32_t count)
{
    Decoder& decoder = state_->open();
    SampleArray result;
    if (count <= 0) return result;
    result.reserve(static_cast<std::size_t>(std::min<std::int64_t>(count, state_->total())) *
                   state_->out.channels);
    if (state_->converter)
        state_->readConverted(result, count);
    else
        decoder.read(result, count);
    return result;
}

std::int32_t FileReader::Seek(std::int32_t position)
{
    Decoder& decoder = state_->open();
    const auto target = static_cast<std::int32_t>(std::clamp<std::int64_t>(position, 0, state_->total()));
    const SoundInfo& info = decoder.info();
    const std::int64_t frame = Converter::convertedLength(target, state_->out.rate, info.format.rate);
    decoder.seek(std::min(frame, info.total));
    state_->startConverter();
    return target;
}

void FileReader::SetInputFormat(std::int32_t rate, std::int32_t channels)
{
    state_->open();
    const SoundFormat& in = state_->decoder->info().format;
    const SoundFormat before = std::exchange(state_->out, SoundFormat{rate, channels});
    try {
        if (Converter::needed(in.rate, in.channels, rate, channels))
            Converter(in.rate, in.channels, rate, channels);
        if (state_->total() > mostFrames) throw EngineError(QStringLiteral("too long at %1 Hz").arg(rate));
        state_->startConverter();
    } catch (const EngineError&) {
        state_->out = before;
        throw;
    }
}

QString FileReader::FormatString() const
{
    return state_->decoder ? state_->decoder->info().text : QString();
}

void FileReader::Close()
{
    const bool wmaEnabled = state_->wmaEnabled;
    *state_ = State();
    state_->wmaEnabled = wmaEnabled;
}
