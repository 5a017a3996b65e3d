// Tags of MP3 files: the 128 bytes at the end, the frames in front, and both together.
#include "core/Errors.h"
#include "engine/Latin1Text.h"
#include "engine/TagTools.h"

#include <QTest>

using namespace tools;

namespace {

/// A field of the 128 bytes at the end, without what fills it up.
QByteArray field(const QString& path, int offset, int length)
{
    const QByteArray bytes = contents(path).right(128).mid(offset, length);
    return bytes.left(bytes.indexOf('\0') < 0 ? length : bytes.indexOf('\0'));
}

/// The frames of the tag in front, by hand: id and bytes.
QMap<QByteArray, QByteArray> frames(const QString& path)
{
    const QByteArray bytes = contents(path);
    QMap<QByteArray, QByteArray> found;
    const auto at = [&](qsizetype i) { return static_cast<unsigned char>(bytes.at(i)); };
    if (!bytes.startsWith("ID3\x03")) return found;
    const qsizetype end = 10 + (at(6) << 21 | at(7) << 14 | at(8) << 7 | at(9));
    for (qsizetype i = 10; i + 10 < end && at(i) != 0;) {
        const qsizetype size = at(i + 4) << 24 | at(i + 5) << 16 | at(i + 6) << 8 | at(i + 7);
        found.insert(bytes.mid(i, 4), bytes.mid(i + 10, size));
        i += 10 + size;
    }
    return found;
}

}

class tst_tags_mp3 : public QObject {
    Q_OBJECT
private slots:
    void aTagReadsBack_data();
    void aTagReadsBack();
    void versionOneIsThe128BytesAtTheEnd();
    void versionOneIsWrittenOnceHoweverOften();
    void versionTwoHasItsFrames();
    void theTwoVersionsLeaveEachOtherAlone();
    void anotherProgramReadsBoth();
    void theSoundStaysWhatItWas();
    void aCommentOf29CharactersSurvivesInVersionOne();
    void aTrackStandsBehindAShortComment();
    void anEmptyTagIsWritten();
    void aYear0IsWritten();
    void textsThatBecomeEmptyGoAway();
    void longTextsAreCutInVersionOneOnly();
    void characterOutsideLatin1_data();
    void characterOutsideLatin1();
    void versionOneStandsInForWhatVersionTwoLacks();
    void aFileWithoutTagsGivesNothing();
    void aFileThatIsNoSoundGivesNothing();
    void theNameDoesNotMatter();
    void aLargeTagMovesTheSound();
    void otherFramesStay();
};

void tst_tags_mp3::aTagReadsBack_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<Texts>("texts");
    const auto rows = [](const char* name, const Texts& texts) {
        QTest::addRow("%s, version 1", name) << 1 << texts;
        QTest::addRow("%s, version 2", name) << 2 << texts;
    };
    rows("the usual", {});
    rows("accents", {"Éléphant", "Müller", "Ça", "Straße", 0, 2026});
    rows("nothing", {"", "", "", "", -1, 0});
    rows("the last genre", {"a", "b", "c", "d", 147, 1});
    rows("a year of three digits", {"a", "b", "c", "d", 8, 476});
    rows("30 characters", {QString(30, 'T'), QString(29, 'A'), QString(29, 'B'), QString(29, 'C'), 3, 9999});
}

void tst_tags_mp3::aTagReadsBack()
{
    QFETCH(int, version);
    QFETCH(Texts, texts);
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    writeTag(path, version, texts);
    QCOMPARE(readTag(path), line(texts));
}

void tst_tags_mp3::versionOneIsThe128BytesAtTheEnd()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    const QByteArray before = contents(path);
    writeTag(path, 1, {"Title", "Artist", "Album", "Comment", 17, 1999});
    QCOMPARE(contents(path).size(), before.size() + 128);
    QVERIFY(contents(path).startsWith(before));
    QCOMPARE(field(path, 0, 3), QByteArray("TAG"));
    QCOMPARE(field(path, 3, 30), QByteArray("Title"));
    QCOMPARE(field(path, 33, 30), QByteArray("Artist"));
    QCOMPARE(field(path, 63, 30), QByteArray("Album"));
    QCOMPARE(field(path, 93, 4), QByteArray("1999"));
    QCOMPARE(field(path, 97, 30), QByteArray("Comment"));
    QCOMPARE(contents(path).back(), char(17));
}

void tst_tags_mp3::versionOneIsWrittenOnceHoweverOften()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    writeTag(path, 1, {});
    const auto size = contents(path).size();
    writeTag(path, 1, {"Another", "", "", "", -1, 0});
    QCOMPARE(contents(path).size(), size);
    QCOMPARE(field(path, 3, 30), QByteArray("Another"));
}

void tst_tags_mp3::versionTwoHasItsFrames()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    writeTag(path, 2, {"Title", "Artist", "Album", "Comment", 17, 1999});
    const auto found = frames(path);
    const QByteArray latin1(1, '\0');
    QCOMPARE(found.value("TIT2"), latin1 + "Title");
    QCOMPARE(found.value("TPE1"), latin1 + "Artist");
    QCOMPARE(found.value("TALB"), latin1 + "Album");
    QCOMPARE(found.value("TYER"), latin1 + "1999");
    QCOMPARE(found.value("TCON"), latin1 + "(17)");
    QCOMPARE(found.value("TENC"), latin1 + "Some program");
    QVERIFY(found.value("COMM").endsWith("Comment"));
    QVERIFY(!found.contains("TRCK"));
}

void tst_tags_mp3::theTwoVersionsLeaveEachOtherAlone()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    writeTag(path, 1, {"One", "", "", "", -1, 0});
    writeTag(path, 2, {"Two", "", "", "", -1, 0});
    writeTag(path, 1, {"Three", "", "", "", -1, 0});
    QCOMPARE(field(path, 3, 30), QByteArray("Three"));
    QCOMPARE(frames(path).value("TIT2"), QByteArray("\0Two", 4));
}

void tst_tags_mp3::anotherProgramReadsBoth()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    for (const int version : {1, 2}) {
        writeTag(path, version, {"Title", "Artist", "Album", "Comment", 17, 1999});
        QCOMPARE(probe(path, "format_tags=title"), QString("Title"));
        QCOMPARE(probe(path, "format_tags=artist"), QString("Artist"));
        QCOMPARE(probe(path, "format_tags=album"), QString("Album"));
        QCOMPARE(probe(path, "format_tags=comment"), QString("Comment"));
        QCOMPARE(probe(path, "format_tags=genre"), QString("Rock"));
        QCOMPARE(probe(path, "format_tags=date"), QString("1999"));
    }
    QCOMPARE(probe(path, "format_tags=encoded_by"), QString("Some program"));
}

void tst_tags_mp3::theSoundStaysWhatItWas()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    const SampleArray before = decode(path);
    writeBothTags(path, {});
    QCOMPARE(before.size(), std::size_t{2 * 3 * 44100});
    QCOMPARE(decode(path), before);
}

void tst_tags_mp3::aCommentOf29CharactersSurvivesInVersionOne()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    const QString comment = "12345678901234567890123456789";
    writeTag(path, 1, {"", "", "", comment, -1, 0});
    QCOMPARE(QString::fromLatin1(field(path, 97, 30)), comment);
    QCOMPARE(probe(path, "format_tags=comment"), comment);
}

void tst_tags_mp3::aTrackStandsBehindAShortComment()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    TagEngine tag;
    setTexts(tag, {});
    tag.SetTrack(12);
    tag.SetTagVersion(1);
    tag.WriteTo(path);
    QCOMPARE(probe(path, "format_tags=track"), QString("12"));
    tag.SetTagVersion(2);
    tag.WriteTo(path);
    QCOMPARE(frames(path).value("TRCK"), QByteArray("\0"
                                                    "12",
                                                    3));
}

void tst_tags_mp3::anEmptyTagIsWritten()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    TagEngine tag;
    for (const int version : {1, 2}) {
        tag.SetTagVersion(version);
        tag.WriteTo(path);
    }
    QCOMPARE(contents(path).right(128).left(3), QByteArray("TAG"));
    QCOMPARE(static_cast<unsigned char>(contents(path).back()), 255);
    QVERIFY(contents(path).startsWith("ID3"));
}

void tst_tags_mp3::aYear0IsWritten()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    writeBothTags(path, {"Title", "", "", "", -1, 0});
    QCOMPARE(frames(path).value("TYER"), QByteArray("\0"
                                                    "0",
                                                    2));
    QCOMPARE(field(path, 93, 4), QByteArray("0"));
}

void tst_tags_mp3::textsThatBecomeEmptyGoAway()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    writeBothTags(path, {});
    writeBothTags(path, {"", "", "", "", -1, 0});
    QCOMPARE(readTag(path), QString("||||-1|0"));
}

void tst_tags_mp3::longTextsAreCutInVersionOneOnly()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    const QString text(100, 'x');
    writeBothTags(path, {text, text, text, text, 5, 1999});
    QCOMPARE(readTag(path), line({text, text, text, text, 5, 1999}));
    QCOMPARE(field(path, 3, 30).size(), 30);
    QCOMPARE(field(path, 93, 4), QByteArray("1999"));
}

void tst_tags_mp3::characterOutsideLatin1_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("plain");
    QTest::addRow("Latin-1 stays") << "Ünïcode ß"
                                   << QByteArray("\xdcn\xef"
                                                 "code \xdf");
    QTest::addRow("a ligature") << "cœur" << QByteArray("coeur");
    QTest::addRow("a dash and quotes") << "a – ‘b’ “c”" << QByteArray("a - 'b' \"c\"");
    QTest::addRow("accents beyond Latin-1") << "Dvořák čeština" << QByteArray("Dvor\xe1k cestina");
    QTest::addRow("a stroke") << "Łódź"
                              << QByteArray("L\xf3"
                                            "dz");
    QTest::addRow("accents that stand apart") << QString("e\u0301") << QByteArray("\xe9");
    QTest::addRow("another alphabet") << "Чай" << QByteArray("???");
    QTest::addRow("a character of two units") << QString("a\U0001F3B5z") << QByteArray("a?z");
    QTest::addRow("dots") << "so…" << QByteArray("so...");
}

void tst_tags_mp3::characterOutsideLatin1()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, plain);
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    writeTag(path, 1, {text, "", "", "", -1, 0});
    QCOMPARE(field(path, 3, 30), plain);
    writeTag(path, 2, {text, "", "", "", -1, 0});
    QCOMPARE(readTag(path).section('|', 0, 0), text);
}

void tst_tags_mp3::versionOneStandsInForWhatVersionTwoLacks()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    writeTag(path, 1, {"Old title", "Old artist", "Old album", "Old comment", 3, 1980});
    writeTag(path, 2, {"New title", "", "", "New comment", -1, 0});
    QCOMPARE(readTag(path), QString("New title|Old artist|Old album|New comment|3|1980"));
}

void tst_tags_mp3::aFileWithoutTagsGivesNothing()
{
    Folder folder;
    QCOMPARE(readTag(soundFile(folder, "mp3")), QString("||||-1|0"));
}

void tst_tags_mp3::aFileThatIsNoSoundGivesNothing()
{
    Folder folder;
    putContents(folder / "text", "no sound at all");
    putContents(folder / "empty", "");
    QCOMPARE(readTag(folder / "text"), QString("||||-1|0"));
    QCOMPARE(readTag(folder / "empty"), QString("||||-1|0"));
}

void tst_tags_mp3::theNameDoesNotMatter()
{
    Folder folder;
    QVERIFY(QFile::rename(soundFile(folder, "mp3"), folder / "a.wav"));
    writeBothTags(folder / "a.wav", {});
    QCOMPARE(readTag(folder / "a.wav"), line({}));
    QCOMPARE(decode(folder / "a.wav").size(), std::size_t{2 * 3 * 44100});
}

void tst_tags_mp3::aLargeTagMovesTheSound()
{
    Folder folder;
    const QString path = soundFile(folder, "mp3");
    const SampleArray before = decode(path);
    writeTag(path, 2, {"", "", "", QString(3000000, 'c'), -1, 0});
    QCOMPARE(decode(path), before);
    writeTag(path, 2, {"Short", "", "", "", -1, 0});
    QCOMPARE(decode(path), before);
    QCOMPARE(readTag(path), QString("Short||||-1|0"));
}

void tst_tags_mp3::otherFramesStay()
{
    Folder folder;
    const QString plain = soundFile(folder, "mp3");
    run("ffmpeg",
        {"-v", "error", "-i", plain, "-c", "copy", "-metadata", "composer=Somebody", folder / "b.mp3"});
    writeTag(folder / "b.mp3", 2, {});
    QCOMPARE(probe(folder / "b.mp3", "format_tags=composer"), QString("Somebody"));
}

QTEST_GUILESS_MAIN(tst_tags_mp3)
#include "tst_tags_mp3.moc"
