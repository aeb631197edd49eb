#pragma once

#include <QObject>
#include <QRect>

class QWidget;

namespace quarnel {

/// Where on its screen a window may open: what is free there, less what its frame needs.
QRect ScreenRoom(const QWidget& window);

/// Keeps every dialog, the toolkit's own included, within its screen: one that comes up larger or
/// farther out is made to fit. Magnified, a screen has room for less than a dialog asks for.
class ScreenFit : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;
};

} // namespace quarnel
