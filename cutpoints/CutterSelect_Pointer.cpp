// What a press, a move, a double click and an arrow key do on the waveform. The height of the pointer decides
// first, then the tool.
#include "core/CutterSelect.h"

#include "core/WaveScale.h"
#include "core/toolkit/Pictures.h"

namespace {

constexpr Twips rulerBottom = 480;
constexpr Twips barTop = 2700;
constexpr std::int32_t scissors = 2;

}

void CutterSelect::Picture1_MouseDown(int button, int, Twips X, Twips Y)
{
    if (!FileLoaded) return;
    ClickedPart = false;
    HasSelectedPart = false;
    if (Y < rulerBottom) {
        ClearPartDetails();
        SetPosition(X);
    } else if (Y <= barTop) {
        ClearPartDetails();
        if (ToolMode == 1) {
            ClearPartDetails();    // Kept: once more
            SetPosition(X);
        } else if (ToolMode == scissors && X > 0 && X < Picture1.Width()) {
            addCutByPointer(X, false);
        }
    } else if (CutCount > 0) {
        HasSelectedPart = true;
        ClickedPart = true;
        SelectedPart = FindPartAt(X);
        SelectPart();
        if (button == rightButton) openPartMenu(Picture1.lastPressGlobal());
    }
}

void CutterSelect::addCutByPointer(Twips X, bool isOnHighlight)
{
    if (refuseCut()) return;
    addCut(X);
    if (isOnHighlight) {
        stampSeparator(X);
        Picture1.Refresh();
    }
    SortCutPoints();
    DrawTrackBar();
    Picture1.Refresh();
    FillPartsList();
    if (!isOnHighlight) return;
    ClearPartDetails();
    Picture2.hide();
    HasSelectedPart = false;
}

void CutterSelect::Picture1_MouseMove(int, int, Twips, Twips Y)
{
    if (!FileLoaded) return;
    const double dpr = devicePixelRatioF();
    if (ToolMode == scissors && Y != rulerBottom && Y < barTop) {
        const QCursor tool =
            customCursor(Y < rulerBottom ? QStringLiteral("CURSEUR") : QStringLiteral("CUTTERZ"), dpr);
        Picture1.setMousePointer(tool);
        Picture3.setMousePointer(tool);
    } else if (Y <= barTop) {
        Picture1.setDefaultPointer();
    } else {
        Picture1.setMousePointer(customCursor(QStringLiteral("SELECTION"), dpr));
    }
}

void CutterSelect::Picture1_MouseUp()
{
    WaveDrag = false;
}

void CutterSelect::Picture1_DblClick()
{
    if (ClickedPart) Image9_Click();
}

void CutterSelect::Picture1_KeyDown(int key)
{
    if (!HasSelectedPart || ListView1.selectedRow() == 0) return;
    if (key == Qt::Key_Left) selectByKey(partLeftOf(SelectedPart, CutCount));
    if (key == Qt::Key_Right) selectByKey(partRightOf(SelectedPart, CutCount));
}

void CutterSelect::selectByKey(std::int32_t code)
{
    SelectedPart = code;
    SelectPart();
}

void CutterSelect::Picture3_MouseDown(int, int, Twips X, Twips)
{
    if (ToolMode == scissors) {
        if (X > 0 && X < Picture1.Width()) addCutByPointer(X, true);
    } else if (ToolMode == 1) {
        ClearPartDetails();
        // Kept: the part stays selected, so a play still plays it although nothing shows it.
        SetPosition(X);
    }
}

void CutterSelect::SetPosition(Twips X)
{
    placePositionLine(X);
    Picture2.hide();
    followHighlight();
    const std::int32_t sample = sampleOfX(Picture1.Width(), TotalSamples, X);
    showPositionOf(sample);
    if (IsPlaying) reposition([&] { return sampleOfX(Picture1.Width(), FileR->GetTotalSamples(), X); });
}

void CutterSelect::Image13_Click()
{
    if (!FileLoaded) return;
    Image13.setChosen(true);
    Image13.setTop(540);
    Image20.setChosen(false);
    ToolMode = scissors;
    Picture2.hide();
    ClearPartDetails();
}

void CutterSelect::Image20_Click()
{
    if (!FileLoaded) return;
    ToolMode = 1;
    Picture1.setDefaultPointer();
    Picture3.setDefaultPointer();
    Image20.setChosen(true);
    Image13.setChosen(false);
    if (Image13.Top() < 560) Image13.setTop(560);
}
