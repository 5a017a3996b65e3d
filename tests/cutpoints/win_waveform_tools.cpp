// The two tools, their cursors by height, and a window without a file.
#include "cutpoints/Cutting.h"

#include "core/toolkit/Pictures.h"

namespace {

// Which of the program's cursors a surface shows.
QString cursorOf(const Surface& surface)
{
    const QCursor shown = surface.cursor();
    for (const char* name : {"SELECTION", "CURSEUR", "CUTTERZ"}) {
        const QCursor known = customCursor(QString::fromLatin1(name), surface.devicePixelRatioF());
        if (shown.hotSpot() == known.hotSpot() && shown.pixmap().toImage() == known.pixmap().toImage())
            return QString::fromLatin1(name);
    }
    return shown.shape() == Qt::ArrowCursor ? QStringLiteral("default") : QStringLiteral("unknown");
}

}

class win_waveform_tools : public QObject {
    Q_OBJECT
private slots:
    void cursorsFollowHeightAndTool_data();
    void cursorsFollowHeightAndTool();
    void theArrowToolTakesTheCursorsBack();
    void theScissorsToolHidesTheHighlight();
    void theToolButtonsMoveTheScissors();
    void withoutAFileNothingAnswers();
    void theCursorsAreDrawnSharp_data();
    void theCursorsAreDrawnSharp();
};

void win_waveform_tools::cursorsFollowHeightAndTool_data()
{
    QTest::addColumn<int>("tool");
    QTest::addColumn<double>("y");
    QTest::addColumn<QString>("wave");
    QTest::addColumn<QString>("highlight");
    QTest::addRow("arrow over the ruler") << 1 << 240.0 << "default"
                                          << "default";
    QTest::addRow("arrow over the wave") << 1 << 1500.0 << "default"
                                         << "default";
    QTest::addRow("arrow at 2700") << 1 << 2700.0 << "default"
                                   << "default";
    QTest::addRow("arrow over the bar") << 1 << 2700.5 << "SELECTION"
                                        << "default";
    QTest::addRow("scissors over the ruler") << 2 << 479.9 << "CURSEUR"
                                             << "CURSEUR";
    QTest::addRow("scissors at 480") << 2 << 480.0 << "default"
                                     << "default";
    QTest::addRow("scissors over the wave") << 2 << 480.1 << "CUTTERZ"
                                            << "CUTTERZ";
    QTest::addRow("scissors low on the wave") << 2 << 2699.9 << "CUTTERZ"
                                              << "CUTTERZ";
    QTest::addRow("scissors at 2700") << 2 << 2700.0 << "default"
                                      << "default";
    QTest::addRow("scissors over the bar") << 2 << 2805.0 << "SELECTION"
                                           << "default";
}

void win_waveform_tools::cursorsFollowHeightAndTool()
{
    Cutting cutting;
    QFETCH(int, tool);
    QFETCH(double, y);
    cutting.form.ToolMode = tool;
    moveTo(cutting.form.Picture1, 5000, y);
    QTEST(cursorOf(cutting.form.Picture1), "wave");
    QTEST(cursorOf(cutting.form.Picture3), "highlight");
}

void win_waveform_tools::theArrowToolTakesTheCursorsBack()
{
    Cutting cutting;
    auto& form = cutting.form;
    press(form.Image13, QPoint(5, 5));
    moveTo(form.Picture1, 5000, inWave);
    QCOMPARE(cursorOf(form.Picture3), QString("CUTTERZ"));
    press(form.Image20, QPoint(5, 5));
    QCOMPARE(cursorOf(form.Picture1), QString("default"));
    QCOMPARE(cursorOf(form.Picture3), QString("default"));
    QCOMPARE(form.ToolMode, 1);
}

void win_waveform_tools::theScissorsToolHidesTheHighlight()
{
    Cutting cutting({300000});
    auto& form = cutting.form;
    cutting.fixture.pressBarOfRow(2);
    press(form.Image13, QPoint(5, 5));
    QCOMPARE(form.ToolMode, 2);
    QVERIFY(form.Picture2.isHidden() && cutting.isDetailPanelCleared());
    QVERIFY(form.HasSelectedPart);
}

void win_waveform_tools::theToolButtonsMoveTheScissors()
{
    Cutting cutting;
    auto& form = cutting.form;
    press(form.Image13, QPoint(5, 5));
    QCOMPARE(form.Image13.Top(), 540.f);
    QVERIFY(form.Image13.isChosen() && !form.Image20.isChosen());
    press(form.Image20, QPoint(5, 5));
    QCOMPARE(form.Image13.Top(), 560.f);
    QVERIFY(!form.Image13.isChosen() && form.Image20.isChosen());
}

void win_waveform_tools::withoutAFileNothingAnswers()
{
    FormFixture fixture;
    auto& form = fixture.load();
    const Twips top = form.Image13.Top();
    form.HasSelectedPart = true;
    journal().clear();
    for (const double y : {inRuler, inWave, inBar}) {
        clickAt(form.Picture1, 5000, y);
        moveTo(form.Picture1, 5100, y);
    }
    press(form.Image13, QPoint(5, 5));
    press(form.Image20, QPoint(5, 5));
    QVERIFY(form.HasSelectedPart);
    QCOMPARE(form.Line2.X1(), 0.f);
    QCOMPARE(form.ToolMode, 1);
    QCOMPARE(form.Image13.Top(), top);
    QCOMPARE(cursorOf(form.Picture1), QString("default"));
    QVERIFY(journal().commands().isEmpty() && fixture.fatals.isEmpty());
}

void win_waveform_tools::theCursorsAreDrawnSharp_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("scale");
    for (const char* name : {"SELECTION", "CURSEUR", "CUTTERZ"})
        for (const double scale : {1.0, 2.0})
            QTest::addRow("%s at scale %g", name, scale) << QString::fromLatin1(name) << scale;
}

// Every pixel of the screen is drawn: at scale 2 no block of four is one pixel made larger.
void win_waveform_tools::theCursorsAreDrawnSharp()
{
    QFETCH(QString, name);
    QFETCH(double, scale);
    const QPixmap picture = customCursor(name, scale).pixmap();
    QCOMPARE(picture.devicePixelRatio(), scale);
    QCOMPARE(picture.size(), QSize(24, 24) * scale);
    const QImage image = picture.toImage();
    int drawn = 0, uneven = 0;
    for (int y = 0; y + 1 < image.height(); y += 2)
        for (int x = 0; x + 1 < image.width(); x += 2) {
            drawn += qAlpha(image.pixel(x, y)) > 0;
            uneven +=
                image.pixel(x, y) != image.pixel(x + 1, y) || image.pixel(x, y) != image.pixel(x, y + 1);
        }
    QVERIFY2(drawn > 12 && drawn < image.width() * image.height() / 5, qPrintable(QString::number(drawn)));
    QVERIFY2(uneven > 12, qPrintable(QString::number(uneven)));
}

QTEST_MAIN(win_waveform_tools)
#include "win_waveform_tools.moc"
