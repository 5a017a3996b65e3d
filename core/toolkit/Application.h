// The application object: the look, the dialogs, and the net under handlers that nobody wrapped.
#pragma once

#include <QApplication>

class Application : public QApplication {
public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};
