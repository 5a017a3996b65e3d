// The program's window, driven without a user: dialogs are answered, and a message that would ask for one
// ends the run.
#pragma once

#include "core/CutterSelect.h"

#include <memory>

/// Answers every dialog with one path.
class Answers : public DialogHost {
public:
    QString path;

    Answer message(const QString& text, Icon icon, Buttons buttons, const QString& title) override;
    std::optional<QString> openFile(const QString&, const FileFilter&) override { return path; }
    std::optional<QString> saveFile(const QString&, const FileFilter&, const QString&) override
    {
        return path;
    }
    std::optional<QString> folder(const QString&) override { return path; }
};

/// The shown main window with the real engine behind it.
class FormBench {
public:
    FormBench();
    ~FormBench();

    /// Opens a file as the menu does. Throws when there is no picture of it afterwards.
    void open(const QString& file);

    /// Prints "job WALL CPU" for saving one stretch, in samples, or all parts between the cuts, under
    /// `target`.
    void save(const QString& format, std::int32_t start, std::int32_t length, const QString& target);
    void saveAll(const QString& format, const std::vector<std::int32_t>& cuts, const QString& target);
    /// The same for the sound of a video.
    void extract(const QString& format, const QString& video, const QString& target);
    void setCuts(const std::vector<std::int32_t>& cuts);

    /// Prints "redraw LEVEL WALL CPU" and, where the waveform is wider than its window, "scroll LEVEL WALL
    /// CPU" for each zoom level.
    void redraw();

    CutterSelect& form() { return *form_; }

private:
    void scroll();

    Answers answers_;
    std::unique_ptr<AudioEngine> engine_;
    std::unique_ptr<CutterSelect> form_;
};

/// Sample positions, one per line.
std::vector<std::int32_t> readCuts(const QString& file);
