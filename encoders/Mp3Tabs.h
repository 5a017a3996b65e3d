// The inventory of the MP3 settings dialog: seven tabs, their controls with names, ranges and places. No
// behaviour. Places are logical pixels. The captions are fixed; no language file has them.
#pragma once

#include "encoders/BitrateTable.h"
#include "encoders/SettingsControls.h"

#include <QLineEdit>
#include <QTabWidget>

struct Mp3Tabs {
    explicit Mp3Tabs(QDialog& window);

    QTabWidget tabMP3;    ///< 0 General, 1 Filtering, 2 VBR, 3 Expert, 4 Preset, 5 Alt-Preset, 6 Command Line
    QWidget general, filtering, vbr, expert, presets, altPresets, commandLine;

    // ---- General
    Frame frmBitrate{&general, "frmBitrate", {14, 8, 466, 88}, "Bitrate"};
    SettingsSlider sldrBitrate{&frmBitrate, "sldrBitrate", {14, 26, 438, 32}, lastBitratePosition, 2};
    EndLabel Label2{&frmBitrate, "Label2", {16, 60, 200, 18}, "poor quality", Qt::AlignLeft};
    EndLabel Label3{&frmBitrate, "Label3", {250, 60, 200, 18}, "good quality", Qt::AlignRight};
    Frame frmQuality{&general, "frmQuality", {14, 106, 466, 88}, "Encoder Quality"};
    SettingsSlider sldrQuality{&frmQuality, "sldrQuality", {14, 26, 438, 32}, 9, 2};
    EndLabel Label6{&frmQuality, "Label6", {16, 60, 200, 18}, "faster", Qt::AlignLeft};
    EndLabel Label7{&frmQuality, "Label7", {250, 60, 200, 18}, "better", Qt::AlignRight};
    Frame frmChMode{&general, "frmChMode", {14, 204, 226, 74}, "Channels Mode"};
    QComboBox cmbChMode{&frmChMode};
    Frame frmFrequency{&general, "frmFrequency", {254, 204, 226, 74}, "Sampling Frequency"};
    QComboBox cmbFrequency{&frmFrequency};

    // ---- Filtering
    Frame frmHFilt{&filtering, "frmHFilt", {14, 8, 466, 116}, "HighPass Filter"};
    QCheckBox chHFilt{&frmHFilt};
    NumberBox udHFiltF{&frmHFilt, "udHFiltF", "tHFiltF", {336, 32, 114, 28}};    ///< Hz
    FieldLabel lblHFiltW{&frmHFilt, "lblHFiltW", {38, 72, 290, 28}, "Width of Highpass filter (in Hz):"};
    NumberBox udHFiltW{&frmHFilt, "udHFiltW", "tHFiltW", {336, 72, 114, 28}};    ///< Hz
    Frame frmLFilt{&filtering, "frmLFilt", {14, 138, 466, 116}, "LowPass Filter"};
    QCheckBox chLFilt{&frmLFilt};
    NumberBox udLFiltF{&frmLFilt, "udLFiltF", "tLFiltF", {336, 32, 114, 28}};    ///< Hz
    FieldLabel lblLFiltW{&frmLFilt, "lblLFiltW", {38, 72, 290, 28}, "Width of Lowpass filter (in Hz):"};
    NumberBox udLFiltW{&frmLFilt, "udLFiltW", "tLFiltW", {336, 72, 114, 28}};    ///< Hz

    // ---- VBR
    FieldLabel Label14{&vbr, "Label14", {28, 12, 210, 28}, "Coding Method:"};
    QComboBox cmbVBRCodingMethod{&vbr};
    FieldLabel lblVbrQuality{&vbr, "lblVbrQuality", {28, 48, 210, 28}, "VBR Quality:"};
    NumberBox udVbrQuality{&vbr, "udVbrQuality", "txtVbrQuality", {250, 48, 114, 28}};
    // Kept: spelled so.
    FieldLabel lblAbrBitrate{&vbr, "lblAbrBitrate", {28, 84, 210, 28}, "Targed bitrate for ABR:"};
    NumberBox udAbrBitrate{&vbr, "udAbrBitrate", "txtAbrBitrate", {250, 84, 114, 28}};    ///< kbit/s
    Frame frmVbrBitrate{&vbr, "frmVbrBitrate", {14, 122, 466, 88}, "Maximum VBR Bitrate"};
    SettingsSlider sldrVbrBitrate{
        &frmVbrBitrate, "sldrVbrBitrate", {14, 26, 438, 32}, lastBitratePosition, 2};
    FieldLabel lblVbrBitrate{&frmVbrBitrate, "lblVbrBitrate", {16, 60, 300, 18}, ""};
    Frame frmVbrAdvanced{&vbr, "frmVbrAdvanced", {14, 218, 466, 64}, "Advanced"};
    QCheckBox chWriteVBRHeader{&frmVbrAdvanced};
    QCheckBox chStrictlyEnforceMinBitrate{&frmVbrAdvanced};

    // ---- Expert
    QCheckBox chStrictlyISOCompliance{&expert};
    QCheckBox chShortBlocks{&expert};
    QCheckBox chBitReservoir{&expert};
    QCheckBox chBlockType{&expert};
    QCheckBox chErrorProtection{&expert};
    FieldLabel Label10{&expert, "Label10", {28, 186, 210, 28}, "ATH Control:"};
    QComboBox cmbATHControl{&expert};
    FieldLabel Label12{&expert, "Label12", {28, 224, 210, 28}, "De-emphasis :"};
    QComboBox cmbEmphasis{&expert};

    // ---- presets, counted from 1
    QRadioButton& opPreset(int index) { return opPresets_.at(static_cast<std::size_t>(index) - 1); }
    QRadioButton& opAltPreset(int index) { return opAltPresets_.at(static_cast<std::size_t>(index) - 1); }
    static constexpr int presetCount = 11;
    static constexpr int altPresetCount = 5;

private:
    std::array<QRadioButton, presetCount> opPresets_;
    std::array<QRadioButton, altPresetCount> opAltPresets_;

public:
    // ---- Command Line
    QLineEdit txtCommLine{&commandLine};

    // ---- below the tabs
    QPushButton cmdApply;
    QPushButton cmdCancel;
    QPushButton cmdOk;

private:
    void addPages();
    void fillGeneral();
    void fillFiltering();
    void fillVbr();
    void fillExpert();
    void fillPresets();
    void fillCommandLine();
    void nameFields();
    void orderTabs();
};
