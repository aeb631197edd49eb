// Saving a project: what of the file that it replaces is kept beside it, and what a failure says.

#include "project/Files.h"

#include "tests/CoreTestSupport.h"
#include "tests/system/SaveTestSupport.h"

#include <algorithm>

namespace quarnel::test {

namespace {

namespace fs = std::filesystem;
using NameList = std::vector<std::string>;

class SaveProject : public SaveTest {};

/// The bytes a project has on disk.
std::string BytesOf(const ProjectState& state) {
    return ProjectFileText(state).text;
}

} // namespace

TEST_F(SaveProject, ProjectTakesTheNameItIsSavedUnder) {
    ProjectState state = SmallProject();
    EXPECT_EQ(WriteProjectFile(Path("a.qn2"), state), NameList{});
    EXPECT_EQ(state.CurrentProjectFile, Path("a.qn2"));
    EXPECT_EQ(Read(Path("a.qn2")), BytesOf(state));
}

TEST_F(SaveProject, FailureIsToldAndTheNameIsTakenAllTheSame) {
    ProjectState state = SmallProject();
    EXPECT_EQ(WriteProjectFile(Path("gone/a.qn2"), state), NameList{"76 Path not found"});
    EXPECT_EQ(state.CurrentProjectFile, Path("gone/a.qn2"));
}

TEST_F(SaveProject, SectionThatFailsDoesNotKeepTheOthersOffTheDisk) {
    ProjectState state = SmallProject();
    state.WellGeoRadUnitsDDL = 9;
    EXPECT_EQ(WriteProjectFile(Path("a.qn2"), state), NameList{"380 Invalid property value"});
    const std::string bytes = Read(Path("a.qn2"));
    EXPECT_EQ(bytes.find("PICSELECT"), std::string::npos);
    EXPECT_NE(bytes.find("\"DATAPOINT\",\"75\",\"0.8\""), std::string::npos);
    EXPECT_NE(bytes.find("\"END OF FILE\"\r\n"), std::string::npos);
}

TEST_F(SaveProject, OldInputFileIsKeptBesideTheFirstSaveOverIt) {
    const std::string original = ReadExample("pratt-county-1998.in");
    Write(Path("a.in"), original);
    ASSERT_EQ(chmod(Path("a.in").c_str(), 0640), 0);
    ProjectState state;
    ASSERT_TRUE(OpenProjectFile(Path("a.in"), state).messages.empty());
    EXPECT_EQ(WriteProjectFile(Path("a.in"), state), NameList{});
    EXPECT_EQ(Read(Path("a.in.bak")), original);
    EXPECT_EQ(ModeOf(Path("a.in.bak")), 0640U);
    EXPECT_EQ(Read(Path("a.in")).find("\"QUARNEL PROJECT FILE\"\r\n"), 0U);
    EXPECT_EQ(state.OriginalToKeep, "");
    EXPECT_EQ(WriteProjectFile(Path("a.in"), state), NameList{});
    EXPECT_EQ(Names(), (NameList{"a.in", "a.in.bak"}));
}

TEST_F(SaveProject, FileReadWithFailuresIsKept) {
    const std::string damaged = "\"QUARNEL PROJECT FILE\"\r\n\"WELLGEO\",\"PICSELECT\",x\r\n";
    Write(Path("a.qn2"), damaged);
    ProjectState state;
    ASSERT_EQ(OpenProjectFile(Path("a.qn2"), state).messages, NameList{"13 Type mismatch"});
    EXPECT_EQ(WriteProjectFile(Path("a.qn2"), state), NameList{});
    EXPECT_EQ(Read(Path("a.qn2.bak")), damaged);
}

TEST_F(SaveProject, FileReadCleanlyIsNot) {
    Write(Path("a.qn2"), ReadExample("every-field.qn2"));
    ProjectState state;
    OpenProjectFile(Path("a.qn2"), state);
    EXPECT_EQ(WriteProjectFile(Path("a.qn2"), state), NameList{});
    EXPECT_EQ(Names(), NameList{"a.qn2"});
}

TEST_F(SaveProject, KeptNamesNeverReplaceOneAnother) {
    const std::string original = ReadExample("pratt-county-1998.in");
    Write(Path("a.in"), original);
    Write(Path("a.in.bak"), "first");
    Write(Path("a.in.bak2"), "second");
    ProjectState state;
    OpenProjectFile(Path("a.in"), state);
    EXPECT_EQ(WriteProjectFile(Path("a.in"), state), NameList{});
    EXPECT_EQ(Read(Path("a.in.bak")), "first");
    EXPECT_EQ(Read(Path("a.in.bak2")), "second");
    EXPECT_EQ(Read(Path("a.in.bak3")), original);
}

TEST_F(SaveProject, SaveElsewhereLeavesTheOriginalToASaveOverIt) {
    const std::string original = ReadExample("pratt-county-1998.in");
    Write(Path("a.in"), original);
    ProjectState state;
    OpenProjectFile(Path("a.in"), state);
    EXPECT_EQ(WriteProjectFile(Path("b.qn2"), state), NameList{});
    EXPECT_EQ(Names(), (NameList{"a.in", "b.qn2"}));
    EXPECT_EQ(WriteProjectFile(Path("a.in"), state), NameList{});
    EXPECT_EQ(Read(Path("a.in.bak")), original);
}

TEST_F(SaveProject, OriginalReachedThroughALinkIsKeptBesideTheFileItself) {
    const std::string original = ReadExample("pratt-county-1998.in");
    Write(Beside("real.in"), original);
    fs::create_symlink(Beside("real.in"), Path("link.in"));
    ProjectState state;
    OpenProjectFile(Beside("real.in"), state);
    EXPECT_EQ(WriteProjectFile(Path("link.in"), state), NameList{});
    EXPECT_EQ(Read(Beside("real.in.bak")), original);
    EXPECT_EQ(Names(), NameList{"link.in"});
}

TEST_F(SaveProject, OriginalThatCannotBeKeptIsNotReplaced) {
    const std::string name = std::string(254, 'n'); // NAME.bak is too long a name
    const std::string original = ReadExample("pratt-county-1998.in");
    Write(Path(name), original);
    ProjectState state;
    OpenProjectFile(Path(name), state);
    EXPECT_EQ(WriteProjectFile(Path(name), state), NameList{"52 Bad file name or number"});
    EXPECT_EQ(Read(Path(name)), original);
    EXPECT_EQ(state.OriginalToKeep, Path(name));
    EXPECT_EQ(Names(), NameList{name});
}

TEST_F(SaveProject, ReadOnlyOriginalIsRefusedWithoutACopy) {
    const std::string original = ReadExample("pratt-county-1998.in");
    Write(Path("a.in"), original);
    ASSERT_EQ(chmod(Path("a.in").c_str(), 0444), 0);
    ProjectState state;
    OpenProjectFile(Path("a.in"), state);
    EXPECT_EQ(WriteProjectFile(Path("a.in"), state), NameList{"75 Path/File access error"});
    EXPECT_EQ(Read(Path("a.in")), original);
    EXPECT_EQ(Names(), NameList{"a.in"});
}

TEST_F(SaveProject, OriginalThatIsGoneNeedsNoCopy) {
    Write(Path("a.in"), ReadExample("pratt-county-1998.in"));
    ProjectState state;
    OpenProjectFile(Path("a.in"), state);
    fs::remove(Path("a.in"));
    EXPECT_EQ(WriteProjectFile(Path("a.in"), state), NameList{});
    EXPECT_EQ(Names(), NameList{"a.in"});
}

} // namespace quarnel::test
