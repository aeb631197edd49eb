// Opening files: recognition, what the system says, the messages, the window's title.

#include "project/Files.h"

#include "tests/CoreTestSupport.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quarnel {
namespace {

using Messages = std::vector<std::string>;
namespace fs = std::filesystem;

/// An empty folder of its own, gone when the test ends.
class Files : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "quarnel-files-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::string Write(const std::string& name, std::string_view bytes) {
        const std::string path = (folder_ / name).string();
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }

    fs::path folder_;
};

/// A project that would show any change.
ProjectState Untouched() {
    ProjectState state = test::SmallProject();
    state.CurrentProjectFile = "/data/before.qn2";
    state.IgnoreKeyList = {"key"};
    return state;
}

void ExpectUntouched(const ProjectState& state) {
    EXPECT_EQ(test::Dump(state), test::Dump(Untouched()));
    EXPECT_EQ(state.CurrentProjectFile, "/data/before.qn2");
    EXPECT_EQ(state.OriginalToKeep, "");
    EXPECT_EQ(state.RecDatGrid.size(), Untouched().RecDatGrid.size());
}

TEST(FileErrorMessage, IsNumberBlankAndDescription) {
    struct Case {
        FileFailure failure;
        std::string_view message;
    };
    for (const Case& c :
         {Case{FileFailure::InvalidProcedureCall, "5 Invalid procedure call or argument"},
          Case{FileFailure::Overflow, "6 Overflow"},
          Case{FileFailure::OutOfMemory, "7 Out of memory"},
          Case{FileFailure::TypeMismatch, "13 Type mismatch"},
          Case{FileFailure::BadFileName, "52 Bad file name or number"},
          Case{FileFailure::FileNotFound, "53 File not found"},
          Case{FileFailure::DeviceIOError, "57 Device I/O error"},
          Case{FileFailure::DiskFull, "61 Disk full"},
          Case{FileFailure::InputPastEnd, "62 Input past end of file"},
          Case{FileFailure::PermissionDenied, "70 Permission denied"},
          Case{FileFailure::PathFileAccess, "75 Path/File access error"},
          Case{FileFailure::PathNotFound, "76 Path not found"},
          Case{FileFailure::InvalidPropertyValue, "380 Invalid property value"}})
        EXPECT_EQ(FileErrorMessage(c.failure), c.message);
}

TEST(FailureOfSystemError, NamesWhatTheSystemSays) {
    struct Case {
        int error;
        FileFailure failure;
    };
    for (const Case& c :
         {Case{ENOENT, FileFailure::FileNotFound}, Case{ENOTDIR, FileFailure::PathNotFound},
          Case{EACCES, FileFailure::PermissionDenied}, Case{EPERM, FileFailure::PermissionDenied},
          Case{EISDIR, FileFailure::PathFileAccess}, Case{EROFS, FileFailure::PathFileAccess},
          Case{ELOOP, FileFailure::PathFileAccess}, Case{ENOSPC, FileFailure::DiskFull},
          Case{EDQUOT, FileFailure::DiskFull}, Case{EFBIG, FileFailure::DiskFull},
          Case{ENAMETOOLONG, FileFailure::BadFileName}, Case{EINVAL, FileFailure::BadFileName},
          Case{ENOMEM, FileFailure::OutOfMemory}, Case{EIO, FileFailure::DeviceIOError},
          Case{EPIPE, FileFailure::DeviceIOError}})
        EXPECT_EQ(FailureOfSystemError(c.error), c.failure) << c.error;
}

TEST(ReadReport, KeepsEachDifferentMessageOnceInOrder) {
    ReadReport report;
    report.AddFailure(FileFailure::InputPastEnd);
    report.AddFailure(FileFailure::None);
    report.AddFailure(FileFailure::TypeMismatch);
    report.AddFailure(FileFailure::InputPastEnd);
    report.AddMessage("other");
    EXPECT_EQ(report.messages,
              (Messages{"62 Input past end of file", "13 Type mismatch", "other"}));
}

TEST_F(Files, ReadsBytesAsTheyAre) {
    std::string bytes = std::string("\0\r\n\x1A\xFF", 5);
    EXPECT_EQ(ReadFileBytes(Write("a", bytes)).View(), bytes);
    EXPECT_EQ(ReadFileBytes(Write("b", "")).View(), "");
    bytes.assign(300'000, 'x');
    EXPECT_EQ(ReadFileBytes(Write("c", bytes)).View(), bytes);
}

TEST_F(Files, AFileWhoseSizeTheSystemDoesNotKnowIsReadToItsEnd) {
    // The system gives these files a size of 0.
    const FileBytes bytes = ReadFileBytes("/proc/self/maps");
    EXPECT_EQ(bytes.failure, FileFailure::None);
    EXPECT_GT(bytes.size, 1000U);
    EXPECT_EQ(bytes.View().back(), '\n');
}

TEST_F(Files, AReadThatFailsIsADeviceError) {
    // Nothing stands at the beginning of a process's memory.
    EXPECT_EQ(ReadFileBytes("/proc/self/mem").failure, FileFailure::DeviceIOError);
}

TEST_F(Files, AFileThatMayNotBeReadIsPermissionDenied) {
    const std::string path = Write("secret", "x");
    fs::permissions(folder_,
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

TEST_F(Files, WhatCannotBeReadSaysWhy) {
    const std::string file = Write("file", "x");
    const std::string pipe = (folder_ / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string loop = (folder_ / "loop").string();
    fs::create_symlink(loop, loop);
    struct Case {
        std::string path;
        FileFailure failure;
    };
    for (const Case& c :
         {Case{(folder_ / "absent").string(), FileFailure::FileNotFound},
          Case{"absent-quarnel-file", FileFailure::FileNotFound},
          Case{"", FileFailure::FileNotFound},
          Case{"/absent-quarnel-file", FileFailure::FileNotFound},
          Case{(folder_ / "absent" / "file").string(), FileFailure::PathNotFound},
          Case{file + "/file", FileFailure::PathNotFound},
          Case{folder_.string(), FileFailure::PathFileAccess},
          Case{pipe, FileFailure::PathFileAccess}, Case{"/dev/zero", FileFailure::PathFileAccess},
          Case{loop, FileFailure::PathFileAccess},
          Case{(folder_ / std::string(300, 'n')).string(), FileFailure::BadFileName},
          Case{std::string("a\0b", 3), FileFailure::BadFileName}}) {
        EXPECT_EQ(ReadFileBytes(c.path).failure, c.failure) << c.path;
        ProjectState state = Untouched();
        const ReadReport report = OpenProjectFile(c.path, state);
        EXPECT_EQ(report.messages, Messages{FileErrorMessage(c.failure)}) << c.path;
        EXPECT_EQ(report.format, FileFormat::Unrecognised);
        ExpectUntouched(state);
    }
}

TEST_F(Files, OpensAProjectFromDisk) {
    const std::string path =
        Write("p.qn2", "\"QUARNEL PROJECT FILE\"\r\n\"WELLGEO\",\"H\",\"5\"\r\n");
    ProjectState state;
    EXPECT_EQ(OpenProjectFile(path, state).format, FileFormat::Current);
    EXPECT_EQ(state.WellGeoText[GeoH], "5");
    EXPECT_EQ(state.CurrentProjectFile, path);
}

TEST(OpenProject, TheHeaderStandsAnywhereInTheFirstLine) {
    for (const std::string_view first :
         {"\"QUARNEL PROJECT FILE\"", "quarnel project file", "xxQuarnel Project Filexx",
          "\xEF\xBB\xBF\"QUARNEL PROJECT FILE\"",
          "QUARNEL PROJECT FILE\",\"WELLGEO\",\"H\",\"9\""}) {
        ProjectState state = Untouched();
        const ReadReport report = OpenProjectBytes(std::string(first) + "\r\n", "p", state);
        EXPECT_EQ(report.format, FileFormat::Current) << first;
        EXPECT_EQ(report.messages, Messages{}) << first;
        // The first line is read whole: nothing on it counts as a record.
        EXPECT_EQ(test::Dump(state), test::Dump(ProjectState())) << first;
    }
}

TEST(OpenProject, AnEmptyFileFailsOnItsFirstLine) {
    ProjectState state = Untouched();
    const ReadReport report = OpenProjectBytes("", "p", state);
    EXPECT_EQ(report.messages, Messages{"62 Input past end of file"});
    EXPECT_EQ(report.format, FileFormat::Unrecognised);
    ExpectUntouched(state);
}

TEST(OpenProject, AFileThatIsNeitherFormatLeavesTheProjectUnchanged) {
    for (const std::string_view text :
         {"x", "\n", "one\ntwo\nthree\nfour\n", "one\ntwo\nthree\nfour", "1\n2\n3\n4\nfive\n6\n",
          "1\n2\n3\n4\nH LE Lw\n", "1\n2\n3\n4\nLe Lw\n", "1\n2\n3\n4\nH Le", "\n\n\n\n\n\n",
          " Le \n Le \n Le \n Le \n", "1\n2\n3\n4\n5\n Le \n", "x\n\"QUARNEL PROJECT FILE\"\n",
          "QUARNEL PROJECT\n FILE\n3\n4\n5\n"}) {
        ProjectState state = Untouched();
        const ReadReport report = OpenProjectBytes(text, "p", state);
        EXPECT_EQ(report.messages,
                  Messages{"The file selected does not appear to be a QUARNEL input file."})
            << text;
        EXPECT_EQ(report.format, FileFormat::Unrecognised);
        ExpectUntouched(state);
    }
}

TEST(OpenProject, ALegacyFileNeedsItsHeadingInLineFive) {
    ProjectState state;
    EXPECT_EQ(OpenProjectBytes("1\n2\n3\n4\n H Le Lw\n", "p", state).format, FileFormat::Legacy);
    EXPECT_EQ(OpenProjectBytes("1\r2\r\n3\n4\nx Le ", "p", state).format, FileFormat::Legacy);
}

} // namespace
} // namespace quarnel
