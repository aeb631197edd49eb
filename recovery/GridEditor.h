#pragma once

#include "recovery/GridEditing.h"
#include "recovery/ReadingSettings.h"
#include "recovery/RecoveryData.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quarnel {

/// The recovery grid as it is edited: the rows of the project, where the user is in them, the text
/// being typed, and the history of changes. Window and tests press its keys; it knows neither
/// keyboard nor clipboard.
class GridEditor {
public:
    /// Carries out an exchange of rows. A window puts its own around it to be told of the change.
    using ExchangeRoutine = std::function<void(RowExchange&)>;

    explicit GridEditor(GridRows& rows);
    GridEditor(const GridEditor&) = delete;
    GridEditor& operator=(const GridEditor&) = delete;
    void SetExchangeRoutine(ExchangeRoutine routine) { exchange_ = std::move(routine); }
    /// Lets the history hold the settings of the readings too: those of `state`. `changed` is
    /// called when a step that holds some has been done, taken back or done again.
    void KeepSettingsOf(ProjectState& state, std::function<void()> changed);
    /// The rows were replaced as a whole: back to the first cell, with a fresh history.
    void Reset();

    const GridRows& Rows() const { return rows_; }
    const GridSelection& Selection() const { return selection_; }
    /// The selected cells, as text for the clipboard with the one row end more that ends a copy.
    std::string CopyText() const;

    // ---- Moving. A corner beyond the grid is brought to its edge.
    void Select(GridSelection selection);
    void SelectAll();
    /// The grid got the focus: what is typed next replaces the cell's text.
    void StartTypingAnew();

    // ---- Keys
    /// Adds to the text being typed; the first character replaces the cell's text.
    void Type(std::string_view characters);
    /// Writes a cell anywhere, as one change; the selection stays.
    void Write(GridCell cell, std::string_view text);
    /// Whether the current cell is being typed into.
    bool IsTyping() const { return typing_; }
    /// Takes the last character of the text being typed; nothing where none has been typed.
    void Backspace();
    /// The next cell to the right, then of the next row; a row is added after the last.
    void MoveToNextCell();
    /// The cell before; stays at the first one.
    void MoveToPreviousCell();

    // ---- Commands on the selected block
    void Clear();
    /// Returns the message that says why nothing was pasted, or "", and in `rows` how many rows
    /// were.
    std::string Paste(std::string_view clipboardText, std::size_t* rows = nullptr);
    void InsertRows(int count, InsertPlace place);
    bool SelectionHoldsData() const { return SelectedRowsHoldData(rows_, selection_); }
    void DeleteRows();
    void SortByTime(const RecoveryPointList& points);
    /// Puts other rows and settings in the place of all that is there, as one step.
    void ReplaceAll(GridRows rows, ReadingSettings settings);

    // ---- History: every change since the last reset can be taken back and done again
    bool CanUndo() const { return !done_.empty(); }
    bool CanRedo() const { return !undone_.empty(); }
    void Undo();
    void Redo();

private:
    /// One step of the history. Its exchanges hold what takes the step back, or does it again.
    struct Step {
        std::vector<RowExchange> exchanges;
        GridSelection before;
        GridSelection after;
        std::optional<ReadingSettings> settings; ///< of the readings, where the step changes them
    };

    void Do(GridEdit edit);
    void Record(GridEdit edit);
    /// Carries out all exchanges, in order or `backwards`, or none of them.
    void Carry(std::vector<RowExchange>& exchanges, bool backwards);
    /// Exchanges the settings that a step holds, once its rows are exchanged.
    void CarrySettings(Step& step) noexcept;
    void TellOfSettings(const Step& step);
    void ShowBuffer();

    GridRows& rows_;
    ExchangeRoutine exchange_;
    ProjectState* settings_ = nullptr; ///< whose settings the history holds
    std::function<void()> settingsChanged_;
    GridSelection selection_;
    std::string buffer_;
    bool typing_ = false; ///< the last step is the typing of the current cell, and goes on
    std::vector<Step> done_;
    std::vector<Step> undone_;
};

} // namespace quarnel
