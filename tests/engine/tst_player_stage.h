// A player on a backend whose clock is the test, and all that it raised.
#pragma once

#include "engine/Player.h"
#include "tests/support/CodedSound.h"
#include "tests/support/FakeBackend.h"

/// The player ticks when it is told to.
struct Stage {
    std::shared_ptr<FakeBackend> backend = std::make_shared<FakeBackend>();
    Player player{backend, false};
    int requests = 0, arraysEnded = 0, ends = 0;
    std::vector<std::int32_t> positions;
    std::int32_t left = -1, right = -1;

    Stage()
    {
        player.RequestOnLoadArray = [this] { ++requests; };
        player.EndArrayPlay = [this] { ++arraysEnded; };
        player.EndPlay = [this] { ++ends; };
        player.Timer = [this](std::int32_t position, std::int32_t l, std::int32_t r) {
            positions.push_back(position);
            left = l;
            right = r;
        };
    }

    /// Lets time pass as a running program does, a tick every 20 ms.
    void run(int frames)
    {
        for (; frames > 0; frames -= 882) {
            backend->advance(static_cast<std::size_t>(std::min(frames, 882)));
            player.tick();
        }
    }

    FrameNumbers heard() const { return soundingFrames(frameNumbers(backend->sound)); }
};
