#include "app/QuarnelApplication.h"

#include "project/Files.h"
#include "widgets/MessageBoxes.h"
#include "widgets/PartNames.h"
#include "widgets/QtTexts.h"
#include "widgets/ScreenFit.h"
#include "widgets/WheelGuard.h"

#include <QEvent>
#include <QIcon>
#include <cstdio>
#include <exception>
#include <new>

// The icon lies in a static library, where a linker drops its registration unless it is asked for.
static void RegisterIcon() {
    Q_INIT_RESOURCE(quarnel);
}

namespace quarnel {

void NameApplication() {
    QCoreApplication::setApplicationName(QStringLiteral("quarnel"));
    QCoreApplication::setOrganizationName(QStringLiteral("quarnel"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUARNEL_VERSION));
}

QuarnelApplication::QuarnelApplication(int& argc, char** argv)
    : QApplication(argc, argv) {
    NameApplication();
    setDesktopFileName(QStringLiteral("quarnel"));
    // Pixels: a window's icon is needed at the start, and reading a drawing would slow that down.
    RegisterIcon();
    installEventFilter(new WheelGuard(this));
    installEventFilter(new PartNames(this));
    installEventFilter(new ScreenFit(this));
    setWindowIcon(QIcon(QStringLiteral(":/app/quarnel.png")));
}

bool QuarnelApplication::notify(QObject* receiver, QEvent* event) {
    // The event may be gone when its handler has thrown.
    const bool painting = event->type() == QEvent::Paint || event->type() == QEvent::UpdateRequest;
    QString fault;
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        fault = ToQString(FileErrorMessage(FileFailure::OutOfMemory));
    } catch (const std::exception& exception) {
        fault = QString::fromUtf8(exception.what());
    } catch (...) {
        fault = QStringLiteral("Unexpected fault");
    }
    while (overrideCursor() != nullptr)
        restoreOverrideCursor();
    // A box cannot be painted while a painting is under way.
    if (painting)
        QMetaObject::invokeMethod(
            this, [this, fault] { ShowFault(fault); }, Qt::QueuedConnection);
    else
        ShowFault(fault);
    return true;
}

void QuarnelApplication::ShowFault(const QString& fault) {
    // A fault that returns with every repainting must not pile up boxes.
    if (showingFault_)
        return;
    showingFault_ = true;
    try {
        ShowMessage(activeWindow(), fault);
    } catch (...) {
        // Memory may be too short even for a box; the next fault is shown again.
        std::fprintf(stderr, "quarnel: %s\n", fault.toUtf8().constData());
    }
    showingFault_ = false;
}

} // namespace quarnel
