// The sound of an AVI file, copied into a sound file in the current output format. The result isn't opened.
#include "core/CutterSelect.h"

#include "core/toolkit/Events.h"
#include "core/toolkit/FormHolder.h"
#include "export/CopyStretch.h"
#include "waveform/Form2.h"

#include <algorithm>

void CutterSelect::ExtractAudioFromAvi_Click()
{
    try {
        cd1.CancelError = true;
        cd1.DialogTitle = langText(67);
        cd1.FileName.clear();
        cd1.Filter = langText(68) + QStringLiteral(" (*.avi)|*.AVI;*.avi");
        cd1.ShowOpen();
        const QString source = cd1.FileName;

        const QString extension = OUTPUTFORMAT.toLower();
        const QString proposal = source.chopped(std::min<qsizetype>(3, source.size())) + extension;
        cd1.FileName = proposal.section(QLatin1Char('/'), -1);
        cd1.DialogTitle = langText(69);
        cd1.Filter = langText(70) + QStringLiteral(" (*.%1)|*.%1").arg(extension);
        cd1.ShowSave();
        setUpWriter(OUTPUTFORMAT);    // a scan has left the writer set up for the work file
        ExtractAudio(source, cd1.FileName);
    } catch (const std::exception&) {
    }
}

void CutterSelect::ExtractAudio(const QString& source, const QString& target)
{
    try {
        KeepRunning = true;
        ProgressForm->Label2.setText(langText(82) + QStringLiteral(" : 0 %"));
        ProgressForm->show();
        ProgressForm->setProgressBar1(0.001);
        DisableMainForm();    // an open or a save would take the writer away
        FileRe->SetWmaEnabled(true);
        FileRe->Open(source);
        if (FileRe->GetTotalSamples() == 0) return failExtraction();
        FileWenc->Create(target);
        takeInputFormat(*FileRe, *FileWenc);
        copyVideoSound();
        ProgressForm->setProgressBar1(100);
        FileWenc->Close();
        StatusBar1.Panels(1).setText(QString());
        FileRe->Close();
        EnableMainForm();
        ProgressForm->setProgressBar1(0.001);
        ProgressForm.unload();
        KeepRunning = false;
    } catch (const std::exception&) {
        failExtraction();
    }
}

void CutterSelect::copyVideoSound()
{
    const std::int32_t block = FileRe->GetChannels() * FileRe->GetOutputRate();
    double position = 0;
    do {
        const SampleArray samples = FileRe->ReadArray(block);
        if (samples.empty()) return;
        FileWenc->WriteArray(samples);
        position += static_cast<double>(samples.size()) / FileRe->GetReadChannels();
        const std::int32_t total = FileRe->GetTotalSamples();
        position = std::min<double>(position, total);
        ProgressForm->setProgressBar1(position / total * 100);
        ProgressForm->Label2.setText(langText(82) +
                                     QStringLiteral(" : %1 %").arg(toLong(ProgressForm->ProgressBar1())));
        giveWay();
    } while (KeepRunning);
}

// Kept: the writer isn't closed here.
void CutterSelect::failExtraction()
{
    EnableMainForm();
    StatusBar1.Panels(1).setText(QString());
    FileRe->Close();
    ProgressForm->setProgressBar1(0.001);
    ProgressForm.unload();
    KeepRunning = false;
    MsgBox(langText(83), Icon::Critical);
}
