// The program's part in playing, on a real player: it feeds coded sound and notes what is raised.
#pragma once

#include "tests/support/CodedSound.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>

/// Feeds a player from a stretch of coded sound as the program does, and notes what it raises.
struct Feeder {
    AudioPlayerStream& player;
    std::int32_t next, last;
    std::int32_t block = 100000;
    std::vector<std::int32_t> positions;
    int ends = 0;
    bool onProgramsThread = true;

    Feeder(AudioPlayerStream& fed, std::int32_t first, std::int32_t lastFrame)
        : player(fed), next(first), last(lastFrame)
    {
        player.RequestOnLoadArray = [this] { check(), feed(); };
        player.EndArrayPlay = [this] { check(); };
        player.EndPlay = [this] { check(), ++ends; };
        player.Timer = [this](std::int32_t position, std::int32_t, std::int32_t) {
            check();
            positions.push_back(position);
        };
    }

    void feed()
    {
        const std::int32_t count = std::min(block, last - next + 1);
        player.PlayArray(codedSound(next, count));
        next += count;
    }

    void start()
    {
        player.SetFormat(44100, 2);
        player.Start();
        feed();
        feed();
    }

    void goTo(std::int32_t frame)
    {
        player.ClearQueue();
        positions.clear();
        next = frame;
        feed();
        feed();
    }

    void check() { onProgramsThread &= QThread::currentThread() == QCoreApplication::instance()->thread(); }
};
