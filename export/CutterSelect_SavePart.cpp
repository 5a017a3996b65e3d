// Saving one part: a fresh encode of the samples between two cuts. Cancel is a normal end; what is written
// stays.
#include "core/CutterSelect.h"

#include "core/toolkit/Events.h"
#include "core/toolkit/FormHolder.h"
#include "export/CopyStretch.h"
#include "export/FileNameProposal.h"
#include "waveform/Form2.h"

#include <algorithm>

void CutterSelect::Image8_Click()
{
    if (!FileLoaded || Scanning) return;
    if (!HasSelectedPart) {
        MsgBox(langText(78), Icon::Information);
        return;
    }
    saveStretchOfSelection(OUTPUTFORMAT);
}

void CutterSelect::SavePartMP3_Click()
{
    saveSelectedAs(QStringLiteral("MP3"));
}

void CutterSelect::SavePartOgg_Click()
{
    saveSelectedAs(QStringLiteral("OGG"));
}

void CutterSelect::SavePartWMA_Click()
{
    saveSelectedAs(QStringLiteral("WMA"));
}

void CutterSelect::SavePartWav_Click()
{
    saveSelectedAs(QStringLiteral("WAV"));
}

void CutterSelect::saveSelectedAs(const QString& format)
{
    if (FileLoaded && !Scanning && HasSelectedPart) saveStretchOfSelection(format);
}

void CutterSelect::saveStretchOfSelection(const QString& format)
{
    StopPlayback();
    PlayFed = 0;
    const Stretch part = stretchOf(SelectedPart, CutPoints, CutCount, TotalSamples);
    SaveRange(format, part.start, part.length);
}

void CutterSelect::SaveRange(const QString& chosenFormat, std::int32_t start, std::int32_t length)
{
    const QString format = chosenFormat;    // the caller hands over `OUTPUTFORMAT` itself
    QString title;
    try {
        KeepRunning = true;
        if (FileR->IsClosed()) return;
        if (FileR->GetTotalSamples() == 0) return failSave();
        FileR->Seek(start);
        title = askForTarget(format, start);
    } catch (const std::exception&) {
        return;
    }
    QString outPath;
    try {
        setUpWriter(format);
        outPath = cd1.FileName;
        writePart(outPath, length);
        RestoreOutputFormat();
    } catch (const std::exception&) {
        return failSave();
    }
    try {
        if (format != QLatin1String("WAV")) WritePartTags(outPath, title, false);
    } catch (const std::exception&) {
    }
}

// Shows the save dialog and returns the title of the part that begins at `start`.
QString CutterSelect::askForTarget(const QString& format, std::int32_t start)
{
    const auto part = std::ranges::find(PartTable, start, &PartRecord::StartSample);
    const QString title = part == PartTable.end() ? QString() : part->Title;
    const auto number = static_cast<std::int32_t>(part - PartTable.begin()) + 1;
    if (const auto proposal = proposeFileName(title, CurrentFile, number, format)) cd1.FileName = *proposal;
    // Kept: whether a Cancel is told is left as an open or an extraction has set it. Before the first of them
    // a Cancel goes on under the bare name that is proposed.
    cd1.DialogTitle = langText(84) + cd1.FileName;
    const QString pattern = QStringLiteral("*.") + format.toLower();
    cd1.Filter = langText(70) + QStringLiteral(" (") + pattern + QStringLiteral(")|") + pattern;
    cd1.ShowSave();
    return title;
}

void CutterSelect::setUpWriter(const QString& format)
{
    if (format == QLatin1String("WAV")) FileWenc->SetFormatPCM(44100, 2, 16);
    if (format == QLatin1String("MP3")) {
        ApplyMp3Settings();
        // Kept: given once more, although the settings have just given it.
        FileWenc->SetFormatMP3Ex(*MP3LameEncoderMain);
    }
    if (format == QLatin1String("OGG")) ApplyOggSettings();
    if (format == QLatin1String("WMA")) applyWmaSettings();
}

void CutterSelect::writePart(const QString& outPath, std::int32_t length)
{
    FileWenc->Create(outPath);
    DisableMainForm();
    ProgressForm->Label2.setText(langText(84) + outPath + QStringLiteral(" : 0 %"));
    ProgressForm->setProgressBar1(0.001);
    ProgressForm->show();
    giveWay();
    takeInputFormat(*FileR, *FileWenc);
    copyStretch(outPath, length);
    ProgressForm->setProgressBar1(100);
    FileWenc->Close();
    endSave();
}

void CutterSelect::copyStretch(const QString& outPath, std::int32_t length)
{
    copySamples(*FileR, *FileWenc, length, [&](double position) {
        ProgressForm->setProgressBar1(100 * position / length);
        const std::int16_t percent = toInteger(ProgressForm->ProgressBar1());
        ProgressForm->Label2.setText(langText(84) + outPath + QStringLiteral(" : %1 %").arg(percent));
        giveWay();
        return KeepRunning;
    });
}

void CutterSelect::endSave()
{
    StatusBar1.Panels(1).setText(QString());
    EnableMainForm();
    ProgressForm->setProgressBar1(0.001);
    ProgressForm.unload();
    KeepRunning = false;
}

// Kept: `FileRe` is closed here and `FileWenc` is not; the half-written file is neither closed nor removed.
void CutterSelect::failSave()
{
    EnableMainForm();
    skipFaults([&] { RestoreOutputFormat(); });
    StatusBar1.Panels(1).setText(QString());
    FileRe->Close();
    ProgressForm->setProgressBar1(0.001);
    ProgressForm.unload();
    KeepRunning = false;
    MsgBox(langText(85), Icon::Critical);
}
