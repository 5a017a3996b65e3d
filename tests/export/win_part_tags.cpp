// The tag panel and what of it goes into a saved part.
#include "export/Saving.h"

class win_part_tags : public QObject {
    Q_OBJECT
private slots:
    void bothVersionsGetEverythingOnThePanel();
    void theSaveAllPathWritesTheSameFields();
    void everyPartGetsItsOwnTitle();
    void anEmptyTitleIsWrittenEmpty();
    void theTitleOfThePartIsNotTheNameOfTheFile();

    void aSingleSaveWithoutAYearWritesNoTag();
    void aSaveOfAllPartsWithoutAYearWritesYear0();
    void theYear0StaysOnThePanel();
    void aYearWithLettersLeavesASingleSaveWithoutTags();
    void aYearWithLettersEndsASaveOfAllParts();
    void aYearInBlanksIsANumber();

    void openingFillsThePanel();
    void theseKindsReadNoTags_data();
    void theseKindsReadNoTags();
    void theTagsOfTheFileBeforeGoIntoTheNextParts();
    void closingKeepsThePanel();
    void tagsThatCannotBeReadFailTheOpen();

    void theGenresAreTheLibrarysOwnInItsOrder();
    void nothingIsSelectedAmongTheGenresAtTheStart();
    void theFieldsTakeSoManyLetters_data();
    void theFieldsTakeSoManyLetters();
};

namespace {

FakeSound taggedSong()
{
    FakeSound sound = shortSong();
    sound.title = "Whole";
    sound.artist = "Artist";
    sound.album = "Album";
    sound.comment = "Comment";
    sound.genre = 17;
    sound.year = 2001;
    return sound;
}

const FakeSound& tagged()
{
    static const FakeSound sound = taggedSong();
    return sound;
}

// Opens a sound under a path of its own.
void openAs(Saving& saving, const QString& path, const FakeSound& sound)
{
    saving.fixture.engine.disk[path] = sound;
    saving.fixture.dialogs.files.push_back(path);
    saving.form.OpenAudioFile.trigger();
    journal().clear();
}

QStringList panel(CutterSelect& form)
{
    return {form.infoArtist.text(), form.infoAlbum.text(), QString::number(form.infoGenre.currentIndex()),
            form.infoComment.text(), form.infoYear.text()};
}

const QStringList taggedPanel{"Artist", "Album", "17", "Comment", "2001"};

QStringList fullTag(const QString& version, const QString& title, const QString& path)
{
    return {"AudioTags.SetTagVersion " + version,
            "AudioTags.SetTitle " + title,
            "AudioTags.SetArtist Someone",
            "AudioTags.SetAlbum Collected",
            "AudioTags.SetGenre 3",
            "AudioTags.SetComment Take two",
            "AudioTags.SetYear 1987",
            "AudioTags.SetTrack 0",
            "AudioTags.SetEncodedBy Quillon - Meridel",
            "AudioTags.WriteTo " + path};
}

void fillPanel(CutterSelect& form)
{
    press(form.Image22, form.Image22.rect().center());
    QTest::keyClicks(&form.infoArtist, "Someone");
    QTest::keyClicks(&form.infoAlbum, "Collected");
    form.infoGenre.setCurrentIndex(3);
    QTest::keyClicks(&form.infoComment, "Take two");
    form.infoYear.clear();
    QTest::keyClicks(&form.infoYear, "1987");
}

}

void win_part_tags::bothVersionsGetEverythingOnThePanel()
{
    Saving saving("MP3");
    fillPanel(saving.form);
    saving.title(2, "Intro");
    saving.save("/out/part.mp3");
    QCOMPARE(journal().commandsOf("AudioTags"),
             fullTag("1", "Intro", "/out/part.mp3") + fullTag("2", "Intro", "/out/part.mp3"));
}

void win_part_tags::theSaveAllPathWritesTheSameFields()
{
    Saving saving("OGG", {3000});
    fillPanel(saving.form);
    saving.title(1, "A");
    saving.title(2, "B");
    saving.saveAll();
    QCOMPARE(journal().commandsOf("AudioTags"),
             fullTag("1", "A", "/out/A.OGG") + fullTag("2", "A", "/out/A.OGG") +
                 fullTag("1", "B", "/out/B.OGG") + fullTag("2", "B", "/out/B.OGG"));
}

void win_part_tags::everyPartGetsItsOwnTitle()
{
    Saving saving("MP3");
    saving.title(1, "one");
    saving.title(3, "three");
    saving.saveAll();
    QCOMPARE(journal().commandsOf("AudioTags.SetTitle"),
             (QStringList{"AudioTags.SetTitle one", "AudioTags.SetTitle one", "AudioTags.SetTitle",
                          "AudioTags.SetTitle", "AudioTags.SetTitle three", "AudioTags.SetTitle three"}));
}

void win_part_tags::anEmptyTitleIsWrittenEmpty()
{
    Saving saving("MP3");
    saving.select(2);
    saving.save();
    QCOMPARE(journal().commandsOf("AudioTags.SetTitle"),
             (QStringList{"AudioTags.SetTitle", "AudioTags.SetTitle"}));
}

void win_part_tags::theTitleOfThePartIsNotTheNameOfTheFile()
{
    Saving saving("MP3");
    saving.title(2, "Intro");
    saving.save("/out/other.mp3");
    QCOMPARE(journal().commandsOf("AudioTags.SetTitle").first(), QString("AudioTags.SetTitle Intro"));
}

void win_part_tags::aSingleSaveWithoutAYearWritesNoTag()
{
    Saving saving("MP3");
    saving.form.infoYear.clear();
    saving.select(2);
    saving.save();
    QCOMPARE(journal().commandsOf("AudioTags"),
             (QStringList{"AudioTags.SetTagVersion 1", "AudioTags.SetTitle", "AudioTags.SetArtist",
                          "AudioTags.SetAlbum", "AudioTags.SetGenre -1", "AudioTags.SetComment"}));
    QCOMPARE(messages(), QStringList());
    QCOMPARE(saving.form.infoYear.text(), QString());
    QVERIFY(saving.written() == saving.stretch(3000, 7000));
}

void win_part_tags::aSaveOfAllPartsWithoutAYearWritesYear0()
{
    Saving saving("MP3", {3000});
    saving.form.infoYear.clear();
    saving.saveAll();
    QCOMPARE(journal().commandsOf("AudioTags.SetYear 0").size(), 4);
    QCOMPARE(journal().commandsOf("AudioTags.WriteTo").size(), 4);
}

void win_part_tags::theYear0StaysOnThePanel()
{
    Saving saving("MP3", {3000});
    saving.form.infoYear.clear();
    saving.saveAll();
    QCOMPARE(saving.form.infoYear.text(), QString("0"));
}

void win_part_tags::aYearWithLettersLeavesASingleSaveWithoutTags()
{
    Saving saving("MP3");
    saving.form.infoYear.setText("19xx");
    saving.select(2);
    saving.save();
    QCOMPARE(journal().commandsOf("AudioTags.WriteTo"), QStringList());
    QCOMPARE(messages(), QStringList());
}

void win_part_tags::aYearWithLettersEndsASaveOfAllParts()
{
    Saving saving("MP3");
    saving.form.infoYear.setText("19xx");
    saving.saveAll();
    QCOMPARE(saving.files(), QStringList{"/out/song-Part 1.mp3"});
    QCOMPARE(messages(), QStringList());
    QCOMPARE(saving.leftOver(), QString());
}

void win_part_tags::aYearInBlanksIsANumber()
{
    Saving saving("MP3");
    saving.form.infoYear.setText(" 87 ");
    saving.select(2);
    saving.save();
    QCOMPARE(journal().commandsOf("AudioTags.SetYear").first(), QString("AudioTags.SetYear 87"));
}

void win_part_tags::openingFillsThePanel()
{
    Saving saving("WAV");
    openAs(saving, "/music/tagged.mp3", tagged());
    QCOMPARE(panel(saving.form), taggedPanel);
    QCOMPARE(saving.form.FileTitle, QString("Whole"));
}

void win_part_tags::theseKindsReadNoTags_data()
{
    QTest::addColumn<QString>("path");
    for (const char* path :
         {"/music/b.wav", "/music/b.WAV", "/music/b.wma", "/music/b.Wma", "/music/b.avi", "/music/b.AVI"})
        QTest::addRow("%s", path) << path;
}

void win_part_tags::theseKindsReadNoTags()
{
    QFETCH(QString, path);
    Saving saving("WAV");
    openAs(saving, "/music/tagged.mp3", tagged());
    journal().onCommand = [](const QString& line) { QVERIFY(!line.startsWith("AudioTags")); };
    openAs(saving, path, shortSong());
    QCOMPARE(panel(saving.form), taggedPanel);
}

void win_part_tags::theTagsOfTheFileBeforeGoIntoTheNextParts()
{
    Saving saving("MP3");
    openAs(saving, "/music/tagged.mp3", tagged());
    openAs(saving, "/music/plain.wav", shortSong());
    saving.fixture.cutAt(3000);
    saving.saveAll();
    QCOMPARE(journal().commandsOf("AudioTags.SetArtist Artist").size(), 4);
    QCOMPARE(journal().commandsOf("AudioTags.SetGenre 17").size(), 4);
}

void win_part_tags::closingKeepsThePanel()
{
    Saving saving("WAV");
    openAs(saving, "/music/tagged.mp3", tagged());
    saving.form.CloseAudioFile.trigger();
    QCOMPARE(panel(saving.form), taggedPanel);
}

void win_part_tags::tagsThatCannotBeReadFailTheOpen()
{
    Saving saving("WAV");
    saving.fixture.engine.failing << "AudioTags.ReadFrom";
    saving.fixture.engine.disk["/music/other.mp3"] = tagged();
    saving.fixture.dialogs.files.push_back("/music/other.mp3");
    saving.form.OpenAudioFile.trigger();
    QCOMPARE(messages(), QStringList{criticalMessage(73)});
    QCOMPARE(saving.form.infoArtist.text(), QString());
}

void win_part_tags::theGenresAreTheLibrarysOwnInItsOrder()
{
    Saving saving("WAV");
    QCOMPARE(saving.form.infoGenre.count(), 148);
    for (int i = 0; i < 148; ++i) QCOMPARE(saving.form.infoGenre.itemText(i), QString("genre %1").arg(i));
}

void win_part_tags::nothingIsSelectedAmongTheGenresAtTheStart()
{
    FormFixture fixture;
    QCOMPARE(fixture.load().infoGenre.currentIndex(), -1);
}

void win_part_tags::theFieldsTakeSoManyLetters_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("most");
    QTest::addRow("a title has 30") << "TextTitle" << 30;
    QTest::addRow("an artist has 29") << "infoArtist" << 29;
    QTest::addRow("an album has 29") << "infoAlbum" << 29;
    QTest::addRow("a comment has 29") << "infoComment" << 29;
    QTest::addRow("a year has 4") << "infoYear" << 4;
}

void win_part_tags::theFieldsTakeSoManyLetters()
{
    QFETCH(QString, field);
    QFETCH(int, most);
    Saving saving("WAV");
    saving.select(2);
    auto* edit = saving.form.findChild<QLineEdit*>(field);
    edit->clear();
    QTest::keyClicks(edit, QString(40, 'x'));
    QCOMPARE(edit->text(), QString(most, 'x'));
}

QTEST_MAIN(win_part_tags)
#include "win_part_tags.moc"
