#pragma once

#include <QObject>

namespace quarnel {

/// Names for a screen reader those parts of the toolkit's own windows that come without one: the
/// icon of a question, the row of buttons below it, a divider, the lists of a file dialog. Each is
/// named as it is shown first, unless it has a name.
class PartNames : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;
};

} // namespace quarnel
