#include "recovery/RecDatGrid.h"

#include "widgets/QtTexts.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimerEvent>
#include <algorithm>

namespace quarnel {

namespace {

constexpr int DragScrollMilliseconds = 40;

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

std::size_t MoveRow(std::size_t row, int by) {
    const auto moved = static_cast<std::ptrdiff_t>(row) + by;
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(moved, 1));
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
    event->setAccepted(PressCommandKey(*event) || PressMovingKey(*event) || PressTypingKey(*event));
}

bool RecDatGrid::PressCommandKey(const QKeyEvent& event) {
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
    case Qt::Key_C:
        Copy();
        return true;
    case Qt::Key_V:
        Paste();
        return true;
    case Qt::Key_X:
        Cut();
        return true;
    case Qt::Key_A:
        SelectAllCells();
        return true;
    case Qt::Key_Z:
        Undo();
        return true;
    default:
        return false;
    }
}

std::optional<GridCell> RecDatGrid::MovingTarget(const QKeyEvent& event, GridCell from) const {
    const bool far = event.modifiers().testFlag(Qt::ControlModifier);
    const std::size_t lastRow = model_.Editor().Rows().size();
    const int page = std::max(1, viewport()->height() / std::max(1, rowHeight(0)) - 1);
    switch (event.key()) {
    case Qt::Key_Left:
        return GridCell{from.row, far ? FirstDataColumn : from.column - 1};
    case Qt::Key_Right:
        return GridCell{from.row, far ? LastDataColumn : from.column + 1};
    case Qt::Key_Up:
        return GridCell{far ? 1 : MoveRow(from.row, -1), from.column};
    case Qt::Key_Down:
        return GridCell{far ? lastRow : MoveRow(from.row, 1), from.column};
    case Qt::Key_PageUp:
        return GridCell{MoveRow(from.row, -page), from.column};
    case Qt::Key_PageDown:
        return GridCell{MoveRow(from.row, page), from.column};
    case Qt::Key_Home:
        return GridCell{far ? 1 : from.row, FirstDataColumn};
    case Qt::Key_End:
        return GridCell{far ? lastRow : from.row, LastDataColumn};
    default:
        return std::nullopt;
    }
}

bool RecDatGrid::PressMovingKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = ModifiersOf(event);
    if ((modifiers & (Qt::AltModifier | Qt::MetaModifier)) != Qt::NoModifier)
        return false;
    const GridSelection& selection = Editor().Selection();
    const bool extend = modifiers.testFlag(Qt::ShiftModifier);
    const std::optional<GridCell> target =
        MovingTarget(event, extend ? selection.end : selection.current);
    if (!target)
        return false;
    if (extend) {
        Editor().Select({selection.current, *target});
        ShowExtendedSelection();
    } else {
        Editor().Select(GridSelection(*target));
        ShowSelection();
    }
    return true;
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
        Editor().Type(ToUtf8(event->commitString()));
        ShowSelection();
    }
    event->accept();
}

// ---- Mouse -------------------------------------------------------------------------------------

/// The data cell under the pointer, or the one nearest to it where it is outside.
GridCell RecDatGrid::NearestCell(QPoint position) const {
    const int height = viewport()->height();
    int row = rowAt(std::clamp(position.y(), 0, height - 1));
    if (row < 0)
        row = model_.rowCount() - 1;
    else if (position.y() < 0)
        row = std::max(row - 1, 0);
    else if (position.y() >= height)
        ++row;
    const int column =
        position.x() < columnViewportPosition(LastDataColumn) ? FirstDataColumn : LastDataColumn;
    return {static_cast<std::size_t>(row) + 1, column};
}

void RecDatGrid::mousePressEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->pos());
    if (!index.isValid())
        return;
    const GridCell cell = NearestCell(event->pos());
    const bool onNumber = index.column() == NumberColumn;
    const GridBlock block = SelectedBlock(Editor().Selection());
    // The menu of a right click is about the block it was opened on.
    if (event->button() != Qt::LeftButton && cell.row >= block.firstRow &&
        cell.row <= block.lastRow &&
        (onNumber || (cell.column >= block.firstColumn && cell.column <= block.lastColumn)))
        return;
    const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
    GridCell current = extend ? Editor().Selection().current : cell;
    if (onNumber)
        current.column = FirstDataColumn;
    wholeRows_ = onNumber;
    dragging_ = event->button() == Qt::LeftButton;
    Editor().Select({current, GridCell{cell.row, onNumber ? LastDataColumn : cell.column}});
    ShowExtendedSelection();
}

void RecDatGrid::DragTo(QPoint position) {
    GridCell end = NearestCell(position);
    if (wholeRows_)
        end.column = LastDataColumn;
    Editor().Select({Editor().Selection().current, end});
    ShowExtendedSelection();
}

void RecDatGrid::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging_ || !event->buttons().testFlag(Qt::LeftButton))
        return;
    dragPosition_ = event->pos();
    DragTo(dragPosition_);
    if (viewport()->rect().contains(dragPosition_))
        dragTimer_.stop();
    else if (!dragTimer_.isActive())
        dragTimer_.start(DragScrollMilliseconds, this);
}

void RecDatGrid::timerEvent(QTimerEvent* event) {
    if (event->timerId() == dragTimer_.timerId())
        DragTo(dragPosition_);
    else
        GridView::timerEvent(event);
}

void RecDatGrid::mouseReleaseEvent(QMouseEvent*) {
    dragging_ = false;
    dragTimer_.stop();
}

void RecDatGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

} // namespace quarnel
