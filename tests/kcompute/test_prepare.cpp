// From a project to K: the order of the checks, what an error leaves behind, what is kept.

#include "kcompute/Analysis.h"
#include "tests/SourceFolder.h"

#include "kcompute/ComputationDetails.h"
#include "kcompute/ComputeK.h"
#include "kcompute/KText.h"
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
    EXPECT_EQ(analysis.working.recovery.RecoveryPoints->size(), 6U);
    EXPECT_EQ(analysis.working.recovery.ValidYCount, 6);
    EXPECT_GT(analysis.working.coefficients.lnReOverRw, 0);
    EXPECT_EQ(analysis.working.marks.size(), 6U);
    EXPECT_EQ(analysis.working.marks[1], Mark::Ignore);
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
    EXPECT_TRUE(analysis.working.recovery.RecoveryPoints->empty());
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

TEST(PrepareComputation, NothingOfAnEarlierCheckSurvives) {
    Analysis analysis = Small();
    PrepareComputation(analysis);
    analysis.state.WellGeoText[GeoH] = "";
    PrepareComputation(analysis);
    EXPECT_EQ(analysis.working.geometry.H.text, "");
    EXPECT_EQ(analysis.working.geometry.re, 0);
    EXPECT_EQ(analysis.working.geometry.reText, "");
    EXPECT_EQ(analysis.working.coefficients.aText, "");
    EXPECT_EQ(analysis.working.coefficients.lnReOverRw, 0);
    EXPECT_TRUE(analysis.working.recovery.RecoveryPoints->empty());
    EXPECT_TRUE(analysis.working.marks.empty());
}

TEST(PrepareComputation, LeavesTheComputationAsItIs) {
    Analysis analysis = Small();
    PrepareComputation(analysis);
    EXPECT_FALSE(Compute(analysis).IsError());
    const ComputationPtr computation = analysis.computation;
    const std::string text = SummaryText(analysis.state, computation.get());
    analysis.state.RecDatGrid = {{"1", "1"}, {"2", "x"}};
    PrepareComputation(analysis);
    EXPECT_EQ(analysis.computation, computation);
    EXPECT_EQ(SummaryText(analysis.state, computation.get()), text);
    EXPECT_EQ(computation->recovery.RecoveryPoints->size(), 6U);
    analysis.state.WellGeoText[GeoH] = "";
    PrepareComputation(analysis);
    EXPECT_EQ(analysis.computation, computation);
    EXPECT_EQ(SummaryText(analysis.state, computation.get()), text);
}

TEST(ClearComputedValues, EmptiesEveryValue) {
    Analysis analysis = Small();
    PrepareComputation(analysis);
    ClearComputedValues(analysis.working);
    const WellDimensions& well = analysis.working.geometry;
    const BouwerRiceValues& values = analysis.working.coefficients;
    const RecoveryData& recovery = analysis.working.recovery;
    for (const std::string& text :
         {well.H.text, well.Lw.text, well.Le.text, well.dw.text, well.dc.text, well.dporText,
          well.reText, values.leOverRwText, values.aText, values.bText, values.cText,
          values.lnReOverRwText, values.message, recovery.preSlugText})
        EXPECT_EQ(text, "");
    for (const double number :
         {well.H.cm, well.Lw.value, well.dw.radius, well.dc.radiusCm, well.n, well.re, well.reCm,
          values.leOverRw, values.A, values.B, values.C, values.lnReOverRw})
        EXPECT_EQ(number, 0);
    EXPECT_TRUE(recovery.RecoveryPoints->empty());
    EXPECT_TRUE(analysis.working.marks.empty());
    EXPECT_EQ(recovery.ValidYCount, 0);
}

TEST(ClearComputedValues, LeavesThePointsOfTheComputationAlone) {
    Analysis analysis = Small();
    PrepareComputation(analysis);
    EXPECT_FALSE(Compute(analysis).IsError());
    ClearComputedValues(analysis.working);
    const RecoveryPointList& points = *analysis.computation->recovery.RecoveryPoints;
    EXPECT_EQ(points.size(), 6U);
    analysis.state.RecDatGrid = {{"1", "9"}};
    CheckDataShowYs(analysis);
    EXPECT_EQ(points.size(), 6U);
    EXPECT_EQ(points.front().level, 2.5);
    EXPECT_EQ(analysis.working.recovery.RecoveryPoints->size(), 1U);
}

TEST(SharedPoints, ChangingSharedPointsLeavesTheOthersAlone) {
    SharedPoints points;
    points.Renew(2).resize(2);
    const SharedPoints kept = points;
    points.Change()[0].y = 5;
    EXPECT_EQ((*kept)[0].y, 0);
    EXPECT_EQ((*points)[0].y, 5);
    // Alone, nothing is copied.
    const RecoveryPoint* first = points->data();
    points.Change()[1].y = 6;
    EXPECT_EQ(points->data(), first);
    EXPECT_EQ(points.Renew(2).data(), first);
}

TEST(CheckDataShowYs, NothingOfThePointsBeforeStaysInMemoryUsedAgain) {
    Analysis analysis = Small();
    EXPECT_EQ(CheckDataShowYs(analysis).message, "");
    analysis.state.RecDatGrid = {{"1", "-1"}, {"2", "-2"}};
    CheckDataShowYs(analysis);
    ASSERT_EQ(analysis.working.recovery.RecoveryPoints->size(), 2U);
    for (const RecoveryPoint& point : *analysis.working.recovery.RecoveryPoints) {
        EXPECT_EQ(point.Log10Y(), 0);
        EXPECT_EQ(point.lnYCm, 0);
        EXPECT_FALSE(point.YIsValid());
    }
    EXPECT_EQ(analysis.working.marks.size(), 2U);
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
    analysis.file.CurrentProjectFile = "/data/a.qn2";
    analysis.file.isWhole = true;
    analysis.state.DecimalSeparator = ",";
    PrepareComputation(analysis);
    Compute(analysis);
    ResetAnalysis(analysis);
    ProjectState expected;
    for (std::size_t i = 11; i <= 17; ++i)
        expected.SiteIDText[i] = "text " + std::to_string(i);
    EXPECT_EQ(test::Dump(analysis.state), test::Dump(expected));
    EXPECT_EQ(analysis.state.RecDatGrid.size(), 50U);
    EXPECT_EQ(analysis.file.CurrentProjectFile, "");
    EXPECT_FALSE(analysis.file.isWhole);
    EXPECT_EQ(analysis.state.DecimalSeparator, ",");
    EXPECT_EQ(analysis.computation, nullptr);
    EXPECT_TRUE(analysis.working.recovery.RecoveryPoints->empty());
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

TEST(OpenProjectFile, ARecognisedFileDropsTheComputation) {
    Analysis analysis = Small();
    PrepareComputation(analysis);
    EXPECT_FALSE(Compute(analysis).IsError());
    const ReadReport missing = OpenProjectFile("/absent-quarnel-file", analysis);
    EXPECT_EQ(missing.messages, std::vector<std::string>{"53 File not found"});
    EXPECT_NE(analysis.computation, nullptr);
    EXPECT_NE(analysis.computation, nullptr);
    const std::string example = test::SourceFolder() + "/examples/every-field.qn2";
    EXPECT_TRUE(OpenProjectFile(example, analysis).messages.empty());
    EXPECT_EQ(analysis.computation, nullptr);
    EXPECT_EQ(KLine(analysis.state, analysis.computation.get()), "");
}

TEST(CheckDataShowYs, ChecksComputesAndMarks) {
    Analysis analysis = Small();
    analysis.state.IgnoreKeyList = {"152.0"};
    EXPECT_EQ(CheckDataShowYs(analysis).message, "");
    EXPECT_EQ(analysis.working.marks[1], Mark::Ignore);
    EXPECT_EQ(analysis.working.recovery.RecoveryPoints->front().y, 2.5);
    analysis.state.RecDatGrid[1].level = "-2";
    EXPECT_EQ(CheckDataShowYs(analysis).status, ComputationStatus::Warning);
    analysis.state.RecDatGrid[1].level = "x";
    EXPECT_EQ(CheckDataShowYs(analysis).message,
              "Recovery data in row 2 cannot be evaluated as a number. Please re-enter.");
    EXPECT_TRUE(analysis.working.marks.empty());
}

TEST(ComputationLines, AreThoseOfTheComputation) {
    Analysis analysis = Small();
    analysis.state.IgnoreKeyList = {"152.0"};
    analysis.state.WellGeoText = {"32.5", " 19.8 ", "9.8", "8.25", "2.067", "27.5"};
    analysis.state.RecDatTimeUnitsDDL = Minute;
    PrepareComputation(analysis);
    EXPECT_FALSE(Compute(analysis).IsError());
    const ComputationLines lines(*analysis.computation);
    EXPECT_EQ(lines.h, "H: 32.5 ft");
    EXPECT_EQ(lines.lw, "Lw: 19.8 ft");
    EXPECT_EQ(lines.le, "Le: 9.8 ft");
    EXPECT_EQ(lines.dw, "dw: 8.25 in");
    EXPECT_EQ(lines.rw, "rw: 4.13 in");
    EXPECT_EQ(lines.dc, "dc: 2.067 in");
    EXPECT_EQ(lines.rc, "rc: 1.03 in");
    EXPECT_EQ(lines.porosity, "Drained Filter Pack Porosity (%): 27.5");
    EXPECT_EQ(lines.re, "Effective Radius (re): 2.335313 in");
    EXPECT_EQ(lines.leOverRw, "Le/rw: 28.5");
    EXPECT_EQ(lines.a, "A: 2.38");
    EXPECT_EQ(lines.b, "B: 0.343");
    EXPECT_EQ(lines.c, "C: 1.93");
    EXPECT_EQ(lines.lnReOverRw, "Ln(Re/rw): " + analysis.working.coefficients.lnReOverRwText);
    EXPECT_EQ(lines.slugTestType, "Slug Test Type: Not Applicable");
    EXPECT_EQ(lines.dataType, "Recovery Data Type: Y: Change in Head ");
    EXPECT_EQ(lines.staticLevel, "Static Water Level: Not Applicable");
    EXPECT_EQ(lines.coefficientWarning, "");
    EXPECT_EQ(lines.slope.substr(0, 8), "Slope: -");
    EXPECT_EQ(lines.intercept.substr(0, 11), "Intercept: ");
    EXPECT_EQ(analysis.computation->usedCount, 5);
    EXPECT_EQ(analysis.computation->marks[1], Mark::Ignore);
    EXPECT_EQ(KLine(analysis.state, analysis.computation.get()),
              "Hydraulic Conductivity: " +
                  ShowComputedK(analysis.state, analysis.computation.get()) + " m/day");
}

TEST(ComputationLines, NameTheLevelOfDepthsAndHeads) {
    Analysis analysis = Small();
    analysis.state.RecDatDataTypeDDL = GroundwaterHead;
    analysis.state.RecDatSlugTestTypeDDL = FallingHead;
    analysis.state.RecDatPreSlugHeadText = " -7.50";
    analysis.state.RecDatWaterLevelUnitsDDL = Metre;
    PrepareComputation(analysis);
    EXPECT_FALSE(Compute(analysis).IsError());
    const ComputationLines lines(*analysis.computation);
    EXPECT_EQ(lines.slugTestType, "Slug Test Type: Falling head ");
    EXPECT_EQ(lines.dataType, "Recovery Data Type: H: Groundwater Head ");
    EXPECT_EQ(lines.staticLevel, "Static Water Level: -7.50 m");
}

TEST(PointHeadings, FollowTheListsOnlyBeforeAComputation) {
    Analysis analysis = Small();
    analysis.state.RecDatTimeUnitsDDL = Minute;
    PrepareComputation(analysis);
    EXPECT_FALSE(Compute(analysis).IsError());
    analysis.state.RecDatTimeUnitsDDL = Hour;
    analysis.state.RecDatWaterLevelUnitsDDL = Centimetre;
    analysis.state.RecDatDataTypeDDL = GroundwaterHead;
    const PointHeadings made(analysis.state, analysis.computation.get());
    EXPECT_EQ(made.time, "Time (min)");
    EXPECT_EQ(made.reading, "Y(ft)");
    EXPECT_EQ(made.y, "Y(ft)");
    EXPECT_EQ(made.fitY, "Fit Y(ft)");
    EXPECT_EQ(made.criteria, "Fit Criteria");
    const PointHeadings before(analysis.state, nullptr);
    EXPECT_EQ(before.time, "Time (hr)");
    EXPECT_EQ(before.reading, "H(cm)");
    EXPECT_EQ(before.y, "Y(cm)");
    EXPECT_EQ(before.fitY, "Fit Y(cm)");
}

TEST(FittedY, IsInTheEnteredUnit) {
    Analysis analysis = Small();
    analysis.state.RecDatGrid = {{"0", "2"}, {"10", "1"}, {"1e6", "0.5"}};
    analysis.state.IgnoreKeyList = {"1e60.5"};
    PrepareComputation(analysis);
    EXPECT_FALSE(Compute(analysis).IsError());
    EXPECT_DOUBLE_EQ(FittedY(*analysis.computation, 0), 2);
    EXPECT_DOUBLE_EQ(FittedY(*analysis.computation, 1), 1);
    EXPECT_EQ(FittedYText(*analysis.computation, 0), "2.0");
    EXPECT_EQ(FittedYText(*analysis.computation, 1), "1.0");
    EXPECT_EQ(FittedY(*analysis.computation, 2), 0);
    EXPECT_EQ(FittedYText(*analysis.computation, 2), "0.00e+0");
}

TEST(Compute, AnErrorLeavesNoComputation) {
    Analysis analysis = Small();
    PrepareComputation(analysis);
    EXPECT_FALSE(Compute(analysis).IsError());
    analysis.working.marks.assign(6, Mark::Ignore);
    EXPECT_TRUE(Compute(analysis).IsError());
    EXPECT_EQ(analysis.computation, nullptr);
    EXPECT_EQ(KLine(analysis.state, analysis.computation.get()), "");
    EXPECT_EQ(SummaryText(analysis.state, analysis.computation.get()), "");
}

} // namespace
} // namespace quarnel
