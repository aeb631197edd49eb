#include "kcompute/Analysis.h"
#include "kcompute/ComputationDetails.h"
#include "kcompute/KText.h"

#include <cmath>
#include <gtest/gtest.h>

namespace quarnel {

namespace {

Analysis Computed() {
    Analysis analysis;
    ProjectState& state = analysis.state;
    state.WellGeoText = {"32.5", "9.8", "9.8", "8.25", "2", "30"};
    state.WellTestIDTxt[WellLabel] = "  MW-3 ";
    state.WellTestIDTxt[TestDate] = " 4/12/98 ";
    state.RecDatPreSlugHeadText = "7.32";
    state.RecDatTimeUnitsDDL = Minute;
    state.RecDatGrid[0] = {"0", "9.80"};
    state.RecDatGrid[1] = {"1.5", "8.41"};
    state.RecDatGrid[2] = {"3", "8.00"};
    state.IgnoreKeyList = {"38.00"};
    EXPECT_FALSE(PrepareComputation(analysis).result.IsError());
    EXPECT_FALSE(Compute(analysis).IsError());
    return analysis;
}

} // namespace

TEST(SummaryText, AccountsForTheComputationLineByLine) {
    const Analysis analysis = Computed();
    const ComputationLines lines(*analysis.computation);
    const std::string text = SummaryText(analysis.state, analysis.computation.get());
    const std::string expected =
        "SLUG TEST\r\n" + KLine(analysis.state, analysis.computation.get()) +
        "\r\nMonitoring Well: MW-3\r\nTest Date: 4/12/98\r\n \r\n"
        "WELL GEOMETRY\r\nH: 32.5 ft\r\nLw: 9.8 ft\r\nLe: 9.8 ft\r\n"
        "dw: 8.25 in,  rw: 4.13 in\r\ndc: 2 in,  rc: 1.0 in\r\n"
        "Drained Filter Pack Porosity (%): 30\r\nEffective Radius (re): " +
        analysis.working.geometry.reText +
        " in\r\n \r\nBOUWER-RICE COEFFICIENTS\r\nLe/rw: 28.5\r\nA: 2.38\r\nB: 0.343\r\nC: 1.93\r\n"
        "Ln(Re/rw): 2.16\r\n \r\nLEAST SQUARES BEST FIT\r\nLn(Y)-cm versus Time-sec\r\n" +
        lines.slope + "\r\n" + lines.intercept + "\r\n \r\n";
    EXPECT_EQ(text.substr(0, expected.size()), expected);
    const std::string recovery = text.substr(expected.size());
    EXPECT_NE(recovery.find("Slug Test Type: Rising head \r\n"
                            "Recovery Data Type: D: Depth to Groundwater \r\n"
                            "Static Water Level: 7.32 ft\r\n"),
              std::string::npos);
    EXPECT_NE(recovery.find("Use\r\n"), std::string::npos);
    EXPECT_TRUE(recovery.ends_with("Ignore\r\n"));
}

TEST(SummaryText, ShowsTheWarningOfAClampedRatio) {
    Analysis analysis = Computed();
    EXPECT_EQ(SummaryText(analysis.state, analysis.computation.get()).find("Le/rw ratio"),
              std::string::npos);
    analysis.state.WellGeoText[GeoLe] = "1";
    PrepareComputation(analysis);
    ASSERT_FALSE(Compute(analysis).IsError());
    EXPECT_NE(SummaryText(analysis.state, analysis.computation.get())
                  .find("Le/rw ratio is smaller than smallest value in Bouwer-Rice paper. Smallest "
                        "values for A, B and C given by Bouwer-Rice are being used.\r\n"),
              std::string::npos);
}

TEST(SummaryText, NamesNoStaticLevelForChangesInHead) {
    Analysis analysis = Computed();
    analysis.state.RecDatDataTypeDDL = ChangeInHead;
    PrepareComputation(analysis);
    ASSERT_FALSE(Compute(analysis).IsError());
    const std::string text = SummaryText(analysis.state, analysis.computation.get());
    EXPECT_NE(text.find("Slug Test Type: Not Applicable\r\n"), std::string::npos);
    EXPECT_NE(text.find("Static Water Level: Not Applicable\r\n"), std::string::npos);
}

TEST(SummaryText, NamesWellAndDateAsTheyStandNow) {
    Analysis analysis = Computed();
    analysis.state.WellTestIDTxt[WellLabel] = "MW-4";
    analysis.state.CmboKTimeUnits = Second;
    const std::string text = SummaryText(analysis.state, analysis.computation.get());
    EXPECT_NE(text.find("\r\nMonitoring Well: MW-4\r\n"), std::string::npos);
    EXPECT_NE(text.find(" m/sec\r\n"), std::string::npos);
}

TEST(SummaryText, AlignsItsColumnsByCharacters) {
    Analysis analysis = Computed();
    // Two bytes a character; a number by the user's separator.
    analysis.state.DecimalSeparator = "\u066B";
    analysis.state.RecDatGrid[1].time = "1\u066B5";
    PrepareComputation(analysis);
    ASSERT_FALSE(Compute(analysis).IsError());
    const std::string text = SummaryText(analysis.state, analysis.computation.get());
    EXPECT_NE(text.find("2        1\u066B5           8.41"), std::string::npos) << text;
}

TEST(FittedYOfAComputation, IsInTheEnteredUnit) {
    const Analysis analysis = Computed();
    const Computation& computation = *analysis.computation;
    const double lnY = computation.line.slope * 90 + computation.line.intercept;
    EXPECT_EQ(FittedY(computation, 1), std::exp(lnY) * (1 / 30.48));
    EXPECT_EQ(FittedYText(computation, 1).substr(0, 4), "1.09");
}

TEST(Details, OfAFailedComputationAreEmpty) {
    Analysis analysis = Computed();
    analysis.state.IgnoreKeyList = {"09.80", "1.58.41", "38.00"};
    PrepareComputation(analysis);
    ASSERT_TRUE(Compute(analysis).IsError());
    EXPECT_EQ(SummaryText(analysis.state, analysis.computation.get()), "");
}

TEST(Details, NewEmptiesThem) {
    Analysis analysis = Computed();
    ResetAnalysis(analysis);
    EXPECT_EQ(analysis.computation, nullptr);
    EXPECT_EQ(SummaryText(analysis.state, analysis.computation.get()), "");
    EXPECT_EQ(KLine(analysis.state, analysis.computation.get()), "");
}

} // namespace quarnel
