#include "widgets/SaidLine.h"

#include "widgets/ElidedLabel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QTime>

namespace quarnel {

SaidLine::SaidLine(const QString& name, QWidget* parent)
    : QWidget(parent) {
    time_ = new QLabel;
    time_->setObjectName(name + QStringLiteral("Time"));
    time_->setToolTip(QStringLiteral("When this was done"));
    text_ = new ElidedLabel;
    text_->setObjectName(name + QStringLiteral("Text"));
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addWidget(time_);
    columns->addWidget(text_, 1);
    Say(QString());
}

void SaidLine::Say(const QString& text) {
    time_->setText(text.isEmpty() ? QString()
                                  : QLocale().toString(QTime::currentTime(), QLocale::ShortFormat));
    time_->setVisible(!text.isEmpty());
    text_->ShowText(text);
}

} // namespace quarnel
