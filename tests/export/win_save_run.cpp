// One save in the real window, from its dialog to its last block: names, reads and writes, progress, Cancel.
#include "export/Saving.h"
#include "support/DialogDriver.h"

#include <QFile>

class win_save_run : public QObject {
    Q_OBJECT
private slots:
    void theProposedName_data();
    void theProposedName();
    void aStretchThatNoPartBeginsWithIsNumberedBehindTheTable();
    void withoutAFolderInTheSourceTheDialogKeepsItsName();
    void theDialogNamesTheProposalInItsTitle();
    void theFilterHasOneRow_data();
    void theFilterHasOneRow();
    void cancelInTheDialogWritesNothing();
    void whereCancelRaisesNothingTheSaveGoesOnUnderTheProposal();
    void anExistingFileIsReplacedWithoutAQuestion();
    void theRealDialogAsksNoQuestionEither();

    void aPartOf100000SamplesTakesTwoReads();
    void aLongPartIsCopiedInBlocks();
    void aStretchOfLengthZeroIsCreatedClosedAndTagged();
    void theProgressIsToldAfterEachBlock();
    void theProgressBeginsJustAboveZero();
    void theFormIsDisabledWhileItCopies();
    void cancelLeavesTheBlocksSoFarAndTheirTags_data();
    void cancelLeavesTheBlocksSoFarAndTheirTags();
    void cancelTellsNothing();
    void cancelBeforeTheFirstBlockWritesThatBlock();
    void aSourceThatGivesNothingIsReadUntilCancel();
    void theCloseBoxOfADisabledFormIsIgnored();
    void aSaveAfterACancelledOneIsWhole();
};

void win_save_run::theProposedName_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("name");
    QTest::addRow("a title has a capital extension") << 2 << "Intro"
                                                     << "MP3"
                                                     << "Intro.MP3";
    QTest::addRow("the first part is number 1") << 1 << ""
                                                << "WAV"
                                                << "song-Part 1.wav";
    QTest::addRow("the second part is number 2") << 2 << ""
                                                 << "OGG"
                                                 << "song-Part 2.ogg";
    QTest::addRow("the last part is number 3") << 3 << ""
                                               << "WMA"
                                               << "song-Part 3.wma";
    QTest::addRow("a title keeps what no file name may hold") << 3 << "a/b:c?"
                                                              << "WAV"
                                                              << "a/b:c?.WAV";
}

void win_save_run::theProposedName()
{
    QFETCH(int, row);
    QFETCH(QString, title);
    QFETCH(QString, format);
    QFETCH(QString, name);
    Saving saving(format);
    saving.title(row, title);
    saving.clickSave();
    QCOMPARE(saving.fixture.dialogs.lastName, name);
}

void win_save_run::aStretchThatNoPartBeginsWithIsNumberedBehindTheTable()
{
    Saving saving("WAV");
    saving.form.SaveRange("WAV", 4321, 10);
    QCOMPARE(static_cast<int>(PartTable.size()), 4);    // the parts, and the empty record behind them
    QCOMPARE(saving.fixture.dialogs.lastName, QString("song-Part 5.wav"));
}

void win_save_run::withoutAFolderInTheSourceTheDialogKeepsItsName()
{
    Saving saving("WAV");
    saving.select(2);
    CurrentFile = "song.mp3";
    saving.form.cd1.FileName = "before";
    saving.clickSave();
    QCOMPARE(saving.fixture.dialogs.lastName, QString("before"));
    QCOMPARE(saving.fixture.dialogs.lastTitle, langText(84) + "before");
}

void win_save_run::theDialogNamesTheProposalInItsTitle()
{
    Saving saving("MP3");
    saving.title(1, "Intro");
    saving.clickSave();
    QCOMPARE(saving.fixture.dialogs.lastTitle, langText(84) + "Intro.MP3");
}

void win_save_run::theFilterHasOneRow_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("pattern");
    QTest::addRow("MP3") << "MP3"
                         << "*.mp3";
    QTest::addRow("Ogg Vorbis") << "OGG"
                                << "*.ogg";
    QTest::addRow("WMA") << "WMA"
                         << "*.wma";
    QTest::addRow("WAV") << "WAV"
                         << "*.wav";
}

void win_save_run::theFilterHasOneRow()
{
    QFETCH(QString, format);
    QFETCH(QString, pattern);
    Saving saving(format);
    saving.select(2);
    saving.clickSave();
    QCOMPARE(saving.form.cd1.Filter, langText(70) + " (" + pattern + ")|" + pattern);
    QCOMPARE(saving.fixture.dialogs.lastFilter.patterns, QStringList{pattern});
}

void win_save_run::cancelInTheDialogWritesNothing()
{
    Saving saving("MP3");
    saving.select(2);
    saving.clickSave();
    QCOMPARE(journal().commands(), (QStringList{"AudioPlayer.Stop", "FileR.Seek 3000", "dialog save"}));
    QVERIFY(saving.form.isEnabled() && !ProgressForm.loaded());
}

void win_save_run::whereCancelRaisesNothingTheSaveGoesOnUnderTheProposal()
{
    FormFixture fixture;
    fixture.writeSetting("OutPutCut", "Format", "WAV");
    CutterSelect& form = fixture.load();
    fixture.engine.disk["/tmp/Recorded File.wav"] = shortSong();
    form.OuvreRecordedAudio("/tmp/Recorded File.wav");    // no file dialog has been up yet
    fixture.cutAt(3000);
    fixture.pressBarOfRow(2);
    press(form.Image8, form.Image8.rect().center());
    QCOMPARE(fixture.engine.disk["Recorded File-Part 2.wav"].samples.size(), std::size_t{18000});
}

void win_save_run::anExistingFileIsReplacedWithoutAQuestion()
{
    Saving saving("WAV");
    saving.fixture.engine.disk["/out/part"] = fakeSound(99);
    saving.select(1);
    saving.save();
    QCOMPARE(messages(), QStringList());
    QVERIFY(saving.written() == saving.stretch(0, 3000));
}

void win_save_run::theRealDialogAsksNoQuestionEither()
{
    Saving saving("WAV");
    saving.select(1);
    const QString path = saving.fixture.path("part.wav");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    setDialogHost(nullptr);
    DialogDriver driver;
    driver.expectFile(path);
    driver.expectMessage("Yes");    // for the question that must not come
    saving.clickSave();
    setDialogHost(&saving.fixture.dialogs);
    QVERIFY(driver.messages.isEmpty());
    QVERIFY(saving.written(path) == saving.stretch(0, 3000));
}

void win_save_run::aPartOf100000SamplesTakesTwoReads()
{
    Saving saving("WAV", {100000}, longSong());
    saving.select(1);
    saving.save();
    QCOMPARE(journal().commandsOf("FileR.ReadArray"),
             (QStringList{"FileR.ReadArray 100000", "FileR.ReadArray 0"}));
}

void win_save_run::aLongPartIsCopiedInBlocks()
{
    Saving saving("WAV", {10000, 260001}, longSong());
    saving.select(2);
    saving.save();
    const QStringList copied{"FileR.ReadArray 100000", "FileWenc.WriteArray 200000",
                             "FileR.ReadArray 100000", "FileWenc.WriteArray 200000",
                             "FileR.ReadArray 50001",  "FileWenc.WriteArray 100002",
                             "FileR.ReadArray 0"};
    QCOMPARE(journal().commands().filter("Array"), copied);
    QVERIFY(saving.written() == saving.stretch(10000, 260001));
}

void win_save_run::aStretchOfLengthZeroIsCreatedClosedAndTagged()
{
    Saving saving("MP3");
    saving.fixture.dialogs.files.push_back("/out/part");
    saving.form.SaveRange("MP3", 3000, 0);
    const QStringList commands = journal().commands();
    const qsizetype created = commands.indexOf("FileWenc.Create /out/part");
    QCOMPARE(commands.mid(created, 5),
             (QStringList{"FileWenc.Create /out/part", "FileWenc.SetInputFormat 44100 2", "FileR.ReadArray 0",
                          "FileWenc.Close", "FileWenc.SetFormatMP3Ex"}));
    QCOMPARE(commands.mid(created + 5), tagLines("/out/part"));
    QVERIFY(saving.written().empty());
}

void win_save_run::theProgressIsToldAfterEachBlock()
{
    Saving saving("WAV", {250000}, longSong());
    saving.select(1);
    QStringList told;
    QList<double> bars;
    journal().onCommand = [&](const QString& line) {
        if (!line.startsWith("FileR.ReadArray")) return;
        told << ProgressForm->Label2.text();
        bars << ProgressForm->ProgressBar1();
    };
    saving.save();
    const QString name = langText(84) + "/out/part : ";
    QCOMPARE(told, (QStringList{name + "0 %", name + "40 %", name + "80 %", name + "100 %"}));
    QCOMPARE(bars.mid(1), (QList<double>{40, 80, 100}));
}

void win_save_run::theProgressBeginsJustAboveZero()
{
    Saving saving("WAV");
    saving.select(1);
    float bar = 0;
    at("FileWenc.SetInputFormat", [&] { bar = static_cast<float>(ProgressForm->ProgressBar1()); });
    saving.save();
    QCOMPARE(bar, 0.001F);
}

void win_save_run::theFormIsDisabledWhileItCopies()
{
    Saving saving("WAV");
    saving.select(1);
    bool isFormEnabled = true, isDialogUp = false;
    at("FileWenc.WriteArray", [&] {
        isFormEnabled = saving.form.isEnabled();
        isDialogUp = ProgressForm.visible() && ProgressForm->isEnabled() && !ProgressForm->isModal() &&
                     ProgressForm->parentWidget() == &saving.form;
    });
    saving.save();
    QVERIFY(!isFormEnabled);
    QVERIFY(isDialogUp);
}

using Act = void (*)();
Q_DECLARE_METATYPE(Act)

namespace {

void waysToCancel()
{
    QTest::addColumn<Act>("cancel");
    QTest::addRow("by the button") << Act(clickCancel);
    QTest::addRow("by the close box") << Act([] { ProgressForm->close(); });
    QTest::addRow("by Escape") << Act([] { QTest::keyClick(&*ProgressForm, Qt::Key_Escape); });
}

}

void win_save_run::cancelLeavesTheBlocksSoFarAndTheirTags_data()
{
    waysToCancel();
}

void win_save_run::cancelLeavesTheBlocksSoFarAndTheirTags()
{
    QFETCH(Act, cancel);
    Saving saving("MP3", {350000}, longSong());
    saving.select(1);
    at("FileWenc.WriteArray", cancel);
    saving.save();
    QVERIFY(saving.written() == saving.stretch(0, 100000));
    const QStringList commands = journal().commands();
    QCOMPARE(commands.mid(commands.indexOf("FileWenc.Close")),
             (QStringList{"FileWenc.Close", "FileWenc.SetFormatMP3Ex"} + tagLines("/out/part")));
    QCOMPARE(saving.leftOver(), QString());
    QCOMPARE(saving.panel1(), QString());
}

void win_save_run::cancelTellsNothing()
{
    Saving saving("WAV", {350000}, longSong());
    saving.select(1);
    at("FileWenc.WriteArray", clickCancel);
    saving.save();
    QCOMPARE(messages(), QStringList());
}

void win_save_run::cancelBeforeTheFirstBlockWritesThatBlock()
{
    Saving saving("WAV", {350000}, longSong());
    saving.select(1);
    at("FileWenc.SetInputFormat", clickCancel);
    saving.save();
    QVERIFY(saving.written() == saving.stretch(0, 100000));
}

void win_save_run::aSourceThatGivesNothingIsReadUntilCancel()
{
    Saving saving("WAV");
    FakeSound broken = fakeSound(1000);
    broken.claimedTotal = 12000;
    saving.fixture.engine.disk["/music/broken.wav"] = broken;
    saving.form.FileR->Open("/music/broken.wav");
    saving.select(1);
    int empty = 0;
    journal().onCommand = [&](const QString& line) {
        if (line == "FileWenc.WriteArray 0" && ++empty == 20) clickCancel();
    };
    saving.save();
    QCOMPARE(journal().commandsOf("FileR.ReadArray 2000").size(), 20);
    QCOMPARE(saving.written().size(), std::size_t{2000});
    QCOMPARE(saving.leftOver(), QString());
}

void win_save_run::theCloseBoxOfADisabledFormIsIgnored()
{
    Saving saving("WAV", {250000}, longSong());
    saving.select(1);
    at("FileWenc.WriteArray", [&] { saving.form.close(); });
    saving.save();
    QVERIFY(saving.form.isVisible());
    QVERIFY(saving.written() == saving.stretch(0, 250000));
}

void win_save_run::aSaveAfterACancelledOneIsWhole()
{
    Saving saving("WAV", {350000}, longSong());
    saving.select(1);
    at("FileWenc.WriteArray", clickCancel);
    saving.save();
    saving.save();
    QVERIFY(saving.written() == saving.stretch(0, 350000));
}

QTEST_MAIN(win_save_run)
#include "win_save_run.moc"
