// A main form for one test: its own settings and folders, the fake engine, the fake dialogs, all shared state
// fresh.
#pragma once

#include "core/CutterSelect.h"
#include "support/FakeDialogs.h"
#include "support/FakeEngine.h"

#include <QTemporaryDir>

#include <optional>

inline constexpr std::int32_t testRate = 44100;

class FormFixture {
public:
    FormFixture();
    ~FormFixture();

    /// Makes, loads and shows the form. Before it, a test may write settings and set the engine up.
    CutterSelect& load();
    /// The same with `sound` open as "/music/song.mp3" and cuts at these samples; the journal is empty
    /// afterwards.
    CutterSelect& open(const FakeSound& sound, std::initializer_list<std::int32_t> cuts = {});
    /// Sets the position line at a sample and cuts there.
    void cutAt(std::int32_t sample);
    /// A press on the bar inside the part of this list row.
    void pressBarOfRow(int row, Qt::MouseButton button = Qt::LeftButton);
    /// Logical pixels of a sample on the waveform.
    int pixelOf(std::int32_t sample) const;

    void writeSetting(const QString& section, const QString& key, const QString& value);
    QString setting(const QString& section, const QString& key) const;
    QString settingsText() const;    ///< the whole settings file
    QString path(const QString& name) const { return folder_.filePath(name); }

    FakeEngine engine;
    FakeDialogs dialogs;
    std::optional<CutterSelect> form;
    QStringList fatals;    ///< texts of errors that reached the wall
    QList<int> ended;      ///< statuses with which the process would have ended

private:
    QTemporaryDir folder_;
};

/// A press and a release at a place of a widget, in logical pixels.
void press(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton);
