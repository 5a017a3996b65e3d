// The panel of the selected part: what it enables, and the title that is typed into it.
#include "cutpoints/Cutting.h"

#include "support/LameLibrary.h"

#include <QScopeGuard>
#include <QWindow>

namespace {

// Keys that the window gets and gives to whatever has the focus.
void type(CutterSelect& form, const char* text)
{
    for (const char* c = text; *c; ++c) QTest::keyClick(form.windowHandle(), *c);
}

void focusTitle(CutterSelect& form)
{
    activate(form);
    QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {}, form.TextTitle.mapTo(&form, QPoint(20, 10)));
    QVERIFY(form.TextTitle.hasFocus());
}

QList<QAction*> partEntries(CutterSelect& form)
{
    return {&form.PlaythisPart, &form.DeleteEntryCutPoint, &form.SavePartMP3, &form.SavePartOgg,
            &form.SavePartWMA,  &form.SavePartWav,         &form.Saveselec};
}

// A computer without the encoder library, until the end of the scope.
auto withoutLame()
{
    const LameLibraryPlace before = lameLibraryPlace();
    lameLibraryPlace().file = QStringLiteral("no-such-library.so");
    return qScopeGuard([before] { lameLibraryPlace() = before; });
}

}

class win_part_details : public QObject {
    Q_OBJECT
private slots:
    void theBoundariesThatCanMoveAreEnabled_data();
    void theBoundariesThatCanMoveAreEnabled();
    void aSelectedPartEnablesItsCommands();
    void theClearedPanelDisablesItsCommands();
    void theClearedPanelShowsEmptyTimes();
    void withoutTheLibraryTheMp3EntryIsLeftAsItWas_data();
    void withoutTheLibraryTheMp3EntryIsLeftAsItWas();
    void eachKeyOfATitleReachesTheRowAndTheTable();
    void aTitleIsWrittenIntoTheRecordOfItsStart();
    void aTitleCanBeTakenBackByKeys();
    void spaceAndDeleteBelongToTheTitle();
    void aTitleAfterAMovedStartGoesToTheSameRecord();
    void aTitleWithoutARecordIsDroppedByTheNextList();
    void ofTwoPartsAtOneSampleTheFirstRecordTakesTheTitle();
    void aTitleForARowNoLongerSelectedClearsThePanel();
    void aTitleAfterDeletingAllCutsClearsThePanel();
    void leavingTheTitleWithoutARowClearsThePanel();
    void movingOverTheTitleWithoutARowClearsThePanel();
    void leavingTheTitleOfASelectedRowKeepsIt();
    void aWindowCanGoAwayWithTheTitleInFocus();
    void typingInTheTimesChangesNothing();
};

void win_part_details::theBoundariesThatCanMoveAreEnabled_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("start");
    QTest::addColumn<bool>("end");
    QTest::addRow("the first part has no start to move") << 1 << false << true;
    QTest::addRow("a middle part has both") << 2 << true << true;
    QTest::addRow("the last part has no end to move") << 3 << true << false;
}

void win_part_details::theBoundariesThatCanMoveAreEnabled()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    QFETCH(int, row);
    QFETCH(bool, start);
    QFETCH(bool, end);
    cutting.fixture.pressBarOfRow(row);
    for (QWidget* control : QList<QWidget*>{&form.Text1, &form.UpDown1, &form.UpDown3})
        QCOMPARE(control->isEnabled(), start);
    for (QWidget* control : QList<QWidget*>{&form.Text2, &form.UpDown2, &form.UpDown4})
        QCOMPARE(control->isEnabled(), end);
}

void win_part_details::aSelectedPartEnablesItsCommands()
{
    FormFixture fixture;
    fixture.writeSetting("WMA", "WMASUPPORT", "True");    // without it the entry for WMA is not there
    auto& form = fixture.open(song(), {300000});
    fixture.pressBarOfRow(2);
    for (QAction* entry : partEntries(form)) QVERIFY2(entry->isEnabled(), qPrintable(entry->objectName()));
    QVERIFY(form.Toolbar1.Buttons(14).isEnabled() && form.Toolbar1.Buttons(15).isEnabled());
    QVERIFY(form.TextTitle.isEnabled());
}

void win_part_details::theClearedPanelDisablesItsCommands()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    clickAt(form.Picture1, 1000, inRuler);
    for (QAction* entry : partEntries(form)) QVERIFY2(!entry->isEnabled(), qPrintable(entry->objectName()));
    QVERIFY(!form.Toolbar1.Buttons(14).isEnabled() && !form.Toolbar1.Buttons(15).isEnabled());
    for (QWidget* control : QList<QWidget*>{&form.Text1, &form.UpDown1, &form.UpDown3, &form.Text2,
                                            &form.UpDown2, &form.UpDown4, &form.TextTitle})
        QVERIFY2(!control->isEnabled(), qPrintable(control->objectName()));
}

void win_part_details::theClearedPanelShowsEmptyTimes()
{
    Cutting cutting({300000});
    cutting.title(2, "two");
    cutting.form.ClearPartDetails();
    QVERIFY(cutting.isDetailPanelCleared());
    QCOMPARE(cutting.titles(), (QStringList{"", "two"}));
}

void win_part_details::withoutTheLibraryTheMp3EntryIsLeftAsItWas_data()
{
    QTest::addColumn<bool>("isEnabled");
    QTest::addRow("enabled") << true;
    QTest::addRow("disabled") << false;
}

void win_part_details::withoutTheLibraryTheMp3EntryIsLeftAsItWas()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    QFETCH(bool, isEnabled);
    const auto back = withoutLame();
    form.SavePartMP3.setEnabled(isEnabled);
    form.SetPartMenus(!isEnabled);
    QCOMPARE(form.SavePartMP3.isEnabled(), isEnabled);
    QCOMPARE(form.SavePartOgg.isEnabled(), !isEnabled);
}

void win_part_details::eachKeyOfATitleReachesTheRowAndTheTable()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    focusTitle(form);
    QTest::keyPress(form.windowHandle(), 'i');
    QTest::keyRelease(form.windowHandle(), 'i');
    QCOMPARE(form.ListView1.cell(2, PartsListView::Title), QString("i"));
    type(form, "ntro");
    QCOMPARE(form.ListView1.cell(2, PartsListView::Title), QString("intro"));
    QCOMPARE(PartTable.at(1), (PartRecord{"intro", 300000}));
    QCOMPARE(PartTable.at(0).Title, QString());
}

void win_part_details::aTitleIsWrittenIntoTheRecordOfItsStart()
{
    Cutting cutting({700000, 300000});    // the record of the second part was made last
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    focusTitle(form);
    type(form, "b");
    QCOMPARE(PartTable.at(2), (PartRecord{"b", 300000}));
    QCOMPARE(PartTable.at(1).Title, QString());
}

void win_part_details::aTitleCanBeTakenBackByKeys()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(1);
    focusTitle(form);
    type(form, "ab");
    QTest::keyClick(form.windowHandle(), Qt::Key_Backspace);
    QCOMPARE(PartTable.at(0).Title, QString("a"));
    QTest::keyClick(form.windowHandle(), Qt::Key_Backspace);
    QCOMPARE(PartTable.at(0).Title, QString());
}

void win_part_details::spaceAndDeleteBelongToTheTitle()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    focusTitle(form);
    type(form, "a b");
    QTest::keyClick(form.windowHandle(), Qt::Key_Home);
    QTest::keyClick(form.windowHandle(), Qt::Key_Delete);
    QCOMPARE(PartTable.at(1).Title, QString(" b"));
    QCOMPARE(CutCount, 1);
    QVERIFY(journal().commands().isEmpty());
}

void win_part_details::aTitleAfterAMovedStartGoesToTheSameRecord()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    press(form.UpDown3.up, QPoint(5, 5));
    focusTitle(form);
    type(form, "x");
    QCOMPARE(PartTable.at(1), (PartRecord{"x", 304410}));
}

void win_part_details::aTitleWithoutARecordIsDroppedByTheNextList()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    PartTable.at(1).StartSample = 1;
    focusTitle(form);
    type(form, "x");
    QCOMPARE(cutting.titles(), (QStringList{"", "x"}));
    form.FillPartsList();
    QCOMPARE(cutting.titles(), (QStringList{"", ""}));
}

void win_part_details::ofTwoPartsAtOneSampleTheFirstRecordTakesTheTitle()
{
    Cutting cutting({300000, 300000});
    auto& form = cutting.form;
    form.ListView1.selectRow(2);
    form.ListView1_Click();
    focusTitle(form);
    type(form, "x");
    QCOMPARE(PartTable.at(1).Title, QString("x"));
    QCOMPARE(PartTable.at(2).Title, QString());
}

void win_part_details::aTitleForARowNoLongerSelectedClearsThePanel()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.title(2, "two");
    focusTitle(form);
    form.FillPartsList();    // no row of the new list is selected
    type(form, "x");
    QVERIFY(cutting.isDetailPanelCleared());
    QCOMPARE(cutting.titles(), (QStringList{"", "two"}));
    QCOMPARE(PartTable.at(1).Title, QString("two"));
}

void win_part_details::aTitleAfterDeletingAllCutsClearsThePanel()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    focusTitle(form);
    cutting.fixture.dialogs.answers = {Answer::Yes};
    press(form.Image21, QPoint(5, 5));
    type(form, "x");
    QVERIFY(cutting.isDetailPanelCleared());
    QCOMPARE(PartTable, std::vector<PartRecord>(1));
    QVERIFY(cutting.fixture.fatals.isEmpty());
}

void win_part_details::leavingTheTitleWithoutARowClearsThePanel()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    focusTitle(form);
    form.FillPartsList();
    QVERIFY(!cutting.isDetailPanelCleared());
    form.Picture1.setFocus();
    QVERIFY(cutting.isDetailPanelCleared());
}

void win_part_details::movingOverTheTitleWithoutARowClearsThePanel()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    form.FillPartsList();
    moveTo(form.TextTitle, 300, 150);
    QVERIFY(cutting.isDetailPanelCleared());
}

void win_part_details::leavingTheTitleOfASelectedRowKeepsIt()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    focusTitle(form);
    type(form, "x");
    moveTo(form.TextTitle, 300, 150);
    form.Picture1.setFocus();
    QCOMPARE(form.TextTitle.text(), QString("x"));
    QCOMPARE(form.Label11.text(), QString("Part.02"));
}

void win_part_details::aWindowCanGoAwayWithTheTitleInFocus()
{
    Cutting cutting({300000});
    cutting.fixture.pressBarOfRow(2);
    focusTitle(cutting.form);
    cutting.fixture.form.reset();
    QVERIFY(cutting.fixture.fatals.isEmpty());
    QVERIFY(!MainForm);
}

void win_part_details::typingInTheTimesChangesNothing()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    const QString start = form.ListView1.cell(2, PartsListView::Start);
    QTest::keyClicks(&form.Text1, "9");
    QTest::keyClicks(&form.Text2, "9");
    QCOMPARE(cutting.cuts(), (Samples{300000, 700000}));
    QCOMPARE(form.ListView1.cell(2, PartsListView::Start), start);
    QVERIFY(journal().commands().isEmpty());
}

QTEST_MAIN(win_part_details)
#include "win_part_details.moc"
