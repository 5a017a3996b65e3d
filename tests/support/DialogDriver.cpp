#include "support/DialogDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMetaEnum>

DialogDriver::DialogDriver()
{
    timer_.setInterval(5);
    connect(&timer_, &QTimer::timeout, this, &DialogDriver::look);
    timer_.start();
}

// One answer for each dialog: the answer may itself open nested loops, so it is taken from the queue first.
void DialogDriver::look()
{
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || answers_.empty() || !dialog->isVisible()) return;
    Answerer answer = std::move(answers_.front());
    answers_.pop_front();
    if (!answer(*dialog)) answers_.push_front(std::move(answer));
}

void DialogDriver::expectFile(const QString& path)
{
    expect([path](QDialog& dialog) {
        auto* files = qobject_cast<QFileDialog*>(&dialog);
        if (!files) return false;
        files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
        QMetaObject::invokeMethod(files, "accept", Qt::QueuedConnection);
        return true;
    });
}

void DialogDriver::expectCancel()
{
    expect([](QDialog& dialog) {
        QMetaObject::invokeMethod(&dialog, "reject", Qt::QueuedConnection);
        return true;
    });
}

void DialogDriver::expectMessage(const QString& button)
{
    expect([this, button](QDialog& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        if (!box) return false;
        messages << box->text();
        icons << QString::fromLatin1(QMetaEnum::fromType<QMessageBox::Icon>().valueToKey(box->icon()));
        for (QAbstractButton* candidate : box->buttons())
            if (candidate->text().remove(QLatin1Char('&')).compare(button, Qt::CaseInsensitive) == 0) {
                QMetaObject::invokeMethod(candidate, "click", Qt::QueuedConnection);
                return true;
            }
        return false;
    });
}
