#include "recovery/RecDatGrid.h"

#include "widgets/GridView.h"
#include "widgets/QtTexts.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <algorithm>

namespace quarnel {

namespace {

/// The modifiers that tell one command from another; the keypad's is none of them.
Qt::KeyboardModifiers ModifiersOf(const QKeyEvent& event) {
    return event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
}

/// Whether a key press writes its text. Ctrl or Alt alone make it a command, both together are the
/// third level of many keyboards.
bool WritesText(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held =
        ModifiersOf(event) & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (held != Qt::NoModifier && held != (Qt::ControlModifier | Qt::AltModifier))
        return false;
    const QString text = event.text();
    return !text.isEmpty() && std::none_of(text.begin(), text.end(), [](QChar c) {
        return c.category() == QChar::Other_Control;
    });
}

} // namespace

// ---- Keys --------------------------------------------------------------------------------------

bool RecDatGrid::event(QEvent* event) {
    // A key that writes into the cell, or cuts it, is never a shortcut of the window around it.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (WritesText(key) || key.key() == Qt::Key_Delete) {
            event->accept();
            return true;
        }
    }
    return GridView::event(event);
}

void RecDatGrid::keyPressEvent(QKeyEvent* event) {
    event->setAccepted(PressEditingKey(*event) || PressCommandKey(*event) ||
                       PressMovingKey(*event) || PressTypingKey(*event));
}

bool RecDatGrid::PressEditingKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = ModifiersOf(event);
    if (event.key() == Qt::Key_Delete) {
        Cut();
        return true;
    }
    if (modifiers == (Qt::ControlModifier | Qt::ShiftModifier) && event.key() == Qt::Key_Z) {
        Redo();
        return true;
    }
    if (modifiers != Qt::ControlModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_V:
        Paste();
        return true;
    case Qt::Key_X:
        Cut();
        return true;
    case Qt::Key_Z:
        Undo();
        return true;
    default:
        return false;
    }
}

bool RecDatGrid::PressTypingKey(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Escape:
        return true;
    case Qt::Key_Backspace:
        Editor().Backspace();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
        Editor().MoveToNextCell();
        break;
    case Qt::Key_Backtab:
        Editor().MoveToPreviousCell();
        break;
    default:
        if (!WritesText(event))
            return false;
        Editor().Type(ToUtf8(event.text()));
    }
    ShowSelection();
    return true;
}

void RecDatGrid::inputMethodEvent(QInputMethodEvent* event) {
    if (!event->commitString().isEmpty()) {
        Editor().Type(ToUtf8(OneLine(event->commitString())));
        ShowSelection();
    }
    event->accept();
}

} // namespace quarnel
