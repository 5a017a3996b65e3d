// A hundred cut points: the rows that they give, and the one that is refused.
#include "cutpoints/Cutting.h"

#include "core/TimeText.h"

namespace {

// Everything that a cut would change.
struct Everything {
    Samples cuts;
    std::vector<PartRecord> parts;
    QStringList names, starts, ends, tags;
    float lastLine = 0;

    explicit Everything(Cutting& cutting)
        : cuts(CutPoints.begin(), CutPoints.end()), parts(PartTable),
          names(cutting.column(PartsListView::Part)), starts(cutting.column(PartsListView::SampleStart)),
          ends(cutting.column(PartsListView::End)), tags(cutting.tags()),
          lastLine(cutting.form.Line5(CutCount).X1())
    {}
    bool operator==(const Everything&) const = default;
};

constexpr std::int32_t spacing = 10000;    // a hundred twips

QString T(std::int32_t sample)
{
    return FormatSeconds(SampleToSecondeD(sample, testRate));
}

}

class win_cut_limit : public QObject {
    Q_OBJECT
private slots:
    void rowsFollowTheirFormulas_data();
    void rowsFollowTheirFormulas();
    void aHundredCutsGiveAHundredAndOneRows();
    void aHundredCutsCanBeSetByPointer();
    void theMenuRefusesTheNextCut();
    void theToolbarRefusesTheNextCut();
    void theScissorsRefuseTheNextCut();
    void theScissorsRefuseTheNextCutOnTheHighlight();
    void aPositionAtTheStartIsPassedOverWithoutAWord();
    void afterADeleteThereIsRoomAgain();

private:
    static void refuses(Cutting& cutting, const std::function<void()>& add);
};

void win_cut_limit::rowsFollowTheirFormulas_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {1, 2, 50, 100}) QTest::addRow("of %d cuts", count) << count;
}

void win_cut_limit::rowsFollowTheirFormulas()
{
    QFETCH(int, count);
    Cutting cutting;
    cutting.cutEvenly(count, spacing);
    const auto row = [&](int r) {
        QStringList cells;
        for (int c = 0; c < 6; ++c)
            cells << cutting.form.ListView1.cell(r, static_cast<PartsListView::Column>(c));
        return cells;
    };
    const auto name = [](int r) { return QStringLiteral("Part.%1").arg(r, 2, 10, QLatin1Char('0')); };
    const auto c = [](int i) { return i * spacing; };

    QCOMPARE(cutting.form.ListView1.rowCount(), count + 1);
    QCOMPARE(row(1), (QStringList{"Part.01", T(0), T(c(1) - 1), T(c(1) - 1), "", "0"}));
    for (int r = 2; r <= count; ++r)
        QCOMPARE(row(r), (QStringList{name(r), T(c(r - 1)), T(c(r) - 1), T(c(r) - 1 - c(r - 1)), "",
                                      QString::number(c(r - 1))}));
    QCOMPARE(row(count + 1), (QStringList{name(count + 1), T(c(count)), T(songLength),
                                          T(songLength - c(count)), "", QString::number(c(count))}));
}

void win_cut_limit::aHundredCutsGiveAHundredAndOneRows()
{
    Cutting cutting;
    cutting.cutEvenly(100, spacing);
    QCOMPARE(cutting.form.ListView1.rowCount(), 101);
    QCOMPARE(cutting.form.ListView1.cell(101, PartsListView::Part), QString("Part.101"));
    QCOMPARE(cutting.form.Bop.UBound(), 100);
    QCOMPARE(lastPartRecord(), 101);
}

void win_cut_limit::aHundredCutsCanBeSetByPointer()
{
    Cutting cutting;
    press(cutting.form.Image13, QPoint(5, 5));
    for (int i = 100; i >= 1; --i) clickAt(cutting.form.Picture1, i * 100, inWave);
    QCOMPARE(CutCount, 100);
    QCOMPARE(CutPoints.at(1), spacing);
    QCOMPARE(CutPoints.at(100), 100 * spacing);
    QVERIFY(journal().commands().isEmpty());
}

void win_cut_limit::refuses(Cutting& cutting, const std::function<void()>& add)
{
    const Everything before(cutting);
    journal().clear();
    add();
    QCOMPARE(journal().commands(), QStringList{"MsgBox Exclamation [Quillon]: " + langText(80)});
    QVERIFY(Everything(cutting) == before);
    QCOMPARE(CutCount, 100);
}

void win_cut_limit::theMenuRefusesTheNextCut()
{
    Cutting cutting;
    cutting.cutEvenly(100, spacing);
    cutting.form.Line2.setX(4050);
    refuses(cutting, [&] { cutting.form.SetCutPoint.trigger(); });
}

void win_cut_limit::theToolbarRefusesTheNextCut()
{
    Cutting cutting;
    cutting.cutEvenly(100, spacing);
    cutting.form.Line2.setX(4050);
    refuses(cutting, [&] {
        press(*cutting.form.Toolbar1.widgetForAction(&cutting.form.Toolbar1.Buttons(8)), QPoint(15, 15));
    });
}

void win_cut_limit::theScissorsRefuseTheNextCut()
{
    Cutting cutting;
    cutting.cutEvenly(100, spacing);
    press(cutting.form.Image13, QPoint(5, 5));
    refuses(cutting, [&] { clickAt(cutting.form.Picture1, 4050, inWave); });
}

void win_cut_limit::theScissorsRefuseTheNextCutOnTheHighlight()
{
    Cutting cutting;
    auto& form = cutting.form;
    cutting.cutEvenly(100, spacing);
    press(form.Image13, QPoint(5, 5));
    cutting.fixture.pressBarOfRow(101);
    refuses(cutting, [&] { clickAt(form.Picture3, 10200, 1000); });
    QVERIFY(form.HasSelectedPart && !form.Picture2.isHidden());
    QCOMPARE(form.Label11.text(), QString("Part.101"));
}

void win_cut_limit::aPositionAtTheStartIsPassedOverWithoutAWord()
{
    Cutting cutting;
    cutting.cutEvenly(100, spacing);
    cutting.form.Line2.setX(0);
    cutting.form.SetCutPoint.trigger();
    QVERIFY(journal().commands().isEmpty());
}

void win_cut_limit::afterADeleteThereIsRoomAgain()
{
    Cutting cutting;
    cutting.cutEvenly(100, spacing);
    cutting.fixture.pressBarOfRow(50);
    cutting.form.DeleteEntryCutPoint.trigger();
    cutting.form.Line2.setX(10050);
    cutting.form.SetCutPoint.trigger();
    QCOMPARE(CutCount, 100);
    QCOMPARE(CutPoints.at(100), 1005000);
}

QTEST_MAIN(win_cut_limit)
#include "win_cut_limit.moc"
