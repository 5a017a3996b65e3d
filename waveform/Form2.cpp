#include "waveform/Form2.h"

#include "core/CutterSelect.h"
#include "core/toolkit/FormHolder.h"
#include "core/toolkit/Wall.h"

#include <QCloseEvent>

namespace {

constexpr int stepsPerPercent = 100;

}

Form2::Form2()
    : QDialog(MainForm, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      Label2(this, QStringLiteral("Label2"), {16, 14, 348, 22}), Command1(langText(91), this), bar_(this)
{
    setObjectName(QStringLiteral("Form2"));
    setWindowTitle(langText(114));
    setFixedSize(380, 120);
    Label2.elideMode = Qt::ElideMiddle;
    put(bar_, QStringLiteral("ProgressBar1"), {16, 46, 348, 8});
    bar_.setTextVisible(false);
    bar_.setRange(0, 100 * stepsPerPercent);
    put(Command1, QStringLiteral("Command1"), {264, 76, 100, 30});
    Command1.setAutoDefault(false);
    connect(&Command1, &QPushButton::clicked, this, guarded([](bool) { KeepRunning = false; }));
}

void Form2::setProgressBar1(double value)
{
    value_ = static_cast<float>(value);
    bar_.setValue(static_cast<int>(value * stepsPerPercent + 0.5));
}

void Form2::unloading()
{
    KeepRunning = false;
}

void Form2::closeEvent(QCloseEvent* event)
{
    event->accept();
    ProgressForm.unload();
}

void Form2::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        Command1.click();
    else
        QDialog::keyPressEvent(event);
}
