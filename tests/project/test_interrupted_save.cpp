// A save that is killed, that meets a full disk, or that meets another save: whatever happens, the
// file is the whole old project or the whole new one.

#include "tests/CoreTestSupport.h"
#include "tests/system/SaveTestSupport.h"

#include <algorithm>
#include <cerrno>

namespace quarnel::test {

namespace {

/// What one run with a failing call left.
struct FailedRun {
    int status = 0;                 ///< exit status, or minus a signal
    std::vector<std::string> calls; ///< the counted calls in order
};

class InterruptedSave : public SaveTest {
protected:
    void SetUp() override {
        SaveTest::SetUp();
        oldBytes_ = ReadExample("pratt-county-1998.in");
        newBytes_ = ReadExample("every-field.qn2");
        Write(Beside("new.qn2"), newBytes_);
    }

    /// Saves the new project over the old one; call `n` fails with `error`, or kills where that
    /// is 0.
    FailedRun SaveFailingAt(int n, int error, bool keep) {
        for (const std::string& name : Names())
            std::filesystem::remove(Path(name));
        Write(Path("a.in"), oldBytes_);
        FailedRun run;
        run.status = Finish(StartSave(Beside("new.qn2"), keep,
                                      Failing({{"QUARNEL_FAIL_AT", std::to_string(n)},
                                               {"QUARNEL_FAIL_ERRNO", std::to_string(error)}})));
        run.calls = Calls();
        return run;
    }

    /// Starts save_driver FROM a.in, with "keep" as a third argument where `keep` says so.
    pid_t StartSave(const std::string& from, bool keep, const Environment& environment = {}) const {
        std::vector<std::string> words = {QUARNEL_SAVE_DRIVER, from, Path("a.in")};
        if (keep)
            words.emplace_back("keep");
        return Start(words, environment);
    }

    bool IsOld() const { return Read(Path("a.in")) == oldBytes_; }
    bool IsNew() const { return Read(Path("a.in")) == newBytes_; }

    std::string oldBytes_;
    std::string newBytes_;
};

long Count(const FailedRun& run, const char* call) {
    return std::count(run.calls.begin(), run.calls.end(), call);
}

} // namespace

TEST_F(InterruptedSave, KilledAtEveryCallLeavesOldOrNew) {
    for (const bool keep : {false, true}) {
        int n = 1;
        FailedRun run = SaveFailingAt(n, 0, keep);
        for (; run.status != 0; run = SaveFailingAt(++n, 0, keep)) {
            ASSERT_EQ(run.status, -SIGKILL) << "call " << n;
            ASSERT_EQ(run.calls.size(), static_cast<std::size_t>(n));
            const bool renamed = Count(run, "rename") > 0 && run.calls.back() != "rename";
            EXPECT_TRUE(renamed ? IsNew() : IsOld()) << "call " << n << " " << run.calls.back();
            EXPECT_EQ(renamed ? Read(Path("a.in.bak")) : oldBytes_, oldBytes_);
        }
        EXPECT_TRUE(IsNew());
        EXPECT_GT(n, 30);
    }
}

TEST_F(InterruptedSave, FailureAtEveryCallLeavesOldOrNewAndNoLitter) {
    for (const auto& [error, message] :
         {std::pair(ENOSPC, "61 Disk full\n"), std::pair(EIO, "57 Device I/O error\n"),
          std::pair(EACCES, "70 Permission denied\n")}) {
        for (const bool keep : {false, true}) {
            for (int n = 1;; ++n) {
                const FailedRun run = SaveFailingAt(n, error, keep);
                ASSERT_GE(run.status, 0) << "call " << n;
                EXPECT_TRUE(IsNew() || (run.status != 0 && IsOld()))
                    << "call " << n << " " << run.calls.back();
                EXPECT_EQ(Read(Beside("said")), run.status == 0 ? "" : message);
                const std::vector<std::string> names = Names();
                EXPECT_TRUE(names == std::vector<std::string>{"a.in"} ||
                            names == (std::vector<std::string>{"a.in", "a.in.bak"}))
                    << "call " << n;
                if (run.calls.size() < static_cast<std::size_t>(n))
                    break;
                // A failed save says so.
                const std::string& failed = run.calls[static_cast<std::size_t>(n) - 1];
                EXPECT_EQ(IsNew() ? Read(Path("a.in.bak")) : oldBytes_, oldBytes_)
                    << n << " " << failed;
                const bool counts = failed == "write" || failed == "fsync" || failed == "rename";
                EXPECT_EQ(counts ? run.status : 1, 1) << failed;
            }
            EXPECT_TRUE(IsNew());
        }
    }
}

TEST_F(InterruptedSave, TwoSavesAtOnceLeaveOneOfThemWhole) {
    const std::string otherBytes = ReadExample("pratt-county-1998.qn2");
    Write(Beside("other.qn2"), otherBytes);
    for (int round = 0; round < 20; ++round) {
        Write(Path("a.in"), oldBytes_);
        const pid_t one = StartSave(Beside("new.qn2"), false);
        const pid_t two = StartSave(Beside("other.qn2"), false);
        // Someone who reads meanwhile sees a whole project too.
        const std::string between = Read(Path("a.in"));
        EXPECT_TRUE(between == oldBytes_ || between == newBytes_ || between == otherBytes);
        EXPECT_EQ(Finish(one), 0);
        EXPECT_EQ(Finish(two), 0);
        EXPECT_TRUE(IsNew() || Read(Path("a.in")) == otherBytes);
        // Whoever met the old input file first has kept it.
        bool oldIsKept = false;
        for (const std::string& name : Names()) {
            oldIsKept = oldIsKept || Read(Path(name)) == oldBytes_;
            EXPECT_TRUE(name.starts_with("a.in")) << name;
            std::filesystem::remove(Path(name));
        }
        EXPECT_TRUE(oldIsKept);
    }
}

} // namespace quarnel::test
