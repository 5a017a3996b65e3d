// Drawing: everything goes straight onto the surfaces, from the peak table and the table of cut points.
#include "core/CutterSelect.h"

#include "core/TimeText.h"
#include "core/WaveScale.h"
#include "core/toolkit/Events.h"
#include "waveform/RulerPlan.h"

#include <algorithm>

namespace {

const QColor strokeColor(120, 200, 160);
const QColor highlightColor(47, 47, 127);
// Kept: full scale is more than the half height, so loud peaks are clipped by the surface.
constexpr double peaksPerTwip = 18.0;
constexpr int barTopPx = 178;
constexpr int barHeightPx = 18;
constexpr Twips handleOffset = 25;
constexpr Twips narrowestNumbered = 230;    // a part of this width or less gets no number

// The vertical centre of all drawing.
double centreOf(const Surface& picture)
{
    return picture.Height() / 2.0 + 120 - 80;
}

}

void CutterSelect::ResetCenterLines()
{
    const double centre = centreOf(Picture1);
    Line1.place(0, static_cast<Twips>(centre), Line1.X2(), static_cast<Twips>(centre));
    Line7.setY(static_cast<Twips>(centre - Picture2.Top()));
    IsPlaying = false;
    TrackStep = 10;
    Picture2.hide();
}

void CutterSelect::DrawRuler()
{
    Res1.Cls();
    for (const RulerSection& section : planRuler(Picture1.Width(), TotalSamples)) {
        Res1.Print(2, 250, FormatRulerTime(AudioPlayer->SamplesToMs(section.sample)));
        Picture1.BitBlt(section.xPx, -1, rulerSectionPx, 30, Res1);
        Res1.Cls();
    }
}

void CutterSelect::stampBar()
{
    Picture1.BitBlt(0, barTopPx, 2, barHeightPx, Track1);
    for (const BarSection& section : planBar(Picture1.Width()))
        Picture1.BitBlt(section.xPx, barTopPx, section.widthPx, barHeightPx, Track2);
}

void CutterSelect::stampSeparator(double x)
{
    Picture1.BitBlt(toLong(x / twipsPerPixel - 3), barTopPx, 5, 50, TrackSep);
}

void CutterSelect::DrawRulerAndMarkers()
{
    DrawRuler();
    stampBar();
    ListView1.clearRows();
    if (FileLoaded) rebuildMarkers();
    FillPartsList();
    Picture1.BitBlt(toLong(Picture1.Width() / twipsPerPixel - 4), barTopPx, 2, barHeightPx, Track3);
    Picture1.Refresh();
}

void CutterSelect::rebuildMarkers()
{
    Line5.unloadAll();
    Bop.unloadAll();
    Line5b.unloadAll();
    Bop1.unloadAll();
    for (std::int32_t i = 1; i <= CutCount; ++i) {
        loadMarker(i);
        const double x = xOfSample(Picture1.Width(), TotalSamples, CutPoints.at(static_cast<std::size_t>(i)));
        placeMarkers(i, static_cast<Twips>(x));
        Bop(i).Tag = QString::number(CutPoints.at(static_cast<std::size_t>(i)));
        stampSeparator(x);
    }
}

void CutterSelect::loadMarker(int index)
{
    Line5.load(index).setVisible(true);
    Line5b.load(index).setVisible(true);
    Bop.load(index).setVisible(true);
    Bop1.load(index).setVisible(true);
    attachHandle(index);
}

void CutterSelect::placeMarkers(int index, Twips x)
{
    Line5(index).setX(x);
    Line5b(index).setX(x);
    Bop(index).setLeft(x - handleOffset);
    Bop(index).bringToFront();
    Bop1(index).setLeft(x - handleOffset);
    Bop1(index).bringToFront();
}

void CutterSelect::DrawTrackBar()
{
    stampBar();
    if (FileLoaded && CutCount > 0) printPartNumbers();
}

void CutterSelect::printPartNumbers()
{
    const Twips width = Picture1.Width();
    const auto x = [&](std::int32_t i) {
        return xOfSample(width, TotalSamples, CutPoints.at(static_cast<std::size_t>(i)));
    };
    if (x(1) + handleOffset > narrowestNumbered) Picture1.Print(50, 2700, QStringLiteral("01"));
    for (std::int32_t i = 1; i <= CutCount; ++i) {
        stampSeparator(x(i));
        const double room = i < CutCount ? x(i + 1) - x(i) : width - (x(i) + handleOffset);
        if (room > narrowestNumbered)
            Picture1.Print(static_cast<Twips>(x(i) + handleOffset), 2700, twoDigits(i + 1));
    }
}

void CutterSelect::DrawWaveform()
{
    Picture2.hide();
    Picture2.setWidth(Picture1.Width());
    Picture3.setWidth(Picture1.Width());
    Line7.setX2(Picture3.Width());
    Picture1.Cls();
    Picture3.Cls();
    DrawRuler();
    Line1.setX2(Picture1.Width());
    giveWay();
    if (Peaks.size() <= 1) return;

    drawStrokes();
    if (HasSelectedPart) {
        layHighlight();
        Picture2.show();
        const int row = rowOf(SelectedPart);
        if (row <= ListView1.rowCount() && row > 0) ListView1.selectRow(row);
        Line6.setX(Line2.X1());
        Line6.setVisible(true);
    }
    DrawRulerAndMarkers();    // Kept: this makes the list anew, so the row selected above is selected no
                              // longer
    DrawTrackBar();
}

void CutterSelect::drawStrokes()
{
    const double step = static_cast<double>(Picture1.Width()) / static_cast<double>(Peaks.size() - 1);
    std::vector<double> heights(Peaks.size());
    std::ranges::transform(Peaks, heights.begin(), [](std::int32_t peak) { return peak / peaksPerTwip; });
    const double centre = centreOf(Picture1);
    Picture1.strokes(heights, step, centre, strokeColor);
    Picture3.strokes(heights, step, centre - Picture2.Top(), highlightColor);
}
