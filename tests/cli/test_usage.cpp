#include "tests/cli/CliTestSupport.h"

namespace quarnel::test {

namespace {

constexpr const char* WrongPercent = "quarnel-cli: The percent must be a number from 1 to 50.";

constexpr const char* WrongJobs = "quarnel-cli: The number of jobs must be a whole number from 1.";

class CliUsageTest : public CliTest {};

} // namespace

TEST_F(CliUsageTest, HelpNamesEveryCommand) {
    for (const char* option : {"--help", "-h"}) {
        const Outcome outcome = Run({Q(option)});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        EXPECT_EQ(outcome.out.find("Usage: quarnel-cli COMMAND [options] FILE...\n"), 0U);
        for (const char* command :
             {"analyze", "diagnose", "compare", "report", "plot", "import", "convert", "check"})
            EXPECT_NE(outcome.out.find("\n  " + std::string(command) + " "), std::string::npos)
                << command;
    }
}

TEST_F(CliUsageTest, EachCommandHasItsHelp) {
    for (const auto& [command, usage] :
         {std::pair("analyze",
                    "Usage: quarnel-cli analyze [--format table|json|csv] [--jobs N] FILE...\n"),
          std::pair("diagnose", "Usage: quarnel-cli diagnose [options] FILE...\n"),
          std::pair("compare", "Usage: quarnel-cli compare [options] FILE...\n"),
          std::pair("report", "Usage: quarnel-cli report [-o OUT] FILE\n"),
          std::pair("plot", "Usage: quarnel-cli plot -o OUT [options] FILE...\n"),
          std::pair("import", "Usage: quarnel-cli import LOGGER -o NEW.qn2 [options]\n"),
          std::pair("convert", "Usage: quarnel-cli convert IN OUT\n"),
          std::pair("check", "Usage: quarnel-cli check FILE...\n")}) {
        const Outcome outcome = Run({Q(command), Q("--help")});
        EXPECT_EQ(outcome.status, 0) << command;
        EXPECT_EQ(outcome.out.find(usage), 0U) << outcome.out;
        EXPECT_NE(outcome.out.find("\nArguments:\n"), std::string::npos) << command;
        EXPECT_EQ(outcome.err, "");
    }
}

TEST_F(CliUsageTest, HelpFitsATerminal) {
    for (const QStringList& arguments :
         {QStringList{Q("--help")}, QStringList{Q("analyze"), Q("-h")},
          QStringList{Q("diagnose"), Q("-h")}, QStringList{Q("compare"), Q("-h")},
          QStringList{Q("report"), Q("-h")}, QStringList{Q("plot"), Q("-h")},
          QStringList{Q("import"), Q("-h")}, QStringList{Q("convert"), Q("-h")},
          QStringList{Q("check"), Q("-h")}})
        for (const QString& line : Q(Run(arguments).out).split(Q("\n")))
            EXPECT_LE(line.size(), 80) << line.toStdString();
}

TEST_F(CliUsageTest, VersionIsTheProjects) {
    const Outcome outcome = Run({Q("--version")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "quarnel-cli " QUARNEL_VERSION "\n");
}

TEST_F(CliUsageTest, VersionForOtherPrograms) {
    const Outcome outcome = Run({Q("--version"), Q("--format"), Q("json")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "{\n  \"program\": \"quarnel-cli\",\n  \"version\": \"" QUARNEL_VERSION "\"\n}\n");
    EXPECT_EQ(Run({Q("--version"), Q("--format=text")}).out, Run({Q("--version")}).out);
}

TEST_F(CliUsageTest, WrongUseIsTold) {
    struct Case {
        QStringList arguments;
        std::string message;
    };
    WriteProject("a.qn2", SampleProject());
    const std::vector<Case> cases = {
        {{}, "quarnel-cli: No command is given."},
        {{Q("frobnicate")}, "quarnel-cli: There is no command 'frobnicate'."},
        {{Q("Analyze"), Q("a.qn2")}, "quarnel-cli: There is no command 'Analyze'."},
        {{Q("analyzer"), Q("a.qn2")}, "quarnel-cli: There is no command 'analyzer'."},
        {{Q("--frobnicate")}, "quarnel-cli: Unknown option 'frobnicate'."},
        {{Q("a.qn2")}, "quarnel-cli: There is no command 'a.qn2'."},
        {{Q("analyze")}, "quarnel-cli: No file is named."},
        {{Q("analyze"), Q("--format"), Q("json")}, "quarnel-cli: No file is named."},
        {{Q("analyze"), Q("--format"), Q("xml"), Q("a.qn2")},
         "quarnel-cli: There is no format 'xml'."},
        {{Q("analyze"), Q("--format="), Q("a.qn2")}, "quarnel-cli: There is no format ''."},
        {{Q("analyze"), Q("a.qn2"), Q("--format")}, "quarnel-cli: Missing value after '--format'."},
        {{Q("analyze"), Q("--wide"), Q("a.qn2")}, "quarnel-cli: Unknown option 'wide'."},
        {{Q("analyze"), Q("-o"), Q("x"), Q("a.qn2")}, "quarnel-cli: Unknown option 'o'."},
        {{Q("analyze"), Q("--jobs"), Q("0"), Q("a.qn2")}, WrongJobs},
        {{Q("analyze"), Q("--jobs="), Q("a.qn2")}, WrongJobs},
        {{Q("diagnose"), Q("--jobs"), Q("2.5"), Q("a.qn2")}, WrongJobs},
        {{Q("diagnose")}, "quarnel-cli: No file is named."},
        {{Q("diagnose"), Q("--format"), Q("xml"), Q("a.qn2")},
         "quarnel-cli: There is no format 'xml'."},
        {{Q("diagnose"), Q("--percent"), Q("0.99"), Q("a.qn2")}, WrongPercent},
        {{Q("diagnose"), Q("--percent"), Q("50.01"), Q("a.qn2")}, WrongPercent},
        {{Q("diagnose"), Q("--percent"), Q("ten"), Q("a.qn2")}, WrongPercent},
        {{Q("diagnose"), Q("--percent"), Q("nan"), Q("a.qn2")}, WrongPercent},
        {{Q("diagnose"), Q("--percent="), Q("a.qn2")}, WrongPercent},
        {{Q("diagnose"), Q("a.qn2"), Q("--percent")},
         "quarnel-cli: Missing value after '--percent'."},
        {{Q("diagnose"), Q("--head-range"), Q("a.qn2")},
         "quarnel-cli: Unknown option 'head-range'."},
        {{Q("compare")}, "quarnel-cli: No file is named."},
        {{Q("compare"), Q("--join")}, "quarnel-cli: No file is named."},
        {{Q("compare"), Q("--format"), Q("xml"), Q("a.qn2")},
         "quarnel-cli: There is no format 'xml'."},
        {{Q("compare"), Q("--group"), Q("Well"), Q("a.qn2")},
         "quarnel-cli: There is no group 'Well'."},
        {{Q("compare"), Q("--unit"), Q("m"), Q("a.qn2")}, "quarnel-cli: There is no unit 'm'."},
        {{Q("compare"), Q("--unit"), Q("km/day"), Q("a.qn2")},
         "quarnel-cli: There is no unit 'km/day'."},
        {{Q("compare"), Q("--jobs"), Q("0"), Q("a.qn2")}, WrongJobs},
        {{Q("compare"), Q("--jobs"), Q("-1"), Q("a.qn2")}, WrongJobs},
        {{Q("compare"), Q("--jobs"), Q("1.5"), Q("a.qn2")}, WrongJobs},
        {{Q("compare"), Q("--jobs="), Q("a.qn2")}, WrongJobs},
        {{Q("compare"), Q("--jobs"), Q("99999999999999999999"), Q("a.qn2")}, WrongJobs},
        {{Q("compare"), Q("--join"), Q("--record"), Q("."), Q("a.csv")},
         "quarnel-cli: The records need the projects themselves, not their tables."},
        {{Q("--version"), Q("--format"), Q("xml")}, "quarnel-cli: There is no format 'xml'."},
        {{Q("convert")}, "quarnel-cli: Exactly two files are needed."},
        {{Q("convert"), Q("a.qn2")}, "quarnel-cli: Exactly two files are needed."},
        {{Q("convert"), Q("a.qn2"), Q("b.qn2"), Q("c.qn2")},
         "quarnel-cli: Exactly two files are needed."},
        {{Q("check")}, "quarnel-cli: No file is named."},
        {{Q("report")}, "quarnel-cli: Exactly one project is needed."},
        {{Q("report"), Q("a.qn2"), Q("b.qn2")}, "quarnel-cli: Exactly one project is needed."},
        {{Q("report"), Q("a.qn2"), Q("-o")}, "quarnel-cli: Missing value after '-o'."},
        {{Q("report"), Q("-o"), Q(""), Q("a.qn2")},
         "quarnel-cli: The report needs a file of its own."},
        {{Q("report"), Q("-o"), Q("./a.qn2"), Q("a.qn2")},
         "quarnel-cli: The report needs a file of its own."},
        {{Q("plot"), Q("a.qn2")}, "quarnel-cli: The file to write is needed: -o OUT."},
        {{Q("plot"), Q("-o"), Q("x.pdf")}, "quarnel-cli: Exactly one project is needed."},
        {{Q("plot"), Q("-o"), Q(""), Q("a.qn2")},
         "quarnel-cli: The file to write is needed: -o OUT."},
    };
    for (const Case& wrong : cases) {
        const Outcome outcome = Run(wrong.arguments);
        const std::string words = wrong.arguments.join(Q(" ")).toStdString();
        EXPECT_EQ(outcome.status, 2) << words;
        EXPECT_EQ(outcome.out, "") << words;
        EXPECT_EQ(outcome.err.find(wrong.message + "\nUsage: quarnel-cli "), 0U)
            << words << ": " << outcome.err;
    }
}

TEST_F(CliUsageTest, OptionsMayStandAnywhereAndEndWithTwoHyphens) {
    WriteProject("--format", SampleProject());
    WriteProject("a.qn2", SampleProject());
    const Outcome outcome =
        Run({Q("analyze"), Q("a.qn2"), Q("--format=csv"), Q("--"), Q("--format")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.out.find("\n\"a.qn2\",\"MW-1\",0,"), std::string::npos);
    EXPECT_NE(outcome.out.find("\n\"'--format\",\"MW-1\",0,"), std::string::npos);
}

TEST_F(CliUsageTest, ProgramNeedsNoWindowLibrary) {
    const Outcome outcome = RunShell("ldd \"$cli\"");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.out.find("libQt6Core.so"), std::string::npos);
    for (const char* library : {"libQt6Gui", "libQt6Widgets", "libX11", "libxcb", "libGL"})
        EXPECT_EQ(outcome.out.find(library), std::string::npos) << library;
}

} // namespace quarnel::test
