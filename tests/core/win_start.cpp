// Start-up and shutdown of the main form, and its fixed size.
#include "core/Errors.h"
#include "core/toolkit/Application.h"
#include "support/FormFixture.h"
#include "support/SubClass.h"

#include <QCloseEvent>
#include <QTest>
#include <QTimer>

namespace {

/// Writes down which object is made, and fails to make one.
class MakingEngine : public FakeEngine {
public:
    QString failsAt;

    std::unique_ptr<AudioFile> makeFile() override { return made("file", FakeEngine::makeFile()); }
    std::unique_ptr<AudioTag> makeTag() override { return made("tag", FakeEngine::makeTag()); }
    std::unique_ptr<Mp3Format> makeMp3Format() override { return made("mp3", FakeEngine::makeMp3Format()); }
    std::unique_ptr<AudioPlayerStream> makePlayer() override
    {
        return made("player", FakeEngine::makePlayer());
    }

private:
    template <typename Object>
    std::unique_ptr<Object> made(const char* what, std::unique_ptr<Object> object)
    {
        journal().command(QStringLiteral("make ") + QLatin1String(what));
        if (failsAt == QLatin1String(what)) throw EngineError(failsAt);
        return object;
    }
};

}

class win_start : public QObject {
    Q_OBJECT

private slots:
    void theEngineObjectsAreMadeInOrder();
    void theVolumeIsSetOnceTheFormatStands();
    void anEngineObjectThatCannotBeMadeEndsTheStart_data();
    void anEngineObjectThatCannotBeMadeEndsTheStart();
    void theGenresAreTheEnginesHundredAndFortyEight();
    void theStartIsWithoutADocument();
    void theStartDrawsAnEmptyWaveform();
    void thePartsListIsInFrontAtTheStart();
    void theStoredLanguageIsLoaded_data();
    void theStoredLanguageIsLoaded();
    void theWindowHasOneSizeOnly();
    void theWindowIsNamedAndColoured();
    void aSizeInTwipsIsRoundedBeforeItIsDivided();
    void theWindowKeepsItsSizeWhenItIsDragged();
    void nothingMovesWhenTheWindowIsResized();
    void quittingLeavesTheEventLoopWithStatusZero();
    void theCloseBoxIsTheSameAsQuitting();
    void quittingWritesNothing();
    void quittingStopsThePlayer();
    void theCloseBoxOfADisabledFormIsIgnored();
};

void win_start::theEngineObjectsAreMadeInOrder()
{
    FormFixture fixture;
    MakingEngine engine;
    fixture.form.emplace(engine).Form_Load();
    QCOMPARE(journal().commandsOf("make"),
             (QStringList{"make file", "make file", "make file", "make tag", "make mp3", "make player"}));
    journal().clear();
    fixture.form->FileR->Close();
    fixture.form->FileRe->Close();
    fixture.form->FileWenc->Close();
    QCOMPARE(journal().commands(), (QStringList{"FileR.Close", "FileRe.Close", "FileWenc.Close"}));
    fixture.form.reset();
}

void win_start::theVolumeIsSetOnceTheFormatStands()
{
    FormFixture fixture;
    fixture.writeSetting("OutPutCut", "Format", "WAV");
    fixture.load();
    QCOMPARE(journal().commands(),
             (QStringList{"FileWenc.SetWmaEnabled False", "FileR.SetWmaEnabled False",
                          "FileWenc.SetFormatPCM 44100 2 16", "AudioPlayer.SetVolume 65535"}));
}

void win_start::anEngineObjectThatCannotBeMadeEndsTheStart_data()
{
    QTest::addColumn<QString>("object");
    for (const char* object : {"file", "tag", "mp3", "player"}) QTest::addRow("no %s", object) << object;
}

void win_start::anEngineObjectThatCannotBeMadeEndsTheStart()
{
    QFETCH(QString, object);
    FormFixture fixture;
    MakingEngine engine;
    engine.failsAt = object;
    fixture.form.emplace(engine);
    QVERIFY_EXCEPTION_THROWN(fixture.form->Form_Load(), EngineError);
    QVERIFY(!journal().commands().contains("AudioPlayer.SetVolume 65535"));
    fixture.form.reset();
}

void win_start::theGenresAreTheEnginesHundredAndFortyEight()
{
    FormFixture fixture;
    auto& form = fixture.load();
    QCOMPARE(form.infoGenre.count(), 148);
    QCOMPARE(form.infoGenre.itemText(0), "genre 0");
    QCOMPARE(form.infoGenre.itemText(147), "genre 147");
}

void win_start::theStartIsWithoutADocument()
{
    FormFixture fixture;
    auto& form = fixture.load();
    QVERIFY(!form.FileLoaded && !form.Scanning && !form.IsPlaying && !form.HasSelectedPart);
    QCOMPARE(form.Frequency, 44100);
    QCOMPARE(form.Channels, 2);
    QCOMPARE(form.Peaks, std::vector<std::int32_t>{0});
    QCOMPARE(form.ToolMode, 1);
    QVERIFY(form.Image20.isChosen() && !form.Image13.isChosen());
    QCOMPARE(int{form.ListButton}, 0);
    QCOMPARE(form.TrackStep, 10);
    QCOMPARE(form.Label2.text(), "00:00.00");
    QCOMPARE(TotalSamples, 0);
}

void win_start::theStartDrawsAnEmptyWaveform()
{
    FormFixture fixture;
    auto& form = fixture.load();
    QCOMPARE(form.Line2.X1(), Twips{0});
    QCOMPARE(form.Line2.X2(), Twips{0});
    QCOMPARE(form.IndicTime.Left(), -form.IndicTime.Width() / 2);
    QVERIFY(!form.Line6.Visible());
    QVERIFY(!form.Picture2.isVisible());
    QCOMPARE(form.Bop.UBound(), 0);
}

void win_start::thePartsListIsInFrontAtTheStart()
{
    FormFixture fixture;
    auto& form = fixture.load();
    for (const QWidget* side :
         std::initializer_list<QWidget*>{&form.ListView1, &form.PicTag, &form.PicOutput})
        QVERIFY(side->isVisible());
    const QWidget* front = form.panel.childAt(form.panel.rect().center());
    QVERIFY(front == &form.ListView1 || form.ListView1.isAncestorOf(front));
}

void win_start::theStoredLanguageIsLoaded_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("quit");
    QTest::addColumn<QString>("afterwards");
    QTest::addRow("nothing stored is English, and is written") << "" << 2 << "Quit"
                                                               << "English";
    QTest::addRow("French") << "French" << 1 << "Quitter"
                            << "French";
    QTest::addRow("English") << "English" << 2 << "Quit"
                             << "English";
    QTest::addRow("Spanish by its own name") << "Español" << 3 << "Salir"
                                             << "Español";
    QTest::addRow("Portuguese by its French name") << "Portugais" << 4 << "Sair"
                                                   << "Portugais";
    QTest::addRow("the English word for Portuguese is unknown") << "Portuguese" << 2 << "Quit"
                                                                << "Portuguese";
    QTest::addRow("an unknown language is kept and shown in English") << "Deutsch" << 2 << "Quit"
                                                                      << "Deutsch";
    QTest::addRow("the case of a language counts") << "french" << 2 << "Quit"
                                                   << "french";
    QTest::addRow("Spanish without its tilde is unknown") << "Espanol" << 2 << "Quit"
                                                          << "Espanol";
}

void win_start::theStoredLanguageIsLoaded()
{
    QFETCH(QString, stored);
    QFETCH(QString, quit);
    FormFixture fixture;
    if (!stored.isEmpty()) fixture.writeSetting("Lang", "Val", stored);
    auto& form = fixture.load();
    QTEST(LangId, "id");
    QCOMPARE(form.Quitter.text(), quit);
    QTEST(fixture.setting("Lang", "Val"), "afterwards");
}

void win_start::theWindowHasOneSizeOnly()
{
    FormFixture fixture;
    auto& form = fixture.load();
    QCOMPARE(form.minimumSize(), QSize(724, 556));
    QCOMPARE(form.maximumSize(), QSize(724, 556));
    QCOMPARE(form.size(), QSize(724, 556));
    QCOMPARE(MinTrackX, 10860.0f);
    QCOMPARE(MinTrackY, 8340.0f);
}

void win_start::theWindowIsNamedAndColoured()
{
    FormFixture fixture;
    auto& form = fixture.load();
    QCOMPARE(form.windowTitle(), "Quillon");
    QCOMPARE(form.grab().toImage().pixelColor(2, form.height() / 2), QColor(241, 244, 253));
}

void win_start::aSizeInTwipsIsRoundedBeforeItIsDivided()
{
    QWidget window;
    SetWindowLimits(window, 149.6f, 164.5f);    // 150 and 164 twips
    QCOMPARE(window.minimumSize(), QSize(10, 10));
    QCOMPARE(window.maximumSize(), QSize(10, 10));
}

void win_start::theWindowKeepsItsSizeWhenItIsDragged()
{
    FormFixture fixture;
    auto& form = fixture.load();
    form.resize(900, 700);
    QCOMPARE(form.size(), QSize(724, 556));
    form.resize(300, 200);
    QCOMPARE(form.size(), QSize(724, 556));
}

void win_start::nothingMovesWhenTheWindowIsResized()
{
    FormFixture fixture;
    auto& form = fixture.load();
    const QRect details = form.details.geometry(), panel = form.panel.geometry();
    form.setMaximumSize(2000, 2000);
    form.resize(1000, 800);
    QCoreApplication::processEvents();
    QCOMPARE(form.details.geometry(), details);
    QCOMPARE(form.panel.geometry(), panel);
    QCOMPARE(form.Picture1.Width(), Twips{10420});
}

/// Runs the event loop and acts in it; the status with which it is left, 7 when it isn't.
static int statusAfter(const std::function<void()>& action)
{
    QTimer::singleShot(0, qApp, [&] {
        action();
        QMetaObject::invokeMethod(
            qApp, [] { QCoreApplication::exit(7); }, Qt::QueuedConnection);
    });
    return QCoreApplication::exec();
}

void win_start::quittingLeavesTheEventLoopWithStatusZero()
{
    FormFixture fixture;
    auto& form = fixture.load();
    QCOMPARE(statusAfter([&] { form.Quitter.trigger(); }), 0);
    QVERIFY(!form.isVisible());
}

void win_start::theCloseBoxIsTheSameAsQuitting()
{
    FormFixture fixture;
    auto& form = fixture.load();
    QCOMPARE(statusAfter([&] { form.close(); }), 0);
    QVERIFY(!form.isVisible());
}

void win_start::quittingWritesNothing()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100));
    const QString before = fixture.settingsText();
    statusAfter([&] { form.Quitter.trigger(); });
    QCOMPARE(journal().commands(), QStringList());
    QCOMPARE(fixture.settingsText(), before);
}

void win_start::quittingStopsThePlayer()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(44100 * 20));
    form.ToolbarCommand(10);
    journal().clear();
    statusAfter([&] { form.Quitter.trigger(); });
    QVERIFY(!form.IsPlaying);
    QCOMPARE(journal().commands(), QStringList{"AudioPlayer.Stop"});
}

void win_start::theCloseBoxOfADisabledFormIsIgnored()
{
    FormFixture fixture;
    auto& form = fixture.load();
    form.DisableMainForm();
    QVERIFY(!form.close());
    QVERIFY(form.isVisible());
    form.EnableMainForm();
    QCOMPARE(statusAfter([&] { form.close(); }), 0);
}

int main(int argc, char** argv)
{
    Application application(argc, argv);
    win_start tests;
    return QTest::qExec(&tests, argc, argv);
}
#include "win_start.moc"
