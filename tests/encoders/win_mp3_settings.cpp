// The MP3 settings dialog: what Apply does by the tab that shows, and what is stored.
#include "encoders/EncoderFixtures.h"

class win_mp3_settings : public QObject {
    Q_OBJECT
private slots:
    void okOnThePresetTabWithoutAClickAppliesPhone();
    void okOnTheGeneralTabTakesTabsNeverSeen();
    void switchingTheHighpassOffStoresMinusOne();
    void theRowNoneStoresMinusOne();
    void applyStoresTheWidthThatShows();

    void aPresetGoesInAsItsNumber_data();
    void aPresetGoesInAsItsNumber();
    void anAltPresetGoesInAsItsNumber_data();
    void anAltPresetGoesInAsItsNumber();
    void aPresetIsStoredAsItsValues();
    void aPresetShowsInTheControls();
    void theCommandLineGoesInAsItStands();

    void theWriterGetsTheObject();
    void theFormatLineFollowsApply();
    void the22KeysAreStoredInOrder();
    void booleansAreStoredAsWords();
    void aFormatBitrateOfTheSliderIsStored();
    void monoIsOneChannelAndKeepsTheStereoMode();
    void aStereoModeIsTwoChannels();
    void theQualityIsNotTakenByApply();

    void theJoinerGetsItsOwnWriterAndText();
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
        desk.format->EncoderQuality = 1;    // behind the dialog's back
        click(dialog.cmdApply);
    });
    QCOMPARE(desk.stored("Mp3", "8"), QString("1"));
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

QTEST_MAIN(win_mp3_settings)
#include "win_mp3_settings.moc"
