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
    /// From now on the box is as wide as so many digits need and gives way down to `least` of them,
    /// instead of taking all the room there is. A longer text scrolls in it.
    void HoldCharacters(int usual, int least);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The project's text has changed with the box.
    void TextTaken();

private:
    QSize SizeFor(int characters) const;
    void TakeOver(const QString& typed);
    void WriteAsOneLine(const QString& typed);

    std::string& text_;
    bool rewriting_ = false;  ///< line ends are being taken out
    int usualCharacters_ = 0; ///< 0: as the toolkit does it
    int leastCharacters_ = 0;
};

} // namespace quarnel
