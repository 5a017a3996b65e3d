// The bar with its separators and numbers, the markers of the cuts, the place of the selection. Runs at
// several scales of the screen.
#include "support/FormFixture.h"
#include "waveform/SurfacePixels.h"

#include <QTest>

namespace {

const QColor black(Qt::black);

// The bar right of a place, before and after the numbers are printed.
bool isNumberPrinted(CutterSelect& form, Twips from, Twips to)
{
    const int x = static_cast<int>(from / 15) + 1;
    const int w = std::max(1, static_cast<int>(to / 15) - x - 3);
    form.DrawRulerAndMarkers();
    const QImage without = part(form.Picture1, x, barTop, w, 18);
    form.DrawTrackBar();
    return part(form.Picture1, x, barTop, w, 18) != without;
}

}

class win_bar : public QObject {
    Q_OBJECT

private slots:
    void resettingTheCentreLinesHidesTheSelection();
    void theBarIsMadeOfItsStamps();
    void aSeparatorStandsThreePixelsLeftOfItsCut_data();
    void aSeparatorStandsThreePixelsLeftOfItsCut();
    void aSeparatorIsAsHighAsTheBar();
    void withoutCutsTheBarHasNoNumber();
    void aPartIsNumberedWhereThereIsRoom_data();
    void aPartIsNumberedWhereThereIsRoom();
    void markersStandOnTheirCuts();
    void markersAreMadeAnewAtEachRedraw();
    void theSelectionLiesOverItsPart_data();
    void theSelectionLiesOverItsPart();
    void theSelectionCopiesThePositionLine();
    void theWholeFileCanBeTheSelectedPart();
};

void win_bar::resettingTheCentreLinesHidesTheSelection()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength), {5000});
    fixture.pressBarOfRow(2);
    form.IsPlaying = true;
    form.TrackStep = 0;
    form.ResetCenterLines();
    QVERIFY(form.Picture2.isHidden() && !form.IsPlaying);
    QCOMPARE(form.TrackStep, 10);
}

void win_bar::theBarIsMadeOfItsStamps()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength));
    form.DrawRulerAndMarkers();
    QVERIFY(part(form.Picture1, 0, barTop, 2, 18) == part(form.Track1, 0, 0, 2, 18));
    for (int x = 2; x < 662; x += 44)
        QVERIFY(part(form.Picture1, x, barTop, 44, 18) == part(form.Track2, 0, 0, 44, 18));
    QVERIFY(part(form.Picture1, 662, barTop, 29, 18) == part(form.Track2, 0, 0, 29, 18));
    QVERIFY(part(form.Picture1, 691, barTop, 2, 18) == part(form.Track3, 0, 0, 2, 18));
    QCOMPARE(pixel(form.Picture1, 300, barTop - 1), black);
    QCOMPARE(pixel(form.Picture1, 300, barBottom + 1), black);
}

void win_bar::aSeparatorStandsThreePixelsLeftOfItsCut_data()
{
    QTest::addColumn<int>("cut");
    QTest::addColumn<int>("leftPx");
    QTest::addRow("a whole pixel") << 1500 << 97;
    QTest::addRow("rounded up") << 1510 << 98;
    QTest::addRow("rounded down") << 1505 << 97;
    QTest::addRow("near the end") << 10200 << 677;
}

void win_bar::aSeparatorStandsThreePixelsLeftOfItsCut()
{
    QFETCH(int, cut);
    QFETCH(int, leftPx);
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength), {cut});
    form.DrawRulerAndMarkers();    // without the numbers, whose first digit can touch the separator
    QVERIFY(part(form.Picture1, leftPx, barTop, 5, 18) == part(form.TrackSep, 0, 0, 5, 18));
    QVERIFY(pixel(form.Picture1, leftPx - 1, barTop + 9) == pixel(form.Track2, 20, 9));
}

void win_bar::aSeparatorIsAsHighAsTheBar()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength), {1500});
    QCOMPARE(pixel(form.Picture1, 99, barTop - 1), pixel(form.Picture1, 120, barTop - 1));
    QCOMPARE(pixel(form.Picture1, 99, barBottom), pixel(form.TrackSep, 2, 17));
    QCOMPARE(pixel(form.Picture1, 99, barBottom + 1), pixel(form.Picture1, 120, barBottom + 1));
}

void win_bar::withoutCutsTheBarHasNoNumber()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength));
    QVERIFY(!isNumberPrinted(form, 50, 10000));
    QCOMPARE(form.ListView1.rowCount(), 0);
}

void win_bar::aPartIsNumberedWhereThereIsRoom_data()
{
    QTest::addColumn<QList<int>>("cuts");
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("isNumbered");
    QTest::addRow("a wide first part") << QList<int>{2000} << 1 << true;
    QTest::addRow("a first part that ends at 206") << QList<int>{206, 5000} << 1 << true;
    QTest::addRow("a first part that ends at 205 has none") << QList<int>{205, 5000} << 1 << false;
    QTest::addRow("a part of 231 between") << QList<int>{1000, 1231} << 2 << true;
    QTest::addRow("a part of 230 between has none") << QList<int>{1000, 1230} << 2 << false;
    QTest::addRow("a last part of 256") << QList<int>{10164} << 2 << true;
    QTest::addRow("a last part of 255 has none") << QList<int>{10165} << 2 << false;
    QTest::addRow("the last of three") << QList<int>{1000, 5000} << 3 << true;
}

void win_bar::aPartIsNumberedWhereThereIsRoom()
{
    QFETCH(QList<int>, cuts);
    QFETCH(int, row);
    QFETCH(bool, isNumbered);
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength));
    for (const int cut : cuts) fixture.cutAt(cut);
    const Twips from = row == 1 ? 50 : static_cast<Twips>(cuts.at(row - 2) + 25);
    const Twips to = row <= cuts.size() ? static_cast<Twips>(cuts.at(row - 1)) : 10350.0f;
    QCOMPARE(isNumberPrinted(form, from, to), isNumbered);
}

void win_bar::markersStandOnTheirCuts()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength), {1000, 5000});
    QCOMPARE(form.Bop.UBound(), 2);
    for (const auto& [index, x] : {std::pair{1, 1000.0f}, {2, 5000.0f}}) {
        QCOMPARE(form.Line5(index).X1(), x);
        QCOMPARE(form.Line5b(index).X2(), x);
        QCOMPARE(form.Bop(index).Left(), x - 25);
        QCOMPARE(form.Bop1(index).Left(), x - 25);
        QCOMPARE(form.Bop(index).Tag, QString::number(x));
        QVERIFY(form.Line5(index).Visible() && form.Bop(index).Visible() && form.Bop1(index).Visible());
    }
    QVERIFY(!form.Bop(0).Visible() && !form.Line5(0).Visible());
}

void win_bar::markersAreMadeAnewAtEachRedraw()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength), {1000, 5000, 7000});
    CutCount = 1;
    form.DrawRulerAndMarkers();
    QCOMPARE(form.Bop.UBound(), 1);
    QCOMPARE(form.Line5b.UBound(), 1);
    QCOMPARE(form.ListView1.rowCount(), 2);
}

void win_bar::theSelectionLiesOverItsPart_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<float>("left");
    QTest::addColumn<float>("width");
    QTest::addRow("the first part") << 0 << 0.0f << 1000.0f;
    QTest::addRow("the last part") << -1 << 7000.0f << 3420.0f;
    QTest::addRow("the part from cut 1 on") << 1 << 1000.0f << 4000.0f;
    QTest::addRow("the part from cut 2 on") << 2 << 5000.0f << 2000.0f;
}

void win_bar::theSelectionLiesOverItsPart()
{
    QFETCH(int, code);
    QFETCH(float, left);
    QFETCH(float, width);
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength), {1000, 5000, 7000});
    form.HasSelectedPart = true;
    form.SelectedPart = code;
    form.DrawWaveform();
    QVERIFY(!form.Picture2.isHidden());
    QCOMPARE(form.Picture2.Left(), left);
    QCOMPARE(form.Picture2.Width(), width);
    QCOMPARE(form.Picture3.Left(), left == 0 ? 0 : -left);
    QCOMPARE(form.Picture3.Width(), 10420.0f);
    QCOMPARE(form.ListView1.rowCount(), 4);
}

void win_bar::theSelectionCopiesThePositionLine()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength), {1000});
    form.HasSelectedPart = true;
    form.SelectedPart = 0;
    form.Line2.setX(6000);    // outside the part: it is shown all the same
    form.DrawWaveform();
    QCOMPARE(form.Line6.X1(), 6000.0f);
    QVERIFY(form.Line6.Visible());
}

void win_bar::theWholeFileCanBeTheSelectedPart()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(twipLength));
    form.HasSelectedPart = true;
    form.SelectedPart = 0;
    form.DrawWaveform();
    QCOMPARE(form.Picture2.Left(), 0.0f);
    QCOMPARE(form.Picture2.Width(), 10420.0f);
}

QTEST_MAIN(win_bar)
#include "win_bar.moc"
