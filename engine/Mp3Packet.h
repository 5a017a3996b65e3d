// What the first four bytes of an MPEG audio packet tell.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

struct Mp3Packet {
    int rate = 0;              ///< Hz
    int frames = 0;            ///< samples per channel
    int reservoirBytes = 0;    ///< how far back the main data of a packet can begin
    int overheadBytes = 0;     ///< header, checksum and side information: what isn't main data
};

/// Empty where this is no packet's beginning.
std::optional<Mp3Packet> parseMp3Packet(std::span<const std::uint8_t> bytes);
