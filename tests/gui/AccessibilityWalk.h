#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QAccessibleInterface;
class QWidget;

namespace quarnel::windowtest {

/// What a screen reader calls something. The name of a list is its current choice on this platform:
/// what the list is for is said by the label beside it.
QString NameOf(QAccessibleInterface& item);

/// Walks the accessibility tree of a window as a screen reader does and returns what it finds fault
/// with, one line each:
/// - something without a role, or that takes the keyboard and has only that of a frame;
/// - a control, grid, picture, group, tab or menu without a name;
/// - a control that neither the Tab key (of `stops`) nor a letter with Alt reaches.
/// Cells of a grid are looked at in its first row; scroll bars are part of what they scroll.
QStringList FaultsOfTree(QWidget& window, const QList<QWidget*>& stops);

/// What Tab goes through in the active window, from the first control to the last. A grid that
/// keeps Tab for itself is passed by going the other way round.
QList<QWidget*> TabStops(QWidget& window);

/// Where Tab does not go as one reads: down, and from left to right within each group. One line for
/// each such step.
QStringList FaultsOfOrder(const QList<QWidget*>& stops);

} // namespace quarnel::windowtest
