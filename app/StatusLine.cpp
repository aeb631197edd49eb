#include "app/StatusLine.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTime>

namespace quarnel {

StatusLine::StatusLine(QWidget* parent)
    : QWidget(parent) {
    time_ = new QLabel;
    time_->setObjectName(QStringLiteral("StatusTime"));
    time_->setToolTip(QStringLiteral("When this was done"));
    text_ = new QLabel;
    text_->setObjectName(QStringLiteral("StatusText"));
    text_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    text_->setTextFormat(Qt::PlainText);
    offer_ = new QPushButton(QStringLiteral("I&mport Readings..."));
    offer_->setObjectName(QStringLiteral("StatusOffer"));
    offer_->setToolTip(QStringLiteral("Look at what was to be pasted as at a logger's file: "
                                      "separated by commas, semicolons or blanks"));
    connect(offer_, &QPushButton::clicked, this, &StatusLine::ImportWanted);
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addWidget(time_);
    columns->addWidget(text_, 1);
    columns->addWidget(offer_);
    // Nothing above moves when the offer comes.
    setMinimumHeight(offer_->sizeHint().height());
    Say(QString());
}

void StatusLine::Say(const QString& text) {
    time_->setText(text.isEmpty() ? QString()
                                  : QLocale().toString(QTime::currentTime(), QLocale::ShortFormat));
    time_->setVisible(!text.isEmpty());
    text_->setText(text);
    text_->setToolTip(text);
    WithdrawOffer();
}

void StatusLine::SayAndOfferImport(const QString& text) {
    Say(text);
    offer_->show();
}

void StatusLine::WithdrawOffer() {
    offer_->hide();
}

} // namespace quarnel
