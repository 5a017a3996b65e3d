// Ten seconds of sound with a tag in which every field is filled.
#pragma once

#include "support/FormFixture.h"

inline constexpr std::int32_t tenSeconds = 10 * testRate;

inline FakeSound taggedSong()
{
    FakeSound song = fakeSound(tenSeconds);
    song.title = QStringLiteral("Rain");
    song.artist = QStringLiteral("Ana");
    song.album = QStringLiteral("Weather");
    song.comment = QStringLiteral("live");
    song.genre = 17;
    song.year = 1998;
    return song;
}
