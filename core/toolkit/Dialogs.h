// Message boxes, the common file dialog and the folder chooser. They go through a host, which tests replace.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class QWidget;

enum class Icon { Information, Exclamation, Critical, Question };
enum class Buttons { Ok, YesNo };
enum class Answer { Ok, Yes, No };

/// One row of a file dialog: what it is called, and the patterns ("*.mp3") that it shows.
struct FileFilter {
    QString text;
    QStringList patterns;
};

class DialogHost {
public:
    virtual ~DialogHost() = default;

    virtual Answer message(const QString& text, Icon icon, Buttons buttons, const QString& title) = 0;
    /// The path chosen, none when the user left without a choice.
    virtual std::optional<QString> openFile(const QString& title, const FileFilter& filter) = 0;
    virtual std::optional<QString> saveFile(const QString& title, const FileFilter& filter,
                                            const QString& name) = 0;
    virtual std::optional<QString> folder(const QString& title) = 0;
};

/// The host in force; the real one by default.
DialogHost& dialogHost();
/// Puts another host in force, null for the real one.
void setDialogHost(DialogHost* host);

/// A message box titled "Quillon".
Answer MsgBox(const QString& text, Icon icon, Buttons buttons = Buttons::Ok);

/// The folder chooser; "" when the user left it.
QString BrowseForFolder(const QString& title);

/// The file dialog control of a form. Its properties stay as they were set until they are set again.
struct CommonDialog {
    QString FileName;
    QString DialogTitle;
    QString Filter;              ///< "text|*.a;*.b"
    bool CancelError = false;    ///< a Cancel throws DialogCancelled; else it leaves `FileName` as it is

    void ShowOpen();
    void ShowSave();

private:
    void take(const std::optional<QString>& choice);
};

/// Text and patterns of "text|*.a;*.b"; patterns that differ in case alone appear once.
FileFilter parseFilter(const QString& filter);
