// Tags of Ogg Vorbis and WMA files, and the list of genres.
#include "core/Errors.h"
#include "engine/TagTools.h"

#include <QTest>

using namespace tools;

namespace {

void addKinds()
{
    QTest::addColumn<QString>("kind");
    QTest::addRow("Ogg Vorbis") << "ogg";
    QTest::addRow("WMA") << "wma";
}

}

class tst_tags_ogg_wma : public QObject {
    Q_OBJECT
private slots:
    void aTagReadsBack_data();
    void aTagReadsBack();
    void eitherVersionWritesTheOneTag_data() { addKinds(); }
    void eitherVersionWritesTheOneTag();
    void anotherProgramReadsIt_data() { addKinds(); }
    void anotherProgramReadsIt();
    void theSoundStaysWhatItWas_data() { addKinds(); }
    void theSoundStaysWhatItWas();
    void textsThatBecomeEmptyGoAway_data() { addKinds(); }
    void textsThatBecomeEmptyGoAway();
    void aYear0IsWritten();
    void wmaHasNoTrack();
    void theNameDoesNotMatter_data() { addKinds(); }
    void theNameDoesNotMatter();
    void aFileWithoutTagsGivesNothing_data() { addKinds(); }
    void aFileWithoutTagsGivesNothing();
    void aLargeTagMovesTheSound_data() { addKinds(); }
    void aLargeTagMovesTheSound();
    void theGettersSpeakOfTheFileReadLast();
    void theGenresAreTheListOf148();
    void thereIsNoGenreBeyondTheList_data();
    void thereIsNoGenreBeyondTheList();
};

void tst_tags_ogg_wma::aTagReadsBack_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<Texts>("texts");
    for (const char* kind : {"ogg", "wma"}) {
        QTest::addRow("the usual, %s", kind) << kind << Texts{};
        QTest::addRow("any alphabet, %s", kind)
            << kind << Texts{"Чай", "œuvre – “x”", "日本", "a\U0001F3B5z", 0, 2026};
        QTest::addRow("nothing, %s", kind) << kind << Texts{"", "", "", "", -1, 0};
        QTest::addRow("the last genre, %s", kind) << kind << Texts{"a", "b", "c", "d", 147, 1};
        QTest::addRow("long texts, %s", kind)
            << kind
            << Texts{QString(200, 'T'), QString(200, 'A'), QString(200, 'B'), QString(200, 'C'), 3, 9999};
    }
}

void tst_tags_ogg_wma::aTagReadsBack()
{
    QFETCH(QString, kind);
    QFETCH(Texts, texts);
    Folder folder;
    const QString path = soundFile(folder, kind);
    writeBothTags(path, texts);
    QCOMPARE(readTag(path), line(texts));
}

void tst_tags_ogg_wma::eitherVersionWritesTheOneTag()
{
    QFETCH(QString, kind);
    Folder folder;
    const QString path = soundFile(folder, kind);
    writeTag(path, 1, {});
    const QByteArray once = contents(path);
    writeTag(path, 2, {});
    QCOMPARE(contents(path), once);
    QVERIFY(contents(path).right(128).left(3) != "TAG");
}

void tst_tags_ogg_wma::anotherProgramReadsIt()
{
    QFETCH(QString, kind);
    Folder folder;
    const QString path = soundFile(folder, kind);
    writeBothTags(path, {"Title", "Artist", "Album", "Comment", 17, 1999});
    const QString tags = kind == "ogg" ? "stream_tags=" : "format_tags=";
    QCOMPARE(probe(path, tags + "title"), QString("Title"));
    QCOMPARE(probe(path, tags + "artist"), QString("Artist"));
    QCOMPARE(probe(path, tags + "album"), QString("Album"));
    QCOMPARE(probe(path, tags + "comment"), QString("Comment"));
    QCOMPARE(probe(path, tags + "genre"), QString("Rock"));
    QCOMPARE(probe(path, tags + (kind == "ogg" ? "date" : "WM/Year")), QString("1999"));
    QCOMPARE(probe(path, tags + (kind == "ogg" ? "ENCODEDBY" : "encoded_by")), QString("Some program"));
}

void tst_tags_ogg_wma::theSoundStaysWhatItWas()
{
    QFETCH(QString, kind);
    Folder folder;
    const QString path = soundFile(folder, kind);
    const SampleArray before = decode(path);
    writeBothTags(path, {});
    QVERIFY(before.size() >= 2 * 3 * 44100);
    QCOMPARE(decode(path), before);
}

void tst_tags_ogg_wma::textsThatBecomeEmptyGoAway()
{
    QFETCH(QString, kind);
    Folder folder;
    const QString path = soundFile(folder, kind);
    writeBothTags(path, {});
    writeBothTags(path, {"", "", "", "", -1, 0});
    QCOMPARE(readTag(path), QString("||||-1|0"));
}

void tst_tags_ogg_wma::aYear0IsWritten()
{
    Folder folder;
    const QString path = soundFile(folder, "ogg");
    writeTag(path, 2, {"Title", "", "", "", -1, 0});
    QCOMPARE(probe(path, "stream_tags=date"), QString("0"));
    QVERIFY(contents(path).contains("DATE=0"));
}

void tst_tags_ogg_wma::wmaHasNoTrack()
{
    Folder folder;
    const QString path = soundFile(folder, "wma");
    writeBothTags(path, {});
    QCOMPARE(probe(path, "format_tags=track"), QString());
}

void tst_tags_ogg_wma::theNameDoesNotMatter()
{
    QFETCH(QString, kind);
    Folder folder;
    QVERIFY(QFile::rename(soundFile(folder, kind), folder / "song.mp3"));
    writeBothTags(folder / "song.mp3", {});
    QCOMPARE(readTag(folder / "song.mp3"), line({}));
}

void tst_tags_ogg_wma::aFileWithoutTagsGivesNothing()
{
    QFETCH(QString, kind);
    Folder folder;
    QCOMPARE(readTag(soundFile(folder, kind)), QString("||||-1|0"));
}

void tst_tags_ogg_wma::aLargeTagMovesTheSound()
{
    QFETCH(QString, kind);
    Folder folder;
    const QString path = soundFile(folder, kind);
    const SampleArray before = decode(path);
    // As long as the length field of a WMA text allows.
    writeTag(path, 2, {"", "", "", QString(30000, 'c'), -1, 0});
    QCOMPARE(decode(path), before);
    QCOMPARE(readTag(path).size(), 30000 + QString("||||-1|0").size());
    writeTag(path, 2, {"Short", "", "", "", -1, 0});
    QCOMPARE(decode(path), before);
}

void tst_tags_ogg_wma::theGettersSpeakOfTheFileReadLast()
{
    Folder folder;
    const QString path = soundFile(folder, "ogg");
    writeTag(path, 2, {"In the file", "", "", "", -1, 0});
    TagEngine tag;
    tag.SetTitle("Set");
    QCOMPARE(tag.GetTitle(), QString());
    tag.ReadFrom(path);
    QCOMPARE(tag.GetTitle(), QString("In the file"));
    tag.WriteTo(path);
    QCOMPARE(readTag(path).section('|', 0, 0), QString("Set"));
}

void tst_tags_ogg_wma::theGenresAreTheListOf148()
{
    const TagEngine tag;
    QSet<QString> names;
    for (int i = 0; i < 148; ++i) names.insert(tag.GetGenreName(i));
    QCOMPARE(names.size(), 148);
    QVERIFY(!names.contains(""));
    QCOMPARE(tag.GetGenreName(0), QString("Blues"));
    QCOMPARE(tag.GetGenreName(17), QString("Rock"));
    QCOMPARE(tag.GetGenreName(147), QString("Synthpop"));
}

void tst_tags_ogg_wma::thereIsNoGenreBeyondTheList_data()
{
    QTest::addColumn<int>("index");
    for (const int index : {-1, 148, 255, 100000}) QTest::addRow("%d", index) << index;
}

void tst_tags_ogg_wma::thereIsNoGenreBeyondTheList()
{
    QFETCH(int, index);
    QCOMPARE(TagEngine().GetGenreName(index), QString());
}

QTEST_GUILESS_MAIN(tst_tags_ogg_wma)
#include "tst_tags_ogg_wma.moc"
