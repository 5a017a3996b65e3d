// The selection of a part, in whichever way it comes, and the three panels on one spot.
#include "core/CutterSelect.h"

void CutterSelect::SelectPart()
{
    layHighlight();
    Picture2.show();
    const int row = rowOf(SelectedPart);
    ListView1.selectRow(row);
    Line6.setX(Line2.X1());
    Line6.setVisible(true);
    Label11.setText(ListView1.cell(row, PartsListView::Part));
    Text1.setText(ListView1.cell(row, PartsListView::Start));
    Text2.setText(ListView1.cell(row, PartsListView::End));
    Label16.setText(ListView1.cell(row, PartsListView::Duration));
    TextTitle.setText(ListView1.cell(row, PartsListView::Title));
    ShowPartDetails(SelectedPart == 0, SelectedPart == lastPart);
}

int CutterSelect::rowOf(std::int32_t code) const
{
    return code == lastPart ? ListView1.rowCount() : code + 1;
}

void CutterSelect::layHighlight()
{
    const Highlight highlight =
        highlightOf(SelectedPart, CutPoints, CutCount, Picture1.Width(), TotalSamples);
    Picture2.setWidth(highlight.width);
    Picture2.setLeft(highlight.left);
    Picture3.setLeft(highlight.innerLeft);
}

void CutterSelect::ListView1_MouseDown(int button)
{
    ListButton = static_cast<std::int16_t>(button);
}

void CutterSelect::ListView1_Click()
{
    const int row = ListView1.selectedRow();
    if (row == 0) return;
    HasSelectedPart = true;
    SelectedPart = row == ListView1.rowCount() ? lastPart : row - 1;
    SelectPart();
    if (ListButton == rightButton) openPartMenu(ListView1.lastPressGlobal());
}

void CutterSelect::ListView1_DblClick()
{
    Image9_Click();
}

void CutterSelect::openPartMenu(QPoint global)
{
    popup1.popup(global);
}

void CutterSelect::Image22_Click()
{
    showPanel(Image22, PicTag);
}

void CutterSelect::Image23_Click()
{
    showPanel(Image23, ListView1);
}

void CutterSelect::Image24_Click()
{
    showPanel(Image24, PicOutput);
}

void CutterSelect::showPanel(const PictureButton& chosen, QWidget& shown)
{
    for (PictureButton* tab : {&Image22, &Image23, &Image24}) tab->setChosen(tab == &chosen);
    const std::initializer_list<std::pair<Label*, const PictureButton*>> captions{
        {&Label6, &Image22}, {&Label5, &Image23}, {&Label7, &Image24}};
    for (const auto& [caption, tab] : captions) showTabCaption(*caption, tab == &chosen);
    for (QWidget* side : std::initializer_list<QWidget*>{&PicTag, &PicOutput, &ListView1})
        side->setVisible(side == &shown);
}
