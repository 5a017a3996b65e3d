// What the window shows of a part whose start or end was moved: list, fields, markers, highlight.
#include "cutpoints/Stepping.h"

#include "core/TimeText.h"

using Column = PartsListView::Column;

namespace {

QString T(std::int32_t sample)
{
    return FormatSeconds(SampleToSecondeD(sample, SampleRate));
}

Twips xOf(std::int32_t sample)
{
    return static_cast<Twips>(10420.0 / songLength * sample);
}

}

class win_boundary_display : public QObject {
    Q_OBJECT
private slots:
    void aMovedStartIsWrittenIntoItsRow();
    void aMovedStartIsWrittenIntoTheRowBefore();
    void theStartOfTheSecondPartIsTheLengthOfTheFirst();
    void theStartOfTheLastPartIsMeasuredFromTheEnd();
    void aMovedEndIsWrittenIntoItsRow();
    void aMovedEndIsWrittenIntoTheNextRow();
    void theEndOfTheFirstPartIsItsLength();
    void theEndBeforeTheLastPartIsMeasuredFromTheEnd();
    void theMarkersGoWithTheCut();
    void aMarkerIsFoundByItsSample();
    void theHighlightIsLaidAgain_data();
    void theHighlightIsLaidAgain();
    void selectionAndNameStay();
    void aMovedEndEqualsTheNextStartUntilTheListIsMadeAnew();
};

void win_boundary_display::aMovedStartIsWrittenIntoItsRow()
{
    Cutting cutting({300000, 500000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(3);
    step(form, 3, earlier);
    QCOMPARE(form.ListView1.cell(3, Column::Start), T(495590));
    QCOMPARE(form.ListView1.cell(3, Column::Duration), T(700000 - 495590));
    QCOMPARE(form.ListView1.cell(3, Column::SampleStart), QString("495590"));
    QCOMPARE(form.ListView1.cell(3, Column::End), T(699999));
    QCOMPARE(form.Text1.text(), T(495590));
    QCOMPARE(form.Label16.text(), T(700000 - 495590));
}

void win_boundary_display::aMovedStartIsWrittenIntoTheRowBefore()
{
    Cutting cutting({300000, 500000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(3);
    step(form, 3, earlier);
    QCOMPARE(form.ListView1.cell(2, Column::Start), T(300000));
    QCOMPARE(form.ListView1.cell(2, Column::End), T(495590));
    QCOMPARE(form.ListView1.cell(2, Column::Duration), T(495590 - 300000));
}

void win_boundary_display::theStartOfTheSecondPartIsTheLengthOfTheFirst()
{
    Cutting cutting({300000, 500000});
    auto& list = cutting.form.ListView1;
    cutting.fixture.pressBarOfRow(2);
    step(cutting.form, 3, later);
    QCOMPARE(list.cell(1, Column::Start), QString("00:00.00"));
    QCOMPARE(list.cell(1, Column::End), T(304410));
    QCOMPARE(list.cell(1, Column::Duration), T(304410));
}

void win_boundary_display::theStartOfTheLastPartIsMeasuredFromTheEnd()
{
    Cutting cutting({300000, 500000});
    cutting.fixture.pressBarOfRow(3);
    step(cutting.form, 3, later);
    QCOMPARE(cutting.form.ListView1.cell(3, Column::Duration), T(songLength - 504410));
    QCOMPARE(cutting.form.ListView1.cell(3, Column::End), T(songLength));
}

void win_boundary_display::aMovedEndIsWrittenIntoItsRow()
{
    Cutting cutting({300000, 500000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    step(form, 4, later);
    QCOMPARE(form.ListView1.cell(2, Column::End), T(504410));
    QCOMPARE(form.ListView1.cell(2, Column::Duration), T(204410));
    QCOMPARE(form.ListView1.cell(2, Column::Start), T(300000));
    QCOMPARE(form.Text2.text(), T(504410));
    QCOMPARE(form.Label16.text(), T(204410));
}

void win_boundary_display::aMovedEndIsWrittenIntoTheNextRow()
{
    Cutting cutting({300000, 500000, 700000});
    auto& list = cutting.form.ListView1;
    cutting.fixture.pressBarOfRow(2);
    step(cutting.form, 4, later);
    QCOMPARE(list.cell(3, Column::Start), T(504410));
    QCOMPARE(list.cell(3, Column::SampleStart), QString("504410"));
    QCOMPARE(list.cell(3, Column::Duration), T(700000 - 504410));
}

void win_boundary_display::theEndOfTheFirstPartIsItsLength()
{
    Cutting cutting({300000, 500000});
    cutting.fixture.pressBarOfRow(1);
    step(cutting.form, 2, earlier);
    QCOMPARE(cutting.form.ListView1.cell(1, Column::Duration), T(299559));
    QCOMPARE(cutting.form.Label16.text(), T(299559));
}

void win_boundary_display::theEndBeforeTheLastPartIsMeasuredFromTheEnd()
{
    Cutting cutting({300000, 500000});
    cutting.fixture.pressBarOfRow(2);
    step(cutting.form, 4, earlier);
    QCOMPARE(cutting.form.ListView1.cell(3, Column::Duration), T(songLength - 495590));
}

void win_boundary_display::theMarkersGoWithTheCut()
{
    Cutting cutting({300000, 500000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(3);
    step(form, 1, earlier);
    QCOMPARE(cutting.tags(), (QStringList{"300000", "499559", "700000"}));
    QCOMPARE(form.Line5(2).X1(), xOf(499559));
    QCOMPARE(form.Line5(2).X2(), xOf(499559));
    QCOMPARE(form.Line5b(2).X1(), xOf(499559));
    QCOMPARE(form.Bop(2).Left(), xOf(499559) - 25);
    QCOMPARE(form.Bop1(2).Left(), xOf(499559) - 25);
}

void win_boundary_display::aMarkerIsFoundByItsSample()
{
    Cutting cutting({700000});
    auto& form = cutting.form;
    form.Line2.setX(3000);
    form.SetCutPoint.trigger();    // the second marker, the first cut
    cutting.fixture.pressBarOfRow(1);
    step(form, 2, later);
    QCOMPARE(cutting.tags(), (QStringList{"700000", "300441"}));
    QCOMPARE(form.Line5(2).X1(), xOf(300441));
    QCOMPARE(form.Line5(1).X1(), 7000.f);
}

void win_boundary_display::theHighlightIsLaidAgain_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("control");
    QTest::addColumn<std::int32_t>("start");
    QTest::addColumn<std::int32_t>("end");
    QTest::addRow("over the first part") << 1 << 4 << 0 << 295590;
    QTest::addRow("over a part between two cuts") << 3 << 3 << 495590 << 700000;
    QTest::addRow("over the last part") << 4 << 3 << 695590 << songLength;
}

void win_boundary_display::theHighlightIsLaidAgain()
{
    QFETCH(int, row);
    QFETCH(int, control);
    QFETCH(std::int32_t, start);
    QFETCH(std::int32_t, end);
    Cutting cutting({300000, 500000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(row);
    step(form, control, earlier);
    QCOMPARE(form.Picture2.Left(), xOf(start));
    QCOMPARE(form.Picture2.Width(),
             static_cast<Twips>(10420.0 / songLength * end - 10420.0 / songLength * start));
    QCOMPARE(form.Picture3.Left(), -xOf(start));
    QVERIFY(!form.Picture2.isHidden());
}

void win_boundary_display::selectionAndNameStay()
{
    Cutting cutting({300000, 500000, 700000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(3);
    step(form, 3, earlier);
    QCOMPARE(form.ListView1.selectedRow(), 3);
    QCOMPARE(form.Label11.text(), QString("Part.03"));
    QVERIFY(form.HasSelectedPart);
    QCOMPARE(form.SelectedPart, 2);
}

void win_boundary_display::aMovedEndEqualsTheNextStartUntilTheListIsMadeAnew()
{
    Cutting cutting({441221});    // by a step to 441662, just above the middle of two hundredths
    auto& list = cutting.form.ListView1;
    cutting.fixture.pressBarOfRow(1);
    step(cutting.form, 2, later);
    QCOMPARE(list.cell(1, Column::End), QString("00:10.02"));
    QCOMPARE(list.cell(2, Column::Start), QString("00:10.02"));
    cutting.form.FillPartsList();
    QCOMPARE(list.cell(1, Column::End), QString("00:10.01"));
    QCOMPARE(list.cell(2, Column::Start), QString("00:10.02"));
}

QTEST_MAIN(win_boundary_display)
#include "win_boundary_display.moc"
