// The encoder library that is missing, the About box, and the addresses that are handed to the desktop.
#include "core/toolkit/Application.h"
#include "support/About.h"
#include "support/DialogDriver.h"
#include "support/FormFixture.h"
#include "support/LameEncoder.h"
#include "support/LameLibrary.h"
#include "support/Shell.h"

#include <QDesktopServices>
#include <QFile>
#include <QTest>
#include <QUrl>

namespace {

/// Takes the place of the desktop: notes what it is asked to open.
class Desktop : public QObject {
    Q_OBJECT

public:
    Desktop()
    {
        for (const char* scheme : {"https", "mailto", "file"})
            QDesktopServices::setUrlHandler(scheme, this, "open");
    }
    ~Desktop() override
    {
        for (const char* scheme : {"https", "mailto", "file"}) QDesktopServices::unsetUrlHandler(scheme);
    }
    QStringList opened;

public slots:
    void open(const QUrl& url) { opened << url.toString(); }
};

/// For one test the encoder library is looked for in a folder that has none.
class NoLibrary {
public:
    explicit NoLibrary(const QString& folder) : platform_(lameLibraryPlace())
    {
        lameLibraryPlace() = {{folder}, "library.so.0"};
    }
    ~NoLibrary() { lameLibraryPlace() = platform_; }

private:
    LameLibraryPlace platform_;
};

void click(QWidget& dialog, const char* name)
{
    auto* widget = dialog.findChild<QWidget*>(name);
    QVERIFY(widget);
    QTest::mouseClick(widget, Qt::LeftButton);
}

/// Loads the form where the library is missing, leaving the dialog that tells so; counts its showings.
CutterSelect& loadWithoutLibrary(FormFixture& fixture, int& shown)
{
    DialogDriver driver;
    driver.expect([&shown](QDialog& dialog) {
        if (dialog.objectName() != "LameEncoder" || dialog.parentWidget() != MainForm) return false;
        ++shown;
        QMetaObject::invokeMethod(dialog.findChild<QPushButton*>("Command1"), "click", Qt::QueuedConnection);
        return true;
    });
    return fixture.load();
}

}

class win_shell : public QObject {
    Q_OBJECT

private slots:
    void aMissingLibraryIsToldOnceAndSwitchesMp3Off();
    void aLibraryThatIsThereIsNotMentioned();
    void withoutTheLibraryMp3FallsBackToWavInMemoryOnly();
    void withoutTheLibraryAnotherFormatStays();
    void withoutTheLibraryAPartCanBeSavedInTheOtherFormats();
    void aLibraryPutThereLaterCountsAtTheNextStart();
    void theDialogNamesTheFolderAndTheFile();
    void downloadOpensItsPageAndCloses();
    void cancelOpensNothing();
    void theLinkOpensItsOwnTextAndTheDialogStays();
    void theDialogsFitTheirTexts();
    void theAboutBoxNamesProductAndVersion();
    void theAboutBoxOpensThreeAddresses();
    void theKeyboardReachesTheLinksOfTheAboutBox();
    void theAboutBoxBelongsToTheMainWindow();
    void theHomepageIsThatOfTheLanguage();
    void aHomepageThatTheFileDoesNotNameIsSkipped();
    void aDocumentOnDiskIsOpenedAsAFile();
};

void win_shell::aMissingLibraryIsToldOnceAndSwitchesMp3Off()
{
    FormFixture fixture;
    const NoLibrary missing(fixture.path(""));
    int shown = 0;
    auto& form = loadWithoutLibrary(fixture, shown);
    QCOMPARE(shown, 1);
    QVERIFY(!form.SavePartMP3.isEnabled() && !form.SelecMP3.isEnabled());
    QVERIFY(!form.Option1[1].isEnabled() && !form.Image6[1].isEnabled());
}

void win_shell::aLibraryThatIsThereIsNotMentioned()
{
    FormFixture fixture;
    const NoLibrary missing(fixture.path(""));
    QFile library(fixture.path("library.so.0"));
    QVERIFY(library.open(QIODevice::WriteOnly));
    auto& form = fixture.load();    // a dialog would wait here for ever
    QVERIFY(form.SelecMP3.isEnabled() && form.Option1[1].isEnabled() && form.Image6[1].isEnabled());
    QCOMPARE(form.OUTPUTFORMAT, "MP3");
}

void win_shell::withoutTheLibraryMp3FallsBackToWavInMemoryOnly()
{
    FormFixture fixture;
    fixture.writeSetting("OutPutCut", "Format", "MP3");
    const NoLibrary missing(fixture.path(""));
    int shown = 0;
    auto& form = loadWithoutLibrary(fixture, shown);
    QCOMPARE(form.OUTPUTFORMAT, "WAV");
    QVERIFY(form.Option1[0].isChecked() && form.SelecWav.isChecked());
    QCOMPARE(fixture.setting("OutPutCut", "Format"), "MP3");
}

void win_shell::withoutTheLibraryAnotherFormatStays()
{
    FormFixture fixture;
    fixture.writeSetting("OutPutCut", "Format", "OGG");
    const NoLibrary missing(fixture.path(""));
    int shown = 0;
    QCOMPARE(loadWithoutLibrary(fixture, shown).OUTPUTFORMAT, "OGG");
}

void win_shell::withoutTheLibraryAPartCanBeSavedInTheOtherFormats()
{
    FormFixture fixture;
    const NoLibrary missing(fixture.path(""));
    int shown = 0;
    auto& form = loadWithoutLibrary(fixture, shown);
    fixture.open(fakeSound(44100 * 10), {44100});
    fixture.pressBarOfRow(2);
    QVERIFY(form.SavePartOgg.isEnabled() && form.SavePartWav.isEnabled() && form.Saveselec.isEnabled());
    QVERIFY(!form.SavePartMP3.isEnabled());
}

void win_shell::aLibraryPutThereLaterCountsAtTheNextStart()
{
    FormFixture fixture;
    const NoLibrary missing(fixture.path(""));
    int shown = 0;
    loadWithoutLibrary(fixture, shown);
    QFile library(fixture.path("library.so.0"));
    QVERIFY(library.open(QIODevice::WriteOnly));
    QVERIFY(!fixture.form->Option1[1].isEnabled());
    fixture.form.reset();
    QVERIFY(fixture.load().Option1[1].isEnabled());
    QCOMPARE(shown, 1);
}

void win_shell::theDialogNamesTheFolderAndTheFile()
{
    FormFixture fixture;
    const NoLibrary missing("/some/folder/");
    const LameEncoder dialog(nullptr);
    QCOMPARE(dialog.windowTitle(), "Lame Encoder");
    QCOMPARE(dialog.Label6.text(), "Lame Encoder is requiered on this computer to properly encode to MP3");
    QCOMPARE(dialog.Label4.text(),
             "Unzip the downloaded file then put library.so.0 in your system's folder Then restart the "
             "application. The file must be placed here: \n/some/folder/");
    QCOMPARE(dialog.Command3.text(), "Download");
    QCOMPARE(dialog.Command1.text(), "Cancel");
    QVERIFY(dialog.Label3.font().underline());
    QCOMPARE(dialog.Label3.foregroundRole(), QPalette::Link);
}

void win_shell::downloadOpensItsPageAndCloses()
{
    Desktop desktop;
    LameEncoder dialog(nullptr);
    dialog.show();
    click(dialog, "Command3");
    QVERIFY(!dialog.isVisible());
    QCOMPARE(desktop.opened.size(), 1);
    QVERIFY(desktop.opened.first() != dialog.Label3.text());
}

void win_shell::cancelOpensNothing()
{
    Desktop desktop;
    LameEncoder dialog(nullptr);
    dialog.show();
    click(dialog, "Command1");
    QVERIFY(!dialog.isVisible());
    QCOMPARE(desktop.opened, QStringList());
}

void win_shell::theLinkOpensItsOwnTextAndTheDialogStays()
{
    Desktop desktop;
    LameEncoder dialog(nullptr);
    dialog.show();
    click(dialog, "Label3");
    QVERIFY(dialog.isVisible());
    QCOMPARE(desktop.opened, QStringList{dialog.Label3.text()});
}

void win_shell::theDialogsFitTheirTexts()
{
    LameEncoder lame(nullptr);
    for (const QLabel* wrapped : {&lame.Label6, &lame.Label4})
        QVERIFY2(wrapped->heightForWidth(wrapped->width()) <= wrapped->height(),
                 qPrintable(wrapped->objectName()));
    QVERIFY(!lame.Label3.isShortened());
    About about(nullptr);
    for (const Label* label : about.findChildren<Label*>())
        QVERIFY2(!label->isShortened(), qPrintable(label->text()));
    for (const QPushButton* link : about.findChildren<QPushButton*>())
        QVERIFY2(link->sizeHint().width() <= link->width(), qPrintable(link->text()));
}

void win_shell::theAboutBoxNamesProductAndVersion()
{
    About about(nullptr);
    QCOMPARE(about.findChild<QLabel*>("Label1")->text(), "Quillon");
    QVERIFY(!about.findChild<QLabel*>("Label2")->text().isEmpty());
}

void win_shell::theAboutBoxOpensThreeAddresses()
{
    Desktop desktop;
    About about(nullptr);
    about.show();
    for (const char* link : {"Label3", "Label4", "Label5"}) click(about, link);
    QCOMPARE(desktop.opened.size(), 3);
    QVERIFY(desktop.opened[0].contains("lame"));
    QVERIFY(desktop.opened[1].contains("lgpl-2.0"));
    QVERIFY(desktop.opened[2].startsWith("mailto:") && desktop.opened[2].contains("subject="));
    QVERIFY(about.isVisible());
}

void win_shell::theKeyboardReachesTheLinksOfTheAboutBox()
{
    Desktop desktop;
    About about(nullptr);
    about.show();
    auto* link = about.findChild<QWidget*>("Label4");
    QVERIFY(link->focusPolicy() & Qt::TabFocus);
    QTest::keyClick(link, Qt::Key_Space);
    QCOMPARE(desktop.opened.size(), 1);
}

void win_shell::theAboutBoxBelongsToTheMainWindow()
{
    FormFixture fixture;
    auto& form = fixture.load();
    DialogDriver driver;
    bool isOwned = false;
    driver.expect([&](QDialog& dialog) {
        isOwned = dialog.objectName() == "About" && dialog.parentWidget() == &form && dialog.isModal();
        QMetaObject::invokeMethod(&dialog, "reject", Qt::QueuedConnection);
        return true;
    });
    form.about.trigger();
    QVERIFY(isOwned);
}

void win_shell::theHomepageIsThatOfTheLanguage()
{
    FormFixture fixture;
    Desktop desktop;
    auto& form = fixture.load();
    LangText.at(76) = "https://example.org/fr";
    form.Homepage.trigger();
    QCOMPARE(desktop.opened, QStringList{"https://example.org/fr"});
}

void win_shell::aHomepageThatTheFileDoesNotNameIsSkipped()
{
    FormFixture fixture;
    Desktop desktop;
    auto& form = fixture.load();
    LangText.resize(70);
    form.Homepage.trigger();
    QCOMPARE(desktop.opened, QStringList());
    QCOMPARE(fixture.fatals, QStringList());
}

void win_shell::aDocumentOnDiskIsOpenedAsAFile()
{
    FormFixture fixture;
    Desktop desktop;
    QFile file(fixture.path("a b#c.txt"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(OpenDocument(file.fileName(), {}, {}));
    QCOMPARE(desktop.opened, QStringList{QUrl::fromLocalFile(file.fileName()).toString()});
}

int main(int argc, char** argv)
{
    Application application(argc, argv);
    win_shell tests;
    return QTest::qExec(&tests, argc, argv);
}
#include "win_shell.moc"
