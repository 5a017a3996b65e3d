// Ogg Vorbis and WMA from the dialogs to a saved file: which combinations are refused, the bitrate that comes
// out, and that each WMA profile writes a file that plays.
#include "encoders/RealDesk.h"

using namespace hand;

namespace {

/// A minute of music, 44100 Hz, two channels: plucked strings, a bowed tone that wanders, brown noise in
/// swells.
const SampleArray& aMinuteOfMusic()
{
    static const SampleArray music = [] {
        const QByteArray bytes =
            run("sox", {"-R",        "-V1",      "-n",      "-r",      "44100",  "-c",   "2",          "-b",
                        "16",        "-t",       "raw",     "-e",      "signed", "-",    "synth",      "60",
                        "pluck",     "E2",       "pluck",   "A3",      "synth",  "60",   "sawtooth",   "mix",
                        "220-880",   "sawtooth", "mix",     "330-440", "synth",  "60",   "brownnoise", "mix",
                        "pinknoise", "mix",      "tremolo", "0.7",     "60",     "gain", "-n",         "-3"});
        SampleArray samples(static_cast<std::size_t>(bytes.size()) / 2);
        std::memcpy(samples.data(), bytes.constData(), samples.size() * 2);
        return samples;
    }();
    return music;
}

// What the user does in the Ogg dialog: positions of the sliders by their bitrates, 0 for VBR off, then OK.
void chooseOgg(RealDesk& desk, int nominal, int minimum = 0, int maximum = 0)
{
    QTimer::singleShot(0, &desk.form, [=] {
        frmOgg& dialog = *OggSettingsForm;
        move(dialog.sldrBitrate, positionOfBitrate(nominal));
        if (minimum != 0) {
            click(dialog.chVbr);
            move(dialog.sldrMinBitrate, positionOfBitrate(minimum));
            move(dialog.sldrMaxBitrate, positionOfBitrate(maximum));
        }
        click(dialog.cmdOk);
        if (OggSettingsForm.loaded()) OggSettingsForm->reject();
    });
    showOggSettings(desk.form);
}

}

class tst_ogg_wma_files : public QObject {
    Q_OBJECT
private slots:
    void theNominalBitrateComesOut_data();
    void theNominalBitrateComesOut();
    void theEncoderTakesOrRefuses_data();
    void theEncoderTakesOrRefuses();
    void whatWasRefusedFallsBackToQuality();
    void theQualityOfTheDialogIsInTheFile();
    void aWmaProfilePlays_data();
    void aWmaProfilePlays();
};

void tst_ogg_wma_files::theNominalBitrateComesOut_data()
{
    QTest::addColumn<int>("kbit");
    for (const int kbit : {64, 128, 320}) QTest::addRow("%d kbit/s", kbit) << kbit;
}

void tst_ogg_wma_files::theNominalBitrateComesOut()
{
    QFETCH(int, kbit);
    RealDesk desk;
    chooseOgg(desk, kbit);
    const QString path = desk.save(aMinuteOfMusic(), "a.ogg");
    QCOMPARE(probe(path, "stream=codec_name"), QString("vorbis"));
    const double heardKbit = probe(path, "format=bit_rate").toDouble() / 1000;
    QVERIFY2(std::abs(heardKbit - kbit) <= kbit * 0.05, qPrintable(QString::number(heardKbit)));
}

void tst_ogg_wma_files::theEncoderTakesOrRefuses_data()
{
    QTest::addColumn<int>("nominal");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<bool>("isTaken");
    QTest::addRow("48 kbit/s is the least in stereo") << 48 << 0 << 0 << true;
    QTest::addRow("32 kbit/s is too little in stereo") << 32 << 0 << 0 << false;
    QTest::addRow("320 kbit/s is the most") << 320 << 0 << 0 << true;
    QTest::addRow("limits around the nominal bitrate") << 128 << 96 << 192 << true;
    QTest::addRow("limits on the nominal bitrate") << 128 << 128 << 128 << true;
    QTest::addRow("a minimum above the nominal bitrate") << 128 << 192 << 256 << false;
    QTest::addRow("a maximum below the nominal bitrate") << 128 << 64 << 96 << false;
}

void tst_ogg_wma_files::theEncoderTakesOrRefuses()
{
    QFETCH(int, nominal);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(bool, isTaken);
    RealDesk desk;
    chooseOgg(desk, nominal, minimum, maximum);
    QCOMPARE(desk.host.messages, isTaken ? QStringList() : QStringList{"Quillon|Incorrect format|critical"});
}

void tst_ogg_wma_files::whatWasRefusedFallsBackToQuality()
{
    RealDesk desk;
    desk.form.FileWenc->SetFormatOggVorbis(44100, 2, 128, 0, 0, 300);
    const QString byQuality = desk.form.FileWenc->FormatString();
    chooseOgg(desk, 32, 32, 32);
    desk.form.ApplyOggSettings();
    QCOMPARE(desk.form.FileWenc->FormatString(), byQuality);
}

void tst_ogg_wma_files::theQualityOfTheDialogIsInTheFile()
{
    const auto sizeAt = [](int steps) {
        RealDesk desk;
        QTimer::singleShot(0, &desk.form, [=] {
            click(OggSettingsForm->chQuality);
            press(OggSettingsForm->sldrQuality, steps < 0 ? Qt::Key_Left : Qt::Key_Right, std::abs(steps));
            click(OggSettingsForm->cmdOk);
            if (OggSettingsForm.loaded()) OggSettingsForm->reject();
        });
        showOggSettings(desk.form);
        return QFileInfo(desk.save(part(), "a.ogg")).size();
    };
    const qint64 least = sizeAt(-300);
    const qint64 middle = sizeAt(0);
    QVERIFY(least < middle);
    QVERIFY(middle < sizeAt(700));
}

void tst_ogg_wma_files::aWmaProfilePlays_data()
{
    QTest::addColumn<int>("profile");
    for (int profile = 1; profile <= 51; ++profile) QTest::addRow("profile %d", profile) << profile;
}

void tst_ogg_wma_files::aWmaProfilePlays()
{
    QFETCH(int, profile);
    RealDesk desk;
    QString description;
    QTimer::singleShot(0, &desk.form, [&] {
        type(WmaSettingsForm->udWMAProfile, profile);
        description = WmaSettingsForm->txtWMAFormatString.text();
        click(WmaSettingsForm->cmdOk);
    });
    showWmaSettings(desk.form);
    const QString path = desk.save(part(), "a.wma");
    const QStringList told = probe(path, "stream=codec_name,sample_rate,channels,bit_rate").split('\n');
    QCOMPARE(told.size(), 4);
    QCOMPARE(told[0], QString("wmav2"));
    QCOMPARE(description, QString("WMA 2, %1 kbit/s, %2 Hz, %3")
                              .arg(told[3].toInt() / 1000)
                              .arg(told[1], told[2] == "1" ? "mono" : "stereo"));
    const double seconds = static_cast<double>(heard(path).size()) / 44100;
    // The codec knows whole blocks only, 2048 samples at most, and two of them may be added.
    QVERIFY2(seconds >= 2.0 && seconds < 2.0 + 2 * 2048.0 / 8000, qPrintable(QString::number(seconds)));
}

QTEST_MAIN(tst_ogg_wma_files)
#include "tst_ogg_wma_files.moc"
