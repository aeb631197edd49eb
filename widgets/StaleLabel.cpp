#include "widgets/StaleLabel.h"

#include <utility>

namespace quarnel {

StaleLabel::StaleLabel(const QString& name, QString sentence, QWidget* parent)
    : QLabel(parent)
    , sentence_(std::move(sentence)) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    ShowStale(false);
}

void StaleLabel::ShowStale(bool stale) {
    setText(stale ? sentence_ : QString());
    setVisible(stale);
}

} // namespace quarnel
