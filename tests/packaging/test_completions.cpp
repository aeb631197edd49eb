// What Tab gives in bash, zsh and fish, held against what the programs say of themselves: a
// command, an option or a choice that --help names and Tab does not know fails here, and one that
// Tab offers and --help does not name.

#include "tests/SourceFolder.h"
#include "tests/packaging/ShellAtTerminal.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace quarnel::test {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;
using WordSet = std::set<std::string>;

/// What a command line prints.
std::string OutputOf(const std::string& commandLine) {
    FILE* pipe = popen(commandLine.c_str(), "r");
    if (pipe == nullptr)
        return {};
    std::string text;
    std::array<char, 4096> bytes;
    for (std::size_t count = 0; (count = fread(bytes.data(), 1, bytes.size(), pipe)) > 0;)
        text.append(bytes.data(), count);
    EXPECT_EQ(pclose(pipe), 0) << commandLine;
    return text;
}

/// The file of a program: `line` is a command line that begins with its name.
std::string HelpOf(const std::string& line) {
    const std::string program = line.substr(0, line.find(' '));
    const std::string file = program == "quarnel"       ? QUARNEL_PROGRAM
                             : program == "quarnel-cli" ? QUARNEL_CLI
                                                        : QUARNEL_PLOT;
    return OutputOf("'" + file + "'" + line.substr(program.size()) + " --help");
}

WordSet AllMatches(const std::string& text, const std::string& pattern) {
    const std::regex regex(pattern);
    WordSet found;
    for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match)
        found.insert((*match)[1]);
    return found;
}

Words CommandsOfHelp() {
    const std::string help = HelpOf("quarnel-cli");
    const std::size_t begin = help.find("Commands:");
    const WordSet names =
        AllMatches(help.substr(begin, help.find("\n\n", begin) - begin), "\n  ([a-z]+) ");
    return {names.begin(), names.end()};
}

/// Every option that a help text names, wherever it names it.
WordSet OptionsOfHelp(const std::string& line) {
    return AllMatches(HelpOf(line), "[\\s\\[](--?[a-z][a-z-]*)");
}

/// The choices of each option that takes one of a few words: "--type <D|H|Y>".
std::map<std::string, WordSet> ChoicesOfHelp(const std::string& line) {
    const std::string help = HelpOf(line);
    const std::regex regex("\n  (--[a-z-]+) <([^>|]+\\|[^>]+)>");
    std::map<std::string, WordSet> choices;
    for (std::sregex_iterator match(help.begin(), help.end(), regex), end; match != end; ++match)
        choices[(*match)[1]] = AllMatches((*match)[2].str() + "|", "([^|]+)\\|");
    return choices;
}

/// The command lines that have a help of their own.
Words CommandLines() {
    Words lines = {"quarnel", "quarnel-cli", "quarnel-plot"};
    for (const std::string& command : CommandsOfHelp())
        lines.push_back("quarnel-cli " + command);
    return lines;
}

/// A word without the sign that some shells put after an option or a folder.
std::string Bare(std::string word) {
    if (word.ends_with('=') || word.ends_with('/'))
        word.pop_back();
    return word;
}

std::string FolderForTest() {
    std::string name = (fs::temp_directory_path() / "completions-XXXXXX").string();
    return mkdtemp(name.data());
}

} // namespace

class Completions : public testing::TestWithParam<std::string> {
protected:
    Completions() {
        fs::create_directories(files_ + "/wells");
        fs::create_directories(home_);
        for (const char* name : {"mw-1.qn2", "mw-2.IN", "notes.txt", "part.csv", "plot.pdf"})
            std::ofstream(files_ + "/" + name) << "x";
        if (GetParam() != "fish")
            shell_ = std::make_unique<ShellAtTerminal>(GetParam(), home_);
    }
    ~Completions() override {
        shell_.reset();
        fs::remove_all(folder_);
    }

    /// The words in the place of the last one of `line`, which may be empty, when Tab offers all.
    Words Offered(const std::string& line) {
        if (!shell_)
            return OfferedByFish(line);
        Words words = shell_->WordsAfterAll(line, files_);
        const auto before = std::count(line.begin(), line.end(), ' ') - 1;
        words.erase(words.begin(), words.begin() + before);
        std::transform(words.begin(), words.end(), words.begin(), Bare);
        // With nothing to offer the line stays what it was.
        if (words == Words{line.substr(line.rfind(' ') + 1)})
            words.clear();
        return words;
    }
    WordSet SetOffered(const std::string& line) {
        const Words words = Offered(line);
        return {words.begin(), words.end()};
    }
    /// The words of the line once Tab has ended it, where only one word fits.
    Words Ended(const std::string& line) {
        return shell_ ? shell_->WordsAfterTab(line, files_) : OfferedByFish(line);
    }

private:
    Words OfferedByFish(const std::string& line) const {
        std::istringstream offers(
            OutputOf("cd '" + files_ + "' && HOME='" + home_ + "' LC_ALL=C.UTF-8 PATH=\"" +
                     fs::path(QUARNEL_CLI).parent_path().string() + ":$PATH\" fish -c " +
                     "'set fish_complete_path \"" + SourceFolder() + "/packaging/completions\"; " +
                     "complete -C \"" + line + "\"'"));
        Words words;
        for (std::string offer; std::getline(offers, offer);)
            words.push_back(Bare(offer.substr(0, offer.find('\t'))));
        return words;
    }

    std::string folder_ = FolderForTest();
    std::string files_ = folder_ + "/files";
    std::string home_ = folder_ + "/home";
    std::unique_ptr<ShellAtTerminal> shell_;
};

TEST_P(Completions, OfferTheCommandsOfTheHelp) {
    const Words commands = CommandsOfHelp();
    EXPECT_GE(commands.size(), 7U);
    WordSet offered = SetOffered("quarnel-cli ");
    std::erase_if(offered, [](const std::string& word) { return word.starts_with('-'); });
    EXPECT_EQ(offered, WordSet(commands.begin(), commands.end()));
}

TEST_P(Completions, OfferTheOptionsOfTheHelp) {
    for (const std::string& line : CommandLines()) {
        WordSet named = OptionsOfHelp(line);
        EXPECT_TRUE(named.contains("--help") || line == "quarnel-plot") << line;
        named.insert({"-h", "--help"});
        EXPECT_EQ(SetOffered(line + " -"), named) << line;
    }
}

TEST_P(Completions, OfferTheChoicesOfAnOption) {
    std::size_t options = 0;
    for (const std::string& line : CommandLines())
        for (const auto& [option, choices] : ChoicesOfHelp(line)) {
            EXPECT_EQ(SetOffered(line + " " + option + " "), choices) << line << " " << option;
            ++options;
        }
    EXPECT_GE(options, 6U);
}

TEST_P(Completions, OfferProjectsFirst) {
    const bool isFish = GetParam() == "fish";
    for (const char* line : {"quarnel ", "quarnel-plot ", "quarnel-cli analyze ",
                             "quarnel-cli diagnose --sensitivity ", "quarnel-cli report ",
                             "quarnel-cli plot ", "quarnel-cli convert "}) {
        const Words offered = Offered(line);
        ASSERT_FALSE(offered.empty()) << line;
        EXPECT_EQ(offered.front(), "mw-1.qn2") << line;
        for (const char* name : {"mw-2.IN", "wells"})
            EXPECT_EQ(std::count(offered.begin(), offered.end(), name), 1) << line << name;
        // fish goes on with the other files.
        EXPECT_EQ(std::count(offered.begin(), offered.end(), "plot.pdf"), isFish ? 1 : 0) << line;
    }
}

TEST_P(Completions, OfferEveryFileWhereAnyWillDo) {
    const WordSet all = {"mw-1.qn2", "mw-2.IN", "notes.txt", "part.csv", "plot.pdf", "wells"};
    EXPECT_EQ(SetOffered("quarnel-cli import "), all);
    EXPECT_EQ(SetOffered("quarnel-cli check mw-1.qn2 "), all);
    EXPECT_EQ(SetOffered("quarnel-cli import part.csv --barometer "), all);
}

TEST_P(Completions, OfferNothingWhereANumberIsToBeTyped) {
    EXPECT_EQ(Offered("quarnel-cli diagnose --percent "), Words{});
    EXPECT_EQ(Offered("quarnel-cli import --thin "), Words{});
}

TEST_P(Completions, EndAWordThatIsAlone) {
    const bool isFish = GetParam() == "fish";
    EXPECT_EQ(Ended("quarnel-cli ana"), Words{"analyze"});
    EXPECT_EQ(Ended("quarnel-cli import --sou").back().substr(0, 13), "--source-unit");
    EXPECT_EQ(Ended("quarnel-cli diagnose --format j").back(), "json");
    EXPECT_EQ(Ended("quarnel-cli analyze mw-1").back(), "mw-1.qn2");
    EXPECT_EQ(Ended("quarnel-plot -o plot.pdf mw-1").size(), isFish ? 1U : 3U);
}

INSTANTIATE_TEST_SUITE_P(Of, Completions, testing::Values("bash", "zsh", "fish"),
                         [](const auto& shell) { return shell.param; });

} // namespace quarnel::test
