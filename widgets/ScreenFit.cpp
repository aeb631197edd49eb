#include "widgets/ScreenFit.h"

#include <QDialog>
#include <QEvent>
#include <QScreen>
#include <algorithm>

namespace quarnel {

namespace {

/// Of the free height a frame gets these parts, the title bar most of them.
constexpr int PartsAbove = 12;
constexpr int PartsBelow = 24;

void Fit(QDialog& dialog) {
    const QRect room = ScreenRoom(dialog);
    dialog.resize(dialog.size().boundedTo(room.size()));
    // One that has no place of its own yet is placed by the toolkit.
    if (!dialog.testAttribute(Qt::WA_Moved))
        return;
    const QPoint place(
        std::max(room.left(), std::min(dialog.x(), room.right() + 1 - dialog.width())),
        std::max(room.top(), std::min(dialog.y(), room.bottom() + 1 - dialog.height())));
    if (dialog.frameGeometry() == dialog.geometry() && place != dialog.pos())
        dialog.setGeometry(QRect(place, dialog.size()));
}

} // namespace

QRect ScreenRoom(const QWidget& window) {
    const QRect area = window.screen()->availableGeometry();
    return area.adjusted(0, area.height() / PartsAbove, 0, -area.height() / PartsBelow);
}

bool ScreenFit::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::Show && !event->spontaneous())
        if (auto* dialog = qobject_cast<QDialog*>(receiver);
            dialog != nullptr && dialog->isWindow())
            Fit(*dialog);
    return QObject::eventFilter(receiver, event);
}

} // namespace quarnel
