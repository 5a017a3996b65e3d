// The scan: its progress, its dialog, and the ways to stop it.
#include "support/FormFixture.h"
#include "support/Journal.h"
#include "support/Mouse.h"

#include "core/toolkit/FormHolder.h"
#include "waveform/Form2.h"

#include <QTest>
#include <QTimer>

namespace {

// At 100 Hz a block is 200 samples, and four blocks are a percent of this.
constexpr std::int32_t slowRate = 100;
constexpr std::int32_t slowLength = 80000;
constexpr std::int32_t slowBlock = 200;

// A form whose disk has such a song; `during` is called as each block is written, with its number from 1.
class SlowScan {
public:
    SlowScan()
    {
        fixture.engine.disk[QStringLiteral("/song.mp3")] = fakeSound(slowLength, slowRate);
        fixture.load();
    }

    CutterSelect& run()
    {
        int block = 0;
        journal().onCommand = [this, &block](const QString& line) {
            if (line.startsWith(QLatin1String("FileWenc.WriteArray")) && during) during(++block);
        };
        fixture.dialogs.files.push_back(QStringLiteral("/song.mp3"));
        fixture.form->OpenAudioFile.trigger();
        journal().onCommand = nullptr;
        return *fixture.form;
    }

    FormFixture fixture;
    std::function<void(int block)> during;
};

void pressCancel()
{
    QTest::mouseClick(&ProgressForm->Command1, Qt::LeftButton);
}

}

class win_scan : public QObject {
    Q_OBJECT

private slots:
    void theProgressDialogIsUpDuringTheScanAndGoneAfterIt();
    void theProgressDialogBelongsToTheMainForm();
    void theProgressDialogsTextsAreTheLanguages();
    void theFormIsDisabledFromTheFirstBlockOn();
    void theFormIsEnabledWhileTheWorkFileIsMade();
    void theCloseBoxOfTheDisabledFormIsIgnored();
    void thePercentageBeginsAtOneAndStaysThereUntilItPassesOne();
    void thePercentageIsShownInThreePlaces();
    void theLastPercentageIsAHundred();
    void anUnchangedPercentageHearsNoCancel();
    void aCancelBeforeTheFirstBlockLeavesADocumentOfNoSamples();
    void aCancelKeepsThePartReadSoFar();
    void aCancelSpreadsThePeaksReadSoFarOverTheFullWidth();
    void aCancelByEscapeCounts();
    void aCancelByTheCloseBoxCounts();
    void theCancelButtonAloneDoesNotCloseTheDialog();
    void closingTheDialogClearsTheGoOnFlag();
    void aScanCanFollowACancelledOne();
    void commandsAreRefusedDuringAScan();
};

void win_scan::theProgressDialogIsUpDuringTheScanAndGoneAfterIt()
{
    SlowScan scan;
    int seen = 0;
    scan.during = [&](int) { seen += ProgressForm.visible() && !ProgressForm->isModal(); };
    scan.run();
    QCOMPARE(seen, slowLength / slowBlock);
    QVERIFY(!ProgressForm.loaded());
}

void win_scan::theProgressDialogBelongsToTheMainForm()
{
    SlowScan scan;
    const QWidget* owner = nullptr;
    scan.during = [&](int) { owner = ProgressForm->parentWidget(); };
    QVERIFY(&scan.run() == owner);
}

void win_scan::theProgressDialogsTextsAreTheLanguages()
{
    SlowScan scan;
    QStringList texts;
    scan.during = [&](int block) {
        if (block == 1)
            texts = QStringList{ProgressForm->windowTitle(), ProgressForm->Command1.text(),
                                ProgressForm->Label2.text()};
    };
    scan.run();
    QCOMPARE(texts, (QStringList{langText(114), langText(91), langText(74) + QStringLiteral("0 %")}));
}

void win_scan::theFormIsDisabledFromTheFirstBlockOn()
{
    SlowScan scan;
    int disabled = 0, reachable = 0;
    scan.during = [&](int) {
        disabled += !scan.fixture.form->isEnabled();
        reachable += ProgressForm->isEnabled() && ProgressForm->Command1.isEnabled();
    };
    QVERIFY(scan.run().isEnabled());
    QCOMPARE(disabled, slowLength / slowBlock);
    QCOMPARE(reachable, slowLength / slowBlock);
}

void win_scan::theFormIsEnabledWhileTheWorkFileIsMade()
{
    FormFixture fixture;
    fixture.engine.disk[QStringLiteral("/song.mp3")] = fakeSound(10000);
    auto& form = fixture.load();
    bool wasEnabled = false;
    journal().onCommand = [&](const QString& line) {
        if (line.startsWith(QLatin1String("FileWenc.Create"))) wasEnabled = form.isEnabled();
    };
    fixture.dialogs.files.push_back(QStringLiteral("/song.mp3"));
    form.OpenAudioFile.trigger();
    QVERIFY(wasEnabled);
}

void win_scan::theCloseBoxOfTheDisabledFormIsIgnored()
{
    SlowScan scan;
    bool hasClosed = true;
    scan.during = [&](int block) {
        if (block == 3) hasClosed = scan.fixture.form->close();
    };
    auto& form = scan.run();
    QVERIFY(!hasClosed);
    QVERIFY(form.isVisible());
    QCOMPARE(TotalSamples, slowLength);
}

void win_scan::thePercentageBeginsAtOneAndStaysThereUntilItPassesOne()
{
    SlowScan scan;
    QStringList shown;
    scan.during = [&](int block) {
        if (block <= 7) shown << scan.fixture.form->StatusBar1.Panels(1).text().mid(langText(72).size());
    };
    scan.run();    // one block and a half are 2 %, a tie going to the even number
    QCOMPARE(shown, (QStringList{"", "1 %", "1 %", "1 %", "1 %", "1 %", "2 %"}));
}

void win_scan::thePercentageIsShownInThreePlaces()
{
    SlowScan scan;
    QString panel, text;
    double bar = 0;
    scan.during = [&](int block) {
        if (block != 201) return;
        panel = scan.fixture.form->StatusBar1.Panels(1).text();
        text = ProgressForm->Label2.text();
        bar = ProgressForm->ProgressBar1();
    };
    scan.run();
    QCOMPARE(panel, langText(72) + QStringLiteral("50 %"));
    QCOMPARE(text, langText(74) + QStringLiteral("50 %"));
    QCOMPARE(bar, 50.0);
}

void win_scan::theLastPercentageIsAHundred()
{
    FormFixture fixture;
    FakeSound song = fakeSound(slowLength, slowRate);
    song.claimedTotal = slowLength / 2;    // more can be read than was promised
    fixture.engine.disk[QStringLiteral("/song.mp3")] = song;
    auto& form = fixture.load();
    QString last;
    journal().onCommand = [&](const QString& line) {
        if (line.startsWith(QLatin1String("FileWenc.Close"))) last = form.StatusBar1.Panels(1).text();
    };
    fixture.dialogs.files.push_back(QStringLiteral("/song.mp3"));
    form.OpenAudioFile.trigger();
    QCOMPARE(last, langText(72) + QStringLiteral("100 %"));
    QCOMPARE(TotalSamples, slowLength);
}

void win_scan::anUnchangedPercentageHearsNoCancel()
{
    SlowScan scan;
    scan.during = [&](int block) {
        if (block == 2) QTimer::singleShot(0, &ProgressForm->Command1, pressCancel);    // waits in the queue
    };
    scan.run();
    QCOMPARE(TotalSamples, 6 * slowBlock);    // the sixth block moves the percentage to 2
}

void win_scan::aCancelBeforeTheFirstBlockLeavesADocumentOfNoSamples()
{
    SlowScan scan;
    journal().clear();
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [] {
        if (ProgressForm.visible()) pressCancel();
    });
    timer.start(0);
    const CutterSelect& form = scan.run();
    QCOMPARE(journal().commandsOf("FileWenc.WriteArray"), QStringList());
    QVERIFY(form.FileLoaded && !form.Scanning && form.isEnabled() && !ProgressForm.visible());
    QCOMPARE(TotalSamples, 0);
}

void win_scan::aCancelKeepsThePartReadSoFar()
{
    SlowScan scan;
    scan.during = [&](int block) {
        if (block == 100) pressCancel();
    };
    auto& form = scan.run();
    QCOMPARE(TotalSamples, 100 * slowBlock);
    QCOMPARE(form.DurationSeconds, 200);
    QCOMPARE(form.Label3.text(), langText(46) + QStringLiteral(" : 03:20.0"));
    QVERIFY(form.FileLoaded && !form.Scanning && form.isEnabled());
    QVERIFY(!ProgressForm.loaded());
    QVERIFY(journal().commandsOf(QStringLiteral("MsgBox")).isEmpty());
}

void win_scan::aCancelSpreadsThePeaksReadSoFarOverTheFullWidth()
{
    SlowScan scan;
    scan.during = [&](int block) {
        if (block == 100) pressCancel();
    };
    auto& form = scan.run();
    QVERIFY(form.Peaks.size() > 1900 && form.Peaks.size() < 2100);
    const QImage& store = form.Picture1.store();
    const int lastColumn = static_cast<int>(693 * form.Picture1.scale());
    const int centre = static_cast<int>(101 * form.Picture1.scale());
    QVERIFY(store.pixelColor(lastColumn, centre) != QColor(Qt::black));
}

void win_scan::aCancelByEscapeCounts()
{
    SlowScan scan;
    scan.during = [&](int block) {
        if (block == 8) QTest::keyClick(&*ProgressForm, Qt::Key_Escape);
    };
    scan.run();
    QCOMPARE(TotalSamples, 8 * slowBlock);
}

void win_scan::aCancelByTheCloseBoxCounts()
{
    SlowScan scan;
    scan.during = [&](int block) {
        if (block == 8) ProgressForm->close();
    };
    auto& form = scan.run();
    QCOMPARE(TotalSamples, 8 * slowBlock);
    QVERIFY(!ProgressForm.loaded());
    QVERIFY(form.isEnabled() && !form.Scanning);
}

void win_scan::theCancelButtonAloneDoesNotCloseTheDialog()
{
    FormFixture fixture;
    fixture.load();
    ProgressForm->show();
    KeepRunning = true;
    pressCancel();
    QVERIFY(!KeepRunning);
    QVERIFY(ProgressForm.visible());
}

void win_scan::closingTheDialogClearsTheGoOnFlag()
{
    FormFixture fixture;
    fixture.load();
    ProgressForm->show();
    KeepRunning = true;
    ProgressForm->close();
    QVERIFY(!KeepRunning);
    QVERIFY(!ProgressForm.loaded());
}

void win_scan::aScanCanFollowACancelledOne()
{
    SlowScan scan;
    scan.during = [&](int block) {
        if (block == 8) pressCancel();
    };
    scan.run();
    scan.during = nullptr;
    scan.run();
    QCOMPARE(TotalSamples, slowLength);
}

void win_scan::commandsAreRefusedDuringAScan()
{
    SlowScan scan;
    QStringList called;
    scan.during = [&](int block) {
        if (block != 5) return;
        const auto before = journal().commands().size();
        for (const std::int16_t command : {2, 4, 5, 6, 10, 11, 12, 14, 15})
            scan.fixture.form->ToolbarCommand(command);
        scan.fixture.form->Fwd1Sec_Click();
        scan.fixture.form->Rew1Sec_Click();
        scan.fixture.form->Image10_Click();
        called = journal().commands().mid(before);
    };
    auto& form = scan.run();
    QCOMPARE(called, QStringList());
    QCOMPARE(form.ZoomLevel, 0);
    QCOMPARE(TotalSamples, slowLength);
}

QTEST_MAIN(win_scan)
#include "win_scan.moc"
