#include "recovery/GridEditor.h"

#include "project/ProjectState.h"
#include "project/TextColumns.h"
#include "recovery/RecoveryData.h"

#include <algorithm>
#include <utility>

namespace quarnel {

namespace {

GridCell IntoGrid(GridCell cell, std::size_t rowCount) {
    return {std::clamp<std::size_t>(cell.row, 1, rowCount),
            std::clamp(cell.column, FirstDataColumn, LastDataColumn)};
}

/// Drops the last character of a UTF-8 text, which may be of several bytes.
void DropLastCharacter(std::string& text) {
    while (!text.empty() && ContinuesCharacter(text.back()))
        text.pop_back();
    if (!text.empty())
        text.pop_back();
}

} // namespace

GridEditor::GridEditor(GridRows& rows)
    : rows_(rows)
    , exchange_([&rows](RowExchange& exchange) { ExchangeRows(rows, exchange); }) {}

void GridEditor::KeepSettingsOf(ProjectState& state, std::function<void()> changed) {
    settings_ = &state;
    settingsChanged_ = std::move(changed);
}

void GridEditor::Reset() {
    if (rows_.empty())
        rows_.resize(MinimumGridRows);
    done_.clear();
    undone_.clear();
    selection_ = GridSelection();
    StartTypingAnew();
}

std::string GridEditor::CopyText() const {
    return GridClipText(rows_, SelectedBlock(selection_)) + '\r';
}

void GridEditor::Select(GridSelection selection) {
    selection.current = IntoGrid(selection.current, rows_.size());
    selection.end = IntoGrid(selection.end, rows_.size());
    if (selection.current != selection_.current)
        StartTypingAnew();
    selection_ = selection;
}

void GridEditor::SelectAll() {
    Select({GridCell{1, FirstDataColumn}, GridCell{rows_.size(), LastDataColumn}});
}

void GridEditor::StartTypingAnew() {
    buffer_.clear();
    typing_ = false;
}

void GridEditor::Type(std::string_view characters) {
    buffer_ += characters;
    ShowBuffer();
}

void GridEditor::Write(GridCell cell, std::string_view text) {
    GridEdit edit = WriteCell(rows_, cell, text);
    edit.after = selection_;
    Record(std::move(edit));
    StartTypingAnew();
}

void GridEditor::Backspace() {
    if (buffer_.empty())
        return;
    DropLastCharacter(buffer_);
    ShowBuffer();
}

void GridEditor::ShowBuffer() {
    GridEdit edit = WriteCell(rows_, selection_.current, buffer_);
    edit.after = selection_;
    if (typing_)
        exchange_(edit.exchanges.front());
    else
        Record(std::move(edit));
    typing_ = true;
}

void GridEditor::MoveToNextCell() {
    GridCell next = selection_.current;
    if (next.column < LastDataColumn)
        ++next.column;
    else
        next = {next.row + 1, FirstDataColumn};
    if (next.row > rows_.size())
        Do(AppendGridRow(rows_));
    else
        Select(GridSelection(next));
}

void GridEditor::MoveToPreviousCell() {
    GridCell previous = selection_.current;
    if (previous.column > FirstDataColumn)
        --previous.column;
    else if (previous.row > 1)
        previous = {previous.row - 1, LastDataColumn};
    Select(GridSelection(previous));
}

void GridEditor::Clear() {
    Do(ClearGridSelection(rows_, selection_));
}

std::string GridEditor::Paste(std::string_view clipboardText, std::size_t* rows) {
    GridPaste paste = PasteIntoGrid(rows_, selection_, clipboardText);
    if (rows != nullptr)
        *rows = paste.rows;
    if (!paste.edit.exchanges.empty())
        Do(std::move(paste.edit));
    return std::move(paste.message);
}

void GridEditor::InsertRows(int count, InsertPlace place) {
    Do(InsertGridRows(selection_, count, place));
}

void GridEditor::DeleteRows() {
    Do(DeleteGridRows(rows_, selection_));
}

void GridEditor::SortByTime(const RecoveryPointList& points) {
    if (!points.empty())
        Do(SortGridByTime(rows_, points));
}

void GridEditor::ReplaceAll(GridRows rows, ReadingSettings settings) {
    GridEdit edit;
    edit.exchanges.push_back({0, rows_.size(), std::move(rows)});
    Do(std::move(edit));
    Step& step = done_.back();
    step.settings = std::move(settings);
    CarrySettings(step);
    TellOfSettings(step);
}

void GridEditor::Do(GridEdit edit) {
    const GridSelection after = edit.after;
    Record(std::move(edit));
    Select(after);
    StartTypingAnew();
}

void GridEditor::Record(GridEdit edit) {
    if (edit.exchanges.empty())
        return;
    done_.emplace_back(); // room in the history comes before the change that goes into it
    try {
        Carry(edit.exchanges, false);
    } catch (...) {
        done_.pop_back();
        throw;
    }
    undone_.clear();
    done_.back() = {std::move(edit.exchanges), selection_, edit.after, std::nullopt};
}

void GridEditor::Carry(std::vector<RowExchange>& exchanges, bool backwards) {
    const auto at = [&](std::size_t i) -> RowExchange& {
        return exchanges[backwards ? exchanges.size() - 1 - i : i];
    };
    std::size_t carried = 0;
    try {
        for (; carried < exchanges.size(); ++carried)
            exchange_(at(carried));
    } catch (...) {
        // Each one holds its way back, and the room for it.
        while (carried > 0)
            exchange_(at(--carried));
        throw;
    }
}

void GridEditor::CarrySettings(Step& step) noexcept {
    if (step.settings && settings_ != nullptr)
        ExchangeSettings(*settings_, *step.settings);
}

void GridEditor::TellOfSettings(const Step& step) {
    if (step.settings && settingsChanged_)
        settingsChanged_();
}

void GridEditor::Undo() {
    if (done_.empty())
        return;
    undone_.reserve(undone_.size() + 1);
    Carry(done_.back().exchanges, true);
    CarrySettings(done_.back());
    undone_.push_back(std::move(done_.back()));
    done_.pop_back();
    Select(undone_.back().before);
    StartTypingAnew();
    TellOfSettings(undone_.back());
}

void GridEditor::Redo() {
    if (undone_.empty())
        return;
    done_.reserve(done_.size() + 1);
    Carry(undone_.back().exchanges, false);
    CarrySettings(undone_.back());
    done_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    Select(done_.back().after);
    StartTypingAnew();
    TellOfSettings(done_.back());
}

} // namespace quarnel
