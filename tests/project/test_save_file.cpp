// Saving a file: what a target may be, what is kept of it, what a failure says.

#include "system/ReplaceFile.h"

#include "tests/project/SaveTestSupport.h"

#include <algorithm>

namespace quarnel::test {

namespace {

namespace fs = std::filesystem;
using NameList = std::vector<std::string>;

class SaveFile : public SaveTest {};

/// The bytes a project has on disk.
std::string BytesOf(const ProjectState& state) {
    return ProjectFileText(state).text;
}

} // namespace

// ---- SaveFileBytes -----------------------------------------------------------------------------

TEST_F(SaveFile, NewFileHoldsTheBytesAndNothingElseIsLeft) {
    EXPECT_EQ(SaveFileBytes(Path("a.qn2"), "one\r\n"), FileFailure::None);
    EXPECT_EQ(Read(Path("a.qn2")), "one\r\n");
    EXPECT_EQ(Names(), NameList{"a.qn2"});
}

TEST_F(SaveFile, NewFileHasThePermissionsOfAnyNewFile) {
    const mode_t before = umask(027);
    EXPECT_EQ(SaveFileBytes(Path("a.qn2"), "one"), FileFailure::None);
    umask(before);
    EXPECT_EQ(ModeOf(Path("a.qn2")), 0640U);
}

TEST_F(SaveFile, OldFileIsReplacedWhole) {
    Write(Path("a.qn2"), std::string(100000, 'x'));
    EXPECT_EQ(SaveFileBytes(Path("a.qn2"), "short"), FileFailure::None);
    EXPECT_EQ(Read(Path("a.qn2")), "short");
    EXPECT_EQ(SaveFileBytes(Path("a.qn2"), ""), FileFailure::None);
    EXPECT_EQ(Read(Path("a.qn2")), "");
}

TEST_F(SaveFile, PermissionsOfTheTargetAreKept) {
    for (const mode_t mode : {0600U, 0666U, 0640U, 0200U}) {
        Write(Path("a.qn2"), "old");
        ASSERT_EQ(chmod(Path("a.qn2").c_str(), mode), 0);
        const int written = geteuid() == 0 || (mode & 0200U) != 0;
        EXPECT_EQ(SaveFileBytes(Path("a.qn2"), "new") == FileFailure::None, written != 0);
        EXPECT_EQ(ModeOf(Path("a.qn2")), mode);
        fs::remove(Path("a.qn2"));
    }
}

TEST_F(SaveFile, ReadOnlyTargetIsRefusedAndStays) {
    Write(Path("a.qn2"), "old");
    ASSERT_EQ(chmod(Path("a.qn2").c_str(), 0444), 0);
    EXPECT_EQ(SaveFileBytes(Path("a.qn2"), "new"), FileFailure::PathFileAccess);
    EXPECT_EQ(Read(Path("a.qn2")), "old");
    EXPECT_EQ(ModeOf(Path("a.qn2")), 0444U);
    EXPECT_EQ(Names(), NameList{"a.qn2"});
}

TEST_F(SaveFile, FolderAsTargetIsRefused) {
    fs::create_directory(Path("folder"));
    Write(Path("folder/inner"), "kept");
    EXPECT_EQ(SaveFileBytes(Path("folder"), "new"), FileFailure::PathFileAccess);
    EXPECT_EQ(SaveFileBytes(Path("folder/"), "new"), FileFailure::PathFileAccess);
    EXPECT_EQ(Read(Path("folder/inner")), "kept");
}

TEST_F(SaveFile, PipeAsTargetIsRefused) {
    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0666), 0);
    EXPECT_EQ(SaveFileBytes(Path("pipe"), "new"), FileFailure::PathFileAccess);
    EXPECT_TRUE(fs::is_fifo(Path("pipe")));
}

TEST_F(SaveFile, FolderThatIsGoneIsAPathNotFound) {
    EXPECT_EQ(SaveFileBytes(Path("gone/a.qn2"), "new"), FileFailure::PathNotFound);
    Write(Path("file"), "not a folder");
    EXPECT_EQ(SaveFileBytes(Path("file/a.qn2"), "new"), FileFailure::PathNotFound);
    EXPECT_EQ(Names(), NameList{"file"});
}

TEST_F(SaveFile, NameThatCannotBeIsABadFileName) {
    using std::string_literals::operator""s;
    for (const std::string& name : {""s, Path("a\0b"s), Path(std::string(300, 'n'))})
        EXPECT_EQ(SaveFileBytes(name, "new"), FileFailure::BadFileName) << name;
    EXPECT_EQ(Names(), NameList{});
}

TEST_F(SaveFile, NamesOfEveryKindAreKept) {
    const std::string longest(255, 'n');
    for (const std::string& name : {longest, std::string("\xFF\xFE not UTF-8"),
                                    std::string("\xC3\xA9t\xC3\xA9 [*] %1.qn2")}) {
        EXPECT_EQ(SaveFileBytes(Path(name), "one"), FileFailure::None);
        EXPECT_EQ(SaveFileBytes(Path(name), "two"), FileFailure::None);
        EXPECT_EQ(Read(Path(name)), "two");
        EXPECT_EQ(Names(), NameList{name});
        fs::remove(Path(name));
    }
}

TEST_F(SaveFile, NameWithoutFolderGoesIntoTheCurrentOne) {
    const fs::path before = fs::current_path();
    fs::current_path(root_ / "projects");
    EXPECT_EQ(SaveFileBytes("a.qn2", "one"), FileFailure::None);
    EXPECT_EQ(SaveFileBytes("a.qn2", "two"), FileFailure::None);
    fs::current_path(before);
    EXPECT_EQ(Read(Path("a.qn2")), "two");
    EXPECT_EQ(Names(), NameList{"a.qn2"});
}

TEST_F(SaveFile, LinkIsFollowedAndStaysALink) {
    Write(Beside("real.qn2"), "old");
    ASSERT_EQ(chmod(Beside("real.qn2").c_str(), 0604), 0);
    fs::create_symlink("../beside/real.qn2", Path("near.qn2"));
    fs::create_symlink(Path("near.qn2"), Path("far.qn2"));
    EXPECT_EQ(SaveFileBytes(Path("far.qn2"), "new"), FileFailure::None);
    EXPECT_EQ(Read(Beside("real.qn2")), "new");
    EXPECT_EQ(ModeOf(Beside("real.qn2")), 0604U);
    EXPECT_TRUE(fs::is_symlink(Path("near.qn2")) && fs::is_symlink(Path("far.qn2")));
    EXPECT_EQ(Names(), (NameList{"far.qn2", "near.qn2"}));
}

TEST_F(SaveFile, LinkToNothingMakesWhatItPointsTo) {
    fs::create_symlink(Beside("new.qn2"), Path("link.qn2"));
    EXPECT_EQ(SaveFileBytes(Path("link.qn2"), "new"), FileFailure::None);
    EXPECT_EQ(Read(Beside("new.qn2")), "new");
    EXPECT_TRUE(fs::is_symlink(Path("link.qn2")));
}

TEST_F(SaveFile, LinkInACircleIsRefused) {
    fs::create_symlink(Path("b"), Path("a"));
    fs::create_symlink(Path("a"), Path("b"));
    EXPECT_EQ(SaveFileBytes(Path("a"), "new"), FileFailure::PathFileAccess);
    EXPECT_TRUE(fs::is_symlink(Path("a")) && fs::is_symlink(Path("b")));
}

// ---- WriteProjectFile --------------------------------------------------------------------------

TEST_F(SaveFile, ProjectTakesTheNameItIsSavedUnder) {
    ProjectState state = SmallProject();
    EXPECT_EQ(WriteProjectFile(Path("a.qn2"), state), NameList{});
    EXPECT_EQ(state.CurrentProjectFile, Path("a.qn2"));
    EXPECT_EQ(Read(Path("a.qn2")), BytesOf(state));
}

TEST_F(SaveFile, FailureIsToldAndTheNameIsTakenAllTheSame) {
    ProjectState state = SmallProject();
    EXPECT_EQ(WriteProjectFile(Path("gone/a.qn2"), state), NameList{"76 Path not found"});
    EXPECT_EQ(state.CurrentProjectFile, Path("gone/a.qn2"));
}

TEST_F(SaveFile, SectionThatFailsDoesNotKeepTheOthersOffTheDisk) {
    ProjectState state = SmallProject();
    state.WellGeoRadUnitsDDL = 9;
    EXPECT_EQ(WriteProjectFile(Path("a.qn2"), state), NameList{"380 Invalid property value"});
    const std::string bytes = Read(Path("a.qn2"));
    EXPECT_EQ(bytes.find("PICSELECT"), std::string::npos);
    EXPECT_NE(bytes.find("\"DATAPOINT\",\"75\",\"0.8\""), std::string::npos);
    EXPECT_NE(bytes.find("\"END OF FILE\"\r\n"), std::string::npos);
}

TEST_F(SaveFile, OldInputFileIsKeptBesideTheFirstSaveOverIt) {
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

TEST_F(SaveFile, FileReadWithFailuresIsKept) {
    const std::string damaged = "\"QUARNEL PROJECT FILE\"\r\n\"WELLGEO\",\"PICSELECT\",x\r\n";
    Write(Path("a.qn2"), damaged);
    ProjectState state;
    ASSERT_EQ(OpenProjectFile(Path("a.qn2"), state).messages, NameList{"13 Type mismatch"});
    EXPECT_EQ(WriteProjectFile(Path("a.qn2"), state), NameList{});
    EXPECT_EQ(Read(Path("a.qn2.bak")), damaged);
}

TEST_F(SaveFile, FileReadCleanlyIsNot) {
    Write(Path("a.qn2"), ReadExample("every-field.qn2"));
    ProjectState state;
    OpenProjectFile(Path("a.qn2"), state);
    EXPECT_EQ(WriteProjectFile(Path("a.qn2"), state), NameList{});
    EXPECT_EQ(Names(), NameList{"a.qn2"});
}

TEST_F(SaveFile, KeptNamesNeverReplaceOneAnother) {
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

TEST_F(SaveFile, SaveElsewhereLeavesTheOriginalToASaveOverIt) {
    const std::string original = ReadExample("pratt-county-1998.in");
    Write(Path("a.in"), original);
    ProjectState state;
    OpenProjectFile(Path("a.in"), state);
    EXPECT_EQ(WriteProjectFile(Path("b.qn2"), state), NameList{});
    EXPECT_EQ(Names(), (NameList{"a.in", "b.qn2"}));
    EXPECT_EQ(WriteProjectFile(Path("a.in"), state), NameList{});
    EXPECT_EQ(Read(Path("a.in.bak")), original);
}

TEST_F(SaveFile, OriginalReachedThroughALinkIsKeptBesideTheFileItself) {
    const std::string original = ReadExample("pratt-county-1998.in");
    Write(Beside("real.in"), original);
    fs::create_symlink(Beside("real.in"), Path("link.in"));
    ProjectState state;
    OpenProjectFile(Beside("real.in"), state);
    EXPECT_EQ(WriteProjectFile(Path("link.in"), state), NameList{});
    EXPECT_EQ(Read(Beside("real.in.bak")), original);
    EXPECT_EQ(Names(), NameList{"link.in"});
}

TEST_F(SaveFile, OriginalThatCannotBeKeptIsNotReplaced) {
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

TEST_F(SaveFile, ReadOnlyOriginalIsRefusedWithoutACopy) {
    const std::string original = ReadExample("pratt-county-1998.in");
    Write(Path("a.in"), original);
    ASSERT_EQ(chmod(Path("a.in").c_str(), 0444), 0);
    ProjectState state;
    OpenProjectFile(Path("a.in"), state);
    EXPECT_EQ(WriteProjectFile(Path("a.in"), state), NameList{"75 Path/File access error"});
    EXPECT_EQ(Read(Path("a.in")), original);
    EXPECT_EQ(Names(), NameList{"a.in"});
}

TEST_F(SaveFile, OriginalThatIsGoneNeedsNoCopy) {
    Write(Path("a.in"), ReadExample("pratt-county-1998.in"));
    ProjectState state;
    OpenProjectFile(Path("a.in"), state);
    fs::remove(Path("a.in"));
    EXPECT_EQ(WriteProjectFile(Path("a.in"), state), NameList{});
    EXPECT_EQ(Names(), NameList{"a.in"});
}

} // namespace quarnel::test
