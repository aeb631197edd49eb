#include "compare/CompareRun.h"

#include "compare/CompareCsv.h"
#include "system/InOrder.h"
#include "tests/compare/CompareTestSupport.h"
#include "tests/diagnostics/DiagnosticsTestSupport.h"

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <latch>
#include <mutex>
#include <set>
#include <thread>

namespace quarnel::test {

namespace {

namespace fs = std::filesystem;

std::vector<std::string> Files(std::size_t count) {
    std::vector<std::string> files;
    for (std::size_t i = 0; i < count; ++i)
        files.push_back(std::to_string(i));
    return files;
}

CompareRow RowNamed(const std::string& file) {
    CompareRow row;
    row.file = file;
    return row;
}

} // namespace

TEST(CompareRunTest, RowsComeInTheOrderOfTheFilesWhoeverReadThem) {
    const std::vector<std::string> files = Files(500);
    for (const std::size_t jobs : {1U, 2U, 7U, 64U, 1000U}) {
        std::vector<std::string> taken;
        const bool isWhole = ReadCompareRows(
            files, jobs,
            [](const std::string& file) {
                if (file.back() == '3')
                    std::this_thread::yield(); // the others overtake it
                return RowNamed(file);
            },
            [&taken](std::size_t index, CompareRow row) {
                EXPECT_EQ(index, taken.size());
                taken.push_back(row.file);
            });
        EXPECT_TRUE(isWhole);
        EXPECT_EQ(taken, files) << jobs;
    }
}

TEST(CompareRunTest, NoFileIsAWholeRun) {
    EXPECT_TRUE(ReadCompareRows({}, 4, RowNamed, [](std::size_t, const CompareRow&) { FAIL(); }));
}

TEST(CompareRunTest, EveryWorkerTakesTheNextFile) {
    // All workers must have a file in hand before any gives its up.
    constexpr std::size_t Jobs = 6;
    std::latch allAtWork(Jobs);
    std::mutex guard;
    std::set<std::thread::id> workers;
    EXPECT_TRUE(ReadCompareRows(
        Files(Jobs), Jobs,
        [&](const std::string& file) {
            allAtWork.arrive_and_wait();
            const std::lock_guard lock(guard);
            workers.insert(std::this_thread::get_id());
            return RowNamed(file);
        },
        [](std::size_t, const CompareRow&) {}));
    EXPECT_EQ(workers.size(), Jobs);
    EXPECT_GE(DefaultJobs(), 1U);
}

TEST(CompareRunTest, NoMoreWaitForOneSlowFileThanThereIsRoomFor) {
    // The first is made only when all that may run ahead of it have been.
    constexpr std::size_t Ahead = 5;
    std::latch roomIsFull(Ahead - 1);
    std::atomic<std::size_t> made = 0;
    std::atomic<std::size_t> taken = 0;
    InOrder<std::size_t> numbers(
        [&](std::size_t index) {
            if (index == 0) {
                roomIsFull.wait();
                EXPECT_EQ(made, Ahead - 1);
            } else if (index < Ahead) {
                ++made;
                roomIsFull.count_down();
            } else {
                EXPECT_GT(taken, 0U) << index;
            }
            return index;
        },
        [&taken](std::size_t, std::size_t number) { EXPECT_EQ(number, taken++); }, Ahead);
    EXPECT_TRUE(numbers.Run(100, 3));
    EXPECT_EQ(taken, 100U);
}

TEST(CompareRunTest, AFaultWakesThoseThatWaitForRoom) {
    std::latch allWait(2);
    InOrder<int> numbers(
        [&](std::size_t index) -> int {
            if (index == 0) {
                allWait.wait();
                throw std::runtime_error("no more memory");
            }
            allWait.count_down();
            return 0;
        },
        [](std::size_t, int) { FAIL(); }, 3);
    EXPECT_THROW(numbers.Run(100, 3), std::runtime_error);
}

TEST(CompareRunTest, CancelledAtOnceNothingIsRead) {
    std::stop_source stop;
    stop.request_stop();
    std::atomic<int> read = 0;
    EXPECT_FALSE(ReadCompareRows(
        Files(100), 4,
        [&read](const std::string& file) {
            ++read;
            return RowNamed(file);
        },
        [](std::size_t, const CompareRow&) { FAIL(); }, stop.get_token()));
    EXPECT_EQ(read, 0);
}

TEST(CompareRunTest, CancelledHalfWayItEndsWithinOneFile) {
    for (const std::size_t jobs : {1U, 4U}) {
        std::stop_source stop;
        std::atomic<std::size_t> read = 0;
        std::size_t taken = 0;
        EXPECT_FALSE(ReadCompareRows(
            Files(1000), jobs,
            [&](const std::string& file) {
                // Once somebody cancels, each worker finishes the file in its hand at most.
                EXPECT_LT(read++, 50 + jobs);
                if (file == "50")
                    stop.request_stop();
                while (jobs > 1 && std::stoul(file) > 50 && !stop.stop_requested())
                    std::this_thread::yield();
                return RowNamed(file);
            },
            [&taken](std::size_t index, const CompareRow&) {
                EXPECT_EQ(index, taken);
                ++taken;
            },
            stop.get_token()));
        EXPECT_LE(taken, 51U);
    }
}

TEST(CompareRunTest, WhatAReaderThrowsEndsTheRunAndComesOut) {
    const auto run = [](bool inTake) {
        ReadCompareRows(
            Files(100), 3,
            [inTake](const std::string& file) {
                if (!inTake && file == "20")
                    throw std::runtime_error("no more memory");
                return RowNamed(file);
            },
            [inTake](std::size_t index, const CompareRow&) {
                if (inTake && index == 20)
                    throw std::runtime_error("no more memory");
            });
    };
    EXPECT_THROW(run(false), std::runtime_error);
    EXPECT_THROW(run(true), std::runtime_error);
}

TEST(CompareRunTest, OneWorkerAndManyGiveTheSameBytes) {
    std::string name = (fs::temp_directory_path() / "compare-run-XXXXXX").string();
    const fs::path folder = mkdtemp(name.data());
    std::vector<std::string> files;
    for (int i = 0; i < 40; ++i) {
        ProjectState state = i % 3 == 0 ? PrattProjectAll() : PrattProject();
        state.WellTestIDTxt[WellLabel] = "MW-" + std::to_string(i % 7);
        state.WellGeoText[GeoLe] = Typed(1 + 0.01 * i);
        state.CmboKLengthUnits = i % 4;
        files.push_back((folder / (std::to_string(i) + ".qn2")).string());
        std::ofstream(files.back()) << (i == 11 ? "junk" : ProjectFileText(state).text);
    }
    std::string expected;
    for (const std::size_t jobs : {1U, 2U, 8U, 64U}) {
        std::vector<CompareRow> rows;
        PathResolver paths;
        ReadCompareRows(
            files, jobs,
            [&paths](const std::string& file) {
                return ReadCompareRow(file, ",", {.points = true, .remarkTexts = true}, paths);
            },
            [&rows](std::size_t, CompareRow row) { rows.push_back(std::move(row)); });
        const std::string csv = CompareCsv(rows, CompareRows(rows, {}));
        expected = expected.empty() ? csv : expected;
        EXPECT_EQ(csv, expected) << jobs;
    }
    EXPECT_EQ(std::count(expected.begin(), expected.end(), '\n'), 41);
    fs::remove_all(folder);
}

} // namespace quarnel::test
