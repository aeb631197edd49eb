// Memory that runs out in the middle of an edit: the rows are those of before or those of after,
// and the history tells of the same.

#include "recovery/GridEditor.h"

#include "tests/FailingMemory.h"

#include <functional>
#include <gtest/gtest.h>

namespace quarnel::test {

namespace {

/// Rows with texts too long to live in the cells themselves.
GridRows SomeRows() {
    GridRows rows;
    for (int i = 0; i < 9; ++i)
        rows.push_back({CellText(std::to_string(9 - i)),
                        CellText("a reading of more than fifteen bytes " + std::to_string(i))});
    return rows;
}

std::string Dump(const GridRows& rows) {
    std::string dump;
    for (const RecoveryRow& row : rows)
        dump += row.time.ToString() + "|" + row.level.ToString() + "\n";
    return dump;
}

using Edit = std::function<void(GridEditor&)>;

std::vector<Edit> Edits() {
    const auto select = [](GridEditor& editor) {
        GridSelection block(GridCell{2, 1});
        block.end = {5, 2};
        editor.Select(block);
    };
    return {[select](GridEditor& editor) {
                select(editor);
                editor.DeleteRows();
            },
            [select](GridEditor& editor) {
                select(editor);
                editor.InsertRows(40, InsertPlace::AfterCurrentRow);
            },
            [select](GridEditor& editor) {
                select(editor);
                editor.Clear();
            },
            [](GridEditor& editor) {
                editor.Select(GridSelection(GridCell{8, 1}));
                editor.Paste("1\ta text of more than fifteen bytes\r2\tb\r3\tc\r4\td\r5\te\r\r");
            },
            [](GridEditor& editor) { editor.Type("12.5"); }};
}

} // namespace

TEST(GridMemory, AnEditThatRunsOutOfItLeavesRowsAndHistoryWhole) {
    for (std::size_t i = 0; i < Edits().size(); ++i) {
        const Edit edit = Edits()[i];
        const std::string before = Dump(SomeRows());
        bool done = false;
        std::size_t failures = 0;
        for (std::size_t failAt = 1; !done; ++failAt) {
            GridRows rows = SomeRows();
            rows.shrink_to_fit();
            GridEditor editor(rows);
            LetMemoryFailAt(failAt);
            try {
                edit(editor);
                done = failingMemory.count < failAt;
            } catch (const std::bad_alloc&) {
                ++failures;
            }
            LetMemoryFailAt(0);
            ASSERT_EQ(Dump(rows) != before, editor.CanUndo()) << i << " " << failAt;
            while (editor.CanUndo())
                editor.Undo();
            ASSERT_EQ(Dump(rows), before) << i << " " << failAt;
        }
        EXPECT_GT(failures, 0U) << i;
    }
}

TEST(GridMemory, UndoAndRedoThatRunOutOfItCanBeDoneAgain) {
    for (std::size_t i = 0; i < Edits().size(); ++i) {
        for (std::size_t failAt = 1; failAt < 6; ++failAt) {
            GridRows rows = SomeRows();
            const std::string before = Dump(rows);
            GridEditor editor(rows);
            Edits()[i](editor);
            const std::string after = Dump(rows);
            const auto failing = [&](const std::function<void()>& step) {
                LetMemoryFailAt(failAt);
                try {
                    step();
                } catch (const std::bad_alloc&) {
                    LetMemoryFailAt(0);
                    step();
                }
                LetMemoryFailAt(0);
            };
            failing([&editor] { editor.Undo(); });
            ASSERT_EQ(Dump(rows), before) << i << " " << failAt;
            failing([&editor] { editor.Redo(); });
            ASSERT_EQ(Dump(rows), after) << i << " " << failAt;
        }
    }
}

} // namespace quarnel::test
