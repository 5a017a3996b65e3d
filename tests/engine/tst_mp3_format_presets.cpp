// The presets of the MP3 format object: what they set, and that the encoder library agrees.
#include "core/Errors.h"
#include "engine/LameFormat.h"

#include <QTest>

#include <dlfcn.h>
#include <lame/lame.h>

namespace {

void addPresets()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("alternative");
    QTest::addColumn<int>("lamePreset");    // as LAME numbers them
    const auto row = [](const char* name, int number, bool alternative, int lamePreset) {
        QTest::addRow("%s", name) << number << alternative << lamePreset;
    };
    row("Phone", 1, false, 16);
    row("SW", 2, false, 24);
    row("AM", 3, false, 40);
    row("FM", 4, false, 112);
    row("Voice", 5, false, 56);
    row("Radio", 6, false, 112);
    row("Tape", 7, false, 112);
    row("HiFi", 8, false, 160);
    row("CD", 9, false, 192);
    row("Studio", 10, false, 256);
    row("R3Mix", 11, false, R3MIX);
    row("Fast Standard", 1, true, STANDARD_FAST);
    row("Standard", 2, true, STANDARD);
    row("Fast Extreme", 3, true, EXTREME_FAST);
    row("Extreme", 4, true, EXTREME);
    row("Insane", 5, true, INSANE);
}

LameFormat withPreset(int number, bool alternative)
{
    LameFormat format;
    if (alternative)
        format.ApplyAltPreset(static_cast<std::int16_t>(number));
    else
        format.ApplyPreset(static_cast<std::int16_t>(number));
    return format;
}

void* openLame()
{
    return ::dlopen("libmp3lame.so.0", RTLD_NOW);
}

/// What the live library makes of one of its presets, for sound of the rate and channels given.
class LiveLame {
public:
    LiveLame(int preset, int rate, int channels)
    {
        find<decltype(&lame_set_errorf)>("lame_set_errorf")(lame_, [](const char*, va_list) {});
        find<decltype(&lame_set_msgf)>("lame_set_msgf")(lame_, [](const char*, va_list) {});
        set("lame_set_in_samplerate", rate);
        set("lame_set_out_samplerate", rate);
        set("lame_set_num_channels", channels);
        if (channels == 1) set("lame_set_mode", MONO);
        set("lame_set_preset", preset);
        find<decltype(&lame_init_params)>("lame_init_params")(lame_);
    }
    ~LiveLame()
    {
        find<decltype(&lame_close)>("lame_close")(lame_);
        ::dlclose(library_);
    }
    int get(const char* name) const { return find<int (*)(const lame_global_flags*)>(name)(lame_); }

private:
    template <typename Function>
    Function find(const char* name) const
    {
        return reinterpret_cast<Function>(::dlsym(library_, name));
    }
    void set(const char* name, int value) { find<int (*)(lame_t, int)>(name)(lame_, value); }

    void* library_ = openLame();
    lame_t lame_ = find<decltype(&lame_init)>("lame_init")();
};

}

class tst_mp3_format_presets : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void theLibraryAgreesOnTheMethod_data() { addPresets(); }
    void theLibraryAgreesOnTheMethod();
    void theLibraryAgreesOnTheBitrate_data() { addPresets(); }
    void theLibraryAgreesOnTheBitrate();
    void theLibraryAgreesOnTheLowpass_data() { addPresets(); }
    void theLibraryAgreesOnTheLowpass();
    void theRateIsOneOfTheNine_data() { addPresets(); }
    void theRateIsOneOfTheNine();
    void phoneIsMonoAt16Kilohertz();
    void insaneIsConstantAt320();
    void thePresetReplacesWhatStoodBefore();
    void whatAPresetDoesNotSayIsKept();
    void otherNumbersFailAndChangeNothing_data();
    void otherNumbersFailAndChangeNothing();
};

// Without the library there is nobody to agree, and no test of this program goes on.
void tst_mp3_format_presets::initTestCase()
{
    void* const library = openLame();
    QVERIFY2(library, ::dlerror());
    ::dlclose(library);
}

void tst_mp3_format_presets::theLibraryAgreesOnTheMethod()
{
    QFETCH(int, number);
    QFETCH(bool, alternative);
    QFETCH(int, lamePreset);
    const LameFormat format = withPreset(number, alternative);
    const LiveLame lame(lamePreset, format.FormatRate, format.FormatChannels);
    const QMap<int, int> methods = {{vbr_off, -1}, {vbr_mtrh, 3}, {vbr_abr, 4}};
    QCOMPARE(format.VbrMethod, methods.value(lame.get("lame_get_VBR"), -99));
}

void tst_mp3_format_presets::theLibraryAgreesOnTheBitrate()
{
    QFETCH(int, number);
    QFETCH(bool, alternative);
    QFETCH(int, lamePreset);
    const LameFormat format = withPreset(number, alternative);
    const LiveLame lame(lamePreset, format.FormatRate, format.FormatChannels);
    if (format.VbrMethod == 4) {
        QCOMPARE(int(format.AbrBitrate), lame.get("lame_get_VBR_mean_bitrate_kbps"));
        QCOMPARE(format.MaxVbrBitrate, lame.get("lame_get_VBR_max_bitrate_kbps"));
        QCOMPARE(9 - format.EncoderQuality, lame.get("lame_get_quality"));
    } else if (format.VbrMethod == 3) {
        QCOMPARE(int(format.VbrQuality), lame.get("lame_get_VBR_q"));
        QCOMPARE(format.MaxVbrBitrate, lame.get("lame_get_VBR_max_bitrate_kbps"));
    } else {
        QCOMPARE(format.FormatBitrate, lame.get("lame_get_brate"));
    }
}

void tst_mp3_format_presets::theLibraryAgreesOnTheLowpass()
{
    QFETCH(int, number);
    QFETCH(bool, alternative);
    QFETCH(int, lamePreset);
    const LameFormat format = withPreset(number, alternative);
    const LiveLame lame(lamePreset, format.FormatRate, format.FormatChannels);
    QCOMPARE(format.LowpassFrequency, lame.get("lame_get_lowpassfreq"));
}

void tst_mp3_format_presets::theRateIsOneOfTheNine()
{
    QFETCH(int, number);
    QFETCH(bool, alternative);
    const QList<int> rates = {8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000};
    QVERIFY(rates.contains(withPreset(number, alternative).FormatRate));
}

void tst_mp3_format_presets::phoneIsMonoAt16Kilohertz()
{
    const LameFormat format = withPreset(1, false);
    QCOMPARE(format.FormatRate, 16000);
    QCOMPARE(format.FormatChannels, 1);
    QCOMPARE(int(format.AbrBitrate), 16);
    QCOMPARE(format.FormatBitrate, 16);
    QCOMPARE(format.MaxVbrBitrate, 160);
}

void tst_mp3_format_presets::insaneIsConstantAt320()
{
    const LameFormat format = withPreset(5, true);
    QCOMPARE(format.VbrMethod, -1);
    QCOMPARE(format.FormatBitrate, 320);
}

void tst_mp3_format_presets::thePresetReplacesWhatStoodBefore()
{
    LameFormat format;
    format.ErrorProtection = true;
    format.StereoMode = 4;
    format.HighpassFrequency = 1000;
    format.EncoderQuality = 0;
    format.ApplyPreset(9);
    QVERIFY(!format.ErrorProtection);
    QCOMPARE(format.StereoMode, 2);
    QCOMPARE(format.HighpassFrequency, -1);
    QCOMPARE(int(format.EncoderQuality), 6);
}

void tst_mp3_format_presets::whatAPresetDoesNotSayIsKept()
{
    LameFormat format;
    format.FormatBitrate = 224;
    format.AbrBitrate = 99;
    format.ApplyAltPreset(2);
    QCOMPARE(format.FormatBitrate, 224);
    QCOMPARE(int(format.AbrBitrate), 99);
    QCOMPARE(int(format.VbrQuality), 2);
}

void tst_mp3_format_presets::otherNumbersFailAndChangeNothing_data()
{
    QTest::addColumn<int>("number");
    for (const int number : {0, -1, 12, 32767, -32768}) QTest::addRow("%d", number) << number;
}

void tst_mp3_format_presets::otherNumbersFailAndChangeNothing()
{
    QFETCH(int, number);
    LameFormat format;
    format.FormatBitrate = 99;
    QVERIFY_THROWS_EXCEPTION(EngineError, format.ApplyPreset(static_cast<std::int16_t>(number)));
    QVERIFY_THROWS_EXCEPTION(EngineError, format.ApplyAltPreset(static_cast<std::int16_t>(number)));
    QVERIFY_THROWS_EXCEPTION(EngineError, format.ApplyAltPreset(6));
    QCOMPARE(format.FormatBitrate, 99);
    QCOMPARE(format.FormatRate, 44100);
    QCOMPARE(format.VbrMethod, -1);
}

QTEST_GUILESS_MAIN(tst_mp3_format_presets)
#include "tst_mp3_format_presets.moc"
