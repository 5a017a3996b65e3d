// Presses and moves on the waveform and on the highlight: height first, then the tool.
#include "cutpoints/Cutting.h"

#include <QApplication>

namespace {

const QStringList playerCalls{"AudioPlayer.ClearQueue", "FileR.Seek", "FileR.ReadArray",
                              "AudioPlayer.PlayArray"};

}

class win_waveform_pointer : public QObject {
    Q_OBJECT
private slots:
    void heightDecidesFirst_data();
    void heightDecidesFirst();
    void aPressInTheRulerMovesTheLineInBothTools_data();
    void aPressInTheRulerMovesTheLineInBothTools();
    void aPressOnTheWaveMovesThePosition();
    void thePositionTextIsNotPadded_data();
    void thePositionTextIsNotPadded();
    void theLineShowsInTheHighlightOnlyWhereThatLies_data();
    void theLineShowsInTheHighlightOnlyWhereThatLies();
    void theRightButtonActsLikeTheLeftOnTheWave();
    void aDragOnTheWaveSelectsNothing();
    void theArrowReachesBothEnds_data();
    void theArrowReachesBothEnds();
    void scissorsCutUnderThePointer();
    void scissorsAddNothingAtTheEnds_data();
    void scissorsAddNothingAtTheEnds();
    void scissorsOnTheWaveLeaveTheHighlight();
    void scissorsOnTheHighlightHideIt();
    void scissorsAddNothingAtTheStartOfTheHighlight();
    void theArrowOnTheHighlightKeepsThePartForPlaying();
    void anUnknownToolDoesNothing();
    void aPressWhilePlayingMovesTheStream();
    void aPartInPlayKeepsItsCount();
    void aFaultOfTheStreamIsNotTrapped_data();
    void aFaultOfTheStreamIsNotTrapped();
};

void win_waveform_pointer::heightDecidesFirst_data()
{
    QTest::addColumn<double>("y");
    QTest::addColumn<QString>("zone");
    QTest::addRow("the top is the ruler") << 0.0 << "ruler";
    QTest::addRow("479.9 is the ruler") << 479.9 << "ruler";
    QTest::addRow("480 is the wave") << 480.0 << "wave";
    QTest::addRow("2700 is the wave") << 2700.0 << "wave";
    QTest::addRow("2700.5 is the bar") << 2700.5 << "bar";
}

void win_waveform_pointer::heightDecidesFirst()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    QFETCH(double, y);
    form.Line2.setX(0);
    press(form.Image13, QPoint(5, 5));    // scissors: each zone does something of its own
    clickAt(form.Picture1, 6000, y);
    QTEST(QString(form.ClickedPart          ? "bar"
                  : CutCount == 2           ? "wave"
                  : form.Line2.X1() == 6000 ? "ruler"
                                            : "none"),
          "zone");
}

void win_waveform_pointer::aPressInTheRulerMovesTheLineInBothTools_data()
{
    QTest::addColumn<int>("tool");
    QTest::addRow("arrow") << 1;
    QTest::addRow("scissors") << 2;
}

void win_waveform_pointer::aPressInTheRulerMovesTheLineInBothTools()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    QFETCH(int, tool);
    form.ToolMode = tool;
    cutting.fixture.pressBarOfRow(2);
    clickAt(form.Picture1, 6000, inRuler);
    QCOMPARE(form.Line2.X1(), 6000.f);
    QVERIFY(!form.HasSelectedPart && form.Picture2.isHidden() && cutting.isDetailPanelCleared());
    QCOMPARE(CutCount, 1);
}

void win_waveform_pointer::aPressOnTheWaveMovesThePosition()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(1);
    clickAt(form.Picture1, 6000, inWave);
    QCOMPARE(form.Line2.X1(), 6000.f);
    QCOMPARE(form.Line2.X2(), 6000.f);
    QCOMPARE(form.IndicTime.Left(), 5880.f);
    QCOMPARE(form.Label2.text(), QString("00:13.60"));    // 13605 ms
    QVERIFY(!form.HasSelectedPart && !form.ClickedPart && form.Picture2.isHidden() &&
            cutting.isDetailPanelCleared());
}

void win_waveform_pointer::thePositionTextIsNotPadded_data()
{
    QTest::addColumn<int>("sample");
    QTest::addColumn<QString>("text");
    QTest::addRow("5 ms") << 221 << "00:00.5";
    QTest::addRow("45 ms") << 1985 << "00:00.45";
    QTest::addRow("450 ms") << 19845 << "00:00.45";
    QTest::addRow("a whole second") << 44100 << "00:01.0";
    QTest::addRow("ten seconds") << 441000 << "00:10.0";
}

void win_waveform_pointer::thePositionTextIsNotPadded()
{
    Cutting cutting;
    QFETCH(int, sample);
    clickAt(cutting.form.Picture1, sample / 100.0, inWave);
    QTEST(cutting.form.Label2.text(), "text");
}

void win_waveform_pointer::theLineShowsInTheHighlightOnlyWhereThatLies_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<bool>("isShown");
    QTest::addRow("before the place of the highlight it is hidden") << 2999.0 << false;
    QTest::addRow("on its left edge it shows") << 3000.0 << true;
    QTest::addRow("inside it shows") << 5000.0 << true;
    QTest::addRow("on its right edge it is hidden") << 7000.0 << false;
}

void win_waveform_pointer::theLineShowsInTheHighlightOnlyWhereThatLies()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    QFETCH(double, x);
    QFETCH(bool, isShown);
    cutting.fixture.pressBarOfRow(2);
    clickAt(form.Picture1, x, inRuler);
    QCOMPARE(form.Line6.Visible(), isShown);
    if (isShown) QCOMPARE(form.Line6.X1(), static_cast<float>(x));
}

void win_waveform_pointer::theRightButtonActsLikeTheLeftOnTheWave()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    clickAt(form.Picture1, 6000, inWave, Qt::RightButton);
    QCOMPARE(form.Line2.X1(), 6000.f);
    clickAt(form.Picture1, 7000, inRuler, Qt::RightButton);
    QCOMPARE(form.Line2.X1(), 7000.f);
    press(form.Image13, QPoint(5, 5));
    clickAt(form.Picture1, 8000, inWave, Qt::RightButton);
    QCOMPARE(cutting.cuts(), (Samples{300000, 800000}));
    QVERIFY(!QApplication::activePopupWidget());
}

void win_waveform_pointer::aDragOnTheWaveSelectsNothing()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    pressAt(form.Picture1, 4000, inWave);
    form.WaveDrag = true;
    moveTo(form.Picture1, 6000, inWave, Qt::LeftButton);
    releaseAt(form.Picture1, 6000, inWave);
    QCOMPARE(form.Line2.X1(), 4000.f);
    QVERIFY(!form.HasSelectedPart && form.Picture2.isHidden());
    QVERIFY(!form.WaveDrag);
}

void win_waveform_pointer::theArrowReachesBothEnds_data()
{
    QTest::addColumn<double>("x");
    QTest::addRow("left") << 0.0;
    QTest::addRow("right") << 10420.0;
}

void win_waveform_pointer::theArrowReachesBothEnds()
{
    Cutting cutting;
    QFETCH(double, x);
    cutting.form.Line2.setX(100);
    clickAt(cutting.form.Picture1, x, inWave);
    QCOMPARE(cutting.form.Line2.X1(), static_cast<float>(x));
}

void win_waveform_pointer::scissorsCutUnderThePointer()
{
    Cutting cutting({700000});
    auto& form = cutting.form;
    form.Line2.setX(500);
    press(form.Image13, QPoint(5, 5));
    clickAt(form.Picture1, 3000.5, inWave);
    QCOMPARE(cutting.cuts(), (Samples{300050, 700000}));
    QCOMPARE(cutting.tags(), (QStringList{"700000", "300050"}));
    QCOMPARE(form.Line5(2).X1(), 3000.5f);
    QCOMPARE(form.Line5b(2).X2(), 3000.5f);
    QCOMPARE(form.Bop(2).Left(), 2975.5f);
    QCOMPARE(form.Bop1(2).Left(), 2975.5f);
    QCOMPARE(PartTable.at(2).StartSample, 300050);
    QCOMPARE(lastPartRecord(), 3);
    QCOMPARE(form.ListView1.rowCount(), 3);
    QCOMPARE(form.Line2.X1(), 500.f);
}

void win_waveform_pointer::scissorsAddNothingAtTheEnds_data()
{
    theArrowReachesBothEnds_data();
}

void win_waveform_pointer::scissorsAddNothingAtTheEnds()
{
    Cutting cutting;
    QFETCH(double, x);
    cutting.form.Line2.setX(100);
    press(cutting.form.Image13, QPoint(5, 5));
    clickAt(cutting.form.Picture1, x, inWave);
    QCOMPARE(CutCount, 0);
    QCOMPARE(cutting.form.Line2.X1(), 100.f);
}

void win_waveform_pointer::scissorsOnTheWaveLeaveTheHighlight()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    press(form.Image13, QPoint(5, 5));
    cutting.fixture.pressBarOfRow(2);
    clickAt(form.Picture1, 1000, inWave);
    QCOMPARE(CutCount, 2);
    QVERIFY(!form.Picture2.isHidden());
    QVERIFY(!form.HasSelectedPart && cutting.isDetailPanelCleared());
}

void win_waveform_pointer::scissorsOnTheHighlightHideIt()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    press(form.Image13, QPoint(5, 5));
    cutting.fixture.pressBarOfRow(2);
    clickAt(form.Picture3, 5000, 1000);
    QCOMPARE(cutting.cuts(), (Samples{300000, 500000}));
    QCOMPARE(form.Bop1(2).Left(), 4975.f);
    QCOMPARE(form.ListView1.rowCount(), 3);
    QVERIFY(form.Picture2.isHidden());
    QVERIFY(!form.HasSelectedPart && cutting.isDetailPanelCleared());
}

void win_waveform_pointer::scissorsAddNothingAtTheStartOfTheHighlight()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    press(form.Image13, QPoint(5, 5));
    cutting.fixture.pressBarOfRow(1);
    clickAt(form.Picture3, 0, 1000);
    QCOMPARE(CutCount, 1);
    QVERIFY(form.HasSelectedPart && !form.Picture2.isHidden());
}

void win_waveform_pointer::theArrowOnTheHighlightKeepsThePartForPlaying()
{
    Cutting cutting({300000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    clickAt(form.Picture3, 5000, 1000);
    QCOMPARE(form.Line2.X1(), 5000.f);
    QVERIFY(form.Picture2.isHidden() && cutting.isDetailPanelCleared());
    press(form.Image9, QPoint(5, 5));
    QVERIFY(form.IsPlaying);
    QCOMPARE(form.PlayFrom, 300000);
    QCOMPARE(form.PlayLength, 400000);
}

void win_waveform_pointer::anUnknownToolDoesNothing()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    form.Line2.setX(100);
    cutting.fixture.pressBarOfRow(2);
    form.ToolMode = 3;
    clickAt(form.Picture3, 5000, 1000);
    QVERIFY(!form.Picture2.isHidden());
    QCOMPARE(form.Line2.X1(), 100.f);
    QCOMPARE(CutCount, 1);
}

void win_waveform_pointer::aPressWhilePlayingMovesTheStream()
{
    Cutting cutting;
    auto& form = cutting.form;
    form.PlayPiste.trigger();
    journal().clear();
    clickAt(form.Picture1, 5000, inWave);
    QCOMPARE(journal().commands(), (QStringList{"AudioPlayer.ClearQueue", "FileR.Seek 500000",
                                                "FileR.ReadArray 176400", "AudioPlayer.PlayArray 352800",
                                                "FileR.ReadArray 176400", "AudioPlayer.PlayArray 352800"}));
    QCOMPARE(form.PlayPosition, 500000);
}

void win_waveform_pointer::aPartInPlayKeepsItsCount()
{
    Cutting cutting({100000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    press(form.Image9, QPoint(5, 5));
    QCOMPARE(form.PlayFed, 200000);
    clickAt(form.Picture3, 5000, 1000);
    QCOMPARE(form.PlayFed, 400000);
    QCOMPARE(form.PlayLength, 600000);
    QVERIFY(!form.PlayWhole);
}

void win_waveform_pointer::aFaultOfTheStreamIsNotTrapped_data()
{
    QTest::addColumn<int>("call");
    for (int i = 0; i < playerCalls.size(); ++i) QTest::addRow("%s", qPrintable(playerCalls[i])) << i;
}

void win_waveform_pointer::aFaultOfTheStreamIsNotTrapped()
{
    Cutting cutting;
    auto& form = cutting.form;
    QFETCH(int, call);
    form.PlayPiste.trigger();
    cutting.fixture.engine.failing = {playerCalls[call]};
    journal().clear();
    clickAt(form.Picture1, 5000, inWave);
    QCOMPARE(cutting.fixture.fatals, QStringList{playerCalls[call] + " fails"});
    QCOMPARE(journal().commands().size(), call + 1);    // nothing follows the fault
    QCOMPARE(form.Label2.text(), QString("00:11.33"));
}

QTEST_MAIN(win_waveform_pointer)
#include "win_waveform_pointer.moc"
