#include "recovery/GridEditing.h"

#include "project/CellText.h"
#include "project/Files.h"
#include "project/Texts.h"
#include "recovery/SortOrder.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace quarnel {

namespace {

constexpr char CellEnd = '\t';
constexpr char RowEnd = '\r';

std::ptrdiff_t Offset(std::size_t index) {
    return static_cast<std::ptrdiff_t>(index);
}

bool IsEmpty(const RecoveryRow& row) {
    return row.time.empty() && row.level.empty();
}

/// Copies of the rows from `at` on, filled up with empty ones where the grid ends.
GridRows CopyRows(const GridRows& grid, std::size_t at, std::size_t count) {
    const std::size_t end = std::min(grid.size(), at + count);
    GridRows rows;
    rows.reserve(count);
    if (at < end)
        rows.assign(grid.begin() + Offset(at), grid.begin() + Offset(end));
    rows.resize(count);
    return rows;
}

} // namespace

GridBlock SelectedBlock(const GridSelection& selection) {
    const auto [firstRow, lastRow] = std::minmax(selection.current.row, selection.end.row);
    const auto [firstColumn, lastColumn] =
        std::minmax(selection.current.column, selection.end.column);
    return {firstRow, lastRow, firstColumn, lastColumn};
}

CellText& CellAt(RecoveryRow& row, int column) {
    return column == TimeColumn ? row.time : row.level;
}

const CellText& CellAt(const RecoveryRow& row, int column) {
    return column == TimeColumn ? row.time : row.level;
}

void PrepareExchange(GridRows& grid, RowExchange& exchange) {
    const std::size_t newSize = grid.size() - exchange.count + exchange.rows.size();
    // Twice as large each time, so that adding rows one by one stays cheap.
    if (newSize > grid.capacity())
        grid.reserve(std::max(newSize, grid.capacity() * 2));
    exchange.rows.reserve(exchange.count);
}

void ExchangeRows(GridRows& grid, RowExchange& exchange) {
    PrepareExchange(grid, exchange);
    const std::size_t common = std::min(exchange.count, exchange.rows.size());
    const auto first = grid.begin() + Offset(exchange.at);
    std::swap_ranges(first, first + Offset(common), exchange.rows.begin());
    const auto rest = first + Offset(common);
    const std::size_t newCount = exchange.rows.size();
    if (exchange.count > common) {
        const auto end = first + Offset(exchange.count);
        exchange.rows.insert(exchange.rows.end(), std::make_move_iterator(rest),
                             std::make_move_iterator(end));
        grid.erase(rest, end);
    } else {
        const auto surplus = exchange.rows.begin() + Offset(common);
        grid.insert(rest, std::make_move_iterator(surplus),
                    std::make_move_iterator(exchange.rows.end()));
        exchange.rows.resize(common);
    }
    exchange.count = newCount;
}

std::string GridClipText(const GridRows& grid, const GridBlock& block) {
    std::string text;
    for (std::size_t row = block.firstRow; row <= block.lastRow; ++row) {
        for (int column = block.firstColumn; column <= block.lastColumn; ++column) {
            if (column > block.firstColumn)
                text += CellEnd;
            text += CellAt(grid[row - 1], column).View();
        }
        text += RowEnd;
    }
    return text;
}

GridEdit WriteCell(const GridRows& grid, GridCell cell, std::string_view text) {
    RowExchange exchange{cell.row - 1, 1, CopyRows(grid, cell.row - 1, 1)};
    CellAt(exchange.rows.front(), cell.column) = CellText(text);
    GridEdit edit;
    edit.exchanges.push_back(std::move(exchange));
    edit.after = GridSelection(cell);
    return edit;
}

GridEdit AppendGridRow(const GridRows& grid) {
    GridEdit edit;
    edit.exchanges.push_back({grid.size(), 0, GridRows(1)});
    edit.after = GridSelection(GridCell{grid.size() + 1, FirstDataColumn});
    return edit;
}

GridEdit ClearGridSelection(const GridRows& grid, const GridSelection& selection) {
    const GridBlock block = SelectedBlock(selection);
    RowExchange exchange{block.firstRow - 1, block.RowCount(),
                         CopyRows(grid, block.firstRow - 1, block.RowCount())};
    bool changed = false;
    for (RecoveryRow& row : exchange.rows)
        for (int column = block.firstColumn; column <= block.lastColumn; ++column) {
            changed = changed || !CellAt(row, column).empty();
            CellAt(row, column) = CellText();
        }
    GridEdit edit;
    if (changed)
        edit.exchanges.push_back(std::move(exchange));
    edit.after = GridSelection(block.FirstCell());
    return edit;
}

RowsToInsert ReadRowsToInsert(std::string_view text, std::string_view decimalSeparator) {
    const std::optional<double> value = ParseNumber(text, decimalSeparator);
    if (!value)
        return {Result::Error("Value entered for the number of rows cannot be evaluated as a "
                              "number. Please re-enter."),
                0};
    double rounded = std::floor(*value);
    const double fraction = *value - rounded;
    if (fraction > 0.5 || (fraction == 0.5 && std::fmod(rounded, 2.0) != 0))
        rounded += 1;
    if (rounded < -32768 || rounded > 32767)
        return {Result::Error(FileErrorMessage(FileFailure::Overflow)), 0};
    return {Result::Ok(), static_cast<int>(rounded)};
}

GridEdit InsertGridRows(const GridSelection& selection, int count, InsertPlace place) {
    GridEdit edit;
    edit.after = GridSelection(selection.current);
    if (count < 1)
        return edit;
    const std::size_t at = selection.end.row - (place == InsertPlace::BeforeCurrentRow ? 1 : 0);
    edit.exchanges.push_back({at, 0, GridRows(static_cast<std::size_t>(count))});
    return edit;
}

bool SelectedRowsHoldData(const GridRows& grid, const GridSelection& selection) {
    const GridBlock block = SelectedBlock(selection);
    return !std::all_of(grid.begin() + Offset(block.firstRow - 1),
                        grid.begin() + Offset(block.lastRow), IsEmpty);
}

GridEdit DeleteGridRows(const GridRows& grid, const GridSelection& selection) {
    const GridBlock block = SelectedBlock(selection);
    GridEdit edit;
    edit.exchanges.push_back({block.firstRow - 1, block.RowCount(), {}});
    const std::size_t left = grid.size() - block.RowCount();
    const std::size_t rowCount = std::max(left, MinimumGridRows);
    if (rowCount > left)
        edit.exchanges.push_back({left, 0, GridRows(rowCount - left)});
    edit.after = GridSelection(GridCell{std::min(block.firstRow, rowCount), FirstDataColumn});
    return edit;
}

GridEdit SortGridByTime(const GridRows& grid, const RecoveryPointList& points) {
    std::vector<double> times(points.size());
    std::transform(points.begin(), points.end(), times.begin(),
                   [](const RecoveryPoint& point) { return point.time; });
    const std::size_t rowCount = std::max(points.size() + EmptyRowsAfterData, MinimumGridRows);
    GridRows rows;
    rows.reserve(rowCount);
    for (const std::size_t position : SortOrderByValue(times)) {
        RecoveryRow& row = rows.emplace_back();
        if (position > 0)
            row = {points[position - 1].timeText, points[position - 1].levelText};
    }
    rows.resize(rowCount);
    GridEdit edit;
    edit.exchanges.push_back({0, grid.size(), std::move(rows)});
    edit.after = GridSelection(GridCell{});
    return edit;
}

} // namespace quarnel
