// The change in head Y of each reading, and the bounds of the plot.

#include "recovery/RecoveryDa.h"

#include "tests/CoreTestSupport.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace quarnel {
namespace {

constexpr std::string_view Warning =
    "Y values <= 0 are present. This is OK, butY values <=0 cannot be used for parameter "
    "estimation. Y values <=0 near the start of the recovery data may indicate an error in the "
    "recovery data, an error in the specified Water Level Measurement method, or an error in the "
    "specified Slug Test Type.";

struct Setting {
    int dataType = ChangeInHead;
    int slugTestType = RisingHead;
    std::string preSlug = {};
    int timeUnit = Second;
    int levelUnit = Foot;
};

struct Computed {
    RecoveryData values;
    Result result;
    const RecoveryPoint& Point(std::size_t number) const {
        return values.RecoveryPoints->at(number - 1);
    }
};

Computed Compute(std::vector<RecoveryRow> rows, const Setting& setting = {}) {
    ProjectState state;
    state.RecDatGrid = std::move(rows);
    state.RecDatDataTypeDDL = setting.dataType;
    state.RecDatSlugTestTypeDDL = setting.slugTestType;
    state.RecDatPreSlugHeadText = setting.preSlug;
    state.RecDatTimeUnitsDDL = setting.timeUnit;
    state.RecDatWaterLevelUnitsDDL = setting.levelUnit;
    Computed data;
    EXPECT_FALSE(CheckRecoveryData(state, data.values).IsError());
    data.result = ComputeRecoveryY(data.values);
    return data;
}

TEST(YSign, FollowsDataTypeAndSlugTestType) {
    struct Case {
        int dataType, rising, falling, notApplicable;
    };
    for (const Case& c : {Case{DepthToGroundwater, 1, -1, 1}, Case{GroundwaterHead, -1, 1, 1},
                          Case{ChangeInHead, 1, 1, 1}}) {
        EXPECT_EQ(YSign(c.dataType, RisingHead), c.rising) << c.dataType;
        EXPECT_EQ(YSign(c.dataType, FallingHead), c.falling) << c.dataType;
        EXPECT_EQ(YSign(c.dataType, SlugTestTypeNotApplicable), c.notApplicable) << c.dataType;
    }
}

TEST(ComputeRecoveryY, ADepthThatRises) {
    const Computed data = Compute({{"0", "12.5"}}, {DepthToGroundwater, RisingHead, "10"});
    const RecoveryPoint& point = data.Point(1);
    EXPECT_EQ(data.result.status, ComputationStatus::Ok);
    EXPECT_EQ(data.result.message, "");
    EXPECT_EQ(point.y, 2.5);
    EXPECT_EQ(point.yCm, 76.2);
    EXPECT_DOUBLE_EQ(point.lnYCm, 4.333361462692600627);    // ln 76.2
    EXPECT_DOUBLE_EQ(point.Log10Y(), 0.397940008672037609); // log10 2.5
    EXPECT_TRUE(point.YIsValid());
    EXPECT_EQ(data.values.ValidYCount, 1);
}

TEST(ComputeRecoveryY, AHeadThatRisesOrFalls) {
    const Computed rising = Compute({{"0", "97.0"}}, {GroundwaterHead, RisingHead, "100.0"});
    EXPECT_EQ(rising.Point(1).y, 3);
    EXPECT_EQ(rising.result.message, "");
    const Computed falling = Compute({{"0", "97.0"}}, {GroundwaterHead, FallingHead, "100.0"});
    EXPECT_EQ(falling.Point(1).y, -3);
    EXPECT_EQ(falling.result.status, ComputationStatus::Warning);
    EXPECT_EQ(falling.result.message, Warning);
    EXPECT_EQ(falling.values.ValidYCount, 0);
}

TEST(ComputeRecoveryY, IsExactToTheLastBit) {
    // (reading - pre-slug) x sign, then x factor, in doubles.
    const Computed data = Compute({{"0.1", "9.80"}, {"1.1", "9.41"}},
                                  {DepthToGroundwater, RisingHead, "7.32", Minute});
    EXPECT_EQ(data.Point(1).y, 0x1.3d70a3d70a3d8p+1);
    EXPECT_EQ(data.Point(1).yCm, 0x1.2e5c91d14e3bep+6);
    EXPECT_EQ(data.Point(2).y, 0x1.0b851eb851eb8p+1);
    EXPECT_EQ(data.Point(2).yCm, 0x1.fda027525460ap+5);
    EXPECT_DOUBLE_EQ(data.Point(1).lnYCm, 4.325329290995336551);
    EXPECT_DOUBLE_EQ(data.Point(2).lnYCm, 4.154234796795165088);
    EXPECT_EQ(data.Point(1).timeSec, 6);
    EXPECT_EQ(data.Point(2).timeSec, 66.0);
}

TEST(ComputeRecoveryY, AllPointsAreComputedWhenSomeAreNotAboveZero) {
    const Computed data =
        Compute({{"1", "-2"}, {"2", "0"}, {"3", "5"}, {"4", "-0"}, {"5", "7"}}, {.timeUnit = Hour});
    EXPECT_EQ(data.result.status, ComputationStatus::Warning);
    EXPECT_EQ(data.result.message, Warning);
    EXPECT_EQ(data.values.ValidYCount, 2);
    for (const std::size_t number : {1U, 2U, 4U}) {
        const RecoveryPoint& point = data.Point(number);
        EXPECT_FALSE(point.YIsValid());
        EXPECT_EQ(point.Log10Y(), 0);
        EXPECT_EQ(point.lnYCm, 0);
    }
    EXPECT_EQ(data.Point(1).yCm, -2 * 30.48);
    EXPECT_EQ(data.Point(5).y, 7);
    EXPECT_EQ(data.Point(5).timeSec, 18000);
    EXPECT_TRUE(data.Point(5).YIsValid());
}

TEST(ComputeRecoveryY, EveryUnitHasItsFactor) {
    const double seconds[] = {1, 60, 3600, 86400};
    const double centimetres[] = {2.54, 30.48, 1, 100};
    for (int unit = 0; unit < 4; ++unit) {
        const Computed data = Compute({{"3", "7"}}, {.timeUnit = unit, .levelUnit = unit});
        EXPECT_EQ(data.Point(1).timeSec, 3 * seconds[unit]);
        EXPECT_EQ(data.Point(1).yCm, 7 * centimetres[unit]);
    }
    const Computed none = Compute({{"3", "7"}}, {.timeUnit = -1, .levelUnit = 4});
    EXPECT_EQ(none.Point(1).timeSec, 0);
    EXPECT_EQ(none.Point(1).yCm, 0);
    EXPECT_EQ(none.Point(1).lnYCm, 0);
}

TEST(YText, HasABlankOrAMinusInFront) {
    struct Case {
        double y;
        std::string_view text;
    };
    for (const Case& c :
         {Case{2.5, " 2.5"}, Case{0.5, " 0.5"}, Case{-3, "-3"}, Case{0, " 0"}, Case{-0.0, " 0"},
          Case{1.0 / 3, " 0.3333333"}, Case{-1e-5, "-1E-05"}, Case{12345678, " 1.234568E+07"},
          Case{1e-60, " 0"}, Case{-1e-60, " 0"}, Case{1e39, ""}, Case{-1e39, ""},
          Case{std::numeric_limits<double>::infinity(), ""}}) {
        RecoveryPoint point;
        point.y = c.y;
        EXPECT_EQ(YText(point), c.text);
    }
}

TEST(PlotBounds, AreTheExtremesOfTheValidPoints) {
    const Computed data = Compute({{"900", "-2"}, {"10", "4.2"}, {"30", "0.03"}, {"20", "0.5"}},
                                  {.levelUnit = Metre});
    const PlotBounds& bounds = data.values.bounds;
    EXPECT_EQ(bounds.PlotMaxTime, 30);
    EXPECT_EQ(bounds.PlotMinY, 0.03);
    EXPECT_EQ(bounds.PlotMaxY, 4.2);
    EXPECT_EQ(bounds.PlotMaxYcm, 420);
    EXPECT_EQ(bounds.PlotYAxisMin, 0.01);
    EXPECT_EQ(bounds.PlotYAxisMax, 10);
}

TEST(PlotBounds, WithoutPointsTheyAreFixed) {
    for (const Computed& data : {Compute({}), Compute({{"5", "-1"}, {"7", "0"}})}) {
        const PlotBounds& bounds = data.values.bounds;
        EXPECT_EQ(bounds.PlotMaxTime, 10);
        EXPECT_EQ(bounds.PlotMinY, 1);
        EXPECT_EQ(bounds.PlotMaxY, 10);
        EXPECT_EQ(bounds.PlotMaxYcm, 0);
        EXPECT_EQ(bounds.PlotYAxisMin, 1);
        EXPECT_EQ(bounds.PlotYAxisMax, 10);
    }
}

TEST(PlotBounds, ASinglePointStandsInTheMiddle) {
    const Computed early = Compute({{"0.004", "3"}, {"50", "-1"}}, {.levelUnit = Metre});
    EXPECT_EQ(early.values.bounds.PlotMaxTime, 0.01);
    EXPECT_EQ(early.values.bounds.PlotMinY, 1.5);
    EXPECT_EQ(early.values.bounds.PlotMaxY, 6);
    EXPECT_EQ(early.values.bounds.PlotMaxYcm, 300);
    EXPECT_EQ(Compute({{"0", "3"}}).values.bounds.PlotMaxTime, 0.01);
    EXPECT_EQ(Compute({{"0.005", "3"}}).values.bounds.PlotMaxTime, 0.01);
    EXPECT_EQ(Compute({{"0.006", "3"}}).values.bounds.PlotMaxTime, 0.012);
    // Halving and doubling come before the decades are chosen.
    const Computed wide = Compute({{"7", "6"}});
    EXPECT_EQ(wide.values.bounds.PlotYAxisMin, 1);
    EXPECT_EQ(wide.values.bounds.PlotYAxisMax, 100);
}

TEST(PlotBounds, TheAxisRunsBetweenPowersOfTen) {
    struct Case {
        const char* low;
        const char* high;
        double min, max;
    };
    for (const Case& c :
         {Case{"0.03", "4.2", 0.01, 10}, Case{"1", "10", 1, 10}, Case{"1", "1", 1, 10},
          Case{"1.5", "1.6", 1, 10}, Case{"0.99", "10.1", 0.1, 100}, Case{"10", "10", 10, 100},
          Case{"1e-6", "1e-6", 1e-6, 1e-5}, Case{"1e-9", "1e-8", 1e-6, 1e-5},
          Case{"0.001", "0.002", 0.001, 0.01}, Case{"0.000999", "0.001", 0.0001, 0.001},
          Case{"1e5", "1e6", 1e5, 1e6}, Case{"99999", "99999", 1e4, 1e5},
          Case{"2e6", "3e7", 1e5, 1e6}, Case{"1e300", "1e300", 1e5, 1e6},
          Case{"1e-300", "1e300", 1e-6, 1e6}, Case{"0.1", "1e6", 0.1, 1e6}}) {
        const PlotBounds bounds = Compute({{"1", c.low}, {"2", c.high}}).values.bounds;
        EXPECT_EQ(bounds.PlotYAxisMin, c.min) << c.low;
        EXPECT_EQ(bounds.PlotYAxisMax, c.max) << c.high;
    }
}

TEST(PlotBounds, AReadingBeyondEveryBoundLeavesTheSmallestAtTheStartValue) {
    const PlotBounds bounds = Compute({{"1", "2e9"}, {"2", "3e9"}}).values.bounds;
    EXPECT_EQ(bounds.PlotMinY, 1e9);
    EXPECT_EQ(bounds.PlotMaxY, 3e9);
}

} // namespace
} // namespace quarnel
