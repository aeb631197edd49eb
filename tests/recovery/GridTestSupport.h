#pragma once

#include "recovery/GridEditing.h"

#include <string>
#include <utility>
#include <vector>

/// The recovery grid in a form that a test can write down and a failure can show.
namespace quarnel::gridtest {

using Cells = std::vector<std::pair<std::string, std::string>>;

inline GridRows Rows(const Cells& cells) {
    GridRows rows;
    for (const auto& [time, level] : cells)
        rows.push_back({CellText(time), CellText(level)});
    return rows;
}

/// The same, filled up with empty rows to the size of a new grid.
inline GridRows NewGrid(const Cells& cells = {}) {
    GridRows rows = Rows(cells);
    rows.resize(std::max(rows.size(), MinimumGridRows));
    return rows;
}

inline Cells CellsOf(const GridRows& rows) {
    Cells cells;
    for (const RecoveryRow& row : rows)
        cells.emplace_back(row.time.ToString(), row.level.ToString());
    return cells;
}

/// The rows up to the last one that holds a text.
inline Cells DataOf(const GridRows& rows) {
    Cells cells = CellsOf(rows);
    while (!cells.empty() && cells.back().first.empty() && cells.back().second.empty())
        cells.pop_back();
    return cells;
}

inline GridSelection Select(std::size_t row, int column) {
    return GridSelection(GridCell{row, column});
}
inline GridSelection Select(std::size_t row, int column, std::size_t endRow, int endColumn) {
    return {GridCell{row, column}, GridCell{endRow, endColumn}};
}

} // namespace quarnel::gridtest
