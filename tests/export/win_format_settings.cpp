// What the pictures beside the formats read and leave behind, and formats that are switched off.
#include "export/Selecting.h"

class win_format_settings : public QObject {
    Q_OBJECT
private slots:
    void aPictureReadsTheStoredSettingsAgain();
    void aMovedQualityThatWasCancelledIsGoneAtTheNextPress();
    void aPictureLeavesTheWriterInItsFormatAfterAnOpen_data();
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

void win_format_settings::aMovedQualityThatWasCancelledIsGoneAtTheNextPress()
{
    Start start{{"OutPutCut", "Format", "MP3"}, {"Mp3", "8", "3"}};
    CutterSelect& form = start.load();
    press(form.Image24, form.Image24.rect().center());
    DialogDriver driver;
    QList<int> shown;
    for (int visit = 0; visit < 2; ++visit) {
        driver.expect([&shown](QDialog& dialog) {
            auto* slider = dialog.findChild<QSlider*>("sldrQuality");
            shown << slider->value();
            QTest::keyClick(slider, Qt::Key_End);
            QTest::mouseClick(dialog.findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
            return true;
        });
        press(form.Image6[1], form.Image6[1].rect().center());
        QCOMPARE(form.MP3LameEncoderMain->EncoderQuality, std::int16_t{9});
    }
    QCOMPARE(shown, (QList<int>{3, 3}));
}

void win_format_settings::aPictureLeavesTheWriterInItsFormatAfterAnOpen_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("picture");
    QTest::addColumn<QStringList>("calls");    // of the press and of the dialog
    QTest::addRow("WAV, which has no dialog") << "WAV" << 0 << pcm;
    QTest::addRow("MP3") << "MP3" << 1 << mp3Once + mp3Once;
    QTest::addRow("Ogg Vorbis") << "OGG" << 2 << ogg;
    QTest::addRow("WMA") << "WMA" << 3 << wma + wma;
}

// An open leaves the writer with the format of the work file, and the button of the selected format on.
void win_format_settings::aPictureLeavesTheWriterInItsFormatAfterAnOpen()
{
    QFETCH(QString, format);
    QFETCH(int, picture);
    QFETCH(QStringList, calls);
    Start start{{"WMA", "WMASUPPORT", "True"}};
    start.fixture.writeSetting("OutPutCut", "Format", format);
    CutterSelect& form = start.fixture.open(fakeSound(testRate));
    QCOMPARE(optionOf(form), picture);
    journal().clear();
    DialogDriver driver;
    QStringList shown;
    if (picture != 0) leave(driver, shown);
    form.Image6_Click(picture);
    QCOMPARE(shown.size(), picture == 0 ? 0 : 1);
    QCOMPARE(start.writer(), calls);
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
    start.shown.clear();
    leave(start.driver, start.shown);    // should one come up all the same
    form.SelecFormatConfig.trigger();
    QCOMPARE(start.shown, QStringList());
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
    QCOMPARE(start.writer(), mp3Once);
    QCOMPARE(start.fixture.setting("WMA", "WMASUPPORT"), QString("False"));
}

QTEST_MAIN(win_format_settings)
#include "win_format_settings.moc"
