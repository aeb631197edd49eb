#include "widgets/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace quarnel {

namespace {

constexpr const char* RoleProperty = "accessibleRole";

/// Makes the interface of a widget whose role was set; the toolkit makes those of all others.
QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
    if (object == nullptr || !object->isWidgetType())
        return nullptr;
    const QVariant role = object->property(RoleProperty);
    return role.isValid() ? new QAccessibleWidget(static_cast<QWidget*>(object),
                                                  static_cast<QAccessible::Role>(role.toInt()))
                          : nullptr;
}

} // namespace

void SetAccessibleRole(QWidget* widget, QAccessible::Role role) {
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory(MakeInterface);
        return true;
    }();
    widget->setProperty(RoleProperty, static_cast<int>(role));
}

} // namespace quarnel
