// What stands on the surfaces after drawing, pixel by pixel. Runs at several scales of the screen.
#include "support/FormFixture.h"
#include "waveform/SurfacePixels.h"

#include "core/TimeText.h"
#include "core/WaveScale.h"

#include <QTest>

#include <cmath>
#include <random>

namespace {

const QColor strokeGreen(120, 200, 160);
const QColor highlightBlue(47, 47, 127);
const QColor black(Qt::black);
constexpr double centrePx = 1517.5 / 15;

// One line after the other, as they would be drawn by single calls.
void drawLines(QImage& image, std::span<const double> heights, double step, double centre, QColor color,
               double dpr)
{
    const int thick = std::max(1, static_cast<int>(std::lround(dpr)));
    for (std::size_t i = 0; i < heights.size(); ++i) {
        const int left = device(step * static_cast<double>(i) / twipsPerPixel, dpr);
        const int top = device((centre - heights[i]) / twipsPerPixel, dpr);
        const int bottom = device((centre + heights[i]) / twipsPerPixel, dpr);
        for (int x = left; x < left + thick; ++x)
            for (int y = top; y <= bottom; ++y)
                if (image.valid(x, y)) image.setPixelColor(x, y, color);
    }
}

// Two strokes: of full scale at the left edge, of 60 pixels in the middle; the third has no height.
void drawThreePeaks(CutterSelect& form)
{
    form.Peaks = {32767, 16200, 0};
    form.DrawWaveform();
}

}

class win_drawing : public QObject {
    Q_OBJECT

private slots:
    void strokesAreThePixelsOfSingleLines_data();
    void strokesAreThePixelsOfSingleLines();
    void strokesLeftOfTheSurfaceAreDropped();
    void theCentreLinesAreLaid();
    void theWaveformIsGreenOnBlack();
    void loudPeaksAreClippedByTheSurface();
    void theSelectionIsBlueOnWhite();
    void withoutPeaksThereIsOnlyTheRulerAndTheCentreLine();
    void theRulerPrintsTheTimesOfItsPlaces();
    void withoutAFileEveryRulerLabelReadsZero();
};

void win_drawing::strokesAreThePixelsOfSingleLines_data()
{
    QTest::addColumn<float>("width");
    QTest::addColumn<int>("count");
    QTest::addRow("8001 lines at 1:1") << 10420.0f << 8001;
    QTest::addRow("8001 lines at level 1") << 40420.0f << 8001;
    QTest::addRow("8001 lines at level 7, wide apart") << 220420.0f << 8001;
    QTest::addRow("seven lines") << 10420.0f << 7;
}

void win_drawing::strokesAreThePixelsOfSingleLines()
{
    QFETCH(float, width);
    QFETCH(int, count);
    Surface surface(nullptr, QStringLiteral("surface"), Qt::black);
    surface.place(0, 0, width, 2955);
    surface.Cls();
    std::mt19937 dice(3);
    std::vector<double> heights(static_cast<std::size_t>(count));
    for (double& h : heights) h = static_cast<double>(dice() % 32768) / 18.0;
    const double step = static_cast<double>(width) / (count - 1);

    QImage expected = surface.store();
    drawLines(expected, heights, step, 1517.5, strokeGreen, surface.scale());
    surface.strokes(heights, step, 1517.5, strokeGreen);
    QVERIFY(surface.store() == expected);
}

void win_drawing::strokesLeftOfTheSurfaceAreDropped()
{
    Surface surface(nullptr, QStringLiteral("surface"), Qt::black);
    surface.place(0, 0, 1500, 1500);
    surface.Cls();
    surface.strokes(std::vector<double>(10, 300.0), -150, 750, strokeGreen);
    QCOMPARE(pixel(surface, 0, 50), strokeGreen);
    QCOMPARE(pixel(surface, 90, 50), black);
}

void win_drawing::theCentreLinesAreLaid()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength));
    QCOMPARE(form.Line1.X1(), 0.0f);
    QCOMPARE(form.Line1.X2(), 10420.0f);
    QCOMPARE(form.Line1.Y1(), 1517.5f);
    QCOMPARE(form.Line1.Y2(), 1517.5f);
    QCOMPARE(form.Line7.Y1(), 1087.5f);
    QCOMPARE(form.Line7.X2(), 10420.0f);
}

void win_drawing::theWaveformIsGreenOnBlack()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength));
    drawThreePeaks(form);
    const double middle = 5210 / 15.0;    // the second stroke: 900 twips, 60 pixels either side
    QCOMPARE(pixel(form.Picture1, middle, centrePx), strokeGreen);
    QCOMPARE(pixel(form.Picture1, middle, centrePx - 59.5), strokeGreen);
    QCOMPARE(pixel(form.Picture1, middle, centrePx + 59.5), strokeGreen);
    QCOMPARE(pixel(form.Picture1, middle, centrePx - 61.5), black);
    QCOMPARE(pixel(form.Picture1, middle, centrePx + 61.5), black);
    QCOMPARE(pixel(form.Picture1, middle - 2, centrePx), black);
    QCOMPARE(pixel(form.Picture1, middle + 3, centrePx), black);
}

void win_drawing::loudPeaksAreClippedByTheSurface()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength));
    drawThreePeaks(form);
    QCOMPARE(pixel(form.Picture1, 0, 30), strokeGreen);            // right below the ruler
    QCOMPARE(pixel(form.Picture1, 0, barTop - 1), strokeGreen);    // right above the bar
    QCOMPARE(pixel(form.Picture3, 0, 0), highlightBlue);
    QCOMPARE(pixel(form.Picture3, 0, 148), highlightBlue);
}

void win_drawing::theSelectionIsBlueOnWhite()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength));
    drawThreePeaks(form);
    const double middle = 5210 / 15.0, centre = 1087.5 / 15;
    QCOMPARE(pixel(form.Picture3, middle, centre), highlightBlue);
    QCOMPARE(pixel(form.Picture3, middle, centre - 59.5), highlightBlue);
    QCOMPARE(pixel(form.Picture3, middle, centre + 59.5), highlightBlue);
    QCOMPARE(pixel(form.Picture3, middle, centre - 61.5), QColor(Qt::white));
    QCOMPARE(pixel(form.Picture3, middle + 3, centre), QColor(Qt::white));
}

void win_drawing::withoutPeaksThereIsOnlyTheRulerAndTheCentreLine()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength));
    form.Peaks = {0};
    form.DrawWaveform();
    const QImage below = part(form.Picture1, 0, 31, 694, 166);
    QImage empty = below;
    empty.fill(Qt::black);
    QVERIFY(below == empty);
    QVERIFY(pixel(form.Picture1, 20, 5) != black);
    QCOMPARE(form.Line1.X2(), 10420.0f);
}

void win_drawing::theRulerPrintsTheTimesOfItsPlaces()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(70 * 1000, 1000));    // 70 seconds
    form.DrawRuler();
    for (int k = 0; k < 6; ++k) {
        const std::int32_t ms = sampleOfX(10420, TotalSamples, 1590 * k);    // 1000 Hz
        form.Res1.Cls();
        form.Res1.Print(2, 250, FormatRulerTime(ms));
        QVERIFY(part(form.Picture1, 1 + 106 * k, 0, 106, 29) == part(form.Res1, 0, 1, 106, 29));
    }
}

void win_drawing::withoutAFileEveryRulerLabelReadsZero()
{
    FormFixture fixture;
    auto& form = fixture.load();
    form.Res1.Cls();
    form.Res1.Print(2, 250, FormatRulerTime(0));
    for (int k = 0; k < 6; ++k)
        QVERIFY(part(form.Picture1, 1 + 106 * k, 0, 106, 29) == part(form.Res1, 0, 1, 106, 29));
}

QTEST_MAIN(win_drawing)
#include "win_drawing.moc"
