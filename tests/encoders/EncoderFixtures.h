// What the tests of the settings dialogs share: a main form with a writer and a format object that record
// what is asked of them, a settings file of its own, a message host, and a hand for the mouse and the keys.
#pragma once

#include "core/CutterSelect.h"
#include "encoders/Dialogs.h"
#include "encoders/frmMP3.h"
#include "encoders/frmOgg.h"
#include "encoders/frmWMA.h"
#include "export/Mp3Keys.h"
#include "support/Registre.h"

#include <QFile>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>

/// A writer that takes everything and writes down the calls that set a format.
class RecordingFile : public AudioFile {
public:
    QStringList calls;
    QStringList mp3Values; ///< the 22 texts of the format given last, in the order of the keys
    bool accepts = true;   ///< answer of IsFormatOggVorbisAvailable
    std::int32_t profiles = 51;

    void SetFormatPCM(std::int32_t, std::int32_t, std::int32_t) override { calls << "SetFormatPCM"; }
    void SetFormatMP3Ex(const Mp3Format& format) override
    {
        calls << "SetFormatMP3Ex";
        mp3Values.clear();
        for (const Mp3Key& row : mp3Keys) mp3Values << textOf(format, row.property);
        text_ = "MP3 " + QString::number(format.FormatBitrate);
    }
    void SetFormatMP3Simple(std::int32_t, std::int32_t, std::int32_t) override {}
    bool IsFormatOggVorbisAvailable(std::int32_t rate, std::int32_t channels, std::int32_t bitrate,
                                    std::int32_t minimum, std::int32_t maximum) const override
    {
        const_cast<QStringList&>(calls) << QString("IsFormatOggVorbisAvailable %1 %2 %3 %4 %5")
                                               .arg(rate)
                                               .arg(channels)
                                               .arg(bitrate)
                                               .arg(minimum)
                                               .arg(maximum);
        return accepts;
    }
    void SetFormatOggVorbis(std::int32_t rate, std::int32_t channels, std::int32_t bitrate,
                            std::int32_t minimum, std::int32_t maximum, std::int32_t quality) override
    {
        calls << QString("SetFormatOggVorbis %1 %2 %3 %4 %5 %6")
                     .arg(rate)
                     .arg(channels)
                     .arg(bitrate)
                     .arg(minimum)
                     .arg(maximum)
                     .arg(quality);
        text_ = QString("Ogg %1 %2").arg(bitrate).arg(quality);
    }
    void SetFormatWMA(std::int32_t profile) override
    {
        calls << QString("SetFormatWMA %1").arg(profile);
        if (profile < 1 || profile > profiles) throw EngineError("no such profile");
        text_ = QString("WMA %1").arg(profile);
    }
    std::int32_t GetWmaProfileCount() const override { return profiles; }
    QString FormatString() const override { return text_; }

    void SetWmaEnabled(bool) override {}
    void Open(const QString&) override {}
    bool IsClosed() const override { return true; }
    std::int32_t GetTotalSamples() const override { return 0; }
    std::int32_t GetSampleRate() const override { return 0; }
    std::int32_t GetOutputRate() const override { return 0; }
    std::int32_t GetChannels() const override { return 0; }
    std::int32_t GetReadChannels() const override { return 0; }
    std::int32_t GetDurationMs() const override { return 0; }
    SampleArray ReadArray(std::int32_t) override { return {}; }
    std::int32_t Seek(std::int32_t position) override { return position; }
    void SetInputFormat(std::int32_t, std::int32_t) override {}
    void Create(const QString&) override {}
    void WriteArray(const SampleArray&) override {}
    void Close() override {}

private:
    QString text_ = "as before";
};

/// A format object whose commands leave a trace in its properties.
class RecordingFormat : public Mp3Format {
public:
    QStringList commands;

    void SetCommandLine(const QString& text) override
    {
        commands << "SetCommandLine " + text;
        FormatBitrate = 56;
    }
    void ApplyPreset(std::int16_t number) override
    {
        commands << QString("ApplyPreset %1").arg(number);
        FormatBitrate = 160;
        VbrMethod = 4;
        AbrBitrate = static_cast<std::int16_t>(100 + number);
    }
    void ApplyAltPreset(std::int16_t number) override
    {
        commands << QString("ApplyAltPreset %1").arg(number);
        FormatBitrate = 192;
        VbrMethod = 3;
        VbrQuality = number;
    }
};

/// An engine that the form under test never asks.
class NoEngine : public AudioEngine {
public:
    std::unique_ptr<AudioFile> makeFile() override { return nullptr; }
    std::unique_ptr<Mp3Format> makeMp3Format() override { return nullptr; }
    std::unique_ptr<AudioTag> makeTag() override { return nullptr; }
    std::unique_ptr<AudioPlayerStream> makePlayer() override { return nullptr; }
    std::unique_ptr<AudioRecordEx> makeRecorder() override { return nullptr; }
};

/// Writes down the messages.
class MessageList : public DialogHost {
public:
    MessageList() { setDialogHost(this); }
    ~MessageList() override { setDialogHost(nullptr); }

    QStringList messages;

    Answer message(const QString& text, Icon icon, Buttons, const QString& title) override
    {
        messages << QString("%1|%2|%3").arg(title, text, icon == Icon::Critical ? "critical" : "other");
        return Answer::Ok;
    }
    std::optional<QString> openFile(const QString&, const FileFilter&) override { return {}; }
    std::optional<QString> saveFile(const QString&, const FileFilter&, const QString&) override { return {}; }
    std::optional<QString> folder(const QString&) override { return {}; }
};

/// The main form with recorders in place of the engine, and an empty settings file.
class Desk {
public:
    Desk()
    {
        setProgramFolder(QUILLON_SOURCE);
        IniPath = folder.filePath("Quillon.ini");
        form.LoadLanguage(languageFile("English"));
        auto file = std::make_unique<RecordingFile>();
        auto properties = std::make_unique<RecordingFormat>();
        writer = file.get();
        format = properties.get();
        form.FileWenc = std::move(file);
        form.MP3LameEncoderMain = std::move(properties);
    }
    ~Desk()
    {
        Mp3SettingsForm.unload();
        OggSettingsForm.unload();
        WmaSettingsForm.unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QString stored(const char* section, const QString& key) const { return IniRead(IniPath, section, key); }
    void store(const char* section, const char* key, const QString& value)
    {
        IniWrite(IniPath, section, key, value);
    }
    QString panel2() { return form.StatusBar1.Panels(2).text(); }

    /// Shows the dialog as the main form does, does the deed in it, and leaves it by Cancel if it is still
    /// up.
    template <typename Form, typename Deed>
    void open(void (*show)(CutterSelect&), FormHolder<Form>& holder, Deed deed)
    {
        QTimer::singleShot(0, &form, [&] {
            if (QTest::qWaitForWindowActive(&*holder)) deed(*holder);
            if (holder.loaded()) holder->reject();
        });
        show(form);
    }
    template <typename Deed>
    void openMp3(Deed deed)
    {
        open(showMp3Settings, Mp3SettingsForm, deed);
    }
    template <typename Deed>
    void openOgg(Deed deed)
    {
        open(showOggSettings, OggSettingsForm, deed);
    }
    template <typename Deed>
    void openWma(Deed deed)
    {
        open(showWmaSettings, WmaSettingsForm, deed);
    }

    QTemporaryDir folder;
    NoEngine engine;
    CutterSelect form{engine};
    MessageList host;
    RecordingFile* writer = nullptr;
    RecordingFormat* format = nullptr;
};

namespace hand {

/// A click on the button, or at the left of a check box or an option, where its mark is.
inline void click(QAbstractButton& button)
{
    const bool hasMark = button.isCheckable();
    QTest::mouseClick(&button, Qt::LeftButton, {},
                      hasMark ? QPoint(8, button.height() / 2) : button.rect().center());
}

inline void press(QWidget& control, Qt::Key key, int times = 1)
{
    for (int i = 0; i < times; ++i) QTest::keyClick(&control, key);
}

inline void chooseTab(QTabWidget& tabs, int index)
{
    QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(index).center());
}

/// Row by the keys.
inline void choose(QComboBox& list, int row)
{
    press(list, Qt::Key_Home);
    press(list, Qt::Key_Down, row);
}

/// Position by the keys.
inline void move(QSlider& slider, int position)
{
    press(slider, position < slider.value() ? Qt::Key_Left : Qt::Key_Right,
          std::abs(position - slider.value()));
}

/// Types the number in place of the old one.
inline void type(QSpinBox& box, int number)
{
    box.selectAll();
    QTest::keyClicks(&box, QString::number(number));
}

}
