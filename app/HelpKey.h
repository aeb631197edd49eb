#pragma once

#include <QObject>

namespace quarnel {

/// F1 in a window of the program other than the main one opens the guide at the chapter that tells
/// of it.
class HelpKey : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;
};

} // namespace quarnel
