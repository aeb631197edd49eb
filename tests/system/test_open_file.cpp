// Reading a file: its bytes, its version, and what is refused without waiting or reading.

#include "system/OpenFile.h"

#include "tests/system/SaveTestSupport.h"

#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <thread>

namespace quarnel::test {

namespace {

namespace fs = std::filesystem;

class OpenFile : public SaveTest {
protected:
    std::string Put(const std::string& name, std::string_view bytes) const {
        Write(Path(name), bytes);
        return Path(name);
    }
    /// A file of that size which holds nothing: only its size is there.
    std::string PutSparse(const std::string& name, std::uint64_t size) const {
        fs::resize_file(Put(name, ""), size);
        return Path(name);
    }
};

} // namespace

TEST_F(OpenFile, ReadsBytesAsTheyAre) {
    std::string bytes = std::string("\0\r\n\x1A\xFF", 5);
    EXPECT_EQ(ReadFileBytes(Put("a", bytes)).View(), bytes);
    EXPECT_EQ(ReadFileBytes(Put("b", "")).View(), "");
    bytes.assign(300'000, 'x');
    EXPECT_EQ(ReadFileBytes(Put("c", bytes)).View(), bytes);
}

TEST_F(OpenFile, AFileWhoseSizeTheSystemDoesNotKnowIsReadToItsEnd) {
    // The system gives these files a size of 0.
    const FileBytes bytes = ReadFileBytes("/proc/self/maps");
    EXPECT_EQ(bytes.failure, FileFailure::None);
    EXPECT_GT(bytes.size, 1000U);
    EXPECT_EQ(bytes.View().back(), '\n');
}

TEST_F(OpenFile, AReadThatFailsIsADeviceError) {
    // Nothing stands at the beginning of a process's memory.
    EXPECT_EQ(ReadFileBytes("/proc/self/mem").failure, FileFailure::DeviceIOError);
}

TEST_F(OpenFile, AFileThatMayNotBeReadIsPermissionDenied) {
    const std::string path = Put("secret", "x");
    fs::permissions(root_, fs::perms::owner_all | fs::perms::others_exec);
    fs::permissions(root_ / "projects",
                    fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
    fs::permissions(path, fs::perms::none);
    // The administrator may read everything, so that another user has to try.
    const uid_t user = geteuid();
    constexpr uid_t Nobody = 65534;
    ASSERT_TRUE(user != 0 || seteuid(Nobody) == 0);
    const FileFailure failure = ReadFileBytes(path).failure;
    ASSERT_TRUE(user != 0 || seteuid(user) == 0);
    EXPECT_EQ(failure, FileFailure::PermissionDenied);
}

TEST_F(OpenFile, WhatIsNoPlainFileIsRefused) {
    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(Path("socket").size(), sizeof address.sun_path);
    Path("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    const int server = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    for (const std::string& path :
         {Path("pipe"), Path("socket"), Path(""), std::string("/dev/zero")})
        EXPECT_EQ(ReadFileBytes(path).failure, FileFailure::PathFileAccess) << path;
    close(server);
}

// Without the second look a read would wait for ever for somebody to write into the pipe.
TEST_F(OpenFile, PipeThatComesInTheFilesPlaceIsNotWaitedFor) {
    const std::string file = Put("file", "x");
    const std::string pipe = Path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::atomic<bool> done = false;
    std::thread exchanger([&] {
        while (!done)
            syscall(SYS_renameat2, AT_FDCWD, file.c_str(), AT_FDCWD, pipe.c_str(), RENAME_EXCHANGE);
    });
    int read = 0;
    for (int i = 0; i < 100'000; ++i) {
        const FileBytes bytes = ReadFileBytes(file);
        if (bytes.failure == FileFailure::None) {
            EXPECT_EQ(bytes.View(), "x");
            ++read;
        } else {
            EXPECT_EQ(bytes.failure, FileFailure::PathFileAccess);
        }
    }
    done = true;
    exchanger.join();
    EXPECT_GT(read, 0);
}

// A file server lends files to other machines; a local program gets one as soon as it is returned.
TEST_F(OpenFile, FileOnLoanIsReadWhenItIsReturned) {
    const std::string path = Put("lent", "x");
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t borrower = fork();
    if (borrower == 0) {
        sigset_t returned;
        sigemptyset(&returned);
        sigaddset(&returned, SIGIO);
        sigprocmask(SIG_BLOCK, &returned, nullptr);
        const int file = open(path.c_str(), O_RDWR);
        const bool lent = fcntl(file, F_SETLEASE, F_WRLCK) == 0;
        const bool told = write(ready[1], lent ? "y" : "n", 1) == 1;
        int signal = 0;
        if (lent && told)
            sigwait(&returned, &signal);
        fcntl(file, F_SETLEASE, F_UNLCK);
        _exit(0);
    }
    char lent = 0;
    ASSERT_EQ(read(ready[0], &lent, 1), 1);
    EXPECT_EQ(lent, 'y');
    EXPECT_EQ(ReadFileBytes(path).View(), "x");
    EXPECT_EQ(Finish(borrower), 0);
    close(ready[0]);
    close(ready[1]);
}

TEST_F(OpenFile, FileLargerThanTheBoundIsRefusedUnread) {
    const std::string path = PutSparse("large", MostFileBytes + 1);
    rusage before{};
    getrusage(RUSAGE_SELF, &before);
    EXPECT_EQ(ReadFileBytes(path).failure, FileFailure::OutOfMemory);
    rusage after{};
    getrusage(RUSAGE_SELF, &after);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 100'000) << "kB";
}

TEST_F(OpenFile, VersionChangesWithTheContentsAlone) {
    const std::string path = Put("a", "one");
    const FileVersion version = ReadFileBytes(path).version;
    EXPECT_EQ(version.size, 3U);
    ASSERT_EQ(chmod(path.c_str(), 0600), 0);
    ASSERT_EQ(link(path.c_str(), Path("b").c_str()), 0);
    EXPECT_EQ(ReadFileBytes(path).version, version);
    EXPECT_EQ(ReadFileBytes(Path("b")).version, version);

    timespec times[2] = {};
    times[1].tv_sec = version.changedNs / 1'000'000'000;
    times[1].tv_nsec = version.changedNs % 1'000'000'000 + (version.changedNs % 2 == 0 ? 1 : -1);
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    EXPECT_NE(ReadFileBytes(path).version, version) << "a nanosecond later, written in place";

    Put("a", "longer");
    times[1].tv_nsec = version.changedNs % 1'000'000'000;
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    EXPECT_NE(ReadFileBytes(path).version, version) << "its time set back";

    Put("c", "one");
    ASSERT_EQ(utimensat(AT_FDCWD, Path("c").c_str(), times, 0), 0);
    fs::rename(Path("c"), path);
    EXPECT_NE(ReadFileBytes(path).version, version) << "another file in its place";
}

TEST_F(OpenFile, SameFileIsOneByAnyName) {
    const std::string path = Put("a", "x");
    fs::create_hard_link(path, Path("hard"));
    fs::create_symlink("a", Path("soft"));
    EXPECT_TRUE(IsSameFile(path, path));
    EXPECT_TRUE(IsSameFile(path, Path("hard")));
    EXPECT_TRUE(IsSameFile(Path("../projects/soft"), path));
    EXPECT_FALSE(IsSameFile(path, Put("b", "x")));
    EXPECT_FALSE(IsSameFile(Path("none"), Path("none")));
}

} // namespace quarnel::test
