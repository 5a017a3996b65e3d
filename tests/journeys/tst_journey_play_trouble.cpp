// Playing under bad conditions: the program busy with a dialog or a job in the middle of a player's event, no
// sound server, and one that dies.
#include "journeys/Listening.h"

#include <QDir>

namespace {

constexpr std::int32_t length = 560000;

// Runs `action` from inside the handler of the player's position, which gives way to events.
class InsideTheTimer {
public:
    InsideTheTimer(CutterSelect& form, std::function<void()> action) : handler_(form.AudioPlayer->Timer)
    {
        form.AudioPlayer->Timer = [this, action](std::int32_t position, std::int32_t left,
                                                 std::int32_t right) {
            if (!hasBegun_ && position > 10000) {
                hasBegun_ = true;
                QMetaObject::invokeMethod(
                    qApp, [this, action] { wasInside = depth_ > 0, action(); }, Qt::QueuedConnection);
            }
            ++depth_;
            handler_(position, left, right);
            --depth_;
        };
    }

    bool wasInside = false;    ///< the action began while the handler was running

private:
    std::function<void(std::int32_t, std::int32_t, std::int32_t)> handler_;
    bool hasBegun_ = false;
    int depth_ = 0;
};

bool isAtStart(CutterSelect& form)
{
    return form.Line2.X1() == 0 && form.Label2.text() == QLatin1String("00:00.00");
}

}

class tst_journey_play_trouble : public QObject {
    Q_OBJECT

private slots:
    void init() { listening_ = std::make_unique<Listening>(); }
    void cleanup() { listening_.reset(); }

    void aDialogOpenedInsideAPlayersEventDoesNotStopTheSound();
    void aJobRunInsideAPlayersEventDoesNotStopTheSound();
    void withoutAServerPlayClosesTheReaderWithoutAWord();
    void withoutAServerTheWindowGoesOnAfterPlayFailed();
    void withoutAServerNothingIsSavedAfterPlayFailedUntilTheFileIsOpenedAgain();
    void onceThereIsAServerTheFileOpenedAgainIsHeard();
    void aServerKilledInPlayEndsThePlay();
    void afterAKilledServerCameBackTheFileIsHeard();

private:
    void playPartOfFiveArrays();
    void startPlayAndKillTheServer();

    std::unique_ptr<Listening> listening_;
};

// Two arrays are queued at most, so the queue has to be fed several times while the event's handler hasn't
// returned.
void tst_journey_play_trouble::playPartOfFiveArrays()
{
    QVERIFY(listening_->listen());
    listening_->openSong(length);
    listening_->journey.cutAt(500000);
    listening_->journey.selectRow(1);
}

void tst_journey_play_trouble::aDialogOpenedInsideAPlayersEventDoesNotStopTheSound()
{
    playPartOfFiveArrays();
    CutterSelect& form = listening_->form();
    listening_->journey.dialogs.expect([&](QDialog& dialog) {
        if (listening_->lineSample() < 400000) return false;
        QMetaObject::invokeMethod(&dialog, "reject", Qt::QueuedConnection);
        return true;
    });
    InsideTheTimer inside(form, [&] { form.OpenAudioFile.trigger(); });
    const std::int32_t end = CutPoints[1];
    QTest::mouseClick(&form.Image9, Qt::LeftButton);
    QVERIFY(listening_->ends());
    QVERIFY(inside.wasInside && listening_->journey.dialogs.isDone());
    QVERIFY(listening_->heardUpTo(end) == frameRange(1, end));
}

void tst_journey_play_trouble::aJobRunInsideAPlayersEventDoesNotStopTheSound()
{
    playPartOfFiveArrays();
    CutterSelect& form = listening_->form();
    bool isJobDone = false;
    InsideTheTimer inside(
        form, [&] { isJobDone = listening_->waitFor([&] { return listening_->lineSample() > 400000; }); });
    const std::int32_t end = CutPoints[1];
    QTest::mouseClick(&form.Image9, Qt::LeftButton);
    QVERIFY(listening_->ends());
    QVERIFY(inside.wasInside && isJobDone);
    QVERIFY(listening_->heardUpTo(end) == frameRange(1, end));
}

void tst_journey_play_trouble::withoutAServerPlayClosesTheReaderWithoutAWord()
{
    listening_->openSong(length);
    QVERIFY(!listening_->form().FileR->IsClosed());
    pressButton(listening_->form().Toolbar1, 10);
    QVERIFY(listening_->form().FileR->IsClosed());
    QVERIFY(listening_->journey.dialogs.messages.isEmpty() && !QApplication::activeModalWidget());
    QVERIFY(listening_->form().isEnabled() && listening_->form().FileLoaded);
}

void tst_journey_play_trouble::withoutAServerTheWindowGoesOnAfterPlayFailed()
{
    listening_->openSong(length);
    CutterSelect& form = listening_->form();
    pressButton(form.Toolbar1, 10);
    listening_->clickWave(300);
    QCOMPARE(form.Line2.X1(), 4500.0f);
    form.Fwd1Sec.trigger();
    form.Rew1Sec.trigger();
    drag(form.Picture1, {300, 8}, {400, 8});
    QVERIFY(std::abs(form.Line2.X1() - 6000) <= 15);
    pressButton(form.Toolbar1, 8);
    QCOMPARE(CutCount, 1);
    pressButton(form.Toolbar1, 4);
    QCOMPARE(form.ZoomLevel, 1);
    pressButton(form.Toolbar1, 10);
    pressButton(form.Toolbar1, 12);
    QVERIFY(isAtStart(form) && !form.IsPlaying);
}

void tst_journey_play_trouble::withoutAServerNothingIsSavedAfterPlayFailedUntilTheFileIsOpenedAgain()
{
    listening_->openSong(length);
    Journey& journey = listening_->journey;
    journey.form().SelecWav.trigger();
    journey.cutAt(100000);
    journey.selectRow(1);
    pressButton(journey.form().Toolbar1, 14);
    QVERIFY(journey.form().FileR->IsClosed());
    journey.form().SavePartWav.trigger();
    journey.saveAll(journey.folder(QStringLiteral("out")));
    QVERIFY(QDir(journey.folder(QStringLiteral("out"))).isEmpty());
    QVERIFY(journey.dialogs.messages.isEmpty() && journey.form().isEnabled());

    journey.open(journey.path(QStringLiteral("song.wav")));
    journey.cutAt(100000);
    journey.selectRow(1);
    const std::int32_t end = CutPoints[1];
    journey.savePart(journey.form().SavePartWav, journey.path(QStringLiteral("part.wav")));
    QVERIFY(frameNumbers(readWav(journey.path(QStringLiteral("part.wav")))) == frameRange(1, end));
}

void tst_journey_play_trouble::onceThereIsAServerTheFileOpenedAgainIsHeard()
{
    listening_->openSong(100000);
    pressButton(listening_->form().Toolbar1, 10);
    QVERIFY(listening_->form().FileR->IsClosed());
    QVERIFY(listening_->listen());
    listening_->openSong(100000);
    pressButton(listening_->form().Toolbar1, 10);
    QVERIFY(listening_->ends());
    QVERIFY(listening_->heardUpTo(100000) == frameRange(1, 100000));
}

void tst_journey_play_trouble::startPlayAndKillTheServer()
{
    QVERIFY(listening_->listen());
    listening_->openSong(length);
    pressButton(listening_->form().Toolbar1, 10);
    QVERIFY(listening_->playsPast(20000));
    listening_->server.kill();
    QVERIFY(listening_->ends());
}

void tst_journey_play_trouble::aServerKilledInPlayEndsThePlay()
{
    startPlayAndKillTheServer();
    CutterSelect& form = listening_->form();
    QVERIFY(isAtStart(form) && !form.PlayFeeding && !form.FileR->IsClosed());
    QVERIFY(listening_->journey.dialogs.messages.isEmpty() && !QApplication::activeModalWidget());
    pressButton(form.Toolbar1, 10);
    QVERIFY(form.FileR->IsClosed());
}

void tst_journey_play_trouble::afterAKilledServerCameBackTheFileIsHeard()
{
    startPlayAndKillTheServer();
    QVERIFY(listening_->listen());
    listening_->clickWave(600);
    const std::int32_t from = listening_->lineSample();
    pressButton(listening_->form().Toolbar1, 10);
    QVERIFY(listening_->ends());
    QVERIFY(listening_->heardUpTo(length) == frameRange(from + 1, length));
}

QTEST_MAIN(tst_journey_play_trouble)
#include "tst_journey_play_trouble.moc"
