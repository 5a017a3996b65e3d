// Opening a file: it is decoded once into the work file, which is the document from then on, and sampled into
// the peak table on the way.
#include "core/CutterSelect.h"

#include "core/TimeText.h"
#include "core/toolkit/Events.h"
#include "core/toolkit/FormHolder.h"
#include "support/TempFolder.h"
#include "waveform/Form2.h"
#include "waveform/PeakScan.h"

#include <algorithm>

void CutterSelect::OpenAudioFile_Click()
{
    cd1.CancelError = true;
    cd1.DialogTitle = langText(1) + QStringLiteral(" :");
    cd1.FileName.clear();
    try {
        chooseFileToOpen();
        Ouvre(CurrentFile);
        Line2.setX(0);
        Line6.setVisible(false);
        IndicTime.setLeft(-IndicTime.Width() / 2);
    } catch (const std::exception&) {
    }
}

void CutterSelect::chooseFileToOpen()
{
    cd1.Filter =
        langText(70) +
        QStringLiteral(
            " (*.wav;*.mp3;*.ogg;*.wma;*.avi)|*.wav;*.WAV;*.mp3;*.MP3;*.AVI;*.ogg;*.OGG;*.wma;*.WMA;*.avi");
    cd1.ShowOpen();
    CloseAudioFile_Click();
    ResetCenterLines();
    CurrentFile = cd1.FileName;
    Label1.setText(CurrentFile.section(QLatin1Char('/'), -1));
    StopPlayback();
    FileR->Close();
    HasSelectedPart = false;
    ClearPartDetails();
    PartTable.assign(1, {});
    TempFolder = temporaryFolder();
    TempCutPath = TempFolder + QStringLiteral("tempCut.wav");
    ResetCenterLines();
}

void CutterSelect::Ouvre(const QString& chosen)
{
    const QString file = chosen;    // the caller hands over `CurrentFile` itself
    KeepRunning = true;
    ProgressForm->Label2.setText(langText(74) + QStringLiteral("0 %"));
    ProgressForm->show();
    giveWay();
    beginScan();
    try {
        openSource(file);
        readFileTags(file);
        CurrentFile = file;
        CutCount = 0;
        beginTable();
        createWorkFile();
        DisableMainForm();
        scanBlocks(false);
        finishScan(false);
    } catch (const std::exception&) {
        failScan(false);
    }
}

// The recording is the work file itself: nothing is copied, and the progress shows in the status bar alone.
void CutterSelect::OuvreRecordedAudio(const QString& fichi)
{
    giveWay();
    CloseAudioFile_Click();
    TempCutPath = fichi;
    KeepRunning = true;
    beginScan();
    try {
        openSource(fichi);
        CurrentFile = fichi;
        CutCount = 0;
        beginTable();
        DisableMainForm();
        scanBlocks(true);
        finishScan(true);
    } catch (const std::exception&) {
        failScan(true);
    }
}

void CutterSelect::beginScan()
{
    FileLoaded = true;
    Scanning = true;
    Label2.setText(QString::fromLatin1(zeroTime));
    if (IsPlaying) StopPlayback();
    Picture1.Cls();
    Picture3.Cls();
    DrawRulerAndMarkers();
}

void CutterSelect::openSource(const QString& file)
{
    FileR->SetWmaEnabled(true);
    FileR->Open(file);
}

void CutterSelect::beginTable()
{
    Label4.setText(FileR->FormatString());
    TotalSamples = FileR->GetTotalSamples();
    if (TotalSamples == 0) throw EngineError(QStringLiteral("the file has no sound"));
    AudioPlayer->SetFormat(FileR->GetOutputRate(), FileR->GetChannels());
}

void CutterSelect::createWorkFile()
{
    FileWenc->SetFormatPCM(FileR->GetSampleRate(), FileR->GetChannels(), 16);
    FileWenc->Create(TempCutPath);
}

void CutterSelect::scanBlocks(bool isRecording)
{
    const std::int32_t block = FileR->GetChannels() * FileR->GetOutputRate();
    double done = 0;
    PeakScan scan(FileR->GetTotalSamples());
    Peaks.assign(1, 0);
    DurationSeconds = SampleToSeconde(FileR->GetTotalSamples(), FileR->GetSampleRate());
    SampleRate = FileR->GetSampleRate();
    StatusBar1.Panels(1).setText(langText(72));

    while (KeepRunning) {
        SampleArray a = FileR->ReadArray(block);
        if (a.empty()) break;
        if (!isRecording) FileWenc->WriteArray(a);
        done += static_cast<double>(a.size()) / FileR->GetReadChannels();
        done = std::min<double>(done, FileR->GetTotalSamples());
        scan.add(a, Peaks);
        showScanProgress(scanPercent(done, TotalSamples), isRecording);
    }
}

void CutterSelect::showScanProgress(std::int16_t percent, bool isRecording)
{
    if (isRecording) {
        StatusBar1.Panels(1).setText(langText(72) + QString::number(percent) + QStringLiteral(" %"));
        giveWay();
        return;
    }
    if (percent == ProgressForm->ProgressBar1()) return;    // Kept: Cancel is only heard when it moves
    ProgressForm->setProgressBar1(percent);
    StatusBar1.Panels(1).setText(langText(72) + QString::number(percent) + QStringLiteral(" %"));
    ProgressForm->Label2.setText(langText(74) + QString::number(percent) + QStringLiteral(" %"));
    giveWay();
}

// A fault of the scan or of its closing steps is told once, and the closing steps run from their start. What
// fails then leaves, with the progress dialog still up and `Scanning` still set, until another open succeeds.
void CutterSelect::failScan(bool isRecording)
{
    MsgBox(langText(73), Icon::Critical);
    try {
        finishScan(isRecording);
    } catch (const std::exception&) {
        EnableMainForm();    // the scan may have begun, and nobody else would
        throw;
    }
}

// The work file is the document from here on; after a Cancel it is as long as it got. Kept: where an open has
// failed and there is the work file of an earlier one, that sound becomes the document; where there is none,
// the error leaves.
void CutterSelect::finishScan(bool isRecording)
{
    if (!isRecording) {
        FileWenc->Close();
        FileR->Close();
        FileR->Open(TempCutPath);
    }
    DurationSeconds = SampleToSeconde(FileR->GetTotalSamples(), FileR->GetSampleRate());
    SampleRate = FileR->GetSampleRate();
    TotalSamples = FileR->GetTotalSamples();
    const std::int32_t ms = AudioPlayer->SamplesToMs(FileR->GetTotalSamples());
    Label3.setText(langText(46) + QStringLiteral(" : ") + durationText(ms));
    if (!isRecording) ProgressForm->setProgressBar1(0.001);
    EnableMainForm();
    DrawWaveform();
    StatusBar1.Panels(1).setText(QString());
    if (!isRecording) ProgressForm.unload();
    Scanning = false;
    StatusBar1.ProgressBar1.hide();
}
