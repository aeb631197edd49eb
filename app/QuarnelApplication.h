#pragma once

#include <QApplication>

namespace quarnel {

/// The application with the trap around every event: an exception that reaches the event loop is
/// shown in a box, the busy pointer is restored, and the program goes on.
class QuarnelApplication : public QApplication {
    Q_OBJECT
public:
    QuarnelApplication(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace quarnel
