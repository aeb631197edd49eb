#pragma once

#include <QString>
#include <QWidget>

namespace quarnel {

/// The title of message boxes that have none of their own.
QString ApplicationTitle();

/// A modal box with the text and only an OK button. The text is shown as it stands, never as
/// markup.
void ShowMessage(QWidget* parent, const QString& text, const QString& title = ApplicationTitle());
/// Whether the user pressed OK; closing the box is Cancel.
bool AskOkCancel(QWidget* parent, const QString& text, const QString& title);
/// Whether the user pressed Yes; closing the box is No.
bool AskYesNo(QWidget* parent, const QString& text, const QString& title = ApplicationTitle());

/// Shows the busy pointer as long as it lives, also when an exception ends the work.
class BusyPointer {
public:
    BusyPointer();
    ~BusyPointer();
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

} // namespace quarnel
