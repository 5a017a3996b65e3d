// Which output format is selected: the string, the key, the buttons, the check marks and the writer stay in
// step.
#include "export/Selecting.h"

class win_output_format : public QObject {
    Q_OBJECT
private slots:
    void aFirstStartSelectsMp3AndWritesOnlyTheWmaKey();
    void onlyTheWordTrueSwitchesWmaOn_data();
    void onlyTheWordTrueSwitchesWmaOn();
    void aStoredSelectionComesBack_data();
    void aStoredSelectionComesBack();
    void storedWmaThatIsSwitchedOffShowsMp3();
    void storedWmaUnderAnyOtherWordIsConfigured();
    void anUnknownFormatConfiguresNothing();

    void aClickOnAButtonSelects_data();
    void aClickOnAButtonSelects();
    void aMenuEntrySelects_data();
    void aMenuEntrySelects();
    void aMenuEntryForTheSelectedFormatRunsOnce();
    void theArrowKeysSelectAmongTheButtons();
    void theButtonsHaveTheirTips();

    void aPictureOpensTheSettingsOfItsFormat_data();
    void aPictureOpensTheSettingsOfItsFormat();
    void thePictureOfWavShowsAFixedText();
    void theKeyIsWrittenAgainAfterTheDialog();
    void theConfigurationEntryOpensTheSelectedFormat_data();
    void theConfigurationEntryOpensTheSelectedFormat();
    void theConfigurationEntryKnowsNoOtherFormat();
};

namespace {

QString markOf(const CutterSelect& form)
{
    QStringList marks;
    for (const QAction* entry : {&form.SelecMP3, &form.selecOgg, &form.SelecWma, &form.SelecWav})
        if (entry->isChecked()) marks << entry->objectName();
    return marks.join(' ');
}

// A row for each format: its name, button, mark, the calls of one selection, and what the writer says of
// itself.
void formats(const QStringList& mp3)
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("option");
    QTest::addColumn<QString>("mark");
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<QString>("line");
    QTest::addRow("WAV") << "WAV" << 0 << "SelecWav" << pcm << "WAV 44100 2 16";
    QTest::addRow("MP3") << "MP3" << 1 << "SelecMP3" << mp3 << "MP3";
    QTest::addRow("Ogg Vorbis") << "OGG" << 2 << "selecOgg" << ogg << "Ogg Vorbis 44100 2 128 0 0 400";
    QTest::addRow("WMA") << "WMA" << 3 << "SelecWma" << wma << "WMA 39 39";
}

MenuEntry& selecEntry(CutterSelect& form, int option)
{
    MenuEntry* const entries[] = {&form.SelecWav, &form.SelecMP3, &form.selecOgg, &form.SelecWma};
    return *entries[option];
}

}

void win_output_format::aFirstStartSelectsMp3AndWritesOnlyTheWmaKey()
{
    Start start;
    CutterSelect& form = start.load();
    QCOMPARE(form.OUTPUTFORMAT, QString("MP3"));
    QCOMPARE(start.fixture.setting("WMA", "WMASUPPORT"), QString("False"));
    QVERIFY(!start.fixture.settingsText().contains("OutPutCut"));
}

void win_output_format::onlyTheWordTrueSwitchesWmaOn_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("on");
    QTest::addRow("True") << "True" << true;
    QTest::addRow("False") << "False" << false;
    QTest::addRow("small letters") << "true" << false;
    QTest::addRow("capitals") << "TRUE" << false;
    QTest::addRow("a number") << "1" << false;
}

void win_output_format::onlyTheWordTrueSwitchesWmaOn()
{
    QFETCH(QString, word);
    QFETCH(bool, on);
    Start start;
    start.fixture.writeSetting("WMA", "WMASUPPORT", word);
    CutterSelect& form = start.load();
    const QString flag = on ? "True" : "False";
    QCOMPARE(journal().commands().filter("SetWmaEnabled"),
             (QStringList{"FileWenc.SetWmaEnabled " + flag, "FileR.SetWmaEnabled " + flag}));
    QCOMPARE((QList<bool>{form.Option1[3].isEnabled(), form.Image6[3].isEnabled(),
                          form.SavePartWMA.isVisible(), form.SelecWma.isVisible()}),
             (QList<bool>{on, on, on, on}));
    QCOMPARE(start.fixture.setting("WMA", "WMASUPPORT"), word);
}

void win_output_format::aStoredSelectionComesBack_data()
{
    formats(mp3Once);
}

void win_output_format::aStoredSelectionComesBack()
{
    QFETCH(QString, format);
    QFETCH(int, option);
    QFETCH(QString, mark);
    QFETCH(QStringList, calls);
    QFETCH(QString, line);
    Start start{{"WMA", "WMASUPPORT", "True"}};
    start.fixture.writeSetting("OutPutCut", "Format", format);
    CutterSelect& form = start.load();
    QCOMPARE(form.OUTPUTFORMAT, format);
    QCOMPARE(optionOf(form), option);
    QCOMPARE(markOf(form), mark);
    QCOMPARE(start.writer(), calls);
    QCOMPARE(panel2(form), langText(71) + line);
}

void win_output_format::storedWmaThatIsSwitchedOffShowsMp3()
{
    Start start{{"WMA", "WMASUPPORT", "False"}, {"OutPutCut", "Format", "WMA"}};
    CutterSelect& form = start.load();
    QCOMPARE(form.OUTPUTFORMAT, QString("WMA"));
    QCOMPARE(optionOf(form), 1);
    QCOMPARE(start.writer(), mp3Once);
}

void win_output_format::storedWmaUnderAnyOtherWordIsConfigured()
{
    Start start{{"WMA", "WMASUPPORT", "no"}, {"OutPutCut", "Format", "WMA"}};
    CutterSelect& form = start.load();
    QCOMPARE(optionOf(form), 3);
    QCOMPARE(start.writer(), wma);
}

void win_output_format::anUnknownFormatConfiguresNothing()
{
    Start start{{"OutPutCut", "Format", "mp3"}};
    CutterSelect& form = start.load();
    QCOMPARE(start.writer(), QStringList());
    QCOMPARE(optionOf(form), -1);
    QCOMPARE(markOf(form), QString());
}

void win_output_format::aClickOnAButtonSelects_data()
{
    formats(mp3Once + mp3Once);
}

void win_output_format::aClickOnAButtonSelects()
{
    QFETCH(QString, format);
    QFETCH(int, option);
    QFETCH(QString, mark);
    QFETCH(QStringList, calls);
    QFETCH(QString, line);
    Start start{{"WMA", "WMASUPPORT", "True"}, {"OutPutCut", "Format", "-"}};
    CutterSelect& form = start.load();
    press(form.Image24, form.Image24.rect().center());
    journal().clear();
    press(form.Option1[static_cast<std::size_t>(option)], QPoint(10, 15));
    QCOMPARE(form.OUTPUTFORMAT, format);
    QCOMPARE(start.fixture.setting("OutPutCut", "Format"), format);
    QCOMPARE(markOf(form), mark);
    QCOMPARE(journal().commands(), calls);
    QCOMPARE(panel2(form), langText(71) + line);
}

void win_output_format::aMenuEntrySelects_data()
{
    formats(mp3Once + mp3Once);
}

void win_output_format::aMenuEntrySelects()
{
    QFETCH(QString, format);
    QFETCH(int, option);
    QFETCH(QString, mark);
    QFETCH(QStringList, calls);
    QFETCH(QString, line);
    Start start{{"WMA", "WMASUPPORT", "True"}, {"OutPutCut", "Format", "-"}};
    CutterSelect& form = start.load();
    journal().clear();
    selecEntry(form, option).trigger();
    QCOMPARE(form.OUTPUTFORMAT, format);
    QCOMPARE(start.fixture.setting("OutPutCut", "Format"), format);
    QCOMPARE(optionOf(form), option);
    QCOMPARE(markOf(form), mark);
    QCOMPARE(journal().commands(), calls + calls);    // setting the button on runs the handler as well
    QCOMPARE(panel2(form), langText(71) + line);
}

void win_output_format::aMenuEntryForTheSelectedFormatRunsOnce()
{
    Start start{{"OutPutCut", "Format", "WAV"}};
    CutterSelect& form = start.load();
    journal().clear();
    form.SelecWav.trigger();
    QCOMPARE(journal().commands(), pcm);
    QCOMPARE(markOf(form), QString("SelecWav"));
}

void win_output_format::theArrowKeysSelectAmongTheButtons()
{
    Start start{{"OutPutCut", "Format", "MP3"}};
    CutterSelect& form = start.load();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    press(form.Image24, form.Image24.rect().center());
    form.Option1[1].setFocus();
    QTest::keyClick(&form.Option1[1], Qt::Key_Down);
    QCOMPARE(form.OUTPUTFORMAT, QString("OGG"));
    QCOMPARE(start.fixture.setting("OutPutCut", "Format"), QString("OGG"));
}

void win_output_format::theButtonsHaveTheirTips()
{
    Start start;
    CutterSelect& form = start.load();
    QCOMPARE(form.Option1[1].toolTip(), QString("Select MP3 for Output format"));
    QCOMPARE(form.Option1[2].toolTip(), QString("Select Ogg Vorbis for output format"));
    QCOMPARE(form.Option1[3].toolTip(), QString("Select Wma for Output format"));
}

namespace {

void dialogs()
{
    QTest::addColumn<int>("option");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QStringList>("dialog");
    QTest::addRow("WAV has none") << 0 << "WAV" << QStringList();
    QTest::addRow("MP3") << 1 << "MP3" << QStringList{"frmMP3"};
    QTest::addRow("Ogg Vorbis") << 2 << "OGG" << QStringList{"frmOgg"};
    QTest::addRow("WMA") << 3 << "WMA" << QStringList{"frmWMA"};
}

}

void win_output_format::aPictureOpensTheSettingsOfItsFormat_data()
{
    dialogs();
}

void win_output_format::aPictureOpensTheSettingsOfItsFormat()
{
    QFETCH(int, option);
    QFETCH(QString, format);
    QFETCH(QStringList, dialog);
    Start start{{"WMA", "WMASUPPORT", "True"}, {"OutPutCut", "Format", "-"}};
    CutterSelect& form = start.load();
    press(form.Image24, form.Image24.rect().center());
    DialogDriver driver;
    QStringList shown;
    leave(driver, shown);
    PictureButton& picture = form.Image6[static_cast<std::size_t>(option)];
    press(picture, picture.rect().center());
    QCOMPARE(shown, dialog);
    QCOMPARE(form.OUTPUTFORMAT, format);
    QCOMPARE(start.fixture.setting("OutPutCut", "Format"), format);
    QCOMPARE(optionOf(form), option);
    QCOMPARE(markOf(form), selecEntry(form, option).objectName());
}

void win_output_format::thePictureOfWavShowsAFixedText()
{
    Start start{{"OutPutCut", "Format", "WAV"}};
    CutterSelect& form = start.load();
    form.Image6_Click(0);
    QCOMPARE(panel2(form), langText(71) + QString::fromUtf8("WAV, 44100 Khz, Stéréo, 16 bits"));
    form.Option1_Click(0);
    QCOMPARE(panel2(form), langText(71) + "WAV 44100 2 16");
}

void win_output_format::theKeyIsWrittenAgainAfterTheDialog()
{
    Start start{{"OutPutCut", "Format", "OGG"}};
    CutterSelect& form = start.load();
    DialogDriver driver;
    driver.expect([&](QDialog& dialog) {
        start.fixture.writeSetting("OutPutCut", "Format", "changed meanwhile");
        QMetaObject::invokeMethod(&dialog, "reject", Qt::QueuedConnection);
        return true;
    });
    form.Image6_Click(2);
    QCOMPARE(start.fixture.setting("OutPutCut", "Format"), QString("OGG"));
}

void win_output_format::theConfigurationEntryOpensTheSelectedFormat_data()
{
    dialogs();
}

void win_output_format::theConfigurationEntryOpensTheSelectedFormat()
{
    QFETCH(QString, format);
    QFETCH(QStringList, dialog);
    Start start{{"WMA", "WMASUPPORT", "True"}};
    start.fixture.writeSetting("OutPutCut", "Format", format);
    CutterSelect& form = start.load();
    DialogDriver driver;
    QStringList shown;
    leave(driver, shown);
    form.SelecFormatConfig.trigger();
    QCOMPARE(shown, dialog);
}

void win_output_format::theConfigurationEntryKnowsNoOtherFormat()
{
    Start start{{"OutPutCut", "Format", "-"}};
    CutterSelect& form = start.load();
    journal().clear();
    form.SelecFormatConfig.trigger();
    QCOMPARE(journal().commands(), QStringList());
    QCOMPARE(start.fixture.setting("OutPutCut", "Format"), QString("-"));
}

QTEST_MAIN(win_output_format)
#include "win_output_format.moc"
