// The Bouwer-Rice coefficients and ln(Re/rw).

#include "kcompute/KComputations.h"
#include "wellgeometry/WellGeometry.h"

#include "tests/CoreTestSupport.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace quarnel {
namespace {

constexpr std::string_view TooSmall =
    "Le/rw ratio is smaller than smallest value in Bouwer-Rice paper. Smallest values for A, B and "
    "C given by Bouwer-Rice are being used.";
constexpr std::string_view TooLarge =
    "Le/rw ratio is larger than largest value in Bouwer-Rice paper. Largest values for A, B and C "
    "given by Bouwer-Rice are being used.";
constexpr std::string_view Fault =
    "Well Geometry: ln(Re/rw) cannot be computed. Please check H, Lw, Le and dw.";

struct Coefficients {
    BouwerRiceCoefficients values;
    Result result;
};

Coefficients At(double ratio) {
    Coefficients coefficients;
    coefficients.result = ComputeBouwerRiceCoefficients(ratio, 1, coefficients.values);
    return coefficients;
}

TEST(BouwerRiceCoefficients, AreExactToTheLastBit) {
    // (V2 - V1) f + V1 with f = (r - X1) / (X2 - X1) in doubles, each curve in its own bracket.
    struct Case {
        double ratio, a, b, c;
    };
    const Case cases[] = {{10, 0x1.ddb6db6db6db7p+0, 0x1.e7faf17633d50p-3, 0x1.01f44659e4a42p+0},
                          {25, 0x1.23d70a3d70a3ep+1, 0x1.4cccccccccccdp-2, 0x1.c07d119679291p+0},
                          {80, 0x1.d29e4129e412ap+1, 0x1.3333333333333p-1, 0x1.c924924924925p+1},
                          {250, 0x1.7f49f49f49f4ap+2, 0x1.5111111111111p+0, 0x1.e4cccccccccccp+2},
                          {500, 0x1.ed82d82d82d83p+2, 0x1.e666666666666p+0, 0x1.4777777777777p+3},
                          {700, 0x1.0fc57c57c57c6p+3, 0x1.2eeeeeeeeeeefp+1, 0x1.6507507507507p+3},
                          {1000, 0x1.18af8af8af8b0p+3, 0x1.5bbbbbbbbbbbcp+1, 0x1.741d41d41d41dp+3}};
    for (const Case& c : cases) {
        const auto [values, result] = At(c.ratio);
        EXPECT_EQ(values.A, c.a) << c.ratio;
        EXPECT_EQ(values.B, c.b) << c.ratio;
        EXPECT_EQ(values.C, c.c) << c.ratio;
        EXPECT_EQ(result.status, ComputationStatus::Ok);
        EXPECT_EQ(result.message, "");
    }
}

TEST(BouwerRiceCoefficients, AnInnerAbscissaGivesItsTabulatedValueExactly) {
    for (const auto& [ratio, a] : {std::pair{15.0, 2.0}, {40.0, 2.7}, {150.0, 5.3}, {600.0, 8.4}})
        EXPECT_EQ(At(ratio).values.A, a);
    for (const auto& [ratio, b] : {std::pair{20.0, 0.3}, {80.0, 0.6}, {200.0, 1.2}, {800.0, 2.6}})
        EXPECT_EQ(At(ratio).values.B, b);
    for (const auto& [ratio, c] : {std::pair{30.0, 2.0}, {100.0, 4.2}, {300.0, 8.7}, {600.0, 11.0}})
        EXPECT_EQ(At(ratio).values.C, c);
}

TEST(BouwerRiceCoefficients, TheSmallestRatioIsClampedToo) {
    for (const double ratio : {3.8, 3.7999, 1.0, 1e-300}) {
        const auto [values, result] = At(ratio);
        EXPECT_EQ(result.status, ComputationStatus::Warning);
        EXPECT_EQ(result.message, TooSmall);
        EXPECT_EQ(values.A, 1.7);
        EXPECT_EQ(values.B, 0.2);
        EXPECT_EQ(values.C, 0.7);
    }
    const auto [values, result] = At(std::nextafter(3.8, 4));
    EXPECT_EQ(result.status, ComputationStatus::Ok);
    EXPECT_EQ(values.A, 1.7);
}

TEST(BouwerRiceCoefficients, TheLargestRatioIsClampedToo) {
    for (const double ratio : {2000.0, 2000.1, 1e300}) {
        const auto [values, result] = At(ratio);
        EXPECT_EQ(result.status, ComputationStatus::Warning);
        EXPECT_EQ(result.message, TooLarge);
        EXPECT_EQ(values.A, 9.7);
        EXPECT_EQ(values.B, 3.3);
        EXPECT_EQ(values.C, 13.2);
    }
    EXPECT_EQ(At(std::nextafter(2000, 0)).result.status, ComputationStatus::Ok);
}

TEST(BouwerRiceCoefficients, ARatioThatIsNoNumberGivesNone) {
    const BouwerRiceCoefficients none = At(std::nan("")).values;
    for (const double coefficient : {none.A, none.B, none.C})
        EXPECT_TRUE(std::isnan(coefficient));
}

TEST(BouwerRiceCoefficients, AHundredAndFifteenByHand) {
    const BouwerRiceCoefficients hundred = At(100).values;
    EXPECT_DOUBLE_EQ(hundred.A, 2.7 + (5.3 - 2.7) * 60 / 110); // 4.11818...
    EXPECT_DOUBLE_EQ(hundred.B, 0.7);                          // 0.6 + 0.6 20/120
    EXPECT_EQ(hundred.C, 4.2);
    const BouwerRiceCoefficients fifteen = At(15).values;
    EXPECT_EQ(fifteen.A, 2.0);
    EXPECT_DOUBLE_EQ(fifteen.B, 0.2 + 0.1 * 11.2 / 16.2); // 0.26913...
    EXPECT_DOUBLE_EQ(fifteen.C, 0.7 + 1.3 * 11.2 / 26.2); // 1.25572...
}

TEST(BouwerRiceCoefficients, OnlyTheRatioCounts) {
    BouwerRiceCoefficients values;
    ComputeBouwerRiceCoefficients(1000, 40, values);
    EXPECT_EQ(values.A, At(25).values.A);
    EXPECT_EQ(values.C, At(25).values.C);
}

TEST(LnReOverRw, AgreesWithSixtyDigitArithmetic) {
    struct Case {
        double h, le, lw, rw;
        BouwerRiceCoefficients coefficients;
        double lnReOverRw;
    };
    const Case cases[] = {
        // Pratt County, Site 36, Well 4: published with curves read by hand as 2.01.
        {5060,
         152,
         2011,
         12.5,
         {1.9239285714285714, 0.25160493827160496, 1.1148091603053434},
         2.04724481913970853534},
        {1000, 300, 1000, 10, {2.42, 0.35, 2.0}, 3.27301567251433807791},
        {990.6,
         298.704,
         603.504,
         10.4775,
         {2.3782545454545456, 0.34254545454545454, 1.9260235947258848},
         2.51156332414227953789},
        {500, 400, 420, 5, {3.6454545454545455, 0.6, 3.5714285714285716}, 3.17839888081704525065}};
    for (const Case& c : cases)
        EXPECT_DOUBLE_EQ(ComputeLnReOverRw(c.h, c.le, c.lw, c.rw, c.coefficients), c.lnReOverRw);
}

TEST(LnReOverRw, AFullyPenetratingWellUsesC) {
    // Only C, or only A and B, count on each side of a difference of 0.001 cm.
    const BouwerRiceCoefficients byC = {1000, 1000, 2};
    const BouwerRiceCoefficients byAB = {2, 0.5, 1000};
    const double full = 1 / (1.1 / std::log(10.0) + 2.0 / 10);
    EXPECT_DOUBLE_EQ(ComputeLnReOverRw(10, 10, 10, 1, byC), full);
    EXPECT_DOUBLE_EQ(ComputeLnReOverRw(10.0009, 10, 10, 1, byC), full);
    EXPECT_DOUBLE_EQ(ComputeLnReOverRw(10, 10, 10.0009, 1, byC),
                     1 / (1.1 / std::log(10.0009) + 2.0 / 10));
    const double partial = 1 / (1.1 / std::log(10.0) + (2 + 0.5 * std::log(0.0011)) / 10);
    EXPECT_NEAR(ComputeLnReOverRw(10.0011, 10, 10, 1, byAB), partial, 1e-12);
    // A difference of exactly 0.001 cm counts as partial: 0.002 - 0.001 is exact in doubles.
    ASSERT_EQ(0.002 - 0.001, 0.001);
    const double small = 1 / (1.1 / std::log(10.0) + (2 + 0.5 * std::log(10.0)) / 10);
    EXPECT_DOUBLE_EQ(ComputeLnReOverRw(0.002, 0.001, 0.001, 0.0001, byAB), small);
}

TEST(LnReOverRw, TheDistanceBelowTheWellHasNoUpperCap) {
    const BouwerRiceCoefficients coefficients = {2, 0.5, 1000};
    EXPECT_DOUBLE_EQ(ComputeLnReOverRw(1e9 + 10, 10, 10, 1, coefficients),
                     1 / (1.1 / std::log(10.0) + (2 + 0.5 * std::log(1e9)) / 10));
}

TEST(LnReOverRw, ACapHoldsTheDistanceBelowTheWellOnlyWhereItIsPassed) {
    const BouwerRiceCoefficients coefficients = {2, 0.5, 1000};
    EXPECT_DOUBLE_EQ(ComputeLnReOverRw(1e9 + 10, 10, 10, 1, coefficients, 6),
                     1 / (1.1 / std::log(10.0) + (2 + 0.5 * 6) / 10));
    EXPECT_EQ(ComputeLnReOverRw(300, 10, 10, 1, coefficients, 6),
              ComputeLnReOverRw(300, 10, 10, 1, coefficients));
    EXPECT_FALSE(std::isfinite(ComputeLnReOverRw(5, 10, 10, 1, coefficients, 6)));
}

TEST(LnReOverRw, AFaultIsNeverANumber) {
    struct Case {
        const char* what;
        double h, le, lw, rw;
        BouwerRiceCoefficients coefficients;
    };
    const Case cases[] = {{"Lw = rw", 20, 10, 10, 10, {2, 0.5, 1}},
                          {"H < Lw", 9, 10, 10, 1, {2, 0.5, 1}},
                          {"Lw / rw runs under", 2, 1e-300, 1e-300, 1e300, {2, 0.5, 1}},
                          {"Lw / rw runs over", 1e308, 1, 1e308, 1e-10, {2, 0.5, 1}},
                          {"H - Lw over rw runs over", 1e308, 1, 10, 1e-2, {2, 0.5, 1}},
                          {"Le / rw runs under", 10, 1e-300, 10, 1e100, {2, 0.5, 1}},
                          {"a zero denominator", 4, 1, 4, 1, {0, 0, -1.1 / std::log(4.0)}},
                          {"a length that is no number", std::nan(""), 10, 10, 1, {2, 0.5, 1}}};
    for (const Case& c : cases)
        EXPECT_FALSE(std::isfinite(ComputeLnReOverRw(c.h, c.le, c.lw, c.rw, c.coefficients)))
            << c.what;
}

TEST(LnReOverRw, ANegativeResultIsShownAsItComes) {
    // A well not as deep as its own radius.
    EXPECT_LT(ComputeLnReOverRw(20, 5, 0.9, 1, {0, 0, 0}), 0);
}

struct Computed {
    BouwerRiceValues values;
    Result result;
};

Computed ComputeFrom(const std::array<std::string, 6>& texts) {
    ProjectState state;
    state.WellGeoText = texts;
    state.WellGeoVertUnitsDDL = Centimetre;
    state.WellGeoRadUnitsDDL = Centimetre;
    WellDimensions well;
    EXPECT_FALSE(CheckWellGeometry(state, well).IsError());
    Computed computed;
    computed.result = ComputeCoefficientsAndRadii(well, computed.values);
    return computed;
}

TEST(CoefficientsAndRadii, StoresValuesAndTexts) {
    const auto [values, result] = ComputeFrom({"1000", "900", "300", "20", "10", "0"});
    EXPECT_EQ(result.status, ComputationStatus::Ok);
    EXPECT_EQ(values.leOverRw, 30);
    EXPECT_EQ(values.leOverRwText, "30.0");
    EXPECT_EQ(values.A, 0x1.35c28f5c28f5cp+1);
    EXPECT_EQ(values.aText, "2.42");
    EXPECT_EQ(values.B, 0x1.6666666666666p-2);
    EXPECT_EQ(values.bText, "0.35");
    EXPECT_EQ(values.C, 2.0);
    EXPECT_EQ(values.cText, "2.0");
    EXPECT_DOUBLE_EQ(values.lnReOverRw,
                     1 / (1.1 / std::log(90.0) + (2.42 + 0.35 * std::log(10.0)) / 30));
    EXPECT_EQ(values.lnReOverRwText, "2.84");
    EXPECT_EQ(values.message, "");
}

TEST(CoefficientsAndRadii, KeepsTheWarningOfAClampedRatio) {
    const auto [small, smallResult] = ComputeFrom({"1000", "900", "38", "20", "10", "0"});
    EXPECT_EQ(smallResult.status, ComputationStatus::Warning);
    EXPECT_EQ(smallResult.message, TooSmall);
    EXPECT_EQ(small.message, TooSmall);
    EXPECT_EQ(small.aText, "1.7");
    EXPECT_EQ(small.leOverRwText, "3.8");
    EXPECT_GT(small.lnReOverRw, 0);
    const auto [large, largeResult] = ComputeFrom({"30000", "29000", "20000", "20", "10", "0"});
    EXPECT_EQ(largeResult.message, TooLarge);
    EXPECT_EQ(large.cText, "13.2");
}

TEST(CoefficientsAndRadii, AFaultIsAnErrorWithItsCause) {
    const std::array<std::string, 6> faults[] = {
        {"20", "10", "5", "20", "10", "0"},                   // Lw = rw
        {"1e308", "1e308", "1e308", "1e-300", "1e-300", "0"}, // ratios run over
        {"1", "1", "1", "2e200", "1e200", "0"},               // the effective radius runs over
        {"1e300", "1e300", "1", "1e-300", "1e-300", "0"}};
    for (const auto& texts : faults) {
        const auto [values, result] = ComputeFrom(texts);
        EXPECT_EQ(result.status, ComputationStatus::Error) << texts[3];
        EXPECT_EQ(result.message, Fault);
        EXPECT_EQ(values.lnReOverRw, 0);
        EXPECT_EQ(values.lnReOverRwText, "");
    }
}

TEST(CoefficientsAndRadii, HJustBelowLwInSinglePrecisionIsAFault) {
    // Both round to the same single, so the geometry passes; 0.2 cm lie between them.
    const auto [values, result] = ComputeFrom({"10000000.0", "10000000.2", "50", "20", "10", "0"});
    EXPECT_EQ(result.message, Fault);
}

TEST(CoefficientsAndRadii, NoUnitSelectedIsAFault) {
    ProjectState state = test::SmallProject();
    state.WellGeoVertUnitsDDL = -1;
    WellDimensions well;
    EXPECT_FALSE(CheckWellGeometry(state, well).IsError());
    BouwerRiceValues values;
    EXPECT_EQ(ComputeCoefficientsAndRadii(well, values).message, Fault);
}

} // namespace
} // namespace quarnel
