#include "support/FakeEngine.h"

#include "core/Errors.h"
#include "support/Journal.h"

#include <algorithm>

Journal& journal()
{
    static Journal one;
    return one;
}

FakeSound fakeSound(std::int32_t length, std::int32_t rate, std::int32_t channels)
{
    FakeSound sound;
    sound.rate = rate;
    sound.channels = channels;
    for (std::int32_t k = 0; k < length; ++k)
        for (std::int32_t c = 0; c < channels; ++c)
            sound.samples.push_back(static_cast<std::int16_t>(c == 0 ? k % 20000 : -(k % 20000)));
    return sound;
}

void FakeEngine::call(const QString& name, const QString& arguments)
{
    journal().command(arguments.isEmpty() ? name : name + QLatin1Char(' ') + arguments);
    if (failing.contains(name)) throw EngineError(name + QStringLiteral(" fails"));
    if (failAfter.contains(name) && failAfter[name]-- <= 0)
        throw EngineError(name + QStringLiteral(" fails"));
}

namespace {

QString list(std::initializer_list<std::int32_t> numbers)
{
    QStringList texts;
    for (const std::int32_t n : numbers) texts << QString::number(n);
    return texts.join(QLatin1Char(' '));
}

class FakeFile : public AudioFile {
public:
    FakeFile(FakeEngine& engine, const QString& name) : engine_(engine), name_(name) {}

    void SetWmaEnabled(bool on) override
    {
        call("SetWmaEnabled", on ? QStringLiteral("True") : QStringLiteral("False"));
    }
    void Open(const QString& path) override;
    bool IsClosed() const override
    {
        refuse("IsClosed");
        return !reading_;
    }
    std::int32_t GetTotalSamples() const override;
    std::int32_t GetSampleRate() const override { return query("GetSampleRate", sound_.rate); }
    std::int32_t GetOutputRate() const override { return query("GetOutputRate", sound_.rate); }
    std::int32_t GetChannels() const override { return query("GetChannels", sound_.channels); }
    std::int32_t GetReadChannels() const override
    {
        return query("GetReadChannels",
                     engine_.readChannels > 0 ? engine_.readChannels : std::max(1, sound_.channels));
    }
    std::int32_t GetDurationMs() const override { return 0; }
    SampleArray ReadArray(std::int32_t count) override;
    std::int32_t Seek(std::int32_t position) override;
    void SetFormatPCM(std::int32_t r, std::int32_t c, std::int32_t b) override;
    void SetFormatMP3Ex(const Mp3Format&) override { setFormat("SetFormatMP3Ex", {}, QStringLiteral("MP3")); }
    void SetFormatMP3Simple(std::int32_t r, std::int32_t b, std::int32_t c) override
    {
        setFormat("SetFormatMP3Simple", list({r, b, c}), QStringLiteral("MP3"));
    }
    bool IsFormatOggVorbisAvailable(std::int32_t r, std::int32_t c, std::int32_t b, std::int32_t lo,
                                    std::int32_t hi) const override
    {
        engine_.call(name_ + QStringLiteral(".IsFormatOggVorbisAvailable"), list({r, c, b, lo, hi}));
        return engine_.oggAccepts;
    }
    void SetFormatOggVorbis(std::int32_t r, std::int32_t c, std::int32_t b, std::int32_t lo, std::int32_t hi,
                            std::int32_t q) override
    {
        setFormat("SetFormatOggVorbis", list({r, c, b, lo, hi, q}), QStringLiteral("Ogg Vorbis"));
    }
    void SetFormatWMA(std::int32_t n) override
    {
        setFormat("SetFormatWMA", QString::number(n), QStringLiteral("WMA %1").arg(n));
    }
    std::int32_t GetWmaProfileCount() const override { return 51; }
    void SetInputFormat(std::int32_t r, std::int32_t c) override;
    void Create(const QString& path) override;
    void WriteArray(const SampleArray& samples) override;
    QString FormatString() const override
    {
        refuse("FormatString");
        return reading_ ? sound_.format : format_;
    }
    void Close() override;

private:
    void call(const char* what, const QString& arguments = {}) const
    {
        engine_.call(name_ + QLatin1Char('.') + QLatin1String(what), arguments);
    }
    std::int32_t query(const char* what, std::int32_t value) const;
    void refuse(const char* what) const;    // throws where the question is to fail
    void setFormat(const char* what, const QString& arguments, const QString& text);

    FakeEngine& engine_;
    QString name_, path_, format_ = QStringLiteral("none");
    FakeSound sound_;     // being read
    FakeSound target_;    // being written
    std::size_t at_ = 0;
    bool reading_ = false, writing_ = false;
};

std::int32_t FakeFile::query(const char* what, std::int32_t value) const
{
    journal().query(name_ + QLatin1Char('.') + QLatin1String(what));
    refuse(what);
    return value;
}

void FakeFile::refuse(const char* what) const
{
    const QString name = name_ + QLatin1Char('.') + QLatin1String(what);
    if (engine_.failing.contains(name)) throw EngineError(name + QStringLiteral(" fails"));
}

std::int32_t FakeFile::GetTotalSamples() const
{
    if (!reading_) return query("GetTotalSamples", 0);
    const auto own =
        static_cast<std::int32_t>(sound_.samples.size() / static_cast<std::size_t>(sound_.channels));
    return query("GetTotalSamples", sound_.claimedTotal >= 0 ? sound_.claimedTotal : own);
}

void FakeFile::Open(const QString& path)
{
    call("Open", path);
    reading_ = false;
    if (!engine_.disk.contains(path)) throw EngineError(QStringLiteral("no such file"));
    sound_ = engine_.disk.value(path);
    at_ = 0;
    reading_ = true;
}

SampleArray FakeFile::ReadArray(std::int32_t count)
{
    call("ReadArray", QString::number(count));
    if (!reading_) throw EngineError(QStringLiteral("not open"));
    const auto wanted =
        static_cast<std::size_t>(std::max(0, count)) * static_cast<std::size_t>(sound_.channels);
    const std::size_t n = std::min(wanted, sound_.samples.size() - std::min(at_, sound_.samples.size()));
    const auto from = sound_.samples.begin() + static_cast<std::ptrdiff_t>(at_);
    SampleArray block(from, from + static_cast<std::ptrdiff_t>(n));
    at_ += n;
    return block;
}

std::int32_t FakeFile::Seek(std::int32_t position)
{
    call("Seek", QString::number(position));
    at_ =
        std::min(static_cast<std::size_t>(std::max(0, position)) * static_cast<std::size_t>(sound_.channels),
                 sound_.samples.size());
    return position;
}

void FakeFile::setFormat(const char* what, const QString& arguments, const QString& text)
{
    call(what, arguments);
    format_ = arguments.isEmpty() ? text : text + QLatin1Char(' ') + arguments;
}

void FakeFile::SetFormatPCM(std::int32_t r, std::int32_t c, std::int32_t b)
{
    setFormat("SetFormatPCM", list({r, c, b}), QStringLiteral("WAV"));
    target_.rate = r;
    target_.channels = c;
}

void FakeFile::SetInputFormat(std::int32_t r, std::int32_t c)
{
    call("SetInputFormat", list({r, c}));
    target_.rate = r;
    target_.channels = c;
}

void FakeFile::Create(const QString& path)
{
    call("Create", path);
    path_ = path;
    writing_ = true;
    target_.samples.clear();
    engine_.disk[path] = target_;
}

void FakeFile::WriteArray(const SampleArray& samples)
{
    call("WriteArray", QString::number(samples.size()));
    target_.samples.insert(target_.samples.end(), samples.begin(), samples.end());
    engine_.disk[path_] = target_;
}

void FakeFile::Close()
{
    call("Close");
    if (writing_) engine_.disk[path_] = target_;
    reading_ = writing_ = false;
}

class FakeTag : public AudioTag {
public:
    explicit FakeTag(FakeEngine& engine) : engine_(engine) {}

    void ReadFrom(const QString& path) override
    {
        engine_.call(QStringLiteral("AudioTags.ReadFrom"), path);
        read_ = engine_.disk.value(path);
    }
    void WriteTo(const QString& path) override { engine_.call(QStringLiteral("AudioTags.WriteTo"), path); }
    void SetTagVersion(std::int32_t v) override { set("SetTagVersion", QString::number(v)); }
    QString GetTitle() const override { return read_.title; }
    QString GetArtist() const override { return read_.artist; }
    QString GetAlbum() const override { return read_.album; }
    QString GetComment() const override { return read_.comment; }
    std::int32_t GetGenre() const override { return read_.genre; }
    std::int32_t GetYear() const override { return read_.year; }
    QString GetGenreName(std::int32_t i) const override { return QStringLiteral("genre %1").arg(i); }
    void SetTitle(const QString& t) override { set("SetTitle", t); }
    void SetArtist(const QString& t) override { set("SetArtist", t); }
    void SetAlbum(const QString& t) override { set("SetAlbum", t); }
    void SetComment(const QString& t) override { set("SetComment", t); }
    void SetGenre(std::int32_t i) override { set("SetGenre", QString::number(i)); }
    void SetYear(std::int32_t y) override { set("SetYear", QString::number(y)); }
    void SetTrack(std::int32_t n) override { set("SetTrack", QString::number(n)); }
    void SetEncodedBy(const QString& t) override { set("SetEncodedBy", t); }

private:
    void set(const char* what, const QString& value)
    {
        engine_.call(QStringLiteral("AudioTags.") + QLatin1String(what), value);
    }

    FakeEngine& engine_;
    FakeSound read_;
};

class FakeMp3Format : public Mp3Format {
public:
    explicit FakeMp3Format(FakeEngine& engine) : engine_(engine) {}
    void SetCommandLine(const QString& text) override
    {
        engine_.call(QStringLiteral("Mp3Format.SetCommandLine"), text);
    }
    void ApplyPreset(std::int16_t n) override
    {
        engine_.call(QStringLiteral("Mp3Format.ApplyPreset"), QString::number(n));
    }
    void ApplyAltPreset(std::int16_t n) override
    {
        engine_.call(QStringLiteral("Mp3Format.ApplyAltPreset"), QString::number(n));
    }

private:
    FakeEngine& engine_;
};

}

std::unique_ptr<AudioFile> FakeEngine::makeFile()
{
    static const char* const names[] = {"FileR", "FileRe", "FileWenc"};
    const QString name =
        files_ < 3 ? QString::fromLatin1(names[files_]) : QStringLiteral("File%1").arg(files_);
    ++files_;
    return std::make_unique<FakeFile>(*this, name);
}

std::unique_ptr<Mp3Format> FakeEngine::makeMp3Format()
{
    return std::make_unique<FakeMp3Format>(*this);
}

std::unique_ptr<AudioTag> FakeEngine::makeTag()
{
    return std::make_unique<FakeTag>(*this);
}

std::unique_ptr<AudioPlayerStream> FakeEngine::makePlayer()
{
    auto made = std::make_unique<FakePlayer>(*this);
    player = made.get();
    return made;
}

std::unique_ptr<AudioRecordEx> FakeEngine::makeRecorder()
{
    throw EngineError(QStringLiteral("no recorder"));
}

void FakePlayer::SetFormat(std::int32_t r, std::int32_t channels)
{
    engine_.call(QStringLiteral("AudioPlayer.SetFormat"), list({r, channels}));
    rate = r;
}

void FakePlayer::Start()
{
    engine_.call(QStringLiteral("AudioPlayer.Start"));
    heard.clear();
}

void FakePlayer::PlayArray(SampleArray samples)
{
    engine_.call(QStringLiteral("AudioPlayer.PlayArray"), QString::number(samples.size()));
    heard.insert(heard.end(), samples.begin(), samples.end());
}

void FakePlayer::ClearQueue()
{
    engine_.call(QStringLiteral("AudioPlayer.ClearQueue"));
    heard.clear();
}

void FakePlayer::Stop()
{
    engine_.call(QStringLiteral("AudioPlayer.Stop"));
}

std::int32_t FakePlayer::MsToSamples(std::int32_t ms) const
{
    return static_cast<std::int32_t>(std::int64_t{ms} * rate / 1000);
}

std::int32_t FakePlayer::SamplesToMs(std::int32_t samples) const
{
    return static_cast<std::int32_t>(std::int64_t{samples} * 1000 / rate);
}

void FakePlayer::SetVolume(std::int32_t v)
{
    engine_.call(QStringLiteral("AudioPlayer.SetVolume"), QString::number(v));
    volume = v;
}
