// Dragging the handle of a cut. Kept: a handle stands at x - 25 when it is made and at x - 30 while it is
// dragged, and the pointer is read as Left + X + 30.
#include "core/CutterSelect.h"

#include "core/TimeText.h"
#include "core/WaveScale.h"
#include "cutpoints/DragLimits.h"

#include <algorithm>

namespace {

constexpr Twips dragOffset = 30;
constexpr Twips boxDistance = 15;

}

void CutterSelect::hideHighlight()
{
    if (Picture2.isHidden()) return;
    Picture2.hide();
    ClearPartDetails();
    HasSelectedPart = false;
}

void CutterSelect::Bop_MouseDown(int index, int button, int, Twips X, Twips)
{
    if (!Picture2.isHidden()) {
        Picture2.hide();
        ClearPartDetails();
    }
    MarkerIndex = index;
    if (button != leftButton) return;
    BopDrag = true;
    BopSample = parseLong(Bop(index).Tag);
    DragStartX = toLong(X);
}

// Kept: a handle pressed here has no release of its own, so the drag goes on over the handles of the waveform
// until one of them is released.
void CutterSelect::Bop1_MouseDown(int index, int button, int shift, Twips X, Twips Y)
{
    if (!Picture2.isHidden()) Picture2.hide();
    Bop_MouseDown(index, button, shift, X, Y);
}

void CutterSelect::Bop1_MouseMove()
{
    hideHighlight();
}

void CutterSelect::Bop_MouseMove(int index, int, int, Twips X, Twips)
{
    hideHighlight();    // Kept: on a mere hover too
    if (!BopDrag) return;
    const auto known = cuts().subspan(1, static_cast<std::size_t>(CutCount));
    const auto found = std::ranges::find(known, BopSample);
    if (found == known.end()) return;
    const auto i = static_cast<std::int32_t>(found - known.begin()) + 1;
    const DragLimits limits = dragLimits(CutPoints, CutCount, i, TotalSamples, SampleRate);
    PicInfos.show();
    PicInfos.raise();
    const Twips width = Picture1.Width();
    dragMarkerTo(index, static_cast<Twips>(heldWithin(Bop(index).Left() + X + dragOffset,
                                                      twipsOfSample(width, TotalSamples, limits.low),
                                                      twipsOfSample(width, TotalSamples, limits.high))));
}

void CutterSelect::dragMarkerTo(int index, Twips n)
{
    Bop(index).setLeft(n - dragOffset);
    Bop1(index).setLeft(n - dragOffset);
    Line5(index).setX(n);
    Line5b(index).setX(n);
    const std::int32_t s = sampleOfX(Picture1.Width(), TotalSamples, Line5(index).X1());

    // The start of the file, entry 0 of both, is not the cut's even where the cut stands there.
    const auto known = std::span(CutPoints).subspan(1, static_cast<std::size_t>(CutCount));
    if (const auto cut = std::ranges::find(known, BopSample); cut != known.end()) *cut = s;
    const auto records = std::span(PartTable).subspan(1);
    const auto part = std::ranges::find(records, BopSample, &PartRecord::StartSample);
    if (part != records.end()) part->StartSample = s;    // the title stays with its cut
    BopSample = s;
    Bop(index).Tag = QString::number(s);

    showDragTime(index, s);
    SortCutPoints();
    DrawTrackBar();
}

void CutterSelect::showDragTime(int index, std::int32_t sample)
{
    PicInfos.Cls();
    PicInfos.Print(60, 0, sampleText(sample, SampleRate));
    const Twips x = Line5(index).X1();
    const bool fits = x + boxDistance + PicInfos.Width() <= Picture1.Width();
    PicInfos.setLeft(fits ? x + boxDistance : x - boxDistance - PicInfos.Width());
}

void CutterSelect::Bop_MouseUp(int)
{
    if (!BopDrag) return;
    BopDrag = false;
    FillPartsList();
    PicInfos.hide();
}
