#pragma once

#include <QScrollArea>

namespace quarnel {

/// Holds a page that is larger than its window: no frame, no stop of its own for the keyboard, and
/// the control that gets the keyboard, by whatever key, is brought into view.
class PageScroll : public QScrollArea {
    Q_OBJECT
public:
    explicit PageScroll(QWidget* content = nullptr);

    /// Scrolls the pages around a control so that it is seen.
    static void BringIntoView(QWidget& control);

private:
    void FollowKeyboard(QWidget* before, QWidget* now);
    void ShowWithMargin(QWidget& control);
};

} // namespace quarnel
