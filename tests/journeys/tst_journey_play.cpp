// Playing in the real window, through a real sound server, and what a recorder hears of it. Where silence is
// left out of what is compared, it is because a busy machine can let the server run dry for a moment.
#include "journeys/Listening.h"

#include "core/TimeText.h"

namespace {

// 400 samples to a pixel of the waveform, as near as makes no difference.
constexpr std::int32_t length = 277867;

FrameNumbers firstFrames(std::size_t count)
{
    return frameRange(1, static_cast<std::int32_t>(count));
}

void dragKnob(CutterSelect& form, double toPx)
{
    const double at = (form.Image14.Left() + form.Image14.Width() / 2) / twipsPerPixel;
    drag(form.Picture5, {at, 10}, {toPx, 10});
}

}

class tst_journey_play : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theWholeFileIsHeardAsItIsInTheWorkFile();
    void theFileIsHeardFromThePositionLineOn();
    void aPartIsHeardToItsVeryLastSample_data();
    void aPartIsHeardToItsVeryLastSample();
    void afterTheEndOfAPartTheLineIsAtTheStartAndThePartStaysSelected();
    void aClickOnTheWaveGoesOnFromThatSample();
    void aClickWhileAPartPlaysPlaysTheRestOfItsLengthFromThere();
    void playOnAPartStopsTheFileFirst();
    void pauseKeepsTheLineAndPlayGoesOnFromIt();
    void stopEndsTheSoundAndGoesToTheStart();
    void forwardJumpsASecondFromTheLine();
    void backJumpsASecondFromTheLine();
    void backNearTheStartGoesOnFromTheSecondSample();
    void forwardNearTheEndIsTheEnd();
    void draggingThePositionHandleMovesTheSound();
    void theKnobAtItsLeftEndIsSilenceAndAtItsRightEndFullVolume();
    void muteIsSilenceUntilItIsPressedAgain();

private:
    std::unique_ptr<Listening> listening_;
};

void tst_journey_play::init()
{
    listening_ = std::make_unique<Listening>();
    QVERIFY(listening_->listen());
    listening_->openSong(length);
}

void tst_journey_play::cleanup()
{
    listening_.reset();
}

void tst_journey_play::theWholeFileIsHeardAsItIsInTheWorkFile()
{
    pressButton(listening_->form().Toolbar1, 10);
    QVERIFY(listening_->ends());
    const FrameNumbers heard = listening_->heardUpTo(length);
    QVERIFY(heard == frameNumbers(readWav(TempCutPath)));
    QVERIFY(heard == frameRange(1, length));
}

void tst_journey_play::theFileIsHeardFromThePositionLineOn()
{
    listening_->clickWave(500);
    const std::int32_t from = listening_->lineSample();
    QCOMPARE(from, 200000);
    pressButton(listening_->form().Toolbar1, 10);
    QVERIFY(listening_->ends());
    QVERIFY(listening_->heardUpTo(length) == frameRange(from + 1, length));
}

void tst_journey_play::aPartIsHeardToItsVeryLastSample_data()
{
    QTest::addColumn<std::vector<std::int32_t>>("cuts");
    QTest::addColumn<int>("row");
    QTest::addColumn<std::int32_t>("first");
    QTest::addColumn<std::int32_t>("last");
    using Cuts = std::vector<std::int32_t>;
    QTest::addRow("the first part, two arrays long") << Cuts{200000} << 1 << 1 << 200000;
    QTest::addRow("a part between two cuts, one array long") << Cuts{100000, 200000} << 2 << 100001 << 200000;
    QTest::addRow("a part between two cuts, of an array and a bit")
        << Cuts{40000, 160000} << 2 << 40001 << 160000;
    QTest::addRow("the last part, shorter than an array") << Cuts{240000} << 2 << 240001 << length;
    QTest::addRow("a part shorter than what the server holds")
        << Cuts{100000, 100400} << 2 << 100001 << 100400;
}

void tst_journey_play::aPartIsHeardToItsVeryLastSample()
{
    QFETCH(const std::vector<std::int32_t>, cuts);
    QFETCH(const int, row);
    QFETCH(const std::int32_t, first);
    QFETCH(const std::int32_t, last);
    for (const std::int32_t cut : cuts) listening_->journey.cutAt(cut);
    listening_->journey.selectRow(row);
    QTest::mouseClick(&listening_->form().Image9, Qt::LeftButton);
    QVERIFY(listening_->ends());
    QVERIFY(listening_->heardUpTo(last) == frameRange(first, last));
}

void tst_journey_play::afterTheEndOfAPartTheLineIsAtTheStartAndThePartStaysSelected()
{
    CutterSelect& form = listening_->form();
    listening_->journey.cutAt(240000);
    listening_->journey.selectRow(2);
    pressButton(form.Toolbar1, 14);
    QVERIFY(form.IsPlaying);
    QVERIFY(listening_->ends());
    QCOMPARE(form.Line2.X1(), 0.0f);
    QCOMPARE(form.Label2.text(), QStringLiteral("00:00.00"));
    QVERIFY(form.HasSelectedPart && !form.Picture2.isHidden());
    QCOMPARE(form.SelectedPart, lastPart);
}

void tst_journey_play::aClickOnTheWaveGoesOnFromThatSample()
{
    pressButton(listening_->form().Toolbar1, 10);
    QVERIFY(listening_->playsPast(20000));
    listening_->clickWave(600);
    QVERIFY(listening_->ends());
    const FrameNumbers heard = listening_->heardUpTo(length);
    const FrameNumbers old = before(heard, 240001);
    QVERIFY(old.size() > 20000);
    QVERIFY(heard == firstFrames(old.size()) + frameRange(240001, length));
}

void tst_journey_play::aClickWhileAPartPlaysPlaysTheRestOfItsLengthFromThere()
{
    listening_->journey.cutAt(250000);
    listening_->journey.selectRow(1);
    QTest::mouseClick(&listening_->form().Image9, Qt::LeftButton);
    QVERIFY(listening_->playsPast(5000));
    QCOMPARE(listening_->form().PlayFed, 200000);
    listening_->clickWave(375);
    QVERIFY(listening_->ends());
    const FrameNumbers heard = listening_->heardUpTo(200000);
    const FrameNumbers old = before(heard, 150001);
    QVERIFY(heard == firstFrames(old.size()) + frameRange(150001, 200000));
}

void tst_journey_play::playOnAPartStopsTheFileFirst()
{
    listening_->journey.cutAt(240000);
    listening_->clickWave(0);
    pressButton(listening_->form().Toolbar1, 10);
    QVERIFY(listening_->playsPast(5000));
    listening_->journey.selectRow(2);
    QTest::mouseClick(&listening_->form().Image9, Qt::LeftButton);
    QVERIFY(listening_->ends());
    const FrameNumbers heard = listening_->heardUpTo(length);
    QVERIFY(heard == firstFrames(before(heard, 240001).size()) + frameRange(240001, length));
}

void tst_journey_play::pauseKeepsTheLineAndPlayGoesOnFromIt()
{
    CutterSelect& form = listening_->form();
    pressButton(form.Toolbar1, 10);
    QVERIFY(listening_->playsPast(200000));
    pressButton(form.Toolbar1, 11);
    const std::int32_t paused = listening_->lineSample();
    QVERIFY(!form.IsPlaying && paused > 200000);
    const FrameNumbers old = listening_->heardUpTo(200000);
    QVERIFY(old == firstFrames(old.size()));

    QCOMPARE(listening_->lineSample(), paused);
    pressButton(form.Toolbar1, 10);
    QVERIFY(listening_->ends());
    QVERIFY(listening_->heardUpTo(length) == old + frameRange(paused + 1, length));
}

void tst_journey_play::stopEndsTheSoundAndGoesToTheStart()
{
    CutterSelect& form = listening_->form();
    pressButton(form.Toolbar1, 10);
    QVERIFY(listening_->playsPast(20000));
    QTest::mouseClick(&form.Image10, Qt::LeftButton);
    QVERIFY(!form.IsPlaying && !form.PlayFeeding);
    QCOMPARE(form.Line2.X1(), 0.0f);
    QCOMPARE(form.IndicTime.Left(), -form.IndicTime.Width() / 2);
    QCOMPARE(form.Label2.text(), QStringLiteral("00:00.00"));
    const FrameNumbers heard = listening_->heardUpTo(20000);
    QVERIFY(heard == firstFrames(heard.size()));
    QVERIFY(heard.size() < length - 44100);
}

void tst_journey_play::forwardJumpsASecondFromTheLine()
{
    CutterSelect& form = listening_->form();
    pressButton(form.Toolbar1, 10);
    QVERIFY(listening_->playsPast(150000));
    const std::int32_t from = listening_->lineSample();
    form.Fwd1Sec.trigger();
    const std::int32_t to = form.PlayPosition;
    QVERIFY2(std::abs(to - from - 44100) <= 1, qPrintable(QString::number(to - from)));
    QVERIFY(listening_->ends());
    const FrameNumbers heard = listening_->heardUpTo(length);
    QVERIFY(heard == firstFrames(before(heard, to + 1).size()) + frameRange(to + 1, length));
}

void tst_journey_play::backJumpsASecondFromTheLine()
{
    CutterSelect& form = listening_->form();
    listening_->clickWave(500);
    pressButton(form.Toolbar1, 10);
    QVERIFY(listening_->playsPast(230000));
    const std::int32_t from = listening_->lineSample();
    form.Rew1Sec.trigger();
    const std::int32_t to = form.PlayPosition;
    QVERIFY2(std::abs(from - to - 44100) <= 1, qPrintable(QString::number(from - to)));
    QVERIFY(listening_->ends());
    const FrameNumbers heard = listening_->heardUpTo(length);
    const auto old = static_cast<std::int32_t>(heard.size()) - (length - to);
    QVERIFY(old > 0);
    QVERIFY(heard == frameRange(200001, 200000 + old) + frameRange(to + 1, length));
}

void tst_journey_play::backNearTheStartGoesOnFromTheSecondSample()
{
    CutterSelect& form = listening_->form();
    pressButton(form.Toolbar1, 10);
    QVERIFY(listening_->playsPast(5000));
    QVERIFY(listening_->lineSample() < 44100);
    form.Rew1Sec.trigger();
    QCOMPARE(form.PlayPosition, 1);
    QVERIFY(listening_->ends());
    const FrameNumbers heard = listening_->heardUpTo(length);
    QVERIFY(heard.size() > 2);
    const auto restart = std::find(heard.begin() + 2, heard.end(), 2);
    QVERIFY(heard == firstFrames(static_cast<std::size_t>(restart - heard.begin())) + frameRange(2, length));
}

void tst_journey_play::forwardNearTheEndIsTheEnd()
{
    CutterSelect& form = listening_->form();
    listening_->clickWave(610);
    pressButton(form.Toolbar1, 10);
    QVERIFY(listening_->playsPast(245000));
    form.Fwd1Sec.trigger();
    QCOMPARE(form.PlayPosition, length);
    QVERIFY(listening_->ends());
    QCOMPARE(form.Line2.X1(), 0.0f);
    QCOMPARE(form.Label2.text(), QStringLiteral("00:00.00"));
}

void tst_journey_play::draggingThePositionHandleMovesTheSound()
{
    CutterSelect& form = listening_->form();
    pressButton(form.Toolbar1, 10);
    QVERIFY(listening_->playsPast(5000));
    const double line = form.Line2.X1() / twipsPerPixel;
    pressAt(form.Picture1, {line, 8});
    QVERIFY(form.TimeDrag);
    moveTo(form.Picture1, {600, 8});
    const std::int32_t to = form.PlayPosition;
    QVERIFY(std::abs(to - 240000) <= 400);
    QCOMPARE(listening_->lineSample(), to);
    releaseAt(form.Picture1, {600, 8});
    QVERIFY(!form.TimeDrag);
    QVERIFY(listening_->ends());
    const FrameNumbers heard = listening_->heardUpTo(length);
    QVERIFY(heard == firstFrames(before(heard, to + 1).size()) + frameRange(to + 1, length));
}

void tst_journey_play::theKnobAtItsLeftEndIsSilenceAndAtItsRightEndFullVolume()
{
    CutterSelect& form = listening_->form();
    pressButton(form.Toolbar1, 10);
    QVERIFY(listening_->playsPast(20000));
    dragKnob(form, -50);
    QCOMPARE(form.AudioPlayer->GetVolume(), 0);
    QVERIFY(listening_->playsPast(150000));
    dragKnob(form, 500);
    QCOMPARE(form.AudioPlayer->GetVolume(), 65535);
    QVERIFY(listening_->ends());
    const FrameNumbers heard = listening_->heardUpTo(length);
    const auto gap =
        std::adjacent_find(heard.begin(), heard.end(), [](auto a, auto b) { return b != a + 1; });
    QVERIFY(gap != heard.end() && *gap < 100000 && gap[1] > 150000);
    QVERIFY(heard == frameRange(1, *gap) + frameRange(gap[1], length));
}

void tst_journey_play::muteIsSilenceUntilItIsPressedAgain()
{
    CutterSelect& form = listening_->form();
    dragKnob(form, 500);
    pressButton(form.Toolbar1, 10);
    QVERIFY(listening_->playsPast(20000));
    QTest::mouseClick(&form.Image15, Qt::LeftButton);
    QVERIFY(listening_->playsPast(150000));
    QTest::mouseClick(&form.Image15, Qt::LeftButton);
    QVERIFY(listening_->ends());
    const FrameNumbers heard = listening_->heardUpTo(length);
    const auto gap =
        std::adjacent_find(heard.begin(), heard.end(), [](auto a, auto b) { return b != a + 1; });
    QVERIFY(gap != heard.end() && *gap < 100000 && gap[1] > 150000);
    QVERIFY(heard == frameRange(1, *gap) + frameRange(gap[1], length));
}

QTEST_MAIN(tst_journey_play)
#include "tst_journey_play.moc"
