// A project copied piece by piece: nothing of it is missing, whatever changes meanwhile.

#include "project/Files.h"
#include "project/StateCopier.h"
#include "tests/SourceFolder.h"

#include <gtest/gtest.h>
#include <string>

namespace quarnel::test {

namespace {

constexpr std::size_t Rows = 10'000; // several pieces, the last one not full

ProjectState ManyRows() {
    ProjectState state;
    state.RecDatGrid.clear();
    for (std::size_t i = 0; i < Rows; ++i) {
        state.RecDatGrid.push_back(
            {std::to_string(i), std::to_string(i) + " metres below the rim"});
        state.IgnoreKeyList.push_back("key " + std::to_string(i));
    }
    return state;
}

/// The rest of a copy that was started; how many pieces that took.
std::size_t Finish(StateCopier& copier, const ProjectState& state) {
    std::size_t pieces = 1;
    while (!copier.CopyPiece(state))
        ++pieces;
    return pieces;
}

std::string CopyOf(const ProjectState& state) {
    StateCopier copier;
    copier.Start(state);
    Finish(copier, state);
    return ProjectFileText(copier.Take().Join()).text;
}

} // namespace

TEST(StateCopier, EveryFieldOfAProjectIsCopied) {
    ProjectState state;
    ASSERT_TRUE(IsWhole(OpenProjectFile(SourceFolder() + "/examples/every-field.qn2", state)));
    state.IgnoreKeyList = {"1,2", "3,4"};
    EXPECT_EQ(CopyOf(state), ProjectFileText(state).text);
}

TEST(StateCopier, ManyRowsAndMarksTakeManyPieces) {
    const ProjectState state = ManyRows();
    StateCopier copier;
    EXPECT_FALSE(copier.IsCopying());
    copier.Start(state);
    EXPECT_TRUE(copier.IsCopying());
    EXPECT_GT(Finish(copier, state), 10U);
    EXPECT_EQ(ProjectFileText(copier.Take().Join()).text, ProjectFileText(state).text);
    EXPECT_FALSE(copier.IsCopying());
}

TEST(StateCopier, AnEmptyProjectIsOneToo) {
    ProjectState state;
    state.RecDatGrid.clear();
    EXPECT_EQ(CopyOf(state), ProjectFileText(state).text);
}

TEST(StateCopier, StartedAgainItHoldsWhatStandsThen) {
    ProjectState state = ManyRows();
    StateCopier copier;
    copier.Start(state);
    for (int piece = 0; piece < 5; ++piece)
        ASSERT_FALSE(copier.CopyPiece(state));
    state.RecDatGrid[0].time = "changed";
    copier.Start(state);
    Finish(copier, state);
    EXPECT_EQ(ProjectFileText(copier.Take().Join()).text, ProjectFileText(state).text);
}

TEST(StateCopier, RowsAndMarksThatCameOrWentStartItAgain) {
    for (const std::size_t now : {std::size_t{100}, 2 * Rows}) {
        ProjectState state = ManyRows();
        StateCopier copier;
        copier.Start(state);
        Finish(copier, state);
        state.RecDatGrid.resize(now);
        state.RecDatGrid[0].time = "changed";
        state.IgnoreKeyList.resize(now, "another key");
        Finish(copier, state);
        EXPECT_EQ(ProjectFileText(copier.Take().Join()).text, ProjectFileText(state).text) << now;
    }
}

TEST(StateCopier, TextsAreThoseOfTheEnd) {
    ProjectState state = ManyRows();
    StateCopier copier;
    copier.Start(state);
    ASSERT_FALSE(copier.CopyPiece(state));
    state.WellTestIDTxt[WellLabel] = "MW-9";
    Finish(copier, state);
    EXPECT_EQ(copier.Take().Join().WellTestIDTxt[WellLabel], "MW-9");
}

} // namespace quarnel::test
