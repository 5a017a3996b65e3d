#include "engine/AviCodec.h"

#include "engine/AviInput.h"

#include <algorithm>

namespace {

constexpr int learningPackets = 8;
constexpr int mostSilentPackets = 1000;

/// The set-up with the codec that the bytes themselves show.
CodecSetup nameCodec(AviInput&& input, const CodecSetup& setup)
{
    const Packet packet(av_packet_alloc());
    for (int i = 0; i < learningPackets && input.read(*packet); ++i) {
    }
    const auto parameters = newParameters();
    avcodec_parameters_copy(parameters.get(), setup.parameters.get());
    parameters->codec_id = input.codec();
    return {parameters, setup.timeBase};
}

/// The set-up with what the first sound shows, such as its rate.
CodecSetup learnCodec(AviInput&& input, const CodecSetup& setup)
{
    PacketDecoder decoder(setup);
    BlockList heard;
    const Packet packet(av_packet_alloc());
    for (int i = 0; i < mostSilentPackets && heard.size() == 0 && input.read(*packet); ++i)
        decoder.decode(packet.get(), &heard);
    return decoder.setup();
}

}    // namespace

std::optional<AviSource> findAviSource(const std::shared_ptr<const SourceFile>& file)
{
    auto avi = findAviFile(*file);
    if (!avi) return {};
    const auto sound = std::find_if(avi->sounds.begin(), avi->sounds.end(),
                                    [](const AviSound& tried) { return canDecode(tried.codec); });
    if (sound == avi->sounds.end()) return {};
    const CodecSetup named = nameCodec(AviInput(file, *avi, *sound), sound->codec);
    if (!canDecode(named)) return {};
    return AviSource{*avi, *sound, learnCodec(AviInput(file, *avi, *sound), named)};
}
