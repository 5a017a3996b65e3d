// Apply in the MP3 settings dialog: into the object, from there to the writer and into the settings file.
#include "encoders/frmMP3.h"

#include "core/Declaration.h"
#include "export/Mp3Keys.h"
#include "support/Registre.h"

namespace {

enum Tab { TabPreset = 4, TabAltPreset = 5, TabCommandLine = 6 };

constexpr std::int32_t noFilter = -1;

std::int16_t shortRow(const QComboBox& list)
{
    return static_cast<std::int16_t>(list.currentIndex());
}

std::int32_t bitrateOf(const SettingsSlider& slider)
{
    return bitrateTable.at(static_cast<std::size_t>(slider.value()));
}

}

void frmMP3::ApplySettings()
{
    switch (tabMP3.currentIndex()) {
    case TabPreset:
        MP3LameEncoder->ApplyPreset(Preset);
        ShowSettings();
        break;
    case TabAltPreset:
        MP3LameEncoder->ApplyAltPreset(AltPreset);
        ShowSettings();
        break;
    case TabCommandLine:
        MP3LameEncoder->SetCommandLine(txtCommLine.text());
        ShowSettings();
        break;
    default:
        takeControls();
        break;
    }
    giveToWriter();
    store();
}

// All controls of the first four tabs, whichever of them shows.
void frmMP3::takeControls()
{
    Mp3Format& format = *MP3LameEncoder;
    format.FormatRate = selectedRate(cmbFrequency);
    format.VbrMethod = cmbVBRCodingMethod.currentIndex() - 1;
    format.FormatBitrate = bitrateOf(sldrBitrate);
    format.MaxVbrBitrate = bitrateOf(sldrVbrBitrate);
    format.AthControl = shortRow(cmbATHControl);
    if (cmbChMode.currentIndex() == 0) {
        format.FormatChannels = 1;
    } else {
        format.FormatChannels = 2;
        format.StereoMode = cmbChMode.currentIndex();
    }
    format.Emphasis = shortRow(cmbEmphasis);
    format.WriteVbrHeader = chWriteVBRHeader.isChecked();
    format.EnforceMinBitrate = chStrictlyEnforceMinBitrate.isChecked();
    format.ErrorProtection = chErrorProtection.isChecked();
    format.DifferentBlockTypes = chBlockType.isChecked();
    format.BitReservoir = chBitReservoir.isChecked();
    format.ShortBlocks = chShortBlocks.isChecked();
    format.IsoCompliance = chStrictlyISOCompliance.isChecked();
    format.AbrBitrate = static_cast<std::int16_t>(udAbrBitrate.value());
    format.HighpassFrequency = chHFilt.isChecked() ? udHFiltF.value() : noFilter;
    format.LowpassFrequency = chLFilt.isChecked() ? udLFiltF.value() : noFilter;
    format.HighpassWidth = udHFiltW.value();
    format.LowpassWidth = udLFiltW.value();
    format.VbrQuality = static_cast<std::int16_t>(udVbrQuality.value());
}

void frmMP3::giveToWriter()
{
    caller_->writer.SetFormatMP3Ex(*MP3LameEncoder);
    caller_->show(caller_->writer.FormatString());
}

// A preset is stored as the values that it expanded to.
void frmMP3::store() const
{
    for (const Mp3Key& row : mp3Keys)
        IniWrite(IniPath, QStringLiteral("Mp3"), QString::fromLatin1(row.key),
                 textOf(*MP3LameEncoder, row.property));
}
