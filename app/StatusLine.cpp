#include "app/StatusLine.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTime>

namespace quarnel {

namespace {

QString ImportCaption() {
    return QStringLiteral("I&mport Readings...");
}

} // namespace

StatusLine::StatusLine(QWidget* parent)
    : QWidget(parent) {
    time_ = new QLabel;
    time_->setObjectName(QStringLiteral("StatusTime"));
    time_->setToolTip(QStringLiteral("When this was done"));
    text_ = new QLabel;
    text_->setObjectName(QStringLiteral("StatusText"));
    text_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    text_->setTextFormat(Qt::PlainText);
    offer_ = new QPushButton(ImportCaption());
    offer_->setObjectName(QStringLiteral("StatusOffer"));
    connect(offer_, &QPushButton::clicked, this, [this] { Q_EMIT OfferTaken(offered_); });
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
    Withdraw(offered_);
}

void StatusLine::SayAndOffer(const QString& text, StatusOffer offer) {
    Say(text);
    offered_ = offer;
    const bool imports = offer == StatusOffer::ImportReadings;
    offer_->setText(imports ? ImportCaption() : QStringLiteral("Brin&g Back"));
    offer_->setToolTip(
        imports ? QStringLiteral("Look at what was to be pasted as at a logger's file: separated "
                                 "by commas, semicolons or blanks")
                : QStringLiteral("Go on with the former project as it was, not saved yet"));
    offer_->setVisible(offer != StatusOffer::None);
}

void StatusLine::Withdraw(StatusOffer offer) {
    if (offered_ != offer)
        return;
    offered_ = StatusOffer::None;
    offer_->hide();
}

} // namespace quarnel
