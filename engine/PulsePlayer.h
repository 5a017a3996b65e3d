// Makes the player that is heard through the system's sound server.
#pragma once

#include "core/AudioEngine.h"

/// Call on the program's thread; all players share one connection, which is made at the first `Start` or
/// `GetDeviceCount`. Never throws for want of a server: `GetFailed` says so after `Start`.
std::unique_ptr<AudioPlayerStream> makePulsePlayer();
