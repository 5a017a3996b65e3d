// Every window in every language: its texts stand whole. With QUILLON_PICTURES set to a folder, their
// pictures go there.
#include "journeys/Journey.h"

#include "core/toolkit/FormHolder.h"
#include "core/toolkit/Look.h"
#include "encoders/frmMP3.h"
#include "encoders/frmOgg.h"
#include "encoders/frmWMA.h"
#include "support/About.h"
#include "support/LameEncoder.h"
#include "support/Mouse.h"
#include "waveform/Form2.h"

#include <QAbstractButton>
#include <QDir>
#include <QTest>

class tst_pictures : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { applyLook(*qApp); }
    void theMainWindowShowsItsTextsWhole_data() { languages(); }
    void theMainWindowShowsItsTextsWhole();
    void theProgressDialogShowsItsTextsWhole_data() { languages(); }
    void theProgressDialogShowsItsTextsWhole();
    void theFixedDialogsShowTheirTextsWhole();
    void theSettingsDialogsShowTheirTextsWhole();
    void theLastMenuIsInSight_data() { languages(); }
    void theLastMenuIsInSight();
    void everyButtonOfTheToolBarIsInSight();

private:
    static void languages();
    static void load(Journey& journey);
    static void look(QWidget& window, const QString& name);
};

void tst_pictures::languages()
{
    QTest::addColumn<QString>("value");
    for (const char* value : {"English", "French", "Español", "Portugais"})
        QTest::addRow("%s", value) << QString::fromUtf8(value);
}

void tst_pictures::load(Journey& journey)
{
    QFETCH(QString, value);
    journey.setting(QStringLiteral("Lang"), QStringLiteral("Val"), value);
    const QString song = journey.path(QStringLiteral("An evening in the garden (live).wav"));
    writeWav(song, music(20 * 44100));
    journey.open(song);
    for (const int second : {3, 8, 15}) journey.cutAt(second * 44100);
    journey.selectRow(2);
    activate(journey.form());
    journey.form().Picture1.setFocus();
}

// What is shortened or cut off is named in the failure.
void tst_pictures::look(QWidget& window, const QString& name)
{
    const QString folder = qEnvironmentVariable("QUILLON_PICTURES");
    if (!folder.isEmpty()) {
        QDir().mkpath(folder);
        QVERIFY(window.grab().save(folder + QLatin1Char('/') + name + QStringLiteral(".png")));
    }
    for (const Label* label : window.findChildren<Label*>())
        QVERIFY2(!label->isVisibleTo(&window) || !label->isShortened() || label->smallerPx != 0,
                 qPrintable(name + QStringLiteral(": ") + label->objectName() + QStringLiteral(" \"") +
                            label->text() + QLatin1Char('"')));
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>())
        QVERIFY2(button->text().isEmpty() ||
                     button->fontMetrics().horizontalAdvance(button->text()) <= button->width() ||
                     qobject_cast<const QToolButton*>(button),
                 qPrintable(name + QStringLiteral(": ") + button->text()));
}

void tst_pictures::theMainWindowShowsItsTextsWhole()
{
    QFETCH(QString, value);
    Journey journey;
    load(journey);
    journey.form().Label1.elideMode =
        Qt::ElideNone;    // a long file name is shortened in the middle, and may be
    journey.form().Label1.setText(QStringLiteral("song.wav"));
    look(journey.form(), QStringLiteral("main-") + value);
    QTest::mouseClick(&journey.form().Image22, Qt::LeftButton);
    look(journey.form(), QStringLiteral("tags-") + value);
    QTest::mouseClick(&journey.form().Image24, Qt::LeftButton);
    look(journey.form(), QStringLiteral("output-") + value);
}

void tst_pictures::theProgressDialogShowsItsTextsWhole()
{
    QFETCH(QString, value);
    Journey journey;
    load(journey);
    ProgressForm->Label2.setText(langText(84) + QStringLiteral("/home/anna/Music/song-Part 2.mp3 : 42 %"));
    ProgressForm->setProgressBar1(42);
    ProgressForm->show();
    look(*ProgressForm, QStringLiteral("progress-") + value);
    ProgressForm.unload();
}

void tst_pictures::theFixedDialogsShowTheirTextsWhole()
{
    Journey journey;
    journey.start();
    About about(&journey.form());
    about.show();
    look(about, QStringLiteral("about"));
    LameEncoder lame(&journey.form());
    lame.show();
    look(lame, QStringLiteral("lame"));
    QVERIFY(lame.Label4.heightForWidth(lame.Label4.width()) <= lame.Label4.height());
    QVERIFY(lame.Label6.heightForWidth(lame.Label6.width()) <= lame.Label6.height());
}

void tst_pictures::theSettingsDialogsShowTheirTextsWhole()
{
    Journey journey;
    journey.start();
    Mp3SettingsForm->AppelconvertMain(journey.form());
    Mp3SettingsForm->show();
    for (int tab = 0; tab < Mp3SettingsForm->tabMP3.count(); ++tab) {
        Mp3SettingsForm->tabMP3.setCurrentIndex(tab);
        look(*Mp3SettingsForm, QStringLiteral("mp3-%1").arg(tab));
    }
    Mp3SettingsForm.unload();
    OggSettingsForm->loadMain(journey.form());
    OggSettingsForm->show();
    look(*OggSettingsForm, QStringLiteral("ogg"));
    OggSettingsForm.unload();
    WmaSettingsForm->Form_Load(journey.form());
    WmaSettingsForm->show();
    look(*WmaSettingsForm, QStringLiteral("wma"));
    WmaSettingsForm.unload();
}

void tst_pictures::theLastMenuIsInSight()
{
    Journey journey;
    load(journey);
    const QRect last =
        journey.form().CutterSelectControls::menuBar.actionGeometry(journey.form().infos.menuAction());
    QVERIFY(!last.isEmpty());
    QVERIFY(journey.form().CutterSelectControls::menuBar.rect().contains(last));
}

void tst_pictures::everyButtonOfTheToolBarIsInSight()
{
    Journey journey;
    journey.start();
    for (const int index : {1, 2, 4, 5, 6, 8, 10, 11, 12, 14, 15, 17, 18}) {
        const QWidget* button =
            journey.form().Toolbar1.widgetForAction(&journey.form().Toolbar1.Buttons(index));
        QVERIFY2(button->isVisible() && journey.form().Toolbar1.rect().contains(button->geometry()),
                 qPrintable(QString::number(index)));
    }
}

QTEST_MAIN(tst_pictures)
#include "tst_pictures.moc"
