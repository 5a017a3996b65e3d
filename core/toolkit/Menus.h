// Menu entries, tool bar and status bar under the names that the rest of the program uses.
#pragma once

#include "core/toolkit/Widgets.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolBar>

#include <array>

/// A menu of the menu bar.
class Menu : public QMenu {
    Q_OBJECT

public:
    Menu(QMenuBar& bar, const QString& name, const QString& caption);
};

/// An entry of a menu; without a caption a separator.
class MenuEntry : public QAction {
    Q_OBJECT

public:
    MenuEntry(Menu& menu, const QString& name, const QString& caption = {},
              const QKeySequence& shortcut = {});
};

/// The tool bar. Buttons count from 1, separators included.
class Toolbar : public QToolBar {
    Q_OBJECT

public:
    Toolbar(QWidget* parent, const QString& name, QRectF placePx);

    QAction& Buttons(int index);
    std::function<void(std::int16_t index)> onButtonClick;

private:
    std::array<QAction*, 19> buttons_{};    // by index; 0 is none
};

/// The status bar: two texts, and a progress bar that is hidden at rest.
class StatusBar : public QStatusBar {
    Q_OBJECT

public:
    StatusBar(QWidget* parent, const QString& name);

    Label& Panels(int index);    ///< 1 the running job, 2 the output format
    QProgressBar ProgressBar1;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Label job_, format_;
};
