#include "encoders/frmOgg.h"

#include "core/CutterSelect.h"
#include "core/toolkit/Wall.h"

namespace {

constexpr std::int32_t calledByMainForm = 3;
constexpr std::int32_t calledByJoiner = 6;
constexpr int positionOf128 = 9;
constexpr int qualityPerUnit = 100;

std::int16_t bitrateAt(const SettingsSlider& slider)
{
    return bitrateTable.at(static_cast<std::size_t>(slider.value()));
}

QString captionOf(const char* which, std::int16_t kbit)
{
    return QStringLiteral("Current %1 bitrate: %2 kbit").arg(QString::fromLatin1(which)).arg(kbit);
}

// The rule of all three sliders of bitrates.
void takeBitrate(std::int16_t& member, SettingsSlider& slider, Label& label, const char* which)
{
    member = bitrateAt(slider);
    label.setText(captionOf(which, member));
    slider.setPopUpText(QString::number(member));
}

}

FormHolder<frmOgg> OggSettingsForm;

frmOgg::frmOgg() : QDialog(MainForm)
{
    prepareSettingsForm(*this, QStringLiteral("frmOgg"), QStringLiteral("Ogg Vorbis Option"), {520, 420});
    lay();
    attach();
}

void frmOgg::lay()
{
    putList(cmbChMode, QStringLiteral("cmbChMode"), {14, 33, 128, 28}, {"Mono", "Stereo"});
    putList(cmbFrequency, QStringLiteral("cmbFrequency"), {14, 33, 128, 28}, rateCaptions());
    putButton(chQuality, QStringLiteral("chQuality"), {14, 20, 140, 26}, QStringLiteral("Quality Enabled"));
    putButton(chVbr, QStringLiteral("chVbr"), {14, 47, 140, 26}, QStringLiteral("VBR Enabled"));
    sldrQuality.setTickInterval(100);
    putButton(cmdApply, QStringLiteral("cmdApply"), {202, 376, 94, 30}, QStringLiteral("Apply"));
    putButton(cmdCancel, QStringLiteral("cmdCancel"), {308, 376, 94, 30}, QStringLiteral("Cancel"));
    putButton(cmdOk, QStringLiteral("cmdOk"), {414, 376, 94, 30}, QStringLiteral("Ok"));
    cmdOk.setDefault(true);
    cmbChMode.setAccessibleName(frmChMode.title());
    cmbFrequency.setAccessibleName(frmFrequency.title());
    sldrBitrate.setAccessibleName(QStringLiteral("Nominal bitrate"));
    sldrMinBitrate.setAccessibleName(QStringLiteral("Minimum bitrate"));
    sldrMaxBitrate.setAccessibleName(QStringLiteral("Maximum bitrate"));
    sldrQuality.setAccessibleName(frmQuality.title());
    setTabOrderAll({&cmbChMode, &cmbFrequency, &chQuality, &chVbr, &sldrBitrate, &sldrMinBitrate,
                    &sldrMaxBitrate, &sldrQuality, &cmdApply, &cmdCancel, &cmdOk});
}

void frmOgg::attach()
{
    sldrBitrate.onMove = [this](int) { sldrBitrate_Change(); };
    sldrMinBitrate.onMove = [this](int) { sldrMinBitrate_Change(); };
    sldrMaxBitrate.onMove = [this](int) { sldrMaxBitrate_Change(); };
    sldrQuality.onMove = [this](int) { sldrQuality_Change(); };
    connect(&chQuality, &QCheckBox::clicked, this, guarded([this](bool) { chQuality_Click(); }));
    connect(&chVbr, &QCheckBox::clicked, this, guarded([this](bool) { chVbr_Click(); }));
    connect(&cmdOk, &QPushButton::clicked, this, guarded([this](bool) { cmdOk_Click(); }));
    connect(&cmdApply, &QPushButton::clicked, this, guarded([this](bool) { ApplySettings(); }));
    connect(&cmdCancel, &QPushButton::clicked, this, guarded([this](bool) { reject(); }));
}

void frmOgg::loadMain(CutterSelect& form)
{
    CallerMode = calledByMainForm;
    fill(callerFor(form), form.Frequency, form.Channels);
}

void frmOgg::loadaudiojoiner(const EncoderCaller& joiner, std::int32_t rate, std::int32_t channels)
{
    CallerMode = calledByJoiner;
    fill(joiner, rate, channels);
}

void frmOgg::fill(const EncoderCaller& caller, std::int32_t rate, std::int32_t channels)
{
    if (parentWidget() != caller.owner) setParent(caller.owner, windowFlags());
    caller_.emplace(caller);
    selectRow(cmbFrequency, rowOfRate(rate));
    selectRow(cmbChMode, channels - 1);
    resetMembers();
    showMembers();
    chVbr.setChecked(false);
    chVbr_Click();
    chQuality.setChecked(false);
    chQuality_Click();
    sldrQuality.set(Quality);
}

// Kept: the dialog starts from these and not from what is stored.
void frmOgg::resetMembers()
{
    Bitrate = MinBitrate = MaxBitrate = 128;
    VbrEnabled = false;
    Quality = 300;
    QualityEnabled = false;
}

void frmOgg::showMembers()
{
    sldrBitrate.set(positionOf128);
    lblBitrate.setText(captionOf("nominal", Bitrate));
    sldrMinBitrate.set(positionOf128);
    lblMinBitrate.setText(captionOf("min", MinBitrate));
    sldrMaxBitrate.set(positionOf128);
    lblMaxBitrate.setText(captionOf("max", MaxBitrate));
}

void frmOgg::sldrBitrate_Change()
{
    takeBitrate(Bitrate, sldrBitrate, lblBitrate, "nominal");
}

void frmOgg::sldrMinBitrate_Change()
{
    takeBitrate(MinBitrate, sldrMinBitrate, lblMinBitrate, "min");
}

void frmOgg::sldrMaxBitrate_Change()
{
    takeBitrate(MaxBitrate, sldrMaxBitrate, lblMaxBitrate, "max");
}

void frmOgg::sldrQuality_Change()
{
    Quality = static_cast<std::int16_t>(sldrQuality.value());
    // The blank stands where a sign would.
    sldrQuality.setPopUpText(QLatin1Char(' ') +
                             QString::number(static_cast<double>(Quality) / qualityPerUnit));
}

void frmOgg::chQuality_Click()
{
    if (chQuality.isChecked()) {
        setEnabledAll({&chVbr, &frmVbr, &sldrBitrate, &sldrMinBitrate, &sldrMaxBitrate, &lblBitrate,
                       &lblMinBitrate, &lblMaxBitrate},
                      false);
        setEnabledAll({&frmQuality, &sldrQuality}, true);
    } else {
        setEnabledAll({&frmVbr, &sldrQuality}, false);
        setEnabledAll({&chVbr, &lblBitrate, &sldrBitrate}, true);
        chVbr_Click();
    }
    QualityEnabled = chQuality.isChecked();
}

void frmOgg::chVbr_Click()
{
    const bool isOn = chVbr.isChecked();
    if (isOn)
        frmVbr.setEnabled(true);
    else
        frmQuality.setEnabled(false);    // Kept: switching VBR off takes the frame of the quality away
    setEnabledAll({&sldrMinBitrate, &sldrMaxBitrate, &lblMinBitrate, &lblMaxBitrate}, isOn);
    VbrEnabled = isOn;
}

void frmOgg::cmdOk_Click()
{
    if (ApplySettings()) accept();
}

void frmOgg::done(int)
{
    OggSettingsForm.unload();
}
