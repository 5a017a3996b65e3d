// Cutting, naming, tagging and saving real files in the real window.
#include "journeys/Journey.h"

#include "core/toolkit/FormHolder.h"
#include "waveform/Form2.h"

#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

namespace {

constexpr std::int32_t length = 6 * 44100;

// A song of six seconds, open, cut at about two and four seconds.
void openAndCut(Journey& journey)
{
    const QString song = journey.path(QStringLiteral("song.wav"));
    writeWav(song, music(length));
    journey.open(song);
    journey.cutAt(2 * 44100);
    journey.cutAt(4 * 44100);
}

void fillTags(Journey& journey)
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

std::int32_t lengthOfPart(int row)
{
    const std::int32_t start = row == 1 ? 0 : CutPoints.at(static_cast<std::size_t>(row - 1));
    const std::int32_t end = row == CutCount + 1 ? TotalSamples : CutPoints.at(static_cast<std::size_t>(row));
    return end - start;
}

void pressCancelWhileSaving(QTimer& timer)
{
    QObject::connect(&timer, &QTimer::timeout, &timer, [] {
        if (ProgressForm.visible() && ProgressForm->ProgressBar1() > 0.01) ProgressForm->Command1.click();
    });
    timer.start(0);
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
    void cancelInASaveLeavesAValidShorterFileWithItsTags();
    void cancelInSaveAllStillLeavesEveryFile();
    void aReadOnlyTargetGetsTheMessageAndTheNextSaveWorks();
    void aVanishedFolderGetsTheMessageAndTheNextSaveWorks();
    void aFullDiskGetsTheMessageAndTheNextSaveWorks();
    void theEarlierPartOfASongCanBeSavedOverTheSongItself();
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

void tst_journey_save::cancelInASaveLeavesAValidShorterFileWithItsTags()
{
    Journey journey;
    openAndCut(journey);
    fillTags(journey);
    journey.selectRow(1);
    // The first part is 88200 samples, one block: make it three blocks long by taking the cuts back.
    journey.dialogs.expectMessage(QStringLiteral("Yes"));
    QTest::mouseClick(&journey.form().Image21, Qt::LeftButton);
    journey.cutAt(5 * 44100);
    journey.selectRow(1);
    QTimer timer;
    pressCancelWhileSaving(timer);
    journey.savePart(journey.form().SavePartMP3, journey.path(QStringLiteral("cut.mp3")));
    const SampleArray part = decoded(journey.path(QStringLiteral("cut.mp3")));
    QCOMPARE(part.size(), std::size_t{200000});    // the first block
    QCOMPARE(probedTag(journey.path(QStringLiteral("cut.mp3")), QStringLiteral("artist")),
             QStringLiteral("The Artist"));
    QVERIFY(journey.form().isEnabled() && !ProgressForm.visible() && journey.dialogs.messages.size() == 1);
}

void tst_journey_save::cancelInSaveAllStillLeavesEveryFile()
{
    Journey journey;
    const QString song = journey.path(QStringLiteral("song.wav"));
    writeWav(song, music(12 * 44100));
    journey.open(song);
    journey.cutAt(4 * 44100);
    journey.cutAt(8 * 44100);
    journey.form().selecOgg.trigger();
    const QString out = journey.folder(QStringLiteral("out"));
    QTimer timer;
    pressCancelWhileSaving(timer);
    journey.saveAll(out);
    QCOMPARE(QDir(out).entryList(QDir::Files).size(), 3);
    for (int part = 1; part <= 3; ++part)
        QCOMPARE(decoded(out + QStringLiteral("/song-Part %1.ogg").arg(part)).size(), std::size_t{200000});
}

void tst_journey_save::aReadOnlyTargetGetsTheMessageAndTheNextSaveWorks()
{
    Journey journey;
    openAndCut(journey);
    journey.selectRow(1);
    QDir().mkdir(journey.path(QStringLiteral("a folder.wav")));    // can't be replaced, whoever runs this
    journey.dialogs.expect([&](QDialog& dialog) {
        // A folder's name would be entered by the dialog: the path goes in as its answer all the same.
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
            ->setText(QStringLiteral("/proc/nothing.wav"));
        QMetaObject::invokeMethod(&dialog, "accept", Qt::QueuedConnection);
        return true;
    });
    journey.dialogs.expectMessage();
    journey.form().SavePartWav.trigger();
    QCOMPARE(journey.dialogs.messages, QStringList{langText(85)});
    QCOMPARE(journey.dialogs.icons, QStringList{"Critical"});
    QVERIFY(journey.form().isEnabled() && !ProgressForm.visible());
    journey.savePart(journey.form().SavePartWav, journey.path(QStringLiteral("good.wav")));
    QCOMPARE(readWav(journey.path(QStringLiteral("good.wav"))).size(),
             static_cast<std::size_t>(lengthOfPart(1)) * 2);
}

void tst_journey_save::aVanishedFolderGetsTheMessageAndTheNextSaveWorks()
{
    Journey journey;
    openAndCut(journey);
    journey.form().SelecWav.trigger();
    const QString out = journey.folder(QStringLiteral("out"));
    QString gone = out + QStringLiteral("/gone");
    journey.dialogs.expectMessage();
    journey.form().SaveEveryPart(gone, QStringLiteral("WAV"));
    QCOMPARE(journey.dialogs.messages, QStringList{langText(85)});
    journey.saveAll(out);
    QCOMPARE(QDir(out).entryList(QDir::Files).size(), 3);
}

void tst_journey_save::aFullDiskGetsTheMessageAndTheNextSaveWorks()
{
    Journey journey;
    openAndCut(journey);
    journey.form().SelecWav.trigger();
    journey.selectRow(1);
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    const rlimit small{100'000, old.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    journey.dialogs.expectFile(journey.path(QStringLiteral("full.wav")));
    journey.dialogs.expectMessage();
    journey.form().SavePartWav.trigger();
    setrlimit(RLIMIT_FSIZE, &old);
    QCOMPARE(journey.dialogs.messages, QStringList{langText(85)});
    QVERIFY(QFile::exists(journey.path(QStringLiteral("full.wav"))));    // what was written stays
    journey.savePart(journey.form().SavePartWav, journey.path(QStringLiteral("good.wav")));
    QCOMPARE(readWav(journey.path(QStringLiteral("good.wav"))).size(),
             static_cast<std::size_t>(lengthOfPart(1)) * 2);
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

QTEST_MAIN(tst_journey_save)
#include "tst_journey_save.moc"
