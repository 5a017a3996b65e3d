// The ways out of the MP3 settings dialog: Ok, Cancel, the keys, the close box.
#include "encoders/EncoderFixtures.h"

class win_mp3_ways_out : public QObject {
    Q_OBJECT
private slots:
    void unloadingForgetsTheTab();
    void cancelLeavesWriterAndKeysAlone();
    void cancelDoesNotTakeBackTheQuality();
    void applyStaysInForceAfterCancel();
    void escapeIsCancel();
    void returnIsOk();
    void returnInANumberBoxIsOk();
    void theCloseBoxIsCancel();
    void theFormatIsStoredAfterTheDialog();
};

using namespace hand;

void win_mp3_ways_out::unloadingForgetsTheTab()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        chooseTab(dialog.tabMP3, 3);
        click(dialog.cmdCancel);
    });
    desk.openMp3([](frmMP3& dialog) { QCOMPARE(dialog.tabMP3.currentIndex(), 0); });
}

void win_mp3_ways_out::cancelLeavesWriterAndKeysAlone()
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

void win_mp3_ways_out::cancelDoesNotTakeBackTheQuality()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        move(dialog.sldrQuality, 2);
        click(dialog.cmdCancel);
    });
    QCOMPARE(desk.format->EncoderQuality, std::int16_t(2));
}

void win_mp3_ways_out::applyStaysInForceAfterCancel()
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

void win_mp3_ways_out::escapeIsCancel()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        press(dialog, Qt::Key_Escape);
        QVERIFY(!Mp3SettingsForm.loaded());
    });
    QVERIFY(desk.writer->calls.isEmpty());
}

void win_mp3_ways_out::returnIsOk()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        press(dialog.sldrBitrate, Qt::Key_Return);
        QVERIFY(!Mp3SettingsForm.loaded());
    });
    QCOMPARE(desk.writer->calls, QStringList{"SetFormatMP3Ex"});
}

void win_mp3_ways_out::returnInANumberBoxIsOk()
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

void win_mp3_ways_out::theCloseBoxIsCancel()
{
    Desk desk;
    desk.openMp3([](frmMP3& dialog) {
        dialog.close();
        QVERIFY(!Mp3SettingsForm.loaded());
    });
    QVERIFY(desk.writer->calls.isEmpty());
}

void win_mp3_ways_out::theFormatIsStoredAfterTheDialog()
{
    Desk desk;
    desk.open([](CutterSelect& form) { form.Image6_Click(1); }, Mp3SettingsForm,
              [&](frmMP3& dialog) {
                  desk.store("OutPutCut", "Format", "WAV");
                  click(dialog.cmdCancel);
              });
    QCOMPARE(desk.stored("OutPutCut", "Format"), QString("MP3"));
}

QTEST_MAIN(win_mp3_ways_out)
#include "win_mp3_ways_out.moc"
