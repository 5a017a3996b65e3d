// Setting and deleting cut points in the window: the table, the titles, the markers and the rows.
#include "cutpoints/Cutting.h"

#include "core/TimeText.h"

class win_cut_points : public QObject {
    Q_OBJECT
private slots:
    void theFirstCutGivesTwoRowsAtOnce();
    void aCutIsMarkedWhereThePositionLineStands();
    void theToolbarCutsAsTheMenuDoes();
    void theCutLiesOnTheRoundedSample();
    void noCutIsMade_data();
    void noCutIsMade();
    void withoutAFileNoCutIsMade();
    void aCutClearsTheDetailsAndLeavesTheHighlight();
    void cutsSetInAnyOrderStandInOrder();
    void aNewMarkerKeepsItsIndexUntilTheNextRedraw();
    void titlesStayWithTheirCutsWhenOneIsSetBetween();
    void theTableOfTitlesEndsOneBehindTheCutsAfterAnAdd();
    void twoCutsOnOneSampleGiveAnEmptyPart();
    void deletingTheOnlyCutEmptiesTheList();
    void deletingTheOnlyCutLeavesTheSelectionFlags();
    void theFirstPartHasNoCutToDelete();
    void withTheLastPartSelectedTheLastCutGoes();
    void deletingAMiddlePartTakesItsCutAndItsTitle();
    void afterADeleteThePartThatSwallowedItIsSelected();
    void aDeleteBehindCutsSetInAnyOrderTakesTheRightMarker();
    void theTableOfTitlesEndsWithTheCutsAfterADelete();
    void deletingOneOfTwoCutsOnASampleLeavesTheOther();
    void deletingWithoutACutDoesNothing();
    void deletingAllAsksFirst();
    void answeredNoEverythingStays();
    void answeredYesAllCutsAndTitlesGo();
    void afterDeletingAllTheDetailsStand();
    void withoutACutDeletingAllAsksNothing();
    void aPositionOnTheLastCutIsTheFirstPart();
};

void win_cut_points::theFirstCutGivesTwoRowsAtOnce()
{
    Cutting cutting;
    cutting.form.Line2.setX(3000);
    cutting.form.SetCutPoint.trigger();
    QCOMPARE(cutting.column(PartsListView::Part), (QStringList{"Part.01", "Part.02"}));
    QCOMPARE(cutting.cuts(), Samples{300000});
}

void win_cut_points::aCutIsMarkedWhereThePositionLineStands()
{
    Cutting cutting;
    auto& form = cutting.form;
    form.Line2.setX(3000.5f);
    form.SetCutPoint.trigger();
    QCOMPARE(form.Line5(1).X1(), 3000.5f);
    QCOMPARE(form.Line5(1).X2(), 3000.5f);
    QCOMPARE(form.Line5b(1).X1(), 3000.5f);
    QCOMPARE(form.Line5b(1).X2(), 3000.5f);
    QCOMPARE(form.Bop(1).Left(), 2975.5f);
    QCOMPARE(form.Bop1(1).Left(), 2975.5f);
    QCOMPARE(form.Bop(1).Tag, QString("300050"));
    QVERIFY(form.Line5(1).Visible() && form.Line5b(1).Visible() && form.Bop(1).Visible() &&
            form.Bop1(1).Visible());
    QVERIFY(!form.Line5(0).Visible() && !form.Bop(0).Visible());
    QCOMPARE(form.Bop(1).toolTip, QString("Move this Cut Point"));
    QCOMPARE(form.Bop1(1).toolTip, QString("Delete this Cut Point"));
}

void win_cut_points::theToolbarCutsAsTheMenuDoes()
{
    Cutting cutting;
    cutting.form.Line2.setX(3000);
    press(*cutting.form.Toolbar1.widgetForAction(&cutting.form.Toolbar1.Buttons(8)), QPoint(15, 15));
    QCOMPARE(cutting.cuts(), Samples{300000});
}

void win_cut_points::theCutLiesOnTheRoundedSample()
{
    Cutting cutting;
    cutting.form.Line2.setX(3000.1264f);    // sample 300012.64
    cutting.form.SetCutPoint.trigger();
    QCOMPARE(cutting.cuts(), Samples{300013});
    QCOMPARE(PartTable.at(1).StartSample, 300013);
}

void win_cut_points::noCutIsMade_data()
{
    QTest::addColumn<float>("x");
    QTest::addRow("with the position at the start") << 0.f;
    QTest::addRow("with the position at the right end") << 10420.f;
    QTest::addRow("with the position behind the right end") << 10500.f;
}

void win_cut_points::noCutIsMade()
{
    Cutting cutting;
    QFETCH(float, x);
    cutting.form.Line2.setX(x);
    cutting.form.SetCutPoint.trigger();
    QCOMPARE(CutCount, 0);
    QVERIFY(journal().commands().isEmpty());
}

void win_cut_points::withoutAFileNoCutIsMade()
{
    FormFixture fixture;
    auto& form = fixture.load();
    journal().clear();
    form.Line2.setX(3000);
    form.SetCutPoint.trigger();
    QCOMPARE(CutCount, 0);
    QVERIFY(journal().commands().isEmpty() && fixture.fatals.isEmpty());
}

void win_cut_points::aCutClearsTheDetailsAndLeavesTheHighlight()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    form.Line2.setX(6000);
    form.SetCutPoint.trigger();
    QVERIFY(cutting.isDetailPanelCleared());
    QVERIFY(!form.HasSelectedPart);
    QVERIFY(!form.Picture2.isHidden());
    QCOMPARE(form.Picture2.Left(), 3000.f);
    QCOMPARE(form.Picture2.Width(), 7420.f);
    QCOMPARE(form.ListView1.selectedRow(), 0);
}

void win_cut_points::cutsSetInAnyOrderStandInOrder()
{
    Cutting cutting({700000, 100000, 900000, 300000});
    QCOMPARE(cutting.cuts(), (Samples{100000, 300000, 700000, 900000}));
    QCOMPARE(CutPoints.at(0), 0);
}

void win_cut_points::aNewMarkerKeepsItsIndexUntilTheNextRedraw()
{
    Cutting cutting({700000});
    cutting.form.Line2.setX(3000);
    cutting.form.SetCutPoint.trigger();
    QCOMPARE(cutting.tags(), (QStringList{"700000", "300000"}));
    cutting.form.DrawRulerAndMarkers();
    QCOMPARE(cutting.tags(), (QStringList{"300000", "700000"}));
}

void win_cut_points::titlesStayWithTheirCutsWhenOneIsSetBetween()
{
    Cutting cutting({700000});
    cutting.title(1, "one");
    cutting.title(2, "two");
    cutting.form.Line2.setX(3000);
    cutting.form.SetCutPoint.trigger();
    QCOMPARE(cutting.titles(), (QStringList{"one", "", "two"}));
}

void win_cut_points::theTableOfTitlesEndsOneBehindTheCutsAfterAnAdd()
{
    Cutting cutting({300000, 700000});
    QCOMPARE(lastPartRecord(), 3);
    QCOMPARE(PartTable.at(3), PartRecord{});
}

void win_cut_points::twoCutsOnOneSampleGiveAnEmptyPart()
{
    Cutting cutting({441000, 441000});
    const auto& list = cutting.form.ListView1;
    QCOMPARE(cutting.cuts(), (Samples{441000, 441000}));
    QCOMPARE(list.rowCount(), 3);
    QCOMPARE(list.cell(2, PartsListView::Start), sampleText(441000, testRate));
    QCOMPARE(list.cell(2, PartsListView::End), sampleText(440999, testRate));
    QCOMPARE(list.cell(2, PartsListView::Duration), sampleText(-1, testRate));
}

void win_cut_points::deletingTheOnlyCutEmptiesTheList()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.title(1, "one");
    cutting.fixture.pressBarOfRow(2);
    form.DeleteEntryCutPoint.trigger();
    QCOMPARE(CutCount, 0);
    QCOMPARE(form.ListView1.rowCount(), 0);
    QCOMPARE(PartTable.at(0).Title, QString());
    QVERIFY(form.Picture2.isHidden());
    QVERIFY(cutting.isDetailPanelCleared());
    QCOMPARE(form.Bop.UBound(), 0);
}

void win_cut_points::deletingTheOnlyCutLeavesTheSelectionFlags()
{
    Cutting cutting({300000});
    cutting.fixture.pressBarOfRow(2);
    cutting.form.DeleteEntryCutPoint.trigger();
    QVERIFY(cutting.form.HasSelectedPart);
    QCOMPARE(cutting.form.SelectedPart, lastPart);
}

void win_cut_points::theFirstPartHasNoCutToDelete()
{
    Cutting cutting({300000});
    cutting.fixture.pressBarOfRow(1);
    cutting.form.DeleteEntryCutPoint.trigger();
    QCOMPARE(journal().commands(), QStringList{"MsgBox Information [Quillon]: " + langText(66)});
    QCOMPARE(CutCount, 1);
}

void win_cut_points::withTheLastPartSelectedTheLastCutGoes()
{
    Cutting cutting({300000, 700000});
    cutting.fixture.pressBarOfRow(3);
    cutting.form.DeleteEntryCutPoint.trigger();
    QCOMPARE(cutting.cuts(), Samples{300000});
    QCOMPARE(cutting.form.SelectedPart, lastPart);
    QCOMPARE(cutting.form.MarkerIndex, 2);
}

void win_cut_points::deletingAMiddlePartTakesItsCutAndItsTitle()
{
    Cutting cutting({300000, 500000, 700000});
    for (const int row : {1, 2, 3, 4}) cutting.title(row, QString::number(row));
    cutting.fixture.pressBarOfRow(3);
    cutting.form.DeleteEntryCutPoint.trigger();
    QCOMPARE(cutting.cuts(), (Samples{300000, 700000}));
    QCOMPARE(cutting.titles(), (QStringList{"1", "2", "4"}));
    QCOMPARE(cutting.form.TextTitle.text(), QString("2"));
}

void win_cut_points::afterADeleteThePartThatSwallowedItIsSelected()
{
    Cutting cutting({300000, 500000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(3);
    form.DeleteEntryCutPoint.trigger();
    QCOMPARE(form.SelectedPart, 1);
    QCOMPARE(form.ListView1.selectedRow(), 2);
    QCOMPARE(form.Picture2.Left(), 3000.f);
    QCOMPARE(form.Picture2.Width(), 4000.f);
    QCOMPARE(form.Label16.text(), sampleText(399999, testRate));
}

void win_cut_points::aDeleteBehindCutsSetInAnyOrderTakesTheRightMarker()
{
    Cutting cutting;
    for (const Twips x : {7000.f, 3000.f, 9000.f, 5000.f}) {
        cutting.form.Line2.setX(x);
        cutting.form.SetCutPoint.trigger();
    }
    cutting.fixture.pressBarOfRow(3);
    cutting.form.DeleteEntryCutPoint.trigger();
    QCOMPARE(cutting.tags(), (QStringList{"300000", "700000", "900000"}));
    QCOMPARE(cutting.form.Bop(2).Left(), 6975.f);
    QCOMPARE(cutting.form.Line5(2).X1(), 7000.f);
}

void win_cut_points::theTableOfTitlesEndsWithTheCutsAfterADelete()
{
    Cutting cutting({300000, 500000, 700000});
    cutting.fixture.pressBarOfRow(2);
    cutting.form.DeleteEntryCutPoint.trigger();
    QCOMPARE(lastPartRecord(), 2);
}

void win_cut_points::deletingOneOfTwoCutsOnASampleLeavesTheOther()
{
    Cutting cutting({300000, 500000, 500000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(4);    // the part behind the empty one
    form.DeleteEntryCutPoint.trigger();
    QCOMPARE(cutting.cuts(), (Samples{300000, 500000, 700000}));
    QCOMPARE(form.SelectedPart, 2);    // the highlight begins on the cut that is left
}

void win_cut_points::deletingWithoutACutDoesNothing()
{
    Cutting cutting({300000});
    cutting.fixture.pressBarOfRow(2);
    cutting.form.DeleteEntryCutPoint.trigger();
    cutting.form.DeleteEntryCutPoint_Click();    // the code of the last part still stands
    QCOMPARE(CutCount, 0);
    QCOMPARE(lastPartRecord(), 0);
}

void win_cut_points::deletingAllAsksFirst()
{
    Cutting cutting({300000});
    press(cutting.form.Image21, QPoint(5, 5));
    QCOMPARE(journal().commandsOf("MsgBox").size(), 1);
    QVERIFY(journal().commands().front().endsWith("[Quillon]: " + langText(77)));
}

void win_cut_points::answeredNoEverythingStays()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    cutting.title(2, "two");
    cutting.fixture.dialogs.answers = {Answer::No};
    press(form.Image21, QPoint(5, 5));
    QCOMPARE(cutting.cuts(), (Samples{300000, 700000}));
    QCOMPARE(cutting.titles(), (QStringList{"", "two", ""}));
    QCOMPARE(form.SelectedPart, 1);
    QVERIFY(form.HasSelectedPart && !form.Picture2.isHidden());
    QCOMPARE(form.Label11.text(), QString("Part.02"));
}

void win_cut_points::answeredYesAllCutsAndTitlesGo()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    cutting.title(2, "two");
    cutting.fixture.dialogs.answers = {Answer::Yes};
    press(form.Image21, QPoint(5, 5));
    QCOMPARE(CutCount, 0);
    QCOMPARE(PartTable, std::vector<PartRecord>(1));
    QCOMPARE(form.SelectedPart, 0);
    QVERIFY(!form.HasSelectedPart && form.Picture2.isHidden());
    QCOMPARE(form.ListView1.rowCount(), 0);
    QCOMPARE(form.Bop.UBound(), 0);
    QCOMPARE(form.Line5b.UBound(), 0);
}

void win_cut_points::afterDeletingAllTheDetailsStand()
{
    Cutting cutting({300000, 700000});
    cutting.fixture.pressBarOfRow(2);
    cutting.fixture.dialogs.answers = {Answer::Yes};
    press(cutting.form.Image21, QPoint(5, 5));
    QCOMPARE(cutting.form.Label11.text(), QString("Part.02"));
    QVERIFY(cutting.form.TextTitle.isEnabled());
}

void win_cut_points::withoutACutDeletingAllAsksNothing()
{
    Cutting cutting;
    press(cutting.form.Image21, QPoint(5, 5));
    QVERIFY(journal().commands().isEmpty());
}

void win_cut_points::aPositionOnTheLastCutIsTheFirstPart()
{
    Cutting cutting({300000, 700000});
    QCOMPARE(cutting.form.FindPartAt(cutting.form.Line5(2).X1()), 0);
    QCOMPARE(cutting.form.FindPartAt(cutting.form.Line5(1).X1()), 1);
    QCOMPARE(cutting.form.FindPartAt(7001), lastPart);
}

QTEST_MAIN(win_cut_points)
#include "win_cut_points.moc"
