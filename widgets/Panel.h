#pragma once

#include <QWidget>

namespace quarnel {

/// One panel of the main window: what the user types goes into what the panel is bound to at once,
/// and ShowState shows that again after New, Open or a check that trimmed texts.
class Panel : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
    virtual void ShowState() = 0;

Q_SIGNALS:
    /// Something was changed that a computation or its diagnostics are made from.
    void Edited();
};

} // namespace quarnel
