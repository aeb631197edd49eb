// Check, Y and fit of a million readings, beside parsing the same numbers.

#include "kcompute/Analysis.h"

#include <benchmark/benchmark.h>
#include <charconv>

namespace {

quarnel::Analysis& Opened() {
    static quarnel::Analysis analysis = [] {
        quarnel::Analysis opened;
        quarnel::OpenProjectFile(QUARNEL_MILLION_READINGS, opened);
        return opened;
    }();
    return analysis;
}

double Parsed(std::string_view text) {
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// The floor: the two million numbers alone.
void ParseNumbers(benchmark::State& state) {
    const quarnel::Analysis& analysis = Opened();
    while (state.KeepRunning()) {
        double sum = 0;
        for (const quarnel::RecoveryRow& row : analysis.state.RecDatGrid) {
            sum += Parsed(row.time);
            sum += Parsed(row.level);
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(1'000'000 * state.iterations());
}

void CheckComputeYAndFit(benchmark::State& state) {
    quarnel::Analysis& analysis = Opened();
    while (state.KeepRunning()) {
        // The memory of the points serves again, as it does after New and Open.
        analysis.computation.reset();
        if (quarnel::PrepareComputation(analysis).result.IsError() ||
            quarnel::Compute(analysis).IsError() || analysis.computation->usedCount != 1'000'000) {
            state.SkipWithError("K was not computed");
            break;
        }
        benchmark::DoNotOptimize(analysis.computation->KInCmPerSec);
    }
    state.SetItemsProcessed(1'000'000 * state.iterations());
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RegisterBenchmark("ParseNumbers", ParseNumbers)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("CheckComputeYAndFit", CheckComputeYAndFit)
        ->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
