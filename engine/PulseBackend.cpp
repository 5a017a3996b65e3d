#include "engine/PulseBackend.h"

#include "engine/PulseOut.h"

namespace {

void addSink(pa_context*, const pa_sink_info* sink, int end, void* user)
{
    if (end != 0 || !sink->name) return;
    const char* const text = sink->description ? sink->description : sink->name;
    static_cast<std::vector<PcmDevice>*>(user)->push_back({sink->name, text});
}

}

PulseBackend::PulseBackend() : connection_(std::make_shared<PulseConnection>()) {}

std::vector<PcmDevice> PulseBackend::sinks()
{
    const PulseConnection::Lock lock(*connection_);
    std::vector<PcmDevice> found;
    if (!connection_->connect()) return {};
    PulseOperation list(pa_context_get_sink_info_list(connection_->context(), addSink, &found));
    return connection_->finish(std::move(list)) ? found : std::vector<PcmDevice>{};
}

std::unique_ptr<PcmOut> PulseBackend::makeOut()
{
    return std::make_unique<PulseOut>(connection_);
}

std::shared_ptr<PulseBackend> sharedPulseBackend()
{
    static std::weak_ptr<PulseBackend> shared;
    std::shared_ptr<PulseBackend> backend = shared.lock();
    if (!backend) {
        backend = std::make_shared<PulseBackend>();
        shared = backend;
    }
    return backend;
}
