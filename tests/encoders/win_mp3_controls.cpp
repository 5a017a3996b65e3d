// The controls of the MP3 settings dialog: the fill from the object, what a move or a click does, what it
// enables.
#include "encoders/EncoderFixtures.h"

#include <QToolTip>

class win_mp3_controls : public QObject {
    Q_OBJECT
private slots:
    void aBitrateThatTheTableLacksLeavesTheSlider();
    void theFrameNamesABitrateThatTheTableLacks();
    void withoutHighpassTheDisabledBoxShowsThirty();
    void aHighpassWidthOfZeroShowsFive();
    void theFillLeavesAWidthOfZeroInTheObject();
    void aLowpassWidthOfZeroShows760();
    void beforeTheFillTheLowpassWidthIs750();
    void theArrowKeysChooseAPreset();
    void theCommandLineStartsEmpty();
    void anEntryResetsThePresetButNotItsButton();
    void aMovedQualityIsInTheObjectAtOnce();
    void theBitrateSliderNamesItsBitrate_data();
    void theBitrateSliderNamesItsBitrate();
    void theVbrSliderNamesItsBitrate();
    void theNumberPopsUpWhileTheKnobIsDragged();
    void aPageKeyMovesTheSliderByTwo_data();
    void aPageKeyMovesTheSliderByTwo();
    void theCodingMethodEnables_data();
    void theCodingMethodEnables();
    void theFilterBoxEnablesItsFields_data();
    void theFilterBoxEnablesItsFields();
    void everyPropertyShows();
    void aRateWithoutARowIsAFault();
    void aMethodWithoutARowIsAFault();
    void callerModeTellsTheCaller();
};

using namespace hand;

void win_mp3_controls::aBitrateThatTheTableLacksLeavesTheSlider()
{
    Desk desk;
    desk.format->FormatBitrate = 320;
    desk.openMp3([&](frmMP3& dialog) {
        desk.format->FormatBitrate = 40;
        dialog.ShowSettings();
        QCOMPARE(dialog.sldrBitrate.value(), 14);
    });
}

void win_mp3_controls::theFrameNamesABitrateThatTheTableLacks()
{
    Desk desk;
    desk.format->FormatBitrate = 40;
    desk.openMp3(
        [](frmMP3& dialog) { QCOMPARE(dialog.frmBitrate.title(), QString("Current bitrate: 40 kbit")); });
}

void win_mp3_controls::withoutHighpassTheDisabledBoxShowsThirty()
{
    Desk desk;
    desk.format->HighpassFrequency = -1;
    desk.openMp3([](frmMP3& dialog) {
        QCOMPARE(dialog.udHFiltF.value(), 30);
        QVERIFY(!dialog.udHFiltF.isEnabled());
    });
}

void win_mp3_controls::aHighpassWidthOfZeroShowsFive()
{
    Desk desk;
    desk.format->HighpassWidth = 0;
    desk.openMp3([](frmMP3& dialog) { QCOMPARE(dialog.udHFiltW.value(), 5); });
}

void win_mp3_controls::theFillLeavesAWidthOfZeroInTheObject()
{
    Desk desk;
    desk.format->HighpassWidth = 0;
    desk.openMp3([](frmMP3& dialog) { click(dialog.cmdCancel); });
    QCOMPARE(desk.format->HighpassWidth, 0);
}

void win_mp3_controls::aLowpassWidthOfZeroShows760()
{
    Desk desk;
    desk.format->LowpassWidth = 0;
    desk.openMp3([](frmMP3& dialog) { QCOMPARE(dialog.udLFiltW.value(), 760); });
}

void win_mp3_controls::beforeTheFillTheLowpassWidthIs750()
{
    Desk desk;
    QCOMPARE(Mp3SettingsForm->udLFiltW.value(), 750);
}

void win_mp3_controls::theArrowKeysChooseAPreset()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 4);
        dialog.opPreset(1).setFocus();
        press(dialog.opPreset(1), Qt::Key_Down);
        QCOMPARE(dialog.Preset, std::int16_t(2));
    });
}

void win_mp3_controls::theCommandLineStartsEmpty()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) { QCOMPARE(dialog.txtCommLine.text(), QString()); });
}

void win_mp3_controls::anEntryResetsThePresetButNotItsButton()
{
    Desk desk;
    Mp3SettingsForm->AppelconvertMain(desk.form);
    click(Mp3SettingsForm->opPreset(5));
    QCOMPARE(Mp3SettingsForm->Preset, std::int16_t(5));
    Mp3SettingsForm->AppelconvertMain(desk.form);
    QCOMPARE(Mp3SettingsForm->Preset, std::int16_t(1));
    QVERIFY(Mp3SettingsForm->opPreset(5).isChecked());
}

void win_mp3_controls::aMovedQualityIsInTheObjectAtOnce()
{
    Desk desk;
    desk.openMp3([&](frmMP3& dialog) {
        move(dialog.sldrQuality, 9);
        QCOMPARE(desk.format->EncoderQuality, std::int16_t(9));
    });
}

void win_mp3_controls::theBitrateSliderNamesItsBitrate_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("kbit");
    const char* const kbits[] = {"8",   "16",  "24",  "32",  "48",  "56",  "64", "96",
                                 "112", "128", "160", "192", "224", "256", "320"};
    for (int i = 0; i < 15; ++i) QTest::addRow("position %d", i) << i << QString(kbits[i]);
}

void win_mp3_controls::theBitrateSliderNamesItsBitrate()
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

void win_mp3_controls::theVbrSliderNamesItsBitrate()
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

void win_mp3_controls::theNumberPopsUpWhileTheKnobIsDragged()
{
    Desk desk;
    desk.format->FormatBitrate = 8;
    desk.openMp3([](frmMP3& dialog) {
        SettingsSlider& slider = dialog.sldrBitrate;
        const int middle = slider.height() / 2 - 3;
        QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(7, middle));
        QTest::mouseMove(&slider, QPoint(slider.width() - 3, middle));
        QCOMPARE(dialog.frmBitrate.title(), QString("Current bitrate: 320 kbit"));
        QCOMPARE(QToolTip::text(), QString("320"));
        QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(slider.width() - 3, middle));
    });
}

void win_mp3_controls::aPageKeyMovesTheSliderByTwo_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("tab");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("position");    // from 4 on
    QTest::addRow("up with the bitrate") << "sldrBitrate" << 0 << Qt::Key_PageUp << 6;
    QTest::addRow("down with the bitrate") << "sldrBitrate" << 0 << Qt::Key_PageDown << 2;
    QTest::addRow("up with the quality") << "sldrQuality" << 0 << Qt::Key_PageUp << 6;
    QTest::addRow("down with the quality") << "sldrQuality" << 0 << Qt::Key_PageDown << 2;
    QTest::addRow("up with the maximum") << "sldrVbrBitrate" << 2 << Qt::Key_PageUp << 6;
    QTest::addRow("down with the maximum") << "sldrVbrBitrate" << 2 << Qt::Key_PageDown << 2;
}

void win_mp3_controls::aPageKeyMovesTheSliderByTwo()
{
    QFETCH(QString, name);
    QFETCH(int, tab);
    QFETCH(Qt::Key, key);
    QFETCH(int, position);
    Desk desk;
    desk.format->VbrMethod = 0;
    desk.openMp3([=](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, tab);
        auto* slider = dialog.findChild<QSlider*>(name);
        move(*slider, 4);
        press(*slider, key);
        QCOMPARE(slider->value(), position);
    });
}

void win_mp3_controls::theCodingMethodEnables_data()
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

void win_mp3_controls::theCodingMethodEnables()
{
    QFETCH(int, row);
    QFETCH(bool, quality);
    QFETCH(bool, target);
    QFETCH(bool, rest);
    Desk desk;
    desk.openMp3([=](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 2);
        choose(dialog.cmbVBRCodingMethod, row == 5 ? 0 : 5);    // from the opposite
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

void win_mp3_controls::theFilterBoxEnablesItsFields_data()
{
    QTest::addColumn<bool>("isHighpass");
    QTest::addColumn<bool>("isOn");
    QTest::addRow("highpass on") << true << true;
    QTest::addRow("highpass off") << true << false;
    QTest::addRow("lowpass on") << false << true;
    QTest::addRow("lowpass off") << false << false;
}

void win_mp3_controls::theFilterBoxEnablesItsFields()
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
void win_mp3_controls::everyPropertyShows()
{
    Desk desk;
    const char* const texts[] = {"200",  "3",     "224", "False", "True", "2",    "2",     "8",
                                 "True", "32000", "440", "50",    "9000", "70",   "False", "True",
                                 "True", "4",     "256", "4",     "7",    "False"};
    for (std::size_t i = 0; i < 22; ++i) setFromText(*desk.format, mp3Keys[i].property, texts[i]);
    desk.openMp3([](frmMP3& dialog) { click(dialog.cmdOk); });
    for (std::size_t i = 0; i < 22; ++i) QCOMPARE(desk.stored("Mp3", mp3Keys[i].key), QString(texts[i]));
}

void win_mp3_controls::aRateWithoutARowIsAFault()
{
    Desk desk;
    desk.format->FormatRate = 96000;
    QVERIFY_THROWS_EXCEPTION(ConversionError, Mp3SettingsForm->AppelconvertMain(desk.form));
}

void win_mp3_controls::aMethodWithoutARowIsAFault()
{
    Desk desk;
    desk.format->VbrMethod = 5;
    QVERIFY_THROWS_EXCEPTION(ConversionError, Mp3SettingsForm->AppelconvertMain(desk.form));
}

void win_mp3_controls::callerModeTellsTheCaller()
{
    Desk desk;
    Mp3SettingsForm->AppelconvertMain(desk.form);
    QCOMPARE(Mp3SettingsForm->CallerMode, 3);
    Mp3SettingsForm->AppelJoiner(*desk.format, {&desk.form, *desk.writer, [](const QString&) {}});
    QCOMPARE(Mp3SettingsForm->CallerMode, 4);
}

QTEST_MAIN(win_mp3_controls)
#include "win_mp3_controls.moc"
