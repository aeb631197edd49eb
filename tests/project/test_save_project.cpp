// Saving a project: what of the file that it replaces is kept beside it, and what a failure says.

#include "project/Files.h"
#include "system/ReplaceFile.h"

#include "tests/CoreTestSupport.h"
#include "tests/system/SaveTestSupport.h"

namespace quarnel::test {

namespace {

namespace fs = std::filesystem;
using NameList = std::vector<std::string>;

/// The bytes a project has on disk.
std::string BytesOf(const ProjectState& state) {
    return ProjectFileText(state).text;
}

/// One window: its project and what it knows of the file on disk.
struct Window {
    ProjectState state = SmallProject();
    FileOnDisk file;

    ReadReport Open(const std::string& path) { return OpenProjectFile(path, state, file); }
    SaveReport Save(const std::string& path) { return WriteProjectFile(path, state, file); }
    /// Saves, which must succeed without a word.
    void SaveWell(const std::string& path) {
        const SaveReport report = Save(path);
        EXPECT_TRUE(report.isSaved);
        EXPECT_EQ(report.messages, NameList{});
    }
    /// New: nothing of the former project or its file is left.
    void New() { *this = Window(); }
};

class SaveProject : public SaveTest {
protected:
    const std::string oldInput_ = ReadExample("pratt-county-1998.in");
    const std::string project_ = ReadExample("every-field.qn2");
    const std::string damaged_ = "\"QUARNEL PROJECT FILE\"\r\n\"WELLGEO\",\"PICSELECT\",x\r\n";
};

} // namespace

// ---- The name and the failures -----------------------------------------------------------------

TEST_F(SaveProject, ProjectTakesTheNameItIsSavedUnder) {
    Window window;
    window.SaveWell(Path("a.qn2"));
    EXPECT_EQ(window.file.CurrentProjectFile, Path("a.qn2"));
    EXPECT_EQ(Read(Path("a.qn2")), BytesOf(window.state));
    EXPECT_EQ(Names(), NameList{"a.qn2"});
}

TEST_F(SaveProject, FailureIsToldAndTheFormerNameStays) {
    Window window;
    EXPECT_EQ(window.Save(Path("gone/a.qn2")).messages, NameList{"76 Path not found"});
    EXPECT_EQ(window.file.CurrentProjectFile, "");
    window.SaveWell(Path("a.qn2"));
    const SaveReport report = window.Save(Path("gone/a.qn2"));
    EXPECT_FALSE(report.isSaved);
    EXPECT_EQ(window.file.CurrentProjectFile, Path("a.qn2"));
    window.SaveWell(Path("a.qn2"));
    EXPECT_EQ(Names(), NameList{"a.qn2"});
}

TEST_F(SaveProject, SectionThatFailsDoesNotKeepTheOthersOffTheDisk) {
    Window window;
    window.state.WellGeoRadUnitsDDL = 9;
    const SaveReport report = window.Save(Path("a.qn2"));
    EXPECT_TRUE(report.isSaved);
    EXPECT_EQ(report.messages, NameList{"380 Invalid property value"});
    EXPECT_EQ(window.file.CurrentProjectFile, Path("a.qn2"));
    const std::string bytes = Read(Path("a.qn2"));
    EXPECT_EQ(bytes.find("PICSELECT"), std::string::npos);
    EXPECT_NE(bytes.find("\"DATAPOINT\",\"75\",\"0.8\""), std::string::npos);
    EXPECT_NE(bytes.find("\"END OF FILE\"\r\n"), std::string::npos);
}

// ---- The file that was opened ------------------------------------------------------------------

TEST_F(SaveProject, OldInputFileIsKeptBesideTheFirstSaveOverIt) {
    Write(Path("a.in"), oldInput_);
    ASSERT_EQ(chmod(Path("a.in").c_str(), 0640), 0);
    Window window;
    ASSERT_TRUE(window.Open(Path("a.in")).messages.empty());
    EXPECT_EQ(window.file.CurrentProjectFile, Path("a.in"));
    const SaveReport report = window.Save(Path("a.in"));
    EXPECT_TRUE(report.isSaved);
    EXPECT_EQ(report.keptAs, Path("a.in.bak"));
    EXPECT_FALSE(report.changedOnDisk);
    EXPECT_EQ(Read(Path("a.in.bak")), oldInput_);
    EXPECT_EQ(ModeOf(Path("a.in.bak")), 0640U);
    EXPECT_EQ(Read(Path("a.in")).find("\"QUARNEL PROJECT FILE\"\r\n"), 0U);
    EXPECT_EQ(window.Save(Path("a.in")).keptAs, "");
    EXPECT_EQ(Names(), (NameList{"a.in", "a.in.bak"}));
}

TEST_F(SaveProject, FileReadWithFailuresIsKept) {
    Write(Path("a.qn2"), damaged_);
    Window window;
    ASSERT_EQ(window.Open(Path("a.qn2")).messages, NameList{"13 Type mismatch"});
    window.SaveWell(Path("a.qn2"));
    EXPECT_EQ(Read(Path("a.qn2.bak")), damaged_);
}

TEST_F(SaveProject, FileOfWhichItemsWerePassedOverIsKept) {
    const std::string notes =
        "Notes on my Quarnel project file: ask for the well's depth\r\n42\r\n";
    Write(Path("notes.txt"), notes);
    Window window;
    ASSERT_EQ(window.Open(Path("notes.txt")).messages, NameList{});
    window.SaveWell(Path("notes.txt"));
    EXPECT_EQ(Read(Path("notes.txt.bak")), notes);
}

TEST_F(SaveProject, FileReadCleanlyIsNot) {
    Write(Path("a.qn2"), project_);
    Window window;
    window.Open(Path("a.qn2"));
    window.SaveWell(Path("a.qn2"));
    EXPECT_EQ(Names(), NameList{"a.qn2"});
}

TEST_F(SaveProject, KeptNamesNeverReplaceOneAnother) {
    Write(Path("a.in"), oldInput_);
    Write(Path("a.in.bak"), "first");
    Write(Path("a.in.bak2"), "second");
    Window window;
    window.Open(Path("a.in"));
    EXPECT_EQ(window.Save(Path("a.in")).keptAs, Path("a.in.bak3"));
    EXPECT_EQ(Read(Path("a.in.bak")), "first");
    EXPECT_EQ(Read(Path("a.in.bak2")), "second");
    EXPECT_EQ(Read(Path("a.in.bak3")), oldInput_);
}

TEST_F(SaveProject, SaveElsewhereLeavesTheOriginalToASaveOverIt) {
    Write(Path("a.in"), oldInput_);
    Window window;
    window.Open(Path("a.in"));
    window.SaveWell(Path("b.qn2"));
    EXPECT_EQ(Names(), (NameList{"a.in", "b.qn2"}));
    window.SaveWell(Path("a.in"));
    EXPECT_EQ(Read(Path("a.in.bak")), oldInput_);
}

TEST_F(SaveProject, NewAndAnotherFileDoNotForgetTheOriginal) {
    for (const bool opensAnother : {false, true}) {
        Write(Path("a.in"), oldInput_);
        Write(Path("b.qn2"), project_);
        Window window;
        window.Open(Path("a.in"));
        if (opensAnother)
            window.Open(Path("b.qn2"));
        else
            window.New();
        EXPECT_EQ(window.Save(Path("a.in")).keptAs, Path("a.in.bak"));
        EXPECT_EQ(Read(Path("a.in.bak")), oldInput_);
        fs::remove(Path("a.in.bak"));
    }
}

TEST_F(SaveProject, OriginalReachedThroughALinkIsKeptBesideTheFileItself) {
    Write(Beside("real.in"), oldInput_);
    fs::create_symlink(Beside("real.in"), Path("link.in"));
    Window window;
    window.Open(Beside("real.in"));
    EXPECT_EQ(window.Save(Path("link.in")).keptAs, Beside("real.in.bak"));
    EXPECT_EQ(Read(Beside("real.in.bak")), oldInput_);
    EXPECT_EQ(Names(), NameList{"link.in"});
}

TEST_F(SaveProject, OriginalThatCannotBeKeptIsNotReplaced) {
    const std::string name = std::string(254, 'n'); // NAME.bak is too long a name
    Write(Path(name), oldInput_);
    Window window;
    window.Open(Path(name));
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(window.Save(Path(name)).messages, NameList{"52 Bad file name or number"});
        EXPECT_EQ(Read(Path(name)), oldInput_);
        EXPECT_EQ(Names(), NameList{name});
    }
}

TEST_F(SaveProject, ReadOnlyOriginalIsRefusedWithoutACopy) {
    Write(Path("a.in"), oldInput_);
    ASSERT_EQ(chmod(Path("a.in").c_str(), 0444), 0);
    Window window;
    window.Open(Path("a.in"));
    EXPECT_EQ(window.Save(Path("a.in")).messages, NameList{"75 Path/File access error"});
    EXPECT_EQ(Read(Path("a.in")), oldInput_);
    EXPECT_EQ(Names(), NameList{"a.in"});
}

TEST_F(SaveProject, OriginalThatIsGoneNeedsNoCopy) {
    Write(Path("a.in"), oldInput_);
    Window window;
    window.Open(Path("a.in"));
    fs::remove(Path("a.in"));
    window.SaveWell(Path("a.in"));
    EXPECT_EQ(Names(), NameList{"a.in"});
}

// ---- A file that somebody else changed ---------------------------------------------------------

TEST_F(SaveProject, FileChangedSinceItWasOpenedIsKeptAndTold) {
    for (const bool replaced : {false, true}) {
        Write(Path("a.qn2"), project_);
        Window window;
        window.Open(Path("a.qn2"));
        window.SaveWell(Path("a.qn2"));
        Window other;
        other.Open(Path("a.qn2"));
        other.state.SiteIDText[SiteName] = "the other window's";
        other.SaveWell(Path("a.qn2"));
        if (!replaced) // in place, as an editor may do
            Write(Path("a.qn2"), BytesOf(other.state));
        const SaveReport report = window.Save(Path("a.qn2"));
        EXPECT_TRUE(report.isSaved);
        EXPECT_EQ(report.messages, NameList{});
        EXPECT_TRUE(report.changedOnDisk);
        EXPECT_EQ(report.keptAs, Path("a.qn2.bak"));
        EXPECT_EQ(Read(Path("a.qn2.bak")), BytesOf(other.state));
        const SaveReport again = window.Save(Path("a.qn2"));
        EXPECT_FALSE(again.changedOnDisk);
        EXPECT_EQ(Names(), (NameList{"a.qn2", "a.qn2.bak"}));
        fs::remove(Path("a.qn2.bak"));
    }
}

TEST_F(SaveProject, ManySavesAreNeverSomebodyElses) {
    Window window;
    for (int i = 0; i < 50; ++i) {
        window.state.SiteIDText[SiteName] = std::to_string(i);
        EXPECT_FALSE(window.Save(Path("a.qn2")).changedOnDisk);
    }
    EXPECT_EQ(Names(), NameList{"a.qn2"});
}

TEST_F(SaveProject, PermissionsAreNoChange) {
    Window window;
    window.SaveWell(Path("a.qn2"));
    ASSERT_EQ(chmod(Path("a.qn2").c_str(), 0600), 0);
    fs::create_hard_link(Path("a.qn2"), Path("b.qn2"));
    EXPECT_EQ(window.Save(Path("a.qn2")).keptAs, "");
}

// ---- A file that this window never saw ---------------------------------------------------------

TEST_F(SaveProject, StrangeFileIsKeptUnlessItReadsWholeAsAProject) {
    struct Case {
        std::string bytes;
        bool kept;
    };
    for (const Case& c :
         {Case{project_, false}, Case{oldInput_, true}, Case{damaged_, true},
          Case{"a letter\n", true}, Case{"", true}, Case{project_ + "\"note\"\r\n", true},
          Case{project_.substr(0, project_.size() / 2), true},
          Case{std::string(100'000, '\0'), true}}) {
        Write(Path("a"), c.bytes);
        Window window;
        const SaveReport report = window.Save(Path("a"));
        EXPECT_TRUE(report.isSaved);
        EXPECT_FALSE(report.changedOnDisk);
        EXPECT_EQ(report.keptAs, c.kept ? Path("a.bak") : "") << c.bytes.substr(0, 100);
        EXPECT_EQ(Read(Path("a.bak")), c.kept ? c.bytes : "");
        fs::remove(Path("a.bak"));
    }
}

TEST_F(SaveProject, FileThatCannotBeLookedAtIsNotReplaced) {
    if (geteuid() == 0) { // whom no file is closed to
        for (const auto& folder : {root_, root_ / "projects"})
            ASSERT_EQ(chmod(folder.c_str(), 0777), 0);
    }
    Write(Path("a"), "closed");
    ASSERT_EQ(chmod(Path("a").c_str(), 0222), 0);
    const pid_t child = fork();
    if (child == 0) {
        if (geteuid() == 0 && setuid(65534) != 0)
            _exit(2);
        Window window;
        _exit(window.Save(Path("a")).messages == NameList{"70 Permission denied"} ? 0 : 1);
    }
    EXPECT_EQ(Finish(child), 0);
    EXPECT_EQ(Read(Path("a")), geteuid() == 0 ? "closed" : "");
    EXPECT_EQ(Names(), NameList{"a"});
}

// ---- A save that failed after the copy ---------------------------------------------------------

// The folder takes the copy but not the temporary file: once there is room the same copy serves.
TEST_F(SaveProject, NextTryNeedsNoSecondCopy) {
    Write(Path("a.in"), oldInput_);
    Window window;
    window.Open(Path("a.in"));
    const SaveTarget target = TargetOf(Path("a.in"));
    std::string keptAs;
    ASSERT_EQ(KeepFileBeside(target.path, keptAs), FileFailure::None);
    window.file.keptAs = keptAs;
    window.file.keptVersion = target.version;
    EXPECT_EQ(window.Save(Path("a.in")).keptAs, Path("a.in.bak"));
    EXPECT_EQ(Names(), (NameList{"a.in", "a.in.bak"}));
}

TEST_F(SaveProject, CopyThatIsGoneAtTheNextTryIsMadeAgain) {
    Write(Path("a.in"), oldInput_);
    Window window;
    window.Open(Path("a.in"));
    window.file.keptAs = Path("a.in.bak");
    window.file.keptVersion = TargetOf(Path("a.in")).version;
    window.SaveWell(Path("a.in"));
    EXPECT_EQ(Read(Path("a.in.bak")), oldInput_);
}

} // namespace quarnel::test
