#pragma once

#include <QLabel>

namespace quarnel {

/// One line of text that is shortened with dots where it is wider than its place. The whole text is
/// in the tool tip, and a screen reader reads it whole.
class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    void ShowText(const QString& text);
    /// What is seen of the text.
    QString SeenText() const;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quarnel
