#include "recovery/GridEditing.h"

#include "project/CellText.h"
#include "project/ProjectState.h"
#include "project/Texts.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

namespace quarnel {

namespace {

constexpr std::string_view NotCompatible =
    "Block selected for paste is not compatible with block to be pasted. Try selecting a single "
    "cell or a block size with rows and columns that are integer multiples of the rows and columns "
    "to be pasted.";
constexpr std::string_view TooManyColumns =
    "A column to be pasted exceeds the number of columns in the grid.";

/// Walks the rows of a clipboard text. CR, LF and CR LF each end a row; what follows the last end
/// is no row.
class ClipRows {
public:
    explicit ClipRows(std::string_view text)
        : rest_(text) {}

    std::optional<std::string_view> Next() {
        const auto end =
            std::find_if(rest_.begin(), rest_.end(), [](char c) { return c == '\r' || c == '\n'; });
        if (end == rest_.end())
            return std::nullopt;
        const auto size = static_cast<std::size_t>(end - rest_.begin());
        const std::string_view row = rest_.substr(0, size);
        const bool pair = rest_.substr(size, 2) == "\r\n";
        rest_.remove_prefix(size + (pair ? 2 : 1));
        return row;
    }

private:
    std::string_view rest_;
};

/// The block that a clipboard text holds.
struct ClipBlock {
    std::string_view text;
    std::size_t rows = 0;
    std::size_t columns = 0;
};

ClipBlock MeasureBlock(std::string_view text) {
    ClipBlock block{TrimBlanks(text)};
    ClipRows rows(block.text);
    bool lastIsEmpty = false;
    while (const auto row = rows.Next()) {
        if (block.rows++ == 0)
            block.columns =
                static_cast<std::size_t>(std::count(row->begin(), row->end(), '\t')) + 1;
        lastIsEmpty = row->empty();
    }
    // Copying puts one more row end after the block, which is no row of its own.
    if (block.rows > 1 && lastIsEmpty)
        --block.rows;
    return block;
}

/// How often a block fits into the selection along one side; 0 where it does not.
std::size_t Tiles(std::size_t selected, std::size_t size) {
    if (selected == 1)
        return 1;
    return selected % size == 0 ? selected / size : 0;
}

void WriteRow(std::string_view text, RecoveryRow& row, int firstColumn, int lastColumn) {
    for (int column = firstColumn; column <= lastColumn; ++column) {
        const std::size_t end = std::min(text.find('\t'), text.size());
        CellAt(row, column) = CellText(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

void WriteBlock(const ClipBlock& block, GridRows& rows, std::size_t at, int firstColumn) {
    const int lastColumn = firstColumn + static_cast<int>(block.columns) - 1;
    ClipRows texts(block.text);
    for (std::size_t i = 0; i < block.rows; ++i)
        WriteRow(*texts.Next(), rows[at + i], firstColumn, lastColumn);
}

RowExchange PasteTiles(const GridRows& grid, const ClipBlock& block, GridCell first,
                       std::size_t rowTiles, std::size_t columnTiles) {
    RowExchange exchange;
    exchange.at = first.row - 1;
    const std::size_t rowCount = rowTiles * block.rows;
    exchange.count = std::min(rowCount, grid.size() - exchange.at);
    const bool keepsAColumn = columnTiles * block.columns < LastDataColumn;
    if (keepsAColumn)
        exchange.rows.assign(grid.begin() + static_cast<std::ptrdiff_t>(exchange.at),
                             grid.begin() +
                                 static_cast<std::ptrdiff_t>(exchange.at + exchange.count));
    exchange.rows.resize(rowCount);
    for (std::size_t i = 0; i < rowTiles; ++i)
        for (std::size_t j = 0; j < columnTiles; ++j)
            WriteBlock(block, exchange.rows, i * block.rows,
                       first.column + static_cast<int>(j * block.columns));
    return exchange;
}

} // namespace

GridPaste PasteIntoGrid(const GridRows& grid, const GridSelection& selection,
                        std::string_view clipboardText) {
    const GridBlock selected = SelectedBlock(selection);
    const ClipBlock block = MeasureBlock(clipboardText);
    GridPaste paste;
    paste.edit.after = selection;
    if (block.rows == 0)
        return paste;
    const std::size_t rowTiles = Tiles(selected.RowCount(), block.rows);
    const std::size_t columnTiles = Tiles(selected.ColumnCount(), block.columns);
    if (rowTiles == 0 || columnTiles == 0) {
        paste.message = NotCompatible;
        return paste;
    }
    const auto firstColumn = static_cast<std::size_t>(selected.firstColumn);
    if (firstColumn + columnTiles * block.columns - 1 > LastDataColumn) {
        paste.message = TooManyColumns;
        return paste;
    }
    paste.rows = rowTiles * block.rows;
    paste.edit.after = GridSelection(selected.FirstCell());
    paste.edit.exchanges.push_back(
        PasteTiles(grid, block, selected.FirstCell(), rowTiles, columnTiles));
    return paste;
}

} // namespace quarnel
