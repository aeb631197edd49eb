#include "compare/CarriedK.h"
#include "compare/CompareCsv.h"
#include "compare/CompareCsvColumns.h"
#include "compare/CompareLines.h"
#include "kcompute/NumberToText.h"
#include "project/CsvLine.h"
#include "project/CsvReader.h"
#include "project/PlainText.h"
#include "tests/CoreTestSupport.h"
#include "tests/compare/CompareTestSupport.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace quarnel::test {

namespace {

/// A row with numbers of all digits, so that none can come back by chance.
CompareRow RandomRow(Random& random) {
    const std::vector<std::string> labels = {"MW-1",
                                             "mw-1",
                                             "MW 2",
                                             "",
                                             "=1+1",
                                             "'=1+1",
                                             "a, \"b\"",
                                             "two\nlines",
                                             "Br\xC3\xBC"
                                             "cke"};
    CompareRow row = RowWithK(random.Pick(labels), 1);
    const auto number = [&random](double size) {
        return size * (1 + static_cast<double>(random.Below(1U << 30U)) / 3e9);
    };
    row.siteName = random.Pick(std::vector<std::string>{"North", "South / East", "(no site)", ""});
    row.testDate = random.OneIn(3) ? "" : "03/05/2024, noon";
    row.kCmPerSec = number(std::pow(10, random.Between(-9, 1)));
    row.kLengthUnit = random.Between(Inch, Metre);
    row.kTimeUnit = random.Between(Second, Day);
    const double own = KInUnit(*row.kCmPerSec, {row.kLengthUnit, row.kTimeUnit});
    row.kText = NumberToText(ThreeFigures, static_cast<float>(own));
    row.firstYCm = number(50);
    row.headMax = number(0.3);
    row.headMin = number(0.1);
    if (!random.OneIn(4))
        row.halfWidthPercent = number(20);
    row.halfWidthKind = random.OneIn(2) ? HalfWidthKind::Adjusted : HalfWidthKind::Plain;
    if (random.OneIn(3))
        row.cautions = {CheckId::LeRwEnd, CheckId::FewPoints};
    row.notes = {CheckId::Accuracy};
    return row;
}

/// Rows of every kind.
std::vector<CompareRow> RandomRows(Random& random, std::size_t count) {
    std::vector<CompareRow> rows;
    for (std::size_t i = 0; i < count; ++i) {
        rows.push_back(RandomRow(random));
        if (random.OneIn(8))
            rows.push_back(RowWithoutK("MW-1", "No recovery data has been entered."));
        if (random.OneIn(8))
            rows.push_back(RowNotRead("53 File not found"));
        if (random.OneIn(8))
            rows.push_back(random.Pick(rows));
        if (random.OneIn(8))
            rows.back().failure = "62 Input past end of file";
        if (random.OneIn(10) && rows.back().kCmPerSec) {
            rows.back().kCmPerSec = -*rows.back().kCmPerSec;
            rows.back().kText.insert(0, "-");
        }
    }
    for (CompareRow& row : rows)
        row.resolvedFile = ResolvedPath(row.file);
    return rows;
}

std::vector<std::string> LinesOf(const Comparison& comparison) {
    std::vector<std::string> texts;
    for (const CompareLine& line : CompareLines(comparison))
        texts.push_back(line.text);
    return texts;
}

std::vector<CompareRow> Joined(const std::vector<CompareRow>& rows, std::size_t shards,
                               const CompareSettings& settings) {
    std::vector<CompareRow> joined;
    const std::size_t size = (rows.size() + shards - 1) / shards;
    for (std::size_t first = 0; first < rows.size(); first += size) {
        const std::span<const CompareRow> part =
            std::span(rows).subspan(first, std::min(size, rows.size() - first));
        CompareShard shard = ReadCompareCsv(CompareCsv(part, CompareRows(part, settings)),
                                            settings.grouping, settings.unit);
        EXPECT_EQ(shard.fault, "");
        std::move(shard.rows.begin(), shard.rows.end(), std::back_inserter(joined));
    }
    return joined;
}

std::string FaultOf(std::string_view text, Grouping grouping = Grouping::Well) {
    const CompareShard shard = ReadCompareCsv(text, grouping, std::nullopt);
    EXPECT_TRUE(shard.fault.empty() || shard.rows.empty());
    return shard.fault;
}

std::string CsvOf(const std::vector<CompareRow>& rows) {
    return CompareCsv(rows, CompareRows(rows, {}));
}

} // namespace

TEST(CarriedKTest, EveryKComesBackToTheLastBitInEveryUnit) {
    Random random(1);
    std::size_t longTexts = 0;
    for (int i = 0; i < 20000; ++i) {
        const CompareUnit unit{random.Between(Inch, Metre), random.Between(Second, Day)};
        double k = std::ldexp(1 + static_cast<double>(random.Bits() >> 12U) / 0x1p52,
                              random.Between(-60, 20));
        k = random.OneIn(5) ? -k : k;
        const std::string text = CarriedKText(k, unit);
        EXPECT_EQ(CarriedK(text, unit), std::optional<double>(k)) << text;
        double read = 0;
        std::from_chars(text.data(), text.data() + text.size(), read);
        EXPECT_EQ(read, KInUnit(k, unit)) << text;
        longTexts += text == ExactNumber(KInUnit(k, unit)) ? 0 : 1;
    }
    EXPECT_GT(longTexts, 100U);   // K in cm/s that share a number do occur
    EXPECT_LT(longTexts, 10000U); // mostly the shortest digits do
}

TEST(CarriedKTest, ZeroWholeNumbersAndNonsense) {
    EXPECT_EQ(CarriedKText(0, MetresADay), "0");
    EXPECT_EQ(CarriedK("0", MetresADay), std::optional<double>(0));
    EXPECT_EQ(CarriedK("864", MetresADay), std::optional<double>(1));
    for (const std::string_view wrong : {"", "x", "1x", "inf", "nan", "1,5"})
        EXPECT_FALSE(CarriedK(wrong, MetresADay).has_value()) << wrong;
    // Digits of somebody else's carry nothing and still are a number.
    EXPECT_NEAR(*CarriedK("8.640000000000000999e+02", MetresADay), 1, 1e-12);
}

TEST(CompareCsvTest, ColumnsAndTexts) {
    CompareRow row = RowWithK("=1+1", 1);
    row.file = "wells/a, b.qn2";
    row.cautions = {CheckId::LeRwEnd, CheckId::Tail};
    row.notes = {CheckId::Accuracy};
    row.headMax = 0.29;
    row.headMin = 0.21;
    row.halfWidthPercent = 12.5;
    const std::vector<CompareRow> rows = {row, RowNotRead("53 File not found")};
    EXPECT_EQ(CsvOf(rows),
              "number,well_label,test_date,slug_test_type,used_count,point_count,first_y_cm,"
              "k_common,k_text,k_length_unit,k_time_unit,half_width_percent,half_width_kind,"
              "head_max,head_min,cautions,notes,file,status,reason,group\n"
              "1,\"'=1+1\",\"\",Rising head,3,61,50,864,864.0,m,day,12.5,plain,0.29,0.21,"
              "LE_RW_END; TAIL,ACCURACY,\"wells/a, b.qn2\",counted,\"\",\"'=1+1\"\n"
              "2,\"\",\"\",,,,,,,,,,,,,,,\"missing.qn2\",failed,\"The file could not be read: 53 "
              "File not found\",\n");
}

TEST(CompareCsvTest, JoinedTablesAreTheTableOfOneRun) {
    Random random(7);
    for (int round = 0; round < 60; ++round) {
        const CompareSettings settings{
            random.OneIn(2) ? std::nullopt
                            : std::optional<CompareUnit>(
                                  {random.Between(Inch, Metre), random.Between(Second, Day)}),
            random.Pick(std::vector{Grouping::Well, Grouping::Site, Grouping::None})};
        const std::vector<CompareRow> rows = RandomRows(random, 30);
        const Comparison whole = CompareRows(rows, settings);
        const std::vector<CompareRow> joined = Joined(rows, 1 + random.Below(6), settings);
        const Comparison comparison = CompareRows(joined, settings);
        EXPECT_EQ(CompareCsv(joined, comparison), CompareCsv(rows, whole)) << round;
        EXPECT_EQ(LinesOf(comparison), LinesOf(whole)) << round;
        ASSERT_EQ(joined.size(), rows.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            EXPECT_EQ(joined[i].kCmPerSec, rows[i].kCmPerSec);
            EXPECT_EQ(CompareTexts(joined[i], comparison, i), CompareTexts(rows[i], whole, i));
        }
    }
}

TEST(CompareCsvTest, AFileInTwoTablesCountsOnce) {
    const CompareRow row = RowWithK("MW-1", 1);
    const std::vector<CompareRow> joined = Joined({row, row}, 2, {});
    const Comparison comparison = CompareRows(joined, {});
    EXPECT_EQ(comparison.rows[1].reason, StandsAboveReason);
    EXPECT_EQ(comparison.groups[0].counted.size(), 1U);
}

TEST(CompareCsvTest, NamesThatLostBytesAreNotTakenForOne) {
    CompareRow one = RowWithK("MW-1", 1);
    CompareRow other = one;
    one.file = one.resolvedFile = "\xFF.qn2";
    other.file = other.resolvedFile = "\xFE.qn2";
    const std::vector<CompareRow> joined = Joined({one, other}, 1, {});
    EXPECT_EQ(CompareRows(joined, {}).groups[0].counted.size(), 2U);
}

TEST(CompareCsvTest, ATableCutAnywhereButBehindALineIsRefused) {
    Random random(3);
    const std::string text = CsvOf(RandomRows(random, 5));
    CsvReader reader(text);
    std::vector<std::size_t> ends;
    for (std::vector<std::string> columns; !reader.AtEnd();) {
        reader.NextLine(columns);
        ends.push_back(text.size() - reader.BytesLeft());
    }
    for (std::size_t size = 0; size < text.size(); ++size) {
        const bool isLine = std::find(ends.begin(), ends.end(), size) != ends.end();
        EXPECT_EQ(FaultOf(std::string_view(text).substr(0, size)), isLine ? "" : ShardCutFault)
            << size;
    }
}

TEST(CompareCsvTest, ForeignFilesAreRefused) {
    const std::string csv = CsvOf({RowWithK("MW-1", 1), RowWithK("MW-1", 2)});
    const std::string header(CompareCsvHeader);
    EXPECT_EQ(FaultOf(header), "");
    EXPECT_EQ(FaultOf("file,well_label,status\n\"a\",\"b\",0\n"), ShardNotOursFault);
    EXPECT_EQ(FaultOf("QUARNEL PROJECT FILE\r\n"), ShardNotOursFault);
    EXPECT_EQ(FaultOf("\n"), ShardNotOursFault);
    EXPECT_EQ(FaultOf(header + "1,2\n"), "Row 1 is not as a run writes it.");
    EXPECT_EQ(FaultOf(csv + csv), "Row 3 is not as a run writes it.");
    // A column that holds something else, found behind the header.
    const auto faultWith = [&](const std::string& what, const std::string& by) {
        std::string changed = csv;
        changed.replace(changed.find(what, header.size()), what.size(), by);
        return FaultOf(changed);
    };
    EXPECT_EQ(faultWith("864,", "many,"), "Row 1 is not as a run writes it.");
    EXPECT_EQ(faultWith("864,", "inf,"), "Row 1 is not as a run writes it.");
    EXPECT_EQ(faultWith("\n2,", "\n3,"), "Row 2 is not as a run writes it.");
    EXPECT_EQ(faultWith(",50,", ",x,"), "Row 1 is not as a run writes it.");
    EXPECT_EQ(faultWith(",61,", ",-1,"), "Row 1 is not as a run writes it.");
    EXPECT_EQ(faultWith(",Rising head,3,", ",Rising head,three,"),
              "Row 1 is not as a run writes it.");
    EXPECT_EQ(faultWith(",counted,", ",maybe,"), "Row 1 is not as a run writes it.");
}

TEST(CompareCsvTest, LinesOfASpreadsheetAreTakenToo) {
    std::string csv = CsvOf({RowWithK("MW-1", 1)});
    for (std::size_t at = 0; (at = csv.find('\n', at)) != std::string::npos; at += 2)
        csv.insert(at, "\r");
    EXPECT_EQ(FaultOf(csv), "");
}

TEST(CompareCsvTest, SitesNeedATableWrittenBySite) {
    CompareRow row = RowWithK("MW-1", 1);
    row.siteName = "North";
    const std::vector<CompareRow> rows = {row};
    EXPECT_EQ(FaultOf(CompareCsv(rows, CompareRows(rows, {{}, Grouping::Site})), Grouping::Site),
              "");
    for (const Grouping grouping : {Grouping::Well, Grouping::None})
        EXPECT_EQ(FaultOf(CompareCsv(rows, CompareRows(rows, {{}, grouping})), Grouping::Site),
                  "The table was not written with --group site, so it does not name the sites.");
}

TEST(CsvReaderTest, ColumnsInQuotes) {
    CsvReader reader("a,\"b,\"\"c\"\"\",,\"\"\r\n\"x\ny\"\n");
    std::vector<std::string> columns;
    EXPECT_TRUE(reader.NextLine(columns));
    EXPECT_EQ(columns, (std::vector<std::string>{"a", "b,\"c\"", "", ""}));
    EXPECT_TRUE(reader.NextLine(columns));
    EXPECT_EQ(columns, std::vector<std::string>{"x\ny"});
    EXPECT_TRUE(reader.AtEnd());
    for (const std::string_view cut : {"a", "a,", "\"a", "\"a\"", "\"a\"b\n", "\"\"\"", "a\rb\n"})
        EXPECT_FALSE(CsvReader(cut).NextLine(columns)) << cut;
}

TEST(CsvReaderTest, ForeignTextsComeBackAsTheyWere) {
    for (const std::string text :
         {"", "a", "=1", "'=1", "''=1", "'", "''", "'a", "-", "@x", "\t"}) {
        CsvLine line;
        line.Add("1");
        line.AddForeign(text);
        const std::string written = std::move(line).Text();
        CsvReader reader(written);
        std::vector<std::string> columns;
        EXPECT_TRUE(reader.NextLine(columns));
        EXPECT_EQ(ForeignText(columns[1]), text);
        EXPECT_TRUE(columns[1].empty() ||
                    std::string("=+-@\t").find(columns[1][0]) == std::string::npos);
    }
}

} // namespace quarnel::test
