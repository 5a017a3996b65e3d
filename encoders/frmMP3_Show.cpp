// The fill of the MP3 settings dialog from the format object.
#include "encoders/frmMP3.h"

namespace {

constexpr int unusedHighpassFrequency = 30;    // Hz, shown while there is no filter
constexpr int unusedLowpassFrequency = 15160;
constexpr int defaultHighpassWidth = 5;
constexpr int defaultLowpassWidth = 760;    // Kept: before the first fill the box holds 750

// Kept: a bitrate that the table doesn't have leaves the slider where it is.
void showBitrate(SettingsSlider& slider, std::int32_t kbit)
{
    if (const int position = positionOfBitrate(kbit); position >= 0) slider.set(position);
}

// Shows a frequency, below 0 for no filter, with the width that belongs to it.
void showFilter(QCheckBox& isOn, NumberBox& frequencyBox, std::int32_t frequency, int unusedFrequency)
{
    frequencyBox.setValue(frequency < 0 ? unusedFrequency : frequency);
    isOn.setChecked(frequency >= 0);
}

void showWidth(NumberBox& box, std::int32_t width, int defaultWidth)
{
    box.setValue(width);
    // Kept: the object keeps its 0 until the next Apply from one of the first four tabs.
    if (box.value() == 0) box.setValue(defaultWidth);
}

}

// The command line isn't filled: it never shows the state of the object.
void frmMP3::ShowSettings()
{
    // Kept: a rate that no row has runs past the last row, and selecting that is a fault.
    selectRow(cmbFrequency, rowOfRate(MP3LameEncoder->FormatRate));
    sldrQuality.set(MP3LameEncoder->EncoderQuality);
    showBitrates();
    showVbr();
    showFilters();
    showExpert();
}

void frmMP3::showBitrates()
{
    showBitrate(sldrBitrate, MP3LameEncoder->FormatBitrate);
    frmBitrate.setTitle(currentBitrate(MP3LameEncoder->FormatBitrate));
    showBitrate(sldrVbrBitrate, MP3LameEncoder->MaxVbrBitrate);
    lblVbrBitrate.setText(currentBitrate(MP3LameEncoder->MaxVbrBitrate));
}

void frmMP3::showVbr()
{
    udVbrQuality.setValue(MP3LameEncoder->VbrQuality);
    selectRow(cmbVBRCodingMethod, std::int64_t{MP3LameEncoder->VbrMethod} + 1);
    cmbVBRCodingMethod_Click();
    udAbrBitrate.setValue(MP3LameEncoder->AbrBitrate);
    selectRow(cmbChMode, MP3LameEncoder->FormatChannels == 1 ? 0 : MP3LameEncoder->StereoMode);
    chWriteVBRHeader.setChecked(MP3LameEncoder->WriteVbrHeader);
    chStrictlyEnforceMinBitrate.setChecked(MP3LameEncoder->EnforceMinBitrate);
}

void frmMP3::showFilters()
{
    showFilter(chHFilt, udHFiltF, MP3LameEncoder->HighpassFrequency, unusedHighpassFrequency);
    showWidth(udHFiltW, MP3LameEncoder->HighpassWidth, defaultHighpassWidth);
    chHFilt_Click();
    showFilter(chLFilt, udLFiltF, MP3LameEncoder->LowpassFrequency, unusedLowpassFrequency);
    showWidth(udLFiltW, MP3LameEncoder->LowpassWidth, defaultLowpassWidth);
    chLFilt_Click();
}

void frmMP3::showExpert()
{
    selectRow(cmbATHControl, MP3LameEncoder->AthControl);
    selectRow(cmbEmphasis, MP3LameEncoder->Emphasis);
    chErrorProtection.setChecked(MP3LameEncoder->ErrorProtection);
    chBlockType.setChecked(MP3LameEncoder->DifferentBlockTypes);
    chBitReservoir.setChecked(MP3LameEncoder->BitReservoir);
    chShortBlocks.setChecked(MP3LameEncoder->ShortBlocks);
    chStrictlyISOCompliance.setChecked(MP3LameEncoder->IsoCompliance);
}
