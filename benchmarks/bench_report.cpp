// The printed report of a logger's readings as a PDF, beside the same rows as the report's text.

#include "app/QuarnelApplication.h"
#include "benchmarks/LoggerProject.h"
#include "output/PagePainter.h"
#include "output/SummaryReport.h"

#include <benchmark/benchmark.h>

namespace {

using namespace quarnel;

constexpr std::size_t Rows = 100'000;

const Analysis& Computed() {
    static const Analysis analysis = [] {
        Analysis computed;
        computed.state = bench::MakeProject(Rows);
        PrepareComputation(computed);
        Compute(computed);
        return computed;
    }();
    return analysis;
}

void ReportAsText(benchmark::State& state) {
    const Analysis& analysis = Computed();
    for (auto _ : state)
        benchmark::DoNotOptimize(SummaryReportText(analysis.state, analysis.computation.get()));
}

void ReportAsPdf(benchmark::State& state) {
    const Analysis& analysis = Computed();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            PdfOfPages(PdfPageLayout(), QString(), [&analysis](const Paper& paper) {
                return SummaryReportPages(analysis, paper);
            }));
}

} // namespace

int main(int argc, char** argv) {
    const QuarnelApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RegisterBenchmark("ReportAsText", ReportAsText)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("ReportAsPdf", ReportAsPdf)->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
