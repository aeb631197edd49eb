#include "loggerfiles/ImportHandleWidget.h"

#include "loggerfiles/ImportHandleAccessible.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace quarnel {

namespace {

constexpr int RowsOfShift = 10;

} // namespace

ImportHandleWidget::ImportHandleWidget(const QString& name, const QString& caption, Half half,
                                       Side side, QWidget* parent)
    : QWidget(parent)
    , caption_(caption)
    , half_(half)
    , side_(side) {
    setObjectName(name);
    MakeImportHandlesAccessible();
    setAccessibleName(caption);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::SizeHorCursor);
}

int ImportHandleWidget::Grip() const {
    return std::max(10, fontMetrics().height() * 2 / 3);
}

void ImportHandleWidget::PlaceAt(int x, const QRect& plot) {
    const int grip = Grip();
    const int before = side_ == Side::Left ? grip : 3;
    lineX_ = before;
    const int height = plot.height() / 2;
    const int top = half_ == Half::Upper ? plot.top() : plot.bottom() + 1 - height;
    setGeometry(x - before, top, grip + 4, height);
}

void ImportHandleWidget::ShowRow(int row, int last, const QString& time) {
    const bool moves = row_ != row || time_ != time;
    row_ = row;
    lastRow_ = last;
    time_ = time;
    setAccessibleDescription(time);
    if (moves) {
        QAccessibleValueChangeEvent event(this, row);
        QAccessible::updateAccessibility(&event);
    }
    setToolTip(caption_ + QStringLiteral(": ") + time);
}

void ImportHandleWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const int grip = Grip();
    const int gripHeight = std::min(grip * 3 / 2, height());
    const QRect box(side_ == Side::Left ? lineX_ - grip : lineX_,
                    half_ == Half::Upper ? 0 : height() - gripHeight, grip, gripHeight);
    painter.setPen(palette().color(QPalette::Text));
    painter.setBrush(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Button));
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    if (!hasFocus())
        return;
    painter.setPen(QPen(palette().color(QPalette::HighlightedText), 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.adjusted(2, 2, -3, -3));
}

void ImportHandleWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    grabbed_ = event->pos().x() - lineX_;
    event->accept();
}

void ImportHandleWidget::mouseMoveEvent(QMouseEvent* event) {
    if ((event->buttons() & Qt::LeftButton) != 0)
        Q_EMIT DraggedTo(mapToParent(event->pos()).x() - grabbed_);
}

void ImportHandleWidget::keyPressEvent(QKeyEvent* event) {
    const int rows = (event->modifiers() & Qt::ShiftModifier) != 0 ? RowsOfShift : 1;
    switch (event->key()) {
    case Qt::Key_Right:
    case Qt::Key_Up:
        Q_EMIT Stepped(rows);
        break;
    case Qt::Key_Left:
    case Qt::Key_Down:
        Q_EMIT Stepped(-rows);
        break;
    case Qt::Key_Home:
        Q_EMIT SentToEnd(false);
        break;
    case Qt::Key_End:
        Q_EMIT SentToEnd(true);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void ImportHandleWidget::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    Q_EMIT FocusChanged();
}

void ImportHandleWidget::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    Q_EMIT FocusChanged();
}

} // namespace quarnel
