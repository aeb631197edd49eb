#include "tests/cli/CliTestSupport.h"

#include <map>

namespace quarnel::test {

namespace {

using Record = std::vector<std::string>;

/// Reads comma-separated values as RFC 4180 defines them.
std::vector<Record> ParseCsv(const std::string& text) {
    std::vector<Record> records(1, Record(1));
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '"' && quoted && i + 1 < text.size() && text[i + 1] == '"')
            records.back().back() += text[i++];
        else if (c == '"')
            quoted = !quoted;
        else if (c == ',' && !quoted)
            records.back().emplace_back();
        else if (c == '\n' && !quoted)
            records.emplace_back(1);
        else
            records.back().back() += c;
    }
    EXPECT_FALSE(quoted);
    EXPECT_EQ(records.back(), Record(1)) << "the last line is not ended";
    records.pop_back();
    return records;
}

class CliCsvTest : public CliTest {
protected:
    /// The rows under the header, each by the names of its columns.
    std::vector<std::map<std::string, std::string>> Rows(const Outcome& outcome) {
        const std::vector<Record> records = ParseCsv(outcome.out);
        std::vector<std::map<std::string, std::string>> rows;
        for (std::size_t r = 1; r < records.size(); ++r) {
            EXPECT_EQ(records[r].size(), records[0].size());
            auto& row = rows.emplace_back();
            for (std::size_t c = 0; c < records[0].size(); ++c)
                row[records[0][c]] = records[r][c];
        }
        return rows;
    }
    Outcome Csv(const QStringList& files) {
        return Run(QStringList{Q("analyze"), Q("--format"), Q("csv")} + files);
    }
};

} // namespace

TEST_F(CliCsvTest, OneJobAndManyPrintTheSameInEveryFormat) {
    QStringList files;
    for (int i = 0; i < 40; ++i) {
        ProjectState state = SampleProject();
        state.WellTestIDTxt[WellLabel] = "MW-" + std::to_string(i);
        state.WellGeoText[GeoLe] = i % 7 == 3 ? "much" : std::to_string(1 + 0.01 * i);
        const std::string name = std::to_string(i) + ".qn2";
        WriteProject(name, state);
        files << QString::fromStdString(name);
    }
    files.insert(20, Q("missing.qn2"));
    for (const QString& command : {Q("analyze"), Q("diagnose")})
        for (const QString& format : {Q("table"), Q("json"), Q("csv")}) {
            const QStringList words{command, Q("--format"), format, Q("--jobs")};
            const Outcome one = Run(words + QStringList{Q("1")} + files);
            EXPECT_EQ(one.status, 1);
            EXPECT_GT(one.out.size(), 4000U);
            EXPECT_EQ(one.err.empty(), format == Q("json"));
            for (const QString& jobs : {Q("2"), Q("9"), Q("1000")}) {
                const Outcome many = Run(words + QStringList{jobs} + files);
                EXPECT_EQ(many.status, 1);
                EXPECT_EQ(many.out, one.out) << jobs.toStdString();
                EXPECT_EQ(many.err, one.err) << jobs.toStdString();
            }
        }
}

TEST_F(CliCsvTest, HeaderNamesEveryColumn) {
    WriteProject("a.qn2", SampleProject());
    const std::string out = Csv({Q("a.qn2")}).out;
    EXPECT_EQ(out.substr(0, out.find('\n')),
              "file,well_label,status,k_text,k_length_unit,k_time_unit,k_cm_per_sec,h_cm,lw_cm,"
              "le_cm,rw_cm,rc_cm,re_cm,porosity,le_over_rw,a,b,c,ln_re_over_rw,point_count,"
              "used_count,slope_per_sec,intercept_ln_cm,messages");
}

TEST_F(CliCsvTest, ColumnsHoldTheNumbersOfTheJson) {
    ProjectState state = SampleProject();
    state.WellGeoText[GeoDpor] = "12.5";
    state.IgnoreKeyList = {"401.25"};
    WriteProject("a.qn2", state);
    const Outcome outcome = Csv({Q("a.qn2")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    ASSERT_EQ(Rows(outcome).size(), 1U);
    auto row = Rows(outcome).front();
    const QJsonObject analysis = AnalyzeJson({Q("a.qn2")}, 0).at(0).toObject();
    EXPECT_EQ(row["file"], "a.qn2");
    EXPECT_EQ(row["well_label"], "MW-1");
    EXPECT_EQ(row["status"], "0");
    EXPECT_EQ(row["point_count"], "5");
    EXPECT_EQ(row["messages"], "");
    const QJsonObject k = analysis.value(Q("k")).toObject();
    EXPECT_EQ(row["k_text"], k.value(Q("text")).toString().toStdString());
    EXPECT_EQ(row["k_length_unit"] + "/" + row["k_time_unit"], "m/day");
    EXPECT_EQ(Q(row["k_cm_per_sec"]).toDouble(), k.value(Q("cm_per_sec")).toDouble());
    int compared = 0;
    for (const char* group : {"geometry", "coefficients", "fit"}) {
        const QJsonObject values = analysis.value(Q(group)).toObject();
        for (const QString& key : values.keys()) {
            if (key.endsWith(Q("_text")))
                continue;
            EXPECT_EQ(Q(row[key.toStdString()]).toDouble(), values.value(key).toDouble())
                << key.toStdString();
            ++compared;
        }
    }
    EXPECT_EQ(compared, 15);
}

TEST_F(CliCsvTest, OneLineForEachOfSixtyWells) {
    WriteProject("well.qn2", SampleProject());
    const Outcome outcome = RunShell("for i in $(seq 60); do cp well.qn2 well-$i.qn2; done\n"
                                     "\"$cli\" analyze --format csv well-*.qn2 > k.csv");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(ParseCsv(ReadBytes("k.csv")).size(), 61U);
}

TEST_F(CliCsvTest, WhatWasNotReachedIsEmpty) {
    ProjectState state = SampleProject();
    state.WellGeoText[GeoLe] = "1";
    SetReadings(state, {{"0", "4"}, {"1", "-1"}});
    WriteProject("few.qn2", state);
    const Outcome outcome = Csv({Q("missing.qn2"), Q("few.qn2")});
    EXPECT_EQ(outcome.status, 1);
    const std::string few(TooFewPoints);
    EXPECT_EQ(outcome.err,
              "missing.qn2: 53 File not found\nfew.qn2: " + std::string(RatioTooSmall) +
                  "\nfew.qn2: " + std::string(YWarning) + "\nfew.qn2: " + few + "\n");
    auto rows = Rows(outcome);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0]["status"], "1");
    EXPECT_EQ(rows[0]["messages"], "53 File not found");
    EXPECT_EQ(rows[0]["h_cm"] + rows[0]["a"] + rows[0]["point_count"] + rows[0]["k_text"], "");
    EXPECT_EQ(rows[1]["status"], "1");
    EXPECT_EQ(rows[1]["h_cm"], "1524");
    EXPECT_EQ(rows[1]["a"], "1.7");
    EXPECT_EQ(rows[1]["point_count"], "2");
    EXPECT_EQ(rows[1]["k_text"] + rows[1]["k_length_unit"] + rows[1]["k_time_unit"] +
                  rows[1]["k_cm_per_sec"] + rows[1]["used_count"] + rows[1]["slope_per_sec"],
              "");
    EXPECT_EQ(rows[1]["messages"],
              std::string(RatioTooSmall) + "; " + std::string(YWarning) + "; " + few);
}

TEST_F(CliCsvTest, TextsOfAFileAreQuoted) {
    // An old input file holds its lines as they are, double quotes and commas too.
    WriteBytes("quoted.in", "Title\nClient\nJob\n The \"deep\", well; 井\n"
                            " H  Le  Lw  rc  rw  n\n50 10 20 0.2 0.3 0\nRows\n2\n"
                            "Time (sec) Y (ft) W\n0 4 1\n10 3 1\n");
    auto rows = Rows(Csv({Q("quoted.in")}));
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0]["well_label"], "The \"deep\", well; 井");
    EXPECT_EQ(rows[0]["status"], "0");
}

TEST_F(CliCsvTest, NoTextBecomesAFormula) {
    for (const std::string start : {"=", "+", "-", "@", "\t"}) {
        ProjectState state = SampleProject();
        state.WellTestIDTxt[WellLabel] = start + "cmd|' /C calc'!A0";
        WriteProject("+a.qn2", state);
        auto rows = Rows(Csv({Q("+a.qn2")}));
        ASSERT_EQ(rows.size(), 1U);
        EXPECT_EQ(rows[0]["well_label"], "'" + start + "cmd|' /C calc'!A0");
        EXPECT_EQ(rows[0]["file"], "'+a.qn2");
        EXPECT_EQ(rows[0]["slope_per_sec"].front(), '-'); // numbers stay numbers
    }
}

} // namespace quarnel::test
