// What each key and command of the recovery grid does to its rows.

#include "GridTestSupport.h"
#include "recovery/GridEditor.h"
#include "recovery/RecoveryDa.h"

#include <gtest/gtest.h>

namespace quarnel {
namespace {

using namespace gridtest;

struct Grid {
    GridRows rows;
    GridEditor editor{rows};
    explicit Grid(const Cells& cells = {})
        : rows(NewGrid(cells)) {}
    Grid& At(GridSelection selection) {
        editor.Select(selection);
        return *this;
    }
};

const Cells FourRows = {{"1", "a"}, {"2", "b"}, {"3", "c"}, {"4", "d"}};

constexpr const char* NotCompatible =
    "Block selected for paste is not compatible with block to be pasted. Try selecting a single "
    "cell or a block size with rows and columns that are integer multiples of the rows and columns "
    "to be pasted.";
constexpr const char* TooManyColumns =
    "A column to be pasted exceeds the number of columns in the grid.";

// ---- Copy --------------------------------------------------------------------------------------

TEST(GridCopy, CellsAreSeparatedByTabAndRowsEndedByCarriageReturnWithOneMoreAtTheEnd) {
    Grid grid(FourRows);
    grid.At(Select(1, 1, 2, 2));
    EXPECT_EQ(grid.editor.CopyText(), "1\ta\r2\tb\r\r");
}

TEST(GridCopy, TheCornersMayLieAnyWayRound) {
    Grid grid(FourRows);
    EXPECT_EQ(grid.At(Select(2, 2, 1, 1)).editor.CopyText(), "1\ta\r2\tb\r\r");
    EXPECT_EQ(grid.At(Select(3, 2, 2, 2)).editor.CopyText(), "b\rc\r\r");
    EXPECT_EQ(grid.At(Select(50, 1)).editor.CopyText(), "\r\r");
}

// ---- Typing ------------------------------------------------------------------------------------

TEST(GridTyping, TheFirstCharacterReplacesTheCellAndTheNextAreAdded) {
    Grid grid(FourRows);
    grid.editor.Type("7");
    EXPECT_EQ(grid.rows[0].time, "7");
    grid.editor.Type(".");
    grid.editor.Type("5");
    EXPECT_EQ(grid.rows[0].time, "7.5");
    EXPECT_EQ(grid.rows[0].level, "a");
}

TEST(GridTyping, AnyTextIsTaken) {
    Grid grid;
    grid.editor.Type("\xC3\xA4");         // a with diaeresis
    grid.editor.Type("\xF0\x9F\x92\xA7"); // a droplet, four bytes
    grid.editor.Type("x");
    EXPECT_EQ(grid.rows[0].time, "\xC3\xA4\xF0\x9F\x92\xA7x");
}

TEST(GridTyping, BackspaceTakesOneCharacterHoweverManyBytesItHas) {
    Grid grid;
    grid.editor.Type("1");
    grid.editor.Type("\xF0\x9F\x92\xA7");
    grid.editor.Backspace();
    EXPECT_EQ(grid.rows[0].time, "1");
    grid.editor.Backspace();
    EXPECT_EQ(grid.rows[0].time, "");
    grid.editor.Backspace();
    EXPECT_EQ(grid.rows[0].time, "");
}

TEST(GridTyping, BackspaceInACellJustEnteredDoesNothing) {
    Grid grid(FourRows);
    grid.editor.Backspace();
    EXPECT_EQ(grid.rows[0].time, "1");
    EXPECT_FALSE(grid.editor.CanUndo());
}

TEST(GridTyping, StartsAnewWhenTheGridGetsTheFocus) {
    Grid grid;
    grid.editor.Type("1");
    grid.editor.StartTypingAnew();
    grid.editor.Type("2");
    EXPECT_EQ(grid.rows[0].time, "2");
}

TEST(GridTyping, StartsAnewWhenTheCurrentCellChangesButNotWhenTheSelectionIsExtended) {
    Grid grid;
    grid.editor.Type("1");
    grid.At(Select(1, 1, 3, 2)).editor.Type("2");
    EXPECT_EQ(grid.rows[0].time, "12");
    grid.At(Select(2, 1)).At(Select(1, 1)).editor.Type("3");
    EXPECT_EQ(grid.rows[0].time, "3");
}

TEST(GridTyping, StartsAnewAfterACommandOnTheSameCell) {
    Grid grid;
    grid.editor.Type("1");
    grid.editor.Clear();
    grid.editor.Type("2");
    EXPECT_EQ(grid.rows[0].time, "2");
}

TEST(GridTyping, EnterOrTabGoesRightThenDownAndAddsARowAfterTheLast) {
    Grid grid;
    grid.editor.MoveToNextCell();
    EXPECT_EQ(grid.editor.Selection(), Select(1, 2));
    grid.editor.MoveToNextCell();
    EXPECT_EQ(grid.editor.Selection(), Select(2, 1));
    grid.At(Select(50, 2)).editor.MoveToNextCell();
    EXPECT_EQ(grid.rows.size(), 51u);
    EXPECT_EQ(grid.editor.Selection(), Select(51, 1));
}

TEST(GridTyping, BackwardsStopsAtTheFirstCell) {
    Grid grid;
    grid.At(Select(2, 1)).editor.MoveToPreviousCell();
    EXPECT_EQ(grid.editor.Selection(), Select(1, 2));
    grid.editor.MoveToPreviousCell();
    grid.editor.MoveToPreviousCell();
    EXPECT_EQ(grid.editor.Selection(), Select(1, 1));
}

TEST(GridSelecting, ACornerBeyondTheGridComesToItsEdge) {
    Grid grid;
    grid.At(Select(0, 0, 99, 3));
    EXPECT_EQ(grid.editor.Selection(), Select(1, 1, 50, 2));
    grid.editor.SelectAll();
    EXPECT_EQ(grid.editor.Selection(), Select(1, 1, 50, 2));
}

// ---- Clear -------------------------------------------------------------------------------------

TEST(GridClear, EmptiesTheBlockAndItsFirstCellBecomesCurrent) {
    Grid grid(FourRows);
    grid.At(Select(3, 2, 2, 2)).editor.Clear();
    EXPECT_EQ(DataOf(grid.rows), (Cells{{"1", "a"}, {"2", ""}, {"3", ""}, {"4", "d"}}));
    EXPECT_EQ(grid.editor.Selection(), Select(2, 2));
}

TEST(GridClear, OfEmptyCellsIsNoChangeToTakeBack) {
    Grid grid;
    grid.editor.Clear();
    EXPECT_FALSE(grid.editor.CanUndo());
}

// ---- Paste -------------------------------------------------------------------------------------

TEST(GridPaste, TwoByTwoIntoOneCellFillsTwoByTwoFromThere) {
    Grid grid;
    EXPECT_EQ(grid.At(Select(3, 1)).editor.Paste("1\ta\r2\tb\r\r"), "");
    EXPECT_EQ(DataOf(grid.rows), (Cells{{"", ""}, {"", ""}, {"1", "a"}, {"2", "b"}}));
    EXPECT_EQ(grid.editor.Selection(), Select(3, 1));
}

TEST(GridPaste, TwoByTwoIntoFourByTwoFillsItTwice) {
    Grid grid;
    EXPECT_EQ(grid.At(Select(4, 2, 1, 1)).editor.Paste("1\ta\r2\tb\r\r"), "");
    EXPECT_EQ(DataOf(grid.rows), (Cells{{"1", "a"}, {"2", "b"}, {"1", "a"}, {"2", "b"}}));
    EXPECT_EQ(grid.editor.Selection(), Select(1, 1));
}

TEST(GridPaste, TwoByTwoIntoThreeByTwoIsRefused) {
    Grid grid(FourRows);
    EXPECT_EQ(grid.At(Select(1, 1, 3, 2)).editor.Paste("1\ta\r2\tb\r\r"), NotCompatible);
    EXPECT_EQ(DataOf(grid.rows), FourRows);
    EXPECT_EQ(grid.editor.Selection(), Select(1, 1, 3, 2));
}

TEST(GridPaste, OneCellWithoutALineEndDoesNothing) {
    Grid grid(FourRows);
    EXPECT_EQ(grid.editor.Paste("12.5"), "");
    EXPECT_EQ(grid.editor.Paste(""), "");
    EXPECT_EQ(grid.editor.Paste("   "), "");
    EXPECT_EQ(DataOf(grid.rows), FourRows);
    EXPECT_FALSE(grid.editor.CanUndo());
}

TEST(GridPaste, TwoColumnsFromColumnTwoAreOneTooMany) {
    Grid grid(FourRows);
    EXPECT_EQ(grid.At(Select(1, 2)).editor.Paste("1\ta\r\r"), TooManyColumns);
    EXPECT_EQ(grid.At(Select(1, 1)).editor.Paste("1\ta\tx\r\r"), TooManyColumns);
    EXPECT_EQ(DataOf(grid.rows), FourRows);
}

TEST(GridPaste, ThreeColumnsIntoTwoSelectedAreNotCompatible) {
    Grid grid;
    EXPECT_EQ(grid.At(Select(1, 1, 1, 2)).editor.Paste("1\ta\tx\r\r"), NotCompatible);
}

TEST(GridPaste, BelowTheLastRowGrowsTheGrid) {
    Grid grid;
    EXPECT_EQ(grid.At(Select(50, 1)).editor.Paste("1\ta\r2\tb\r3\tc\r\r"), "");
    ASSERT_EQ(grid.rows.size(), 52u);
    EXPECT_EQ(grid.rows[51].level, "c");
    EXPECT_EQ(grid.editor.Selection(), Select(50, 1));
}

TEST(GridPaste, OneColumnLeavesTheOtherAlone) {
    Grid grid(FourRows);
    EXPECT_EQ(grid.At(Select(2, 2)).editor.Paste("x\ry\r\r"), "");
    EXPECT_EQ(DataOf(grid.rows), (Cells{{"1", "a"}, {"2", "x"}, {"3", "y"}, {"4", "d"}}));
}

TEST(GridPaste, OneColumnIntoTwoSelectedFillsBoth) {
    Grid grid;
    EXPECT_EQ(grid.At(Select(1, 1, 2, 2)).editor.Paste("x\ry\r\r"), "");
    EXPECT_EQ(DataOf(grid.rows), (Cells{{"x", "x"}, {"y", "y"}}));
}

TEST(GridPaste, ARowShorterThanTheFirstEmptiesTheRestAndALongerOneIsCut) {
    Grid grid(FourRows);
    EXPECT_EQ(grid.editor.Paste("7\tx\r8\r9\ty\tz\r\r"), "");
    EXPECT_EQ(DataOf(grid.rows), (Cells{{"7", "x"}, {"8", ""}, {"9", "y"}, {"4", "d"}}));
}

TEST(GridPaste, EmptyCellsOverwrite) {
    Grid grid(FourRows);
    EXPECT_EQ(grid.editor.Paste("\tx\r9\t\r\r"), "");
    EXPECT_EQ(DataOf(grid.rows), (Cells{{"", "x"}, {"9", ""}, {"3", "c"}, {"4", "d"}}));
    EXPECT_EQ(grid.At(Select(3, 1)).editor.Paste("\r\r"), "");
    EXPECT_EQ(grid.rows[2].time, "");
    EXPECT_EQ(grid.At(Select(4, 1)).editor.Paste("\r"), "");
    EXPECT_EQ(grid.rows[3].time, "");
}

TEST(GridPaste, TextAfterTheLastRowEndIsIgnored) {
    Grid grid;
    EXPECT_EQ(grid.editor.Paste("1\ta\r2\tb"), "");
    EXPECT_EQ(DataOf(grid.rows), (Cells{{"1", "a"}}));
}

TEST(GridPaste, BlanksAroundTheWholeTextAreStrippedButNotThoseInside) {
    Grid grid;
    EXPECT_EQ(grid.editor.Paste("  1\t a \r2\t b \r  "), "");
    EXPECT_EQ(DataOf(grid.rows), (Cells{{"1", " a "}, {"2", " b "}}));
}

TEST(GridPaste, EveryKindOfLineEndPastesTheSame) {
    const Cells expected = {{"1", "a"}, {"2", "b"}};
    for (const char* text : {"1\ta\r2\tb\r", "1\ta\r2\tb\r\r", "1\ta\n2\tb\n", "1\ta\r\n2\tb\r\n",
                             "1\ta\n2\tb\n\n", "1\ta\r\n2\tb\r\n\r\n"}) {
        Grid grid;
        EXPECT_EQ(grid.editor.Paste(text), "");
        EXPECT_EQ(DataOf(grid.rows), expected) << testing::PrintToString(text);
        EXPECT_EQ(grid.rows.size(), 50u);
    }
}

TEST(GridPaste, OnlyTheOneRowEndThatEndsACopyIsNoRow) {
    Grid grid({{"1", ""}, {"2", ""}, {"3", ""}, {"4", ""}});
    EXPECT_EQ(grid.editor.Paste("x\r\r\r"), "");
    EXPECT_EQ(DataOf(grid.rows), (Cells{{"x", ""}, {"", ""}, {"3", ""}, {"4", ""}}));
}

TEST(GridPaste, WhatWasCopiedComesBackTheSame) {
    for (const GridSelection block : {Select(1, 1, 4, 2), Select(2, 2, 4, 2), Select(3, 1),
                                      Select(4, 1, 6, 1), Select(7, 1, 8, 2)}) {
        Grid source(FourRows);
        Grid target(FourRows);
        source.At(block);
        EXPECT_EQ(target.At(block).editor.Paste(source.editor.CopyText()), "");
        EXPECT_EQ(CellsOf(target.rows), CellsOf(source.rows));
    }
}

// ---- Insert ------------------------------------------------------------------------------------

TEST(GridInsert, NumberOfRowsIsRoundedHalfToEven) {
    const std::pair<const char*, int> cases[] = {
        {"3", 3},     {" 2 ", 2},         {"0", 0},        {"-3", -3},   {"0.5", 0},
        {"1.5", 2},   {"2.5", 2},         {"-0.5", 0},     {"-1.5", -2}, {"2.51", 3},
        {"1e2", 100}, {"32767.4", 32767}, {"32767", 32767}};
    for (const auto& [text, count] : cases) {
        const RowsToInsert rows = ReadRowsToInsert(text, ".");
        EXPECT_FALSE(rows.result.IsError()) << text;
        EXPECT_EQ(rows.count, count) << text;
    }
    EXPECT_EQ(ReadRowsToInsert("2,5", ",").count, 2);
}

TEST(GridInsert, WhatIsNoNumberIsSaid) {
    for (const char* text : {"abc", "", " ", "3 rows", "1e999"})
        EXPECT_EQ(ReadRowsToInsert(text, ".").result.message,
                  "Value entered for the number of rows cannot be evaluated as a number. Please "
                  "re-enter.")
            << text;
}

TEST(GridInsert, BeyondSixteenBitsIsAnOverflow) {
    for (const char* text : {"32767.5", "32768", "-32769", "1e300"})
        EXPECT_EQ(ReadRowsToInsert(text, ".").result.message, "6 Overflow") << text;
    EXPECT_EQ(ReadRowsToInsert("-32768.5", ".").count, -32768);
}

TEST(GridInsert, BeforeTheRowWhereTheSelectionEnds) {
    Grid grid(FourRows);
    grid.At(Select(1, 2, 3, 1)).editor.InsertRows(2, InsertPlace::BeforeCurrentRow);
    EXPECT_EQ(DataOf(grid.rows),
              (Cells{{"1", "a"}, {"2", "b"}, {"", ""}, {"", ""}, {"3", "c"}, {"4", "d"}}));
    EXPECT_EQ(grid.rows.size(), 52u);
    EXPECT_EQ(grid.editor.Selection(), Select(1, 2));
}

TEST(GridInsert, AfterTheRowWhereTheSelectionEnds) {
    Grid grid(FourRows);
    grid.At(Select(3, 1, 1, 1)).editor.InsertRows(1, InsertPlace::AfterCurrentRow);
    EXPECT_EQ(DataOf(grid.rows), (Cells{{"1", "a"}, {"", ""}, {"2", "b"}, {"3", "c"}, {"4", "d"}}));
    grid.At(Select(51, 1)).editor.InsertRows(1, InsertPlace::AfterCurrentRow);
    EXPECT_EQ(grid.rows.size(), 52u);
}

TEST(GridInsert, LessThanOneRowInsertsNothing) {
    Grid grid(FourRows);
    grid.editor.InsertRows(0, InsertPlace::BeforeCurrentRow);
    grid.editor.InsertRows(-3, InsertPlace::AfterCurrentRow);
    EXPECT_EQ(CellsOf(grid.rows), CellsOf(NewGrid(FourRows)));
    EXPECT_FALSE(grid.editor.CanUndo());
}

// ---- Delete ------------------------------------------------------------------------------------

TEST(GridDelete, AllRowsOfANewGridLeaveFiftyEmptyOnes) {
    Grid grid(FourRows);
    grid.editor.SelectAll();
    EXPECT_TRUE(grid.editor.SelectionHoldsData());
    grid.editor.DeleteRows();
    EXPECT_EQ(CellsOf(grid.rows), CellsOf(NewGrid()));
    EXPECT_EQ(grid.editor.Selection(), Select(1, 1));
}

TEST(GridDelete, WhatFollowsMovesUpAndALongGridGetsShorter) {
    Grid grid(FourRows);
    grid.editor.InsertRows(10, InsertPlace::BeforeCurrentRow);
    grid.At(Select(12, 2, 3, 1)).editor.DeleteRows();
    EXPECT_EQ(DataOf(grid.rows), (Cells{{"", ""}, {"", ""}, {"3", "c"}, {"4", "d"}}));
    EXPECT_EQ(grid.rows.size(), 50u);
    EXPECT_EQ(grid.editor.Selection(), Select(3, 1));
}

TEST(GridDelete, BehindTheNewEndTheLastRowBecomesCurrent) {
    Grid grid;
    grid.editor.InsertRows(5, InsertPlace::BeforeCurrentRow);
    grid.At(Select(53, 2, 55, 2)).editor.DeleteRows();
    EXPECT_EQ(grid.rows.size(), 52u);
    EXPECT_EQ(grid.editor.Selection(), Select(52, 1));
}

TEST(GridDelete, RowsWithoutATextHoldNoData) {
    Grid grid(FourRows);
    EXPECT_FALSE(grid.At(Select(5, 1, 50, 2)).editor.SelectionHoldsData());
    EXPECT_TRUE(grid.At(Select(9, 1, 4, 1)).editor.SelectionHoldsData());
    grid.At(Select(5, 2)).editor.Type(" ");
    EXPECT_TRUE(grid.At(Select(5, 1)).editor.SelectionHoldsData());
}

// ---- Sort --------------------------------------------------------------------------------------

RecoveryPointList PointsOf(const GridRows& rows) {
    ProjectState state;
    state.RecDatDataTypeDDL = ChangeInHead;
    state.RecDatGrid = rows;
    RecoveryData data;
    EXPECT_EQ(CheckRecoveryData(state, data).message, "");
    return *data.RecoveryPoints;
}

TEST(GridSort, BlankRowsBetweenDisappear) {
    Grid grid({{"3", "7"}, {"", ""}, {"1", "9"}, {"", ""}, {"2", "8"}});
    grid.At(Select(9, 2)).editor.SortByTime(PointsOf(grid.rows));
    EXPECT_EQ(CellsOf(grid.rows), CellsOf(NewGrid({{"1", "9"}, {"2", "8"}, {"3", "7"}})));
    EXPECT_EQ(grid.editor.Selection(), Select(1, 1));
}

TEST(GridSort, TwentyFiveEmptyRowsFollowMoreThanTwentyFiveReadings) {
    Cells cells;
    for (int i = 30; i > 0; --i)
        cells.emplace_back(std::to_string(i), "1");
    Grid grid(cells);
    grid.editor.SortByTime(PointsOf(grid.rows));
    EXPECT_EQ(grid.rows.size(), 55u);
    EXPECT_EQ(grid.rows[0].time, "1");
    EXPECT_EQ(grid.rows[29].time, "30");
}

TEST(GridSort, EqualTimesKeepTheirOrderAndTheirSpelling) {
    Grid grid({{"1.0", "7"}, {"0", "9"}, {"1", "8"}, {"1e0", "6"}});
    grid.editor.SortByTime(PointsOf(grid.rows));
    EXPECT_EQ(DataOf(grid.rows), (Cells{{"0", "9"}, {"1.0", "7"}, {"1", "8"}, {"1e0", "6"}}));
}

TEST(GridSort, ATimeOfABillionIsNeverPlaced) {
    Grid grid({{"1e9", "7"}, {"999999999", "8"}, {"1", "9"}});
    grid.editor.SortByTime(PointsOf(grid.rows));
    EXPECT_EQ(CellsOf(grid.rows), CellsOf(NewGrid({{"1", "9"}, {"999999999", "8"}})));
    grid.editor.Undo();
    EXPECT_EQ(grid.rows[0].time, "1e9");
}

TEST(GridSort, WithoutReadingsNothingHappens) {
    Grid grid;
    grid.editor.SortByTime({});
    EXPECT_FALSE(grid.editor.CanUndo());
}

// ---- History -----------------------------------------------------------------------------------

TEST(GridHistory, TheTypingOfACellIsTakenBackAsOneChange) {
    Grid grid(FourRows);
    grid.editor.Type("9");
    grid.editor.Type("8");
    grid.editor.MoveToNextCell();
    grid.editor.Type("x");
    grid.editor.Undo();
    EXPECT_EQ(DataOf(grid.rows)[0], (Cells::value_type{"98", "a"}));
    EXPECT_EQ(grid.editor.Selection(), Select(1, 2));
    grid.editor.Undo();
    EXPECT_EQ(DataOf(grid.rows), FourRows);
    EXPECT_EQ(grid.editor.Selection(), Select(1, 1));
    grid.editor.Undo();
    EXPECT_EQ(DataOf(grid.rows), FourRows);
    grid.editor.Redo();
    grid.editor.Redo();
    EXPECT_EQ(DataOf(grid.rows)[0], (Cells::value_type{"98", "x"}));
    EXPECT_FALSE(grid.editor.CanRedo());
}

TEST(GridHistory, TypingAfterAnUndoStartsAnew) {
    Grid grid(FourRows);
    grid.editor.Type("9");
    grid.editor.Undo();
    grid.editor.Type("5");
    EXPECT_EQ(grid.rows[0].time, "5");
    EXPECT_FALSE(grid.editor.CanRedo());
    grid.editor.Undo();
    EXPECT_EQ(grid.rows[0].time, "1");
}

TEST(GridHistory, EveryCommandIsTakenBackAndDoneAgain) {
    Grid grid(FourRows);
    std::vector<std::pair<Cells, GridSelection>> states;
    const auto remember = [&] { states.emplace_back(CellsOf(grid.rows), grid.editor.Selection()); };
    remember();
    grid.At(Select(2, 1, 3, 2)).editor.Clear();
    remember();
    EXPECT_EQ(grid.At(Select(49, 1)).editor.Paste("1\t5\r2\t6\r3\t7\r\r"), "");
    remember();
    grid.At(Select(1, 1)).editor.InsertRows(3, InsertPlace::AfterCurrentRow);
    remember();
    grid.At(Select(2, 1, 50, 1)).editor.DeleteRows();
    remember();
    grid.At(Select(50, 2)).editor.MoveToNextCell();
    remember();
    grid.At(Select(1, 2)).editor.Write({1, 2}, "4");
    grid.editor.SortByTime(PointsOf(grid.rows));
    remember();
    grid.editor.Undo();
    grid.editor.Undo();
    for (auto state = states.rbegin() + 1; state != states.rend(); ++state) {
        EXPECT_EQ(CellsOf(grid.rows), state->first);
        grid.editor.Undo();
    }
    EXPECT_FALSE(grid.editor.CanUndo());
    EXPECT_EQ(CellsOf(grid.rows), states.front().first);
    while (grid.editor.CanRedo())
        grid.editor.Redo();
    EXPECT_EQ(CellsOf(grid.rows), states.back().first);
    EXPECT_EQ(grid.editor.Selection(), states.back().second);
}

TEST(GridHistory, ANewProjectStartsAFreshOne) {
    Grid grid(FourRows);
    grid.editor.Type("9");
    grid.editor.Undo();
    grid.editor.Type("8");
    grid.editor.Reset();
    EXPECT_FALSE(grid.editor.CanUndo());
    EXPECT_FALSE(grid.editor.CanRedo());
    EXPECT_EQ(grid.editor.Selection(), Select(1, 1));
}

TEST(GridHistory, AnImportIsOneStepThatHoldsTheSettingsOfTheReadingsToo) {
    ProjectState state;
    state.RecDatGrid = NewGrid(FourRows);
    state.IgnoreKeyList = {"2 b"};
    state.RecDatPreSlugHeadText = " 3,5";
    state.RecDatTimeUnitsDDL = Hour;
    const ReadingSettings before = SettingsOf(state);
    const ReadingSettings imported = {GroundwaterHead, FallingHead, Second, Metre, "5", {}};
    GridEditor editor(state.RecDatGrid);
    int told = 0;
    editor.KeepSettingsOf(state, [&told] { ++told; });
    editor.Select(Select(3, 2));
    editor.Type("c!");
    editor.ReplaceAll(NewGrid({{"0", "4.4"}}), imported);
    EXPECT_EQ(SettingsOf(state), imported);
    EXPECT_EQ(DataOf(state.RecDatGrid), (Cells{{"0", "4.4"}}));
    EXPECT_EQ(editor.Selection(), Select(1, 1));

    editor.Undo();
    EXPECT_EQ(SettingsOf(state), before);
    EXPECT_EQ(DataOf(state.RecDatGrid), (Cells{{"1", "a"}, {"2", "b"}, {"3", "c!"}, {"4", "d"}}));
    EXPECT_EQ(editor.Selection(), Select(3, 2));
    editor.Redo();
    EXPECT_EQ(SettingsOf(state), imported);
    EXPECT_EQ(told, 3);

    editor.Undo();
    editor.Undo(); // of the typing, which tells of no settings
    EXPECT_EQ(told, 4);
    EXPECT_EQ(DataOf(state.RecDatGrid), FourRows);
    EXPECT_EQ(SettingsOf(state), before);
}

TEST(GridHistory, SettingsChosenAfterAnImportComeBackWithIt) {
    ProjectState state;
    GridEditor editor(state.RecDatGrid);
    editor.KeepSettingsOf(state, nullptr);
    editor.ReplaceAll(NewGrid({{"0", "4.4"}}),
                      {GroundwaterHead, RisingHead, Second, Metre, "5", {}});
    state.RecDatPreSlugHeadText = "5.01";
    editor.Undo();
    EXPECT_EQ(state.RecDatPreSlugHeadText, "");
    editor.Redo();
    EXPECT_EQ(state.RecDatPreSlugHeadText, "5.01");
}

} // namespace
} // namespace quarnel
