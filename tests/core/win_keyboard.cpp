// The keyboard: the tab order, and that one sees where the focus is.
#include "core/KeyboardForm.h"
#include "core/toolkit/Application.h"

namespace {

QStringList tabRing(CutterSelect& form)
{
    form.Picture1.setFocus();
    QStringList names;
    do {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        names << QApplication::focusWidget()->objectName();
    } while (QApplication::focusWidget() != &form.Picture1 && names.size() < 100);
    return names;
}

}

class win_keyboard : public QObject {
    Q_OBJECT

private slots:
    void theTabKeyFollowsTheEye_data();
    void theTabKeyFollowsTheEye();
    void theTabKeyGoesBackTheSameWay();
    void theTabKeyPassesOverCoveredPanelsAtTheStart();
    void theFocusIsSeen_data();
    void theFocusIsSeen();
    void theFocusComesBackAfterALongJob();
    void theWaveformTakesTheFocusOfAFieldThatIsOff();
    void theWaveformHasTheFocusFromTheStart();
};

static const QStringList ringAboveThePanels{
    "Toolbar1(1)",  "Toolbar1(2)",  "Toolbar1(4)",  "Toolbar1(8)",  "Toolbar1(10)", "Toolbar1(11)",
    "Toolbar1(12)", "Toolbar1(14)", "Toolbar1(15)", "Toolbar1(17)", "Toolbar1(18)", "Image15",
    "Picture5",     "Image20",      "Image13",      "Image21",      "Picture1",     "Text1",
    "UpDown1.up",   "UpDown1.down", "UpDown3.up",   "UpDown3.down", "Text2",        "UpDown2.up",
    "UpDown2.down", "UpDown4.up",   "UpDown4.down", "TextTitle",    "Image9",       "Image10",
    "Image8",       "Image23",      "Image22",      "Image24"};

void win_keyboard::theTabKeyFollowsTheEye_data()
{
    QTest::addColumn<QString>("tab");
    QTest::addColumn<QStringList>("inPanel");
    QTest::addRow("with the parts shown") << "Image23" << QStringList{"ListView1"};
    QTest::addRow("with the tags shown")
        << "Image22" << QStringList{"infoArtist", "infoAlbum", "infoGenre", "infoComment", "infoYear"};
    // Of the option buttons the chosen one alone takes the focus; the arrow keys go on from there.
    QTest::addRow("with the output shown")
        << "Image24" << QStringList{"Option1(1)", "Image6(1)", "Image6(2)", "Image6(3)", "Image6(0)"};
}

void win_keyboard::theTabKeyFollowsTheEye()
{
    QFETCH(QString, tab);
    QFETCH(QStringList, inPanel);
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    form.findChild<PictureButton*>(tab)->click();
    const QStringList wanted = ringAboveThePanels + inPanel;
    const qsizetype behindWaveform = wanted.indexOf("Picture1") + 1;
    QCOMPARE(tabRing(form).join(' '), (wanted.mid(behindWaveform) + wanted.first(behindWaveform)).join(' '));
}

void win_keyboard::theTabKeyGoesBackTheSameWay()
{
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    form.Picture1.setFocus();
    for (const char* name : {"Image21", "Image13", "Image20", "Picture5", "Image15", "Toolbar1(18)"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget()->objectName(), name);
    }
}

void win_keyboard::theTabKeyPassesOverCoveredPanelsAtTheStart()
{
    FormFixture fixture;
    auto& form = fixture.load();
    activate(form);
    QVERIFY(form.PicTag.isVisible());
    const QStringList ring = tabRing(form);
    QCOMPARE(ring.count("ListView1"), 1);
    QCOMPARE(ring.filter("info") + ring.filter("Option1") + ring.filter("Image6"), QStringList());
}

void win_keyboard::theFocusIsSeen_data()
{
    QTest::addColumn<QString>("tab");
    QTest::addRow("with the parts shown") << "Image23";
    QTest::addRow("with the tags shown") << "Image22";
    QTest::addRow("with the output shown") << "Image24";
}

void win_keyboard::theFocusIsSeen()
{
    QFETCH(QString, tab);
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    QApplication::setCursorFlashTime(0);
    form.findChild<PictureButton*>(tab)->click();
    QStringList unseen;
    form.Picture1.setFocus();
    do {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QWidget* now = QApplication::focusWidget();
        if (auto* edit = qobject_cast<QLineEdit*>(now)) edit->deselect();
        const QImage with = form.grab().toImage();
        now->clearFocus();
        const QImage without = form.grab().toImage();
        now->setFocus(Qt::TabFocusReason);
        const QRect place(now->mapTo(&form, QPoint(-2, -2)), now->size() + QSize(4, 4));
        if (with.copy(place) == without.copy(place)) unseen << now->objectName();
    } while (QApplication::focusWidget() != &form.Picture1);
    QCOMPARE(unseen, QStringList());
}

void win_keyboard::theFocusComesBackAfterALongJob()
{
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    form.TextTitle.setFocus();
    form.DisableMainForm();
    QVERIFY(!form.TextTitle.hasFocus());
    form.EnableMainForm();
    QVERIFY(form.TextTitle.hasFocus());
}

void win_keyboard::theWaveformTakesTheFocusOfAFieldThatIsOff()
{
    FormFixture fixture;
    auto& form = formWithPart(fixture);
    form.TextTitle.setFocus();
    form.DisableMainForm();
    form.ClearPartDetails();
    form.EnableMainForm();
    QVERIFY(form.Picture1.hasFocus());
}

void win_keyboard::theWaveformHasTheFocusFromTheStart()
{
    FormFixture fixture;
    auto& form = fixture.load();
    activate(form);
    QVERIFY(form.Picture1.hasFocus());
    fixture.open(fakeSound(44100));
    activate(form);
    QVERIFY(form.Picture1.hasFocus());
}

int main(int argc, char** argv)
{
    Application application(argc, argv);
    win_keyboard tests;
    return QTest::qExec(&tests, argc, argv);
}
#include "win_keyboard.moc"
