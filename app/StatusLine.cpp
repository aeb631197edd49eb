#include "app/StatusLine.h"

#include "widgets/SaidLine.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace quarnel {

StatusLine::StatusLine(QWidget* parent)
    : QWidget(parent) {
    said_ = new SaidLine(QStringLiteral("Status"));
    offer_ = new QPushButton(QStringLiteral("I&mport Readings..."));
    offer_->setObjectName(QStringLiteral("StatusOffer"));
    offer_->setToolTip(QStringLiteral("Look at what was to be pasted as at a logger's file: "
                                      "separated by commas, semicolons or blanks"));
    connect(offer_, &QPushButton::clicked, this, &StatusLine::ImportWanted);
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addWidget(said_, 1);
    columns->addWidget(offer_);
    // Nothing above moves when the offer comes.
    setMinimumHeight(offer_->sizeHint().height());
    WithdrawOffer();
}

void StatusLine::Say(const QString& text) {
    said_->Say(text);
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
