// Selecting parts on the waveform: the bar, its menu, its double click, and the arrow keys.
#include "cutpoints/Cutting.h"

#include <QApplication>
#include <QWindow>

class win_waveform_keys : public QObject {
    Q_OBJECT
private slots:
    void aPressOnTheBarSelectsThePartUnderIt_data();
    void aPressOnTheBarSelectsThePartUnderIt();
    void aPressOnTheBarOnTheLastCutSelectsTheFirstPart();
    void withoutACutAPressOnTheBarOnlyClearsTheFlags();
    void aRightPressOnTheBarSelectsAndOpensTheMenuAtThePointer();
    void aLeftPressOnTheBarOpensNoMenu();
    void aHandleStillHearsThePointerAfterTheMenu();
    void aDoubleClickOnTheBarPlaysThePart();
    void aDoubleClickElsewherePlaysNothing_data();
    void aDoubleClickElsewherePlaysNothing();
    void aDoubleClickOnTheBarOfAnUncutFilePlaysNothing();
    void aDoubleClickOnTheHighlightIsTwoPresses();
    void aDoubleClickWithTheScissorsOnTheHighlightCutsTwice();
    void aDoubleClickByTheWindowsOwnMousePlaysThePart();
    void anArrowKeySelectsTheNextPart_data();
    void anArrowKeySelectsTheNextPart();
    void otherKeysSelectNothing_data();
    void otherKeysSelectNothing();
    void withoutASelectedPartArrowKeysDoNothing();
    void withoutASelectedRowArrowKeysDoNothing();
};

void win_waveform_keys::aPressOnTheBarSelectsThePartUnderIt_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("code");
    QTest::addRow("the first part") << 1 << 0;
    QTest::addRow("the second part") << 2 << 1;
    QTest::addRow("the third part") << 3 << 2;
    QTest::addRow("the last part") << 4 << -1;
}

void win_waveform_keys::aPressOnTheBarSelectsThePartUnderIt()
{
    Cutting cutting({300000, 500000, 700000});
    auto& form = cutting.form;
    QFETCH(int, row);
    cutting.fixture.pressBarOfRow(row);
    QTEST(form.SelectedPart, "code");
    QVERIFY(form.HasSelectedPart && form.ClickedPart);
    QCOMPARE(form.ListView1.selectedRow(), row);
    QCOMPARE(form.Label11.text(), form.ListView1.cell(row, PartsListView::Part));
    QVERIFY(!form.Picture2.isHidden());
}

void win_waveform_keys::aPressOnTheBarOnTheLastCutSelectsTheFirstPart()
{
    Cutting cutting({300000, 700000});
    clickAt(cutting.form.Picture1, 7000, inBar);
    QCOMPARE(cutting.form.SelectedPart, 0);
}

void win_waveform_keys::withoutACutAPressOnTheBarOnlyClearsTheFlags()
{
    Cutting cutting;
    auto& form = cutting.form;
    form.Line2.setX(100);
    form.HasSelectedPart = form.ClickedPart = true;
    clickAt(form.Picture1, 5000, inBar, Qt::RightButton);
    QVERIFY(!form.HasSelectedPart && !form.ClickedPart && form.Picture2.isHidden());
    QCOMPARE(form.Line2.X1(), 100.f);
    QVERIFY(!QApplication::activePopupWidget());
}

void win_waveform_keys::aRightPressOnTheBarSelectsAndOpensTheMenuAtThePointer()
{
    Cutting cutting({100000});
    auto& form = cutting.form;
    const QPoint at(100, 187);    // the menu has room there
    QTest::mousePress(&form.Picture1, Qt::RightButton, {}, at);
    QCOMPARE(QApplication::activePopupWidget(), static_cast<QWidget*>(&form.popup1));
    QCOMPARE(form.popup1.pos(), form.Picture1.mapToGlobal(at));
    QCOMPARE(form.SelectedPart, lastPart);
    QVERIFY(form.PlaythisPart.isEnabled());
    form.popup1.close();
}

void win_waveform_keys::aLeftPressOnTheBarOpensNoMenu()
{
    Cutting cutting({300000});
    cutting.fixture.pressBarOfRow(2);
    QVERIFY(!QApplication::activePopupWidget());
}

// The release of the press that opened the menu goes to the menu.
void win_waveform_keys::aHandleStillHearsThePointerAfterTheMenu()
{
    Cutting cutting({100000});
    auto& form = cutting.form;
    activate(form);
    const auto inWindow = [&](double x, double y) {
        return form.Picture1.mapTo(&form, QPointF(x, y) / twipsPerPixel).toPoint();
    };
    QTest::mousePress(form.windowHandle(), Qt::RightButton, {}, inWindow(1500, inBar));
    QTest::mouseRelease(form.popup1.windowHandle(), Qt::RightButton, {}, QPoint(0, 0));
    form.popup1.close();
    QVERIFY(!form.Picture2.isHidden());
    QTest::mouseMove(form.windowHandle(), inWindow(985, form.Bop(1).Top() + 20));
    QVERIFY(form.Picture2.isHidden());
}

void win_waveform_keys::aDoubleClickOnTheBarPlaysThePart()
{
    Cutting cutting({300000, 340000});
    auto& form = cutting.form;
    doubleClickAt(form.Picture1, 3200, inBar);
    QCOMPARE(journal().commands(),
             (QStringList{"AudioPlayer.SetFormat 44100 2", "FileR.Seek 300000", "AudioPlayer.Start",
                          "FileR.ReadArray 40000", "AudioPlayer.PlayArray 80000", "FileR.ReadArray 0"}));
    QVERIFY(form.IsPlaying && form.HasSelectedPart);
}

void win_waveform_keys::aDoubleClickElsewherePlaysNothing_data()
{
    QTest::addColumn<double>("y");
    QTest::addRow("in the ruler") << inRuler;
    QTest::addRow("on the wave") << inWave;
}

void win_waveform_keys::aDoubleClickElsewherePlaysNothing()
{
    Cutting cutting({300000});
    QFETCH(double, y);
    cutting.fixture.pressBarOfRow(2);
    doubleClickAt(cutting.form.Picture1, 1000, y);
    QVERIFY(journal().commands().isEmpty());
    QVERIFY(!cutting.form.IsPlaying);
}

void win_waveform_keys::aDoubleClickOnTheBarOfAnUncutFilePlaysNothing()
{
    Cutting cutting;
    doubleClickAt(cutting.form.Picture1, 1000, inBar);
    QVERIFY(journal().commands().isEmpty());
}

static void doubleClickInWindow(CutterSelect& form, double x, double y)
{
    activate(form);
    const QPoint at = form.Picture1.mapTo(&form, QPointF(x, y) / twipsPerPixel).toPoint();
    QTest::mouseDClick(form.windowHandle(), Qt::LeftButton, {}, at);
}

// The first press hides the highlight, so the second one meets the waveform below it, which had none before.
void win_waveform_keys::aDoubleClickOnTheHighlightIsTwoPresses()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    doubleClickInWindow(form, 5000, inWave);
    QVERIFY(journal().commandsOf("AudioPlayer.Start").isEmpty() && !form.IsPlaying);
    QVERIFY(form.Picture2.isHidden() && !form.HasSelectedPart && !form.ClickedPart);
    QVERIFY(std::abs(form.Line2.X1() - 5000) < 15);
}

void win_waveform_keys::aDoubleClickWithTheScissorsOnTheHighlightCutsTwice()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    form.ToolMode = 2;
    cutting.fixture.pressBarOfRow(2);
    doubleClickInWindow(form, 5000, inWave);
    QCOMPARE(CutCount, 4);
    QVERIFY(journal().commandsOf("MsgBox").isEmpty() && !form.IsPlaying);
}

void win_waveform_keys::aDoubleClickByTheWindowsOwnMousePlaysThePart()
{
    Cutting cutting({300000, 340000});
    doubleClickInWindow(cutting.form, 3200, inBar);
    QVERIFY(cutting.form.IsPlaying && cutting.form.HasSelectedPart);
}

void win_waveform_keys::anArrowKeySelectsTheNextPart_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("code");
    QTest::addRow("left from the first jumps to the last") << 1 << int(Qt::Key_Left) << 4 << -1;
    QTest::addRow("left from the second") << 2 << int(Qt::Key_Left) << 1 << 0;
    QTest::addRow("left from the last") << 4 << int(Qt::Key_Left) << 3 << 2;
    QTest::addRow("right from the first") << 1 << int(Qt::Key_Right) << 2 << 1;
    QTest::addRow("right from the last but one") << 3 << int(Qt::Key_Right) << 4 << -1;
    QTest::addRow("right from the last jumps to the first") << 4 << int(Qt::Key_Right) << 1 << 0;
}

void win_waveform_keys::anArrowKeySelectsTheNextPart()
{
    Cutting cutting({300000, 500000, 700000});
    auto& form = cutting.form;
    QFETCH(int, from);
    QFETCH(int, key);
    QFETCH(int, to);
    activate(form);
    cutting.fixture.pressBarOfRow(from);    // the press gives the waveform the focus
    QTest::keyClick(form.windowHandle(), static_cast<Qt::Key>(key));
    QTEST(form.SelectedPart, "code");
    QCOMPARE(form.ListView1.selectedRow(), to);
    QCOMPARE(form.Label11.text(), form.ListView1.cell(to, PartsListView::Part));
}

void win_waveform_keys::otherKeysSelectNothing_data()
{
    QTest::addColumn<int>("key");
    QTest::addRow("up") << int(Qt::Key_Up);
    QTest::addRow("down") << int(Qt::Key_Down);
    QTest::addRow("home") << int(Qt::Key_Home);
    QTest::addRow("a letter") << int(Qt::Key_A);
}

void win_waveform_keys::otherKeysSelectNothing()
{
    Cutting cutting({300000, 700000});
    QFETCH(int, key);
    activate(cutting.form);
    cutting.fixture.pressBarOfRow(2);
    QTest::keyClick(cutting.form.windowHandle(), static_cast<Qt::Key>(key));
    QCOMPARE(cutting.form.SelectedPart, 1);
    QVERIFY(journal().commands().isEmpty());
}

void win_waveform_keys::withoutASelectedPartArrowKeysDoNothing()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    activate(form);
    cutting.fixture.pressBarOfRow(2);
    clickAt(form.Picture1, 1000, inWave);    // the row stays selected
    QTest::keyClick(form.windowHandle(), Qt::Key_Right);
    QCOMPARE(form.ListView1.selectedRow(), 2);
    QCOMPARE(form.SelectedPart, 1);
    QVERIFY(form.Picture2.isHidden());
}

void win_waveform_keys::withoutASelectedRowArrowKeysDoNothing()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    activate(form);
    cutting.fixture.pressBarOfRow(2);
    press(*form.Toolbar1.widgetForAction(&form.Toolbar1.Buttons(4)),
          QPoint(15, 15));    // the zoom makes the list anew
    QVERIFY(form.HasSelectedPart);
    QTest::keyClick(form.windowHandle(), Qt::Key_Right);
    QCOMPARE(form.SelectedPart, 1);
    QCOMPARE(form.ListView1.selectedRow(), 0);
}

QTEST_MAIN(win_waveform_keys)
#include "win_waveform_keys.moc"
