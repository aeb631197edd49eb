// Memory that a row of a million takes in the whole program: opened, prepared, computed and shown.

#include "app/BRMainForm.h"
#include "app/MainGlobal.h"
#include "app/QuarnelApplication.h"

#include <QAbstractButton>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <unistd.h>

namespace {

constexpr double Rows = 1'000'000;
constexpr int ComputeTab = 5;

/// Bytes of memory that the process has in use.
double ResidentBytes() {
    long total = 0;
    long resident = 0;
    std::FILE* file = std::fopen("/proc/self/statm", "r");
    if (file == nullptr)
        return 0;
    const int read = std::fscanf(file, "%ld %ld", &total, &resident);
    std::fclose(file);
    return read == 2 ? static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE))
                     : 0;
}

void SettleEvents() {
    for (int i = 0; i < 10; ++i)
        QCoreApplication::processEvents();
}

void MemoryPerRow(benchmark::State& state) {
    while (state.KeepRunning()) {
        const auto window = quarnel::SetUpMainWindow();
        quarnel::ResetProject(*window);
        window->StartUp();
        SettleEvents();
        const double before = ResidentBytes();
        window->OpenPath(QStringLiteral(QUARNEL_MILLION_READINGS));
        SettleEvents();
        const double opened = ResidentBytes();
        window->SelectTab(ComputeTab);
        SettleEvents();
        auto* compute = window->findChild<QAbstractButton*>(QStringLiteral("CmdComputeK"));
        if (compute == nullptr) {
            state.SkipWithError("there is no compute button");
            return;
        }
        compute->click();
        SettleEvents();
        if (window->Current().computation == nullptr) {
            state.SkipWithError("K was not computed");
            return;
        }
        state.counters["opened_bytes_per_row"] = (opened - before) / Rows;
        state.counters["computed_bytes_per_row"] = (ResidentBytes() - before) / Rows;
    }
}

} // namespace

int main(int argc, char** argv) {
    const quarnel::QuarnelApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RegisterBenchmark("MemoryPerRow", MemoryPerRow)
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
