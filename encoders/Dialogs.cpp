#include "encoders/Dialogs.h"

#include "core/CutterSelect.h"
#include "encoders/frmMP3.h"
#include "encoders/frmOgg.h"
#include "encoders/frmWMA.h"

EncoderCaller callerFor(CutterSelect& form)
{
    return {&form, *form.FileWenc, [&form](const QString& formatString) {
                form.StatusBar1.Panels(2).setText(langText(71) + formatString);
            }};
}

// A dialog unloads itself on every way out; the second unload is for an event loop that ended under it.
void showMp3Settings(CutterSelect& form)
{
    Mp3SettingsForm->AppelconvertMain(form);
    Mp3SettingsForm->exec();
    Mp3SettingsForm.unload();
}

void showOggSettings(CutterSelect& form)
{
    OggSettingsForm->loadMain(form);
    OggSettingsForm->exec();
    OggSettingsForm.unload();
}

void showWmaSettings(CutterSelect& form)
{
    WmaSettingsForm->Form_Load(form);
    WmaSettingsForm->exec();
    WmaSettingsForm.unload();
}
