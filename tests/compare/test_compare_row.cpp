#include "compare/CompareLines.h"
#include "compare/CompareRow.h"
#include "tests/compare/CompareTestSupport.h"
#include "tests/diagnostics/DiagnosticsTestSupport.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace quarnel::test {

namespace {

namespace fs = std::filesystem;

/// A test with an empty folder of its own.
class CompareRowTest : public testing::Test {
protected:
    CompareRowTest() {
        std::string name = (fs::temp_directory_path() / "compare-XXXXXX").string();
        folder_ = mkdtemp(name.data());
    }
    ~CompareRowTest() override { fs::remove_all(folder_); }

    std::string Path(const std::string& name) const { return (folder_ / name).string(); }
    std::string Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(Path(name), std::ios::binary) << bytes;
        return Path(name);
    }
    std::string Write(const std::string& name, const ProjectState& state) const {
        return Write(name, ProjectFileText(state).text);
    }

    fs::path folder_;
};

CompareRow Read(const std::string& path, const CompareKeep& keep = {}) {
    PathResolver paths;
    return ReadCompareRow(path, ".", keep, paths);
}

std::vector<std::string> Names(const std::vector<CheckId>& checks) {
    std::vector<std::string> names;
    for (const CheckId check : checks)
        names.emplace_back(CheckName(check));
    return names;
}

} // namespace

TEST_F(CompareRowTest, PrattCountyIsTheRowOfItsDiagnostics) {
    ProjectState state = PrattProject();
    state.SiteIDText[SiteName] = "  Pratt County ";
    state.WellTestIDTxt[WellLabel] = " Well 4 ";
    state.WellTestIDTxt[TestDate] = " 1998 ";
    const CompareRow row = Read(Write("a.qn2", state));
    EXPECT_TRUE(row.isRead);
    EXPECT_EQ(row.failure, "");
    EXPECT_EQ(row.siteName, "Pratt County");
    EXPECT_EQ(row.wellLabel, "Well 4");
    EXPECT_EQ(row.testDate, "1998");
    EXPECT_EQ(row.slugTestType, "Not Applicable");
    EXPECT_EQ(row.usedCount, 3U);
    EXPECT_EQ(row.pointCount, std::optional<std::size_t>(61));
    EXPECT_EQ(row.kText, "3.6");
    EXPECT_EQ(row.kLengthUnit, Metre);
    EXPECT_EQ(row.kTimeUnit, Day);
    const ComputationPtr computation = ComputationOf(state);
    EXPECT_EQ(row.kCmPerSec, std::optional<double>(computation->KInCmPerSec));
    EXPECT_EQ(row.slopePerSec, std::optional<double>(computation->line.slope));
    Diagnostics diagnostics = DiagnosticsOf(state);
    const StatisticsPage& page = diagnostics.Statistics();
    EXPECT_EQ(row.firstYCm, std::optional<double>(page.firstYCm));
    EXPECT_EQ(row.headMax, std::optional<double>(page.greatestUsedHead));
    EXPECT_EQ(row.headMin, std::optional<double>(page.leastUsedHead));
    EXPECT_EQ(row.halfWidthKind, HalfWidthKind::Plain); // of three points
    EXPECT_EQ(row.halfWidthPercent, std::optional<double>(100 * *page.fit.scatter->halfWidth));
    EXPECT_EQ(Names(row.cautions), std::vector<std::string>{});
    EXPECT_EQ(Names(row.notes), (std::vector<std::string>{"ACCURACY", "H0_SCREEN", "FEW_POINTS"}));
    EXPECT_TRUE(row.points.empty());
    EXPECT_TRUE(row.noteTexts.empty());
}

TEST_F(CompareRowTest, FromSixPointsTheIntervalIsTheAdjustedOne) {
    const ProjectState state = PrattProjectAll();
    const CompareRow row = Read(Write("a.qn2", state));
    Diagnostics diagnostics = DiagnosticsOf(state);
    EXPECT_EQ(row.halfWidthKind, HalfWidthKind::Adjusted);
    EXPECT_EQ(row.halfWidthPercent,
              std::optional<double>(
                  100 * *diagnostics.Statistics().fit.autocorrelation->adjustedHalfWidth));
}

TEST_F(CompareRowTest, TextsOfTheRow) {
    const std::vector<CompareRow> rows = {Read(Write("a.qn2", PrattProject()))};
    const Comparison comparison = CompareRows(rows, {CompareUnit{Foot, Day}, Grouping::Well});
    EXPECT_EQ(CompareHeadings(comparison),
              (std::array<std::string, CompareColumnCount>{
                  "No.", "Well", "Date", "Test", "Used", "First Y (ft)", "K (ft/day)", "K as shown",
                  "+- %", "Range", "Remarks", "File"}));
    EXPECT_EQ(CompareTexts(rows[0], comparison, 0),
              (std::array<std::string, CompareColumnCount>{
                  "1", "Well 4", "", "Not Applicable", "3 of 61", "2.18", "11.8", "3.6 m/day",
                  "28.2", "0.29-0.21", "3 notes", "a.qn2"}));
    EXPECT_EQ(CompareToolTip(rows[0], comparison.rows[0], CompareFile), Path("a.qn2"));
    EXPECT_EQ(CompareToolTip(rows[0], comparison.rows[0], CompareWell), "");
}

TEST_F(CompareRowTest, RemarksCountCautionsAndNotes) {
    CompareRow row = RowWithK("MW-1", 1);
    ComparedRow compared;
    const auto remarks = [&] {
        Comparison comparison;
        comparison.rows = {compared};
        return CompareTexts(row, comparison, 0)[CompareRemarks];
    };
    EXPECT_EQ(remarks(), "");
    row.notes = {CheckId::Accuracy};
    EXPECT_EQ(remarks(), "1 note");
    row.cautions = {CheckId::Tail};
    EXPECT_EQ(remarks(), "1 caution, 1 note");
    row.cautions = {CheckId::Tail, CheckId::CurvedUp};
    row.notes.clear();
    EXPECT_EQ(remarks(), "2 cautions");
    compared.reason = "K is not greater than 0.";
    EXPECT_EQ(remarks(), "K is not greater than 0.");
}

TEST_F(CompareRowTest, SentencesAreKeptWhereTheyAreWanted) {
    const CompareRow row =
        Read(Write("a.qn2", PrattProject()), {.points = false, .remarkTexts = true});
    ASSERT_EQ(row.noteTexts.size(), row.notes.size());
    EXPECT_EQ(row.noteTexts[2], "Only 3 readings are used.");
    ComparedRow compared;
    EXPECT_EQ(CompareToolTip(row, compared, CompareRemarks),
              row.noteTexts[0] + "\n" + row.noteTexts[1] + "\n" + row.noteTexts[2]);
}

TEST_F(CompareRowTest, DepthHeadAndChangeGiveTheSameTest) {
    // One recovery: 50 cm above a static depth of 300 cm, as depths, heads and changes.
    std::vector<CompareRow> rows;
    for (const int type : {DepthToGroundwater, GroundwaterHead, ChangeInHead}) {
        std::vector<double> times;
        std::vector<double> levels;
        for (int i = 0; i < 8; ++i) {
            const double y = std::round(5000 * std::exp(-0.1 * i)) / 100;
            times.push_back(i * 10);
            levels.push_back(type == DepthToGroundwater ? 300 + y
                             : type == GroundwaterHead  ? 300 - y
                                                        : y);
        }
        ProjectState state = ProjectOf(times, levels);
        state.RecDatDataTypeDDL = type;
        state.RecDatSlugTestTypeDDL = RisingHead;
        if (type != ChangeInHead)
            state.RecDatPreSlugHeadText = "300";
        rows.push_back(Read(Write(std::to_string(type) + ".qn2", state)));
        EXPECT_NEAR(rows.back().kCmPerSec.value_or(0), rows.front().kCmPerSec.value_or(1),
                    1e-12 * rows.front().kCmPerSec.value_or(1));
        EXPECT_NEAR(rows.back().firstYCm.value_or(0), 50, 1e-9);
    }
    EXPECT_EQ(rows[0].slugTestType, "Rising head");
    EXPECT_EQ(rows[1].slugTestType, "Rising head");
    EXPECT_EQ(rows[2].slugTestType, "Not Applicable");
}

TEST_F(CompareRowTest, FourUnitsOfOneTestAreOneK) {
    std::vector<CompareRow> rows;
    for (int unit = Inch; unit <= Metre; ++unit) {
        ProjectState state = PrattProject();
        state.CmboKLengthUnits = unit;
        state.CmboKTimeUnits = unit;
        rows.push_back(Read(Write(std::to_string(unit) + ".qn2", state)));
    }
    const Comparison comparison = CompareRows(rows, {});
    EXPECT_EQ(NameOf(comparison.unit), "in/sec");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(comparison.rows[i].k, comparison.rows[0].k);
        EXPECT_EQ(CompareTexts(rows[i], comparison, i)[CompareK], rows[0].kText);
    }
    EXPECT_NE(rows[3].kText, rows[0].kText);
}

TEST_F(CompareRowTest, ARisingLineHasAKThatDoesNotCount) {
    ProjectState state = ProjectOf({0, 10, 20, 30}, {10, 11, 12, 13});
    const std::vector<CompareRow> rows = {Read(Write("a.qn2", state))};
    EXPECT_LT(rows[0].kCmPerSec.value_or(1), 0);
    EXPECT_FALSE(rows[0].halfWidthPercent.has_value());
    const Comparison comparison = CompareRows(rows, {});
    EXPECT_EQ(comparison.rows[0].status, CompareStatus::NotCounted);
    EXPECT_EQ(comparison.rows[0].reason, "K is not greater than 0.");
    EXPECT_NE(CompareTexts(rows[0], comparison, 0)[CompareK], "-");
}

TEST_F(CompareRowTest, WithoutReadingsTheRowSaysWhatTheComputationSaid) {
    ProjectState state = PrattProject();
    state.RecDatGrid.clear();
    const std::vector<CompareRow> rows = {Read(Write("a.qn2", state))};
    EXPECT_TRUE(rows[0].isRead);
    EXPECT_FALSE(rows[0].pointCount.has_value());
    const Comparison comparison = CompareRows(rows, {});
    EXPECT_EQ(comparison.rows[0].reason, "No recovery data has been entered.");
    const auto texts = CompareTexts(rows[0], comparison, 0);
    for (const CompareColumn column :
         {CompareUsed, CompareFirstY, CompareK, CompareKAsShown, CompareHalfWidth, CompareRange})
        EXPECT_EQ(texts[column], "-") << column;
}

TEST_F(CompareRowTest, AWarningBeforeTheErrorIsNotTheReason) {
    ProjectState state = ProjectOf({0, 10}, {10, -1});
    EXPECT_EQ(Read(Write("a.qn2", state)).failure,
              "Less than 2 valid (Y>0) data points have been selected (Use) for parameter "
              "estimation. Hydraulic conductivity cannot be estimated.");
}

TEST_F(CompareRowTest, DamagedMissingAndFolderAreRows) {
    std::string text = ProjectFileText(PrattProject()).text;
    text.resize(text.size() / 2);
    const CompareRow damaged = Read(Write("cut.qn2", text));
    EXPECT_TRUE(damaged.isRead);
    EXPECT_EQ(damaged.failure, "62 Input past end of file");
    fs::create_directory(Path("folder.qn2"));
    const std::vector<CompareRow> rows = {
        Read(Path("missing.qn2")), Read(Path("none/a.qn2")), Read(Path("folder.qn2")),
        Read(Write("empty.qn2", std::string())), Read(Write("junk.qn2", "junk\n"))};
    const Comparison comparison = CompareRows(rows, {});
    const std::vector<std::string> reasons = {
        "53 File not found", "76 Path not found", "75 Path/File access error",
        "62 Input past end of file",
        "The file selected does not appear to be a QUARNEL input file."};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_FALSE(rows[i].isRead);
        EXPECT_EQ(comparison.rows[i].status, CompareStatus::Failed);
        EXPECT_EQ(comparison.rows[i].reason, "The file could not be read: " + reasons[i]);
    }
}

TEST_F(CompareRowTest, TwoPathsToOneFileAreOne) {
    Write("a.qn2", PrattProject());
    fs::create_symlink("a.qn2", Path("link.qn2"));
    fs::create_directory_symlink(".", Path("here"));
    const std::vector<CompareRow> rows = {Read(Path("a.qn2")),        Read(Path("link.qn2")),
                                          Read(Path("here/./a.qn2")), Read(Path("here/a.qn2")),
                                          Read(Path("missing.qn2")),  Read(Path("./missing.qn2"))};
    const Comparison comparison = CompareRows(rows, {});
    for (const std::size_t repeated : {1U, 2U, 3U, 5U})
        EXPECT_EQ(comparison.rows[repeated].reason, "The file stands above already.") << repeated;
    EXPECT_EQ(comparison.rows[0].status, CompareStatus::Counted);
    EXPECT_EQ(comparison.rows[4].status, CompareStatus::Failed);
}

TEST_F(CompareRowTest, PointsAreTheValidOnesOfTheTest) {
    ProjectState state = ProjectOf({0, 10, 20, 30, 40}, {10, 8, -1, 4, 2});
    state.IgnoreKeyList = {"108"};
    const CompareRow row = Read(Write("a.qn2", state), {.points = true});
    ASSERT_EQ(row.points.size(), 4U);
    const std::vector<double> times = {0, 10, 30, 40};
    const std::vector<double> heads = {1, 0.8, 0.4, 0.2};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(row.points[i].timeSec, times[i]);
        EXPECT_NEAR(row.points[i].lnHead, std::log(heads[i]), 1e-15);
        EXPECT_EQ(row.points[i].used, i != 1);
    }
}

TEST_F(CompareRowTest, OfManyPointsTheFirstOfEachStepIsKept) {
    for (const int count : {1999, 2000, 2001, 50000}) {
        std::vector<double> times;
        std::vector<double> levels;
        for (int i = 0; i < count; ++i) {
            times.push_back(i);
            levels.push_back(std::round(100000 * std::exp(-3.0 * i / count)) / 1000);
        }
        const CompareRow row = Read(Write("a.qn2", ProjectOf(times, levels)), {.points = true});
        EXPECT_EQ(row.points.size(), std::min<std::size_t>(2000, static_cast<std::size_t>(count)));
        EXPECT_EQ(row.points.front().timeSec, 0);
        for (std::size_t i = 0; count == 50000 && i < row.points.size(); ++i)
            EXPECT_EQ(row.points[i].timeSec, std::ceil(double(i) * 49999 / 2000)) << i;
    }
}

TEST(CompareSortTest, NumbersSortByValueAndDashesHaveNone) {
    const std::vector<CompareRow> rows = {RowWithK("MW-1", 2), RowWithoutK("MW-1", "?")};
    const Comparison comparison = CompareRows(rows, {});
    EXPECT_EQ(CompareSortValue(rows[0], comparison, 0, CompareNumber), std::optional<double>(1));
    EXPECT_EQ(CompareSortValue(rows[1], comparison, 1, CompareNumber), std::optional<double>(2));
    EXPECT_EQ(CompareSortValue(rows[0], comparison, 0, CompareK), comparison.rows[0].k);
    EXPECT_EQ(CompareSortValue(rows[0], comparison, 0, CompareUsed), std::optional<double>(3));
    for (std::size_t column = CompareUsed; column <= CompareRange; ++column)
        EXPECT_FALSE(CompareSortValue(rows[1], comparison, 1, column).has_value()) << column;
}

} // namespace quarnel::test
