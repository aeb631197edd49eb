#include "widgets/ElidedLabel.h"

#include <QStyle>
#include <QStylePainter>

namespace quarnel {

ElidedLabel::ElidedLabel(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::ShowText(const QString& text) {
    setText(text);
    setToolTip(text);
}

QString ElidedLabel::SeenText() const {
    // The beginning says what was done, the end names the file.
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    painter.drawItemText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                         SeenText(), foregroundRole());
}

} // namespace quarnel
