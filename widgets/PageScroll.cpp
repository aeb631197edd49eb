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
    connect(qApp, &QApplication::focusChanged, this, &PageScroll::FollowKeyboard);
}

/// Only within its window: one who comes back from another finds the page as it was left.
void PageScroll::FollowKeyboard(QWidget* before, QWidget* now) {
    if (before != nullptr && now != nullptr && before->window() == now->window() &&
        widget() != nullptr && widget()->isAncestorOf(now))
        ShowWithMargin(*now);
}

void PageScroll::BringIntoView(QWidget& control) {
    for (QWidget* outer = control.parentWidget(); outer != nullptr; outer = outer->parentWidget())
        if (auto* page = qobject_cast<PageScroll*>(outer))
            // A page that has just come up is yet to be laid out.
            QMetaObject::invokeMethod(
                &control, [page, &control] { page->ShowWithMargin(control); },
                Qt::QueuedConnection);
}

/// With half a line around it.
void PageScroll::ShowWithMargin(QWidget& control) {
    const int margin = fontMetrics().height() / 2;
    ensureWidgetVisible(&control, margin, margin);
}

} // namespace quarnel
