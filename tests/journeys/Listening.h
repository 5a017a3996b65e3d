// A journey that is heard: the program plays on a sound server of the test's own, and the song tells of every
// frame which one it is. Frames count from 1, so the frame with number s + 1 is sample s.
#pragma once

#include "journeys/Journey.h"
#include "support/CodedSound.h"
#include "support/Mouse.h"
#include "support/PulseServer.h"

class Listening {
public:
    Listening();
    ~Listening();

    PulseServer server;    ///< until `listen` has been called there is no server at all
    Journey journey;

    CutterSelect& form() { return journey.form(); }

    bool listen();    ///< starts the server and records what is heard; true once both run
    /// Opens a song of this length, stereo at 44100 Hz.
    void openSong(std::int32_t frames);

    /// A click at a pixel of the waveform, on whatever lies there.
    void clickWave(int xPx, int yPx = 100);
    std::int32_t lineSample();    ///< where the position line stands

    // ---- waiting, with the event loop running; false or empty when it takes far too long
    bool waitFor(const std::function<bool()>& done) const;
    bool playsPast(std::int32_t sample);    ///< the line has come by this sample
    bool ends();                            ///< the program plays no more
    /// Once this frame is in the recording, and half a second behind it: all frames heard, without the
    /// silence.
    FrameNumbers heardUpTo(std::int32_t frame) const;
    FrameNumbers heard() const { return soundingFrames(frameNumbers(server.recordedSince())); }

private:
    std::function<void(const std::exception&)> oldFatal_;
};

/// One stretch after the other.
FrameNumbers operator+(FrameNumbers first, const FrameNumbers& second);

/// The frames of a recording before this one.
FrameNumbers before(const FrameNumbers& heard, std::int32_t frame);
