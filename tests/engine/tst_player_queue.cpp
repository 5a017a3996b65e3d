// The queue between the program and the sound server: order, volume, what is told of the sound heard last.
#include "engine/PlayQueue.h"

#include <QTest>

class tst_player_queue : public QObject {
    Q_OBJECT

private slots:
    void pullsGoAcrossTheBordersOfArrays();
    void anEmptyQueueGivesNothing();
    void anArrayWithoutAWholeFrameIsIgnored();
    void halfAFrameAtTheEndIsDropped();
    void everyArrayIsToldUsedUpOnce();
    void theVolumeScalesEverySample_data();
    void theVolumeScalesEverySample();
    void aVolumeOutOfRangeIsBroughtIntoIt();
    void muteIsSilenceAndKeepsTheVolume();
    void theScopeShowsWhatWasHeardAndNotWhatWasPulledAhead();
    void theScopeShowsLessAtTheBeginning();
    void theScopeReachesBack22050FramesBehindASecondPulledAhead();
    void clearingEmptiesTheScope();
    void theLevelsAreThePeaksOfBothChannels();
    void theLevelsForgetWhatIsOlderThan50Ms();
    void aMonoStreamHasTheSameLevelTwice();

private:
    static SampleArray pull(PlayQueue& queue, std::size_t frames, std::size_t channels = 2);
};

SampleArray tst_player_queue::pull(PlayQueue& queue, std::size_t frames, std::size_t channels)
{
    SampleArray to(frames * channels);
    to.resize(queue.pull(to.data(), frames) * channels);
    return to;
}

void tst_player_queue::pullsGoAcrossTheBordersOfArrays()
{
    PlayQueue queue;
    queue.open({44100, 2});
    queue.add({1, 2, 3, 4});
    queue.add({5, 6, 7, 8});
    QCOMPARE(pull(queue, 3), (SampleArray{1, 2, 3, 4, 5, 6}));
    QCOMPARE(pull(queue, 3), (SampleArray{7, 8}));
}

void tst_player_queue::anEmptyQueueGivesNothing()
{
    PlayQueue queue;
    queue.open({44100, 2});
    QCOMPARE(pull(queue, 3), SampleArray());
}

void tst_player_queue::anArrayWithoutAWholeFrameIsIgnored()
{
    PlayQueue queue;
    queue.open({44100, 2});
    queue.add({});
    queue.add({1});
    QCOMPARE(queue.arrays(), std::size_t{0});
}

void tst_player_queue::halfAFrameAtTheEndIsDropped()
{
    PlayQueue queue;
    queue.open({44100, 2});
    queue.add({1, 2, 3});
    queue.add({4, 5});
    QCOMPARE(pull(queue, 9), (SampleArray{1, 2, 4, 5}));
}

void tst_player_queue::everyArrayIsToldUsedUpOnce()
{
    PlayQueue queue;
    queue.open({44100, 2});
    queue.add({1, 2});
    queue.add({3, 4});
    queue.add({5, 6, 7, 8});
    pull(queue, 3);
    QVERIFY(queue.takeUsedUp() && queue.takeUsedUp());
    QVERIFY(!queue.takeUsedUp());
}

void tst_player_queue::theVolumeScalesEverySample_data()
{
    QTest::addColumn<int>("volume");
    QTest::addColumn<int>("sample");
    QTest::addColumn<int>("heard");
    QTest::addRow("full volume leaves the highest sample") << 65535 << 32767 << 32767;
    QTest::addRow("full volume leaves the lowest sample") << 65535 << -32768 << -32768;
    QTest::addRow("full volume leaves the smallest sample") << 65535 << -1 << -1;
    QTest::addRow("one below full volume takes one off") << 65534 << 32767 << 32766;
    QTest::addRow("about half") << 32768 << 20000 << 10000;
    QTest::addRow("nothing is heard at 0") << 0 << -32768 << 0;
}

void tst_player_queue::theVolumeScalesEverySample()
{
    QFETCH(int, volume);
    QFETCH(int, sample);
    QFETCH(int, heard);
    PlayQueue queue;
    queue.setVolume(volume);
    queue.open({44100, 1});
    queue.add({static_cast<std::int16_t>(sample)});
    QCOMPARE(pull(queue, 1, 1), SampleArray{static_cast<std::int16_t>(heard)});
}

void tst_player_queue::aVolumeOutOfRangeIsBroughtIntoIt()
{
    PlayQueue queue;
    queue.setVolume(70000);
    QCOMPARE(queue.volume(), 65535);
    queue.setVolume(-1);
    QCOMPARE(queue.volume(), 0);
}

void tst_player_queue::muteIsSilenceAndKeepsTheVolume()
{
    PlayQueue queue;
    queue.open({44100, 1});
    queue.add({100, 200});
    queue.setMute(true);
    QCOMPARE(pull(queue, 1, 1), SampleArray{0});
    queue.setMute(false);
    QCOMPARE(pull(queue, 1, 1), SampleArray{200});
    QCOMPARE(queue.volume(), 65535);
}

void tst_player_queue::theScopeShowsWhatWasHeardAndNotWhatWasPulledAhead()
{
    PlayQueue queue;
    queue.open({44100, 2});
    queue.add({1, 2, 3, 4, 5, 6, 7, 8});
    pull(queue, 4);
    QCOMPARE(queue.latest(2, 3), (SampleArray{3, 4, 5, 6}));
}

void tst_player_queue::theScopeShowsLessAtTheBeginning()
{
    PlayQueue queue;
    queue.open({44100, 2});
    queue.add({1, 2, 3, 4});
    pull(queue, 2);
    QCOMPARE(queue.latest(22050, 1), (SampleArray{1, 2}));
}

void tst_player_queue::theScopeReachesBack22050FramesBehindASecondPulledAhead()
{
    PlayQueue queue;
    queue.open({8000, 1});
    SampleArray steps(100000);
    for (std::size_t k = 0; k < steps.size(); ++k) steps[k] = static_cast<std::int16_t>(k % 30000);
    queue.add(steps);
    pull(queue, 90000, 1);
    QCOMPARE(queue.latest(22050, 82000), SampleArray(steps.begin() + 82000 - 22050, steps.begin() + 82000));
}

void tst_player_queue::clearingEmptiesTheScope()
{
    PlayQueue queue;
    queue.open({44100, 2});
    queue.add({1, 2, 3, 4});
    pull(queue, 2);
    queue.clear();
    QCOMPARE(queue.latest(22050, 2), SampleArray());
}

void tst_player_queue::theLevelsAreThePeaksOfBothChannels()
{
    PlayQueue queue;
    queue.open({44100, 2});
    queue.add({100, -32768, -300, 5, 999, 999});
    pull(queue, 3);
    const PlayQueue::Levels levels = queue.levels(2);
    QCOMPARE(levels.left, 300);
    QCOMPARE(levels.right, 32768);
}

void tst_player_queue::theLevelsForgetWhatIsOlderThan50Ms()
{
    PlayQueue queue;
    queue.open({8000, 1});
    SampleArray clickThenSilence(401, 0);
    clickThenSilence[0] = 5000;
    queue.add(clickThenSilence);
    pull(queue, 401, 1);
    QCOMPARE(queue.levels(400).left, 5000);
    QCOMPARE(queue.levels(401).left, 0);
}

void tst_player_queue::aMonoStreamHasTheSameLevelTwice()
{
    PlayQueue queue;
    queue.open({44100, 1});
    queue.add({7, -9});
    pull(queue, 2, 1);
    QCOMPARE(queue.levels(2).left, 9);
    QCOMPARE(queue.levels(2).right, 9);
}

QTEST_GUILESS_MAIN(tst_player_queue)
#include "tst_player_queue.moc"
