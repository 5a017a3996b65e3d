// The table of cut points, the parts between them and the text of the parts list.
#include "core/TimeText.h"
#include "core/WaveScale.h"
#include "cutpoints/CutRules.h"
#include "cutpoints/PartRows.h"

#include <QTest>

#include <array>
#include <random>

using Table = std::array<std::int32_t, maxCutPoints + 1>;

namespace {

constexpr Twips width = 10420;
constexpr std::int32_t total = 1042000;

Table tableOf(std::initializer_list<std::int32_t> cuts)
{
    Table table{};
    std::ranges::copy(cuts, table.begin() + 1);
    return table;
}

// Passes over the table until one of them swaps nothing.
void exchangeSort(Table& cuts, std::int32_t count)
{
    for (bool swapped = true; swapped;) {
        swapped = false;
        for (std::int32_t i = 1; i < count; ++i) {
            auto& a = cuts.at(static_cast<std::size_t>(i));
            auto& b = cuts.at(static_cast<std::size_t>(i) + 1);
            if (a <= b) continue;
            std::swap(a, b);
            swapped = true;
        }
    }
}

QString T(std::int32_t sample)
{
    return FormatSeconds(SampleToSecondeD(sample, 44100));
}

std::vector<PartRecord> partsAt(std::initializer_list<std::pair<const char*, std::int32_t>> records)
{
    std::vector<PartRecord> parts;
    for (const auto& [title, start] : records) parts.push_back({QString::fromLatin1(title), start});
    return parts;
}

}

class tst_cut_rules : public QObject {
    Q_OBJECT
private slots:
    void sortingEqualsPlainExchanging();
    void sortingLeavesEntryZeroAndWhatLiesBehindTheCuts();
    void sortingWithoutACutDoesNothing();
    void thePartAtAPosition_data();
    void thePartAtAPosition();
    void thePartAtAPositionOfTwoEqualCuts();
    void aPositionIsComparedInSinglePrecision();
    void theStretchOfAPart_data();
    void theStretchOfAPart();
    void takingACutOutMovesTheOnesBehindIt_data();
    void takingACutOutMovesTheOnesBehindIt();
    void takingARecordOut_data();
    void takingARecordOut();
    void theHighlightOfAPart_data();
    void theHighlightOfAPart();
    void arrowKeysLeadFromPartToPart_data();
    void arrowKeysLeadFromPartToPart();
    void withoutACutThereAreNoRows();
    void rowsFollowTheirFormulas_data();
    void rowsFollowTheirFormulas();
    void aPartWithoutSamplesEndsBeforeItStarts();
    void ofTwoRecordsAtOneSampleTheLastTitleShowsOnBothRows();
    void recordsBehindTheCutsAreNotRead();
    void aLengthBelowZeroShowsItsSign();
};

void tst_cut_rules::sortingEqualsPlainExchanging()
{
    std::mt19937 random(7);
    for (int run = 0; run < 200; ++run) {
        const auto count = static_cast<std::int32_t>(random() % 101);
        Table mine{};
        for (std::int32_t i = 1; i <= count; ++i)
            mine.at(static_cast<std::size_t>(i)) = static_cast<std::int32_t>(random() % 50);
        Table plain = mine;
        sortCuts(mine, count);
        exchangeSort(plain, count);
        QVERIFY(mine == plain);
    }
}

void tst_cut_rules::sortingLeavesEntryZeroAndWhatLiesBehindTheCuts()
{
    Table cuts = tableOf({30, 20, 10, 5, 1});
    sortCuts(cuts, 3);
    QVERIFY(cuts == tableOf({10, 20, 30, 5, 1}));
}

void tst_cut_rules::sortingWithoutACutDoesNothing()
{
    Table cuts = tableOf({30, 20});
    sortCuts(cuts, 0);
    QVERIFY(cuts == tableOf({30, 20}));
}

void tst_cut_rules::thePartAtAPosition_data()
{
    QTest::addColumn<QList<int>>("cuts");
    QTest::addColumn<float>("x");
    QTest::addColumn<int>("code");
    const QList<int> one{300000}, three{100000, 300000, 700000};
    QTest::addRow("before the only cut is the first part") << one << 2999.f << 0;
    QTest::addRow("on the only cut is the first part") << one << 3000.f << 0;
    QTest::addRow("behind the only cut is the last part") << one << 3001.f << -1;
    QTest::addRow("the left end is the first part") << three << 0.f << 0;
    QTest::addRow("on the first of three is the part that it begins") << three << 1000.f << 1;
    QTest::addRow("just before the second is still the first middle part") << three << 2999.f << 1;
    QTest::addRow("on the second is the second middle part") << three << 3000.f << 2;
    QTest::addRow("just before the last is the second middle part") << three << 6999.f << 2;
    QTest::addRow("on the last is the first part") << three << 7000.f << 0;
    QTest::addRow("behind the last is the last part") << three << 7000.5f << -1;
    QTest::addRow("the right end is the last part") << three << 10420.f << -1;
}

void tst_cut_rules::thePartAtAPosition()
{
    QFETCH(QList<int>, cuts);
    QFETCH(float, x);
    Table table{};
    std::ranges::copy(cuts, table.begin() + 1);
    QTEST(partAt(x, table, static_cast<std::int32_t>(cuts.size()), width, total), "code");
}

void tst_cut_rules::thePartAtAPositionOfTwoEqualCuts()
{
    QCOMPARE(partAt(3000, tableOf({300000, 300000, 500000}), 3, width, total), 2);
}

// A sample whose place rounds up in single precision: a pointer that was read from that place is not before
// it.
void tst_cut_rules::aPositionIsComparedInSinglePrecision()
{
    for (std::int32_t sample = 1; sample < 1000003; sample += 7919) {
        const Table cuts = tableOf({sample, 1000003});
        QCOMPARE(partAt(twipsOfSample(width, 1000033, sample), cuts, 2, width, 1000033), 1);
    }
}

void tst_cut_rules::theStretchOfAPart_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addRow("without a cut any code is the whole file") << 0 << -1 << 0 << total;
    QTest::addRow("the first part ends at the first cut") << 3 << 0 << 0 << 100000;
    QTest::addRow("a middle part lies between two cuts") << 3 << 2 << 300000 << 400000;
    QTest::addRow("the last part ends with the file") << 3 << -1 << 700000 << 342000;
}

void tst_cut_rules::theStretchOfAPart()
{
    QFETCH(int, count);
    QFETCH(int, code);
    QFETCH(int, start);
    QFETCH(int, length);
    QCOMPARE(stretchOf(code, tableOf({100000, 300000, 700000}), count, total), (Stretch{start, length}));
}

void tst_cut_rules::takingACutOutMovesTheOnesBehindIt_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QList<int>>("left");
    QTest::addRow("the first") << 1 << QList<int>{20, 30};
    QTest::addRow("the middle one") << 2 << QList<int>{10, 30};
    QTest::addRow("the last") << 3 << QList<int>{10, 20};
}

void tst_cut_rules::takingACutOutMovesTheOnesBehindIt()
{
    QFETCH(int, index);
    Table cuts = tableOf({10, 20, 30});
    std::int32_t count = 3;
    removeCut(cuts, count, index);
    QCOMPARE(count, 2);
    QTEST(QList<int>(cuts.begin() + 1, cuts.begin() + 1 + count), "left");
}

void tst_cut_rules::takingARecordOut_data()
{
    QTest::addColumn<int>("sample");
    QTest::addColumn<QStringList>("left");
    QTest::addRow("the record goes by its sample, not by its place")
        << 10 << QStringList{"first", "thirty", "twenty"};
    QTest::addRow("the record created first") << 30 << QStringList{"first", "ten", "twenty"};
    QTest::addRow("the last record only falls off") << 20 << QStringList{"first", "thirty", "ten"};
    QTest::addRow("an unknown sample takes the first record") << 99 << QStringList{"thirty", "ten", "twenty"};
}

void tst_cut_rules::takingARecordOut()
{
    QFETCH(int, sample);
    auto parts = partsAt({{"first", 0}, {"thirty", 30}, {"ten", 10}, {"twenty", 20}, {"", 0}});
    removePart(parts, sample, 3);
    QStringList titles;
    for (const PartRecord& part : parts) titles << part.Title;
    QTEST(titles, "left");
}

void tst_cut_rules::theHighlightOfAPart_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<float>("wide");
    QTest::addColumn<float>("left");
    QTest::addRow("of the first part") << 0 << 1000.f << 0.f;
    QTest::addRow("of the middle part") << 1 << 2000.f << 1000.f;
    QTest::addRow("of the last part") << -1 << 7420.f << 3000.f;
}

void tst_cut_rules::theHighlightOfAPart()
{
    QFETCH(int, code);
    QFETCH(float, left);
    const Highlight lies = highlightOf(code, tableOf({100000, 300000}), 2, width, total);
    QTEST(lies.width, "wide");
    QCOMPARE(lies.left, left);
    QCOMPARE(lies.innerLeft, -left);
}

void tst_cut_rules::arrowKeysLeadFromPartToPart_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addRow("from the first of two") << 0 << 1 << -1 << -1;
    QTest::addRow("from the last of two") << -1 << 1 << 0 << 0;
    QTest::addRow("from the first of four") << 0 << 3 << -1 << 1;
    QTest::addRow("from the second of four") << 1 << 3 << 0 << 2;
    QTest::addRow("from the third of four") << 2 << 3 << 1 << -1;
    QTest::addRow("from the last of four") << -1 << 3 << 2 << 0;
}

void tst_cut_rules::arrowKeysLeadFromPartToPart()
{
    QFETCH(int, code);
    QFETCH(int, count);
    QTEST(partLeftOf(code, count), "left");
    QTEST(partRightOf(code, count), "right");
}

void tst_cut_rules::withoutACutThereAreNoRows()
{
    QVERIFY(partRows(Table{}, 0, total, 44100, partsAt({{"all", 0}})).empty());
}

void tst_cut_rules::rowsFollowTheirFormulas_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {1, 2, 50, 100}) QTest::addRow("of %d cuts", count) << count;
}

void tst_cut_rules::rowsFollowTheirFormulas()
{
    QFETCH(int, count);
    Table cuts{};
    std::vector<PartRecord> parts{{"title 0", 0}};
    for (int i = 1; i <= count; ++i) {
        cuts.at(static_cast<std::size_t>(i)) = i * 10007;
        parts.push_back({QStringLiteral("title %1").arg(i), i * 10007});
    }
    const auto rows = partRows(cuts, count, total, 44100, parts);
    QCOMPARE(rows.size(), static_cast<std::size_t>(count) + 1);

    const auto c = [&](int i) { return cuts.at(static_cast<std::size_t>(i)); };
    QCOMPARE(rows.front(), (PartRow{"Part.01", T(0), T(c(1) - 1), T(c(1) - 1), "title 0", "0"}));
    for (int r = 2; r <= count; ++r) {
        const PartRow expected{QStringLiteral("Part.%1").arg(r, 2, 10, QLatin1Char('0')),
                               T(c(r - 1)),
                               T(c(r) - 1),
                               T(c(r) - 1 - c(r - 1)),
                               QStringLiteral("title %1").arg(r - 1),
                               QString::number(c(r - 1))};
        QCOMPARE(rows.at(static_cast<std::size_t>(r - 1)), expected);
    }
    const QString last = QStringLiteral("Part.%1").arg(count + 1, 2, 10, QLatin1Char('0'));
    QCOMPARE(rows.back(), (PartRow{last, T(c(count)), T(total), T(total - c(count)),
                                   QStringLiteral("title %1").arg(count), QString::number(c(count))}));
}

void tst_cut_rules::aPartWithoutSamplesEndsBeforeItStarts()
{
    // At a hundred samples a second one sample is the hundredth that shows.
    const auto rows = partRows(tableOf({500, 500}), 2, 1000, 100, partsAt({{"", 0}, {"", 500}, {"", 500}}));
    QCOMPARE(rows.at(1).start, QString("00:05.00"));
    QCOMPARE(rows.at(1).end, QString("00:04.99"));
}

void tst_cut_rules::ofTwoRecordsAtOneSampleTheLastTitleShowsOnBothRows()
{
    const auto rows =
        partRows(tableOf({500, 500}), 2, 1000, 100, partsAt({{"", 0}, {"older", 500}, {"newer", 500}}));
    QCOMPARE(rows.at(1).title, QString("newer"));
    QCOMPARE(rows.at(2).title, QString("newer"));
}

void tst_cut_rules::recordsBehindTheCutsAreNotRead()
{
    const auto rows =
        partRows(tableOf({500}), 1, 1000, 100, partsAt({{"first", 0}, {"second", 500}, {"", 0}}));
    QCOMPARE(rows.at(0).title, QString("first"));
}

void tst_cut_rules::aLengthBelowZeroShowsItsSign()
{
    const auto rows = partRows(tableOf({500, 350}), 2, 1000, 100, partsAt({{"", 0}, {"", 500}, {"", 350}}));
    QCOMPARE(rows.at(1).duration, QString("00:-01.-51"));
}

QTEST_GUILESS_MAIN(tst_cut_rules)
#include "tst_cut_rules.moc"
