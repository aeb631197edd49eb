// Every call of a save fails once, and every one ends the process once: the file is the whole old
// one or the whole new one, and what failed is told.

#include "tests/system/SaveTestSupport.h"

#include <algorithm>
#include <cerrno>

namespace quarnel::test {

namespace {

using NameList = std::vector<std::string>;

class FailingSaves : public SaveTest {
protected:
    int Save(const Environment& settings) {
        std::filesystem::remove_all(root_ / "projects");
        std::filesystem::create_directory(root_ / "projects");
        Write(Beside("new"), "new");
        Write(Path("a"), "old");
        EXPECT_EQ(chmod(Path("a").c_str(), 0640), 0);
        return Finish(Start({QUARNEL_REPLACE_DRIVER, Beside("new"), Path("a")}, Failing(settings)));
    }
    int SaveFailingAt(std::size_t n, int error) {
        return Save({{"QUARNEL_FAIL_AT", std::to_string(n)},
                     {"QUARNEL_FAIL_ERRNO", std::to_string(error)}});
    }
    int SaveWithout(const std::string& call, int error) {
        return Save({{"QUARNEL_FAIL_NAME", call}, {"QUARNEL_FAIL_ERRNO", std::to_string(error)}});
    }
    /// The places of a call among all, counted from 1.
    static std::vector<std::size_t> PlacesOf(const std::string& call, const NameList& calls) {
        std::vector<std::size_t> places;
        for (std::size_t i = 0; i < calls.size(); ++i)
            if (calls[i] == call)
                places.push_back(i + 1);
        return places;
    }
    void ExpectOldAndNothingElse() const {
        EXPECT_EQ(Read(Path("a")), "old");
        EXPECT_EQ(ModeOf(Path("a")), 0640U);
        EXPECT_EQ(Names(), NameList{"a"});
    }
};

} // namespace

TEST_F(FailingSaves, FileIsFlushedAndClosedBeforeTheRenamingAndTheFolderFlushedAfter) {
    EXPECT_EQ(SaveFailingAt(0, 0), 0);
    EXPECT_EQ(Read(Path("a")), "new");
    const NameList calls = Calls();
    const NameList order = {"open", "write", "fchmod", "fsync", "close", "rename", "fsync"};
    auto at = calls.begin();
    for (const std::string& call : order) {
        at = std::find(at, calls.end(), call);
        ASSERT_NE(at, calls.end()) << call;
        ++at;
    }
}

TEST_F(FailingSaves, KilledAtEveryCallLeavesOldOrNew) {
    std::size_t n = 1;
    for (; SaveFailingAt(n, 0) != 0; ++n) {
        const NameList calls = Calls();
        ASSERT_EQ(calls.size(), n);
        const bool renamed = PlacesOf("rename", calls).size() == 1 && calls.back() != "rename";
        EXPECT_EQ(Read(Path("a")), renamed ? "new" : "old") << calls.back();
        EXPECT_EQ(ModeOf(Path("a")), 0640U) << calls.back();
        // The next save in the folder takes the litter away.
        EXPECT_EQ(Finish(Start({QUARNEL_REPLACE_DRIVER, Beside("new"), Path("b")})), 0);
        EXPECT_EQ(Names(), (NameList{"a", "b"})) << calls.back();
    }
    EXPECT_EQ(Read(Path("a")), "new");
    EXPECT_GT(n, 15U);
}

TEST_F(FailingSaves, FailureAtEveryCallLeavesOldOrNewAndNoLitter) {
    for (const int error : {EIO, EACCES, ENOSPC})
        for (std::size_t n = 1;; ++n) {
            const int status = SaveFailingAt(n, error);
            ASSERT_GE(status, 0) << n;
            const NameList calls = Calls();
            if (calls.size() < n)
                break;
            EXPECT_TRUE(Read(Path("a")) == "new" || (status == 1 && Read(Path("a")) == "old"))
                << calls[n - 1];
            EXPECT_EQ(Names(), NameList{"a"}) << calls[n - 1];
            EXPECT_EQ(ModeOf(Path("a")) & ~0640U, 0U) << calls[n - 1];
            EXPECT_EQ(Read(Beside("said")).empty(), status == 0) << calls[n - 1];
        }
}

TEST_F(FailingSaves, FailingPermissionsFailTheSave) {
    EXPECT_EQ(SaveWithout("fchmod", EPERM), 1);
    EXPECT_EQ(Read(Beside("said")), "70 Permission denied\n");
    ExpectOldAndNothingElse();
}

// A full disk on another machine is told only when the file is closed.
TEST_F(FailingSaves, FailingCloseFailsTheSave) {
    ASSERT_EQ(SaveFailingAt(0, 0), 0);
    const NameList calls = Calls();
    const std::size_t flushed = PlacesOf("fsync", calls).front();
    for (const std::size_t place : PlacesOf("close", calls)) {
        if (place < flushed || place > PlacesOf("rename", calls).front())
            continue;
        EXPECT_EQ(SaveFailingAt(place, ENOSPC), 1);
        EXPECT_EQ(Read(Beside("said")), "61 Disk full\n");
        ExpectOldAndNothingElse();
        return;
    }
    FAIL() << "the file is not closed before the renaming";
}

TEST_F(FailingSaves, FailingFlushFailsTheSave) {
    EXPECT_EQ(SaveWithout("fsync", EIO), 1);
    EXPECT_EQ(Read(Beside("said")), "57 Device I/O error\n");
    ExpectOldAndNothingElse();
}

TEST_F(FailingSaves, DiskThatTakesNothingIsNotAskedForEver) {
    EXPECT_EQ(SaveWithout("write", -1), 1);
    EXPECT_EQ(Read(Beside("said")), "57 Device I/O error\n");
    ExpectOldAndNothingElse();
}

TEST_F(FailingSaves, FileSystemWithoutLocksSavesAllTheSame) {
    EXPECT_EQ(SaveWithout("flock", ENOLCK), 0);
    EXPECT_EQ(Read(Path("a")), "new");
    EXPECT_EQ(Names(), NameList{"a"});
}

TEST_F(FailingSaves, FileSystemWithoutAttributesOrListsSavesAllTheSame) {
    for (const char* call : {"listxattr", "getxattr", "fsetxattr", "fremovexattr"}) {
        EXPECT_EQ(SaveWithout(call, ENOTSUP), 0) << call;
        EXPECT_EQ(Read(Path("a")), "new") << call;
        EXPECT_EQ(ModeOf(Path("a")), 0640U) << call;
    }
}

} // namespace quarnel::test
