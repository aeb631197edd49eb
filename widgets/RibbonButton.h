#pragma once

#include <QRadioButton>

namespace quarnel {

/// One of a few buttons of which one is pressed at a time. It looks like a push button, its letters
/// bold while it is pressed; to keys and to a screen reader it is what it is, a radio button.
class RibbonButton : public QRadioButton {
    Q_OBJECT
public:
    explicit RibbonButton(const QString& text, QWidget* parent = nullptr);

    /// With room for the bold letters, so that nothing moves when it is pressed.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    void ShowPressed(bool pressed);
};

} // namespace quarnel
