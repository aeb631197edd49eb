// From a project to K: the order of the checks, what an error leaves behind, what is kept.

#include "kcompute/Analysis.h"

#include "kcompute/UseIgnore.h"
#include "tests/CoreTestSupport.h"

#include <cmath>
#include <gtest/gtest.h>

namespace quarnel {
namespace {

Analysis Small() {
    Analysis analysis;
    analysis.state = test::SmallProject();
    return analysis;
}

void ExpectNothingComputed(const ComputedValues& computed) {
    EXPECT_FALSE(computed.KIsComputed);
    EXPECT_EQ(computed.KInCmPerSec, 0);
    EXPECT_EQ(computed.usedCount, 0);
    EXPECT_EQ(computed.FitSlope, 0);
    EXPECT_EQ(computed.FitIntercept, 0);
}

TEST(PrepareComputation, MakesEverythingReadyForTheFit) {
    Analysis analysis = Small();
    analysis.state.IgnoreKeyList = {"152.0"};
    const Preparation preparation = PrepareComputation(analysis);
    EXPECT_EQ(preparation.result.status, ComputationStatus::Ok);
    EXPECT_EQ(preparation.result.message, "");
    EXPECT_EQ(preparation.faultyTab, FaultyTab::None);
    EXPECT_TRUE(preparation.geometryAccepted);
    EXPECT_TRUE(preparation.coefficientsComputed);
    EXPECT_TRUE(preparation.pointsChecked);
    EXPECT_EQ(preparation.coefficientWarning, "");
    EXPECT_EQ(preparation.yWarning, "");
    EXPECT_EQ(analysis.computed.RecoveryPoints->size(), 6U);
    EXPECT_EQ(analysis.computed.ValidYCount, 6);
    EXPECT_GT(analysis.computed.lnReOverRw, 0);
    EXPECT_EQ(analysis.computed.Criteria.size(), 6U);
    EXPECT_EQ(analysis.computed.Criteria[1].View(), "Ignore");
    ExpectNothingComputed(analysis.computed);
}

TEST(PrepareComputation, AnIncompleteGeometryLandsOnItsTab) {
    Analysis analysis = Small();
    analysis.state.WellGeoText[GeoLe] = "";
    analysis.state.RecDatGrid = {{"x", "y"}};
    const Preparation preparation = PrepareComputation(analysis);
    EXPECT_EQ(preparation.result.status, ComputationStatus::Error);
    EXPECT_EQ(preparation.result.message, "Well Geometry: Le must have a value.");
    EXPECT_EQ(preparation.faultyTab, FaultyTab::WellGeometry);
    EXPECT_FALSE(preparation.geometryAccepted);
    EXPECT_FALSE(preparation.coefficientsComputed);
    EXPECT_FALSE(preparation.pointsChecked);
}

TEST(PrepareComputation, AGeometryWithoutLnReOverRwLandsOnItsTab) {
    Analysis analysis = Small();
    analysis.state.WellGeoText = {"2", "1", "1", "24", "2", "0"}; // Lw 1 ft = rw 12 in
    const Preparation preparation = PrepareComputation(analysis);
    EXPECT_EQ(preparation.result.message,
              "Well Geometry: ln(Re/rw) cannot be computed. Please check H, Lw, Le and dw.");
    EXPECT_EQ(preparation.faultyTab, FaultyTab::WellGeometry);
    EXPECT_TRUE(preparation.geometryAccepted);
    EXPECT_FALSE(preparation.coefficientsComputed);
}

TEST(PrepareComputation, WithoutRowsThereIsNoRecoveryData) {
    for (const int dataType : {DepthToGroundwater, ChangeInHead}) {
        Analysis analysis = Small();
        analysis.state.RecDatDataTypeDDL = dataType; // the pre-slug box is empty
        analysis.state.RecDatGrid.assign(50, {"  ", ""});
        const Preparation preparation = PrepareComputation(analysis);
        EXPECT_EQ(preparation.result.status, ComputationStatus::Error);
        EXPECT_EQ(preparation.result.message, "No recovery data has been entered.");
        EXPECT_EQ(preparation.faultyTab, FaultyTab::RecoveryData);
        EXPECT_TRUE(preparation.coefficientsComputed);
        EXPECT_FALSE(preparation.pointsChecked);
    }
}

TEST(PrepareComputation, WithRowsTheChecksOwnMessageIsShown) {
    Analysis analysis = Small();
    analysis.state.RecDatGrid[2].level = "";
    Preparation preparation = PrepareComputation(analysis);
    EXPECT_EQ(preparation.result.message, "Missing Recovery data in row 3.");
    EXPECT_EQ(preparation.faultyTab, FaultyTab::RecoveryData);
    EXPECT_TRUE(analysis.computed.RecoveryPoints->empty());
    analysis = Small();
    analysis.state.RecDatDataTypeDDL = GroundwaterHead;
    preparation = PrepareComputation(analysis);
    EXPECT_EQ(preparation.result.message, "Please enter the Pre-Slug Test Condition.");
}

TEST(PrepareComputation, WarningsAreKeptAndTheWorstToldFirst) {
    Analysis analysis = Small();
    analysis.state.WellGeoText = {"32.5", "19.8", "1", "8.25", "2", "30"}; // Le/rw 2.9
    Preparation preparation = PrepareComputation(analysis);
    EXPECT_EQ(preparation.result.status, ComputationStatus::Warning);
    EXPECT_EQ(preparation.result.message, preparation.coefficientWarning);
    EXPECT_EQ(preparation.coefficientWarning.substr(0, 24), "Le/rw ratio is smaller t");
    EXPECT_EQ(preparation.yWarning, "");

    analysis.state.RecDatGrid[5].level = "-1";
    preparation = PrepareComputation(analysis);
    EXPECT_EQ(preparation.result.status, ComputationStatus::Warning);
    EXPECT_EQ(preparation.result.message, preparation.yWarning);
    EXPECT_EQ(preparation.yWarning.substr(0, 12), "Y values <= ");
    EXPECT_NE(preparation.coefficientWarning, "");
    EXPECT_TRUE(preparation.pointsChecked);
}

TEST(PrepareComputation, NothingOfAnEarlierComputationSurvives) {
    Analysis analysis = Small();
    PrepareComputation(analysis);
    EXPECT_FALSE(ComputeAndKeep(analysis).IsError());
    EXPECT_NE(ComputedKText(analysis.state, analysis.computed), "");
    PrepareComputation(analysis);
    ExpectNothingComputed(analysis.computed);
    EXPECT_EQ(ComputedKText(analysis.state, analysis.computed), "");

    EXPECT_FALSE(ComputeAndKeep(analysis).IsError());
    analysis.state.WellGeoText[GeoH] = "";
    PrepareComputation(analysis);
    ExpectNothingComputed(analysis.computed);
    EXPECT_EQ(analysis.computed.H.text, "");
    EXPECT_EQ(analysis.computed.re, 0);
    EXPECT_EQ(analysis.computed.reText, "");
    EXPECT_EQ(analysis.computed.aText, "");
    EXPECT_EQ(analysis.computed.lnReOverRw, 0);
    EXPECT_TRUE(analysis.computed.RecoveryPoints->empty());
}

TEST(PrepareComputation, TheDetailsOfTheLastComputationStay) {
    Analysis analysis = Small();
    PrepareComputation(analysis);
    EXPECT_FALSE(ComputeAndKeep(analysis).IsError());
    const std::string slope = analysis.details.slopeLine;
    analysis.state.RecDatGrid = {{"1", "1"}, {"2", "x"}};
    PrepareComputation(analysis);
    EXPECT_TRUE(analysis.details.isFilled);
    EXPECT_EQ(analysis.details.slopeLine, slope);
    EXPECT_EQ(analysis.details.points->size(), 6U);
    EXPECT_EQ(KLine(analysis.state, analysis.computed), "");
}

TEST(ClearComputedValues, EmptiesEveryValue) {
    Analysis analysis = Small();
    PrepareComputation(analysis);
    EXPECT_FALSE(ComputeAndKeep(analysis).IsError());
    ClearComputedValues(analysis.computed);
    const ComputedValues& computed = analysis.computed;
    for (const std::string& text :
         {computed.H.text, computed.Lw.text, computed.Le.text, computed.dw.text, computed.dc.text,
          computed.dporText, computed.reText, computed.leOverRwText, computed.aText, computed.bText,
          computed.cText, computed.lnReOverRwText, computed.coefficientMessage,
          computed.preSlugText})
        EXPECT_EQ(text, "");
    for (const double number :
         {computed.H.cm, computed.Lw.value, computed.dw.radius, computed.dc.radiusCm, computed.n,
          computed.re, computed.reCm, computed.leOverRw, computed.A, computed.B, computed.C,
          computed.lnReOverRw, computed.FitSlope, computed.KInCmPerSec})
        EXPECT_EQ(number, 0);
    EXPECT_TRUE(computed.RecoveryPoints->empty());
    EXPECT_TRUE(computed.Criteria.empty());
    EXPECT_EQ(computed.ValidYCount, 0);
}

TEST(ClearComputedValues, LeavesTheKeptPointsAlone) {
    Analysis analysis = Small();
    PrepareComputation(analysis);
    EXPECT_FALSE(ComputeAndKeep(analysis).IsError());
    ClearComputedValues(analysis.computed);
    EXPECT_EQ(analysis.details.points->size(), 6U);
    analysis.state.RecDatGrid = {{"1", "9"}};
    CheckDataShowYs(analysis);
    EXPECT_EQ(analysis.details.points->size(), 6U);
    EXPECT_EQ(analysis.details.points->front().level, 2.5);
    EXPECT_EQ(analysis.computed.RecoveryPoints->size(), 1U);
}

TEST(CheckDataShowYs, NothingOfThePointsBeforeStaysInMemoryUsedAgain) {
    Analysis analysis = Small();
    EXPECT_EQ(CheckDataShowYs(analysis).message, "");
    CheckFitSelection(analysis.state, analysis.computed);
    analysis.state.RecDatGrid = {{"1", "-1"}, {"2", "-2"}};
    CheckDataShowYs(analysis);
    ASSERT_EQ(analysis.computed.RecoveryPoints->size(), 2U);
    for (const RecoveryPoint& point : *analysis.computed.RecoveryPoints) {
        EXPECT_EQ(point.log10Y, 0);
        EXPECT_EQ(point.lnYCm, 0);
        EXPECT_EQ(point.weight, 0);
        EXPECT_EQ(point.yValid, 0);
    }
    EXPECT_EQ(analysis.computed.Criteria.size(), 2U);
}

TEST(ResetAnalysis, IsANewProjectWithTheSameConsultant) {
    Analysis analysis = Small();
    for (std::size_t i = 0; i < analysis.state.SiteIDText.size(); ++i)
        analysis.state.SiteIDText[i] = "text " + std::to_string(i);
    analysis.state.WellTestIDTxt.fill("text");
    analysis.state.VolumeOfSlugText = "text";
    analysis.state.PlotText.fill("text");
    analysis.state.SSRibbon1Pressed = false;
    analysis.state.CmboKLengthUnits = Inch;
    analysis.state.CurrentProjectFile = "/data/a.qn2";
    analysis.state.OriginalToKeep = "/data/a.qn2";
    analysis.state.DecimalSeparator = ",";
    PrepareComputation(analysis);
    ComputeAndKeep(analysis);
    ResetAnalysis(analysis);
    ProjectState expected;
    for (std::size_t i = 11; i <= 17; ++i)
        expected.SiteIDText[i] = "text " + std::to_string(i);
    EXPECT_EQ(test::Dump(analysis.state), test::Dump(expected));
    EXPECT_EQ(analysis.state.RecDatGrid.size(), 50U);
    EXPECT_EQ(analysis.state.CurrentProjectFile, "");
    EXPECT_EQ(analysis.state.OriginalToKeep, "");
    EXPECT_EQ(analysis.state.DecimalSeparator, ",");
    EXPECT_FALSE(analysis.details.isFilled);
    EXPECT_TRUE(analysis.computed.RecoveryPoints->empty());
    ExpectNothingComputed(analysis.computed);
}

TEST(NewProject, ListsShowTheirStartEntries) {
    const ProjectState state;
    EXPECT_EQ(NameAt(TimeUnitNames, state.RecDatTimeUnitsDDL), "sec");
    EXPECT_EQ(NameAt(LengthUnitNames, state.RecDatWaterLevelUnitsDDL), "ft");
    EXPECT_EQ(NameAt(DataTypeNames, state.RecDatDataTypeDDL), "D: Depth to Groundwater ");
    EXPECT_EQ(NameAt(SlugTestTypeNames, state.RecDatSlugTestTypeDDL), "Rising head ");
    EXPECT_EQ(NameAt(LengthUnitNames, state.WellGeoVertUnitsDDL), "ft");
    EXPECT_EQ(NameAt(LengthUnitNames, state.WellGeoRadUnitsDDL), "in");
    EXPECT_EQ(NameAt(LengthUnitNames, state.CmboKLengthUnits), "m");
    EXPECT_EQ(NameAt(TimeUnitNames, state.CmboKTimeUnits), "day");
    EXPECT_TRUE(state.SSRibbon1Pressed);
    EXPECT_EQ(state.WellGeoText[GeoDpor], "0");
    EXPECT_EQ(NameAt(TimeUnitNames, -1), "");
    EXPECT_EQ(NameAt(TimeUnitNames, 4), "");
}

TEST(OpenProjectFile, ARecognisedFileEmptiesTheKeptDetails) {
    Analysis analysis = Small();
    PrepareComputation(analysis);
    EXPECT_FALSE(ComputeAndKeep(analysis).IsError());
    const ReadReport missing = OpenProjectFile("/absent-quarnel-file", analysis);
    EXPECT_EQ(missing.messages, std::vector<std::string>{"53 File not found"});
    EXPECT_TRUE(analysis.details.isFilled);
    EXPECT_TRUE(analysis.computed.KIsComputed);
    const std::string example = std::string(QUARNEL_SOURCE_DIR) + "/examples/every-field.qn2";
    EXPECT_TRUE(OpenProjectFile(example, analysis).messages.empty());
    EXPECT_FALSE(analysis.details.isFilled);
    ExpectNothingComputed(analysis.computed);
    EXPECT_EQ(KLine(analysis.state, analysis.computed), "");
}

TEST(CheckDataShowYs, ChecksComputesAndMarks) {
    Analysis analysis = Small();
    analysis.state.IgnoreKeyList = {"152.0"};
    EXPECT_EQ(CheckDataShowYs(analysis).message, "");
    EXPECT_EQ(analysis.computed.Criteria[1].View(), "Ignore");
    EXPECT_EQ(analysis.computed.RecoveryPoints->front().y, 2.5);
    analysis.state.RecDatGrid[1].level = "-2";
    EXPECT_EQ(CheckDataShowYs(analysis).status, ComputationStatus::Warning);
    analysis.state.RecDatGrid[1].level = "x";
    EXPECT_EQ(CheckDataShowYs(analysis).message,
              "Recovery data in row 2 cannot be evaluated as a number. Please re-enter.");
    EXPECT_TRUE(analysis.computed.Criteria.empty());
}

TEST(ComputationDetails, KeepsTheLinesOfTheComputation) {
    Analysis analysis = Small();
    analysis.state.IgnoreKeyList = {"152.0"};
    analysis.state.WellGeoText = {"32.5", " 19.8 ", "9.8", "8.25", "2.067", "27.5"};
    analysis.state.RecDatTimeUnitsDDL = Minute;
    PrepareComputation(analysis);
    EXPECT_FALSE(ComputeAndKeep(analysis).IsError());
    const ComputationDetails& details = analysis.details;
    EXPECT_TRUE(details.isFilled);
    EXPECT_EQ(details.hLine, "H: 32.5 ft");
    EXPECT_EQ(details.lwLine, "Lw: 19.8 ft");
    EXPECT_EQ(details.leLine, "Le: 9.8 ft");
    EXPECT_EQ(details.dwLine, "dw: 8.25 in");
    EXPECT_EQ(details.rwLine, "rw: 4.13 in");
    EXPECT_EQ(details.dcLine, "dc: 2.067 in");
    EXPECT_EQ(details.rcLine, "rc: 1.03 in");
    EXPECT_EQ(details.porosityLine, "Drained Filter Pack Porosity (%): 27.5");
    EXPECT_EQ(details.reLine, "Effective Radius (re): 2.335313 in");
    EXPECT_EQ(details.leOverRwLine, "Le/rw: 28.5");
    EXPECT_EQ(details.aLine, "A: 2.38");
    EXPECT_EQ(details.bLine, "B: 0.343");
    EXPECT_EQ(details.cLine, "C: 1.93");
    EXPECT_EQ(details.lnReOverRwLine, "Ln(Re/rw): " + analysis.computed.lnReOverRwText);
    EXPECT_EQ(details.timeHeading, "Time (min)");
    EXPECT_EQ(details.yHeading, "Y(ft)");
    EXPECT_EQ(details.fitYHeading, "Fit Y(ft)");
    EXPECT_EQ(details.criteriaHeading, "Fit Criteria");
    EXPECT_EQ(details.slugTestTypeLine, "Slug Test Type: Not Applicable");
    EXPECT_EQ(details.dataTypeLine, "Recovery Data Type: Y: Change in Head ");
    EXPECT_EQ(details.staticLevelLine, "Static Water Level: Not Applicable");
    EXPECT_EQ(details.coefficientMessage, "");
    EXPECT_EQ(details.used, (std::vector<std::uint8_t>{1, 0, 1, 1, 1, 1}));
    EXPECT_EQ(details.slopeLine.substr(0, 8), "Slope: -");
    EXPECT_EQ(details.interceptLine.substr(0, 11), "Intercept: ");
    EXPECT_EQ(KLine(analysis.state, analysis.computed),
              "Hydraulic Conductivity: " + ComputedKText(analysis.state, analysis.computed) +
                  " m/day");
}

TEST(ComputationDetails, NamesTheLevelOfDepthsAndHeads) {
    Analysis analysis = Small();
    analysis.state.RecDatDataTypeDDL = GroundwaterHead;
    analysis.state.RecDatSlugTestTypeDDL = FallingHead;
    analysis.state.RecDatPreSlugHeadText = " -7.50";
    analysis.state.RecDatWaterLevelUnitsDDL = Metre;
    PrepareComputation(analysis);
    EXPECT_FALSE(ComputeAndKeep(analysis).IsError());
    EXPECT_EQ(analysis.details.slugTestTypeLine, "Slug Test Type: Falling head ");
    EXPECT_EQ(analysis.details.dataTypeLine, "Recovery Data Type: H: Groundwater Head ");
    EXPECT_EQ(analysis.details.staticLevelLine, "Static Water Level: -7.50 m");
    EXPECT_EQ(analysis.details.dataTypeLetter, "H");
}

TEST(ComputationDetails, FittedYIsInTheEnteredUnit) {
    Analysis analysis = Small();
    analysis.state.RecDatGrid = {{"0", "2"}, {"10", "1"}, {"1e6", "0.5"}};
    analysis.state.IgnoreKeyList = {"1e60.5"};
    PrepareComputation(analysis);
    EXPECT_FALSE(ComputeAndKeep(analysis).IsError());
    EXPECT_DOUBLE_EQ(FittedY(analysis.details, 0), 2);
    EXPECT_DOUBLE_EQ(FittedY(analysis.details, 1), 1);
    EXPECT_EQ(FittedYText(analysis.details, 0), "2.0");
    EXPECT_EQ(FittedYText(analysis.details, 1), "1.0");
    EXPECT_EQ(FittedY(analysis.details, 2), 0);
    EXPECT_EQ(FittedYText(analysis.details, 2), "0.00e+0");
}

TEST(ComputeAndKeep, AnErrorLeavesTheKeptDetails) {
    Analysis analysis = Small();
    PrepareComputation(analysis);
    EXPECT_FALSE(ComputeAndKeep(analysis).IsError());
    const std::string slope = analysis.details.slopeLine;
    analysis.computed.Criteria.assign(6, "Ignore");
    EXPECT_TRUE(ComputeAndKeep(analysis).IsError());
    EXPECT_EQ(analysis.details.slopeLine, slope);
    EXPECT_EQ(KLine(analysis.state, analysis.computed), "");
}

} // namespace
} // namespace quarnel
