#include "engine/Preroll.h"

#include "engine/Mp3Packet.h"

#include <algorithm>

namespace {

// A Vorbis packet overlaps with the one before it; one more is for safety. A WMA decoder drops two frames
// when it starts, and overlaps too. An MP3 packet overlaps with the one before it, for which all the bytes
// that it borrows from packets further back must be there.
constexpr std::size_t vorbisPackets = 2;
constexpr std::size_t wmaPackets = 4;
constexpr std::size_t mp3Packets = 2;

std::size_t mp3Preroll(std::span<const Packet> packets)
{
    std::size_t count = std::min(mp3Packets, packets.size());
    for (int bytes = 0; count < packets.size(); ++count) {
        const AVPacket& packet = *packets[packets.size() - 1 - count];
        const auto head = parseMp3Packet({packet.data, static_cast<std::size_t>(packet.size)});
        if (!head) continue;
        if (bytes >= head->reservoirBytes) break;
        bytes += std::max(1, packet.size - head->overheadBytes);
    }
    return count;
}

}    // namespace

bool canDecodeInPieces(AVCodecID codec)
{
    return codec == AV_CODEC_ID_MP3 || codec == AV_CODEC_ID_VORBIS || codec == AV_CODEC_ID_WMAV1 ||
           codec == AV_CODEC_ID_WMAV2;
}

std::size_t prerollBefore(std::span<const Packet> packets, AVCodecID codec)
{
    if (codec == AV_CODEC_ID_MP3) return mp3Preroll(packets);
    return std::min(codec == AV_CODEC_ID_VORBIS ? vorbisPackets : wmaPackets, packets.size());
}
