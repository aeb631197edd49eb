#include "tests/cli/ImportTestSupport.h"

#include <QDir>
#include <QFile>

namespace quarnel::test {

TEST_F(CliImportTest, WrongUseIsTold) {
    struct Case {
        QStringList arguments;
        std::string message;
    };
    WriteBytes("a.csv", ClockTable());
    WriteBytes("numbers.csv", "time (s),Level (m)\n" + SecondsTable());
    const QStringList out = {Q("a.csv"), Q("-o"), Q("out.qn2")};
    const std::vector<Case> cases = {
        {{}, "Exactly one logger file is needed."},
        {{Q("-o"), Q("out.qn2")}, "Exactly one logger file is needed."},
        {{Q("a.csv"), Q("b.csv"), Q("-o"), Q("out.qn2")}, "Exactly one logger file is needed."},
        {{Q("a.csv")}, "No output file is named (-o)."},
        {{Q("a.csv"), Q("-o"), Q("")}, "No output file is named (-o)."},
        {{Q("a.csv"), Q("-o")}, "Missing value after '-o'."},
        {{Q("a.csv"), Q("-o"), Q("a.csv")}, "The project needs a file of its own."},
        {{Q("a.csv"), Q("-o"), Q("./a.csv")}, "The project needs a file of its own."},
        {{Q("numbers.csv"), Q("-o"), Q("a.csv"), Q("--barometer"), Q("a.csv")},
         "The project needs a file of its own."},
        {out + QStringList{Q("--list")}, "With --list no file is written (-o)."},
        {out + QStringList{Q("--from"), Q("")}, "No project is named (--from)."},
        {out + QStringList{Q("--barometer"), Q("")}, "No barometer file is named (--barometer)."},
        {out + QStringList{Q("--format"), Q("csv")}, "There is no format 'csv'."},
        {out + QStringList{Q("--channel"), Q("0")}, "There is no channel 0."},
        {out + QStringList{Q("--channel"), Q("2")}, "There is no channel 2."},
        {out + QStringList{Q("--channel"), Q("1.5")}, "There is no channel 1.5."},
        {out + QStringList{Q("--channel"), Q("Level")}, "There is no channel Level."},
        {out + QStringList{Q("--type"), Q("X")}, "There is no type 'X'."},
        {out + QStringList{Q("--type"), Q("h")}, "There is no type 'h'."},
        {out + QStringList{Q("--source-unit"), Q("furlong")}, "There is no unit 'furlong'."},
        {out + QStringList{Q("--unit"), Q("mm")}, "There is no unit 'mm'."},
        {out + QStringList{Q("--unit"), Q("")}, "There is no unit ''."},
        {out + QStringList{Q("--date-order"), Q("ymd")}, "There is no date order 'ymd'."},
        {out + QStringList{Q("--time-unit"), Q("ms")}, "There is no time unit 'ms'."},
        {out + QStringList{Q("--start"), Q("noon")}, "'noon' is not a time."},
        {out + QStringList{Q("--start"), Q("2024-02-30 12:00:00")},
         "'2024-02-30 12:00:00' is not a time."},
        {out + QStringList{Q("--end"), Q("")}, "'' is not a time."},
        {{Q("numbers.csv"), Q("-o"), Q("out.qn2"), Q("--start"), Q("2024-03-25 11:20:40")},
         "'2024-03-25 11:20:40' is not a time."},
        {out + QStringList{Q("--static"), Q("five")}, "'five' is not a number."},
        {out + QStringList{Q("--thin"), Q("0")},
         "The readings a decade must be a whole number from 1 to 1000."},
        {out + QStringList{Q("--thin"), Q("1001")},
         "The readings a decade must be a whole number from 1 to 1000."},
        {out + QStringList{Q("--thin"), Q("2.5")},
         "The readings a decade must be a whole number from 1 to 1000."},
        {out + QStringList{Q("--thin"), Q("few")},
         "The readings a decade must be a whole number from 1 to 1000."},
        {out + QStringList{Q("--wide")}, "Unknown option 'wide'."},
    };
    for (const Case& wrong : cases) {
        const Outcome outcome = Run(QStringList{Q("import")} + wrong.arguments);
        const std::string words = wrong.arguments.join(Q(" ")).toStdString();
        EXPECT_EQ(outcome.status, 2) << words;
        EXPECT_EQ(outcome.out, "") << words;
        EXPECT_EQ(outcome.err, "quarnel-cli: " + wrong.message +
                                   "\nUsage: quarnel-cli import LOGGER -o NEW.qn2 [options]\n")
            << words;
        EXPECT_FALSE(QFile::exists(Path("out.qn2"))) << words;
    }
}

TEST_F(CliImportTest, FileThatCannotBeReadIsAFault) {
    ASSERT_TRUE(QDir(Path("")).mkdir(Q("folder")));
    WriteBytes("empty.csv", "");
    WriteBytes("zip.csv", "PK\x03\x04 and so on");
    WriteBytes("binary.csv", std::string("a\0b", 3));
    WriteBytes("prose.txt", "Dear Sir,\nthe well is dry.\n");
    ExpectFault("missing.csv", "missing.csv: 53 File not found\n");
    ExpectFault("folder", "folder: 75 Path/File access error\n");
    ExpectFault("empty.csv", "empty.csv: empty.csv is empty.\n");
    ExpectFault("zip.csv", "zip.csv: zip.csv is a ZIP archive. Please unpack it and import the "
                           "file inside.\n");
    ExpectFault("binary.csv", "binary.csv: binary.csv is not a text file.\n");
    ExpectFault("prose.txt", "prose.txt: No table of readings was found in prose.txt.\n");
}

TEST_F(CliImportTest, ListOfAFileThatCannotBeReadFails) {
    for (const char* format : {"table", "json"}) {
        const Outcome outcome =
            Run({Q("import"), Q("--list"), Q("--format"), Q(format), Q("missing.csv")});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "missing.csv: 53 File not found\n");
    }
}

TEST_F(CliImportTest, RecordWithoutATestIsAFault) {
    std::string still = "time (s),Level (m)\n";
    for (int i = 0; i < 50; ++i)
        still += std::to_string(i) + (i % 2 == 0 ? ",5\n" : ",5.001\n");
    WriteBytes("still.csv", still);
    ExpectFault("still.csv", "still.csv: No start of the test was found. Please click the first "
                             "reading after the slug.\n");
    WriteBytes("a.csv", ClockTable());
    ExpectFault("a.csv", "a.csv: The end lies before the start.\n", {Q("--end"), Q("10")});
    ExpectFault("a.csv", "a.csv: There is no reading from 1000 on.\n", {Q("--start"), Q("1000")});
    ExpectFault("a.csv", "a.csv: There is no reading until 2024-03-25 11:19:59.\n",
                {Q("--end"), Q("2024-03-25 11:19:59")});
}

TEST_F(CliImportTest, TimesThatFallAreAFault) {
    WriteBytes("a.csv", "time (s),Level (m)\n0,5\n2,5\n1,5\n3,4\n");
    ExpectFault("a.csv", "a.csv: The times do not rise at row 4.\n");
}

TEST_F(CliImportTest, UnknownUnitIsAFault) {
    WriteBytes("a.csv", ClockTable("Time,Level (furlong)"));
    ExpectFault("a.csv", "a.csv: The unit 'furlong' is not known. Please choose the unit of the "
                         "readings.\n");
}

TEST_F(CliImportTest, DatesOfEitherOrderAreAFault) {
    WriteBytes("a.csv", TableOfEitherDateOrder());
    ExpectFault("a.csv", "a.csv: The dates of a.csv can be read as month/day or day/month. Please "
                         "give --date-order.\n");
}

TEST_F(CliImportTest, FaultyBarometerIsAFault) {
    WriteBytes("a.csv", ClockTable("Time,Pressure (mH2O)"));
    WriteBytes("level.csv", ClockTable());
    ExpectFault("a.csv", "a.csv: 53 File not found\n", {Q("--barometer"), Q("missing.csv")});
    ExpectFault("a.csv", "a.csv: No pressure channel was found in level.csv.\n",
                {Q("--barometer"), Q("level.csv")});
}

TEST_F(CliImportTest, FaultyProjectIsAFault) {
    WriteBytes("a.csv", ClockTable());
    WriteBytes("other.txt", "something else");
    WriteProject("whole.qn2", SampleProject());
    WriteBytes("damaged.qn2", ReadBytes("whole.qn2") + "\"RECDATA\"");
    ExpectFault("a.csv", "missing.qn2: 53 File not found\n", {Q("--from"), Q("missing.qn2")});
    ExpectFault("a.csv", "other.txt: " + std::string(NotAnInputFile) + "\n",
                {Q("--from"), Q("other.txt")});
    ExpectFault("a.csv", "damaged.qn2: 62 Input past end of file\n",
                {Q("--from"), Q("damaged.qn2")});
}

TEST_F(CliImportTest, ProjectThatCannotBeWrittenIsAFault) {
    WriteBytes("a.csv", ClockTable());
    ASSERT_TRUE(QDir(Path("")).mkdir(Q("folder")));
    for (const auto& [target, message] :
         {std::pair("folder", "folder: 75 Path/File access error\n"),
          std::pair("none/out.qn2", "none/out.qn2: 76 Path not found\n")}) {
        for (const char* format : {"table", "json"}) {
            const Outcome outcome =
                Run({Q("import"), Q("a.csv"), Q("-o"), Q(target), Q("--format"), Q(format)});
            EXPECT_EQ(outcome.status, 1);
            EXPECT_EQ(outcome.out, "");
            EXPECT_EQ(outcome.err, message);
        }
    }
}

} // namespace quarnel::test
