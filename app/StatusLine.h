#pragma once

#include <QString>
#include <QWidget>

class QPushButton;

namespace quarnel {

class SaidLine;

/// What the status line may offer with its text: to import the readings that a paste could not
/// take, or to bring back the unsaved work that another project has replaced.
enum class StatusOffer { None, ImportReadings, BringBack };

/// The line at the bottom of the main window: what was done last and at what time, and an offer
/// that goes with it.
class StatusLine : public QWidget {
    Q_OBJECT
public:
    explicit StatusLine(QWidget* parent = nullptr);

    /// Says `text`, or nothing. An offer of the former text is withdrawn.
    void Say(const QString& text);
    /// The same with an offer.
    void SayAndOffer(const QString& text, StatusOffer offer);
    /// Withdraws this offer, if it stands.
    void Withdraw(StatusOffer offer);

Q_SIGNALS:
    void OfferTaken(StatusOffer offer);

private:
    SaidLine* said_ = nullptr;
    QPushButton* offer_ = nullptr;
    StatusOffer offered_ = StatusOffer::None;
};

} // namespace quarnel
