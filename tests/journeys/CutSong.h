// A song that is cut and tagged, ready to be saved.
#pragma once

#include "journeys/Journey.h"

#include <QTest>

/// A song of six seconds, open, cut at about two and four seconds.
inline void openAndCut(Journey& journey)
{
    const QString song = journey.path(QStringLiteral("song.wav"));
    writeWav(song, music(6 * 44100));
    journey.open(song);
    journey.cutAt(2 * 44100);
    journey.cutAt(4 * 44100);
}

inline void fillTags(Journey& journey)
{
    CutterSelect& form = journey.form();
    QTest::mouseClick(&form.Image22, Qt::LeftButton);
    QTest::keyClicks(&form.infoArtist, QStringLiteral("The Artist"));
    QTest::keyClicks(&form.infoAlbum, QStringLiteral("The Album"));
    form.infoGenre.setCurrentIndex(8);
    QTest::keyClicks(&form.infoComment, QStringLiteral("a comment of 29 characters ok"));
    QTest::keyClicks(&form.infoYear, QStringLiteral("2024"));
    QTest::mouseClick(&form.Image23, Qt::LeftButton);
}

inline std::int32_t lengthOfPart(int row)
{
    const std::int32_t start = row == 1 ? 0 : CutPoints.at(static_cast<std::size_t>(row - 1));
    const std::int32_t end = row == CutCount + 1 ? TotalSamples : CutPoints.at(static_cast<std::size_t>(row));
    return end - start;
}
