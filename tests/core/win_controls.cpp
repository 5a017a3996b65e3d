// Every control, entry and button of the main window can be found by its name.
#include "support/FormFixture.h"

#include <QTest>

class win_controls : public QObject {
    Q_OBJECT

private slots:
    void everyControlIsFoundByItsName();
    void aCutBringsItsNumberedMarkers();
    void noNameStandsTwice();
    void everyControlThatIsDrawnHasANameForTheScreenReader();
};

static const char* const controls[] = {
    // the tool bar and the file row
    "Toolbar1",
    "Toolbar1(1)",
    "Toolbar1(2)",
    "Toolbar1(4)",
    "Toolbar1(5)",
    "Toolbar1(6)",
    "Toolbar1(8)",
    "Toolbar1(10)",
    "Toolbar1(11)",
    "Toolbar1(12)",
    "Toolbar1(14)",
    "Toolbar1(15)",
    "Toolbar1(17)",
    "Toolbar1(18)",
    "Label2",
    "Image15",
    "Picture5",
    "Image14",
    "Image20",
    "Image13",
    "Image21",
    "Label8",
    "Label1",
    "Label4",
    "Label3",
    // the waveform
    "Picture4",
    "Picture1",
    "Picture2",
    "Picture3",
    "PicInfos",
    "MonScroll",
    "Line1",
    "Line2",
    "Line6",
    "Line7",
    "Line5(0)",
    "Line5b(0)",
    "Bop(0)",
    "Bop1(0)",
    "IndicTime",
    "Res1",
    "Track1",
    "Track2",
    "Track3",
    "TrackSep",
    // the selected part
    "Label9",
    "Label11",
    "Label10(0)",
    "Label10(1)",
    "Label10(2)",
    "Label16",
    "Label12",
    "Text1",
    "Text2",
    "TextTitle",
    "UpDown1",
    "UpDown2",
    "UpDown3",
    "UpDown4",
    "Image9",
    "Image10",
    "Image8",
    // the panels
    "Image22",
    "Image23",
    "Image24",
    "Image4",
    "Image5",
    "Image7",
    "Label5",
    "Label6",
    "Label7",
    "ListView1",
    "PicTag",
    "Label13",
    "Label14",
    "Label15",
    "Label19",
    "Label21",
    "infoArtist",
    "infoAlbum",
    "infoGenre",
    "infoComment",
    "infoYear",
    "PicOutput",
    "Option1(0)",
    "Option1(1)",
    "Option1(2)",
    "Option1(3)",
    "Image6(0)",
    "Image6(1)",
    "Image6(2)",
    "Image6(3)",
    // the status bar
    "StatusBar1",
    "StatusBar1.Panels(1)",
    "StatusBar1.Panels(2)",
    "ProgressBar1",
    // the menus
    "Fichier",
    "OpenAudioFile",
    "CloseAudioFile",
    "sep11",
    "SaveAllParts",
    "Sep6",
    "ExtractAudioFromAvi",
    "JoinerF",
    "sep5",
    "Quitter",
    "ControlAudio",
    "PlayPiste",
    "EnPause",
    "Stoplecture",
    "Sep1",
    "Rew1Sec",
    "Fwd1Sec",
    "MenuCutPoint",
    "SetCutPoint",
    "popup1",
    "PlaythisPart",
    "Sep",
    "DeleteEntryCutPoint",
    "sep2",
    "SavePartMP3",
    "SavePartOgg",
    "SavePartWMA",
    "SavePartWav",
    "Sep15",
    "Saveselec",
    "OutputMenu",
    "SelecMP3",
    "selecOgg",
    "SelecWma",
    "SelecWav",
    "Sep10",
    "SelecFormatConfig",
    "Language",
    "English",
    "Francais",
    "spanish",
    "portugais",
    "infos",
    "Help",
    "Homepage",
    "sep12",
    "about",
};

void win_controls::everyControlIsFoundByItsName()
{
    FormFixture fixture;
    auto& form = fixture.load();
    QStringList missing;
    for (const char* name : controls)
        if (!form.findChild<QObject*>(name)) missing << name;
    QCOMPARE(missing, QStringList());
    QCOMPARE(form.objectName(), "CutterSelect");
}

void win_controls::aCutBringsItsNumberedMarkers()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(441000), {100000, 200000});
    for (const char* array : {"Line5", "Line5b", "Bop", "Bop1"})
        for (int i = 1; i <= 2; ++i)
            QVERIFY(form.findChild<QObject*>(QStringLiteral("%1(%2)").arg(array).arg(i)));
}

void win_controls::noNameStandsTwice()
{
    FormFixture fixture;
    auto& form = fixture.load();
    for (const char* name : controls) {
        if (QByteArray(name).startsWith("Toolbar1(")) continue;    // the action and the button that shows it
        QVERIFY2(form.findChildren<QObject*>(name).size() == 1, name);
    }
}

void win_controls::everyControlThatIsDrawnHasANameForTheScreenReader()
{
    FormFixture fixture;
    auto& form = fixture.load();
    QStringList silent;
    for (const QAbstractButton* button : form.findChildren<QAbstractButton*>()) {
        if (button->focusPolicy() == Qt::NoFocus) continue;
        if ((button->accessibleName() + button->text()).isEmpty()) silent << button->objectName();
    }
    QCOMPARE(silent.join(' '), QString());
    for (const Surface* surface : {&form.Picture1, &form.Picture5})
        QVERIFY(!surface->accessibleName().isEmpty());
}

QTEST_MAIN(win_controls)
#include "win_controls.moc"
