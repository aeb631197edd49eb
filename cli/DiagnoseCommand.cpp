#include "cli/Commands.h"
#include "cli/DiagnoseOutput.h"
#include "cli/JsonWriter.h"
#include "cli/Output.h"
#include "diagnostics/Sensitivity.h"
#include "kcompute/AnalysisRun.h"
#include "project/Texts.h"
#include "system/Locale.h"

#include <unistd.h>

namespace quarnel {

namespace {

/// Diagnoses one file after the other, so that only one is in memory, and hands each to `write`.
/// False when any failed. A reader that has gone ends it early.
template <typename Write> bool DiagnoseEach(const Words& files, Output& output, Write write) {
    const std::string separator = SystemDecimalSeparator();
    bool allComputed = true;
    for (const std::string& file : files) {
        const AnalysisRun run = RunAnalysis(file, separator);
        allComputed = allComputed && run.status != ComputationStatus::Error;
        write(run);
        if (output.HasFailed())
            break;
    }
    return allComputed;
}

bool DiagnoseAsTable(const Words& files, const DiagnoseOptions& options, Output& output) {
    bool isFirst = true;
    return DiagnoseEach(files, output, [&](const AnalysisRun& run) {
        output.Write(isFirst ? "" : "\n");
        isFirst = false;
        PrintMessages(run.file, run.messages);
        WriteDiagnosticsTable(run, options, output);
        output.Flush(); // so that messages and tables keep their order on a terminal
    });
}

bool DiagnoseAsCsv(const Words& files, Output& output) {
    output.Write(DiagnosticsCsvHeader());
    return DiagnoseEach(files, output, [&](const AnalysisRun& run) {
        PrintMessages(run.file, run.messages);
        output.Write(DiagnosticsCsvRow(run));
    });
}

bool DiagnoseAsJson(const Words& files, const DiagnoseOptions& options, Output& output) {
    JsonWriter json(output);
    json.BeginArray();
    const bool allComputed = DiagnoseEach(
        files, output, [&](const AnalysisRun& run) { WriteDiagnosticsJson(run, options, json); });
    json.EndArray();
    return allComputed;
}

void AddOptions(CommandLine& commandLine) {
    commandLine.AddOption("format",
                          "table (to read, the default), json (everything), csv (one line per "
                          "project).",
                          "table|json|csv");
    commandLine.AddOption("sensitivity", "Also what moves K: each entry changed at a time.");
    commandLine.AddOption("percent", "Change of each entry, 1 to 50 (10); implies --sensitivity.",
                          "P");
    commandLine.AddArgument("FILE...", "Projects (.qn2) or old input files (.in).");
}

bool IsPercent(std::optional<double> percent) {
    return percent && *percent >= LeastSensitivityPercent && *percent <= GreatestSensitivityPercent;
}

} // namespace

ExitStatus DiagnoseCommand(const Words& words) {
    CommandLine commandLine(
        "diagnose [--format F] [--sensitivity] [--percent P] FILE...",
        "Says how far K of each project can be trusted: statistics of the fit, K from\n"
        "other readings, checks, and what moves K. A file that fails does not stop the\n"
        "others.\n"
        "The exit status is 0 when K of every project was computed (there may be\n"
        "warnings), 1 when any file failed.");
    AddOptions(commandLine);
    if (const auto status = commandLine.Parse(words))
        return *status;
    const Words files = commandLine.Files();
    const std::string format = commandLine.IsSet("format") ? commandLine.Value("format") : "table";
    if (format != "table" && format != "json" && format != "csv")
        return commandLine.ReportWrongUse("There is no format '" + format + "'.");
    DiagnoseOptions options;
    if (commandLine.IsSet("sensitivity"))
        options.percent = DefaultSensitivityPercent;
    if (commandLine.IsSet("percent"))
        options.percent = ParseNumber(commandLine.Value("percent"));
    if (commandLine.IsSet("percent") && !IsPercent(options.percent))
        return commandLine.ReportWrongUse("The percent must be a number from 1 to 50.");
    if (files.empty())
        return commandLine.ReportWrongUse("No file is named.");
    Output output(STDOUT_FILENO);
    const bool allComputed = format == "json"  ? DiagnoseAsJson(files, options, output)
                             : format == "csv" ? DiagnoseAsCsv(files, output)
                                               : DiagnoseAsTable(files, options, output);
    return FinishOutput(output, allComputed ? Done : Failed);
}

} // namespace quarnel
