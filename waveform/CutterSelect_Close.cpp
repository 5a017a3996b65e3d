// Closing the document.
#include "core/CutterSelect.h"

#include "core/TimeText.h"
#include "core/toolkit/Events.h"
#include "waveform/ZoomSteps.h"

// Kept: the zoom level and the tags stay as they are, for the next file.
void CutterSelect::CloseAudioFile_Click()
{
    if (Scanning) return;
    forgetDocument();
    resetDetailFields();
    resetTools();
    restoreBaseWidth();
    giveWay();
    Picture1.setLeft(0);
    Picture1.Cls();
    Picture3.Cls();
    DrawRulerAndMarkers();
    Label1.setText(QString());
    Label4.setText(QString());
    Image13.setTop(540);
}

void CutterSelect::forgetDocument()
{
    StatusBar1.ProgressBar1.hide();
    Label2.setText(QString::fromLatin1(zeroTime));
    FileLoaded = false;
    if (IsPlaying) StopPlayback();
    HasSelectedPart = false;

    Peaks.assign(1, 0);
    DurationSeconds = 0;
    CurrentFile.clear();
    FileR->Close();
    TotalSamples = 0;

    Line5.unloadAll();
    Line5b.unloadAll();
    Bop.unloadAll();
    Bop1.unloadAll();
    CutCount = 0;
    PartTable.assign(1, {});
    FileTitle.clear();
}

void CutterSelect::resetDetailFields()
{
    Label3.setText(langText(46) + QStringLiteral(" : ") + QString::fromLatin1(zeroTime));
    ClearPartDetails();
}

void CutterSelect::resetTools()
{
    ToolMode = 1;
    Image20.setChosen(true);
    Image13.setChosen(false);
    Image13.setTop(Image13.Top() + 20);
    Picture1.setDefaultPointer();
    Picture3.setDefaultPointer();
    Picture1.Cls();
    Picture3.Cls();
    Line2.setX(0);
    Line6.setVisible(false);
    IndicTime.setLeft(-IndicTime.Width() / 2);
    Picture2.hide();
}

void CutterSelect::restoreBaseWidth()
{
    takeBaseWidth();
    DrawRulerAndMarkers();
    Line1.setX2(Picture1.Width());
    MonScroll.setRange(1, 1);
}
