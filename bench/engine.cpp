// The engine's share of opening and saving, without a window:
//   quillon-bench-engine open FILE WORKFILE
//   quillon-bench-engine save FORMAT SOURCE START LENGTH TARGET     FORMAT: MP3 OGG WMA WAV; start and length
//   in samples
// The formats are those of a fresh installation.
#include "core/Errors.h"
#include "engine/Engine.h"
#include "waveform/PeakScan.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>

#include <algorithm>
#include <cstdio>

namespace {

constexpr std::int32_t saveBlock = 100000;

// Decodes the whole file into the work file and samples the peaks on the way, a block at a time.
void open(AudioEngine& engine, const QString& path, const QString& workPath)
{
    const auto reader = engine.makeFile();
    const auto writer = engine.makeFile();
    reader->SetWmaEnabled(true);
    reader->Open(path);
    writer->SetFormatPCM(reader->GetSampleRate(), reader->GetChannels(), 16);
    writer->Create(workPath);

    const std::int32_t block = reader->GetChannels() * reader->GetOutputRate();
    PeakScan scan(reader->GetTotalSamples());
    std::vector<std::int32_t> peaks{0};
    for (SampleArray a = reader->ReadArray(block); !a.empty(); a = reader->ReadArray(block)) {
        writer->WriteArray(a);
        scan.add(a, peaks);
    }
    writer->Close();
    std::printf("work %s\n", workPath.toUtf8().constData());
}

void setFormat(AudioEngine& engine, AudioFile& writer, const QString& format)
{
    if (format == QLatin1String("MP3"))
        writer.SetFormatMP3Ex(*engine.makeMp3Format());
    else if (format == QLatin1String("OGG"))
        writer.SetFormatOggVorbis(44100, 2, 128, 0, 0, 400);
    else if (format == QLatin1String("WMA"))
        writer.SetFormatWMA(39);
    else
        writer.SetFormatPCM(44100, 2, 16);
}

void save(AudioEngine& engine, const QStringList& arguments)
{
    const std::int32_t start = arguments.at(2).toInt();
    const std::int32_t length = arguments.at(3).toInt();
    const auto reader = engine.makeFile();
    const auto writer = engine.makeFile();
    reader->Open(arguments.at(1));
    reader->Seek(start);
    setFormat(engine, *writer, arguments.at(0));
    writer->Create(arguments.at(4));
    writer->SetInputFormat(reader->GetOutputRate(), reader->GetChannels());
    for (std::int32_t position = 0; position < length;) {
        const SampleArray a = reader->ReadArray(std::min(saveBlock, length - position));
        if (a.empty()) throw EngineError(QStringLiteral("the source ends too early"));
        writer->WriteArray(a);
        position += static_cast<std::int32_t>(a.size()) / reader->GetReadChannels();
    }
    writer->Close();
}

}

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i) arguments << QFile::decodeName(argv[i]);
    const bool isOpen = arguments.size() == 3 && arguments.first() == QLatin1String("open");
    const bool isSave = arguments.size() == 6 && arguments.first() == QLatin1String("save");
    if (!isOpen && !isSave) {
        std::fprintf(stderr, "usage: %s open FILE WORKFILE | save FORMAT SOURCE START LENGTH TARGET\n",
                     argv[0]);
        return 2;
    }
    try {
        const QCoreApplication application(argc, argv);
        const auto engine = makeEngine();
        if (isOpen)
            open(*engine, arguments.at(1), arguments.at(2));
        else
            save(*engine, arguments.mid(1));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quillon-bench-engine: %s\n", error.what());
        return 1;
    }
}
