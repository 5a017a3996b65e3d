// What stands in the settings file after each action of the main window: the keys of the table, and whatever
// else was in the file before.
#include "support/DialogDriver.h"
#include "support/FormFixture.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QSpinBox>
#include <QTest>

namespace {

/// "Section/key" of every key in the file, in order.
QStringList keysOf(const QString& text)
{
    QStringList keys;
    QString section;
    for (const QString& line : text.split('\n')) {
        if (line.startsWith('[')) section = line.mid(1, line.indexOf(']') - 1);
        if (line.contains('=') && !line.startsWith(';')) keys << section + '/' + line.section('=', 0, 0);
    }
    return keys;
}

const QStringList keysOfTheStart{"Lang/Val", "WMA/WMASUPPORT"};

QStringList numbered(const QString& section, int last)
{
    QStringList keys;
    for (int n = 1; n <= last; ++n) keys << QStringLiteral("%1/%2").arg(section).arg(n);
    return keys;
}

void sortedCompare(QStringList actual, QStringList expected)
{
    actual.sort();
    expected.sort();
    QCOMPARE(actual, expected);
}

void pressIn(DialogDriver& driver, const char* button)
{
    driver.expect([button](QDialog& dialog) {
        auto* found = dialog.findChild<QAbstractButton*>(button);
        if (!found) return false;
        QMetaObject::invokeMethod(found, "click", Qt::QueuedConnection);
        return true;
    });
}

}

class win_settings : public QObject {
    Q_OBJECT

private slots:
    void theFirstStartWritesLanguageAndWmaSupport();
    void aLaterStartWritesNothing();
    void aChosenFormatIsStored_data();
    void aChosenFormatIsStored();
    void theFormatStaysUnwrittenUntilOneIsChosen();
    void theMp3SettingsStoreTheirTwentyTwoKeys();
    void theOggSettingsStoreTheirSevenKeys();
    void theWmaProfileIsStored();
    void workingWithADocumentStoresNothing();
    void everythingElseInTheFileStays();
    void aKeyInOtherCaseIsTheSameKey();
    void aHandEditOfWmaSupportTakesEffectAtTheNextStart();
    void theFormWorksWithoutAnySettingsFile();
};

void win_settings::theFirstStartWritesLanguageAndWmaSupport()
{
    FormFixture fixture;
    fixture.load();
    QCOMPARE(fixture.settingsText(), "[Lang]\nVal=English\n[WMA]\nWMASUPPORT=False\n");
}

void win_settings::aLaterStartWritesNothing()
{
    FormFixture fixture;
    fixture.load();
    const QString first = fixture.settingsText();
    fixture.form.reset();
    fixture.load();
    QCOMPARE(fixture.settingsText(), first);
}

void win_settings::aChosenFormatIsStored_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("stored");
    for (const auto& [name, stored] : {std::pair{"Option1(0)", "WAV"},
                                       {"Option1(1)", "MP3"},
                                       {"Option1(2)", "OGG"},
                                       {"Option1(3)", "WMA"},
                                       {"SelecWav", "WAV"},
                                       {"SelecMP3", "MP3"},
                                       {"selecOgg", "OGG"},
                                       {"SelecWma", "WMA"},
                                       {"Image6(0)", "WAV"}})
        QTest::addRow("%s stores %s", name, stored) << name << stored;
}

void win_settings::aChosenFormatIsStored()
{
    QFETCH(QString, name);
    FormFixture fixture;
    fixture.writeSetting("WMA", "WMASUPPORT", "True");
    auto& form = fixture.load();
    form.Image24_Click();
    if (auto* entry = form.findChild<QAction*>(name))
        entry->trigger();
    else
        form.findChild<QAbstractButton*>(name)->click();
    QTEST(fixture.setting("OutPutCut", "Format"), "stored");
    sortedCompare(keysOf(fixture.settingsText()), keysOfTheStart + QStringList{"OutPutCut/Format"});
}

void win_settings::theFormatStaysUnwrittenUntilOneIsChosen()
{
    FormFixture fixture;
    auto& form = fixture.load();
    QCOMPARE(form.OUTPUTFORMAT, "MP3");
    QCOMPARE(fixture.setting("OutPutCut", "Format"), "");
}

void win_settings::theMp3SettingsStoreTheirTwentyTwoKeys()
{
    FormFixture fixture;
    auto& form = fixture.load();
    DialogDriver driver;
    pressIn(driver, "cmdOk");
    form.Image6_Click(1);
    QVERIFY(driver.isDone());
    sortedCompare(keysOf(fixture.settingsText()),
                  keysOfTheStart + QStringList{"OutPutCut/Format"} + numbered("Mp3", 22));
}

void win_settings::theOggSettingsStoreTheirSevenKeys()
{
    FormFixture fixture;
    auto& form = fixture.load();
    DialogDriver driver;
    pressIn(driver, "cmdOk");
    form.Image6_Click(2);
    QVERIFY(driver.isDone());
    sortedCompare(keysOf(fixture.settingsText()),
                  keysOfTheStart + QStringList{"OutPutCut/Format"} + numbered("OGG", 7));
}

void win_settings::theWmaProfileIsStored()
{
    FormFixture fixture;
    fixture.writeSetting("WMA", "WMASUPPORT", "True");
    auto& form = fixture.load();
    DialogDriver driver;
    driver.expect([](QDialog& dialog) {
        dialog.findChild<QSpinBox*>("udWMAProfile")->stepUp();
        QMetaObject::invokeMethod(dialog.findChild<QAbstractButton*>("cmdOk"), "click", Qt::QueuedConnection);
        return true;
    });
    form.Image6_Click(3);
    QCOMPARE(fixture.setting("WMA", "Num"), "40");
    sortedCompare(keysOf(fixture.settingsText()),
                  keysOfTheStart + QStringList{"OutPutCut/Format", "WMA/Num"});
}

void win_settings::workingWithADocumentStoresNothing()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100 * 10), {44100});
    fixture.pressBarOfRow(2);
    form.ToolbarCommand(4);
    form.ToolbarCommand(14);
    form.ToolbarCommand(12);
    fixture.dialogs.files.push_back(fixture.path("part.mp3"));
    form.Image8_Click();
    fixture.dialogs.files.push_back(fixture.path("part.ogg"));
    form.SavePartOgg_Click();
    form.CloseAudioFile_Click();
    sortedCompare(keysOf(fixture.settingsText()), keysOfTheStart);
}

static const QString foreignText = QStringLiteral("; my notes\n"
                                                  "[Foreign]\n"
                                                  "key = value ; tail\n"
                                                  "key = again\n"
                                                  "no key\n"
                                                  "\n"
                                                  "[Lang]\n"
                                                  "; the language\n"
                                                  "Extra=Ünïcode\n"
                                                  "\n"
                                                  "# last words\n");

void win_settings::everythingElseInTheFileStays()
{
    FormFixture fixture;
    QFile file(IniPath);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(foreignText.toUtf8()) > 0);
    file.close();
    auto& form = fixture.load();
    form.Francais_Click();
    form.selecOgg_Click();
    form.English_Click();
    form.SelecWav_Click();
    QStringList lines = fixture.settingsText().split('\n');
    for (const char* own : {"Val=English", "[WMA]", "WMASUPPORT=False", "[OutPutCut]", "Format=WAV"})
        QCOMPARE(lines.removeAll(own), 1);
    QCOMPARE(lines.join('\n'), foreignText);
}

void win_settings::aKeyInOtherCaseIsTheSameKey()
{
    FormFixture fixture;
    QFile file(IniPath);
    QVERIFY(file.open(QIODevice::WriteOnly) &&
            file.write("[LANG]\nVAL=French\n[outputcut]\nFORMAT=OGG\n") > 0);
    file.close();
    auto& form = fixture.load();
    QCOMPARE(LangId, 1);
    QCOMPARE(form.OUTPUTFORMAT, "OGG");
    form.SelecWav_Click();
    QCOMPARE(keysOf(fixture.settingsText()).filter("Format", Qt::CaseInsensitive).size(), 1);
    QCOMPARE(fixture.setting("OutPutCut", "Format"), "WAV");
}

void win_settings::aHandEditOfWmaSupportTakesEffectAtTheNextStart()
{
    FormFixture fixture;
    auto* form = &fixture.load();
    fixture.writeSetting("WMA", "WMASUPPORT", "True");
    QVERIFY(!form->Option1[3].isEnabled() && !form->SelecWma.isVisible());
    fixture.form.reset();
    form = &fixture.load();
    QVERIFY(form->Option1[3].isEnabled() && form->SelecWma.isVisible());
}

void win_settings::theFormWorksWithoutAnySettingsFile()
{
    FormFixture fixture;
    QVERIFY(QDir(fixture.path("config/Tonehaven")).removeRecursively());
    QFile blocking(fixture.path("config/Tonehaven"));
    QVERIFY(blocking.open(QIODevice::WriteOnly));
    auto& form = fixture.load();
    form.Francais_Click();
    form.selecOgg_Click();
    QCOMPARE(form.OUTPUTFORMAT, "OGG");
    QCOMPARE(LangId, 1);
    QCOMPARE(fixture.setting("Lang", "Val"), "");
    QCOMPARE(fixture.fatals, QStringList());
}

QTEST_MAIN(win_settings)
#include "win_settings.moc"
