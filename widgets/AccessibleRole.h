#pragma once

#include <QAccessible>

class QWidget;

namespace quarnel {

/// Tells screen readers what a widget is that paints itself: a chart, a picture. The toolkit would
/// call it a frame or nothing at all.
void SetAccessibleRole(QWidget* widget, QAccessible::Role role);

} // namespace quarnel
