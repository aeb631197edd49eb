// Gathering the points of the fit, the least-squares line, and K.

#include "kcompute/Analysis.h"
#include "kcompute/ComputeK.h"
#include "kcompute/KComputations.h"
#include "kcompute/KText.h"
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
    double timeSec, lnY;
    int used;
};

struct MarkedPoints {
    RecoveryPointList points;
    std::vector<Mark> marks;
};

MarkedPoints Points(std::initializer_list<TimeAndLnY> values) {
    MarkedPoints marked;
    for (const TimeAndLnY& value : values) {
        RecoveryPoint& point = marked.points.emplace_back();
        point.timeSec = value.timeSec;
        point.lnYCm = value.lnY;
        point.yCm = std::exp(value.lnY);
        point.y = point.yCm;
        marked.marks.push_back(value.used == 1 ? Mark::Use : Mark::Ignore);
    }
    return marked;
}

FittedLine Fitted(const Analysis& analysis) {
    return LineOf(SumsOfUsed(*analysis.working.recovery.RecoveryPoints, analysis.working.marks));
}

double GuardSlope(const RecoveryPointList& points, const std::vector<Mark>& marks) {
    return SlopeAboutMeanTime(points, marks, SumsOfUsed(points, marks));
}

double GuardSlope(const Analysis& analysis) {
    return GuardSlope(*analysis.working.recovery.RecoveryPoints, analysis.working.marks);
}

FittedLine Fit(const MarkedPoints& marked) {
    return LineOf(SumsOfUsed(marked.points, marked.marks));
}

TEST(FittedLine, IsExactToTheLastBit) {
    // The six sums and the elimination in doubles, in the described order.
    struct Case {
        MarkedPoints points;
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
        const FittedLine line = Fit(c.points);
        EXPECT_EQ(line.slope, c.slope);
        EXPECT_EQ(line.intercept, c.intercept);
    }
}

TEST(FittedLine, TwoPointsGiveTheLineThroughThem) {
    const FittedLine line = Fit(Points({{0, 0, 1}, {100, -1, 1}}));
    EXPECT_EQ(line.slope, -0.01);
    EXPECT_EQ(line.intercept, 0);
    const FittedLine other = Fit(Points({{2, 5, 1}, {4, 1, 1}}));
    EXPECT_DOUBLE_EQ(other.slope, -2);
    EXPECT_DOUBLE_EQ(other.intercept, 9);
}

TEST(FittedLine, AnIgnoredPointContributesNothingEvenWhereItOverflows) {
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    const FittedLine alone = Fit(Points({{2, 5, 1}, {4, 1, 1}}));
    const FittedLine line = Fit(Points({{2, 5, 1}, {Infinity, 700, 0}, {1e200, 3, 0}, {4, 1, 1}}));
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

std::string Marks(const Analysis& analysis) {
    std::string marks;
    for (const Mark mark : analysis.working.marks)
        marks += mark == Mark::Use ? 'U' : 'I';
    return marks;
}

TEST(CheckFitSelection, CountsThePointsMarkedUse) {
    int usedCount = 0;
    Analysis analysis =
        Prepared({{"0", "5"}, {"10", "4"}, {"20", "3"}, {"30", "2"}}, {"104", "302"});
    EXPECT_EQ(CheckFitSelection(analysis.state, analysis.working, usedCount).message, "");
    EXPECT_EQ(Marks(analysis), "UIUI");
    EXPECT_EQ(usedCount, 2);
    EXPECT_EQ(analysis.state.IgnoreKeyList, (std::vector<std::string>{"104", "302"}));
}

TEST(CheckFitSelection, APointNotAboveZeroIsSwitchedToIgnore) {
    int usedCount = 0;
    Analysis analysis = Prepared({{"0", "5"}, {"10", "0"}, {"20", "-3"}, {"30", "2"}});
    EXPECT_EQ(analysis.working.marks[1], Mark::Use);
    EXPECT_EQ(CheckFitSelection(analysis.state, analysis.working, usedCount).message, "");
    EXPECT_EQ(Marks(analysis), "UIIU");
    EXPECT_EQ(analysis.working.marks[1], Mark::Ignore);
    EXPECT_EQ(analysis.working.marks[2], Mark::Ignore);
    EXPECT_EQ(analysis.state.IgnoreKeyList, (std::vector<std::string>{"100", "20-3"}));
}

TEST(CheckFitSelection, RebuildsTheIgnoreKeyList) {
    int usedCount = 0;
    Analysis analysis =
        Prepared({{"0", "5"}, {"10", "4"}, {"20", "3"}}, {"matches nothing", "203"});
    EXPECT_EQ(analysis.state.IgnoreKeyList.size(), 2U);
    EXPECT_EQ(CheckFitSelection(analysis.state, analysis.working, usedCount).message, "");
    EXPECT_EQ(analysis.state.IgnoreKeyList, std::vector<std::string>{"203"});
}

TEST(CheckFitSelection, FewerThanTwoUsedPointsAreAnError) {
    for (const std::vector<std::string>& ignored :
         {std::vector<std::string>{"05", "104"}, std::vector<std::string>{"05", "104", "203"}}) {
        Analysis analysis = Prepared({{"0", "5"}, {"10", "4"}, {"20", "3"}}, ignored);
        const Result result = Compute(analysis);
        EXPECT_EQ(result.status, ComputationStatus::Error);
        EXPECT_EQ(result.message, TooFew);
        EXPECT_EQ(analysis.computation, nullptr);
        EXPECT_EQ(analysis.state.IgnoreKeyList, ignored);
    }
}

TEST(CheckFitSelection, WithoutALevelUnitNoPointHasAHeightInCentimetres) {
    Analysis analysis = Prepared({{"0", "5"}, {"10", "4"}});
    analysis.state.RecDatWaterLevelUnitsDDL = -1;
    EXPECT_FALSE(PrepareComputation(analysis).result.IsError());
    EXPECT_EQ(Compute(analysis).message, TooFew);
    EXPECT_EQ(analysis.working.marks[0], Mark::Ignore);
}

TEST(ComputeK, OnePointPerLogarithmByHand) {
    // Y of 1 cm at 0 s and 1/e cm at 100 s: slope -0.01 per second, intercept 0.
    Analysis analysis = Prepared({{"0", "1"}, {"100", "0.367879441171442321596"}});
    EXPECT_EQ(Compute(analysis).message, "");
    EXPECT_EQ(analysis.computation->line.slope, -0.01);
    EXPECT_EQ(analysis.computation->line.intercept, 0);
    // re = rc = 5 cm, Le = 300 cm: K = 25 x 0.01 x ln(Re/rw) / 600.
    EXPECT_DOUBLE_EQ(analysis.computation->KInCmPerSec,
                     0.25 * analysis.working.coefficients.lnReOverRw / 600);
    EXPECT_NE(analysis.computation, nullptr);
}

TEST(ComputeHydraulicConductivity, IsExactToTheLastBit) {
    WellDimensions well;
    well.reCm = 6.4;
    well.Le.cm = 152;
    // 0.00416253648 cm/s
    EXPECT_EQ(ComputeHydraulicConductivity(well, 0x1.060c1e448e245p+1, -0x1.ee7bc9825fa74p-7),
              0x1.10cbc6100fa97p-8);
}

TEST(ComputeK, ThePrattCountyTest) {
    Analysis analysis;
    EXPECT_TRUE(OpenProjectBytes(test::ReadExample("pratt-county-1998.qn2"), analysis.state)
                    .messages.empty());
    EXPECT_FALSE(PrepareComputation(analysis).result.IsError());
    const BouwerRiceValues& values = analysis.working.coefficients;
    EXPECT_EQ(values.leOverRw, 0x1.851eb851eb852p+3);
    EXPECT_EQ(values.A, 0x1.ec869536202edp+0);
    EXPECT_EQ(values.B, 0x1.01a4b9958df83p-2);
    EXPECT_EQ(values.C, 0x1.1d642214caec8p+0);
    EXPECT_EQ(Compute(analysis).message, "");
    const Computation& computation = *analysis.computation;
    EXPECT_EQ(computation.usedCount, 3);
    // Doubles in the described order; the logarithms may differ in their last bit between systems.
    EXPECT_DOUBLE_EQ(values.lnReOverRw, 2.0472448191397085);
    EXPECT_NEAR(computation.line.slope, -0.015090440171431775, 1e-16);
    EXPECT_NEAR(computation.line.intercept, 4.151486226037067, 1e-14);
    EXPECT_NEAR(computation.KInCmPerSec, 0.004162536482964405, 1e-16);
    // About 3 % above the printed 3.5 m/day, for the curves were read by another hand.
    EXPECT_EQ(ShowComputedK(analysis.state, &computation), "3.6");
}

TEST(ComputeK, ARisingOrLevelLineGivesItsKAsItComes) {
    Analysis rising = Prepared({{"0", "1"}, {"10", "2"}, {"20", "3"}});
    EXPECT_EQ(Compute(rising).message, "");
    EXPECT_GT(rising.computation->line.slope, 0);
    EXPECT_LT(rising.computation->KInCmPerSec, 0);
    EXPECT_NE(rising.computation, nullptr);
    Analysis level = Prepared({{"0", "2"}, {"10", "2"}, {"20", "2"}});
    EXPECT_EQ(Compute(level).message, "");
    EXPECT_NEAR(level.computation->KInCmPerSec, 0, 1e-15);
}

TEST(ComputeK, PointsAllAtOneTimeAreAnError) {
    for (const char* time : {"0", "15", "1e-300", "1e307"}) {
        Analysis analysis = Prepared({{time, "5"}, {time, "4"}, {time, "3"}});
        EXPECT_EQ(Compute(analysis).message, SameTime) << time;
        EXPECT_EQ(analysis.computation, nullptr);
    }
    // An ignored point at another time does not help.
    Analysis analysis = Prepared({{"5", "5"}, {"5", "4"}, {"9", "3"}}, {"93"});
    EXPECT_EQ(Compute(analysis).message, SameTime);
}

TEST(ComputeK, TimesFarFromZeroForTheirSpreadAreAnError) {
    // Seconds since 1970, and a spread of half a minute: the described sums lose the slope.
    Analysis clock = Prepared(
        {{"1712900000", "5"}, {"1712900010", "4"}, {"1712900020", "3.2"}, {"1712900030", "2.5"}});
    EXPECT_EQ(Compute(clock).message, TimesTooLarge);
    EXPECT_EQ(clock.computation, nullptr);
    // An hour after the start nothing is lost.
    Analysis hour = Prepared({{"3600", "5"}, {"3610", "4"}, {"3620", "3.2"}, {"3630", "2.5"}});
    EXPECT_EQ(Compute(hour).message, "");
    // The slope shown is the described one; the one about the mean only guards it.
    EXPECT_EQ(hour.computation->line.slope, Fitted(hour).slope);
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
    EXPECT_EQ(Compute(near).message, "");
    Analysis far = Prepared(rowsFrom(50'000'000));
    EXPECT_EQ(Compute(far).message, TimesTooLarge);
    const double lost = Fitted(far).slope / GuardSlope(far) - 1;
    EXPECT_GT(std::fabs(lost), 1e-4);
    EXPECT_LT(std::fabs(lost), 1e-2);
}

TEST(ComputeK, NoiseOfALevelLineFarFromZeroIsNoFault) {
    // The mean of nine equal logarithms misses them by a rounding, so neither slope is quite 0.
    std::vector<RecoveryRow> rows;
    for (long i = 0; i < 9; ++i)
        rows.push_back({std::to_string(1712900000 + 10 * i + i * i % 7), "5"});
    Analysis analysis = Prepared(rows);
    EXPECT_EQ(Compute(analysis).message, "");
    EXPECT_NE(GuardSlope(analysis), 0);
    EXPECT_NE(analysis.computation, nullptr);
}

TEST(ComputeK, ALevelLineFarFromZeroIsNoFault) {
    // What is lost of a slope of zero is noise around zero.
    Analysis analysis = Prepared({{"1712900000", "5"}, {"1712900010", "5"}, {"1712900020", "5"}});
    EXPECT_EQ(Compute(analysis).message, "");
    EXPECT_NE(analysis.computation, nullptr);
}

TEST(ComputeK, AResultThatIsNotFiniteIsAnOverflow) {
    // Times whose squares run under.
    Analysis tiny = Prepared({{"1e-200", "5"}, {"2e-200", "4"}});
    EXPECT_EQ(Compute(tiny).message, Overflow);
    EXPECT_EQ(tiny.computation, nullptr);
    // A K that is finite in cm/s but not in single precision in the chosen units.
    Analysis display = Prepared({{"0", "5"}, {"1e-37", "1e-5"}});
    display.state.CmboKTimeUnits = Day;
    EXPECT_EQ(Compute(display).message, Overflow);
    EXPECT_EQ(ShowComputedK(display.state, display.computation.get()), "");
}

TEST(ComputeK, AnErrorTakesTheLastKAway) {
    Analysis analysis = Prepared({{"0", "5"}, {"10", "4"}, {"20", "3"}});
    EXPECT_FALSE(Compute(analysis).IsError());
    EXPECT_NE(ShowComputedK(analysis.state, analysis.computation.get()), "");
    analysis.working.marks = {Mark::Ignore, Mark::Ignore, Mark::Use};
    EXPECT_TRUE(Compute(analysis).IsError());
    EXPECT_EQ(ShowComputedK(analysis.state, analysis.computation.get()), "");
}

TEST(SlopeAboutMeanTime, AgreesWithTheDescribedSumsNearZero) {
    const MarkedPoints marked =
        Points({{0.1, 4.25, 1}, {7.7, 3.5, 1}, {9, 99, 0}, {61.7, -0.9, 1}});
    EXPECT_NEAR(GuardSlope(marked.points, marked.marks), Fit(marked).slope, 1e-15);
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

TEST(ShowComputedK, FollowsTheUnitsWithoutANewFit) {
    ProjectState state;
    Computation computation;
    computation.KInCmPerSec = 0.001;
    state.CmboKLengthUnits = Centimetre;
    state.CmboKTimeUnits = Second;
    EXPECT_EQ(ShowComputedK(state, &computation), "1.00e-3");
    state.CmboKTimeUnits = Day;
    EXPECT_EQ(ShowComputedK(state, &computation), "86.4");
    state.CmboKLengthUnits = Metre;
    EXPECT_EQ(ShowComputedK(state, &computation), "0.864");
    state.CmboKTimeUnits = Minute;
    EXPECT_EQ(ShowComputedK(state, &computation), "6.00e-4");
}

TEST(ShowComputedK, IsEmptyBeforeAComputationAndWithoutUnits) {
    ProjectState state;
    EXPECT_EQ(ShowComputedK(state, nullptr), "");
    Computation computation;
    computation.KInCmPerSec = 0.001;
    EXPECT_NE(ShowComputedK(state, &computation), "");
    state.CmboKLengthUnits = -1;
    EXPECT_EQ(ShowComputedK(state, &computation), "");
    state.CmboKLengthUnits = Metre;
    state.CmboKTimeUnits = -1;
    EXPECT_EQ(ShowComputedK(state, &computation), "");
}

} // namespace
} // namespace quarnel
