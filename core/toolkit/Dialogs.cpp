#include "core/toolkit/Dialogs.h"

#include "core/Errors.h"
#include "core/toolkit/FileDialog.h"

#include <QApplication>
#include <QMessageBox>

namespace {

class ToolkitHost : public DialogHost {
public:
    Answer message(const QString& text, Icon icon, Buttons buttons, const QString& title) override;
    std::optional<QString> openFile(const QString& title, const FileFilter& filter) override
    {
        return askForOpen(title, filter);
    }
    std::optional<QString> saveFile(const QString& title, const FileFilter& filter,
                                    const QString& name) override
    {
        return askForSave(title, filter, name);
    }
    std::optional<QString> folder(const QString& title) override { return askForFolder(title); }
};

QMessageBox::Icon boxIcon(Icon icon)
{
    switch (icon) {
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::Question:
        break;
    }
    return QMessageBox::Question;
}

Answer ToolkitHost::message(const QString& text, Icon icon, Buttons buttons, const QString& title)
{
    QMessageBox box(boxIcon(icon), title, text,
                    buttons == Buttons::Ok ? QMessageBox::Ok : QMessageBox::Yes | QMessageBox::No,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);    // a file name may hold a "<"
    const int pressed = box.exec();
    if (buttons == Buttons::Ok) return Answer::Ok;
    return pressed == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

ToolkitHost toolkitHost;
DialogHost* host = &toolkitHost;

}

DialogHost& dialogHost()
{
    return *host;
}

void setDialogHost(DialogHost* other)
{
    host = other ? other : &toolkitHost;
}

Answer MsgBox(const QString& text, Icon icon, Buttons buttons)
{
    return dialogHost().message(text, icon, buttons, QStringLiteral("Quillon"));
}

QString BrowseForFolder(const QString& title)
{
    return dialogHost().folder(title).value_or(QString());
}

void CommonDialog::ShowOpen()
{
    take(dialogHost().openFile(DialogTitle, parseFilter(Filter)));
}

void CommonDialog::ShowSave()
{
    take(dialogHost().saveFile(DialogTitle, parseFilter(Filter), FileName));
}

void CommonDialog::take(const std::optional<QString>& choice)
{
    if (choice)
        FileName = *choice;
    else if (CancelError)
        throw DialogCancelled();
}

FileFilter parseFilter(const QString& filter)
{
    FileFilter parsed{filter.section(QLatin1Char('|'), 0, 0), {}};
    for (const QString& pattern : filter.section(QLatin1Char('|'), 1, 1).split(QLatin1Char(';')))
        if (!parsed.patterns.contains(pattern.toLower())) parsed.patterns << pattern.toLower();
    return parsed;
}
