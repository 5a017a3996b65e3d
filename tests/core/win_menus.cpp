// The menus and the pictures that stand for a command.
#include "support/FormFixture.h"

#include <QTest>

namespace {

QStringList entriesOf(const QMenu& menu)
{
    QStringList names;
    for (const QAction* entry : menu.actions())
        names << (entry->isSeparator() ? "-" : "") + entry->objectName();
    return names;
}

}

class win_menus : public QObject {
    Q_OBJECT

private slots:
    void aMenuEntryDoesWhatItsToolDoes_data();
    void aMenuEntryDoesWhatItsToolDoes();
    void theMenusHoldTheirEntriesInOrder_data();
    void theMenusHoldTheirEntriesInOrder();
    void theMenusStandInOrder();
    void aTabShowsItsPanel_data();
    void aTabShowsItsPanel();
    void theToolsOfThePointerAreChosenByTheirPictures();
    void helpHasNoCommand();
};

void win_menus::aMenuEntryDoesWhatItsToolDoes_data()
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

void win_menus::aMenuEntryDoesWhatItsToolDoes()
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

void win_menus::theMenusHoldTheirEntriesInOrder_data()
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

void win_menus::theMenusHoldTheirEntriesInOrder()
{
    QFETCH(QString, menu);
    FormFixture fixture;
    auto& form = fixture.load();
    QTEST(entriesOf(*form.findChild<QMenu*>(menu)).join(' '), "entries");
}

void win_menus::theMenusStandInOrder()
{
    FormFixture fixture;
    auto& form = fixture.load();
    QStringList names;
    for (const QAction* menu : form.CutterSelectControls::menuBar.actions())
        names << menu->menu()->objectName();
    QCOMPARE(names, (QStringList{"Fichier", "ControlAudio", "MenuCutPoint", "popup1", "OutputMenu",
                                 "Language", "infos"}));
}

void win_menus::aTabShowsItsPanel_data()
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

void win_menus::aTabShowsItsPanel()
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

void win_menus::theToolsOfThePointerAreChosenByTheirPictures()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100));
    QTest::mouseClick(&form.Image13, Qt::LeftButton);
    QCOMPARE(form.ToolMode, 2);
    QTest::mouseClick(&form.Image20, Qt::LeftButton);
    QCOMPARE(form.ToolMode, 1);
}

void win_menus::helpHasNoCommand()
{
    FormFixture fixture;
    auto& form = fixture.load();
    journal().clear();
    form.Help.trigger();
    QCOMPARE(journal().commands(), QStringList());
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(win_menus)
#include "win_menus.moc"
