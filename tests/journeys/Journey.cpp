#include "journeys/Journey.h"

#include "core/WaveScale.h"
#include "engine/Engine.h"
#include "support/Registre.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <cmath>
#include <cstring>

Journey::Journey()
{
    qputenv("XDG_CONFIG_HOME", folder(QStringLiteral("config")).toLocal8Bit());
    qputenv("XDG_CACHE_HOME", folder(QStringLiteral("cache")).toLocal8Bit());
    qunsetenv("TMPDIR");
    setProgramFolder(QStringLiteral(QUILLON_PROGRAM_FOLDER));
    PartTable.assign(1, {});
    CutPoints.fill(0);
    CutCount = 0;
    CurrentFile.clear();
    TotalSamples = 0;
    LocateIniFile();
}

Journey::~Journey()
{
    form_.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Journey::start()
{
    engine_ = makeEngine();
    form_ = std::make_unique<CutterSelect>(*engine_);
    form_->Form_Load();
    form_->show();
}

void Journey::open(const QString& path)
{
    if (!form_) start();
    dialogs.expectFile(path);
    form_->OpenAudioFile.trigger();
}

void Journey::cutAt(std::int32_t sample)
{
    const double x = xOfSample(form_->Picture1.Width(), TotalSamples, sample);
    QTest::mouseClick(&form_->Picture1, Qt::LeftButton, {}, QPoint(qRound(x / twipsPerPixel), 100));
    form_->Toolbar1.Buttons(8).trigger();
}

void Journey::selectRow(int row)
{
    const auto* item = form_->ListView1.topLevelItem(row - 1);
    QTest::mouseClick(form_->ListView1.viewport(), Qt::LeftButton, {},
                      form_->ListView1.visualItemRect(item).center());
}

void Journey::title(int row, const QString& text)
{
    selectRow(row);
    form_->TextTitle.selectAll();
    QTest::keyClicks(&form_->TextTitle, text);
}

void Journey::saveAll(const QString& target)
{
    dialogs.expectFile(target);
    form_->SaveAllParts.trigger();
}

void Journey::savePart(QAction& entry, const QString& target)
{
    dialogs.expectFile(target);
    entry.trigger();
}

QString Journey::folder(const QString& name) const
{
    QDir(folder_.path()).mkpath(name);
    return folder_.filePath(name);
}

void Journey::setting(const QString& section, const QString& key, const QString& value) const
{
    IniWrite(IniPath, section, key, value);
}

SampleArray music(std::int32_t length)
{
    SampleArray samples;
    samples.reserve(static_cast<std::size_t>(length) * 2);
    std::uint32_t noise = 1;
    for (std::int32_t k = 0; k < length; ++k) {
        noise = noise * 1664525u + 1013904223u;
        const double hiss = (static_cast<double>(noise >> 16) / 65536 - 0.5) * 1500;
        samples.push_back(
            static_cast<std::int16_t>(9000 * std::sin(k * 0.0313) + 5000 * std::sin(k * 0.142) + hiss));
        samples.push_back(static_cast<std::int16_t>(9000 * std::sin(k * 0.0417) - hiss));
    }
    return samples;
}

void writeWav(const QString& path, const SampleArray& samples, int rate, int channels)
{
    const auto bytes = static_cast<std::uint32_t>(samples.size() * 2);
    QByteArray header(44, '\0');
    const auto put32 = [&](int at, std::uint32_t v) { std::memcpy(header.data() + at, &v, 4); };
    const auto put16 = [&](int at, std::uint16_t v) { std::memcpy(header.data() + at, &v, 2); };
    header.replace(0, 4, "RIFF").replace(8, 8, "WAVEfmt ").replace(36, 4, "data");
    put32(4, 36 + bytes);
    put32(16, 16);
    put16(20, 1);
    put16(22, static_cast<std::uint16_t>(channels));
    put32(24, static_cast<std::uint32_t>(rate));
    put32(28, static_cast<std::uint32_t>(rate * channels * 2));
    put16(32, static_cast<std::uint16_t>(channels * 2));
    put16(34, 16);
    put32(40, bytes);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(header);
    file.write(reinterpret_cast<const char*>(samples.data()), bytes);
}

SampleArray readWav(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray all = file.readAll();
    for (qsizetype at = 12; at + 8 <= all.size();) {
        std::uint32_t size = 0;
        std::memcpy(&size, all.constData() + at + 4, 4);
        if (all.mid(at, 4) == "data") {
            SampleArray samples(std::min<std::size_t>(size, static_cast<std::size_t>(all.size() - at - 8)) /
                                2);
            std::memcpy(samples.data(), all.constData() + at + 8, samples.size() * 2);
            return samples;
        }
        at += 8 + size + (size & 1);
    }
    return {};
}

QByteArray runProgram(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(120000) || process.exitCode() != 0)
        QTest::qFail(qPrintable(program + QStringLiteral(" failed: ") +
                                QString::fromLocal8Bit(process.readAllStandardError())),
                     __FILE__, __LINE__);
    return process.readAllStandardOutput();
}

SampleArray decoded(const QString& path)
{
    const QByteArray raw = runProgram(
        QStringLiteral("ffmpeg"), {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-i"), path,
                                   QStringLiteral("-f"), QStringLiteral("s16le"), QStringLiteral("-")});
    SampleArray samples(static_cast<std::size_t>(raw.size()) / 2);
    std::memcpy(samples.data(), raw.constData(), samples.size() * 2);
    return samples;
}

QString probedTag(const QString& path, const QString& tag)
{
    const QByteArray printed =
        runProgram(QStringLiteral("ffprobe"),
                   {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-show_entries"),
                    QStringLiteral("format_tags:stream_tags"), path});
    for (const QString& line : QString::fromUtf8(printed).split(QLatin1Char('\n')))
        if (line.section(QLatin1Char('='), 0, 0).compare(QStringLiteral("TAG:") + tag, Qt::CaseInsensitive) ==
            0)
            return line.section(QLatin1Char('='), 1);
    return {};
}
