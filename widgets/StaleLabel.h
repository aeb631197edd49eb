#pragma once

#include <QLabel>

namespace quarnel {

/// The line that warns wherever an older result is shown: a sentence with a sign beside it, or
/// nothing. Its room stays when it says nothing, so that nothing moves when it speaks.
class StaleLabel : public QLabel {
    Q_OBJECT
public:
    StaleLabel(const QString& name, QString sentence, QWidget* parent = nullptr);
    /// Says the sentence, or nothing.
    void ShowStale(bool stale);

private:
    QString sentence_;
};

} // namespace quarnel
