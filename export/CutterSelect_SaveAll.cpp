// Saving all parts into one folder, without further questions.
#include "core/CutterSelect.h"

#include "core/toolkit/Events.h"
#include "core/toolkit/FormHolder.h"
#include "export/CopyStretch.h"
#include "export/FileNameProposal.h"
#include "waveform/Form2.h"

void CutterSelect::SaveAllParts_Click()
{
    if (!FileLoaded || Scanning || lastPartRecord() == 0) return;
    QString folder = BrowseForFolder(langText(81));
    if (folder.isEmpty()) return;
    // A player that is still fed would read on from the very file that the parts are copied from.
    if (IsPlaying) StopPlayback();
    SaveEveryPart(folder, OUTPUTFORMAT);
}

void CutterSelect::SaveEveryPart(QString& folder, const QString& chosenFormat)
{
    const QString format = chosenFormat;
    try {
        KeepRunning = true;
        if (FileR->IsClosed()) return endSave();
        if (FileR->GetTotalSamples() == 0) return failSaveAll();
        FileR->Seek(1);    // Kept: sample 1; each part seeks again
        saveEach(folder, format);
        endSave();
    } catch (const SaveFailed&) {
        failSaveAll();
    } catch (const std::exception&) {
        cleanUpAfterRun();
    }
}

// Kept: the number of parts is the upper bound of the table, and titles go by its order, which is the order
// in which the cuts were made. After a deletion the table is one shorter, and so is the run.
void CutterSelect::saveEach(QString& folder, const QString& format)
{
    const std::int32_t last = lastPartRecord() - 1;
    for (std::int32_t i = 0; i <= last; ++i) {
        const QString partTitle = PartTable.at(static_cast<std::size_t>(i)).Title;
        const auto name = proposeFileName(partTitle, CurrentFile, i + 1, format);
        if (!folder.endsWith(QLatin1Char('/'))) folder += QLatin1Char('/');
        const QString fileName = folder + name.value_or(QString());
        try {
            writeEach(fileName, format, i, last);
        } catch (const std::exception& error) {
            throw SaveFailed(QString::fromUtf8(error.what()));
        }
        if (format != QLatin1String("WAV")) WritePartTags(fileName, partTitle, true);
    }
}

// Kept: nobody looks at `KeepRunning` between parts, so after a Cancel each part that remains still gets one
// block.
void CutterSelect::writeEach(const QString& fileName, const QString& format, std::int32_t i,
                             std::int32_t last)
{
    setUpWriter(format);
    FileWenc->Create(fileName);
    if (isEnabled()) DisableMainForm();
    ProgressForm->Label2.setText(langText(84) + fileName + QStringLiteral(" : 0 %"));
    ProgressForm->setProgressBar1(0.001);
    if (!ProgressForm.visible()) ProgressForm->show();
    giveWay();
    const Stretch part = stretchOf(i == 0 ? 0 : i == last ? lastPart : i, CutPoints, CutCount, TotalSamples);
    FileR->Seek(part.start);
    takeInputFormat(*FileR, *FileWenc);
    copyStretch(fileName, part.length);
    ProgressForm->setProgressBar1(100);
    FileWenc->Close();
}

void CutterSelect::cleanUpAfterRun()
{
    EnableMainForm();
    if (ProgressForm.visible()) ProgressForm.unload();
}

void CutterSelect::failSaveAll()
{
    failSave();
    cleanUpAfterRun();
}
