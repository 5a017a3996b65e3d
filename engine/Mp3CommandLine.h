// Sets the properties of an MP3 format from switches as LAME's own command line has them.
#pragma once

#include "core/AudioEngine.h"

/// Goes through the switches from left to right; the last one that sets a property wins. Unknown switches are
/// ignored, together with their value where LAME gives them one; a value that is no number changes nothing.
void applyCommandLine(Mp3Format& format, const QString& text);
