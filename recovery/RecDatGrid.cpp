#include "recovery/RecDatGrid.h"

#include "recovery/GridCellDelegate.h"
#include "recovery/GridEditing.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QScopedValueRollback>
#include <algorithm>
#include <cstddef>
#include <string>

namespace quarnel {

namespace {

/// The editor counts rows as their numbers do.
ViewCell ToView(GridCell cell) {
    return {static_cast<int>(cell.row) - 1, cell.column};
}
GridCell ToGrid(ViewCell cell) {
    return {static_cast<std::size_t>(std::max(cell.row, 0)) + 1, cell.column};
}

} // namespace

RecDatGrid::RecDatGrid(RecoveryGridModel& model, QWidget* parent)
    : GridView(parent)
    , model_(model) {
    setObjectName(QStringLiteral("RecDatGrid"));
    setAccessibleName(QStringLiteral("Readings: time and water level"));
    // The cells are drawn alike in all columns, the numbers among them.
    setItemDelegateForColumn(NumberColumn, nullptr);
    setItemDelegate(new GridCellDelegate(model.Editor(), this));
    setModel(&model);
    SetWidestTexts({QString(), QStringLiteral("100000.00"), QStringLiteral("-1234.567")});
    // Replacing the rows drops the view's own selection; the model's resetting comes first.
    connect(&model, &QAbstractItemModel::modelReset, this, &RecDatGrid::ShowSelection);
    setAttribute(Qt::WA_InputMethodEnabled);
}

// ---- Selection ---------------------------------------------------------------------------------

ViewBlock RecDatGrid::SelectedCells() const {
    const GridSelection& selection = model_.Editor().Selection();
    return {ToView(selection.current), ToView(selection.end)};
}

void RecDatGrid::SelectCells(ViewBlock block) {
    Editor().Select({ToGrid(block.current), ToGrid(block.end)});
    ShowSelectionAt(SelectedCells().end);
}

void RecDatGrid::ShowSelection() {
    ShowSelectionAt(SelectedCells().current);
}

void RecDatGrid::ShowSelectionAt(ViewCell seen) {
    const QScopedValueRollback<bool> guard(showing_, true);
    MarkBlock(SelectedCells(), seen);
}

void RecDatGrid::GoTo(GridCell cell) {
    setFocus();
    Editor().Select(GridSelection(cell));
    ShowSelection();
}

/// Somebody else, such as a screen reader, moved the selection: the editor follows.
void RecDatGrid::TakeOverSelection() {
    if (showing_ || !currentIndex().isValid())
        return;
    const ViewBlock block = GridView::SelectedCells();
    Editor().Select({ToGrid(block.current), ToGrid(block.end)});
    viewport()->update();
}

void RecDatGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    GridView::currentChanged(current, previous);
    TakeOverSelection();
}

void RecDatGrid::selectionChanged(const QItemSelection& selected,
                                  const QItemSelection& deselected) {
    GridView::selectionChanged(selected, deselected);
    TakeOverSelection();
}

// ---- Commands ----------------------------------------------------------------------------------

void RecDatGrid::PutOnClipboard(const std::string& text) {
    QGuiApplication::clipboard()->setText(ToQString(text));
}

void RecDatGrid::Copy() {
    QGuiApplication::clipboard()->clear();
    PutOnClipboard(Editor().CopyText());
}

void RecDatGrid::Cut() {
    PutOnClipboard(Editor().CopyText());
    Editor().Clear();
    ShowSelection();
}

void RecDatGrid::Paste() {
    const QString text = QGuiApplication::clipboard()->text();
    std::size_t rows = 0;
    const std::string message = Editor().Paste(ToUtf8(text), &rows);
    ShowSelection();
    if (message.empty())
        Q_EMIT Pasted(text, rows);
    else
        ShowMessage(this, ToQString(message));
}

void RecDatGrid::Undo() {
    const bool changes = Editor().CanUndo();
    Editor().Undo();
    ShowSelection();
    if (changes)
        Q_EMIT TookBack(true);
}

void RecDatGrid::Redo() {
    const bool changes = Editor().CanRedo();
    Editor().Redo();
    ShowSelection();
    if (changes)
        Q_EMIT TookBack(false);
}

// ---- Focus -------------------------------------------------------------------------------------

void RecDatGrid::focusInEvent(QFocusEvent* event) {
    Editor().StartTypingAnew();
    GridView::focusInEvent(event);
    Q_EMIT FocusChanged(true);
}

void RecDatGrid::focusOutEvent(QFocusEvent* event) {
    GridView::focusOutEvent(event);
    Q_EMIT FocusChanged(false);
}

/// Tab is a key of the grid: it never leaves it. What cannot be seen keeps no keyboard, though.
bool RecDatGrid::focusNextPrevChild(bool next) {
    return !isVisible() && GridView::focusNextPrevChild(next);
}

void RecDatGrid::showEvent(QShowEvent* event) {
    GridView::showEvent(event);
    scrollTo(currentIndex());
}

} // namespace quarnel
