#include "app/StatusLine.h"

#include "widgets/SaidLine.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace quarnel {

namespace {

QString ImportCaption() {
    return QStringLiteral("I&mport Readings...");
}

} // namespace

StatusLine::StatusLine(QWidget* parent)
    : QWidget(parent) {
    said_ = new SaidLine(QStringLiteral("Status"));
    offer_ = new QPushButton(ImportCaption());
    offer_->setObjectName(QStringLiteral("StatusOffer"));
    connect(offer_, &QPushButton::clicked, this, [this] { Q_EMIT OfferTaken(offered_); });
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addWidget(said_, 1);
    columns->addWidget(offer_);
    // Nothing above moves when the offer comes.
    setMinimumHeight(offer_->sizeHint().height());
    offer_->hide();
}

void StatusLine::Say(const QString& text) {
    said_->Say(text);
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
