// Selecting a part in the list, the menu of a part, and the three panels on one spot.
#include "cutpoints/Cutting.h"

#include <QApplication>

namespace {

QPoint middleOf(CutterSelect& form, int row)
{
    return form.ListView1.visualItemRect(form.ListView1.topLevelItem(row - 1)).center();
}

void clickRow(CutterSelect& form, int row, Qt::MouseButton button = Qt::LeftButton)
{
    QTest::mouseClick(form.ListView1.viewport(), button, {}, middleOf(form, row));
}

void doubleClickRow(CutterSelect& form, int row)
{
    clickRow(form, row);
    QTest::mouseDClick(form.ListView1.viewport(), Qt::LeftButton, {}, middleOf(form, row));
    QTest::mouseRelease(form.ListView1.viewport(), Qt::LeftButton, {}, middleOf(form, row));
}

QPoint besideTheRows(CutterSelect& form)
{
    return QPoint(40, form.ListView1.viewport()->height() - 5);
}

// Closes the menu that is up and says which it was.
QString closeMenu()
{
    QWidget* menu = QApplication::activePopupWidget();
    if (!menu) return QStringLiteral("none");
    menu->close();
    return menu->objectName();
}

QWidget& control(CutterSelect& form, const QString& name)
{
    return *form.findChild<QWidget*>(name);
}

}

class win_parts_list : public QObject {
    Q_OBJECT
private slots:
    void aClickOnARowSelectsItsPart_data();
    void aClickOnARowSelectsItsPart();
    void aSelectedPartIsShownEverywhere();
    void theHighlightLiesOverThePart_data();
    void theHighlightLiesOverThePart();
    void selectingWhileTheFilePlaysLeavesThePlayAlone();
    void aRightClickSelectsAndOpensTheMenuAtThePointer();
    void aLeftClickAfterARightOneOpensNoMenu();
    void aRightClickBesideTheRowsOpensNothing_data();
    void aRightClickBesideTheRowsOpensNothing();
    void aClickBesideTheRowsLeavesTheSelection();
    void aClickOnTheEmptyListDoesNothing();
    void aDoubleClickSelectsThenPlays();
    void aDoubleClickBesideTheRowsPlaysNothing();
    void keysInTheListSelectWithoutAMenu();
    void aSelectedRowIsBroughtIntoView();
    void theMenuHoldsTheCommandsOfAPart();
    void aTabShowsItsPanel_data();
    void aTabShowsItsPanel();
    void aHiddenListStillFollowsTheSelection();
    void aHiddenListKeepsItsRowsAndSelection();
};

void win_parts_list::aClickOnARowSelectsItsPart_data()
{
    QTest::addColumn<int>("cuts");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("code");
    QTest::addRow("the first of two rows") << 1 << 1 << 0;
    QTest::addRow("the second of two rows is the last part") << 1 << 2 << -1;
    QTest::addRow("the first of four") << 3 << 1 << 0;
    QTest::addRow("the second of four") << 3 << 2 << 1;
    QTest::addRow("the third of four") << 3 << 3 << 2;
    QTest::addRow("the fourth of four is the last part") << 3 << 4 << -1;
}

void win_parts_list::aClickOnARowSelectsItsPart()
{
    Cutting cutting;
    QFETCH(int, cuts);
    QFETCH(int, row);
    cutting.cutEvenly(cuts, 200000);
    clickRow(cutting.form, row);
    QTEST(cutting.form.SelectedPart, "code");
    QVERIFY(cutting.form.HasSelectedPart);
    QCOMPARE(cutting.form.ListButton, std::int16_t{1});
    QCOMPARE(cutting.form.Label11.text(), cutting.form.ListView1.cell(row, PartsListView::Part));
}

void win_parts_list::aSelectedPartIsShownEverywhere()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    cutting.title(2, "two");
    clickAt(form.Picture1, 1000, inWave);
    clickRow(form, 2);
    const auto cell = [&](PartsListView::Column c) { return form.ListView1.cell(2, c); };
    QCOMPARE(form.Label11.text(), QString("Part.02"));
    QCOMPARE(form.Text1.text(), cell(PartsListView::Start));
    QCOMPARE(form.Text2.text(), cell(PartsListView::End));
    QCOMPARE(form.Label16.text(), cell(PartsListView::Duration));
    QCOMPARE(form.TextTitle.text(), QString("two"));
    QVERIFY(!form.Picture2.isHidden());
    QVERIFY(form.Line6.Visible());
    QCOMPARE(form.Line6.X1(), 1000.f);    // where the position line stands, inside or not
    QCOMPARE(form.Line6.X2(), 1000.f);
}

void win_parts_list::theHighlightLiesOverThePart_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<float>("left");
    QTest::addColumn<float>("width");
    QTest::addRow("the first") << 1 << 0.f << 3000.f;
    QTest::addRow("a middle one") << 2 << 3000.f << 4000.f;
    QTest::addRow("the last") << 3 << 7000.f << 3420.f;
}

void win_parts_list::theHighlightLiesOverThePart()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    QFETCH(int, row);
    QFETCH(float, left);
    clickRow(form, row);
    QCOMPARE(form.Picture2.Left(), left);
    QTEST(form.Picture2.Width(), "width");
    QCOMPARE(form.Picture3.Left(), -left);
    QCOMPARE(form.Picture3.Width(), 10420.f);
}

void win_parts_list::selectingWhileTheFilePlaysLeavesThePlayAlone()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    form.PlayPiste.trigger();
    journal().clear();
    clickRow(form, 2);
    QVERIFY(journal().commands().isEmpty());
    QVERIFY(form.IsPlaying && form.PlayWhole);
    QCOMPARE(form.Label11.text(), QString("Part.02"));
    QVERIFY(!form.Picture2.isHidden());
}

void win_parts_list::aRightClickSelectsAndOpensTheMenuAtThePointer()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    const QPoint at = middleOf(form, 2);
    clickRow(form, 2, Qt::RightButton);
    QCOMPARE(form.ListButton, std::int16_t{2});
    QCOMPARE(form.SelectedPart, lastPart);
    QVERIFY(form.HasSelectedPart);
    const QRect screen = form.screen()->availableGeometry();
    const QPoint pointer = form.ListView1.viewport()->mapToGlobal(at);
    // Where there is room, its corner; else the menu is moved so that it is whole on the screen.
    if (screen.contains(QRect(pointer, form.popup1.size()))) QCOMPARE(form.popup1.pos(), pointer);
    QVERIFY(form.popup1.geometry().adjusted(-1, -1, 1, 1).contains(pointer));
    QCOMPARE(closeMenu(), QString("popup1"));
}

void win_parts_list::aLeftClickAfterARightOneOpensNoMenu()
{
    Cutting cutting({300000});
    clickRow(cutting.form, 2, Qt::RightButton);
    closeMenu();
    clickRow(cutting.form, 1);
    QCOMPARE(closeMenu(), QString("none"));
    QCOMPARE(cutting.form.SelectedPart, 0);
}

void win_parts_list::aRightClickBesideTheRowsOpensNothing_data()
{
    QTest::addColumn<bool>("isSelected");
    QTest::addRow("while no row is selected") << false;
    QTest::addRow("while a row is selected") << true;
}

void win_parts_list::aRightClickBesideTheRowsOpensNothing()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    QFETCH(bool, isSelected);
    if (isSelected) clickRow(form, 2);
    QTest::mouseClick(form.ListView1.viewport(), Qt::RightButton, {}, besideTheRows(form));
    QCOMPARE(closeMenu(), QString("none"));
    QCOMPARE(form.HasSelectedPart, isSelected);
}

void win_parts_list::aClickBesideTheRowsLeavesTheSelection()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    clickRow(form, 2);
    QTest::mouseClick(form.ListView1.viewport(), Qt::LeftButton, {}, besideTheRows(form));
    QCOMPARE(form.ListView1.selectedRow(), 2);
    QCOMPARE(form.SelectedPart, lastPart);
}

void win_parts_list::aClickOnTheEmptyListDoesNothing()
{
    Cutting cutting;
    auto& form = cutting.form;
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton})
        QTest::mouseClick(form.ListView1.viewport(), button, {}, QPoint(40, 40));
    QVERIFY(!form.HasSelectedPart && form.Picture2.isHidden() && cutting.isDetailPanelCleared());
    QCOMPARE(closeMenu(), QString("none"));
}

void win_parts_list::aDoubleClickSelectsThenPlays()
{
    Cutting cutting({300000, 340000});
    auto& form = cutting.form;
    QString selectedAtStart;
    journal().onCommand = [&](const QString& line) {
        if (line == QLatin1String("AudioPlayer.Start")) selectedAtStart = form.Label11.text();
    };
    doubleClickRow(form, 2);
    QCOMPARE(selectedAtStart, QString("Part.02"));
    QCOMPARE(journal().commandsOf("AudioPlayer.Start").size(), 1);
    QCOMPARE(form.PlayFrom, 300000);
    QCOMPARE(form.PlayLength, 40000);
}

void win_parts_list::aDoubleClickBesideTheRowsPlaysNothing()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    clickRow(form, 2);
    QTest::mouseDClick(form.ListView1.viewport(), Qt::LeftButton, {}, besideTheRows(form));
    QVERIFY(journal().commands().isEmpty());
}

void win_parts_list::keysInTheListSelectWithoutAMenu()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    clickRow(form, 1, Qt::RightButton);
    closeMenu();
    QTest::keyClick(&form.ListView1, Qt::Key_Down);
    QCOMPARE(form.SelectedPart, 1);
    QCOMPARE(form.Label11.text(), QString("Part.02"));
    QCOMPARE(closeMenu(), QString("none"));
}

void win_parts_list::aSelectedRowIsBroughtIntoView()
{
    Cutting cutting;
    auto& form = cutting.form;
    cutting.cutEvenly(60, 15000);
    cutting.fixture.pressBarOfRow(50);
    const QRect row = form.ListView1.visualItemRect(form.ListView1.topLevelItem(49));
    QVERIFY(form.ListView1.viewport()->rect().contains(row.center()));
}

void win_parts_list::theMenuHoldsTheCommandsOfAPart()
{
    Cutting cutting;
    QStringList names;
    for (const QAction* entry : cutting.form.popup1.actions()) names << entry->objectName();
    QCOMPARE(names, (QStringList{"PlaythisPart", "Sep", "DeleteEntryCutPoint", "sep2", "SavePartMP3",
                                 "SavePartOgg", "SavePartWMA", "SavePartWav", "Sep15", "Saveselec"}));
}

void win_parts_list::aTabShowsItsPanel_data()
{
    QTest::addColumn<QString>("clicked");
    QTest::addColumn<QString>("tab");
    QTest::addColumn<QString>("panel");
    for (const char* name : {"Image22", "Image5", "Label6"})
        QTest::addRow("%s", name) << name << "Image22"
                                  << "PicTag";
    for (const char* name : {"Image23", "Image7", "Label5"})
        QTest::addRow("%s", name) << name << "Image23"
                                  << "ListView1";
    for (const char* name : {"Image24", "Image4", "Label7"})
        QTest::addRow("%s", name) << name << "Image24"
                                  << "PicOutput";
}

void win_parts_list::aTabShowsItsPanel()
{
    Cutting cutting;
    auto& form = cutting.form;
    QFETCH(QString, clicked);
    QFETCH(QString, tab);
    QFETCH(QString, panel);
    press(tab == QLatin1String("Image22") ? form.Image24 : form.Image22,
          QPoint(5, 5));    // another one before
    press(control(form, clicked), QPoint(5, 5));
    for (const char* name : {"PicTag", "PicOutput", "ListView1"})
        QCOMPARE(control(form, name).isHidden(), name != panel);
    for (const PictureButton* image : {&form.Image22, &form.Image23, &form.Image24})
        QCOMPARE(image->isChosen(), image->objectName() == tab);
}

void win_parts_list::aHiddenListStillFollowsTheSelection()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    press(form.Image22, QPoint(5, 5));
    cutting.fixture.pressBarOfRow(2);
    QCOMPARE(form.Label11.text(), QString("Part.02"));
    QVERIFY(!form.ListView1.isVisible());
    press(form.Image23, QPoint(5, 5));
    QVERIFY(form.ListView1.isVisible());
    QCOMPARE(form.ListView1.selectedRow(), 2);
}

void win_parts_list::aHiddenListKeepsItsRowsAndSelection()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(3);
    press(form.Image24, QPoint(5, 5));
    QCOMPARE(form.ListView1.rowCount(), 3);
    QCOMPARE(form.ListView1.selectedRow(), 3);
}

QTEST_MAIN(win_parts_list)
#include "win_parts_list.moc"
