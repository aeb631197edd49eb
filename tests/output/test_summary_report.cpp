#include "output/SummaryReport.h"
#include "tests/SourceFolder.h"

#include "kcompute/Analysis.h"
#include "project/Files.h"
#include "project/Texts.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace quarnel {

namespace {

std::string Example(const std::string& name) {
    return test::SourceFolder() + "/" + name;
}

std::string FileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

Analysis Computed(const std::string& example) {
    Analysis analysis;
    EXPECT_TRUE(OpenProjectFile(Example("examples/" + example), analysis).messages.empty());
    EXPECT_FALSE(PrepareComputation(analysis).result.IsError());
    EXPECT_FALSE(Compute(analysis).IsError());
    return analysis;
}

std::string Report(const Analysis& analysis) {
    return SummaryReportText(analysis.state, analysis.computation.get());
}

bool HasLine(const std::string& report, const std::string& line) {
    return ("\r\n" + report).find("\r\n" + line + "\r\n") != std::string::npos;
}

/// The lines from a heading to the next one of the report's blocks.
std::string Block(const std::string& report, const std::string& heading) {
    const std::size_t start = report.find("\r\n" + heading + "\r\n") + 2;
    return report.substr(start, report.find("    \r\n", start) - start);
}

} // namespace

TEST(SummaryReport, IsTheKeptOneForTheExamples) {
    for (const std::string name : {"pratt-county-1998", "every-field"}) {
        const std::string kept = FileText(Example("tests/output/golden/" + name + ".res"));
        ASSERT_FALSE(kept.empty());
        const Analysis analysis = Computed(name + ".qn2");
        EXPECT_EQ(ReportBytes(analysis.state, analysis.computation.get()), kept) << name;
    }
}

TEST(SummaryReport, UstNumberAloneHasAColonAndBehindALustNumberNone) {
    Analysis analysis;
    analysis.state.SiteIDText[UstNo] = "123";
    EXPECT_TRUE(HasLine(Report(analysis), "UST Registration No.: 123"));
    analysis.state.SiteIDText[LustNo] = "45";
    EXPECT_TRUE(HasLine(Report(analysis), "LUST No. 45    UST Registration No. 123"));
}

TEST(SummaryReport, EmptyBoxesGiveNoLinesButHeadingsAndSeparatorsStay) {
    const std::string report = Report(Analysis());
    EXPECT_EQ(report.substr(0, report.find("SLUG TEST\r\n")),
              "BOUWER-RICE SLUG TEST ANALYSIS\r\n    \r\n"
              "SITE\r\n    \r\nCLIENT\r\n    \r\nCONSULTANT\r\n    \r\n");
}

TEST(SummaryReport, BeforeAnyComputationItsLinesAreEmptyWithoutLabels) {
    const std::string report = Report(Analysis());
    EXPECT_EQ(report.substr(report.find("SLUG TEST\r\n")),
              "SLUG TEST\r\n\r\n    \r\n"
              "WELL GEOMETRY\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\nSlug Volume(L): \r\n    \r\n"
              "BOUWER-RICE COEFFICIENTS\r\n\r\n\r\n\r\n\r\n\r\n    \r\n"
              "LEAST SQUARES BEST FIT\r\nLn(Y)-cm versus Time-sec\r\n\r\n\r\n    \r\n"
              "\r\n\r\n\r\n    \r\n"
              "Time (sec)    D(ft)               Fit Criteria   Y(ft)          Fit Y(ft)\r\n");
}

TEST(SummaryReport, EveryTextOfTheIdentificationStandsInItsPlace) {
    Analysis analysis;
    for (std::size_t i = 0; i < analysis.state.SiteIDText.size(); ++i)
        analysis.state.SiteIDText[i] = " s" + std::to_string(i) + " ";
    for (std::size_t i = 0; i < analysis.state.WellTestIDTxt.size(); ++i)
        analysis.state.WellTestIDTxt[i] = "w" + std::to_string(i);
    const std::string report = Report(analysis);
    EXPECT_EQ(report.substr(0, report.find("WELL GEOMETRY")),
              "BOUWER-RICE SLUG TEST ANALYSIS\r\n    \r\n"
              "SITE\r\ns1\r\ns2\r\ns3, s4, s5\r\n"
              "LUST No. s0    UST Registration No. s18\r\n    \r\n"
              "CLIENT\r\ns6\r\ns7\r\ns8, s9, s10\r\nJob/Account: s19\r\n    \r\n"
              "CONSULTANT\r\ns15\r\ns14\r\ns13, s12, s11\r\n"
              "Certified Groundwater Professional: s16, s17\r\n    \r\n"
              "SLUG TEST\r\n\r\nMonitoring Well: w0\r\nTest Date: w1\r\n"
              "Field Testing by: w3, w4, w5\r\nTest Analysis by: w2\r\n    \r\n");
}

TEST(SummaryReport, BlankLinesAreFourBlanksButForTheThreeUnusedOnes) {
    const std::string report = Report(Computed("pratt-county-1998.qn2"));
    EXPECT_NE(report.find("Intercept: 4.15\r\n    \r\n\r\n\r\n\r\n    \r\nTime (sec)"),
              std::string::npos);
    std::size_t empty = 0;
    for (std::size_t at = report.find("\r\n\r\n"); at != std::string::npos;
         at = report.find("\r\n\r\n", at + 2))
        ++empty;
    EXPECT_EQ(empty, 3U);
}

TEST(SummaryReport, PlaceLineWithoutACityBeginsWithAComma) {
    Analysis analysis;
    analysis.state.SiteIDText[ClientState] = " Kansas ";
    analysis.state.SiteIDText[ClientZip] = "67124";
    EXPECT_TRUE(HasLine(Report(analysis), ", Kansas, 67124"));
}

TEST(SummaryReport, ProfessionalIsNamedByWhatIsThere) {
    Analysis analysis;
    analysis.state.SiteIDText[CertificationNo] = "17";
    EXPECT_TRUE(HasLine(Report(analysis), "Certified Groundwater Professional: 17"));
    analysis.state.SiteIDText[ProfessionalName] = "A. Rivers";
    EXPECT_TRUE(HasLine(Report(analysis), "Certified Groundwater Professional: A. Rivers, 17"));
}

TEST(SummaryReport, FieldTestersAreJoinedByCommas) {
    Analysis analysis;
    analysis.state.WellTestIDTxt[TestBy1] = "J. Smith";
    analysis.state.WellTestIDTxt[TestBy3] = " R. Doe ";
    EXPECT_TRUE(HasLine(Report(analysis), "Field Testing by: J. Smith, R. Doe"));
}

TEST(SummaryReport, SlugVolumeLineIsAlwaysThere) {
    EXPECT_TRUE(HasLine(Report(Analysis()), "Slug Volume(L): "));
    Analysis analysis;
    analysis.state.VolumeOfSlugText = "  1.5 ";
    EXPECT_TRUE(HasLine(Report(analysis), "Slug Volume(L): 1.5"));
}

TEST(SummaryReport, GeometryStandsInItsOrder) {
    EXPECT_EQ(Block(Report(Computed("pratt-county-1998.qn2")), "WELL GEOMETRY"),
              "WELL GEOMETRY\r\nH: 50.60 m\r\nLw: 20.11 m\r\nLe: 1.52 m\r\n"
              "dw: 0.25 m,  rw: 0.125 m\r\ndc: 0.128 m,  rc: 0.064 m\r\n"
              "Drained Filter Pack Porosity (%): 0\r\nEffective Radius (re): 0.064 m\r\n"
              "Slug Volume(L): \r\n");
}

TEST(SummaryReport, TableStandsAtItsColumns) {
    const std::string report = Report(Computed("pratt-county-1998.qn2"));
    const std::string heading = report.substr(report.find("Time (sec)"), 80);
    EXPECT_EQ(heading.find("Y(m)"), 14U);
    EXPECT_EQ(heading.find("Fit Criteria"), 34U);
    EXPECT_EQ(heading.find("Y(m)", 20), 49U);
    EXPECT_EQ(heading.find("Fit Y(m)"), 64U);
    EXPECT_TRUE(
        HasLine(report, "79.5          0.191               Use             0.191         0.191"));
}

TEST(SummaryReport, TextThatReachesTheNextColumnIsFollowedByOneBlank) {
    Analysis analysis;
    analysis.state.WellGeoText = {"10", "8", "5", "8", "2", "0"};
    analysis.state.RecDatDataTypeDDL = ChangeInHead;
    analysis.state.RecDatGrid[0] = {"0.00000000000", "2"};
    analysis.state.RecDatGrid[1] = {"10.000000000000000000", "1"};
    PrepareComputation(analysis);
    ASSERT_FALSE(Compute(analysis).IsError());
    const std::string report = Report(analysis);
    EXPECT_NE(report.find("\r\n0.00000000000 2 "), std::string::npos);
    EXPECT_NE(report.find("\r\n10.000000000000000000 1 "), std::string::npos);
}

TEST(SummaryReport, StaysThatOfTheComputationWhateverIsPreparedAfterwards) {
    Analysis analysis = Computed("pratt-county-1998.qn2");
    const std::string before = Report(analysis);
    analysis.state.RecDatTimeUnitsDDL = Minute;
    analysis.state.RecDatGrid[0].level = "99";
    PrepareComputation(analysis);
    EXPECT_EQ(Report(analysis), before);
}

TEST(SummaryReport, NeverJoinsOneWellWithAnothersNumbers) {
    Analysis analysis = Computed("pratt-county-1998.qn2");
    ResetAnalysis(analysis);
    analysis.state.WellTestIDTxt[WellLabel] = "MW-9";
    const std::string report = Report(analysis);
    EXPECT_TRUE(HasLine(report, "Monitoring Well: MW-9"));
    for (const char* text : {"3.6", "50.60", "-1.51", "79.5"})
        EXPECT_EQ(report.find(text), std::string::npos) << text;
}

TEST(SummaryReport, FollowsTheChosenUnitsOfK) {
    Analysis analysis = Computed("pratt-county-1998.qn2");
    analysis.state.CmboKLengthUnits = Centimetre;
    analysis.state.CmboKTimeUnits = Second;
    EXPECT_TRUE(HasLine(Report(analysis), "Hydraulic Conductivity: 0.00416 cm/sec"));
}

TEST(SummaryReport, BytesAreWindows1252WhereThatHoldsEveryCharacter) {
    Analysis analysis;
    analysis.state.SiteIDText[SiteName] = "Caf\u00e9";
    EXPECT_NE(ReportBytes(analysis.state, analysis.computation.get()).find("Caf\xE9\r\n"),
              std::string::npos);
    analysis.state.SiteIDText[SiteName] = "\u4e95";
    EXPECT_NE(ReportBytes(analysis.state, analysis.computation.get()).find("\u4e95\r\n"),
              std::string::npos);
}

} // namespace quarnel
