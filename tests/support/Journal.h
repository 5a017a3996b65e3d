// What a form did to the outside, in order: engine calls, messages, dialogs. One line each.
#pragma once

#include <QString>
#include <QRegularExpression>
#include <QStringList>

#include <functional>

class Journal {
public:
    void command(const QString& line)
    {
        lines_ << line;
        if (onCommand) onCommand(line);
    }
    /// Questions that change nothing are kept apart, so that a list of commands stays readable.
    void query(const QString& line) { queries_ << line; }

    QStringList commands() const { return lines_; }
    QStringList queries() const { return queries_; }
    /// The commands that begin with `prefix`.
    QStringList commandsOf(const QString& prefix) const
    {
        return lines_.filter(QRegularExpression(QLatin1Char('^') + prefix));
    }
    void clear()
    {
        lines_.clear();
        queries_.clear();
    }

    /// Called at each command, before it returns: a test may throw from here, or act as a user would.
    std::function<void(const QString& line)> onCommand;

private:
    QStringList lines_, queries_;
};

/// The journal of the running test.
Journal& journal();
