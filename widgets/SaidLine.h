#pragma once

#include <QString>
#include <QWidget>

class QLabel;

namespace quarnel {

class ElidedLabel;

/// What was done last and at what time, on one line; a text too long for it is
/// shortened and whole in its tooltip.
class SaidLine : public QWidget {
    Q_OBJECT
public:
    /// Its labels are called `name` and "Time" or "Text".
    explicit SaidLine(const QString& name, QWidget* parent = nullptr);

    /// Says `text`, or nothing.
    void Say(const QString& text);

private:
    QLabel* time_ = nullptr;
    ElidedLabel* text_ = nullptr;
};

} // namespace quarnel
