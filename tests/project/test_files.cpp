// Opening files: recognition, what the system says, the messages, the window's title.

#include "project/Files.h"
#include "system/OpenFile.h"

#include "tests/CoreTestSupport.h"

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
    state.IgnoreKeyList = {"key"};
    return state;
}

void ExpectUntouched(const ProjectState& state) {
    EXPECT_EQ(test::Dump(state), test::Dump(Untouched()));
    EXPECT_EQ(state.RecDatGrid.size(), Untouched().RecDatGrid.size());
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
        ProjectState state = Untouched();
        FileOnDisk before;
        before.CurrentProjectFile = "/data/before.qn2";
        const ReadReport report = OpenProjectFile(c.path, state, before);
        EXPECT_EQ(before.CurrentProjectFile, "/data/before.qn2");
        EXPECT_EQ(report.messages, Messages{FileErrorMessage(c.failure)}) << c.path;
        EXPECT_EQ(report.format, FileFormat::Unrecognised);
        ExpectUntouched(state);
    }
}

TEST_F(Files, OpensAProjectFromDisk) {
    const std::string path =
        Write("p.qn2", "\"QUARNEL PROJECT FILE\"\r\n\"WELLGEO\",\"H\",\"5\"\r\n");
    ProjectState state;
    FileOnDisk file;
    EXPECT_EQ(OpenProjectFile(path, state, file).format, FileFormat::Current);
    EXPECT_EQ(state.WellGeoText[GeoH], "5");
    EXPECT_EQ(file.CurrentProjectFile, path);
    EXPECT_EQ(file.version, ReadFileBytes(path).version);
    EXPECT_TRUE(file.isWhole);
}

TEST(OpenProject, TheHeaderStandsAnywhereInTheFirstLine) {
    for (const std::string_view first :
         {"\"QUARNEL PROJECT FILE\"", "quarnel project file", "xxQuarnel Project Filexx",
          "\xEF\xBB\xBF\"QUARNEL PROJECT FILE\"",
          "QUARNEL PROJECT FILE\",\"WELLGEO\",\"H\",\"9\""}) {
        ProjectState state = Untouched();
        const ReadReport report = OpenProjectBytes(std::string(first) + "\r\n", state);
        EXPECT_EQ(report.format, FileFormat::Current) << first;
        EXPECT_EQ(report.messages, Messages{}) << first;
        // The first line is read whole: nothing on it counts as a record.
        EXPECT_EQ(test::Dump(state), test::Dump(ProjectState())) << first;
    }
}

TEST(OpenProject, AnEmptyFileFailsOnItsFirstLine) {
    ProjectState state = Untouched();
    const ReadReport report = OpenProjectBytes("", state);
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
        const ReadReport report = OpenProjectBytes(text, state);
        EXPECT_EQ(report.messages,
                  Messages{"The file selected does not appear to be a QUARNEL input file."})
            << text;
        EXPECT_EQ(report.format, FileFormat::Unrecognised);
        ExpectUntouched(state);
    }
}

TEST(OpenProject, ALegacyFileNeedsItsHeadingInLineFive) {
    ProjectState state;
    EXPECT_EQ(OpenProjectBytes("1\n2\n3\n4\n H Le Lw\n", state).format, FileFormat::Legacy);
    EXPECT_EQ(OpenProjectBytes("1\r2\r\n3\n4\nx Le ", state).format, FileFormat::Legacy);
}

} // namespace
} // namespace quarnel
