#include "core/toolkit/Look.h"

#include "core/toolkit/Pictures.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>
#include <QToolTip>

namespace {

const char* const styleSheet = R"(
QMenuBar { background: #FFFFFF; border-bottom: 1px solid #DDE4F4; padding: 0 4px; }
QMenuBar::item { padding: 2px 8px; background: transparent; border-radius: 4px; color: #1E2740; }
QMenuBar::item:selected, QMenuBar::item:pressed { background: #DCE7FF; }
QMenu { background: #FFFFFF; border: 1px solid #D3DBEF; padding: 4px; color: #1E2740; }
QMenu::item { padding: 4px 22px 4px 26px; border-radius: 4px; }
QMenu::item:selected { background: #DCE7FF; }
QMenu::item:disabled { color: #8A94AE; }
QMenu::separator { height: 1px; background: #DDE4F4; margin: 4px 6px; }
QMenu::indicator { width: 14px; height: 14px; left: 6px; }
QToolBar { background: transparent; border: none; spacing: 0px; padding: 0; }
QToolBar::separator { width: 1px; margin: 7px 3px; background: #D3DBEF; }
QToolBar QToolButton { border: 1px solid transparent; border-radius: 5px; padding: 4px; }
QToolBar QToolButton:hover { background: #FFFFFF; border-color: #D3DBEF; }
QToolBar QToolButton:pressed { background: #DCE7FF; }
QToolBar QToolButton:focus { border-color: #2F5FD0; }
QStatusBar { background: #FFFFFF; border-top: 1px solid #DDE4F4; }
QStatusBar::item { border: none; }
QLineEdit, QComboBox, QSpinBox, QPlainTextEdit { background: #FFFFFF; border: 1px solid #8493B8; border-radius: 4px; padding: 1px 6px;
    color: #1E2740; selection-background-color: #2F5FD0; selection-color: #FFFFFF; }
QLineEdit:focus, QComboBox:focus, QSpinBox:focus { border: 1px solid #2F5FD0; }
QLineEdit:disabled, QComboBox:disabled, QSpinBox:disabled { border-color: #D3DBEF; color: #8A94AE; background: #F8FAFE; }
QComboBox::drop-down { width: 20px; border: none; }
QComboBox::down-arrow { image: url(:/quillon/icons/spin-down.svg); width: 9px; height: 9px; }
QComboBox QAbstractItemView { background: #FFFFFF; border: 1px solid #D3DBEF; selection-background-color: #DCE7FF; selection-color: #14203F; outline: none; }
QTreeWidget { background: #FFFFFF; border: 1px solid #FFFFFF; border-radius: 5px; outline: none; color: #1E2740; }
QTreeWidget:focus { border-color: #2F5FD0; }
QTreeWidget::item { height: 23px; border: none; }
QTreeWidget::item:selected { background: #DCE7FF; color: #14203F; }
QHeaderView { background: #FFFFFF; border: none; }
QHeaderView::section { background: #FFFFFF; border: none; border-bottom: 1px solid #DDE4F4; padding: 0 5px; color: #55607E; }
QScrollBar:horizontal { background: #E4EAF8; height: 15px; border: none; margin: 0; }
QScrollBar::handle:horizontal { background: #7687B5; border-radius: 5px; min-width: 24px; margin: 3px 2px; }
QScrollBar:vertical { background: #F1F4FD; width: 11px; border: none; margin: 0; }
QScrollBar::handle:vertical { background: #7687B5; border-radius: 4px; min-height: 24px; margin: 1px; }
QScrollBar::handle:disabled { background: #C9D3EA; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QPushButton { background: #FFFFFF; border: 1px solid #8493B8; border-radius: 5px; padding: 4px 16px; min-height: 18px; color: #1E2740; }
QPushButton:hover { background: #F3F6FD; }
QPushButton:pressed { background: #DCE7FF; }
QPushButton:focus { border: 1px solid #2F5FD0; }
QPushButton:disabled { color: #8A94AE; border-color: #D3DBEF; }
QPushButton:default, QPushButton[primary="true"] { background: #2F5FD0; border-color: #2F5FD0; color: #FFFFFF; }
QPushButton:default:hover, QPushButton[primary="true"]:hover { background: #2750B4; }
QToolButton[spin] { background: #FFFFFF; border: 1px solid #8493B8; }
QToolButton[spin="up"] { border-top-left-radius: 4px; border-top-right-radius: 4px; border-bottom: none; }
QToolButton[spin="down"] { border-bottom-left-radius: 4px; border-bottom-right-radius: 4px; }
QToolButton[spin]:hover { background: #F3F6FD; }
QToolButton[spin]:pressed { background: #DCE7FF; }
QToolButton[spin]:focus { border-color: #2F5FD0; }
QToolButton[spin]:disabled { border-color: #D3DBEF; }
QProgressBar { background: #E4EAF8; border: none; border-radius: 4px; }
QProgressBar::chunk { background: #2F5FD0; border-radius: 4px; }
QGroupBox { border: 1px solid #D3DBEF; border-radius: 6px; margin-top: 9px; padding-top: 4px; background: #FFFFFF; }
QGroupBox::title { subcontrol-origin: margin; left: 10px; padding: 0 4px; color: #33415F; }
QTabWidget::pane { border: 1px solid #D3DBEF; border-radius: 7px; background: #FFFFFF; top: -1px; }
QTabBar::tab { background: #E4EAF8; color: #4A5573; border: 1px solid #D3DBEF; border-top-left-radius: 6px; border-top-right-radius: 6px; padding: 5px 10px; margin-right: 2px; }
QTabBar::tab:selected { background: #FFFFFF; color: #1E2740; border-bottom-color: #FFFFFF; }
)";

QPalette palette()
{
    QPalette p;
    p.setColor(QPalette::Window, look::window);
    p.setColor(QPalette::WindowText, look::text);
    p.setColor(QPalette::Base, look::card);
    p.setColor(QPalette::AlternateBase, look::hover);
    p.setColor(QPalette::Text, look::text);
    p.setColor(QPalette::PlaceholderText, look::muted);
    p.setColor(QPalette::Button, look::card);
    p.setColor(QPalette::ButtonText, look::text);
    p.setColor(QPalette::BrightText, Qt::white);
    p.setColor(QPalette::Highlight, look::accent);
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, look::accent);
    p.setColor(QPalette::LinkVisited, look::accent);
    p.setColor(QPalette::ToolTipBase, look::card);
    p.setColor(QPalette::ToolTipText, look::text);
    p.setColor(QPalette::Light, look::card);
    p.setColor(QPalette::Midlight, look::hairline);
    p.setColor(QPalette::Mid, look::fieldBorder);
    p.setColor(QPalette::Dark, look::muted);
    p.setColor(QPalette::Shadow, look::label);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(QPalette::Disabled, role, look::disabled);
    return p;
}

}

QFont look::font(int px, QFont::Weight weight)
{
    QFont font;
    // One family with digits of one width, or the running time would jitter.
    font.setFamilies(
        {QStringLiteral("Open Sans"), QStringLiteral("Noto Sans"), QStringLiteral("DejaVu Sans")});
    font.setPixelSize(px);
    font.setWeight(weight);
    return font;
}

void applyLook(QApplication& application)
{
    loadDrawings();
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    application.setPalette(palette());
    QToolTip::setPalette(palette());
    application.setFont(look::font(12));
    application.setStyleSheet(QString::fromUtf8(styleSheet));
}
