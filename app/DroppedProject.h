#pragma once

#include <QEvent>
#include <QString>

namespace quarnel {

/// Accepts a drag, its moves and its drop when what is dragged is one file of this machine, and
/// returns the file's full path; "" for any other event, which is left alone.
QString DroppedProject(QEvent* event);

} // namespace quarnel
