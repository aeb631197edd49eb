#pragma once

#include <QObject>

namespace quarnel {

/// Keeps the wheel from changing what it merely passes over. A list, a tab strip or a number box
/// turns under the wheel only while it has the focus; otherwise the page around it scrolls. And the
/// wheel gives the focus to nothing, so that what is typed next goes where the last key went.
class WheelGuard : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;
};

} // namespace quarnel
