// The handles of the cuts against the highlight: hovering, pressing, and the twins inside it.
#include "cutpoints/Cutting.h"

class win_handle_twins : public QObject {
    Q_OBJECT
private slots:
    void hoveringOverAHandleRemovesTheHighlight();
    void hoveringOverATwinRemovesTheHighlight();
    void aPressOnAHandleRemovesTheHighlight();
    void aPressOnATwinHidesTheHighlightAndStartsADrag();
    void aDragFromATwinGoesOnUntilAHandleIsReleased();
    void aTwinDraggedByTheWindowsOwnMouseGoesOnAfterTheRelease();
    void aReleaseOfARightPressLeavesTheListAlone();
    void aDragInProgressSurvivesTheDeletionOfItsCut();
};

void win_handle_twins::hoveringOverAHandleRemovesTheHighlight()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    moveTo(form.Picture1, form.Bop(1).Left() + insideHandle, form.Bop(1).Top() + insideHandle);
    QVERIFY(form.Picture2.isHidden());
    QVERIFY(!form.HasSelectedPart && cutting.isDetailPanelCleared());
    QVERIFY(!form.BopDrag);
}

void win_handle_twins::hoveringOverATwinRemovesTheHighlight()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    moveTo(form.Picture3, form.Bop1(1).Left() + 40, form.Bop1(1).Top() + insideHandle);
    QVERIFY(form.Picture2.isHidden());
    QVERIFY(!form.HasSelectedPart && cutting.isDetailPanelCleared());
}

void win_handle_twins::aPressOnAHandleRemovesTheHighlight()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    pressHandle(form, 1);
    QVERIFY(form.Picture2.isHidden() && cutting.isDetailPanelCleared());
    QVERIFY(form.HasSelectedPart && form.BopDrag);
}

void win_handle_twins::aPressOnATwinHidesTheHighlightAndStartsADrag()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    pressAt(form.Picture3, form.Bop1(2).Left() + 10, form.Bop1(2).Top() + insideHandle);
    QVERIFY(form.Picture2.isHidden());
    QVERIFY(form.BopDrag);
    QCOMPARE(form.MarkerIndex, 2);
    QCOMPARE(form.BopSample, 700000);
    QCOMPARE(form.DragStartX, 10);
    QCOMPARE(form.Label11.text(), QString("Part.02"));    // hidden before the details would be cleared
}

void win_handle_twins::aDragFromATwinGoesOnUntilAHandleIsReleased()
{
    Cutting cutting({300000, 900000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    const double y = form.Bop(1).Top() + insideHandle;
    pressAt(form.Picture3, form.Bop1(1).Left() + 40, form.Bop1(1).Top() + insideHandle);
    releaseAt(form.Picture3, form.Bop1(1).Left() + 40, form.Bop1(1).Top() + insideHandle);
    QVERIFY(form.BopDrag);

    moveTo(form.Picture1, 3045, y);    // no button is held
    QCOMPARE(form.Bop(1).Left(), 3045.f);
    QCOMPARE(cutting.cuts(), (Samples{307500, 900000}));
    QCOMPARE(form.ListView1.cell(2, PartsListView::SampleStart), QString("300000"));

    clickAt(form.Picture1, form.Bop(1).Left() + 10, y);
    QVERIFY(!form.BopDrag);
    QCOMPARE(form.ListView1.cell(2, PartsListView::SampleStart), QString("307500"));
    moveTo(form.Picture1, form.Bop(1).Left() + 60, y);
    QCOMPARE(form.Bop(1).Left(), 3045.f);
}

// As the window system tells it: the surface of the twin goes away under the pressed pointer.
void win_handle_twins::aTwinDraggedByTheWindowsOwnMouseGoesOnAfterTheRelease()
{
    Cutting cutting({300000, 900000});
    auto& form = cutting.form;
    activate(form);
    const auto inWindow = [&](double x, double y) {
        return form.Picture1.mapTo(&form, QPointF(x, y) / twipsPerPixel).toPoint();
    };
    const double y = form.Bop(1).Top() + insideHandle;
    QTest::mouseMove(form.windowHandle(), inWindow(3030, y));
    cutting.fixture.pressBarOfRow(2);    // the twin comes up under the resting pointer
    QTest::mousePress(form.windowHandle(), Qt::LeftButton, {}, inWindow(3030, y));
    QVERIFY(form.BopDrag && form.Picture2.isHidden());
    QTest::mouseRelease(form.windowHandle(), Qt::LeftButton, {}, inWindow(3030, y));
    QVERIFY(form.BopDrag);
    QTest::mouseMove(form.windowHandle(), inWindow(3045, y));
    QCOMPARE(form.Bop(1).Left(), 3045.f);
    QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {}, inWindow(3060, y));
    QVERIFY(!form.BopDrag);
}

void win_handle_twins::aReleaseOfARightPressLeavesTheListAlone()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    pressHandle(form, 1, Qt::RightButton);
    releaseAt(form.Picture1, form.Bop(1).Left() + insideHandle, form.Bop(1).Top() + insideHandle,
              Qt::RightButton);
    QCOMPARE(form.ListView1.selectedRow(), 2);
}

void win_handle_twins::aDragInProgressSurvivesTheDeletionOfItsCut()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    pressAt(form.Picture3, form.Bop1(1).Left() + 40, form.Bop1(1).Top() + insideHandle);
    releaseAt(form.Picture3, form.Bop1(1).Left() + 40, form.Bop1(1).Top() + insideHandle);
    cutting.fixture.pressBarOfRow(2);
    form.DeleteEntryCutPoint.trigger();
    moveTo(form.Picture1, form.Bop(1).Left() + insideHandle, form.Bop(1).Top() + insideHandle);
    QCOMPARE(cutting.cuts(), Samples{700000});
    QVERIFY(cutting.fixture.fatals.isEmpty());
}

QTEST_MAIN(win_handle_twins)
#include "win_handle_twins.moc"
