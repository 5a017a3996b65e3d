// Finding and changing one value in the text of an ini file.
#include "support/IniText.h"

#include <QTest>

class tst_ini_text : public QObject {
    Q_OBJECT

private slots:
    void aValueIsFound_data();
    void aValueIsFound();
    void aValueIsChangedAndTheRestStays_data();
    void aValueIsChangedAndTheRestStays();
    void whatIsWrittenIsRead_data();
    void whatIsWrittenIsRead();
};

void tst_ini_text::aValueIsFound_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("value");
    const auto row = [](const char* name, const char* content, const char* value) {
        QTest::addRow("%s", name) << QByteArray(content) << QByteArray(value);
    };
    row("in its section", "[Lang]\nVal=French\n", "French");
    row("without an end of line", "[Lang]\nVal=French", "French");
    row("whatever the case of section and key", "[LANG]\nvAL=French\n", "French");
    row("without the blanks around it", "[Lang]\n  Val =  French \t\n", "French");
    row("in a file with the other line ends", "[Lang]\r\nVal=French\r\n", "French");
    row("behind a byte order mark", "\xEF\xBB\xBF[Lang]\nVal=French\n", "French");
    row("with everything behind the first sign of equality", "[Lang]\nVal=a=b;c\n", "a=b;c");
    row("the first of two", "[Lang]\nVal=French\nVal=English\n", "French");
    row("in a section that stands twice", "[Lang]\nx=1\n[A]\n[Lang]\nVal=French\n", "French");
    row("not in another section", "[A]\nVal=French\n", "");
    row("not before the first section", "Val=French\n[Lang]\n", "");
    row("not behind the next section", "[Lang]\n[A]\nVal=French\n", "");
    row("not in a comment", "[Lang]\n;Val=French\n#Val=French\n", "");
    row("not as the end of a longer key", "[Lang]\nInterVal=French\n", "");
    row("not in nothing", "", "");
    row("as nothing when nothing follows", "[Lang]\nVal=\n", "");
}

void tst_ini_text::aValueIsFound()
{
    QFETCH(QByteArray, content);
    QTEST(iniValue(content, "Lang", "Val"), "value");
}

void tst_ini_text::aValueIsChangedAndTheRestStays_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, const char* content, const char* expected) {
        QTest::addRow("%s", name) << QByteArray(content) << QByteArray(expected);
    };
    row("the value alone", "[Lang]\nVal=French\nx=1\n", "[Lang]\nVal=New\nx=1\n");
    row("a first key makes its section", "", "[Lang]\nVal=New\n");
    row("a new section goes to the end", "[A]\nx=1\n", "[A]\nx=1\n[Lang]\nVal=New\n");
    row("a missing end of line is added", "[A]\nx=1", "[A]\nx=1\n[Lang]\nVal=New\n");
    row("a new key goes behind the last of its section", "[Lang]\nx=1\n\n[A]\ny=2\n",
        "[Lang]\nx=1\nVal=New\n\n[A]\ny=2\n");
    row("a new key of an empty section goes first", "[Lang]\n; empty\n", "[Lang]\nVal=New\n; empty\n");
    row("the other line ends stay", "[Lang]\r\nVal=French\r\n", "[Lang]\r\nVal=New\r\n");
    row("a new section takes the other line ends", "[A]\r\nx=1", "[A]\r\nx=1\r\n[Lang]\r\nVal=New\r\n");
    row("comments stay, the last ones too", "; top\n[Lang]\n# before\nVal=French\n; last",
        "; top\n[Lang]\n# before\nVal=New\n; last\n");
    row("what is no key stays", "[Lang]\njunk\n\n\nVal=French\n", "[Lang]\njunk\n\n\nVal=New\n");
    row("a second key of the name stays", "[Lang]\nVal=a\nVal=b\n", "[Lang]\nVal=New\nVal=b\n");
    row("a key that is a comment stays", "[Lang]\n;Val=a\n", "[Lang]\nVal=New\n;Val=a\n");
    row("the value in the second section of a name is changed there", "[Lang]\nx=1\n[Lang]\nVal=a\n",
        "[Lang]\nx=1\n[Lang]\nVal=New\n");
    row("bytes that are no text stay", "[A]\nx=\xFF\xFE\n[Lang]\nVal=a\n",
        "[A]\nx=\xFF\xFE\n[Lang]\nVal=New\n");
}

void tst_ini_text::aValueIsChangedAndTheRestStays()
{
    QFETCH(QByteArray, content);
    QTEST(withIniValue(content, "Lang", "Val", "New"), "expected");
}

void tst_ini_text::whatIsWrittenIsRead_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addRow("a word") << QByteArray("Español");
    QTest::addRow("nothing") << QByteArray("");
    QTest::addRow("a path with blanks") << QByteArray("/home/a b/c = d/");
    QTest::addRow("a bracket") << QByteArray("[x]");
}

void tst_ini_text::whatIsWrittenIsRead()
{
    QFETCH(QByteArray, value);
    const QByteArray content = withIniValue("[A]\nx=1\n[B]\n", "Lang", "Val", value);
    QCOMPARE(iniValue(content, "lang", "VAL"), value);
    QCOMPARE(iniValue(content, "A", "x"), "1");
    QCOMPARE(withIniValue(content, "Lang", "Val", value), content);
}

QTEST_GUILESS_MAIN(tst_ini_text)
#include "tst_ini_text.moc"
