#pragma once

#include <QLayout>
#include <QWidget>

namespace quarnel {

/// One panel of the main window: what the user types goes into what the panel is bound to at once,
/// and ShowState shows that again after New, Open or a check that trimmed texts.
class Panel : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
    virtual void ShowState() = 0;
    /// Gives the keyboard to the control where the work on this panel begins.
    void FocusFirstControl() { first_->setFocus(); }
    /// What it cannot do without at this width: the page around scrolls only where that is lacking,
    /// not where something could merely be larger.
    int heightForWidth(int width) const override {
        return layout() != nullptr ? layout()->totalMinimumHeightForWidth(width)
                                   : QWidget::heightForWidth(width);
    }

protected:
    /// No focus proxy: the Tab key would go from the tabs to it, past all that stands before it.
    void SetFirstControl(QWidget* control) { first_ = control; }

Q_SIGNALS:
    /// Something was changed that a computation or its diagnostics are made from.
    void Edited();

private:
    QWidget* first_ = nullptr;
};

} // namespace quarnel
