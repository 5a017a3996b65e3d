// A stream to an output device of the sound server. The server's thread asks for sound whenever the device
// has room, so nothing that the program's thread does can make it stop.
#pragma once

#include "engine/PcmBackend.h"
#include "engine/PulseConnection.h"

class PulseOut : public PcmOut {
public:
    /// `aheadMs`: how far the server is kept supplied ahead of what is heard.
    explicit PulseOut(std::shared_ptr<PulseConnection> connection, int aheadMs = 100);
    ~PulseOut() override;

    bool start(const std::string& device, PcmFormat format, PcmPull pull) override;
    void wake() override;
    void flush() override;
    State state() override;

private:
    static void streamChanged(pa_stream*, void* self);
    static void roomLeft(pa_stream*, std::size_t, void* self);
    static void flushed(pa_stream*, int, void* self);
    static void allHeard(pa_stream*, int, void* self);

    bool open(const std::string& device, PcmFormat format);
    void close();
    void fill();
    bool writeSome();
    void drain();
    std::int64_t heardNow() const;

    std::shared_ptr<PulseConnection> connection_;
    const int aheadMs_;
    // All below: with the connection's lock held, or on its thread.
    PcmPull pull_;
    pa_stream* stream_ = nullptr;
    std::size_t frameBytes_ = 0;
    PulseOperation flush_;    ///< on its way: nothing may be written, or it would drop new sound
    PulseOperation drain_;    ///< on its way: the server will tell when all has been heard
    bool drained_ = false;
    std::int64_t written_ = 0;    ///< frames since `start` or `flush`
    std::int64_t heard_ = 0;      ///< frames, as told last
};
