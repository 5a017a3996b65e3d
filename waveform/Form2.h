// Dialog: the progress of a long job of the main window. Cancel and the close box clear `KeepRunning`.
#pragma once

#include "core/toolkit/Widgets.h"

#include <QDialog>
#include <QPushButton>

/// A flat bar. It is painted once for each time the job gives way, however often it has moved.
class PlainBar : public QWidget {
public:
    using QWidget::QWidget;

    void setPercent(double percent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double percent_ = 0;
};

class Form2 : public QDialog {
    Q_OBJECT

public:
    Form2();

    Label Label2;
    QPushButton Command1;

    double ProgressBar1() const { return value_; }    ///< 0 to 100, fractions allowed
    void setProgressBar1(double value);
    void unloading();    ///< the form is on its way out, whoever sent it

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    float value_ = 0;
    PlainBar bar_;
};
