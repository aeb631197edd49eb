// Reading a project of a million readings, beside reading the same bytes and counting commas.

#include "project/Files.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <memory>
#include <sys/stat.h>

namespace {

constexpr const char* Path = QUARNEL_MILLION_READINGS;

/// The floor: the bytes into fresh memory, then one look at each.
void ReadBytesAndCountCommas(benchmark::State& state) {
    std::size_t size = 0;
    while (state.KeepRunning()) {
        struct stat info {};
        stat(Path, &info);
        size = static_cast<std::size_t>(info.st_size);
        const auto bytes = std::make_unique_for_overwrite<char[]>(size);
        std::FILE* file = std::fopen(Path, "rb");
        if (file == nullptr || std::fread(bytes.get(), 1, size, file) != size) {
            state.SkipWithError("the data are missing");
            break;
        }
        std::fclose(file);
        auto commas = std::count(bytes.get(), bytes.get() + size, ',');
        benchmark::DoNotOptimize(commas);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(size) * state.iterations());
}

void OpenMillionReadings(benchmark::State& state) {
    while (state.KeepRunning()) {
        quarnel::ProjectState project;
        const quarnel::ReadReport report = quarnel::OpenProjectFile(Path, project);
        if (!report.messages.empty() || project.RecDatGrid.size() < 1'000'000) {
            state.SkipWithError("the project was not read whole");
            break;
        }
        benchmark::DoNotOptimize(project.RecDatGrid.data());
    }
    state.SetItemsProcessed(1'000'000 * state.iterations());
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RegisterBenchmark("ReadBytesAndCountCommas", ReadBytesAndCountCommas)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("OpenMillionReadings", OpenMillionReadings)
        ->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
