#include "app/GeneralTools.h"

#include "output/Drawing.h"
#include "widgets/ScreenFit.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QInputMethod>
#include <QScreen>

namespace quarnel {

namespace {

int PixelsOf(int twips, const QScreen* screen) {
    return qRound(twips * screen->logicalDotsPerInch() / TwipsPerInch);
}

} // namespace

void SizeWindowToScreen(QWidget* window, int widthMargin, int heightMargin, int top) {
    const QScreen* screen = window->screen();
    const QRect area = screen->availableGeometry();
    const int width = area.width() - PixelsOf(widthMargin, screen);
    const int height = area.height() - PixelsOf(heightMargin, screen);
    window->resize(width, height);
    // A move places the frame, so the title bar stays on the screen.
    window->move(area.left() + (area.width() - width) / 2, area.top() + PixelsOf(top, screen));
}

void CentreWindow(QWidget* window) {
    // The toolkit alone goes no farther than two thirds of the screen.
    window->adjustSize();
    window->resize(window->size().expandedTo(window->sizeHint()));
    MoveToCentre(window);
}

void MoveToCentre(QWidget* window) {
    const QRect area = window->screen()->availableGeometry();
    window->resize(window->size().boundedTo(ScreenRoom(*window).size()));
    window->move(area.left() + (area.width() - window->width()) / 2,
                 area.top() + (area.height() - window->height()) / 2);
}

void ShowDialog(QDialog* dialog) {
    if (!dialog->testAttribute(Qt::WA_Moved) && !dialog->isVisible())
        CentreWindow(dialog);
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

void CommitEdits() {
    QGuiApplication::inputMethod()->commit();
    QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr)
        return;
    for (QWidget* outer = focus->parentWidget(); outer != nullptr; outer = outer->parentWidget())
        if (qobject_cast<QAbstractItemView*>(outer) != nullptr) {
            focus->clearFocus();
            outer->setFocus();
            return;
        }
}

} // namespace quarnel
