#pragma once

#include <QLineEdit>
#include <QString>
#include <string>

namespace quarnel {

/// A box bound to one text of the project: whatever changes it, by key, paste, drop, input method
/// or a screen reader, goes into the text at once, blanks included. Line ends become one blank
/// before anything else sees them. No text is too long for it.
class TextBox : public QLineEdit {
    Q_OBJECT
public:
    TextBox(std::string& text, const QString& name, QWidget* parent = nullptr);
    /// Shows the text again after a check trimmed it; what can be undone stays where it is the
    /// same.
    void ShowText();
    /// Shows the text of another project: nothing of the former one can be brought back by undo.
    void ShowNewText();

Q_SIGNALS:
    /// The project's text has changed with the box.
    void TextTaken();

private:
    void TakeOver(const QString& typed);
    void WriteAsOneLine(const QString& typed);

    std::string& text_;
    bool rewriting_ = false; ///< line ends are being taken out
};

} // namespace quarnel
