// The languages: every caption comes from its line, a change shows at once and comes back, no caption is
// shortened.
#include "core/Errors.h"
#include "core/toolkit/Application.h"
#include "core/toolkit/Wall.h"
#include "support/FormFixture.h"
#include "support/Registre.h"

#include <QDir>
#include <QFile>
#include <QFontInfo>
#include <QHeaderView>
#include <QTest>

namespace {

struct Tongue {
    const char* entry;
    const char* file;
    const char* stored;
    int id;
};

constexpr Tongue tongues[] = {
    {"English", "English", "English", 2},
    {"Francais", "Francais", "French", 1},
    {"spanish", "Español", "Español", 3},
    {"portugais", "PortuguêsBR", "Portugais", 4},
};

QStringList linesOf(const QString& name)
{
    QFile file(languageFile(name));
    if (!file.open(QIODevice::ReadOnly)) qFatal("no language file");
    QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
    lines.removeLast();
    return lines;
}

void addTongues()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("id");
    for (const Tongue& t : tongues) QTest::addRow("%s", t.file) << t.entry << t.file << t.stored << t.id;
}

/// A program folder whose language files hold one line for each number, "text 0" and so on, up to `count`
/// lines.
void numberedLanguages(const FormFixture& fixture, int count)
{
    QDir(fixture.path("")).mkpath("program/Lang");
    QByteArray content;
    for (int n = 0; n < count; ++n) content += "text " + QByteArray::number(n) + '\n';
    for (const Tongue& t : tongues) {
        QFile file(fixture.path("program/Lang/%1.lng").arg(t.file));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) < 0)
            qFatal("can't write a language file");
    }
    setProgramFolder(fixture.path("program"));
}

}

class win_language : public QObject {
    Q_OBJECT

private slots:
    void aLanguageFileHasItsLines_data() { addTongues(); }
    void aLanguageFileHasItsLines();
    void everyLanguageHasTheSameNumberOfLines();
    void everyCaptionComesFromItsLine_data();
    void everyCaptionComesFromItsLine();
    void theTipsOfTheToolsComeFromTheirLines_data();
    void theTipsOfTheToolsComeFromTheirLines();
    void theArrowsAreNamedByTheirSteps();
    void theHeadingsServeTwice();
    void aLanguageShowsAtOnceAndComesBackAtTheNextStart_data() { addTongues(); }
    void aLanguageShowsAtOnceAndComesBackAtTheNextStart();
    void theArrayHasOneEmptyTextMoreThanTheFileHasLines();
    void aFileWithoutItsLastCaptionStopsTheLoader_data();
    void aFileWithoutItsLastCaptionStopsTheLoader();
    void aMissingFileEndsTheProgramAtTheStart();
    void aMissingFileEndsTheProgramFromTheMenuToo();
    void noCaptionIsShortened_data() { addTongues(); }
    void noCaptionIsShortened();
    void theMenuBarShowsItsLastMenu_data() { addTongues(); }
    void theMenuBarShowsItsLastMenu();
    void theNamesOfFormatsFitTheirRows_data() { addTongues(); }
    void theNamesOfFormatsFitTheirRows();
};

void win_language::aLanguageFileHasItsLines()
{
    setProgramFolder(QUILLON_PROGRAM_FOLDER);
    QFETCH(QString, file);
    const QStringList lines = linesOf(file);
    QVERIFY(lines.size() >= 129);
    for (qsizetype n = 0; n < 129; ++n)
        QVERIFY2(!lines[n].trimmed().isEmpty(), qPrintable(QString::number(n)));
}

void win_language::everyLanguageHasTheSameNumberOfLines()
{
    setProgramFolder(QUILLON_PROGRAM_FOLDER);
    for (const Tongue& t : tongues) QCOMPARE(linesOf(t.file).size(), linesOf("English").size());
}

void win_language::everyCaptionComesFromItsLine_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("property");
    const auto rows = [](const char* property, std::initializer_list<std::pair<int, const char*>> all) {
        for (const auto& [line, name] : all)
            QTest::addRow("%d is %s of %s", line, property, name) << line << name << property;
    };
    rows("title", {{0, "Fichier"},
                   {8, "ControlAudio"},
                   {14, "MenuCutPoint"},
                   {16, "popup1"},
                   {24, "OutputMenu"},
                   {30, "Language"},
                   {31, "infos"}});
    rows("text", {{1, "OpenAudioFile"}, {2, "CloseAudioFile"},
                  {3, "SaveAllParts"},  {4, "ExtractAudioFromAvi"},
                  {6, "JoinerF"},       {7, "Quitter"},
                  {9, "PlayPiste"},     {10, "EnPause"},
                  {11, "Stoplecture"},  {12, "Rew1Sec"},
                  {13, "Fwd1Sec"},      {15, "SetCutPoint"},
                  {17, "PlaythisPart"}, {18, "DeleteEntryCutPoint"},
                  {19, "SavePartMP3"},  {20, "SavePartOgg"},
                  {21, "SavePartWMA"},  {22, "SavePartWav"},
                  {23, "Saveselec"},    {25, "SelecMP3"},
                  {26, "selecOgg"},     {27, "SelecWma"},
                  {28, "SelecWav"},     {29, "SelecFormatConfig"},
                  {32, "Help"},         {33, "Homepage"},
                  {36, "about"}});
    rows("text", {{48, "Label8"},
                  {49, "Label5"},
                  {50, "Label6"},
                  {51, "Label7"},
                  {57, "Label9"},
                  {58, "Label13"},
                  {59, "Label14"},
                  {60, "Label19"},
                  {61, "Label15"},
                  {62, "Label21"}});
    rows("toolTip", {{45, "Image13"}, {47, "Image8"}, {120, "Image15"}});
}

void win_language::everyCaptionComesFromItsLine()
{
    QFETCH(int, line);
    QFETCH(QString, name);
    QFETCH(QString, property);
    FormFixture fixture;
    numberedLanguages(fixture, 129);
    auto& form = fixture.load();
    const QString shown = form.findChild<QObject*>(name)->property(property.toLatin1()).toString();
    QCOMPARE(shown, QStringLiteral("text %1").arg(line));
}

void win_language::theTipsOfTheToolsComeFromTheirLines_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("line");
    for (const auto& [index, line] : {std::pair{1, 1},
                                      {2, 37},
                                      {4, 38},
                                      {5, 39},
                                      {6, 40},
                                      {8, 41},
                                      {10, 9},
                                      {11, 10},
                                      {12, 11},
                                      {14, 43},
                                      {15, 44}})
        QTest::addRow("tool %d has line %d", index, line) << index << line;
}

void win_language::theTipsOfTheToolsComeFromTheirLines()
{
    QFETCH(int, index);
    QFETCH(int, line);
    FormFixture fixture;
    numberedLanguages(fixture, 129);
    QCOMPARE(fixture.load().Toolbar1.Buttons(index).toolTip(), QStringLiteral("text %1").arg(line));
}

void win_language::theArrowsAreNamedByTheirSteps()
{
    FormFixture fixture;
    numberedLanguages(fixture, 129);
    auto& form = fixture.load();
    for (const UpDown* small : {&form.UpDown1, &form.UpDown2}) QCOMPARE(small->up.toolTip(), "text 63");
    for (const UpDown* large : {&form.UpDown3, &form.UpDown4}) QCOMPARE(large->down.toolTip(), "text 64");
}

void win_language::theHeadingsServeTwice()
{
    FormFixture fixture;
    numberedLanguages(fixture, 129);
    auto& form = fixture.load();
    QStringList headings;
    for (int column = 0; column < 5; ++column) headings << form.ListView1.headerItem()->text(column);
    QCOMPARE(headings, (QStringList{"text 52", "text 53", "text 54", "text 55", "text 56"}));
    QCOMPARE(form.Label10[0].text(), "text 53 :");
    QCOMPARE(form.Label10[1].text(), "text 54 :");
    QCOMPARE(form.Label10[2].text(), "text 55 :");
    QCOMPARE(form.Label12.text(), "text 56 :");
}

void win_language::aLanguageShowsAtOnceAndComesBackAtTheNextStart()
{
    QFETCH(QString, entry);
    QFETCH(QString, file);
    FormFixture fixture;
    fixture.writeSetting("Lang", "Val", entry == "English" ? "French" : "English");
    auto* form = &fixture.load();
    const QString wanted = linesOf(file)[7];
    QVERIFY(form->Quitter.text() != wanted);
    form->findChild<QAction*>(entry)->trigger();
    QCOMPARE(form->Quitter.text(), wanted);
    QTEST(LangId, "id");
    QTEST(fixture.setting("Lang", "Val"), "stored");

    fixture.form.reset();
    LangId = 0;
    form = &fixture.load();
    QCOMPARE(form->Quitter.text(), wanted);
    QTEST(LangId, "id");
}

void win_language::theArrayHasOneEmptyTextMoreThanTheFileHasLines()
{
    FormFixture fixture;
    numberedLanguages(fixture, 140);
    fixture.load();
    QCOMPARE(LangText.size(), std::size_t{141});
    QCOMPARE(LangText.at(139), "text 139");
    QCOMPARE(LangText.back(), "");
}

void win_language::aFileWithoutItsLastCaptionStopsTheLoader_data()
{
    QTest::addColumn<int>("lines");
    QTest::addRow("with no line 64") << 64;
    QTest::addRow("with nothing in it") << 0;
    // The array ends with an empty text of its own, so the first line that is missing reads as nothing.
    QTest::addRow("with no line 119") << 119;
}

void win_language::aFileWithoutItsLastCaptionStopsTheLoader()
{
    QFETCH(int, lines);
    FormFixture fixture;
    numberedLanguages(fixture, lines);
    fixture.form.emplace(fixture.engine);
    QVERIFY_EXCEPTION_THROWN(fixture.form->LoadLanguage(languageFile("English")), ConversionError);
}

void win_language::aMissingFileEndsTheProgramAtTheStart()
{
    FormFixture fixture;
    numberedLanguages(fixture, 129);
    QFile::remove(languageFile("Francais"));
    fixture.writeSetting("Lang", "Val", "French");
    endProcess = [](int status) { throw EngineError(QString::number(status)); };
    fixture.form.emplace(fixture.engine);
    QVERIFY_EXCEPTION_THROWN(fixture.form->Form_Load(), EngineError);
    QCOMPARE(journal().commands(), QStringList{"MsgBox Critical [Quillon]: Can't find the Language file"});
    QCOMPARE(LangText, std::vector<QString>(1));
}

void win_language::aMissingFileEndsTheProgramFromTheMenuToo()
{
    FormFixture fixture;
    numberedLanguages(fixture, 129);
    auto& form = fixture.load();
    QFile::remove(languageFile("Español"));
    journal().clear();
    endProcess = [](int status) { throw EngineError(QString::number(status)); };
    form.spanish.trigger();
    QCOMPARE(journal().commands(), QStringList{"MsgBox Critical [Quillon]: Can't find the Language file"});
    QCOMPARE(fixture.fatals, QStringList{"1"});
    QCOMPARE(fixture.setting("Lang", "Val"), "English");
}

/// Loads the form in a language, with a document and a selected part.
static CutterSelect& formIn(FormFixture& fixture, const QString& stored)
{
    fixture.writeSetting("Lang", "Val", stored);
    auto& form = fixture.open(fakeSound(44100 * 10), {44100, 88200});
    fixture.pressBarOfRow(2);
    return form;
}

void win_language::noCaptionIsShortened()
{
    QCOMPARE(QFontInfo(QApplication::font()).family(), "Open Sans");
    QFETCH(QString, stored);
    FormFixture fixture;
    auto& form = formIn(fixture, stored);
    QStringList shortened;
    for (const Label* label : form.findChildren<Label*>())
        if (label->isShortened()) shortened << label->objectName() + " \"" + label->text() + '"';
    for (int column = 0; column < 5; ++column) {
        const QString heading = form.ListView1.headerItem()->text(column);
        if (form.ListView1.header()->fontMetrics().horizontalAdvance(heading) >
            form.ListView1.header()->sectionSize(column) - 10)
            shortened << "heading \"" + heading + '"';
    }
    QCOMPARE(shortened.join(", "), QString());
}

void win_language::theMenuBarShowsItsLastMenu()
{
    QFETCH(QString, stored);
    FormFixture fixture;
    auto& form = formIn(fixture, stored);
    const QMenuBar& bar = form.CutterSelectControls::menuBar;
    const QRect last = bar.actionGeometry(form.infos.menuAction());
    QVERIFY(last.width() > 20 && last.height() > 10);
    QVERIFY(bar.rect().contains(last));
    QVERIFY(!bar.findChild<QWidget*>("qt_menubar_ext_button")->isVisible());
}

void win_language::theNamesOfFormatsFitTheirRows()
{
    QFETCH(QString, stored);
    FormFixture fixture;
    auto& form = formIn(fixture, stored);
    for (const QRadioButton& option : form.Option1) QVERIFY(option.sizeHint().width() <= option.width());
}

int main(int argc, char** argv)
{
    Application application(argc, argv);
    win_language tests;
    return QTest::qExec(&tests, argc, argv);
}
#include "win_language.moc"
