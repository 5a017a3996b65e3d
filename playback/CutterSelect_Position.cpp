// Stepping the position by a second, and dragging its handle. While the file plays, both move the stream at
// once.
#include "core/CutterSelect.h"

#include "core/TimeText.h"
#include "core/WaveScale.h"
#include "core/toolkit/Events.h"
#include "playback/StepPlan.h"

void CutterSelect::Fwd1Sec_Click()
{
    if (!FileLoaded || Scanning) return;
    const std::int32_t step = AudioPlayer->MsToSamples(1000);
    const double width = Picture1.Width();
    if (!PlayFeeding) {
        const double p = TotalSamples / width * Line2.X1() + step;
        const auto x =
            static_cast<Twips>(p > TotalSamples ? width : width / TotalSamples * step + Line2.X1());
        placeBothLines(x);
    } else {
        reposition([&] {
            const double p = FileR->GetTotalSamples() / width * Line2.X1() + step;
            return p > TotalSamples ? TotalSamples : toLong(TotalSamples / width * Line2.X1() + step);
        });
    }
    // Kept: in play the line has not moved yet, so this is the place before.
    showPositionOf(positionSample());
}

void CutterSelect::Rew1Sec_Click()
{
    if (!FileLoaded || Scanning) return;
    const std::int32_t step = AudioPlayer->MsToSamples(1000);
    const double width = Picture1.Width();
    if (!PlayFeeding) {
        const double p = TotalSamples / width * Line2.X1() - step;
        const auto x = static_cast<Twips>(p < 0 ? 0 : Line2.X1() - width / TotalSamples * step);
        placeBothLines(x);
    } else {
        reposition([&] {
            const double p = FileR->GetTotalSamples() / width * Line2.X1() - step;
            return p < 0 ? 1 : toLong(TotalSamples / width * Line2.X1() - step);    // Kept: sample 1, not 0
        });
    }
    showPositionOf(positionSample());
}

void CutterSelect::IndicTime_MouseDown(Twips X)
{
    DragStartX = toLong(X);
    TimeDrag = true;
}

void CutterSelect::IndicTime_MouseUp()
{
    TimeDrag = false;
}

void CutterSelect::IndicTime_MouseMove(Twips X)
{
    if (!TimeDrag) return;
    IndicTime.setLeft(draggedLeft(X, DragStartX, IndicTime.Left(), IndicTime.Width(), Picture1.Width()));
    Line2.setX(std::max(IndicTime.Left() + IndicTime.Width() / 2, 0.0f));
    followHighlight();
    giveWay();
    if (IsPlaying)
        reposition([&] { return sampleOfX(Picture1.Width(), FileR->GetTotalSamples(), Line2.X1()); });
    showPositionOf(positionSample());
}

void CutterSelect::showPositionOf(std::int32_t sample)
{
    Label2.setText(positionText(AudioPlayer->SamplesToMs(sample)));
}

void CutterSelect::followHighlight()
{
    const Twips x = Line2.X1();
    const bool isInside = x >= Picture2.Left() && x < Picture2.Left() + Picture2.Width();
    if (isInside) Line6.setX(x);
    Line6.setVisible(isInside);
}

void CutterSelect::placePositionLine(Twips x)
{
    Line2.setX(x);
    IndicTime.setLeft(x - IndicTime.Width() / 2);
}

void CutterSelect::placeBothLines(Twips x)
{
    placePositionLine(x);
    Line6.setX(x);
}
