#pragma once

#include "tests/CoreTestSupport.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace quarnel::test {

/// A folder of its own for what is saved, and one beside it for everything else. Both go away when
/// the test ends.
class SaveTest : public testing::Test {
protected:
    using Environment = std::vector<std::pair<std::string, std::string>>;

    void SetUp() override {
        const auto parent = std::filesystem::canonical(std::filesystem::temp_directory_path());
        std::string pattern = (parent / "quarnel-save-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        root_ = pattern;
        std::filesystem::create_directory(root_ / "projects");
        std::filesystem::create_directory(root_ / "beside");
    }
    void TearDown() override { std::filesystem::remove_all(root_); }

    std::string Path(const std::string& name) const { return (root_ / "projects" / name).string(); }
    std::string Beside(const std::string& name) const { return (root_ / "beside" / name).string(); }

    static void Write(const std::string& path, std::string_view bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    static std::string Read(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    static mode_t ModeOf(const std::string& path) {
        struct stat info {};
        return stat(path.c_str(), &info) == 0 ? info.st_mode & 07777 : 0;
    }

    /// The names in the folder of saved files, in order.
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(root_ / "projects"))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    /// Starts save_driver FROM TO, with "keep" as a third argument where `keep` says so. What it
    /// says goes into the file "said" beside.
    pid_t Start(const std::string& from, const std::string& to, bool keep = false,
                const Environment& environment = {}) const {
        const pid_t child = fork();
        if (child != 0)
            return child;
        for (const auto& [name, value] : environment)
            setenv(name.c_str(), value.c_str(), 1);
        if (std::freopen(Beside("said").c_str(), "w", stdout) == nullptr)
            _exit(126);
        const char* third = keep ? "keep" : nullptr;
        execl(QUARNEL_SAVE_DRIVER, QUARNEL_SAVE_DRIVER, from.c_str(), to.c_str(), third, nullptr);
        _exit(127);
    }
    /// Waits for the end: the exit status, or minus the signal that ended it.
    static int Finish(pid_t child) {
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
    }

    std::filesystem::path root_;
};

} // namespace quarnel::test
