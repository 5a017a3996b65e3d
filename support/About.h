// Dialog: what this program is, and three links.
#pragma once

#include <QDialog>

class About : public QDialog {
    Q_OBJECT

public:
    explicit About(QWidget* owner);

private:
    void addLink(int row, const QString& name, const QString& caption, const QString& address);
};
