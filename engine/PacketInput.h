// Where the packets of one sound stream come from. One object is one pass over the file from its start.
#pragma once

#include <memory>

extern "C" {
#include <libavcodec/packet.h>
}

struct FreePacket {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
using Packet = std::unique_ptr<AVPacket, FreePacket>;

class PacketInput {
public:
    virtual ~PacketInput() = default;

    /// The next packet; false at the end, and where the file can't be read any further.
    virtual bool read(AVPacket& packet) = 0;

    /// The next packet just for counting its sound. Its bytes are valid until the next call, and missing
    /// where the size alone tells.
    virtual bool readToCount(AVPacket& packet) { return read(packet); }
};
