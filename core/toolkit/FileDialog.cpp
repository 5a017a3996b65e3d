#include "core/toolkit/FileDialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QUrl>

namespace {

QString& lastFolder()
{
    static QString folder = [] {
        const QString music = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
        return QDir(music).exists() ? music : QDir::homePath();
    }();
    return folder;
}

// The text keeps its own list of patterns in brackets; the toolkit would add a second one.
QString filterRow(const FileFilter& filter)
{
    const qsizetype bracket = filter.text.lastIndexOf(QLatin1String(" (*."));
    return (bracket < 0 ? filter.text : filter.text.left(bracket)) + QStringLiteral(" (") +
           filter.patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
}

QList<QUrl> places()
{
    QList<QUrl> urls{QUrl::fromLocalFile(QDir::homePath())};
    const QString music = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    if (music != QDir::homePath() && QDir(music).exists()) urls << QUrl::fromLocalFile(music);
    urls << QUrl::fromLocalFile(lastFolder());
    urls.erase(std::unique(urls.begin(), urls.end()), urls.end());
    return urls;
}

void prepare(QFileDialog& dialog, const QString& title)
{
    dialog.setObjectName(QStringLiteral("cd1"));
    dialog.setWindowTitle(title);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setDirectory(lastFolder());
    dialog.setSidebarUrls(places());
    dialog.resize(620, 420);
}

// The toolkit takes double quotes in the field for a list of names. A title may have them, and what stands in
// the field is the name of one file.
class SaveDialog : public QFileDialog {
public:
    explicit SaveDialog(const QString& title) : QFileDialog(QApplication::activeWindow())
    {
        prepare(*this, title);
        setAcceptMode(QFileDialog::AcceptSave);
        field_ = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        save_ = findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save);
        save_->installEventFilter(this);
        connect(field_, &QLineEdit::textChanged, this, &SaveDialog::keepSave);
    }

    // A name with a separator in it (a title such as "a/b") would be taken for a path by `selectFile`.
    void propose(const QString& name) { field_->setText(name); }
    QString path() const
    {
        return hasQuote() ? directory().absoluteFilePath(field_->text()) : selectedFiles().value(0);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == save_ && event->type() == QEvent::EnabledChange) keepSave();
        return QFileDialog::eventFilter(watched, event);
    }

protected:
    void accept() override
    {
        if (!hasQuote())
            QFileDialog::accept();
        else if (QFileInfo(path()).isDir())
            setDirectory(path());
        else
            QDialog::accept();
    }

private:
    // The button goes off where the toolkit sees no name between the quotes.
    void keepSave()
    {
        if (hasQuote()) save_->setEnabled(true);
    }
    bool hasQuote() const { return field_->text().contains(QLatin1Char('"')); }

    QLineEdit* field_;
    QPushButton* save_;
};

std::optional<QString> run(QFileDialog& dialog)
{
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    lastFolder() = dialog.directory().absolutePath();
    return dialog.selectedFiles().first();
}

}

std::optional<QString> askForOpen(const QString& title, const FileFilter& filter)
{
    QFileDialog dialog(QApplication::activeWindow());
    prepare(dialog, title);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilter(filterRow(filter));
    return run(dialog);
}

std::optional<QString> askForSave(const QString& title, const FileFilter& filter, const QString& name)
{
    SaveDialog dialog(title);
    dialog.setNameFilter(filterRow(filter));
    dialog.selectFile(name);
    dialog.propose(name);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    lastFolder() = dialog.directory().absolutePath();
    return dialog.path();
}

std::optional<QString> askForFolder(const QString& title)
{
    QFileDialog dialog(QApplication::activeWindow());
    prepare(dialog, title);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return run(dialog);
}
