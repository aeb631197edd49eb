// Gathering the points of the fit, the least-squares line, and K.

#include "kcompute/KComputations.h"

#include "kcompute/Analysis.h"
#include "kcompute/UseIgnore.h"
#include "tests/CoreTestSupport.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace quarnel {
namespace {

constexpr std::string_view TooFew =
    "Less than 2 valid (Y>0) data points have been selected (Use) for parameter estimation. "
    "Hydraulic conductivity cannot be estimated.";
constexpr std::string_view SameTime = "All points selected (Use) have the same time. Hydraulic "
                                      "conductivity cannot be estimated.";
constexpr std::string_view TimesTooLarge =
    "The times of the points selected (Use) are too large for their spread. Please enter the time "
    "since the start of the test.";
constexpr std::string_view Overflow = "Overflow. Hydraulic conductivity cannot be estimated.";

struct TimeAndLnY {
    double timeSec, lnY, weight;
};

RecoveryPointList Points(std::initializer_list<TimeAndLnY> values) {
    RecoveryPointList points;
    for (const TimeAndLnY& value : values) {
        RecoveryPoint& point = points.emplace_back();
        point.timeSec = value.timeSec;
        point.lnYCm = value.lnY;
        point.yCm = std::exp(value.lnY);
        point.y = point.yCm;
        point.weight = value.weight;
    }
    return points;
}

TEST(FitLnYAgainstTime, IsExactToTheLastBit) {
    // The six sums and the elimination in doubles, in the described order.
    struct Case {
        RecoveryPointList points;
        double slope, intercept;
    };
    const Case cases[] = {{Points({{79.5, 2.9496883350525844, 1},
                                   {89.2, 2.8094026953624978, 1},
                                   {100.1, 2.6390573296152584, 1}}),
                           -0x1.ee7bc9825fc21p-7, 0x1.09b1f348a7eeep+2}, // -0.01509044, 4.15148623
                          {Points({{0.1, 4.25, 1},
                                   {0.3, 4.125, 0},
                                   {7.7, 3.5, 1},
                                   {12.9, 3.0, 1},
                                   {33.3, 1.7, 1},
                                   {50.5, 0.1, 0},
                                   {61.7, -0.9, 1}}),
                           -0x1.4ca0b7304a5c5p-4, 0x1.0c1b1198199b2p+2}, // -0.08120796, 4.18915214
                          {Points({{0.0, 3.3, 1}, {10.1, 2.2, 1}, {20.3, 1.05, 1}}),
                           -0x1.c600c751ed216p-4, 0x1.a73bfad9f17dcp+1}, // -0.11084059, 3.30651794
                          {Points({{1.1, 0.7, 1}, {2.3, 1.9, 1}, {3.7, 2.2, 1}}),
                           0x1.2244891224487p-1, 0x1.0877551087760p-2}}; // 0.56692913, 0.25826772
    for (const Case& c : cases) {
        const FittedLine line = FitLnYAgainstTime(c.points);
        EXPECT_EQ(line.slope, c.slope);
        EXPECT_EQ(line.intercept, c.intercept);
    }
}

TEST(FitLnYAgainstTime, TwoPointsGiveTheLineThroughThem) {
    const FittedLine line = FitLnYAgainstTime(Points({{0, 0, 1}, {100, -1, 1}}));
    EXPECT_EQ(line.slope, -0.01);
    EXPECT_EQ(line.intercept, 0);
    const FittedLine other = FitLnYAgainstTime(Points({{2, 5, 1}, {4, 1, 1}}));
    EXPECT_DOUBLE_EQ(other.slope, -2);
    EXPECT_DOUBLE_EQ(other.intercept, 9);
}

TEST(FitLnYAgainstTime, AnIgnoredPointContributesNothingEvenWhereItOverflows) {
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    const FittedLine alone = FitLnYAgainstTime(Points({{2, 5, 1}, {4, 1, 1}}));
    const FittedLine line =
        FitLnYAgainstTime(Points({{2, 5, 1}, {Infinity, 700, 0}, {1e200, 3, 0}, {4, 1, 1}}));
    EXPECT_EQ(line.slope, alone.slope);
    EXPECT_EQ(line.intercept, alone.intercept);
}

TEST(FittedY, IsZeroFromMinusThirtyDown) {
    const FittedLine flat = {0, -30};
    EXPECT_EQ(FittedYCm(flat, 5), 0);
    const FittedLine falling = {-1, 0};
    EXPECT_EQ(FittedYCm(falling, 30), 0);
    EXPECT_EQ(FittedYCm(falling, 31), 0);
    EXPECT_DOUBLE_EQ(FittedYCm(falling, 29.9), std::exp(-29.9));
    EXPECT_EQ(FittedYCm(falling, 0), 1);
    EXPECT_DOUBLE_EQ(FittedYCm({-0.01, 2}, 100), 2.718281828459045);
}

/// A project of changes in head in cm and s, prepared for the fit.
Analysis Prepared(std::vector<RecoveryRow> rows, std::vector<std::string> ignored = {}) {
    Analysis analysis;
    analysis.state = test::SmallProject();
    analysis.state.WellGeoVertUnitsDDL = Centimetre;
    analysis.state.WellGeoRadUnitsDDL = Centimetre;
    analysis.state.WellGeoText = {"1000", "900", "300", "20", "10", "0"};
    analysis.state.RecDatWaterLevelUnitsDDL = Centimetre;
    analysis.state.RecDatGrid = std::move(rows);
    analysis.state.IgnoreKeyList = std::move(ignored);
    EXPECT_FALSE(PrepareComputation(analysis).result.IsError());
    return analysis;
}

std::string Weights(const Analysis& analysis) {
    std::string weights;
    for (const RecoveryPoint& point : *analysis.computed.RecoveryPoints)
        weights += point.weight == 1 ? '1' : point.weight == 0 ? '0' : '?';
    return weights;
}

TEST(CheckFitSelection, CountsThePointsMarkedUse) {
    Analysis analysis =
        Prepared({{"0", "5"}, {"10", "4"}, {"20", "3"}, {"30", "2"}}, {"104", "302"});
    EXPECT_EQ(CheckFitSelection(analysis.state, analysis.computed).message, "");
    EXPECT_EQ(Weights(analysis), "1010");
    EXPECT_EQ(analysis.computed.usedCount, 2);
    EXPECT_EQ(analysis.state.IgnoreKeyList, (std::vector<std::string>{"104", "302"}));
}

TEST(CheckFitSelection, APointNotAboveZeroIsSwitchedToIgnore) {
    Analysis analysis = Prepared({{"0", "5"}, {"10", "0"}, {"20", "-3"}, {"30", "2"}});
    EXPECT_EQ(analysis.computed.Criteria[1].View(), "Use");
    EXPECT_EQ(CheckFitSelection(analysis.state, analysis.computed).message, "");
    EXPECT_EQ(Weights(analysis), "1001");
    EXPECT_EQ(analysis.computed.Criteria[1].View(), "Ignore");
    EXPECT_EQ(analysis.computed.Criteria[2].View(), "Ignore");
    EXPECT_EQ(analysis.state.IgnoreKeyList, (std::vector<std::string>{"100", "20-3"}));
}

TEST(CheckFitSelection, CriteriaAreComparedWithoutCaseAndBlanks) {
    Analysis analysis = Prepared({{"0", "5"}, {"10", "4"}, {"20", "3"}, {"30", "2"}, {"40", "1"}});
    analysis.computed.Criteria = {" use ", "USE", " iGNORE ", "neither", ""};
    EXPECT_EQ(CheckFitSelection(analysis.state, analysis.computed).message, "");
    EXPECT_EQ(Weights(analysis), "11000");
    // A mark that is neither leaves the point out without listing it.
    EXPECT_EQ(analysis.state.IgnoreKeyList, std::vector<std::string>{"203"});
}

TEST(CheckFitSelection, RebuildsTheIgnoreKeyList) {
    Analysis analysis =
        Prepared({{"0", "5"}, {"10", "4"}, {"20", "3"}}, {"matches nothing", "203"});
    EXPECT_EQ(analysis.state.IgnoreKeyList.size(), 2U);
    EXPECT_EQ(CheckFitSelection(analysis.state, analysis.computed).message, "");
    EXPECT_EQ(analysis.state.IgnoreKeyList, std::vector<std::string>{"203"});
}

TEST(CheckFitSelection, FewerThanTwoUsedPointsAreAnError) {
    for (const std::vector<std::string>& ignored :
         {std::vector<std::string>{"05", "104"}, std::vector<std::string>{"05", "104", "203"}}) {
        Analysis analysis = Prepared({{"0", "5"}, {"10", "4"}, {"20", "3"}}, ignored);
        const Result result = ComputeK(analysis.state, analysis.computed);
        EXPECT_EQ(result.status, ComputationStatus::Error);
        EXPECT_EQ(result.message, TooFew);
        EXPECT_FALSE(analysis.computed.KIsComputed);
        EXPECT_EQ(analysis.computed.KInCmPerSec, 0);
        EXPECT_EQ(analysis.state.IgnoreKeyList, ignored);
    }
}

TEST(CheckFitSelection, WithoutALevelUnitNoPointHasAHeightInCentimetres) {
    Analysis analysis = Prepared({{"0", "5"}, {"10", "4"}});
    analysis.state.RecDatWaterLevelUnitsDDL = -1;
    EXPECT_FALSE(PrepareComputation(analysis).result.IsError());
    EXPECT_EQ(ComputeK(analysis.state, analysis.computed).message, TooFew);
    EXPECT_EQ(analysis.computed.Criteria[0].View(), "Ignore");
}

TEST(ComputeK, OnePointPerLogarithmByHand) {
    // Y of 1 cm at 0 s and 1/e cm at 100 s: slope -0.01 per second, intercept 0.
    Analysis analysis = Prepared({{"0", "1"}, {"100", "0.367879441171442321596"}});
    EXPECT_EQ(ComputeK(analysis.state, analysis.computed).message, "");
    EXPECT_EQ(analysis.computed.FitSlope, -0.01);
    EXPECT_EQ(analysis.computed.FitIntercept, 0);
    // re = rc = 5 cm, Le = 300 cm: K = 25 x 0.01 x ln(Re/rw) / 600.
    EXPECT_DOUBLE_EQ(analysis.computed.KInCmPerSec, 0.25 * analysis.computed.lnReOverRw / 600);
    EXPECT_TRUE(analysis.computed.KIsComputed);
}

TEST(ComputeHydraulicConductivity, IsExactToTheLastBit) {
    ComputedValues computed;
    computed.reCm = 6.4;
    computed.FitSlope = -0x1.ee7bc9825fa74p-7;
    computed.lnReOverRw = 0x1.060c1e448e245p+1;
    computed.Le.cm = 152;
    ComputeHydraulicConductivity(computed);
    EXPECT_EQ(computed.KInCmPerSec, 0x1.10cbc6100fa97p-8); // 0.00416253648 cm/s
}

TEST(ComputeK, ThePrattCountyTest) {
    Analysis analysis;
    EXPECT_TRUE(OpenProjectBytes(test::ReadExample("pratt-county-1998.qn2"), "p", analysis.state)
                    .messages.empty());
    EXPECT_FALSE(PrepareComputation(analysis).result.IsError());
    const ComputedValues& computed = analysis.computed;
    EXPECT_EQ(computed.leOverRw, 0x1.851eb851eb852p+3);
    EXPECT_EQ(computed.A, 0x1.ec869536202edp+0);
    EXPECT_EQ(computed.B, 0x1.01a4b9958df83p-2);
    EXPECT_EQ(computed.C, 0x1.1d642214caec8p+0);
    EXPECT_EQ(ComputeK(analysis.state, analysis.computed).message, "");
    EXPECT_EQ(computed.usedCount, 3);
    // Doubles in the described order; the logarithms may differ in their last bit between systems.
    EXPECT_DOUBLE_EQ(computed.lnReOverRw, 2.0472448191397085);
    EXPECT_NEAR(computed.FitSlope, -0.015090440171431775, 1e-16);
    EXPECT_NEAR(computed.FitIntercept, 4.151486226037067, 1e-14);
    EXPECT_NEAR(computed.KInCmPerSec, 0.004162536482964405, 1e-16);
    // About 3 % above the printed 3.5 m/day, for the curves were read by another hand.
    EXPECT_EQ(ComputedKText(analysis.state, computed), "3.6");
}

TEST(ComputeK, ARisingOrLevelLineGivesItsKAsItComes) {
    Analysis rising = Prepared({{"0", "1"}, {"10", "2"}, {"20", "3"}});
    EXPECT_EQ(ComputeK(rising.state, rising.computed).message, "");
    EXPECT_GT(rising.computed.FitSlope, 0);
    EXPECT_LT(rising.computed.KInCmPerSec, 0);
    EXPECT_TRUE(rising.computed.KIsComputed);
    Analysis level = Prepared({{"0", "2"}, {"10", "2"}, {"20", "2"}});
    EXPECT_EQ(ComputeK(level.state, level.computed).message, "");
    EXPECT_NEAR(level.computed.KInCmPerSec, 0, 1e-15);
}

TEST(ComputeK, PointsAllAtOneTimeAreAnError) {
    for (const char* time : {"0", "15", "1e-300", "1e307"}) {
        Analysis analysis = Prepared({{time, "5"}, {time, "4"}, {time, "3"}});
        EXPECT_EQ(ComputeK(analysis.state, analysis.computed).message, SameTime) << time;
        EXPECT_FALSE(analysis.computed.KIsComputed);
    }
    // An ignored point at another time does not help.
    Analysis analysis = Prepared({{"5", "5"}, {"5", "4"}, {"9", "3"}}, {"93"});
    EXPECT_EQ(ComputeK(analysis.state, analysis.computed).message, SameTime);
}

TEST(ComputeK, TimesFarFromZeroForTheirSpreadAreAnError) {
    // Seconds since 1970, and a spread of half a minute: the described sums lose the slope.
    Analysis clock = Prepared(
        {{"1712900000", "5"}, {"1712900010", "4"}, {"1712900020", "3.2"}, {"1712900030", "2.5"}});
    EXPECT_EQ(ComputeK(clock.state, clock.computed).message, TimesTooLarge);
    EXPECT_FALSE(clock.computed.KIsComputed);
    // An hour after the start nothing is lost.
    Analysis hour = Prepared({{"3600", "5"}, {"3610", "4"}, {"3620", "3.2"}, {"3630", "2.5"}});
    EXPECT_EQ(ComputeK(hour.state, hour.computed).message, "");
    // The slope shown is the described one; the one about the mean only guards it.
    EXPECT_EQ(hour.computed.FitSlope, FitLnYAgainstTime(*hour.computed.RecoveryPoints).slope);
}

TEST(ComputeK, TheSlopeMayLoseATenThousandthPart) {
    const auto rowsFrom = [](long start) {
        std::vector<RecoveryRow> rows;
        for (const char* y : {"5", "4", "3.2", "2.5"}) {
            rows.push_back({std::to_string(start), y});
            start += 10;
        }
        return rows;
    };
    // Relative differences of the two slopes: 3e-6 and 8e-4.
    Analysis near = Prepared(rowsFrom(10'000'000));
    EXPECT_EQ(ComputeK(near.state, near.computed).message, "");
    Analysis far = Prepared(rowsFrom(50'000'000));
    EXPECT_EQ(ComputeK(far.state, far.computed).message, TimesTooLarge);
    const RecoveryPointList& points = *far.computed.RecoveryPoints;
    const double lost = FitLnYAgainstTime(points).slope / SlopeAboutMeanTime(points) - 1;
    EXPECT_GT(std::fabs(lost), 1e-4);
    EXPECT_LT(std::fabs(lost), 1e-2);
}

TEST(ComputeK, NoiseOfALevelLineFarFromZeroIsNoFault) {
    // The mean of nine equal logarithms misses them by a rounding, so neither slope is quite 0.
    std::vector<RecoveryRow> rows;
    for (long i = 0; i < 9; ++i)
        rows.push_back({std::to_string(1712900000 + 10 * i + i * i % 7), "5"});
    Analysis analysis = Prepared(rows);
    EXPECT_EQ(ComputeK(analysis.state, analysis.computed).message, "");
    EXPECT_NE(SlopeAboutMeanTime(*analysis.computed.RecoveryPoints), 0);
    EXPECT_TRUE(analysis.computed.KIsComputed);
}

TEST(ComputeK, ALevelLineFarFromZeroIsNoFault) {
    // What is lost of a slope of zero is noise around zero.
    Analysis analysis = Prepared({{"1712900000", "5"}, {"1712900010", "5"}, {"1712900020", "5"}});
    EXPECT_EQ(ComputeK(analysis.state, analysis.computed).message, "");
    EXPECT_TRUE(analysis.computed.KIsComputed);
}

TEST(ComputeK, AResultThatIsNotFiniteIsAnOverflow) {
    // Times whose squares run under.
    Analysis tiny = Prepared({{"1e-200", "5"}, {"2e-200", "4"}});
    EXPECT_EQ(ComputeK(tiny.state, tiny.computed).message, Overflow);
    EXPECT_EQ(tiny.computed.KInCmPerSec, 0);
    EXPECT_FALSE(tiny.computed.KIsComputed);
    // A K that is finite in cm/s but not in single precision in the chosen units.
    Analysis display = Prepared({{"0", "5"}, {"1e-37", "1e-5"}});
    display.state.CmboKTimeUnits = Day;
    EXPECT_EQ(ComputeK(display.state, display.computed).message, Overflow);
    EXPECT_EQ(ComputedKText(display.state, display.computed), "");
}

TEST(ComputeK, AnErrorTakesTheLastKAway) {
    Analysis analysis = Prepared({{"0", "5"}, {"10", "4"}, {"20", "3"}});
    EXPECT_FALSE(ComputeK(analysis.state, analysis.computed).IsError());
    EXPECT_NE(ComputedKText(analysis.state, analysis.computed), "");
    analysis.computed.Criteria = {"Ignore", "Ignore", "Use"};
    EXPECT_TRUE(ComputeK(analysis.state, analysis.computed).IsError());
    EXPECT_EQ(ComputedKText(analysis.state, analysis.computed), "");
    EXPECT_EQ(analysis.computed.KInCmPerSec, 0);
}

TEST(SlopeAboutMeanTime, AgreesWithTheDescribedSumsNearZero) {
    const RecoveryPointList points =
        Points({{0.1, 4.25, 1}, {7.7, 3.5, 1}, {9, 99, 0}, {61.7, -0.9, 1}});
    EXPECT_NEAR(SlopeAboutMeanTime(points), FitLnYAgainstTime(points).slope, 1e-15);
}

TEST(DisplayedK, HasAFactorForEveryUnit) {
    const double lengths[] = {1 / 2.54, 1 / 30.48, 1, 1.0 / 100};
    const double times[] = {1, 60, 3600, 86400};
    ProjectState state;
    for (int length = 0; length < 4; ++length) {
        for (int time = 0; time < 4; ++time) {
            state.CmboKLengthUnits = length;
            state.CmboKTimeUnits = time;
            EXPECT_EQ(DisplayedK(state, 0.0123),
                      static_cast<float>(times[time] * 0.0123 * lengths[length]));
        }
    }
}

TEST(DisplayedK, IsNothingWithoutAUnit) {
    ProjectState state;
    state.CmboKLengthUnits = -1;
    EXPECT_EQ(DisplayedK(state, 1), 0);
    state.CmboKLengthUnits = Metre;
    state.CmboKTimeUnits = 4;
    EXPECT_EQ(DisplayedK(state, 1), 0);
}

TEST(ComputedKText, FollowsTheUnitsWithoutANewFit) {
    ProjectState state;
    ComputedValues computed;
    computed.KIsComputed = true;
    computed.KInCmPerSec = 0.001;
    state.CmboKLengthUnits = Centimetre;
    state.CmboKTimeUnits = Second;
    EXPECT_EQ(ComputedKText(state, computed), "1.00e-3");
    state.CmboKTimeUnits = Day;
    EXPECT_EQ(ComputedKText(state, computed), "86.4");
    state.CmboKLengthUnits = Metre;
    EXPECT_EQ(ComputedKText(state, computed), "0.864");
    state.CmboKTimeUnits = Minute;
    EXPECT_EQ(ComputedKText(state, computed), "6.00e-4");
}

TEST(ComputedKText, IsEmptyBeforeAComputationAndWithoutUnits) {
    ProjectState state;
    ComputedValues computed;
    computed.KInCmPerSec = 0.001;
    EXPECT_EQ(ComputedKText(state, computed), "");
    computed.KIsComputed = true;
    EXPECT_NE(ComputedKText(state, computed), "");
    state.CmboKLengthUnits = -1;
    EXPECT_EQ(ComputedKText(state, computed), "");
    state.CmboKLengthUnits = Metre;
    state.CmboKTimeUnits = -1;
    EXPECT_EQ(ComputedKText(state, computed), "");
}

} // namespace
} // namespace quarnel
