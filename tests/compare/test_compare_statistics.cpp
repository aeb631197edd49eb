#include "compare/CompareLines.h"
#include "tests/compare/CompareTestSupport.h"
#include "tests/diagnostics/WorkedCases.h"

namespace quarnel::test {

namespace {

using Names = std::vector<std::string>;

Comparison Compared(const std::vector<CompareRow>& rows, Grouping grouping = Grouping::Well,
                    std::optional<CompareUnit> unit = std::nullopt) {
    return CompareRows(rows, {unit, grouping});
}

Names Texts(const std::vector<CompareLine>& lines) {
    Names texts;
    for (const CompareLine& line : lines)
        texts.push_back(line.text);
    return texts;
}

double CmPerSec(double metresPerDay) {
    return metresPerDay * 100 / SecPerDay;
}

} // namespace

TEST(CompareStatisticsTest, WorkedCases) {
    for (const std::string id : {"compare_statistics", "compare_one"}) {
        const WorkedCase worked = ReadWorkedCase(id);
        const auto statistics =
            ComputeKStatistics(NumbersOf(worked.input.get_child("k_m_per_day")));
        ASSERT_TRUE(statistics.has_value());
        EXPECT_EQ(static_cast<double>(statistics->n),
                  std::stod(worked.expected.get<std::string>("n")));
        for (const auto& [key, value] :
             {std::pair("geometric_mean", statistics->geometricMean),
              std::pair("arithmetic_mean", statistics->arithmeticMean),
              std::pair("minimum", statistics->minimum), std::pair("maximum", statistics->maximum),
              std::pair("maximum_over_minimum", statistics->maximumOverMinimum)})
            ExpectWorked(value, worked.expected.get_child(key), id + " " + key);
        ExpectWorked(statistics->sdLog10, worked.expected.get_child("sd_log10"), id);
    }
    EXPECT_FALSE(ComputeKStatistics({}).has_value());
}

TEST(CompareStatisticsTest, LinesOfNoneOneTwoAndThreeTests) {
    const CompareRow none = RowWithoutK("MW-0", "No recovery data has been entered.");
    const std::vector<CompareRow> rows = {none,
                                          RowWithK("MW-1", CmPerSec(3.5)),
                                          RowWithK("MW-2", CmPerSec(1)),
                                          RowWithK("MW-2", CmPerSec(4)),
                                          RowWithK("MW-3", CmPerSec(3), 50),
                                          RowWithK("MW-3", CmPerSec(3), 100),
                                          RowWithK("MW-3", CmPerSec(3), 50)};
    EXPECT_EQ(Texts(CompareLines(Compared(rows))),
              (Names{"MW-0: No test is counted.",
                     "MW-1: 1 of 1 tests counted; geometric mean 3.5 m/day, arithmetic mean 3.5, "
                     "from 3.5 to 3.5 (1.0 times), SD of log10 K -.",
                     "MW-2: 2 of 2 tests counted; geometric mean 2.0 m/day, arithmetic mean 2.5, "
                     "from 1.0 to 4.0 (4.0 times), SD of log10 K 0.43.",
                     "3 tests or more are recommended; here are 2.",
                     "The first changes in head differ by less than a factor of 2 (1.0): "
                     "dependence on head cannot be seen.",
                     "K differs by up to 100.0 % from the geometric mean of the 2 tests.",
                     "MW-3: 3 of 3 tests counted; geometric mean 3.0 m/day, arithmetic mean 3.0, "
                     "from 3.0 to 3.0 (1.0 times), SD of log10 K 0.00.",
                     "The 3 tests agree within 10 % over first changes in head from 0.5 to 1.0 m.",
                     "All: 6 of 7 tests counted; geometric mean 2.69 m/day, arithmetic mean 2.92, "
                     "from 1.0 to 4.0 (4.0 times), SD of log10 K 0.22.",
                     "Agreement does not rule out a skin around the screen."}));
}

TEST(CompareStatisticsTest, OneGroupHasNoLineOfAll) {
    const Comparison comparison = Compared({RowWithK("MW-1", 1)});
    const auto lines = CompareLines(comparison);
    // One test agrees with no other: nothing is said of a skin.
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(comparison.all->n, 1U);
    EXPECT_EQ(Texts(CompareLines(comparison, std::array<std::size_t, 1>{0})), Texts(lines));
}

TEST(CompareStatisticsTest, NoRowsGiveNoLines) {
    const Comparison comparison = Compared({});
    EXPECT_EQ(Texts(CompareLines(comparison)), Names{});
    EXPECT_FALSE(comparison.all.has_value());
}

TEST(CompareStatisticsTest, TheNoteStandsBelowRepeatedTestsAlone) {
    const Comparison comparison = Compared({RowWithK("MW-1", 1), RowWithK("MW-2", 1),
                                            RowWithK("MW-2", 1), RowWithK("", 1), RowWithK("", 1)});
    const auto endsInNote = [&comparison](std::initializer_list<std::size_t> groups) {
        const std::vector<std::size_t> chosen = groups;
        return CompareLines(comparison, chosen).back().text == SkinNote;
    };
    EXPECT_FALSE(endsInNote({0}));
    EXPECT_TRUE(endsInNote({1}));
    EXPECT_TRUE(endsInNote({1, 0}));
    EXPECT_FALSE(endsInNote({2})); // nobody knows whether they are of one well
    EXPECT_EQ(CompareLines(comparison).back().text, SkinNote);
}

TEST(CompareStatisticsTest, KNotAboveZeroStaysInTheTableOnly) {
    const Comparison comparison =
        Compared({RowWithK("MW-1", -1e-9), RowWithK("MW-1", 0), RowWithK("MW-1", 1e-300)});
    for (const std::size_t row : {0U, 1U}) {
        EXPECT_EQ(comparison.rows[row].status, CompareStatus::NotCounted);
        EXPECT_EQ(comparison.rows[row].reason, "K is not greater than 0.");
    }
    EXPECT_EQ(comparison.rows[2].status, CompareStatus::Counted);
    EXPECT_EQ(comparison.groups[0].tests.size(), 3U);
    EXPECT_EQ(comparison.groups[0].statistics->n, 1U);
}

TEST(CompareStatisticsTest, FailedRowsSayWhy) {
    const Comparison comparison =
        Compared({RowWithoutK("MW-1", "H is missing."), RowNotRead("53 File not found")});
    EXPECT_EQ(comparison.rows[0].status, CompareStatus::Failed);
    EXPECT_EQ(comparison.rows[0].reason, "H is missing.");
    EXPECT_EQ(comparison.rows[0].group, std::optional<std::size_t>(0));
    EXPECT_EQ(comparison.rows[1].status, CompareStatus::Failed);
    EXPECT_EQ(comparison.rows[1].reason, "The file could not be read: 53 File not found");
    EXPECT_FALSE(comparison.rows[1].group.has_value());
    EXPECT_EQ(comparison.testCount, 1U);
    EXPECT_FALSE(comparison.all.has_value());
}

TEST(CompareStatisticsTest, WhatADamagedFileLacksIsSaidThoughItCounts) {
    CompareRow row = RowWithK("MW-1", 1);
    row.failure = "62 Input past end of file";
    const Comparison comparison = Compared({row});
    EXPECT_EQ(comparison.rows[0].status, CompareStatus::Counted);
    EXPECT_EQ(comparison.rows[0].reason, "62 Input past end of file");
}

TEST(CompareStatisticsTest, ARepeatedPathFillsItsRowAndIsNotCounted) {
    const CompareRow row = RowWithK("MW-1", 1);
    CompareRow other = row;
    other.file = "link.qn2";
    const Comparison comparison = Compared({row, row, other, RowWithK("MW-1", 2)});
    EXPECT_EQ(comparison.rows[0].status, CompareStatus::Counted);
    for (const std::size_t repeated : {1U, 2U}) {
        EXPECT_EQ(comparison.rows[repeated].status, CompareStatus::NotCounted);
        EXPECT_EQ(comparison.rows[repeated].reason, "The file stands above already.");
        EXPECT_EQ(comparison.rows[repeated].group, std::optional<std::size_t>(0));
        EXPECT_TRUE(comparison.rows[repeated].k.has_value());
    }
    EXPECT_EQ(comparison.groups[0].tests, (std::vector<std::size_t>{0, 3}));
    EXPECT_EQ(comparison.groups[0].counted, (std::vector<std::size_t>{0, 3}));
}

TEST(CompareStatisticsTest, LabelsDifferByMoreThanCase) {
    const Comparison comparison =
        Compared({RowWithK("Br\xC3\xBC"
                           "cke 1",
                           1),
                  RowWithK("MW-1", 1),
                  RowWithK("BR\xC3\x9C"
                           "CKE 1",
                           2),
                  RowWithK("mw-1", 3), RowWithK("MW 1", 1), RowWithK("", 1), RowWithK("", 2)});
    EXPECT_EQ(GroupNames(comparison), (Names{"Br\xC3\xBC"
                                             "cke 1",
                                             "MW-1", "MW 1", "(no well label)"}));
    EXPECT_EQ(comparison.groups[0].counted.size(), 2U);
    EXPECT_EQ(comparison.groups[1].counted, (std::vector<std::size_t>{1, 3}));
}

TEST(CompareStatisticsTest, TestsWithoutALabelAreNotCheckedAgainstEachOther) {
    const Comparison comparison =
        Compared({RowWithK("", 1), RowWithK("", 2), RowWithK("MW-1", 1), RowWithK("MW-1", 1)});
    EXPECT_FALSE(comparison.groups[0].repeats.has_value());
    EXPECT_TRUE(comparison.groups[1].repeats.has_value());
    EXPECT_FALSE(
        Compared({RowWithK("MW-1", 1), RowWithK("MW-1", 2)}, Grouping::None).groups[0].repeats);
}

TEST(CompareStatisticsTest, SitesTellWellsOfOneLabelApart) {
    std::vector<CompareRow> rows = {RowWithK("MW-1", 1), RowWithK("mw-1", 1), RowWithK("MW-1", 1),
                                    RowWithK("", 1), RowWithK("MW-1", 1)};
    rows[0].siteName = "North";
    rows[1].siteName = "NORTH";
    rows[2].siteName = "South";
    rows[3].siteName = "South";
    EXPECT_EQ(GroupNames(Compared(rows, Grouping::Site)),
              (Names{"North / MW-1", "South / MW-1", "South / (no well label)",
                     "(no site name) / MW-1"}));
    EXPECT_EQ(GroupNames(Compared(rows, Grouping::None)), Names{"All"});
}

TEST(CompareStatisticsTest, AWellNamedAsOneWithoutALabelIsAnother) {
    EXPECT_EQ(GroupNames(Compared({RowWithK("", 1), RowWithK("(no well label)", 1)})),
              (Names{"(no well label)", "(no well label)"}));
}

TEST(CompareStatisticsTest, TheUnitIsThatOfTheFirstRowWithAK) {
    std::vector<CompareRow> rows = {RowWithoutK("MW-1", "?"), RowWithK("MW-1", 1),
                                    RowWithK("MW-1", 1), RowWithK("MW-1", 1)};
    rows[1].kLengthUnit = -1; // nothing chosen
    rows[2].kLengthUnit = Foot;
    rows[2].kTimeUnit = Minute;
    EXPECT_EQ(NameOf(Compared(rows).unit), "ft/min");
    EXPECT_EQ(Compared(rows).rows[3].k, std::optional<double>(60 * 1.0 * (1 / 30.48)));
    EXPECT_EQ(NameOf(Compared(rows, Grouping::Well, CompareUnit{Inch, Hour}).unit), "in/hr");
    EXPECT_EQ(NameOf(Compared({RowWithoutK("MW-1", "?")}).unit), "m/day");
}

TEST(CompareStatisticsTest, UnitsAreKnownByName) {
    for (const std::string_view length : LengthUnitNames)
        for (const std::string_view time : TimeUnitNames) {
            const std::string name = std::string(length) + "/" + std::string(time);
            const auto unit = CompareUnitNamed(name);
            ASSERT_TRUE(unit.has_value()) << name;
            EXPECT_EQ(NameOf(*unit), name);
        }
    for (const std::string_view wrong :
         {"", "/", "m", "m/", "/day", "day/m", "M/day", "m/day ", "m / day", "km/day", "m/week"})
        EXPECT_FALSE(CompareUnitNamed(wrong).has_value()) << wrong;
}

} // namespace quarnel::test
