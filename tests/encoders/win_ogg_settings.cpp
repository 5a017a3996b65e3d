// The Ogg Vorbis settings dialog: its fixed start, its rules, what Apply stores and asks of the writer.
#include "encoders/EncoderFixtures.h"

class win_ogg_settings : public QObject {
    Q_OBJECT
private slots:
    void theStoredQualityDoesNotShow();
    void okWithNothingChangedStoresTheDefaults();
    void okWithNothingChangedSets128();
    void qualityGoesInWithoutACheck();
    void switchingVbrOffTakesTheQualityFrameAway();
    void aRefusalShowsAMessageAndStaysUp();
    void aRefusalLeavesTheWriterAndStoresTheKeys();
    void aRefusalLeavesTheFormatLine();

    void theMinimumIsWhatStaysInKeySix();
    void vbrIsCheckedAndSetWithItsLimits();
    void aBitrateAloneHasNoLimits();
    void qualityWinsOverVbr();
    void theFormatLineFollowsApply();
    void monoIsOneChannel();
    void theRateOfTheRowIsStored();

    void aSliderNamesItsBitrate_data();
    void aSliderNamesItsBitrate();
    void theQualityPopUpIsTheHundredthPart();
    void theQualityMovesBySingleSteps();
    void thePageKeyMovesABitrateByTwo();
    void openingEnables();
    void qualityOnEnables();
    void qualityOffEnablesAgain();
    void vbrOnEnables();

    void cancelDoesNothing();
    void escapeIsCancel();
    void returnIsOk();
    void applyStaysUp();
    void aRateWithoutARowIsAFault();
    void theRateAndChannelsOfTheFormArePreselected();
    void theJoinerGetsItsOwnWriterAndText();
    void callerModeTellsTheCaller();
};

using namespace hand;

namespace {

QStringList storedKeys(const Desk& desk)
{
    QStringList values;
    for (int key = 1; key <= 7; ++key) values << desk.stored("OGG", QString::number(key));
    return values;
}

// Whether the user can reach them, frames included.
QList<bool> reach(std::initializer_list<QWidget*> controls)
{
    QList<bool> enabled;
    for (const QWidget* control : controls) enabled << control->isEnabled();
    return enabled;
}

}

void win_ogg_settings::theStoredQualityDoesNotShow()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        click(dialog.chQuality);
        press(dialog.sldrQuality, Qt::Key_Right, 400);
        click(dialog.cmdOk);
    });
    QCOMPARE(desk.stored("OGG", "5"), QString("700"));
    desk.openOgg([](frmOgg& dialog) {
        QCOMPARE(dialog.sldrQuality.value(), 300);
        QVERIFY(!dialog.chQuality.isChecked() && !dialog.chVbr.isChecked());
    });
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

void win_ogg_settings::switchingVbrOffTakesTheQualityFrameAway()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        dialog.frmQuality.setEnabled(true);
        click(dialog.chVbr);
        QVERIFY(dialog.frmQuality.isEnabled());
        click(dialog.chVbr);
        QVERIFY(!dialog.frmQuality.isEnabled());
        click(dialog.chQuality);
        QVERIFY(dialog.frmQuality.isEnabled() && dialog.sldrQuality.isEnabled());
    });
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

void win_ogg_settings::aSliderNamesItsBitrate_data()
{
    QTest::addColumn<int>("slider");
    QTest::addColumn<QString>("caption");
    QTest::addRow("nominal") << 0 << "Current nominal bitrate: 320 kbit";
    QTest::addRow("minimum") << 1 << "Current min bitrate: 320 kbit";
    QTest::addRow("maximum") << 2 << "Current max bitrate: 320 kbit";
}

void win_ogg_settings::aSliderNamesItsBitrate()
{
    QFETCH(int, slider);
    QFETCH(QString, caption);
    Desk desk;
    desk.openOgg([=](frmOgg& d) {
        click(d.chVbr);
        SettingsSlider* const sliders[] = {&d.sldrBitrate, &d.sldrMinBitrate, &d.sldrMaxBitrate};
        Label* const labels[] = {&d.lblBitrate, &d.lblMinBitrate, &d.lblMaxBitrate};
        QCOMPARE(labels[slider]->text(), QString(caption).replace("320", "128"));
        press(*sliders[slider], Qt::Key_End);
        QCOMPARE(labels[slider]->text(), caption);
        QCOMPARE(sliders[slider]->toolTip(), QString("320"));
    });
}

void win_ogg_settings::theQualityPopUpIsTheHundredthPart()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        click(dialog.chQuality);
        press(dialog.sldrQuality, Qt::Key_Right, 5);
        QCOMPARE(dialog.sldrQuality.toolTip(), QString(" 3.05"));
        QCOMPARE(dialog.Quality, std::int16_t(305));
    });
}

void win_ogg_settings::theQualityMovesBySingleSteps()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        click(dialog.chQuality);
        press(dialog.sldrQuality, Qt::Key_PageUp);
        QCOMPARE(dialog.sldrQuality.value(), 301);
        QCOMPARE(dialog.sldrQuality.tickInterval(), 100);
    });
}

void win_ogg_settings::thePageKeyMovesABitrateByTwo()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        press(dialog.sldrBitrate, Qt::Key_PageDown);
        QCOMPARE(dialog.Bitrate, std::int16_t(96));
    });
}

void win_ogg_settings::openingEnables()
{
    Desk desk;
    desk.openOgg([](frmOgg& d) {
        QCOMPARE(reach({&d.chQuality, &d.chVbr, &d.lblBitrate, &d.sldrBitrate}), QList<bool>(4, true));
        QCOMPARE(reach({&d.frmVbr, &d.sldrMinBitrate, &d.sldrMaxBitrate, &d.lblMinBitrate, &d.lblMaxBitrate,
                        &d.frmQuality, &d.sldrQuality}),
                 QList<bool>(7, false));
    });
}

void win_ogg_settings::qualityOnEnables()
{
    Desk desk;
    desk.openOgg([](frmOgg& d) {
        click(d.chVbr);
        click(d.chQuality);
        QCOMPARE(reach({&d.chVbr, &d.frmVbr, &d.sldrBitrate, &d.sldrMinBitrate, &d.sldrMaxBitrate,
                        &d.lblBitrate, &d.lblMinBitrate, &d.lblMaxBitrate}),
                 QList<bool>(8, false));
        QCOMPARE(reach({&d.frmQuality, &d.sldrQuality}), QList<bool>(2, true));
        QVERIFY(d.QualityEnabled);
    });
}

void win_ogg_settings::qualityOffEnablesAgain()
{
    Desk desk;
    desk.openOgg([](frmOgg& d) {
        click(d.chVbr);
        click(d.chQuality);
        click(d.chQuality);
        QCOMPARE(reach({&d.chVbr, &d.frmVbr, &d.sldrBitrate, &d.sldrMinBitrate, &d.sldrMaxBitrate,
                        &d.lblBitrate, &d.lblMinBitrate, &d.lblMaxBitrate}),
                 QList<bool>(8, true));
        QVERIFY(!d.sldrQuality.isEnabled());
        QVERIFY(!d.QualityEnabled && d.VbrEnabled);
    });
}

void win_ogg_settings::vbrOnEnables()
{
    Desk desk;
    desk.openOgg([](frmOgg& d) {
        click(d.chVbr);
        QCOMPARE(reach({&d.frmVbr, &d.sldrMinBitrate, &d.sldrMaxBitrate, &d.lblMinBitrate, &d.lblMaxBitrate}),
                 QList<bool>(5, true));
        QVERIFY(d.VbrEnabled);
    });
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

void win_ogg_settings::aRateWithoutARowIsAFault()
{
    Desk desk;
    desk.form.Frequency = 96000;
    QVERIFY_THROWS_EXCEPTION(ConversionError, OggSettingsForm->loadMain(desk.form));
}

void win_ogg_settings::theRateAndChannelsOfTheFormArePreselected()
{
    Desk desk;
    desk.form.Frequency = 48000;
    desk.form.Channels = 1;
    desk.openOgg([](frmOgg& dialog) {
        QCOMPARE(dialog.cmbFrequency.currentText(), QString("48 000 Hz"));
        QCOMPARE(dialog.cmbChMode.currentText(), QString("Mono"));
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

void win_ogg_settings::callerModeTellsTheCaller()
{
    Desk desk;
    OggSettingsForm->loadMain(desk.form);
    QCOMPARE(OggSettingsForm->CallerMode, 3);
    OggSettingsForm->loadaudiojoiner({&desk.form, *desk.writer, [](const QString&) {}}, 44100, 2);
    QCOMPARE(OggSettingsForm->CallerMode, 6);
}

QTEST_MAIN(win_ogg_settings)
#include "win_ogg_settings.moc"
