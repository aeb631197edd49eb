#include "cli/Commands.h"
#include "cli/Output.h"
#include "kcompute/AnalysisRun.h"
#include "output/SummaryReport.h"
#include "system/Locale.h"
#include "system/OpenFile.h"
#include "system/ReplaceFile.h"

namespace quarnel {

namespace {

/// Whether a name is one of the system's for what is already open as standard output. It may be a
/// pipe or a screen, which no file can be put in the place of.
bool IsStandardOutput(std::string_view path) {
    return path == "/dev/stdout" || path == "/dev/fd/1" || path == "/proc/self/fd/1";
}

ExitStatus SaveToFile(const std::string& path, std::string_view bytes) {
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
    // A slip of the fingers must not put a report in the place of the project.
    if (commandLine.IsSet("o") && (out.empty() || IsSameFile(out, files.front())))
        return commandLine.ReportWrongUse("The report needs a file of its own.");
    const AnalysisRun run = RunAnalysis(files.front(), SystemDecimalSeparator());
    PrintMessages(run.file, run.messages);
    if (!run.isRead)
        return Failed;
    const std::string bytes = ReportBytes(run.analysis.state, run.analysis.computation.get());
    const ExitStatus written =
        out.empty() || IsStandardOutput(out) ? PrintText(bytes) : SaveToFile(out, bytes);
    return run.status == ComputationStatus::Error ? Failed : written;
}

} // namespace quarnel
