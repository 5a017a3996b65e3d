#include "journeys/Listening.h"

#include "core/WaveScale.h"
#include "core/toolkit/Wall.h"

namespace {

constexpr int patienceMs = 60000;
constexpr qint64 halfASecond = 44100 / 2 * 4;    // bytes of the recording

}

// An error that reaches the wall ends the test program: the box that tells a user of it would wait for ever.
Listening::Listening() : oldFatal_(fatal)
{
    fatal = [](const std::exception& error) { qFatal("the program would end: %s", error.what()); };
}

Listening::~Listening()
{
    fatal = oldFatal_;
}

bool Listening::listen()
{
    return server.start() && server.record();
}

void Listening::openSong(std::int32_t frames)
{
    const QString song = journey.path(QStringLiteral("song.wav"));
    writeWav(song, codedSound(1, frames));
    journey.open(song);
    QCOMPARE(TotalSamples, frames);
}

void Listening::clickWave(int xPx, int yPx)
{
    const QPoint at(xPx, yPx);
    QWidget* target = &form().Picture1;
    while (QWidget* child = target->childAt(target->mapFrom(&form().Picture1, at))) target = child;
    QTest::mouseClick(target, Qt::LeftButton, {}, target->mapFrom(&form().Picture1, at));
}

std::int32_t Listening::lineSample()
{
    return sampleOfX(form().Picture1.Width(), TotalSamples, form().Line2.X1());
}

bool Listening::waitFor(const std::function<bool()>& done) const
{
    return QTest::qWaitFor(done, patienceMs);
}

bool Listening::playsPast(std::int32_t sample)
{
    return waitFor([&] { return lineSample() > sample; });
}

bool Listening::ends()
{
    return waitFor([&] { return !form().IsPlaying; });
}

FrameNumbers Listening::heardUpTo(std::int32_t frame) const
{
    const auto isThere = [&] {
        const FrameNumbers all = heard();
        return std::find(all.begin(), all.end(), frame) != all.end();
    };
    if (!waitFor(isThere)) return {};
    const qint64 end = server.recordedBytes() + halfASecond;
    return waitFor([&] { return server.recordedBytes() > end; }) ? heard() : FrameNumbers();
}

FrameNumbers operator+(FrameNumbers first, const FrameNumbers& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

FrameNumbers before(const FrameNumbers& heard, std::int32_t frame)
{
    return {heard.begin(), std::find(heard.begin(), heard.end(), frame)};
}
