// What a system's sound server is to the engine: devices, and streams that move samples. It knows nothing of
// arrays, events or volume; those rules stand in the classes that use it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

struct PcmFormat {
    int rate = 44100;    ///< Hz
    int channels = 2;
};

/// Fills `to` with up to `frames` frames, interleaved, and says how many. 0: nothing is left. Called on a
/// thread of the backend or inside `wake`, never two calls at once. Must not throw.
using PcmPull = std::function<std::size_t(std::int16_t* to, std::size_t frames)>;

/// A stream to an output device, used on one thread. It pulls what it needs.
class PcmOut {
public:
    virtual ~PcmOut() = default;    ///< stops; `pull` is not called from here on

    /// Opens the device and begins to pull. Waits for the server, but not without limit; false: it could not.
    /// `device` is an id of `sinks`, or empty for the one that the desktop prefers.
    virtual bool start(const std::string& device, PcmFormat format, PcmPull pull) = 0;

    virtual void wake() = 0;     ///< there is something to pull again
    virtual void flush() = 0;    ///< drops what was pulled and not yet heard; `heard` starts at 0 again

    struct State {
        std::int64_t heard = 0;    ///< frames that have left the device since `start` or `flush`
        bool drained = false;      ///< the last pull gave nothing and all that was pulled has been heard
        bool dead = false;         ///< the server or the device is gone
    };
    virtual State state() = 0;
};

struct PcmDevice {
    std::string id;
    std::string name;    ///< as the user knows it, UTF-8
};

/// One kind of sound server.
class PcmBackend {
public:
    virtual ~PcmBackend() = default;

    virtual std::vector<PcmDevice> sinks() = 0;    ///< output devices now present; empty without a server
    virtual std::unique_ptr<PcmOut> makeOut() = 0;
};
