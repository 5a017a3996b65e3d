// The MP3 settings dialog: its rules, its fill, what Apply does by the tab that shows, what is stored.
#include "encoders/EncoderFixtures.h"

class win_mp3_settings : public QObject {
    Q_OBJECT
private slots:
    void okOnThePresetTabWithoutAClickAppliesPhone();
    void okOnTheGeneralTabTakesTabsNeverSeen();
    void aBitrateThatTheTableLacksLeavesTheSlider();
    void theFrameNamesABitrateThatTheTableLacks();
    void switchingTheHighpassOffStoresMinusOne();
    void withoutHighpassTheDisabledBoxShowsThirty();
    void theRowNoneStoresMinusOne();
    void aHighpassWidthOfZeroShowsFive();
    void theFillLeavesAWidthOfZeroInTheObject();
    void applyStoresTheWidthThatShows();
    void aLowpassWidthOfZeroShows760();
    void beforeTheFillTheLowpassWidthIs750();

    void aPresetGoesInAsItsNumber_data();
    void aPresetGoesInAsItsNumber();
    void anAltPresetGoesInAsItsNumber_data();
    void anAltPresetGoesInAsItsNumber();
    void aPresetIsStoredAsItsValues();
    void aPresetShowsInTheControls();
    void theArrowKeysChooseAPreset();
    void theCommandLineGoesInAsItStands();
    void theCommandLineStartsEmpty();
    void anEntryResetsThePresetButNotItsButton();
    void unloadingForgetsTheTab();

    void theWriterGetsTheObject();
    void theFormatLineFollowsApply();
    void the22KeysAreStoredInOrder();
    void booleansAreStoredAsWords();
    void aFormatBitrateOfTheSliderIsStored();
    void monoIsOneChannelAndKeepsTheStereoMode();
    void aStereoModeIsTwoChannels();
    void theQualityIsNotTakenByApply();

    void aMovedQualityIsInTheObjectAtOnce();
    void cancelLeavesWriterAndKeysAlone();
    void cancelDoesNotTakeBackTheQuality();
    void applyStaysInForceAfterCancel();
    void escapeIsCancel();
    void returnIsOk();
    void returnInANumberBoxIsOk();
    void theCloseBoxIsCancel();

    void theBitrateSliderNamesItsBitrate_data();
    void theBitrateSliderNamesItsBitrate();
    void theVbrSliderNamesItsBitrate();
    void thePageKeyMovesTheSliderByTwo();
    void theCodingMethodEnables_data();
    void theCodingMethodEnables();
    void theFilterBoxEnablesItsFields_data();
    void theFilterBoxEnablesItsFields();

    void everyPropertyShows();
    void aRateWithoutARowIsAFault();
    void aMethodWithoutARowIsAFault();
    void theJoinerGetsItsOwnWriterAndText();
    void callerModeTellsTheCaller();
    void theFormatIsStoredAfterTheDialog();
};

using namespace hand;

void win_mp3_settings::okOnThePresetTabWithoutAClickAppliesPhone()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 4);
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.format->commands, QStringList{"ApplyPreset 1"});
}

void win_mp3_settings::okOnTheGeneralTabTakesTabsNeverSeen()
{
    Desk desk;
    desk.format->HighpassWidth = 0;
    desk.format->LowpassWidth = 0;
    desk.openMp3([](frmMP3& dialog) { click(dialog.cmdOk); });
    QCOMPARE(desk.format->HighpassWidth, 5);
    QCOMPARE(desk.format->LowpassWidth, 760);
}

void win_mp3_settings::aBitrateThatTheTableLacksLeavesTheSlider()
{
    Desk desk;
    desk.format->FormatBitrate = 320;
    desk.openMp3([&](frmMP3& dialog) {
        desk.format->FormatBitrate = 40;
        dialog.ShowSettings();
        QCOMPARE(dialog.sldrBitrate.value(), 14);
    });
}

void win_mp3_settings::theFrameNamesABitrateThatTheTableLacks()
{
    Desk desk;
    desk.format->FormatBitrate = 40;
    desk.openMp3(
        [](frmMP3& dialog) { QCOMPARE(dialog.frmBitrate.title(), QString("Current bitrate: 40 kbit")); });
}

void win_mp3_settings::switchingTheHighpassOffStoresMinusOne()
{
    Desk desk;
    desk.format->HighpassFrequency = 200;
    desk.openMp3([](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 1);
        click(dialog.chHFilt);
        click(dialog.cmdApply);
    });
    QCOMPARE(desk.stored("Mp3", "11"), QString("-1"));
}

void win_mp3_settings::withoutHighpassTheDisabledBoxShowsThirty()
{
    Desk desk;
    desk.format->HighpassFrequency = -1;
    desk.openMp3([](frmMP3& dialog) {
        QCOMPARE(dialog.udHFiltF.value(), 30);
        QVERIFY(!dialog.udHFiltF.isEnabled());
    });
}

void win_mp3_settings::theRowNoneStoresMinusOne()
{
    Desk desk;
    desk.format->VbrMethod = 3;
    desk.openMp3([](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 2);
        choose(dialog.cmbVBRCodingMethod, 0);
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.stored("Mp3", "20"), QString("-1"));
}

void win_mp3_settings::aHighpassWidthOfZeroShowsFive()
{
    Desk desk;
    desk.format->HighpassWidth = 0;
    desk.openMp3([](frmMP3& dialog) { QCOMPARE(dialog.udHFiltW.value(), 5); });
}

void win_mp3_settings::theFillLeavesAWidthOfZeroInTheObject()
{
    Desk desk;
    desk.format->HighpassWidth = 0;
    desk.openMp3([](frmMP3& dialog) { click(dialog.cmdCancel); });
    QCOMPARE(desk.format->HighpassWidth, 0);
}

void win_mp3_settings::applyStoresTheWidthThatShows()
{
    Desk desk;
    desk.format->HighpassWidth = 0;
    desk.openMp3([](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 3);
        click(dialog.cmdApply);
    });
    QCOMPARE(desk.stored("Mp3", "12"), QString("5"));
}

void win_mp3_settings::aLowpassWidthOfZeroShows760()
{
    Desk desk;
    desk.format->LowpassWidth = 0;
    desk.openMp3([](frmMP3& dialog) { QCOMPARE(dialog.udLFiltW.value(), 760); });
}

void win_mp3_settings::beforeTheFillTheLowpassWidthIs750()
{
    Desk desk;
    QCOMPARE(Mp3SettingsForm->udLFiltW.value(), 750);
}

void win_mp3_settings::aPresetGoesInAsItsNumber_data()
{
    QTest::addColumn<int>("number");
    for (int i = 1; i <= 11; ++i) QTest::addRow("preset %d", i) << i;
}

void win_mp3_settings::aPresetGoesInAsItsNumber()
{
    QFETCH(int, number);
    Desk desk;
    desk.openMp3([=](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 4);
        click(dialog.opPreset(number));
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.format->commands, QStringList{QString("ApplyPreset %1").arg(number)});
}

void win_mp3_settings::anAltPresetGoesInAsItsNumber_data()
{
    QTest::addColumn<int>("number");
    for (int i = 1; i <= 5; ++i) QTest::addRow("alt-preset %d", i) << i;
}

void win_mp3_settings::anAltPresetGoesInAsItsNumber()
{
    QFETCH(int, number);
    Desk desk;
    desk.openMp3([=](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 5);
        click(dialog.opAltPreset(number));
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.format->commands, QStringList{QString("ApplyAltPreset %1").arg(number)});
}

void win_mp3_settings::aPresetIsStoredAsItsValues()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 4);
        click(dialog.opPreset(9));
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.stored("Mp3", "1"), QString("109"));
    QCOMPARE(desk.stored("Mp3", "3"), QString("160"));
    QCOMPARE(desk.stored("Mp3", "20"), QString("4"));
}

void win_mp3_settings::aPresetShowsInTheControls()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 4);
        click(dialog.opPreset(7));
        click(dialog.cmdApply);
        QCOMPARE(dialog.udAbrBitrate.value(), 107);
        QCOMPARE(dialog.cmbVBRCodingMethod.currentText(), QString("ABR"));
        QVERIFY(dialog.udAbrBitrate.isEnabled());
    });
}

void win_mp3_settings::theArrowKeysChooseAPreset()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 4);
        dialog.opPreset(1).setFocus();
        press(dialog.opPreset(1), Qt::Key_Down);
        QCOMPARE(dialog.Preset, std::int16_t(2));
    });
}

void win_mp3_settings::theCommandLineGoesInAsItStands()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 6);
        QTest::keyClicks(&dialog.txtCommLine, " -V 2  --nores ");
        click(dialog.cmdApply);
        QCOMPARE(dialog.sldrBitrate.value(), 5);
    });
    QCOMPARE(desk.format->commands, QStringList{"SetCommandLine  -V 2  --nores "});
    QCOMPARE(desk.stored("Mp3", "3"), QString("56"));
}

void win_mp3_settings::theCommandLineStartsEmpty()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) { QCOMPARE(dialog.txtCommLine.text(), QString()); });
}

void win_mp3_settings::anEntryResetsThePresetButNotItsButton()
{
    Desk desk;
    Mp3SettingsForm->AppelconvertMain(desk.form);
    click(Mp3SettingsForm->opPreset(5));
    QCOMPARE(Mp3SettingsForm->Preset, std::int16_t(5));
    Mp3SettingsForm->AppelconvertMain(desk.form);
    QCOMPARE(Mp3SettingsForm->Preset, std::int16_t(1));
    QVERIFY(Mp3SettingsForm->opPreset(5).isChecked());
}

void win_mp3_settings::unloadingForgetsTheTab()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 3);
        click(dialog.cmdCancel);
    });
    desk.openMp3([](frmMP3& dialog) { QCOMPARE(dialog.tabMP3.currentIndex(), 0); });
}

void win_mp3_settings::theWriterGetsTheObject()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        move(dialog.sldrBitrate, 12);
        click(dialog.cmdApply);
    });
    QCOMPARE(desk.writer->calls, QStringList{"SetFormatMP3Ex"});
    QCOMPARE(desk.writer->mp3Values.at(2), QString("224"));
}

void win_mp3_settings::theFormatLineFollowsApply()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        move(dialog.sldrBitrate, 0);
        click(dialog.cmdApply);
    });
    QCOMPARE(desk.panel2(), langText(71) + "MP3 8");
}

void win_mp3_settings::the22KeysAreStoredInOrder()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) { click(dialog.cmdOk); });
    QFile file(IniPath);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QStringList keys;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (line.contains('=')) keys << QString::fromUtf8(line.left(line.indexOf('=')).trimmed());
    QStringList expected;
    for (int i = 1; i <= 22; ++i) expected << QString::number(i);
    QCOMPARE(keys, expected);
}

void win_mp3_settings::booleansAreStoredAsWords()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 3);
        click(dialog.chErrorProtection);
        click(dialog.chBitReservoir);
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.stored("Mp3", "9"), QString("True"));
    QCOMPARE(desk.stored("Mp3", "4"), QString("False"));
}

void win_mp3_settings::aFormatBitrateOfTheSliderIsStored()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        move(dialog.sldrBitrate, 4);
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.stored("Mp3", "3"), QString("48"));
}

void win_mp3_settings::monoIsOneChannelAndKeepsTheStereoMode()
{
    Desk desk;
    desk.format->StereoMode = 3;
    desk.openMp3([](frmMP3& dialog) {
        choose(dialog.cmbChMode, 0);
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.format->FormatChannels, 1);
    QCOMPARE(desk.format->StereoMode, 3);
}

void win_mp3_settings::aStereoModeIsTwoChannels()
{
    Desk desk;
    desk.format->FormatChannels = 1;
    desk.openMp3([](frmMP3& dialog) {
        choose(dialog.cmbChMode, 4);
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.format->FormatChannels, 2);
    QCOMPARE(desk.format->StereoMode, 4);
}

void win_mp3_settings::theQualityIsNotTakenByApply()
{
    Desk desk;
    desk.openMp3([&](frmMP3& dialog) {
        desk.format->EncoderQuality = 1; // behind the dialog's back
        click(dialog.cmdApply);
    });
    QCOMPARE(desk.stored("Mp3", "8"), QString("1"));
}

void win_mp3_settings::aMovedQualityIsInTheObjectAtOnce()
{
    Desk desk;
    desk.openMp3([&](frmMP3& dialog) {
        move(dialog.sldrQuality, 9);
        QCOMPARE(desk.format->EncoderQuality, std::int16_t(9));
    });
}

void win_mp3_settings::cancelLeavesWriterAndKeysAlone()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        move(dialog.sldrBitrate, 3);
        click(dialog.cmdCancel);
    });
    QVERIFY(desk.writer->calls.isEmpty());
    QCOMPARE(desk.format->FormatBitrate, 128);
    QVERIFY(!QFile::exists(IniPath));
}

void win_mp3_settings::cancelDoesNotTakeBackTheQuality()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        move(dialog.sldrQuality, 2);
        click(dialog.cmdCancel);
    });
    QCOMPARE(desk.format->EncoderQuality, std::int16_t(2));
}

void win_mp3_settings::applyStaysInForceAfterCancel()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        move(dialog.sldrBitrate, 3);
        click(dialog.cmdApply);
        move(dialog.sldrBitrate, 5);
        click(dialog.cmdCancel);
    });
    QCOMPARE(desk.stored("Mp3", "3"), QString("32"));
    QCOMPARE(desk.format->FormatBitrate, 32);
}

void win_mp3_settings::escapeIsCancel()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        press(dialog, Qt::Key_Escape);
        QVERIFY(!Mp3SettingsForm.loaded());
    });
    QVERIFY(desk.writer->calls.isEmpty());
}

void win_mp3_settings::returnIsOk()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        press(dialog.sldrBitrate, Qt::Key_Return);
        QVERIFY(!Mp3SettingsForm.loaded());
    });
    QCOMPARE(desk.writer->calls, QStringList{"SetFormatMP3Ex"});
}

void win_mp3_settings::returnInANumberBoxIsOk()
{
    Desk desk;
    desk.format->LowpassFrequency = 8000;
    desk.openMp3([](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 1);
        type(dialog.udLFiltF, 12345);
        press(dialog.udLFiltF, Qt::Key_Return);
        QVERIFY(!Mp3SettingsForm.loaded());
    });
    QCOMPARE(desk.stored("Mp3", "13"), QString("12345"));
}

void win_mp3_settings::theCloseBoxIsCancel()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        dialog.close();
        QVERIFY(!Mp3SettingsForm.loaded());
    });
    QVERIFY(desk.writer->calls.isEmpty());
}

void win_mp3_settings::theBitrateSliderNamesItsBitrate_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("kbit");
    const char* const kbits[] = {"8",   "16",  "24",  "32",  "48",  "56",  "64", "96",
                                 "112", "128", "160", "192", "224", "256", "320"};
    for (int i = 0; i < 15; ++i) QTest::addRow("position %d", i) << i << QString(kbits[i]);
}

void win_mp3_settings::theBitrateSliderNamesItsBitrate()
{
    QFETCH(int, position);
    QFETCH(QString, kbit);
    Desk desk;
    desk.format->FormatBitrate = position == 0 ? 320 : 8;
    desk.openMp3([=](frmMP3& dialog) {
        move(dialog.sldrBitrate, position);
        QCOMPARE(dialog.frmBitrate.title(), "Current bitrate: " + kbit + " kbit");
        QCOMPARE(dialog.sldrBitrate.toolTip(), kbit);
    });
}

void win_mp3_settings::theVbrSliderNamesItsBitrate()
{
    Desk desk;
    desk.format->VbrMethod = 0;
    desk.openMp3([](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 2);
        move(dialog.sldrVbrBitrate, 8);
        QCOMPARE(dialog.lblVbrBitrate.text(), QString("Current bitrate: 112 kbit"));
        QCOMPARE(dialog.sldrVbrBitrate.toolTip(), QString("112"));
        QCOMPARE(dialog.frmVbrBitrate.title(), QString("Maximum VBR Bitrate"));
    });
}

void win_mp3_settings::thePageKeyMovesTheSliderByTwo()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        press(dialog.sldrBitrate, Qt::Key_PageUp);
        QCOMPARE(dialog.sldrBitrate.value(), 11);
    });
}

void win_mp3_settings::theCodingMethodEnables_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("quality");
    QTest::addColumn<bool>("target");
    QTest::addColumn<bool>("rest");
    QTest::addRow("None disables all") << 0 << false << false << false;
    QTest::addRow("Default has a quality") << 1 << true << false << true;
    QTest::addRow("Old has a quality") << 2 << true << false << true;
    QTest::addRow("New has a quality") << 3 << true << false << true;
    QTest::addRow("MTRH has a quality") << 4 << true << false << true;
    QTest::addRow("ABR has a target") << 5 << false << true << true;
}

void win_mp3_settings::theCodingMethodEnables()
{
    QFETCH(int, row);
    QFETCH(bool, quality);
    QFETCH(bool, target);
    QFETCH(bool, rest);
    Desk desk;
    desk.openMp3([=](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 2);
        choose(dialog.cmbVBRCodingMethod, row == 5 ? 0 : 5); // from the opposite
        choose(dialog.cmbVBRCodingMethod, row);
        for (QWidget* control : std::initializer_list<QWidget*>{&dialog.lblVbrQuality, &dialog.udVbrQuality,
                                                                &dialog.udVbrQuality.text()})
            QCOMPARE(control->isEnabled(), quality);
        for (QWidget* control : std::initializer_list<QWidget*>{&dialog.lblAbrBitrate, &dialog.udAbrBitrate,
                                                                &dialog.udAbrBitrate.text()})
            QCOMPARE(control->isEnabled(), target);
        for (QWidget* control : std::initializer_list<QWidget*>{
                 &dialog.frmVbrBitrate, &dialog.frmVbrAdvanced, &dialog.lblVbrBitrate, &dialog.sldrVbrBitrate,
                 &dialog.chWriteVBRHeader, &dialog.chStrictlyEnforceMinBitrate})
            QCOMPARE(control->isEnabled(), rest);
    });
}

void win_mp3_settings::theFilterBoxEnablesItsFields_data()
{
    QTest::addColumn<bool>("isHighpass");
    QTest::addColumn<bool>("isOn");
    QTest::addRow("highpass on") << true << true;
    QTest::addRow("highpass off") << true << false;
    QTest::addRow("lowpass on") << false << true;
    QTest::addRow("lowpass off") << false << false;
}

void win_mp3_settings::theFilterBoxEnablesItsFields()
{
    QFETCH(bool, isHighpass);
    QFETCH(bool, isOn);
    Desk desk;
    desk.format->HighpassFrequency = desk.format->LowpassFrequency = isOn ? -1 : 500;
    desk.openMp3([=](frmMP3& d) {
        chooseTab(d.tabMP3, 1);
        click(isHighpass ? d.chHFilt : d.chLFilt);
        const std::vector<QWidget*> high = {&d.udHFiltF, &d.udHFiltF.text(), &d.udHFiltW, &d.udHFiltW.text(),
                                            &d.lblHFiltW};
        const std::vector<QWidget*> low = {&d.udLFiltF, &d.udLFiltF.text(), &d.udLFiltW, &d.udLFiltW.text(),
                                           &d.lblLFiltW};
        for (QWidget* control : isHighpass ? high : low) QCOMPARE(control->isEnabled(), isOn);
        for (QWidget* control : isHighpass ? low : high) QCOMPARE(control->isEnabled(), !isOn);
    });
}

// Stored as it shows, each property comes back unchanged, so each has its control.
void win_mp3_settings::everyPropertyShows()
{
    Desk desk;
    const char* const texts[] = {"200",  "3",     "224", "False", "True", "2",    "2",     "8",
                                 "True", "32000", "440", "50",    "9000", "70",   "False", "True",
                                 "True", "4",     "256", "4",     "7",    "False"};
    for (std::size_t i = 0; i < 22; ++i) setFromText(*desk.format, mp3Keys[i].property, texts[i]);
    desk.openMp3([](frmMP3& dialog) { click(dialog.cmdOk); });
    for (std::size_t i = 0; i < 22; ++i) QCOMPARE(desk.stored("Mp3", mp3Keys[i].key), QString(texts[i]));
}

void win_mp3_settings::aRateWithoutARowIsAFault()
{
    Desk desk;
    desk.format->FormatRate = 96000;
    QVERIFY_THROWS_EXCEPTION(ConversionError, Mp3SettingsForm->AppelconvertMain(desk.form));
}

void win_mp3_settings::aMethodWithoutARowIsAFault()
{
    Desk desk;
    desk.format->VbrMethod = 5;
    QVERIFY_THROWS_EXCEPTION(ConversionError, Mp3SettingsForm->AppelconvertMain(desk.form));
}

void win_mp3_settings::theJoinerGetsItsOwnWriterAndText()
{
    Desk desk;
    RecordingFile joinerWriter;
    RecordingFormat joinerFormat;
    QString shown;
    Mp3SettingsForm->AppelJoiner(joinerFormat,
                                 {&desk.form, joinerWriter, [&](const QString& text) { shown = text; }});
    move(Mp3SettingsForm->sldrBitrate, 14);
    click(Mp3SettingsForm->cmdApply);
    QCOMPARE(joinerWriter.calls, QStringList{"SetFormatMP3Ex"});
    QCOMPARE(shown, QString("MP3 320"));
    QVERIFY(desk.writer->calls.isEmpty());
    QCOMPARE(desk.format->FormatBitrate, 128);
    QCOMPARE(desk.stored("Mp3", "3"), QString("320"));
}

void win_mp3_settings::callerModeTellsTheCaller()
{
    Desk desk;
    Mp3SettingsForm->AppelconvertMain(desk.form);
    QCOMPARE(Mp3SettingsForm->CallerMode, 3);
    Mp3SettingsForm->AppelJoiner(*desk.format, {&desk.form, *desk.writer, [](const QString&) {}});
    QCOMPARE(Mp3SettingsForm->CallerMode, 4);
}

void win_mp3_settings::theFormatIsStoredAfterTheDialog()
{
    Desk desk;
    desk.open([](CutterSelect& form) { form.Image6_Click(1); }, Mp3SettingsForm,
              [&](frmMP3& dialog) {
                  desk.store("OutPutCut", "Format", "WAV");
                  click(dialog.cmdCancel);
              });
    QCOMPARE(desk.stored("OutPutCut", "Format"), QString("MP3"));
}

QTEST_MAIN(win_mp3_settings)
#include "win_mp3_settings.moc"
