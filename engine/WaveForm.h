// The header by which RIFF files describe sound: codec, rate, channels and what more the codec needs.
#pragma once

#include "engine/PacketDecoder.h"

#include <span>

/// Takes the bytes of the header; the time base becomes one sample. Empty parameters where the header is one
/// of the rare kinds that only libavformat knows.
CodecSetup parseWaveForm(std::span<const std::uint8_t> bytes);
