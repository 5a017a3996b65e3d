// Who has opened a settings dialog: what the dialog needs of the main form or of the joiner, and nothing
// more.
#pragma once

#include "core/AudioEngine.h"

class CutterSelect;
class QWidget;

struct EncoderCaller {
    QWidget* owner;                                           ///< the form that the dialog is modal to
    AudioFile& writer;                                        ///< gets the format
    std::function<void(const QString& formatString)> show;    ///< shows the writer's format
};

/// The main form, which shows the format line in its status bar.
EncoderCaller callerFor(CutterSelect& form);
