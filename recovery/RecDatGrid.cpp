#include "recovery/RecDatGrid.h"

#include "recovery/GridCellDelegate.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QScopedValueRollback>
#include <algorithm>

namespace quarnel {

RecDatGrid::RecDatGrid(RecoveryGridModel& model, QWidget* parent)
    : GridView(parent)
    , model_(model) {
    setObjectName(QStringLiteral("RecDatGrid"));
    setAutoScroll(false);
    setSelectionMode(ContiguousSelection);
    setItemDelegate(new GridCellDelegate(model.Editor(), this));
    setModel(&model);
    // Replacing the rows drops the view's own selection; the model's resetting comes first.
    connect(&model, &QAbstractItemModel::modelReset, this, &RecDatGrid::ShowSelection);
    setAttribute(Qt::WA_InputMethodEnabled);
}

// ---- Selection ---------------------------------------------------------------------------------

void RecDatGrid::ShowSelection() {
    MirrorSelection();
    BringIntoView(Editor().Selection().current);
}

void RecDatGrid::ShowExtendedSelection() {
    MirrorSelection();
    BringIntoView(Editor().Selection().end);
}

void RecDatGrid::MirrorSelection() {
    const GridSelection& selection = Editor().Selection();
    const GridBlock block = SelectedBlock(selection);
    const auto indexOf = [this](std::size_t row, int column) {
        return model_.index(static_cast<int>(row) - 1, column);
    };
    {
        const QScopedValueRollback<bool> guard(showing_, true);
        selectionModel()->setCurrentIndex(indexOf(selection.current.row, selection.current.column),
                                          QItemSelectionModel::NoUpdate);
        selectionModel()->select(QItemSelection(indexOf(block.firstRow, block.firstColumn),
                                                indexOf(block.lastRow, block.lastColumn)),
                                 QItemSelectionModel::ClearAndSelect);
    }
    viewport()->update();
}

void RecDatGrid::BringIntoView(GridCell cell) {
    scrollTo(model_.index(static_cast<int>(cell.row) - 1, cell.column));
}

/// Somebody else, such as a screen reader, moved the selection: the editor follows.
void RecDatGrid::TakeOverSelection() {
    const QModelIndex current = currentIndex();
    if (showing_ || !current.isValid())
        return;
    const auto rowOf = [](int row) { return static_cast<std::size_t>(row) + 1; };
    const GridCell cell{rowOf(current.row()), current.column()};
    GridSelection selection(cell);
    const QItemSelection ranges = selectionModel()->selection();
    const auto range =
        std::find_if(ranges.begin(), ranges.end(),
                     [&](const QItemSelectionRange& r) { return r.contains(current); });
    if (range != ranges.end())
        selection.end = {rowOf(range->top() == current.row() ? range->bottom() : range->top()),
                         range->left() == current.column() ? range->right() : range->left()};
    Editor().Select(selection);
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
    const std::string message = Editor().Paste(ToUtf8(QGuiApplication::clipboard()->text()));
    ShowSelection();
    if (!message.empty())
        ShowMessage(this, ToQString(message));
}

void RecDatGrid::SelectAllCells() {
    Editor().SelectAll();
    ShowSelection();
}

void RecDatGrid::Undo() {
    Editor().Undo();
    ShowSelection();
}

void RecDatGrid::Redo() {
    Editor().Redo();
    ShowSelection();
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

/// Tab is a key of the grid: it never leaves it.
bool RecDatGrid::focusNextPrevChild(bool) {
    return false;
}

void RecDatGrid::showEvent(QShowEvent* event) {
    GridView::showEvent(event);
    BringIntoView(Editor().Selection().current);
}

} // namespace quarnel
