// The functions of the LAME library, found at run time: the library may be absent.
#pragma once

#include <QString>

#include <lame/lame.h>

#include <memory>

/// The loaded library. All function members are set.
class LameApi {
public:
    /// Loads the library by file name or path. Throws EngineError when it or one of the functions is missing.
    explicit LameApi(const QString& file);
    ~LameApi();

    LameApi(const LameApi&) = delete;
    LameApi& operator=(const LameApi&) = delete;

    decltype(&lame_init) init = nullptr;
    decltype(&lame_init_params) initParams = nullptr;
    decltype(&lame_close) close = nullptr;
    decltype(&lame_encode_buffer) encodeBuffer = nullptr;
    decltype(&lame_encode_buffer_interleaved) encodeInterleaved = nullptr;
    decltype(&lame_encode_flush) encodeFlush = nullptr;
    decltype(&lame_get_lametag_frame) getLametagFrame = nullptr;
    decltype(&lame_set_errorf) setErrorf = nullptr;
    decltype(&lame_set_debugf) setDebugf = nullptr;
    decltype(&lame_set_msgf) setMsgf = nullptr;
    decltype(&lame_set_in_samplerate) setInSamplerate = nullptr;
    decltype(&lame_set_out_samplerate) setOutSamplerate = nullptr;
    decltype(&lame_set_num_channels) setNumChannels = nullptr;
    decltype(&lame_set_write_id3tag_automatic) setWriteId3tagAutomatic = nullptr;
    decltype(&lame_set_findReplayGain) setFindReplayGain = nullptr;
    decltype(&lame_set_bWriteVbrTag) setWriteVbrTag = nullptr;
    decltype(&lame_set_quality) setQuality = nullptr;
    decltype(&lame_set_mode) setMode = nullptr;
    decltype(&lame_set_force_ms) setForceMs = nullptr;
    decltype(&lame_set_brate) setBrate = nullptr;
    decltype(&lame_set_error_protection) setErrorProtection = nullptr;
    decltype(&lame_set_strict_ISO) setStrictIso = nullptr;
    decltype(&lame_set_disable_reservoir) setDisableReservoir = nullptr;
    decltype(&lame_set_VBR) setVbr = nullptr;
    decltype(&lame_set_VBR_q) setVbrQuality = nullptr;
    decltype(&lame_set_VBR_mean_bitrate_kbps) setVbrMeanBitrate = nullptr;
    decltype(&lame_set_VBR_min_bitrate_kbps) setVbrMinBitrate = nullptr;
    decltype(&lame_set_VBR_max_bitrate_kbps) setVbrMaxBitrate = nullptr;
    decltype(&lame_set_VBR_hard_min) setVbrHardMin = nullptr;
    decltype(&lame_set_lowpassfreq) setLowpassFrequency = nullptr;
    decltype(&lame_set_lowpasswidth) setLowpassWidth = nullptr;
    decltype(&lame_set_highpassfreq) setHighpassFrequency = nullptr;
    decltype(&lame_set_highpasswidth) setHighpassWidth = nullptr;
    decltype(&lame_set_ATHonly) setAthOnly = nullptr;
    decltype(&lame_set_ATHshort) setAthShort = nullptr;
    decltype(&lame_set_noATH) setNoAth = nullptr;
    decltype(&lame_set_allow_diff_short) setAllowDiffShort = nullptr;
    decltype(&lame_set_no_short_blocks) setNoShortBlocks = nullptr;
    decltype(&lame_set_emphasis) setEmphasis = nullptr;

private:
    std::shared_ptr<void> library_;
};

/// One encoder of the library, closed at the end.
class LameHandle {
public:
    /// A new encoder, not yet set up, that prints nothing. Throws EngineError when there is none.
    explicit LameHandle(const LameApi& api);

    lame_t get() const { return handle_.get(); }

    /// Checks the settings and readies the encoder. Throws EngineError when LAME refuses them.
    void initParams();

private:
    const LameApi& api_;
    std::unique_ptr<lame_global_flags, decltype(&lame_close)> handle_;
};
