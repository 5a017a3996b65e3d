// The scroll bar of the zoomed waveform, and the level that outlives its file.
#include "support/FormFixture.h"
#include "support/Journal.h"
#include "support/Mouse.h"

#include <QTest>

#include <cmath>

namespace {

constexpr std::int32_t tenSeconds = 10 * testRate;
constexpr int zoomInButton = 4, zoomOutButton = 5, oneToOneButton = 6;

void zoom(CutterSelect& form, int button, int times = 1)
{
    for (int i = 0; i < times; ++i) pressButton(form.Toolbar1, button);
}

}

class win_scroll : public QObject {
    Q_OBJECT

private slots:
    void theScrollBarReachesToTheEnd();
    void theScrollBarStartsAtOneOnTheNarrowerWayBack();
    void theLastStepOutScrollsBackToTheStart();
    void aScrollMovesTheWaveform();
    void theLargestScrollValueShowsTheEnd();
    void aNarrowerWaveformPullsTheScrollBack();
    void theNextFileComesUpAtBaseWidthWithTheOldLevel();
    void zoomingOutThenTakesAStepOffTheBaseWidth();
    void aWaveformLessThanNothingWideComesBack();
};

void win_scroll::theScrollBarReachesToTheEnd()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    for (int level = 1; level <= 7; ++level) {
        zoom(form, zoomInButton);
        QCOMPARE(form.MonScroll.minimum(), 1);
        QCOMPARE(form.MonScroll.maximum(), 100 * level);
    }
}

void win_scroll::theScrollBarStartsAtOneOnTheNarrowerWayBack()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    zoom(form, zoomInButton, 8);
    zoom(form, zoomOutButton, 7);
    QCOMPARE(form.MonScroll.minimum(), 1);
    QCOMPARE(form.MonScroll.value(), 1);
    QCOMPARE(form.Picture1.Left(), 0.0f);
}

void win_scroll::theLastStepOutScrollsBackToTheStart()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    zoom(form, zoomInButton);
    form.MonScroll.setValue(70);
    zoom(form, zoomOutButton);
    QCOMPARE(form.Picture1.Left(), 0.0f);
    QCOMPARE(form.MonScroll.maximum(), 1);
}

void win_scroll::aScrollMovesTheWaveform()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    zoom(form, zoomInButton);
    form.MonScroll.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    QCOMPARE(form.MonScroll.value(), 51);
    QCOMPARE(form.Picture1.Left(), -15300.0f);
    form.MonScroll.triggerAction(QAbstractSlider::SliderPageStepSub);
    QCOMPARE(form.MonScroll.value(), 1);
    QCOMPARE(form.Picture1.Left(), 0.0f);
}

void win_scroll::theLargestScrollValueShowsTheEnd()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    for (int level = 1; level <= 7; ++level) {
        zoom(form, zoomInButton);
        form.MonScroll.setValue(form.MonScroll.maximum());
        QVERIFY(std::abs(form.Picture1.Left() + form.Picture1.Width() - form.Picture4.Width()) <= 300);
    }
}

void win_scroll::aNarrowerWaveformPullsTheScrollBack()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    zoom(form, zoomInButton, 2);
    form.MonScroll.setValue(200);
    zoom(form, zoomOutButton);
    QCOMPARE(form.MonScroll.value(), 100);
    QCOMPARE(form.Picture1.Left(), -30000.0f);
}

void win_scroll::theNextFileComesUpAtBaseWidthWithTheOldLevel()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    zoom(form, zoomInButton, 2);
    fixture.open(fakeSound(tenSeconds));
    QCOMPARE(form.ZoomLevel, 2);
    QCOMPARE(form.Picture1.Width(), 10420.0f);
    QVERIFY(form.Toolbar1.Buttons(zoomOutButton).isEnabled());
}

void win_scroll::zoomingOutThenTakesAStepOffTheBaseWidth()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {testRate});
    zoom(form, zoomInButton, 3);
    fixture.open(fakeSound(tenSeconds), {testRate});
    zoom(form, zoomOutButton);
    QCOMPARE(form.Picture1.Width(), -19580.0f);
    QCOMPARE(form.MonScroll.minimum(), 1);
    QVERIFY(fixture.fatals.isEmpty());
}

void win_scroll::aWaveformLessThanNothingWideComesBack()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    zoom(form, zoomInButton, 3);
    fixture.open(fakeSound(tenSeconds));
    form.SetPosition(3000);
    zoom(form, zoomOutButton);
    zoom(form, oneToOneButton);
    QCOMPARE(form.Picture1.Width(), 10420.0f);
    QCOMPARE(form.MonScroll.minimum(), 1);
    QVERIFY(std::abs(form.Line2.X1() - 3000) < 0.02f);
}

QTEST_MAIN(win_scroll)
#include "win_scroll.moc"
