#include "waveform/Form2.h"

#include "core/CutterSelect.h"
#include "core/toolkit/FormHolder.h"
#include "core/toolkit/Look.h"
#include "core/toolkit/Wall.h"

#include <QCloseEvent>
#include <QPainter>

void PlainBar::setPercent(double percent)
{
    percent_ = percent;
    update();
}

void PlainBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look::inactiveTab);
    painter.drawRoundedRect(rect(), 4, 4);
    painter.setBrush(look::accent);
    painter.setClipRect(QRectF(0, 0, width() * percent_ / 100, height()));
    painter.drawRoundedRect(rect(), 4, 4);
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
    put(Command1, QStringLiteral("Command1"), {264, 76, 100, 30});
    Command1.setAutoDefault(false);
    connect(&Command1, &QPushButton::clicked, this, guarded([](bool) { KeepRunning = false; }));
}

void Form2::setProgressBar1(double value)
{
    value_ = static_cast<float>(value);
    bar_.setPercent(value);
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
