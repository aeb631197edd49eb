// Who may include whom: a room includes itself and the rooms below it, and what computes includes
// no Qt. The sources themselves are read, so that a new file is judged like any other.

#include "tests/SourceFolder.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {
namespace {

namespace fs = std::filesystem;

/// The rooms from the ground up. The two programs share the roof and know nothing of each other.
constexpr std::array<std::string_view, 12> Rooms = {
    "system", "widgets",     "project",     "wellgeometry", "recovery", "kcompute",
    "output", "diagnostics", "loggerfiles", "compare",      "cli",      "app"};

struct Include {
    std::string file; ///< who includes, from the root of the sources
    std::string what; ///< what stands in quotes or brackets
    bool quoted = false;
};

std::string RoomOf(std::string_view path) {
    return std::string(path.substr(0, path.find('/')));
}

std::optional<std::size_t> Floor(std::string_view path) {
    const auto found = std::find(Rooms.begin(), Rooms.end(), RoomOf(path));
    if (found == Rooms.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - Rooms.begin());
}

/// What is wrong with an include between the files of rooms; empty when nothing is.
std::string Fault(const Include& include) {
    if (!include.quoted || RoomOf(include.file) == RoomOf(include.what))
        return {};
    const std::optional<std::size_t> from = Floor(include.file);
    const std::optional<std::size_t> to = Floor(include.what);
    const std::string said = include.file + " includes " + include.what;
    if (!to)
        return said + ", which is in no room";
    const bool programs = RoomOf(include.file) == "app" && RoomOf(include.what) == "cli";
    return *to > *from || programs ? said : std::string();
}

/// The include of a line of source, if it is one.
std::optional<Include> ParseInclude(const std::string& file, std::string line) {
    std::erase_if(line, [](unsigned char c) { return std::isspace(c) != 0; });
    constexpr std::string_view Start = "#include";
    if (!line.starts_with(Start) || line.size() < Start.size() + 2)
        return std::nullopt;
    const bool quoted = line[Start.size()] == '"';
    const std::size_t end = line.find(quoted ? '"' : '>', Start.size() + 1);
    if (end == std::string::npos)
        return std::nullopt;
    return Include{file, line.substr(Start.size() + 1, end - Start.size() - 1), quoted};
}

fs::path Root() {
    return test::SourceFolder();
}

std::string ReadAll(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<Include> IncludesOf(const std::string& file) {
    std::vector<Include> includes;
    std::istringstream lines(ReadAll(Root() / file));
    for (std::string line; std::getline(lines, line);)
        if (std::optional<Include> include = ParseInclude(file, line))
            includes.push_back(std::move(*include));
    return includes;
}

/// Every source and header of the rooms there are, from the root of the sources.
std::vector<std::string> FilesOfRooms() {
    std::vector<std::string> files;
    for (const std::string_view room : Rooms) {
        if (!fs::is_directory(Root() / room))
            continue;
        for (const auto& entry : fs::recursive_directory_iterator(Root() / room))
            if (entry.path().extension() == ".cpp" || entry.path().extension() == ".h")
                files.push_back(entry.path().lexically_relative(Root()).generic_string());
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// The sources that a room's CMakeLists.txt puts into `target`.
std::vector<std::string> SourcesOf(const std::string& target) {
    std::vector<std::string> sources;
    for (const std::string_view room : Rooms) {
        std::string text = ReadAll(Root() / room / "CMakeLists.txt");
        std::replace_if(
            text.begin(), text.end(), [](char c) { return c == '(' || c == ')'; }, '\n');
        std::istringstream words(text);
        bool inside = false;
        for (std::string word; words >> word;) {
            if (word == "target_sources") {
                inside = words >> word && word == target;
            } else if (inside && word.ends_with(".cpp")) {
                sources.push_back(std::string(room) + "/" + word);
            } else if (word != "PRIVATE" && !word.ends_with(".h")) {
                inside = inside && word.ends_with(".cpp");
            }
        }
    }
    return sources;
}

bool IsQt(const Include& include) {
    return !include.quoted && include.what.size() > 1 &&
           ((include.what[0] == 'Q' && std::isupper(static_cast<unsigned char>(include.what[1]))) ||
            include.what.starts_with("Qt"));
}

/// Follows the includes of `file`, says which of them is Qt's.
void CollectQt(const std::string& file, std::set<std::string>& seen,
               std::vector<std::string>& faults) {
    if (!seen.insert(file).second)
        return;
    for (const Include& include : IncludesOf(file)) {
        if (IsQt(include))
            faults.push_back(file + " includes Qt's " + include.what);
        else if (include.quoted)
            CollectQt(include.what, seen, faults);
    }
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string all;
    for (const std::string& line : lines)
        all += line + "\n";
    return all;
}

} // namespace

TEST(Rooms, NoneIncludesOneAboveIt) {
    std::vector<std::string> faults;
    std::size_t read = 0;
    for (const std::string& file : FilesOfRooms())
        for (const Include& include : IncludesOf(file)) {
            ++read;
            if (std::string fault = Fault(include); !fault.empty())
                faults.push_back(std::move(fault));
        }
    EXPECT_TRUE(faults.empty()) << Joined(faults);
    EXPECT_GT(read, 500U); // all of them were read
}

TEST(Rooms, WhatComputesIncludesNoQt) {
    const std::vector<std::string> sources = SourcesOf("quarnel_core");
    EXPECT_GT(sources.size(), 30U);
    std::set<std::string> seen;
    std::vector<std::string> faults;
    for (const std::string& source : sources) {
        EXPECT_TRUE(fs::exists(Root() / source)) << source;
        CollectQt(source, seen, faults);
    }
    EXPECT_TRUE(faults.empty()) << Joined(faults);
    EXPECT_GT(seen.size(), sources.size()); // their headers too
}

TEST(Rooms, EveryHeaderIsIncludedFromTheRootOfTheSources) {
    std::vector<std::string> faults;
    for (const std::string& file : FilesOfRooms())
        for (const Include& include : IncludesOf(file))
            if (include.quoted && !fs::exists(Root() / include.what))
                faults.push_back(file + " includes " + include.what + ", which is not there");
    // The one file that the build makes is included by its bare name.
    std::erase_if(
        faults, [](const std::string& fault) { return fault.find(".moc,") != std::string::npos; });
    EXPECT_TRUE(faults.empty()) << Joined(faults);
}

TEST(Rooms, AnIncludeThatGoesUpIsNamed) {
    const auto fault = [](const std::string& file, const std::string& line) {
        const std::optional<Include> include = ParseInclude(file, line);
        return include ? Fault(*include) : "no include";
    };
    EXPECT_EQ(fault("system/A.h", "#include \"project/B.h\""), "system/A.h includes project/B.h");
    EXPECT_EQ(fault("widgets/A.cpp", "  #  include \"project/B.h\" // why"),
              "widgets/A.cpp includes project/B.h");
    EXPECT_EQ(fault("cli/A.cpp", "#include \"app/B.h\""), "cli/A.cpp includes app/B.h");
    EXPECT_EQ(fault("app/A.cpp", "#include \"cli/B.h\""), "app/A.cpp includes cli/B.h");
    EXPECT_EQ(fault("recovery/A.cpp", "#include \"tests/B.h\""),
              "recovery/A.cpp includes tests/B.h, which is in no room");
    EXPECT_EQ(fault("recovery/A.cpp", "#include \"B.h\""),
              "recovery/A.cpp includes B.h, which is in no room");
    EXPECT_EQ(fault("app/A.cpp", "#include \"system/B.h\""), "");
    EXPECT_EQ(fault("app/A.cpp", "#include \"app/B.h\""), "");
    EXPECT_EQ(fault("kcompute/A.cpp", "#include <vector>"), "");
    EXPECT_EQ(fault("kcompute/A.cpp", "// #include \"app/B.h\""), "no include");
}

TEST(Rooms, QtIsToldFromTheStandardLibrary) {
    const auto isQt = [](const std::string& line) {
        return IsQt(ParseInclude("a/A.cpp", line).value());
    };
    EXPECT_TRUE(isQt("#include <QString>"));
    EXPECT_TRUE(isQt("#include <QtTest>"));
    EXPECT_TRUE(isQt("#include <QtGui/QImage>"));
    EXPECT_FALSE(isQt("#include <queue>"));
    EXPECT_FALSE(isQt("#include \"widgets/QtTexts.h\""));
}

} // namespace quarnel
