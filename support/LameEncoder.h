// Dialog: tells how to get the MP3 encoder library. Its texts are fixed.
#pragma once

#include "core/toolkit/Widgets.h"

#include <QDialog>
#include <QPushButton>

class LameEncoder : public QDialog {
    Q_OBJECT

public:
    explicit LameEncoder(QWidget* owner);

    QLabel Label6;           ///< the statement
    QLabel Label4;           ///< what to do
    Label Label3;            ///< the address of the download page, a link
    QPushButton Command3;    ///< Download
    QPushButton Command1;    ///< Cancel
};

/// Shows the dialog modally.
void showLameEncoder(QWidget* owner);
