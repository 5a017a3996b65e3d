// Zooming by the tool bar: widths, buttons, and what keeps its place.
#include "support/FormFixture.h"
#include "support/Journal.h"
#include "support/Mouse.h"

#include "core/WaveScale.h"

#include <QTest>

#include <cmath>

namespace {

constexpr std::int32_t tenSeconds = 10 * testRate;
constexpr int zoomInButton = 4, zoomOutButton = 5, oneToOneButton = 6;

void zoom(CutterSelect& form, int button, int times = 1)
{
    for (int i = 0; i < times; ++i) pressButton(form.Toolbar1, button);
}

void verifyPositionOn(const CutterSelect& form, std::int32_t sample)
{
    const Twips x = twipsOfSample(form.Picture1.Width(), TotalSamples, sample);
    QCOMPARE(form.Line2.X1(), x);
    QCOMPARE(form.Line2.X2(), x);
    QCOMPARE(form.Line6.X1(), x);
    QCOMPARE(form.IndicTime.Left(), x - 120);
    QVERIFY(form.Line2.Visible() && form.IndicTime.Visible());
}

}

class win_zoom : public QObject {
    Q_OBJECT

private slots:
    void eachLevelIs30000TwipsWider();
    void theWayBackFromLevelSevenHasTheSameWidths();
    void levelEightHasNoWidthOfItsOwnAndDisablesItsButton();
    void zoomingOutOfLevelEightEnablesTheButtonAgain();
    void afterLevelEightTheWayBackIsAStepNarrower();
    void buttonsFollowTheLevel();
    void theCommandsAreRefusedWithoutAFile();
    void zoomingOutIsRefusedAtOneToOne();
    void thePositionKeepsItsSample();
    void theCutLinesKeepTheirSamples();
    void theSelectionKeepsItsSamples();
    void zoomingInShowsThePositionInTheSelection();
    void zoomingOutHidesItUnlessAPartIsSelected();
    void zoomingClearsThePartDetails_data();
    void zoomingClearsThePartDetails();
    void theLastStepOutKeepsThePartDetails();
    void oneToOneRestoresTheWidthFromAnyLevel_data();
    void oneToOneRestoresTheWidthFromAnyLevel();
    void oneToOneKeepsThePosition();
    void oneToOneFromLevelEightTurnsZoomInOnAgain();
    void theWidthsOfTheCommonSurfacesFollow();
};

void win_zoom::eachLevelIs30000TwipsWider()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    QCOMPARE(form.Picture1.Width(), 10420.0f);
    for (int level = 1; level <= 7; ++level) {
        zoom(form, zoomInButton);
        QCOMPARE(form.ZoomLevel, level);
        QCOMPARE(form.Picture1.Width(), 10420.0f + 30000.0f * level);
    }
}

void win_zoom::theWayBackFromLevelSevenHasTheSameWidths()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    zoom(form, zoomInButton, 7);
    for (int level = 6; level >= 0; --level) {
        zoom(form, zoomOutButton);
        QCOMPARE(form.ZoomLevel, level);
        QCOMPARE(form.Picture1.Width(), 10420.0f + 30000.0f * level);
    }
}

void win_zoom::levelEightHasNoWidthOfItsOwnAndDisablesItsButton()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    zoom(form, zoomInButton, 7);
    const QImage before = form.Picture1.store();
    zoom(form, zoomInButton, 3);
    QCOMPARE(form.ZoomLevel, 8);
    QCOMPARE(form.Picture1.Width(), 220420.0f);
    QVERIFY(form.Picture1.store() == before);
    QVERIFY(!form.Toolbar1.Buttons(zoomInButton).isEnabled());
}

void win_zoom::zoomingOutOfLevelEightEnablesTheButtonAgain()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    zoom(form, zoomInButton, 8);
    zoom(form, zoomOutButton);
    QVERIFY(form.Toolbar1.Buttons(zoomInButton).isEnabled());
    QCOMPARE(form.ZoomLevel, 7);
}

void win_zoom::afterLevelEightTheWayBackIsAStepNarrower()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    zoom(form, zoomInButton, 8);
    for (int level = 7; level >= 1; --level) {
        zoom(form, zoomOutButton);
        QCOMPARE(form.ZoomLevel, level);
        QCOMPARE(form.Picture1.Width(), 10420.0f + 30000.0f * (level - 1));    // base width at level 1
    }
    zoom(form, zoomOutButton);
    QCOMPARE(form.ZoomLevel, 0);
    QCOMPARE(form.Picture1.Width(), 10420.0f);
}

void win_zoom::buttonsFollowTheLevel()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    const auto enabled = [&](int button) { return form.Toolbar1.Buttons(button).isEnabled(); };
    QVERIFY(enabled(4) && !enabled(5) && !enabled(6));
    zoom(form, zoomInButton);
    QVERIFY(enabled(4) && enabled(5) && enabled(6));
    zoom(form, zoomOutButton);
    QVERIFY(enabled(4) && !enabled(5) && !enabled(6));
    zoom(form, zoomInButton, 2);
    zoom(form, oneToOneButton);
    QVERIFY(enabled(4) && !enabled(5) && !enabled(6));
}

void win_zoom::theCommandsAreRefusedWithoutAFile()
{
    FormFixture fixture;
    auto& form = fixture.load();
    for (const std::int16_t command : {4, 5, 6}) form.ToolbarCommand(command);
    QCOMPARE(form.ZoomLevel, 0);
    QCOMPARE(form.Picture1.Width(), 10420.0f);
}

void win_zoom::zoomingOutIsRefusedAtOneToOne()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    for (const std::int16_t command : {5, 6}) form.ToolbarCommand(command);
    QCOMPARE(form.ZoomLevel, 0);
    QCOMPARE(form.Picture1.Width(), 10420.0f);
}

void win_zoom::thePositionKeepsItsSample()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.SetPosition(3000);
    const std::int32_t sample = sampleOfX(10420, tenSeconds, 3000);
    for (const int button : {4, 4, 4, 5, 4, 4, 5, 5, 5, 5, 4, 4, 6}) {
        zoom(form, button);
        verifyPositionOn(form, sample);
    }
    QVERIFY(std::abs(form.Line2.X1() - 3000) < 0.02f);
}

void win_zoom::theCutLinesKeepTheirSamples()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {testRate, 7 * testRate});
    for (const int button : {4, 4, 5, 4, 6}) {
        zoom(form, button);
        for (const int i : {1, 2}) {
            const Twips x =
                twipsOfSample(form.Picture1.Width(), TotalSamples, CutPoints.at(static_cast<std::size_t>(i)));
            QCOMPARE(form.Line5(i).X1(), x);
            QCOMPARE(form.Line5b(i).X1(), x);
            QCOMPARE(form.Bop(i).Left(), x - 25);
        }
    }
}

void win_zoom::theSelectionKeepsItsSamples()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {2 * testRate, 7 * testRate});
    fixture.pressBarOfRow(2);
    zoom(form, zoomInButton, 2);
    const double width = 70420;
    QVERIFY(form.HasSelectedPart && !form.Picture2.isHidden());
    QCOMPARE(form.Picture2.Left(), static_cast<Twips>(width * 0.2));
    QCOMPARE(form.Picture2.Width(), static_cast<Twips>(width * 0.5));
    QCOMPARE(form.Picture3.Left(), static_cast<Twips>(-width * 0.2));
}

void win_zoom::zoomingInShowsThePositionInTheSelection()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    zoom(form, zoomInButton);
    QVERIFY(form.Line6.Visible());
}

void win_zoom::zoomingOutHidesItUnlessAPartIsSelected()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {testRate});
    zoom(form, zoomInButton, 2);
    zoom(form, zoomOutButton);
    QVERIFY(!form.Line6.Visible());
    form.HasSelectedPart = true;
    form.SelectedPart = 0;
    zoom(form, zoomOutButton);
    QVERIFY(form.Line6.Visible());
}

void win_zoom::zoomingClearsThePartDetails_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("button");
    QTest::addRow("zooming in") << 0 << zoomInButton;
    QTest::addRow("zooming out above 1:1") << 2 << zoomOutButton;
    QTest::addRow("1:1") << 2 << oneToOneButton;
}

void win_zoom::zoomingClearsThePartDetails()
{
    QFETCH(int, level);
    QFETCH(int, button);
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {testRate});
    zoom(form, zoomInButton, level);
    form.HasSelectedPart = true;
    form.SelectedPart = 0;
    form.SelectPart();
    QCOMPARE(form.Label11.text(), QStringLiteral("Part.01"));
    zoom(form, button);
    QCOMPARE(form.Label11.text(), QString());
    QVERIFY(!form.TextTitle.isEnabled());
}

void win_zoom::theLastStepOutKeepsThePartDetails()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {testRate});
    zoom(form, zoomInButton);
    form.HasSelectedPart = true;
    form.SelectedPart = 0;
    form.SelectPart();
    zoom(form, zoomOutButton);
    QCOMPARE(form.Label11.text(), QStringLiteral("Part.01"));
}

void win_zoom::oneToOneRestoresTheWidthFromAnyLevel_data()
{
    QTest::addColumn<int>("level");
    for (int level = 1; level <= 8; ++level) QTest::addRow("level %d", level) << level;
}

void win_zoom::oneToOneRestoresTheWidthFromAnyLevel()
{
    QFETCH(int, level);
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    zoom(form, zoomInButton, level);
    form.MonScroll.setValue(70);
    zoom(form, oneToOneButton);
    QCOMPARE(form.ZoomLevel, 0);
    QCOMPARE(form.Picture1.Width(), 10420.0f);
    QCOMPARE(form.Picture1.Left(), 0.0f);
    QCOMPARE(form.MonScroll.maximum(), 1);
    QCOMPARE(form.MonScroll.value(), 1);
}

void win_zoom::oneToOneKeepsThePosition()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    zoom(form, zoomInButton, 3);
    form.SetPosition(50000);
    const std::int32_t sample = sampleOfX(100420, tenSeconds, 50000);
    zoom(form, oneToOneButton);
    verifyPositionOn(form, sample);
}

void win_zoom::oneToOneFromLevelEightTurnsZoomInOnAgain()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    zoom(form, zoomInButton, 8);
    zoom(form, oneToOneButton);
    QVERIFY(form.Toolbar1.Buttons(zoomInButton).isEnabled());
}

void win_zoom::theWidthsOfTheCommonSurfacesFollow()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    for (const int button : {4, 4, 5, 6}) {
        zoom(form, button);
        for (const Twips x : {form.Picture3.Width(), form.Line7.X2(), form.Line1.X2()})
            QCOMPARE(x, form.Picture1.Width());
    }
}

QTEST_MAIN(win_zoom)
#include "win_zoom.moc"
