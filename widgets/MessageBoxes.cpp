#include "widgets/MessageBoxes.h"

#include <QApplication>
#include <QMessageBox>

namespace quarnel {

namespace {

QMessageBox::StandardButton Ask(QWidget* parent, const QString& text, const QString& title,
                                QMessageBox::Icon icon, QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton escape) {
    QMessageBox box(icon, title, text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    if (escape != QMessageBox::NoButton)
        box.setEscapeButton(escape);
    // Yes and OK throw data away in most of these questions: a hasty Enter must not.
    if (escape != QMessageBox::NoButton)
        box.setDefaultButton(escape);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

QString ApplicationTitle() {
    return QStringLiteral("Quarnel");
}

void ShowMessage(QWidget* parent, const QString& text, const QString& title) {
    Ask(parent, text, title, QMessageBox::Information, QMessageBox::Ok, QMessageBox::NoButton);
}

bool AskOkCancel(QWidget* parent, const QString& text, const QString& title) {
    return Ask(parent, text, title, QMessageBox::Question, QMessageBox::Ok | QMessageBox::Cancel,
               QMessageBox::Cancel) == QMessageBox::Ok;
}

bool AskYesNo(QWidget* parent, const QString& text, const QString& title) {
    return Ask(parent, text, title, QMessageBox::Question, QMessageBox::Yes | QMessageBox::No,
               QMessageBox::No) == QMessageBox::Yes;
}

BusyPointer::BusyPointer() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

BusyPointer::~BusyPointer() {
    QApplication::restoreOverrideCursor();
}

} // namespace quarnel
