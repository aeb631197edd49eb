#include "compare/PathResolver.h"
#include "compare/ProjectPaths.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace quarnel {

namespace {

namespace fs = std::filesystem;

/// A folder of its own, gone with the test.
class ProjectPathsTest : public testing::Test {
protected:
    ProjectPathsTest()
        : folder_(fs::temp_directory_path() / ("quarnel-paths-" + std::to_string(getpid()))) {
        fs::create_directories(folder_);
    }
    ~ProjectPathsTest() override { fs::remove_all(folder_); }

    void Write(const std::string& name) const { std::ofstream(folder_ / name) << "x"; }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const std::string& path : ProjectsIn(folder_.native()))
            names.push_back(fs::path(path).filename().native());
        return names;
    }

    fs::path folder_;
};

} // namespace

TEST_F(ProjectPathsTest, AFolderGivesItsProjectsInNaturalOrder) {
    for (const char* name : {"test 10.qn2", "test 2.QN2", "old.in", "notes.txt", "report.res",
                             "qn2", "b.qn2.bak", "Test 1.qn2"})
        Write(name);
    EXPECT_EQ(Names(),
              (std::vector<std::string>{"old.in", "Test 1.qn2", "test 2.QN2", "test 10.qn2"}));
}

TEST_F(ProjectPathsTest, FoldersInItAreNotLookedInto) {
    fs::create_directories(folder_ / "deeper.qn2");
    Write("deeper.qn2/a.qn2");
    Write("b.qn2");
    EXPECT_EQ(Names(), (std::vector<std::string>{"b.qn2"}));
}

TEST_F(ProjectPathsTest, WhatIsNoFolderHasNone) {
    EXPECT_TRUE(ProjectsIn((folder_ / "missing").native()).empty());
    Write("a.qn2");
    EXPECT_TRUE(ProjectsIn((folder_ / "a.qn2").native()).empty());
}

TEST_F(ProjectPathsTest, ResolvedPathsOfOneRunAreThoseOfEachPathAlone) {
    fs::create_directories(folder_ / "wells/north");
    Write("wells/a.qn2");
    Write("wells/north/b.qn2");
    fs::create_symlink(folder_ / "wells/a.qn2", folder_ / "wells/link.qn2");
    fs::create_symlink(folder_ / "wells", folder_ / "other");
    fs::create_symlink(folder_ / "gone.qn2", folder_ / "wells/broken.qn2");
    PathResolver paths;
    for (const char* name :
         {"wells/a.qn2", "wells/link.qn2", "other/a.qn2", "other/link.qn2", "wells/north/b.qn2",
          "wells/north/../a.qn2", "other/north/../a.qn2", "wells/./a.qn2", "wells/", "wells",
          "wells/north/.", "wells/north/..", "wells/missing.qn2", "nowhere/a.qn2",
          "wells/broken.qn2", "wells//a.qn2", ""}) {
        const std::string path = (folder_ / name).native();
        EXPECT_EQ(paths.Resolve(path), ResolvedPath(path)) << name;
    }
    const std::string whole = fs::canonical(folder_ / "wells/a.qn2").native();
    for (const char* name : {"wells/a.qn2", "wells/link.qn2", "other/a.qn2", "other/link.qn2"})
        EXPECT_EQ(paths.Resolve((folder_ / name).native()), whole) << name;
    EXPECT_EQ(paths.Resolve("/tmp"), ResolvedPath("/tmp"));
    EXPECT_EQ(paths.Resolve("CMakeCache.txt"), ResolvedPath("CMakeCache.txt"));
    EXPECT_EQ(paths.Resolve(""), ResolvedPath(""));
}

TEST(SortNaturally, GoesByTheNameOfTheFileAlone) {
    std::vector<std::string> paths = {"/a/test 10.qn2", "/b/test 2.qn2", "/c/test 1.qn2"};
    SortNaturally(paths);
    EXPECT_EQ(paths,
              (std::vector<std::string>{"/c/test 1.qn2", "/b/test 2.qn2", "/a/test 10.qn2"}));
}

TEST(RecordNames, AreThoseOfTheProjectsWithoutTheirEnding) {
    EXPECT_EQ(RecordNames({"/a/MW-3.1.qn2", "b.in", "/c/none", "/c/.hidden"}),
              (std::vector<std::string>{"MW-3.1-record.txt", "b-record.txt", "none-record.txt",
                                        ".hidden-record.txt"}));
    EXPECT_EQ(RecordNames({"/a/MW-3.qn2"}, ".pdf"), (std::vector<std::string>{"MW-3-record.pdf"}));
}

TEST(RecordNames, NoneTakesThePlaceOfAnother) {
    EXPECT_EQ(RecordNames({"/a/w.qn2", "/b/w.qn2", "/b/w.in"}),
              (std::vector<std::string>{"w-record.txt", "w-record-2.txt", "w-record-3.txt"}));
}

} // namespace quarnel
