// A user's journey: the real window, the real engine, the real dialogs, files in a folder of the test's own.
#pragma once

#include "core/CutterSelect.h"
#include "support/DialogDriver.h"

#include <QTemporaryDir>

#include <memory>

class Journey {
public:
    Journey();
    ~Journey();

    CutterSelect& form() { return *form_; }
    /// Starts the program; before it, settings can be written.
    void start();
    /// Opens a file through the file dialog.
    void open(const QString& path);
    /// Puts the position line at a sample by a press on the wave, and cuts there by the tool bar.
    void cutAt(std::int32_t sample);
    void selectRow(int row);
    void title(int row, const QString& text);
    void saveAll(const QString& folder);
    /// Saves the selected part under a path by the entry of the menu.
    void savePart(QAction& entry, const QString& path);

    QString path(const QString& name) const { return folder_.filePath(name); }
    QString folder(const QString& name) const;    ///< made where it is missing
    void setting(const QString& section, const QString& key, const QString& value) const;

    DialogDriver dialogs;

private:
    QTemporaryDir folder_;
    std::unique_ptr<AudioEngine> engine_;
    std::unique_ptr<CutterSelect> form_;
};

/// Two channels of noise over tones, as 16-bit samples, the same on every run.
SampleArray music(std::int32_t length);

/// Writes a plain WAV of interleaved samples.
void writeWav(const QString& path, const SampleArray& samples, int rate = 44100, int channels = 2);

/// The bytes of sound of a WAV file, found by its chunks.
SampleArray readWav(const QString& path);

/// Runs a program to its end and returns what it printed. Fails the test when its status isn't 0.
QByteArray runProgram(const QString& program, const QStringList& arguments);

/// The file as ffmpeg decodes it: 16-bit samples.
SampleArray decoded(const QString& path);

/// A tag as ffprobe reads it, of the file or of its sound; "" when there is none.
QString probedTag(const QString& path, const QString& tag);
