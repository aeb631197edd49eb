#pragma once

#include "project/CellText.h"
#include "project/GlobalDeclar.h"
#include "recovery/RecoveryData.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

using GridRows = std::vector<RecoveryRow>;

/// Columns of the recovery grid. The number is written by the program, never typed.
enum GridColumn { NumberColumn = 0, TimeColumn = 1, ReadingColumn = 2 };
inline constexpr int FirstDataColumn = TimeColumn;
inline constexpr int LastDataColumn = ReadingColumn;
inline constexpr int GridColumnCount = 3;

/// A cell: data rows count from 1 (the heading is row 0), columns by GridColumn.
struct GridCell {
    std::size_t row = 1;
    int column = FirstDataColumn;
    friend bool operator==(const GridCell&, const GridCell&) = default;
};

/// Where a selection began and where it ends: the current cell and the other corner of the block.
struct GridSelection {
    GridCell current;
    GridCell end;
    GridSelection() = default;
    explicit GridSelection(GridCell cell)
        : current(cell)
        , end(cell) {}
    GridSelection(GridCell from, GridCell to)
        : current(from)
        , end(to) {}
    friend bool operator==(const GridSelection&, const GridSelection&) = default;
};

/// The cells between the two corners of a selection, all four bounds inclusive.
struct GridBlock {
    std::size_t firstRow = 1;
    std::size_t lastRow = 1;
    int firstColumn = FirstDataColumn;
    int lastColumn = FirstDataColumn;
    std::size_t RowCount() const { return lastRow - firstRow + 1; }
    std::size_t ColumnCount() const {
        return static_cast<std::size_t>(lastColumn - firstColumn) + 1;
    }
    GridCell FirstCell() const { return {firstRow, firstColumn}; }
};
GridBlock SelectedBlock(const GridSelection& selection);

/// The text of a data cell.
CellText& CellAt(RecoveryRow& row, int column);
const CellText& CellAt(const RecoveryRow& row, int column);

// ---- Changes -----------------------------------------------------------------------------------

/// `count` rows from `at` (counted from 0) give way to `rows`. Carrying it out leaves in it what
/// takes it back, so the same record serves for doing, undoing and doing again.
struct RowExchange {
    std::size_t at = 0;
    std::size_t count = 0;
    GridRows rows;
};
/// Makes room for an exchange. All that can fail for want of memory fails here, where nothing has
/// changed yet.
void PrepareExchange(GridRows& grid, RowExchange& exchange);
/// Prepares an exchange and carries it out; after a preparation it does not fail.
void ExchangeRows(GridRows& grid, RowExchange& exchange);

/// What a command changes, in order, and the selection that it leaves. Nothing to exchange: nothing
/// to undo either.
struct GridEdit {
    std::vector<RowExchange> exchanges;
    GridSelection after;
};

// ---- Commands; each works out the change and leaves the grid alone -----------------------------

/// The cells of a block as text for the clipboard: cells of a row separated by TAB, each row ended
/// by CR.
std::string GridClipText(const GridRows& grid, const GridBlock& block);

/// Writes `text` into one data cell.
GridEdit WriteCell(const GridRows& grid, GridCell cell, std::string_view text);

/// One empty row after the last; the current cell becomes its first data cell.
GridEdit AppendGridRow(const GridRows& grid);

/// Empties every selected cell; the block's first cell becomes current.
GridEdit ClearGridSelection(const GridRows& grid, const GridSelection& selection);

/// A paste, or the message that says why nothing was pasted. Neither: the clipboard holds nothing
/// that can be pasted.
struct GridPaste {
    GridEdit edit;
    std::string message;
    std::size_t rows = 0; ///< that are written, blank ones included
};
/// Writes a block of cells (GridClipText; rows may also end with LF or CR LF) from the first
/// selected cell on. A selection that is a multiple of the block is tiled with it; rows are added
/// where the grid is too short.
GridPaste PasteIntoGrid(const GridRows& grid, const GridSelection& selection,
                        std::string_view clipboardText);

/// How many rows to insert, read from the typed text, rounded half to even. Error: not a number, or
/// beyond 16 bits.
struct RowsToInsert {
    Result result;
    int count = 0; ///< may be 0 or negative: then nothing is inserted
};
RowsToInsert ReadRowsToInsert(std::string_view text, std::string_view decimalSeparator);

enum class InsertPlace { AfterCurrentRow, BeforeCurrentRow };
/// Inserts `count` empty rows at the row where the selection ends; the current cell stays.
GridEdit InsertGridRows(const GridSelection& selection, int count, InsertPlace place);

/// Whether any selected row holds a text, so that deleting it loses data.
bool SelectedRowsHoldData(const GridRows& grid, const GridSelection& selection);

/// Removes the selected rows; the grid keeps at least 50 data rows.
GridEdit DeleteGridRows(const GridRows& grid, const GridSelection& selection);

/// Fills the grid anew with the checked points by ascending time, equal times in the order of
/// entry, followed by at least 25 empty rows. A time of 1e9 or more is never placed: its row comes
/// out empty.
GridEdit SortGridByTime(const GridRows& grid, const RecoveryPointList& points);

} // namespace quarnel
