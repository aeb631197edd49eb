#include "tests/cli/CliTestSupport.h"

#include "project/Files.h"

#include <QDir>
#include <QFile>

namespace quarnel::test {

namespace {

class CliConvertTest : public CliTest {
protected:
    Outcome Convert(std::string_view from, std::string_view to) {
        return Run({Q("convert"), Q(from), Q(to)});
    }
    void CopyExample(std::string_view name) const {
        ASSERT_TRUE(QFile::copy(Example(name), Path(name)));
    }
};

} // namespace

TEST_F(CliConvertTest, ProjectComesOutByteForByte) {
    for (const char* name : {"every-field.qn2", "pratt-county-1998.qn2"}) {
        CopyExample(name);
        const Outcome outcome = Convert(name, "out.qn2");
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out + outcome.err, "");
        EXPECT_EQ(ReadBytes("out.qn2"), ReadBytes(name));
    }
}

TEST_F(CliConvertTest, OldInputFileBecomesTheProjectThatOpenAndSaveMake) {
    CopyExample("pratt-county-1998.in");
    EXPECT_EQ(Convert("pratt-county-1998.in", "out.qn2").status, 0);
    ProjectState state;
    OpenProjectFile(Path("pratt-county-1998.in").toStdString(), state);
    EXPECT_EQ(ReadBytes("out.qn2"), ProjectFileText(state).text);
    const QJsonArray both = AnalyzeJson({Q("pratt-county-1998.in"), Q("out.qn2")}, 0);
    EXPECT_EQ(both.at(0).toObject().value(Q("k")), both.at(1).toObject().value(Q("k")));
    EXPECT_EQ(both.at(0).toObject().value(Q("points")), both.at(1).toObject().value(Q("points")));
}

TEST_F(CliConvertTest, ExistingProjectIsReplacedAndNothingElseIsLeft) {
    CopyExample("pratt-county-1998.qn2");
    WriteProject("out.qn2", SampleProject());
    const Outcome outcome = Convert("pratt-county-1998.qn2", "out.qn2");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(ReadBytes("out.qn2"), ReadBytes("pratt-county-1998.qn2"));
    EXPECT_EQ(QDir(Path("")).entryList(QDir::Files | QDir::Hidden),
              (QStringList{Q("out.qn2"), Q("pratt-county-1998.qn2")}));
}

TEST_F(CliConvertTest, ExistingFileThatIsNoProjectIsKeptBesideIt) {
    CopyExample("pratt-county-1998.qn2");
    WriteBytes("out.qn2", "a letter");
    const Outcome outcome = Convert("pratt-county-1998.qn2", "out.qn2");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "out.qn2: The file that was there is kept as out.qn2.bak.\n");
    EXPECT_EQ(ReadBytes("out.qn2"), ReadBytes("pratt-county-1998.qn2"));
    EXPECT_EQ(ReadBytes("out.qn2.bak"), "a letter");
}

TEST_F(CliConvertTest, DamagedFileIsSavedAsFarAsItWasRead) {
    WriteProject("whole.qn2", SampleProject());
    WriteBytes("damaged.qn2", ReadBytes("whole.qn2") + "\"RECDATA\"");
    const Outcome outcome = Convert("damaged.qn2", "out.qn2");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "damaged.qn2: 62 Input past end of file\n");
    EXPECT_EQ(ReadBytes("out.qn2"), ReadBytes("whole.qn2"));
}

TEST_F(CliConvertTest, UnreadableFileLeavesTheTargetAlone) {
    WriteBytes("other.txt", "something else");
    WriteBytes("out.qn2", "old");
    for (const auto& [from, message] :
         {std::pair(std::string("other.txt"), std::string(NotAnInputFile)),
          std::pair(std::string("missing.qn2"), std::string("53 File not found"))}) {
        const Outcome outcome = Convert(from, "out.qn2");
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.err, std::string(from).append(": ").append(message).append("\n"));
        EXPECT_EQ(ReadBytes("out.qn2"), "old");
    }
}

TEST_F(CliConvertTest, TargetThatCannotBeWrittenIsToldByItsName) {
    WriteProject("a.qn2", SampleProject());
    ASSERT_TRUE(QDir(Path("")).mkdir(Q("folder")));
    for (const char* target : {"folder", "no-such-folder/out.qn2"}) {
        const Outcome outcome = Convert("a.qn2", target);
        EXPECT_EQ(outcome.status, 1) << target;
        EXPECT_EQ(Q(outcome.err).indexOf(Q(target) + Q(": 7")), 0) << outcome.err; // 75 or 76
    }
}

TEST_F(CliConvertTest, TextThatWillNotReadBackIsToldAndKept) {
    WriteBytes("quoted.in", "The \"old\" title\nClient\nJob\nWell\n H  Le  Lw  rc  rw  n\n"
                            "50 10 20 0.2 0.3 0\nRows\n2\nTime (sec) Y (ft) W\n0 4 1\n10 3 1\n");
    const Outcome outcome = Convert("quoted.in", "out.qn2");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "out.qn2: Will not read back intact: Graph Title 1\n");
    EXPECT_NE(ReadBytes("out.qn2").find("The \"old\" title"), std::string::npos);
}

TEST_F(CliConvertTest, ItemsPassedOverAreToldButNoFailure) {
    WriteProject("a.qn2", SampleProject());
    WriteBytes("b.qn2", ReadBytes("a.qn2") + "\"WEATHER\",\"RAIN\"\r\n");
    const Outcome outcome = Convert("b.qn2", "out.qn2");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "b.qn2: Items passed over: 2 (see quarnel-cli check).\n");
    EXPECT_EQ(ReadBytes("out.qn2"), ReadBytes("a.qn2"));
}

TEST_F(CliConvertTest, OldInputFileConvertedOntoItselfIsKeptBesideIt) {
    CopyExample("pratt-county-1998.in");
    const std::string before = ReadBytes("pratt-county-1998.in");
    EXPECT_EQ(Convert("pratt-county-1998.in", "pratt-county-1998.in").status, 0);
    EXPECT_EQ(ReadBytes("pratt-county-1998.in").find("\"QUARNEL PROJECT FILE\"\r\n"), 0U);
    EXPECT_EQ(ReadBytes("pratt-county-1998.in.bak"), before);
}

} // namespace quarnel::test
