// The dispatcher, the tool bar, the menus and the picture buttons that stand for a command.
#include "support/FormFixture.h"

#include <QTest>
#include <QToolButton>

namespace {

void clickTool(CutterSelect& form, int index)
{
    QTest::mouseClick(form.Toolbar1.widgetForAction(&form.Toolbar1.Buttons(index)), Qt::LeftButton);
}

QStringList entriesOf(const QMenu& menu)
{
    QStringList names;
    for (const QAction* entry : menu.actions())
        names << (entry->isSeparator() ? "-" : "") + entry->objectName();
    return names;
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
    void aMenuEntryDoesWhatItsToolDoes_data();
    void aMenuEntryDoesWhatItsToolDoes();
    void theMenusHoldTheirEntriesInOrder_data();
    void theMenusHoldTheirEntriesInOrder();
    void theMenusStandInOrder();
    void aTabShowsItsPanel_data();
    void aTabShowsItsPanel();
    void theToolsOfThePointerAreChosenByTheirPictures();
    void helpHasNoCommand();
    void anUntrappedFaultOfACommandReachesTheWall();
};

static void addIndexes(std::initializer_list<int> indexes)
{
    QTest::addColumn<int>("index");
    for (const int index : indexes) QTest::addRow("button %d", index) << index;
}

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
    clickTool(form, index);
    QFETCH(QString, call);
    QVERIFY2(journal().commands().contains(call), qPrintable(journal().commands().join(", ")));
}

void win_commands::theZoomToolsChangeTheLevel()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100));
    clickTool(form, 4);
    clickTool(form, 4);
    QCOMPARE(form.ZoomLevel, 2);
    clickTool(form, 5);
    QCOMPARE(form.ZoomLevel, 1);
    clickTool(form, 4);
    clickTool(form, 6);
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
    clickTool(form, 8);
    QCOMPARE(CutCount, 1);
    QCOMPARE(CutPoints.at(1), 220500);
}

void win_commands::pauseLeavesThePosition()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100 * 10));
    clickTool(form, 10);
    form.Line2.setX(2000);
    form.Label2.setText("here");
    clickTool(form, 11);
    QVERIFY(!form.IsPlaying);
    QCOMPARE(form.Line2.X1(), Twips{2000});
    QCOMPARE(form.Label2.text(), "here");
}

void win_commands::stopPutsThePositionToTheStart()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100 * 10));
    clickTool(form, 10);
    form.Line2.setX(2000);
    clickTool(form, 12);
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
    clickTool(form, 12);
    QCOMPARE(form.Label2.text(), "00:07.50");
}

void win_commands::aMenuEntryDoesWhatItsToolDoes_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<int>("index");
    QTest::addRow("opening") << "OpenAudioFile" << 1;
    QTest::addRow("closing") << "CloseAudioFile" << 2;
    QTest::addRow("cutting") << "SetCutPoint" << 8;
    QTest::addRow("playing") << "PlayPiste" << 10;
    QTest::addRow("pausing") << "EnPause" << 11;
    QTest::addRow("stopping") << "Stoplecture" << 12;
    QTest::addRow("playing the part") << "PlaythisPart" << 14;
    QTest::addRow("saving the part") << "Saveselec" << 15;
}

void win_commands::aMenuEntryDoesWhatItsToolDoes()
{
    QFETCH(QString, entry);
    QFETCH(int, index);
    QStringList journals[2];
    std::int32_t cuts[2];
    for (int byMenu = 0; byMenu < 2; ++byMenu) {
        FormFixture fixture;
        auto& form = fixture.open(fakeSound(44100 * 10), {44100});
        fixture.pressBarOfRow(2);
        journal().clear();
        if (byMenu)
            form.findChild<QAction*>(entry)->trigger();
        else
            form.ToolbarCommand(static_cast<std::int16_t>(index));
        journals[byMenu] = journal().commands();
        cuts[byMenu] = CutCount;
    }
    QCOMPARE(journals[1], journals[0]);
    QCOMPARE(cuts[1], cuts[0]);
}

void win_commands::theMenusHoldTheirEntriesInOrder_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("entries");
    QTest::addRow("the file menu") << "Fichier"
                                   << "OpenAudioFile CloseAudioFile -sep11 SaveAllParts -Sep6 "
                                      "ExtractAudioFromAvi JoinerF -sep5 Quitter";
    QTest::addRow("the menu of the player") << "ControlAudio"
                                            << "PlayPiste EnPause Stoplecture -Sep1 Rew1Sec Fwd1Sec";
    QTest::addRow("the menu of cut points") << "MenuCutPoint"
                                            << "SetCutPoint";
    QTest::addRow("the menu of the part") << "popup1"
                                          << "PlaythisPart -Sep DeleteEntryCutPoint -sep2 SavePartMP3 "
                                             "SavePartOgg SavePartWMA SavePartWav -Sep15 Saveselec";
    QTest::addRow("the menu of formats") << "OutputMenu"
                                         << "SelecMP3 selecOgg SelecWma SelecWav -Sep10 SelecFormatConfig";
    QTest::addRow("the menu of languages") << "Language"
                                           << "English Francais spanish portugais";
    QTest::addRow("the last menu") << "infos"
                                   << "Help Homepage -sep12 about";
}

void win_commands::theMenusHoldTheirEntriesInOrder()
{
    QFETCH(QString, menu);
    FormFixture fixture;
    auto& form = fixture.load();
    QTEST(entriesOf(*form.findChild<QMenu*>(menu)).join(' '), "entries");
}

void win_commands::theMenusStandInOrder()
{
    FormFixture fixture;
    auto& form = fixture.load();
    QStringList names;
    for (const QAction* menu : form.CutterSelectControls::menuBar.actions())
        names << menu->menu()->objectName();
    QCOMPARE(names, (QStringList{"Fichier", "ControlAudio", "MenuCutPoint", "popup1", "OutputMenu",
                                 "Language", "infos"}));
}

void win_commands::aTabShowsItsPanel_data()
{
    QTest::addColumn<QString>("pressed");
    QTest::addColumn<QString>("shown");
    for (const char* name : {"Image24", "Image4", "Label7"})
        QTest::addRow("%s shows the output", name) << name << "PicOutput";
    for (const char* name : {"Image22", "Image5", "Label6"})
        QTest::addRow("%s shows the tags", name) << name << "PicTag";
    for (const char* name : {"Image23", "Image7", "Label5"})
        QTest::addRow("%s shows the parts", name) << name << "ListView1";
}

void win_commands::aTabShowsItsPanel()
{
    QFETCH(QString, pressed);
    FormFixture fixture;
    auto& form = fixture.load();
    QTest::mouseClick(form.findChild<QWidget*>(pressed == "Label7" ? "Image22" : "Image24"), Qt::LeftButton);
    QTest::mouseClick(form.findChild<QWidget*>(pressed), Qt::LeftButton);
    QStringList shown;
    for (const char* panel : {"ListView1", "PicTag", "PicOutput"})
        if (form.findChild<QWidget*>(panel)->isVisible()) shown << panel;
    QTEST(shown.join(' '), "shown");
}

void win_commands::theToolsOfThePointerAreChosenByTheirPictures()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100));
    QTest::mouseClick(&form.Image13, Qt::LeftButton);
    QCOMPARE(form.ToolMode, 2);
    QTest::mouseClick(&form.Image20, Qt::LeftButton);
    QCOMPARE(form.ToolMode, 1);
}

void win_commands::helpHasNoCommand()
{
    FormFixture fixture;
    auto& form = fixture.load();
    journal().clear();
    form.Help.trigger();
    QCOMPARE(journal().commands(), QStringList());
    QVERIFY(!QApplication::activeModalWidget());
}

void win_commands::anUntrappedFaultOfACommandReachesTheWall()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100));
    fixture.engine.failing << "FileR.Close";
    clickTool(form, 2);
    QCOMPARE(fixture.fatals, QStringList{"FileR.Close fails"});
    fixture.engine.failing.clear();
}

QTEST_MAIN(win_commands)
#include "win_commands.moc"
