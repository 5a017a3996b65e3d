// The controls of the Ogg Vorbis settings dialog: the fixed start, what a move or a click does, what it
// enables.
#include "encoders/EncoderFixtures.h"

class win_ogg_controls : public QObject {
    Q_OBJECT
private slots:
    void theStoredQualityDoesNotShow();
    void switchingVbrOffTakesTheQualityFrameAway();
    void aSliderNamesItsBitrate_data();
    void aSliderNamesItsBitrate();
    void theQualityPopUpIsTheHundredthPart();
    void theQualityMovesBySingleSteps();
    void thePageKeyMovesABitrateByTwo();
    void openingEnables();
    void qualityOnEnables();
    void qualityOffEnablesAgain();
    void vbrOnEnables();
    void aRateWithoutARowIsAFault();
    void theRateAndChannelsOfTheFormArePreselected();
    void callerModeTellsTheCaller();
};

using namespace hand;

namespace {

// Whether the user can reach them, frames included.
QList<bool> reach(std::initializer_list<QWidget*> controls)
{
    QList<bool> enabled;
    for (const QWidget* control : controls) enabled << control->isEnabled();
    return enabled;
}

}

void win_ogg_controls::theStoredQualityDoesNotShow()
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

void win_ogg_controls::switchingVbrOffTakesTheQualityFrameAway()
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

void win_ogg_controls::aSliderNamesItsBitrate_data()
{
    QTest::addColumn<int>("slider");
    QTest::addColumn<QString>("caption");
    QTest::addRow("nominal") << 0 << "Current nominal bitrate: 320 kbit";
    QTest::addRow("minimum") << 1 << "Current min bitrate: 320 kbit";
    QTest::addRow("maximum") << 2 << "Current max bitrate: 320 kbit";
}

void win_ogg_controls::aSliderNamesItsBitrate()
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

void win_ogg_controls::theQualityPopUpIsTheHundredthPart()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        click(dialog.chQuality);
        press(dialog.sldrQuality, Qt::Key_Right, 5);
        QCOMPARE(dialog.sldrQuality.toolTip(), QString(" 3.05"));
        QCOMPARE(dialog.Quality, std::int16_t(305));
    });
}

void win_ogg_controls::theQualityMovesBySingleSteps()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        click(dialog.chQuality);
        press(dialog.sldrQuality, Qt::Key_PageUp);
        QCOMPARE(dialog.sldrQuality.value(), 301);
        QCOMPARE(dialog.sldrQuality.tickInterval(), 100);
    });
}

void win_ogg_controls::thePageKeyMovesABitrateByTwo()
{
    Desk desk;
    desk.openOgg([](frmOgg& dialog) {
        press(dialog.sldrBitrate, Qt::Key_PageDown);
        QCOMPARE(dialog.Bitrate, std::int16_t(96));
    });
}

void win_ogg_controls::openingEnables()
{
    Desk desk;
    desk.openOgg([](frmOgg& d) {
        QCOMPARE(reach({&d.chQuality, &d.chVbr, &d.lblBitrate, &d.sldrBitrate}), QList<bool>(4, true));
        QCOMPARE(reach({&d.frmVbr, &d.sldrMinBitrate, &d.sldrMaxBitrate, &d.lblMinBitrate, &d.lblMaxBitrate,
                        &d.frmQuality, &d.sldrQuality}),
                 QList<bool>(7, false));
    });
}

void win_ogg_controls::qualityOnEnables()
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

void win_ogg_controls::qualityOffEnablesAgain()
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

void win_ogg_controls::vbrOnEnables()
{
    Desk desk;
    desk.openOgg([](frmOgg& d) {
        click(d.chVbr);
        QCOMPARE(reach({&d.frmVbr, &d.sldrMinBitrate, &d.sldrMaxBitrate, &d.lblMinBitrate, &d.lblMaxBitrate}),
                 QList<bool>(5, true));
        QVERIFY(d.VbrEnabled);
    });
}

void win_ogg_controls::aRateWithoutARowIsAFault()
{
    Desk desk;
    desk.form.Frequency = 96000;
    QVERIFY_THROWS_EXCEPTION(ConversionError, OggSettingsForm->loadMain(desk.form));
}

void win_ogg_controls::theRateAndChannelsOfTheFormArePreselected()
{
    Desk desk;
    desk.form.Frequency = 48000;
    desk.form.Channels = 1;
    desk.openOgg([](frmOgg& dialog) {
        QCOMPARE(dialog.cmbFrequency.currentText(), QString("48 000 Hz"));
        QCOMPARE(dialog.cmbChMode.currentText(), QString("Mono"));
    });
}

void win_ogg_controls::callerModeTellsTheCaller()
{
    Desk desk;
    OggSettingsForm->loadMain(desk.form);
    QCOMPARE(OggSettingsForm->CallerMode, 3);
    OggSettingsForm->loadaudiojoiner({&desk.form, *desk.writer, [](const QString&) {}}, 44100, 2);
    QCOMPARE(OggSettingsForm->CallerMode, 6);
}

QTEST_MAIN(win_ogg_controls)
#include "win_ogg_controls.moc"
