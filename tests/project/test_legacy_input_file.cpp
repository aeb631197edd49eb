// Importing an old positional input file.

#include "project/Files.h"

#include "tests/CoreTestSupport.h"

#include <gtest/gtest.h>

namespace quarnel {
namespace {

using Messages = std::vector<std::string>;
const Messages PastEnd = {"62 Input past end of file"};
const Messages Mismatch = {"13 Type mismatch"};

/// The ten kinds of line, each to be replaced by a case.
struct Lines {
    std::string title = "  Corner Fuel Stop MW-3 ";
    std::string client = " Client ";
    std::string job = " Job 7 ";
    std::string label = " MW-3 ";
    std::string heading = " H Le Lw rc rw n";
    std::string geometry = "12.5,10,11,1,4.125,0.3";
    std::string ignored = "anything";
    std::string count = "3";
    std::string columns = "Time (min) Y (ft) Weight";
    std::string rows = "0,2.5,1\r\n15 2.25 0\r\n30\t2\t1.0\r\n";

    std::string Text() const {
        std::string text;
        for (const std::string* line :
             {&title, &client, &job, &label, &heading, &geometry, &ignored, &count, &columns})
            text += *line + "\r\n";
        return text + rows;
    }
};

struct Opened {
    ProjectState state;
    ReadReport report;
};

Opened Open(const std::string& text) {
    Opened opened;
    opened.report = OpenProjectBytes(text, opened.state);
    return opened;
}

std::string Rows(const ProjectState& state) {
    std::string rows;
    for (const RecoveryRow& row : state.RecDatGrid)
        if (!row.time.empty() || !row.level.empty())
            rows += row.time.ToString() + "|" + row.level.ToString() + ";";
    return rows;
}

TEST(LegacyInputFile, FillsEveryFieldFromItsPlace) {
    const auto [state, report] = Open(Lines().Text());
    EXPECT_EQ(report.format, FileFormat::Legacy);
    EXPECT_EQ(report.messages, Messages{});
    ProjectState expected;
    expected.PlotText[0] = "Corner Fuel Stop MW-3";
    expected.SiteIDText[ClientName] = "Client";
    expected.SiteIDText[ClientJobNumber] = "Job 7";
    expected.WellTestIDTxt[WellLabel] = "MW-3";
    expected.WellGeoText = {"12.5", "11", "10", "8.25", "2", "30"};
    expected.WellGeoVertUnitsDDL = Foot;
    expected.WellGeoRadUnitsDDL = Foot;
    expected.RecDatWaterLevelUnitsDDL = Foot;
    expected.RecDatTimeUnitsDDL = Minute;
    expected.CmboKTimeUnits = Minute;
    expected.CmboKLengthUnits = Metre;
    expected.RecDatDataTypeDDL = ChangeInHead;
    expected.RecDatSlugTestTypeDDL = RisingHead;
    expected.RecDatGrid = {{"0", "2.5"}, {"15", "2.25"}, {"30", "2"}};
    expected.IgnoreKeyList = {"152.25"};
    EXPECT_EQ(test::Dump(state), test::Dump(expected));
    EXPECT_EQ(state.RecDatGrid.size(), 50U);
    EXPECT_EQ(state.PlotText[0], "Corner Fuel Stop MW-3");
    EXPECT_EQ(state.WellTestIDTxt[WellLabel], "MW-3");
}

// So the first save over it keeps its bytes beside it.
TEST(LegacyInputFile, IsNeverWholeAsAProject) {
    const auto opened = Open(Lines().Text());
    EXPECT_EQ(opened.report.messages, Messages{});
    EXPECT_FALSE(IsWhole(opened.report));
}

TEST(LegacyInputFile, ClearsTheProjectAsNewDoes) {
    ProjectState state = test::SmallProject();
    state.SiteIDText[SiteName] = "old";
    state.SiteIDText[ConsultantName] = "our firm";
    state.RecDatPreSlugHeadText = "7";
    state.IgnoreKeyList = {"old"};
    state.PlotText[2] = "old";
    OpenProjectBytes(Lines().Text(), state);
    EXPECT_EQ(state.SiteIDText[SiteName], "");
    EXPECT_EQ(state.SiteIDText[ConsultantName], "our firm");
    EXPECT_EQ(state.RecDatPreSlugHeadText, "");
    EXPECT_EQ(state.IgnoreKeyList, std::vector<std::string>{"152.25"});
    EXPECT_EQ(state.PlotText[2], "");
}

TEST(LegacyInputFile, NumbersBecomeTheirShortTexts) {
    Lines lines;
    lines.geometry = "1e1 0.25 .5 0.000005 1.05e3 0.29";
    const ProjectState state = Open(lines.Text()).state;
    const std::array<std::string, 6> expected = {"10", "0.5", "0.25", "2100", "1E-05", "29"};
    EXPECT_EQ(state.WellGeoText, expected);
}

TEST(LegacyInputFile, TextsUseTheLocalesSeparator) {
    ProjectState state;
    state.DecimalSeparator = ",";
    OpenProjectBytes(Lines().Text(), state);
    const std::array<std::string, 6> expected = {"12,5", "11", "10", "8,25", "2", "30"};
    EXPECT_EQ(state.WellGeoText, expected);
    EXPECT_EQ(Rows(state), "0|2,5;15|2,25;30|2;");
    EXPECT_EQ(state.IgnoreKeyList, std::vector<std::string>{"152,25"});
}

TEST(LegacyInputFile, SixNumbersMayStandOnSeveralLines) {
    Lines lines;
    lines.geometry = "12.5, 10\r\n11\t1\r\n\r\n4.125 , 0.3 and a remark";
    const auto [state, report] = Open(lines.Text());
    EXPECT_EQ(report.messages, Messages{});
    EXPECT_EQ(state.WellGeoText[GeoDpor], "30");
    EXPECT_EQ(Rows(state), "0|2.5;15|2.25;30|2;");
}

TEST(LegacyInputFile, WordsAfterTheRowCountArePassedOver) {
    Lines lines;
    lines.count = "  3  rows, as read by the logger";
    const auto [state, report] = Open(lines.Text());
    EXPECT_EQ(report.messages, Messages{});
    EXPECT_EQ(state.RecDatTimeUnitsDDL, Minute);
    EXPECT_EQ(Rows(state), "0|2.5;15|2.25;30|2;");
}

TEST(LegacyInputFile, TimeUnitFromTheHeading) {
    struct Case {
        std::string_view columns;
        int unit;
    };
    for (const Case& c :
         {Case{"(sec)", Second}, Case{"t(min)", Minute}, Case{"(hr)x", Hour}, Case{"(day)", Day},
          Case{"none", Second}, Case{"", Second}, Case{"(SEC) (MIN)", Second},
          Case{"(day)(hr)(min)(sec)", Second}, Case{"(day)(hr)(min)", Minute},
          Case{"(day)(hr)", Hour}, Case{"sec min", Second}, Case{"( min )", Second}}) {
        Lines lines;
        lines.columns = c.columns;
        const ProjectState state = Open(lines.Text()).state;
        EXPECT_EQ(state.RecDatTimeUnitsDDL, c.unit) << c.columns;
        EXPECT_EQ(state.CmboKTimeUnits, c.unit) << c.columns;
    }
}

TEST(LegacyInputFile, LengthUnitFromTheHeading) {
    struct Case {
        std::string_view columns;
        int unit;
    };
    for (const Case& c :
         {Case{"(ft)", Foot}, Case{"(in)", Inch}, Case{"(m)", Metre}, Case{"(cm)", Centimetre},
          Case{"none", Foot}, Case{"(cm)(m)(in)(ft)", Foot}, Case{"(cm)(m)(in)", Inch},
          Case{"(cm)(m)", Metre}, Case{"(min)", Foot}, Case{"(M)", Foot}}) {
        Lines lines;
        lines.columns = c.columns;
        const ProjectState state = Open(lines.Text()).state;
        EXPECT_EQ(state.WellGeoVertUnitsDDL, c.unit) << c.columns;
        EXPECT_EQ(state.WellGeoRadUnitsDDL, c.unit) << c.columns;
        EXPECT_EQ(state.RecDatWaterLevelUnitsDDL, c.unit) << c.columns;
        EXPECT_EQ(state.CmboKLengthUnits, Metre) << c.columns;
    }
}

TEST(LegacyInputFile, AWeightBelowOneIsAnIgnoredPoint) {
    Lines lines;
    lines.count = "6";
    lines.rows = "1 10 0\n2 20 1\n3 30 0.999999\n4 40 1.5\n5 50 -1\n6 60 1.0\n";
    const auto [state, report] = Open(lines.Text());
    EXPECT_EQ(state.IgnoreKeyList, (std::vector<std::string>{"110", "330", "550"}));
}

TEST(LegacyInputFile, KeysUseTheTextsOfTheGrid) {
    Lines lines;
    lines.count = "1";
    lines.rows = "15.00 +02.250 0\n";
    const ProjectState state = Open(lines.Text()).state;
    EXPECT_EQ(Rows(state), "15|2.25;");
    EXPECT_EQ(state.IgnoreKeyList, std::vector<std::string>{"152.25"});
}

TEST(LegacyInputFile, RowsBeyondTheCountAreLeft) {
    Lines lines;
    lines.count = "1";
    EXPECT_EQ(Rows(Open(lines.Text()).state), "0|2.5;");
    for (const char* none : {"0", "-3"}) {
        lines.count = none;
        const auto [state, report] = Open(lines.Text());
        EXPECT_EQ(Rows(state), "") << none;
        EXPECT_EQ(report.messages, Messages{}) << none;
        EXPECT_EQ(state.RecDatTimeUnitsDDL, Minute) << none;
    }
}

TEST(LegacyInputFile, FortyRowsMakeAGridOfSixtyFive) {
    Lines lines;
    lines.count = "40";
    lines.rows.clear();
    for (int i = 0; i < 40; ++i)
        lines.rows += std::to_string(i) + " 1 1\r\n";
    EXPECT_EQ(Open(lines.Text()).state.RecDatGrid.size(), 65U);
}

TEST(LegacyInputFile, FewerRowsThanAnnouncedAreKeptWithTheirMarks) {
    for (const char* count : {"4", "2147483648", "1e300"}) {
        Lines lines;
        lines.count = count;
        const auto [state, report] = Open(lines.Text());
        EXPECT_EQ(Rows(state), "0|2.5;15|2.25;30|2;") << count;
        EXPECT_EQ(state.IgnoreKeyList, std::vector<std::string>{"152.25"}) << count;
        EXPECT_EQ(report.messages, PastEnd) << count;
    }
}

TEST(LegacyInputFile, ARowCutInTheMiddleKeepsItsPiece) {
    struct Case {
        std::string_view rows, kept;
    };
    for (const Case& c :
         {Case{"0 2.5 1\n15 2.25", "0|2.5;15|2.25;"}, Case{"0 2.5 1\n15", "0|2.5;15|;"},
          Case{"0 2.5 1\n", "0|2.5;"}, Case{"", ""}}) {
        Lines lines;
        lines.rows = c.rows;
        const auto [state, report] = Open(lines.Text());
        EXPECT_EQ(Rows(state), c.kept) << c.rows;
        EXPECT_TRUE(state.IgnoreKeyList.empty()) << c.rows;
        EXPECT_EQ(report.messages, PastEnd) << c.rows;
    }
}

TEST(LegacyInputFile, AWordInTheRowsEndsTheImport) {
    struct Case {
        std::string_view rows, kept;
    };
    for (const Case& c :
         {Case{"0 2.5 1\nx 2 1\n3 1 1\n", "0|2.5;"}, Case{"0 2.5 1\n15 y 1\n3 1 1\n", "0|2.5;15|;"},
          Case{"0 2.5 1\n15 2 z\n3 1 1\n", "0|2.5;15|2;"}, Case{"0,,1\n1 1 1\n2 2 1\n", "0|;"}}) {
        Lines lines;
        lines.rows = c.rows;
        const auto [state, report] = Open(lines.Text());
        EXPECT_EQ(Rows(state), c.kept) << c.rows;
        EXPECT_EQ(report.messages, Mismatch) << c.rows;
    }
}

TEST(LegacyInputFile, TheSixNumbersAreTakenAllOrNone) {
    struct Case {
        std::string_view geometry;
        const Messages& messages;
    };
    for (const Case& c : {Case{"12.5,10,11,1,x,0.3", Mismatch}, Case{"x", Mismatch},
                          Case{"12.5,10,11,1,4.125,", Mismatch}, Case{"1,2,,4,5,6", Mismatch}}) {
        Lines lines;
        lines.geometry = c.geometry;
        const auto [state, report] = Open(lines.Text());
        EXPECT_EQ(state.WellGeoText, ProjectState().WellGeoText) << c.geometry;
        EXPECT_EQ(report.messages, c.messages) << c.geometry;
        // The four texts of the first lines are there all the same.
        EXPECT_EQ(state.WellTestIDTxt[WellLabel], "MW-3");
        EXPECT_EQ(Rows(state), "");
    }
    const std::string cut = Lines().Text();
    const auto [state, report] = Open(cut.substr(0, cut.find(",0.3")));
    EXPECT_EQ(state.WellGeoText, ProjectState().WellGeoText);
    EXPECT_EQ(report.messages, PastEnd);
}

TEST(LegacyInputFile, ALengthThatDoublesBeyondADoubleIsAnOverflow) {
    for (const std::string_view geometry :
         {"1,1,1,1,9e307,0.3", "1,1,1,9e307,1,0.3", "1,1,1,1,1,1e307"}) {
        Lines lines;
        lines.geometry = geometry;
        const auto [state, report] = Open(lines.Text());
        EXPECT_EQ(report.messages, Messages{"6 Overflow"}) << geometry;
        EXPECT_EQ(state.WellGeoText, ProjectState().WellGeoText) << geometry;
    }
}

TEST(LegacyInputFile, ARowCountThatIsNotWholeIsAMismatch) {
    for (const char* count : {"2.5", "three", "\"3\"", "1e-3"}) {
        Lines lines;
        lines.count = count;
        const auto [state, report] = Open(lines.Text());
        EXPECT_EQ(report.messages, Mismatch) << count;
        EXPECT_EQ(Rows(state), "") << count;
        EXPECT_EQ(state.WellGeoText[GeoH], "12.5") << count;
    }
}

TEST(LegacyInputFile, AFileCutBeforeItsRowsSaysSo) {
    const std::string text = Lines().Text();
    for (const std::string_view last : {"0.3\r\n", "anything\r\n", "anything", "3\r\n"}) {
        const std::size_t end = text.find(last, text.find("0.3")) + last.size();
        const auto [state, report] = Open(text.substr(0, end));
        EXPECT_EQ(report.messages, PastEnd) << last;
        EXPECT_EQ(state.WellGeoText[GeoH], "12.5") << last;
    }
}

TEST(LegacyInputFile, ReadsWindows1252AndEveryLineEnd) {
    Lines lines;
    lines.title = "Caf\xE9";
    std::string text = lines.Text();
    EXPECT_EQ(Open(text).state.PlotText[0], "Café");
    std::erase(text, '\r');
    EXPECT_EQ(Rows(Open(text).state), "0|2.5;15|2.25;30|2;");
    std::replace(text.begin(), text.end(), '\n', '\r');
    EXPECT_EQ(Rows(Open(text).state), "0|2.5;15|2.25;30|2;");
}

TEST(LegacyInputFile, TheExampleIsTheProjectBesideIt) {
    ProjectState imported;
    ProjectState project;
    EXPECT_EQ(OpenProjectBytes(test::ReadExample("pratt-county-1998.in"), imported).messages,
              Messages{});
    EXPECT_EQ(OpenProjectBytes(test::ReadExample("pratt-county-1998.qn2"), project).messages,
              Messages{});
    ASSERT_EQ(imported.RecDatGrid.size(), project.RecDatGrid.size());
    for (std::size_t i = 0; i < imported.RecDatGrid.size(); ++i) {
        const RecoveryRow& a = imported.RecDatGrid[i];
        const RecoveryRow& b = project.RecDatGrid[i];
        EXPECT_EQ(ParseNumber(a.time), ParseNumber(b.time));
        EXPECT_EQ(ParseNumber(a.level), ParseNumber(b.level));
    }
    EXPECT_EQ(imported.WellGeoText,
              (std::array<std::string, 6>{"50.6", "20.11", "1.52", "0.25", "0.128", "0"}));
    EXPECT_EQ(imported.IgnoreKeyList.size(), project.IgnoreKeyList.size());
}

} // namespace
} // namespace quarnel
