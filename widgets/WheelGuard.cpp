#include "widgets/WheelGuard.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QScrollBar>
#include <QTabBar>

namespace quarnel {

namespace {

/// Whether the wheel would change a choice or a number.
bool TurnsUnderTheWheel(const QObject* receiver) {
    if (qobject_cast<const QScrollBar*>(receiver) != nullptr)
        return false;
    return qobject_cast<const QComboBox*>(receiver) != nullptr ||
           qobject_cast<const QTabBar*>(receiver) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(receiver) != nullptr ||
           qobject_cast<const QAbstractSlider*>(receiver) != nullptr;
}

} // namespace

bool WheelGuard::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::Polish && receiver->isWidgetType()) {
        auto* widget = static_cast<QWidget*>(receiver);
        if (widget->focusPolicy() == Qt::WheelFocus)
            widget->setFocusPolicy(Qt::StrongFocus);
    }
    if (event->type() == QEvent::Wheel && TurnsUnderTheWheel(receiver) &&
        !static_cast<QWidget*>(receiver)->hasFocus()) {
        // Not accepted: the toolkit offers it to the page around.
        event->ignore();
        return true;
    }
    return QObject::eventFilter(receiver, event);
}

} // namespace quarnel
