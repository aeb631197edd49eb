// Ten thousand projects side by side, beside analysing them one by one and beside opening and
// parsing them on the same cores.

#include "compare/CompareRun.h"
#include "compare/CompareStatistics.h"
#include "project/Files.h"
#include "system/InOrder.h"

#include <algorithm>
#include <atomic>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <malloc.h>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr std::size_t Projects = 10'000;
constexpr int Readings = 61;

/// The texts of a test as people have them: some sixty readings to a millimetre.
std::string TextOfTest(std::size_t number) {
    quarnel::ProjectState state;
    state.SiteIDText[quarnel::SiteName] = "Site " + std::to_string(number / 100);
    state.WellTestIDTxt[quarnel::WellLabel] = "MW-" + std::to_string(number / 5);
    state.WellGeoText = {"50.60", "20.11", "1.52", "0.25", "0.128", "0"};
    state.WellGeoVertUnitsDDL = quarnel::Metre;
    state.WellGeoRadUnitsDDL = quarnel::Metre;
    state.RecDatDataTypeDDL = quarnel::ChangeInHead;
    state.RecDatWaterLevelUnitsDDL = quarnel::Metre;
    state.RecDatGrid.clear();
    const double rate = 0.001 + 0.0001 * static_cast<double>(number % 20);
    for (int i = 0; i < Readings; ++i) {
        const double level = std::round(1000 * (0.01 + 0.65 * std::exp(-rate * 15 * i))) / 1000;
        state.RecDatGrid.push_back({quarnel::CellText(std::to_string(15 * i)),
                                    quarnel::CellText(std::to_string(level).substr(0, 5))});
    }
    return quarnel::ProjectFileText(state).text;
}

/// The projects of this run, gone with it.
class Folder {
public:
    Folder() {
        std::string name = (std::filesystem::temp_directory_path() / "bench-XXXXXX").string();
        path_ = mkdtemp(name.data());
        for (std::size_t i = 0; i < Projects; ++i) {
            files_.push_back((path_ / (std::to_string(i) + ".qn2")).string());
            std::ofstream(files_.back(), std::ios::binary) << TextOfTest(i);
        }
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const std::vector<std::string>& Files() const { return files_; }

private:
    std::filesystem::path path_;
    std::vector<std::string> files_;
};

const std::vector<std::string>& Files() {
    static const Folder folder;
    return folder.Files();
}

/// What `analyze` does with each file, one after the other.
void AnalyseOneByOne(benchmark::State& state) {
    Files();
    while (state.KeepRunning())
        for (const std::string& file : Files())
            benchmark::DoNotOptimize(quarnel::RunAnalysis(file, "."));
    state.SetItemsProcessed(static_cast<std::int64_t>(Projects) * state.iterations());
}

/// The floor: the files opened and their texts taken, on as many workers as the comparison has.
void OpenAndParse(benchmark::State& state) {
    Files();
    while (state.KeepRunning()) {
        std::atomic<std::size_t> next = 0;
        std::vector<std::jthread> workers;
        for (std::int64_t i = 0; i < state.range(0); ++i)
            workers.emplace_back([&next] {
                for (std::size_t index = next++; index < Projects; index = next++) {
                    quarnel::ProjectState project;
                    benchmark::DoNotOptimize(quarnel::OpenProjectFile(Files()[index], project));
                }
            });
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(Projects) * state.iterations());
}

std::vector<quarnel::CompareRow> Rows(std::size_t jobs, const quarnel::CompareKeep& keep) {
    std::vector<quarnel::CompareRow> rows;
    rows.reserve(Projects);
    quarnel::PathResolver paths;
    quarnel::ReadCompareRows(
        Files(), jobs,
        [&](const std::string& file) { return quarnel::ReadCompareRow(file, ".", keep, paths); },
        [&rows](std::size_t, quarnel::CompareRow row) { rows.push_back(std::move(row)); });
    return rows;
}

/// The rows as the terminal needs them, with their statistics.
void Compare(benchmark::State& state) {
    Files();
    while (state.KeepRunning()) {
        const auto rows = Rows(static_cast<std::size_t>(state.range(0)), {});
        benchmark::DoNotOptimize(quarnel::CompareRows(rows, {}));
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(Projects) * state.iterations());
}

/// What a row keeps in memory, without and with what the window wants.
void PrintBytesPerRow() {
    for (const bool forWindow : {false, true}) {
        Files();
        const std::size_t before = mallinfo2().uordblks;
        const auto rows = Rows(1, {.points = forWindow, .remarkTexts = forWindow});
        const std::size_t bytes = mallinfo2().uordblks - before;
        std::cout << "bytes kept per row" << (forWindow ? ", points and sentences too: " : ": ")
                  << bytes / rows.size() << "\n";
    }
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const auto cores = static_cast<std::int64_t>(quarnel::DefaultJobs());
    const auto add = [](const char* name, void (*run)(benchmark::State&)) {
        return benchmark::RegisterBenchmark(name, run)
            ->Unit(benchmark::kMillisecond)
            ->MeasureProcessCPUTime()
            ->UseRealTime();
    };
    add("AnalyseOneByOne", AnalyseOneByOne);
    add("Compare", Compare)->Arg(1)->Arg(cores);
    add("OpenAndParse", OpenAndParse)->Arg(1)->Arg(cores);
    benchmark::RunSpecifiedBenchmarks();
    PrintBytesPerRow();
    return 0;
}
