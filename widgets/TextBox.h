#pragma once

#include <QLineEdit>
#include <QString>
#include <string>

namespace quarnel {

/// A box bound to one text of the project: whatever changes it goes into the text at once, as
/// typed, blanks included. A text too long for a box (a damaged file can hold one of megabytes) is
/// shown by its beginning and kept whole: the box then takes no typing.
class TextBox : public QLineEdit {
    Q_OBJECT
public:
    TextBox(std::string& text, const QString& name, QWidget* parent = nullptr);
    /// Shows the text again after something other than the box changed it.
    void ShowText();

private:
    std::string& text_;
};

} // namespace quarnel
