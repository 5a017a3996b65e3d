// Dialog: the WMA profile. Every step takes effect at once; there is no Cancel.
#pragma once

#include "core/toolkit/FormHolder.h"
#include "encoders/SettingsControls.h"

#include <QLineEdit>

class CutterSelect;

class frmWMA : public QDialog {
    Q_OBJECT

public:
    frmWMA();

    Frame frmWMAFormat{this, "frmWMAFormat", {12, 10, 436, 78}, "WMA Format"};
    QLineEdit txtWMAFormatString{&frmWMAFormat};    ///< what the engine says of the profile
    NumberBox udWMAProfile{&frmWMAFormat, "udWMAProfile", "txtWMAProfile", {342, 32, 78, 28}};
    QPushButton cmdOk{this};

    /// Shows the stored profile of the main form's writer. A step that fails is passed over.
    void Form_Load(CutterSelect& form);
    void udWMAProfile_Change();
    void cmdOk_Click();

    void unloading() {}
    void done(int result) override;    ///< every way out unloads the form

private:
    void showProfile();
    void showFormatLine();

    CutterSelect* form_ = nullptr;
};

extern FormHolder<frmWMA> WmaSettingsForm;
