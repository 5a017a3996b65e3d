// How the window follows the player: the position line, its text, the end of the stream.
#include "support/FormFixture.h"
#include "support/Journal.h"
#include "support/Mouse.h"

#include <QTest>
#include <QTimer>

namespace {

constexpr std::int32_t tenSeconds = 10 * testRate;
constexpr int playButton = 10, stopButton = 12;

}

class win_following : public QObject {
    Q_OBJECT

private slots:
    void theEndOfAPartSendsTheLineToTheStart();
    void theEndOfAPartLeavesItSelected();
    void theEndOfTheFileHidesAHighlightWithoutASelection();
    void thePositionHasThreeDecimalsDuringPlay_data();
    void thePositionHasThreeDecimalsDuringPlay();
    void thePositionLineFollowsThePlayer();
    void thePositionOfAPartCountsFromItsStart();
    void theCopyInTheSelectionFollowsInsideAndIsHiddenOutside_data();
    void theCopyInTheSelectionFollowsInsideAndIsHiddenOutside();
    void theClockCountsForNothingWhenNothingIsFed();
    void theClockLeavesALineThatIsDragged();
    void theClockNeverScrolls();
    void aClickCanRunInsideTheClock();
};

void win_following::theEndOfAPartSendsTheLineToTheStart()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {5 * testRate});
    fixture.pressBarOfRow(2);
    form.Image9.click();
    fixture.engine.player->Timer(testRate, 0, 0);
    fixture.engine.player->EndPlay();
    QVERIFY(!form.IsPlaying && !form.PlayFeeding);
    QCOMPARE(form.Line2.X1(), 0.0f);
    QCOMPARE(form.IndicTime.Left(), -120.0f);
    QCOMPARE(form.Label2.text(), QStringLiteral("00:00.00"));
}

void win_following::theEndOfAPartLeavesItSelected()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {5 * testRate});
    fixture.pressBarOfRow(2);
    form.Image9.click();
    fixture.engine.player->EndPlay();
    QVERIFY(form.HasSelectedPart && !form.Picture2.isHidden());
    QCOMPARE(form.SelectedPart, -1);
}

void win_following::theEndOfTheFileHidesAHighlightWithoutASelection()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    form.Picture2.show();
    fixture.engine.player->EndPlay();
    QVERIFY(form.Picture2.isHidden());
}

void win_following::thePositionHasThreeDecimalsDuringPlay_data()
{
    QTest::addColumn<int>("ms");
    QTest::addColumn<QString>("text");
    QTest::addRow("the start") << 0 << "00:00.000";
    QTest::addRow("five milliseconds past a minute") << 60005 << "01:00.005";
    QTest::addRow("two digits get a zero") << 67042 << "01:07.042";
    QTest::addRow("ten seconds") << 10123 << "00:10.123";
    QTest::addRow("a hundred minutes") << 6000999 << "100:00.999";
}

void win_following::thePositionHasThreeDecimalsDuringPlay()
{
    QFETCH(int, ms);
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    fixture.engine.player->rate = 1000;    // a sample is a millisecond
    fixture.engine.player->Timer(ms, 0, 0);
    QTEST(form.Label2.text(), "text");
}

void win_following::thePositionLineFollowsThePlayer()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    fixture.engine.player->Timer(3 * testRate, 0, 0);
    const auto x = static_cast<Twips>(3 * testRate / (static_cast<double>(tenSeconds) / 10420));
    QCOMPARE(form.Line2.X1(), x);
    QCOMPARE(form.Line2.X2(), x);
    QCOMPARE(form.IndicTime.Left(), x - 120);
}

void win_following::thePositionOfAPartCountsFromItsStart()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {5 * testRate});
    fixture.pressBarOfRow(2);
    form.Image9.click();
    fixture.engine.player->Timer(testRate, 0, 0);
    QCOMPARE(form.Line2.X1(), 6252.0f);
    QCOMPARE(form.Label2.text(), QStringLiteral("00:06.000"));
}

void win_following::theCopyInTheSelectionFollowsInsideAndIsHiddenOutside_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<bool>("isInside");
    QTest::addRow("before the part") << 2 * testRate << false;
    QTest::addRow("at its start") << 3 * testRate << true;
    QTest::addRow("inside") << 4 * testRate << true;
    QTest::addRow("at its end") << 5 * testRate << false;
    QTest::addRow("after it") << 8 * testRate << false;
}

void win_following::theCopyInTheSelectionFollowsInsideAndIsHiddenOutside()
{
    QFETCH(int, position);
    QFETCH(bool, isInside);
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds), {3 * testRate, 5 * testRate});
    form.SetPosition(0);
    pressButton(form.Toolbar1, playButton);
    fixture.pressBarOfRow(2);
    fixture.engine.player->Timer(position, 0, 0);
    QCOMPARE(form.Line6.Visible(), isInside);
    if (isInside) QCOMPARE(form.Line6.X1(), form.Line2.X1());
}

void win_following::theClockCountsForNothingWhenNothingIsFed()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    form.Label2.setText(QStringLiteral("left alone"));
    fixture.engine.player->Timer(3 * testRate, 0, 0);
    QCOMPARE(form.Line2.X1(), 0.0f);
    QCOMPARE(form.Label2.text(), QStringLiteral("left alone"));
}

void win_following::theClockLeavesALineThatIsDragged()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    pressAt(form.Picture1, {2, 4});    // on the handle
    QVERIFY(form.TimeDrag);
    fixture.engine.player->Timer(3 * testRate, 0, 0);
    QCOMPARE(form.Line2.X1(), 0.0f);
    QCOMPARE(form.Label2.text(), QStringLiteral("00:03.000"));
}

void win_following::theClockNeverScrolls()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, 4);
    pressButton(form.Toolbar1, playButton);
    fixture.engine.player->Timer(9 * testRate, 0, 0);
    QCOMPARE(form.Picture1.Left(), 0.0f);
    QVERIFY(form.Line2.X1() > form.Picture4.Width());
}

void win_following::aClickCanRunInsideTheClock()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    QTimer::singleShot(0, &form, [&form] { pressButton(form.Toolbar1, stopButton); });
    fixture.engine.player->Timer(3 * testRate, 0, 0);
    QVERIFY(!form.IsPlaying);
    QCOMPARE(form.Line2.X1(), 0.0f);
    QCOMPARE(form.Label2.text(), QStringLiteral("00:00.00"));
}

QTEST_MAIN(win_following)
#include "win_following.moc"
