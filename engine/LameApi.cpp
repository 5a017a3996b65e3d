#include "engine/LameApi.h"

#include "core/Errors.h"

#include <QFile>

#include <dlfcn.h>
#include <mutex>

namespace {

void printNothing(const char*, va_list) {}

std::shared_ptr<void> openLibrary(const QString& file)
{
    void* library = ::dlopen(QFile::encodeName(file).constData(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) throw EngineError("LAME: " + QString::fromLocal8Bit(::dlerror()));
    return {library, [](void* opened) { ::dlclose(opened); }};
}

template <typename Function>
void find(void* library, const char* name, Function& function)
{
    function = reinterpret_cast<Function>(::dlsym(library, name));
    if (function == nullptr) throw EngineError(QString("LAME: the library has no %1").arg(name));
}

// LAME fills tables that all its encoders share while it readies one.
std::mutex& initMutex()
{
    static std::mutex mutex;
    return mutex;
}

}

LameApi::~LameApi() = default;

LameApi::LameApi(const QString& file) : library_(openLibrary(file))
{
    const auto get = [this](const char* name, auto& function) { find(library_.get(), name, function); };
    get("lame_init", init);
    get("lame_init_params", initParams);
    get("lame_close", close);
    get("lame_encode_buffer", encodeBuffer);
    get("lame_encode_buffer_interleaved", encodeInterleaved);
    get("lame_encode_flush", encodeFlush);
    get("lame_get_lametag_frame", getLametagFrame);
    get("lame_set_errorf", setErrorf);
    get("lame_set_debugf", setDebugf);
    get("lame_set_msgf", setMsgf);
    get("lame_set_in_samplerate", setInSamplerate);
    get("lame_set_out_samplerate", setOutSamplerate);
    get("lame_set_num_channels", setNumChannels);
    get("lame_set_write_id3tag_automatic", setWriteId3tagAutomatic);
    get("lame_set_findReplayGain", setFindReplayGain);
    get("lame_set_bWriteVbrTag", setWriteVbrTag);
    get("lame_set_quality", setQuality);
    get("lame_set_mode", setMode);
    get("lame_set_force_ms", setForceMs);
    get("lame_set_brate", setBrate);
    get("lame_set_error_protection", setErrorProtection);
    get("lame_set_strict_ISO", setStrictIso);
    get("lame_set_disable_reservoir", setDisableReservoir);
    get("lame_set_VBR", setVbr);
    get("lame_set_VBR_q", setVbrQuality);
    get("lame_set_VBR_mean_bitrate_kbps", setVbrMeanBitrate);
    get("lame_set_VBR_min_bitrate_kbps", setVbrMinBitrate);
    get("lame_set_VBR_max_bitrate_kbps", setVbrMaxBitrate);
    get("lame_set_VBR_hard_min", setVbrHardMin);
    get("lame_set_lowpassfreq", setLowpassFrequency);
    get("lame_set_lowpasswidth", setLowpassWidth);
    get("lame_set_highpassfreq", setHighpassFrequency);
    get("lame_set_highpasswidth", setHighpassWidth);
    get("lame_set_ATHonly", setAthOnly);
    get("lame_set_ATHshort", setAthShort);
    get("lame_set_noATH", setNoAth);
    get("lame_set_allow_diff_short", setAllowDiffShort);
    get("lame_set_no_short_blocks", setNoShortBlocks);
    get("lame_set_emphasis", setEmphasis);
}

LameHandle::LameHandle(const LameApi& api) : api_(api), handle_(nullptr, api.close)
{
    const std::lock_guard lock(initMutex());
    handle_.reset(api.init());
    if (!handle_) throw EngineError("LAME: no encoder");
    api.setErrorf(get(), printNothing);
    api.setDebugf(get(), printNothing);
    api.setMsgf(get(), printNothing);
}

void LameHandle::initParams()
{
    const std::lock_guard lock(initMutex());
    if (api_.initParams(get()) < 0) throw EngineError("LAME: settings refused");
}
