// Makes the real engine: the one thing of this folder that the rest of the program names.
#pragma once

#include "core/AudioEngine.h"

std::unique_ptr<AudioEngine> makeEngine();
