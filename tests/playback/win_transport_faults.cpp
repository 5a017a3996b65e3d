// Playing when the engine fails.
#include "support/FormFixture.h"
#include "support/Journal.h"
#include "support/Mouse.h"

#include <QTest>

namespace {

constexpr std::int32_t tenSeconds = 10 * testRate;
constexpr int playButton = 10;

CutterSelect& withAPart(FormFixture& fixture)
{
    auto& form = fixture.open(fakeSound(tenSeconds), {5 * testRate});
    fixture.pressBarOfRow(2);
    journal().clear();
    return form;
}

QStringList messages()
{
    return journal().commandsOf(QStringLiteral("MsgBox"));
}

}

class win_transport_faults : public QObject {
    Q_OBJECT

private slots:
    void aFaultInPlayingTheFileIsTold_data();
    void aFaultInPlayingTheFileIsTold();
    void aFaultInPlayingAPartIsTold_data();
    void aFaultInPlayingAPartIsTold();
    void aFaultLeavesTheStateThatWasReached();
    void theStreamEndsBeforeAFaultIsTold();
    void aDeviceThatFailsClosesTheReaderWithoutAWord();
    void aDeviceThatFailsForTheFileLeavesBothFlags();
    void aDeviceThatFailsForAPartLeavesOneFlag();
    void theFileCanBePlayedAfterItIsOpenedAgain();
    void movesOfThePositionDoNoHarmAfterADeviceThatFails();
    void aStopThatFailsIsSilent();
    void aStopThatFailsKeepsTheFlags();
    void aReadThatFailsDuringPlayIsNotTrapped();
    void anEmptyFileIsNotPlayed();
    void aPartWithoutAPathIsNotPlayed();
};

void win_transport_faults::aFaultInPlayingTheFileIsTold_data()
{
    QTest::addColumn<QString>("call");
    for (const char* call : {"FileR.Seek", "AudioPlayer.SetFormat", "AudioPlayer.Start", "FileR.ReadArray",
                             "AudioPlayer.PlayArray", "FileR.GetTotalSamples", "FileR.GetOutputRate",
                             "FileR.IsClosed", "FileR.GetChannels"})
        QTest::addRow("%s", call) << call;
}

void win_transport_faults::aFaultInPlayingTheFileIsTold()
{
    QFETCH(QString, call);
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    fixture.engine.failing << call;
    pressButton(form.Toolbar1, playButton);
    QCOMPARE(messages(), (QStringList{"MsgBox Exclamation [Quillon]: " + langText(75)}));
    QVERIFY(fixture.fatals.isEmpty());
}

void win_transport_faults::aFaultInPlayingAPartIsTold_data()
{
    aFaultInPlayingTheFileIsTold_data();
}

void win_transport_faults::aFaultInPlayingAPartIsTold()
{
    QFETCH(QString, call);
    FormFixture fixture;
    auto& form = withAPart(fixture);
    fixture.engine.failing << call;
    form.Image9.click();
    QCOMPARE(messages(), (QStringList{"MsgBox Exclamation [Quillon]: " + langText(75)}));
    QVERIFY(fixture.fatals.isEmpty());
}

void win_transport_faults::aFaultLeavesTheStateThatWasReached()
{
    FormFixture fixture;
    auto& form = withAPart(fixture);
    fixture.engine.failing << QStringLiteral("FileR.Seek");
    form.Image9.click();
    QVERIFY(!form.IsPlaying && !form.PlayFeeding);
    fixture.engine.failing = {QStringLiteral("AudioPlayer.PlayArray")};
    form.Image9.click();
    QVERIFY(form.IsPlaying && form.PlayFeeding);
}

// Under the message the player would ask for the next array, and that would fail with nobody to trap it.
void win_transport_faults::theStreamEndsBeforeAFaultIsTold()
{
    FormFixture fixture;
    auto& form = withAPart(fixture);
    fixture.engine.failing << QStringLiteral("FileR.ReadArray");
    form.Image9.click();
    const QStringList calls = journal().commandsOf(QStringLiteral("(AudioPlayer.St|MsgBox)"));
    QCOMPARE(calls, (QStringList{"AudioPlayer.Start", "AudioPlayer.Stop",
                                 "MsgBox Exclamation [Quillon]: " + langText(75)}));
}

void win_transport_faults::aDeviceThatFailsClosesTheReaderWithoutAWord()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    fixture.engine.deviceFails = true;
    pressButton(form.Toolbar1, playButton);
    QCOMPARE(journal().commands().last(), QStringLiteral("FileR.Close"));
    QVERIFY(messages().isEmpty());
    journal().clear();
    fixture.engine.deviceFails = false;
    form.StopPlayback();
    pressButton(form.Toolbar1, playButton);
    QVERIFY(journal().commandsOf(QStringLiteral("AudioPlayer.Start")).isEmpty());
}

void win_transport_faults::aDeviceThatFailsForTheFileLeavesBothFlags()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    fixture.engine.deviceFails = true;
    pressButton(form.Toolbar1, playButton);
    QVERIFY(form.IsPlaying && form.PlayFeeding);
    form.StopPlayback();
    QVERIFY(!form.IsPlaying && !form.PlayFeeding);
}

void win_transport_faults::aDeviceThatFailsForAPartLeavesOneFlag()
{
    FormFixture fixture;
    auto& form = withAPart(fixture);
    fixture.engine.deviceFails = true;
    form.Image9.click();
    QVERIFY(form.IsPlaying && !form.PlayFeeding);
    QVERIFY(form.FileR->IsClosed());
    QVERIFY(messages().isEmpty());
}

void win_transport_faults::theFileCanBePlayedAfterItIsOpenedAgain()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    fixture.engine.deviceFails = true;
    pressButton(form.Toolbar1, playButton);
    fixture.engine.deviceFails = false;
    fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    QCOMPARE(journal().commandsOf(QStringLiteral("AudioPlayer.PlayArray")).size(), 2);
}

void win_transport_faults::movesOfThePositionDoNoHarmAfterADeviceThatFails()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    fixture.engine.deviceFails = true;
    pressButton(form.Toolbar1, playButton);
    press(form.Picture1, {300, 100});
    drag(form.Picture1, {300, 4}, {310, 4});
    form.Fwd1Sec.trigger();
    form.Rew1Sec.trigger();
    QVERIFY(fixture.fatals.isEmpty());
    QVERIFY(form.Line2.X1() > 4500);
}

void win_transport_faults::aStopThatFailsIsSilent()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    fixture.engine.failing << QStringLiteral("AudioPlayer.Stop");
    pressButton(form.Toolbar1, 12);
    QVERIFY(messages().isEmpty());
    QVERIFY(fixture.fatals.isEmpty());
    QCOMPARE(form.Line2.X1(), 0.0f);
}

void win_transport_faults::aStopThatFailsKeepsTheFlags()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    fixture.engine.failing << QStringLiteral("AudioPlayer.Stop");
    pressButton(form.Toolbar1, 11);
    QVERIFY(form.IsPlaying && form.PlayFeeding);
}

void win_transport_faults::aReadThatFailsDuringPlayIsNotTrapped()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    pressButton(form.Toolbar1, playButton);
    fixture.engine.failing << QStringLiteral("FileR.ReadArray");
    fixture.engine.player->RequestOnLoadArray();
    QCOMPARE(fixture.fatals.size(), 1);
}

void win_transport_faults::anEmptyFileIsNotPlayed()
{
    FormFixture fixture;
    auto& form = fixture.open(fakeSound(tenSeconds));
    fixture.engine.disk[QStringLiteral("/empty.wav")] = fakeSound(0);
    form.FileR->Open(QStringLiteral("/empty.wav"));
    journal().clear();
    pressButton(form.Toolbar1, playButton);
    QCOMPARE(journal().commands(), QStringList());
    QVERIFY(!form.IsPlaying && form.PlayFeeding);
}

void win_transport_faults::aPartWithoutAPathIsNotPlayed()
{
    FormFixture fixture;
    auto& form = withAPart(fixture);
    CurrentFile.clear();
    form.Image9.click();
    QCOMPARE(journal().commands(), QStringList());
    QVERIFY(!form.IsPlaying);
}

QTEST_MAIN(win_transport_faults)
#include "win_transport_faults.moc"
