// Format, volume, levels and devices of the player.
#include "core/Errors.h"
#include "tests/engine/tst_player_stage.h"

#include <QTest>

#include <limits>

class tst_player_settings : public QObject {
    Q_OBJECT

private slots:
    void millisecondsAndSamplesConvert_data();
    void millisecondsAndSamplesConvert();
    void theRateIs44100BeforeAnyFormat();
    void resultsBeyond32BitsStopAtTheEnd();
    void aFormatOfNothingIsRefused_data();
    void aFormatOfNothingIsRefused();
    void theVolumeStaysAcrossStarts();
    void theVolumeIsFullAtFirst();
    void theTimerTellsTheLevels();
    void theLevelArrayIsTheSoundHeardLast();
    void deviceZeroIsTheOneThatTheDesktopPrefers();
    void everyDeviceCountedIsValid();
    void theDeviceBehindTheLastIsNotValid();
    void withoutDevicesThereIsNothingToCount();
    void aDeviceCountsFromTheNextStart();
    void aDeviceThatIsNotValidCannotStart();
};

void tst_player_settings::millisecondsAndSamplesConvert_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("ms");
    QTest::addColumn<int>("samples");
    QTest::addColumn<int>("msBack");
    QTest::addRow("four seconds") << 44100 << 4000 << 176400 << 4000;
    QTest::addRow("samples are rounded down") << 44100 << 1 << 44 << 0;
    QTest::addRow("a rate below 1000 Hz") << 900 << 3 << 2 << 2;
    QTest::addRow("hours do not overflow") << 44100 << 36000000 << 1587600000 << 36000000;
    QTest::addRow("before the beginning") << 44100 << -1 << -45 << -2;
}

void tst_player_settings::millisecondsAndSamplesConvert()
{
    QFETCH(int, rate);
    QFETCH(int, ms);
    QFETCH(int, samples);
    QFETCH(int, msBack);
    Stage stage;
    stage.player.SetFormat(rate, 2);
    QCOMPARE(stage.player.MsToSamples(ms), samples);
    QCOMPARE(stage.player.SamplesToMs(samples), msBack);
}

void tst_player_settings::theRateIs44100BeforeAnyFormat()
{
    Stage stage;
    QCOMPARE(stage.player.MsToSamples(1000), 44100);
    QCOMPARE(stage.player.SamplesToMs(44100), 1000);
}

void tst_player_settings::resultsBeyond32BitsStopAtTheEnd()
{
    Stage stage;
    QCOMPARE(stage.player.MsToSamples(std::numeric_limits<std::int32_t>::max()),
             std::numeric_limits<std::int32_t>::max());
}

void tst_player_settings::aFormatOfNothingIsRefused_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::addRow("no rate") << 0 << 2;
    QTest::addRow("no channels") << 44100 << 0;
}

void tst_player_settings::aFormatOfNothingIsRefused()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    Stage stage;
    QVERIFY_EXCEPTION_THROWN(stage.player.SetFormat(rate, channels), EngineError);
    QCOMPARE(stage.player.MsToSamples(1000), 44100);
}

void tst_player_settings::theVolumeStaysAcrossStarts()
{
    Stage stage;
    stage.player.SetVolume(0);
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 100));
    stage.backend->advance(100);
    stage.player.Stop();
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 100));
    stage.backend->advance(100);
    QCOMPARE(stage.backend->silentFrames, std::size_t{0});
    QCOMPARE(stage.backend->sound, SampleArray(400, 0));
}

void tst_player_settings::theVolumeIsFullAtFirst()
{
    QCOMPARE(Stage().player.GetVolume(), 65535);
}

void tst_player_settings::theTimerTellsTheLevels()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray({100, -200, 50, 60, 5000, 5000});
    stage.backend->advance(2);
    stage.player.tick();
    QCOMPARE(stage.left, 100);
    QCOMPARE(stage.right, 200);
}

void tst_player_settings::theLevelArrayIsTheSoundHeardLast()
{
    Stage stage;
    stage.player.Start();
    stage.player.PlayArray(codedSound(1, 40000));
    stage.backend->advance(30000);
    QCOMPARE(frameNumbers(stage.player.GetLevelArray(22050)), frameRange(30000 - 22050 + 1, 30000));
}

void tst_player_settings::deviceZeroIsTheOneThatTheDesktopPrefers()
{
    Stage stage;
    stage.player.SetDevice(0);
    stage.player.Start();
    QCOMPARE(stage.backend->started, (std::vector<std::string>{""}));
}

void tst_player_settings::everyDeviceCountedIsValid()
{
    Stage stage;
    QCOMPARE(stage.player.GetDeviceCount(), 3);
    for (std::int32_t k = 0; k < 3; ++k) {
        stage.player.SetDevice(k);
        QVERIFY(stage.player.GetDeviceValid());
    }
}

void tst_player_settings::theDeviceBehindTheLastIsNotValid()
{
    Stage stage;
    stage.player.SetDevice(stage.player.GetDeviceCount());
    QVERIFY(!stage.player.GetDeviceValid());
}

void tst_player_settings::withoutDevicesThereIsNothingToCount()
{
    Stage stage;
    stage.backend->devices.clear();
    QCOMPARE(stage.player.GetDeviceCount(), 0);
    stage.player.SetDevice(0);
    QVERIFY(!stage.player.GetDeviceValid());
}

void tst_player_settings::aDeviceCountsFromTheNextStart()
{
    Stage stage;
    stage.player.Start();
    stage.player.SetDevice(2);
    stage.player.PlayArray(codedSound(1, 100));
    stage.backend->advance(100);
    stage.player.Start();
    QCOMPARE(stage.backend->started, (std::vector<std::string>{"", "phones"}));
    QCOMPARE(stage.heard(), frameRange(1, 100));
}

void tst_player_settings::aDeviceThatIsNotValidCannotStart()
{
    Stage stage;
    stage.player.SetDevice(99);
    stage.player.Start();
    QVERIFY(stage.player.GetFailed());
}

QTEST_GUILESS_MAIN(tst_player_settings)
#include "tst_player_settings.moc"
