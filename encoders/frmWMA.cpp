#include "encoders/frmWMA.h"

#include "core/CutterSelect.h"
#include "core/toolkit/Look.h"
#include "core/toolkit/Wall.h"
#include "export/FormatTable.h"
#include "support/Registre.h"

#include <QSignalBlocker>

namespace {

const QString section = QStringLiteral("WMA");
const QString profileKey = QStringLiteral("Num");
constexpr int profilesBeforeTheEngineIsAsked = 51;

}

FormHolder<frmWMA> WmaSettingsForm;

frmWMA::frmWMA() : QDialog(MainForm)
{
    prepareSettingsForm(*this, QStringLiteral("frmWMA"), QStringLiteral("WMA Options"), {460, 144});
    put(txtWMAFormatString, QStringLiteral("txtWMAFormatString"), {16, 32, 314, 28});
    txtWMAFormatString.setFont(look::font(12));
    txtWMAFormatString.setReadOnly(true);
    txtWMAFormatString.setAccessibleName(frmWMAFormat.title());
    udWMAProfile.setUp(1, profilesBeforeTheEngineIsAsked, 1, defaultWmaProfile);
    udWMAProfile.setAccessibleName(QStringLiteral("Profile"));
    putButton(cmdOk, QStringLiteral("cmdOk"), {354, 100, 94, 30}, QStringLiteral("Ok"));
    cmdOk.setDefault(true);
    setTabOrderAll({&udWMAProfile, &txtWMAFormatString, &cmdOk});
    udWMAProfile.setFocus();
    connect(&udWMAProfile, &QSpinBox::valueChanged, this, guarded([this](int) { udWMAProfile_Change(); }));
    connect(&cmdOk, &QPushButton::clicked, this, guarded([this](bool) { cmdOk_Click(); }));
}

void frmWMA::Form_Load(CutterSelect& form)
{
    form_ = &form;
    if (parentWidget() != form_) setParent(&form, windowFlags());
    const QSignalBlocker quiet(udWMAProfile);    // nothing is stored before the user makes a step
    // Kept: the default first, then the profile that is stored.
    skipFaults([&] { form_->FileWenc->SetFormatWMA(defaultWmaProfile); });
    skipFaults([&] { udWMAProfile.setMaximum(form_->FileWenc->GetWmaProfileCount()); });
    skipFaults([&] {
        const QString number = IniRead(IniPath, section, profileKey);
        udWMAProfile.setValue(number.isEmpty() ? defaultWmaProfile : parseLong(number));
    });
    skipFaults([&] { form_->FileWenc->SetFormatWMA(udWMAProfile.value()); });
    skipFaults([&] { showProfile(); });
}

void frmWMA::udWMAProfile_Change()
{
    skipFaults([&] { form_->FileWenc->SetFormatWMA(udWMAProfile.value()); });
    skipFaults([&] { showProfile(); });
    skipFaults([&] { showFormatLine(); });
    skipFaults([&] { IniWrite(IniPath, section, profileKey, QString::number(udWMAProfile.value())); });
}

void frmWMA::showProfile()
{
    txtWMAFormatString.setText(form_->FileWenc->FormatString());
    txtWMAFormatString.setCursorPosition(0);
}

void frmWMA::showFormatLine()
{
    form_->showFormatLine();
}

void frmWMA::cmdOk_Click()
{
    showFormatLine();
    accept();
}

void frmWMA::done(int)
{
    WmaSettingsForm.unload();
}
