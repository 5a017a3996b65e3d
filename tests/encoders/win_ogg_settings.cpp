// The Ogg Vorbis settings dialog: what Apply stores and asks of the writer, refusals, and the ways out.
#include "encoders/EncoderFixtures.h"

class win_ogg_settings : public QObject {
    Q_OBJECT
private slots:
    void okWithNothingChangedStoresTheDefaults();
    void okWithNothingChangedSets128();
    void qualityGoesInWithoutACheck();
    void aRefusalShowsAMessageAndStaysUp();
    void aRefusalLeavesTheWriterAndStoresTheKeys();
    void aRefusalLeavesTheFormatLine();

    void theMinimumIsWhatStaysInKeySix();
    void theMinimumOfARunIsTheConstantBitrateOfTheNextSetUp();
    void vbrIsCheckedAndSetWithItsLimits();
    void aBitrateAloneHasNoLimits();
    void qualityWinsOverVbr();
    void theFormatLineFollowsApply();
    void monoIsOneChannel();
    void theRateOfTheRowIsStored();

    void cancelDoesNothing();
    void escapeIsCancel();
    void returnIsOk();
    void applyStaysUp();
    void theJoinerGetsItsOwnWriterAndText();
};

using namespace hand;

namespace {

QStringList storedKeys(const Desk& desk)
{
    QStringList values;
    for (int key = 1; key <= 7; ++key) values << desk.stored("OGG", QString::number(key));
    return values;
}

}

void win_ogg_settings::okWithNothingChangedStoresTheDefaults()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) { click(dialog.cmdOk); });
    QCOMPARE(storedKeys(desk), (QStringList{"0", "0", "44100", "2", "300", "128", "128"}));
}

void win_ogg_settings::okWithNothingChangedSets128()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) { click(dialog.cmdOk); });
    QCOMPARE(desk.writer->calls, (QStringList{"IsFormatOggVorbisAvailable 44100 2 128 0 0",
                                              "SetFormatOggVorbis 44100 2 128 0 0 -1"}));
}

void win_ogg_settings::qualityGoesInWithoutACheck()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        move(dialog.sldrBitrate, 14);
        click(dialog.chQuality);
        move(dialog.sldrQuality, 310);
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.writer->calls, QStringList{"SetFormatOggVorbis 44100 2 128 0 0 310"});
    QCOMPARE(storedKeys(desk), (QStringList{"1", "0", "44100", "2", "310", "128", "128"}));
}

void win_ogg_settings::aRefusalShowsAMessageAndStaysUp()
{
    Desk desk;
    desk.writer->accepts = false;
    desk.openOgg([](frmOgg& dialog) {
        click(dialog.cmdOk);
        QVERIFY(dialog.isVisible());
    });
    QCOMPARE(desk.host.messages, QStringList{"Quillon|Incorrect format|critical"});
}

void win_ogg_settings::aRefusalLeavesTheWriterAndStoresTheKeys()
{
    Desk desk;
    desk.writer->accepts = false;
    desk.openOgg([](frmOgg& dialog) {
        move(dialog.sldrBitrate, 0);
        click(dialog.cmdApply);
    });
    QCOMPARE(desk.writer->calls, QStringList{"IsFormatOggVorbisAvailable 44100 2 8 0 0"});
    QCOMPARE(storedKeys(desk), (QStringList{"0", "0", "44100", "2", "300", "128", "128"}));
}

void win_ogg_settings::aRefusalLeavesTheFormatLine()
{
    Desk desk;
    desk.form.StatusBar1.Panels(2).setText("untouched");
    desk.writer->accepts = false;
    desk.openOgg([](frmOgg& dialog) { click(dialog.cmdApply); });
    QCOMPARE(desk.panel2(), QString("untouched"));
}

void win_ogg_settings::theMinimumIsWhatStaysInKeySix()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        click(dialog.chVbr);
        move(dialog.sldrBitrate, 11);
        move(dialog.sldrMinBitrate, 7);
        move(dialog.sldrMaxBitrate, 13);
        click(dialog.cmdOk);
    });
    QCOMPARE(storedKeys(desk), (QStringList{"0", "1", "44100", "2", "300", "96", "256"}));
}

void win_ogg_settings::theMinimumOfARunIsTheConstantBitrateOfTheNextSetUp()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        click(dialog.chVbr);
        move(dialog.sldrBitrate, 9);
        move(dialog.sldrMinBitrate, 7);
        click(dialog.chVbr);
        click(dialog.cmdOk);
    });
    QCOMPARE(storedKeys(desk), (QStringList{"0", "0", "44100", "2", "300", "96", "128"}));
    desk.writer->calls.clear();
    desk.form.ApplyOggSettings();
    QCOMPARE(desk.writer->calls, (QStringList{"IsFormatOggVorbisAvailable 44100 2 96 0 0",
                                              "SetFormatOggVorbis 44100 2 96 0 0 -1"}));
}

void win_ogg_settings::vbrIsCheckedAndSetWithItsLimits()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        click(dialog.chVbr);
        move(dialog.sldrBitrate, 11);
        move(dialog.sldrMinBitrate, 7);
        move(dialog.sldrMaxBitrate, 13);
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.writer->calls, (QStringList{"IsFormatOggVorbisAvailable 44100 2 192 96 256",
                                              "SetFormatOggVorbis 44100 2 192 96 256 -1"}));
}

void win_ogg_settings::aBitrateAloneHasNoLimits()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        click(dialog.chVbr);
        move(dialog.sldrMinBitrate, 2);
        click(dialog.chVbr);
        move(dialog.sldrBitrate, 10);
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.writer->calls.last(), QString("SetFormatOggVorbis 44100 2 160 0 0 -1"));
}

void win_ogg_settings::qualityWinsOverVbr()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        click(dialog.chVbr);
        click(dialog.chQuality);
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.writer->calls, QStringList{"SetFormatOggVorbis 44100 2 128 0 0 300"});
    QCOMPARE(storedKeys(desk).mid(0, 2), (QStringList{"1", "1"}));
}

void win_ogg_settings::theFormatLineFollowsApply()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) { click(dialog.cmdApply); });
    QCOMPARE(desk.panel2(), langText(71) + "Ogg 128 -1");
}

void win_ogg_settings::monoIsOneChannel()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        choose(dialog.cmbChMode, 0);
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.stored("OGG", "4"), QString("1"));
    QCOMPARE(desk.writer->calls.last(), QString("SetFormatOggVorbis 44100 1 128 0 0 -1"));
}

void win_ogg_settings::theRateOfTheRowIsStored()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        choose(dialog.cmbFrequency, 4);
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.stored("OGG", "3"), QString("22050"));
}

void win_ogg_settings::cancelDoesNothing()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        move(dialog.sldrBitrate, 3);
        click(dialog.cmdCancel);
        QVERIFY(!OggSettingsForm.loaded());
    });
    QVERIFY(desk.writer->calls.isEmpty());
    QVERIFY(!QFile::exists(IniPath));
}

void win_ogg_settings::escapeIsCancel()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        press(dialog, Qt::Key_Escape);
        QVERIFY(!OggSettingsForm.loaded());
    });
    QVERIFY(desk.writer->calls.isEmpty());
}

void win_ogg_settings::returnIsOk()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        press(dialog.sldrBitrate, Qt::Key_Return);
        QVERIFY(!OggSettingsForm.loaded());
    });
    QCOMPARE(desk.writer->calls.size(), 2);
}

void win_ogg_settings::applyStaysUp()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        click(dialog.cmdApply);
        QVERIFY(dialog.isVisible());
    });
}

void win_ogg_settings::theJoinerGetsItsOwnWriterAndText()
{
    Desk desk;
    RecordingFile joinerWriter;
    QString shown;
    OggSettingsForm->loadaudiojoiner({&desk.form, joinerWriter, [&](const QString& text) { shown = text; }},
                                     32000, 1);
    click(OggSettingsForm->cmdApply);
    QCOMPARE(joinerWriter.calls.last(), QString("SetFormatOggVorbis 32000 1 128 0 0 -1"));
    QCOMPARE(shown, QString("Ogg 128 -1"));
    QVERIFY(desk.writer->calls.isEmpty());
}

QTEST_MAIN(win_ogg_settings)
#include "win_ogg_settings.moc"
