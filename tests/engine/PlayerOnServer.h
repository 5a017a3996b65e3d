// A player on a sound server of its own, with a recorder at the server's output.
#pragma once

#include "engine/PulsePlayer.h"
#include "tests/engine/tst_player_feeder.h"
#include "tests/support/PulseServer.h"

#include <QTest>

#include <memory>

constexpr int patienceMs = 30000;

/// What the tests of such a player share; a test class derives from it.
class PlayerOnServer {
protected:
    bool startServer()
    {
        server_ = std::make_unique<PulseServer>();
        if (!server_->start() || !server_->record()) return false;
        player_ = makePulsePlayer();
        return true;
    }

    void stopServer()
    {
        player_.reset();
        server_.reset();
    }

    /// Waits until this frame has been recorded, and gives all frames but the silent ones.
    FrameNumbers recordedUpTo(std::int32_t frame)
    {
        FrameNumbers heard;
        const auto isThere = [&] {
            heard = soundingFrames(frameNumbers(server_->recordedSince()));
            return std::find(heard.begin(), heard.end(), frame) != heard.end();
        };
        return QTest::qWaitFor(isThere, patienceMs) ? heard : FrameNumbers();
    }

    bool ended(const Feeder& feeder)
    {
        return QTest::qWaitFor([&] { return feeder.ends > 0; }, patienceMs);
    }

    std::unique_ptr<PulseServer> server_;
    std::unique_ptr<AudioPlayerStream> player_;
};
