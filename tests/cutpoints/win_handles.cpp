// The handles of the cuts on the waveform: pressing and dragging them.
#include "cutpoints/Cutting.h"

#include "core/TimeText.h"

namespace {

void pullTo(CutterSelect& form, double x)
{
    moveTo(form.Picture1, x, inWave, Qt::LeftButton);
}

// A whole drag that lets go with the pointer at x.
void drag(CutterSelect& form, int index, double x)
{
    pressHandle(form, index);
    pullTo(form, x);
    releaseAt(form.Picture1, x, inWave);
}

// What the time box would look like with a text.
QImage boxWith(CutterSelect& form, const QString& text)
{
    form.PicInfos.Cls();
    form.PicInfos.Print(60, 0, text);
    return form.PicInfos.store();
}

}

class win_handles : public QObject {
    Q_OBJECT
private slots:
    void aHandleIsSeventyFiveTwipsSquare_data();
    void aHandleIsSeventyFiveTwipsSquare();
    void aPressStartsADrag();
    void aRightPressStartsNone();
    void aHandleGoesWhereItIsPulled();
    void aSecondMoveGoesOnFromThere();
    void theListWaitsForTheRelease();
    void theTitleFollowsItsCut();
    void afterARedrawTheHandleStandsAtItsFirstOffset();
    void theTimeOfTheCutShowsBesideTheLine();
    void theTimeFlipsToTheLeftNearTheRightEnd_data();
    void theTimeFlipsToTheLeftNearTheRightEnd();
    void aCutStaysHalfASecondFromItsNeighbours_data();
    void aCutStaysHalfASecondFromItsNeighbours();
    void aHandleWhoseIndexIsNotItsPlaceMovesItsOwnCut();
    void aZoomedWaveformIsDraggedByItsOwnWidth();
    void withoutAPressNothingIsDragged();
    void aHandleDraggedByTheWindowsOwnMouseGoesWhereItIsPulled();
};

void win_handles::aHandleIsSeventyFiveTwipsSquare_data()
{
    QTest::addColumn<double>("dx");
    QTest::addColumn<double>("dy");
    QTest::addColumn<bool>("isHit");
    QTest::addRow("its corner is inside") << 0.0 << 0.0 << true;
    QTest::addRow("its far corner is inside") << 74.9 << 74.9 << true;
    QTest::addRow("75 to the right is outside") << 75.0 << 10.0 << false;
    QTest::addRow("75 down is outside") << 10.0 << 75.0 << false;
    QTest::addRow("left of it is outside") << -0.1 << 10.0 << false;
    QTest::addRow("above it is outside") << 10.0 << -0.1 << false;
}

void win_handles::aHandleIsSeventyFiveTwipsSquare()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    QFETCH(double, dx);
    QFETCH(double, dy);
    pressAt(form.Picture1, form.Bop(1).Left() + dx, form.Bop(1).Top() + dy);
    QTEST(form.BopDrag, "isHit");
}

void win_handles::aPressStartsADrag()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    form.Line2.setX(100);
    pressHandle(form, 2);
    QVERIFY(form.BopDrag);
    QCOMPARE(form.MarkerIndex, 2);
    QCOMPARE(form.BopSample, 700000);
    QCOMPARE(form.DragStartX, 20);
    QCOMPARE(form.Line2.X1(), 100.f);    // the waveform below hears nothing
    QVERIFY(form.PicInfos.isHidden());
}

void win_handles::aRightPressStartsNone()
{
    Cutting cutting({300000, 700000});
    pressHandle(cutting.form, 2, Qt::RightButton);
    QVERIFY(!cutting.form.BopDrag);
    QCOMPARE(cutting.form.MarkerIndex, 2);
}

void win_handles::aHandleGoesWhereItIsPulled()
{
    Cutting cutting({300000, 900000});
    auto& form = cutting.form;
    QCOMPARE(form.Bop(1).Left(), 2975.f);
    pressHandle(form, 1);
    pullTo(form, 4000);
    QCOMPARE(form.Bop(1).Left(), 4000.f);    // its edge is where the pointer is
    QCOMPARE(form.Bop1(1).Left(), 4000.f);
    QCOMPARE(form.Line5(1).X1(), 4030.f);
    QCOMPARE(form.Line5(1).X2(), 4030.f);
    QCOMPARE(form.Line5b(1).X1(), 4030.f);
    QCOMPARE(cutting.cuts(), (Samples{403000, 900000}));
    QCOMPARE(cutting.tags(), (QStringList{"403000", "900000"}));
    QCOMPARE(form.BopSample, 403000);
    QCOMPARE(PartTable.at(1).StartSample, 403000);
}

void win_handles::aSecondMoveGoesOnFromThere()
{
    Cutting cutting({300000, 900000});
    auto& form = cutting.form;
    pressHandle(form, 1);
    for (const double x : {4000.0, 3500.0, 5000.0}) pullTo(form, x);
    QCOMPARE(form.Bop(1).Left(), 5000.f);
    QCOMPARE(cutting.cuts(), (Samples{503000, 900000}));
}

void win_handles::theListWaitsForTheRelease()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    pressHandle(form, 1);
    pullTo(form, 4000);
    QCOMPARE(form.ListView1.cell(2, PartsListView::SampleStart), QString("300000"));
    releaseAt(form.Picture1, 4000, inWave);
    QCOMPARE(form.ListView1.cell(2, PartsListView::SampleStart), QString("403000"));
    QCOMPARE(form.ListView1.cell(1, PartsListView::End), sampleText(402999, testRate));
    QVERIFY(!form.BopDrag);
    QVERIFY(form.PicInfos.isHidden());
}

void win_handles::theTitleFollowsItsCut()
{
    Cutting cutting({300000, 900000});
    for (const int row : {1, 2, 3}) cutting.title(row, QString::number(row));
    drag(cutting.form, 1, 4000);
    QCOMPARE(cutting.titles(), (QStringList{"1", "2", "3"}));
}

void win_handles::afterARedrawTheHandleStandsAtItsFirstOffset()
{
    Cutting cutting({300000});
    drag(cutting.form, 1, 4000);
    QCOMPARE(cutting.form.Bop(1).Left(), 4000.f);
    cutting.form.DrawRulerAndMarkers();
    QCOMPARE(cutting.form.Bop(1).Left(), 4005.f);
}

void win_handles::theTimeOfTheCutShowsBesideTheLine()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    pressHandle(form, 1);
    pullTo(form, 4000);
    QVERIFY(!form.PicInfos.isHidden());
    QCOMPARE(form.PicInfos.Left(), 4045.f);
    const QImage shown = form.PicInfos.store();
    QVERIFY(shown == boxWith(form, "00:09.14"));    // 403000 samples
    QVERIFY(shown != boxWith(form, "00:09.13"));
}

void win_handles::theTimeFlipsToTheLeftNearTheRightEnd_data()
{
    QTest::addColumn<double>("line");
    QTest::addColumn<float>("left");
    QTest::addRow("where it just fits it stands at the right") << 9725.0 << 9740.f;
    QTest::addRow("one twip further it stands at the left") << 9726.0 << 9031.f;
}

void win_handles::theTimeFlipsToTheLeftNearTheRightEnd()
{
    Cutting cutting({300000});
    QFETCH(double, line);
    pressHandle(cutting.form, 1);
    pullTo(cutting.form, line - 30);
    QCOMPARE(cutting.form.Line5(1).X1(), static_cast<float>(line));
    QTEST(cutting.form.PicInfos.Left(), "left");
}

void win_handles::aCutStaysHalfASecondFromItsNeighbours_data()
{
    QTest::addColumn<QList<int>>("cuts");
    QTest::addColumn<int>("index");
    QTest::addColumn<double>("pointer");
    QTest::addColumn<float>("line");    // of 22050 samples, that is 220.5 twips, from its neighbour
    QTest::addRow("the first from the file's start") << QList<int>{300000} << 1 << 10.0 << 220.f;
    QTest::addRow("the last from the file's end") << QList<int>{300000} << 1 << 10400.0 << 10200.f;
    QTest::addRow("the first from the second") << QList<int>{300000, 700000} << 1 << 7000.0 << 6780.f;
    QTest::addRow("the second from the first") << QList<int>{300000, 700000} << 2 << 1000.0 << 3220.f;
    QTest::addRow("between near ones the upper limit comes first")
        << QList<int>{300000, 320000, 340000} << 2 << 3300.0 << 3180.f;
    QTest::addRow("and below it the lower one holds")
        << QList<int>{300000, 320000, 340000} << 2 << 3100.0 << 3220.f;
}

void win_handles::aCutStaysHalfASecondFromItsNeighbours()
{
    Cutting cutting;
    auto& form = cutting.form;
    QFETCH(QList<int>, cuts);
    QFETCH(int, index);
    QFETCH(double, pointer);
    QFETCH(float, line);
    for (const int cut : cuts) cutting.fixture.cutAt(cut);
    drag(form, index, pointer);
    QCOMPARE(form.Line5(index).X1(), line);
    QCOMPARE(form.Bop(index).Left(), line - 30);
    QCOMPARE(form.Bop(index).Tag, QString::number(line * samplesPerTwip, 'f', 0));
}

void win_handles::aHandleWhoseIndexIsNotItsPlaceMovesItsOwnCut()
{
    Cutting cutting({700000});
    auto& form = cutting.form;
    form.Line2.setX(3000);
    form.SetCutPoint.trigger();    // the second marker, the first cut
    drag(form, 2, 4000);
    QCOMPARE(cutting.cuts(), (Samples{403000, 700000}));
    QCOMPARE(cutting.tags(), (QStringList{"700000", "403000"}));
    drag(form, 2, 9000);    // held back by the other one
    QCOMPARE(cutting.cuts(), (Samples{678000, 700000}));
}

void win_handles::aZoomedWaveformIsDraggedByItsOwnWidth()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    form.ToolbarCommand(4);
    QCOMPARE(form.Picture1.Width(), 40420.f);
    drag(form, 1, 9000);
    QCOMPARE(form.Line5(1).X1(), 9030.f);
    QCOMPARE(cutting.cuts(), Samples{static_cast<std::int32_t>(std::nearbyint(1042000.0 / 40420.0 * 9030))});
}

void win_handles::withoutAPressNothingIsDragged()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    moveTo(form.Picture1, form.Bop(1).Left() + insideHandle, form.Bop(1).Top() + insideHandle);
    QCOMPARE(form.Bop(1).Left(), 2975.f);
    QVERIFY(form.PicInfos.isHidden());
    QCOMPARE(cutting.cuts(), Samples{300000});
}

void win_handles::aHandleDraggedByTheWindowsOwnMouseGoesWhereItIsPulled()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    activate(form);
    const auto inWindow = [&](double x, double y) {
        return form.Picture1.mapTo(&form, QPointF(x, y) / twipsPerPixel).toPoint();
    };
    QTest::mousePress(form.windowHandle(), Qt::LeftButton, {}, inWindow(3000, form.Bop(1).Top() + 30));
    QTest::mouseMove(form.windowHandle(), inWindow(3600, inWave));
    QTest::mouseMove(form.windowHandle(), inWindow(4500, inRuler));
    QTest::mouseRelease(form.windowHandle(), Qt::LeftButton, {}, inWindow(4500, inRuler));
    QCOMPARE(form.Line5(1).X1(), 4530.f);
    QCOMPARE(cutting.cuts(), Samples{453000});
    QVERIFY(!form.BopDrag && form.PicInfos.isHidden());
}

QTEST_MAIN(win_handles)
#include "win_handles.moc"
