// Checking the recovery readings: what passes, what is told, what is written back.

#include "recovery/RecoveryDa.h"

#include "tests/CoreTestSupport.h"

#include <gtest/gtest.h>

namespace quarnel {
namespace {

using Rows = std::vector<RecoveryRow>;

struct Checked {
    ProjectState state;
    RecoveryData data;
    Result result;
};

Checked Check(Rows rows, int dataType = ChangeInHead, const std::string& preSlug = "") {
    Checked checked;
    checked.state.RecDatGrid = std::move(rows);
    checked.state.RecDatDataTypeDDL = dataType;
    checked.state.RecDatPreSlugHeadText = preSlug;
    checked.result = CheckRecoveryData(checked.state, checked.data);
    return checked;
}

TEST(CheckRecoveryData, AnErrorSaysWhichCellItIsAbout) {
    const auto columnOf = [](const char* time, const char* level) {
        const FaultPlace place = Check({{"0", "1"}, {}, {time, level}}).result.place;
        EXPECT_EQ(place.kind, FaultPlace::RecoveryCell);
        EXPECT_EQ(place.row, 3U);
        return place.column;
    };
    EXPECT_EQ(columnOf("", "1"), 1);
    EXPECT_EQ(columnOf("x", "1"), 1);
    EXPECT_EQ(columnOf("-1", "1"), 1);
    EXPECT_EQ(columnOf("1", ""), 2);
    EXPECT_EQ(columnOf("1", "x"), 2);
    for (const char* preSlug : {"", "x"})
        EXPECT_EQ(Check({{"0", "1"}}, DepthToGroundwater, preSlug).result.place.kind,
                  FaultPlace::PreSlugBox);
    EXPECT_EQ(Check({{"0", "1"}}).result.place.kind, FaultPlace::None);
}

TEST(CheckRecoveryData, AnEmptyGridHasNoPointsAndNoMessage) {
    const auto [state, data, result] = Check(Rows(50));
    EXPECT_EQ(result.status, ComputationStatus::Ok);
    EXPECT_EQ(result.message, "");
    EXPECT_TRUE(data.RecoveryPoints->empty());
}

TEST(CheckRecoveryData, GathersThePointsOfTheRowsThatAreNotBlank) {
    const auto [state, data, result] =
        Check({{}, {" 0 ", "2.5"}, {" ", "   "}, {"15", " 2.25 "}, {}, {"7", "-1e-1"}, {}});
    EXPECT_EQ(result.message, "");
    const RecoveryPointList& points = *data.RecoveryPoints;
    ASSERT_EQ(points.size(), 3U);
    EXPECT_EQ(points[0].timeText.View(), "0");
    EXPECT_EQ(points[0].time, 0);
    EXPECT_EQ(points[0].levelText.View(), "2.5");
    EXPECT_EQ(points[0].level, 2.5);
    EXPECT_EQ(points[1].levelText.View(), "2.25");
    EXPECT_EQ(points[1].level, 2.25);
    EXPECT_EQ(points[2].time, 7);
    EXPECT_EQ(points[2].level, -0.1);
}

TEST(CheckRecoveryData, TrimmedTextsAreWrittenBack) {
    const auto [state, data, result] =
        Check({{" 1 ", " 2 "}, {"  ", " "}, {" 3 ", " 4"}}, DepthToGroundwater, "  7.5 ");
    EXPECT_EQ(state.RecDatPreSlugHeadText, "7.5");
    EXPECT_EQ(state.RecDatGrid[0].time.View(), "1");
    EXPECT_EQ(state.RecDatGrid[0].level.View(), "2");
    EXPECT_EQ(state.RecDatGrid[1].time.View(), "");
    EXPECT_EQ(state.RecDatGrid[1].level.View(), "");
    EXPECT_EQ(state.RecDatGrid[2].level.View(), "4");
}

TEST(CheckRecoveryData, TextsStayTrimmedWhenTheCheckFails) {
    const auto [state, data, result] = Check({{" 1 ", " 2 "}, {" x ", " 2 "}, {" 3 ", " 4 "}});
    EXPECT_TRUE(result.IsError());
    EXPECT_EQ(state.RecDatGrid[0].time.View(), "1");
    EXPECT_EQ(state.RecDatGrid[1].time.View(), "x");
    EXPECT_EQ(state.RecDatGrid[1].level.View(), "2");
    // The check did not come this far.
    EXPECT_EQ(state.RecDatGrid[2].time.View(), " 3 ");
    EXPECT_EQ(Check({}, DepthToGroundwater, " x ").state.RecDatPreSlugHeadText, "x");
}

TEST(CheckRecoveryData, EveryFaultOfARowHasItsMessage) {
    struct Case {
        RecoveryRow row;
        std::string_view message;
    };
    for (const Case& c :
         {Case{{"", "5"}, "Missing Time value in row 2."},
          Case{{"  ", "x"}, "Missing Time value in row 2."},
          Case{{"abc", ""},
               "Time value in row 2 cannot be evaluated as a number. Please re-enter."},
          Case{{"1,5", "2"},
               "Time value in row 2 cannot be evaluated as a number. Please re-enter."},
          Case{{"1e999", "2"},
               "Time value in row 2 cannot be evaluated as a number. Please re-enter."},
          Case{{"-0.5", ""}, "Time value in row 2 must be >= 0."},
          Case{{"5", ""}, "Missing Recovery data in row 2."},
          Case{{"5", "   "}, "Missing Recovery data in row 2."},
          Case{{"5", "abc"},
               "Recovery data in row 2 cannot be evaluated as a number. Please re-enter."}}) {
        const auto [state, data, result] = Check({{"1", "2"}, c.row, {"x", "y"}});
        EXPECT_EQ(result.status, ComputationStatus::Error);
        EXPECT_EQ(result.message, c.message);
        EXPECT_TRUE(data.RecoveryPoints->empty());
    }
}

TEST(CheckRecoveryData, RowNumbersCountBlankRows) {
    Rows rows(1200);
    rows[1199] = {"5", ""};
    EXPECT_EQ(Check(rows).result.message, "Missing Recovery data in row 1200.");
}

TEST(CheckRecoveryData, ATimeOfZeroPassesANegativeOneFails) {
    for (const char* time : {"0", "-0", "0.0", "1e-400", "-1e-400"})
        EXPECT_FALSE(Check({{time, "1"}}).result.IsError()) << time;
    for (const char* time : {"-0.5", "-1e-300"})
        EXPECT_EQ(Check({{time, "1"}}).result.message, "Time value in row 1 must be >= 0.") << time;
}

TEST(CheckRecoveryData, NeitherOrderNorDuplicatesNorCountMatter) {
    EXPECT_FALSE(Check({{"5", "1"}, {"3", "1"}, {"5", "1"}}).result.IsError());
    EXPECT_FALSE(Check({{"5", "1"}}).result.IsError());
}

TEST(CheckRecoveryData, ThePreSlugConditionIsNeededForDepthAndHead) {
    for (const int dataType : {DepthToGroundwater, GroundwaterHead}) {
        for (const char* empty : {"", "   "})
            EXPECT_EQ(Check({{"x", "y"}}, dataType, empty).result.message,
                      "Please enter the Pre-Slug Test Condition.");
        EXPECT_EQ(Check({{"x", "y"}}, dataType, "abc").result.message,
                  "Value entered for Pre-Slug Test Condition cannot be evaluated as a number. "
                  "Please re-enter.");
        const auto [state, data, result] = Check({{"1", "2"}}, dataType, " -7.50 ");
        EXPECT_FALSE(result.IsError());
        EXPECT_EQ(data.preSlugText, "-7.50");
        EXPECT_EQ(data.preSlug, -7.5);
    }
}

TEST(CheckRecoveryData, ChangesInHeadIgnoreThePreSlugBox) {
    for (const char* text : {"", "abc", " 7 "}) {
        const auto [state, data, result] = Check({{"1", "2"}}, ChangeInHead, text);
        EXPECT_FALSE(result.IsError());
        EXPECT_EQ(data.preSlugText, "");
        EXPECT_EQ(data.preSlug, 0);
        EXPECT_EQ(state.RecDatPreSlugHeadText, text);
    }
}

TEST(CheckRecoveryData, ThePreSlugValueOfAnEarlierCheckIsForgotten) {
    auto [state, data, result] = Check({{"1", "2"}}, DepthToGroundwater, "7");
    state.RecDatDataTypeDDL = ChangeInHead;
    EXPECT_FALSE(CheckRecoveryData(state, data).IsError());
    EXPECT_EQ(data.preSlug, 0);
    EXPECT_EQ(data.preSlugText, "");
}

TEST(CheckRecoveryData, StoresTheListPositions) {
    ProjectState state;
    state.RecDatDataTypeDDL = GroundwaterHead;
    state.RecDatSlugTestTypeDDL = FallingHead;
    state.RecDatTimeUnitsDDL = Hour;
    state.RecDatWaterLevelUnitsDDL = Metre;
    state.RecDatPreSlugHeadText = "1";
    RecoveryData data;
    EXPECT_FALSE(CheckRecoveryData(state, data).IsError());
    EXPECT_EQ(data.dataType, GroundwaterHead);
    EXPECT_EQ(data.slugTestType, FallingHead);
    EXPECT_EQ(data.timeUnit, Hour);
    EXPECT_EQ(data.levelUnit, Metre);
}

TEST(CheckRecoveryData, MakesANewListSoThatAComputationKeepsItsOwn) {
    auto [state, data, result] = Check({{"1", "2"}});
    const SharedPoints kept = data.RecoveryPoints;
    state.RecDatGrid = {{"8", "9"}, {"10", "11"}};
    EXPECT_FALSE(CheckRecoveryData(state, data).IsError());
    EXPECT_EQ(kept->size(), 1U);
    EXPECT_EQ(kept->front().time, 1);
    EXPECT_EQ(data.RecoveryPoints->size(), 2U);
}

TEST(CheckRecoveryData, NumbersMayUseTheLocalesSeparator) {
    ProjectState state;
    state.DecimalSeparator = ",";
    state.RecDatDataTypeDDL = DepthToGroundwater;
    state.RecDatPreSlugHeadText = "7,5";
    state.RecDatGrid = {{"1,5", "10.25"}};
    RecoveryData data;
    EXPECT_FALSE(CheckRecoveryData(state, data).IsError());
    EXPECT_EQ(data.preSlug, 7.5);
    EXPECT_EQ(data.RecoveryPoints->front().time, 1.5);
    EXPECT_EQ(data.RecoveryPoints->front().level, 10.25);
}

TEST(HasRecoveryRows, SeesAnyCellThatIsNotBlank) {
    ProjectState state;
    EXPECT_FALSE(HasRecoveryRows(state));
    state.RecDatGrid[3].time = "  ";
    EXPECT_FALSE(HasRecoveryRows(state));
    state.RecDatGrid[49].level = " 5";
    EXPECT_TRUE(HasRecoveryRows(state));
    state.RecDatGrid[49].level = "";
    state.RecDatGrid[0].time = "x";
    EXPECT_TRUE(HasRecoveryRows(state));
}

TEST(Headings, FollowTheLists) {
    EXPECT_EQ(SampleHeading(), "Sample\r\n Number");
    EXPECT_EQ(TimeHeading(Minute), "Time\r\n(min)");
    EXPECT_EQ(TimeHeading(Day), "Time\r\n(day)");
    EXPECT_EQ(RecoveryHeading(DepthToGroundwater, Foot), "Recovery\r\nD   (ft)");
    EXPECT_EQ(RecoveryHeading(ChangeInHead, Metre), "Recovery\r\nY   (m)");
    EXPECT_EQ(YHeading(Centimetre), " \r\nY   (cm)");
    EXPECT_EQ(PreSlugLabel(DepthToGroundwater, Foot), "D: Depth to Groundwater (ft)");
    EXPECT_EQ(PreSlugLabel(GroundwaterHead, Inch), "H: Groundwater Head (in)");
    EXPECT_EQ(PreSlugLabel(ChangeInHead, Inch), "Not Applicable");
}

} // namespace
} // namespace quarnel
