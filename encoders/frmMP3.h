// Dialog: the settings of the MP3 encoder. It has none of its own: it fills its controls from the format
// object that the caller hands it, and the tab that shows decides how Apply changes that object.
#pragma once

#include "core/toolkit/FormHolder.h"
#include "encoders/EncoderCaller.h"
#include "encoders/Mp3Tabs.h"

#include <optional>

class frmMP3 : public QDialog, public Mp3Tabs {
    Q_OBJECT

public:
    frmMP3();

    Mp3Format* MP3LameEncoder = nullptr;    ///< the object being edited
    std::int16_t Preset = 1;                ///< chosen preset, 1 to 11
    std::int16_t AltPreset = 1;             ///< chosen alt-preset, 1 to 5
    std::int32_t CallerMode = 0;            ///< 3 main form, 4 joiner

    /// Takes the caller's object and fills the dialog, which the caller then shows modally. Throws
    /// ConversionError when the object holds a value for which a list has no row.
    void AppelconvertMain(CutterSelect& form);
    void AppelJoiner(Mp3Format& format, const EncoderCaller& joiner);

    // ---- frmMP3_Show.cpp
    void ShowSettings();

    // ---- frmMP3_Apply.cpp
    /// Changes the object as the tab that shows says, gives it to the writer, stores the 22 properties.
    void ApplySettings();

    // ---- rules of the controls
    void sldrBitrate_Change();
    void sldrVbrBitrate_Change();
    void sldrQuality_Change();
    void chHFilt_Click();
    void chLFilt_Click();
    void cmbVBRCodingMethod_Click();
    void cmdOk_Click();

    void unloading() {}
    void done(int result) override;    ///< every way out unloads the form

private:
    void attach();
    template <typename Choose>
    void attachOption(QRadioButton& option, Choose choose);
    void enter(Mp3Format& format, const EncoderCaller& caller, std::int32_t mode);
    // ---- frmMP3_Show.cpp
    void showBitrates();
    void showVbr();
    void showFilters();
    void showExpert();
    // ---- frmMP3_Apply.cpp
    void takeControls();
    void giveToWriter();
    void store() const;

    std::optional<EncoderCaller> caller_;
};

extern FormHolder<frmMP3> Mp3SettingsForm;
