// Saving one part from the real window: its commands and when they refuse, the order of the calls, the end
// state.
#include "export/Saving.h"
#include "support/Mouse.h"

class win_save_part : public QObject {
    Q_OBJECT
private slots:
    void theOrderOfASave_data();
    void theOrderOfASave();
    void eachPartIsSavedExactly_data();
    void eachPartIsSavedExactly();
    void aMenuEntrySavesInItsOwnFormat_data();
    void aMenuEntrySavesInItsOwnFormat();
    void aMenuEntryLeavesTheSelectedFormatAlone();
    void theMenuEntryForTheSelectionIsTheClickOnTheButton();
    void theKeyOfTheSelectionSavesIt();
    void theWriterOfASaveInAnotherFormatGoesBackBeforeTheTags();
    void aPlayingPartIsStoppedFirst();
    void nothingSaysThatASaveSucceeded();

    void withoutASelectedPartTheButtonSaysSo();
    void withoutASelectedPartTheMenuDoesNothing();
    void withoutAFileAllFiveCommandsDoNothing();
    void duringAScanAllFiveCommandsDoNothing();
    void aClosedSourceEndsTheSaveWithoutADialog();
    void aSourceWithoutSamplesIsToldBeforeAnyDialog();
};

void win_save_part::theOrderOfASave_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QStringList>("setUp");
    QTest::addColumn<QStringList>("restored");
    const QString mp3 = "FileWenc.SetFormatMP3Ex", pcm = "FileWenc.SetFormatPCM 44100 2 16",
                  ogg = "FileWenc.SetFormatOggVorbis 44100 2 128 0 0 400";
    const QStringList wma{"FileWenc.SetFormatWMA 39", "FileWenc.SetFormatWMA 12"};
    QTest::addRow("MP3 is set up twice and tagged") << "MP3" << QStringList{mp3, mp3} << QStringList{mp3};
    QTest::addRow("Ogg Vorbis is tagged") << "OGG" << QStringList{ogg} << QStringList{ogg};
    QTest::addRow("WMA begins with the default profile and is tagged") << "WMA" << wma << wma;
    QTest::addRow("WAV gets no tags") << "WAV" << QStringList{pcm} << QStringList{pcm};
}

void win_save_part::theOrderOfASave()
{
    QFETCH(QString, format);
    QFETCH(QStringList, setUp);
    QFETCH(QStringList, restored);
    Saving saving(format);
    saving.fixture.writeSetting("WMA", "Num", "12");
    saving.select(2);
    saving.save();
    const QStringList asked{"AudioPlayer.Stop", "FileR.Seek 3000", "dialog save"};
    const QStringList copied{"FileWenc.Create /out/part", "FileWenc.SetInputFormat 44100 2",
                             "FileR.ReadArray 4000",      "FileWenc.WriteArray 8000",
                             "FileR.ReadArray 0",         "FileWenc.Close"};
    const QStringList tags = format == "WAV" ? QStringList() : tagLines("/out/part");
    QCOMPARE(journal().commands(), asked + setUp + copied + restored + tags);
    QCOMPARE(saving.leftOver(), QString());
    QCOMPARE(saving.panel1(), QString());
}

void win_save_part::eachPartIsSavedExactly_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addRow("the first part ends at the first cut") << 1 << 0 << 3000;
    QTest::addRow("a middle part lies between two cuts") << 2 << 3000 << 7000;
    QTest::addRow("the last part begins at the last cut") << 3 << 7000 << 12000;
}

void win_save_part::eachPartIsSavedExactly()
{
    QFETCH(int, row);
    QFETCH(int, start);
    QFETCH(int, end);
    Saving saving("WAV");
    saving.select(row);
    saving.save();
    QVERIFY(saving.written() == saving.stretch(start, end));
}

namespace {

MenuEntry* saveEntry(CutterSelect& form, int i)
{
    MenuEntry* const entries[] = {&form.SavePartMP3, &form.SavePartOgg, &form.SavePartWMA, &form.SavePartWav};
    return entries[i];
}

}

void win_save_part::aMenuEntrySavesInItsOwnFormat_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("setUp");
    QTest::addColumn<QString>("name");
    QTest::addRow("MP3") << 0 << "FileWenc.SetFormatMP3Ex"
                         << "song-Part 2.mp3";
    QTest::addRow("Ogg Vorbis") << 1 << "FileWenc.SetFormatOggVorbis 44100 2 128 0 0 400"
                                << "song-Part 2.ogg";
    QTest::addRow("WMA") << 2 << "FileWenc.SetFormatWMA 39"
                         << "song-Part 2.wma";
    QTest::addRow("WAV") << 3 << "FileWenc.SetFormatPCM 44100 2 16"
                         << "song-Part 2.wav";
}

void win_save_part::aMenuEntrySavesInItsOwnFormat()
{
    QFETCH(int, entry);
    QFETCH(QString, setUp);
    QFETCH(QString, name);
    Saving saving(entry == 3 ? "MP3" : "WAV");
    saving.select(2);
    saving.fixture.dialogs.files.push_back("/out/part");
    saveEntry(saving.form, entry)->trigger();
    QCOMPARE(journal().commandsOf("FileWenc").value(0), setUp);
    QCOMPARE(saving.fixture.dialogs.lastName, name);
    QVERIFY(saving.written() == saving.stretch(3000, 7000));
}

void win_save_part::aMenuEntryLeavesTheSelectedFormatAlone()
{
    Saving saving("WAV");
    saving.select(2);
    saving.fixture.dialogs.files.push_back("/out/part");
    saving.form.SavePartOgg.trigger();
    QCOMPARE(saving.form.OUTPUTFORMAT, QString("WAV"));
    QCOMPARE(saving.fixture.setting("OutPutCut", "Format"), QString("WAV"));
    QVERIFY(saving.form.Option1[0].isChecked() && saving.form.SelecWav.isChecked());
    QCOMPARE(saving.panel2(), langText(71) + "WAV 44100 2 16");
}

void win_save_part::theMenuEntryForTheSelectionIsTheClickOnTheButton()
{
    Saving saving("OGG");
    saving.select(3);
    saving.fixture.dialogs.files.push_back("/out/part");
    saving.form.Saveselec.trigger();
    QVERIFY(saving.written() == saving.stretch(7000, 12000));
    QCOMPARE(saving.fixture.dialogs.lastName, QString("song-Part 3.ogg"));
}

void win_save_part::theKeyOfTheSelectionSavesIt()
{
    Saving saving("WAV");
    saving.select(1);
    activate(saving.form);
    saving.fixture.dialogs.files.push_back("/out/part");
    QTest::keyClick(&saving.form.Picture1, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(saving.written() == saving.stretch(0, 3000));
}

void win_save_part::theWriterOfASaveInAnotherFormatGoesBackBeforeTheTags()
{
    Saving saving("WAV");
    saving.select(2);
    saving.fixture.dialogs.files.push_back("/out/part");
    saving.form.SavePartMP3.trigger();
    const QStringList commands = journal().commands();
    QCOMPARE(
        commands.mid(commands.indexOf("FileWenc.Close"), 3),
        (QStringList{"FileWenc.Close", "FileWenc.SetFormatPCM 44100 2 16", "AudioTags.SetTagVersion 1"}));
}

void win_save_part::aPlayingPartIsStoppedFirst()
{
    Saving saving("WAV");
    saving.select(2);
    press(saving.form.Image9, saving.form.Image9.rect().center());
    QVERIFY(saving.form.IsPlaying && saving.form.PlayFed > 0);
    journal().clear();
    saving.save();
    QCOMPARE(journal().commands().first(), QString("AudioPlayer.Stop"));
    QVERIFY(!saving.form.IsPlaying);
    QCOMPARE(saving.form.PlayFed, 0);
}

void win_save_part::nothingSaysThatASaveSucceeded()
{
    Saving saving("MP3");
    saving.select(2);
    saving.save();
    QCOMPARE(messages(), QStringList());
}

void win_save_part::withoutASelectedPartTheButtonSaysSo()
{
    Saving saving("WAV");
    saving.clickSave();
    QCOMPARE(journal().commands(), QStringList{"MsgBox Information [Quillon]: " + langText(78)});
}

namespace {

// The four entries, called where the menu itself would be disabled.
void callAllEntries(CutterSelect& form)
{
    form.SavePartMP3_Click();
    form.SavePartOgg_Click();
    form.SavePartWMA_Click();
    form.SavePartWav_Click();
}

}

void win_save_part::withoutASelectedPartTheMenuDoesNothing()
{
    Saving saving("WAV");
    callAllEntries(saving.form);
    QCOMPARE(journal().commands(), QStringList());
}

void win_save_part::withoutAFileAllFiveCommandsDoNothing()
{
    FormFixture fixture;
    CutterSelect& form = fixture.load();
    form.HasSelectedPart = true;
    journal().clear();
    callAllEntries(form);
    press(form.Image8, form.Image8.rect().center());
    QCOMPARE(journal().commands(), QStringList());
}

void win_save_part::duringAScanAllFiveCommandsDoNothing()
{
    Saving saving("WAV");
    saving.select(2);
    saving.form.Scanning = true;
    callAllEntries(saving.form);
    saving.clickSave();
    QCOMPARE(journal().commands(), QStringList());
}

void win_save_part::aClosedSourceEndsTheSaveWithoutADialog()
{
    Saving saving("WAV");
    saving.select(2);
    saving.form.FileR->Close();
    journal().clear();
    saving.clickSave();
    QCOMPARE(journal().commands(), QStringList{"AudioPlayer.Stop"});
}

void win_save_part::aSourceWithoutSamplesIsToldBeforeAnyDialog()
{
    Saving saving("WAV");
    saving.select(2);
    saving.fixture.engine.disk["/music/empty.wav"] = fakeSound(0);
    saving.form.FileR->Open("/music/empty.wav");
    journal().clear();
    saving.clickSave();
    QCOMPARE(journal().commands(), (QStringList{"AudioPlayer.Stop", "FileWenc.SetFormatPCM 44100 2 16",
                                                "FileRe.Close", criticalMessage(85)}));
    QCOMPARE(saving.leftOver(), QString());
}

QTEST_MAIN(win_save_part)
#include "win_save_part.moc"
