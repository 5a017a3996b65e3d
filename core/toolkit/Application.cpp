#include "core/toolkit/Application.h"

#include "core/toolkit/Look.h"
#include "core/toolkit/Wall.h"

Application::Application(int& argc, char** argv) : QApplication(argc, argv)
{
    setApplicationName(QStringLiteral("quillon"));
    setApplicationDisplayName(QStringLiteral("Quillon"));
    setDesktopFileName(QStringLiteral("quillon"));
    setAttribute(
        Qt::AA_DontUseNativeDialogs);    // a desktop's own can't be told to skip the overwrite question
    setQuitOnLastWindowClosed(false);
    applyLook(*this);
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        fatal(error);
        return false;
    }
}
