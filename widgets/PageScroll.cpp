#include "widgets/PageScroll.h"

#include <QApplication>

namespace quarnel {

PageScroll::PageScroll(QWidget* content) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    if (content != nullptr)
        setWidget(content);
    // The toolkit looks after the keyboard only on its way from one control of the page to the
    // next by Tab, not where a letter with Alt or a message leads.
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { FollowKeyboard(now); });
}

void PageScroll::FollowKeyboard(QWidget* now) {
    if (now != nullptr && widget() != nullptr && widget()->isAncestorOf(now))
        ensureWidgetVisible(now);
}

} // namespace quarnel
