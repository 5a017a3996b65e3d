// How many packets ahead of a border a fresh decoder must see, so that from the border on it delivers exactly
// what one decoder for the whole file delivers.
#pragma once

#include "engine/PacketInput.h"

#include <span>

extern "C" {
#include <libavcodec/codec_id.h>
}

/// Whether sound of this codec can be decoded in pieces at all.
bool canDecodeInPieces(AVCodecID codec);

/// How many of the last of these packets that are; all of them where the border lies close to the start.
std::size_t prerollBefore(std::span<const Packet> packets, AVCodecID codec);
