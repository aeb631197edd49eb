#include "compare/TestRecord.h"

#include "project/TextColumns.h"
#include "tests/CoreTestSupport.h"
#include "tests/compare/RecordTestSupport.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

namespace quarnel {

namespace {

std::string Kept(const std::string& name) {
    std::ifstream file(test::SourceFolder() + "/tests/compare/golden/" + name + ".record",
                       std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string ExamplePath(const std::string& name) {
    return test::SourceFolder() + "/examples/" + name + ".qn2";
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

bool HasLine(const std::string& text, const std::string& line) {
    const std::vector<std::string> lines = LinesOf(text);
    return std::find(lines.begin(), lines.end(), "  " + line) != lines.end();
}

/// The text of a record without its line ends and what they set in.
std::string Unbroken(std::string text) {
    for (std::size_t at = text.find("\n    "); at != std::string::npos; at = text.find("\n    "))
        text.replace(at, 5, " ");
    return text;
}

/// Where each of these stands in the text, one behind the other; says which one does not.
void ExpectInOrder(const std::string& text, const std::vector<std::string>& parts) {
    std::size_t at = 0;
    for (const std::string& part : parts) {
        const std::size_t found = text.find(part, at);
        ASSERT_NE(found, std::string::npos) << part;
        at = found + part.size();
    }
}

} // namespace

TEST(TestRecord, IsTheKeptOneOfPrattCounty) {
    EXPECT_EQ(test::RecordOf(test::AnalysedFile(ExamplePath("pratt-county-1998"))),
              Kept("pratt-county-1998"));
}

TEST(TestRecord, IsTheKeptOneWithEveryField) {
    EXPECT_EQ(test::RecordOf(test::AnalysedFile(ExamplePath("every-field"))), Kept("every-field"));
}

TEST(TestRecord, IsTheKeptOneWithNoField) {
    EXPECT_EQ(test::RecordOf(test::AnalysedState({})), Kept("no-field"));
}

TEST(TestRecord, HoldsItsSectionsAndLinesInTheirOrder) {
    ExpectInOrder(Unbroken(test::RecordOf(test::AnalysedFile(ExamplePath("every-field")))),
                  {"Record of the slug test\n",
                   "Café-Tankstelle",
                   "12, Rue de l’Été",
                   "Société Générique",
                   "Eau & Sol Ingénierie",
                   "Well label: MW-3",
                   "Test date: 04/12/2024",
                   "Tested by: Jürgen Müßig, ",
                   "Analysed by: François Lefèvre",
                   "\n\nWell\n",
                   "H (water table to impervious bottom): 32.5 ft",
                   "Lw (",
                   "Le (",
                   "dw (",
                   "dc (",
                   "dpor (drained filter pack porosity): 27.5 %",
                   "rc (",
                   "rw (",
                   "re (",
                   "Screen: at the water table\n",
                   "Construction log (number, date): ......",
                   "Development (date, method): ......",
                   "\n\nTest\n",
                   "Slug test type: Rising head\n",
                   "Data type: D: Depth to Groundwater\n",
                   "Pre-slug level: ",
                   "Static level measured (date, time, by): ......",
                   "Method of start (slug, bail, air): ......",
                   "Slug volume (L): 1.5 L",
                   "Expected first change in head: ......",
                   "Observed first change in head: 2.71 ft",
                   "No slug volume: the initial change in head cannot be checked.",
                   "Sensor, range, interval: ......",
                   "Reference point and its elevation: ......",
                   "\n\nReadings\n",
                   "Number of readings: ",
                   "First time: 0 min",
                   "Last time: ",
                   "Reading step: 0.024 ft",
                   "Time (min)    D(ft)               Fit Criteria   Y(ft)          Fit Y(ft)\n",
                   "0             10.030              Ignore          2.71          2.36\n",
                   "\n\nAnalysis\n",
                   "Bouwer and Rice (1976)",
                   "Bouwer (1989)",
                   "A: 2.38 (partially",
                   "B: 0.343",
                   "Ln(Re/rw): 2.16",
                   "Slope: -3.52e-3",
                   "Intercept: 4.28",
                   "Points used: ",
                   "normalized head Y/H0 from ",
                   "K: 0.388 m/day",
                   "K, 95 % interval: ",
                   "K, 95 % interval, adjusted: ",
                   std::string(IntervalNote),
                   "Hvorslev (1951): ",
                   "Normalized head  Points  K (m/day)",
                   "All valid",
                   "As marked",
                   "\n\nChecks\n",
                   "ACCURACY",
                   "Departures from the procedure: ......",
                   "Prepared by: ......",
                   "  Date: ......",
                   "Reviewed by: ......",
                   "  Date: ......",
                   "Signature: ......"});
}

TEST(TestRecord, ReadsAsOneHundredColumnsOfTextWithoutAPath) {
    for (const char* name : {"pratt-county-1998", "every-field"}) {
        const std::string text = test::RecordOf(test::AnalysedFile(ExamplePath(name)));
        EXPECT_EQ(text.find('\r'), std::string::npos);
        EXPECT_EQ(text.back(), '\n');
        EXPECT_EQ(text.find(test::SourceFolder()), std::string::npos);
        for (const std::string& line : LinesOf(text)) {
            EXPECT_LE(CharacterCount(line), 100U) << line;
            EXPECT_FALSE(line.ends_with(' ')) << line;
        }
    }
}

TEST(TestRecord, BreaksLongTextsAndKeepsControlCharactersOut) {
    ProjectState state = test::SmallProject();
    state.SiteIDText[SiteName] = std::string(300, 'x');
    state.SiteIDText[ClientName] = "a\tb\x1b[31m";
    const std::string text = test::RecordOf(test::AnalysedState(state));
    for (const std::string& line : LinesOf(text))
        EXPECT_LE(CharacterCount(line), 100U) << line;
    EXPECT_EQ(text.find('\t'), std::string::npos);
    EXPECT_EQ(text.find('\x1b'), std::string::npos);
    EXPECT_NE(text.find("Client: a\xEF\xBF\xBD"), std::string::npos);
}

TEST(TestRecord, FullyPenetratingWellNamesC) {
    ProjectState state = test::SmallProject();
    state.WellGeoText[GeoH] = state.WellGeoText[GeoLw];
    const std::string text = test::RecordOf(test::AnalysedState(state));
    EXPECT_NE(text.find("(fully penetrating well)"), std::string::npos);
    EXPECT_EQ(text.find("  A: "), std::string::npos);
    EXPECT_EQ(text.find("  B: "), std::string::npos);
}

TEST(TestRecord, SlugVolumeGivesTheExpectedChangeAndTheVerdict) {
    ProjectState state = test::SmallProject();
    state.VolumeOfSlugText = "1.5";
    const std::string text = Unbroken(test::RecordOf(test::AnalysedState(state)));
    EXPECT_TRUE(HasLine(text, "Expected first change in head: 2.43 ft")) << text;
    EXPECT_TRUE(HasLine(text, "Observed first change in head: 2.5 ft")) << text;
    EXPECT_NE(text.find("(1.03 times). They agree."), std::string::npos) << text;
}

TEST(TestRecord, WithoutAKItTellsTheReasonAndTheReadingsAsTyped) {
    ProjectState state = test::SmallProject();
    state.RecDatGrid[1].level = CellText("abc");
    const test::AnalysedProject project = test::AnalysedState(state);
    const std::string text = Unbroken(test::RecordOf(project));
    EXPECT_TRUE(HasLine(text, "K was not computed."));
    ASSERT_EQ(project.messages.size(), 1U);
    EXPECT_NE(text.find("  " + project.messages.front() + "\n"), std::string::npos) << text;
    EXPECT_TRUE(HasLine(text, "Number of readings: 6"));
    EXPECT_TRUE(HasLine(text, "15            abc"));
    EXPECT_NE(text.find("  H (water table to impervious bottom): 32.5 ft\n"), std::string::npos);
    EXPECT_NE(text.find("  rc (radius of casing): ......"), std::string::npos);
}

TEST(TestRecord, TheWarningOfAClampedRatioStandsOnce) {
    ProjectState state = test::SmallProject();
    state.WellGeoText[GeoLe] = "1";
    const test::AnalysedProject project = test::AnalysedState(state);
    const std::string text = Unbroken(test::RecordOf(project));
    ASSERT_EQ(project.messages.size(), 1U);
    const std::size_t first = text.find(project.messages.front());
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(text.find(project.messages.front(), first + 1), std::string::npos);
    EXPECT_NE(text.find("Caution LE_RW_END: "), std::string::npos);
}

} // namespace quarnel
