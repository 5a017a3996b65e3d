// An hour's work in a minute: cuts by the scissors, a drag, fine steps, a title, zoom and scroll; then the
// part is played to its end and saved, and what was saved is what was heard.
#include "journeys/Listening.h"

#include <QDialog>
#include <QLineEdit>

namespace {

constexpr std::int32_t length = 400017;
constexpr int row = 3;    // the part that is worked on, between the second cut and the third

void cutWithTheScissors(Listening& listening)
{
    QTest::mouseClick(&listening.form().Image13, Qt::LeftButton);
    for (const int px : {500, 120, 310}) listening.clickWave(px);
}

// From the handle of the cut at `cut` to this many pixels later.
void dragHandle(CutterSelect& form, std::int32_t cut, double px)
{
    for (int i = 1; i <= form.Bop.UBound(); ++i) {
        if (form.Bop(i).Tag.toInt() != cut) continue;
        const QPointF at((form.Bop(i).Left() + form.Bop(i).Width() / 2) / twipsPerPixel,
                         (form.Bop(i).Top() + form.Bop(i).Height() / 2) / twipsPerPixel);
        pressAt(form.Picture1, at);
        for (int step = 1; step <= 10; ++step) moveTo(form.Picture1, at + QPointF(px * step / 10, 0));
        releaseAt(form.Picture1, at + QPointF(px, 0));
        return;
    }
    QFAIL("no handle has this cut");
}

void click(QToolButton& arrow)
{
    QTest::mouseClick(&arrow, Qt::LeftButton);
}

}

class tst_journey_work : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { listening_.reset(); }

    // One journey, in this order.
    void threeCutsWithTheScissorsAreSortedInTheTable();
    void aDraggedHandleTakesItsCutAlong();
    void theStartMovesByTheSmallAndTheLargeStep();
    void theTitleStandsInTheList();
    void fourZoomsWidenTheWaveAndKeepTheCuts();
    void scrollingShowsTheEnd();
    void thePartIsHeardToItsLastSample();
    void whatIsSavedIsWhatWasHeard();

private:
    CutterSelect& form() { return listening_->form(); }

    std::unique_ptr<Listening> listening_;
    FrameNumbers heard_;
};

void tst_journey_work::initTestCase()
{
    listening_ = std::make_unique<Listening>();
    QVERIFY(listening_->listen());
    listening_->openSong(length);
}

void tst_journey_work::threeCutsWithTheScissorsAreSortedInTheTable()
{
    cutWithTheScissors(*listening_);
    QCOMPARE(CutCount, 3);
    const double samplesPerPixel = 15.0 * length / form().Picture1.Width();
    for (const auto& [cut, px] : {std::pair(1, 120), std::pair(2, 310), std::pair(3, 500)})
        QCOMPARE(CutPoints.at(static_cast<std::size_t>(cut)), qRound(px * samplesPerPixel));
    QCOMPARE(form().ListView1.rowCount(), 4);
}

void tst_journey_work::aDraggedHandleTakesItsCutAlong()
{
    QTest::mouseClick(&form().Image20, Qt::LeftButton);
    const std::int32_t old = CutPoints[2];
    dragHandle(form(), old, -40);
    const double moved = (old - CutPoints[2]) / (static_cast<double>(length) / form().Picture1.Width());
    QVERIFY2(std::abs(moved - 40 * 15) <= 60,
             qPrintable(QString::number(moved)));    // the handle's own offsets
    QCOMPARE(form().ListView1.cell(row, PartsListView::SampleStart), QString::number(CutPoints[2]));
    QVERIFY(form().PicInfos.isHidden());
}

void tst_journey_work::theStartMovesByTheSmallAndTheLargeStep()
{
    const std::int32_t old = CutPoints[2];
    listening_->journey.selectRow(row);
    click(form().UpDown1.up);
    QCOMPARE(CutPoints[2], old + 441);
    click(form().UpDown3.down);
    QCOMPARE(CutPoints[2], old + 441 - 4410);
    const std::int32_t end = CutPoints[3];
    click(form().UpDown2.down);
    QCOMPARE(CutPoints[3], end - 441);
}

void tst_journey_work::theTitleStandsInTheList()
{
    listening_->journey.title(row, QStringLiteral("Chorus"));
    QCOMPARE(form().ListView1.cell(row, PartsListView::Title), QStringLiteral("Chorus"));
}

void tst_journey_work::fourZoomsWidenTheWaveAndKeepTheCuts()
{
    const auto cuts = CutPoints;
    const Twips width = form().Picture1.Width();
    for (int level = 1; level <= 4; ++level) pressButton(form().Toolbar1, 4);
    QCOMPARE(form().ZoomLevel, 4);
    QCOMPARE(form().Picture1.Width(), width + 4 * 30000);
    QVERIFY(CutPoints == cuts);
}

void tst_journey_work::scrollingShowsTheEnd()
{
    form().MonScroll.setFocus();
    QTest::keyClick(&form().MonScroll, Qt::Key_End);
    QCOMPARE(form().MonScroll.value(), form().MonScroll.maximum());
    const Twips hidden = form().Picture1.Width() - form().Picture4.Width();
    QVERIFY(std::abs(form().Picture1.Left() + hidden) <= 300);
}

void tst_journey_work::thePartIsHeardToItsLastSample()
{
    listening_->journey.selectRow(row);
    QTest::mouseClick(&form().Image9, Qt::LeftButton);
    QVERIFY(listening_->ends());
    heard_ = listening_->heardUpTo(CutPoints[3]);
    QVERIFY(heard_ == frameRange(CutPoints[2] + 1, CutPoints[3]));
}

void tst_journey_work::whatIsSavedIsWhatWasHeard()
{
    const QString target = listening_->journey.path(QStringLiteral("saved.wav"));
    QString proposed;
    listening_->journey.dialogs.expect([&](QDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        proposed = name->text();
        name->setText(target);
        QMetaObject::invokeMethod(&dialog, "accept", Qt::QueuedConnection);
        return true;
    });
    form().SavePartWav.trigger();
    QVERIFY2(proposed.startsWith(QLatin1String("Chorus.")), qPrintable(proposed));
    QVERIFY(frameNumbers(readWav(target)) == heard_);
}

QTEST_MAIN(tst_journey_work)
#include "tst_journey_work.moc"
