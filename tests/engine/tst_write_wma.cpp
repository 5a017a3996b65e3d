// WMA output: every profile, the length within two frames of the codec, the sound in its place.
#include "core/Errors.h"
#include "engine/WmaProfiles.h"
#include "engine/WriteTools.h"

#include <QTest>

using namespace tools;

class tst_write_wma : public QObject {
    Q_OBJECT
private slots:
    void everyProfileGivesItsShape_data();
    void everyProfileGivesItsShape();
    void theLengthIsWithinTwoFrames_data();
    void theLengthIsWithinTwoFrames();
    void theSoundIsInItsPlace();
    void nothingOfTheEndIsLost();
    void aHighBitrateDoesNotBloatTheFile();
    void anEmptyFileIsStillOne();
    void otherNumbersAreRefused_data();
    void otherNumbersAreRefused();
};

void tst_write_wma::everyProfileGivesItsShape_data()
{
    QTest::addColumn<int>("number");
    for (int number = 1; number <= 51; ++number) QTest::addRow("profile %d", number) << number;
}

void tst_write_wma::everyProfileGivesItsShape()
{
    QFETCH(int, number);
    const WmaProfile& profile = wmaProfile(number);
    Folder folder;
    FileWriter writer;
    writer.SetFormatWMA(number);
    save(writer, folder / "a.wma", music(profile.rate, profile.channels, profile.rate / 2));
    const QString shape = probe(folder / "a.wma", "stream=codec_name,sample_rate,channels,bit_rate");
    QCOMPARE(shape.split('\n'),
             (QStringList{"wmav2", QString::number(profile.rate), QString::number(profile.channels),
                          QString::number(profile.bitrate * 1000)}));
    QVERIFY(decode(folder / "a.wma").size() >= static_cast<std::size_t>(profile.rate / 2 * profile.channels));
}

void tst_write_wma::theLengthIsWithinTwoFrames_data()
{
    QTest::addColumn<int>("profile");
    QTest::addColumn<int>("frames");
    for (const int frames : {1, 2047, 2048, 2049, 44100, 100003})
        QTest::addRow("%d samples", frames) << 39 << frames;
    QTest::addRow("mono") << 33 << 100003;
    QTest::addRow("8000 Hz") << 1 << 30001;
    QTest::addRow("22050 Hz") << 21 << 30001;
    QTest::addRow("the highest bitrate") << 51 << 100003;
}

void tst_write_wma::theLengthIsWithinTwoFrames()
{
    QFETCH(int, profile);
    QFETCH(int, frames);
    const int channels = wmaProfile(profile).channels;
    Folder folder;
    FileWriter writer;
    writer.SetFormatWMA(profile);
    save(writer, folder / "a.wma", music(wmaProfile(profile).rate, channels, frames));
    const int length = static_cast<int>(decode(folder / "a.wma").size()) / channels;
    QVERIFY2(length >= frames && length <= frames + 2 * 2048, qPrintable(QString::number(length)));
}

void tst_write_wma::theSoundIsInItsPlace()
{
    Folder folder;
    const SampleArray sound = music(44100, 2, 200000);
    FileWriter writer;
    writer.SetFormatWMA(43);
    save(writer, folder / "a.wma", sound);
    const double distance = signalToNoise(sound, decode(folder / "a.wma"));
    QVERIFY2(distance > 30, qPrintable(QString::number(distance)));
}

void tst_write_wma::nothingOfTheEndIsLost()
{
    Folder folder;
    const SampleArray sound = music(44100, 2, 100003);
    FileWriter writer;
    writer.SetFormatWMA(43);
    save(writer, folder / "a.wma", sound);
    const SampleArray heard = decode(folder / "a.wma");
    const std::size_t tail = 6000;
    const auto from = sound.size() - tail;
    QVERIFY(heard.size() >= sound.size());
    QVERIFY(signalToNoise(std::span(sound).subspan(from), std::span(heard).subspan(from, tail)) > 25);
}

void tst_write_wma::aHighBitrateDoesNotBloatTheFile()
{
    Folder folder;
    const int seconds = 10;
    FileWriter writer;
    writer.SetFormatWMA(41);
    save(writer, folder / "a.wma", music(44100, 2, 44100 * seconds));
    const double kilobits = static_cast<double>(contents(folder / "a.wma").size()) * 8 / 1000 / seconds;
    QVERIFY2(kilobits < 192 * 1.15, qPrintable(QString::number(kilobits)));
}

void tst_write_wma::anEmptyFileIsStillOne()
{
    Folder folder;
    FileWriter writer;
    writer.SetFormatWMA(39);
    save(writer, folder / "a.wma", {});
    QCOMPARE(probe(folder / "a.wma", "stream=codec_name"), QString("wmav2"));
}

void tst_write_wma::otherNumbersAreRefused_data()
{
    QTest::addColumn<int>("number");
    QTest::addRow("0") << 0;
    QTest::addRow("-1") << -1;
    QTest::addRow("52") << 52;
}

void tst_write_wma::otherNumbersAreRefused()
{
    QFETCH(int, number);
    FileWriter writer;
    writer.SetFormatWMA(20);
    QVERIFY_THROWS_EXCEPTION(EngineError, writer.SetFormatWMA(number));
    QCOMPARE(writer.FormatString(), QString("WMA 2, 32 kbit/s, 22050 Hz, stereo"));
}

QTEST_GUILESS_MAIN(tst_write_wma)
#include "tst_write_wma.moc"
