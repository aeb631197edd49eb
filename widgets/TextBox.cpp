#include "widgets/TextBox.h"

#include "widgets/QtTexts.h"

#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionFrame>
#include <algorithm>
#include <limits>

namespace quarnel {

namespace {
/// What a line edit leaves free left and right of its text.
constexpr int TextMargins = 8;
} // namespace

TextBox::TextBox(std::string& text, const QString& name, QWidget* parent)
    : QLineEdit(parent)
    , text_(text) {
    setObjectName(name);
    // A box cuts at 32,767 characters unless it is told otherwise.
    setMaxLength(std::numeric_limits<int>::max());
    // Not only typing counts: a screen reader or a dictation program sets the whole text.
    connect(this, &QLineEdit::textChanged, this, &TextBox::TakeOver);
}

void TextBox::HoldCharacters(int usual, int least) {
    usualCharacters_ = usual;
    leastCharacters_ = least;
    setSizePolicy(QSizePolicy::Maximum, sizePolicy().verticalPolicy());
    updateGeometry();
}

QSize TextBox::SizeFor(int characters) const {
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QSize text(fontMetrics().horizontalAdvance(QLatin1Char('0')) * characters + TextMargins,
                     fontMetrics().height());
    return style()->sizeFromContents(QStyle::CT_LineEdit, &option, text, this);
}

QSize TextBox::sizeHint() const {
    const QSize size = QLineEdit::sizeHint();
    return usualCharacters_ > 0 ? QSize(SizeFor(usualCharacters_).width(), size.height()) : size;
}

QSize TextBox::minimumSizeHint() const {
    const QSize size = QLineEdit::minimumSizeHint();
    return usualCharacters_ > 0 ? QSize(SizeFor(leastCharacters_).width(), size.height()) : size;
}

void TextBox::TakeOver(const QString& typed) {
    if (rewriting_)
        return;
    if (OneLine(typed) != typed)
        WriteAsOneLine(typed);
    text_ = ToUtf8(text());
    Q_EMIT TextTaken();
}

/// Puts the text in again without its line ends, as one change: taking that back brings the text
/// before it, which a box that is merely set anew would have lost.
void TextBox::WriteAsOneLine(const QString& typed) {
    const QScopedValueRollback<bool> guard(rewriting_, true);
    const QString line = OneLine(typed);
    const int behindCursor = static_cast<int>(OneLine(typed.mid(cursorPosition())).size());
    if (isUndoAvailable()) {
        undo();
        const QString before = text();
        const auto [left, unused] =
            std::mismatch(before.begin(), before.end(), line.begin(), line.end());
        const auto same = static_cast<int>(left - before.begin());
        const int room = static_cast<int>(std::min(before.size(), line.size())) - same;
        int sameEnd = 0;
        while (sameEnd < room &&
               before[before.size() - 1 - sameEnd] == line[line.size() - 1 - sameEnd])
            ++sameEnd;
        setSelection(same, static_cast<int>(before.size()) - same - sameEnd);
        insert(line.mid(same, line.size() - same - sameEnd));
    } else {
        setText(line);
    }
    setCursorPosition(std::max(0, static_cast<int>(line.size()) - behindCursor));
}

void TextBox::ShowText() {
    if (text() != ToQString(text_))
        ShowNewText();
}

void TextBox::ShowNewText() {
    const QSignalBlocker blocker(this);
    setText(ToQString(text_));
    setCursorPosition(0);
}

} // namespace quarnel
