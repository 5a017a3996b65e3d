// A sound server for tests whose clock is the test: `advance` lets frames be heard, and `sound` keeps them.
#pragma once

#include "core/AudioEngine.h"
#include "engine/PcmBackend.h"

#include <algorithm>
#include <deque>

class FakeBackend : public PcmBackend {
public:
    bool ok = true;                    ///< false: no stream can be started
    std::size_t aheadFrames = 4410;    ///< how far a stream pulls ahead of what is heard
    std::vector<PcmDevice> devices{{"speaker", "Loudspeaker"}, {"phones", "Headphones"}};
    std::vector<std::string> started;    ///< the device of every stream started
    SampleArray sound;                   ///< all that was heard, interleaved, with the silence between
    std::size_t silentFrames = 0;        ///< frames for which a running stream had nothing

    /// Lets this many frames of time pass.
    void advance(std::size_t frames)
    {
        if (stream_) stream_->advance(frames);
    }

    bool playing() const { return stream_; }    ///< whether a stream is open

    /// The server goes away under the stream.
    void die() { stream_->dead_ = true; }

    std::vector<PcmDevice> sinks() override { return devices; }
    std::unique_ptr<PcmOut> makeOut() override { return std::make_unique<Out>(*this); }

private:
    class Out : public PcmOut {
    public:
        explicit Out(FakeBackend& owner) : owner_(owner) {}
        ~Out() override
        {
            if (owner_.stream_ == this) owner_.stream_ = nullptr;
        }

        bool start(const std::string& device, PcmFormat format, PcmPull pull) override
        {
            if (!owner_.ok) return false;
            owner_.started.push_back(device);
            owner_.stream_ = this;
            channels_ = static_cast<std::size_t>(format.channels);
            pull_ = std::move(pull);
            fill();
            return true;
        }
        void wake() override { fill(); }
        void flush() override
        {
            waiting_.clear();
            heard_ = 0;
            fill();
        }
        State state() override { return {heard_, ranDry_ && waiting_.empty(), dead_}; }

        void advance(std::size_t frames)
        {
            for (std::size_t k = 0; k < frames; ++k) {
                hearFrame();
                fill();
            }
        }

    private:
        friend class FakeBackend;

        void hearFrame()
        {
            if (waiting_.empty()) {
                owner_.sound.insert(owner_.sound.end(), channels_, 0);
                ++owner_.silentFrames;
                return;
            }
            const auto end = waiting_.begin() + static_cast<std::ptrdiff_t>(channels_);
            owner_.sound.insert(owner_.sound.end(), waiting_.begin(), end);
            waiting_.erase(waiting_.begin(), end);
            ++heard_;
        }

        void fill()
        {
            while (waiting_.size() < owner_.aheadFrames * channels_) {
                SampleArray piece(owner_.aheadFrames * channels_ - waiting_.size());
                const std::size_t got = pull_(piece.data(), piece.size() / channels_);
                ranDry_ = got == 0;
                if (ranDry_) return;
                waiting_.insert(waiting_.end(), piece.begin(),
                                piece.begin() + static_cast<std::ptrdiff_t>(got * channels_));
            }
        }

        FakeBackend& owner_;
        PcmPull pull_;
        std::size_t channels_ = 2;
        std::deque<std::int16_t> waiting_;    // pulled, not yet heard
        std::int64_t heard_ = 0;
        bool ranDry_ = false;
        bool dead_ = false;
    };

    Out* stream_ = nullptr;
};
