// The table of cut points: adding one at the position line, deleting one or all, and the parts list made from
// it.
#include "core/CutterSelect.h"

#include "core/WaveScale.h"
#include "cutpoints/PartRows.h"

void CutterSelect::SetCutPoint_Click()
{
    const Twips x = Line2.X1();
    if (CurrentFile.isEmpty() || x == 0 || x >= Picture1.Width() || refuseCut()) return;
    addCut(x);
    SortCutPoints();
    DrawTrackBar();
    Picture1.Refresh();
    FillPartsList();
    ClearPartDetails();
    HasSelectedPart = false;    // Kept: the highlight stays where it is
}

bool CutterSelect::refuseCut()
{
    if (TotalSamples == 0) return true;
    if (CutCount < maxCutPoints) return false;
    MsgBox(langText(80), Icon::Exclamation);
    return true;
}

// The new marker keeps the index of its creation even where sorting moves its sample down the table; its tag
// is the only link between the two.
void CutterSelect::addCut(Twips x)
{
    ++CutCount;
    const auto i = static_cast<std::size_t>(CutCount);
    PartTable.resize(i + 2);    // Kept: one more than a delete leaves
    CutPoints.at(i) = sampleOfX(Picture1.Width(), TotalSamples, x);
    PartTable.at(0).StartSample = 0;
    PartTable.at(i).StartSample = CutPoints.at(i);
    loadMarker(CutCount);
    placeMarkers(CutCount, x);
    Bop(CutCount).bringToFront();
    Bop(CutCount).Tag = QString::number(CutPoints.at(i));
}

void CutterSelect::DeleteEntryCutPoint_Click()
{
    if (SelectedPart == 0) {
        MsgBox(langText(66), Icon::Information);
        return;
    }
    if (CutCount == 0) return;    // the code of a part outlives its cuts
    const std::int32_t p =
        CutPoints.at(static_cast<std::size_t>(SelectedPart == lastPart ? CutCount : SelectedPart));
    for (MarkerIndex = 1; MarkerIndex < CutCount; ++MarkerIndex)
        if (CutPoints.at(static_cast<std::size_t>(MarkerIndex)) == p) break;
    removePart(PartTable, p, CutCount);
    removeCut(CutPoints, CutCount, MarkerIndex);
    DrawRulerAndMarkers();
    DrawTrackBar();
    if (CutCount == 0) {
        ClearPartDetails();
        PartTable.at(0).Title.clear();
        Picture2.hide();
        return;    // Kept: the selection keeps its values
    }
    SelectedPart = FindPartAt(Picture2.Left());    // the part before the cut, now longer
    SelectPart();
}

// Kept: the fields of the selected part are not cleared.
void CutterSelect::Image21_Click()
{
    if (CutCount == 0 || MsgBox(langText(77), Icon::Question, Buttons::YesNo) != Answer::Yes) return;
    CutCount = 0;
    PartTable.assign(1, {});
    SelectedPart = 0;
    HasSelectedPart = false;
    Picture2.hide();
    DrawRulerAndMarkers();
}

std::int32_t CutterSelect::FindPartAt(Twips x) const
{
    return partAt(x, CutPoints, CutCount, Picture1.Width(), TotalSamples);
}

void CutterSelect::FillPartsList()
{
    ListView1.clearRows();
    for (const PartRow& row : partRows(CutPoints, CutCount, TotalSamples, SampleRate, PartTable))
        ListView1.addRow(row);
}

void CutterSelect::SortCutPoints()
{
    sortCuts(CutPoints, CutCount);
}
