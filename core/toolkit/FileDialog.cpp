#include "core/toolkit/FileDialog.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
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
    QFileDialog dialog(QApplication::activeWindow());
    prepare(dialog, title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(filterRow(filter));
    dialog.selectFile(name);
    // A name with a separator in it (a title such as "a/b") would be taken for a path and leave the field
    // empty.
    if (auto* field = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) field->setText(name);
    return run(dialog);
}

std::optional<QString> askForFolder(const QString& title)
{
    QFileDialog dialog(QApplication::activeWindow());
    prepare(dialog, title);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return run(dialog);
}
