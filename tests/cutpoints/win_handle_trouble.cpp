// Drags that go out of the ordinary: a second button, a release that never comes, a cut at an end of the
// file.
#include "cutpoints/Cutting.h"

namespace {

void pullTo(CutterSelect& form, double x)
{
    moveTo(form.Picture1, x, inWave, Qt::LeftButton);
}

// The right button goes down or up while the left one is held.
void secondButton(CutterSelect& form, bool isDown, double x)
{
    mouse(form.Picture1, isDown ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, x, inWave,
          Qt::RightButton, isDown ? Qt::LeftButton | Qt::RightButton : Qt::MouseButtons(Qt::LeftButton));
}

}

class win_handle_trouble : public QObject {
    Q_OBJECT
private slots:
    void anotherButtonDoesNotDisturbADrag();
    void aDoubleClickOfAnotherButtonDoesNotDisturbADrag();
    void anotherButtonDoesNotDisturbAPullOfTheVolume();
    void aDragWhoseReleaseWasLostEndsWithTheNextMove();
    void aCutAtTheStartOfTheFileIsDraggedAwayFromIt();
    void aCutCloseBehindItsLimitLandsOutsideTheFile_data();
    void aCutCloseBehindItsLimitLandsOutsideTheFile();
    void aPressOnTheLastPixelIsNoFurtherThanTheEnd();
};

void win_handle_trouble::anotherButtonDoesNotDisturbADrag()
{
    Cutting cutting({300000, 900000});
    auto& form = cutting.form;
    form.Line2.setX(100);
    pressHandle(form, 1);
    pullTo(form, 4000);
    secondButton(form, true, 4500);
    secondButton(form, false, 4500);
    QCOMPARE(form.Line2.X1(), 100.f);    // no press on the wave
    QVERIFY(form.BopDrag && !form.PicInfos.isHidden());
    pullTo(form, 5000);
    releaseAt(form.Picture1, 5000, inWave);
    QVERIFY(!form.BopDrag && form.PicInfos.isHidden());
    QCOMPARE(cutting.cuts(), (Samples{503000, 900000}));
    QCOMPARE(form.ListView1.cell(2, PartsListView::SampleStart), QString("503000"));
}

void win_handle_trouble::aDoubleClickOfAnotherButtonDoesNotDisturbADrag()
{
    Cutting cutting({300000, 900000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    pressHandle(form, 1);
    pullTo(form, 4000);
    form.HasSelectedPart = form.ClickedPart = true;
    secondButton(form, true, 4500);
    secondButton(form, false, 4500);
    mouse(form.Picture1, QEvent::MouseButtonDblClick, 4500, inWave, Qt::RightButton,
          Qt::LeftButton | Qt::RightButton);
    QVERIFY(journal().commandsOf("AudioPlayer").isEmpty() && form.BopDrag);
}

void win_handle_trouble::anotherButtonDoesNotDisturbAPullOfTheVolume()
{
    Cutting cutting;
    auto& form = cutting.form;
    const double x = form.Image14.Left() + 100;
    pressAt(form.Picture5, x, 150);
    mouse(form.Picture5, QEvent::MouseButtonPress, 20, 150, Qt::RightButton,
          Qt::LeftButton | Qt::RightButton);
    mouse(form.Picture5, QEvent::MouseButtonRelease, 20, 150, Qt::RightButton, Qt::LeftButton);
    QVERIFY(form.VolumeDrag);
    releaseAt(form.Picture5, x, 150);
    QVERIFY(!form.VolumeDrag);
    QCOMPARE(journal().commandsOf("AudioPlayer.SetVolume").size(), 1);
}

// A dialog that came up in the middle of the drag took it.
void win_handle_trouble::aDragWhoseReleaseWasLostEndsWithTheNextMove()
{
    Cutting cutting({300000, 900000});
    auto& form = cutting.form;
    pressHandle(form, 1);
    pullTo(form, 4000);
    moveTo(form.Picture1, 6000, inWave);    // no button is down
    QVERIFY(!form.BopDrag && form.PicInfos.isHidden());
    QCOMPARE(cutting.cuts(), (Samples{403000, 900000}));
    moveTo(form.Picture1, 7000, inWave);
    QCOMPARE(cutting.cuts(), (Samples{403000, 900000}));
}

// Such a cut comes from a drag to the very start of a file that is narrower than its limits.
void win_handle_trouble::aCutAtTheStartOfTheFileIsDraggedAwayFromIt()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.title(1, "first");
    cutting.title(2, "second");
    CutPoints.at(1) = 0;
    PartTable.at(1).StartSample = 0;
    form.DrawRulerAndMarkers();
    pressHandle(form, 1);
    pullTo(form, 4000);
    releaseAt(form.Picture1, 4000, inWave);
    QCOMPARE(CutPoints.at(0), 0);
    QCOMPARE(cutting.cuts(), Samples{403000});
    QCOMPARE(PartTable.at(0), (PartRecord{"first", 0}));
    QCOMPARE(PartTable.at(1), (PartRecord{"second", 403000}));
}

void win_handle_trouble::aCutCloseBehindItsLimitLandsOutsideTheFile_data()
{
    QTest::addColumn<std::int32_t>("first");
    QTest::addColumn<std::int32_t>("second");
    QTest::addColumn<int>("handle");
    QTest::addColumn<int>("pulledBy");
    QTest::addColumn<std::int32_t>("lands");
    QTest::addRow("before the start") << 4400 << 8800 << 1 << 300 << -13200;
    QTest::addRow("behind the end") << songLength - 13200 << songLength - 4400 << 2 << -300
                                    << songLength + 8800;
}

// Kept: the limits of a cut whose neighbour is nearer than half a second lie on the wrong sides of each
// other.
void win_handle_trouble::aCutCloseBehindItsLimitLandsOutsideTheFile()
{
    QFETCH(std::int32_t, first);
    QFETCH(std::int32_t, second);
    QFETCH(int, handle);
    QFETCH(int, pulledBy);
    Cutting cutting({first, second});
    auto& form = cutting.form;
    pressHandle(form, handle);
    pullTo(form, form.Bop(handle).Left() + pulledBy);
    releaseAt(form.Picture1, 1000, inWave);
    QTEST(form.Bop(handle).Tag.toInt(), "lands");
    QVERIFY(form.isEnabled() && cutting.fixture.fatals.isEmpty());
}

void win_handle_trouble::aPressOnTheLastPixelIsNoFurtherThanTheEnd()
{
    Cutting cutting;
    auto& form = cutting.form;
    QVERIFY(form.Picture1.width() * twipsPerPixel > form.Picture1.Width());
    clickAt(form.Picture1, form.Picture1.width() * twipsPerPixel - 1, inWave);
    QCOMPARE(form.Line2.X1(), form.Picture1.Width());
}

QTEST_MAIN(win_handle_trouble)
#include "win_handle_trouble.moc"
