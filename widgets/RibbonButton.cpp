#include "widgets/RibbonButton.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace quarnel {

RibbonButton::RibbonButton(const QString& text, QWidget* parent)
    : QRadioButton(text, parent) {
    connect(this, &QRadioButton::toggled, this, &RibbonButton::ShowPressed);
}

/// Some styles hardly show which of two buttons is pressed; bold letters do in all of them.
void RibbonButton::ShowPressed(bool pressed) {
    QFont letters = font();
    letters.setBold(pressed);
    setFont(letters);
}

QSize RibbonButton::sizeHint() const {
    QFont bold = font();
    bold.setBold(true);
    const QSize letters = QFontMetrics(bold).size(Qt::TextShowMnemonic, text());
    QStyleOptionButton option;
    option.initFrom(this);
    return style()->sizeFromContents(QStyle::CT_PushButton, &option, letters, this);
}

bool RibbonButton::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void RibbonButton::paintEvent(QPaintEvent* /*event*/) {
    QStyleOptionButton option;
    option.initFrom(this);
    option.text = text();
    option.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
    option.state |= isChecked() ? QStyle::State_On : QStyle::State_Off;
    QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
}

} // namespace quarnel
