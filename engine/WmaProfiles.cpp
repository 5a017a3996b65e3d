#include "engine/WmaProfiles.h"

#include "core/Errors.h"

#include <array>

namespace {

constexpr std::array profiles = {
    WmaProfile{8000, 1, 24},   WmaProfile{8000, 1, 32},                                 // 1
    WmaProfile{8000, 2, 24},   WmaProfile{8000, 2, 32},                                 // 3
    WmaProfile{11025, 1, 24},  WmaProfile{11025, 1, 32},                                // 5
    WmaProfile{11025, 2, 24},  WmaProfile{11025, 2, 32},                                // 7
    WmaProfile{16000, 1, 24},  WmaProfile{16000, 1, 32},  WmaProfile{16000, 1, 48},     // 9
    WmaProfile{16000, 2, 24},  WmaProfile{16000, 2, 32},  WmaProfile{16000, 2, 48},     // 12
    WmaProfile{16000, 2, 64},                                                           // 15
    WmaProfile{22050, 1, 24},  WmaProfile{22050, 1, 32},  WmaProfile{22050, 1, 48},     // 16
    WmaProfile{22050, 1, 64},                                                           // 19
    WmaProfile{22050, 2, 32},  WmaProfile{22050, 2, 48},  WmaProfile{22050, 2, 64},     // 20
    WmaProfile{22050, 2, 80},                                                           // 23
    WmaProfile{32000, 1, 32},  WmaProfile{32000, 1, 48},  WmaProfile{32000, 1, 64},     // 24
    WmaProfile{32000, 2, 48},  WmaProfile{32000, 2, 64},  WmaProfile{32000, 2, 96},     // 27
    WmaProfile{32000, 2, 128},                                                          // 30
    WmaProfile{44100, 1, 48},  WmaProfile{44100, 1, 64},  WmaProfile{44100, 1, 96},     // 31
    WmaProfile{44100, 1, 128},                                                          // 34
    WmaProfile{44100, 2, 48},  WmaProfile{44100, 2, 64},  WmaProfile{44100, 2, 80},     // 35
    WmaProfile{44100, 2, 96},  WmaProfile{44100, 2, 128}, WmaProfile{44100, 2, 160},    // 38
    WmaProfile{44100, 2, 192}, WmaProfile{44100, 2, 224}, WmaProfile{44100, 2, 256},    // 41
    WmaProfile{44100, 2, 320},                                                          // 44
    WmaProfile{48000, 1, 64},  WmaProfile{48000, 1, 96},                                // 45
    WmaProfile{48000, 2, 96},  WmaProfile{48000, 2, 128}, WmaProfile{48000, 2, 192},    // 47
    WmaProfile{48000, 2, 256}, WmaProfile{48000, 2, 320},                               // 50
};
static_assert(profiles.size() == 51);

}

QString WmaProfile::text() const
{
    return QString("WMA 2, %1 kbit/s, %2 Hz, %3")
        .arg(bitrate)
        .arg(rate)
        .arg(channels == 1 ? "mono" : "stereo");
}

std::int32_t wmaProfileCount()
{
    return static_cast<std::int32_t>(profiles.size());
}

const WmaProfile& wmaProfile(std::int32_t number)
{
    if (number < 1 || number > wmaProfileCount()) throw EngineError(QString("no WMA profile %1").arg(number));
    return profiles[static_cast<std::size_t>(number) - 1];
}
