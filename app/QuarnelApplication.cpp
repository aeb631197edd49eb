#include "app/QuarnelApplication.h"

#include "app/MessageBoxes.h"

#include <exception>

namespace quarnel {

QuarnelApplication::QuarnelApplication(int& argc, char** argv)
    : QApplication(argc, argv) {
    setApplicationName(QStringLiteral("quarnel"));
    setOrganizationName(QStringLiteral("quarnel"));
}

bool QuarnelApplication::notify(QObject* receiver, QEvent* event) {
    QString fault;
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& exception) {
        fault = QString::fromUtf8(exception.what());
    } catch (...) {
        fault = QStringLiteral("Unexpected fault");
    }
    while (overrideCursor() != nullptr)
        restoreOverrideCursor();
    ShowMessage(activeWindow(), fault);
    return true;
}

} // namespace quarnel
