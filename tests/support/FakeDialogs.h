// Dialogs without windows: answers are given in advance, what was asked goes into the journal.
#pragma once

#include "core/toolkit/Dialogs.h"
#include "support/Journal.h"

#include <deque>

class FakeDialogs : public DialogHost {
public:
    FakeDialogs() { setDialogHost(this); }
    ~FakeDialogs() override { setDialogHost(nullptr); }

    std::deque<std::optional<QString>>
        files;                      ///< answers of file dialogs and folder choosers; none: Cancel
    std::deque<Answer> answers;     ///< answers of message boxes; none: OK or No
    QString lastTitle, lastName;    ///< of the last file dialog
    FileFilter lastFilter;

    Answer message(const QString& text, Icon icon, Buttons buttons, const QString& title) override
    {
        static const char* const icons[] = {"Information", "Exclamation", "Critical", "Question"};
        journal().command(QStringLiteral("MsgBox %1 [%2]: %3")
                              .arg(QLatin1String(icons[static_cast<int>(icon)]), title, text));
        if (answers.empty()) return buttons == Buttons::Ok ? Answer::Ok : Answer::No;
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::optional<QString> openFile(const QString& title, const FileFilter& filter) override
    {
        return ask("open", title, filter, {});
    }
    std::optional<QString> saveFile(const QString& title, const FileFilter& filter,
                                    const QString& name) override
    {
        return ask("save", title, filter, name);
    }
    std::optional<QString> folder(const QString& title) override { return ask("folder", title, {}, {}); }

private:
    std::optional<QString> ask(const char* kind, const QString& title, const FileFilter& filter,
                               const QString& name)
    {
        journal().command(QStringLiteral("dialog ") + QLatin1String(kind));
        lastTitle = title;
        lastName = name;
        lastFilter = filter;
        if (files.empty()) return std::nullopt;
        const auto answer = files.front();
        files.pop_front();
        return answer;
    }
};
