// Long random sequences of keys and commands, on the recovery grid and on its plain model: after
// every step both must hold the same cells, the same selection and the same history. A sequence
// that fails is shrunk to the few steps that matter before it is shown.

#include "GridModel.h"
#include "recovery/GridEditor.h"
#include "recovery/RecoveryDa.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <random>
#include <sstream>

namespace quarnel {
namespace {

using namespace gridtest;

enum class Key {
    Select,
    Focus,
    Type,
    Backspace,
    Next,
    Previous,
    Copy,
    Clear,
    Paste,
    Insert,
    Delete,
    Sort,
    Undo,
    Redo,
    Count
};
constexpr std::array<const char*, static_cast<std::size_t>(Key::Count)> KeyNames = {
    "Select", "Focus", "Type",   "Backspace", "Next", "Previous", "Copy",
    "Clear",  "Paste", "Insert", "Delete",    "Sort", "Undo",     "Redo"};

struct Step {
    Key key = Key::Select;
    GridSelection selection;
    std::string text;
    int count = 0;
    bool after = false;
};
using Steps = std::vector<Step>;

std::string Describe(const Steps& steps) {
    std::ostringstream text;
    for (const Step& step : steps) {
        text << "\n  " << KeyNames[static_cast<std::size_t>(step.key)];
        const auto& [current, end] = step.selection;
        if (step.key == Key::Select)
            text << ' ' << current.row << ',' << current.column << " to " << end.row << ','
                 << end.column;
        if (step.key == Key::Type || step.key == Key::Paste)
            text << ' ' << testing::PrintToString(step.text);
        if (step.key == Key::Insert)
            text << ' ' << step.count << (step.after ? " after" : " before");
    }
    return text.str();
}

class RandomSteps {
public:
    explicit RandomSteps(unsigned seed)
        : random_(seed) {}

    Steps Make(std::size_t count) {
        // How often each key comes; selecting and typing are what a user does most.
        static constexpr std::array<int, static_cast<std::size_t>(Key::Count)> Weights = {
            30, 2, 16, 4, 8, 3, 2, 4, 12, 5, 4, 5, 14, 8};
        std::discrete_distribution<int> keys(Weights.begin(), Weights.end());
        Steps steps(count);
        for (Step& step : steps) {
            step.key = static_cast<Key>(keys(random_));
            step.selection = AnySelection();
            step.text = step.key == Key::Paste ? AnyBlock() : AnyText();
            step.count = static_cast<int>(Below(7)) - 1;
            step.after = Below(2) == 0;
        }
        return steps;
    }

private:
    std::size_t Below(std::size_t bound) {
        return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random_);
    }

    /// Mostly near the top, where the data are; now and then at or beyond the end.
    std::size_t AnyRow() { return Below(10) == 0 ? 47 + Below(10) : 1 + Below(12); }

    GridSelection AnySelection() {
        const GridCell current{AnyRow(), static_cast<int>(Below(3))};
        switch (Below(3)) {
        case 0:
            return GridSelection(current);
        case 1:
            return {current, GridCell{current.row + Below(5), static_cast<int>(Below(4))}};
        default:
            return {current, GridCell{AnyRow(), static_cast<int>(Below(4))}};
        }
    }

    std::string AnyText() {
        static constexpr std::array<const char*, 9> Texts = {
            "1", "2", "3.5", "0", "10", "1e9", "7e1", "\xC3\xA9", "123456789012345678"};
        return Texts[Below(40) == 0 ? Below(Texts.size()) : Below(5)];
    }

    std::string AnyBlock() {
        static constexpr std::array<const char*, 3> Ends = {"\r", "\n", "\r\n"};
        const std::string end = Ends[Below(3)];
        const std::size_t rows = Below(5);
        const std::size_t columns = 1 + Below(Below(8) == 0 ? 3 : 2);
        std::string text;
        for (std::size_t row = 0; row < rows; ++row) {
            for (std::size_t column = 0; column < columns; ++column)
                text += (column > 0 ? "\t" : "") + (Below(9) == 0 ? std::string() : AnyText());
            text += end;
        }
        return text + (Below(2) == 0 ? end : "") + (Below(6) == 0 ? "tail" : "");
    }

    std::mt19937 random_;
};

/// What pasting says, in the model's words.
std::string Kind(const std::string& message) {
    if (message.empty())
        return "";
    return message.starts_with("Block") ? "not compatible" : "too many columns";
}

class Pair {
public:
    Pair() { state_.RecDatDataTypeDDL = ChangeInHead; }

    /// What is different after the step, or nothing.
    std::optional<std::string> Press(const Step& step) {
        const std::string said = PressReal(step);
        const std::string expected = PressModel(step);
        if (said != expected)
            return "said " + testing::PrintToString(said) + " instead of " +
                   testing::PrintToString(expected);
        if (CellsOf(state_.RecDatGrid) != model_.AllCells())
            return "cells are " + testing::PrintToString(DataOf(state_.RecDatGrid)) + " of " +
                   std::to_string(state_.RecDatGrid.size()) + " rows";
        if (!(editor_.Selection() == model_.Selection()))
            return "selection";
        if (editor_.CanUndo() != model_.CanUndo() || editor_.CanRedo() != model_.CanRedo())
            return "history";
        return std::nullopt;
    }

private:
    void SortReal() {
        RecoveryData data;
        if (!CheckRecoveryData(state_, data).IsError())
            editor_.SortByTime(*data.RecoveryPoints);
    }

    std::string PressReal(const Step& step) {
        switch (step.key) {
        case Key::Select:
            return editor_.Select(step.selection), "";
        case Key::Focus:
            return editor_.StartTypingAnew(), "";
        case Key::Type:
            return editor_.Type(step.text), "";
        case Key::Backspace:
            return editor_.Backspace(), "";
        case Key::Next:
            return editor_.MoveToNextCell(), "";
        case Key::Previous:
            return editor_.MoveToPreviousCell(), "";
        case Key::Copy:
            return editor_.CopyText();
        case Key::Clear:
            return editor_.Clear(), "";
        case Key::Paste:
            return Kind(editor_.Paste(step.text));
        case Key::Insert:
            return editor_.InsertRows(step.count, step.after ? InsertPlace::AfterCurrentRow
                                                             : InsertPlace::BeforeCurrentRow),
                   "";
        case Key::Delete:
            return editor_.DeleteRows(), "";
        case Key::Sort:
            return SortReal(), "";
        case Key::Undo:
            return editor_.Undo(), "";
        case Key::Redo:
            return editor_.Redo(), "";
        case Key::Count:
            break;
        }
        return "";
    }

    std::string PressModel(const Step& step) {
        switch (step.key) {
        case Key::Select:
            return model_.Select(step.selection), "";
        case Key::Focus:
            return model_.Focus(), "";
        case Key::Type:
            return model_.Type(step.text), "";
        case Key::Backspace:
            return model_.Backspace(), "";
        case Key::Next:
            return model_.Next(), "";
        case Key::Previous:
            return model_.Previous(), "";
        case Key::Copy:
            return model_.CopyText();
        case Key::Clear:
            return model_.Clear(), "";
        case Key::Paste:
            return model_.Paste(step.text);
        case Key::Insert:
            return model_.Insert(step.count, step.after), "";
        case Key::Delete:
            return model_.Delete(), "";
        case Key::Sort:
            return model_.Sort(), "";
        case Key::Undo:
            return model_.Undo(), "";
        case Key::Redo:
            return model_.Redo(), "";
        case Key::Count:
            break;
        }
        return "";
    }

    ProjectState state_;
    GridEditor editor_{state_.RecDatGrid};
    GridModel model_;
};

/// Plays the steps; where they come apart, what is different and after how many steps.
struct Failure {
    std::size_t steps = 0;
    std::string difference;
};
std::optional<Failure> Play(const Steps& steps) {
    Pair pair;
    for (std::size_t i = 0; i < steps.size(); ++i)
        if (const auto difference = pair.Press(steps[i]))
            return Failure{i + 1, *difference};
    return std::nullopt;
}

/// Leaves out steps, in ever smaller pieces, as long as what is left still fails.
Steps Shrink(Steps steps) {
    for (std::size_t piece = steps.size() / 2; piece > 0; piece /= 2)
        for (std::size_t at = 0; at + piece <= steps.size();) {
            Steps fewer = steps;
            const auto first = fewer.begin() + static_cast<std::ptrdiff_t>(at);
            fewer.erase(first, first + static_cast<std::ptrdiff_t>(piece));
            if (const auto failure = Play(fewer)) {
                fewer.resize(failure->steps);
                steps = std::move(fewer);
            } else {
                at += piece;
            }
        }
    return steps;
}

class GridSequence : public testing::TestWithParam<unsigned> {};

TEST_P(GridSequence, GridAndModelStayTheSame) {
    Steps steps = RandomSteps(GetParam()).Make(4000);
    if (const auto failure = Play(steps)) {
        steps.resize(failure->steps);
        steps = Shrink(steps);
        FAIL() << Play(steps)->difference << " after" << Describe(steps);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, GridSequence, testing::Range(1u, 21u));

} // namespace
} // namespace quarnel
