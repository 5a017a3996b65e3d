#include "engine/Player.h"

#include "core/Errors.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int tickMs = 20;
constexpr std::size_t arraysWanted = 2;    // the one that sounds and one behind it

std::int32_t narrowed(std::int64_t value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

std::int64_t dividedDown(std::int64_t value, std::int64_t divisor)
{
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

}

Player::Player(std::shared_ptr<PcmBackend> backend, bool ownTimer)
    : backend_(std::move(backend)), ownTimer_(ownTimer), epoch_(std::make_shared<int>(0))
{
    // A repeating timer is silent while its own handler runs an event loop, and the queue would starve there;
    // a single shot that is armed again first does go on.
    timer_.setSingleShot(true);
    timer_.setInterval(tickMs);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { tick(); });
}

Player::~Player()
{
    Stop();
    ++*epoch_;
}

void Player::SetFormat(std::int32_t rate, std::int32_t channels)
{
    if (rate <= 0 || channels <= 0) throw EngineError("no sound format");
    format_ = {rate, channels};
}

void Player::Start()
{
    Stop();
    ++*epoch_;
    position_ = 0;
    asked_ = false;
    queue_.open(format_);
    failed_ = deviceChosen_ && !GetDeviceValid();
    if (failed_) return;

    out_ = backend_->makeOut();
    failed_ = !out_->start(deviceId(), format_,
                           [this](std::int16_t* to, std::size_t frames) { return queue_.pull(to, frames); });
    if (failed_)
        out_.reset();
    else if (ownTimer_)
        timer_.start();
}

void Player::PlayArray(SampleArray samples)
{
    if (!out_ || samples.empty()) return;
    queue_.add(std::move(samples));
    asked_ = false;
    out_->wake();
}

void Player::ClearQueue()
{
    ++*epoch_;
    position_ = 0;
    asked_ = false;
    queue_.clear();
    if (out_) out_->flush();
}

void Player::Stop()
{
    if (!out_) return;
    ++*epoch_;
    timer_.stop();
    position_ = GetPositionSamples();
    out_.reset();
    queue_.clear();
}

std::int32_t Player::MsToSamples(std::int32_t ms) const
{
    return narrowed(dividedDown(std::int64_t{ms} * format_.rate, 1000));
}

std::int32_t Player::SamplesToMs(std::int32_t samples) const
{
    return narrowed(dividedDown(std::int64_t{samples} * 1000, format_.rate));
}

std::int32_t Player::GetDeviceCount()
{
    devices_.clear();
    for (const PcmDevice& sink : backend_->sinks()) devices_.push_back(sink.id);
    if (!devices_.empty()) devices_.insert(devices_.begin(), std::string());
    return narrowed(static_cast<std::int64_t>(devices_.size()));
}

void Player::SetDevice(std::int32_t index)
{
    if (devices_.empty()) GetDeviceCount();
    device_ = index;
    deviceChosen_ = true;
}

bool Player::GetDeviceValid() const
{
    return device_ >= 0 && static_cast<std::size_t>(device_) < devices_.size();
}

std::string Player::deviceId() const
{
    return GetDeviceValid() ? devices_[static_cast<std::size_t>(device_)] : std::string();
}

SampleArray Player::GetLevelArray(std::int32_t count)
{
    return queue_.latest(count, GetPositionSamples());
}

std::int32_t Player::GetPositionSamples() const
{
    return out_ ? narrowed(out_->state().heard) : position_;
}

void Player::tick()
{
    if (!out_) return;
    if (ownTimer_) timer_.start();
    if (tellUsedUp() && requestArray() && tellPosition()) endWhenDone();
}

/// Calls a handler. False when it stopped, started, cleared or destroyed the player: then the members that
/// this round has read mean nothing any more, and none may be touched.
template <typename... Arguments>
bool Player::raise(const std::function<void(Arguments...)>& event,
                   std::type_identity_t<Arguments>... arguments)
{
    const auto handler = event;
    const auto epoch = epoch_;
    const int before = *epoch;
    if (handler) handler(arguments...);
    return *epoch == before;
}

bool Player::tellUsedUp()
{
    while (queue_.takeUsedUp()) {
        asked_ = false;
        if (!raise(EndArrayPlay)) return false;
    }
    return true;
}

bool Player::requestArray()
{
    if (asked_ || queue_.arrays() >= arraysWanted) return true;
    asked_ = true;
    return raise(RequestOnLoadArray);
}

bool Player::tellPosition()
{
    position_ = GetPositionSamples();
    const PlayQueue::Levels levels = queue_.levels(position_);
    return raise(Timer, position_, levels.left, levels.right);
}

void Player::endWhenDone()
{
    const PcmOut::State state = out_->state();
    const bool allHeard = state.drained && queue_.arrays() == 0;
    // The end waits a round when the last frame was heard since the position was told: the total comes first.
    if (!state.dead && !(allHeard && position_ == narrowed(state.heard))) return;
    Stop();
    raise(EndPlay);
}
