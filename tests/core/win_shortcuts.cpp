// The shortcuts, and what a text field keeps for itself.
#include "core/KeyboardForm.h"
#include "core/toolkit/Application.h"

#include <QFile>

#include <vector>

namespace {

std::vector<MenuEntry*> entriesWithShortcut(const CutterSelect& form)
{
    std::vector<MenuEntry*> entries;
    for (MenuEntry* entry : form.findChildren<MenuEntry*>())
        if (!entry->shortcut().isEmpty()) entries.push_back(entry);
    return entries;
}

/// Counts which entries are triggered, in place of running them.
class Triggers {
public:
    explicit Triggers(CutterSelect& form)
    {
        for (MenuEntry* entry : entriesWithShortcut(form)) {
            QObject::disconnect(entry, &QAction::triggered, &form, nullptr);
            QObject::connect(entry, &QAction::triggered, entry,
                             [this, entry] { names << entry->objectName(); });
        }
    }
    QStringList names;
};

void typeShortcut(QWidget& focus, const QKeySequence& keys)
{
    const QKeyCombination first = keys[0];
    QTest::keyClick(&focus, first.key(), first.keyboardModifiers());
}

struct Key {
    const char* entry;
    const char* keys;
    const char* inReadme;    // how the table of keys names it
};

constexpr Key allKeys[] = {
    {"OpenAudioFile", "Ctrl+O", "Ctrl+O"},
    {"CloseAudioFile", "Ctrl+W", "Ctrl+W"},
    {"SaveAllParts", "Ctrl+Shift+S", "Ctrl+Shift+S"},
    {"ExtractAudioFromAvi", "Ctrl+E", "Ctrl+E"},
    {"JoinerF", "Ctrl+J", "Ctrl+J"},
    {"Quitter", "Ctrl+Q", "Ctrl+Q"},
    {"PlayPiste", "Ctrl+P", "Ctrl+P"},
    {"EnPause", "Ctrl+Space", "Ctrl+Space"},
    {"Stoplecture", "Ctrl+.", "Ctrl+."},
    {"Rew1Sec", "Ctrl+Left", "Ctrl+Left"},
    {"Fwd1Sec", "Ctrl+Right", "Ctrl+Right"},
    {"SetCutPoint", "Ctrl+K", "Ctrl+K"},
    {"PlaythisPart", "Ctrl+Return", "Ctrl+Return"},
    {"DeleteEntryCutPoint", "Del", "Delete"},
    {"SavePartMP3", "Alt+1", "Alt+1 to Alt+4"},
    {"SavePartOgg", "Alt+2", "Alt+1 to Alt+4"},
    {"SavePartWMA", "Alt+3", "Alt+1 to Alt+4"},
    {"SavePartWav", "Alt+4", "Alt+1 to Alt+4"},
    {"Saveselec", "Ctrl+S", "Ctrl+S"},
    {"SelecMP3", "Ctrl+1", "Ctrl+1 to Ctrl+4"},
    {"selecOgg", "Ctrl+2", "Ctrl+1 to Ctrl+4"},
    {"SelecWma", "Ctrl+3", "Ctrl+1 to Ctrl+4"},
    {"SelecWav", "Ctrl+4", "Ctrl+1 to Ctrl+4"},
    {"SelecFormatConfig", "Ctrl+,", "Ctrl+,"},
    {"English", "Ctrl+F5", "Ctrl+F5 to Ctrl+F8"},
    {"Francais", "Ctrl+F6", "Ctrl+F5 to Ctrl+F8"},
    {"spanish", "Ctrl+F7", "Ctrl+F5 to Ctrl+F8"},
    {"portugais", "Ctrl+F8", "Ctrl+F5 to Ctrl+F8"},
    {"Help", "F1", "F1"},
    {"Homepage", "Shift+F1", "Shift+F1"},
    {"about", "Ctrl+F1", "Ctrl+F1"},
};

/// The press that a key gives again and again while it is held down.
void repeatKey(QWidget& focus, const QKeySequence& keys)
{
    const QKeyCombination first = keys[0];
    QTest::simulateEvent(&focus, true, first.key(), first.keyboardModifiers(), {}, true, -1);
}

}

class win_shortcuts : public QObject {
    Q_OBJECT

private slots:
    void everyEntryHasItsKey_data();
    void everyEntryHasItsKey();
    void noEntryIsWithoutAKey();
    void everyShortcutIsThereOnce();
    void everyShortcutWorksFromTheWaveform();
    void everyShortcutWorksFromTheList();
    void everyShortcutWorksFromAButton();
    void aFormatThatIsOffHasNoShortcut();
    void noShortcutFiresInATextField_data();
    void noShortcutFiresInATextField();
    void spaceAndDeleteEditTheTitle();
    void noShortcutFiresInTheListOfGenres();
    void spacePlaysAndPauses();
    void spaceOnAButtonPressesIt();
    void spaceOnAToolPressesIt();
    void aKeyHeldDownActsOnce_data();
    void aKeyHeldDownActsOnce();
    void spaceHeldDownActsOnce();
    void aStepGoesOnWhileItsKeyIsHeld();
};

void win_shortcuts::everyEntryHasItsKey_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("inReadme");
    for (const Key& key : allKeys) QTest::addRow("%s", key.entry) << key.keys << key.inReadme;
}

void win_shortcuts::everyEntryHasItsKey()
{
    QFETCH(QString, keys);
    QFETCH(QString, inReadme);
    FormFixture fixture;
    auto& form = fixture.load();
    const auto* entry = form.findChild<MenuEntry*>(QTest::currentDataTag());
    QVERIFY(entry);
    QCOMPARE(entry->shortcut(), QKeySequence(keys));
    QFile readme(QStringLiteral(QUILLON_README));
    QVERIFY(readme.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(readme.readAll());
    const qsizetype from = text.indexOf("## The keyboard");
    QVERIFY(text.mid(from, text.indexOf("\n## ", from + 1) - from).contains(inReadme));
}

void win_shortcuts::noEntryIsWithoutAKey()
{
    FormFixture fixture;
    QStringList without;
    for (const MenuEntry* entry : fixture.load().findChildren<MenuEntry*>())
        if (!entry->isSeparator() && entry->shortcut().isEmpty()) without << entry->objectName();
    QCOMPARE(without, QStringList());
}

void win_shortcuts::everyShortcutIsThereOnce()
{
    FormFixture fixture;
    auto& form = fixture.load();
    QStringList keys{"Space"};
    for (const MenuEntry* entry : entriesWithShortcut(form)) keys << entry->shortcut().toString();
    keys.sort();
    QStringList once = keys;
    once.removeDuplicates();
    QCOMPARE(keys, once);
}

static void compareTriggers(CutterSelect& form, QWidget& focus)
{
    Triggers triggers(form);
    QStringList expected;
    focus.setFocus(Qt::TabFocusReason);
    QVERIFY(focus.hasFocus());
    for (const MenuEntry* entry : entriesWithShortcut(form)) {
        expected << entry->objectName();
        typeShortcut(focus, entry->shortcut());
    }
    QCOMPARE(triggers.names, expected);
}

void win_shortcuts::everyShortcutWorksFromTheWaveform()
{
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    compareTriggers(form, form.Picture1);
}

void win_shortcuts::everyShortcutWorksFromTheList()
{
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    compareTriggers(form, form.ListView1);
}

void win_shortcuts::everyShortcutWorksFromAButton()
{
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    compareTriggers(form, form.Image9);
}

void win_shortcuts::aFormatThatIsOffHasNoShortcut()
{
    FormFixture fixture;
    auto& form = fixture.load();
    activate(form);
    Triggers triggers(form);
    typeShortcut(form.Picture1, form.SelecWma.shortcut());
    typeShortcut(form.Picture1, form.SelecWav.shortcut());
    QCOMPARE(triggers.names, QStringList{"SelecWav"});
}

void win_shortcuts::noShortcutFiresInATextField_data()
{
    QTest::addColumn<QString>("field");
    for (const char* field :
         {"TextTitle", "Text1", "Text2", "infoArtist", "infoAlbum", "infoComment", "infoYear"})
        QTest::addRow("%s", field) << field;
}

void win_shortcuts::noShortcutFiresInATextField()
{
    QFETCH(QString, field);
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    if (field.startsWith("info")) form.Image22_Click();
    auto& edit = *form.findChild<QLineEdit*>(field);
    edit.setFocus();
    QVERIFY(edit.hasFocus());
    Triggers triggers(form);
    for (const MenuEntry* entry : entriesWithShortcut(form)) typeShortcut(edit, entry->shortcut());
    QTest::keyClick(&edit, Qt::Key_Space);
    QCOMPARE(triggers.names, QStringList());
    QCOMPARE(journal().commands(), QStringList());
}

void win_shortcuts::spaceAndDeleteEditTheTitle()
{
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    form.TextTitle.setFocus();
    QTest::keyClicks(&form.TextTitle, "one two");
    QTest::keyClick(&form.TextTitle, Qt::Key_Home);
    QTest::keyClick(&form.TextTitle, Qt::Key_Delete);
    QCOMPARE(form.TextTitle.text(), "ne two");
    QCOMPARE(form.ListView1.cell(2, PartsListView::Title), "ne two");
    QCOMPARE(CutCount, 2);
    QVERIFY(!form.IsPlaying);
}

void win_shortcuts::noShortcutFiresInTheListOfGenres()
{
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    form.Image22_Click();
    form.infoGenre.setFocus();
    Triggers triggers(form);
    QTest::keyClick(&form.infoGenre, Qt::Key_Delete);
    QTest::keyClick(&form.infoGenre, Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(triggers.names, QStringList());
}

void win_shortcuts::spacePlaysAndPauses()
{
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    form.Picture1.setFocus();
    QTest::keyClick(&form.Picture1, Qt::Key_Space);
    QVERIFY(form.IsPlaying && form.PlayWhole);
    QTest::keyClick(&form.Picture1, Qt::Key_Space);
    QVERIFY(!form.IsPlaying);
}

void win_shortcuts::spaceOnAButtonPressesIt()
{
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    form.Image13.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&form.Image13, Qt::Key_Space);
    QCOMPARE(form.ToolMode, 2);
    QVERIFY(!form.IsPlaying);
    QCOMPARE(journal().commands(), QStringList());
}

void win_shortcuts::spaceOnAToolPressesIt()
{
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    QWidget& zoom = *form.Toolbar1.widgetForAction(&form.Toolbar1.Buttons(4));
    zoom.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&zoom, Qt::Key_Space);
    QCOMPARE(form.ZoomLevel, 1);
    QVERIFY(!form.IsPlaying);
}

void win_shortcuts::aKeyHeldDownActsOnce_data()
{
    QTest::addColumn<QString>("entry");
    for (const char* entry : {"DeleteEntryCutPoint", "SetCutPoint", "Saveselec", "PlayPiste"})
        QTest::addRow("%s", entry) << entry;
}

void win_shortcuts::aKeyHeldDownActsOnce()
{
    QFETCH(QString, entry);
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    form.Picture1.setFocus();
    Triggers triggers(form);
    const QKeySequence keys = form.findChild<MenuEntry*>(entry)->shortcut();
    typeShortcut(form.Picture1, keys);
    for (int i = 0; i < 5; ++i) repeatKey(form.Picture1, keys);
    QCOMPARE(triggers.names, QStringList{entry});
}

void win_shortcuts::spaceHeldDownActsOnce()
{
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    form.Picture1.setFocus();
    QTest::keyClick(&form.Picture1, Qt::Key_Space);
    repeatKey(form.Picture1, QKeySequence(Qt::Key_Space));
    QVERIFY(form.IsPlaying);
}

void win_shortcuts::aStepGoesOnWhileItsKeyIsHeld()
{
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    form.Picture1.setFocus();
    Triggers triggers(form);
    for (int i = 0; i < 3; ++i) repeatKey(form.Picture1, form.Fwd1Sec.shortcut());
    QCOMPARE(triggers.names, (QStringList{"Fwd1Sec", "Fwd1Sec", "Fwd1Sec"}));
}

int main(int argc, char** argv)
{
    Application application(argc, argv);
    win_shortcuts tests;
    return QTest::qExec(&tests, argc, argv);
}
#include "win_shortcuts.moc"
