// All diagnostics of a hundred thousand readings, beside one pass of the fit over the same points.

#include "diagnostics/Diagnostics.h"
#include "diagnostics/DiagnosticsLines.h"
#include "diagnostics/ResidualDrawing.h"
#include "kcompute/Analysis.h"
#include "kcompute/ComputeK.h"
#include "recovery/RecoveryDa.h"

#include <benchmark/benchmark.h>
#include <cmath>

namespace {

constexpr int Readings = 100'000;
constexpr double PageWidth = 11520;
constexpr double PageHeight = 5760;

/// A logger's record: ten readings a second to a tenth of a millimetre, with a little noise, all
/// used. Its first readings and its tail bend away from the line.
quarnel::Analysis& Computed() {
    static quarnel::Analysis analysis = [] {
        quarnel::Analysis made;
        made.state.WellGeoText = {"50.60", "20.11", "1.52", "0.25", "0.128", "0"};
        made.state.WellGeoVertUnitsDDL = quarnel::Metre;
        made.state.WellGeoRadUnitsDDL = quarnel::Metre;
        made.state.RecDatDataTypeDDL = quarnel::ChangeInHead;
        made.state.RecDatWaterLevelUnitsDDL = quarnel::Metre;
        made.state.VolumeOfSlugText = "5";
        made.state.RecDatGrid.clear();
        unsigned noise = 1;
        for (int i = 0; i < Readings; ++i) {
            noise = noise * 1664525U + 1013904223U;
            const double scatter = 0.002 * ((noise >> 8) / double(1 << 24) - 0.5);
            const double level = 0.01 + 0.65 * std::exp(-i / 20000.0) + scatter;
            made.state.RecDatGrid.push_back(
                {quarnel::CellText(std::to_string(i / 10) + "." + std::to_string(i % 10)),
                 quarnel::CellText(std::to_string(std::round(level * 1e4) / 1e4).substr(0, 6))});
        }
        quarnel::PrepareComputation(made);
        quarnel::Compute(made);
        return made;
    }();
    return analysis;
}

/// The floor: Y, ln Y, the gathering of the used points and the line.
void OnePassOfTheFit(benchmark::State& state) {
    quarnel::Analysis& analysis = Computed();
    while (state.KeepRunning()) {
        quarnel::ComputationPtr computation;
        quarnel::ComputeRecoveryY(analysis.working.recovery);
        if (quarnel::ComputeK(analysis.state, analysis.working, computation).IsError()) {
            state.SkipWithError("K was not computed");
            break;
        }
        benchmark::DoNotOptimize(computation->KInCmPerSec);
    }
    state.SetItemsProcessed(Readings * state.iterations());
}

/// Every page with its texts and numbers, as `diagnose --sensitivity` and the window have it.
void AllDiagnostics(benchmark::State& state) {
    const quarnel::Analysis& analysis = Computed();
    while (state.KeepRunning()) {
        quarnel::Diagnostics diagnostics(analysis.computation, analysis.state);
        const quarnel::DiagnosticsLines lines(*analysis.computation, analysis.state);
        benchmark::DoNotOptimize(lines.Statistics(diagnostics.Statistics()));
        benchmark::DoNotOptimize(lines.Windows(diagnostics.Windows()));
        benchmark::DoNotOptimize(lines.Checks(diagnostics.Checks()));
        benchmark::DoNotOptimize(lines.Sensitivity(diagnostics.SensitivityTo(10)));
        benchmark::DoNotOptimize(quarnel::DrawSegments(diagnostics, PageWidth, PageHeight));
        benchmark::DoNotOptimize(quarnel::DrawResiduals(diagnostics, PageWidth, PageHeight));
    }
    state.SetItemsProcessed(Readings * state.iterations());
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RegisterBenchmark("OnePassOfTheFit", OnePassOfTheFit)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("AllDiagnostics", AllDiagnostics)->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
