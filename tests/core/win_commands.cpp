// The dispatcher of commands and the tool bar.
#include "support/FormFixture.h"
#include "support/Mouse.h"

#include <QTest>

namespace {

void addIndexes(std::initializer_list<int> indexes)
{
    QTest::addColumn<int>("index");
    for (const int index : indexes) QTest::addRow("button %d", index) << index;
}

}

class win_commands : public QObject {
    Q_OBJECT

private slots:
    void aCommandIsRefusedWithoutADocument_data();
    void aCommandIsRefusedWithoutADocument();
    void aCommandIsRefusedDuringAScan_data();
    void aCommandIsRefusedDuringAScan();
    void zoomingOutIsRefusedAtOneToOne_data();
    void zoomingOutIsRefusedAtOneToOne();
    void anIndexWithoutARowDoesNothing_data();
    void anIndexWithoutARowDoesNothing();
    void aToolDoesWhatItsIndexSays_data();
    void aToolDoesWhatItsIndexSays();
    void theZoomToolsChangeTheLevel();
    void theZoomToolsThatLeadBackStartDisabled();
    void theCutToolCutsAtThePositionLine();
    void pauseLeavesThePosition();
    void stopPutsThePositionToTheStart();
    void stopWithoutAFileLeavesThePositionText();
    void anUntrappedFaultOfACommandReachesTheWall();
};

void win_commands::aCommandIsRefusedWithoutADocument_data()
{
    addIndexes({4, 5, 6, 10, 11, 12, 14, 15});
}

void win_commands::aCommandIsRefusedWithoutADocument()
{
    QFETCH(int, index);
    FormFixture fixture;
    auto& form = fixture.load();
    form.Line2.setX(300);
    journal().clear();
    form.ToolbarCommand(static_cast<std::int16_t>(index));
    const QStringList calls = journal().commandsOf("[^M]");
    QCOMPARE(calls, QStringList());
    QCOMPARE(form.ZoomLevel, 0);
    QCOMPARE(form.Line2.X1(), Twips{300});
}

void win_commands::aCommandIsRefusedDuringAScan_data()
{
    addIndexes({2, 4, 5, 6, 10, 11, 12});
}

void win_commands::aCommandIsRefusedDuringAScan()
{
    QFETCH(int, index);
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100));
    form.ToolbarCommand(4);
    form.Line2.setX(300);
    form.Label2.setText("here");
    form.Scanning = true;
    form.ToolbarCommand(static_cast<std::int16_t>(index));
    QCOMPARE(journal().commands(), QStringList());
    QCOMPARE(form.ZoomLevel, 1);
    QCOMPARE(form.Line2.X1(), Twips{300});
    QCOMPARE(form.Label2.text(), "here");
    QVERIFY(form.FileLoaded);
}

void win_commands::zoomingOutIsRefusedAtOneToOne_data()
{
    addIndexes({5, 6});
}

void win_commands::zoomingOutIsRefusedAtOneToOne()
{
    QFETCH(int, index);
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100));
    form.Line2.setX(300);
    form.ToolbarCommand(static_cast<std::int16_t>(index));
    QCOMPARE(form.ZoomLevel, 0);
    QCOMPARE(form.Picture1.Width(), Twips{10420});
    QCOMPARE(form.Line2.X1(), Twips{300});
}

void win_commands::anIndexWithoutARowDoesNothing_data()
{
    addIndexes({-1, 0, 3, 7, 9, 13, 16, 19, 32767});
}

void win_commands::anIndexWithoutARowDoesNothing()
{
    QFETCH(int, index);
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100));
    form.ToolbarCommand(static_cast<std::int16_t>(index));
    QCOMPARE(journal().commands(), QStringList());
    QVERIFY(form.FileLoaded);
}

void win_commands::aToolDoesWhatItsIndexSays_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("call");
    QTest::addRow("1 asks for a file") << 1 << "dialog open";
    QTest::addRow("2 closes the document") << 2 << "FileR.Close";
    QTest::addRow("10 plays the file") << 10 << "FileR.Seek 44100";
    QTest::addRow("11 stops the player") << 11 << "AudioPlayer.Stop";
    QTest::addRow("12 stops the player") << 12 << "AudioPlayer.Stop";
    QTest::addRow("14 plays the selected part") << 14 << "AudioPlayer.SetFormat 44100 2";
    QTest::addRow("15 saves the selected part") << 15 << "dialog save";
}

void win_commands::aToolDoesWhatItsIndexSays()
{
    QFETCH(int, index);
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100 * 10), {44100});
    fixture.pressBarOfRow(1);
    journal().clear();
    pressButton(form.Toolbar1, index);
    QFETCH(QString, call);
    QVERIFY2(journal().commands().contains(call), qPrintable(journal().commands().join(", ")));
}

void win_commands::theZoomToolsChangeTheLevel()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100));
    pressButton(form.Toolbar1, 4);
    pressButton(form.Toolbar1, 4);
    QCOMPARE(form.ZoomLevel, 2);
    pressButton(form.Toolbar1, 5);
    QCOMPARE(form.ZoomLevel, 1);
    pressButton(form.Toolbar1, 4);
    pressButton(form.Toolbar1, 6);
    QCOMPARE(form.ZoomLevel, 0);
}

void win_commands::theZoomToolsThatLeadBackStartDisabled()
{
    FormFixture fixture;
    auto& form = fixture.load();
    for (const int index : {5, 6}) QVERIFY(!form.Toolbar1.Buttons(index).isEnabled());
    for (const int index : {1, 2, 4, 8, 10, 11, 12, 17, 18})
        QVERIFY(form.Toolbar1.Buttons(index).isEnabled());
}

void win_commands::theCutToolCutsAtThePositionLine()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100 * 10));
    form.Line2.setX(form.Picture1.Width() / 2);
    pressButton(form.Toolbar1, 8);
    QCOMPARE(CutCount, 1);
    QCOMPARE(CutPoints.at(1), 220500);
}

void win_commands::pauseLeavesThePosition()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100 * 10));
    pressButton(form.Toolbar1, 10);
    form.Line2.setX(2000);
    form.Label2.setText("here");
    pressButton(form.Toolbar1, 11);
    QVERIFY(!form.IsPlaying);
    QCOMPARE(form.Line2.X1(), Twips{2000});
    QCOMPARE(form.Label2.text(), "here");
}

void win_commands::stopPutsThePositionToTheStart()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100 * 10));
    pressButton(form.Toolbar1, 10);
    form.Line2.setX(2000);
    pressButton(form.Toolbar1, 12);
    QVERIFY(!form.IsPlaying);
    QCOMPARE(form.Line2.X1(), Twips{0});
    QCOMPARE(form.Line2.X2(), Twips{0});
    QCOMPARE(form.IndicTime.Left(), -form.IndicTime.Width() / 2);
    QCOMPARE(form.Label2.text(), "00:00.00");
}

void win_commands::stopWithoutAFileLeavesThePositionText()
{
    FormFixture fixture;
    auto& form = fixture.load();
    form.Label2.setText("00:07.50");
    pressButton(form.Toolbar1, 12);
    QCOMPARE(form.Label2.text(), "00:07.50");
}

void win_commands::anUntrappedFaultOfACommandReachesTheWall()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100));
    fixture.engine.failing << "FileR.Close";
    pressButton(form.Toolbar1, 2);
    QCOMPARE(fixture.fatals, QStringList{"FileR.Close fails"});
    fixture.engine.failing.clear();
}

QTEST_MAIN(win_commands)
#include "win_commands.moc"
