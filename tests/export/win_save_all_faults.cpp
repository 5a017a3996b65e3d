// A fault at each engine call of a save of all parts: what is told, which files stay, and that the next run
// works.
#include "export/Faulty.h"

class win_save_all_faults : public QObject {
    Q_OBJECT
private slots:
    void aFaultBeforeTheFirstPartEndsTheRunSilently_data();
    void aFaultBeforeTheFirstPartEndsTheRunSilently();
    void aSourceWithoutSamplesFailsTheRun();
    void aFaultOfAPartFailsTheRun_data();
    void aFaultOfAPartFailsTheRun();
    void aFailedPartLeavesTheFilesBeforeIt();
    void aFaultOfTheTagsEndsTheRunWithoutAMessage_data();
    void aFaultOfTheTagsEndsTheRunWithoutAMessage();
    void aFaultOfTheTagsOfALaterPartKeepsTheFilesBeforeIt();
};

void win_save_all_faults::aFaultBeforeTheFirstPartEndsTheRunSilently_data()
{
    QTest::addColumn<QString>("call");
    for (const char* call : {"FileR.IsClosed", "FileR.GetTotalSamples", "FileR.Seek"})
        QTest::addRow("%s", call) << call;
}

void win_save_all_faults::aFaultBeforeTheFirstPartEndsTheRunSilently()
{
    QFETCH(QString, call);
    Faulty saving("MP3");
    saving.failing() << call;
    saving.saveAll();
    QCOMPARE(journal().commandsOf("(MsgBox|FileWenc|FileRe)"), QStringList());
    QVERIFY(saving.form.isEnabled() && !ProgressForm.loaded());
    QVERIFY(KeepRunning);    // stays as it was

    saving.failing().clear();
    saving.saveAll();
    QCOMPARE(saving.files().size(), 3);
}

void win_save_all_faults::aSourceWithoutSamplesFailsTheRun()
{
    Saving saving("WAV");
    saving.fixture.engine.disk["/music/empty.wav"] = fakeSound(0);
    saving.form.FileR->Open("/music/empty.wav");
    journal().clear();
    saving.saveAll();
    QCOMPARE(journal().commands(), (QStringList{"dialog folder", "FileWenc.SetFormatPCM 44100 2 16",
                                                "FileRe.Close", criticalMessage(85)}));
    QCOMPARE(saving.leftOver(), QString());
    QCOMPARE(saving.panel1(), QString());
}

void win_save_all_faults::aFaultOfAPartFailsTheRun_data()
{
    callsOfASave();
}

void win_save_all_faults::aFaultOfAPartFailsTheRun()
{
    QFETCH(QString, format);
    QFETCH(QString, call);
    Faulty saving(format);
    saving.failing() << call;
    saving.saveAll();
    QCOMPARE(messages(), QStringList{criticalMessage(85)});
    QCOMPARE(saving.leftOver(), QString());
    QCOMPARE(saving.panel1(), QString());
    QCOMPARE(times("FileRe.Close"), 1);
    QCOMPARE(times("FileWenc.Close"), call == "FileWenc.Close" ? 1 : 0);
    QVERIFY(journal().commandsOf("FileWenc.Create").size() <= 1);
    QCOMPARE(journal().commandsOf("AudioTags"), QStringList());

    saving.failing().clear();
    saving.saveAll();
    QCOMPARE(messages().size(), 1);
    QCOMPARE(saving.files().size(), 3);
    QVERIFY(saving.written(saving.files().first()) == saving.stretch(0, 3000));
}

void win_save_all_faults::aFailedPartLeavesTheFilesBeforeIt()
{
    Saving saving("MP3");
    saving.fixture.engine.failAfter["FileR.Seek"] = 2;    // once for the run, once for the first part
    saving.saveAll();
    QCOMPARE(messages(), QStringList{criticalMessage(85)});
    QVERIFY(saving.written("/out/song-Part 1.mp3") == saving.stretch(0, 3000));
    QVERIFY(!saving.exists("/out/song-Part 3.mp3"));
    QCOMPARE(saving.leftOver(), QString());
}

void win_save_all_faults::aFaultOfTheTagsEndsTheRunWithoutAMessage_data()
{
    callsOfTheTags();
}

void win_save_all_faults::aFaultOfTheTagsEndsTheRunWithoutAMessage()
{
    QFETCH(QString, call);
    Faulty saving("MP3");
    saving.failing() << call;
    saving.saveAll();
    QCOMPARE(messages(), QStringList());
    QCOMPARE(saving.files(), QStringList{"/out/song-Part 1.mp3"});
    QCOMPARE(times("FileWenc.Close"), 1);
    QCOMPARE(times("FileRe.Close"), 0);
    QVERIFY(saving.form.isEnabled() && !ProgressForm.loaded());
    QCOMPARE(saving.panel1(), QString("a job"));    // no part of the cleaning

    saving.failing().clear();
    saving.saveAll();
    QCOMPARE(saving.files().size(), 3);
}

void win_save_all_faults::aFaultOfTheTagsOfALaterPartKeepsTheFilesBeforeIt()
{
    Saving saving("MP3");
    saving.fixture.engine.failAfter["AudioTags.WriteTo"] = 2;
    saving.saveAll();
    QCOMPARE(saving.files(), (QStringList{"/out/song-Part 1.mp3", "/out/song-Part 2.mp3"}));
    QCOMPARE(messages(), QStringList());
}

QTEST_MAIN(win_save_all_faults)
#include "win_save_all_faults.moc"
