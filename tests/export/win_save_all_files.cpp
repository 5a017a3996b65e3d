// The files that saving all parts leaves behind: which stretch of the song each holds, and its name.
#include "export/Saving.h"

class win_save_all_files : public QObject {
    Q_OBJECT
private slots:
    void oneCutGivesTwoFiles();
    void threePartsAreTheStretchesBetweenTheCuts();
    void titlesGoByTheOrderInWhichTheCutsWereMade();
    void afterADeletionTheLastButOneFileIsMissing();
    void afterADeletionTheRestOfTwoPartsIsOneFile();

    void theFileNames_data();
    void theFileNames();
    void aFolderThatEndsInASeparatorGetsNoSecondOne();
    void theSeparatorIsAppendedForTheCallerToo();
    void aSeparatorInATitleBecomesPartOfThePath();
    void twoPartsOfOneTitleMakeOneFileAndTheSecondWins();
    void anExistingFileIsReplacedWithoutAQuestion();
};

void win_save_all_files::oneCutGivesTwoFiles()
{
    Saving saving("WAV", {4000});
    saving.saveAll();
    QCOMPARE(saving.files(), (QStringList{"/out/song-Part 1.wav", "/out/song-Part 2.wav"}));
    QVERIFY(saving.written("/out/song-Part 1.wav") == saving.stretch(0, 4000));
    QVERIFY(saving.written("/out/song-Part 2.wav") == saving.stretch(4000, songLength));
}

void win_save_all_files::threePartsAreTheStretchesBetweenTheCuts()
{
    Saving saving("WAV");
    saving.saveAll();
    QVERIFY(saving.written("/out/song-Part 1.wav") == saving.stretch(0, 3000));
    QVERIFY(saving.written("/out/song-Part 2.wav") == saving.stretch(3000, 7000));
    QVERIFY(saving.written("/out/song-Part 3.wav") == saving.stretch(7000, songLength));
}

void win_save_all_files::titlesGoByTheOrderInWhichTheCutsWereMade()
{
    Saving saving("WAV", {7000, 3000});
    saving.title(2, "middle");
    saving.title(3, "end");
    saving.saveAll();
    // Record 1 is the cut made first, at 7000; the stretches go by place.
    QVERIFY(saving.written("/out/end.WAV") == saving.stretch(3000, 7000));
    QVERIFY(saving.written("/out/middle.WAV") == saving.stretch(7000, songLength));
}

void win_save_all_files::afterADeletionTheLastButOneFileIsMissing()
{
    Saving saving("WAV", {3000, 6000, 9000});
    saving.select(2);
    saving.form.DeleteEntryCutPoint.trigger();
    QCOMPARE(saving.form.ListView1.rowCount(), 3);
    saving.saveAll();
    QCOMPARE(saving.files(), (QStringList{"/out/song-Part 1.wav", "/out/song-Part 2.wav"}));
    QVERIFY(saving.written("/out/song-Part 1.wav") == saving.stretch(0, 6000));
    QVERIFY(saving.written("/out/song-Part 2.wav") == saving.stretch(9000, songLength));
}

void win_save_all_files::afterADeletionTheRestOfTwoPartsIsOneFile()
{
    Saving saving("WAV");
    saving.select(2);
    saving.form.DeleteEntryCutPoint.trigger();
    QCOMPARE(CutCount, 1);
    saving.saveAll();
    QCOMPARE(saving.files(), QStringList{"/out/song-Part 1.wav"});
    QVERIFY(saving.written("/out/song-Part 1.wav") == saving.stretch(0, 7000));
}

void win_save_all_files::theFileNames_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("untitled");
    QTest::addColumn<QString>("titled");
    QTest::addRow("MP3") << "MP3"
                         << "/out/song-Part 1.mp3"
                         << "/out/End.MP3";
    QTest::addRow("Ogg Vorbis") << "OGG"
                                << "/out/song-Part 1.ogg"
                                << "/out/End.OGG";
    QTest::addRow("WMA") << "WMA"
                         << "/out/song-Part 1.wma"
                         << "/out/End.WMA";
    QTest::addRow("WAV") << "WAV"
                         << "/out/song-Part 1.wav"
                         << "/out/End.WAV";
}

void win_save_all_files::theFileNames()
{
    QFETCH(QString, format);
    QFETCH(QString, untitled);
    QFETCH(QString, titled);
    Saving saving(format, {3000});
    saving.title(2, "End");
    saving.saveAll();
    QCOMPARE(journal().commandsOf("FileWenc.Create"),
             (QStringList{"FileWenc.Create " + untitled, "FileWenc.Create " + titled}));
}

void win_save_all_files::aFolderThatEndsInASeparatorGetsNoSecondOne()
{
    Saving saving("WAV", {3000});
    saving.saveAll("/");
    QCOMPARE(journal().commandsOf("FileWenc.Create").first(), QString("FileWenc.Create /song-Part 1.wav"));
}

void win_save_all_files::theSeparatorIsAppendedForTheCallerToo()
{
    Saving saving("WAV");
    QString folder = "/out";
    saving.form.SaveEveryPart(folder, "WAV");
    QCOMPARE(folder, QString("/out/"));
}

void win_save_all_files::aSeparatorInATitleBecomesPartOfThePath()
{
    Saving saving("WAV", {3000});
    saving.title(1, "side/one");
    saving.saveAll();
    QVERIFY(saving.exists("/out/side/one.WAV"));
}

void win_save_all_files::twoPartsOfOneTitleMakeOneFileAndTheSecondWins()
{
    Saving saving("WAV", {3000});
    saving.title(1, "Same");
    saving.title(2, "Same");
    saving.saveAll();
    QCOMPARE(saving.files(), QStringList{"/out/Same.WAV"});
    QVERIFY(saving.written("/out/Same.WAV") == saving.stretch(3000, songLength));
}

void win_save_all_files::anExistingFileIsReplacedWithoutAQuestion()
{
    Saving saving("WAV", {3000});
    saving.fixture.engine.disk["/out/song-Part 1.wav"] = fakeSound(99);
    saving.saveAll();
    QCOMPARE(messages(), QStringList());
    QVERIFY(saving.written("/out/song-Part 1.wav") == saving.stretch(0, 3000));
}

QTEST_MAIN(win_save_all_files)
#include "win_save_all_files.moc"
