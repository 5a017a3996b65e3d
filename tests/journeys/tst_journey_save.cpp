// Cutting, naming, tagging and saving real files in the real window.
#include "journeys/CutSong.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>

namespace {

// That song with all tags filled in and a title for its second part.
void openAndCutWithTags(Journey& journey)
{
    openAndCut(journey);
    journey.title(2, QStringLiteral("Middle"));
    fillTags(journey);
}

// Saves all parts in the format selected, and gives the folder.
QString saveAll(Journey& journey)
{
    const QString out = journey.folder(QStringLiteral("out"));
    journey.saveAll(out);
    return out;
}

}

class tst_journey_save : public QObject {
    Q_OBJECT

private slots:
    void allPartsAsWavLaidEndToEndAreTheSource();
    void filesAreNamedByTheirTitlesOrTheirNumbers();
    void allPartsAsMp3HaveTheirExactLengthAndTheTags();
    void allPartsAsOggHaveTheirExactLengthAndTheTags();
    void allPartsAsWmaHaveTheirLengthAndTheTags();
    void anId3v1TagStandsAtTheEndOfAnMp3();
    void onePartInAnotherFormatLeavesTheSelectionAsItIs();
    void anExistingFileIsReplacedWithoutAQuestion();
    void aPartOf48kHzIsSavedAsWavOf44100();
    void theEarlierPartOfASongCanBeSavedOverTheSongItself();
    void aTitleWithQuotesIsTheNameOfTheFile();
};

void tst_journey_save::allPartsAsWavLaidEndToEndAreTheSource()
{
    Journey journey;
    openAndCut(journey);
    journey.title(1, QStringLiteral("Intro"));
    journey.form().SelecWav.trigger();
    const QString out = saveAll(journey);
    SampleArray together;
    for (const char* name : {"Intro.WAV", "song-Part 2.wav", "song-Part 3.wav"}) {
        const SampleArray part = readWav(out + QLatin1Char('/') + QString::fromLatin1(name));
        QVERIFY2(!part.empty(), name);
        together.insert(together.end(), part.begin(), part.end());
    }
    QVERIFY(together == readWav(journey.path(QStringLiteral("song.wav"))));
}

void tst_journey_save::filesAreNamedByTheirTitlesOrTheirNumbers()
{
    Journey journey;
    openAndCut(journey);
    journey.title(1, QStringLiteral("Intro"));
    journey.form().SelecWav.trigger();
    const QString out = saveAll(journey);
    QCOMPARE(QDir(out).entryList(QDir::Files, QDir::Name),
             (QStringList{"Intro.WAV", "song-Part 2.wav", "song-Part 3.wav"}));
}

static void checkTags(const QString& file, const QString& title)
{
    QCOMPARE(probedTag(file, QStringLiteral("title")), title);
    QCOMPARE(probedTag(file, QStringLiteral("artist")), QStringLiteral("The Artist"));
    QCOMPARE(probedTag(file, QStringLiteral("album")), QStringLiteral("The Album"));
    QCOMPARE(probedTag(file, QStringLiteral("genre")), QStringLiteral("Jazz"));
    const QString comment =
        probedTag(file, QStringLiteral("comment")) + probedTag(file, QStringLiteral("description"));
    QVERIFY2(comment.contains(QStringLiteral("a comment of 29 characters ok")), qPrintable(comment));
    const QString year = probedTag(file, QStringLiteral("date")) + probedTag(file, QStringLiteral("year")) +
                         probedTag(file, QStringLiteral("WM/Year"));
    QVERIFY2(year.contains(QStringLiteral("2024")), qPrintable(year));
    const QString encoder =
        probedTag(file, QStringLiteral("encoded_by")) + probedTag(file, QStringLiteral("encodedby")) +
        probedTag(file, QStringLiteral("encoded-by")) + probedTag(file, QStringLiteral("WM/EncodedBy"));
    QVERIFY2(encoder.contains(QStringLiteral("Quillon - Meridel")), qPrintable(encoder));
}

void tst_journey_save::allPartsAsMp3HaveTheirExactLengthAndTheTags()
{
    Journey journey;
    openAndCutWithTags(journey);
    const QString out = saveAll(journey);
    checkTags(out + QStringLiteral("/Middle.MP3"), QStringLiteral("Middle"));
    checkTags(out + QStringLiteral("/song-Part 3.mp3"), QString());
    QCOMPARE(decoded(out + QStringLiteral("/song-Part 1.mp3")).size(),
             static_cast<std::size_t>(lengthOfPart(1)) * 2);
    QCOMPARE(decoded(out + QStringLiteral("/Middle.MP3")).size(),
             static_cast<std::size_t>(lengthOfPart(2)) * 2);
}

void tst_journey_save::allPartsAsOggHaveTheirExactLengthAndTheTags()
{
    Journey journey;
    openAndCutWithTags(journey);
    journey.form().selecOgg.trigger();
    const QString out = saveAll(journey);
    checkTags(out + QStringLiteral("/Middle.OGG"), QStringLiteral("Middle"));
    QCOMPARE(decoded(out + QStringLiteral("/Middle.OGG")).size(),
             static_cast<std::size_t>(lengthOfPart(2)) * 2);
    QCOMPARE(decoded(out + QStringLiteral("/song-Part 3.ogg")).size(),
             static_cast<std::size_t>(lengthOfPart(3)) * 2);
}

void tst_journey_save::allPartsAsWmaHaveTheirLengthAndTheTags()
{
    Journey journey;
    journey.setting(QStringLiteral("WMA"), QStringLiteral("WMASUPPORT"), QStringLiteral("True"));
    openAndCutWithTags(journey);
    journey.form().SelecWma.trigger();
    const QString out = saveAll(journey);
    checkTags(out + QStringLiteral("/Middle.WMA"), QStringLiteral("Middle"));
    const auto frames = static_cast<std::int32_t>(decoded(out + QStringLiteral("/Middle.WMA")).size() / 2);
    QVERIFY2(std::abs(frames - lengthOfPart(2)) <= 2 * 2048,
             qPrintable(QString::number(frames - lengthOfPart(2))));
}

void tst_journey_save::anId3v1TagStandsAtTheEndOfAnMp3()
{
    Journey journey;
    openAndCut(journey);
    journey.title(1, QStringLiteral("Thirty characters of a title.."));
    fillTags(journey);
    const QString out = saveAll(journey);
    QFile file(out + QStringLiteral("/Thirty characters of a title...MP3"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray tag = file.readAll().right(128);
    QCOMPARE(tag.left(3), QByteArray("TAG"));
    QCOMPARE(tag.mid(3, 30), QByteArray("Thirty characters of a title.."));
    QCOMPARE(tag.mid(33, 10), QByteArray("The Artist"));
    QCOMPARE(tag.mid(93, 4), QByteArray("2024"));
    QCOMPARE(tag.mid(97, 29), QByteArray("a comment of 29 characters ok"));
    QCOMPARE(static_cast<int>(static_cast<unsigned char>(tag.at(127))), 8);
}

void tst_journey_save::onePartInAnotherFormatLeavesTheSelectionAsItIs()
{
    Journey journey;
    openAndCut(journey);
    journey.selectRow(3);
    const QString line = journey.form().StatusBar1.Panels(2).text();
    journey.savePart(journey.form().SavePartWav, journey.path(QStringLiteral("end.wav")));
    const SampleArray source = readWav(journey.path(QStringLiteral("song.wav")));
    const SampleArray tail(source.end() - lengthOfPart(3) * 2, source.end());
    QVERIFY(readWav(journey.path(QStringLiteral("end.wav"))) == tail);
    QCOMPARE(journey.form().OUTPUTFORMAT, QStringLiteral("MP3"));
    QCOMPARE(journey.form().StatusBar1.Panels(2).text(), line);
}

void tst_journey_save::anExistingFileIsReplacedWithoutAQuestion()
{
    Journey journey;
    openAndCut(journey);
    const QString target = journey.path(QStringLiteral("target.wav"));
    QFile old(target);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("old content");
    old.close();
    journey.selectRow(1);
    journey.savePart(journey.form().SavePartWav, target);
    QVERIFY(journey.dialogs.messages.isEmpty());
    QCOMPARE(readWav(target).size(), static_cast<std::size_t>(lengthOfPart(1)) * 2);
}

void tst_journey_save::aPartOf48kHzIsSavedAsWavOf44100()
{
    Journey journey;
    const QString song = journey.path(QStringLiteral("fast.wav"));
    writeWav(song, music(4 * 48000), 48000);
    journey.open(song);
    journey.cutAt(2 * 48000);
    journey.selectRow(1);
    const double expected = lengthOfPart(1) * 44100.0 / 48000;
    journey.savePart(journey.form().SavePartWav, journey.path(QStringLiteral("slow.wav")));
    QVERIFY(std::abs(static_cast<double>(readWav(journey.path(QStringLiteral("slow.wav"))).size()) / 2 -
                     expected) <= 1);
}

void tst_journey_save::theEarlierPartOfASongCanBeSavedOverTheSongItself()
{
    Journey journey;
    openAndCut(journey);
    const SampleArray source = readWav(journey.path(QStringLiteral("song.wav")));
    journey.selectRow(2);
    journey.savePart(journey.form().SavePartWav, journey.path(QStringLiteral("song.wav")));
    const auto from = source.begin() + CutPoints[1] * 2;
    QVERIFY(readWav(journey.path(QStringLiteral("song.wav"))) ==
            SampleArray(from, from + lengthOfPart(2) * 2));
}

void tst_journey_save::aTitleWithQuotesIsTheNameOfTheFile()
{
    Journey journey;
    openAndCut(journey);
    journey.title(2, QStringLiteral("Say \"hi\""));
    journey.selectRow(2);
    journey.dialogs.expect([&](QDialog& dialog) {
        static_cast<QFileDialog&>(dialog).setDirectory(journey.folder(QStringLiteral("out")));
        QMetaObject::invokeMethod(&dialog, "accept", Qt::QueuedConnection);
        return true;
    });
    journey.form().SavePartWav.trigger();
    QCOMPARE(readWav(journey.path(QStringLiteral("out/Say \"hi\".WAV"))).size(),
             static_cast<std::size_t>(lengthOfPart(2)) * 2);
}

QTEST_MAIN(tst_journey_save)
#include "tst_journey_save.moc"
