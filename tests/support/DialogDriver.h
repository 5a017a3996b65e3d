// Answers the modal dialogs that come up, in the order in which they were announced, by their own widgets.
#pragma once

#include <QDialog>
#include <QObject>
#include <QTimer>

#include <deque>
#include <functional>
#include <memory>

class DialogDriver : public QObject {
    Q_OBJECT

public:
    DialogDriver();

    /// Called with a modal dialog that is up. Says whether it was the one expected and has been answered.
    using Answerer = std::function<bool(QDialog& dialog)>;

    void expect(Answerer answer) { answers_.push_back(std::move(answer)); }
    /// A file dialog: types the path and accepts.
    void expectFile(const QString& path);
    /// A file dialog or folder chooser: leaves it.
    void expectCancel();
    /// A message box: presses its button for `role` text ("OK", "Yes", "No") and notes its text.
    void expectMessage(const QString& button = QStringLiteral("OK"));

    bool isDone() const { return answers_.empty(); }
    QStringList messages;    ///< texts of the message boxes answered so far
    QStringList icons;       ///< "Critical", "Warning", "Information", "Question"

private:
    void look();

    std::deque<Answerer> answers_;
    QTimer timer_;
};
