#include "engine/Mp3Packet.h"

namespace {

constexpr int rates[3] = {44100, 48000, 32000};    // of MPEG 1; halved in MPEG 2, quartered in 2.5
constexpr int layer3 = 1, layer1 = 3;              // as the header counts them
constexpr int mono = 3;

int framesOf(int layer, bool lowRate)
{
    if (layer == layer1) return 384;
    return layer == layer3 && lowRate ? 576 : 1152;
}

int sideBytesOf(bool lowRate, bool isMono)
{
    if (lowRate) return isMono ? 9 : 17;
    return isMono ? 17 : 32;
}

}    // namespace

std::optional<Mp3Packet> parseMp3Packet(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() < 4 || bytes[0] != 0xff || (bytes[1] & 0xe0) != 0xe0) return {};
    const int version = bytes[1] >> 3 & 3;    // 3 MPEG 1, 2 MPEG 2, 0 MPEG 2.5
    const int layer = bytes[1] >> 1 & 3;
    const int rateIndex = bytes[2] >> 2 & 3;
    if (version == 1 || layer == 0 || rateIndex == 3 || bytes[2] >> 4 == 15) return {};

    const bool lowRate = version != 3;
    Mp3Packet packet;
    packet.rate = rates[rateIndex] >> (version == 3 ? 0 : version == 2 ? 1 : 2);
    packet.frames = framesOf(layer, lowRate);
    packet.reservoirBytes = lowRate ? 255 : 511;
    const int checksumBytes = (bytes[1] & 1) ? 0 : 2;
    packet.overheadBytes = 4 + checksumBytes + sideBytesOf(lowRate, bytes[3] >> 6 == mono);
    return packet;
}
