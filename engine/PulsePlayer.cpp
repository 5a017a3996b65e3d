#include "engine/PulsePlayer.h"

#include "engine/Player.h"
#include "engine/PulseBackend.h"

std::unique_ptr<AudioPlayerStream> makePulsePlayer()
{
    return std::make_unique<Player>(sharedPulseBackend());
}
