#include "GridModel.h"

#include "project/Texts.h"

#include <algorithm>

namespace quarnel::gridtest {

std::string& GridModel::Cell(std::size_t row, int column) {
    return column == 1 ? rows_[row - 1].first : rows_[row - 1].second;
}

void GridModel::StopTyping() {
    buffer_.clear();
    typing_ = false;
}

void GridModel::Select(GridSelection selection) {
    for (GridCell* cell : {&selection.current, &selection.end}) {
        cell->row = std::clamp<std::size_t>(cell->row, 1, rows_.size());
        cell->column = std::clamp(cell->column, 1, 2);
    }
    if (!(selection.current == selection_.current))
        StopTyping();
    selection_ = selection;
}

/// Ends a command that began with the rows `before`.
void GridModel::Commit(const Cells& before, GridSelection after) {
    done_.push_back({before, rows_, selection_, after});
    undone_.clear();
    Leave(after);
}

/// Ends a command that had nothing to change.
void GridModel::Leave(GridSelection after) {
    StopTyping();
    selection_ = after;
}

void GridModel::Show() {
    const Cells before = rows_;
    Cell(selection_.current.row, selection_.current.column) = buffer_;
    if (typing_) {
        done_.back().after = rows_;
    } else {
        done_.push_back({before, rows_, selection_, selection_});
        undone_.clear();
    }
    typing_ = true;
}

void GridModel::Type(const std::string& characters) {
    buffer_ += characters;
    Show();
}

void GridModel::Backspace() {
    if (buffer_.empty())
        return;
    while (buffer_.size() > 1 && (static_cast<unsigned char>(buffer_.back()) & 0xC0) == 0x80)
        buffer_.pop_back();
    buffer_.pop_back();
    Show();
}

void GridModel::Next() {
    const GridCell cell = selection_.current;
    if (cell.column == 1) {
        Select(gridtest::Select(cell.row, 2));
        return;
    }
    const Cells before = rows_;
    if (cell.row == rows_.size()) {
        rows_.emplace_back();
        Commit(before, gridtest::Select(rows_.size(), 1));
    } else {
        Select(gridtest::Select(cell.row + 1, 1));
    }
}

void GridModel::Previous() {
    const GridCell cell = selection_.current;
    if (cell.column == 2)
        Select(gridtest::Select(cell.row, 1));
    else if (cell.row > 1)
        Select(gridtest::Select(cell.row - 1, 2));
    else
        Select(gridtest::Select(1, 1));
}

std::string GridModel::CopyText() const {
    const GridBlock block = SelectedBlock(selection_);
    std::string text;
    for (std::size_t row = block.firstRow; row <= block.lastRow; ++row) {
        const auto& [time, level] = rows_[row - 1];
        if (block.firstColumn == block.lastColumn)
            text += block.firstColumn == 1 ? time : level;
        else
            text += time + "\t" + level;
        text += "\r";
    }
    return text + "\r";
}

void GridModel::Clear() {
    const Cells before = rows_;
    const GridBlock block = SelectedBlock(selection_);
    for (std::size_t row = block.firstRow; row <= block.lastRow; ++row)
        for (int column = block.firstColumn; column <= block.lastColumn; ++column)
            Cell(row, column).clear();
    if (rows_ == before)
        Leave(GridSelection(block.FirstCell()));
    else
        Commit(before, GridSelection(block.FirstCell()));
}

namespace {

std::vector<std::string> Split(const std::string& text, char at) {
    std::vector<std::string> pieces(1);
    for (const char c : text)
        if (c == at)
            pieces.emplace_back();
        else
            pieces.back() += c;
    return pieces;
}

void Replace(std::string& text, const std::string& what, const std::string& with) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size())
        text.replace(at, what.size(), with);
}

std::size_t Tiles(std::size_t selected, std::size_t size) {
    if (selected == 1 || selected == size)
        return 1;
    return selected > size && selected % size == 0 ? selected / size : 0;
}

} // namespace

std::string GridModel::Paste(std::string text) {
    text = std::string(TrimBlanks(text));
    Replace(text, "\r\n", "\r");
    Replace(text, "\n", "\r");
    std::vector<std::string> pieces = Split(text, '\r');
    pieces.pop_back();
    if (pieces.size() > 1 && pieces.back().empty())
        pieces.pop_back();
    if (pieces.empty())
        return "";
    const GridBlock block = SelectedBlock(selection_);
    const std::size_t columns = Split(pieces.front(), '\t').size();
    const std::size_t rowTiles = Tiles(block.RowCount(), pieces.size());
    const std::size_t columnTiles = Tiles(block.ColumnCount(), columns);
    if (rowTiles == 0 || columnTiles == 0)
        return "not compatible";
    if (static_cast<std::size_t>(block.firstColumn) + columnTiles * columns - 1 > 2)
        return "too many columns";
    const Cells before = rows_;
    while (rows_.size() < block.firstRow + rowTiles * pieces.size() - 1)
        rows_.emplace_back();
    for (std::size_t i = 0; i < rowTiles * pieces.size(); ++i)
        for (std::size_t j = 0; j < columnTiles * columns; ++j) {
            const std::vector<std::string> cells = Split(pieces[i % pieces.size()], '\t');
            Cell(block.firstRow + i, block.firstColumn + static_cast<int>(j)) =
                j % columns < cells.size() ? cells[j % columns] : "";
        }
    Commit(before, GridSelection(block.FirstCell()));
    return "";
}

void GridModel::Insert(int count, bool after) {
    if (count < 1) {
        Leave(GridSelection(selection_.current));
        return;
    }
    const Cells before = rows_;
    const std::size_t position = selection_.end.row + (after ? 1 : 0);
    for (int i = 0; i < count; ++i)
        rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(position) - 1, {"", ""});
    Commit(before, GridSelection(selection_.current));
}

void GridModel::Delete() {
    const Cells before = rows_;
    const GridBlock block = SelectedBlock(selection_);
    for (std::size_t i = 0; i < block.RowCount(); ++i) {
        if (rows_.size() < 50)
            rows_.resize(50);
        rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(block.firstRow) - 1);
    }
    if (rows_.size() < 50)
        rows_.resize(50);
    Commit(before, gridtest::Select(std::min(block.firstRow, rows_.size()), 1));
}

void GridModel::Sort() {
    const Cells before = rows_;
    Cells points;
    for (const auto& [time, level] : rows_) {
        if (time.empty() && level.empty())
            continue;
        if (!ParseNumber(time) || *ParseNumber(time) < 0 || !ParseNumber(level))
            return;
        points.emplace_back(time, level);
    }
    if (points.empty())
        return;
    Cells sorted(std::max<std::size_t>(points.size() + 25, 50));
    std::vector<bool> placed(points.size(), false);
    for (std::size_t place = 0; place < points.size(); ++place) {
        double smallest = 1e9;
        std::size_t found = points.size();
        for (std::size_t i = 0; i < points.size(); ++i)
            if (!placed[i] && *ParseNumber(points[i].first) < smallest) {
                smallest = *ParseNumber(points[i].first);
                found = i;
            }
        if (found < points.size()) {
            sorted[place] = points[found];
            placed[found] = true;
        }
    }
    rows_ = sorted;
    Commit(before, gridtest::Select(1, 1));
}

void GridModel::Undo() {
    if (done_.empty())
        return;
    undone_.push_back(done_.back());
    done_.pop_back();
    rows_ = undone_.back().before;
    StopTyping();
    selection_ = undone_.back().selectionBefore;
}

void GridModel::Redo() {
    if (undone_.empty())
        return;
    done_.push_back(undone_.back());
    undone_.pop_back();
    rows_ = done_.back().after;
    StopTyping();
    selection_ = done_.back().selectionAfter;
}

} // namespace quarnel::gridtest
