#include "tests/cli/CliTestSupport.h"

#include <QDir>
#include <QFile>

namespace quarnel::test {

namespace {

std::string LongLine() {
    std::string line;
    line.resize(100'000'000, 'x');
    return line;
}

class CliBadFilesTest : public CliTest {
protected:
    /// Analyses `file` beside a good one and hands back its messages, joined by "; ".
    std::string MessagesBesideAGoodFile(std::string_view file) {
        WriteProject("good.qn2", SampleProject());
        const QJsonArray both = AnalyzeJson({Q(file), Q("good.qn2")}, 1);
        EXPECT_EQ(both.at(1).toObject().value(Q("status")), 0);
        const QJsonObject bad = both.at(0).toObject();
        EXPECT_EQ(bad.value(Q("status")), 1);
        EXPECT_EQ(bad.value(Q("well_label")), Q(""));
        for (const char* group : {"geometry", "coefficients", "fit", "k", "plot", "points"})
            EXPECT_TRUE(bad.contains(Q(group)) && bad.value(Q(group)).isNull()) << group;
        std::string joined;
        for (const std::string& message : Messages(bad))
            joined += (joined.empty() ? "" : "; ") + message;
        return joined;
    }
};

} // namespace

TEST_F(CliBadFilesTest, MissingFile) {
    EXPECT_EQ(MessagesBesideAGoodFile("missing.qn2"), "53 File not found");
}

TEST_F(CliBadFilesTest, MissingFolder) {
    EXPECT_EQ(MessagesBesideAGoodFile("missing/a.qn2"), "76 Path not found");
}

TEST_F(CliBadFilesTest, EmptyName) {
    EXPECT_EQ(MessagesBesideAGoodFile(""), "53 File not found");
}

TEST_F(CliBadFilesTest, Folder) {
    ASSERT_TRUE(QDir(Path("")).mkdir(Q("folder.qn2")));
    EXPECT_EQ(MessagesBesideAGoodFile("folder.qn2"), "75 Path/File access error");
}

TEST_F(CliBadFilesTest, DeviceThatNeverEnds) {
    EXPECT_EQ(MessagesBesideAGoodFile("/dev/zero"), "75 Path/File access error");
}

TEST_F(CliBadFilesTest, EmptyFile) {
    WriteBytes("empty.qn2", "");
    EXPECT_EQ(MessagesBesideAGoodFile("empty.qn2"), "62 Input past end of file");
}

TEST_F(CliBadFilesTest, NeitherFormat) {
    WriteBytes("text.qn2", "one\ntwo\nthree\nfour\nfive\nsix\n");
    EXPECT_EQ(MessagesBesideAGoodFile("text.qn2"), NotAnInputFile);
}

TEST_F(CliBadFilesTest, ZeroBytes) {
    WriteBytes("zeros.qn2", std::string(100'000, '\0'));
    EXPECT_EQ(MessagesBesideAGoodFile("zeros.qn2"), NotAnInputFile);
}

TEST_F(CliBadFilesTest, HundredMegabytesOfOneLine) {
    WriteBytes("line.qn2", LongLine());
    EXPECT_EQ(MessagesBesideAGoodFile("line.qn2"), NotAnInputFile);
}

// The line is an item that no field takes; the project holds nothing to compute.
TEST_F(CliBadFilesTest, HundredMegabytesOfOneLineInAProject) {
    WriteBytes("line.qn2", "\"QUARNEL PROJECT FILE\"\r\n" + LongLine());
    const Outcome outcome = Run({Q("analyze"), Q("line.qn2")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "line.qn2: Well Geometry: H must have a value.\n");
    const Outcome check = Run({Q("check"), Q("line.qn2")});
    EXPECT_EQ(check.status, 1);
    EXPECT_EQ(check.out,
              "line.qn2: project file\n  passed over in line 2: " + std::string(80, 'x') + "\n");
}

// The piece shown of a long item may end within a character.
TEST_F(CliBadFilesTest, CutCharacterStaysWellFormed) {
    std::string text = "x";
    for (int i = 0; i < 60; ++i)
        text += "é";
    WriteBytes("a.qn2", "\"QUARNEL PROJECT FILE\"\r\n\"" + text + "\"\r\n");
    const std::string out = Run({Q("check"), Q("a.qn2")}).out;
    EXPECT_EQ(Q(out).toStdString(), out);
    EXPECT_EQ(out.find("a.qn2: project file\n  passed over in line 2: xéé"), 0U);
}

TEST_F(CliBadFilesTest, NamesWithBlanksAndOtherScripts) {
    for (const char* name :
         {"a well.qn2", "Brunnen Süd – 井.qn2", "new\nline.qn2", "it's \"q\".qn2"}) {
        WriteProject(name, SampleProject());
        const QJsonObject analysis = AnalyzeJson({Q(name)}, 0).at(0).toObject();
        EXPECT_EQ(analysis.value(Q("file")), Q(name));
    }
}

TEST_F(CliBadFilesTest, NameThatIsNoTextIsOpenedAllTheSame) {
    WriteProject("a.qn2", SampleProject());
    const Outcome outcome = RunShell("name=$(printf 'a\\377b\\303.qn2')\n"
                                     "cp a.qn2 \"$name\"\n"
                                     "\"$cli\" analyze --format json \"$name\"\n"
                                     "\"$cli\" check \"$name\"\n"
                                     "rm \"$name\"");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_NE(outcome.out.find("\"file\": \"a\uFFFDb\uFFFD.qn2\",\n    \"status\": 0,"),
              std::string::npos);
    EXPECT_NE(outcome.out.find("\na\uFFFDb\uFFFD.qn2: project file, clean\n"), std::string::npos);
}

// An address sanitizer reserves more than any limit allows: script/sanitize leaves this test to the
// other builds, and says so.
TEST_F(CliBadFilesTest, ProjectTooLargeForTheMemoryDoesNotStopTheOthers) {
    ProjectState state = SampleProject();
    for (int i = 50; i < 200'000; ++i)
        state.RecDatGrid.push_back({CellText(std::to_string(i)), CellText("1.25")});
    WriteProject("large.qn2", state);
    WriteProject("good.qn2", SampleProject());
    const auto analyze = [this](int kilobytes, const std::string& files) {
        return RunShell("ulimit -v " + std::to_string(kilobytes) +
                        " && \"$cli\" analyze --format csv " + files);
    };
    int least = 20'000; // what the program needs at all depends on the machine's libraries
    while (analyze(least, "good.qn2").status != 0 && least < 1'000'000)
        least += 5'000;
    int failed = 0;
    int computed = 0;
    for (int kilobytes = least + 5'000; kilobytes <= least + 60'000; kilobytes += 1'000) {
        const Outcome outcome = analyze(kilobytes, "large.qn2 good.qn2");
        EXPECT_NE(outcome.out.find("\n\"good.qn2\",\"MW-1\",0,"), std::string::npos)
            << kilobytes << ": " << outcome.err;
        const bool ranOut = outcome.err.find("large.qn2: 7 Out of memory\n") == 0;
        EXPECT_EQ(outcome.status, ranOut ? 1 : 0) << kilobytes << ": " << outcome.err;
        ++(ranOut ? failed : computed);
    }
    EXPECT_GT(failed, 0);
    EXPECT_GT(computed, 0);
}

} // namespace quarnel::test
