// Damaged and hostile files: read or told, in time and memory that grow as the file does. This test
// has an allocator of its own, which counts and, when asked, fails.

#include "project/Files.h"
#include "system/OpenFile.h"

#include "tests/CoreTestSupport.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <malloc.h>
#include <new>
#include <set>
#include <unistd.h>

namespace {

struct Allocations {
    std::size_t now = 0;
    std::size_t peak = 0;
    std::size_t count = 0;
    std::size_t failAt = 0; ///< the one allocation that fails, counted from 1; 0 for none
};
Allocations allocations;

} // namespace

// NOLINTBEGIN(misc-definitions-in-headers, cppcoreguidelines-no-malloc)
// The address sanitizer would end the program where memory runs out instead of saying so.
extern "C" const char* __asan_default_options() { // NOLINT
    return "allocator_may_return_null=1";
}

void* operator new(std::size_t size) {
    if (++allocations.count == allocations.failAt)
        throw std::bad_alloc();
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr)
        throw std::bad_alloc();
    allocations.now += malloc_usable_size(memory);
    allocations.peak = std::max(allocations.peak, allocations.now);
    return memory;
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void operator delete(void* memory) noexcept {
    if (memory != nullptr)
        allocations.now -= malloc_usable_size(memory);
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    operator delete(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    operator delete(memory);
}
// NOLINTEND(misc-definitions-in-headers, cppcoreguidelines-no-malloc)

namespace quarnel {
namespace {

using Messages = std::vector<std::string>;

const std::string Header = "\"QUARNEL PROJECT FILE\"\r\n";
const std::string LegacyHead = "1\n2\n3\n4\n H Le Lw\n";

std::string Repeat(std::string_view piece, std::size_t bytes) {
    std::string text;
    text.reserve(bytes + piece.size());
    while (text.size() < bytes)
        text += piece;
    return text;
}

/// A file of about the given size, whole.
struct Hostile {
    std::string_view what;
    std::function<std::string(std::size_t)> make;
};

std::string Noise(std::size_t bytes) {
    test::Random random(99);
    std::string text;
    text.reserve(bytes);
    while (text.size() < bytes)
        text += static_cast<char>(random.Below(256));
    return text;
}

std::string Nonsense(std::size_t bytes) {
    const std::string_view words[] = {
        "wellgeo",    "recdata",   "lsweight", "siteid", "wellid",       "plotinfo",   "\"",
        ",",          "\r\n",      " ",        "\t",     "SITENAME",     "H",          "1e999",
        "-1",         "datapoint", "\xE9",     "title0", "VERMEASUNITS", "KTIMEUNITS", "WELLLABEL",
        "2147483648", "\n"};
    test::Random random(98);
    std::string text;
    while (text.size() < bytes)
        text += random.Pick(words);
    return text;
}

const std::vector<Hostile>& HostileFiles() {
    static const std::vector<Hostile> Files = {
        {"zero bytes", [](std::size_t n) { return std::string(n, '\0'); }},
        {"a header, then zero bytes", [](std::size_t n) { return Header + std::string(n, '\0'); }},
        {"commas", [](std::size_t n) { return Header + std::string(n, ','); }},
        {"one long line", [](std::size_t n) { return std::string(n, 'x'); }},
        {"one long item", [](std::size_t n) { return Header + std::string(n, 'x'); }},
        {"one long text",
         [](std::size_t n) { return Header + "WELLGEO,H," + std::string(n, 'x'); }},
        {"one long key", [](std::size_t n) { return Header + "WELLGEO," + std::string(n, 'x'); }},
        {"one long number",
         [](std::size_t n) { return Header + "PLOTINFO,KTIMEUNITS," + std::string(n, '1'); }},
        {"one long reading",
         [](std::size_t n) { return Header + "RECDATA,DATAPOINT,1," + std::string(n, '1'); }},
        {"a quote never closed", [](std::size_t n) { return Header + "\"" + std::string(n, 'x'); }},
        {"quotes", [](std::size_t n) { return Header + std::string(n, '"'); }},
        {"quotes on every line", [](std::size_t n) { return Header + Repeat("\"x\r\n", n); }},
        {"blanks", [](std::size_t n) { return Header + std::string(n, ' '); }},
        {"line ends", [](std::size_t n) { return Header + Repeat("\r\n", n); }},
        {"carriage returns", [](std::size_t n) { return Header + std::string(n, '\r'); }},
        {"unknown items", [](std::size_t n) { return Header + Repeat("x,", n); }},
        {"keywords", [](std::size_t n) { return Header + Repeat("wellgeo,", n); }},
        {"unknown keys", [](std::size_t n) { return Header + Repeat("siteid,x\n", n); }},
        {"bad positions",
         [](std::size_t n) {
             return Header + Repeat("plotinfo,ktimeunits,x\nplotinfo,ktimeunits,9\n", n);
         }},
        {"empty readings",
         [](std::size_t n) { return Header + Repeat("recdata,datapoint,,\n", n); }},
        {"empty keys", [](std::size_t n) { return Header + Repeat("lsweight,\n", n); }},
        {"bytes that grow in UTF-8", [](std::size_t n) { return Header + std::string(n, '\x80'); }},
        {"noise", [](std::size_t n) { return Header + Noise(n); }},
        {"noise alone", Noise},
        {"nonsense", [](std::size_t n) { return Header + Nonsense(n); }},
        {"an old file of blanks", [](std::size_t n) { return LegacyHead + std::string(n, ' '); }},
        {"an old file of commas", [](std::size_t n) { return LegacyHead + std::string(n, ','); }},
        {"an old file of one number",
         [](std::size_t n) { return LegacyHead + std::string(n, '1'); }},
        {"an old file of numbers", [](std::size_t n) { return LegacyHead + Repeat("1 ", n); }},
        {"an old file that announces 2^31 rows",
         [](std::size_t n) {
             return LegacyHead + "1 1 1 1 1 1\n\n2147483648\n\n" + Repeat("1 2 0\n", n);
         }},
        {"an old file that announces 1e300 rows and has none",
         [](std::size_t n) {
             return LegacyHead + "1 1 1 1 1 1\n\n1e300\n\n" + std::string(n, '\n');
         }},
    };
    return Files;
}

TEST(HostileFiles, AreToldWithTheKnownMessagesOnly) {
    const std::set<std::string> known = {
        "6 Overflow", "13 Type mismatch", "62 Input past end of file", "380 Invalid property value",
        "The file selected does not appear to be a QUARNEL input file."};
    for (const Hostile& hostile : HostileFiles()) {
        for (const std::size_t size : {0U, 1U, 100U, 100'000U}) {
            ProjectState state = test::SmallProject();
            const ReadReport report = OpenProjectBytes(hostile.make(size), state);
            EXPECT_EQ(std::set<std::string>(report.messages.begin(), report.messages.end()).size(),
                      report.messages.size());
            for (const std::string& message : report.messages)
                EXPECT_TRUE(known.contains(message)) << hostile.what << ": " << message;
            EXPECT_LE(report.passedOver.size(), 100U);
            if (report.format == FileFormat::Unrecognised) {
                EXPECT_EQ(report.messages.size(), 1U) << hostile.what;
                EXPECT_EQ(test::Dump(state), test::Dump(test::SmallProject())) << hostile.what;
            } else {
                EXPECT_GE(state.RecDatGrid.size(), 50U);
            }
        }
    }
}

TEST(HostileFiles, TakeMemoryWithinAFewTimesTheirSize) {
    for (const Hostile& hostile : HostileFiles()) {
        const std::string bytes = hostile.make(4'000'000);
        const std::size_t before = allocations.now;
        allocations.peak = before;
        {
            ProjectState state;
            OpenProjectBytes(bytes, state);
        }
        const std::size_t after = allocations.now;
        EXPECT_LE(allocations.peak - before, 12 * bytes.size()) << hostile.what;
        EXPECT_EQ(after, before) << hostile.what;
    }
}

/// Processor seconds to open a file, the least of several runs.
double SecondsToOpen(const std::string& bytes) {
    double least = 1e9;
    for (int run = 0; run < 5; ++run) {
        const std::clock_t start = std::clock();
        ProjectState state;
        OpenProjectBytes(bytes, state);
        least = std::min(least, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    return least;
}

TEST(HostileFiles, TakeTimeThatGrowsAsTheirSizeDoes) {
    // Sixteen times the size takes sixteen times as long, and 256 times where the time grows as the
    // square; the bound lies between, far from both. A tenth of a millisecond is below what counts.
    for (const Hostile& hostile : HostileFiles()) {
        const double small = std::max(SecondsToOpen(hostile.make(100'000)), 1e-4);
        const double large = SecondsToOpen(hostile.make(1'600'000));
        EXPECT_LT(large, 64 * small) << hostile.what;
    }
}

TEST(HostileFiles, AHundredMegabytesOfOneLineAreToldAndLeaveTheProject) {
    ProjectState state = test::SmallProject();
    const ReadReport report = OpenProjectBytes(Repeat("x", 100'000'000), state);
    EXPECT_EQ(report.messages,
              Messages{"The file selected does not appear to be a QUARNEL input file."});
    EXPECT_EQ(test::Dump(state), test::Dump(test::SmallProject()));
}

TEST(HostileFiles, AMillionCommasAreAnEmptyProject) {
    ProjectState state;
    const ReadReport report = OpenProjectBytes(Header + std::string(1'000'000, ','), state);
    EXPECT_EQ(report.messages, Messages{});
    EXPECT_EQ(test::Dump(state), test::Dump(ProjectState()));
    EXPECT_EQ(report.passedOverCount, 0U);
}

std::vector<RecoveryRow> FilledRows(const ProjectState& state) {
    std::vector<RecoveryRow> rows;
    for (const RecoveryRow& row : state.RecDatGrid)
        if (!row.time.empty() || !row.level.empty())
            rows.push_back(row);
    return rows;
}

/// Every row but the last stands as in the whole file; the last may be cut.
void ExpectBeginningOf(const std::vector<RecoveryRow>& whole, const std::vector<RecoveryRow>& cut) {
    ASSERT_LE(cut.size(), whole.size());
    for (std::size_t i = 0; i + 1 < cut.size(); ++i) {
        ASSERT_EQ(cut[i].time.View(), whole[i].time.View());
        ASSERT_EQ(cut[i].level.View(), whole[i].level.View());
    }
    if (!cut.empty()) {
        const RecoveryRow& last = whole[cut.size() - 1];
        ASSERT_TRUE(last.time.View().starts_with(cut.back().time.View()));
        ASSERT_TRUE(last.level.View().starts_with(cut.back().level.View()));
    }
}

TEST(Truncation, AProjectCutAtAnyByteKeepsWhatStandsBefore) {
    const std::string bytes = test::ReadExample("pratt-county-1998.qn2");
    ProjectState whole;
    OpenProjectBytes(bytes, whole);
    for (std::size_t size = 1; size < bytes.size(); ++size) {
        ProjectState state;
        const ReadReport report = OpenProjectBytes(bytes.substr(0, size), state);
        ASSERT_LE(report.messages.size(), 1U) << size;
        if (size < 21) { // the header is not whole yet
            ASSERT_EQ(report.format, FileFormat::Unrecognised);
            continue;
        }
        if (!report.messages.empty()) {
            ASSERT_EQ(report.messages[0], "62 Input past end of file") << size;
        }
        ExpectBeginningOf(FilledRows(whole), FilledRows(state));
        ASSERT_LE(state.IgnoreKeyList.size(), whole.IgnoreKeyList.size());
    }
}

TEST(Truncation, ACutInsideAValueIsToldOnce) {
    // Of every byte inside the last text's quotes, and of a reading's two.
    const std::string record = Header + "\"RECDATA\",\"DATAPOINT\",\"15\",\"9.41\"";
    for (std::size_t size = record.size() - 11; size < record.size(); ++size) {
        ProjectState state;
        EXPECT_EQ(OpenProjectBytes(record.substr(0, size), state).messages,
                  Messages{"62 Input past end of file"})
            << size;
    }
}

TEST(Truncation, AFileInUtf8CutAtAnyByteIsRead) {
    const std::string bytes = test::ReadExample("every-field.qn2");
    for (std::size_t size = 30; size < bytes.size(); ++size) {
        ProjectState state;
        const ReadReport report = OpenProjectBytes(bytes.substr(0, size), state);
        ASSERT_EQ(report.format, FileFormat::Current);
        ASSERT_LE(report.messages.size(), 1U);
    }
}

TEST(Truncation, AnOldFileCutAtAnyByteKeepsItsRows) {
    const std::string bytes = test::ReadExample("pratt-county-1998.in");
    ProjectState whole;
    ASSERT_TRUE(OpenProjectBytes(bytes, whole).messages.empty());
    const std::size_t recognised = bytes.find(" Le ") + 4;
    for (std::size_t size = 1; size < bytes.size(); ++size) {
        ProjectState state;
        const ReadReport report = OpenProjectBytes(bytes.substr(0, size), state);
        ASSERT_EQ(report.format == FileFormat::Legacy, size >= recognised) << size;
        if (report.format == FileFormat::Legacy && !report.messages.empty()) {
            ASSERT_EQ(report.messages, Messages{"62 Input past end of file"}) << size;
            const bool geometry = state.WellGeoText[GeoH] == "50.6";
            ASSERT_TRUE(geometry || state.WellGeoText == ProjectState().WellGeoText) << size;
        }
        ExpectBeginningOf(FilledRows(whole), FilledRows(state));
    }
}

/// Opens a file while the allocation `failAt` fails and every later one succeeds.
ReadReport OpenWithOneFailure(const std::string& bytes, std::size_t failAt, ProjectState& state) {
    allocations.count = 0;
    allocations.failAt = failAt;
    ReadReport report = OpenProjectBytes(bytes, state);
    allocations.failAt = 0;
    return report;
}

TEST(OutOfMemory, IsToldWhereverItRunsOut) {
    const std::string project = test::ReadExample("every-field.qn2");
    const std::string old = test::ReadExample("pratt-county-1998.in");
    for (const std::string& bytes : {project, project + "\xE9", old}) {
        ProjectState whole;
        OpenProjectBytes(bytes, whole);
        std::size_t failures = 0;
        for (std::size_t failAt = 1;; ++failAt) {
            ProjectState state = test::SmallProject();
            const ReadReport report = OpenWithOneFailure(bytes, failAt, state);
            if (report.messages.empty())
                break;
            ++failures;
            ASSERT_EQ(report.messages, Messages{"7 Out of memory"}) << failAt;
            ASSERT_TRUE(state.RecoveryDataTexts.empty()) << failAt;
            if (report.format == FileFormat::Unrecognised) {
                ASSERT_EQ(test::Dump(state), test::Dump(test::SmallProject())) << failAt;
            } else {
                ExpectBeginningOf(FilledRows(whole), FilledRows(state));
            }
        }
        EXPECT_GT(failures, 3U);
    }
}

TEST(OutOfMemory, IsToldOfAFileLargerThanMemory) {
    std::string path = (std::filesystem::temp_directory_path() / "quarnel-sparse-XXXXXX").string();
    const int file = mkstemp(path.data());
    ASSERT_GE(file, 0);
    // It holds nothing: only its size is there. Not every file system goes as far as another.
    off_t size = off_t{1} << 46;
    while (ftruncate(file, size) != 0 && size > off_t{1} << 40)
        size /= 2;
    close(file);
    const FileFailure failure = ReadFileBytes(path).failure;
    std::filesystem::remove(path);
    EXPECT_EQ(failure, FileFailure::OutOfMemory);
}

TEST(OutOfMemory, KeepsTheRowsReadBefore) {
    const std::string bytes = Header +
                              "\"RECDATA\",\"DATAPOINT\",\"1\",\"2\"\r\n"
                              "\"WELLGEO\",\"H\",\"a text that needs memory of its own\"\r\n"
                              "\"RECDATA\",\"DATAPOINT\",\"3\",\"4\"\r\n";
    bool seen = false;
    for (std::size_t failAt = 1; failAt < 30; ++failAt) {
        ProjectState state;
        const ReadReport report = OpenWithOneFailure(bytes, failAt, state);
        seen = seen || (!report.messages.empty() && FilledRows(state).size() == 1);
    }
    EXPECT_TRUE(seen);
}

} // namespace
} // namespace quarnel
