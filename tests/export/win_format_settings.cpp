// What the pictures beside the formats read and leave behind, and formats that are switched off.
#include "export/Selecting.h"

class win_format_settings : public QObject {
    Q_OBJECT
private slots:
    void aPictureReadsTheStoredSettingsAgain();
    void aPictureLeavesTheWriterInItsFormatAfterAnOpen();
    void aFormatThatIsOffHasNoSettingsToReach_data();
    void aFormatThatIsOffHasNoSettingsToReach();
    void aFirstStartHasTheWmaChoicesOff();
    void wmaThatIsStoredWithoutItsSwitchCountsAsOff();
};

// What a cancelled dialog left in the object is gone when the picture is pressed again.
void win_format_settings::aPictureReadsTheStoredSettingsAgain()
{
    Start start{{"OutPutCut", "Format", "MP3"}, {"Mp3", "3", "64"}};
    CutterSelect& form = start.load();
    form.MP3LameEncoderMain->FormatBitrate = 320;
    DialogDriver driver;
    QStringList shown;
    leave(driver, shown);
    form.Image6_Click(1);
    QCOMPARE(shown, QStringList{"frmMP3"});
    QCOMPARE(form.MP3LameEncoderMain->FormatBitrate, 64);
}

void win_format_settings::aPictureLeavesTheWriterInItsFormatAfterAnOpen()
{
    Start start{{"OutPutCut", "Format", "OGG"}};
    start.load();
    CutterSelect& form = start.fixture.open(fakeSound(testRate));
    DialogDriver driver;
    QStringList shown;
    leave(driver, shown);
    form.Image6_Click(2);
    QCOMPARE(shown, QStringList{"frmOgg"});
    QVERIFY(start.writer().last().startsWith("FileWenc.SetFormatOggVorbis"));
}

void win_format_settings::aFormatThatIsOffHasNoSettingsToReach_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addRow("WMA that is switched off") << "WMA";
    QTest::addRow("MP3 without the library") << "MP3";
}

void win_format_settings::aFormatThatIsOffHasNoSettingsToReach()
{
    QFETCH(QString, stored);
    WithoutLibrary start;
    start.fixture.writeSetting("OutPutCut", "Format", stored);
    CutterSelect& form = start.load();
    form.RestoreOutputFormat();
    QCOMPARE(form.OUTPUTFORMAT, stored);
    journal().clear();
    form.SelecFormatConfig.trigger();
    QCOMPARE(journal().commands(), QStringList());
    QCOMPARE(start.fixture.setting("OutPutCut", "Format"), stored);
}

static QList<bool> wmaChoices(const CutterSelect& form)
{
    return {form.Option1[3].isEnabled(), form.Image6[3].isEnabled(), form.SavePartWMA.isVisible(),
            form.SelecWma.isVisible()};
}

void win_format_settings::aFirstStartHasTheWmaChoicesOff()
{
    Start start;
    QCOMPARE(wmaChoices(start.load()), (QList<bool>{false, false, false, false}));
}

void win_format_settings::wmaThatIsStoredWithoutItsSwitchCountsAsOff()
{
    Start start{{"OutPutCut", "Format", "WMA"}};
    CutterSelect& form = start.load();
    QCOMPARE(wmaChoices(form), (QList<bool>{false, false, false, false}));
    QCOMPARE(optionOf(form), 1);
    QCOMPARE(form.OUTPUTFORMAT, QString("WMA"));
    QCOMPARE(start.fixture.setting("WMA", "WMASUPPORT"), QString("False"));
}

QTEST_MAIN(win_format_settings)
#include "win_format_settings.moc"
