// The sound server behind libpulse: PulseAudio, or PipeWire's server of the same protocol.
#pragma once

#include "engine/PcmBackend.h"
#include "engine/PulseConnection.h"

/// Used on the program's thread.
class PulseBackend : public PcmBackend {
public:
    PulseBackend();

    std::vector<PcmDevice> sinks() override;
    std::unique_ptr<PcmOut> makeOut() override;

private:
    std::shared_ptr<PulseConnection> connection_;
};

/// The backend that all objects of the program share; it ends with the last of them.
std::shared_ptr<PulseBackend> sharedPulseBackend();
