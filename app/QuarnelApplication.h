#pragma once

#include <QApplication>

namespace quarnel {

/// Gives the running application the name and version that settings and --version use. No display
/// name is set: the desktop would append it to every window's title.
void NameApplication();

/// The application with the trap around every event: an exception that reaches the event loop is
/// shown in a box, the busy pointer is restored, and the program goes on.
class QuarnelApplication : public QApplication {
    Q_OBJECT
public:
    QuarnelApplication(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;

private:
    void ShowFault(const QString& fault);

    bool showingFault_ = false;
};

} // namespace quarnel
