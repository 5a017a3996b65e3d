// How far a boundary goes by one step, and how far a handle can be dragged.
#include "cutpoints/BoundaryMoves.h"
#include "cutpoints/DragLimits.h"

#include <QTest>

#include <array>

namespace {

constexpr std::int32_t total = 1000000;
constexpr std::int32_t smallStep = 441;

std::int32_t moved(BoundaryRule rule, const QList<int>& cuts, int row, int step = smallStep)
{
    std::array<std::int32_t, 101> table{};
    std::ranges::copy(cuts, table.begin() + 1);
    return rule({table, static_cast<std::int32_t>(cuts.size()), total}, row, step);
}

}

class tst_boundary_rules : public QObject {
    Q_OBJECT
private slots:
    void aStartGoesEarlier_data();
    void aStartGoesEarlier();
    void aStartGoesLater_data();
    void aStartGoesLater();
    void anEndGoesEarlier_data();
    void anEndGoesEarlier();
    void anEndGoesLater_data();
    void anEndGoesLater();
    void theMarginIsHalfASecond_data();
    void theMarginIsHalfASecond();
    void dragLimitsLieAMarginFromTheNeighbours_data();
    void dragLimitsLieAMarginFromTheNeighbours();
    void aHandleStaysWithinItsLimits_data();
    void aHandleStaysWithinItsLimits();
};

void tst_boundary_rules::aStartGoesEarlier_data()
{
    QTest::addColumn<QList<int>>("cuts");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("to");
    QTest::addRow("by a step where there is room") << QList<int>{10000, 20000} << 3 << 19559;
    QTest::addRow("to a step after the cut before, where it stands 300 samples behind that")
        << QList<int>{10000, 10741} << 3 << 10441;
    QTest::addRow("not at all at its limit") << QList<int>{10000, 10441} << 3 << 10441;
    QTest::addRow("back to its limit where it stands too near") << QList<int>{10000, 10100} << 3 << 10441;
    QTest::addRow("of the second part to a step after the file's start")
        << QList<int>{600, 20000} << 2 << 441;
    QTest::addRow("of the second part away from the file's start") << QList<int>{100, 20000} << 2 << 441;
}

void tst_boundary_rules::aStartGoesEarlier()
{
    QFETCH(QList<int>, cuts);
    QFETCH(int, row);
    QTEST(moved(earlierStart, cuts, row), "to");
}

void tst_boundary_rules::aStartGoesLater_data()
{
    QTest::addColumn<QList<int>>("cuts");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("to");
    QTest::addRow("by a step where there is room") << QList<int>{10000, 20000} << 2 << 10441;
    QTest::addRow("to a step before the next cut") << QList<int>{10000, 10800} << 2 << 10359;
    QTest::addRow("back to its limit where it stands too near") << QList<int>{10000, 10100} << 2 << 9659;
    QTest::addRow("of the last part by a step") << QList<int>{10000, 20000} << 3 << 20441;
    QTest::addRow("of the last part to a step before the file's end")
        << QList<int>{10000, 999400} << 3 << 999559;
    QTest::addRow("of the last part not at all at its limit") << QList<int>{10000, 999559} << 3 << 999559;
}

void tst_boundary_rules::aStartGoesLater()
{
    QFETCH(QList<int>, cuts);
    QFETCH(int, row);
    QTEST(moved(laterStart, cuts, row), "to");
}

void tst_boundary_rules::anEndGoesEarlier_data()
{
    QTest::addColumn<QList<int>>("cuts");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("to");
    QTest::addRow("by a step where there is room") << QList<int>{10000, 20000} << 2 << 19559;
    QTest::addRow("to a step after the part's start") << QList<int>{10000, 10700} << 2 << 10441;
    QTest::addRow("of the first part to a step, not to 0") << QList<int>{700, 20000} << 1 << 441;
    QTest::addRow("of the first part not at all at its limit") << QList<int>{441, 20000} << 1 << 441;
}

void tst_boundary_rules::anEndGoesEarlier()
{
    QFETCH(QList<int>, cuts);
    QFETCH(int, row);
    QTEST(moved(earlierEnd, cuts, row), "to");
}

void tst_boundary_rules::anEndGoesLater_data()
{
    QTest::addColumn<QList<int>>("cuts");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("to");
    QTest::addRow("by a step where there is room") << QList<int>{10000, 20000} << 1 << 10441;
    QTest::addRow("past the next cut where that is nearer than a step")
        << QList<int>{10000, 10100} << 1 << 10441;
    QTest::addRow("of the part before the last by a step") << QList<int>{10000, 20000} << 2 << 20441;
    QTest::addRow("of the part before the last to a step before the file's end")
        << QList<int>{10000, 999400} << 2 << 999559;
    QTest::addRow("of the first of two parts to a step before the file's end")
        << QList<int>{999900} << 1 << 999559;
}

void tst_boundary_rules::anEndGoesLater()
{
    QFETCH(QList<int>, cuts);
    QFETCH(int, row);
    QTEST(moved(laterEnd, cuts, row), "to");
}

void tst_boundary_rules::theMarginIsHalfASecond_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("margin");
    QTest::addRow("of 44100 samples a second") << 44100 << 22050;
    QTest::addRow("of 48000") << 48000 << 24000;
    QTest::addRow("of 22050, whose hundredth is a tie that goes to the even number") << 22050 << 11000;
    QTest::addRow("of 11025, whose hundredth is rounded down") << 11025 << 5500;
    QTest::addRow("of 8000") << 8000 << 4000;
}

void tst_boundary_rules::theMarginIsHalfASecond()
{
    QFETCH(int, rate);
    QTEST(static_cast<int>(dragLimits(std::array{0, 500000}, 1, 1, total, rate).low), "margin");
}

void tst_boundary_rules::dragLimitsLieAMarginFromTheNeighbours_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::addRow("of the first cut: the file's start and the second cut") << 1 << 22050 << 300000 - 22050;
    QTest::addRow("of a middle cut: the cuts beside it") << 2 << 122050 << 677950;
    QTest::addRow("of the last cut: the cut before and the file's end") << 3 << 322050 << total - 22050;
}

void tst_boundary_rules::dragLimitsLieAMarginFromTheNeighbours()
{
    QFETCH(int, index);
    const DragLimits limits = dragLimits(std::array{0, 100000, 300000, 700000}, 3, index, total, 44100);
    QTEST(static_cast<int>(limits.low), "low");
    QTEST(static_cast<int>(limits.high), "high");
}

void tst_boundary_rules::aHandleStaysWithinItsLimits_data()
{
    QTest::addColumn<float>("x");
    QTest::addColumn<float>("low");
    QTest::addColumn<float>("high");
    QTest::addColumn<int>("stands");
    QTest::addRow("between them it goes where it is pulled") << 500.f << 100.f << 900.f << 500;
    QTest::addRow("a place between two twips is rounded") << 500.7f << 100.f << 900.f << 501;
    QTest::addRow("a tie goes to the even twip") << 500.5f << 100.f << 900.f << 500;
    QTest::addRow("above the upper one it stands there") << 950.f << 100.f << 900.4f << 900;
    QTest::addRow("on the upper one it stands there") << 900.f << 100.f << 900.f << 900;
    QTest::addRow("below the lower one it stands there") << 50.f << 100.6f << 900.f << 101;
    QTest::addRow("where the limits have passed each other the upper one counts first")
        << 500.f << 600.f << 400.f << 400;
    QTest::addRow("and the lower one below it") << 300.f << 600.f << 400.f << 600;
}

void tst_boundary_rules::aHandleStaysWithinItsLimits()
{
    QFETCH(float, x);
    QFETCH(float, low);
    QFETCH(float, high);
    QTEST(heldWithin(x, low, high), "stands");
}

QTEST_GUILESS_MAIN(tst_boundary_rules)
#include "tst_boundary_rules.moc"
