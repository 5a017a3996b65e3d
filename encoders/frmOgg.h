// Dialog: the settings of the Ogg Vorbis encoder. It doesn't read what is stored: each opening starts from
// fixed values, which go to the writer and into the settings file.
#pragma once

#include "core/toolkit/FormHolder.h"
#include "encoders/BitrateTable.h"
#include "encoders/EncoderCaller.h"
#include "encoders/SettingsControls.h"

#include <optional>

class frmOgg : public QDialog {
    Q_OBJECT

public:
    frmOgg();

    std::int16_t Bitrate = 128;       ///< nominal, kbit/s
    std::int16_t MinBitrate = 128;    ///< kbit/s
    std::int16_t MaxBitrate = 128;    ///< kbit/s
    bool VbrEnabled = false;
    std::int16_t Quality = 300;    ///< 0 to 1000
    bool QualityEnabled = false;
    std::int32_t CallerMode = 0;    ///< 3 main form, 6 joiner

    // ---- controls
    Frame frmChMode{this, "frmChMode", {12, 10, 156, 80}, "Channels Mode"};
    QComboBox cmbChMode{&frmChMode};
    Frame frmFrequency{this, "frmFrequency", {180, 10, 156, 80}, "Sampling Frequency"};
    QComboBox cmbFrequency{&frmFrequency};
    Frame frmOption{this, "frmOption", {348, 10, 160, 80}, "Option"};
    QCheckBox chQuality{&frmOption};
    QCheckBox chVbr{&frmOption};
    Card nominal{this, "nominal", {12, 100, 496, 62}};
    FieldLabel lblBitrate{&nominal, "lblBitrate", {16, 6, 460, 18}, "Bitrate"};
    SettingsSlider sldrBitrate{&nominal, "sldrBitrate", {14, 26, 468, 30}, lastBitratePosition, 2};
    Frame frmVbr{this, "frmVbr", {12, 165, 496, 128}, "VBR"};
    FieldLabel lblMinBitrate{&frmVbr, "lblMinBitrate", {16, 22, 460, 18}, "MinBitrate"};
    SettingsSlider sldrMinBitrate{&frmVbr, "sldrMinBitrate", {14, 40, 468, 30}, lastBitratePosition, 2};
    FieldLabel lblMaxBitrate{&frmVbr, "lblMaxBitrate", {16, 74, 460, 18}, "MaxBitrate"};
    SettingsSlider sldrMaxBitrate{&frmVbr, "sldrMaxBitrate", {14, 92, 468, 30}, lastBitratePosition, 2};
    Frame frmQuality{this, "frmQuality", {12, 297, 496, 67}, "Quality (Compression)"};
    SettingsSlider sldrQuality{&frmQuality, "sldrQuality", {14, 26, 468, 32}, 1000, 1};
    QPushButton cmdApply{this};
    QPushButton cmdCancel{this};
    QPushButton cmdOk{this};

    /// Fills the dialog, which the caller then shows modally. Throws ConversionError for a rate or a number
    /// of channels that the lists don't have.
    void loadMain(CutterSelect& form);
    void loadaudiojoiner(const EncoderCaller& joiner, std::int32_t rate, std::int32_t channels);

    /// Stores the values and sets the writer up. False when the encoder refuses them, which the user has been
    /// told.
    bool ApplySettings();

    // ---- rules of the controls
    void sldrBitrate_Change();
    void sldrMinBitrate_Change();
    void sldrMaxBitrate_Change();
    void sldrQuality_Change();
    void chQuality_Click();
    void chVbr_Click();
    void cmdOk_Click();

    void unloading() {}
    void done(int result) override;    ///< every way out unloads the form

private:
    void lay();
    void attach();
    void fill(const EncoderCaller& caller, std::int32_t rate, std::int32_t channels);
    void resetMembers();
    void showMembers();
    void store(std::int32_t rate, std::int32_t channels) const;
    bool setUpWriter(std::int32_t rate, std::int32_t channels);

    std::optional<EncoderCaller> caller_;
};

extern FormHolder<frmOgg> OggSettingsForm;
