#pragma once

#include <QLabel>

namespace quarnel {

/// The label `ComputedKLabel`: K, to be selected and copied. A double click selects the whole
/// number; its menu copies K with its unit. A K that is no longer current never leaves the label
/// without saying so.
class KLabel : public QLabel {
    Q_OBJECT
public:
    explicit KLabel(QWidget* parent = nullptr);

    /// Shows a K, or none where `number` is empty.
    void ShowK(const QString& number, const QString& unit);
    /// Whether the data have changed since K was computed.
    void ShowStale(bool stale);
    /// K with its unit, and, where it is not current, the word that says so; empty without a K.
    QString KWithUnit() const;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void CopyK() const;
    void Describe();

    QString unit_;
    bool stale_ = false;
};

} // namespace quarnel
