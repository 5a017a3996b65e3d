// A bare main window of the toolkit with as much in it as an editor has: 8 menus, a toolbar, 30 buttons, a
// list, a status bar. Prints the time to its first paint and ends.
#include "bench/Bench.h"

#include <QApplication>
#include <QGridLayout>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>

namespace {

void fillMenusAndBar(QMainWindow& window)
{
    for (int i = 0; i < 8; ++i) {
        QMenu* const menu = window.menuBar()->addMenu(QStringLiteral("Menu %1").arg(i + 1));
        for (int k = 0; k < 6; ++k) menu->addAction(QStringLiteral("Command %1").arg(k + 1));
    }
    QToolBar* const bar = window.addToolBar(QStringLiteral("Tools"));
    for (int i = 0; i < 10; ++i) bar->addAction(QString::number(i + 1));
    window.statusBar()->showMessage(QStringLiteral("Ready"));
}

void fillCentre(QMainWindow& window)
{
    auto* const centre = new QWidget;
    auto* const grid = new QGridLayout(centre);
    for (int i = 0; i < 30; ++i) grid->addWidget(new QPushButton(QString::number(i + 1)), i / 10, i % 10);
    auto* const list = new QListWidget;
    for (int i = 0; i < 20; ++i) list->addItem(QStringLiteral("Row %1").arg(i + 1));
    grid->addWidget(list, 3, 0, 1, 10);
    window.setCentralWidget(centre);
}

}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    fillMenusAndBar(window);
    fillCentre(window);
    window.setFixedSize(724, 556);
    window.show();
    printFirstPaint(window);
}
