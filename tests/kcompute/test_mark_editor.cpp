// Marks changed by commands: one step each, undone and done again, kept in the project's keys.

#include "kcompute/MarkEditor.h"

#include "recovery/RecoveryDa.h"
#include "tests/CoreTestSupport.h"

#include <gtest/gtest.h>

namespace quarnel {
namespace {

using Keys = std::vector<std::string>;

struct Desk {
    ProjectState state;
    WorkingValues working;
    MarkEditor editor{state, working};

    explicit Desk(std::vector<RecoveryRow> rows) {
        state.RecDatDataTypeDDL = ChangeInHead;
        state.RecDatGrid = std::move(rows);
        Prepare();
    }
    void Prepare() {
        EXPECT_FALSE(CheckRecoveryData(state, working.recovery).IsError());
        working.marks = RestoredMarks(state.IgnoreKeyList, *working.recovery.RecoveryPoints);
        editor.PointsWereMade();
    }
    std::string Marks() const {
        std::string letters;
        for (const Mark mark : working.marks)
            letters += MarkText(mark).front();
        return letters;
    }
};

const std::vector<RecoveryRow> FiveRows = {
    {"1", "5"}, {"2", "6"}, {"3", "7"}, {"4", "8"}, {"5", "9"}};

TEST(MarkEditor, MarksSeveralRunsAsOneStep) {
    Desk desk(FiveRows);
    desk.editor.Press(MarkKey::Ignore, PointRuns{{0, 0}, {2, 3}});
    EXPECT_EQ(desk.Marks(), "IUIIU");
    desk.editor.Press(MarkKey::TurnOver, PointRuns{{1, 1}, {3, 99}});
    EXPECT_EQ(desk.Marks(), "IIIUI");
    desk.editor.Undo();
    desk.editor.Undo();
    EXPECT_EQ(desk.Marks(), "UUUUU");
    desk.editor.Press(MarkKey::Ignore, PointRuns());
    desk.editor.Press(MarkKey::Ignore, PointRuns{{5, 7}});
    EXPECT_FALSE(desk.editor.CanUndo());
}

TEST(MarkEditor, UndoesAndRedoesEachCommandAsOneStep) {
    Desk desk(FiveRows);
    desk.editor.Press(MarkKey::Ignore, PointRuns{{1, 2}});
    desk.editor.Press(MarkKey::TurnOver, PointRuns{{0, 4}});
    EXPECT_EQ(desk.Marks(), "IUUII");
    EXPECT_EQ(desk.state.IgnoreKeyList, (Keys{"15", "48", "59"}));
    desk.editor.Undo();
    EXPECT_EQ(desk.Marks(), "UIIUU");
    EXPECT_EQ(desk.state.IgnoreKeyList, (Keys{"26", "37"}));
    desk.editor.Undo();
    EXPECT_EQ(desk.Marks(), "UUUUU");
    EXPECT_TRUE(desk.state.IgnoreKeyList.empty());
    EXPECT_FALSE(desk.editor.CanUndo());
    desk.editor.Undo();
    EXPECT_EQ(desk.Marks(), "UUUUU");
    desk.editor.Redo();
    desk.editor.Redo();
    EXPECT_EQ(desk.Marks(), "IUUII");
    EXPECT_FALSE(desk.editor.CanRedo());
    desk.editor.Redo();
    EXPECT_EQ(desk.Marks(), "IUUII");
}

TEST(MarkEditor, ACommandThatChangesNothingIsNoStep) {
    Desk desk(FiveRows);
    desk.editor.Press(MarkKey::Use, PointRuns{{0, 4}});
    EXPECT_FALSE(desk.editor.CanUndo());
    desk.editor.Press(MarkKey::Ignore, PointRuns{{3, 3}});
    desk.editor.Press(MarkKey::Ignore, PointRuns{{3, 3}});
    desk.editor.Undo();
    EXPECT_FALSE(desk.editor.CanUndo());
    EXPECT_EQ(desk.Marks(), "UUUUU");
}

TEST(MarkEditor, UseOnlyIsOneStep) {
    Desk desk(FiveRows);
    desk.editor.Press(MarkKey::Ignore, PointRuns{{4, 4}});
    desk.editor.UseOnly({1, 2, 4, 99});
    EXPECT_EQ(desk.Marks(), "IUUIU");
    desk.editor.Undo();
    EXPECT_EQ(desk.Marks(), "UUUUI");
    desk.editor.Redo();
    EXPECT_EQ(desk.Marks(), "IUUIU");
    EXPECT_EQ(desk.state.IgnoreKeyList, (Keys{"15", "48"}));
}

TEST(MarkEditor, ANewCommandEndsWhatCouldBeDoneAgain) {
    Desk desk(FiveRows);
    desk.editor.Press(MarkKey::Ignore, PointRuns{{0, 0}});
    desk.editor.Undo();
    desk.editor.Press(MarkKey::Ignore, PointRuns{{1, 1}});
    EXPECT_FALSE(desk.editor.CanRedo());
    EXPECT_EQ(desk.Marks(), "UIUUU");
}

TEST(MarkEditor, IsCutToThePointsThereAre) {
    Desk desk(FiveRows);
    desk.editor.Press(MarkKey::Ignore, PointRuns{{4, 100}});
    EXPECT_EQ(desk.Marks(), "UUUUI");
    desk.editor.Press(MarkKey::Ignore, PointRuns{{5, 5}});
    EXPECT_EQ(desk.Marks(), "UUUUI");
    Desk empty({});
    empty.editor.Press(MarkKey::Ignore, PointRuns{{0, 0}});
    empty.editor.UseOnly({0});
    EXPECT_FALSE(empty.editor.CanUndo());
}

TEST(MarkEditor, ALookAtAnotherTabKeepsTheSteps) {
    Desk desk(FiveRows);
    desk.editor.Press(MarkKey::Ignore, PointRuns{{1, 2}});
    desk.Prepare();
    EXPECT_EQ(desk.Marks(), "UIIUU");
    EXPECT_TRUE(desk.editor.CanUndo());
    desk.editor.Undo();
    EXPECT_EQ(desk.Marks(), "UUUUU");
}

TEST(MarkEditor, OtherReadingsEndTheSteps) {
    Desk desk(FiveRows);
    desk.editor.Press(MarkKey::Ignore, PointRuns{{1, 2}});
    desk.state.RecDatGrid[0].level = "5.0";
    desk.Prepare();
    EXPECT_FALSE(desk.editor.CanUndo());
    desk.editor.Press(MarkKey::Ignore, PointRuns{{0, 0}});
    desk.editor.Undo();
    desk.state.RecDatGrid.pop_back();
    desk.Prepare();
    EXPECT_FALSE(desk.editor.CanRedo());
}

TEST(MarkEditor, UndoAfterAGatheringPutsBackWhatItsCommandChanged) {
    // A computation marks points with Y <= 0 Ignore by itself; that is no command.
    Desk desk({{"1", "5"}, {"2", "0"}, {"3", "7"}});
    desk.editor.Press(MarkKey::Ignore, PointRuns{{0, 0}});
    desk.working.marks[1] = Mark::Ignore;
    desk.editor.Undo();
    EXPECT_EQ(desk.Marks(), "UIU");
}

} // namespace
} // namespace quarnel
