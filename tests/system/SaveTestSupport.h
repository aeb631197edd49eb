#pragma once

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <string_view>
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

    /// Starts one of the tests' own programs. What it says goes into the file "said" beside.
    pid_t Start(const std::vector<std::string>& words, const Environment& environment = {}) const {
        const pid_t child = fork();
        if (child != 0)
            return child;
        for (const auto& [name, value] : environment)
            setenv(name.c_str(), value.c_str(), 1);
        if (std::freopen(Beside("said").c_str(), "w", stdout) == nullptr)
            _exit(126);
        std::vector<char*> arguments;
        for (const std::string& word : words)
            arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        execv(arguments.front(), arguments.data());
        _exit(127);
    }
    /// The surroundings in which file calls in the folder of saved files are counted, logged to
    /// "log" beside, and fail as the settings say (see FailingCalls.cpp).
    Environment Failing(const Environment& settings) const {
        std::filesystem::remove(Beside("log"));
        Environment all = {{"LD_PRELOAD", QUARNEL_FAILING_CALLS},
                           // The sanitizers' own library expects to be the first one loaded.
                           {"ASAN_OPTIONS", "verify_asan_link_order=0"},
                           {"QUARNEL_FAIL_FOLDER", (root_ / "projects").string()},
                           {"QUARNEL_FAIL_LOG", Beside("log")}};
        all.insert(all.end(), settings.begin(), settings.end());
        return all;
    }
    /// The calls counted, in order.
    std::vector<std::string> Calls() const {
        std::vector<std::string> calls;
        std::ifstream lines(Beside("log"));
        for (std::string line; std::getline(lines, line);)
            calls.push_back(line);
        return calls;
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
