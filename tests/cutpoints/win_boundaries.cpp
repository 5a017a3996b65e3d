// Moving the start and the end of the selected part by the spin arrows.
#include "cutpoints/Cutting.h"

#include "core/TimeText.h"

using Column = PartsListView::Column;

namespace {

QString T(std::int32_t sample)
{
    return FormatSeconds(SampleToSecondeD(sample, SampleRate));
}

Twips xOf(std::int32_t sample)
{
    return static_cast<Twips>(10420.0 / songLength * sample);
}

// One of the eight arrows, by the control's number.
QToolButton& arrow(CutterSelect& form, int control, bool isLater)
{
    UpDown& both = control == 1   ? form.UpDown1
                   : control == 2 ? form.UpDown2
                   : control == 3 ? form.UpDown3
                                  : form.UpDown4;
    return isLater ? both.up : both.down;
}

constexpr bool earlier = false, later = true;

void step(CutterSelect& form, int control, bool isLater)
{
    press(arrow(form, control, isLater), QPoint(5, 5));
}

}

class win_boundaries : public QObject {
    Q_OBJECT
private slots:
    void eachArrowMovesItsBoundaryByItsStep_data();
    void eachArrowMovesItsBoundaryByItsStep();
    void theStepFollowsTheSampleRate_data();
    void theStepFollowsTheSampleRate();
    void aMovedStartIsWrittenIntoItsRow();
    void aMovedStartIsWrittenIntoTheRowBefore();
    void theStartOfTheSecondPartIsTheLengthOfTheFirst();
    void theStartOfTheLastPartIsMeasuredFromTheEnd();
    void aMovedEndIsWrittenIntoItsRow();
    void aMovedEndIsWrittenIntoTheNextRow();
    void theEndOfTheFirstPartIsItsLength();
    void theEndBeforeTheLastPartIsMeasuredFromTheEnd();
    void theMarkersGoWithTheCut();
    void aMarkerIsFoundByItsSample();
    void theHighlightIsLaidAgain_data();
    void theHighlightIsLaidAgain();
    void selectionAndNameStay();
    void theTitleGoesWithTheStart();
    void theTitleOfTheNextPartGoesWithTheEnd();
    void aStart300SamplesFromItsLimitGoesThere();
    void theLastPartsStartStopsAStepBeforeTheEnd();
    void theFirstPartsEndStopsAtAStep();
    void theEndBeforeTheLastPartStopsAStepBeforeTheEnd();
    void anEndRunsPastTheNextCut();
    void theNextCutSortsThemAgain();
    void aMovedEndEqualsTheNextStartUntilTheListIsMadeAnew();
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

void win_boundaries::aMovedStartIsWrittenIntoItsRow()
{
    Cutting cutting({300000, 500000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(3);
    step(form, 3, earlier);
    QCOMPARE(form.ListView1.cell(3, Column::Start), T(495590));
    QCOMPARE(form.ListView1.cell(3, Column::Duration), T(700000 - 495590));
    QCOMPARE(form.ListView1.cell(3, Column::SampleStart), QString("495590"));
    QCOMPARE(form.ListView1.cell(3, Column::End), T(699999));
    QCOMPARE(form.Text1.text(), T(495590));
    QCOMPARE(form.Label16.text(), T(700000 - 495590));
}

void win_boundaries::aMovedStartIsWrittenIntoTheRowBefore()
{
    Cutting cutting({300000, 500000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(3);
    step(form, 3, earlier);
    QCOMPARE(form.ListView1.cell(2, Column::Start), T(300000));
    QCOMPARE(form.ListView1.cell(2, Column::End), T(495590));
    QCOMPARE(form.ListView1.cell(2, Column::Duration), T(495590 - 300000));
}

void win_boundaries::theStartOfTheSecondPartIsTheLengthOfTheFirst()
{
    Cutting cutting({300000, 500000});
    auto& list = cutting.form.ListView1;
    cutting.fixture.pressBarOfRow(2);
    step(cutting.form, 3, later);
    QCOMPARE(list.cell(1, Column::Start), QString("00:00.00"));
    QCOMPARE(list.cell(1, Column::End), T(304410));
    QCOMPARE(list.cell(1, Column::Duration), T(304410));
}

void win_boundaries::theStartOfTheLastPartIsMeasuredFromTheEnd()
{
    Cutting cutting({300000, 500000});
    cutting.fixture.pressBarOfRow(3);
    step(cutting.form, 3, later);
    QCOMPARE(cutting.form.ListView1.cell(3, Column::Duration), T(songLength - 504410));
    QCOMPARE(cutting.form.ListView1.cell(3, Column::End), T(songLength));
}

void win_boundaries::aMovedEndIsWrittenIntoItsRow()
{
    Cutting cutting({300000, 500000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    step(form, 4, later);
    QCOMPARE(form.ListView1.cell(2, Column::End), T(504410));
    QCOMPARE(form.ListView1.cell(2, Column::Duration), T(204410));
    QCOMPARE(form.ListView1.cell(2, Column::Start), T(300000));
    QCOMPARE(form.Text2.text(), T(504410));
    QCOMPARE(form.Label16.text(), T(204410));
}

void win_boundaries::aMovedEndIsWrittenIntoTheNextRow()
{
    Cutting cutting({300000, 500000, 700000});
    auto& list = cutting.form.ListView1;
    cutting.fixture.pressBarOfRow(2);
    step(cutting.form, 4, later);
    QCOMPARE(list.cell(3, Column::Start), T(504410));
    QCOMPARE(list.cell(3, Column::SampleStart), QString("504410"));
    QCOMPARE(list.cell(3, Column::Duration), T(700000 - 504410));
}

void win_boundaries::theEndOfTheFirstPartIsItsLength()
{
    Cutting cutting({300000, 500000});
    cutting.fixture.pressBarOfRow(1);
    step(cutting.form, 2, earlier);
    QCOMPARE(cutting.form.ListView1.cell(1, Column::Duration), T(299559));
    QCOMPARE(cutting.form.Label16.text(), T(299559));
}

void win_boundaries::theEndBeforeTheLastPartIsMeasuredFromTheEnd()
{
    Cutting cutting({300000, 500000});
    cutting.fixture.pressBarOfRow(2);
    step(cutting.form, 4, earlier);
    QCOMPARE(cutting.form.ListView1.cell(3, Column::Duration), T(songLength - 495590));
}

void win_boundaries::theMarkersGoWithTheCut()
{
    Cutting cutting({300000, 500000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(3);
    step(form, 1, earlier);
    QCOMPARE(cutting.tags(), (QStringList{"300000", "499559", "700000"}));
    QCOMPARE(form.Line5(2).X1(), xOf(499559));
    QCOMPARE(form.Line5(2).X2(), xOf(499559));
    QCOMPARE(form.Line5b(2).X1(), xOf(499559));
    QCOMPARE(form.Bop(2).Left(), xOf(499559) - 25);
    QCOMPARE(form.Bop1(2).Left(), xOf(499559) - 25);
}

void win_boundaries::aMarkerIsFoundByItsSample()
{
    Cutting cutting({700000});
    auto& form = cutting.form;
    form.Line2.setX(3000);
    form.SetCutPoint.trigger();    // the second marker, the first cut
    cutting.fixture.pressBarOfRow(1);
    step(form, 2, later);
    QCOMPARE(cutting.tags(), (QStringList{"700000", "300441"}));
    QCOMPARE(form.Line5(2).X1(), xOf(300441));
    QCOMPARE(form.Line5(1).X1(), 7000.f);
}

void win_boundaries::theHighlightIsLaidAgain_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("control");
    QTest::addColumn<std::int32_t>("start");
    QTest::addColumn<std::int32_t>("end");
    QTest::addRow("over the first part") << 1 << 4 << 0 << 295590;
    QTest::addRow("over a part between two cuts") << 3 << 3 << 495590 << 700000;
    QTest::addRow("over the last part") << 4 << 3 << 695590 << songLength;
}

void win_boundaries::theHighlightIsLaidAgain()
{
    QFETCH(int, row);
    QFETCH(int, control);
    QFETCH(std::int32_t, start);
    QFETCH(std::int32_t, end);
    Cutting cutting({300000, 500000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(row);
    step(form, control, earlier);
    QCOMPARE(form.Picture2.Left(), xOf(start));
    QCOMPARE(form.Picture2.Width(),
             static_cast<Twips>(10420.0 / songLength * end - 10420.0 / songLength * start));
    QCOMPARE(form.Picture3.Left(), -xOf(start));
    QVERIFY(!form.Picture2.isHidden());
}

void win_boundaries::selectionAndNameStay()
{
    Cutting cutting({300000, 500000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(3);
    step(form, 3, earlier);
    QCOMPARE(form.ListView1.selectedRow(), 3);
    QCOMPARE(form.Label11.text(), QString("Part.03"));
    QVERIFY(form.HasSelectedPart);
    QCOMPARE(form.SelectedPart, 2);
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
    QCOMPARE(cutting.form.ListView1.cell(2, Column::Duration), QString("00:00.-07"));
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

void win_boundaries::aMovedEndEqualsTheNextStartUntilTheListIsMadeAnew()
{
    Cutting cutting({441221});    // by a step to 441662, just above the middle of two hundredths
    auto& list = cutting.form.ListView1;
    cutting.fixture.pressBarOfRow(1);
    step(cutting.form, 2, later);
    QCOMPARE(list.cell(1, Column::End), QString("00:10.02"));
    QCOMPARE(list.cell(2, Column::Start), QString("00:10.02"));
    cutting.form.FillPartsList();
    QCOMPARE(list.cell(1, Column::End), QString("00:10.01"));
    QCOMPARE(list.cell(2, Column::Start), QString("00:10.02"));
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
