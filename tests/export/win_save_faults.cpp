// A fault at each engine call of a save: what is told, what is left behind, and that the next save works.
#include "export/Faulty.h"

class win_save_faults : public QObject {
    Q_OBJECT
private slots:
    void aFaultBeforeTheDialogEndsASaveSilently_data();
    void aFaultBeforeTheDialogEndsASaveSilently();
    void aFaultOfASaveIsToldAndTheWindowRestored_data();
    void aFaultOfASaveIsToldAndTheWindowRestored();
    void theFailureRouteGoesInOrder();
    void aFailedSaveInAnotherFormatGoesBackToTheStoredOne();
    void theHalfWrittenFileStays();
    void aFaultOnALaterBlockIsLikeOneOnTheFirst_data();
    void aFaultOnALaterBlockIsLikeOneOnTheFirst();
    void anUnreadableSettingFailsASave_data();
    void anUnreadableSettingFailsASave();
    void aStoredFormatThatCannotComeBackFailsASaveThatIsWritten();
    void aFaultOfTheTagsLeavesTheSoundFileComplete_data();
    void aFaultOfTheTagsLeavesTheSoundFileComplete();
};

void win_save_faults::aFaultBeforeTheDialogEndsASaveSilently_data()
{
    QTest::addColumn<QString>("call");
    for (const char* call : {"FileR.IsClosed", "FileR.GetTotalSamples", "FileR.Seek"})
        QTest::addRow("%s", call) << call;
}

void win_save_faults::aFaultBeforeTheDialogEndsASaveSilently()
{
    QFETCH(QString, call);
    Faulty saving("MP3");
    saving.select(2);
    saving.failing() << call;
    saving.save();
    QCOMPARE(journal().commandsOf("(dialog|MsgBox|FileWenc|FileRe)"), QStringList());
    QVERIFY(saving.form.isEnabled() && !ProgressForm.loaded());
    QCOMPARE(saving.panel1(), QString("a job"));    // nothing is restored
    QVERIFY(KeepRunning);

    saving.failing().clear();
    saving.clickSave();    // the answer is still there
    QVERIFY(saving.written() == saving.stretch(3000, 7000));
}

void win_save_faults::aFaultOfASaveIsToldAndTheWindowRestored_data()
{
    callsOfASave();
}

void win_save_faults::aFaultOfASaveIsToldAndTheWindowRestored()
{
    QFETCH(QString, format);
    QFETCH(QString, call);
    Faulty saving(format);
    saving.select(2);
    saving.failing() << call;
    saving.save();
    QCOMPARE(messages(), QStringList{criticalMessage(85)});
    QCOMPARE(saving.leftOver(), QString());
    QCOMPARE(saving.panel1(), QString());
    QCOMPARE(times("FileRe.Close"), 1);
    QCOMPARE(times("FileWenc.Close"), call == "FileWenc.Close" ? 1 : 0);
    QCOMPARE(journal().commandsOf("AudioTags"), QStringList());
    QCOMPARE(saving.fixture.fatals, QStringList());

    saving.failing().clear();
    saving.save();
    QCOMPARE(messages().size(), 1);
    QVERIFY(saving.written() == saving.stretch(3000, 7000));
}

void win_save_faults::theFailureRouteGoesInOrder()
{
    Faulty saving("WAV");
    saving.select(2);
    saving.failing() << "FileWenc.WriteArray";
    QStringList state;
    journal().onCommand = [&](const QString& line) {
        if (line.startsWith("FileWenc.SetFormat")) state = QStringList();
        const QString panel = saving.panel1().isEmpty() ? "panel empty" : "panel kept";
        state << line.section(' ', 0, 0) + (saving.form.isEnabled() ? ", enabled, " : ", disabled, ") +
                     panel + (ProgressForm.loaded() ? ", dialog" : ", no dialog");
    };
    saving.save();
    QCOMPARE(state, (QStringList{"FileWenc.SetFormatPCM, enabled, panel kept, dialog",
                                 "FileRe.Close, enabled, panel empty, dialog",
                                 "MsgBox, enabled, panel empty, no dialog"}));
}

void win_save_faults::aFailedSaveInAnotherFormatGoesBackToTheStoredOne()
{
    Faulty saving("WAV");
    saving.select(2);
    saving.failing() << "FileWenc.Create";
    saving.fixture.dialogs.files.push_back("/out/part");
    saving.form.SavePartMP3.trigger();
    const QStringList commands = journal().commands();
    QCOMPARE(commands.mid(commands.indexOf("FileWenc.Create /out/part") + 1),
             (QStringList{"FileWenc.SetFormatPCM 44100 2 16", "FileRe.Close", criticalMessage(85)}));
    QCOMPARE(saving.form.OUTPUTFORMAT, QString("WAV"));
}

void win_save_faults::theHalfWrittenFileStays()
{
    Saving saving("WAV", {350000}, longSong());
    saving.select(1);
    saving.fixture.engine.failAfter["FileWenc.WriteArray"] = 1;
    saving.save();
    QVERIFY(saving.written() == saving.stretch(0, 100000));
}

void win_save_faults::aFaultOnALaterBlockIsLikeOneOnTheFirst_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<int>("successes");
    QTest::addRow("the second read") << "FileR.ReadArray" << 1;
    QTest::addRow("the read of nothing at the end") << "FileR.ReadArray" << 4;
    QTest::addRow("the second write") << "FileWenc.WriteArray" << 1;
    QTest::addRow("the last write") << "FileWenc.WriteArray" << 3;
}

void win_save_faults::aFaultOnALaterBlockIsLikeOneOnTheFirst()
{
    QFETCH(QString, call);
    QFETCH(int, successes);
    Saving saving("MP3", {350000}, longSong());
    saving.select(1);
    saving.fixture.engine.failAfter[call] = successes;
    saving.save();
    QCOMPARE(messages(), QStringList{criticalMessage(85)});
    QCOMPARE(saving.leftOver(), QString());
    QCOMPARE(times("FileWenc.Close"), 0);

    saving.fixture.engine.failAfter.clear();
    saving.save();
    QVERIFY(saving.written() == saving.stretch(0, 350000));
}

void win_save_faults::anUnreadableSettingFailsASave_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    QTest::addRow("letters in the WMA profile") << "WMA"
                                                << "WMA"
                                                << "Num";
    for (const char* key : {"1", "2", "3", "4", "5", "6", "7"})
        QTest::addRow("letters in key %s of Ogg Vorbis", key) << "OGG"
                                                              << "OGG" << key;
}

void win_save_faults::anUnreadableSettingFailsASave()
{
    QFETCH(QString, format);
    QFETCH(QString, section);
    QFETCH(QString, key);
    Faulty saving(format);
    saving.select(2);
    saving.fixture.writeSetting(section, key, "high");
    saving.save();
    QCOMPARE(messages(), QStringList{criticalMessage(85)});
    QCOMPARE(saving.leftOver(), QString());
    QVERIFY(!saving.exists("/out/part"));
}

void win_save_faults::aStoredFormatThatCannotComeBackFailsASaveThatIsWritten()
{
    Faulty saving("WMA");
    saving.select(2);
    saving.fixture.writeSetting("WMA", "Num", "high");
    saving.fixture.dialogs.files.push_back("/out/part");
    saving.form.SavePartMP3.trigger();
    QVERIFY(saving.written() == saving.stretch(3000, 7000));
    QCOMPARE(messages(), QStringList{criticalMessage(85)});
    QCOMPARE(journal().commandsOf("AudioTags"), QStringList());
    QCOMPARE(saving.leftOver(), QString());
}

void win_save_faults::aFaultOfTheTagsLeavesTheSoundFileComplete_data()
{
    callsOfTheTags();
}

void win_save_faults::aFaultOfTheTagsLeavesTheSoundFileComplete()
{
    QFETCH(QString, call);
    Faulty saving("MP3");
    saving.select(2);
    saving.failing() << call;
    saving.save();
    QCOMPARE(messages(), QStringList());
    QCOMPARE(times("FileWenc.Close"), 1);
    QVERIFY(saving.written() == saving.stretch(3000, 7000));
    QCOMPARE(saving.leftOver(), QString());
    QCOMPARE(saving.panel1(), QString());
}

QTEST_MAIN(win_save_faults)
#include "win_save_faults.moc"
