#include "tests/cli/CliTestSupport.h"

namespace quarnel::test {

namespace {

class CliStreamsTest : public CliTest {
protected:
    void SetUp() override { WriteProject("a.qn2", SampleProject()); }
};

} // namespace

TEST_F(CliStreamsTest, FullDiskIsAFailure) {
    for (const char* command : {"analyze", "analyze --format json", "analyze --format csv", "check",
                                "--help", "--version"}) {
        const std::string files = std::string(command).front() == '-' ? "" : " a.qn2 a.qn2";
        const Outcome outcome =
            RunShell("\"$cli\" " + std::string(command) + files + " >/dev/full");
        EXPECT_EQ(outcome.status, 1) << command;
        EXPECT_EQ(outcome.err, "quarnel-cli: Standard output cannot be written: No space left on "
                               "device\n")
            << command;
    }
}

// The shell hands back the status of the reader; the program's own goes into a file.
TEST_F(CliStreamsTest, ReaderThatHasGoneIsAFailureAndNoCrash) {
    std::vector<std::pair<std::string, std::string>> readings;
    readings.reserve(20'000);
    for (int i = 0; i < 20'000; ++i)
        readings.emplace_back(std::to_string(i), "1");
    ProjectState state = SampleProject();
    SetReadings(state, readings);
    WriteProject("long.qn2", state);
    for (const char* format : {"table", "json"}) {
        const Outcome outcome =
            RunShell("{ \"$cli\" analyze --format " + std::string(format) +
                     " long.qn2 long.qn2 2>err; echo $? >status; } | head -c 1 >/dev/null");
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(ReadBytes("status"), "1\n");
        EXPECT_NE(
            ReadBytes("err").find("quarnel-cli: Standard output cannot be written: Broken pipe\n"),
            std::string::npos);
    }
}

TEST_F(CliStreamsTest, OutputThatTakesNothingIsAFailureAndNotAskedForEver) {
    const Outcome outcome =
        RunShell("LD_PRELOAD=\"$failing\" ASAN_OPTIONS=verify_asan_link_order=0 "
                 "QUARNEL_FAIL_FOLDER=\"$PWD/out\" QUARNEL_FAIL_NAME=write "
                 "QUARNEL_FAIL_ERRNO=-1 \"$cli\" analyze a.qn2 >out",
                 {{"failing", QUARNEL_FAILING_CALLS}});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "quarnel-cli: Standard output cannot be written: Input/output error\n");
}

TEST_F(CliStreamsTest, ClosedOutputIsAFailure) {
    const Outcome outcome = RunShell("\"$cli\" analyze a.qn2 >&-");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "quarnel-cli: Standard output cannot be written: Bad file descriptor\n");
}

// A file opened by a program without standard streams gets one of their numbers; messages must not
// land in it.
TEST_F(CliStreamsTest, ClosedStreamsDoNotSpoilASavedProject) {
    WriteBytes("damaged.qn2", ReadBytes("a.qn2") + "\"RECDATA\"");
    const Outcome outcome = RunShell("\"$cli\" convert damaged.qn2 out.qn2 <&- >&- 2>&-");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(ReadBytes("out.qn2"), ReadBytes("a.qn2"));
}

TEST_F(CliStreamsTest, FullErrorStreamChangesNothing) {
    const Outcome outcome = RunShell("\"$cli\" analyze --format csv missing.qn2 a.qn2 2>/dev/full");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.out.find("\n\"a.qn2\",\"MW-1\",0,"), std::string::npos);
}

TEST_F(CliStreamsTest, StatusOfAFailedAnalysisOutlivesGoodOutput) {
    const Outcome outcome = RunShell("\"$cli\" analyze --format csv missing.qn2 a.qn2 >k.csv");
    EXPECT_EQ(outcome.status, 1);
}

} // namespace quarnel::test
