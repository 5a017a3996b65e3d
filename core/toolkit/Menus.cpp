#include "core/toolkit/Menus.h"

#include "core/Errors.h"
#include "core/toolkit/Look.h"
#include "core/toolkit/Pictures.h"
#include "core/toolkit/Wall.h"

#include <QMenuBar>
#include <QPainter>

Menu::Menu(QMenuBar& bar, const QString& name, const QString& caption) : QMenu(caption, &bar)
{
    setObjectName(name);
    bar.addMenu(this);
}

MenuEntry::MenuEntry(Menu& menu, const QString& name, const QString& caption, const QKeySequence& shortcut)
    : QAction(caption, &menu)
{
    setObjectName(name);
    setSeparator(caption.isEmpty());
    setShortcut(shortcut);
    setAutoRepeat(false);    // a key held down would delete cut after cut
    menu.addAction(this);
}

namespace {

struct ToolbarButton {
    int index;
    const char* picture;    // null: a separator
    const char* tip;
};

constexpr ToolbarButton toolbarButtons[] = {
    {1, "open", "Open an audio file"},
    {2, "close", "Close Opened file"},
    {3, nullptr, nullptr},
    {4, "zoom-in", "Zoom +"},
    {5, "zoom-out", "Zoom -"},
    {6, "zoom-fit", "Restore 1:1 aspect"},
    {7, nullptr, nullptr},
    {8, "cut", "Insert Cut point at this position"},
    {9, nullptr, nullptr},
    {10, "play", "Play"},
    {11, "pause", "Pause"},
    {12, "stop", "Stop"},
    {13, nullptr, nullptr},
    {14, "play-part", "Play Selected Part"},
    {15, "save", "Save selected part"},
    {16, nullptr, nullptr},
    {17, "record", "Audio Recorder"},
    {18, "join", "Mp3 Ogg Wma Wav joiner"},
};

}

Toolbar::Toolbar(QWidget* parent, const QString& name, QRectF placePx) : QToolBar(parent)
{
    put(*this, name, placePx);
    setIconSize(QSize(20, 20));
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    for (const ToolbarButton& row : toolbarButtons) {
        QAction* button =
            row.picture ? addAction(icon(QString::fromLatin1(row.picture)), QString()) : addSeparator();
        button->setObjectName(QStringLiteral("%1(%2)").arg(name).arg(row.index));
        buttons_[static_cast<std::size_t>(row.index)] = button;
        if (!row.picture) continue;
        button->setText(QString::fromLatin1(row.tip));
        button->setToolTip(QString::fromLatin1(row.tip));
        widgetForAction(button)->setObjectName(button->objectName());
        widgetForAction(button)->setFocusPolicy(Qt::TabFocus);
        widgetForAction(button)->setFixedSize(30, 30);
        connect(button, &QAction::triggered, this,
                guarded([this, index = static_cast<std::int16_t>(row.index)](bool) {
                    if (onButtonClick) onButtonClick(index);
                }));
    }
}

QAction& Toolbar::Buttons(int index)
{
    QAction* button = buttons_.at(static_cast<std::size_t>(index));
    if (!button) throw ConversionError(QStringLiteral("no button %1").arg(index));
    return *button;
}

StatusBar::StatusBar(QWidget* parent, const QString& name)
    : QStatusBar(parent), ProgressBar1(this), job_(this, name + QStringLiteral(".Panels(1)"), {}),
      format_(this, name + QStringLiteral(".Panels(2)"), {})
{
    setObjectName(name);
    setSizeGripEnabled(false);
    setFixedHeight(24);
    ProgressBar1.setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1.setTextVisible(false);
    ProgressBar1.hide();
    for (Label* panel : {&job_, &format_}) {
        panel->setFont(look::font(11));
        panel->setForegroundRole(QPalette::WindowText);
    }
}

Label& StatusBar::Panels(int index)
{
    return index == 1 ? job_ : format_;
}

void StatusBar::resizeEvent(QResizeEvent*)
{
    const int first = width() * 2 / 5;
    job_.setGeometry(12, 2, first - 24, height() - 3);
    format_.setGeometry(first + 12, 2, width() - first - 24, height() - 3);
    ProgressBar1.setGeometry(width() - 132, 8, 120, 8);
}

void StatusBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), look::card);
    painter.fillRect(0, 0, width(), 1, look::hairline);
    painter.fillRect(width() * 2 / 5, 5, 1, height() - 9, look::hairline);
}
