#include "core/toolkit/Wall.h"

#include <QMessageBox>

#include <cstdio>
#include <unistd.h>

namespace {

void end(int status)
{
    std::fflush(nullptr);
    _exit(status);
}

void showAndEnd(const std::exception& error)
{
    static bool dying = false;
    if (dying) return;    // what goes on behind the box may fail again; the user still reads of the first
    dying = true;

    QMessageBox box(QMessageBox::Critical, QStringLiteral("Quillon"), QString::fromUtf8(error.what()));
    box.setTextFormat(Qt::PlainText);
    box.exec();
    endProcess(1);
}

}

std::function<void(int status)> endProcess = end;
std::function<void(const std::exception&)> fatal = showAndEnd;
