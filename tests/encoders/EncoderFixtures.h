// What the tests of the settings dialogs share: a main form with recorders in place of the engine, a settings
// file of its own, and a hand for the mouse and the keys.
#pragma once

#include "core/CutterSelect.h"
#include "encoders/Dialogs.h"
#include "encoders/RecordingEngine.h"
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
        bool isUp = false;
        QTimer::singleShot(0, &form, [&] {
            isUp = QTest::qWaitForWindowActive(&*holder);
            if (isUp) deed(*holder);
            if (holder.loaded()) holder->reject();
        });
        show(form);
        QVERIFY2(isUp, "the dialog did not come up");
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
