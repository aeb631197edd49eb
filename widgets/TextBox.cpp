#include "widgets/TextBox.h"

#include "widgets/QtTexts.h"

#include <QSignalBlocker>

namespace quarnel {

TextBox::TextBox(std::string& text, const QString& name, QWidget* parent)
    : QLineEdit(parent)
    , text_(text) {
    setObjectName(name);
    // Not only typing counts: a screen reader or a dictation program sets the whole text.
    connect(this, &QLineEdit::textChanged, this,
            [this](const QString& typed) { text_ = ToUtf8(typed); });
}

void TextBox::ShowText() {
    const QString whole = ToQString(text_);
    const bool fits = whole.size() <= maxLength();
    setReadOnly(!fits);
    if (text() == whole)
        return;
    const QSignalBlocker blocker(this);
    setText(fits ? whole : whole.left(maxLength()));
    setCursorPosition(0);
}

} // namespace quarnel
