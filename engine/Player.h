// The player: what the program feeds, hears about and may ask, over any backend. It keeps the queue, raises
// the events and counts the position; the backend only takes samples.
#pragma once

#include "core/AudioEngine.h"
#include "engine/PcmBackend.h"
#include "engine/PlayQueue.h"

#include <QTimer>

#include <type_traits>

/// Lives on the program's thread. Every handler may call any operation, run an event loop, or destroy the
/// player; what that makes stale is not raised any more.
class Player : public AudioPlayerStream {
public:
    /// With `ownTimer` the player ticks by itself while it plays, every 20 ms, on the event loop of this
    /// thread.
    explicit Player(std::shared_ptr<PcmBackend> backend, bool ownTimer = true);
    ~Player() override;

    /// Throws EngineError unless both are positive.
    void SetFormat(std::int32_t rate, std::int32_t channels) override;
    void Start() override;    ///< ends what was playing; the queue is empty afterwards
    bool GetFailed() const override { return failed_; }
    void
    PlayArray(SampleArray samples) override;    ///< an empty array is ignored, and any while nothing plays
    void ClearQueue() override;
    void Stop() override;

    std::int32_t MsToSamples(std::int32_t ms) const override;         ///< rounded down
    std::int32_t SamplesToMs(std::int32_t samples) const override;    ///< rounded down

    void SetVolume(std::int32_t volume) override { queue_.setVolume(volume); }
    std::int32_t GetVolume() const override { return queue_.volume(); }
    void SetMute(bool mute) override { queue_.setMute(mute); }

    std::int32_t GetDeviceCount() override;    ///< looks anew; device 0 is the one that the desktop prefers
    void SetDevice(std::int32_t index) override;
    bool GetDeviceValid() const override;

    SampleArray GetLevelArray(std::int32_t count) override;
    std::int32_t GetPositionSamples() const override;    ///< since `Start` or `ClearQueue`

    /// One round of events: arrays used up, the request for more, the position, the end.
    void tick();

private:
    template <typename... Arguments>
    bool raise(const std::function<void(Arguments...)>& event, std::type_identity_t<Arguments>... arguments);
    bool tellUsedUp();
    bool requestArray();
    bool tellPosition();
    void endWhenDone();
    std::string deviceId() const;

    std::shared_ptr<PcmBackend> backend_;
    QTimer timer_;
    const bool ownTimer_;
    PcmFormat format_;
    std::vector<std::string> devices_;
    std::int32_t device_ = 0;
    bool deviceChosen_ = false;
    bool failed_ = false;
    bool asked_ = false;            ///< the request for the next array was raised and not yet answered
    std::int32_t position_ = 0;     ///< frames, as told last
    std::shared_ptr<int> epoch_;    ///< changes with everything that makes a round of events stale
    PlayQueue queue_;
    std::unique_ptr<PcmOut> out_;    ///< while playing; pulls from `queue_`, so it goes first
};
