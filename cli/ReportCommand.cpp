#include "cli/AnalysisRun.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "output/SummaryReport.h"
#include "system/ReplaceFile.h"

#include <filesystem>

namespace quarnel {

namespace {

/// A slip of the fingers must not put a report in the place of the project.
bool IsSameFile(const std::string& a, const std::string& b) {
    std::error_code missing;
    return std::filesystem::equivalent(a, b, missing);
}

ExitStatus SaveReport(const std::string& path, std::string_view bytes) {
    const FileFailure failure = SaveFileBytes(path, bytes);
    if (failure == FileFailure::None)
        return Done;
    PrintMessage(path, FileErrorMessage(failure));
    return Failed;
}

} // namespace

ExitStatus ReportCommand(const Words& words) {
    CommandLine commandLine(
        "report [-o OUT] FILE",
        "Computes K of a project and writes its summary report, the same bytes as Save to\n"
        "File in the window. Where K cannot be computed the report holds what there is,\n"
        "and the exit status is 1.");
    commandLine.AddOption("o", "The file to write; otherwise standard output.", "OUT");
    commandLine.AddArgument("FILE", "A project (.qn2) or an old input file (.in).");
    if (const auto status = commandLine.Parse(words))
        return *status;
    const Words files = commandLine.Files();
    if (files.size() != 1)
        return commandLine.ReportWrongUse("Exactly one project is needed.");
    const std::string out = commandLine.Value("o");
    if (commandLine.IsSet("o") && (out.empty() || IsSameFile(out, files.front())))
        return commandLine.ReportWrongUse("The report needs a file of its own.");
    const AnalysisRun run = RunAnalysis(files.front());
    PrintMessages(run);
    if (!run.isRead)
        return Failed;
    const std::string bytes = ReportBytes(run.analysis.state, run.analysis.computation.get());
    const ExitStatus written = out.empty() ? PrintText(bytes) : SaveReport(out, bytes);
    return run.status == ComputationStatus::Error ? Failed : written;
}

} // namespace quarnel
