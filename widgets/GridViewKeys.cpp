#include "widgets/GridView.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimerEvent>
#include <algorithm>
#include <optional>

namespace quarnel {

namespace {

constexpr int DragScrollMilliseconds = 40;

/// The modifiers that tell one command from another; the keypad's is none of them.
Qt::KeyboardModifiers ModifiersOf(const QKeyEvent& event) {
    return event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
}

} // namespace

// ---- The selected block -------------------------------------------------------------------------

int GridView::LastColumn() const {
    return model()->columnCount() - 1;
}

int GridView::LastRow() const {
    return model()->rowCount() - 1;
}

ViewBlock GridView::SelectedCells() const {
    const QModelIndex index = currentIndex();
    ViewBlock block;
    if (!index.isValid())
        return block;
    block.current = block.end = {index.row(), index.column()};
    const QItemSelection ranges = selectionModel()->selection();
    for (const QItemSelectionRange& range : ranges)
        if (range.contains(index))
            block.end = {range.top() == index.row() ? range.bottom() : range.top(),
                         range.left() == index.column() ? range.right() : range.left()};
    return block;
}

void GridView::SelectCells(ViewBlock block) {
    MarkBlock(block, block.end);
}

void GridView::MarkBlock(ViewBlock block, ViewCell seen) {
    if (LastRow() < 0)
        return;
    const auto indexOf = [this](ViewCell cell) {
        return model()->index(std::clamp(cell.row, 0, LastRow()),
                              std::clamp(cell.column, FirstColumn, LastColumn()));
    };
    const QModelIndex current = indexOf(block.current);
    const QModelIndex end = indexOf(block.end);
    const auto [top, bottom] = std::minmax({current.row(), end.row()});
    const auto [left, right] = std::minmax({current.column(), end.column()});
    selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    selectionModel()->select(
        QItemSelection(model()->index(top, left), model()->index(bottom, right)),
        QItemSelectionModel::ClearAndSelect);
    scrollTo(indexOf(seen));
    viewport()->update();
}

void GridView::selectAll() {
    SelectCells({{0, FirstColumn}, {LastRow(), LastColumn()}});
}

void GridView::SelectColumn(int column) {
    const int first = std::max(column, FirstColumn);
    const int last = column == 0 ? LastColumn() : column;
    const ViewBlock block{{0, first}, {LastRow(), last}};
    SelectCells(block);
    // Who clicks a heading looks at the first rows.
    scrollTo(model()->index(0, first));
}

QString GridView::BlockText() const {
    const ViewBlock block = SelectedCells();
    const auto [top, bottom] = std::minmax({block.current.row, block.end.row});
    const auto [left, right] = std::minmax({block.current.column, block.end.column});
    QString text;
    for (int row = top; row <= bottom; ++row)
        for (int column = left; column <= right; ++column) {
            text += model()->index(row, column).data().toString();
            text += QLatin1Char(column < right ? '\t' : '\n');
        }
    return text;
}

void GridView::Copy() {
    QGuiApplication::clipboard()->setText(BlockText());
}

// ---- Keys ---------------------------------------------------------------------------------------

/// Other keys belong to the window around: a view of the toolkit would search for what is typed.
void GridView::keyPressEvent(QKeyEvent* event) {
    event->setAccepted(PressCommandKey(*event) || PressMovingKey(*event));
}

bool GridView::PressCommandKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = ModifiersOf(event);
    if (event.key() == Qt::Key_F10 && modifiers == Qt::ShiftModifier)
        OpenMenuAtCurrentCell();
    else if (event.key() == Qt::Key_A && modifiers == Qt::ControlModifier)
        selectAll();
    else if (event.key() == Qt::Key_C && modifiers == Qt::ControlModifier)
        Copy();
    else
        return false;
    return true;
}

void GridView::OpenMenuAtCurrentCell() {
    const QPoint at = visualRect(currentIndex()).center();
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, at, viewport()->mapToGlobal(at));
    QApplication::sendEvent(viewport(), &menu);
}

std::optional<ViewCell> GridView::MovingTarget(const QKeyEvent& event, ViewCell from) const {
    const bool far = event.modifiers().testFlag(Qt::ControlModifier);
    const int page = std::max(1, viewport()->height() / std::max(1, rowHeight(0)) - 1);
    switch (event.key()) {
    case Qt::Key_Left:
        return ViewCell{from.row, far ? FirstColumn : from.column - 1};
    case Qt::Key_Right:
        return ViewCell{from.row, far ? LastColumn() : from.column + 1};
    case Qt::Key_Up:
        return ViewCell{far ? 0 : from.row - 1, from.column};
    case Qt::Key_Down:
        return ViewCell{far ? LastRow() : from.row + 1, from.column};
    case Qt::Key_PageUp:
        return ViewCell{from.row - page, from.column};
    case Qt::Key_PageDown:
        return ViewCell{from.row + page, from.column};
    case Qt::Key_Home:
        return ViewCell{far ? 0 : from.row, FirstColumn};
    case Qt::Key_End:
        return ViewCell{far ? LastRow() : from.row, LastColumn()};
    default:
        return std::nullopt;
    }
}

bool GridView::PressMovingKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = ModifiersOf(event);
    if ((modifiers & (Qt::AltModifier | Qt::MetaModifier)) != Qt::NoModifier)
        return false;
    const ViewBlock block = SelectedCells();
    const bool extend = modifiers.testFlag(Qt::ShiftModifier);
    const std::optional<ViewCell> target = MovingTarget(event, extend ? block.end : block.current);
    if (target)
        SelectCells({extend ? block.current : *target, *target});
    return target.has_value();
}

// ---- Mouse --------------------------------------------------------------------------------------

/// The data cell under the pointer, or the one nearest to it where it is outside.
ViewCell GridView::NearestCell(QPoint position) const {
    const int height = viewport()->height();
    int row = rowAt(std::clamp(position.y(), 0, height - 1));
    if (row < 0)
        row = LastRow();
    else if (position.y() < 0)
        row = std::max(row - 1, 0);
    else if (position.y() >= height)
        ++row;
    int column = LastColumn();
    while (column > FirstColumn && position.x() < columnViewportPosition(column))
        --column;
    return {row, column};
}

void GridView::mousePressEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->pos());
    if (!index.isValid())
        return;
    const ViewCell cell = NearestCell(event->pos());
    const bool onNumber = index.column() == 0;
    const ViewBlock block = SelectedCells();
    const auto [top, bottom] = std::minmax({block.current.row, block.end.row});
    const auto [left, right] = std::minmax({block.current.column, block.end.column});
    // The menu of a right click is about the block it was opened on.
    if (event->button() != Qt::LeftButton && cell.row >= top && cell.row <= bottom &&
        (onNumber || (cell.column >= left && cell.column <= right)))
        return;
    const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
    ViewCell current = extend ? block.current : cell;
    if (onNumber)
        current.column = FirstColumn;
    wholeRows_ = onNumber;
    dragging_ = event->button() == Qt::LeftButton;
    SelectCells({current, {cell.row, onNumber ? LastColumn() : cell.column}});
}

void GridView::DragTo(QPoint position) {
    ViewCell end = NearestCell(position);
    if (wholeRows_)
        end.column = LastColumn();
    SelectCells({SelectedCells().current, end});
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging_ || !event->buttons().testFlag(Qt::LeftButton))
        return;
    dragPosition_ = event->pos();
    DragTo(dragPosition_);
    if (viewport()->rect().contains(dragPosition_))
        dragTimer_.stop();
    else if (!dragTimer_.isActive())
        dragTimer_.start(DragScrollMilliseconds, this);
}

void GridView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != dragTimer_.timerId())
        QTableView::timerEvent(event);
    else if (QGuiApplication::mouseButtons().testFlag(Qt::LeftButton) &&
             QApplication::activeModalWidget() == nullptr)
        DragTo(dragPosition_);
    else
        EndDrag();
}

void GridView::mouseReleaseEvent(QMouseEvent*) {
    EndDrag();
}

/// A box that comes up takes the release of the button, so the drag also ends without one.
void GridView::EndDrag() {
    dragging_ = false;
    dragTimer_.stop();
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

} // namespace quarnel
