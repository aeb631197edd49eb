#pragma once

#include <QString>
#include <QWidget>

class QPushButton;

namespace quarnel {

class SaidLine;

/// The line at the bottom of the main window: what was done last and at what time, and with some of
/// it the offer to import the readings that a paste could not take.
class StatusLine : public QWidget {
    Q_OBJECT
public:
    explicit StatusLine(QWidget* parent = nullptr);

    /// Says `text`, or nothing. An offer of the former text is withdrawn.
    void Say(const QString& text);
    /// The same with the offer.
    void SayAndOfferImport(const QString& text);
    void WithdrawOffer();

Q_SIGNALS:
    /// The offer was taken.
    void ImportWanted();

private:
    SaidLine* said_ = nullptr;
    QPushButton* offer_ = nullptr;
};

} // namespace quarnel
