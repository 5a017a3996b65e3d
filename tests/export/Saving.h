// Ground for the tests of saving: a song in parts, the answers of its dialogs, and what a save has to leave
// behind.
#pragma once

#include "core/toolkit/FormHolder.h"
#include "support/FormFixture.h"
#include "waveform/Form2.h"

#include <QTest>

inline constexpr std::int32_t songLength = 12000;    ///< samples
inline const std::vector<std::int32_t> songCuts{3000, 7000};

inline const FakeSound& shortSong()
{
    static const FakeSound sound = fakeSound(songLength);
    return sound;
}

/// Longer than a few blocks of the copy loop.
inline const FakeSound& longSong()
{
    static const FakeSound sound = fakeSound(750000);
    return sound;
}

/// The form with a song open, WMA switched on and a format selected.
struct Saving {
    FormFixture fixture;
    const FakeSound& song;
    CutterSelect& form;

    explicit Saving(const QString& format, std::initializer_list<std::int32_t> cuts = {3000, 7000},
                    const FakeSound& sound = shortSong())
        : song(sound), form(prepared(format).open(sound, cuts))
    {
        form.infoYear.setText("1999");
        form.StatusBar1.Panels(1).setText("a job");
    }

    /// Selects the part of a list row by a press on the bar.
    void select(int row)
    {
        fixture.pressBarOfRow(row);
        journal().clear();
    }
    void title(int row, const QString& text)
    {
        select(row);
        form.TextTitle.clear();
        QTest::keyClicks(&form.TextTitle, text);
        journal().clear();
    }
    /// Clicks on the save button and answers the dialog with a path.
    void save(const QString& path = "/out/part")
    {
        fixture.dialogs.files.push_back(path);
        clickSave();
    }
    void clickSave() { press(form.Image8, form.Image8.rect().center()); }
    /// Chooses "Save all parts" and answers the folder chooser.
    void saveAll(const QString& folder = "/out")
    {
        fixture.dialogs.files.push_back(folder);
        form.SaveAllParts.trigger();
    }

    const SampleArray& written(const QString& path = "/out/part")
    {
        return fixture.engine.disk[path].samples;
    }
    bool exists(const QString& path) const { return fixture.engine.disk.contains(path); }
    QStringList files() const { return fixture.engine.disk.keys().filter(QRegularExpression("^/out/")); }
    SampleArray stretch(std::int32_t start, std::int32_t end) const
    {
        return {song.samples.begin() + start * 2, song.samples.begin() + end * 2};
    }
    QString panel1() { return form.StatusBar1.Panels(1).text(); }
    QString panel2() { return form.StatusBar1.Panels(2).text(); }
    /// What a job that has ended may not leave behind; "" when there is none of it.
    QString leftOver() const
    {
        QStringList left;
        if (!form.isEnabled()) left << "the form is disabled";
        if (ProgressForm.loaded()) left << "the progress dialog is there";
        if (KeepRunning) left << "KeepRunning is set";
        return left.join(", ");
    }

private:
    FormFixture& prepared(const QString& format)
    {
        fixture.writeSetting("OutPutCut", "Format", format);
        fixture.writeSetting("WMA", "WMASUPPORT", "True");
        return fixture;
    }
};

inline QStringList messages()
{
    return journal().commandsOf("MsgBox");
}

inline QString criticalMessage(std::size_t text)
{
    return "MsgBox Critical [Quillon]: " + langText(text);
}

/// At the first line that begins with `command`, once: does what a user would do at that moment.
inline void at(const QString& command, std::function<void()> act)
{
    journal().onCommand = [command, act](const QString& line) {
        if (!line.startsWith(command)) return;
        const auto once = act;    // the function that runs here is about to go
        journal().onCommand = nullptr;
        once();
    };
}

/// The user's click on Cancel. It does nothing where the dialog is disabled or hidden.
inline void clickCancel()
{
    QTest::mouseClick(&ProgressForm->Command1, Qt::LeftButton);
}

/// What the tags of a part take, for both versions.
inline QStringList tagLines(const QString& path, const QString& title = {}, const QString& year = "1999")
{
    QStringList lines;
    const auto line = [&](const QString& name, const QString& value) {
        lines << (value.isEmpty() ? "AudioTags." + name : "AudioTags." + name + " " + value);
    };
    for (const char* version : {"1", "2"}) {
        line("SetTagVersion", version);
        line("SetTitle", title);
        line("SetArtist", "");
        line("SetAlbum", "");
        line("SetGenre", "-1");
        line("SetComment", "");
        line("SetYear", year);
        line("SetTrack", "0");
        line("SetEncodedBy", "Quillon - Meridel");
        line("WriteTo", path);
    }
    return lines;
}
