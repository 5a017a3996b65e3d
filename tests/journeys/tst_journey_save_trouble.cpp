// Saving that is cancelled or fails: what stays, what is said, and that the next save works.
#include "journeys/CutSong.h"

#include "core/toolkit/FormHolder.h"
#include "waveform/Form2.h"

#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTimer>

#include <csignal>
#include <sys/resource.h>

namespace {

void pressCancelWhileSaving(QTimer& timer)
{
    QObject::connect(&timer, &QTimer::timeout, &timer, [] {
        if (ProgressForm.visible() && ProgressForm->ProgressBar1() > 0.01) ProgressForm->Command1.click();
    });
    timer.start(0);
}

}

class tst_journey_save_trouble : public QObject {
    Q_OBJECT

private slots:
    void cancelInASaveLeavesAValidShorterFileWithItsTags();
    void cancelInSaveAllStillLeavesEveryFile();
    void aReadOnlyTargetGetsTheMessageAndTheNextSaveWorks();
    void aVanishedFolderGetsTheMessageAndTheNextSaveWorks();
    void aFullDiskGetsTheMessageAndTheNextSaveWorks();
    void aTitleWithASeparatorFailsTheRunWithAMessage();
};

void tst_journey_save_trouble::cancelInASaveLeavesAValidShorterFileWithItsTags()
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

void tst_journey_save_trouble::cancelInSaveAllStillLeavesEveryFile()
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

void tst_journey_save_trouble::aReadOnlyTargetGetsTheMessageAndTheNextSaveWorks()
{
    Journey journey;
    openAndCut(journey);
    journey.selectRow(1);
    journey.dialogs.expectFile(
        QStringLiteral("/proc/nothing.wav"));    // nobody may write there, whoever runs this
    journey.dialogs.expectMessage();
    journey.form().SavePartWav.trigger();
    QCOMPARE(journey.dialogs.messages, QStringList{langText(85)});
    QCOMPARE(journey.dialogs.icons, QStringList{"Critical"});
    QVERIFY(journey.form().isEnabled() && !ProgressForm.visible());
    journey.savePart(journey.form().SavePartWav, journey.path(QStringLiteral("good.wav")));
    QCOMPARE(readWav(journey.path(QStringLiteral("good.wav"))).size(),
             static_cast<std::size_t>(lengthOfPart(1)) * 2);
}

void tst_journey_save_trouble::aVanishedFolderGetsTheMessageAndTheNextSaveWorks()
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

void tst_journey_save_trouble::aFullDiskGetsTheMessageAndTheNextSaveWorks()
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

void tst_journey_save_trouble::aTitleWithASeparatorFailsTheRunWithAMessage()
{
    Journey journey;
    openAndCut(journey);
    journey.title(2, QStringLiteral("no/where"));
    journey.form().SelecWav.trigger();
    const QString out = journey.folder(QStringLiteral("out"));
    journey.dialogs.expectFile(out);
    journey.dialogs.expectMessage();
    journey.form().SaveAllParts.trigger();
    QCOMPARE(journey.dialogs.messages, QStringList{langText(85)});
    QCOMPARE(QDir(out).entryList(QDir::Files), QStringList{"song-Part 1.wav"});
    QVERIFY(journey.form().isEnabled() && !ProgressForm.visible());
}

QTEST_MAIN(tst_journey_save_trouble)
#include "tst_journey_save_trouble.moc"
