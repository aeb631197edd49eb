#include "kcompute/AnalysisRun.h"

#include "kcompute/ComputeK.h"
#include "project/Files.h"
#include "project/Result.h"

#include <new>
#include <utility>

namespace quarnel {

namespace {

void AddError(AnalysisRun& run, std::string message) {
    run.status = ComputationStatus::Error;
    if (run.failure.empty())
        run.failure = message;
    run.messages.push_back(std::move(message));
}

void AddWarning(AnalysisRun& run, std::string message) {
    if (message.empty())
        return;
    if (run.status == ComputationStatus::Ok)
        run.status = ComputationStatus::Warning;
    run.messages.push_back(std::move(message));
}

void Read(AnalysisRun& run, std::string_view decimalSeparator) {
    run.analysis.state.DecimalSeparator = decimalSeparator;
    ReadReport report = OpenProjectFile(run.file, run.analysis);
    run.isRead = report.format != FileFormat::Unrecognised;
    for (std::string& message : report.messages)
        AddError(run, std::move(message));
}

void Prepare(AnalysisRun& run) {
    Preparation preparation = PrepareComputation(run.analysis);
    run.geometryAccepted = preparation.geometryAccepted;
    run.coefficientsComputed = preparation.coefficientsComputed;
    run.pointsChecked = preparation.pointsChecked;
    AddWarning(run, std::move(preparation.coefficientWarning));
    AddWarning(run, std::move(preparation.yWarning));
    if (preparation.result.IsError())
        AddError(run, std::move(preparation.result.message));
}

void ComputeAndTell(AnalysisRun& run) {
    Result result = Compute(run.analysis);
    if (result.IsError()) {
        AddError(run, std::move(result.message));
        return;
    }
    if (!run.analysis.computation->line.Falls())
        AddWarning(run, std::string(RisingSlopeMessage));
}

AnalysisRun ReadPrepareCompute(const std::string& path, std::string_view decimalSeparator) {
    AnalysisRun run;
    run.file = path;
    Read(run, decimalSeparator);
    if (run.isRead)
        Prepare(run);
    if (run.pointsChecked)
        ComputeAndTell(run);
    return run;
}

} // namespace

AnalysisRun RunAnalysis(const std::string& path, std::string_view decimalSeparator) {
    try {
        return ReadPrepareCompute(path, decimalSeparator);
    } catch (const std::bad_alloc&) {
        // One project too large for the machine must not take the others with it.
        AnalysisRun run;
        run.file = path;
        AddError(run, FileErrorMessage(FileFailure::OutOfMemory));
        return run;
    }
}

} // namespace quarnel
