#include "kcompute/KLabel.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMenu>

namespace quarnel {

namespace {

const QString StaleWords = QStringLiteral(" (the data have changed since)");

} // namespace

KLabel::KLabel(QWidget* parent)
    : QLabel(parent) {
    setObjectName(QStringLiteral("ComputedKLabel"));
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    ShowK(QString(), QString());
}

void KLabel::ShowK(const QString& number, const QString& unit) {
    setText(number);
    unit_ = unit;
    // Nothing to be read or copied is no stop for the keyboard.
    setFocusPolicy(number.isEmpty() ? Qt::NoFocus : Qt::StrongFocus);
    Describe();
}

void KLabel::ShowStale(bool stale) {
    stale_ = stale;
    // Greyed as text that does not hold now, yet readable and to be copied.
    setForegroundRole(stale ? QPalette::PlaceholderText : QPalette::WindowText);
    Describe();
}

QString KLabel::KWithUnit() const {
    if (text().isEmpty())
        return {};
    return text() + QLatin1Char(' ') + unit_ + (stale_ ? StaleWords : QString());
}

void KLabel::Describe() {
    const QString k = KWithUnit();
    setAccessibleName(QStringLiteral("Hydraulic conductivity") +
                      (k.isEmpty() ? QString() : QLatin1Char(' ') + k));
}

void KLabel::CopyK() const {
    QGuiApplication::clipboard()->setText(KWithUnit());
}

void KLabel::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    QAction* copy = menu.addAction(QStringLiteral("&Copy K"), this, &KLabel::CopyK);
    copy->setObjectName(QStringLiteral("CopyK"));
    copy->setEnabled(!text().isEmpty());
    menu.exec(event->globalPos());
}

void KLabel::mouseDoubleClickEvent(QMouseEvent*) {
    // The toolkit would take a word, and 1.23e-05 is two of them.
    setSelection(0, static_cast<int>(text().size()));
}

void KLabel::keyPressEvent(QKeyEvent* event) {
    // What is selected, as everywhere; but an old number by itself would pass for a result.
    if (event->matches(QKeySequence::Copy) && !text().isEmpty() && (stale_ || !hasSelectedText()))
        CopyK();
    else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        QContextMenuEvent menu(QContextMenuEvent::Keyboard, rect().center(),
                               mapToGlobal(rect().center()));
        contextMenuEvent(&menu);
    } else
        QLabel::keyPressEvent(event);
}

void KLabel::focusInEvent(QFocusEvent* event) {
    QLabel::focusInEvent(event);
    // Shows where the keyboard is.
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
        event->reason() == Qt::ShortcutFocusReason)
        setSelection(0, static_cast<int>(text().size()));
}

} // namespace quarnel
