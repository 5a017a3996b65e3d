// The rules of the waveform: the peak table, the places of ruler and bar, the steps of the zoom.
#include "waveform/PeakScan.h"
#include "waveform/RulerPlan.h"
#include "waveform/ZoomSteps.h"

#include "core/Errors.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr std::int32_t longest = std::numeric_limits<std::int32_t>::max();
constexpr Twips designWidth = 10420;

// The table as it is defined, element by element.
struct NaiveScan {
    double ratio;
    std::int32_t counter = 0;
    std::size_t next = 0;

    void add(std::vector<std::int16_t>& block, std::vector<std::int32_t>& peaks)
    {
        const double limit = (static_cast<double>(block.size()) - 1) / 2;
        for (std::int32_t i = 1; i <= limit; ++i) {
            if (checkedMod(counter, toLong(ratio)) == 0) {
                std::int16_t& s = block[static_cast<std::size_t>(2 * i)];
                if (s == -32768) s = -32665;
                peaks.resize(next + 1);
                peaks[next++] = std::abs(s);
            }
            ++counter;
        }
    }
};

std::vector<std::int16_t> noise(std::size_t size, std::mt19937& dice)
{
    std::uniform_int_distribution<int> any(-32768, 32767);
    std::vector<std::int16_t> block(size);
    for (auto& s : block) s = static_cast<std::int16_t>(any(dice));
    return block;
}

std::vector<std::int32_t> scanned(std::int32_t totalSamples, std::vector<std::int16_t> block)
{
    std::vector<std::int32_t> peaks(1);
    PeakScan(totalSamples).add(block, peaks);
    return peaks;
}

std::vector<std::int32_t> scannedInSeconds(std::int32_t totalSamples, std::int32_t channels)
{
    PeakScan scan(totalSamples);
    std::vector<std::int32_t> peaks(1);
    const std::int32_t perBlock = 44100 * channels;
    for (std::int32_t from = 0; from < totalSamples; from += perBlock) {
        std::vector<std::int16_t> block(
            static_cast<std::size_t>(std::min(perBlock, totalSamples - from) * channels));
        scan.add(block, peaks);
    }
    return peaks;
}

}

class tst_waveform_rules : public QObject {
    Q_OBJECT

private slots:
    void theQuickScanGivesTheTableOfTheLiteralOne_data();
    void theQuickScanGivesTheTableOfTheLiteralOne();
    void theFirstElementOfABlockIsNeverLookedAt();
    void inStereoOnlyLeftSamplesAreLookedAt();
    void inMonoEverySecondSampleIsLookedAt();
    void aRatioOfOneTakesEverySecondElement();
    void theSamplingRunsOnAcrossBlocks();
    void aMillionStereoSamplesGiveAboutEightThousandEntries();
    void aMillionMonoSamplesGiveAboutFourThousandEntries();
    void fourThousandSamplesOrFewerFail_data();
    void fourThousandSamplesOrFewerFail();
    void aBlockWithNothingToLookAtNeverFails();
    void magnitudes_data();
    void magnitudes();
    void theLowestSampleIsChangedInPlace();
    void percents_data();
    void percents();
    void theRulerHasALabelEvery106PixelsAndOneBeyondTheEdge();
    void theRulerLabelsStandForTheirPlaces();
    void withoutAFileEveryRulerLabelIsOfTheFirstSample();
    void theRulerOfTheLongestFileStaysWithinTheNumbers();
    void theBarIsFilledToItsEndWithoutAGap_data();
    void theBarIsFilledToItsEndWithoutAGap();
    void theLastSectionOfTheBarIsCutToFit();
    void scrollBarMaxima_data();
    void scrollBarMaxima();
    void scrolledPlaces_data();
    void scrolledPlaces();
    void theLargestScrollValueShowsTheEndToWithinAUnit();
    void theBaseWidthIsTheViewportLess35();
};

void tst_waveform_rules::theQuickScanGivesTheTableOfTheLiteralOne_data()
{
    QTest::addColumn<int>("totalSamples");
    QTest::addColumn<QList<int>>("blocks");
    QTest::addRow("blocks longer than the ratio") << 1'000'000 << QList<int>{1000, 1000, 1000, 400};
    QTest::addRow("blocks shorter than the ratio") << 8'000'000 << QList<int>{100, 300, 700, 2, 1000, 4000};
    QTest::addRow("odd sizes") << 100'000 << QList<int>{1, 3, 5, 7, 101, 999, 1};
    QTest::addRow("empty blocks between") << 50'000 << QList<int>{0, 10, 0, 0, 50, 0};
    QTest::addRow("a ratio of one") << 8000 << QList<int>{5, 6, 7, 1000};
    QTest::addRow("a ratio that is rounded up from a half") << 12001 << QList<int>{99, 100, 101};
    QTest::addRow("a tie of the ratio goes to the even number") << 20000 << QList<int>{99, 100, 101};
}

void tst_waveform_rules::theQuickScanGivesTheTableOfTheLiteralOne()
{
    QFETCH(int, totalSamples);
    QFETCH(QList<int>, blocks);
    std::mt19937 dice(7);
    PeakScan scan(totalSamples);
    NaiveScan naive{totalSamples / 8000.0};
    std::vector<std::int32_t> peaks(1), expected(1);
    for (const int size : blocks) {
        auto block = noise(static_cast<std::size_t>(size), dice);
        auto copy = block;
        scan.add(block, peaks);
        naive.add(copy, expected);
        QCOMPARE(block, copy);
    }
    QVERIFY(expected.size() > 1);
    QCOMPARE(peaks, expected);
}

void tst_waveform_rules::theFirstElementOfABlockIsNeverLookedAt()
{
    QCOMPARE(scanned(8000, {9, 0, 5, 0}), (std::vector<std::int32_t>{5}));
}

void tst_waveform_rules::inStereoOnlyLeftSamplesAreLookedAt()
{
    QCOMPARE(scanned(8000, {1, -1, 2, -20, 3, -30, 4, -40}), (std::vector<std::int32_t>{2, 3, 4}));
}

void tst_waveform_rules::inMonoEverySecondSampleIsLookedAt()
{
    QCOMPARE(scanned(8000, {1, 2, 3, 4, 5, 6, 7}), (std::vector<std::int32_t>{3, 5, 7}));
}

void tst_waveform_rules::aRatioOfOneTakesEverySecondElement()
{
    std::vector<std::int16_t> block(16000);
    QCOMPARE(scanned(8000, block).size(), std::size_t{7999});
}

void tst_waveform_rules::theSamplingRunsOnAcrossBlocks()
{
    PeakScan scan(24000);    // every third
    std::vector<std::int32_t> peaks(1);
    std::vector<std::int16_t> first{0, 0, 1, 0, 2, 0, 3, 0, 4, 0}, second{0, 0, 5, 0, 6, 0, 7, 0, 8, 0};
    scan.add(first, peaks);
    scan.add(second, peaks);
    QCOMPARE(peaks, (std::vector<std::int32_t>{1, 4, 7}));
}

void tst_waveform_rules::aMillionStereoSamplesGiveAboutEightThousandEntries()
{
    const auto peaks = scannedInSeconds(1'000'000, 2);
    QVERIFY(peaks.size() > 7990 && peaks.size() <= 8000);
}

void tst_waveform_rules::aMillionMonoSamplesGiveAboutFourThousandEntries()
{
    const auto peaks = scannedInSeconds(1'000'000, 1);
    QVERIFY(peaks.size() > 3990 && peaks.size() <= 4000);
}

void tst_waveform_rules::fourThousandSamplesOrFewerFail_data()
{
    QTest::addColumn<int>("totalSamples");
    QTest::addColumn<bool>("fails");
    QTest::addRow("ten samples") << 10 << true;
    QTest::addRow("four thousand: the tie goes to 0") << 4000 << true;
    QTest::addRow("one more") << 4001 << false;
}

void tst_waveform_rules::fourThousandSamplesOrFewerFail()
{
    QFETCH(int, totalSamples);
    QFETCH(bool, fails);
    bool failed = false;
    try {
        scanned(totalSamples, {1, 1, 2, 2});
    } catch (const ConversionError&) {
        failed = true;
    }
    QCOMPARE(failed, fails);
}

void tst_waveform_rules::aBlockWithNothingToLookAtNeverFails()
{
    QCOMPARE(scanned(1, {1, 1}), (std::vector<std::int32_t>{0}));
}

void tst_waveform_rules::magnitudes_data()
{
    QTest::addColumn<int>("sample");
    QTest::addColumn<int>("expected");
    QTest::addRow("silence") << 0 << 0;
    QTest::addRow("a positive sample") << 12 << 12;
    QTest::addRow("a negative sample") << -12 << 12;
    QTest::addRow("the highest") << 32767 << 32767;
    QTest::addRow("one above the lowest") << -32767 << 32767;
    QTest::addRow("the lowest") << -32768 << 32665;
}

void tst_waveform_rules::magnitudes()
{
    QFETCH(int, sample);
    auto s = static_cast<std::int16_t>(sample);
    QTEST(magnitude(s), "expected");
}

void tst_waveform_rules::theLowestSampleIsChangedInPlace()
{
    std::int16_t s = -32768;
    magnitude(s);
    QCOMPARE(s, std::int16_t{-32665});
}

void tst_waveform_rules::percents_data()
{
    QTest::addColumn<double>("done");
    QTest::addColumn<int>("total");
    QTest::addColumn<int>("expected");
    QTest::addRow("never 0") << 1.0 << 1000 << 1;
    QTest::addRow("a half goes to 0 and so to 1") << 5.0 << 1000 << 1;
    QTest::addRow("one and a half goes to 2") << 15.0 << 1000 << 2;
    QTest::addRow("two and a half goes to 2") << 25.0 << 1000 << 2;
    QTest::addRow("all") << 1000.0 << 1000 << 100;
}

void tst_waveform_rules::percents()
{
    QFETCH(double, done);
    QFETCH(int, total);
    QFETCH(int, expected);
    QCOMPARE(static_cast<int>(scanPercent(done, total)), expected);
}

void tst_waveform_rules::theRulerHasALabelEvery106PixelsAndOneBeyondTheEdge()
{
    const auto ruler = planRuler(designWidth, 44100);
    QCOMPARE(ruler.size(), std::size_t{8});    // 7 x 1590 is the first place beyond 10420
    for (std::size_t i = 0; i < ruler.size(); ++i) QCOMPARE(ruler[i].xPx, 1 + 106 * static_cast<int>(i));
}

void tst_waveform_rules::theRulerLabelsStandForTheirPlaces()
{
    const auto ruler = planRuler(designWidth, 10420);
    for (std::size_t i = 0; i < ruler.size(); ++i) QCOMPARE(ruler[i].sample, 1590 * static_cast<int>(i));
}

void tst_waveform_rules::withoutAFileEveryRulerLabelIsOfTheFirstSample()
{
    for (const RulerSection& section : planRuler(designWidth, 0)) QCOMPARE(section.sample, 0);
}

void tst_waveform_rules::theRulerOfTheLongestFileStaysWithinTheNumbers()
{
    QCOMPARE(planRuler(designWidth, longest).back().sample, longest);
}

void tst_waveform_rules::theBarIsFilledToItsEndWithoutAGap_data()
{
    QTest::addColumn<float>("width");
    for (int level = 0; level <= 7; ++level)
        QTest::addRow("level %d", level) << designWidth + 30000.0f * level;
}

void tst_waveform_rules::theBarIsFilledToItsEndWithoutAGap()
{
    QFETCH(float, width);
    int reached = 2;
    for (const BarSection& section : planBar(width)) {
        QCOMPARE(section.xPx, reached);
        reached += section.widthPx;
    }
    QCOMPARE(reached, toLong(2 + (width - 30) / 15));
}

void tst_waveform_rules::theLastSectionOfTheBarIsCutToFit()
{
    const auto bar = planBar(designWidth);    // 694.67 pixels: 2, 15 times 44, then 32.67
    QCOMPARE(bar.size(), std::size_t{16});
    QCOMPARE(bar.back().xPx, 662);
    QCOMPARE(bar.back().widthPx, 33);
}

void tst_waveform_rules::scrollBarMaxima_data()
{
    QTest::addColumn<float>("width");
    QTest::addColumn<int>("expected");
    QTest::addRow("1:1") << 10420.0f << 0;
    QTest::addRow("level 1") << 40420.0f << 100;
    QTest::addRow("level 2") << 70420.0f << 200;
    QTest::addRow("level 7") << 220420.0f << 700;
}

void tst_waveform_rules::scrollBarMaxima()
{
    QFETCH(float, width);
    QFETCH(int, expected);
    QCOMPARE(static_cast<int>(scrollMaximum(width, 10455)), expected);
}

void tst_waveform_rules::scrolledPlaces_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<float>("left");
    QTest::addRow("the first value is the start") << 1 << 0.0f;
    QTest::addRow("the second") << 2 << -600.0f;
    QTest::addRow("the hundredth") << 100 << -30000.0f;
}

void tst_waveform_rules::scrolledPlaces()
{
    QFETCH(int, value);
    QTEST(scrolledLeft(value), "left");
}

void tst_waveform_rules::theLargestScrollValueShowsTheEndToWithinAUnit()
{
    for (int level = 1; level <= 7; ++level) {
        const Twips width = designWidth + zoomStep * level;
        const Twips rightEdge = scrolledLeft(scrollMaximum(width, 10455)) + width;
        QVERIFY(std::abs(rightEdge - 10455) <= 300);
    }
}

void tst_waveform_rules::theBaseWidthIsTheViewportLess35()
{
    QCOMPARE(baseWidth(10455), designWidth);
}

QTEST_GUILESS_MAIN(tst_waveform_rules)
#include "tst_waveform_rules.moc"
