// The WMA settings dialog: the profile that shows, and what each step does at once.
#include "encoders/EncoderFixtures.h"

class win_wma_settings : public QObject {
    Q_OBJECT
private slots:
    void withoutAKeyProfile39ShowsAndNothingIsWritten();
    void aStoredNumberShows();
    void openingSetsTheDefaultFirst();
    void aStoredNumberAboveTheCountIsClipped();
    void aStoredWordIsPassedOver();
    void theEngineSaysHowManyProfilesThereAre();
    void aStepTakesEffectAtOnce();
    void aStepThatTheEngineRefusesShowsWhatTheWriterHolds();
    void theCloseBoxKeepsTheLastProfile();
    void okShowsTheFormatLine();
    void returnIsOk();
    void theNumberCanBeTyped();
    void theDescriptionIsReadOnly();
};

using namespace hand;

void win_wma_settings::withoutAKeyProfile39ShowsAndNothingIsWritten()
{
    Desk desk;
    desk.openWma([](frmWMA& dialog) {
        QCOMPARE(dialog.udWMAProfile.text().text(), QString("39"));
        QCOMPARE(dialog.txtWMAFormatString.text(), QString("WMA 39"));
        click(dialog.cmdOk);
    });
    QVERIFY(!QFile::exists(IniPath));
}

void win_wma_settings::aStoredNumberShows()
{
    Desk desk;
    desk.store("WMA", "Num", "12");
    desk.openWma([](frmWMA& dialog) {
        QCOMPARE(dialog.udWMAProfile.value(), 12);
        QCOMPARE(dialog.txtWMAFormatString.text(), QString("WMA 12"));
    });
}

void win_wma_settings::openingSetsTheDefaultFirst()
{
    Desk desk;
    desk.store("WMA", "Num", "12");
    desk.openWma([](frmWMA&) {});
    QCOMPARE(desk.writer->calls, (QStringList{"SetFormatWMA 39", "SetFormatWMA 12"}));
}

void win_wma_settings::aStoredNumberAboveTheCountIsClipped()
{
    Desk desk;
    desk.store("WMA", "Num", "60");
    desk.openWma([](frmWMA& dialog) {
        QCOMPARE(dialog.udWMAProfile.value(), 51);
        QCOMPARE(dialog.txtWMAFormatString.text(), QString("WMA 51"));
    });
    QCOMPARE(desk.stored("WMA", "Num"), QString("60"));
}

void win_wma_settings::aStoredWordIsPassedOver()
{
    Desk desk;
    desk.store("WMA", "Num", "best");
    desk.openWma([](frmWMA& dialog) { QCOMPARE(dialog.udWMAProfile.value(), 39); });
}

void win_wma_settings::theEngineSaysHowManyProfilesThereAre()
{
    Desk desk;
    desk.writer->profiles = 45;
    desk.openWma([](frmWMA& dialog) {
        press(dialog.udWMAProfile, Qt::Key_Up, 10);
        QCOMPARE(dialog.udWMAProfile.value(), 45);
    });
}

void win_wma_settings::aStepTakesEffectAtOnce()
{
    Desk desk;
    desk.openWma([&](frmWMA& dialog) {
        press(dialog.udWMAProfile, Qt::Key_Up);
        QCOMPARE(desk.writer->calls.last(), QString("SetFormatWMA 40"));
        QCOMPARE(dialog.txtWMAFormatString.text(), QString("WMA 40"));
        QCOMPARE(desk.panel2(), langText(71) + "WMA 40");
        QCOMPARE(desk.stored("WMA", "Num"), QString("40"));
    });
}

void win_wma_settings::aStepThatTheEngineRefusesShowsWhatTheWriterHolds()
{
    Desk desk;
    desk.openWma([&](frmWMA& dialog) {
        desk.writer->profiles = 39;
        press(dialog.udWMAProfile, Qt::Key_Up);
        QCOMPARE(dialog.txtWMAFormatString.text(), QString("WMA 39"));
        QCOMPARE(desk.stored("WMA", "Num"), QString("40"));
    });
}

void win_wma_settings::theCloseBoxKeepsTheLastProfile()
{
    Desk desk;
    desk.openWma([](frmWMA& dialog) {
        press(dialog.udWMAProfile, Qt::Key_Down);
        dialog.close();
        QVERIFY(!WmaSettingsForm.loaded());
    });
    QCOMPARE(desk.stored("WMA", "Num"), QString("38"));
    desk.openWma([](frmWMA& dialog) { QCOMPARE(dialog.udWMAProfile.value(), 38); });
}

void win_wma_settings::okShowsTheFormatLine()
{
    Desk desk;
    desk.openWma([](frmWMA& dialog) { click(dialog.cmdOk); });
    QCOMPARE(desk.panel2(), langText(71) + "WMA 39");
}

void win_wma_settings::returnIsOk()
{
    Desk desk;
    desk.openWma([](frmWMA& dialog) {
        press(dialog.udWMAProfile, Qt::Key_Return);
        QVERIFY(!WmaSettingsForm.loaded());
    });
    QCOMPARE(desk.panel2(), langText(71) + "WMA 39");
}

void win_wma_settings::theNumberCanBeTyped()
{
    Desk desk;
    desk.openWma([](frmWMA& dialog) { type(dialog.udWMAProfile, 27); });
    QCOMPARE(desk.stored("WMA", "Num"), QString("27"));
}

void win_wma_settings::theDescriptionIsReadOnly()
{
    Desk desk;
    desk.openWma([](frmWMA& dialog) {
        QTest::keyClicks(&dialog.txtWMAFormatString, "x");
        QCOMPARE(dialog.txtWMAFormatString.text(), QString("WMA 39"));
    });
}

QTEST_MAIN(win_wma_settings)
#include "win_wma_settings.moc"
