// The rules of playback: the next array of a part, and where the dragged position handle goes.
#include "playback/FeedPlan.h"
#include "playback/StepPlan.h"

#include <QTest>

#include <limits>

class tst_playback_rules : public QObject {
    Q_OBJECT

private slots:
    void nextArrays_data();
    void nextArrays();
    void theArraysOfAPartAddUpToItsLength_data();
    void theArraysOfAPartAddUpToItsLength();
    void draggedHandles_data();
    void draggedHandles();
};

void tst_playback_rules::nextArrays_data()
{
    QTest::addColumn<int>("fed");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("expected");
    QTest::addRow("a long part begins with a whole array") << 0 << 250000 << 100000;
    QTest::addRow("a whole array that just fits") << 150000 << 250000 << 100000;
    QTest::addRow("what is left") << 200000 << 250000 << 50000;
    QTest::addRow("one sample too few for a whole array") << 1 << 100000 << 99999;
    QTest::addRow("a short part is one array") << 0 << 99999 << 99999;
    QTest::addRow("nothing once all is fed") << 250000 << 250000 << 0;
    QTest::addRow("a part at the end of the numbers")
        << 2147480000 << std::numeric_limits<int>::max() << 3647;
}

void tst_playback_rules::nextArrays()
{
    QFETCH(int, fed);
    QFETCH(int, length);
    QTEST(nextBlock(fed, length), "expected");
}

void tst_playback_rules::theArraysOfAPartAddUpToItsLength_data()
{
    QTest::addColumn<int>("length");
    for (const int length : {1, 99999, 100000, 100001, 200000, 1234567})
        QTest::addRow("%d samples", length) << length;
}

void tst_playback_rules::theArraysOfAPartAddUpToItsLength()
{
    QFETCH(int, length);
    int fed = 0;
    for (int i = 0; i <= length / partBlock + 1; ++i) fed += nextBlock(fed, length);
    QCOMPARE(fed, length);
}

void tst_playback_rules::draggedHandles_data()
{
    QTest::addColumn<float>("x");
    QTest::addColumn<int>("pressed");
    QTest::addColumn<float>("left");
    QTest::addColumn<float>("expected");
    QTest::addRow("to the right by the way of the pointer") << 160.0f << 100 << 500.0f << 560.0f;
    QTest::addRow("to the left by the pointer's place on the handle") << 40.0f << 100 << 500.0f << 540.0f;
    QTest::addRow("to the left of the handle") << -60.0f << 100 << 500.0f << 440.0f;
    QTest::addRow("not at all where it was pressed") << 100.0f << 100 << 500.0f << 500.0f;
    QTest::addRow("to the right until its centre is on the edge") << 100.0f << 0 << 9780.0f << 9880.0f;
    QTest::addRow("no further to the right") << 101.0f << 0 << 9780.0f << 9880.0f;
    QTest::addRow("to the left until its centre is on the edge") << -120.0f << 0 << 0.0f << -120.0f;
    QTest::addRow("no further to the left") << -500.0f << 0 << 0.0f << -120.0f;
}

void tst_playback_rules::draggedHandles()
{
    QFETCH(float, x);
    QFETCH(int, pressed);
    QFETCH(float, left);
    QTEST(draggedLeft(x, pressed, left, 240, 10000), "expected");
}

QTEST_GUILESS_MAIN(tst_playback_rules)
#include "tst_playback_rules.moc"
