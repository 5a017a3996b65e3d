// The details of the selected part: moving its start and end by steps, and its title.
#include "core/CutterSelect.h"

#include "core/TimeText.h"
#include "core/WaveScale.h"
#include "cutpoints/BoundaryMoves.h"
#include "support/LameLibrary.h"

#include <algorithm>
#include <utility>

using Column = PartsListView::Column;

void CutterSelect::moveStart(std::int32_t step, BoundaryRule rule)
{
    const int row = ListView1.selectedRow();
    if (row == 0) return ClearPartDetails();
    std::int32_t& cut = CutPoints.at(static_cast<std::size_t>(row - 1));
    const std::int32_t from = std::exchange(cut, rule({CutPoints, CutCount, TotalSamples}, row, step));
    applyStartMove(row, cut);
    finishMove(from, cut);
}

void CutterSelect::moveEnd(std::int32_t step, BoundaryRule rule)
{
    const int row = ListView1.selectedRow();
    if (row == 0) return ClearPartDetails();
    std::int32_t& cut = CutPoints.at(static_cast<std::size_t>(row));
    const std::int32_t from = std::exchange(cut, rule({CutPoints, CutCount, TotalSamples}, row, step));
    applyEndMove(row, cut);
    finishMove(from, cut);
}

void CutterSelect::MoveStartEarlier(std::int32_t step)
{
    moveStart(step, earlierStart);
}

void CutterSelect::MoveStartLater(std::int32_t step)
{
    moveStart(step, laterStart);
}

void CutterSelect::MoveEndEarlier(std::int32_t step)
{
    moveEnd(step, earlierEnd);
}

void CutterSelect::MoveEndLater(std::int32_t step)
{
    moveEnd(step, laterEnd);
}

void CutterSelect::applyStartMove(int row, std::int32_t to)
{
    const auto T = [](std::int32_t s) { return sampleText(s, SampleRate); };
    const bool isLast = row >= ListView1.rowCount();
    ListView1.setCell(row, Column::Start, T(to));
    ListView1.setCell(row, Column::Duration,
                      T((isLast ? TotalSamples : CutPoints.at(static_cast<std::size_t>(row))) - to));
    ListView1.setCell(row, Column::SampleStart, QString::number(to));
    Label16.setText(ListView1.cell(row, Column::Duration));
    Text1.setText(ListView1.cell(row, Column::Start));

    // Kept: the row before ends on the cut itself here, and one sample earlier once the list is made anew.
    const std::int32_t before = row - 1 == 1 ? 0 : CutPoints.at(static_cast<std::size_t>(row - 2));
    ListView1.setCell(row - 1, Column::Start, T(before));
    ListView1.setCell(row - 1, Column::End, T(to));
    ListView1.setCell(row - 1, Column::Duration, T(to - before));
    DrawTrackBar();
}

void CutterSelect::applyEndMove(int row, std::int32_t to)
{
    const auto T = [](std::int32_t s) { return sampleText(s, SampleRate); };
    ListView1.setCell(row, Column::End, T(to));
    Text2.setText(T(to));
    ListView1.setCell(row, Column::Duration,
                      T(row == 1 ? to : to - CutPoints.at(static_cast<std::size_t>(row - 1))));
    Label16.setText(ListView1.cell(row, Column::Duration));

    const bool isNextLast = row + 1 == ListView1.rowCount();
    ListView1.setCell(row + 1, Column::Start, T(to));
    ListView1.setCell(row + 1, Column::SampleStart, QString::number(to));
    ListView1.setCell(row + 1, Column::Duration,
                      T((isNextLast ? TotalSamples : CutPoints.at(static_cast<std::size_t>(row) + 1)) - to));
    DrawTrackBar();
}

// Kept: the table is not sorted after a move, even where the end has passed the next cut.
void CutterSelect::finishMove(std::int32_t from, std::int32_t to)
{
    for (int m = 1; m <= Bop.UBound(); ++m) {
        if (parseLong(Bop(m).Tag) != from) continue;
        placeMarkers(m, twipsOfSample(Picture1.Width(), TotalSamples, to));
        Bop(m).Tag = QString::number(to);
        break;
    }
    const auto part = std::ranges::find(PartTable, from, &PartRecord::StartSample);
    if (part != PartTable.end()) part->StartSample = to;
    layHighlight();
}

void CutterSelect::ClearPartDetails()
{
    for (QWidget* control :
         std::initializer_list<QWidget*>{&Text1, &UpDown1, &UpDown3, &Text2, &UpDown2, &UpDown4})
        control->setEnabled(false);
    Label11.setText(QString());
    Text1.setText(QString::fromLatin1(zeroTime));
    Text2.setText(QString::fromLatin1(zeroTime));
    Label16.setText(QString::fromLatin1(zeroTime));
    TextTitle.setText(QString());
    TextTitle.setEnabled(false);
    SetPartMenus(false);
    Toolbar1.Buttons(15).setEnabled(false);
    Toolbar1.Buttons(14).setEnabled(false);
}

void CutterSelect::ShowPartDetails(bool isFirst, bool isLast)
{
    for (QWidget* control : std::initializer_list<QWidget*>{&Text1, &UpDown1, &UpDown3})
        control->setEnabled(!isFirst);
    for (QWidget* control : std::initializer_list<QWidget*>{&Text2, &UpDown2, &UpDown4})
        control->setEnabled(!isLast);
    TextTitle.setEnabled(true);
    SetPartMenus(true);
    Toolbar1.Buttons(15).setEnabled(true);
    Toolbar1.Buttons(14).setEnabled(true);
}

void CutterSelect::SetPartMenus(bool enabled)
{
    PlaythisPart.setEnabled(enabled);
    DeleteEntryCutPoint.setEnabled(enabled);
    if (LameEncoderPresent()) SavePartMP3.setEnabled(enabled);
    for (QAction* entry : {&SavePartOgg, &SavePartWMA, &SavePartWav, &Saveselec}) entry->setEnabled(enabled);
}

void CutterSelect::TextTitle_KeyUp()
{
    const int row = ListView1.selectedRow();
    if (row == 0) return ClearPartDetails();
    ListView1.setCell(row, Column::Title, TextTitle.text());
    const std::int32_t start = parseLong(ListView1.cell(row, Column::SampleStart));
    for (std::int32_t i = 0; i <= CutCount; ++i) {
        PartRecord& part = PartTable.at(static_cast<std::size_t>(i));
        if (part.StartSample != start) continue;
        part.Title = TextTitle.text();
        return;
    }
}

void CutterSelect::clearDetailsWithoutRow()
{
    if (ListView1.selectedRow() == 0) ClearPartDetails();
}
