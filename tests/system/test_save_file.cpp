// Saving a file: what a target may be, what is kept of it, what a failure says.

#include "system/ReplaceFile.h"

#include "tests/system/SaveTestSupport.h"

#include <fcntl.h>
#include <sys/file.h>

namespace quarnel::test {

namespace {

namespace fs = std::filesystem;
using NameList = std::vector<std::string>;

class SaveFile : public SaveTest {};

} // namespace

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

TEST_F(SaveFile, OtherNamesOfTheFileKeepTheOldOne) {
    Write(Path("a"), "old");
    fs::create_hard_link(Path("a"), Path("b"));
    EXPECT_EQ(SaveFileBytes(Path("a"), "new"), FileFailure::None);
    EXPECT_EQ(Read(Path("a")), "new");
    EXPECT_EQ(Read(Path("b")), "old");
}

TEST_F(SaveFile, VersionHandedBackIsTheOneOnDisk) {
    FileVersion saved;
    for (const char* bytes : {"one", "two"}) { // a new file, and one that replaces it
        EXPECT_EQ(SaveFileBytes(Path("a"), bytes, &saved), FileFailure::None);
        EXPECT_EQ(ReadFileBytes(Path("a")).version, saved);
        EXPECT_EQ(TargetOf(Path("a")).version, saved);
    }
}

TEST_F(SaveFile, TargetSaysWhatASaveWouldReplace) {
    Write(Beside("real"), "x");
    fs::create_symlink(Beside("real"), Path("link"));
    const SaveTarget there = TargetOf(Path("link"));
    EXPECT_EQ(there.failure, FileFailure::None);
    EXPECT_TRUE(there.exists);
    EXPECT_EQ(there.path, Beside("real"));
    const SaveTarget none = TargetOf(Path("none"));
    EXPECT_EQ(none.failure, FileFailure::None);
    EXPECT_FALSE(none.exists);
    EXPECT_EQ(TargetOf(Path("")).failure, FileFailure::PathFileAccess);
}

// ---- Temporary files

TEST_F(SaveFile, LitterOfAKilledSaveIsRemoved) {
    Write(Path(".quarnel-1-0.tmp"), "dead"); // the number of a process that lives
    Write(Path(".quarnel-99999999-17.tmp"), "dead");
    EXPECT_EQ(SaveFileBytes(Path("a"), "new"), FileFailure::None);
    EXPECT_EQ(Names(), NameList{"a"});
}

TEST_F(SaveFile, OnlyLitterOfOursIsRemoved) {
    const NameList others = {".quarnel--0.tmp", ".quarnel-1-.tmp",    ".quarnel-1-0.tmp~",
                             ".quarnel-1.tmp",  ".quarnel-1-0x.tmp",  ".quarnel-.tmp",
                             "quarnel-1-0.tmp", ".quarnel-1-0-0.tmp", ".tmp"};
    for (const std::string& name : others)
        Write(Path(name), "x");
    Write(Beside("victim"), "x");
    fs::create_directory(Path(".quarnel-1-1.tmp"));
    fs::create_symlink(Beside("victim"), Path(".quarnel-1-2.tmp"));
    ASSERT_EQ(mkfifo(Path(".quarnel-1-3.tmp").c_str(), 0600), 0);
    EXPECT_EQ(SaveFileBytes(Path("a"), "new"), FileFailure::None);
    EXPECT_EQ(Names().size(), others.size() + 4);
    EXPECT_EQ(Read(Beside("victim")), "x");
}

TEST_F(SaveFile, FileThatIsStillBeingWrittenStays) {
    Write(Path(".quarnel-1-0.tmp"), "half");
    const int writer = open(Path(".quarnel-1-0.tmp").c_str(), O_WRONLY);
    ASSERT_EQ(flock(writer, LOCK_EX), 0);
    EXPECT_EQ(SaveFileBytes(Path("a"), "new"), FileFailure::None);
    EXPECT_EQ(Names(), (NameList{".quarnel-1-0.tmp", "a"}));
    close(writer);
    EXPECT_EQ(SaveFileBytes(Path("a"), "new"), FileFailure::None);
    EXPECT_EQ(Names(), NameList{"a"});
}

// Many at once in one folder, each cleaning up: nobody loses what he is just writing.
TEST_F(SaveFile, SavesAtOnceDoNotCleanUpEachOther) {
    Write(Beside("from"), "bytes");
    constexpr int Rounds = 20;
    for (int round = 0; round < Rounds; ++round) {
        std::vector<pid_t> savers;
        for (const char* name : {"a", "b", "c", "d"})
            savers.push_back(Start({QUARNEL_REPLACE_DRIVER, Beside("from"), Path(name)}));
        for (const pid_t saver : savers)
            EXPECT_EQ(Finish(saver), 0);
    }
    EXPECT_EQ(Names(), (NameList{"a", "b", "c", "d"}));
}

// A name that is taken, even by a link to nothing, is never written through.
TEST_F(SaveFile, TemporaryFileIsAlwaysANewOne) {
    const std::string first = ".quarnel-" + std::to_string(getpid()) + "-0.tmp";
    const std::string second = ".quarnel-" + std::to_string(getpid()) + "-1.tmp";
    Write(Path(first), "another's");
    const int writer = open(Path(first).c_str(), O_WRONLY);
    ASSERT_EQ(flock(writer, LOCK_EX), 0);
    fs::create_symlink(Beside("nothing"), Path(second));
    EXPECT_EQ(SaveFileBytes(Path("a"), "new"), FileFailure::None);
    close(writer);
    EXPECT_EQ(Read(Path("a")), "new");
    EXPECT_EQ(Read(Path(first)), "another's");
    EXPECT_FALSE(fs::exists(Beside("nothing")));
    EXPECT_EQ(Names(), (NameList{first, second, "a"}));
}

// ---- KeepFileBeside

TEST_F(SaveFile, KeptFileIsACopyUnderTheFirstFreeName) {
    const std::string bytes(3'000'000, 'x');
    Write(Path("a"), bytes);
    ASSERT_EQ(chmod(Path("a").c_str(), 0604), 0);
    Write(Path("a.bak"), "there");
    fs::create_symlink(Beside("nothing"), Path("a.bak2"));
    std::string keptAs;
    EXPECT_EQ(KeepFileBeside(Path("a"), keptAs), FileFailure::None);
    EXPECT_EQ(keptAs, Path("a.bak3"));
    EXPECT_EQ(Read(Path("a.bak3")), bytes);
    EXPECT_EQ(ModeOf(Path("a.bak3")), 0604U);
    EXPECT_EQ(Read(Path("a.bak")), "there");
    EXPECT_FALSE(fs::exists(Beside("nothing")));
}

TEST_F(SaveFile, WhatCannotBeKeptLeavesNothing) {
    std::string keptAs;
    const std::string longest(254, 'n'); // NAME.bak is too long a name
    Write(Path(longest), "x");
    EXPECT_EQ(KeepFileBeside(Path(longest), keptAs), FileFailure::BadFileName);
    EXPECT_EQ(KeepFileBeside(Path("none"), keptAs), FileFailure::FileNotFound);
    EXPECT_EQ(keptAs, "");
    EXPECT_EQ(Names(), NameList{longest});
}

} // namespace quarnel::test
