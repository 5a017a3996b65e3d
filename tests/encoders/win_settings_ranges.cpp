// The ranges and steps of the settings dialogs' sliders and number boxes, and what stands in the dialogs
// before they are filled.
#include "encoders/EncoderFixtures.h"

class win_settings_ranges : public QObject {
    Q_OBJECT
private slots:
    void aSliderHasItsRange_data();
    void aSliderHasItsRange();
    void theOggQualityHasATickAtEachHundred();
    void aNumberBoxHasItsRange_data();
    void aNumberBoxHasItsRange();
    void theProfileShowsAs39BeforeTheFill();
    void theEngineSetsTheUpperEndOfTheProfilesAlone();
    void aCaptionStandsBeforeTheFill_data();
    void aCaptionStandsBeforeTheFill();
};

namespace {

// The dialog as it comes up, with nothing shown in it yet.
QDialog& unfilled(const QString& name)
{
    if (name == "frmMP3") return *Mp3SettingsForm;
    if (name == "frmOgg") return *OggSettingsForm;
    return *WmaSettingsForm;
}

}

void win_settings_ranges::aSliderHasItsRange_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QList<int>>("numbers");    // least, most, small step, large step
    const auto row = [](const char* form, const char* name, QList<int> numbers) {
        QTest::addRow("%s of %s", name, form) << form << name << numbers;
    };
    row("frmMP3", "sldrBitrate", {0, 14, 1, 2});
    row("frmMP3", "sldrQuality", {0, 9, 1, 2});
    row("frmMP3", "sldrVbrBitrate", {0, 14, 1, 2});
    row("frmOgg", "sldrBitrate", {0, 14, 1, 2});
    row("frmOgg", "sldrMinBitrate", {0, 14, 1, 2});
    row("frmOgg", "sldrMaxBitrate", {0, 14, 1, 2});
    row("frmOgg", "sldrQuality", {0, 1000, 1, 1});
}

void win_settings_ranges::aSliderHasItsRange()
{
    QFETCH(QString, form);
    QFETCH(QString, name);
    QFETCH(QList<int>, numbers);
    Desk desk;
    const auto* slider = unfilled(form).findChild<QSlider*>(name);
    QCOMPARE((QList<int>{slider->minimum(), slider->maximum(), slider->singleStep(), slider->pageStep()}),
             numbers);
}

void win_settings_ranges::theOggQualityHasATickAtEachHundred()
{
    Desk desk;
    QCOMPARE(OggSettingsForm->sldrQuality.tickInterval(), 100);
    QVERIFY(OggSettingsForm->sldrQuality.tickPosition() != QSlider::NoTicks);
}

void win_settings_ranges::aNumberBoxHasItsRange_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QList<int>>("numbers");    // least, most, step, value before the fill
    const auto row = [](const char* what, const char* form, const char* name, QList<int> numbers) {
        QTest::addRow("%s", what) << form << name << numbers;
    };
    row("highpass", "frmMP3", "udHFiltF", {0, 48000, 10, 30});
    row("highpass width", "frmMP3", "udHFiltW", {0, 48000, 10, 5});
    row("lowpass", "frmMP3", "udLFiltF", {0, 48000, 10, 15160});
    row("lowpass width", "frmMP3", "udLFiltW", {0, 48000, 10, 750});
    row("VBR quality", "frmMP3", "udVbrQuality", {0, 9, 1, 0});
    row("ABR bitrate", "frmMP3", "udAbrBitrate", {4, 320, 1, 123});
    row("WMA profile", "frmWMA", "udWMAProfile", {1, 51, 1, 39});
}

void win_settings_ranges::aNumberBoxHasItsRange()
{
    QFETCH(QString, form);
    QFETCH(QString, name);
    QFETCH(QList<int>, numbers);
    Desk desk;
    const auto* box = unfilled(form).findChild<QSpinBox*>(name);
    QCOMPARE((QList<int>{box->minimum(), box->maximum(), box->singleStep(), box->value()}), numbers);
}

void win_settings_ranges::theProfileShowsAs39BeforeTheFill()
{
    Desk desk;
    QCOMPARE(unfilled("frmWMA").findChild<QLineEdit*>("txtWMAProfile")->text(), QString("39"));
}

void win_settings_ranges::theEngineSetsTheUpperEndOfTheProfilesAlone()
{
    Desk desk;
    desk.writer->profiles = 45;
    WmaSettingsForm->Form_Load(desk.form);
    const NumberBox& box = WmaSettingsForm->udWMAProfile;
    QCOMPARE((QList<int>{box.minimum(), box.maximum(), box.singleStep()}), (QList<int>{1, 45, 1}));
}

void win_settings_ranges::aCaptionStandsBeforeTheFill_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    QTest::addRow("the bitrate of MP3") << "frmMP3"
                                        << "frmBitrate"
                                        << "Bitrate";
    QTest::addRow("the nominal bitrate of Ogg Vorbis") << "frmOgg"
                                                       << "lblBitrate"
                                                       << "Bitrate";
    QTest::addRow("the minimum of Ogg Vorbis") << "frmOgg"
                                               << "lblMinBitrate"
                                               << "MinBitrate";
    QTest::addRow("the maximum of Ogg Vorbis") << "frmOgg"
                                               << "lblMaxBitrate"
                                               << "MaxBitrate";
}

void win_settings_ranges::aCaptionStandsBeforeTheFill()
{
    QFETCH(QString, form);
    QFETCH(QString, name);
    QFETCH(QString, caption);
    Desk desk;
    const auto* control = unfilled(form).findChild<QWidget*>(name);
    const QVariant title = control->property("title");
    QCOMPARE(title.isValid() ? title.toString() : control->property("text").toString(), caption);
}

QTEST_MAIN(win_settings_ranges)
#include "win_settings_ranges.moc"
