#include "tests/cli/CliTestSupport.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>

namespace quarnel::test {

namespace {

/// A test of a well of which Y falls by `factor` every ten seconds from `first` ft.
ProjectState TestOf(const std::string& well, double first = 4, double factor = 0.75) {
    ProjectState state = SampleProject();
    state.WellTestIDTxt[WellLabel] = well;
    std::vector<std::pair<std::string, std::string>> readings;
    for (int i = 0; i < 8; ++i) {
        readings.emplace_back(std::to_string(10 * i), std::to_string(first));
        first *= factor;
    }
    SetReadings(state, readings);
    return state;
}

class CliCompareTest : public CliTest {
protected:
    QJsonObject CompareJson(const QStringList& arguments, int expectedStatus) {
        const Outcome outcome =
            Run(QStringList{Q("compare"), Q("--format"), Q("json")} + arguments);
        EXPECT_EQ(outcome.status, expectedStatus);
        EXPECT_EQ(outcome.err, "");
        QJsonParseError fault;
        const auto document =
            QJsonDocument::fromJson(QByteArray::fromStdString(outcome.out), &fault);
        EXPECT_EQ(fault.error, QJsonParseError::NoError) << fault.errorString().toStdString();
        return document.object();
    }

    std::vector<std::string> FilesOf(const QStringList& arguments, int expectedStatus = 0) {
        std::vector<std::string> files;
        for (const QJsonValue test :
             CompareJson(arguments, expectedStatus).value(Q("tests")).toArray())
            files.push_back(test.toObject().value(Q("file")).toString().toStdString());
        return files;
    }

    /// Thirty tests of six wells in wells/, some of them with a fault, in all units.
    void WriteWells() {
        QDir(Path("")).mkdir(Q("wells"));
        for (int i = 0; i < 30; ++i) {
            ProjectState state = TestOf(i == 7 ? "=1+1, \"x\"" : "MW-" + std::to_string(i % 6),
                                        3 + 0.1 * i, 0.6 + 0.01 * i);
            state.SiteIDText[SiteName] = i % 2 == 0 ? "North" : "South / East";
            state.CmboKLengthUnits = i % 4;
            state.CmboKTimeUnits = (i / 4) % 4;
            if (i == 12)
                SetReadings(state, {{"0", "1"}, {"10", "2"}, {"20", "3"}});
            if (i == 17)
                SetReadings(state, {});
            WriteProject("wells/test " + std::to_string(i) + ".qn2", state);
        }
        WriteBytes("wells/test 22.qn2", "junk\n");
        QFile::link(Q("test 3.qn2"), Path("wells/test 23b.qn2"));
    }
};

using Keys = QStringList;

Keys Split(const char* keys) {
    return Q(keys).split(Q(" "));
}

void ExpectKeys(const QJsonValue& value, const char* keys) {
    ASSERT_TRUE(value.isObject()) << keys;
    Keys expected = Split(keys);
    expected.sort();
    EXPECT_EQ(value.toObject().keys(), expected)
        << value.toObject().keys().join(Q(" ")).toStdString();
}

constexpr const char* TestKeys =
    "number file status reason well_label test_date slug_test_type used_count point_count "
    "first_y_cm k_cm_per_sec k_common k_text k_length_unit k_time_unit half_width_percent "
    "half_width_kind head_max head_min cautions notes group";
constexpr const char* StatisticsKeys =
    "n geometric_mean arithmetic_mean minimum maximum maximum_over_minimum sd_log10";
constexpr const char* RepeatsKeys = "head_ratio first_last_head_change_percent "
                                    "first_last_k_change_percent greatest_deviation_percent "
                                    "head_dependence_percent remarks";

} // namespace

TEST_F(CliCompareTest, TableOfOneWell) {
    WriteProject("a 1.qn2", TestOf("MW-1", 2));
    WriteProject("a 2.qn2", TestOf("MW-1", 4));
    WriteProject("a 3.qn2", TestOf("mw-1 ", 2));
    WriteBytes("b.qn2", "junk\n");
    const Outcome outcome = Run({Q("compare"), Q("."), Q("--unit=ft/day")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(
        outcome.out,
        "No.  Well  Date  Test              Used  First Y (ft)  K (ft/day)  K as shown  +- %      "
        "Range  Remarks                                                                           "
        "         File\n"
        "  1  MW-1        Not Applicable  8 of 8           2.0        8.59  2.62 m/day   0.0  "
        "1.00-0.13  3 notes                                                                       "
        "             a 1.qn2\n"
        "  2  MW-1        Not Applicable  8 of 8           4.0        8.59  2.62 m/day   0.0  "
        "1.00-0.13  3 notes                                                                       "
        "             a 2.qn2\n"
        "  3  mw-1        Not Applicable  8 of 8           2.0        8.59  2.62 m/day   0.0  "
        "1.00-0.13  3 notes                                                                       "
        "             a 3.qn2\n"
        "  4                                   -             -           -           -     -      "
        "    -  The file could not be read: The file selected does not appear to be a QUARNEL "
        "input file.  b.qn2\n"
        "\n"
        "MW-1: 3 of 3 tests counted; geometric mean 8.59 ft/day, arithmetic mean 8.59, from 8.59 "
        "to 8.59 (1.0 times), SD of log10 K 0.00.\n"
        "The 3 tests agree within 10 % over first changes in head from 2.0 to 4.0 ft.\n"
        "Agreement does not rule out a skin around the screen.\n");
}

TEST_F(CliCompareTest, JsonHasEveryKeyAlways) {
    WriteWells();
    const QJsonObject json = CompareJson({Q("wells"), Q("missing.qn2")}, 1);
    ExpectKeys(json, "unit group tests groups all");
    ExpectKeys(json.value(Q("unit")), "length time");
    EXPECT_EQ(json.value(Q("unit")).toObject().value(Q("length")).toString(), Q("in"));
    EXPECT_EQ(json.value(Q("group")).toString(), Q("well"));
    ExpectKeys(json.value(Q("all")), StatisticsKeys);
    const QJsonArray tests = json.value(Q("tests")).toArray();
    ASSERT_EQ(tests.size(), 32);
    for (const QJsonValue test : tests)
        ExpectKeys(test, TestKeys);
    int withRepeats = 0;
    for (const QJsonValue value : json.value(Q("groups")).toArray()) {
        ExpectKeys(value, "name test_count counted statistics repeats");
        const QJsonObject group = value.toObject();
        ExpectKeys(group.value(Q("statistics")), StatisticsKeys);
        if (group.value(Q("repeats")).isNull())
            continue;
        ++withRepeats;
        ExpectKeys(group.value(Q("repeats")), RepeatsKeys);
        for (const QJsonValue remark :
             group.value(Q("repeats")).toObject().value(Q("remarks")).toArray())
            ExpectKeys(remark, "id level text");
    }
    EXPECT_EQ(withRepeats, 6);
}

TEST_F(CliCompareTest, JsonOfRowsThatDoNotCount) {
    WriteWells();
    const QJsonArray tests = CompareJson({Q("wells")}, 1).value(Q("tests")).toArray();
    const auto test = [&tests](int number) { return tests.at(number).toObject(); };
    EXPECT_EQ(test(12).value(Q("status")).toString(), Q("not counted"));
    EXPECT_EQ(test(12).value(Q("reason")).toString(), Q("K is not greater than 0."));
    EXPECT_LT(test(12).value(Q("k_cm_per_sec")).toDouble(), 0);
    EXPECT_EQ(test(17).value(Q("status")).toString(), Q("failed"));
    EXPECT_EQ(test(17).value(Q("reason")).toString(), Q("No recovery data has been entered."));
    EXPECT_EQ(test(17).value(Q("group")).toString(), Q("MW-5"));
    EXPECT_EQ(test(22).value(Q("status")).toString(), Q("failed"));
    for (const char* key :
         {"group", "well_label", "k_common", "k_text", "used_count", "half_width_kind"})
        EXPECT_TRUE(test(22).value(Q(key)).isNull()) << key;
    EXPECT_EQ(test(24).value(Q("file")).toString(), Q("wells/test 23b.qn2"));
    EXPECT_EQ(test(24).value(Q("reason")).toString(), Q("The file stands above already."));
    EXPECT_EQ(test(24).value(Q("group")).toString(), Q("MW-3"));
    EXPECT_EQ(test(0).value(Q("status")).toString(), Q("counted"));
    EXPECT_TRUE(test(0).value(Q("reason")).isNull());
}

TEST_F(CliCompareTest, NothingCountedIsNull) {
    const QJsonObject json = CompareJson({Q("missing.qn2")}, 1);
    EXPECT_TRUE(json.value(Q("all")).isNull());
    EXPECT_TRUE(json.value(Q("groups")).toArray().isEmpty());
    const Outcome outcome = Run({Q("compare"), Q("missing.qn2")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.out.find("The file could not be read: 53 File not found"), std::string::npos);
}

TEST_F(CliCompareTest, GroupsAreWellsSitesOrAll) {
    WriteWells();
    const auto groups = [this](const char* grouping) {
        std::vector<std::string> names;
        for (const QJsonValue group : CompareJson({Q("--group"), Q(grouping), Q("wells/test 0.qn2"),
                                                   Q("wells/test 6.qn2"), Q("wells/test 1.qn2")},
                                                  0)
                                          .value(Q("groups"))
                                          .toArray())
            names.push_back(group.toObject().value(Q("name")).toString().toStdString());
        return names;
    };
    EXPECT_EQ(groups("well"), (std::vector<std::string>{"MW-0", "MW-1"}));
    EXPECT_EQ(groups("site"), (std::vector<std::string>{"North / MW-0", "South / East / MW-1"}));
    EXPECT_EQ(groups("none"), std::vector<std::string>{"All"});
}

TEST_F(CliCompareTest, FoldersAndWildcardsComeInNaturalOrder) {
    QDir(Path("")).mkpath(Q("site/deeper"));
    QDir(Path("")).mkpath(Q("empty"));
    for (const char* name :
         {"test 10.qn2", "test 2.qn2", "Test 1.qn2", "old 3.IN", "note.txt", "deeper/test 4.qn2"})
        WriteProject(std::string("site/") + name, TestOf("MW-1"));
    WriteProject("z[1].qn2", TestOf("MW-1"));
    WriteProject("z1.qn2", TestOf("MW-1"));
    const std::vector<std::string> folder = {"site/old 3.IN", "site/Test 1.qn2", "site/test 2.qn2",
                                             "site/test 10.qn2"};
    EXPECT_EQ(FilesOf({Q("site")}), folder);
    EXPECT_EQ(FilesOf({Q("site/"), Q("z1.qn2")})[4], "z1.qn2");
    EXPECT_EQ(FilesOf({Q("site/t*.qn2")}),
              (std::vector<std::string>{"site/test 2.qn2", "site/test 10.qn2"}));
    EXPECT_EQ(FilesOf({Q("site/*/*.qn2")}), std::vector<std::string>{"site/deeper/test 4.qn2"});
    // A name that is there is that file, whatever it holds.
    EXPECT_EQ(FilesOf({Q("z[1].qn2")}), std::vector<std::string>{"z[1].qn2"});
    EXPECT_EQ(FilesOf({Q("z1.qn2"), Q("site/test 2.qn2"), Q("site/test 10.qn2")}),
              (std::vector<std::string>{"z1.qn2", "site/test 2.qn2", "site/test 10.qn2"}));
    // What stands for nothing fails as itself.
    EXPECT_EQ(FilesOf({Q("nothing*.qn2"), Q("empty")}, 1),
              (std::vector<std::string>{"nothing*.qn2", "empty"}));
}

TEST_F(CliCompareTest, OneJobAndManyGiveTheSameBytes) {
    WriteWells();
    for (const char* format : {"table", "csv", "json"}) {
        const auto run = [&](const char* jobs) {
            return Run({Q("compare"), Q("--format"), Q(format), Q("--jobs"), Q(jobs), Q("wells")});
        };
        const Outcome one = run("1");
        EXPECT_EQ(one.status, 1);
        EXPECT_GT(one.out.size(), 3000U);
        EXPECT_EQ(run("64").out, one.out) << format;
    }
}

TEST_F(CliCompareTest, NoLocaleChangesANumber) {
    WriteWells();
    const Outcome plain = Run({Q("compare"), Q("--format"), Q("csv"), Q("wells")});
    EXPECT_EQ(
        Run({Q("compare"), Q("--format"), Q("csv"), Q("wells")}, {{"LC_ALL", "de_DE.UTF-8"}}).out,
        plain.out);
}

TEST_F(CliCompareTest, TablesOfSeveralRunsJoinToThatOfOne) {
    WriteWells();
    for (const char* options : {"", "--group site", "--group none", "--unit ft/min"}) {
        const Outcome outcome = RunShell(
            "run() { \"$cli\" compare " + std::string(options) +
            " \"$@\"; };"
            "run --format csv 'wells/test ?.qn2' > part-1.csv; "
            "run --format csv 'wells/test 1?.qn2' 'wells/test 2[0-4].qn2' > part-2.csv; "
            "run --format csv 'wells/test 2[5-9].qn2' wells/ missing.qn2 > part-10.csv; "
            "for format in table csv json; do "
            "  run --format $format 'wells/test ?.qn2' 'wells/test 1?.qn2' 'wells/test 2[0-4].qn2' "
            "    'wells/test 2[5-9].qn2' wells/ missing.qn2 > whole; a=$?; "
            "  run --format $format --join 'part-*.csv' > joined; b=$?; "
            "  cmp whole joined && test $a = $b && test -s whole || exit 9; "
            "done");
        EXPECT_EQ(outcome.status, 0) << options << outcome.err;
    }
}

TEST_F(CliCompareTest, ATableThatCannotBeTakenEndsTheJoin) {
    WriteWells();
    ASSERT_EQ(RunShell("\"$cli\" compare --format csv wells > good.csv; "
                       "head -c 2000 good.csv > cut.csv; : > empty.csv; "
                       "\"$cli\" analyze --format csv 'wells/test 1.qn2' > foreign.csv")
                  .status,
              0);
    const auto join = [this](const char* file, int status, const std::string& message) {
        const Outcome outcome = Run({Q("compare"), Q("--join"), Q("good.csv"), Q(file)});
        EXPECT_EQ(outcome.status, status) << file;
        EXPECT_EQ(outcome.out, "") << file;
        EXPECT_EQ(outcome.err, std::string(file) + ": " + message + "\n");
    };
    join("cut.csv", 1, "The table is cut: run it again.");
    join("empty.csv", 1, "The table is cut: run it again.");
    join("foreign.csv", 1, "This is no table of quarnel-cli compare.");
    join("missing.csv", 1, "53 File not found");
    const Outcome bySite = Run({Q("compare"), Q("--join"), Q("--group=site"), Q("good.csv")});
    EXPECT_EQ(bySite.status, 1);
    EXPECT_EQ(bySite.err, "good.csv: The table was not written with --group site, so it does not "
                          "name the sites.\n");
}

TEST_F(CliCompareTest, ParallelWorkersOfWhichOneIsKilledGiveTheTableOfOneRun) {
    WriteWells();
    // Each worker writes the table of seven projects; the one of the second is killed the first
    // time it starts, as a machine that goes down would end it.
    WriteBytes("worker", "#!/bin/sh\n"
                         "n=$1; shift\n"
                         "exec > part-$n.csv\n"
                         "if [ $n = 2 ] && [ ! -e killed ]; then : > killed; kill -KILL $$; fi\n"
                         "\"$cli\" compare --format csv \"$@\"\n"
                         "[ $? -le 1 ]\n");
    const Outcome outcome =
        RunShell("set -e; chmod +x worker; ls wells/*.qn2 > list\n"
                 "parallel='parallel --will-cite -j 2 --joblog log'\n"
                 "! $parallel -N 7 ./worker {#} {} < list || exit 8\n"
                 "! \"$cli\" compare --join 'part-*.csv' > joined 2> refused || exit 7\n"
                 "$parallel --retry-failed\n"
                 "\"$cli\" compare --join 'part-*.csv' > joined || test $? = 1\n"
                 "tr '\\n' '\\0' < list | xargs -0 \"$cli\" compare > whole || true\n"
                 "cmp whole joined; test -s whole; ls part-*.csv | wc -l; cat refused");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "5\npart-2.csv: The table is cut: run it again.\n") << outcome.err;
}

TEST_F(CliCompareTest, RecordsOfEveryTestAreWritten) {
    WriteWells();
    QDir(Path("")).mkdir(Q("records"));
    WriteBytes("records/test 0-record.txt", "old");
    const Outcome outcome =
        Run({Q("compare"), Q("--record"), Q("records"), Q("wells"), Q("wells/test 0.qn2")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "");
    // One for each file that could be read, the link under its own name.
    EXPECT_EQ(QDir(Path("records")).entryList(QDir::Files).size(), 30);
    for (const char* name : {"0", "17", "23b"})
        EXPECT_EQ(ReadBytes("records/test " + std::string(name) + "-record.txt")
                      .find("Record of the slug test"),
                  0U)
            << name;
    EXPECT_FALSE(QFile::exists(Path("records/test 22-record.txt")));
    const Outcome nowhere =
        Run({Q("compare"), Q("--record=nowhere"), Q("--jobs=1"), Q("wells/test 0.qn2")});
    EXPECT_EQ(nowhere.status, 1);
    EXPECT_EQ(nowhere.err, "nowhere/test 0-record.txt: 76 Path not found\n");
    EXPECT_NE(nowhere.out.find("MW-0: 1 of 1 tests counted"), std::string::npos);
}

TEST_F(CliCompareTest, NoTextSteersTheTerminalOrBecomesAFormula) {
    WriteProject("+a.qn2", TestOf("=cmd|' /C calc'!A0"));
    WriteProject("b.qn2", TestOf("a\tb"));
    const Outcome csv = Run({Q("compare"), Q("--format"), Q("csv"), Q("+a.qn2"), Q("b.qn2")});
    EXPECT_EQ(csv.status, 0);
    EXPECT_NE(csv.out.find("\n1,\"'=cmd|' /C calc'!A0\","), std::string::npos);
    EXPECT_NE(csv.out.find(",\"'+a.qn2\",counted,\"\",\"'=cmd|' /C calc'!A0\"\n"),
              std::string::npos);
    EXPECT_EQ(Run({Q("compare"), Q("b.qn2")}).out.find('\t'), std::string::npos);
}

} // namespace quarnel::test
