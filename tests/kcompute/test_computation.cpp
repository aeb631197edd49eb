// The one computation: what it keeps, that nobody can change it, and when it is current.

#include "kcompute/Computation.h"
#include "tests/SourceFolder.h"

#include "kcompute/Analysis.h"
#include "kcompute/KText.h"
#include "kcompute/UseIgnore.h"
#include "tests/CoreTestSupport.h"

#include <functional>
#include <gtest/gtest.h>
#include <type_traits>
#include <utility>

namespace quarnel {
namespace {

using Change = std::function<void(ProjectState&)>;

/// A depth to groundwater test, so that slug test type and pre-slug reading go in too; the third
/// point is ignored.
ProjectState DepthProject() {
    ProjectState state = test::SmallProject();
    state.RecDatDataTypeDDL = DepthToGroundwater;
    state.RecDatPreSlugHeadText = "10";
    for (RecoveryRow& row : state.RecDatGrid)
        row.level = std::to_string(10 + std::stod(row.level.ToString()));
    state.IgnoreKeyList = {state.RecDatGrid[2].time.ToString() +
                           state.RecDatGrid[2].level.ToString()};
    return state;
}

Analysis Computed(ProjectState state) {
    Analysis analysis;
    analysis.state = std::move(state);
    EXPECT_FALSE(PrepareComputation(analysis).result.IsError());
    EXPECT_FALSE(Compute(analysis).IsError());
    EXPECT_NE(analysis.computation, nullptr);
    EXPECT_TRUE(HasCurrentComputation(analysis));
    return analysis;
}

/// Changes the state and puts it back; says whether it was current in between and after.
void ExpectCurrent(Analysis& analysis, bool expected, const std::string& name,
                   const Change& change) {
    const ProjectState before = analysis.state;
    change(analysis.state);
    EXPECT_EQ(HasCurrentComputation(analysis), expected) << name;
    analysis.state = before;
    EXPECT_TRUE(HasCurrentComputation(analysis)) << name << ", put back";
}

void ExpectNotCurrent(Analysis& analysis, const std::string& name, const Change& change) {
    ExpectCurrent(analysis, false, name, change);
    // The same holds where a look at another tab has made the working values anew or cleared them.
    const WorkingValues kept = std::exchange(analysis.working, WorkingValues());
    ExpectCurrent(analysis, false, name + ", nothing prepared", change);
    analysis.working = kept;
}

void ExpectStillCurrent(Analysis& analysis, const std::string& name, const Change& change) {
    ExpectCurrent(analysis, true, name, change);
    const WorkingValues kept = std::exchange(analysis.working, WorkingValues());
    ExpectCurrent(analysis, true, name + ", nothing prepared", change);
    analysis.working = kept;
}

// Nobody who holds a computation can change it: the type says so.
static_assert(std::is_same_v<ComputationPtr, std::shared_ptr<const Computation>>);
static_assert(std::is_const_v<ComputationPtr::element_type>);
using ConstPoints = const SharedPoints&;
static_assert(std::is_same_v<decltype(*std::declval<ConstPoints>()), const RecoveryPointList&>);
static_assert(
    std::is_same_v<decltype(std::declval<ConstPoints>().operator->()), const RecoveryPointList*>);

/// Types a mark's key on points first to last.
void Press(Analysis& analysis, std::size_t first, std::size_t last, MarkKey key) {
    std::vector<Mark>& marks = analysis.working.marks;
    std::vector<Mark> after;
    for (std::size_t k = first; k <= last; ++k)
        after.push_back(MarkAfter(key, marks[k]));
    SetMarks(analysis.state.IgnoreKeyList, *analysis.working.recovery.RecoveryPoints, marks, first,
             after);
}

} // namespace

// ---- What goes in ------------------------------------------------------------------------------

TEST(IsCurrent, EveryTextOfTheGeometryGoesIn) {
    Analysis analysis = Computed(DepthProject());
    for (std::size_t i = 0; i < analysis.state.WellGeoText.size(); ++i)
        ExpectNotCurrent(analysis, "WellGeoText " + std::to_string(i),
                         [i](ProjectState& state) { state.WellGeoText[i] += "1"; });
}

TEST(IsCurrent, ATextIsComparedAsTypedNotByItsValue) {
    Analysis analysis = Computed(DepthProject());
    ExpectNotCurrent(analysis, "H", [](ProjectState& state) { state.WellGeoText[GeoH] = "32.50"; });
}

TEST(IsCurrent, EveryListOfTheDataGoesIn) {
    Analysis analysis = Computed(DepthProject());
    const std::vector<std::pair<std::string, int ProjectState::*>> lists = {
        {"WellGeoVertUnitsDDL", &ProjectState::WellGeoVertUnitsDDL},
        {"WellGeoRadUnitsDDL", &ProjectState::WellGeoRadUnitsDDL},
        {"RecDatTimeUnitsDDL", &ProjectState::RecDatTimeUnitsDDL},
        {"RecDatWaterLevelUnitsDDL", &ProjectState::RecDatWaterLevelUnitsDDL},
        {"RecDatDataTypeDDL", &ProjectState::RecDatDataTypeDDL},
        {"RecDatSlugTestTypeDDL", &ProjectState::RecDatSlugTestTypeDDL}};
    for (const auto& [name, list] : lists)
        ExpectNotCurrent(analysis, name, [list = list](ProjectState& state) {
            state.*list = state.*list == 0 ? 1 : 0;
        });
}

TEST(IsCurrent, TheReadingBeforeTheTestGoesIn) {
    Analysis analysis = Computed(DepthProject());
    ExpectNotCurrent(analysis, "pre-slug",
                     [](ProjectState& state) { state.RecDatPreSlugHeadText = "9"; });
}

TEST(IsCurrent, EveryReadingGoesIn) {
    Analysis analysis = Computed(DepthProject());
    for (std::size_t row = 0; row < 6; ++row) {
        ExpectNotCurrent(analysis, "time " + std::to_string(row), [row](ProjectState& state) {
            state.RecDatGrid[row].time = state.RecDatGrid[row].time.ToString() + ".5";
        });
        ExpectNotCurrent(analysis, "level " + std::to_string(row), [row](ProjectState& state) {
            state.RecDatGrid[row].level = state.RecDatGrid[row].level.ToString() + "5";
        });
    }
}

TEST(IsCurrent, ReadingsAddedTakenAwayOrInAnotherOrderGoIn) {
    Analysis analysis = Computed(DepthProject());
    ExpectNotCurrent(analysis, "one more", [](ProjectState& state) {
        state.RecDatGrid.push_back({"90", "10.5"});
    });
    ExpectNotCurrent(analysis, "a time alone", [](ProjectState& state) {
        state.RecDatGrid.push_back({"90", ""});
    });
    ExpectNotCurrent(analysis, "a level alone", [](ProjectState& state) {
        state.RecDatGrid.push_back({" ", "10.5"});
    });
    ExpectNotCurrent(analysis, "the last gone",
                     [](ProjectState& state) { state.RecDatGrid.pop_back(); });
    ExpectNotCurrent(analysis, "the first gone",
                     [](ProjectState& state) { state.RecDatGrid.erase(state.RecDatGrid.begin()); });
    ExpectNotCurrent(analysis, "all gone", [](ProjectState& state) { state.RecDatGrid.clear(); });
    ExpectNotCurrent(analysis, "two swapped", [](ProjectState& state) {
        std::swap(state.RecDatGrid[0], state.RecDatGrid[1]);
    });
    ExpectNotCurrent(analysis, "a row said twice",
                     [](ProjectState& state) { state.RecDatGrid[1] = state.RecDatGrid[0]; });
}

TEST(IsCurrent, OfChangesInHeadTheTypeGoesInAlone) {
    Analysis analysis = Computed(test::SmallProject());
    ExpectStillCurrent(analysis, "slug test type",
                       [](ProjectState& state) { state.RecDatSlugTestTypeDDL = FallingHead; });
    ExpectStillCurrent(analysis, "pre-slug",
                       [](ProjectState& state) { state.RecDatPreSlugHeadText = "12"; });
    ExpectNotCurrent(analysis, "type",
                     [](ProjectState& state) { state.RecDatDataTypeDDL = GroundwaterHead; });
}

// ---- What does not -----------------------------------------------------------------------------

TEST(IsCurrent, NamesTitlesAndTheUnitsOfKDoNotGoIn) {
    Analysis analysis = Computed(DepthProject());
    ExpectStillCurrent(analysis, "site", [](ProjectState& state) {
        for (std::string& text : state.SiteIDText)
            text = "other";
    });
    ExpectStillCurrent(analysis, "well", [](ProjectState& state) {
        for (std::string& text : state.WellTestIDTxt)
            text = "other";
        state.VolumeOfSlugText = "2";
    });
    ExpectStillCurrent(analysis, "titles", [](ProjectState& state) {
        state.PlotText = {"a", "b", "c"};
    });
    ExpectStillCurrent(analysis, "units of K", [](ProjectState& state) {
        state.CmboKTimeUnits = Second;
        state.CmboKLengthUnits = Inch;
    });
    ExpectStillCurrent(analysis, "picture",
                       [](ProjectState& state) { state.SSRibbon1Pressed = false; });
}

TEST(IsCurrent, BlanksAroundATextAndBlankRowsMakeNoDifference) {
    Analysis analysis = Computed(DepthProject());
    ExpectStillCurrent(analysis, "blanks", [](ProjectState& state) {
        for (std::string& text : state.WellGeoText)
            text = "  " + text + " ";
        state.RecDatPreSlugHeadText = " 10 ";
        state.RecDatGrid[3].time = " 45 ";
        state.RecDatGrid[3].level = " " + state.RecDatGrid[3].level.ToString() + "  ";
    });
    ExpectStillCurrent(analysis, "blank rows", [](ProjectState& state) {
        state.RecDatGrid.insert(state.RecDatGrid.begin() + 2, {"", "  "});
        state.RecDatGrid.insert(state.RecDatGrid.begin(), {" ", ""});
        state.RecDatGrid.resize(50);
    });
}

TEST(IsCurrent, AnEmptyPorosityIsZero) {
    ProjectState state = DepthProject();
    state.WellGeoText[GeoDpor] = "0";
    Analysis analysis = Computed(state);
    ExpectStillCurrent(analysis, "empty",
                       [](ProjectState& changed) { changed.WellGeoText[GeoDpor] = " "; });
    ExpectNotCurrent(analysis, "0.0",
                     [](ProjectState& changed) { changed.WellGeoText[GeoDpor] = "0.0"; });
    // An empty H is not "0", nor anything else that was computed from.
    ExpectNotCurrent(analysis, "empty H",
                     [](ProjectState& changed) { changed.WellGeoText[GeoH] = ""; });
}

// ---- Marks -------------------------------------------------------------------------------------

TEST(IsCurrent, APreparedMarkGoesIn) {
    Analysis analysis = Computed(DepthProject());
    for (std::size_t k = 0; k < 6; ++k) {
        Press(analysis, k, k, MarkKey::TurnOver);
        EXPECT_FALSE(HasCurrentComputation(analysis)) << k;
        Press(analysis, k, k, MarkKey::TurnOver);
        EXPECT_TRUE(HasCurrentComputation(analysis)) << k;
    }
}

TEST(IsCurrent, AMarkInTheListGoesInWhileNothingIsPrepared) {
    Analysis analysis = Computed(DepthProject());
    analysis.working = WorkingValues();
    ExpectCurrent(analysis, false, "forgotten",
                  [](ProjectState& state) { state.IgnoreKeyList.clear(); });
    ExpectCurrent(analysis, false, "one more", [](ProjectState& state) {
        state.IgnoreKeyList.push_back(state.RecDatGrid[0].time.ToString() +
                                      state.RecDatGrid[0].level.ToString());
    });
    ExpectCurrent(analysis, true, "of no point",
                  [](ProjectState& state) { state.IgnoreKeyList.emplace_back("99"); });
}

TEST(IsCurrent, MarksOfReadingsSincePutBackDoNotCount) {
    Analysis analysis = Computed(DepthProject());
    const CellText level = analysis.state.RecDatGrid[2].level;
    analysis.state.RecDatGrid[2].level = "11";
    EXPECT_FALSE(CheckDataShowYs(analysis).IsError());
    EXPECT_EQ(analysis.working.marks[2], Mark::Use); // its key is no longer in the list
    EXPECT_FALSE(HasCurrentComputation(analysis));
    analysis.state.RecDatGrid[2].level = level;
    EXPECT_TRUE(HasCurrentComputation(analysis));
    EXPECT_FALSE(PrepareComputation(analysis).result.IsError());
    EXPECT_TRUE(HasCurrentComputation(analysis));
}

TEST(IsCurrent, PointsNotAboveZeroAreIgnoredWhateverTheirMarkSays) {
    ProjectState state = test::SmallProject();
    state.RecDatGrid.push_back({"90", "0"});
    state.RecDatGrid.push_back({"95", "-1"});
    Analysis analysis = Computed(state);
    EXPECT_EQ(analysis.computation->usedCount, 6);
    // A look at another tab brings them back as the list says, and the list can lose them.
    for (const bool remembered : {true, false}) {
        if (!remembered)
            analysis.state.IgnoreKeyList.clear();
        EXPECT_FALSE(PrepareComputation(analysis).result.IsError());
        EXPECT_EQ(analysis.working.marks[6], remembered ? Mark::Ignore : Mark::Use);
        EXPECT_TRUE(HasCurrentComputation(analysis)) << remembered;
        analysis.working = WorkingValues();
        EXPECT_TRUE(HasCurrentComputation(analysis)) << remembered;
    }
}

TEST(IsCurrent, OfTwoPointsWithOneKeyTheMarkOfEachCounts) {
    ProjectState state = test::SmallProject();
    state.RecDatGrid = {{"1", "59.41"}, {"15", "9.41"}, {"30", "8"}, {"45", "7"}};
    Analysis analysis = Computed(state);
    Press(analysis, 1, 1, MarkKey::Ignore);
    EXPECT_FALSE(Compute(analysis).IsError());
    EXPECT_TRUE(HasCurrentComputation(analysis));
    // The look away and back moves the mark to the first of the two, and the fit would differ.
    EXPECT_FALSE(PrepareComputation(analysis).result.IsError());
    EXPECT_EQ(analysis.working.marks[0], Mark::Ignore);
    EXPECT_FALSE(HasCurrentComputation(analysis));
    Press(analysis, 0, 0, MarkKey::Use);
    Press(analysis, 1, 1, MarkKey::Ignore);
    EXPECT_TRUE(HasCurrentComputation(analysis));
}

// ---- One computation ---------------------------------------------------------------------------

TEST(Computation, KeepsWhatItWasMadeFrom) {
    const Analysis analysis = Computed(DepthProject());
    const Computation& made = *analysis.computation;
    EXPECT_EQ(made.geometry.H.text, "32.5");
    EXPECT_EQ(made.geometry.dporText, "30");
    EXPECT_EQ(made.recovery.preSlugText, "10");
    EXPECT_EQ(made.recovery.RecoveryPoints->size(), 6U);
    EXPECT_EQ(made.marks,
              (std::vector{Mark::Use, Mark::Use, Mark::Ignore, Mark::Use, Mark::Use, Mark::Use}));
    EXPECT_EQ(made.usedCount, 5);
    EXPECT_GT(made.KInCmPerSec, 0);
    EXPECT_TRUE(made.line.Falls());
    EXPECT_EQ(made.coefficients.lnReOverRw, analysis.working.coefficients.lnReOverRw);
}

TEST(Computation, StaysAsItIsWhateverIsCheckedComputedOrMarkedAfterwards) {
    Analysis analysis = Computed(DepthProject());
    const ComputationPtr made = analysis.computation;
    const Computation copy = *made;
    const RecoveryPointList points = *made->recovery.RecoveryPoints;
    const auto expectSame = [&](const char* when) {
        EXPECT_EQ(made->KInCmPerSec, copy.KInCmPerSec) << when;
        EXPECT_EQ(made->marks, copy.marks) << when;
        EXPECT_EQ(made->geometry.H.text, copy.geometry.H.text) << when;
        ASSERT_EQ(made->recovery.RecoveryPoints->size(), points.size()) << when;
        for (std::size_t k = 0; k < points.size(); ++k) {
            EXPECT_EQ((*made->recovery.RecoveryPoints)[k].timeText, points[k].timeText) << when;
            EXPECT_EQ((*made->recovery.RecoveryPoints)[k].yCm, points[k].yCm) << when;
        }
    };
    analysis.working.recovery.RecoveryPoints.Change()[0].yCm = -1;
    expectSame("points changed");
    Press(analysis, 0, 5, MarkKey::TurnOver);
    expectSame("marks changed");
    analysis.state.RecDatGrid = {{"1", "13"}, {"2", "12"}};
    analysis.state.WellGeoText[GeoH] = "40";
    EXPECT_FALSE(CheckDataShowYs(analysis).IsError());
    expectSame("checked");
    EXPECT_EQ(analysis.computation, made);
    EXPECT_FALSE(PrepareComputation(analysis).result.IsError());
    expectSame("prepared");
    EXPECT_EQ(analysis.computation, made);
    EXPECT_FALSE(Compute(analysis).IsError());
    EXPECT_NE(analysis.computation, made);
    expectSame("computed");
    ResetAnalysis(analysis);
    expectSame("a new project");
}

TEST(Computation, OnlyNewOpenAndAFailedComputeDropIt) {
    const Analysis computed = Computed(DepthProject());
    Analysis analysis = computed;
    analysis.state.WellGeoText[GeoH] = "x";
    EXPECT_TRUE(PrepareComputation(analysis).result.IsError());
    EXPECT_EQ(analysis.computation, computed.computation);
    analysis.state.RecDatGrid[0].time = "x";
    EXPECT_TRUE(CheckDataShowYs(analysis).IsError());
    EXPECT_EQ(analysis.computation, computed.computation);
    EXPECT_FALSE(HasCurrentComputation(analysis));
    EXPECT_TRUE(Compute(analysis).IsError());
    EXPECT_EQ(analysis.computation, nullptr);
    EXPECT_FALSE(HasCurrentComputation(analysis));

    analysis = computed;
    ResetAnalysis(analysis);
    EXPECT_EQ(analysis.computation, nullptr);
    EXPECT_TRUE(analysis.working.marks.empty());
    EXPECT_TRUE(analysis.working.recovery.RecoveryPoints->empty());

    analysis = computed;
    OpenProjectFile(test::SourceFolder() + "/examples/README.md", analysis);
    EXPECT_EQ(analysis.computation, computed.computation); // not a project: nothing was opened
    OpenProjectFile(test::SourceFolder() + "/examples/every-field.qn2", analysis);
    EXPECT_EQ(analysis.computation, nullptr);
    EXPECT_TRUE(analysis.working.marks.empty());
    EXPECT_TRUE(analysis.working.recovery.RecoveryPoints->empty());
}

TEST(Computation, FittedYIsInItsOwnUnitWhateverTheListsSay) {
    Analysis analysis = Computed(DepthProject());
    const double fitted = FittedY(*analysis.computation, 1);
    const std::string text = FittedYText(*analysis.computation, 1);
    EXPECT_NEAR(fitted, 2.0, 0.1);
    analysis.state.RecDatWaterLevelUnitsDDL = Centimetre;
    EXPECT_EQ(FittedY(*analysis.computation, 1), fitted);
    EXPECT_EQ(FittedYText(*analysis.computation, 1), text);
}

TEST(Computation, ItsKIsShownInTheUnitsChosenNow) {
    Analysis analysis = Computed(DepthProject());
    const std::string perDay = ShowComputedK(analysis.state, analysis.computation.get());
    analysis.state.CmboKTimeUnits = Second;
    const std::string perSecond = ShowComputedK(analysis.state, analysis.computation.get());
    EXPECT_NE(perDay, perSecond);
    analysis.state.WellGeoText[GeoH] = "99";
    EXPECT_EQ(ShowComputedK(analysis.state, analysis.computation.get()), perSecond);
    EXPECT_EQ(ShowComputedK(analysis.state, nullptr), "");
}

// ---- Points that are shared --------------------------------------------------------------------

TEST(SharedPoints, ACopySharesUntilEitherIsMadeAnewOrChanged) {
    SharedPoints points;
    points.Renew(3).resize(3);
    const SharedPoints kept = points;
    EXPECT_EQ(&*kept, &*points);
    points.Change()[0].y = 7;
    EXPECT_NE(&*kept, &*points);
    EXPECT_EQ((*kept)[0].y, 0);
    EXPECT_EQ((*points)[0].y, 7);
    const RecoveryPointList* own = &*points;
    points.Change()[1].y = 8;
    EXPECT_EQ(&*points, own); // nobody shares it: no second copy
    const SharedPoints again = points;
    EXPECT_TRUE(points.Renew(2).empty());
    EXPECT_EQ(again->size(), 3U);
    EXPECT_GE(points->capacity(), 2U);
}

TEST(SharedPoints, RenewKeepsMemoryOfItsOwnUnlessItIsFarTooLarge) {
    SharedPoints points;
    points.Renew(1000).resize(1000);
    const std::size_t room = points->capacity();
    EXPECT_EQ(&points.Renew(900), &*points);
    EXPECT_EQ(points->capacity(), room);
    EXPECT_TRUE(points->empty());
    points.Renew(10);
    EXPECT_LT(points->capacity(), room / 2);
}

} // namespace quarnel
