// Saving all parts from the real window: what is asked, the order of the calls, the progress, and what Cancel
// does.
#include "export/Saving.h"

class win_save_all : public QObject {
    Q_OBJECT
private slots:
    void theOrderOfASaveOfTwoParts();
    void wavPartsGetNoTags();
    void withoutACutNothingIsAsked();
    void withoutAFileNothingIsAsked();
    void duringAScanNothingIsAsked();
    void leavingTheFolderChooserSavesNothing();
    void aFileThatPlaysIsStoppedBeforeItsPartsAreCopied();
    void theChooserHasItsPrompt();
    void aClosedSourceEndsTheRunWithoutAMessage();

    void theWriterIsSetUpForEachPart_data();
    void theWriterIsSetUpForEachPart();
    void theSelectedFormatIsNotBroughtBack();
    void theProgressNamesThePathAndBeginsAnewForEachPart();
    void theFormIsDisabledFromTheFirstPartOn();
    void theEndStateIsTheNormalOne();

    void cancelOnTheFirstOfFivePartsStillLeavesFiveFiles_data();
    void cancelOnTheFirstOfFivePartsStillLeavesFiveFiles();
    void afterTheCloseBoxTheDialogIsShownAgain();
};

void win_save_all::theOrderOfASaveOfTwoParts()
{
    Saving saving("MP3", {3000});
    saving.title(2, "End");
    saving.saveAll();
    const auto part = [](const QString& seek, const QString& path, int length) {
        return QStringList{"FileWenc.SetFormatMP3Ex",
                           "FileWenc.SetFormatMP3Ex",
                           "FileWenc.Create " + path,
                           seek,
                           "FileWenc.SetInputFormat 44100 2",
                           QString("FileR.ReadArray %1").arg(length),
                           QString("FileWenc.WriteArray %1").arg(2 * length),
                           "FileR.ReadArray 0",
                           "FileWenc.Close"};
    };
    QStringList expected{"dialog folder", "FileR.Seek 1"};
    expected += part("FileR.Seek 0", "/out/song-Part 1.mp3", 3000) + tagLines("/out/song-Part 1.mp3");
    expected += part("FileR.Seek 3000", "/out/End.MP3", 9000) + tagLines("/out/End.MP3", "End");
    QCOMPARE(journal().commands(), expected);
}

void win_save_all::wavPartsGetNoTags()
{
    Saving saving("WAV");
    saving.saveAll();
    QCOMPARE(journal().commandsOf("AudioTags"), QStringList());
}

void win_save_all::withoutACutNothingIsAsked()
{
    Saving saving("WAV", {});
    saving.saveAll();
    QCOMPARE(journal().commands(), QStringList());
}

void win_save_all::withoutAFileNothingIsAsked()
{
    FormFixture fixture;
    CutterSelect& form = fixture.load();
    PartTable.resize(3);
    journal().clear();
    form.SaveAllParts.trigger();
    QCOMPARE(journal().commands(), QStringList());
}

void win_save_all::duringAScanNothingIsAsked()
{
    Saving saving("WAV");
    saving.form.Scanning = true;
    saving.saveAll();
    QCOMPARE(journal().commands(), QStringList());
}

void win_save_all::leavingTheFolderChooserSavesNothing()
{
    Saving saving("WAV");
    saving.form.SaveAllParts.trigger();
    QCOMPARE(journal().commands(), QStringList{"dialog folder"});
}

void win_save_all::aFileThatPlaysIsStoppedBeforeItsPartsAreCopied()
{
    Saving saving("WAV", {200000, 400000}, longSong());
    saving.form.ToolbarCommand(10);
    QVERIFY(saving.form.IsPlaying);
    // The player asks for more at each moment that the run gives way.
    journal().onCommand = [&](const QString& line) {
        if (line.startsWith("FileWenc.WriteArray")) saving.form.AudioPlayer_RequestOnLoadArray();
    };
    saving.fixture.dialogs.files.push_back(QString("/out"));
    saving.form.SaveAllParts.trigger();
    QVERIFY(!saving.form.IsPlaying);
    const auto& source = saving.song.samples;
    QVERIFY(saving.fixture.engine.disk["/out/song-Part 2.wav"].samples ==
            SampleArray(source.begin() + 400000, source.begin() + 800000));
}

void win_save_all::theChooserHasItsPrompt()
{
    Saving saving("WAV");
    saving.saveAll();
    QCOMPARE(saving.fixture.dialogs.lastTitle, langText(81));
}

void win_save_all::aClosedSourceEndsTheRunWithoutAMessage()
{
    Saving saving("WAV");
    saving.form.FileR->Close();
    journal().clear();
    saving.saveAll();
    QCOMPARE(journal().commands(), QStringList{"dialog folder"});
    QVERIFY(saving.form.isEnabled() && !ProgressForm.loaded());
}

void win_save_all::theWriterIsSetUpForEachPart_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QStringList>("setUp");
    const QString mp3 = "FileWenc.SetFormatMP3Ex";
    QTest::addRow("MP3") << "MP3" << QStringList{mp3, mp3};
    QTest::addRow("Ogg Vorbis") << "OGG" << QStringList{"FileWenc.SetFormatOggVorbis 44100 2 128 0 0 400"};
    QTest::addRow("WMA") << "WMA" << QStringList{"FileWenc.SetFormatWMA 39", "FileWenc.SetFormatWMA 39"};
    QTest::addRow("WAV") << "WAV" << QStringList{"FileWenc.SetFormatPCM 44100 2 16"};
}

void win_save_all::theWriterIsSetUpForEachPart()
{
    QFETCH(QString, format);
    QFETCH(QStringList, setUp);
    Saving saving(format);
    saving.saveAll();
    QCOMPARE(journal().commandsOf("FileWenc.SetFormat"), setUp + setUp + setUp);
}

void win_save_all::theSelectedFormatIsNotBroughtBack()
{
    Saving saving("WAV", {3000});
    saving.form.OUTPUTFORMAT = "OGG";    // as after a hand edit of the settings: the key says WAV
    saving.saveAll();
    QCOMPARE(saving.form.OUTPUTFORMAT, QString("OGG"));
    QCOMPARE(journal().commandsOf("FileWenc.SetFormatPCM"), QStringList());
}

void win_save_all::theProgressNamesThePathAndBeginsAnewForEachPart()
{
    Saving saving("WAV", {200000}, longSong());
    QStringList told;
    journal().onCommand = [&](const QString& line) {
        if (line.startsWith("FileR.ReadArray")) told << ProgressForm->Label2.text();
    };
    saving.saveAll();
    const QString first = langText(84) + "/out/song-Part 1.wav : ",
                  second = langText(84) + "/out/song-Part 2.wav : ";
    QCOMPARE(told.mid(0, 5),
             (QStringList{first + "0 %", first + "50 %", first + "100 %", second + "0 %", second + "18 %"}));
}

void win_save_all::theFormIsDisabledFromTheFirstPartOn()
{
    Saving saving("WAV");
    QList<bool> enabled;
    journal().onCommand = [&](const QString& line) {
        if (line.startsWith("FileWenc.WriteArray")) enabled << saving.form.isEnabled();
    };
    saving.saveAll();
    QCOMPARE(enabled, (QList<bool>{false, false, false}));
}

void win_save_all::theEndStateIsTheNormalOne()
{
    Saving saving("MP3");
    saving.saveAll();
    QCOMPARE(saving.leftOver(), QString());
    QCOMPARE(saving.panel1(), QString());
    QCOMPARE(messages(), QStringList());
}

using Act = void (*)();
Q_DECLARE_METATYPE(Act)

void win_save_all::cancelOnTheFirstOfFivePartsStillLeavesFiveFiles_data()
{
    QTest::addColumn<Act>("cancel");
    QTest::addRow("by the button") << Act(clickCancel);
    QTest::addRow("by the close box") << Act([] { ProgressForm->close(); });
}

void win_save_all::cancelOnTheFirstOfFivePartsStillLeavesFiveFiles()
{
    QFETCH(Act, cancel);
    Saving saving("MP3", {150000, 300000, 450000, 600000}, longSong());
    at("FileWenc.WriteArray", cancel);
    saving.saveAll();
    QCOMPARE(saving.files().size(), 5);
    for (int part = 0; part < 5; ++part)
        QVERIFY(saving.written(QString("/out/song-Part %1.mp3").arg(part + 1)) ==
                saving.stretch(150000 * part, 150000 * part + 100000));
    QCOMPARE(journal().commandsOf("AudioTags.WriteTo").size(), 10);
    QCOMPARE(saving.leftOver(), QString());
}

void win_save_all::afterTheCloseBoxTheDialogIsShownAgain()
{
    Saving saving("WAV");
    QList<bool> visible;
    journal().onCommand = [&](const QString& line) {
        if (!line.startsWith("FileWenc.WriteArray")) return;
        visible << (ProgressForm.visible() && ProgressForm->isEnabled());
        ProgressForm->close();
    };
    saving.saveAll();
    QCOMPARE(visible, (QList<bool>{true, true, true}));
}

QTEST_MAIN(win_save_all)
#include "win_save_all.moc"
