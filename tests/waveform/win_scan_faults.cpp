// What becomes of an open that fails, at each step of it.
#include "support/FormFixture.h"
#include "support/Journal.h"
#include "support/Mouse.h"

#include "core/Errors.h"
#include "core/toolkit/FormHolder.h"
#include "waveform/Form2.h"

#include <QTest>

namespace {

constexpr std::int32_t tenSeconds = 10 * testRate;
constexpr std::int32_t earlierLength = 20000;
constexpr std::int32_t blockLength = 2 * testRate;

QStringList messages()
{
    return journal().commandsOf(QStringLiteral("MsgBox"));
}

QStringList theMessage()
{
    return {QStringLiteral("MsgBox Critical [Quillon]: ") + langText(73)};
}

// Opens "/music/next.mp3", whatever the disk has there. The journal is empty before.
void openNext(FormFixture& fixture)
{
    journal().clear();
    fixture.dialogs.files.push_back(QStringLiteral("/music/next.mp3"));
    fixture.form->OpenAudioFile.trigger();
}

// A form with an earlier work file; the next song is on the disk.
CutterSelect& afterAnEarlierOpen(FormFixture& fixture)
{
    auto& form = fixture.open(fakeSound(earlierLength));
    fixture.engine.disk[QStringLiteral("/music/next.mp3")] = fakeSound(tenSeconds);
    return form;
}

// Throws at the first call that begins with `line`, and at it alone.
void failOnceAt(const QString& line)
{
    journal().onCommand = [line, isDone = false](const QString& called) mutable {
        if (isDone || !called.startsWith(line)) return;
        isDone = true;
        throw EngineError(QStringLiteral("once"));
    };
}

void verifyAtRest(CutterSelect& form)
{
    QVERIFY(form.FileLoaded && !form.Scanning);
    QVERIFY(form.isEnabled());
    QVERIFY(!ProgressForm.loaded());
    QCOMPARE(form.StatusBar1.Panels(1).text(), QString());
}

void verifyStuck(CutterSelect& form)
{
    QVERIFY(form.Scanning);
    QVERIFY(form.isEnabled());
    QVERIFY(ProgressForm.visible());
}

}

class win_scan_faults : public QObject {
    Q_OBJECT

private slots:
    void aFaultAtAnyCallIsToldOnceAndTheClosingStepsRun_data();
    void aFaultAtAnyCallIsToldOnceAndTheClosingStepsRun();
    void aFileThatCannotBeDecodedMakesTheEarlierWorkFileTheDocument();
    void theClosingStepsAfterAFaultCloseBothFilesAndReopen();
    void aFileThatCannotBeDecodedWithoutAWorkFileLeavesTheScanOn();
    void closingAndTheToolBarRefuseAfterThat();
    void anotherOpenEndsThat();
    void anEmptyFileIsAsOneThatCannotBeDecoded();
    void aWorkFileThatCannotBeMadeLeavesTheEarlierSound();
    void aWorkFileThatCannotBeMadeWithoutAnEarlierOneLeavesTheScanOn();
    void aShortFileIsOpenWithoutAWaveform_data();
    void aShortFileIsOpenWithoutAWaveform();
    void theMessageOfAShortFileComesAfterItsFirstBlock();
    void aWriteThatFailsInTheMiddleKeepsWhatWasWritten();
    void aReadThatFailsInTheMiddleKeepsWhatWasWritten();
    void aWorkFileThatFailsToCloseIsToldAndClosedAgain();
    void aReopenThatFailsOnceIsToldAndTriedAgain();
    void aReopenThatFailsTwiceIsToldOnceAndLeavesTheScanOn();
    void aCutIsForgottenWhereTheNextOpenFails();
    void aFaultBeforeTheDialogIsNotTrapped();
    void aFaultOfTheTemporaryFolderEndsTheOpenQuietly();
};

void win_scan_faults::aFaultAtAnyCallIsToldOnceAndTheClosingStepsRun_data()
{
    QTest::addColumn<QString>("call");
    QTest::addRow("WMA switch") << "FileR.SetWmaEnabled";
    QTest::addRow("open") << "FileR.Open /music/next.mp3";
    QTest::addRow("tags") << "AudioTags.ReadFrom";
    QTest::addRow("format of the player") << "AudioPlayer.SetFormat";
    QTest::addRow("format of the work file") << "FileWenc.SetFormatPCM";
    QTest::addRow("creation of the work file") << "FileWenc.Create";
    QTest::addRow("first read") << "FileR.ReadArray";
    QTest::addRow("first write") << "FileWenc.WriteArray";
    QTest::addRow("close of the work file") << "FileWenc.Close";
    QTest::addRow("reopening") << "FileR.Open";
}

void win_scan_faults::aFaultAtAnyCallIsToldOnceAndTheClosingStepsRun()
{
    QFETCH(QString, call);
    FormFixture fixture;
    auto& form = afterAnEarlierOpen(fixture);
    failOnceAt(call);
    openNext(fixture);
    QCOMPARE(messages(), theMessage());
    verifyAtRest(form);
    QVERIFY(!form.FileR->IsClosed());
    QCOMPARE(TotalSamples, form.FileR->GetTotalSamples());
    QVERIFY(fixture.fatals.isEmpty());
}

void win_scan_faults::aFileThatCannotBeDecodedMakesTheEarlierWorkFileTheDocument()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(earlierLength));
    openNext(fixture);
    QCOMPARE(messages(), theMessage());
    verifyAtRest(form);
    QCOMPARE(TotalSamples, earlierLength);
    QCOMPARE(form.Peaks.size(), std::size_t{1});
    QCOMPARE(form.Label1.text(), QStringLiteral("next.mp3"));
}

void win_scan_faults::theClosingStepsAfterAFaultCloseBothFilesAndReopen()
{
    FormFixture fixture;
    fixture.open(fakeSound(earlierLength));
    openNext(fixture);
    const QStringList calls = journal().commands();
    QCOMPARE(calls.mid(calls.indexOf(theMessage().first())),
             theMessage() + QStringList({"FileWenc.Close", "FileR.Close", "FileR.Open " + TempCutPath}));
}

void win_scan_faults::aFileThatCannotBeDecodedWithoutAWorkFileLeavesTheScanOn()
{
    FormFixture fixture;
    auto& form = fixture.load();
    openNext(fixture);
    QCOMPARE(messages(), theMessage());
    verifyStuck(form);
    QVERIFY(fixture.fatals.isEmpty());
}

void win_scan_faults::closingAndTheToolBarRefuseAfterThat()
{
    FormFixture fixture;
    auto& form = fixture.load();
    openNext(fixture);
    journal().clear();
    for (const int button : {2, 4, 10, 11, 12, 14}) pressButton(form.Toolbar1, button);
    form.CloseAudioFile.trigger();
    QCOMPARE(journal().commands(), QStringList());
    QVERIFY(form.FileLoaded);
    QCOMPARE(form.ZoomLevel, 0);
}

void win_scan_faults::anotherOpenEndsThat()
{
    FormFixture fixture;
    auto& form = fixture.load();
    openNext(fixture);
    fixture.engine.disk[QStringLiteral("/music/next.mp3")] = fakeSound(tenSeconds);
    openNext(fixture);
    verifyAtRest(form);
    QCOMPARE(TotalSamples, tenSeconds);
}

void win_scan_faults::anEmptyFileIsAsOneThatCannotBeDecoded()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(earlierLength));
    fixture.engine.disk[QStringLiteral("/music/next.mp3")] = fakeSound(0);
    openNext(fixture);
    QCOMPARE(messages(), theMessage());
    QVERIFY(journal().commandsOf(QStringLiteral("FileWenc.Create")).isEmpty());
    verifyAtRest(form);
    QCOMPARE(TotalSamples, earlierLength);
}

void win_scan_faults::aWorkFileThatCannotBeMadeLeavesTheEarlierSound()
{
    FormFixture fixture;
    auto& form = afterAnEarlierOpen(fixture);
    fixture.engine.failing << QStringLiteral("FileWenc.Create");
    openNext(fixture);
    QCOMPARE(messages(), theMessage());
    verifyAtRest(form);
    QCOMPARE(TotalSamples, earlierLength);
    QCOMPARE(form.Peaks.size(), std::size_t{1});
}

void win_scan_faults::aWorkFileThatCannotBeMadeWithoutAnEarlierOneLeavesTheScanOn()
{
    FormFixture fixture;
    fixture.engine.disk[QStringLiteral("/music/next.mp3")] = fakeSound(tenSeconds);
    fixture.engine.failing << QStringLiteral("FileWenc.Create");
    auto& form = fixture.load();
    openNext(fixture);
    QCOMPARE(messages(), theMessage());
    verifyStuck(form);
}

void win_scan_faults::aShortFileIsOpenWithoutAWaveform_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("hasWaveform");
    QTest::addRow("a hundred samples") << 100 << false;
    QTest::addRow("four thousand samples") << 4000 << false;
    QTest::addRow("four thousand and one samples have one") << 4001 << true;
}

void win_scan_faults::aShortFileIsOpenWithoutAWaveform()
{
    QFETCH(int, length);
    QFETCH(bool, hasWaveform);
    FormFixture fixture;
    fixture.engine.disk[QStringLiteral("/music/next.mp3")] = fakeSound(length);
    auto& form = fixture.load();
    openNext(fixture);
    QCOMPARE(messages().size(), hasWaveform ? 0 : 1);
    verifyAtRest(form);
    QCOMPARE(TotalSamples, length);
    QCOMPARE(form.Peaks.size() > 1, hasWaveform);
}

void win_scan_faults::theMessageOfAShortFileComesAfterItsFirstBlock()
{
    FormFixture fixture;
    fixture.engine.disk[QStringLiteral("/music/next.mp3")] = fakeSound(4000);
    fixture.load();
    openNext(fixture);
    const QStringList calls = journal().commands();
    QCOMPARE(calls.at(calls.indexOf(theMessage().first()) - 1), QStringLiteral("FileWenc.WriteArray 8000"));
}

void win_scan_faults::aWriteThatFailsInTheMiddleKeepsWhatWasWritten()
{
    FormFixture fixture;
    auto& form = afterAnEarlierOpen(fixture);
    fixture.engine.failAfter[QStringLiteral("FileWenc.WriteArray")] = 2;
    openNext(fixture);
    QCOMPARE(messages(), theMessage());
    verifyAtRest(form);
    QCOMPARE(TotalSamples, 2 * blockLength);
    QVERIFY(form.Peaks.size() > 1000);
}

void win_scan_faults::aReadThatFailsInTheMiddleKeepsWhatWasWritten()
{
    FormFixture fixture;
    auto& form = afterAnEarlierOpen(fixture);
    fixture.engine.failAfter[QStringLiteral("FileR.ReadArray")] = 3;
    openNext(fixture);
    QCOMPARE(messages(), theMessage());
    verifyAtRest(form);
    QCOMPARE(TotalSamples, 3 * blockLength);
}

void win_scan_faults::aWorkFileThatFailsToCloseIsToldAndClosedAgain()
{
    FormFixture fixture;
    auto& form = afterAnEarlierOpen(fixture);
    failOnceAt(QStringLiteral("FileWenc.Close"));
    openNext(fixture);
    QCOMPARE(journal().commands().mid(journal().commands().indexOf(QStringLiteral("FileWenc.Close"))),
             QStringList{"FileWenc.Close"} + theMessage() +
                 QStringList({"FileWenc.Close", "FileR.Close", "FileR.Open " + TempCutPath}));
    verifyAtRest(form);
    QCOMPARE(TotalSamples, tenSeconds);
}

void win_scan_faults::aReopenThatFailsOnceIsToldAndTriedAgain()
{
    FormFixture fixture;
    auto& form = afterAnEarlierOpen(fixture);
    failOnceAt(QStringLiteral("FileR.Open ") + TempCutPath);
    openNext(fixture);
    QCOMPARE(messages(), theMessage());
    verifyAtRest(form);
    QCOMPARE(TotalSamples, tenSeconds);
    QVERIFY(form.Peaks.size() > 7000);
}

void win_scan_faults::aReopenThatFailsTwiceIsToldOnceAndLeavesTheScanOn()
{
    FormFixture fixture;
    auto& form = afterAnEarlierOpen(fixture);
    const QString reopening = QStringLiteral("FileR.Open ") + TempCutPath;
    journal().onCommand = [reopening](const QString& line) {
        if (line == reopening) throw EngineError(QStringLiteral("gone"));
    };
    openNext(fixture);
    QCOMPARE(messages(), theMessage());
    verifyStuck(form);
    QVERIFY(fixture.fatals.isEmpty());
}

void win_scan_faults::aCutIsForgottenWhereTheNextOpenFails()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(earlierLength), {5000, 10000});
    openNext(fixture);
    QCOMPARE(CutCount, 0);
    QCOMPARE(form.Bop.UBound(), 0);
    QCOMPARE(PartTable, std::vector<PartRecord>(1));
}

void win_scan_faults::aFaultBeforeTheDialogIsNotTrapped()
{
    FormFixture fixture;
    auto& form = fixture.load();
    LangText.clear();
    form.OpenAudioFile.trigger();
    QCOMPARE(fixture.fatals.size(), 1);
}

void win_scan_faults::aFaultOfTheTemporaryFolderEndsTheOpenQuietly()
{
    FormFixture fixture;
    fixture.engine.disk[QStringLiteral("/music/next.mp3")] = fakeSound(tenSeconds);
    auto& form = fixture.load();
    qputenv("XDG_CACHE_HOME", "/dev/null/no/folder");
    openNext(fixture);
    QCOMPARE(messages(), QStringList());
    QVERIFY(!form.FileLoaded && !form.Scanning);
    QVERIFY(fixture.fatals.isEmpty());
}

QTEST_MAIN(win_scan_faults)
#include "win_scan_faults.moc"
