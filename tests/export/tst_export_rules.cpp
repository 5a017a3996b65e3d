// The rules of saving: names, numberings, and the keys of the MP3 encoder.
#include "core/Errors.h"
#include "export/FileNameProposal.h"
#include "export/FormatTable.h"
#include "export/Mp3Keys.h"
#include "support/FakeEngine.h"

#include <QTest>

class tst_export_rules : public QObject {
    Q_OBJECT
private slots:
    void theTwoNumberings_data();
    void theTwoNumberings();
    void anyOtherTextIsNoFormat_data();
    void anyOtherTextIsNoFormat();
    void onlyIndexes0To3HaveAFormat();

    void theProposedName_data();
    void theProposedName();
    void withoutAFolderInTheSourceThereIsNoProposal();

    void theKeysAreNumbered1To22();
    void eachKeyHoldsItsProperty_data();
    void eachKeyHoldsItsProperty();
    void everyPropertyReadsBackAsItWasStored();
    void aTextThatDoesNotConvertLeavesItsProperty_data();
    void aTextThatDoesNotConvertLeavesItsProperty();
};

void tst_export_rules::theTwoNumberings_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("option");
    QTest::addColumn<int>("menu");
    QTest::addRow("WAV is the first button and the last mark") << "WAV" << 0 << 3;
    QTest::addRow("MP3 is the second button and the first mark") << "MP3" << 1 << 0;
    QTest::addRow("Ogg Vorbis is the third button and the second mark") << "OGG" << 2 << 1;
    QTest::addRow("WMA is the last button and the third mark") << "WMA" << 3 << 2;
}

void tst_export_rules::theTwoNumberings()
{
    QFETCH(QString, name);
    QFETCH(int, option);
    QFETCH(int, menu);
    QCOMPARE(formatByName(name)->option, option);
    QCOMPARE(formatByName(name)->menu, menu);
    QCOMPARE(QString(formatByOption(option)->name), name);
}

void tst_export_rules::anyOtherTextIsNoFormat_data()
{
    QTest::addColumn<QString>("name");
    QTest::addRow("small letters are another word") << "mp3";
    QTest::addRow("the empty text is no format") << "";
    QTest::addRow("a blank behind the name makes another word") << "WAV ";
    QTest::addRow("a fifth format is unknown") << "FLAC";
}

void tst_export_rules::anyOtherTextIsNoFormat()
{
    QFETCH(QString, name);
    QVERIFY(!formatByName(name));
}

void tst_export_rules::onlyIndexes0To3HaveAFormat()
{
    QVERIFY(formatByOption(3));
    QVERIFY(!formatByOption(4));
    QVERIFY(!formatByOption(-1));
}

void tst_export_rules::theProposedName_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("source");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("name");
    QTest::addRow("a title gets a capital extension") << "Intro"
                                                      << "/m/song.mp3" << 1 << "MP3"
                                                      << "Intro.MP3";
    QTest::addRow("a part without a title gets a small one") << ""
                                                             << "/m/song.mp3" << 2 << "OGG"
                                                             << "song-Part 2.ogg";
    QTest::addRow("a title is not cleaned") << "a/b:c"
                                            << "/m/song.mp3" << 1 << "WAV"
                                            << "a/b:c.WAV";
    QTest::addRow("a title of blanks is a title") << " "
                                                  << "/m/song.mp3" << 1 << "WAV"
                                                  << " .WAV";
    QTest::addRow("a title needs no source") << "Intro"
                                             << "" << 1 << "WMA"
                                             << "Intro.WMA";
    QTest::addRow("four letters are cut where the extension has five") << ""
                                                                       << "/m/song.flac" << 1 << "WAV"
                                                                       << "song.-Part 1.wav";
    QTest::addRow("four letters are cut where there is no extension") << ""
                                                                      << "/m/concert" << 1 << "WAV"
                                                                      << "con-Part 1.wav";
    QTest::addRow("the cut may swallow the name and its separator") << ""
                                                                    << "/music/a/b.c" << 3 << "MP3"
                                                                    << "a-Part 3.mp3";
    QTest::addRow("a dot in a folder is no extension") << ""
                                                       << "/a.b/c/x.wav" << 12 << "MP3"
                                                       << "x-Part 12.mp3";
    QTest::addRow("an empty base name leaves the number alone") << ""
                                                                << "/music/.mp3" << 1 << "MP3"
                                                                << "-Part 1.mp3";
}

void tst_export_rules::theProposedName()
{
    QFETCH(QString, title);
    QFETCH(QString, source);
    QFETCH(int, number);
    QFETCH(QString, format);
    QFETCH(QString, name);
    QCOMPARE(proposeFileName(title, source, number, format), std::optional(name));
}

void tst_export_rules::withoutAFolderInTheSourceThereIsNoProposal()
{
    QVERIFY(!proposeFileName(QString(), "song.mp3", 1, "MP3"));
    QVERIFY(!proposeFileName(QString(), QString(), 1, "MP3"));
}

void tst_export_rules::theKeysAreNumbered1To22()
{
    QCOMPARE(std::size(mp3Keys), std::size_t{22});
    for (std::size_t i = 0; i < std::size(mp3Keys); ++i)
        QCOMPARE(QString(mp3Keys[i].key), QString::number(i + 1));
}

namespace {

QString word(bool value)
{
    return value ? "True" : "False";
}

using F = const Mp3Format&;

// What each key changes, by the name of the property, with a text that is not the default.
const struct {
    const char* key;
    const char* text;
    QString (*value)(F);
} properties[] = {
    {"1", "96", [](F f) { return QString::number(f.AbrBitrate); }},
    {"2", "3", [](F f) { return QString::number(f.AthControl); }},
    {"3", "320", [](F f) { return QString::number(f.FormatBitrate); }},
    {"4", "False", [](F f) { return word(f.BitReservoir); }},
    {"5", "True", [](F f) { return word(f.DifferentBlockTypes); }},
    {"6", "1", [](F f) { return QString::number(f.FormatChannels); }},
    {"7", "2", [](F f) { return QString::number(f.Emphasis); }},
    {"8", "9", [](F f) { return QString::number(f.EncoderQuality); }},
    {"9", "True", [](F f) { return word(f.ErrorProtection); }},
    {"10", "32000", [](F f) { return QString::number(f.FormatRate); }},
    {"11", "70000", [](F f) { return QString::number(f.HighpassFrequency); }},
    {"12", "71000", [](F f) { return QString::number(f.HighpassWidth); }},
    {"13", "-1", [](F f) { return QString::number(f.LowpassFrequency); }},
    {"14", "72000", [](F f) { return QString::number(f.LowpassWidth); }},
    {"15", "False", [](F f) { return word(f.ShortBlocks); }},
    {"16", "True", [](F f) { return word(f.IsoCompliance); }},
    {"17", "True", [](F f) { return word(f.EnforceMinBitrate); }},
    {"18", "4", [](F f) { return QString::number(f.StereoMode); }},
    {"19", "256", [](F f) { return QString::number(f.MaxVbrBitrate); }},
    {"20", "3", [](F f) { return QString::number(f.VbrMethod); }},
    {"21", "7", [](F f) { return QString::number(f.VbrQuality); }},
    {"22", "False", [](F f) { return word(f.WriteVbrHeader); }},
};

const Mp3Key& keyRow(const QString& key)
{
    return mp3Keys[key.toInt() - 1];
}

}

void tst_export_rules::eachKeyHoldsItsProperty_data()
{
    QTest::addColumn<int>("row");
    for (std::size_t i = 0; i < std::size(properties); ++i)
        QTest::addRow("key %s holds its own property", properties[i].key) << static_cast<int>(i);
}

void tst_export_rules::eachKeyHoldsItsProperty()
{
    QFETCH(int, row);
    const auto& property = properties[row];
    FakeEngine engine;
    const auto format = engine.makeMp3Format();
    QVERIFY(property.value(*format) != QString(property.text));
    setFromText(*format, keyRow(property.key).property, property.text);
    QCOMPARE(property.value(*format), QString(property.text));
}

void tst_export_rules::everyPropertyReadsBackAsItWasStored()
{
    FakeEngine engine;
    const auto format = engine.makeMp3Format();
    for (const auto& property : properties)
        setFromText(*format, keyRow(property.key).property, property.text);
    for (const auto& property : properties)
        QCOMPARE(textOf(*format, keyRow(property.key).property), QString(property.text));
}

void tst_export_rules::aTextThatDoesNotConvertLeavesItsProperty_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addRow("a key that is missing") << "3"
                                           << "";
    QTest::addRow("letters in a number") << "8"
                                         << "abc";
    QTest::addRow("a number beyond 16 bits") << "1"
                                             << "32768";
    QTest::addRow("a number beyond 32 bits") << "10"
                                             << "2147483648";
    QTest::addRow("a word that is neither true nor false") << "4"
                                                           << "yes";
    QTest::addRow("an empty word") << "4"
                                   << "";
}

void tst_export_rules::aTextThatDoesNotConvertLeavesItsProperty()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    FakeEngine engine;
    const auto format = engine.makeMp3Format();
    const QString before = textOf(*format, keyRow(key).property);
    QVERIFY_EXCEPTION_THROWN(setFromText(*format, keyRow(key).property, text), ConversionError);
    QCOMPARE(textOf(*format, keyRow(key).property), before);
}

QTEST_GUILESS_MAIN(tst_export_rules)
#include "tst_export_rules.moc"
