// Opening and saving through the window.
#include "bench/FormBench.h"

#include "bench/Bench.h"
#include "core/Errors.h"
#include "core/toolkit/Events.h"
#include "engine/Engine.h"
#include "export/FormatTable.h"

#include <QFile>

#include <algorithm>
#include <cstdio>

Answer Answers::message(const QString& text, Icon, Buttons, const QString&)
{
    std::fprintf(stderr, "the program says: %s\n", text.toUtf8().constData());
    throw EngineError(text);
}

FormBench::FormBench() : engine_(makeEngine())
{
    setDialogHost(&answers_);
    form_ = std::make_unique<CutterSelect>(*engine_);
    form_->Form_Load();
    form_->show();
}

FormBench::~FormBench()
{
    form_.reset();
    setDialogHost(nullptr);
}

void FormBench::open(const QString& file)
{
    giveWay();
    answers_.path = file;
    form_->OpenAudioFile_Click();
    if (form_->Scanning || form_->Peaks.size() < 2) throw EngineError(QStringLiteral("not opened: ") + file);
    std::printf("work %s\n", QFile::encodeName(TempCutPath).constData());
}

void FormBench::save(const QString& format, std::int32_t start, std::int32_t length, const QString& target)
{
    answers_.path = target;
    const StopWatch watch;
    form_->SaveRange(format, start, length);
    printJob(watch);
}

void FormBench::extract(const QString& format, const QString& video, const QString& target)
{
    const OutputFormat* row = formatByName(format);
    if (!row) throw EngineError(QStringLiteral("no format ") + format);
    form_->Option1_Click(row->option);
    const StopWatch watch;
    form_->ExtractAudio(video, target);
    printJob(watch);
}

void FormBench::setCuts(const std::vector<std::int32_t>& cuts)
{
    CutCount = static_cast<std::int32_t>(cuts.size());
    std::copy(cuts.begin(), cuts.end(), CutPoints.begin() + 1);
    PartTable.assign(cuts.size() + 2, {});
    for (std::size_t i = 0; i < cuts.size(); ++i) PartTable[i + 1].StartSample = cuts[i];
    form_->DrawRulerAndMarkers();
}

void FormBench::saveAll(const QString& format, const std::vector<std::int32_t>& cuts, const QString& target)
{
    setCuts(cuts);
    QString folder = target;
    const StopWatch watch;
    form_->SaveEveryPart(folder, format);
    printJob(watch);
}

std::vector<std::int32_t> readCuts(const QString& file)
{
    QFile cuts(file);
    if (!cuts.open(QIODevice::ReadOnly)) throw EngineError(QStringLiteral("no cuts in ") + file);
    std::vector<std::int32_t> samples;
    while (!cuts.atEnd()) samples.push_back(cuts.readLine().trimmed().toInt());
    if (samples.empty() || samples.size() > static_cast<std::size_t>(maxCutPoints))
        throw EngineError(QStringLiteral("unfit number of cuts in ") + file);
    return samples;
}
