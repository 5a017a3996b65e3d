// Zoom and scroll: the waveform gets wider in its viewport, and everything is placed from its width again.
#include "core/CutterSelect.h"

#include "core/WaveScale.h"
#include "core/toolkit/Events.h"
#include "waveform/ZoomSteps.h"

#include <algorithm>

std::int32_t CutterSelect::positionSample() const
{
    return sampleOfX(Picture1.Width(), TotalSamples, Line2.X1());
}

void CutterSelect::hidePosition()
{
    Line2.setVisible(false);
    Line6.setVisible(false);
    IndicTime.setVisible(false);
}

void CutterSelect::showPositionAt(std::int32_t sample)
{
    const Twips x = twipsOfSample(Picture1.Width(), TotalSamples, sample);
    placeBothLines(x);
    Line2.setVisible(true);
    IndicTime.setVisible(true);
}

void CutterSelect::zoomTo(Twips width)
{
    Picture1.setWidth(width);
    // The toolkit's bar would drag its minimum down to a maximum below it.
    MonScroll.setRange(1, std::max<int>(1, scrollMaximum(width, Picture4.Width())));
    DrawWaveform();
}

void CutterSelect::takeBaseWidth()
{
    Picture1.setLeft(0);
    Picture1.setWidth(baseWidth(Picture4.Width()));
    Picture2.setWidth(Picture1.Width());
    Picture3.setWidth(Picture1.Width());
    Line7.setX2(Picture3.Width());
}

void CutterSelect::zoomIn()
{
    Toolbar1.Buttons(5).setEnabled(true);
    Toolbar1.Buttons(6).setEnabled(true);
    ++ZoomLevel;
    if (ZoomLevel == lastZoomLevel) {    // Kept: the last level has no width of its own
        Toolbar1.Buttons(4).setEnabled(false);
        return;
    }
    hidePosition();
    const std::int32_t sample = positionSample();
    zoomTo(Picture1.Width() + zoomStep);
    showPositionAt(sample);
    Line6.setVisible(true);
    ClearPartDetails();
}

void CutterSelect::zoomOut()
{
    --ZoomLevel;
    for (int button : {5, 6}) Toolbar1.Buttons(button).setEnabled(ZoomLevel != 0);
    Toolbar1.Buttons(4).setEnabled(true);
    hidePosition();
    const std::int32_t sample = positionSample();
    if (ZoomLevel > 0) {
        // Kept: leaving the last level takes a step off although it had added none.
        zoomTo(Picture1.Width() - zoomStep);
        showPositionAt(sample);
        ClearPartDetails();
        return;
    }
    takeBaseWidth();
    MonScroll.setRange(1, 1);
    Picture1.setLeft(0);
    DrawWaveform();
    showPositionAt(sample);
}

void CutterSelect::restoreAspect()
{
    Line6.setVisible(false);
    const std::int32_t sample = positionSample();
    Toolbar1.Buttons(4).setEnabled(true);    // it is disabled at the last level alone
    Toolbar1.Buttons(5).setEnabled(false);
    Toolbar1.Buttons(6).setEnabled(false);
    ZoomLevel = 0;
    takeBaseWidth();
    Picture1.Cls();
    Picture3.Cls();
    DrawRulerAndMarkers();
    Line1.setX2(Picture1.Width());
    MonScroll.setRange(1, 1);
    giveWay();
    Picture1.setLeft(0);
    showPositionAt(sample);
    DrawWaveform();
    ClearPartDetails();
}

void CutterSelect::MonScroll_Change()
{
    Picture1.setLeft(scrolledLeft(MonScroll.value()));
}
