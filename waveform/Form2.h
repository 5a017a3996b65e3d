// Dialog: the progress of a long job of the main window. Cancel and the close box clear `KeepRunning`.
#pragma once

#include "core/toolkit/Widgets.h"

#include <QDialog>
#include <QProgressBar>
#include <QPushButton>

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
    QProgressBar bar_;
};
