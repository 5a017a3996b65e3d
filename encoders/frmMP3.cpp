#include "encoders/frmMP3.h"

#include "core/CutterSelect.h"
#include "core/toolkit/Wall.h"

namespace {

constexpr std::int32_t calledByMainForm = 3;
constexpr std::int32_t calledByJoiner = 4;
constexpr int rowNone = 0;
constexpr int rowAbr = 5;

// What a slider of bitrates says of its position.
QString currentBitrateAt(int position)
{
    return currentBitrate(bitrateTable.at(static_cast<std::size_t>(position)));
}

QString bitrateText(int position)
{
    return QString::number(bitrateTable.at(static_cast<std::size_t>(position)));
}

}

FormHolder<frmMP3> Mp3SettingsForm;

frmMP3::frmMP3() : QDialog(MainForm), Mp3Tabs(static_cast<QDialog&>(*this))
{
    prepareSettingsForm(*this, QStringLiteral("frmMP3"), QStringLiteral("MP3 Lame 3.98 Encoder Option"),
                        {520, 420});
    attach();
}

// A button is also chosen by the arrow keys, and clicked again while it is on.
template <typename Choose>
void frmMP3::attachOption(QRadioButton& option, Choose choose)
{
    connect(&option, &QRadioButton::clicked, this, guarded([choose](bool) { choose(); }));
    connect(&option, &QRadioButton::toggled, this, guarded([choose](bool isOn) {
        if (isOn) choose();
    }));
}

void frmMP3::attach()
{
    sldrBitrate.onMove = [this](int) { sldrBitrate_Change(); };
    sldrVbrBitrate.onMove = [this](int) { sldrVbrBitrate_Change(); };
    sldrQuality.onMove = [this](int) { sldrQuality_Change(); };
    connect(&chHFilt, &QCheckBox::clicked, this, guarded([this](bool) { chHFilt_Click(); }));
    connect(&chLFilt, &QCheckBox::clicked, this, guarded([this](bool) { chLFilt_Click(); }));
    connect(&cmbVBRCodingMethod, &QComboBox::activated, this,
            guarded([this](int) { cmbVBRCodingMethod_Click(); }));
    for (std::int16_t i = 1; i <= presetCount; ++i) attachOption(opPreset(i), [this, i] { Preset = i; });
    for (std::int16_t i = 1; i <= altPresetCount; ++i)
        attachOption(opAltPreset(i), [this, i] { AltPreset = i; });
    connect(&cmdOk, &QPushButton::clicked, this, guarded([this](bool) { cmdOk_Click(); }));
    connect(&cmdApply, &QPushButton::clicked, this, guarded([this](bool) { ApplySettings(); }));
    connect(&cmdCancel, &QPushButton::clicked, this, guarded([this](bool) { reject(); }));
}

void frmMP3::AppelconvertMain(CutterSelect& form)
{
    enter(*form.MP3LameEncoderMain, callerFor(form), calledByMainForm);
}

void frmMP3::AppelJoiner(Mp3Format& format, const EncoderCaller& joiner)
{
    enter(format, joiner, calledByJoiner);
}

void frmMP3::enter(Mp3Format& format, const EncoderCaller& caller, std::int32_t mode)
{
    if (parentWidget() != caller.owner) setParent(caller.owner, windowFlags());
    MP3LameEncoder = &format;
    caller_.emplace(caller);
    // Kept: a form that is still loaded goes back to number 1 here, while its option buttons keep their look.
    Preset = 1;
    AltPreset = 1;
    ShowSettings();
    CallerMode = mode;
}

void frmMP3::sldrBitrate_Change()
{
    frmBitrate.setTitle(currentBitrateAt(sldrBitrate.value()));
    sldrBitrate.setPopUpText(bitrateText(sldrBitrate.value()));
}

void frmMP3::sldrVbrBitrate_Change()
{
    lblVbrBitrate.setText(currentBitrateAt(sldrVbrBitrate.value()));
    sldrVbrBitrate.setPopUpText(bitrateText(sldrVbrBitrate.value()));
}

// Kept: the object has the new quality at once, so a Cancel doesn't take it back.
void frmMP3::sldrQuality_Change()
{
    MP3LameEncoder->EncoderQuality = static_cast<std::int16_t>(sldrQuality.value());
}

void frmMP3::chHFilt_Click()
{
    setEnabledAll({&udHFiltF.text(), &udHFiltW.text(), &udHFiltF, &udHFiltW, &lblHFiltW},
                  chHFilt.isChecked());
}

void frmMP3::chLFilt_Click()
{
    setEnabledAll({&udLFiltF.text(), &udLFiltW.text(), &udLFiltF, &udLFiltW, &lblLFiltW},
                  chLFilt.isChecked());
}

void frmMP3::cmbVBRCodingMethod_Click()
{
    const int row = cmbVBRCodingMethod.currentIndex();
    if (row < rowNone) return;
    setEnabledAll({&lblVbrQuality, &udVbrQuality.text(), &udVbrQuality}, row != rowNone && row != rowAbr);
    setEnabledAll({&lblAbrBitrate, &udAbrBitrate.text(), &udAbrBitrate}, row == rowAbr);
    setEnabledAll({&frmVbrBitrate, &lblVbrBitrate, &sldrVbrBitrate, &frmVbrAdvanced, &chWriteVBRHeader,
                   &chStrictlyEnforceMinBitrate},
                  row != rowNone);
}

void frmMP3::cmdOk_Click()
{
    ApplySettings();
    accept();
}

void frmMP3::done(int)
{
    Mp3SettingsForm.unload();
}
