// Presets and alt-presets from the dialog to a saved file: what is stored, what a new start reads back, what
// ffprobe says of the file.
#include "encoders/Mp3Stream.h"
#include "encoders/RealDesk.h"

using namespace hand;

namespace {

// Applies the preset in the dialog, as a user does.
void applyPreset(RealDesk& desk, bool isAlternative, int number)
{
    QTimer::singleShot(0, &desk.form, [=] {
        frmMP3& dialog = *Mp3SettingsForm;
        chooseTab(dialog.tabMP3, isAlternative ? 5 : 4);
        click(isAlternative ? dialog.opAltPreset(number) : dialog.opPreset(number));
        click(dialog.cmdOk);
        if (Mp3SettingsForm.loaded()) Mp3SettingsForm->reject();
    });
    showMp3Settings(desk.form);
}

QStringList textsOf(const Mp3Format& format)
{
    QStringList texts;
    for (const Mp3Key& row : mp3Keys) texts << textOf(format, row.property);
    return texts;
}

QStringList storedTexts()
{
    QStringList texts;
    for (const Mp3Key& row : mp3Keys) texts << IniRead(IniPath, "Mp3", row.key);
    return texts;
}

void addPresets()
{
    QTest::addColumn<bool>("isAlternative");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("vbrMethod");
    QTest::addColumn<int>("abr");        // kbit/s
    QTest::addColumn<int>("quality");    // of VBR
    QTest::addColumn<int>("lowpass");    // Hz
    const auto row = [](const char* name, bool isAlternative, int number, int rate, int channels,
                        int vbrMethod, int abr, int quality, int lowpass) {
        QTest::addRow("%s", name) << isAlternative << number << rate << channels << vbrMethod << abr
                                  << quality << lowpass;
    };
    row("Phone", false, 1, 16000, 1, 4, 16, 4, 5550);
    row("SW", false, 2, 16000, 1, 4, 24, 4, 5850);
    row("AM", false, 3, 24000, 1, 4, 40, 4, 10500);
    row("FM", false, 4, 44100, 2, 4, 112, 4, 15600);
    row("Voice", false, 5, 32000, 1, 4, 56, 4, 15000);
    row("Radio", false, 6, 44100, 2, 4, 112, 4, 15600);
    row("Tape", false, 7, 44100, 2, 4, 112, 4, 15600);
    row("HiFi", false, 8, 44100, 2, 4, 160, 4, 17500);
    row("CD", false, 9, 44100, 2, 4, 192, 4, 18600);
    row("Studio", false, 10, 44100, 2, 4, 256, 4, 19700);
    row("R3Mix", false, 11, 44100, 2, 3, 128, 3, 18000);
    row("Fast Standard", true, 1, 44100, 2, 3, 128, 2, 18500);
    row("Standard", true, 2, 44100, 2, 3, 128, 2, 18500);
    row("Fast Extreme", true, 3, 44100, 2, 3, 128, 0, 22050);
    row("Extreme", true, 4, 44100, 2, 3, 128, 0, 22050);
    row("Insane", true, 5, 44100, 2, -1, 128, 4, 20500);
}

}

class tst_preset_files : public QObject {
    Q_OBJECT
private slots:
    void theStoredValuesAreTheTabledOnes_data() { addPresets(); }
    void theStoredValuesAreTheTabledOnes();
    void aNewStartReadsTheSameValuesBack_data() { addPresets(); }
    void aNewStartReadsTheSameValuesBack();
    void theNewStartsDialogShowsThem_data() { addPresets(); }
    void theNewStartsDialogShowsThem();
    void theSavedFileHasThem_data() { addPresets(); }
    void theSavedFileHasThem();
};

void tst_preset_files::theStoredValuesAreTheTabledOnes()
{
    QFETCH(bool, isAlternative);
    QFETCH(int, number);
    RealDesk desk;
    applyPreset(desk, isAlternative, number);
    const auto stored = [](const char* key) { return IniRead(IniPath, "Mp3", key).toInt(); };
    QTEST(stored("10"), "rate");
    QTEST(stored("6"), "channels");
    QTEST(stored("20"), "vbrMethod");
    QTEST(stored("1"), "abr");
    QTEST(stored("21"), "quality");
    QTEST(stored("13"), "lowpass");
}

void tst_preset_files::aNewStartReadsTheSameValuesBack()
{
    QFETCH(bool, isAlternative);
    QFETCH(int, number);
    RealDesk desk;
    applyPreset(desk, isAlternative, number);
    const QStringList applied = textsOf(*desk.form.MP3LameEncoderMain);
    QCOMPARE(storedTexts(), applied);
    RealDesk newStart(IniPath);
    newStart.form.ApplyMp3Settings();
    QCOMPARE(textsOf(*newStart.form.MP3LameEncoderMain), applied);
}

void tst_preset_files::theNewStartsDialogShowsThem()
{
    QFETCH(bool, isAlternative);
    QFETCH(int, number);
    QFETCH(int, rate);
    QFETCH(int, channels);
    QFETCH(int, vbrMethod);
    QFETCH(int, lowpass);
    RealDesk desk;
    applyPreset(desk, isAlternative, number);
    RealDesk newStart(IniPath);
    newStart.form.ApplyMp3Settings();
    Mp3SettingsForm->AppelconvertMain(newStart.form);
    QCOMPARE(selectedRate(Mp3SettingsForm->cmbFrequency), rate);
    QCOMPARE(Mp3SettingsForm->cmbChMode.currentText(), QString(channels == 1 ? "Mono" : "Joint Stereo"));
    QCOMPARE(Mp3SettingsForm->cmbVBRCodingMethod.currentIndex(), vbrMethod + 1);
    QCOMPARE(Mp3SettingsForm->udLFiltF.value(), lowpass);
    Mp3SettingsForm.unload();
}

void tst_preset_files::theSavedFileHasThem()
{
    QFETCH(bool, isAlternative);
    QFETCH(int, number);
    QFETCH(int, vbrMethod);
    QFETCH(int, abr);
    QFETCH(int, lowpass);
    RealDesk desk;
    applyPreset(desk, isAlternative, number);
    const QString path = desk.save(part(), "a.mp3");
    QTEST(probe(path, "stream=sample_rate").toInt(), "rate");
    QTEST(probe(path, "stream=channels").toInt(), "channels");
    QCOMPARE(probe(path, "stream=codec_name"), QString("mp3"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const Mp3Stream stream(file.readAll());
    // The tag of a file at 16 kbit/s has no room in a frame of its own.
    if (!stream.tagName.isEmpty()) {
        QCOMPARE(stream.tagMethod, vbrMethod == 4 ? 2 : vbrMethod == 3 ? 4 : 1);
        QVERIFY(std::abs(stream.tagLowpass - lowpass / 100) <= 1);
    }
    const double kbit = stream.meanKbit();
    if (vbrMethod == 4) QVERIFY2(kbit > abr * 0.75 && kbit < abr * 1.25, qPrintable(QString::number(kbit)));
    if (vbrMethod == -1) QCOMPARE(kbit, 320.0);
}

QTEST_MAIN(tst_preset_files)
#include "tst_preset_files.moc"
