// Moving the start and the end of the selected part by the spin arrows: how far, up to where, and what goes
// along.
#include "cutpoints/Stepping.h"

class win_boundaries : public QObject {
    Q_OBJECT
private slots:
    void eachArrowMovesItsBoundaryByItsStep_data();
    void eachArrowMovesItsBoundaryByItsStep();
    void theStepFollowsTheSampleRate_data();
    void theStepFollowsTheSampleRate();
    void theTitleGoesWithTheStart();
    void theTitleOfTheNextPartGoesWithTheEnd();
    void aStart300SamplesFromItsLimitGoesThere();
    void theLastPartsStartStopsAStepBeforeTheEnd();
    void theFirstPartsEndStopsAtAStep();
    void theEndBeforeTheLastPartStopsAStepBeforeTheEnd();
    void anEndRunsPastTheNextCut();
    void theNextCutSortsThemAgain();
    void aPartInPlayGoesOn();
    void withoutASelectedRowAnArrowClearsTheDetails_data();
    void withoutASelectedRowAnArrowClearsTheDetails();
};

void win_boundaries::eachArrowMovesItsBoundaryByItsStep_data()
{
    QTest::addColumn<int>("control");
    QTest::addColumn<bool>("isLater");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addRow("the start earlier by a hundredth") << 1 << earlier << 499559 << 700000;
    QTest::addRow("the start later by a hundredth") << 1 << later << 500441 << 700000;
    QTest::addRow("the start earlier by a tenth") << 3 << earlier << 495590 << 700000;
    QTest::addRow("the start later by a tenth") << 3 << later << 504410 << 700000;
    QTest::addRow("the end earlier by a hundredth") << 2 << earlier << 500000 << 699559;
    QTest::addRow("the end later by a hundredth") << 2 << later << 500000 << 700441;
    QTest::addRow("the end earlier by a tenth") << 4 << earlier << 500000 << 695590;
    QTest::addRow("the end later by a tenth") << 4 << later << 500000 << 704410;
}

void win_boundaries::eachArrowMovesItsBoundaryByItsStep()
{
    Cutting cutting({300000, 500000, 700000});
    QFETCH(int, control);
    QFETCH(bool, isLater);
    QFETCH(int, start);
    QFETCH(int, end);
    cutting.fixture.pressBarOfRow(3);
    step(cutting.form, control, isLater);
    QCOMPARE(cutting.cuts(), (Samples{300000, start, end}));
}

void win_boundaries::theStepFollowsTheSampleRate_data()
{
    QTest::addColumn<int>("control");
    QTest::addColumn<int>("to");
    QTest::addRow("a hundredth of 22050 is a tie that goes to the even number") << 1 << 50220;
    QTest::addRow("a tenth of 22050") << 3 << 52205;
}

void win_boundaries::theStepFollowsTheSampleRate()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(104200, 22050), {50000});
    QFETCH(int, control);
    fixture.pressBarOfRow(2);
    step(form, control, later);
    QTEST(CutPoints.at(1), "to");
}

void win_boundaries::theTitleGoesWithTheStart()
{
    Cutting cutting({300000, 500000});
    for (const int row : {1, 2, 3}) cutting.title(row, QString::number(row));
    step(cutting.form, 3, later);
    QCOMPARE(PartTable.at(2), (PartRecord{"3", 504410}));
    cutting.form.FillPartsList();
    QCOMPARE(cutting.titles(), (QStringList{"1", "2", "3"}));
}

void win_boundaries::theTitleOfTheNextPartGoesWithTheEnd()
{
    Cutting cutting({300000, 500000});
    for (const int row : {1, 2, 3}) cutting.title(row, QString::number(row));
    cutting.fixture.pressBarOfRow(2);
    step(cutting.form, 4, earlier);
    QCOMPARE(PartTable.at(2), (PartRecord{"3", 495590}));
    cutting.form.FillPartsList();
    QCOMPARE(cutting.titles(), (QStringList{"1", "2", "3"}));
}

void win_boundaries::aStart300SamplesFromItsLimitGoesThere()
{
    Cutting cutting({300000, 300741});
    cutting.fixture.pressBarOfRow(3);
    step(cutting.form, 1, earlier);
    QCOMPARE(CutPoints.at(2), 300441);
    step(cutting.form, 1, earlier);
    QCOMPARE(CutPoints.at(2), 300441);
}

void win_boundaries::theLastPartsStartStopsAStepBeforeTheEnd()
{
    Cutting cutting({songLength - 10000});
    cutting.fixture.pressBarOfRow(2);
    for (int i = 0; i < 4; ++i) step(cutting.form, 3, later);
    QCOMPARE(CutPoints.at(1), songLength - 4410);
}

void win_boundaries::theFirstPartsEndStopsAtAStep()
{
    Cutting cutting({10000});
    cutting.fixture.pressBarOfRow(1);
    for (int i = 0; i < 4; ++i) step(cutting.form, 4, earlier);
    QCOMPARE(CutPoints.at(1), 4410);
}

void win_boundaries::theEndBeforeTheLastPartStopsAStepBeforeTheEnd()
{
    Cutting cutting({300000, songLength - 10000});
    cutting.fixture.pressBarOfRow(2);
    for (int i = 0; i < 4; ++i) step(cutting.form, 4, later);
    QCOMPARE(CutPoints.at(2), songLength - 4410);
}

void win_boundaries::anEndRunsPastTheNextCut()
{
    Cutting cutting({300000, 310000});
    cutting.fixture.pressBarOfRow(1);
    for (int i = 0; i < 3; ++i) step(cutting.form, 4, later);
    QCOMPARE(cutting.cuts(), (Samples{313230, 310000}));
    QCOMPARE(cutting.form.ListView1.cell(2, PartsListView::Duration), QString("00:00.-07"));
}

void win_boundaries::theNextCutSortsThemAgain()
{
    Cutting cutting({300000, 310000});
    cutting.fixture.pressBarOfRow(1);
    for (int i = 0; i < 3; ++i) step(cutting.form, 4, later);
    cutting.form.Line2.setX(8000);
    cutting.form.SetCutPoint.trigger();
    QCOMPARE(cutting.cuts(), (Samples{310000, 313230, 800000}));
}

void win_boundaries::aPartInPlayGoesOn()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    press(form.Image9, QPoint(5, 5));
    journal().clear();
    step(form, 3, later);
    step(form, 4, earlier);
    QVERIFY(journal().commands().isEmpty());
    QVERIFY(form.IsPlaying);
    QCOMPARE(form.PlayFrom, 300000);
    QCOMPARE(form.PlayLength, 400000);
}

void win_boundaries::withoutASelectedRowAnArrowClearsTheDetails_data()
{
    QTest::addColumn<int>("control");
    QTest::addColumn<bool>("isLater");
    for (const int control : {1, 2, 3, 4})
        for (const bool isLater : {earlier, later})
            QTest::addRow("arrow %s of control %d", isLater ? "up" : "down", control) << control << isLater;
}

void win_boundaries::withoutASelectedRowAnArrowClearsTheDetails()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    QFETCH(int, control);
    QFETCH(bool, isLater);
    cutting.fixture.pressBarOfRow(2);
    form.FillPartsList();    // no row of the new list is selected
    step(form, control, isLater);
    QVERIFY(cutting.isDetailPanelCleared());
    QCOMPARE(cutting.cuts(), (Samples{300000, 700000}));
}

QTEST_MAIN(win_boundaries)
#include "win_boundaries.moc"
