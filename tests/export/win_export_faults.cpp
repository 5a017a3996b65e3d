// A fault at each engine call of a save and of a save of all parts: what is told, what is left behind, and
// that the next save works.
#include "export/Saving.h"

class win_export_faults : public QObject {
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

namespace {

// Each engine call of a save between its dialog and its tags, under the format that makes it.
void callsOfASave()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("call");
    const auto row = [](const char* format, const char* call) {
        QTest::addRow("%s in %s", call, format) << format << QString("%1").arg(call);
    };
    row("WAV", "FileWenc.SetFormatPCM");
    row("MP3", "FileWenc.SetFormatMP3Ex");
    row("OGG", "FileWenc.IsFormatOggVorbisAvailable");
    row("OGG", "FileWenc.SetFormatOggVorbis");
    row("OGG", "FileWenc.FormatString");
    row("WMA", "FileWenc.SetFormatWMA");
    for (const char* format : {"WAV", "MP3"})
        for (const char* call :
             {"FileWenc.Create", "FileR.GetOutputRate", "FileR.GetChannels", "FileWenc.SetInputFormat",
              "FileR.ReadArray", "FileWenc.WriteArray", "FileR.GetReadChannels", "FileWenc.Close"})
            row(format, call);
}

void callsOfTheTags()
{
    QTest::addColumn<QString>("call");
    for (const char* call : {"SetTagVersion", "SetTitle", "SetArtist", "SetAlbum", "SetGenre", "SetComment",
                             "SetYear", "SetTrack", "SetEncodedBy", "WriteTo"})
        QTest::addRow("AudioTags.%s", call) << QString("AudioTags.%1").arg(call);
}

// A saving form whose Ogg settings have bitrates, so that the encoder is asked about them.
struct Faulty : Saving {
    explicit Faulty(const QString& format) : Saving(format)
    {
        const char* const keys[][2] = {{"1", "0"},   {"2", "0"},   {"3", "44100"}, {"4", "2"},
                                       {"5", "500"}, {"6", "128"}, {"7", "0"}};
        for (const auto& [key, value] : keys) fixture.writeSetting("OGG", key, value);
    }
    QSet<QString>& failing() { return fixture.engine.failing; }
};

int times(const QString& command)
{
    return static_cast<int>(journal().commands().count(command));
}

}

void win_export_faults::aFaultBeforeTheDialogEndsASaveSilently_data()
{
    QTest::addColumn<QString>("call");
    for (const char* call : {"FileR.IsClosed", "FileR.GetTotalSamples", "FileR.Seek"})
        QTest::addRow("%s", call) << call;
}

void win_export_faults::aFaultBeforeTheDialogEndsASaveSilently()
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

void win_export_faults::aFaultOfASaveIsToldAndTheWindowRestored_data()
{
    callsOfASave();
}

void win_export_faults::aFaultOfASaveIsToldAndTheWindowRestored()
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

void win_export_faults::theFailureRouteGoesInOrder()
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

void win_export_faults::aFailedSaveInAnotherFormatGoesBackToTheStoredOne()
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

void win_export_faults::theHalfWrittenFileStays()
{
    Saving saving("WAV", {350000}, longSong());
    saving.select(1);
    saving.fixture.engine.failAfter["FileWenc.WriteArray"] = 1;
    saving.save();
    QVERIFY(saving.written() == saving.stretch(0, 100000));
}

void win_export_faults::aFaultOnALaterBlockIsLikeOneOnTheFirst_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<int>("successes");
    QTest::addRow("the second read") << "FileR.ReadArray" << 1;
    QTest::addRow("the read of nothing at the end") << "FileR.ReadArray" << 4;
    QTest::addRow("the second write") << "FileWenc.WriteArray" << 1;
    QTest::addRow("the last write") << "FileWenc.WriteArray" << 3;
}

void win_export_faults::aFaultOnALaterBlockIsLikeOneOnTheFirst()
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

void win_export_faults::anUnreadableSettingFailsASave_data()
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

void win_export_faults::anUnreadableSettingFailsASave()
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

void win_export_faults::aStoredFormatThatCannotComeBackFailsASaveThatIsWritten()
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

void win_export_faults::aFaultOfTheTagsLeavesTheSoundFileComplete_data()
{
    callsOfTheTags();
}

void win_export_faults::aFaultOfTheTagsLeavesTheSoundFileComplete()
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

void win_export_faults::aFaultBeforeTheFirstPartEndsTheRunSilently_data()
{
    QTest::addColumn<QString>("call");
    for (const char* call : {"FileR.IsClosed", "FileR.GetTotalSamples", "FileR.Seek"})
        QTest::addRow("%s", call) << call;
}

void win_export_faults::aFaultBeforeTheFirstPartEndsTheRunSilently()
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

void win_export_faults::aSourceWithoutSamplesFailsTheRun()
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

void win_export_faults::aFaultOfAPartFailsTheRun_data()
{
    callsOfASave();
}

void win_export_faults::aFaultOfAPartFailsTheRun()
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

void win_export_faults::aFailedPartLeavesTheFilesBeforeIt()
{
    Saving saving("MP3");
    saving.fixture.engine.failAfter["FileR.Seek"] = 2;    // once for the run, once for the first part
    saving.saveAll();
    QCOMPARE(messages(), QStringList{criticalMessage(85)});
    QVERIFY(saving.written("/out/song-Part 1.mp3") == saving.stretch(0, 3000));
    QVERIFY(!saving.exists("/out/song-Part 3.mp3"));
    QCOMPARE(saving.leftOver(), QString());
}

void win_export_faults::aFaultOfTheTagsEndsTheRunWithoutAMessage_data()
{
    callsOfTheTags();
}

void win_export_faults::aFaultOfTheTagsEndsTheRunWithoutAMessage()
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

void win_export_faults::aFaultOfTheTagsOfALaterPartKeepsTheFilesBeforeIt()
{
    Saving saving("MP3");
    saving.fixture.engine.failAfter["AudioTags.WriteTo"] = 2;
    saving.saveAll();
    QCOMPARE(saving.files(), (QStringList{"/out/song-Part 1.mp3", "/out/song-Part 2.mp3"}));
    QCOMPARE(messages(), QStringList());
}

QTEST_MAIN(win_export_faults)
#include "win_export_faults.moc"
